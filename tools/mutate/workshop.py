"""A copy of the project in which one mutant after the other is built and tested."""

import hashlib
import math
import os
import re
import resource
import shutil
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path

FLAGS = "-O2 -ffunction-sections -fdata-sections"


@dataclass(frozen=True)
class Test:
    """One command. Where the module is linked into its program, `target` is built before it; where
    it only calls one operation, the test is needless while that operation stays as it is."""
    name: str
    command: tuple
    settings: dict = field(default_factory=dict, compare=False)
    target: str = ""
    operation: str = ""


# What kills most for its time comes first. Programs that see the module through its library need no
# new link. Google's tests end with the first expectation that fails.
STOP = ("--gtest_brief=1", "--gtest_break_on_failure")
TESTS = [
    Test("vectors", ("bin/vector_runner", "@vectors")),
    Test("contract", ("bin/exports_contract", "@library")),
    Test("contract", ("bin/interposed_contract", "@library")),
    Test("reference", ("bin/against_reference_tests", *STOP),
         {"QXMIX_CASES": "20000", "QXMIX_SEED": "7"}),
    Test("unit", ("bin/unit_tests", *STOP), target="unit_tests"),
    Test("tables", ("bin/table_images_tests", *STOP), target="table_images_tests"),
    Test("words", ("bin/first_fit_words_tests", *STOP), target="first_fit_words_tests"),
    *(Test("small tables", ("bin/small_tables_tests", *STOP, f"--gtest_filter=*/{search}"),
           target="small_tables_tests", operation=f"Calc{search}")
      for search in ("MinimumNotes", "EqualNotes", "MaximumNotes", "EqualEmptying",
                     "FirstFitEmptying")),
]
LIBRARY = "QXMIX"
FIRST_TARGETS = [LIBRARY, *sorted({Path(test.command[0]).name for test in TESTS})]
FIRST_BUILD_SECONDS = 7200
BUILD_SECONDS = 600
# A test may take so many times the processor time that it took without a mutant, and never less
# than one second: the load of the machine does not count.
PATIENCE = 10
LEAST_SECONDS = 1


class Workshop:
    """One worker's tree under build/mutate; only one mutant is in it at a time."""

    def __init__(self, project, folder, counts_instructions):
        self.project = Path(project)
        self.counts_instructions = counts_instructions
        self.tree = Path(folder)
        self.build = self.tree / "build"
        self.library = self.build / "lib" / "libQXMIX.so"

    def prepare(self):
        """Copies what is under version control, builds it and looks at the library unmutated."""
        files = subprocess.run(["git", "ls-files", "-z"], cwd=self.project, check=True,
                               capture_output=True).stdout.decode().rstrip("\0").split("\0")
        for name in files:
            copy = self.tree / name
            content = (self.project / name).read_bytes()
            # What is there already keeps its time, so that it is not compiled again.
            if not copy.exists() or copy.read_bytes() != content:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(content)
                shutil.copymode(self.project / name, copy)
        for copy in [path for path in self.tree.rglob("*") if path.is_file()]:
            if self.build not in copy.parents and str(copy.relative_to(self.tree)) not in set(files):
                copy.unlink()
        # No debug information: two programs are the same when their bytes are. What a program does
        # not use is left out of it, so that it stays the same when only that was changed.
        self._run(["cmake", "-S", str(self.tree), "-B", str(self.build), "-G", "Ninja",
                   "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={FLAGS}",
                   "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--gc-sections", "-DQXMIX_TOOLS=OFF",
                   "-DQXMIX_WERROR=OFF"])
        if self._compile(FIRST_TARGETS, FIRST_BUILD_SECONDS) != 0:
            raise RuntimeError("the project does not build; see " + str(self.tree))
        self.original = {test: self._fingerprint(test) for test in TESTS}
        self.seconds = {}
        for test in TESTS:
            start = time.monotonic()
            if not self._passes(test):
                raise RuntimeError(f"{test.name}: fails without any mutant; see {self.tree}")
            self.seconds[test] = max(LEAST_SECONDS, PATIENCE * (time.monotonic() - start))

    def judge(self, mutant):
        """What becomes of a mutant: (kind, detail); kind is killed, work (only the instruction
        counts notice), survived, same (the same program) or broken (does not compile)."""
        source = self.tree / mutant.file
        text = source.read_text()
        source.write_text(mutant.apply(text))
        try:
            return self._judge_built()
        finally:
            source.write_text(text)

    def _judge_built(self):
        if self._compile([LIBRARY]) != 0:
            return "broken", ""
        if self._fingerprint(TESTS[0]) == self.original[TESTS[0]]:
            return "same", ""
        for test in TESTS:
            if test.target and self._compile([test.target]) != 0:
                return "killed", "tests do not compile"
            if self._fingerprint(test) != self.original[test] and not self._passes(test):
                return "killed", test.name
        if self.counts_instructions and self._run(["scripts/lib/count-instructions"], check=False) != 0:
            return "work", "instruction counts"
        return "survived", ""

    def _fingerprint(self, test):
        """Of what the test sees of the module: an operation with all that it calls, the program
        that the module is linked into, or the library."""
        if test.operation:
            seen = self._link_operation(test.operation)
        else:
            seen = self.build / test.command[0] if test.target else self.library
        return hashlib.sha256(seen.read_bytes()).hexdigest()

    def _link_operation(self, operation):
        objects = sorted(str(path) for path in (self.build / "src").glob("**/qxmix_module.dir/**/*.o"))
        names = subprocess.run(["nm", *objects], check=True, capture_output=True, text=True).stdout
        linked = self.build / "operation"
        self._run(["c++", "-nostartfiles", "-o", str(linked), "-Wl,--gc-sections",
                   "-Wl,--unresolved-symbols=ignore-all",
                   "-Wl,-e," + re.search(rf" T (_Z\w+{operation}E\w+)", names).group(1), *objects])
        return linked

    def _compile(self, targets, seconds=BUILD_SECONDS):
        return self._run(["cmake", "--build", str(self.build), "-j", "1", "--target", *targets],
                         check=False, seconds=seconds)

    def _passes(self, test):
        vectors = [str(path) for path in sorted((self.tree / "tests/vectors").glob("*.txt"))
                   if path.name not in ("CMakeLists.txt", "digest.txt")]
        words = []
        for word in test.command[1:]:
            if word == "@vectors":
                words += vectors
            else:
                words.append(str(self.library) if word == "@library" else word)
        return self._run([str(self.build / test.command[0]), *words], check=False,
                         settings=test.settings, processor_seconds=self.seconds.get(test)) == 0

    def _run(self, command, check=True, settings=None, seconds=BUILD_SECONDS,
             processor_seconds=None):
        """The exit status; a command that takes too long counts as failed."""
        def limit():
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            if processor_seconds:
                most = math.ceil(processor_seconds)
                resource.setrlimit(resource.RLIMIT_CPU, (most, most))

        try:
            ended = subprocess.run(command, cwd=self.tree, env={**os.environ, **(settings or {})},
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, timeout=seconds, check=False,
                                   preexec_fn=limit)
        except subprocess.TimeoutExpired:
            return -1
        if check and ended.returncode != 0:
            raise RuntimeError(ended.stdout.decode(errors="replace")[-2000:])
        return ended.returncode
