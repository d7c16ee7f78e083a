"""What a case of scripts/faults is: it provokes one kind of trouble again and again, and tells in a line what happened."""

import random
from collections import Counter
from dataclasses import dataclass
from typing import Callable


class Broken(AssertionError):
    """Something was lost, touched, hung or crashed."""


class Missing(Exception):
    """This machine lacks what the case needs; the text tells what."""


@dataclass
class Case:
    name: str
    title: str
    provoked: str  # How, for the table.
    times: int     # How often, unless somebody says otherwise.
    run: Callable  # Takes the times and the tools; gives what happened, as a text.


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
    """What cases are given: where the programs lie, a folder to work in, and chance that can be repeated."""

    def __init__(self, build, folder, seed):
        self.build, self.folder, self.seed = build, folder, seed
        self.random = random.Random(seed)

    @property
    def program(self):
        return self.build / "tidlo-cli"


def told(counts):
    """“3 refused, 2 moved”: the largest first."""
    return ", ".join(f"{number:,} {what}" for what, number in Counter(counts).most_common() if number)
