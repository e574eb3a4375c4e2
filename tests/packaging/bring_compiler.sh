#!/usr/bin/env bash
# Calls the cross compiler in a Debian for arm64 what Debian's own is called.
# Usage: rename_compiler.sh ROOT
set -euo pipefail
for tool in "$1"/usr/bin/aarch64-linux-gnu-*; do
  name=${tool##*/}
  if [[ ! -e ${tool%/*}/${name#aarch64-linux-gnu-} ]]; then
    ln -s "$name" "${tool%/*}/${name#aarch64-linux-gnu-}"
  fi
done
