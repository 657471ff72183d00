#!/usr/bin/python3
"""Whether a screen reader finds the program, whichever is started first.

    tools/readers.py PROGRAM CASE

Each case begins on a desk of its own, on which there was never a reader:

    before      the reader is there when the program starts
    late        it comes when the program runs; where readers are found is known from the start
    enabled     the same, but the desktop says only that there are helpers, not that one of them reads
    first       it comes when the program runs, and nobody has asked before where readers are found
    again       it is there from the start, goes, and comes back
"""
import itertools
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # nothing is left beside the sources
from tour import Eyes, Missed, at_desk, close_window, start_program, tell_desktop, until, up, xdotool

SECONDS = 300  # for a case; it takes less than five
CELL = "r1c1"


def show_window(program):
    process = start_program(program)
    until("no window on the screen", lambda: up("Gradino"))
    return process


def tells(eyes, name):
    until(f"{name!r}, but {eyes.field(CELL).get_name()!r}", lambda: eyes.field(CELL).get_name() == name)
    print(f"The reader hears: {name}")


def type_digit(eyes, digit):
    """Types into the cell that has the focus, over its content. On a board without a puzzle the digit is a given."""
    xdotool("key", "BackSpace", digit)
    until(f"{CELL} doesn't take the {digit}", lambda: eyes.reads(CELL) == digit)


def unheard(eyes, digit):
    """The digit, if it was typed and the name of the cell lacks it. Not at once: messages of the desktop and typing reach the program on different ways."""
    type_digit(eyes, digit)
    return None if f"digit {digit}" in eyes.field(CELL).get_name() else digit


def before(program):
    tell_desktop("ScreenReaderEnabled", True)
    process = show_window(program)
    return process, Eyes(process.pid)


def comes_late(program, state):
    process = show_window(program)
    tell_desktop(state, True)
    return process, Eyes(process.pid)


def again(program):
    process, eyes = before(program)
    tells(eyes, f"cell {CELL}, empty")
    for state in ("ScreenReaderEnabled", "IsEnabled"):
        tell_desktop(state, False)
    digits = itertools.cycle("78")
    digit = until("names are still worked out though the reader has gone", lambda: unheard(eyes, next(digits)))
    tell_desktop("ScreenReaderEnabled", True)
    tells(eyes, f"cell {CELL}, digit {digit}, given")
    return process, eyes


CASES = {
    "before": before,
    "late": lambda program: comes_late(program, "ScreenReaderEnabled"),
    "enabled": lambda program: comes_late(program, "IsEnabled"),
    "first": lambda program: comes_late(program, "ScreenReaderEnabled"),
    "again": again,
}


def play(program, case):
    process, eyes = CASES[case](program)
    type_digit(eyes, "5")
    tells(eyes, f"cell {CELL}, digit 5, given")
    close_window(process)


def main():
    if len(sys.argv) != 3 or sys.argv[2] not in CASES:
        sys.exit(__doc__)
    program, case = str(Path(sys.argv[1]).resolve()), sys.argv[2]
    try:
        at_desk(lambda: play(program, case), SECONDS, reader=False, bus=case != "first")
    except (Missed, OSError, subprocess.SubprocessError) as why:
        print(f"The reader missed something: {why}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
