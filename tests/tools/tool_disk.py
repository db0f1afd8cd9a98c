#!/usr/bin/env python3
"""Files that cannot be written: one clear line, exit status 4, and everything as it was before."""

import pathlib
import shutil
import subprocess
import tempfile

from tool_runner import run_parts

ASK = ["EUR:50x10,20x30", "--amount", "50"]

# What writes a file, with the name of the file at the end.
WRITERS = [
    ["mix", *ASK, "--raw-out", "out.bin"],
    ["mix", *ASK, "--registry-out", "out.reg"],
    ["mix", *ASK, "--record", "out.ndjson"],
    ["types", "--registry-out", "out.reg"],
    ["map", ASK[0], "--output", "out.txt"],
    ["map", ASK[0], "--output", "out.csv"],
    ["map", ASK[0], "--output", "out.json"],
    ["map", ASK[0], "--output", "out.html"],
    ["compare", ASK[0], "EUR:50x10,20x31", "--registry-out", "out.reg"],
    ["compare", ASK[0], "EUR:50x10,20x31", "--output", "out.csv"],
    ["replay", "examples/trace.ndjson", "--registry-out", "out.reg"],
    ["registry", "examples/device.reg", "--set", "CSTMinimum4Mix6=7", "--output", "out.reg"],
    ["simulate", ASK[0], "--demand", "examples/week.json", "--runs", "2", "--output", "out.csv"],
]


def listing(folder):
    """Names and contents of the files there."""
    return {path.name: path.read_bytes() if path.is_file() else None
            for path in (folder.iterdir() if folder.exists() else [])}


def check_refused(tool, checks, words, place, reason):
    """Lets the tool write to a place in a folder; nothing in that folder may change."""
    before = listing(place.parent)
    status, output, errors = tool.run(words[:-1] + [str(place)])
    name = " ".join(words[:1] + words[-2:]) + f", {reason}"
    checks.equal(name, (status, output, errors),
                 (4, "", f"qxmix: {place}: cannot be written: {reason}\n"))
    checks.equal(name + ": nothing changes", listing(place.parent), before)


def check_devices_and_folders(tool, checks):
    for words in WRITERS:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            full = folder / words[-1]
            full.symlink_to("/dev/full")
            check_refused(tool, checks, words, full, "No space left on device")
            full.unlink()
            full.mkdir()
            check_refused(tool, checks, words, full, "Is a directory")
            check_refused(tool, checks, words, folder / "none" / words[-1],
                          "No such file or directory")


class SmallDisk:
    """A file system of 64 KiB in a folder; None where nobody may mount one."""

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", self.folder],
                                 stderr=subprocess.DEVNULL, check=False).returncode == 0
        self.is_mounted = mounted
        return self if mounted else None

    def fill(self):
        """Takes all the room there is."""
        with open(self.folder / "filling", "wb", buffering=0) as filling:
            try:
                while filling.write(b"x" * 512):
                    pass
            except OSError:
                pass

    def make_read_only(self):
        subprocess.run(["mount", "-o", "remount,ro", self.folder], check=True)

    def __exit__(self, *_):
        if self.is_mounted:
            subprocess.run(["umount", self.folder], check=True)
        shutil.rmtree(self.folder)


def check_disks(tool, checks):
    for words in WRITERS:
        with SmallDisk() as disk:
            if disk is None:
                print("SKIPPED full and read-only disks: mounting one needs root")
                return
            place = disk.folder / words[-1]
            is_appended = "--record" in words
            place.write_bytes(b"x" * 4000 + b"\n" if is_appended else b"old")
            disk.fill()
            check_refused(tool, checks, words, place, "No space left on device")
            disk.make_read_only()
            check_refused(tool, checks, words, place, "Read-only file system")


run_parts(check_devices_and_folders, check_disks)
