#!/usr/bin/python3
"""A scripted player who can't see solves a puzzle with Gradino, and prints what was heard.

    tools/play-by-ear.py PROGRAM PUZZLE

The puzzle takes singles only. The player has what a screen reader gives: the names of things, what is announced,
and the presses that it can carry out; and he has the keyboard. The reader is switched on when the program runs
already. He keeps a board of his own in his head, and every sentence that he hears must be right on it, word for
word. The exit status is 0 only when the puzzle was solved that way.
"""
import re
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # nothing is left beside the sources
from tour import PATIENCE, Missed, at_desk, close_window, parts, start_program, tell_desktop, type_line, until, up, xdotool

SECONDS = 600  # for the whole game; it takes less than thirty
EXPLAINED = 2  # the step whose explanation is requested

PLACES = [f"r{row}c{col}" for row in range(1, 10) for col in range(1, 10)]
ROWS = [[9 * row + k for k in range(9)] for row in range(9)]
COLUMNS = [[9 * k + col for k in range(9)] for col in range(9)]
BLOCKS = [[27 * (n // 3) + 3 * (n % 3) + 9 * (k // 3) + k % 3 for k in range(9)] for n in range(9)]
HOUSES = {"row": ROWS, "column": COLUMNS, "block": BLOCKS}


class Head:
    """The board in the player's head."""

    def __init__(self, puzzle):
        signs = "".join(re.findall("[1-9.]", puzzle.read_text("latin-1")))[:81]
        self.given = [int(sign) if sign != "." else 0 for sign in signs]
        self.digits = list(self.given)

    def candidates(self, cell):
        seen = {self.digits[other] for kind in HOUSES.values() for house in kind if cell in house for other in house}
        return [digit for digit in range(1, 10) if digit not in seen]

    def cell(self, cell, green=0):
        """The name of a cell while the pencil marks are on."""
        digit, place = self.digits[cell], PLACES[cell]
        if digit:
            return f"cell {place}, digit {digit}" + (", given" if self.given[cell] else "")
        marks = " ".join(map(str, self.candidates(cell)))
        name = f"cell {place}, empty, {'candidate' if len(marks) == 1 else 'candidates'} {marks}"
        return name + (f"; {green} in green" if green else "")

    def single(self, sentence):
        """The cell and the digit of a sentence, which has to be true."""
        known = (
            r"(?P<digit>\d) last digit in  (?P<kind>row|column|block) , (?P<place>r\dc\d)",
            r"hidden single in (?P<kind>row|column|block) (?P<n>\d), in (?P<place>r\dc\d)",
            r"naked single in cell (?P<place>r\dc\d)",
        )
        match = next(filter(None, (re.fullmatch(form, sentence) for form in known)), None)
        if not match:
            raise Missed(f"this sentence he doesn't know: {sentence!r}")
        found = match.groupdict()
        cell = PLACES.index(found["place"])
        for digit in self.candidates(cell):
            houses = [house for house in HOUSES.get(found.get("kind"), []) if cell in house]
            if found.get("n") and houses != [HOUSES[found["kind"]][int(found["n"]) - 1]]:
                continue
            if houses and any(digit in self.candidates(c) for c in houses[0] if c != cell and not self.digits[c]):
                continue
            if (houses or len(self.candidates(cell)) == 1) and found.get("digit", str(digit)) == str(digit):
                return cell, digit
        raise Missed(f"this sentence is not true: {sentence!r}")


class Ears:
    """The program as a screen reader sees it."""

    EVENTS = ("object:state-changed:showing", "object:state-changed:focused", "object:text-changed:insert")

    def __init__(self, pid):
        import gi  # needs the desk

        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib

        self.atspi, self.pid, self.loop = Atspi, pid, GLib.MainContext.default()
        self.announced, self.focused, self.inserted = [], [], []
        Atspi.init()
        Atspi.set_timeout(PATIENCE, PATIENCE)
        self.main = until("no window", lambda: next(iter(self.windows()), None))
        # The toolkit misses a listener that appears at the moment when it becomes active itself.
        self.listener = Atspi.EventListener.new(self.hear)
        for event in self.EVENTS:
            self.listener.register(event)
        until("nothing has a name", self.learn)

    def hear(self, event):
        from gi.repository import GLib

        try:
            if not event.source or event.source.get_process_id() != self.pid:
                return
            name, role = event.source.get_name(), event.source.get_role()
            if event.type.startswith("object:text-changed:insert"):
                self.inserted.append((name, event.any_data))
            elif event.detail1 and event.type.startswith("object:state-changed:focused"):
                self.focused.append(name)
            elif event.detail1 and role == self.atspi.Role.NOTIFICATION:
                self.announced.append(name)
        except GLib.Error:
            pass  # it went away before it could be asked

    def listen(self):
        while self.loop.iteration(False):
            pass

    def windows(self):
        desktop = self.atspi.get_desktop(0)
        desktop.set_cache_mask(self.atspi.Cache.NONE)
        for app in parts(desktop):
            if app.get_process_id() == self.pid:
                app.set_cache_mask(self.atspi.Cache.NONE)
                return parts(app)
        return []

    def below(self, thing):
        for child in parts(thing):
            yield child
            if child.get_role() != self.atspi.Role.TEXT:
                yield from self.below(child)

    def learn(self):
        """The positions of cells and keys, which stay while the names change."""
        self.cells, self.keys = {place: [] for place in PLACES}, {}
        for thing in self.below(self.main):
            place = re.search(r"cell (r\dc\d)", thing.get_name())
            if thing.get_role() == self.atspi.Role.TEXT and place:
                self.cells[place.group(1)].append(thing)
            elif thing.get_role() == self.atspi.Role.PUSH_BUTTON:
                self.keys.setdefault(thing.get_name(), []).append(thing)
        return all(len(things) == 2 for things in self.cells.values()) and len(self.keys) > 40

    def showing(self, thing):
        return thing.get_state_set().contains(self.atspi.StateType.SHOWING)

    def typing(self, window):
        """A field of the window has the focus."""
        return any(
            thing.get_role() == self.atspi.Role.TEXT and thing.get_state_set().contains(self.atspi.StateType.FOCUSED)
            for thing in self.below(window)
        )

    def has(self, name):
        return any(map(self.showing, self.keys[name]))

    def press(self, name):
        keys = self.keys.get(name, [])
        if len(keys) != 1 or not self.showing(keys[0]) or keys[0].get_name() != name:
            raise Missed(f"{len(keys)} keys are called {name!r}")
        key = keys[0]
        if not key.get_description():
            raise Missed(f"{name!r} has no description")
        self.atspi.Action.do_action(key, 0)

    def cell(self, place, word="cell"):
        """The name of a cell: from its digit box, or from its background while marks are shown there, or from both."""
        names = [thing.get_name() for thing in self.cells[place] if self.showing(thing)]
        names = {name for name in names if name.startswith(f"{word} {place},")}
        return names.pop() if len(names) == 1 else f"of {place}: {names}"

    def announcement(self, what, test=lambda text: True):
        """The next announcement that passes the test. Those before it are forgotten."""

        def heard():
            self.listen()
            while self.announced:
                text = self.announced.pop(0)
                if test(text):
                    return text
            return None

        return until(f"not heard: {what}", heard)

    def insertion(self, name, text):
        """A box of this name is reported to have taken this text, before or after its announcement."""

        def reported():
            self.listen()
            return (name, text) in self.inserted

        until(f"not reported as the text of {name!r}: {text!r}", reported)


# ---- the game -----------------------------------------------------------------------------------------------


def same(heard, expected):
    if heard != expected:
        raise Missed(f"heard {heard!r} instead of {expected!r}")


def write_by_reader(ears):
    """A reader can put a text into a box without a key: it is taken like a typed one."""
    pen = ears.atspi.EditableText
    writes = {
        "r5c5": ("7", lambda box: pen.set_text_contents(box, "7")),
        "r5c6": ("8", lambda box: pen.insert_text(box, 0, "8", 1)),
    }
    for place, (digit, write) in writes.items():
        write(next(box for box in ears.cells[place] if box.get_name() == f"cell {place}, empty"))
        taken = f"cell {place}, digit {digit}, given"  # as is everything typed on an empty board
        until(f"{taken!r}, but {ears.cell(place)!r}", lambda: ears.cell(place) == taken)


def open_puzzle(ears, puzzle):
    ears.press("open")
    until("the file dialog doesn't take the focus", lambda: any(map(ears.typing, ears.windows()[1:])))
    type_line(str(puzzle))


def read_board(ears, head):
    for cell, place in enumerate(PLACES):
        until(f"{head.cell(cell)!r}, but {ears.cell(place)!r}", lambda: ears.cell(place) == head.cell(cell))


def walk_first_row(ears, head):
    """By the arrow keys, from r1c1 on."""
    for cell in range(1, 9):
        ears.listen()
        ears.focused.clear()
        xdotool("key", "Right")
        until(f"the focus did not come to {PLACES[cell]}", lambda: ears.listen() or ears.focused)
        same(ears.focused[0], head.cell(cell))


def hear_explanation(ears, place):
    ears.press("explain")
    argument = ears.announcement("the explanation", lambda text: "=====" in text)
    if place not in argument:
        raise Missed(f"the explanation does not come to {place}: {argument!r}")
    print("He asked why, and heard:\n" + "\n".join("    " + line for line in argument.splitlines()))
    # The explanation has covered the pencil marks and painted the board.
    until(f"{place} is not yellow", lambda: ears.cell(place) == f"cell {place}, empty, in yellow")
    painted = [name for name in map(ears.cell, PLACES) if re.search(", in [a-z]+$", name)]
    print(f"    {len(painted)} cells were painted, as: {painted[0]}; {painted[-1]}")


def take_step(ears, head, number):
    ears.listen()
    ears.announced.clear()
    ears.inserted.clear()
    ears.press("hint")
    sentence = ears.announcement("the hint")
    ears.insertion("step", sentence)
    cell, digit = head.single(sentence)
    place = PLACES[cell]
    until(f"{place}: {ears.cell(place)!r}", lambda: ears.cell(place) == head.cell(cell, green=digit))
    if number == EXPLAINED:
        hear_explanation(ears, place)
    ears.press("go")
    head.digits[cell] = digit
    until(f"{place}: {ears.cell(place)!r}", lambda: ears.cell(place) == head.cell(cell))
    until("the light did not go out", lambda: not ears.has("go"))
    if number == EXPLAINED:
        ears.press("pencil marks")
    return f"{sentence}: {digit}"


def solve(ears, head):
    number = 0
    while 0 in head.digits:
        number += 1
        heard = take_step(ears, head, number)
        if number <= 3 or 0 not in head.digits:
            print(f"Step {number}: {heard}")
        if number % 20 == EXPLAINED:
            read_board(ears, head)
    for kind in HOUSES.values():
        for house in kind:
            same(sorted(head.digits[cell] for cell in house), list(range(1, 10)))
    return number


def change_language(ears, head):
    ears.press("change to Italian")
    for cell, place in enumerate(PLACES):
        name = f"casella {place}, cifra {head.digits[cell]}" + (", data" if head.given[cell] else "")
        until(f"{name!r}, but {ears.cell(place, 'casella')!r}", lambda: ears.cell(place, "casella") == name)
    print(f"He changed the language, and the board spoke Italian: {ears.cell('r1c1', 'casella')}")


def game(program, puzzle):
    head = Head(puzzle)
    process = start_program(program)
    until("no window on the screen", lambda: up("Gradino"))
    tell_desktop("ScreenReaderEnabled", True)
    ears = Ears(process.pid)
    print(f"A scripted player started {program}, then his screen reader.")
    read_empty = [ears.cell(place) for place in PLACES]
    same(read_empty, [f"cell {place}, empty" for place in PLACES])
    write_by_reader(ears)
    open_puzzle(ears, puzzle)
    read_board(ears, head)
    print(f"He opened {puzzle.name} and read the board cell by cell. Its first row:")
    print("\n".join("    " + ears.cell(place) for place in PLACES[:9]))
    walk_first_row(ears, head)
    steps = solve(ears, head)
    read_board(ears, head)
    print(f"After {steps} steps the puzzle was solved; each was announced, found true, and answered with go.")
    change_language(ears, head)
    close_window(process)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    program, puzzle = (Path(name).resolve() for name in sys.argv[1:])

    try:
        at_desk(lambda: game(str(program), puzzle), SECONDS, reader=False)
    except (Missed, OSError, subprocess.SubprocessError) as why:
        print(f"The game failed: {why}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
