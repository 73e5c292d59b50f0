#!/usr/bin/env bash
# Packs build/windows into FOLDER/Quiltor-VERSION-win64.zip, with the licences of what is linked into it. The same
# commit gives the same bytes. usage: windows/package_zip.sh FOLDER
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

version="$(sed -nE 's/^project\(Quiltor VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)"
moment="@$(git log -1 --format=%ct)"
readonly version moment name="Quiltor-$version-win64"
readonly sources=build/windows-dependencies/sources
readonly folder="$1/$name"

# licence LIBRARY FILE...
licence() { cat "${@:2}" >"$folder/licences/$1.txt"; }

rm -rf "$folder" "$folder.zip"
mkdir -p "$folder/licences"
install -m 755 build/windows/Quiltor.aex build/windows/quiltor.exe "$folder"
sed "s/@VERSION@/$version/" windows/zip_readme.txt | sed 's/$/\r/' >"$folder/README.txt"
licence libpng "$sources/libpng1.6/LICENSE"
licence libjpeg-turbo "$sources/libjpeg-turbo/LICENSE.md" "$sources/libjpeg-turbo/README.ijg"
licence highway "$sources/highway/LICENSE"
licence pixman "$sources/pixman/COPYING"
licence cairo "$sources"/cairo/COPYING*
for package in libz-mingw-w64-dev mingw-w64-common gcc-mingw-w64-base; do
  licence "$package" "/usr/share/doc/$package/copyright"
done
for library in cli11 nlohmann-json boost; do licence "$library" <(cmake/header_licences.sh "$library"); done
# What they point to on this system has to come along.
mkdir "$folder/licences/common-licenses"
grep -ohE '/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]' "$folder"/licences/*.txt | sort -u |
  while read -r file; do cp "$file" "$folder/licences/common-licenses/$(basename "$file").txt"; done

(
  cd "$1"
  export TZ=UTC
  find "$name" -exec touch --date="$moment" {} +
  # Without the times and owners that only this system knows.
  find "$name" -type f | LC_ALL=C sort | zip -X -q -@ "$name.zip"
)
