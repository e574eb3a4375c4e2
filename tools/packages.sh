# shellcheck shell=bash disable=SC2034
# What ./run, ./test, .ci/run and tools/contact-sheet need from Debian, and how it gets there. Sourced, not run.

packages_to_run=(
  g++ cmake ninja-build pkg-config
  libsdl2-dev libsdl2-ttf-dev libsdl2-image-dev libsdl2-mixer-dev libcjson-dev
  fonts-wqy-microhei
)
# Besides those above.
packages_to_test=(libgtest-dev libgmock-dev libx11-dev libgl1-mesa-dri libegl1 xvfb xauth xdotool
  python3-pyelftools)
packages_for_contact_sheet=(imagemagick) # also tools/theme-pages and tools/check-docs
packages_for_reference=(doxygen) # only tools/reference
packages_to_bench=(gnuplot-nox libpixman-1-dev libyuv-dev libopencv-imgproc-dev libicu-dev) # only tools/bench
packages_to_sanitize=(clang-14 libclang-rt-14-dev) # the presets asan, tsan and fuzz
packages_for_guest=(qemu-system-x86 busybox-static kmod dosfstools e2fsprogs python3) # tools/stress, power-cuts
packages_to_cover=(gcovr) # only tools/coverage
packages_to_package=(dpkg-dev file lintian desktop-file-utils) # only tools/package
packages_to_check_packages=(mmdebstrap) # only tools/check-packages
packages_to_cross=(g++-aarch64-linux-gnu qemu-user-static mmdebstrap arch-test) # only what is for arm64
packages_to_board=(qemu-system-arm u-boot-qemu fdisk e2fsprogs kmod imagemagick) # only tools/make-card, tools/boot-board
packages_to_check=(clang-format shellcheck valgrind python3 strace abigail-tools)

on_debian() {
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null
}

# Whether what the Debian package $1 holds is here, on a system that does not know Debian's packages.
present_elsewhere() {
  case $1 in
    ninja-build) command -v ninja >/dev/null ;;
    xvfb) command -v Xvfb >/dev/null ;;
    gnuplot-nox) command -v gnuplot >/dev/null ;;
    clang-14) command -v clang++-14 >/dev/null ;;
    libclang-rt-14-dev) true ;; # comes with clang elsewhere
    qemu-system-x86) command -v qemu-system-x86_64 >/dev/null ;;
    busybox-static) command -v busybox >/dev/null ;;
    kmod) command -v modinfo >/dev/null ;;
    dosfstools) command -v mkfs.vfat >/dev/null ;;
    e2fsprogs) command -v mkfs.ext4 >/dev/null ;;
    imagemagick) command -v montage >/dev/null ;;
    libsdl2-dev) pkg-config --exists sdl2 ;;
    libsdl2-ttf-dev) pkg-config --exists SDL2_ttf ;;
    libsdl2-image-dev) pkg-config --exists SDL2_image ;;
    libsdl2-mixer-dev) pkg-config --exists SDL2_mixer ;;
    libcjson-dev) pkg-config --exists libcjson ;;
    libgtest-dev) pkg-config --exists gtest ;;
    libgmock-dev) pkg-config --exists gmock ;;
    libpixman-1-dev) pkg-config --exists pixman-1 ;;
    libicu-dev) pkg-config --exists icu-i18n ;;
    libopencv-imgproc-dev) [[ -e /usr/include/opencv4/opencv2/imgproc.hpp || -e /usr/local/include/opencv4/opencv2/imgproc.hpp ]] ;;
    libyuv-dev) [[ -e /usr/include/libyuv.h || -e /usr/local/include/libyuv.h ]] ;;
    libx11-dev) pkg-config --exists x11 ;;
    python3-pyelftools) /usr/bin/python3 -c 'import elftools' ;;
    desktop-file-utils) command -v desktop-file-validate >/dev/null ;;
    dpkg-dev) command -v dpkg-shlibdeps >/dev/null ;;
    abigail-tools) command -v abidiff >/dev/null ;;
    fonts-wqy-microhei) [[ -n $(find -L /usr/share/fonts -name wqy-microhei.ttc -print -quit 2>/dev/null) ]] ;;
    libgl1-mesa-dri | libegl1) true ;; # comes with any desktop
    *) command -v "$1" >/dev/null ;;
  esac
}

# Prints those of the packages "$@" that are not installed, one a line.
missing_packages() {
  local package
  if on_debian; then
    local installed
    installed=$(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
      grep -qxF "installed $package" <<<"$installed" || echo "$package"
    done
  else
    for package in "$@"; do
      present_elsewhere "$package" 2>/dev/null || echo "$package"
    done
  fi
}

# Runs apt-get as root. Its many lines go to the file $apt_log.
apt_get() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -q -y -o DPkg::Lock::Timeout=120 "$@" </dev/null >>"$apt_log" 2>&1
}

# Installs "$@", with fresh package lists if the lists here do not know them all, or know them no longer.
apt_install() {
  local install=(install --no-install-recommends "$@")
  if apt-cache show --no-all-versions "$@" >/dev/null 2>&1 && apt_get "${install[@]}"; then
    return
  fi
  apt_get update && apt_get "${install[@]}"
}

# Sees to it that the packages "$@" are installed; ends the script if that cannot be.
require_packages() {
  local missing as_root=() apt_log=build/packages.log
  mapfile -t missing < <(missing_packages "$@")
  if ((${#missing[@]} == 0)); then
    return
  fi
  if ! on_debian; then
    echo "Missing here, by the names of their Debian packages: ${missing[*]}. Please install them." >&2
    exit 1
  fi
  local by_hand="apt-get update && apt-get install --no-install-recommends ${missing[*]}"
  if [[ $(id -u) != 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "Packages are missing, and installing them needs root. Run as root: $by_hand" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing from Debian (details in $apt_log): ${missing[*]}" >&2
  mkdir -p build
  : >"$apt_log"
  if ! apt_install "${missing[@]}"; then
    tail -n 20 "$apt_log" >&2
    echo "That did not work; all of it is in $apt_log. To do it by hand, run as root: $by_hand" >&2
    exit 1
  fi
}
