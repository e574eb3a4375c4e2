#!/usr/bin/env bash
# Takes this machine's cross compiler into a Debian for arm64, under the names that Debian's own has there. It is not
# emulated: the kernel starts it as it does here.
# Usage: bring_compiler.sh ROOT
set -euo pipefail
root=$1
prefix=aarch64-linux-gnu-

mapfile -t packages < <(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' '*aarch64-linux-gnu*' \
  '*-arm64-cross' 2>/dev/null | sed -n 's/^installed //p')
dpkg --listfiles "${packages[@]}" | grep -v '/share/' | sort -u | while read -r file; do
  [[ -d $file ]] || echo "${file#/}"
done | tar -C / -c -T - | tar -C "$root" -x --keep-directory-symlink

# What it is linked with, from the loader on.
mapfile -t programs < <(find /usr/lib/gcc-cross -name 'cc1*' -o -name collect2 -o -name liblto_plugin.so)
ldd "${programs[@]}" "/usr/bin/$prefix"{as,ld.bfd,ar,readelf,g++} | sed -nE 's/^\t(.* => )?(\/[^ ]+) \(.*/\2/p' |
  sort -u | while read -r library; do
  mkdir -p "$root${library%/*}"
  cp -L "$library" "$root$library"
done

for tool in "$root/usr/bin/$prefix"*; do
  name=${tool##*/"$prefix"}
  if [[ ! -e $root/usr/bin/$name ]]; then
    ln -s "$prefix$name" "$root/usr/bin/$name"
  fi
done
