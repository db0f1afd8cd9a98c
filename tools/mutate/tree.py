"""A copy of the project that is built and tested with changes in it."""

import math
import os
import resource
import shutil
import signal
import subprocess
from pathlib import Path

FIRST_BUILD_SECONDS = 7200
BUILD_SECONDS = 600
# A test may take so many times the processor time that it took without a mutant, and never less
# than one second: the load of the machine does not count. What waits instead of working has the clock; what
# would work if the machine let it has not.
PATIENCE = 10
LEAST_SECONDS = 1
WAIT_SECONDS = 30


class Tree:
    """A folder under build/mutate."""

    def __init__(self, project, folder, subject):
        self.project = Path(project)
        self.subject = subject
        self.folder = Path(folder)
        self.build = self.folder / "build"
        self.product = self.build / subject.product
        self.seconds = {}

    def copy(self, changed):
        """Copies what is under version control, with the texts of `changed` in place of its own."""
        names = subprocess.run(["git", "ls-files", "-z"], cwd=self.project, check=True,
                               capture_output=True).stdout.decode().rstrip("\0").split("\0")
        for name in {*names, *changed}:
            content = changed[name].encode() if name in changed else (self.project / name).read_bytes()
            self.write(name, content)
            if (self.project / name).exists():
                shutil.copymode(self.project / name, self.folder / name)
        for copy in [path for path in self.folder.rglob("*") if path.is_file()]:
            if self.build not in copy.parents and \
                    str(copy.relative_to(self.folder)) not in {*names, *changed}:
                copy.unlink()

    def write(self, name, content):
        """What is there already keeps its time, so that it is not compiled again."""
        copy = self.folder / name
        if not copy.exists() or copy.read_bytes() != content:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)

    def configure(self, flags, *options):
        # No debug information: two programs are the same when their bytes are. What a program does
        # not use is left out of it, so that it stays the same when only that was changed.
        status, output = self.run(
            ["cmake", "-S", str(self.folder), "-B", str(self.build), "-G", "Ninja",
             "-DCMAKE_BUILD_TYPE=None",
             f"-DCMAKE_CXX_FLAGS={flags} -ffunction-sections -fdata-sections",
             "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--gc-sections", "-DQXMIX_WERROR=OFF",
             *self.subject.options, *options])
        if status != 0:
            raise RuntimeError(output[-2000:])

    def compile(self, targets, jobs=1, seconds=BUILD_SECONDS):
        """The exit status and what was printed; all that can be compiled is."""
        return self.run(["cmake", "--build", str(self.build), "-j", str(jobs), "--target", *targets,
                         "--", "-k", "0"], seconds=seconds)

    def time_test(self, test, settings=None):
        """Runs a test without a mutant, to know how long it may take with one; its processor time."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        if not self.passes(test, settings):
            raise RuntimeError(f"{test.name}: fails without any mutant: {' '.join(test.command)}; "
                               f"see {self.folder}")
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        self.seconds[test] = max(LEAST_SECONDS, PATIENCE * seconds)
        return seconds

    def passes(self, test, settings=None):
        words = [word for part in test.command for word in self._words_of(part)]
        limit = self.seconds.get(test)
        return any(self.run(words, {**test.settings, **(settings or {})}, processor_seconds=limit,
                            seconds=WAIT_SECONDS + 10 * limit if limit else BUILD_SECONDS)[0] == 0
                   for _ in range(test.tries))

    def _words_of(self, part):
        if part == "@vectors":
            return [str(path) for path in sorted((self.folder / "tests/vectors").glob("*.txt"))
                    if path.name not in ("CMakeLists.txt", "digest.txt")]
        if part == "@library":
            return [str(self.product)]
        return [str(self.build / part) if part.startswith(("bin/", "lib/")) else part]

    def run(self, command, settings=None, seconds=BUILD_SECONDS, processor_seconds=None):
        """The exit status and what was printed; a command that takes too long counts as failed."""
        def limit():
            os.setpgid(0, 0)  # no session: each has a share of the processor of its own
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            if processor_seconds:
                most = math.ceil(processor_seconds)
                resource.setrlimit(resource.RLIMIT_CPU, (most, most))

        with subprocess.Popen(command, cwd=self.folder, env={**os.environ, **(settings or {})},
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              preexec_fn=limit) as process:
            output = None
            while output is None:
                try:
                    output = process.communicate(timeout=seconds)[0]
                except subprocess.TimeoutExpired:
                    if not processor_seconds or not wants_to_work(process.pid):
                        end_all_of(process)  # what it has started holds its output open
                        return -1, ""
            end_all_of(process)  # a script that ends itself leaves a program that never does
            return process.returncode, output.decode(errors="replace")


def wants_to_work(group):
    """Whether a process of this group works, or waits for nothing but a processor: its limit ends it."""
    for stat in Path("/proc").glob("[0-9]*/stat"):
        try:
            state, _, its_group = stat.read_text().rpartition(")")[2].split()[:3]
        except OSError:  # it has ended meanwhile
            continue
        if int(its_group) == group and state == "R":
            return True
    return False


def end_all_of(process):
    """Ends what is left of a process and of all that it has started."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
