#!/usr/bin/env python3
"""Writes the pages of docs/techniques from what the program itself does.

  tools/technique-pages.py GRADINO-CLI            writes the pages and pictures
  tools/technique-pages.py GRADINO-CLI --check    fails when what is there is not what would be written

The prose stands in docs/techniques/text, one file a technique, in front of it its record in the code
and one example or more: a puzzle, and the step of its walk at which the technique is the next one. All else
on a page is taken from the program: board, colours, sentences and log lines from a run of it, levels and
points and the two ladders from the tables of its sources.
"""

import json
import re
import subprocess
import sys
import textwrap
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PAGES = ROOT / "docs" / "techniques"
NOTE = "<!-- Written by tools/technique-pages.py: change the text in {} instead. -->\n\n"

CELL = 48
MARGIN = 24
# The colours of the screen, but softer for cells painted behind their marks. Digits are darker too: red givens would
# catch the eye before the step does.
ENTERED = "#1a237e"
DIGITS = "Givens are black here and entered digits blue; in the window givens are red and entered digits black."
COLOURS = {"yellow": "#ffee55", "green": "#7be07b", "red": "#ff8a80", "cyan": "#7fe5f0", "magenta": "#f2a0f2",
           "lightblue": "#8fc7ff", "orange": "#ffb74d"}


def source(name):
    return (ROOT / "src" / name).read_text()


@dataclass
class Code:
    """The tables of the sources."""
    levels: dict       # level: (name, points)
    names: dict        # record: its name in the output of `gradino-cli techniques`
    singles: dict      # record of a single: its level
    hintladder: list   # of records
    gradeladder: list  # of records

    @staticmethod
    def read():
        row = r'/\*\s*(\d+) \*/ \{(\d+),\s*\{"[^"]*",\s*"([^"]*)"\}'
        levels = {int(n): (name.strip(), int(points)) for n, points, name in re.findall(row, source("steps/levels.cpp"))}
        record = r'const Technique techniques::(\w+)\{\s*\.tag = "\w+",\s*\.name = "(\w+)",([^;]*)\};'
        records = [match for path in sorted((ROOT / "src" / "finders").glob("*.cpp"))
                   for match in re.findall(record, path.read_text())]
        names = {name: called for name, called, _ in records}
        singles = {name: int(re.search(r"level = (\d+)", rest)[1]) for name, _, rest in records if "singlestep" in rest}
        hint, grade = (re.findall(r"&(\w+),", ladder)
                       for ladder in re.findall(r"ladder = \{(.*?)\};", source("solving/ladders.cpp"), re.S))
        if len(levels) != 22 or len(singles) != 5 or not set(names) == set(hint) == set(grade):
            sys.exit("technique-pages: the tables of the sources don't look as this script knows them")
        return Code(levels, names, singles, hint, grade)


@dataclass
class Board:
    values: list
    masks: list

    @staticmethod
    def ofpuzzle(puzzle):
        board = Board([int(c) if c.isdigit() else 0 for c in puzzle], [0] * 81)
        for cell, value in enumerate(board.values):
            if value == 0:
                seen = {board.values[other] for other in range(81) if sees(cell, other)}
                board.masks[cell] = sum(1 << d for d in range(1, 10) if d not in seen)
        return board

    def has(self, cell, digit):
        return bool(self.masks[cell] >> digit & 1)


def sees(a, b):
    return a // 9 == b // 9 or a % 9 == b % 9 or (a // 27 == b // 27 and a % 9 // 3 == b % 9 // 3)


class Program:
    def __init__(self, path):
        self.path = path
        self.kept = {}

    def lines(self, command, text):
        key = (tuple(command), text)
        if key not in self.kept:
            run = subprocess.run([self.path, *command], input=text, stdout=subprocess.PIPE, text=True, check=True)
            self.kept[key] = [json.loads(line) for line in run.stdout.splitlines()]
        return self.kept[key]

    def walk(self, puzzle, language):
        return self.lines(["walk", "--json", "--lang", language], puzzle + "\n")

    def grade(self, puzzle):
        return self.lines(["grade", "--json"], puzzle + "\n")[0]

    def techniques(self, board, solution):
        position = {"values": "".join(map(str, board.values)), "cands": ",".join(map(str, board.masks)),
                    "solution": solution}
        return self.lines(["techniques"], json.dumps(position) + "\n")[0]


@dataclass
class Step:
    """One step of a walk: the board before it, its first wait, the board after it."""
    before: Board
    wait: dict
    after: Board


def stepofwalk(records, puzzle, number):
    before, waits, steps = Board.ofpuzzle(puzzle), [], 0
    for record in records:
        if "wait" in record:
            waits.append(record)
        elif "done" in record:
            steps += 1
            after = Board([int(c) for c in record["values"]], record["cands"])
            if steps == number:
                return Step(before, waits[0], after)
            before, waits = after, []
    sys.exit(f"technique-pages: {puzzle} has no step {number}")


@dataclass
class Technique:
    name: str
    title: str
    text: str
    record: str = ""  # in the header of its finder
    examples: list = field(default_factory=list)

    @staticmethod
    def read(path):
        head, text = path.read_text().split("\n---\n", 1)
        title, text = re.fullmatch(r"\s*# ([^\n]*)\n\n(.*)", text, re.S).groups()
        technique = Technique(path.stem, title, text.strip())
        for line in head.splitlines():
            key, value = line.split(": ", 1)
            if key == "example":
                puzzle, number = value.split()
                technique.examples.append((puzzle, int(number)))
            else:
                setattr(technique, key, value)
        return technique


# ---- the picture -------------------------------------------------------------------------------------------

def cornerof(cell):
    return MARGIN + cell % 9 * CELL, MARGIN + cell // 9 * CELL


def rectangle(x, y, width, height, fill, more=""):
    return f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" fill="{fill}"{more}/>'


def write(x, y, size, text, more=""):
    return f'<text x="{x:g}" y="{y:g}" font-size="{size}"{more}>{text}</text>'


def drawcell(step, givens, cell):
    paint, (x, y) = step.wait["paint"], cornerof(cell)
    box = paint["Text1"].get(str(cell)) or paint["Text2"].get(str(cell))
    if box:
        yield rectangle(x, y, CELL, CELL, COLOURS[box])
    if step.before.values[cell]:
        more = f' fill="{ENTERED}"' if givens[cell] == "." else ""
        yield write(x + CELL / 2, y + 34, 28, step.before.values[cell], more)
        return
    placing = step.before.values != step.after.values
    for digit in range(1, 10):
        if not step.before.has(cell, digit):
            continue
        cx, cy = x + 9 + (digit - 1) % 3 * 15, y + 9 + (digit - 1) // 3 * 15
        if colour := paint["candidate"].get(str(cell * 10 + digit)):
            yield rectangle(cx - 7, cy - 7, 14, 14, COLOURS[colour], ' rx="3"')
        yield write(cx, cy + 4.5, 13, digit, ' fill="#555"')
        if not placing and not step.after.has(cell, digit):
            yield f'<path d="M{cx - 6:g} {cy + 6:g}l12 -12" stroke="#c62828" stroke-width="2"/>'


def picture(step, givens, title):
    side = 9 * CELL
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{side + MARGIN + 4}" '
             f'height="{side + MARGIN + 4}" font-family="Liberation Sans, Arial, sans-serif" '
             f'text-anchor="middle">',
             f"<title>{title}</title>",
             rectangle(0, 0, side + MARGIN + 4, side + MARGIN + 4, "#ffffff")]
    for n in range(9):
        middle = MARGIN + n * CELL + CELL / 2
        parts.append(write(middle, 16, 12, f"c{n + 1}", ' fill="#777"'))
        parts.append(write(12, middle + 4, 12, f"r{n + 1}", ' fill="#777"'))
    for cell in range(81):
        parts += drawcell(step, givens, cell)
    for n in range(10):
        at, width = MARGIN + n * CELL, 3 if n % 3 == 0 else 1
        parts.append(f'<path d="M{at} {MARGIN}v{side}M{MARGIN} {at}h{side}" stroke="#333" '
                     f'stroke-width="{width}" fill="none" stroke-linecap="square"/>')
    return "\n".join(parts) + "\n</svg>\n"


# ---- the page ----------------------------------------------------------------------------------------------

def loglines(program, technique, code, puzzle, step, solution):
    """The level and the lines that the grader writes for the same find."""
    if technique.record in code.singles:
        place = re.search(r"r\dc\d", step.wait["hint"])[0]
        digit = step.wait["number"]
        lines = [line for line in program.grade(puzzle)["log"]
                 if line.startswith(digit + " ") and line.endswith(place)]
        return code.singles[technique.record], lines[:1]
    result = program.techniques(step.before, solution)[code.names[technique.record]]
    if not result["found"] or result["fault"]:
        sys.exit(f"technique-pages: {technique.name} finds nothing on its example")
    return result["level"], [line for line in result["log"] if line]


def became(step):
    placed = [(c, v) for c, v in enumerate(step.after.values) if v and not step.before.values[c]]
    if placed:
        return "Green at the light enters " + listed(f"{v} in {cellname(c)}" for c, v in placed) + "."
    gone = {c: [str(d) for d in range(1, 10) if step.before.has(c, d) and not step.after.has(c, d)]
            for c in range(81)}
    return ("Green at the light takes away, struck out in the picture: "
            + listed(f"{', '.join(digits)} from {cellname(c)}" for c, digits in gone.items() if digits) + ".")


def cellname(cell):
    return f"r{cell // 9 + 1}c{cell % 9 + 1}"


def listed(items):
    return "; ".join(items)


def fenced(lines):
    return "```\n" + "\n".join(line.rstrip() for line in lines) + "\n```\n"


def ordinal(n):
    return f"{n}" + ({1: "st", 2: "nd", 3: "rd"}.get(n % 10, "th") if n not in (11, 12, 13) else "th")


def page(program, code, technique, files):
    examples, levels = [], []
    for k, (puzzle, number) in enumerate(technique.examples, 1):
        step, italian = (stepofwalk(program.walk(puzzle, language), puzzle, number) for language in ("en", "it"))
        solution = program.grade(puzzle)["solution"]
        level, log = loglines(program, technique, code, puzzle, step, solution)
        if level not in levels:
            levels.append(level)
        image = f"{technique.name}{'-' + str(k) if len(technique.examples) > 1 else ''}.svg"
        files[f"pictures/{image}"] = picture(step, puzzle, f"{technique.title}: {step.wait['hint'].strip()}")
        heading = f"## Example {k}" if len(technique.examples) > 1 else "## An example"
        examples.append(
            f"{heading}\n\n![The board as the hint shows it](pictures/{image})\n\n"
            + (f"{DIGITS}\n\n" if k == 1 else "") +
            "The hint, in English and in Italian:\n\n"
            + fenced([step.wait["hint"], italian.wait["hint"]])
            + "\n" + textwrap.fill(f"{became(step)} In the log of the grader, at level {level}:", 116)
            + "\n\n" + fenced(log)
            + f"\nIt is step {number} of this puzzle, as `gradino-cli walk --explain` goes through it:\n\n"
            + fenced([puzzle]))
    facts = ""
    for level in levels:
        name, points = code.levels[level]
        facts += f"- **Level {level}**: {name}; {points} points a step\n"
    hint, grader = code.hintladder.index(technique.record) + 1, code.gradeladder.index(technique.record) + 1
    facts += (f"- The {ordinal(hint)} of {len(code.hintladder)} techniques that the hint tries, "
              f"the {ordinal(grader)} that the grader tries\n")
    head = f"{NOTE.format(f'text/{technique.name}.md')}# {technique.title}\n\n{facts}\n{technique.text}\n\n"
    files[f"{technique.name}.md"] = head + "\n".join(examples)
    return levels


def index(code, techniques, levels):
    rows = []
    for technique in techniques:
        points = [str(code.levels[level][1]) for level in levels[technique.name]]
        points = list(dict.fromkeys(points))
        rows.append(f"| {code.hintladder.index(technique.record) + 1} "
                    f"| {code.gradeladder.index(technique.record) + 1} "
                    f"| [{technique.title}]({technique.name}.md) "
                    f"| {', '.join(map(str, sorted(levels[technique.name])))} | {', '.join(points)} |")
    return (NOTE.format("text/README.md") + (PAGES / "text" / "README.md").read_text().strip()
            + "\n\n| hint | grader | technique | level | points a step |\n|---:|---:|---|---|---|\n"
            + "\n".join(rows) + "\n")


def pages(program):
    code = Code.read()
    techniques = [Technique.read(path) for path in (PAGES / "text").glob("*.md") if path.stem != "README"]
    if sorted(t.record for t in techniques) != sorted(code.hintladder):
        sys.exit("technique-pages: not one text for each technique of the hint's ladder")
    techniques.sort(key=lambda technique: code.hintladder.index(technique.record))
    files, levels = {}, {}
    for technique in techniques:
        levels[technique.name] = page(program, code, technique, files)
    files["README.md"] = index(code, techniques, levels)
    return files


def main():
    if len(sys.argv) not in (2, 3) or (len(sys.argv) == 3 and sys.argv[2] != "--check"):
        sys.exit(__doc__)
    files = pages(Program(sys.argv[1]))
    there = {str(path.relative_to(PAGES)): path for pattern in ("*.md", "pictures/*.svg")
             for path in PAGES.glob(pattern)}
    if len(sys.argv) == 3:
        stale = [name for name in sorted(files.keys() | there.keys())
                 if name not in files or name not in there or there[name].read_text() != files[name]]
        for name in stale:
            print(f"docs/techniques/{name} is not as the program would have it now")
        sys.exit("tools/technique-pages.py GRADINO-CLI writes it anew" if stale else 0)
    (PAGES / "pictures").mkdir(parents=True, exist_ok=True)
    for name in there.keys() - files.keys():
        there[name].unlink()
    for name, text in files.items():
        (PAGES / name).write_text(text)
    print(f"{len(files)} files in {PAGES}")


main()
