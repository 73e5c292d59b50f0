#!/usr/bin/env bash
# Installs the packages in dist/ into folders of their own and draws a picture with each, which must be the same.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly out="$PWD/build/package/try"
export WINEPREFIX="$out/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
export XDG_CONFIG_HOME="$out/settings" QUILTOR_ALLUSERS_DIR="$out/all"

fail() {
  printf 'packages: %s\n' "$*" >&2
  exit 1
}

rm -rf "$out"
mkdir -p "$out/windows" "$out/debian"
unzip -q dist/Quiltor-*-win64.zip -d "$out/windows"
dpkg-deb --extract dist/quiltor_*_amd64.deb "$out/debian"

draw() { "$@" --pattern samples/dots.png --set rotation=30 --set scale=70% --set blendmode=Multiply >"$out/log" 2>&1 || {
  cat "$out/log" >&2
  fail "no picture came of: $*"
}; }
draw "$out/debian/usr/bin/quiltor" render samples/layer.png -o "$out/debian.png"
draw /usr/lib/wine/wine64 "$out"/windows/*/quiltor.exe render samples/layer.png -o "$out/windows.png"
cmp "$out/debian.png" "$out/windows.png" || fail "the installed programs draw different pictures"
printf 'packages: both programs run where they were installed and draw the same picture\n'
