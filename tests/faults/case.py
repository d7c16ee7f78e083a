"""A case of scripts/faults: it provokes one kind of fault again and again, and reports in one line what happened."""

import random
from collections import Counter
from dataclasses import dataclass
from typing import Callable


class Broken(AssertionError):
    """Something was lost, touched, hung or crashed."""


class Missing(Exception):
    """This machine lacks what the case needs; the text says what."""


@dataclass
class Case:
    name: str
    title: str
    provoked: str  # For the table.
    times: int     # The default.
    run: Callable  # Takes the times and the tools; returns what happened, as a text.


CASES = []


def case(name, title, provoked, times=1):
    def keep(function):
        CASES.append(Case(name, title, provoked, times, function))
        return function

    return keep


def require(holds, what):
    if not holds:
        raise Broken(what)


class Tools:
    """Passed to each case: the folder of the programs, a folder to work in, and a random generator that can repeat."""

    def __init__(self, build, folder, seed):
        self.build, self.folder, self.seed = build, folder, seed
        self.random = random.Random(seed)

    @property
    def program(self):
        return self.build / "tidlo-cli"


def told(counts):
    """“3 refused, 2 moved”: the most frequent first."""
    return ", ".join(f"{number:,} {what}" for what, number in Counter(counts).most_common() if number)
