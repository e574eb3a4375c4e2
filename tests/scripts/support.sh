# shellcheck shell=bash disable=SC2034
# For tests of shell scripts: every function whose name begins with "test_" runs in a working folder of its
# own; what it tries finds only the programs in the folder bin there. Sourced; a test file ends with
# `run_tests`.

repository=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")

# Puts a program into the PATH that notes its name and arguments in the file "calls", then runs the lines
# that follow on standard input. A link to the real program, which was there before, must not be written through.
stub() {
  rm -f "bin/$1"
  {
    printf '#!%s\necho "%s $*" >>%q\n' "$BASH" "$1" "$PWD/calls"
    cat
  } >"bin/$1"
  chmod +x "bin/$1"
}

# Takes the real programs "$@" into the PATH.
real() {
  local program
  for program in "$@"; do
    ln -sf "$(type -P "$program")" "bin/$program"
  done
}

# Runs "$@" and keeps what it writes in $output and its exit code in $status.
try() {
  status=0
  output=$(env PATH="$programs" "$@" 2>&1) || status=$?
}

# What was called since the beginning of the test.
calls() {
  cat calls 2>/dev/null || true
}

expect() {
  local what=$1 got=$2 wanted=$3
  if [[ $got != "$wanted" ]]; then
    printf '%s: %s is\n%s\nbut should be\n%s\n' "${FUNCNAME[1]}" "$what" "$got" "$wanted" >&2
    exit 1
  fi
}

expect_part() {
  local what=$1 got=$2 part=$3
  if [[ $got != *"$part"* ]]; then
    printf '%s: %s is\n%s\nbut should contain\n%s\n' "${FUNCNAME[1]}" "$what" "$got" "$part" >&2
    exit 1
  fi
}

run_test() (
  set -euo pipefail
  work=$(mktemp -d)
  trap 'rm -rf "$work"' EXIT
  cd "$work"
  mkdir bin
  programs=$work/bin
  real bash env cat grep sed awk mkdir rm tail find id dirname nproc readlink
  "$1"
)

run_tests() {
  set +e
  local name failed=0
  while read -r name; do
    run_test "$name" # not in a condition, where it would go on after an error
    failed=$((failed + ($? != 0)))
  done < <(compgen -A function test_)
  ((failed == 0))
  exit
}
