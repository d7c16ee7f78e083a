#!/usr/bin/env python3
"""Times whole processes against each other.

Each round runs every command once, so that other load on the machine affects all of them equally; the medians are
compared. Usage: see scripts/bench.
"""

import argparse
import os
import shlex
import statistics
import subprocess
import sys
import tempfile
import time


class Command:
    def __init__(self, text):
        self.name, line = text.split("=", 1)
        # A command that begins with "self:" prints its own measured seconds.
        self.times_itself = line.startswith("self:")
        self.line = line.removeprefix("self:")
        self.seconds = []
        self.kilobytes = []

    def run(self):
        with tempfile.NamedTemporaryFile("r", encoding="ascii") as peak:
            # Run through time, because the peak memory of a process includes that from before the command was executed.
            begin = time.perf_counter()
            process = subprocess.run(["time", "--quiet", "--format=%M", f"--output={peak.name}", *shlex.split(self.line)],
                                     stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                     check=False)
            elapsed = time.perf_counter() - begin
            if process.returncode != 0:
                sys.exit(f"{self.name} failed with status {process.returncode}: {self.line}")
            self.seconds.append(float(process.stdout) if self.times_itself else elapsed)
            self.kilobytes.append(int(peak.read()))


def drop_caches():
    os.sync()
    with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as file:
        file.write("3\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("--cold", action="store_true", help="drop the system's caches before each run")
    parser.add_argument("--rest", type=float, default=0, metavar="SECONDS",
                        help="how long nothing is done before each run")
    parser.add_argument("--against", help="the command that the others are measured by; default: the first")
    parser.add_argument("--entries", type=lambda text: [int(number) for number in text.split(",")],
                        help="how many entries each command reads: prints the time for each, beyond what the first "
                             "command takes, which reads none")
    parser.add_argument("command", nargs="+", help="name=command line")
    arguments = parser.parse_args()

    commands = [Command(text) for text in arguments.command]
    if not arguments.cold:
        for command in commands:  # Not counted: fills the caches.
            command.run()
            command.seconds.clear()
            command.kilobytes.clear()
    for _ in range(arguments.rounds):
        for command in commands:
            if arguments.cold:
                drop_caches()
            time.sleep(arguments.rest)
            command.run()

    base = next((each for each in commands if each.name == arguments.against), commands[0])
    start = statistics.median(commands[0].seconds)
    print(f"{'':34} {'median':>9} {'ratio':>6} {'memory':>8}{'  per entry' if arguments.entries else ''}")
    for index, command in enumerate(commands):
        median = statistics.median(command.seconds)
        ratio = median / statistics.median(base.seconds)
        line = f"{command.name:34} {median * 1000:6.0f} ms {ratio:6.2f} {max(command.kilobytes) / 1024:5.1f} MB"
        if arguments.entries and arguments.entries[index] > 0:
            line += f" {(median - start) / arguments.entries[index] * 1e9:7.0f} ns"
        print(line)


if __name__ == "__main__":
    main()
