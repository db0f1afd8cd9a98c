"""A copy of the project in which one mutant after the other is built and tested."""

import hashlib
import os
import shutil
import subprocess
from pathlib import Path

# Programs that see the module through its library come first: they need no new link.
LIBRARY_TARGETS = ["QXMIX"]
LIBRARY_TESTS = [
    ("vectors", ["bin/vector_runner", "@vectors"], {}),
    ("contract", ["bin/exports_contract", "@library"], {}),
    ("contract", ["bin/interposed_contract", "@library"], {}),
    ("reference", ["bin/against_reference_tests", "--gtest_brief=1"],
     {"QXMIX_CASES": "20000", "QXMIX_SEED": "7"}),
]
LINKED_TARGETS = ["unit_tests", "table_images_tests", "small_tables_tests"]
LINKED_TESTS = [
    ("unit", ["bin/unit_tests", "--gtest_brief=1"], {}),
    ("tables", ["bin/table_images_tests", "--gtest_brief=1"], {}),
    ("small tables", ["bin/small_tables_tests", "--gtest_brief=1"], {}),
]
FIRST_TARGETS = ["vector_runner", "exports_contract", "interposed_contract",
                 "against_reference_tests"]
FIRST_BUILD_SECONDS = 7200
BUILD_SECONDS = 600
TEST_SECONDS = 120


class Workshop:
    """One worker's tree under build/mutate; only one mutant is in it at a time."""

    def __init__(self, project, folder, counts_instructions):
        self.project = Path(project)
        self.counts_instructions = counts_instructions
        self.tree = Path(folder)
        self.build = self.tree / "build"
        self.library = self.build / "lib" / "libQXMIX.so"

    def prepare(self):
        """Copies what is under version control, builds it and remembers the library's bytes."""
        if self.tree.exists():
            shutil.rmtree(self.tree)
        self.tree.mkdir(parents=True)
        files = subprocess.run(["git", "ls-files", "-z"], cwd=self.project, check=True,
                               capture_output=True).stdout
        for name in files.decode().rstrip("\0").split("\0"):
            copy = self.tree / name
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(self.project / name, copy)
        # No debug information: two libraries are the same program when their bytes are.
        self._run(["cmake", "-S", str(self.tree), "-B", str(self.build), "-G", "Ninja",
                   "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O2", "-DQXMIX_TOOLS=OFF",
                   "-DQXMIX_WERROR=OFF"])
        if self._compile(LIBRARY_TARGETS + FIRST_TARGETS + LINKED_TARGETS,
                         FIRST_BUILD_SECONDS) != 0:
            raise RuntimeError("the project does not build; see " + str(self.tree))
        self.original = self._fingerprint()
        for name, command, settings in LIBRARY_TESTS + LINKED_TESTS:
            if not self._passes(command, settings):
                raise RuntimeError(f"{name}: fails without any mutant; see {self.tree}")

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
        if self._compile(LIBRARY_TARGETS) != 0:
            return "broken", ""
        if self._fingerprint() == self.original:
            return "same", ""
        for name, command, settings in LIBRARY_TESTS:
            if not self._passes(command, settings):
                return "killed", name
        if self._compile(LINKED_TARGETS) != 0:
            return "killed", "tests do not compile"
        for name, command, settings in LINKED_TESTS:
            if not self._passes(command, settings):
                return "killed", name
        if self.counts_instructions and self._run(["scripts/count-instructions"], check=False) != 0:
            return "work", "instruction counts"
        return "survived", ""

    def _fingerprint(self):
        return hashlib.sha256(self.library.read_bytes()).hexdigest()

    def _compile(self, targets, seconds=BUILD_SECONDS):
        return self._run(["cmake", "--build", str(self.build), "-j", "1", "--target", *targets],
                         check=False, seconds=seconds)

    def _passes(self, command, settings):
        vectors = [str(path) for path in sorted((self.tree / "tests/vectors").glob("*.txt"))
                   if path.name not in ("CMakeLists.txt", "digest.txt")]
        words = []
        for word in command:
            if word == "@vectors":
                words += vectors
            else:
                words.append(str(self.library) if word == "@library" else word)
        return self._run([str(self.build / words[0]), *words[1:]], check=False,
                         settings=settings, seconds=TEST_SECONDS) == 0

    def _run(self, command, check=True, settings=None, seconds=BUILD_SECONDS):
        """The exit status; a command that takes too long counts as failed."""
        try:
            ended = subprocess.run(command, cwd=self.tree, env={**os.environ, **(settings or {})},
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, timeout=seconds, check=False)
        except subprocess.TimeoutExpired:
            return -1
        if check and ended.returncode != 0:
            raise RuntimeError(ended.stdout.decode(errors="replace")[-2000:])
        return ended.returncode
