#!/usr/bin/env bash
# Hosts build against the installed library, with and without the host kit, by pkg-config and by CMake's
# find_package, and run.
# Usage: host_builds_test.sh BUILD_FOLDER FONT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
hello=$here/../../docs/hello
build=$1
font=$2

work=$(mktemp -d)
clear_away() {
  [[ ! -x ${keys-} ]] || rm -f "/dev/shm$("$keys" name)"
  rm -rf "$work"
}
trap clear_away EXIT

# shellcheck source=tests/packaging/hosts.sh
. "$here/hosts.sh"

# Installed in one place and then moved: nothing may lead back.
cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/moved"
library=$(dirname "$(find "$work/moved" -name libkestro.so)")
export PKG_CONFIG_PATH=$library/pkgconfig

only_public_headers_are_installed() {
  diff <(cd "$work/moved/include/kestro" && find . -name '*.h' -printf '%P\n' | LC_ALL=C sort) \
    <(cd "$here/../.." && {
      printf '%s\n' kestro.h hostkit/hostkit.h
      sed -nE 's/^#include "(.*)"$/\1/p' kestro.h hostkit/hostkit.h
    } | LC_ALL=C sort) ||
    fail "The installed headers are not those of kestro.h and hostkit/hostkit.h"
}

# From a folder of its own, by a user without any rights or settings.
the_launcher_runs() {
  local picture=$work/navora.png
  (cd / && env -i HOME="$work/home" "$work/moved/bin/navora" --shot "$picture" >/dev/null) ||
    fail "The installed launcher does not run"
  [[ $(od -An -tx1 -j16 -N8 "$picture") == " 00 00 05 00 00 00 02 d0" ]] ||
    fail "The installed launcher draws no picture of 1280 x 720"
  cmp -s "$work/moved/share/navora/regular.ttf" "$font" || fail "The installed launcher has not its font"
}

every_option_has_its_place_in_the_manual() {
  local program option page
  for program in navora kestro-keys; do
    page=$work/moved/share/man/man1/$program.1
    grep -q "^.TH .* \"$program $version\"" "$page" || fail "The manual page of $program is not of $version"
    while read -r option; do
      sed 's/\\-/-/g' "$page" | grep -qe "^\.BI\? $option" || fail "The manual page of $program lacks $option"
    done < <("$work/moved/bin/$program" --help | grep -oE '^  --[a-z-]+')
  done
}

# A menu of programs finds the launcher, and its icon.
the_launcher_is_in_the_menu() {
  local entry=$work/moved/share/applications/navora.desktop icons=$work/moved/share/icons/hicolor
  [[ -x $work/moved/bin/$(sed -n 's/^Exec=//p' "$entry") ]] || fail "navora.desktop starts nothing that is installed"
  [[ $(od -An -tx1 -j16 -N8 "$icons/256x256/apps/$(sed -n 's/^Icon=//p' "$entry").png") == " 00 00 01 00 00 00 01 00" &&
    -f $icons/scalable/apps/navora.svg ]] || fail "navora.desktop has no icon"
}

# Unused libraries stay linked, so that the order in which they are searched shows below.
compile() {
  local flags module=$1 program=$2
  shift 2
  read -ra flags < <(pkg-config --cflags --libs "$module")
  g++ -std=c++17 -Wl,--no-as-needed "$@" "${flags[@]}" -o "$program"
}

built_by_pkg_config() {
  compile kestro "$work/without-kit" "$here/bare_host.cpp"
  compile kestro-hostkit "$work/by-pkg-config" "$hello/hello.cpp"
}

built_by_cmake() {
  cmake -S "$hello" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$work/moved" \
    -DCMAKE_EXE_LINKER_FLAGS=-Wl,--no-as-needed >/dev/null
  cmake --build "$work/cmake" >/dev/null
  mv "$work/cmake/hello" "$work/by-cmake"
}

# "$1" is the version asked for and "$2" what else; prints why CMake does not find it, if it does not.
cmake_finds() {
  rm -rf "$work/finds"
  mkdir "$work/finds"
  printf '%s\n' 'cmake_minimum_required(VERSION 3.18)' 'project(finds LANGUAGES CXX)' \
    "find_package(Kestro $1 REQUIRED $2)" >"$work/finds/CMakeLists.txt"
  cmake -S "$work/finds" -B "$work/finds/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/moved" >"$work/log" 2>&1
}

cmake_tells_versions_and_components() {
  cmake_finds "$version" "COMPONENTS kestro hostkit" || fail "$(<"$work/log")"
  cmake_finds 0.9 "" || fail "$(<"$work/log")"
  ! cmake_finds 99.0 "" || fail "CMake finds a version that is not there"
  ! cmake_finds 0.9 "COMPONENTS nonsense" || fail "CMake finds a component that there is not"
}

# Whatever a program defines by itself takes the place of the kit's, and nothing else does. Also by a linker
# that leaves out what seems not to be needed.
own_symbols_win() {
  local symbol symbols=(gShmInfo gThemePath gKeyChunk GetKeyShm SetKeyShm initJoyStick file_filter file_handler)
  compile kestro-hostkit "$work/which.o" -c "$here/which_symbols.cpp"
  for symbol in "${symbols[@]}"; do
    compile kestro-hostkit "$work/which" -Wl,--as-needed "-DOWN_$symbol" "$here/own_symbols.cpp" "$work/which.o"
    answers "$symbol"
  done
  compile kestro-hostkit "$work/which" "${symbols[@]/#/-DOWN_}" "$here/own_symbols.cpp" "$work/which.o"
  answers "${symbols[@]}"
}

answers() {
  local said
  said=$(cd "$work" && ./which | sed '/^ScreenInit/,$d') || fail "A host with its own $* does not open"
  [[ $said == "$(printf '%s\n' "$@")" ]] || fail "Of its own $* a program has only" "$said"
}

# The defaults serve a program that takes nothing else from the kit.
defaults_come_without_a_session() {
  compile kestro-hostkit "$work/defaults" -Wl,--as-needed -x c++ - <<'END'
#include <kestro.h>
int main() {
    initLogger(0);
    return GetKeyShm(gShmInfo, 19) - 1; // as kestro-keys has set it
}
END
  "$work/defaults" || fail "The defaults do not work without a session"
}

keys_are_shown() {
  "$keys" set 19 1
  [[ $("$keys" get 19) == 1 ]] || fail "kestro-keys does not get what it has set"
}

page_shows_this_host() {
  # shellcheck disable=SC2016
  sed -n '/^```cpp$/,/^```$/{p;/^```$/q}' "$here/../../docs/host-developers.md" | sed '1d;$d' |
    diff - "$hello/hello.cpp" || fail "docs/host-developers.md ('<') does not show docs/hello/hello.cpp ('>')"
  (($(wc -l <"$hello/hello.cpp") <= 25)) || fail "docs/hello/hello.cpp has more than 25 lines"
}

export LD_LIBRARY_PATH=$library SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy
mkdir "$work/device"
export KESTRO_DEVICE_ROOT=$work/device
keys=$work/moved/bin/kestro-keys
ln -s "$font" "$work/regular.ttf"
page_shows_this_host
version=$(pkg-config --modversion kestro)
only_public_headers_are_installed
the_launcher_runs
every_option_has_its_place_in_the_manual
the_launcher_is_in_the_menu
cmake_tells_versions_and_components
built_by_pkg_config
built_by_cmake
for program in without-kit by-pkg-config by-cmake; do
  kestro_comes_before_cjson "$work/$program"
  is_linked_by_soname "$work/$program"
  runs_until_closed "$work/$program"
done
keys_are_shown
defaults_come_without_a_session
own_symbols_win
