#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2031,SC2317
# tools/contact-sheet, in a copy of the repository whose build tools, launcher and ImageMagick are stubs.
# Whether its keys lead to pages is tested in end_to_end/navora_pages.cpp.
set -euo pipefail
# shellcheck source=tests/scripts/support.sh
. "$(dirname "$0")/support.sh"

# A repository with two pages. Its launcher draws its arguments.
fresh_clone() {
  real chmod mv mktemp
  mkdir -p clone/assets/lang clone/assets/themes/dusk elsewhere/bright
  touch clone/assets/lang/{en,ch}.lang
  cp -r "$repository/run" "$repository/tools" clone
  printf '# Pages.\nHome page |\n\n  Games|a, down\n' >clone/tools/contact-sheet.pages
  stub dpkg-query <<'END'
for package in "${@:4}"; do echo "installed $package"; done
END
  stub apt-get </dev/null
  stub montage <<'END'
target=${!#}
echo sheet >"${target#PNG24:}"
END
  stub cmake <<'END'
case $1 in
  --preset)
    mkdir -p "build/$2"
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" >"build/$2/CMakeCache.txt"
    echo >"build/$2/build.ninja"
    ;;
  --build)
    mkdir -p "$2/apps/navora"
    cat >"$2/apps/navora/navora" <<'LAUNCHER'
#!/usr/bin/env bash
if [[ $* == *down* && -e broken ]]; then echo "no such page"; exit 1; fi
read -r battery <"$KESTRO_DEVICE_ROOT/sys/class/power_supply/axp2202-battery/capacity"
echo 1 >"$KESTRO_DEVICE_ROOT/sys/class/power_supply/axp2202-battery/capacity"
printf '[%s]' "battery $battery" "${@:1:$#-1}" >"${@: -1}"
LAUNCHER
    chmod +x "$2/apps/navora/navora"
    ;;
esac
END
  unset DISPLAY WAYLAND_DISPLAY SDL_VIDEODRIVER KESTRO_DEVICE_ROOT
}

sheet() {
  cd elsewhere
  try ../clone/tools/contact-sheet "$@"
  cd ..
}

test_every_page_is_drawn_on_a_new_device_and_joined_with_its_name() {
  fresh_clone
  sheet --pages pages default sheet.png
  expect "what it says" "$output" ""
  expect status "$status" 0
  expect sheet "$(<elsewhere/sheet.png)" sheet
  expect pages "$(ls elsewhere/pages)" $'01-Home-page.png\n02-Games.png'
  expect home "$(<elsewhere/pages/01-Home-page.png)" "[battery 80][--lang][en.lang][--keys][][--shot]"
  expect games "$(<elsewhere/pages/02-Games.png)" "[battery 80][--lang][en.lang][--keys][a,down][--shot]"
  expect_part montage "$(calls | grep '^montage ')" \
    "-label Home page $PWD/elsewhere/pages/01-Home-page.png -label Games $PWD/elsewhere/pages/02-Games.png "
}

test_theme_and_language_reach_the_launcher() {
  fresh_clone
  sheet --lang ch.lang --pages pages dusk sheet.png
  expect page "$(<elsewhere/pages/02-Games.png)" \
    "[battery 80][--lang][ch.lang][--theme][$PWD/clone/assets/themes/dusk][--keys][a,down][--shot]"
  sheet --pages pages bright sheet.png
  expect_part page "$(<elsewhere/pages/02-Games.png)" "[--theme][$PWD/elsewhere/bright]"
}

test_without_the_option_no_single_page_is_left() {
  fresh_clone
  sheet default sheet.png
  expect status "$status" 0
  expect files "$(ls elsewhere)" $'bright\nsheet.png'
  [[ ! -e clone/build/device ]]
}

test_a_page_that_cannot_be_drawn_ends_it_without_a_sheet() {
  fresh_clone
  touch elsewhere/broken clone/broken # wherever the launcher is started
  sheet default sheet.png
  expect status "$status" 1
  expect_part output "$output" "no such page"
  expect_part output "$output" "tools/contact-sheet: the page after the keys 'a,down' could not be drawn"
  [[ ! -e elsewhere/sheet.png ]]
}

test_imagemagick_is_installed_when_it_is_missing() {
  fresh_clone
  stub dpkg-query <<'END'
for package in "${@:4}"; do [[ $package == imagemagick ]] || echo "installed $package"; done
END
  stub apt-cache </dev/null
  stub id <<<'echo 0'
  sheet default sheet.png
  expect_part output "$output" "Installing from Debian (details in build/packages.log): imagemagick"
  expect_part calls "$(calls)" "install --no-install-recommends imagemagick"
}

test_misuse_is_refused() {
  fresh_clone
  local arguments
  for arguments in "" "default" "default a.png b.png" "--bogus default a.png" "night a.png" "--lang xx.lang default a.png" \
    "--lang ../lang/en.lang default a.png" "default a.png --lang" "--lang --pages default a.png"; do
    # shellcheck disable=SC2086
    sheet $arguments
    expect "status of '$arguments'" "$status" 2
    expect_part output "$output" "; tools/contact-sheet --help tells more"
  done
  expect calls "$(calls)" ""
}

test_help_tells_every_option() {
  fresh_clone
  sheet --help
  expect status "$status" 0
  local option
  for option in --lang --pages THEME OUT.png default; do expect_part output "$output" "$option"; done
  expect calls "$(calls)" ""
}

run_tests
