#!/usr/bin/env python3
"""Runs kestro-folders on FAT, in the emulated computer. Usage: fat_folders.py KESTRO_FOLDERS"""
import os
import subprocess
import sys
from pathlib import Path

from guest import Guest, GuestError

TASK = """
export SDL_VIDEODRIVER=dummy
mount -t vfat -o utf8 /dev/vda /device && /kestro-folders fat /device && echo 'as it should be'
"""


def main():
    folder = Path(__file__).resolve().parents[2] / "build/guest"
    guest = Guest(folder, [sys.argv[1]])
    disk = folder / "fat"
    disk.unlink(missing_ok=True)
    disk.touch()
    os.truncate(disk, 16 << 20)
    subprocess.run(["mkfs.vfat", str(disk)], check=True, stdout=subprocess.DEVNULL)
    drives = ["-blockdev", f"driver=file,filename={disk},node-name=disk", "-device", "virtio-blk-pci,drive=disk"]
    said = guest.run(TASK, drives, 300)
    print("\n".join(line for line in said if line.startswith("|")), flush=True)
    if "as it should be" not in said:
        sys.exit("\n".join(said))


if __name__ == "__main__":
    try:
        main()
    except GuestError as error:
        sys.exit(f"The emulated computer has not come to its end:\n{error}")
