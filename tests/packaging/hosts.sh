# shellcheck shell=bash disable=SC2154
# What a host that was built against the packages must be and do. Sourced; $work is a folder with regular.ttf.

fail() {
  echo "$*" >&2
  exit 1
}

# kestro has a cJSON_GetObjectItem of its own that must be found before cJSON's.
kestro_comes_before_cjson() {
  local needed
  needed=$(readelf -d "$1" | sed -nE 's/.*\(NEEDED\).*\[(libkestro|libcjson)\..*\]/\1/p')
  [[ $needed == $'libkestro\nlibcjson' ]] || fail "$1 is linked in the order:" "$needed"
}

is_linked_by_soname() {
  readelf -d "$1" | grep -qF 'Shared library: [libkestro.so.0]' || fail "$1 does not ask for libkestro.so.0"
}

# A signal to end is a close request, on which the host leaves the loop.
runs_until_closed() {
  local host status=0
  : >"$work/log"
  (cd "$work" && exec timeout 20 stdbuf -oL "$1" >"$work/log") &
  host=$!
  until grep -qx 'init check_repeat_thread' "$work/log" || ! kill -0 "$host"; do
    sleep 0.02
  done
  kill -TERM "$host"
  wait "$host" || status=$?
  ((status == 0)) || fail "$1 ended with $status"
  grep -qx 'a is 1003, quit navora' "$work/log" || fail "$1 did not leave the loop"
}
