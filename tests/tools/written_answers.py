"""Reads what commands with many answers write: CSV, and the packed lists of their JSON."""

import csv
import io

DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_"


def rows_of(tool, file):
    """The lines of a CSV file that the tool has written, by column."""
    return list(csv.DictReader(io.StringIO((tool.folder / file).read_text())))


def steps_of(packed):
    """The elements of "steps" in the order of "path", whose places have "digits" digits each."""
    size = packed["digits"]
    for at in range(0, len(packed["path"]), size):
        place = 0
        for digit in packed["path"][at:at + size]:
            place = place * 64 + DIGITS.index(digit)
        yield packed["steps"][place]
