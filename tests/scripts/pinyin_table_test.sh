#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2317
# tools/check-pinyin-table: a table that could not be checked is never taken for one that is right.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A repository whose table is its two sources one after the other, and an npm that knows the second.
small_table() {
  real cmp mktemp tar gzip
  ln -s "$(python3 -c 'import sys; print(sys.executable)')" bin/python3
  mkdir -p tools text package/lib
  cp "$repository/tools/check-pinyin-table" tools
  printf '#!%s\ncat "$@"\n' "$BASH" >tools/make-pinyin-table
  chmod +x tools/make-pinyin-table
  printf '# Unicode version: 15.0.0\nreadings\n' >readings.txt
  echo characters >package/lib/Mandarin.json
  cat readings.txt package/lib/Mandarin.json >text/pinyin_table.cpp
  tar -czf han.tgz package
  stub npm <<<'[[ $* == "pack --silent han@0.0.7" ]] && cat ../han.tgz >han-0.0.7.tgz'
}

# The checker works in a folder of its own, which it makes here.
check() {
  TMPDIR=$PWD try tools/check-pinyin-table "$@"
}

expect_not_checked() {
  expect status "$status" 3
  expect output "$output" \
    "NOT CHECKED whether tools/make-pinyin-table gives text/pinyin_table.cpp: $1"
}

test_a_table_that_is_what_its_sources_give_passes() {
  small_table
  check readings.txt
  expect output "$output" ""
  expect status "$status" 0
  check readings.txt package/lib/Mandarin.json
  expect status "$status" 0
  expect calls "$(calls)" "npm pack --silent han@0.0.7"
}

test_a_table_that_was_edited_is_found() {
  small_table
  echo "one more" >>text/pinyin_table.cpp
  check readings.txt
  expect status "$status" 1
  expect_part output "$output" "text/pinyin_table.cpp is not what tools/make-pinyin-table gives"
}

test_a_generator_that_fails_is_no_success() {
  small_table
  printf '#!%s\ncat "$@"\nexit 1\n' "$BASH" >tools/make-pinyin-table
  check readings.txt
  expect failed "$((status != 0))" 1
}

test_without_the_readings_it_is_not_checked() {
  small_table
  check missing.txt
  expect_not_checked "the Debian package unicode-data is not installed"
}

test_with_readings_of_another_unicode_it_is_not_checked() {
  small_table
  echo "# Unicode version: 16.0.0" >readings.txt
  check readings.txt
  expect_not_checked "the readings here are of Unicode 16.0.0, the table's of 15.0.0"
  echo "something else" >readings.txt
  check readings.txt
  expect_not_checked "readings.txt does not say of which Unicode it is"
}

test_without_npm_it_is_not_checked() {
  small_table
  rm bin/npm
  check readings.txt
  expect_not_checked "npm is not installed"
}

test_without_the_network_it_is_not_checked() {
  small_table
  stub npm <<<'echo "npm ERR! network"; exit 1'
  check readings.txt
  expect_not_checked "npm cannot fetch han@0.0.7: npm ERR! network"
}

test_without_the_characters_it_is_not_checked() {
  small_table
  check readings.txt missing.json
  expect_not_checked "there is no list of characters missing.json"
}

test_its_folder_is_taken_away() {
  small_table
  check readings.txt
  expect left "$(find . -name 'tmp.*')" ""
}

run_tests
