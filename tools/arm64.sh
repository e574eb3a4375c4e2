# shellcheck shell=bash
# What tools/make-sysroot and tools/make-card share. Sourced, not run; the current folder is the repository.

# Extracts the Debian packages after $1, with all that they depend on, for arm64 into $1/root. They come from where
# this machine's apt gets Debian's packages, and are not installed: nothing of them need run here.
extract_arm64() {
  local folder=$1 include
  shift
  include=$(IFS=, && echo "$*")
  # shellcheck disable=SC2016
  apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Origin: Debian' 'Created-By: Packages' >"$folder/sources"
  if [[ ! -s $folder/sources ]]; then
    echo "apt has no list of Debian's packages here. Run as root: apt-get update" >&2
    return 1
  fi
  if ! mmdebstrap --architectures=arm64 --variant=extract --include="$include" \
    "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$folder/root" "$folder/sources" >"$folder/log" 2>&1; then
    tail -n 20 "$folder/log" >&2
    return 1
  fi
}

# Runs the command "$@" where the kernel starts programs for arm64 in the emulator. Where it does not by itself, that is
# in a user namespace, outside of which nothing changes. Returns 3 if that cannot be.
with_arm64_programs() {
  local namespace status=0
  if arch-test arm64 >/dev/null 2>&1; then
    "$@"
    return
  fi
  unshare --user sleep infinity &
  namespace=$!
  if map_users "$namespace"; then
    in_namespace "$namespace" "$@" || status=$?
  else
    status=3
  fi
  kill "$namespace" 2>/dev/null || true
  if ((status == 3)); then
    echo "The kernel does not start programs for arm64 here. It does so where the package binfmt-support has told it," \
      "outside of any container; or, from Linux 6.7 on, where root may make user namespaces." >&2
  fi
  return "$status"
}

# The users in the namespace of the process $1 are those outside.
map_users() {
  while [[ $(readlink "/proc/$1/ns/user") == "$(readlink /proc/self/ns/user)" ]]; do
    sleep 0.02
  done
  echo 0 0 65536 >"/proc/$1/uid_map" && echo 0 0 65536 >"/proc/$1/gid_map"
}

# Runs "$@" in the user namespace of the process $1, where the kernel knows the emulator.
in_namespace() {
  # shellcheck disable=SC2016
  nsenter --user --target "$1" unshare --mount --pid --fork --kill-child --mount-proc bash -c '
    if ! mount -t binfmt_misc binfmt_misc /proc/sys/fs/binfmt_misc ||
      ! cat /usr/lib/binfmt.d/qemu-aarch64.conf >/proc/sys/fs/binfmt_misc/register; then
      exit 3
    fi
    exec "$@"' _ "${@:2}"
}
