"""A tree in which one mutant after the other is built and tested by itself."""

import hashlib
import re
import subprocess

from tree import FIRST_BUILD_SECONDS, Tree

COUNTED = "instruction counts"  # what judged last


class Workshop:
    """One worker's tree; only one mutant is in it at a time."""

    def __init__(self, project, folder, subject):
        self.subject = subject
        self.tree = Tree(project, folder, subject)

    def prepare(self):
        """Builds the project and looks at it unmutated."""
        self.tree.copy({})
        self.tree.configure(self.subject.flags, "-DQXMIX_JOIN_MODULE=ON")
        tests = self.subject.tests
        if self.tree.compile(self.subject.targets(tests), seconds=FIRST_BUILD_SECONDS)[0] != 0:
            raise RuntimeError(f"the project does not build; see {self.tree.folder}")
        self.original = {test: self._fingerprint(test) for test in tests}
        self.product = self._bytes_of(self.tree.product)
        for test in tests:
            self.tree.time_test(test)

    def judge(self, mutant, tests, counts_instructions):
        """What becomes of a mutant: (kind, detail); kind is killed, work (only the instruction
        counts notice), survived, same (the same program) or broken (does not compile).

        @param tests  those that have not been run with it, all of the subject's or the long ones
        @param counts_instructions  of one that survives"""
        text = (self.tree.folder / mutant.file).read_text()
        self.tree.write(mutant.file, mutant.apply(text).encode())
        try:
            return self._judge_built(tests, counts_instructions)
        finally:
            self.tree.write(mutant.file, text.encode())

    def _judge_built(self, tests, counts_instructions):
        if self.tree.compile([self.subject.target])[0] != 0:
            return "broken", ""
        if self._bytes_of(self.tree.product) == self.product:
            return "same", ""
        for test in tests:
            if test.target and self.tree.compile([test.target])[0] != 0:
                return "killed", "tests do not compile"
            if self._fingerprint(test) != self.original[test] and not self.tree.passes(test):
                return "killed", test.name
        if not counts_instructions:
            return "survived", ""
        counted = self.tree.run(["scripts/lib/count-instructions"])[0]
        return "survived" if counted == 0 else "work", COUNTED

    def _fingerprint(self, test):
        """Of what the test sees of the subject: an operation with all that it calls, the program
        that it is linked into, or the library."""
        if test.operation:
            return self._bytes_of(self._link_operation(test.operation))
        return self._bytes_of(self.tree.build / test.command[0] if test.target else self.tree.product)

    @staticmethod
    def _bytes_of(path):
        return hashlib.sha256(path.read_bytes()).hexdigest()

    def _link_operation(self, operation):
        objects = sorted(str(path) for path in
                         (self.tree.build / "src").glob("**/qxmix_module.dir/**/*.o"))
        names = subprocess.run(["nm", *objects], check=True, capture_output=True, text=True).stdout
        linked = self.tree.build / "operation"
        status, output = self.tree.run(
            ["c++", "-nostartfiles", "-o", str(linked), "-Wl,--gc-sections",
             "-Wl,--unresolved-symbols=ignore-all",
             "-Wl,-e," + re.search(rf" T (_Z\w+{operation}E\w+)", names).group(1), *objects])
        if status != 0:
            raise RuntimeError(output[-2000:])
        return linked
