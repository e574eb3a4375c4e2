#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2028,SC2317
# tools/check-docs and tools/theme-pages --check, in a small repository whose build tools and launcher are stubs: each
# finds what it is there to find.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A repository whose pages are in order.
tidy_pages() {
  real g++ as ld mktemp mv cp ln chmod dirname tr wc sleep touch cut uname od sort diff tac
  cp -r "$repository/tools" .
  : >tools/layout/drawn_frame.cpp
  mkdir -p .ci docs/hello include/hostkit assets/skin
  printf '#pragma once\nint chosen();\n' >include/kestro.h
  printf '#pragma once\n' >include/hostkit/hostkit.h
  printf 'find_package(Kestro REQUIRED)\n' >docs/hello/CMakeLists.txt
  echo './test' >.ci/run
  touch CONTRIBUTING.md CHANGELOG.md
  printf '# Title of it\n\n[docs](docs/a.md#first-steps) [out](https://example.invalid/x)\n' >README.md
  printf '## First steps\n\n[back](../README.md)\n' >docs/a.md
  stub dpkg-query <<<'for package in "${@:4}"; do echo "installed $package"; done'
  stub apt-get </dev/null
  stub python3 <<<"PATH=$PATH exec python3 \"\$@\"" # which may be a script itself
  stub cmake <<'STUB'
case $1 in
  --preset)
    mkdir -p "build/$2"
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >"build/$2/CMakeCache.txt"
    echo >"build/$2/build.ninja"
    ;;
esac
STUB
  stub pkg-config <<<"echo '-I$PWD/include'"
  # A window, in which the texts "$@" are seen until it is asked to end.
  stub window <<'STUB'
trap 'exit 0' TERM
for text in "$@"; do printf 'text\t%s\t0\t0\t9\t9\n' "$text"; done >"$KESTRO_DRAWN_FRAME"
echo picture >"$KESTRO_DRAWN_PICTURE"
for _ in {1..600}; do sleep 0.1; done
STUB
}

# Adds a block of the kind $1 with the lines that follow to docs/a.md.
block() {
  printf '```%s\n' "$1" >>docs/a.md
  printf '%s\n' "${@:2}" '```' >>docs/a.md
}

check() {
  try tools/check-docs
}

expect_found() {
  check
  expect status "$status" 1
  expect_part output "$output" "$1"
}

test_pages_in_order_pass() {
  tidy_pages
  block cpp 'int twice() { return 2 * chosen(); }'
  block cpp '#include <kestro.h>' 'int main() {' '}'
  block "cpp statements" 'chosen();'
  block sh 'mkdir own && cd own' 'echo here >file'
  block sh 'cat ../own/file # as a reader goes on' './no-such-command || true'
  block "sh window" 'window Hello'
  block "sh in-ci" './test # the rest is comment'
  block "sh by-hand it takes a day" 'sleep 86400'
  block cmake 'find_package(Kestro REQUIRED)'
  block json '{"a": [1, 2]}'
  check
  expect output "$output" $'NOT RUN docs/a.md:29: it takes a day\n10 blocks in 4 pages, 3 of them run'
  expect status "$status" 0
  expect "what the commands have left in the repository" "$(ls -d own file 2>/dev/null || true)" ""
}

test_a_link_to_nothing_is_found() {
  tidy_pages
  echo '[gone](gone.md)' >>docs/a.md
  expect_found "docs/a.md: there is no gone.md"
}

test_a_link_to_no_heading_is_found() {
  tidy_pages
  echo '[gone](docs/a.md#second-steps)' >>README.md
  expect_found "README.md: there is no heading for docs/a.md#second-steps"
}

test_a_sample_that_does_not_compile_is_found() {
  tidy_pages
  block cpp 'int twice() { return gone(); }'
  expect_found "docs/a.md:4: the sample does not compile"
}

test_statements_that_do_not_compile_are_found() {
  tidy_pages
  block "cpp statements" 'return 3;'
  expect_found "docs/a.md:4: the sample does not compile"
}

test_a_program_that_does_not_link_is_found() {
  tidy_pages
  block cpp '#include <kestro.h>' 'int main() {' '    return chosen();' '}'
  expect_found "undefined reference to \`chosen()'"
}

test_a_command_that_fails_is_found_and_what_it_says_is_shown() {
  tidy_pages
  block sh 'true'
  block sh 'echo "this is why"; false' 'true'
  expect_found "docs/a.md:7: these commands fail"
  expect_part output "$output" "this is why"
}

test_a_window_that_ends_by_itself_is_found() {
  tidy_pages
  block "sh window" 'true'
  expect_found "docs/a.md:4: these commands fail"
}

test_a_window_without_a_text_is_found() {
  tidy_pages
  block "sh window" 'window'
  expect_found "docs/a.md:4: these commands fail"
}

test_a_first_host_without_its_rows_is_found() {
  tidy_pages
  mv docs/a.md docs/host-developers.md
  sed -i 's/a\.md/host-developers.md/' README.md
  printf '```sh window\nwindow Fruit Apple Bergamot\n```\n' >>docs/host-developers.md
  expect_found "The first host does not show 'Cherry'"
}

test_a_command_that_ci_does_not_run_is_found() {
  tidy_pages
  block "sh in-ci" 'tools/bench'
  expect_found "docs/a.md:4: .ci/run has no 'tools/bench'"
}

test_by_hand_needs_a_reason() {
  tidy_pages
  block "sh by-hand" 'sleep 86400'
  expect_found "docs/a.md:4: nobody knows how to check a block of the kind 'sh by-hand'"
}

test_a_block_of_no_kind_is_found() {
  tidy_pages
  block "" 'rm -rf /'
  expect_found "docs/a.md:4: nobody knows how to check a block of the kind ''"
}

test_other_lines_for_cmake_are_found() {
  tidy_pages
  block cmake 'find_package(Kestro)'
  expect_found "docs/a.md:4: docs/hello/CMakeLists.txt has no 'find_package(Kestro)'"
}

test_what_is_no_json_is_found() {
  tidy_pages
  block json '{"a": }'
  expect_found "docs/a.md:4: this is no JSON"
}

test_the_device_of_the_repository_is_kept() {
  tidy_pages
  mkdir -p build/device
  echo mine >build/device/state
  block sh 'mkdir build/device' 'echo other >build/device/state'
  check
  expect status "$status" 0
  expect device "$(<build/device/state)" mine
}

# A theme of one picture of 2 x 3 pixels, and a launcher that draws it on every page.
tidy_theme() {
  tidy_pages
  printf '\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\2\0\0\0\3' >assets/skin/bg.png
  printf '| `skin/bg.png` | 2 × 3 | behind all |\n\n<!-- pages -->\n' >docs/theme-makers.md
  mkdir -p build/release/apps/navora
  echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >build/release/CMakeCache.txt
  touch build/release/build.ninja
  {
    echo "#!$BASH"
    echo 'echo "picture=skin/bg.png=${X-0}=0=1280=720" | tr = "\t" >"$KESTRO_DRAWN_FRAME"'
  } >build/release/apps/navora/navora
  chmod +x build/release/apps/navora/navora
  stub convert </dev/null
  real c++
  try tools/theme-pages
  expect status "$status" 1 # there is no end of the pages yet
  echo '<!-- end of pages -->' >>docs/theme-makers.md
  try tools/theme-pages
  expect "status of $output" "$status" 0
}

test_the_pages_of_a_theme_in_order_pass() {
  tidy_theme
  expect_part page "$(<docs/theme-makers.md)" '| 1 | `skin/bg.png` | 1280 × 720 | 0, 0 |'
  try tools/theme-pages --check
  expect "status of $output" "$status" 0
}

test_a_rectangle_that_has_moved_is_found() {
  tidy_theme
  X=7 try tools/theme-pages --check
  expect status "$status" 1
  expect_part output "$output" '> | 1 | `skin/bg.png` | 1280 × 720 | 7, 0 |'
}

test_a_picture_that_the_page_does_not_list_is_found() {
  tidy_theme
  cp assets/skin/bg.png assets/skin/card.png
  try tools/theme-pages --check
  expect status "$status" 1
  expect_part output "$output" '< skin/card.png | 2 × 3'
}

run_tests
