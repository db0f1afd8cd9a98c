#!/usr/bin/env python3
"""Files that cannot be written, or not yet: one clear line, and everything as it was before."""

import ctypes
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

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
        subprocess.run(["mount", "-o", "remount,bind,ro", self.folder], check=True)

    def __exit__(self, *_):
        if self.is_mounted:
            subprocess.run(["umount", self.folder], check=True)
        shutil.rmtree(self.folder)


def check_disks(tool, checks):
    for words in WRITERS:
        with SmallDisk() as disk:
            if disk is None:
                checks.skip("full and read-only disks: nobody may mount one here")
                return
            place = disk.folder / words[-1]
            is_appended = "--record" in words
            place.write_bytes(b"x" * 4000 + b"\n" if is_appended else b"old")
            disk.fill()
            check_refused(tool, checks, words, place, "No space left on device")
            disk.make_read_only()
            check_refused(tool, checks, words, place, "Read-only file system")


def check_written(tool, checks, words, name, expected, **options):
    """As run, with options of Popen."""
    process = tool.start(words, **options)
    output, errors = process.communicate(timeout=60)
    checks.equal(name, (process.returncode, (output or b"").decode(), errors.decode()),
                 expected)


def check_largest_file(tool, checks):
    """What the caller allows (ulimit -f) ends like a full disk."""
    def allow_little():
        resource.setrlimit(resource.RLIMIT_FSIZE, (64, 64))

    for words in WRITERS:
        for there in (None, b"old\n"):
            with tempfile.TemporaryDirectory() as name:
                place = pathlib.Path(name) / words[-1]
                if there:
                    place.write_bytes(there)
                before = listing(place.parent)
                title = " ".join(words[:1] + words[-2:]) + ", 64 bytes allowed"
                check_written(tool, checks, words[:-1] + [str(place)], title,
                              (4, "", f"qxmix: {place}: cannot be written: File too large\n"),
                              preexec_fn=allow_little)
                after = listing(place.parent)
                # Who appends makes the file first.
                checks.equal(title + ": nothing is left",
                             {key: text for key, text in after.items() if text}, before)
    with open(tool.folder / "answer.txt", "wb") as answer:
        check_written(tool, checks, ["types"], "standard output, 64 bytes allowed",
                      (4, "", "qxmix: standard output: cannot be written: File too large\n"),
                      preexec_fn=allow_little, stdout=answer)


def check_write_protected(tool, checks):
    """What is there and may not be written is not replaced either, though its folder could be."""
    def obey_modes():
        # Not even the superuser of the test writes whatever he likes.
        drop_bound, override = 24, 1
        ctypes.CDLL(None).prctl(drop_bound, override, 0, 0, 0)

    for words in WRITERS:
        with tempfile.TemporaryDirectory() as name:
            place = pathlib.Path(name) / words[-1]
            place.write_bytes(b"old\n")
            place.chmod(0o444)
            title = " ".join(words[:1] + words[-2:]) + ", write-protected"
            check_written(tool, checks, words[:-1] + [str(place)], title,
                          (4, "", f"qxmix: {place}: cannot be written: Permission denied\n"),
                          preexec_fn=obey_modes)
            checks.equal(title + ": nothing changes", listing(place.parent),
                         {place.name: b"old\n"})


def check_links(tool, checks):
    """Links that somebody else has put where the tool writes."""
    for words in WRITERS:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            private = folder / "private"
            private.write_bytes(b"private")
            place = folder / words[-1]
            # The shell's number is the tool's.
            plant = f"ln -s {private} {place}.part$$ && exec \"$@\""
            process = subprocess.run(
                ["sh", "-c", plant, "sh", *tool.arguments.command, *words[:-1], str(place)],
                cwd=tool.folder, env=tool.environment, capture_output=True, check=False)
            title = " ".join(words[:1] + words[-2:])
            checks.check(f"{title}: written", process.returncode < 4 and place.exists(), process)
            checks.equal(f"{title}: a link in its way changes nothing", private.read_bytes(),
                         b"private")
    nowhere = tool.folder / "nowhere.csv"
    nowhere.symlink_to("private.csv")
    checks.equal("a link that leads nowhere",
                 tool.run(["map", ASK[0], "--output", "nowhere.csv"]),
                 (4, "", "qxmix: nowhere.csv: cannot be written: a link that leads to no file\n"))
    checks.check("a link that leads nowhere: no file", not (tool.folder / "private.csv").exists())


def waits_with_a_part(tool, folder, **options):
    """The tool while one output is written beside its place and another is a pipe that nobody
    reads."""
    os.mkfifo(folder / "pipe.csv")
    process = tool.start(["map", ASK[0], "--registry-out", str(folder / "left.reg"), "--output",
                          str(folder / "pipe.csv")], **options)
    for _ in range(2000):
        if any(path.suffix == ".part" for path in folder.iterdir()):
            return process
        time.sleep(0.01)
    process.kill()
    raise TimeoutError("nothing is written")


def check_signals(tool, checks):
    for signals, status in (([signal.SIGTERM], -signal.SIGTERM), ([signal.SIGHUP], -signal.SIGHUP),
                            ([signal.SIGINT] * 2, 130), ([signal.SIGQUIT], -signal.SIGQUIT)):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            process = waits_with_a_part(tool, folder)
            for one in signals:
                process.send_signal(one)
                time.sleep(0.2)
            output, errors = process.communicate(timeout=20)
            title = signals[0].name
            checks.equal(f"{title}: ends the tool", (process.returncode, output, errors),
                         (status, b"", b""))
            checks.equal(f"{title}: nothing is left", [path.name for path in folder.iterdir()],
                         ["pipe.csv"])
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        process = waits_with_a_part(
            tool, folder, preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        process.send_signal(signal.SIGHUP)
        text = (folder / "pipe.csv").read_text()
        process.communicate(timeout=20)
        checks.equal("nohup: goes on", (process.returncode, text.splitlines()[0][:6]),
                     (3, "amount"))
        checks.equal("nohup: all is written", sorted(path.name for path in folder.iterdir()),
                     ["left.reg", "pipe.csv"])


def check_standard_output(tool, checks):
    """"-" is no file: standard output has the answer already."""
    for words in WRITERS:
        checks.equal(" ".join(words[:1] + words[-2:-1]) + " -", tool.run(words[:-1] + ["-"]),
                     (2, "", f"qxmix: {words[-2]}: - is not allowed; expected a file: standard "
                             "output has the answer\n"))
    checks.check("no file of that name", not (tool.folder / "-").exists())


def become_who_may_mount():
    """Others than root begin anew as root of a name space of their own, where the system lets them."""
    own = ["unshare", "--map-root-user", "--mount"]
    if os.geteuid() != 0 and shutil.which("unshare") and subprocess.run(
            [*own, "true"], capture_output=True, check=False).returncode == 0:
        os.execvp(own[0], [*own, sys.executable, *sys.argv])


become_who_may_mount()
run_parts(check_devices_and_folders, check_disks, check_largest_file, check_write_protected,
          check_links, check_signals, check_standard_output)
