#!/usr/bin/env bash
# What tools/check-packages does in the Debian that it has made.
# Usage: clean_root.sh ROOT BUILD_FOLDER
set -euo pipefail
root=$(readlink -f "$1")
build=$2
here=$(dirname "$(readlink -f "$0")")
user=4711 # with no rights and no name

fail() {
  echo "$*" >&2
  exit 1
}

# Runs "$@" in the root: as its administrator, who says nothing unless it fails, or as somebody with no rights and
# an empty home.
inside() {
  chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 "$@" \
    >"$root/check/log" 2>&1 || fail "$* says" "$(<"$root/check/log")"
}

as_user() {
  chroot --userspec=$user:$user "$root" env -i PATH=/usr/bin:/bin HOME=/check/home LC_ALL=C.UTF-8 TZ=UTC \
    SDL_VIDEODRIVER=dummy SDL_RENDER_DRIVER=software SDL_AUDIODRIVER=dummy "$@"
}

bring_in() {
  mkdir -p "$root/check/packages" "$root/check/source" "$root/check/home"
  cp "$build"/packages/*.deb "$root/check/packages"
  rm -f "$root"/check/packages/*-dbgsym_*
  tar -C "$here/../.." -c CMakeLists.txt kestro.h cmake core docs/hello gfx hostkit menu platform services shell \
    system tests/packaging text | tar -C "$root/check/source" -x --no-same-owner
  chown -R $user:$user "$root/check/home"
}

# What the packages say that they need is all that they get, before they come.
install_dependencies() {
  local package needed=()
  for package in "$root"/check/packages/*.deb; do
    needed+=("$(dpkg-deb --field "$package" Depends | sed -E 's/libkestro[^,]*(, |$)//g')")
  done
  inside apt-get -q -y --no-install-recommends satisfy "${needed[@]}"
}

install_packages() {
  files_of_the_root >"$root/check/before"
  inside sh -c 'dpkg --install /check/packages/*.deb'
}

# Which files there are, but for logs and what dpkg and ldconfig note for themselves.
files_of_the_root() {
  find "$root" -xdev \( -path "$root/check" -o -path "$root/proc" -o -path "$root/sys" -o -path "$root/dev" -o \
    -path "$root/tmp" -o -path "$root/var/log" -o -path "$root/var/cache" -o -path "$root/var/lib/dpkg" -o \
    -path "$root/var/lib/apt" \) -prune -o -print | LC_ALL=C sort
}

remove_packages() {
  inside dpkg --purge navora libkestro-dev libkestro0
  files_of_the_root | diff "$root/check/before" - || fail "The packages have left something behind, or taken something"
}

# The launcher finds all it needs, and draws what it draws where it was built. Once more if a minute has just passed,
# for there is a clock in the picture.
the_launcher_draws_the_same() {
  local -x QEMU_LD_PREFIX=$PWD/build/sysroot-arm64 # asked for only where the processor is emulated
  local version built=$build/apps/navora/navora
  version=$(as_user navora --version)
  [[ $version == "$("$built" --version)" ]] || fail "The installed launcher is $version"
  mkdir "$root/check/home/device"
  for _ in 1 2; do
    as_user navora --device-root /check/home/device --keys a,down,down,down --shot /check/home/installed.png >/dev/null
    TZ=UTC LC_ALL=C.UTF-8 "$built" --device-root "$root/check/home/device" --keys a,down,down,down \
      --shot "$root/check/home/built.png" >/dev/null
    rm -f "/dev/shm$(KESTRO_DEVICE_ROOT="$root/check/home/device" "$build/apps/kestro-keys/kestro-keys" name)"
    if cmp --silent "$root"/check/home/{installed,built}.png; then
      return
    fi
  done
  fail "The installed launcher draws another picture than the one that was built"
}

programs_are_there() {
  [[ -f $root/usr/share/man/man1/navora.1.gz ]] || fail "The launcher has no manual page"
  [[ $(as_user kestro-keys set 19 1 && as_user kestro-keys get 19) == 1 ]] || fail "kestro-keys does not work"
}

bring_in
install_dependencies
install_packages
programs_are_there
the_launcher_draws_the_same
as_user bash /check/source/tests/packaging/clean_root_hosts.sh
remove_packages
echo "The packages install, are enough for hosts of three kinds and for the launcher, and go without a trace."
