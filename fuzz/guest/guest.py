"""A small computer with Debian's own kernel, emulated by qemu: for file systems and disks that the machine at hand
does not have. It needs the packages qemu-system-x86, busybox-static and kmod, and apt-get for the kernel; no rights.
"""
import os
import shutil
import subprocess
from pathlib import Path

MODULES = ["virtio_pci", "virtio_blk", "loop", "vfat", "nls_cp437", "nls_ascii"]
KERNEL_PACKAGE = "linux-image-cloud-amd64"

INIT = """#!/bin/busybox sh
/bin/busybox --install -s /bin
mount -t devtmpfs none /dev; mount -t proc none /proc; mount -t sysfs none /sys
for module in $(cat /modules/order); do insmod /modules/$module || echo "guest: no $module"; done
echo 'guest: begins'
sh /task
echo 'guest: ends'
poweroff -f
"""


class GuestError(Exception):
    """The guest could not be made, or has not come to its end."""


def _output(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True, **options).stdout


def _kernel(folder):
    """The unpacked kernel package in `folder`, fetched if it is not there yet."""
    unpacked = folder / "kernel"
    if not unpacked.is_dir():
        depends = _output("apt-cache", "depends", "--important", KERNEL_PACKAGE)
        package = next(word for word in depends.split() if word.startswith("linux-image-") and word != KERNEL_PACKAGE)
        fetched = folder / "fetched"
        fetched.mkdir(exist_ok=True)
        subprocess.run(["apt-get", "-q", "-o", "APT::Sandbox::User=root", "download", package], cwd=fetched, check=True,
                       stdout=subprocess.DEVNULL)
        subprocess.run(["dpkg-deb", "-x", next(fetched.glob("*.deb")), folder / "unpacking"], check=True)
        shutil.rmtree(fetched)
        (folder / "unpacking").rename(unpacked)
    return unpacked


def _modules_in_order(kernel):
    """The files of MODULES and of what they need, in the order in which they can be loaded."""
    files = {path.stem.replace("-", "_"): path for path in kernel.glob("lib/modules/*/kernel/**/*.ko")}
    order = []

    def add(name):
        if name not in files:
            return  # built in
        for needed in filter(None, _output("/sbin/modinfo", "-F", "depends", files[name]).strip().split(",")):
            add(needed.replace("-", "_"))
        if files[name] not in order:
            order.append(files[name])

    for module in MODULES:
        add(module)
    return order


def _put(root, source, place):
    target = root / str(place).lstrip("/")
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(source, target)
    return target


class Guest:
    """The computer, with `programs` in its root folder, each with the libraries that it is linked with."""

    def __init__(self, folder, programs):
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        kernel = _kernel(self.folder)
        self.kernel = next(kernel.glob("boot/vmlinuz-*"))
        self.root = self.folder / "root"
        shutil.rmtree(self.root, ignore_errors=True)
        for name in ("bin", "dev", "proc", "sys", "tmp", "device", "modules"):
            (self.root / name).mkdir(parents=True)
        _put(self.root, "/bin/busybox", "/bin/busybox")
        modules = _modules_in_order(kernel)
        for module in modules:
            _put(self.root, module, f"/modules/{module.name}")
        (self.root / "modules/order").write_text("\n".join(module.name for module in modules))
        for program in programs:
            _put(self.root, program, f"/{Path(program).name}")
            for word in _output("ldd", program).split():
                if word.startswith("/"):
                    _put(self.root, os.path.realpath(word), word)
        (self.root / "init").write_text(INIT)
        (self.root / "init").chmod(0o755)

    def run(self, task, drives, seconds):
        """Runs the shell script `task` with the disks that qemu's options `drives` describe, and returns the
        lines that it has printed."""
        (self.root / "task").write_text(task)
        archive = self.folder / "root.cpio"
        with open(archive, "wb") as output:
            names = _output("find", ".", cwd=self.root)
            subprocess.run(["/bin/busybox", "cpio", "-o", "-H", "newc"], cwd=self.root, input=names.encode(),
                           stdout=output, stderr=subprocess.DEVNULL, check=True)
        command = ["qemu-system-x86_64", "-nodefaults", "-no-user-config", "-display", "none", "-serial", "stdio",
                   "-accel", "tcg,thread=multi", "-smp", "2", "-m", "768", "-no-reboot", "-kernel", str(self.kernel),
                   "-initrd", str(archive), "-append", "console=ttyS0 quiet panic=-1", *drives]
        try:
            said = _output(*command, timeout=seconds, stdin=subprocess.DEVNULL)
        except subprocess.TimeoutExpired as late:
            raise GuestError((late.stdout or b"").decode(errors="replace")[-2000:]) from late
        lines = [line.rstrip() for line in said.splitlines()]
        if "guest: begins" not in lines or "guest: ends" not in lines:
            raise GuestError(said[-2000:])
        return lines[lines.index("guest: begins") + 1:lines.index("guest: ends")]
