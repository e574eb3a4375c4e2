#!/usr/bin/env bash
# In the root of clean_root.sh, by a user without rights: the host of docs/hello is built in three ways, and runs.
set -euo pipefail
source=/check/source
# shellcheck source=tests/packaging/hosts.sh
. $source/tests/packaging/hosts.sh

work=$HOME/hosts
mkdir "$work"
cd "$work"
ln -s /usr/share/navora/regular.ttf regular.ttf
hello=$source/docs/hello/hello.cpp
# Unused libraries stay linked, so that the order in which they are searched shows.
export LDFLAGS=-Wl,--no-as-needed

built_by_pkg_config() {
  local flags
  read -ra flags < <(pkg-config --cflags --libs kestro-hostkit)
  g++ -std=c++17 $LDFLAGS "$hello" "${flags[@]}" -o by-pkg-config
}

# Builds the CMake project in the folder $2 and takes its program as $1.
built_by_cmake() {
  if ! { cmake -S "$2" -B "$1-build" -G Ninja && cmake --build "$1-build"; } >"$1.log" 2>&1; then
    fail "$(<"$1.log")"
  fi
  cp "$1-build/hello" "$1"
}

built_by_add_subdirectory() {
  mkdir taken-in
  cat >taken-in/CMakeLists.txt <<END
cmake_minimum_required(VERSION 3.18)
project(hello LANGUAGES CXX)
add_subdirectory($source kestro)
add_executable(hello $hello)
target_link_libraries(hello PRIVATE Kestro::hostkit)
END
  built_by_cmake by-add-subdirectory taken-in
}

built_by_pkg_config
built_by_cmake by-find-package $source/docs/hello
built_by_add_subdirectory
for program in by-pkg-config by-find-package by-add-subdirectory; do
  kestro_comes_before_cjson $program
  is_linked_by_soname $program
  runs_until_closed "$work/$program"
done
