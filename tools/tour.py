#!/usr/bin/python3
"""A scripted user takes a lesson on a virtual screen, and prints what was seen.

    tools/tour.py PROGRAM PUZZLE PICTURE

He starts the program, opens the puzzle through the file dialog, presses the hint, asks for the explanation,
takes the picture, and presses green. He has nothing but what a person has: pointer and keyboard go through
the X server, and what stands on the screen is read from the accessibility bus, as a screen reader does. The
exit status is 0 only when all of it was seen.
"""
import ctypes
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SECONDS = 600  # for the whole lesson; it takes less than ten
PATIENCE = 60_000  # milliseconds for one answer of the program
SCREEN = "1280x800x24"
TITLE, EDGE = 22, 2  # what the window manager puts around a window

# The accessible names of things on the screen; the names of cells begin with "cell r1c1,".
OPEN, HINT = "open", "hint"
GREEN, WHY = "go", "explain"
SENTENCE, FILE, FILLED, GRADE = "step", "file", "filled", ("level", "score", "steps")
LOADING = "bkg"  # the label that shows while a puzzle is being opened
EXPLANATIONS = "Explanations"  # how the title of their window begins


USERS_OWN = (
    *("XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"),
    *("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "DBUS_SESSION_BUS_ADDRESS"),
    *("AT_SPI_BUS_ADDRESS", "QT_QPA_PLATFORM", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON"),
)


class Missed(Exception):
    """Something that should have been seen was not."""


watched, missing = [], "nothing was begun"  # the program, and what is being waited for

# ---- processes ------------------------------------------------------------------------------------------


def adopt_orphans():
    """Orphans of the helper processes become our children, so that nothing outlives the lesson."""
    set_child_subreaper = 36
    ctypes.CDLL(None).prctl(set_child_subreaper, 1, 0, 0, 0)


def children():
    return [int(pid) for task in Path("/proc/self/task").iterdir() for pid in (task / "children").read_text().split()]


def reap():
    try:
        while os.waitpid(-1, os.WNOHANG) != (0, 0):
            pass
    except ChildProcessError:
        pass


def end_children():
    """Ends all children; their own become ours, until none is left."""
    for attempt in range(60):
        left = children()
        if not left:
            return
        for pid in left:
            try:
                os.kill(pid, signal.SIGTERM if attempt < 40 else signal.SIGKILL)
            except ProcessLookupError:
                pass
        time.sleep(0.05)
        reap()


def start(*command, **how):
    how.setdefault("stdout", subprocess.DEVNULL)
    how.setdefault("stderr", subprocess.DEVNULL)
    return subprocess.Popen(command, stdin=subprocess.DEVNULL, **how)


def start_program(program):
    """The watched process: once it has ended, waiting for its output is useless."""
    watched.append(start(program, stdout=None, stderr=None))
    return watched[-1]


def close_window(process):
    """The program has to end normally. A busy window manager may miss a key, so it is pressed again."""
    waits_for("closing the window did not end the program")
    status = None
    while status is None:
        xdotool("key", "alt+F4")
        try:
            status = process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            pass
    if status != 0:
        raise Missed(f"closing the window ended the program with status {status}")


def move_in(folder):
    """A home in the folder for all processes: no setting of the user is changed, and none of the user's settings, sessions and screens matters."""
    for name in USERS_OWN:
        os.environ.pop(name, None)
    for name, place in (("HOME", "home"), ("XDG_RUNTIME_DIR", "run"), ("TMPDIR", "tmp")):
        Path(folder, place).mkdir(mode=0o700)
        os.environ[name] = str(Path(folder, place))


def lay_desk(folder, reader=True, bus=True):
    """A screen, a session bus, a window manager and the accessibility bus, with or without a reader. Without it, the bus starts at the first request."""
    move_in(folder)
    if reader:
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    read, write = os.pipe()
    start("Xvfb", "-displayfd", str(write), "-screen", "0", SCREEN, "-nolisten", "tcp", pass_fds=(write,))
    os.close(write)
    with os.fdopen(read) as pipe:
        number = pipe.readline().strip()
    if not number:
        raise Missed("Xvfb did not start")
    os.environ["DISPLAY"] = ":" + number
    session = ("dbus-daemon", "--session", "--nofork", "--print-address=1", f"--address=unix:dir={folder}/run")
    daemon = start(*session, stdout=subprocess.PIPE, text=True)
    os.environ["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().strip()
    if not os.environ["DBUS_SESSION_BUS_ADDRESS"]:
        raise Missed("dbus-daemon did not start")
    ready = Path(folder, "openbox-ready")
    start("openbox", "--startup", f"touch {ready}")
    until("openbox did not start", ready.exists)
    if bus:
        start("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")


# ---- eyes -----------------------------------------------------------------------------------------------


def waits_for(what):
    """What is named as missing if it doesn't appear in the time for the whole."""
    global missing
    missing = what


def until(what, look):
    """Looks again and again until there is something to see. What disappears meanwhile counts as absent. On a busy machine it may take any time, as long as the program runs."""
    from gi.repository import GLib

    while True:
        waits_for(what)
        try:
            seen = look()
            if seen:
                return seen
        except GLib.Error:
            pass
        for process in watched:
            if process.poll() is not None:
                raise Missed(f"{what}: the program ended with status {process.returncode}")
        time.sleep(0.05)


def up(title):
    """Whether a window of this title is on the screen, found without a reader."""
    search = ("xdotool", "search", "--onlyvisible", "--name", f"^{title}$")
    return subprocess.run(search, check=False, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


def parts(thing):
    """The children of an object. What disappears meanwhile counts as absent."""
    things = (thing.get_child_at_index(i) for i in range(thing.get_child_count()))
    return [part for part in things if part]


class Eyes:
    """The windows of the program as a screen reader sees them."""

    def __init__(self, pid):
        import gi  # needs the desk

        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi

        self.atspi, self.pid = Atspi, pid
        self.text_role, self.key_role = Atspi.Role.TEXT, Atspi.Role.PUSH_BUTTON
        Atspi.init()
        Atspi.set_timeout(PATIENCE, PATIENCE)
        self.main = until("no window", lambda: next(iter(self.windows()), None))
        self.seen = time.monotonic()
        self.things = {}
        until("the window has not all of its boxes", self.learn)

    def program(self):
        desktop = self.atspi.get_desktop(0)
        desktop.set_cache_mask(self.atspi.Cache.NONE)
        for app in parts(desktop):
            if app.get_process_id() == self.pid:
                app.set_cache_mask(self.atspi.Cache.NONE)
                return app
        return None

    def windows(self):
        app = self.program()
        return parts(app) if app else []

    def other_window(self, test):
        """The first window but the main one that passes the test."""
        return next((window for window in self.windows() if window != self.main and test(window)), None)

    def below(self, thing):
        """All objects in it. Fields are not taken apart: their parts have no names."""
        for child in parts(thing):
            yield child
            if child.get_role() != self.text_role:
                yield from self.below(child)

    def learn(self):
        """Keeps the objects of the main window: they are always the same, only shown or hidden."""
        self.things = {(thing.get_role(), self.name(thing)): thing for thing in self.below(self.main)}
        return (self.text_role, SENTENCE) in self.things and (self.key_role, HINT) in self.things

    def name(self, thing):
        """Without the state of a cell, which changes."""
        return re.sub(r"^cell (r\dc\d), .*", r"\1", thing.get_name())

    def field(self, name):
        return self.things[self.text_role, name]

    def key(self, name):
        return self.things[self.key_role, name]

    def label(self, name):
        return self.things[self.atspi.Role.LABEL, name]

    def state(self, thing, name):
        return thing.get_state_set().contains(getattr(self.atspi.StateType, name))

    def text(self, thing):
        return self.atspi.Text.get_text(thing, 0, self.atspi.Text.get_character_count(thing))

    def reads(self, name):
        return self.text(self.field(name))

    def area(self, thing):
        return self.atspi.Component.get_extents(thing, self.atspi.CoordType.SCREEN)

    def fields(self, window):
        return [thing for thing in self.below(window) if thing.get_role() == self.text_role]

    def explains(self, window):
        return window.get_name().startswith(EXPLANATIONS)

    def focused_field(self, window):
        return any(self.state(field, "FOCUSED") for field in self.fields(window))


def tell_desktop(state, value):
    """Sets what the desktop says of screen readers, "IsEnabled" or "ScreenReaderEnabled", as when a user starts one."""
    from gi.repository import Gio, GLib

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    where = ("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set")
    said = GLib.Variant("(ssv)", ("org.a11y.Status", state, GLib.Variant("b", value)))
    bus.call_sync(*where, said, None, 0, PATIENCE)


# ---- hands ----------------------------------------------------------------------------------------------


def xdotool(*words, check=True):
    subprocess.run(["xdotool", *map(str, words)], check=check, stdout=subprocess.DEVNULL)


def click(eyes, key):
    at = eyes.area(eyes.key(key))
    xdotool("mousemove", at.x + at.width // 2, at.y + at.height // 2, "click", 1)


def type_line(text):
    xdotool("type", "--delay", 5, text)
    xdotool("key", "Return")


def print_screen(picture, *crop):
    picture.parent.mkdir(parents=True, exist_ok=True)
    return subprocess.run(["import", "-window", "root", *crop, picture], check=False).returncode == 0


# ---- the lesson -----------------------------------------------------------------------------------------


def shown(text):
    return "\n".join("    " + line for line in text.strip().splitlines())


def givens(puzzle):
    return len(re.findall("[1-9]", "".join(re.findall("[0-9.xX]", puzzle.read_text("latin-1"))[:81])))


def make_room(eyes):
    """Moves the window to the left, so that there is room for the explanation beside it."""

    def moved():
        xdotool("search", "--onlyvisible", "--name", f"^{eyes.main.get_name()}$", "windowmove", 40, 60, check=False)
        return eyes.area(eyes.main).x < 100

    until("the window did not move", moved)


def open_puzzle(eyes, puzzle):
    click(eyes, OPEN)
    until("no file dialog to type in", lambda: eyes.other_window(eyes.focused_field))
    type_line(str(puzzle))
    wanted = str(givens(puzzle))
    until("the puzzle was not opened", lambda: eyes.reads(FILE) == str(puzzle) and eyes.reads(FILLED) == wanted)
    # The board is on show before the grader has finished, and a hint taken meanwhile would see the board of the
    # grader.
    until("the puzzle was not graded", lambda: eyes.reads(GRADE[0]) and not eyes.state(eyes.label(LOADING), "SHOWING"))
    print(f"He opened {puzzle.name} through the file dialog: {wanted} digits. The grade:")
    print(shown("\n".join(map(eyes.reads, GRADE))))


def take_hint(eyes):
    click(eyes, HINT)
    until("no traffic light", lambda: eyes.state(eyes.key(GREEN), "SHOWING"))
    sentence = eyes.reads(SENTENCE)
    place = re.search("r[1-9]c[1-9]", sentence)
    if not place:
        raise Missed(f"the hint names no cell: {sentence!r}")
    print(f"He pressed the hint. It says:\n{shown(sentence)}")
    return place.group()


def ask_why(eyes, place):
    click(eyes, WHY)
    paper = until("no explanation", lambda: eyes.other_window(eyes.explains))
    argument = until("the explanation is empty", lambda: [text for text in map(eyes.text, eyes.fields(paper)) if text])
    if place not in argument[0]:
        raise Missed(f"the explanation does not come to {place}: {argument[0]!r}")
    print(f"He asked why. The explanation:\n{shown(argument[0])}")
    return paper


def take_picture(eyes, paper, picture):
    """Of both windows."""
    time.sleep(0.5)  # the colours are painted after the window of the explanation has opened
    areas = [eyes.area(eyes.main), eyes.area(paper)]
    left, top = min(a.x for a in areas) - EDGE, min(a.y for a in areas) - TITLE
    wide = max(a.x + a.width for a in areas) + EDGE - left
    high = max(a.y + a.height for a in areas) + EDGE - top
    if not print_screen(picture, "-crop", f"{wide}x{high}+{left}+{top}", "+repage"):
        raise Missed("the picture could not be taken")
    print(f"The windows at that moment: {picture}")


def press_green(eyes, place):
    before = eyes.reads(place)
    if before:
        raise Missed(f"{place} held {before!r} before green was pressed")
    click(eyes, GREEN)
    digit = until(f"no digit went into {place}", lambda: eyes.reads(place))
    if not re.fullmatch("[1-9]", digit):
        raise Missed(f"{digit!r} went into {place}")
    print(f"He pressed green: {digit} went into {place}.")


def lesson(program, puzzle, picture):
    started = time.monotonic()
    process = start_program(program)
    eyes = Eyes(process.pid)
    print(f"A scripted user started {program}; he saw the window after {eyes.seen - started:.1f} s.")
    make_room(eyes)
    open_puzzle(eyes, puzzle)
    place = take_hint(eyes)
    paper = ask_why(eyes, place)
    take_picture(eyes, paper, picture)
    press_green(eyes, place)
    close_window(process)
    print("He closed the window, and the program ended.")


def at_desk(play, seconds, **how):
    """Sets up a desk in a folder of its own and plays there, for at most so many seconds."""

    def stop(number, _):
        why = "it took too long" if number == signal.SIGALRM else "it was broken off"
        raise Missed(f"{missing}; {why}")

    for number in (signal.SIGALRM, signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        signal.signal(number, stop)
    signal.alarm(seconds)
    adopt_orphans()
    with tempfile.TemporaryDirectory() as folder:
        try:
            lay_desk(folder, **how)
            play()
        finally:
            signal.alarm(0)
            end_children()


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    program, puzzle, picture = (Path(name).resolve() for name in sys.argv[1:])

    def play():
        try:
            lesson(str(program), puzzle, picture)
        except Missed:
            failed = picture.with_stem(picture.stem + "-failed")
            if print_screen(failed):
                print(f"The screen when the lesson failed: {failed}", file=sys.stderr)
            raise

    try:
        at_desk(play, SECONDS)
    except (Missed, OSError, subprocess.SubprocessError) as why:
        print(f"The lesson failed: {why}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
