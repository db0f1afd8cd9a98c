"""A tree that is built once with all mutants, in which one after the other is switched on and tested."""

import hashlib
import re
import tempfile
from array import array
from dataclasses import replace
from pathlib import Path

from switches import HEADER, REACHED, SWITCH, with_switches
from tree import FIRST_BUILD_SECONDS, Tree

NAMED = re.compile(r'\bmutant-(\d+):')
# What is wrong with a macro stands where the macro does; the place that uses it is in a note.
ERROR = re.compile(r"^(?:\S*/)?(\S+?):(\d+):(?:\d+:)? (?:(?:fatal )?error|note: in expansion of macro)",
                   re.MULTILINE)
# Not killed behind its switch, so that it has to be built by itself: to see whether it is another program,
# and for the long tests or, when it is open, for all.
PASSED = "passed"
OPEN = "open"
# Passes all quick tests, and meanwhile comes to other places of the code, or more or less often.
OTHER_WORK = "other work"
NO_SWITCH = "no switch"
FLAGS = "-O1 -w -fmax-errors=0"
# So many command lines are one run of their script: to start it takes longer than most of them do.
EXAMPLES_TOGETHER = 20


class Switchboard:
    """Tells which mutants are killed. One that it does not kill, or has no switch for, may still be
    no mutant at all: it has to be built by itself to see."""

    def __init__(self, project, folder, subject, mutants):
        """@param mutants  all that shall be in the build, whichever are asked for: so the next run
        finds it as it is."""
        self.subject = subject
        self.project = Path(project)
        self.tree = Tree(project, folder, subject)
        self.aside = Path(folder).with_suffix(".aside")  # what does not compile behind a switch
        self.files = sorted({mutant.file for mutant in mutants})
        self.texts = {name: (self.project / name).read_text() for name in self.files}
        self.count = len(mutants)
        known = set(self.aside.read_text().splitlines()) if self.aside.exists() else set()
        self.mutants = {number: mutant for number, mutant in enumerate(mutants)
                        if self._mark(mutant) not in known}  # those that have a switch
        self.regions = {}  # by number of those: the file, and what the mutant takes the place of
        self.tests = []    # by stage, the quickest first
        self.reached = {}  # by test: for each mutant how often the test comes to it
        self.steady = {}   # by counted test: the mutants that it comes to equally often each time

    def prepare(self, jobs):
        """Builds, and runs the tests without a mutant."""
        self.tree.copy(self._sources())
        header = self.tree.folder / HEADER.relative_to(self.project)
        self.tree.configure(f"{FLAGS} -include \"{header}\"", "-DQXMIX_JOIN_SOURCES=ON")
        self._build(jobs)
        seconds = {}
        for test in [one for test in self.subject.tests if not test.is_long
                     for one in self._suites_of(test)]:
            seconds[test], self.reached[test] = self._counted(
                lambda settings, test=test: self.tree.time_test(test, settings))
            if test.is_counted:
                again = self._counted(lambda settings, test=test: self.tree.passes(test, settings))[1]
                self.steady[test] = {number for number in self._first_of_regions()
                                     if again[number] == self.reached[test][number]}
        self.tests = sorted(seconds, key=lambda test: (test.stage, seconds[test]))

    def judge(self, number):
        """What becomes of a mutant: killed, by which test; passed, when all quick tests that come to it
        pass, and whether by other work; or open, when none comes to it: perhaps it has no switch where it
        matters."""
        tests = self._together([test for test in self.tests
                                if number in self.mutants and self.reached[test][number]])
        does_other_work = False
        for test in tests:
            passes, counts = self._counted(lambda settings, test=test: self.tree.passes(
                test, {**settings, SWITCH: str(number)}))
            if not passes:
                return "killed", test.name
            does_other_work |= any(counts[other] != self.reached[test][other]
                                   for other in self.steady.get(test, ())
                                   if not self._is_within(other, number))
        if not tests:
            return OPEN, "" if number in self.mutants else NO_SWITCH
        return PASSED, OTHER_WORK if does_other_work else ""

    def _together(self, tests):
        """The tests, with one for several examples."""
        examples = [test for test in tests if test.suites == "examples"]
        joined = {}  # by the first of them
        for start in range(0, len(examples), EXAMPLES_TOGETHER):
            group = examples[start:start + EXAMPLES_TOGETHER]
            names = ",".join(test.settings["QXMIX_EXAMPLE"] for test in group)
            joined[group[0]] = replace(group[0], name=names,
                                       settings={**group[0].settings, "QXMIX_EXAMPLE": names})
            self.tree.seconds[joined[group[0]]] = sum(self.tree.seconds[test] for test in group)
        return [joined.get(test, test) for test in tests if test in joined or test not in examples]

    def _counted(self, run):
        """What `run` returns for the settings that it is given, and how often it came to each mutant."""
        with tempfile.NamedTemporaryFile(dir=self.tree.folder) as file:
            file.write(bytes(array("Q", [0] * self.count)))
            file.flush()
            returned = run({REACHED: file.name})
            return returned, array("Q", Path(file.name).read_bytes())

    def _first_of_regions(self):
        """Of each region the mutant that is asked for first, and so whenever the region is come to."""
        return {place: number for number, place in sorted(self.regions.items(), reverse=True)}.values()

    def _is_within(self, other, number):
        """Whether all that one mutant changes is part of what the other takes the place of."""
        (file, region), (other_file, other_region) = self.regions[number], self.regions[other]
        return file == other_file and region.start <= other_region.start and \
            other_region.end <= region.end

    def _sources(self):
        """The files of the mutants with their switches; mutants without one are put aside."""
        written = {}
        self.regions = {}
        for name in self.files:
            numbered = {number: mutant for number, mutant in self.mutants.items() if mutant.file == name}
            written[name], regions = with_switches(name, self.texts[name], numbered)
            self.regions.update({number: (name, region) for number, region in regions.items()})
        self._put_aside(set(self.mutants) - set(self.regions))
        return written

    def _mark(self, mutant):
        """Of a mutant in this content of its file."""
        return f"{mutant.key} {hashlib.sha256(self.texts[mutant.file].encode()).hexdigest()[:16]}"

    def _put_aside(self, numbers):
        with self.aside.open("a") as file:
            file.writelines(self._mark(self.mutants[number]) + "\n" for number in numbers)
        self.mutants = {number: mutant for number, mutant in self.mutants.items() if number not in numbers}

    def _build(self, jobs):
        """Builds until all that is left compiles."""
        tests = [test for test in self.subject.tests if not test.is_long]
        for targets in ([self.subject.target], self.subject.targets(tests)):
            while True:
                status, output = self.tree.compile(targets, jobs, FIRST_BUILD_SECONDS)
                if status == 0:
                    break
                wrong = self._wrong_in(output)
                if not wrong:
                    raise RuntimeError(f"the project does not build; see {self.tree.folder}\n"
                                       + output[-2000:])
                print(f"{len(wrong)} mutants put aside, since they do not compile behind a switch",
                      flush=True)
                self._put_aside(wrong)
                for name, text in self._sources().items():
                    self.tree.write(name, text.encode())

    def _wrong_in(self, output):
        """The mutants that the compiler complains of by name, or else those of the lines, or else of
        the files, that it names."""
        named = {int(number) for number in NAMED.findall(output)} & set(self.mutants)
        if named:
            return named
        places = {(Path(name).name, int(line)) for name, line in ERROR.findall(output)}
        for span in (0, 3, 1000000):
            near = {number for number, mutant in self.mutants.items()
                    for name, line in places
                    if Path(mutant.file).name == name and
                    mutant.line - span <= line <= mutant.line + mutant.before.count("\n") + span}
            if near:
                return near
        return set()

    def _suites_of(self, test):
        """A test for each part of its program that can run by itself, or the test."""
        if test.suites == "googletest":
            listed = self.tree.run([str(self.tree.build / test.command[0]), "--gtest_list_tests"])[1]
            suites = [line.split()[0] for line in listed.splitlines()
                      if re.match(r"[\w/]+\.(\s|$)", line)]
            return [replace(test, name=f"{test.name} {suite.rstrip('.')}",
                            command=(*test.command, f"--gtest_filter={suite}*")) for suite in suites]
        if test.suites == "examples":
            return [replace(test, name=example, settings={**test.settings, "QXMIX_EXAMPLE": example})
                    for example in examples_in(self.tree.folder / "tests/tools/examples")]
        return [test]


def examples_in(folder):
    """The names of all command lines with what they print, as tool_examples.py has them."""
    return [f"{path.name}:{number}" for path in sorted(folder.glob("*.txt"))
            for number, line in enumerate(path.read_text().splitlines(), 1) if line.startswith("$ ")]
