#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2317
# tools/packages.sh: what is missing is installed, once, and nothing else happens.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A Debian on which, of the packages asked for, those in $1 are installed, and whose package lists know
# those in $2.
debian() {
  printf '%s\n' "$1" >installed
  printf '%s\n' "$2" >known
  stub dpkg-query <<'END'
for package in $(cat installed); do echo "installed $package"; done
END
  stub apt-cache <<'END'
for package in "${@:3}"; do grep -qw "$package" known || exit 100; done
END
  stub apt-get <<'END'
echo "frontend=$DEBIAN_FRONTEND" >>environment
END
  as_user 0
  unset DEBIAN_FRONTEND
}

as_user() {
  stub id <<<"echo $1"
}

require() {
  try bash -c '. "$1"; require_packages "${@:2}"; echo done' bash "$repository/tools/packages.sh" "$@"
}

apt_calls() {
  calls | grep -E '^(apt-get|sudo)' | sed 's/ -o DPkg::Lock::Timeout=[0-9]*//'
}

test_nothing_happens_when_all_is_installed() {
  debian "cmake g++" "cmake g++"
  require cmake g++
  expect status "$status" 0
  expect output "$output" "done"
  expect calls "$(apt_calls || true)" ""
}

test_missing_packages_are_named_in_one_line_and_installed() {
  debian "cmake" "cmake g++ xvfb"
  require cmake g++ xvfb
  expect output "$output" $'Installing from Debian (details in build/packages.log): g++ xvfb\ndone'
  expect calls "$(apt_calls)" "apt-get -q -y install --no-install-recommends g++ xvfb"
  expect environment "$(cat environment)" "frontend=noninteractive"
}

test_a_package_that_was_removed_counts_as_missing() {
  debian "" "g++"
  stub dpkg-query <<<'echo "config-files g++"'
  require g++
  expect_part output "$output" "Installing from Debian (details in build/packages.log): g++"
}

test_part_of_another_name_does_not_count_as_installed() {
  debian "libsdl2-devel" "libsdl2-dev"
  require libsdl2-dev
  expect_part output "$output" "Installing from Debian (details in build/packages.log): libsdl2-dev"
}

test_lists_are_fetched_first_when_they_lack_a_package() {
  debian "" ""
  require g++
  expect status "$status" 0
  expect calls "$(apt_calls)" $'apt-get -q -y update\napt-get -q -y install --no-install-recommends g++'
}

test_lists_that_are_too_old_are_fetched_anew() {
  debian "" "g++"
  stub apt-get <<'END'
[[ $* == *update ]] && touch fresh
[[ -e fresh ]]
END
  real touch
  require g++
  expect status "$status" 0
  expect calls "$(apt_calls)" "apt-get -q -y install --no-install-recommends g++
apt-get -q -y update
apt-get -q -y install --no-install-recommends g++"
}

test_a_failure_shows_what_apt_said_and_what_to_do() {
  debian "" "g++"
  stub apt-get <<<'echo "E: no space left"; exit 100'
  require g++
  expect status "$status" 1
  expect_part output "$output" "E: no space left"
  expect_part output "$output" "apt-get update && apt-get install --no-install-recommends g++"
}

test_a_user_installs_through_sudo() {
  debian "" "g++"
  as_user 1000
  stub sudo <<<'exec "$@"'
  require g++
  expect status "$status" 0
  expect calls "$(apt_calls)" "sudo env DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends g++
apt-get -q -y install --no-install-recommends g++"
}

test_a_user_without_sudo_is_told_the_command() {
  debian "" "g++ cmake"
  as_user 1000
  require g++ cmake
  expect status "$status" 1
  expect_part output "$output" "apt-get update && apt-get install --no-install-recommends g++ cmake"
  expect calls "$(apt_calls || true)" ""
}

test_another_distribution_gets_the_names_of_what_is_missing() {
  stub g++ </dev/null
  stub pkg-config <<<'[[ $2 == sdl2 ]]'
  require g++ ninja-build libsdl2-dev libcjson-dev
  expect status "$status" 1
  expect output "$output" \
    "Missing here, by the names of their Debian packages: ninja-build libcjson-dev. Please install them."
}

test_another_distribution_goes_on_when_nothing_is_missing() {
  stub ninja </dev/null
  stub Xvfb </dev/null
  require ninja-build xvfb
  expect output "$output" "done"
}

run_tests
