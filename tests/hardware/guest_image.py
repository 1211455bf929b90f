# SPDX-License-Identifier: MIT
"""The guest: the kernel of the Debian package with the drivers of USB serial adapters, and a file system in memory of
busybox, a program with its libraries, and the files given."""
import glob
import os
import re
import shutil
import subprocess

HERE = os.path.dirname(os.path.abspath(__file__))
MODULES = ["common/usb-common.ko", "core/usbcore.ko", "host/xhci-hcd.ko", "host/xhci-pci.ko", "serial/usbserial.ko",
           "serial/ftdi_sio.ko"]  # each after those that it needs


def output(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def kernel_package():
    """The name of the newest kernel's package. Only the guest needs it, so it isn't installed."""
    depends = subprocess.run(["apt-cache", "depends", "linux-image-amd64"], check=False, capture_output=True, text=True)
    names = re.findall(r"Depends: (linux-image-\S+)", depends.stdout)
    if not names:
        output("apt-get", "update", "-q")
        names = re.findall(r"Depends: (linux-image-\S+)", output("apt-cache", "depends", "linux-image-amd64"))
    return names[0]


def download(package, folder):
    command = ["apt-get", "download", "-q", package]
    if subprocess.run(command, cwd=folder, check=False, capture_output=True).returncode != 0:
        output("apt-get", "update", "-q")  # the lists name a version that went
        output(*command, cwd=folder)
    return glob.glob(os.path.join(folder, package + "_*.deb"))[0]


def kernel(folder):
    """The kernel and its modules in the order of their loading; both stay in the folder."""
    package = kernel_package()
    place = os.path.join(folder, package)
    if not os.path.exists(os.path.join(place, "whole")):
        shutil.rmtree(place, ignore_errors=True)
        os.makedirs(place)
        archive = download(package, place)
        release = package.removeprefix("linux-image-")
        drivers = f"./lib/modules/{release}/kernel/drivers/usb/"
        wanted = [f"./boot/vmlinuz-{release}"] + [drivers + name for name in MODULES]
        with subprocess.Popen(["dpkg-deb", "--fsys-tarfile", archive], stdout=subprocess.PIPE) as unpack:
            output("tar", "-x", "-C", place, *wanted, stdin=unpack.stdout)
        os.remove(archive)
        with open(os.path.join(place, "whole"), "w", encoding="ascii"):
            pass
    modules = [glob.glob(os.path.join(place, "lib/modules/*/kernel/drivers/usb", name))[0] for name in MODULES]
    return glob.glob(os.path.join(place, "boot/vmlinuz-*"))[0], modules


def with_libraries(program, root):
    os.makedirs(os.path.join(root, "bin"), exist_ok=True)
    output("strip", "-s", "-o", os.path.join(root, "bin", os.path.basename(program)), program)
    for library in re.findall(r"(/\S+) \(0x", output("ldd", program)):
        target = root + library
        os.makedirs(os.path.dirname(target), exist_ok=True)
        shutil.copy(library, target)


def file_system(folder, program, modules, files):
    """An initramfs. `files` are texts (bytes) by their names below the root."""
    root = os.path.join(folder, "root")
    for name in ("bin", "dev", "etc", "modules", "proc", "sys", "tmp"):
        os.makedirs(os.path.join(root, name))
    shutil.copy("/bin/busybox", os.path.join(root, "bin/busybox"))
    shutil.copy(os.path.join(HERE, "guest_init"), os.path.join(root, "init"))
    with_libraries(program, root)
    for module in modules:
        shutil.copy(module, os.path.join(root, "modules"))
    order = "".join(os.path.basename(module) + "\n" for module in modules)
    users = "root:x:0:0::/:/bin/sh\nnobody:x:65534:65534::/tmp:/bin/sh\n"
    for name, text in {"modules/order": order.encode(), "etc/passwd": users.encode(), **files}.items():
        with open(os.path.join(root, name), "wb") as file:
            file.write(text)
    image = os.path.join(folder, "initramfs")
    with open(image, "wb") as file:
        names = output("find", ".", cwd=root)
        subprocess.run(["cpio", "--create", "--format=newc", "--quiet"], cwd=root, input=names.encode(), stdout=file,
                       check=True)
    shutil.rmtree(root)
    return image
