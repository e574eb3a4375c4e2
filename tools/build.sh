# shellcheck shell=bash
# How ./run, ./test and .ci/run build. Sourced, not run; the current folder is the repository.

# Builds the preset $1 into build/$1, or only the targets that follow, configuring only what is not configured. Speaks
# on standard error only, so that the output of what is built stays clean.
build_preset() {
  local folder=build/$1
  if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$folder/CMakeCache.txt"; then
    rm -rf "$folder" # never configured, or the repository has been moved since
  fi
  if [[ ! -f $folder/build.ninja ]]; then
    cmake --preset "$1" >&2
  fi
  cmake --build "$folder" ${2:+--target "${@:2}"} >&2
}
