#!/usr/bin/env bash
# shellcheck disable=SC2317
# tools/check-includes, check-headers, check-exports and check-hardening: each finds what it is there to find.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A small repository in which everything is in order.
tidy_house() {
  real sort diff tsort nproc xargs grep find pkg-config g++ as ld nm
  cp -r "$repository/tools" .
  rm -r tools/layout # built on the real library
  mkdir core gfx cmake
  echo '#define KESTRO_API __attribute__((visibility("default")))' >core/export.h
  write core/window.h '#include "core/export.h"' 'KESTRO_API int window();'
  write gfx/fill.h '#include "core/export.h"' 'KESTRO_API int fill();' 'inline int hidden() { return 0; }'
  write gfx/fill.cpp '#include "gfx/fill.h"' 'int fill() { return 0; }'
  write gfx/fill_internal.h 'int fillAll();'
  write kestro.h '#include "core/export.h"' '#include "core/window.h"' '#include "gfx/fill.h"'
}

write() {
  local file=$1
  printf '%s\n' '#pragma once' "${@:2}" >"$file"
}

library() {
  g++ -shared -fPIC -fvisibility=hidden -I. gfx/fill.cpp -o library.so 2>/dev/null
}

test_includes_in_order_pass() {
  tidy_house
  try tools/check-includes
  expect output "$output" ""
  expect status "$status" 0
}

test_a_circle_of_files_is_found() {
  tidy_house
  write core/log.h '#include "core/clock.h"'
  write core/clock.h '#include "core/file_util.h"'
  write core/file_util.h '#include "core/log.h"'
  try tools/check-includes
  expect status "$status" 1
  expect_part output "$output" "core/clock.h"
  expect_part output "$output" "core/file_util.h"
}

test_a_file_that_includes_itself_is_found() {
  tidy_house
  write core/log.h '#include "core/log.h"'
  try tools/check-includes
  expect status "$status" 1
  expect_part output "$output" "core/log.h"
}

test_a_file_that_includes_a_higher_floor_is_found() {
  tidy_house
  write gfx/fill.cpp '#  include "core/window.h"'
  try tools/check-includes
  expect status "$status" 1
  expect output "$output" "gfx/fill.cpp (floor 2) includes core/window.h (floor 3)"
}

test_the_library_may_not_include_what_is_built_on_it() {
  tidy_house
  write core/window.cpp '#include "kestro.h"'
  try tools/check-includes
  expect status "$status" 1
  expect_part output "$output" "core/window.cpp (floor 3) includes kestro.h (floor 7)"
}

test_an_included_file_that_is_not_there_is_found() {
  tidy_house
  write core/window.cpp '#include "core/missing.h"'
  try tools/check-includes
  expect status "$status" 1
  expect_part output "$output" 'core/window.cpp includes "core/missing.h", which is not here'
}

test_headers_in_order_pass() {
  tidy_house
  try tools/check-headers
  expect output "$output" ""
  expect status "$status" 0
}

test_a_header_that_does_not_compile_alone_is_found() {
  tidy_house
  write gfx/fill_internal.h 'std::string fillAll();'
  try tools/check-headers
  expect_part output "$output" "gfx/fill_internal.h does not compile alone"
  expect failed "$((status != 0))" 1
}

test_a_warning_in_a_header_is_found() {
  tidy_house
  write gfx/fill_internal.h 'inline char narrow(int wide) { return wide; }'
  try tools/check-headers
  expect_part output "$output" "gfx/fill_internal.h does not compile alone"
}

test_a_public_header_that_kestro_h_lacks_is_found() {
  tidy_house
  write gfx/text.h '#include "core/export.h"' 'KESTRO_API int text();'
  try tools/check-headers
  expect status "$status" 1
  expect_part output "$output" "> gfx/text.h"
}

test_a_hidden_header_in_kestro_h_is_found() {
  tidy_house
  echo '#include "gfx/fill_internal.h"' >>kestro.h
  try tools/check-headers
  expect status "$status" 1
  expect_part output "$output" "< gfx/fill_internal.h"
}

test_an_updated_list_is_the_exported_names() {
  tidy_house
  library
  try tools/check-exports --update library.so
  expect list "$(cat cmake/exported-symbols.txt)" "fill()"
  try tools/check-exports library.so
  expect status "$status" 0
  expect output "$output" ""
}

test_a_name_that_is_newly_exported_is_found() {
  tidy_house
  echo "fill()" >cmake/exported-symbols.txt
  echo 'KESTRO_API int newlyExported = 1;' >>gfx/fill.cpp
  library
  try tools/check-exports library.so
  expect status "$status" 1
  expect_part output "$output" "+newlyExported"
}

test_a_name_that_is_no_longer_exported_is_found() {
  tidy_house
  printf '%s\n' "fill()" "gone()" >cmake/exported-symbols.txt
  library
  try tools/check-exports library.so
  expect status "$status" 1
  expect_part output "$output" "-gone()"
}

# A library that copies into an array of its own; "$@" are options of the compiler.
guarded_library() {
  real readelf
  printf '%s\n' '#include <cstring>' \
    'void take(char*); void copy(const char* from) { char to[16]; strcpy(to, from); take(to); }' >copy.cpp
  g++ -O2 -shared -fPIC -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wl,-z,relro,-z,now \
    "$@" copy.cpp -o library.so
}

test_a_hardened_library_passes() {
  tidy_house
  guarded_library
  try tools/check-hardening library.so
  expect output "$output" ""
  expect status "$status" 0
}

test_every_lack_of_hardening_is_found() {
  tidy_house
  local options lack
  while IFS='|' read -r options lack; do
    guarded_library "$options"
    try tools/check-hardening library.so
    expect status "$status" 1
    expect output "$output" "library.so lacks $lack"
  done <<'END'
-Wl,-z,norelro|read-only relocations
-Wl,-z,lazy|binding at the start
-Wl,-z,execstack|a stack that cannot be run
-fno-stack-protector|guarded stacks
-U_FORTIFY_SOURCE|checked copies
END
  g++ -no-pie -O2 -fstack-protector-all -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wl,-z,relro,-z,now -x c++ - -o program \
    <<<'#include <cstdio>
int main(int count, char** words) { return count > 9 ? printf(words[0]) : 0; }' 2>/dev/null
  try tools/check-hardening program
  expect output "$output" "program lacks a random address"
}

run_tests
