"""The survivors that are known, with the reason why no test notices them.

The file has a line for each reason, "work: ..." where only the amount of work changes, "answer: ..."
where nothing changes that a host sees, and "sanitizer: ..." where only a build that watches memory
fails; and below it, indented, the mutants: the name of the file and its line of code with the change
in braces, "{before|after}", and "#2" where a line like it stands further up. So an explanation moves
with its line, and is out of date when the line changes.
"""

from dataclasses import dataclass

KINDS = ("work", "answer", "sanitizer")


@dataclass(frozen=True)
class Explained:
    """One mutant that is known to survive."""
    mark: str
    kind: str
    reason: str


def read(path):
    """The explained survivors of a file, by their marks."""
    explained = {}
    kind = reason = ""
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if not line.startswith(" "):
            kind, colon, reason = line.partition(": ")
            if kind not in KINDS or not colon or not reason.strip():
                raise ValueError(f"{path}:{number}: expected one of {', '.join(KINDS)}, a colon "
                                 "and a reason")
            continue
        mark = line.strip()
        if not reason or mark in explained:
            raise ValueError(f"{path}:{number}: " + ("the same mutant twice" if reason else
                                                     "no reason above this mutant"))
        explained[mark] = Explained(mark, kind, reason)
    return explained


def reason_for(explanation, kind, is_counted):
    """Why a survivor survives: a kind of explanation; "unexplained"; or "misjudged", when it is said to
    change the amount of work and none is seen to change.

    kind: survived or work; is_counted: as what the instruction counts show, which are a test of their own.
    """
    if explanation is None:
        return "work" if kind == "work" and is_counted else "unexplained"
    return "misjudged" if explanation.kind == "work" and kind != "work" else explanation.kind


def out_of_date(explained, mutants, kinds):
    """The marks that explain nothing: of no mutant, or of one that is judged and did not survive.

    mutants: all mutants by mark; kinds: what became of those that are judged, by mark.
    """
    return sorted(mark for mark in explained
                  if mark not in mutants or kinds.get(mark, "survived") not in ("survived", "work"))
