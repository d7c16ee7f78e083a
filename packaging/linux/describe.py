#!/usr/bin/env python3
"""Makes the manual pages and the completions for shells from the --help of the programs.

describe.py <folder> <version> <date> <tidlo-cli> <tidlo-proxy, or nothing> <text on tidlo>

The help of a program consists of its usage, then paragraphs, then tables: a line that ends in a colon, and rows of a
term and its meaning. This is all that is known of a program here.
"""

import os
import re
import subprocess
import sys
from dataclasses import dataclass, field


@dataclass
class Help:
    usage: list = field(default_factory=list)
    paragraphs: list = field(default_factory=list)
    tables: dict = field(default_factory=dict)  # heading: rows of [term, meaning]


def parse(text):
    help = Help()
    table = None
    for block in text.strip("\n").split("\n\n"):
        lines = block.split("\n")
        if lines[0].startswith("Usage: "):
            help.usage = [" ".join([lines[0].removeprefix("Usage: ")] + [line.strip() for line in lines[1:]])]
            continue
        if not lines[0].endswith(":") or len(lines) < 2 or not lines[1].startswith("  "):
            help.paragraphs.append(" ".join(lines))
            continue
        table = help.tables.setdefault(lines[0].removesuffix(":"), [])
        for line in lines[1:]:
            row = re.fullmatch(r"  (\S.*?)(?: {2,}(.*))?", line)
            longer = re.fullmatch(r"  (-\S.*?>|[A-Z_]+) (\S.*)", line)  # A term as wide as its column.
            if re.match(r" {3}", line):
                table[-1][1] = (table[-1][1] + " " + line.strip()).strip()
            elif longer:
                table.append(list(longer.groups()))
            else:
                table.append([row[1], row[2] or ""])
    return help


def helpOf(*command):
    environment = {"PATH": os.environ["PATH"], "HOME": "/nonexistent", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
    return parse(subprocess.run([*command, "--help"], check=True, capture_output=True, text=True, env=environment).stdout)


# Manual pages

PAGES = {"tidlo": 1, "tidlo-cli": 1, "tidlo-proxy": 8}


def roff(text):
    return re.sub(r"^([.'])", r"\\&\1", text.replace("\\", "\\e").replace("-", "\\-"))


def rows(table):
    for term, meaning in table:
        yield ".TP"
        yield ".B " + roff(term)
        yield roff(meaning)


def body(help):
    for paragraph in help.paragraphs:
        yield ".PP"
        yield roff(paragraph)
    for heading, table in help.tables.items():
        if heading != "Commands":
            if heading:
                yield f".SH \"{roff(heading.upper())}\""
            yield from rows(table)


def page(name, says, help, about, commands=()):
    version, date = about
    lines = [f'.TH {name.upper()} {PAGES[name]} {date} "Tidlo {version}"', ".SH NAME", f"{name} \\- {says}", ".SH SYNOPSIS"]
    for usage in help.usage:
        lines += [".B " + roff(usage)]
    lines += [".SH DESCRIPTION", *body(Help(paragraphs=help.paragraphs))]
    if commands:
        lines += [".SH COMMANDS"]
    for command, its in commands:
        lines += [".SS " + roff(command), *(".B " + roff(usage) for usage in its.usage), *body(own(its, help))]
    others = ", ".join(f"{roff(other)}({section})" for other, section in PAGES.items() if other != name)
    return "\n".join([*lines, *body(Help(tables=help.tables)), '.SH "SEE ALSO"', others]) + "\n"


def own(help, general):
    """The options that only this command has; they follow its paragraphs without a heading."""
    common = general.tables["Options"]
    return Help(help.usage, help.paragraphs, {"": [row for row in help.tables["Options"] if row not in common]})


# Completions


def optionsOf(help):
    """For each option: its spellings, the name of its value, its meaning."""
    for term, meaning in help.tables["Options"]:
        spelling, value = re.fullmatch(r"(.*?)(?: <(.*)>)?", term).groups()
        yield spelling.split(", "), value, meaning


def isPath(value):
    return value in ("path", "file", "folder")


def bash(program, help, commands):
    def words(its):
        return " ".join(spelling for spellings, _, _ in optionsOf(its) for spelling in spellings)

    named = "\n".join(f"        {command}) words='{words(its)}' ;;" for command, its in commands)
    first = " ".join([command for command, _ in commands] + [words(help)])
    cases = f"    [[ $COMP_CWORD -eq 1 ]] || case ${{COMP_WORDS[1]}} in\n{named}\n    esac\n" if commands else ""
    paths = {spelling for its in [help, *(its for _, its in commands)]
             for spellings, value, _ in optionsOf(its) if isPath(value) for spelling in spellings}
    name = program.replace("-", "_")
    return (f"# Completion of {program} for bash. Made from its --help.\n_{name}()\n{{\n"
            f"    local words='{first}'\n{cases}"
            f"    case ${{COMP_WORDS[COMP_CWORD - 1]}} in {'|'.join(sorted(paths))}) words= ;; esac\n"
            "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\")\n}\n"
            f"complete -o bashdefault -o default -F _{name} {program}\n")


def quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zshOptions(help, indent):
    def escaped(text):
        return text.replace("[", "\\[").replace("]", "\\]").replace(":", "\\:")

    for spellings, value, meaning in optionsOf(help):
        action = f":{value}:{'_files' if isPath(value) else ''}" if value else ""
        for spelling in spellings:
            yield f"{indent}{quoted(f'*{spelling}[{escaped(meaning)}]{action}')} \\"


def zsh(program, help, commands):
    lines = [f"#compdef {program}", f"# Completion of {program} for zsh. Made from its --help."]
    if not commands:
        return "\n".join(lines + ["_arguments \\", *zshOptions(help, "    "), "    '*:file:_files'"]) + "\n"
    lines += ["if (( CURRENT == 2 )); then", "    _values command \\"]
    summaries = dict(help.tables["Commands"])
    lines += [f"        {quoted(f'{command}[{summaries[command]}]')} \\" for command, _ in commands]
    lines += ["        --help --version", "    return", "fi", "case $words[2] in"]
    for command, its in commands:
        lines += [f"{command}) _arguments '1:command:' \\", *zshOptions(its, "    "), "    '*:file:_files' ;;"]
    return "\n".join(lines + ["esac"]) + "\n"


def fish(program, help, commands):
    def option(its, condition):
        for spellings, value, meaning in optionsOf(its):
            names = " ".join(("-l " if spelling.startswith("--") else "-s ") + spelling.lstrip("-") for spelling in spellings)
            needs = "" if not value else " -r -F" if isPath(value) else " -x"
            yield f"complete -c {program}{condition} {names}{needs} -d {quoted(meaning)}"

    lines = [f"# Completion of {program} for fish. Made from its --help."]
    for command, its in commands:
        lines.append(f"complete -c {program} -n __fish_use_subcommand -f -a {command} "
                     f"-d {quoted(dict(help.tables['Commands'])[command])}")
        lines += option(its, f" -n '__fish_seen_subcommand_from {command}'")
    return "\n".join(lines + list(option(help, " -n __fish_use_subcommand" if commands else ""))) + "\n"


def write(folder, name, text):
    path = os.path.join(folder, name)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def describe(folder, program, says, path, about):
    help = helpOf(path)
    commands = [(command, helpOf(path, command)) for command, _ in help.tables.get("Commands", [])]
    write(folder, f"man/{program}.{PAGES[program]}", page(program, says, help, about, commands))
    write(folder, f"bash/{program}", bash(program, help, commands))
    write(folder, f"zsh/_{program}", zsh(program, help, commands))
    write(folder, f"fish/{program}.fish", fish(program, help, commands))


def main(folder, version, date, cli, proxy, window):
    about = (version, date)
    with open(window, encoding="utf-8") as file:
        write(folder, "man/tidlo.1", page("tidlo", "find files that can be removed, and move them to the Trash",
                                          parse(file.read()), about))
    describe(folder, "tidlo-cli", "the same as tidlo, without a window", cli, about)
    if proxy:
        describe(folder, "tidlo-proxy", "the service that explains what Tidlo found", proxy, about)


main(*sys.argv[1:])
