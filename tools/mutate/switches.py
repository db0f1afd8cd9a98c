"""Writes a source with all its mutants in it, each behind a switch that is set when it runs.

`a < b` becomes `(MutantIs(7) ? (a <= b) : (a < b))`, where 7 is the mutant's number in the environment
variable of SWITCH. So everything is compiled once for all mutants. A mutant that is part of an expression
takes the place of the smallest expression around it that ends at brackets, commas, semicolons or an
assignment, and so needs no parser. It is the same program as with the mutant alone where it compiles.
A mutant has no switch where the compiler calculates (constants, compile-time conditions), and the
workshop judges it. Line directives name the mutant that does not compile.
"""

import re
from dataclasses import dataclass
from pathlib import Path

from operators import TOKEN

HEADER = Path(__file__).resolve().parent / "Mutants.h"  # goes in front of every source
SWITCH = "QXMIX_MUTANT"
REACHED = "QXMIX_MUTANTS_REACHED"  # names a file with a count for each mutant
# What can stand before an expression that takes the place of a statement or follows a label.
LABEL = re.compile(r"\s*(?:case\s+(?:[^:;{}]|::)+|default|public|private|protected):(?!:)")
LEAD = re.compile(r"\s*(?:(?:return|throw)\b)?\s*")
NO_EXPRESSION = re.compile(r"(?:break|continue)$")
ASSIGNS = re.compile(r" (?:[-+*/%&|^]|<<|>>)?= ")
PAIRS = {")": "(", "]": "[", "}": "{"}


@dataclass(frozen=True)
class Region:
    """The text that a mutant takes the place of; `is_statement` where nobody uses a value of it."""
    start: int
    end: int
    is_statement: bool


def masked(text):
    """The text with as many other characters for comments, directives, and what is in quotes."""
    def cover(match):
        fill = "x" if match.group("text") else " "
        if match.group("text") or match.group().lstrip()[:1] in ("/", "#"):
            return re.sub(r"[^\n]", fill, match.group())
        return match.group()

    return TOKEN.sub(cover, text)


def _brackets(text):
    """The place of each bracket's partner, and for each place the bracket that it is within."""
    partners = {}
    around = []
    opened = []
    for place, sign in enumerate(text):
        if sign in ")]}" and opened and text[opened[-1]] == PAIRS[sign]:
            partners[place] = opened.pop()
            partners[partners[place]] = place
        around.append(text[opened[-1]] if opened else "")
        if sign in "([{":
            opened.append(place)
    return partners, around


class Places:
    """Finds the regions of a source."""

    def __init__(self, text):
        self.text = masked(text)
        self.partners, self.around = _brackets(self.text)
        self.constants = [self._constant_from(match.end())
                          for match in re.finditer(r"\bconstexpr\b", self.text)]

    def region_of(self, mutant):
        """The region that the mutant takes the place of, or None where no switch can stand."""
        if any(start <= mutant.start < end for start, end in self.constants):
            return None
        start = self._start_of_piece(mutant.start)
        end = self._end_of_piece(mutant.end)
        if start is None or end is None:
            return None
        is_in_block = self.around[mutant.start] in ("", "{")
        label = LABEL.match(self.text, start)
        start = label.end() if label and is_in_block else start
        lead = LEAD.match(self.text, start)
        is_statement = is_in_block and self.text[end:end + 1] == ";" and not lead.group().strip()
        start = lead.end()
        for assigned in ASSIGNS.finditer(self.text, start, mutant.start):
            if self._depth_between(start, assigned.start()) == 0:
                start = assigned.end()
                is_statement = False
        end = start + len(self.text[start:end].rstrip())
        if not start <= mutant.start < mutant.end <= end or self.text[start] in "{[":
            return None
        return Region(start, end, is_statement)

    def _constant_from(self, start):
        """From a `constexpr` to the end of its variable or condition; nothing for a function."""
        for place in range(start, len(self.text)):
            if self.text[place] in "={":
                return start, self._end_of_piece(place, ";")
            if self.text[place] == "(":
                is_condition = re.search(r"\bif\s+constexpr\s*$", self.text[:place])
                return start, self.partners.get(place, start) if is_condition else start
        return start, start

    def _start_of_piece(self, place):
        while place > 0 and self.text[place - 1] not in "([{,;":
            place -= 1
            if self.text[place] in ")]}":
                if self.text[place] == "}" and self._ends_block(place):
                    return place + 1
                place = self.partners.get(place)
                if place is None:
                    return None
        return place

    def _end_of_piece(self, place, ends=")]},;"):
        while place < len(self.text) and self.text[place] not in ends:
            if self.text[place] in "([{":
                place = self.partners.get(place)
                if place is None:
                    return None
            place += 1
        return place

    def _ends_block(self, place):
        """A line ends with the brace of a block, not with that of a value."""
        return re.match(r"[ \t]*(?:\n|$|else\b|while\b)", self.text[place + 1:place + 40]) is not None

    def _depth_between(self, start, end):
        return sum((sign in "([{") - (sign in ")]}") for sign in self.text[start:end])


def with_switches(name, text, mutants):
    """The source with a switch for each of these mutants, given by their numbers, and by number the
    regions of those that have one. `name` is what the compiler is to call it."""
    places = Places(text)
    regions = {}
    for number, mutant in sorted(mutants.items()):
        region = places.region_of(mutant)
        if region is not None:
            regions.setdefault(region, []).append((number, mutant))
    order = sorted(regions, key=lambda region: (region.start, -region.end))
    written, _ = _write(name, text, regions, order, 0, len(text))
    return written, {number: region for region, numbered in regions.items() for number, _ in numbered}


def _write(name, text, regions, order, start, end):
    """The text from start to end with the regions of it at the front of `order`, and what is left."""
    parts = []
    while order and order[0].end <= end:
        region, order = order[0], order[1:]
        inside, order = _write(name, text, regions, order, region.start, region.end)
        parts += [text[start:region.start], _switch(name, text, region, regions[region], inside)]
        start = region.end
    return "".join(parts) + text[start:end], order


def _switch(name, text, region, numbered, inside):
    def changed(mutant):
        # Without its "!" an optional value would make the other side of the switch one, too.
        after = "!!" if (mutant.before, mutant.after) == ("!", "") else mutant.after
        return text[region.start:mutant.start] + after + text[mutant.end:region.end]

    line = text.count("\n", 0, region.start) + 1
    back = f'\n#line {line} "{name}"\n'
    if NO_EXPRESSION.match(text[region.start:region.end]):
        return "".join(f'\n#line 1 "mutant-{number}"\nif (MutantIs({number})) {{ {changed(mutant)}; }}'
                       for number, mutant in numbered) + back + inside
    value = "void" if region.is_statement else ""
    return "(" + "".join(
        f'\n#line 1 "mutant-{number}"\nMutantIs({number}) ? {value}({changed(mutant)}) :'
        for number, mutant in numbered) + f"{back}{value}({inside}))"
