#!/usr/bin/env python3
"""Compares the manual page of gradino-cli with the help texts of the program.

  tools/check-manual.py GRADINO-CLI MANUAL

Each command has to stand in the synopsis with exactly its options, and each of them has to be described.
"""

import re
import subprocess
import sys

program, manual = sys.argv[1:]


def helptext(*command):
    run = subprocess.run([program, *command, "--help"], stdout=subprocess.PIPE, text=True, check=True)
    return run.stdout


def options(text):
    """The options of a help text, each under its last name, as in -o,--output."""
    return set(re.findall(r"^  (?:-\w,)?(--?[a-z-]+)", text, re.M)) - {"--help", "--version"}


def commands(text):
    return re.findall(r"^  (\w+)  ", text.partition("Subcommands:")[2], re.M)


def plain(page):
    run = subprocess.run(["mandoc", "-Tascii", "-O", "width=1000", page], stdout=subprocess.PIPE, text=True,
                         check=True)
    return re.sub(".\b", "", run.stdout)


text = plain(manual)
synopsis, description = re.search(r"^SYNOPSIS\n(.*?)^DESCRIPTION\n.*?^   Commands for puzzles\n(.*)", text,
                                  re.M | re.S).groups()
inmanual = {}
for line in synopsis.splitlines():
    words = re.sub(r"\[--file library\]", "", line).split()
    if len(words) < 2 or words[1].startswith("-"):
        continue
    command = tuple(words[1:3 if words[1] == "library" else 2])
    names = {"--output" if name == "-o" else name for name in re.findall(r"(?<!\w)--?[a-z-]+", line)}
    inmanual[command] = names - {"--file"}

inprogram = {}
for command in commands(helptext()):
    subs = commands(helptext(command))
    for sub in subs or [None]:
        whole = (command, sub) if sub else (command,)
        inprogram[whole] = options(helptext(*whole))

wrong = []
for command in sorted(inprogram.keys() | inmanual.keys()):
    have, want = inmanual.get(command), inprogram.get(command)
    if have != want:
        wrong.append(f"{' '.join(command)}: the synopsis has {have}, the program {want}")
    described = re.search(rf"^     {' '.join(command)}\b(.*?)(?=^     \w|\Z)", description, re.M | re.S)
    for name in sorted(want or []):
        if not described or not re.search(rf"{name}\b", described[1]):
            wrong.append(f"{' '.join(command)}: {name} is not described")
for line in wrong:
    print(line, file=sys.stderr)
sys.exit(1 if wrong else 0)
