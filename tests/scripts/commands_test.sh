#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2031,SC2317
# The commands ./run and ./test, in a copy of the repository whose build tools are stubs.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A repository without sources. Its "build" makes a launcher that tells where it was started and with what.
fresh_clone() {
  real chmod mv
  mkdir -p clone elsewhere
  cp -r "$repository/run" "$repository/test" "$repository/tools" clone
  stub dpkg-query <<'END'
for package in "${@:4}"; do echo "installed $package"; done
END
  stub apt-get </dev/null
  stub cmake <<'END'
echo "cmake at work"
case $1 in
  --preset)
    mkdir -p "build/$2"
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >"build/$2/CMakeCache.txt"
    echo >"build/$2/build.ninja"
    ;;
  --build)
    mkdir -p "$2/apps/navora"
    printf '#!%s\necho "in $PWD:"\nprintf "[%%s]" "$@"\necho " on device ${KESTRO_DEVICE_ROOT-}."\n' "$BASH" \
      >"$2/apps/navora/navora"
    chmod +x "$2/apps/navora/navora"
    ;;
esac
END
  unset DISPLAY WAYLAND_DISPLAY SDL_VIDEODRIVER KESTRO_DEVICE_ROOT
}

from_elsewhere() {
  cd elsewhere
  try "$@"
  cd ..
}

test_run_builds_and_starts_the_launcher_in_the_callers_folder() {
  fresh_clone
  DISPLAY=:7 from_elsewhere ../clone/run "my games" --keys down,a
  expect status "$status" 0
  expect_part output "$output" "in $PWD/elsewhere:"$'\n'"[my games][--keys][down,a]"
  expect calls "$(calls | grep '^cmake ')" $'cmake --preset release\ncmake --build build/release'
}

test_run_writes_only_what_the_launcher_writes_to_standard_output() {
  fresh_clone
  expect output "$(env PATH="$programs" clone/run --version 2>/dev/null)" "in $PWD:"$'\n'"[--version] on device ."
}

test_run_makes_a_device_for_the_launcher() {
  fresh_clone
  try clone/run --shot a.png
  expect status "$status" 0
  expect_part output "$output" "[--shot][a.png] on device $PWD/clone/build/device."
  expect capacity "$(<clone/build/device/sys/class/power_supply/axp2202-battery/capacity)" 80
}

test_run_keeps_the_device_as_it_was_left() {
  fresh_clone
  try clone/run --shot a.png
  try clone/tools/device battery 7
  try clone/tools/device rotation 1
  try clone/run --shot a.png
  expect_part output "$output" "[--rotate][--shot][a.png] on device $PWD/clone/build/device."
  expect capacity "$(<clone/build/device/sys/class/power_supply/axp2202-battery/capacity)" 7
}

test_run_takes_the_callers_device() {
  fresh_clone
  try clone/run --shot a.png --device-root mine
  expect_part output "$output" "[--shot][a.png][--device-root][mine] on device ."
  KESTRO_DEVICE_ROOT=/mine try clone/run --shot a.png
  expect_part output "$output" "[--shot][a.png] on device /mine."
  [[ ! -e clone/build/device ]]
}

test_run_configures_only_once() {
  fresh_clone
  try clone/run --version
  try clone/run --version
  expect calls "$(calls | grep '^cmake ')" "cmake --preset release
cmake --build build/release
cmake --build build/release"
}

test_run_configures_anew_in_a_repository_that_was_moved() {
  fresh_clone
  try clone/run --version
  mv clone moved
  try moved/run --version
  expect calls "$(calls | grep -c '^cmake --preset')" 2
}

test_run_works_through_a_symbolic_link() {
  fresh_clone
  ln -s ../clone/run elsewhere/kestro
  from_elsewhere ./kestro --version
  expect status "$status" 0
}

test_run_without_a_display_tells_how_to_get_a_picture() {
  fresh_clone
  try clone/run
  expect status "$status" 1
  expect output "$output" "There is no display here. For a picture of the launcher: ./run --shot FILE.png"
  expect calls "$(calls)" ""
}

test_run_needs_no_display_for_a_picture() {
  fresh_clone
  try clone/run --shot a.png
  expect status "$status" 0
  expect_part output "$output" "[--shot][a.png]"
}

test_run_is_content_with_wayland() {
  fresh_clone
  WAYLAND_DISPLAY=wayland-0 try clone/run
  expect status "$status" 0
}

test_help_does_nothing_else() {
  fresh_clone
  try clone/run --shot a.png --help
  expect status "$status" 0
  expect_part output "$output" "Usage: ./run"
  try clone/test --help
  expect status "$status" 0
  expect_part output "$output" "Usage: ./test"
  expect calls "$(calls)" ""
}

test_test_closes_with_the_count_and_passes_options_on() {
  fresh_clone
  stub ctest <<<'printf "Test #1: passed\n\n100%% tests passed, 0 tests failed out of 1\n\nTotal Test time = 1 s\n"'
  from_elsewhere ../clone/test -R Text
  expect status "$status" 0
  expect "last line" "$(tail -n1 <<<"$output")" "100% tests passed, 0 tests failed out of 1"
  expect_part calls "$(calls)" "cmake --preset dev"
  expect_part calls "$(calls | grep '^ctest ')" "-R Text"
}

test_test_fails_when_a_test_fails() {
  fresh_clone
  stub ctest <<<'echo "50% tests passed, 1 tests failed out of 2"; exit 8'
  try clone/test
  expect status "$status" 8
  expect "last line" "$(tail -n1 <<<"$output")" "50% tests passed, 1 tests failed out of 2"
}

run_tests
