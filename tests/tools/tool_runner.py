"""Runs the tool for the test scripts beside this file."""

import argparse
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).parent


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--source", type=pathlib.Path, required=True, help="root of the project")
    parser.add_argument("--library", required=True, help="the module")
    parser.add_argument("--fake", required=True, help="the fake module")
    parser.add_argument("command", nargs="+", help="the tool, an emulator before it if need be")
    return parser.parse_args()


class Tool:
    """The tool in a folder of its own that holds the examples and the test files."""

    def __init__(self, arguments):
        self.arguments = arguments
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="qxmix-"))
        shutil.copytree(arguments.source / "examples", self.folder / "examples")
        shutil.copytree(HERE / "files", self.folder, dirs_exist_ok=True)
        (self.folder / "fake.so").symlink_to(arguments.fake)
        self.environment = {
            "PATH": os.environ["PATH"],
            "QXMIX_LIBRARY": arguments.library,
            "LC_ALL": "C.UTF-8",
            # A crash is to be a crash in sanitized builds, too.
            "ASAN_OPTIONS": "handle_segv=0",
            "TSAN_OPTIONS": "handle_segv=0",
            # Which of its mutants the tool is, where it has them built in (tools/mutate).
            **{name: value for name, value in os.environ.items() if name.startswith("QXMIX_MUTANT")},
        }

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.folder)

    def is_plain(self):
        """Whether the tool runs by itself: a sanitizer has calls and memory of its own, an emulator too."""
        return len(self.arguments.command) == 1 and not self.holds(
            b"__asan_init", b"__msan_init", b"__tsan_init")

    def is_counted(self):
        """Whether it counts what it executes, and takes its time for that."""
        return self.holds(b"__gcov_dump")

    def holds(self, *marks):
        """Whether one of these stands in the program, or in the emulator before it."""
        program = pathlib.Path(self.arguments.command[0]).read_bytes()
        return any(mark in program for mark in marks)

    def last_mix(self):
        """The number of the last mix that the module lists."""
        return json.loads(self.run(["types", "--json"])[1])["result"]["types"][-1]["mix"]

    def start(self, words, **options):
        """Starts the tool; streams are pipes unless told otherwise."""
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        options.setdefault("env", self.environment)
        options.setdefault("cwd", self.folder)
        return subprocess.Popen(self.arguments.command + list(words), **options)

    def run(self, words, stdin=b"", environment=None):
        """Runs the tool to its end: exit status, standard output, standard error."""
        process = self.start(words, stdin=subprocess.PIPE,
                             env={**self.environment, **(environment or {})})
        output, errors = process.communicate(stdin, timeout=120)
        return process.returncode, output.decode(), errors.decode()

    def start_reading(self, words, file, **options):
        """Starts the tool; it has begun to read a file of its folder then."""
        process = self.start(words, **options)
        opened, end = pathlib.Path(f"/proc/{process.pid}/fd"), time.monotonic() + 60
        while process.poll() is None and time.monotonic() < end:
            for link in opened.iterdir():
                about = (opened.parent / "fdinfo" / link.name).read_text().split()  # pos: 0 ...
                if about[1] != "0" and os.path.samefile(link, self.folder / file):
                    return process
            time.sleep(0.01)
        return process

    def interrupt(self, words, seconds):
        """Runs the tool and sends Ctrl-C after a time: exit status and both streams as bytes."""
        process = self.start(words)
        time.sleep(seconds)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=20)
        return process.returncode, output, errors

    def run_redirected(self, words):
        """As run; the last two words may be "<" and a file for standard input."""
        if words[-2:-1] == ["<"]:
            return self.run(words[:-2], stdin=(self.folder / words[-1]).read_bytes())
        return self.run(words)


class Checks:
    """Counts what holds and tells what does not."""

    def __init__(self):
        self.passed = 0
        self.failed = 0
        self.skipped = 0

    def check(self, name, holds, detail=""):
        if holds:
            self.passed += 1
        else:
            self.failed += 1
            print(f"FAILED {name}\n{detail}")
            if "QXMIX_STOP" in os.environ:  # the first failure is all that somebody wants to know
                self.finish()

    def equal(self, name, actual, expected):
        self.check(name, actual == expected, f"--- expected\n{expected}\n--- got\n{actual}")

    def skip(self, reason):
        """What could not be checked here: the whole test is then shown as skipped, unless it fails."""
        self.skipped += 1
        print(f"SKIPPED: {reason}")

    def finish(self):
        print(f"{self.passed} passed, {self.failed} failed, {self.skipped} skipped")
        sys.exit(1 if self.failed or not self.passed else 77 if self.skipped else 0)


def run_parts(*parts):
    """A whole test script: each part gets the tool and the checks."""
    checks = Checks()
    with Tool(parse_arguments()) as tool:
        for part in parts:
            part(tool, checks)
    checks.finish()
