#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2031,SC2317
# The command tools/device, and the folder that it makes. Whether the library reads what it writes is tested
# in services/device_tool_test.cpp.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

device() {
  try "$repository/tools/device" --root "$work/a device" "$@"
}

# The same; it must succeed.
change() {
  device "$@"
  expect status "$status" 0
  expect output "$output" ""
}

new_device() {
  real mv chmod tr
  change init
}

contents() {
  cat "a device/$1"
}

# What `show` says about $1.
shown() {
  device show
  sed -n "s/^$1 //p" <<<"$output"
}

expect_refused() {
  local before
  before=$(cd "a device" && find . -type f -exec cat {} + | od -c)
  device "$@"
  expect "status of '$*'" "$status" 2
  expect_part output "$output" "; tools/device --help tells more"
  expect "the device after '$*'" "$(cd "a device" && find . -type f -exec cat {} + | od -c)" "$before"
}

test_init_makes_what_the_library_reads() {
  new_device
  expect files "$(cd "a device" && find . -type f | LC_ALL=C sort)" "./bin/wpa_cli
./mnt/SDCARD/features.json
./mnt/UDISK/system.json
./proc/1/cmdline
./proc/301/cmdline
./simulator/rotation
./simulator/wifi/signal_poll
./simulator/wifi/status
./sys/class/power_supply/axp2202-battery/capacity
./sys/class/power_supply/axp2202-battery/status
./sys/class/power_supply/axp2202-usb/online
./sys/devices/virtual/disp/disp/attr/color_temperature
./sys/devices/virtual/disp/disp/attr/enhance_bright
./sys/devices/virtual/disp/disp/attr/enhance_contrast
./sys/devices/virtual/disp/disp/attr/enhance_saturation"
  [[ -d "a device/tmp/kestro_inputd" && -d "a device/dev" && -d "a device/etc/wifi/sockets" ]]
  device show
  expect output "$output" "battery 80
charger off
wifi connected -55
bluetooth off
headphones off
display-up off
grab off
swap-ab off
language en
rotation 0"
}

test_init_keeps_what_is_there() {
  new_device
  change battery 7
  change wifi off
  change language ch
  device show
  local before=$output
  rm "a device/simulator/rotation"
  change init
  device show
  expect output "$output" "$before"
}

test_init_touches_neither_this_machine_nor_a_folder_of_another_kind() {
  new_device
  try "$repository/tools/device" --root / init
  expect status "$status" 1
  expect_part output "$output" "'/' is the root of this machine"
  mkdir other
  echo mine >other/file
  try "$repository/tools/device" --root other init
  expect status "$status" 1
  expect_part output "$output" "is neither empty nor a device"
  expect files "$(find other -type f)" other/file
}

test_without_a_device_it_says_how_to_make_one() {
  device battery 7
  expect status "$status" 1
  expect output "$output" "tools/device: there is no device in '$work/a device'; tools/device init makes one"
  [[ ! -e "a device" ]]
}

test_root_may_stand_behind_the_command() {
  new_device
  try "$repository/tools/device" battery 12 --root "a device"
  expect status "$status" 0
  expect capacity "$(contents sys/class/power_supply/axp2202-battery/capacity)" 12
}

test_default_is_the_folder_that_run_uses() {
  real mv chmod tr
  mkdir -p clone/tools
  cp "$repository/tools/device" clone/tools
  try clone/tools/device init
  expect status "$status" 0
  [[ -f clone/build/device/mnt/UDISK/system.json ]]
}

test_battery_and_charger() {
  new_device
  local level
  for level in 0 7 10 99 100; do
    change battery "$level"
    expect battery "$(shown battery)" "$level"
    expect capacity "$(contents sys/class/power_supply/axp2202-battery/capacity)" "$level"
  done
  change charger on
  expect charger "$(shown charger)" on
  expect status "$(contents sys/class/power_supply/axp2202-battery/status)" Charging
  expect online "$(contents sys/class/power_supply/axp2202-usb/online)" 1
  change charger off
  expect charger "$(shown charger)" off
  expect status "$(contents sys/class/power_supply/axp2202-battery/status)" Discharging
  expect online "$(contents sys/class/power_supply/axp2202-usb/online)" 0
}

test_wifi_states() {
  new_device
  change wifi connecting
  expect wifi "$(shown wifi)" connecting
  change wifi scanning
  expect wifi "$(shown wifi)" scanning
  change wifi connected -126
  expect wifi "$(shown wifi)" "connected -126"
  change wifi connected 0
  expect wifi "$(shown wifi)" "connected 0"
  change wifi connected 2
  expect wifi "$(shown wifi)" "connected -75"
  change wifi hotspot
  expect wifi "$(shown wifi)" hotspot
  change wifi off
  expect wifi "$(shown wifi)" off
  expect processes "$(ls "a device/proc")" 1
}

test_wifi_client_answers_as_the_state_is() {
  new_device
  change wifi connected 1 'Café "x"\y'
  expect status "$(sh "a device/bin/wpa_cli" -p x -i wlan0 status | sed -n '/^ssid\|^wpa_state/p')" \
    'ssid=Caf\xc3\xa9 \"x\"\\y
wpa_state=COMPLETED'
  expect signal "$(sh "a device/bin/wpa_cli" -p x -i wlan0 signal_poll | head -n 1)" "RSSI=-90"
  change wifi off
  local code=0
  sh "a device/bin/wpa_cli" -p x -i wlan0 status || code=$?
  expect code "$code" 255
}

test_marker_files() {
  new_device
  local marker files file
  while read -r marker files; do
    for _ in 1 2; do
      change "$marker" on
      expect "$marker" "$(shown "$marker")" on
      for file in $files; do [[ -r "a device/$file" ]]; done
    done
    for _ in 1 2; do
      change "$marker" off
      expect "$marker" "$(shown "$marker")" off
      for file in $files; do [[ ! -e "a device/$file" ]]; done
    done
  done <<'END'
bluetooth tmp/btdev_addr tmp/bluetooth_ready
headphones dev/dsp1
display-up tmp/osdd_show_up
grab tmp/kestro_inputd/grab
END
}

test_settings_change_one_key_and_keep_the_others() {
  new_device
  local file="a device/mnt/UDISK/system.json" others
  others=$(grep -v 'bconfirm\|language' "$file")
  change swap-ab on
  expect swap "$(shown swap-ab)" on
  change language ch
  expect language "$(shown language)" ch
  change language jp.lang
  expect language "$(shown language)" jp
  expect others "$(grep -v 'bconfirm\|language' "$file")" "$others"
  expect keys "$(grep -c 'bconfirm' "$file")" 1
  change swap-ab off
  expect swap "$(shown swap-ab)" off
}

test_settings_as_the_library_writes_them_can_be_changed() {
  new_device
  printf '{\n\t"vol":\t3,\n\t"language":\t"ch.lang",\n\t"bconfirm":\t0\n}' >"a device/mnt/UDISK/system.json"
  change swap-ab on
  change language en
  expect settings "$(contents mnt/UDISK/system.json)" \
    "$(printf '{\n\t"vol":\t3,\n\t"language": "en.lang",\n\t"bconfirm": 1\n}')"
}

test_settings_without_the_key_get_it() {
  new_device
  echo '{ "vol": 3 }' >"a device/mnt/UDISK/system.json"
  change swap-ab on
  expect settings "$(contents mnt/UDISK/system.json)" '{ "bconfirm": 1, "vol": 3 }'
  echo '{}' >"a device/mnt/UDISK/system.json"
  change language ko
  expect settings "$(contents mnt/UDISK/system.json)" '{ "language": "ko.lang" }'
}

test_settings_that_are_none_are_left_alone() {
  new_device
  echo 'nonsense' >"a device/mnt/UDISK/system.json"
  device swap-ab on
  expect status "$status" 1
  expect_part output "$output" "holds no settings"
  expect settings "$(contents mnt/UDISK/system.json)" nonsense
}

test_rotation() {
  new_device
  change rotation 1
  expect rotation "$(shown rotation)" 1
  change rotation 0
  expect rotation "$(shown rotation)" 0
}

test_misuse_is_refused_and_changes_nothing() {
  new_device
  expect_refused
  expect_refused dance
  expect_refused --dance
  expect_refused --root
  expect_refused init 1
  expect_refused show 1
  local command
  for command in battery charger wifi bluetooth headphones display-up grab swap-ab language rotation; do
    expect_refused "$command"
    expect_refused "$command" maybe
    expect_refused "$command" ""
    expect_refused "$command" on 2 3 4
  done
  expect_refused battery 101
  expect_refused battery -1
  expect_refused battery 07
  expect_refused wifi off 1
  expect_refused wifi connected 4
  expect_refused wifi connected -127
  expect_refused wifi connected -1x
  expect_refused language ../en
  expect_refused rotation 2
}

test_help_tells_every_command_and_does_nothing() {
  try "$repository/tools/device" --help
  expect status "$status" 0
  local command
  for command in init show battery charger wifi bluetooth headphones display-up grab swap-ab language rotation; do
    expect_part output "$output" "  $command "
  done
  device --help battery 7
  expect status "$status" 0
  [[ ! -e "a device" ]]
}

run_tests
