"""Draws fleets of dispensers as careless as people's."""

import json
import random

VALUES = (5, 10, 20, 50, 100, 200, 500)
STATUSES = ("low", "empty", "full", "high", "inoperative", "missing", "manipulated")


def drawn_dispenser(draw):
    cassettes = []
    for value in draw.sample(VALUES, draw.randint(1, 6)):
        cassette = {"value": value, "count": draw.choice((0, 3, 30, 200, 1500))}
        if draw.random() < 0.2:
            cassette["status"] = draw.choice(STATUSES)
        if draw.random() < 0.1:
            cassette["currency"] = "USD"
        cassettes.append(cassette)
    dispenser = {"currency": "EUR", "cassettes": cassettes, "mix": draw.randint(1, 10)}
    if draw.random() < 0.2:
        del dispenser["mix"]
    if draw.random() < 0.7:
        dispenser["amounts"] = {"min": 10, "max": 300, "step": 10, "buttons": [20, 50]}
    if draw.random() < 0.3:
        dispenser["registry"] = {"CSTMinimum4Mix6": str(draw.choice((0, 25, 250)))}
    return dispenser


def write_fleet(folder, count, seed):
    """Writes so many files and gives their names."""
    folder.mkdir()
    draw = random.Random(seed)
    names = []
    for number in range(count):
        file = folder / f"{number:03}.json"
        file.write_text(json.dumps(drawn_dispenser(draw)), encoding="utf-8")
        names.append(f"{folder.name}/{file.name}")
    return names
