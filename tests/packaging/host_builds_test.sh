#!/usr/bin/env bash
# A host builds against the installed library by pkg-config and by CMake's find_package, and draws its page.
# Usage: host_builds_test.sh BUILD_FOLDER FONT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
hello=$here/../../docs/hello
build=$1
font=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

# Installed in one place and then moved: nothing may lead back.
cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/moved"
library=$(dirname "$(find "$work/moved" -name libkestro.so)")
export PKG_CONFIG_PATH=$library/pkgconfig

only_public_headers_are_installed() {
  diff <(cd "$work/moved/include/kestro" && find . -name '*.h' -printf '%P\n' | LC_ALL=C sort) \
    <({ echo kestro.h && sed -nE 's/^#include "(.*)"$/\1/p' "$here/../../kestro.h"; } | LC_ALL=C sort) ||
    fail "The installed headers are not those of kestro.h"
}

built_by_pkg_config() {
  read -ra flags < <(pkg-config --cflags --libs kestro)
  # Unused libraries stay linked, so that the order in which they are searched shows below.
  g++ -std=c++17 -Wl,--no-as-needed "$hello/hello.cpp" "$hello/host.cpp" "${flags[@]}" -o "$work/by-pkg-config"
}

built_by_cmake() {
  cmake -S "$hello" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$work/moved" \
    -DCMAKE_EXE_LINKER_FLAGS=-Wl,--no-as-needed >/dev/null
  cmake --build "$work/cmake" >/dev/null
  mv "$work/cmake/hello" "$work/by-cmake"
}

# kestro has a cJSON_GetObjectItem of its own that must be found before cJSON's.
kestro_comes_before_cjson() {
  local needed
  needed=$(readelf -d "$1" | sed -nE 's/.*\(NEEDED\).*\[(libkestro|libcjson)\..*\]/\1/p')
  [[ $needed == $'libkestro\nlibcjson' ]] || fail "$1 is linked in the order:" "$needed"
}

is_linked_by_soname() {
  readelf -d "$1" | grep -qF 'Shared library: [libkestro.so.0]' || fail "$1 does not ask for libkestro.so.0"
}

# A signal to end is a close request, on which the host leaves the loop.
runs_until_closed() {
  local host status=0
  : >"$work/log"
  (cd "$work" && exec timeout 20 stdbuf -oL "$1" >"$work/log") &
  host=$!
  until grep -qx 'init check_repeat_thread' "$work/log" || ! kill -0 "$host"; do
    sleep 0.02
  done
  kill -TERM "$host"
  wait "$host" || status=$?
  ((status == 0)) || fail "$1 ended with $status"
  grep -qx 'a is 1003, quit navora' "$work/log" || fail "$1 did not leave the loop"
}

readme_shows_this_host() {
  # shellcheck disable=SC2016
  sed -n '/^```cpp$/,/^```$/p' "$here/../../README.md" | sed '1d;$d' | diff - "$hello/hello.cpp" ||
    fail "README.md ('<') does not show docs/hello/hello.cpp ('>')"
}

export LD_LIBRARY_PATH=$library SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software
ln -s "$font" "$work/regular.ttf"
readme_shows_this_host
only_public_headers_are_installed
built_by_pkg_config
built_by_cmake
for program in by-pkg-config by-cmake; do
  kestro_comes_before_cjson "$work/$program"
  is_linked_by_soname "$work/$program"
  runs_until_closed "$work/$program"
done
