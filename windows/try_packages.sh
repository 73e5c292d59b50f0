#!/usr/bin/env bash
# Installs the packages in FOLDER into folders of their own, whose names no code page has all of, and has both programs
# do the same, which must come out the same. usage: windows/try_packages.sh FOLDER
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages="$(realpath "$1")"
readonly packages out="$packages/try"
readonly work="$out/Jürgen 美"
readonly root="$work/debian"
export WINEPREFIX="$out/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=

fail() {
  printf 'packages: %s\n' "$*" >&2
  exit 1
}

# Puts the words of the file into one line and fails with it.
fail_with() { fail "$1: $(tr -s '\r\n' '  ' <"$2")"; }

rm -rf "$out"
mkdir -p "$work"/{windows,Textures} "$root"/var/lib/dpkg/{info,triggers,updates}
unzip -q "$packages"/Quiltor-*-win64.zip -d "$work/windows"
cp samples/layer.png samples/dots.png samples/tiles.pat "$work/Textures"

# --- the terms of what is part of the programs come along ---

while read -r name; do
  [[ -s "$(echo "$work"/windows/*/licences)/$name.txt" ]] || fail "the licences for Windows point to $name, which is not there"
done < <(grep -rohE 'common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' "$work"/windows/*/licences | sort -u)

# --- the Debian package, installed into a root of its own ---

# in_root OPTION...: does it with dpkg, which takes for installed what this system has, and leaves the system alone.
in_root() {
  dpkg --root="$root" --log="$out/dpkg.log" --force-not-root --force-bad-path "$@" >"$out/dpkg.out" 2>&1 || {
    # It misses the lists of what the other packages hold.
    sed -i '/ missing; assuming /d' "$out/dpkg.out"
    fail_with "dpkg $1 failed" "$out/dpkg.out"
  }
}

# needed FILE: the packages of the libraries that the file names. The loader comes with the C library.
needed() {
  local libraries name path owner
  libraries="$(ldd "$1")" || fail "ldd cannot read $1"
  objdump -p "$1" | awk '$1 == "NEEDED" && $2 !~ /^ld-linux/ { print $2 }' | while read -r name; do
    path="$(awk -v name="$name" '$1 == name { print $3 }' <<<"$libraries")"
    [[ "$path" == /* ]] || fail "$name is missing, which $(basename "$1") needs"
    # A package may have its files below /usr where the system has one folder for both.
    owner="$({ dpkg-query --search "$path" "/usr$path" 2>/dev/null || true; } | sed 's/:.*//' | sort -u)"
    [[ -n "$owner" ]] || fail "no package holds $name, which $(basename "$1") needs"
    echo "$owner"
  done
}

cp /var/lib/dpkg/status "$root/var/lib/dpkg"
in_root --install "$packages"/quiltor_*_amd64.deb
[[ -s "$root/usr/share/doc/quiltor/copyright" ]] || fail "the Debian package has no copyright file"
for file in "$root"/usr/lib/*/quiltor/*; do needed "$file"; done | sort -u >"$out/needed"
dpkg-query --admindir="$root/var/lib/dpkg" --show --showformat='${Depends}' quiltor | tr ',' '\n' | awk '{ print $1 }' |
  sort -u >"$out/depends"
diff "$out/needed" "$out/depends" >&2 || fail "the Debian package depends on other packages (>) than its files need (<)"

# --- both programs do the same ---

# program NAME: runs the installed program of that name in the folder that both share.
program() {
  local name=$1 command=("$root/usr/bin/quiltor")
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
[[ -s "$work/debian-patterns/tiles/tiles_00.png" ]] || fail "no pattern was converted"
diff -r "$work/debian-patterns" "$work/windows-patterns" >&2 || fail "the programs convert into different files"
both library scan Textures
same_words library scan
both library convert
same_words library convert
both library list
same_words library list
both params
same_words params

# --- nothing stays of the Debian package ---

in_root --purge quiltor
[[ -z "$(find "$root" -mindepth 1 -path "$root/var" -prune -o -print)" ]] ||
  fail "the Debian package leaves files when it is removed: $(find "$root" -path "$root/var" -prune -o -type f -print)"
printf 'packages: both programs run where they were installed, draw the same pictures and say the same\n'
