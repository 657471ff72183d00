#!/usr/bin/python3
"""Takes the pictures of the README on a virtual screen.

    tools/pictures.py PROGRAM SAMPLES FOLDER

They are window.png: a hint that waits, explanation-it.png: one that is explained in Italian, ring.png: the ring of
digits. SAMPLES is the folder of the sample puzzles; its name can be read in the pictures.
"""
import re
import subprocess
import sys
import time
from pathlib import Path

sys.dont_write_bytecode = True  # nothing is left beside the sources
import tour
from tour import Missed, at_desk, until, xdotool

SECONDS = 600  # for all of them


def begin(program, puzzle):
    process = tour.start_program(program)
    eyes = tour.Eyes(process.pid)
    tour.make_room(eyes)
    tour.open_puzzle(eyes, puzzle)
    return process, eyes


def end(process):
    tour.watched.remove(process)
    process.kill()
    process.wait()


def take(eyes, windows, picture):
    xdotool("mousemove", 1270, 790)
    time.sleep(1)
    areas = [eyes.area(window) for window in windows]
    left, top = min(a.x for a in areas) - tour.EDGE, min(a.y for a in areas) - tour.TITLE
    wide = max(a.x + a.width for a in areas) + tour.EDGE - left
    high = max(a.y + a.height for a in areas) + tour.EDGE - top
    shrink = ("-dither", "None", "-colors", "224", "-define", "png:compression-level=9", "-strip")
    if not tour.print_screen(picture, "-crop", f"{wide}x{high}+{left}+{top}", "+repage", *shrink):
        raise Missed(f"{picture} could not be taken")
    print(f"{picture}: {picture.stat().st_size} bytes")


def go_to(eyes, wanted):
    """Presses hint and green until a sentence fits."""
    for _ in range(80):
        tour.click(eyes, tour.HINT)
        until("no traffic light", lambda: eyes.state(eyes.key(tour.GREEN), "SHOWING"))
        if re.search(wanted, eyes.reads(tour.SENTENCE)):
            return
        tour.click(eyes, tour.GREEN)
        until("the light stays", lambda: not eyes.state(eyes.key(tour.GREEN), "SHOWING"))
    raise Missed(f"no hint says {wanted!r}")


def hint(program, samples, folder):
    process, eyes = begin(program, samples / "hard.sdk")
    go_to(eyes, "(?i)chain")
    take(eyes, [eyes.main], folder / "window.png")
    end(process)


def explanation(program, samples, folder):
    process, eyes = begin(program, samples / "first.sav")
    tour.click(eyes, "change to Italian")
    until("no Italian", lambda: eyes.key(tour.GREEN).get_name() == "procedi")
    tour.click(eyes, tour.HINT)
    until("no traffic light", lambda: eyes.state(eyes.key(tour.GREEN), "SHOWING"))
    tour.click(eyes, tour.WHY)
    paper = until("no explanation", lambda: eyes.other_window(lambda window: window.get_name().startswith("Spieg")))
    take(eyes, [eyes.main, paper], folder / "explanation-it.png")
    end(process)


def ring(program, samples, folder):
    process, eyes = begin(program, samples / "first.sav")
    cell = eyes.area(eyes.field("r5c4"))
    xdotool("mousemove", cell.x + 20, cell.y + 20, "click", 1)
    until("no ring", lambda: eyes.state(eyes.key("digit 7"), "SHOWING"))
    take(eyes, [eyes.main], folder / "ring.png")
    end(process)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    program, samples, pictures = (Path(name).resolve() for name in sys.argv[1:])

    def take_all():
        for picture in (hint, explanation, ring):
            picture(str(program), samples, pictures)

    try:
        at_desk(take_all, SECONDS)
    except (Missed, OSError, subprocess.SubprocessError) as why:
        print(f"The pictures failed: {why}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
