#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2031,SC2317
# tools/tour, with a stub of the launcher: what it lets pass, and what not.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A launcher that does what the tour looks for, and then the lines on standard input.
launcher() {
  real mktemp tail cp touch mv chmod
  {
    cat <<'LAUNCHER'
#!/usr/bin/env bash
echo "${*: -3:2}"
echo "true has ended with 0"
echo '{"brightness": 7}' >"$2/mnt/UDISK/system.json"
LAUNCHER
    cat
  } >launcher
  chmod +x launcher
}

tour() {
  try "$repository/tools/tour" "$@"
}

test_a_launcher_that_is_content_passes() {
  launcher <<<'echo "stub: no accelerated renderer (none); trying the software renderer" >&2'
  tour ./launcher
  expect output "$output" ""
  expect status "$status" 0
}

test_the_launcher_runs_under_the_checker() {
  launcher </dev/null
  stub checker <<<'shift; exec "$@"'
  tour ./launcher checker --quiet
  expect status "$status" 0
  expect "number of runs" "$(calls | grep -c "^checker --quiet $PWD/launcher --device-root ")" 2
}

test_a_launcher_that_fails_or_complains_does_not() {
  launcher <<<'exit 7'
  tour ./launcher
  expect status "$status" 1
  expect_part output "$output" "tools/tour: the launcher has ended with 7"
  launcher <<<'echo "a lost block" >&2'
  tour ./launcher
  expect status "$status" 1
  expect_part output "$output" "a lost block"
}

test_keys_that_lead_elsewhere_do_not() {
  launcher <<<'echo "{}" >"$2/mnt/UDISK/system.json"'
  tour ./launcher
  expect status "$status" 1
  expect output "$output" "tools/tour: the keys have not led where they should"
}

test_help_does_nothing_else() {
  tour --help
  expect status "$status" 0
  expect_part output "$output" "Usage: tools/tour"
}

run_tests
