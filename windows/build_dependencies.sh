#!/usr/bin/env bash
# Builds the libraries that the Windows build links, static, from the system's own source packages, into
# build/windows-dependencies/installed. Does nothing when they are there, built as they would be now.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly root="$PWD/build/windows-dependencies"
readonly installed="$root/installed"
readonly triple=x86_64-w64-mingw32
readonly source_packages=(libpng1.6 libjpeg-turbo highway pixman cairo)
jobs="$(nproc 2>/dev/null || echo 2)"
readonly jobs
# The same bytes in whatever folder they are built.
readonly path_flags="-ffile-prefix-map=$root=."

die() {
  printf 'windows dependencies: %s\n' "$*" >&2
  exit 1
}

# logged NAME COMMAND...: shows the command's last words when it fails.
logged() {
  local name=$1
  shift
  "$@" >"$root/$name.log" 2>&1 || {
    tail -n 20 "$root/$name.log" >&2
    die "$name failed; its last words are above, all of them in $root/$name.log"
  }
}

# The system's package sources as sources of source packages, in a list of our own: its configuration stays as it is.
write_source_list() {
  local file
  mkdir -p "$root"/apt/{parts,lists/partial,cache/archives/partial}
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [[ ! -f "$file" ]] || sed -n 's/^deb /deb-src /p' "$file" >"$root/apt/parts/$(basename "$file" .list).list"
  done
  for file in /etc/apt/sources.list.d/*.sources; do
    [[ ! -f "$file" ]] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$root/apt/parts/$(basename "$file")"
  done
}

apt_get() {
  local options=(-o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$root/apt/parts"
    -o Dir::State::Lists="$root/apt/lists" -o Dir::Cache="$root/apt/cache")
  ((EUID != 0)) || options+=(-o APT::Sandbox::User=root)
  apt-get "${options[@]}" "$@"
}

fetch_sources() {
  command -v apt-get >/dev/null || die "this system has no apt-get to fetch source packages with"
  write_source_list
  local package
  rm -rf "$root/sources"
  mkdir -p "$root/sources"
  cd "$root/sources"
  logged update apt_get update -qq
  logged fetch apt_get source -qq --download-only --tar-only "${source_packages[@]}"
  for package in "${source_packages[@]}"; do
    mkdir "$package"
    tar -xf "$package"_*.orig.tar.* -C "$package" --strip-components=1
  done
}

# with_cmake NAME FOLDER OPTION...
with_cmake() {
  local name=$1 folder=$2
  shift 2
  CFLAGS=$path_flags CXXFLAGS=$path_flags logged "$name-configure" cmake -G Ninja -S "$folder" -B "$root/build/$name" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$installed" -DCMAKE_INSTALL_LIBDIR="$installed/lib" -DBUILD_SHARED_LIBS=OFF "$@"
  logged "$name-build" cmake --build "$root/build/$name" --parallel "$jobs" --target install
}

# The libraries in C++ are compiled as what links them; those in C by GCC, whose name alone says the target.
readonly as_cpp=(--toolchain "$PWD/windows/toolchain.cmake")
readonly as_c=(-DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR=AMD64 -DCMAKE_C_COMPILER="$triple-gcc-posix"
  -DCMAKE_RC_COMPILER="$triple-windres" -DCMAKE_FIND_ROOT_PATH="/usr/$triple" -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=NEVER
  -DCMAKE_FIND_ROOT_PATH_MODE_LIBRARY=ONLY -DCMAKE_FIND_ROOT_PATH_MODE_INCLUDE=ONLY)

# with_configure NAME FOLDER LIBRARY OPTION...: builds with make, and only the folder of the library.
with_configure() (
  local name=$1 folder=$2 library=$3
  shift 3
  mkdir -p "$root/build/$name"
  cd "$root/build/$name"
  export PKG_CONFIG_LIBDIR="$installed/lib/pkgconfig"
  logged "$name-configure" "$folder/configure" --host=$triple CC=$triple-gcc-posix --prefix="$installed" \
    --disable-shared --enable-static --disable-dependency-tracking "$@"
  logged "$name-build" make -j"$jobs" -C "$library" install
)

# What is nothing but headers comes from this system, without the rest of its include folder.
link_headers() {
  local folder
  mkdir -p "$installed/include" "$installed/share/cmake"
  for folder in CLI nlohmann boost; do ln -sfn "/usr/include/$folder" "$installed/include/$folder"; done
  cp -r /usr/share/cmake/{CLI11,nlohmann_json} "$installed/share/cmake"
}

recipe="$(sha256sum windows/build_dependencies.sh windows/toolchain.cmake)"
readonly recipe
[[ ! -f "$installed/complete" || "$(<"$installed/complete")" != "$recipe" ]] || exit 0
# With what was compiled against those that were there.
rm -rf "$installed" "$root/build" build/windows
mkdir -p "$installed"
(fetch_sources)
link_headers
with_cmake libpng "$root/sources/libpng1.6" "${as_c[@]}" -DPNG_SHARED=OFF -DPNG_TESTS=OFF
with_cmake libjpeg "$root/sources/libjpeg-turbo" "${as_c[@]}" -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF \
  -DBUILD=0 -DCMAKE_ASM_NASM_FLAGS=--reproducible
with_cmake highway "$root/sources/highway" "${as_cpp[@]}" -DBUILD_TESTING=OFF -DHWY_ENABLE_CONTRIB=OFF -DHWY_ENABLE_EXAMPLES=OFF
with_cmake googletest /usr/src/googletest "${as_cpp[@]}" -DCMAKE_CXX_STANDARD=20
with_configure pixman "$root/sources/pixman" pixman CFLAGS="-O2 $path_flags" --disable-gtk --disable-libpng --disable-openmp
install -D -m 644 "$root/build/pixman/pixman-1.pc" "$installed/lib/pkgconfig/pixman-1.pc"
# Its configuration asks for checks that need a library of the C compiler's.
with_configure cairo "$root/sources/cairo" src CFLAGS="-O2 $path_flags -Wp,-U_FORTIFY_SOURCE" CPPFLAGS=-DCAIRO_WIN32_STATIC_BUILD --disable-xlib --disable-xcb \
  --disable-ft --disable-fc --disable-svg --disable-pdf --disable-ps --disable-png --disable-script \
  --disable-interpreter --disable-gobject --disable-trace
install -D -m 644 "$root/build/cairo/src/cairo.pc" "$installed/lib/pkgconfig/cairo.pc"
printf '%s\n' "$recipe" >"$installed/complete"
