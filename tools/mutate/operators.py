"""Finds the places of a C++ source where one small change makes another program: the mutants."""

import re
from collections import Counter
from dataclasses import dataclass, replace

COMPARISONS = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
               "==": ["!="], "!=": ["=="]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["/"], "<<": [">>"],
              ">>": ["<<"], "&": ["|"], "|": ["&"], "^": ["|"]}
LOGIC = {"&&": ["||"], "||": ["&&"]}
ASSIGNMENTS = {"+=": ["-=", "="], "-=": ["+=", "="], "*=": ["+="], "/=": ["*="], "|=": ["&="],
               "&=": ["|="], "<<=": [">>="], ">>=": ["<<="]}
WORDS = {"true": ["false"], "false": ["true"], "break": ["continue"], "continue": ["break"],
         "min": ["max"], "max": ["min"]}

TOKEN = re.compile(r"""
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*|(?:static_assert|EXPECT_\w+)\s*\([^;]*;)
  | (?P<text>"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)*')
  | (?P<number>\b(?:0[xX][0-9a-fA-F']+|[0-9][0-9']*(?:\.[0-9]+)?(?:[eE][0-9]+)?)[uUlLfF]*\b)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<operator><<=|>>=|<=|>=|==|!=|&&|\|\||<<|>>|\+=|-=|\*=|/=|\|=|&=|\+\+|--|->|::|[-+*/%&|^<>=!])
    """, re.VERBOSE | re.MULTILINE | re.DOTALL)

# One whole statement in one line that is no declaration: an assignment, a call, a step.
STATEMENT = re.compile(r"^[ \t]+((?:[\w\]\[.]|->|::)+(?:\(.*\))?(?: [-+*/|&]?= .*)?|--?[\w.]+|\+\+[\w.]+);$",
                       re.MULTILINE)
CONDITION = re.compile(r"^[ \t]*(?:\} else )?(?:if|while) \((.*)\) \{$", re.MULTILINE)


@dataclass(frozen=True)
class Mutant:
    """One change of one file."""
    file: str
    start: int
    end: int
    before: str
    after: str
    line: int
    mark: str  # the file and the line of code with the change in braces, see explained.py

    @property
    def key(self):
        return f"{self.file}:{self.start}:{self.before}->{self.after}"

    def describe(self):
        shown = self.after if self.after else "(removed)"
        return f"{self.file}:{self.line}: {self.before} -> {shown}"

    def apply(self, text):
        return text[:self.start] + self.after + text[self.end:]


def _other_numbers(token):
    digits = re.match(r"0[xX][0-9a-fA-F']+|[0-9']+", token).group()
    rest = token[len(digits):]
    if "." in rest or "e" in rest.lower():
        return ["2" + token] if digits != "2" else ["3" + rest]
    value = int(digits.replace("'", ""), 0)
    others = {value + 1, 0} if value else {1}
    return [f"{other}{rest}" for other in sorted(others)]


def _other_text(token):
    if len(token) < 3 or token[-2] == "\\" or token[-3] == "\\":
        return []
    last = token[-2]
    return [token[:-2] + ("x" if last != "x" else "y") + token[-1]]


def _is_binary(text, match):
    """Formatted code has blanks on both sides of a binary operator, and of no other."""
    return text[match.start() - 1] in " \n" and text[match.end():match.end() + 1] in (" ", "\n")


def _replacements(text, match):
    token = match.group()
    if match.group("number"):
        return _other_numbers(token)
    if match.group("text"):
        return _other_text(token)
    if match.group("word"):
        return WORDS.get(token, [])
    if token == "!":
        return [""]
    if token in ("++", "--"):
        return ["--" if token == "++" else "++"]
    tables = (COMPARISONS, ARITHMETIC, LOGIC, ASSIGNMENTS)
    if _is_binary(text, match):
        return [other for table in tables for other in table.get(token, [])]
    return []


def mutants_of(file, text):
    """All mutants of one file, in the order of their places."""
    found = []
    skipped = []

    def add(start, end, after):
        line = text.count("\n", 0, start) + 1
        before = text[text.rfind("\n", 0, start) + 1:start].lstrip()
        rest = text[end:].partition("\n")[0].rstrip()
        mark = f"{file}: {before}{{{text[start:end]}|{after}}}{rest}"
        found.append(Mutant(file, start, end, text[start:end], after, line, mark))

    for match in TOKEN.finditer(text):
        if match.group("skip"):
            skipped.append(match.span())
            continue
        for after in _replacements(text, match):
            add(match.start(), match.end(), after)
    for match in STATEMENT.finditer(text):
        if not any(start <= match.start(1) < end for start, end in skipped) and \
                not match.group(1).startswith(("return", "using", "break", "continue")):
            add(match.start(1), match.end(1), "")
    for match in CONDITION.finditer(text):
        add(match.start(1), match.end(1), f"!({match.group(1)})")
    found.sort(key=lambda mutant: (mutant.start, mutant.end, mutant.after))
    marks = Counter()
    for place, mutant in enumerate(found):
        marks[mutant.mark] += 1
        if marks[mutant.mark] > 1:
            found[place] = replace(mutant, mark=f"{mutant.mark} #{marks[mutant.mark]}")
    return found
