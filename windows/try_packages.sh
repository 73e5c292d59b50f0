#!/usr/bin/env bash
# Installs the packages in FOLDER into folders of their own, whose names no code page has all of, and has both programs
# do the same, which must come out the same. usage: windows/try_packages.sh FOLDER
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages="$(realpath "$1")"
readonly packages out="$packages/try"
readonly work="$out/Jürgen 美"
export WINEPREFIX="$out/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=

fail() {
  printf 'packages: %s\n' "$*" >&2
  exit 1
}

# Puts the words of the file into one line and fails with it.
fail_with() { fail "$1: $(tr -s '\r\n' '  ' <"$2")"; }

rm -rf "$out"
mkdir -p "$work"/{windows,debian,Textures}
unzip -q "$packages"/Quiltor-*-win64.zip -d "$work/windows"
dpkg-deb --extract "$packages"/quiltor_*_amd64.deb "$work/debian"
cp samples/layer.png samples/dots.png samples/tiles.pat "$work/Textures"

# The system must be able to satisfy the dependencies, and they must be all that the files load.
apt-get install --simulate --no-install-recommends "$packages"/quiltor_*_amd64.deb >"$out/install.log" 2>&1 ||
  fail_with "the dependencies of the Debian package cannot be satisfied" "$out/install.log"
! ldd "$work"/debian/usr/lib/quiltor/* | grep 'not found' >&2 || fail "the libraries above are missing"

# program NAME: runs the installed program of that name in the folder that both share.
program() {
  local name=$1 command=("$work/debian/usr/bin/quiltor")
  [[ "$name" == debian ]] || command=(/usr/lib/wine/wine64 "$work"/windows/*/quiltor.exe)
  shift
  (cd "$work" && QUILTOR_USER_DIR="$work/$name-user" QUILTOR_ALLUSERS_DIR="$work/$name-all" "${command[@]}" "$@") \
    >"$out/$name.out" 2>"$out/$name.err" || fail_with "quiltor $* failed as installed from the package for $name" "$out/$name.err"
}

# both COMMAND...: with NAME for the program's name in what is written.
both() {
  local name
  for name in debian windows; do program "$name" "${@//NAME/$name}"; done
}

# Apart from the system's own ways: line ends, separators and drives, the program's name and the columns that these fill.
said() { sed -e 's/\r$//' -e 's/Z://g' -e 's,\\,/,g' -e "s/$1/NAME/g" -e 's/  */ /g' "$out/$1.out"; }
same_words() { diff <(said debian) <(said windows) >&2 || fail "the programs say different things about $*"; }
same_files() { cmp "$work/debian$1" "$work/windows$1" || fail "the programs make different files: $1"; }

both render Textures/layer.png -o NAME.png --pattern Textures/dots.png --set rotation=30 --set scale=70% --set blendmode=Multiply
same_files .png
both render Textures/layer.png -o NAME-tile.png --pattern "Textures/tiles.pat#Azulejo de Évora ✦" --depth 16
same_files -tile.png
both convert Textures -o NAME-patterns
same_words convert
for picture in "$work"/debian-patterns/tiles/*.png; do same_files "-patterns/tiles/$(basename "$picture")"; done
both library scan Textures
same_words library scan
both library convert
same_words library convert
both library list
same_words library list
both params
same_words params
printf 'packages: both programs run where they were installed, draw the same pictures and say the same\n'
