"""What is changed, and the tests that are to notice: the module, and decisions of the tool."""

from dataclasses import dataclass, field


@dataclass(frozen=True)
class Test:
    """One command. Where what is changed is linked into its program, `target` is built before it;
    where it only calls one operation, the test is needless while that operation stays as it is."""
    name: str
    command: tuple
    settings: dict = field(default_factory=dict, compare=False)
    target: str = ""
    operation: str = ""
    is_long: bool = False     # not run on what holds all mutants
    suites: str = ""          # what can run one by one: those of "googletest", or "examples"
    tries: int = 1            # fails when it fails so often: the load can make one with deadlines fail
    stage: int = 0            # begins when all tests of earlier stages have passed
    is_counted: bool = False  # goes the same way each time, so that less or more work shows


@dataclass(frozen=True)
class Subject:
    """Sources and their tests. `product` has other bytes when one of the sources is another program."""
    name: str
    folders: tuple
    left_out: str  # names of files that are not changed, a regular expression
    changes_sentences: bool
    target: str
    product: str
    options: tuple  # of the build
    flags: str      # of the compiler, for a build with one mutant
    tests: tuple

    def targets(self, tests):
        """What has to be built for these tests."""
        return [self.target, *sorted({word.partition("/")[2] for test in tests for word in test.command
                                      if word.startswith("bin/")} - {self.target})]


# Google's tests end with the first expectation that fails.
STOP = ("--gtest_brief=1", "--gtest_break_on_failure")

# What kills most for its time comes first. Programs that see the module through its library need no
# new link.
MODULE = Subject(
    "module", ("src/interface", "src/cashunits", "src/mix"), "^$", True, "QXMIX", "lib/libQXMIX.so",
    ("-DQXMIX_TOOLS=OFF",), "-O2", (
        Test("vectors", ("bin/vector_runner", "@vectors"), is_counted=True),
        Test("contract", ("bin/exports_contract", "@library")),
        Test("contract", ("bin/interposed_contract", "@library")),
        Test("few of reference", ("bin/against_reference_tests", *STOP),
             {"QXMIX_CASES": "1000", "QXMIX_SEED": "7"}),
        Test("reference", ("bin/against_reference_tests", *STOP),
             {"QXMIX_CASES": "20000", "QXMIX_SEED": "7"}, is_counted=True),
        Test("unit", ("bin/unit_tests", *STOP), target="unit_tests", suites="googletest"),
        Test("tables", ("bin/table_images_tests", *STOP), target="table_images_tests"),
        Test("words", ("bin/first_fit_words_tests", *STOP), target="first_fit_words_tests",
             is_long=True),
        *(Test("small tables", ("bin/small_tables_tests", *STOP, f"--gtest_filter=*/{search}"),
               target="small_tables_tests", operation=f"Calc{search}", is_long=True)
          for search in ("MinimumNotes", "EqualNotes", "MaximumNotes", "EqualEmptying",
                         "FirstFitEmptying"))))


def script(name, **more):
    """Command lines of the tool, run by a script of its tests, in the order of their time."""
    return Test(name, ("/usr/bin/python3", f"tests/tools/{name}.py", "--source", ".", "--library",
                       "lib/libQXMIX.so", "--fake", "lib/libfake_module.so", "--", "bin/qxmix"),
                {"QXMIX_STOP": "1"}, tries=2, stage=1, **more)


# Its decisions: forms decide nothing, and what they and all messages say in sentences is held by the command
# lines with what they print. Each source is compiled by itself, again for each mutant alone.
TOOL = Subject(
    "tool", tuple(f"tools/qxmix/{folder}" for folder in
                  ("dispenser", "mixes", "findings", "answers", "requests", "sheets", "tables",
                   "demand", "commands/lint")),
    r"/Lint(\w*(Text|Json|Csv|Page|Forms)|Sarif|JUnit|Github|Elements)\.|/RuleTexts\.|/\w+Json\.", False,
    "qxmix", "bin/qxmix", ("-DQXMIX_TOOLS=ON", "-DQXMIX_JOIN_SOURCES=OFF"), "-O1", (
        Test("tool tests", ("bin/tool_tests", *STOP), target="tool_tests", suites="googletest", tries=2),
        script("tool_examples", suites="examples"),
        script("tool_lint_forms"), script("tool_lint_options"), script("tool_lint_fleet")))

SUBJECTS = (MODULE, TOOL)
