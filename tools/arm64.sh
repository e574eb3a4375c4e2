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
