#!/usr/bin/env bash
# shellcheck disable=SC2317
# tools/check-layout and check-abi: each finds a change that would break programs that are built, and no other.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A library with one class, reviewed and released as it is.
released_library() {
  real mktemp readelf install abidw abidiff xz diff xargs
  mkdir -p core tests/abi
  cp -r "$repository/tools" .
  printf '#include "%s"\n' core/export.h core/window.h >kestro.h
  echo '#include <kestro.h>' >tests/abi/layout.cpp
  echo '#define KESTRO_API __attribute__((visibility("default")))' >core/export.h
  window 'virtual int draw();' 'virtual int update();' 'int title;' 'int type;'
  cat >core/window.cpp <<'END'
#include "core/window.h"
Window::~Window() {}
int Window::draw() { return title; }
int Window::update() { return type; }
int open(Window* window) { return window->draw(); }
END
  build
  tools/check-layout --update layout.o
  tools/check-abi --update library.so
}

# The class, with the members "$@".
window() {
  printf '%s\n' '#pragma once' '#include "core/export.h"' 'class KESTRO_API Window {' 'public:' \
    'virtual ~Window();' "$@" '};' 'KESTRO_API int open(Window* window);' >core/window.h
}

build() {
  local flags=(-g -I. -std=c++17)
  g++ "${flags[@]}" -fno-eliminate-unused-debug-types -femit-class-debug-always -c tests/abi/layout.cpp -o layout.o
  g++ "${flags[@]}" -shared -fPIC -fvisibility=hidden core/window.cpp -o library.so
}

expect_found() {
  build
  try tools/check-layout layout.o
  expect status "$status" 1
  expect_part output "$output" "$1"
  try tools/check-abi library.so
  expect status "$status" 1
  expect_part output "$output" "$2"
}

test_what_was_released_passes() {
  released_library
  expect_part layout "$(cat tests/abi/layout.txt)" "slot   2  Window: int draw()"
  try tools/check-layout layout.o
  expect output "$output" ""
  expect status "$status" 0
  try tools/check-abi library.so
  expect output "$output" ""
  expect status "$status" 0
}

test_slots_in_another_order_are_found() {
  released_library
  window 'virtual int update();' 'virtual int draw();' 'int title;' 'int type;'
  expect_found "+  slot   3  Window: int draw()" "the vtable offset of method virtual int Window::draw() changed from 2 to 3"
}

test_fields_in_another_order_are_found() {
  released_library
  window 'virtual int draw();' 'virtual int update();' 'int type;' 'int title;'
  expect_found "+  byte   8  int type" "'int title' offset changed from 64 to 96 (in bits)"
}

test_a_field_of_another_type_is_found() {
  released_library
  window 'virtual int draw();' 'virtual int update();' 'int title;' 'long type;'
  expect_found "+  byte  16  long int type" "type name changed from 'int' to 'long int'"
}

test_a_slot_more_is_found() {
  released_library
  window 'virtual int draw();' 'virtual int update();' 'virtual int extra() { return 0; }' 'int title;' 'int type;'
  expect_found "+  slot   4  Window: int extra()" "virtual int Window::extra()"
}

test_a_function_that_is_gone_is_found() {
  released_library
  sed -i '/int open/d' core/window.h core/window.cpp
  build
  try tools/check-abi library.so
  expect status "$status" 1
  expect_part output "$output" "function int open(Window*)"
}

test_a_function_with_another_result_is_found() {
  released_library
  sed -i 's/int open/long open/' core/window.h core/window.cpp
  build
  try tools/check-abi library.so
  expect status "$status" 1
  expect_part output "$output" "return type changed"
}

test_a_function_more_passes() {
  released_library
  echo 'KESTRO_API int close(Window* window);' >>core/window.h
  echo 'int close(Window*) { return 0; }' >>core/window.cpp
  build
  try tools/check-layout layout.o
  expect status "$status" 0
  try tools/check-abi library.so
  expect status "$status" 0
}

test_a_class_that_the_object_does_not_describe_is_found() {
  released_library
  echo 'int nothing;' >tests/abi/layout.cpp
  build
  try tools/check-layout layout.o
  expect status "$status" 1
  expect_part output "$output" "layout.o does not describe Window"
}

test_a_library_that_tells_nothing_is_refused() {
  released_library
  strip --strip-debug library.so
  try tools/check-abi library.so
  expect status "$status" 1
  expect_part output "$output" "library.so has no debug information"
}

test_help_does_nothing_else() {
  real install
  cp -r "$repository/tools" .
  try tools/check-abi --help
  expect status "$status" 0
  expect_part output "$output" "Usage: tools/check-abi"
  try tools/check-layout --help
  expect_part output "$output" "Usage: tools/check-layout"
}

run_tests
