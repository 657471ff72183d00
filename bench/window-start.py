#!/usr/bin/python3
"""Measures how the window program starts, on a virtual screen of its own.

    bench/window-start.py [-n TIMES] [--picture FILE] PROGRAM...

For each program, from the start of its process until the X server has got the first picture of a window: the
time, the processor time of its threads, its resident memory; then the processor time that it uses in three
seconds without anything to do. Several programs take turns, so that all meet the same machine. Needs no window
manager, no hook in the program, and of Debian xvfb and libxdamage1.
"""
import argparse
import ctypes
import os
import select
import statistics
import subprocess
import sys
import time
from pathlib import Path

SCREEN = "1280x800x24"
WINDOW_AREA = 300 * 300  # less than that is not yet the window's picture
WAIT, SETTLING, REST = 20.0, 0.5, 3.0


class DamageEvent(ctypes.Structure):
    _fields_ = [
        ("type", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("drawable", ctypes.c_ulong),
        ("damage", ctypes.c_ulong),
        ("level", ctypes.c_int),
        ("more", ctypes.c_int),
        ("timestamp", ctypes.c_ulong),
        ("x", ctypes.c_short),
        ("y", ctypes.c_short),
        ("width", ctypes.c_ushort),
        ("height", ctypes.c_ushort),
        ("room", ctypes.c_long * 24),  # an event of the X library is at least this large
    ]


class Screen:
    """A virtual screen that reports when something is drawn on it."""

    def __init__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", SCREEN, "-nolisten", "tcp"],
            pass_fds=(write,), stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            self.name = ":" + pipe.readline().strip()
        self.x11, damage = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXdamage.so.1")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(self.name.encode()))
        base, error = ctypes.c_int(), ctypes.c_int()
        damage.XDamageQueryExtension(self.display, ctypes.byref(base), ctypes.byref(error))
        raw_rectangles = 0
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        damage.XDamageCreate(self.display, root, raw_rectangles)
        self.x11.XSync(self.display, 0)
        self.drawn_type = base.value

    def drawn(self):
        """The areas that were drawn since the last call."""
        event = DamageEvent()
        while self.x11.XPending(self.display):
            self.x11.XNextEvent(self.display, ctypes.byref(event))
            if event.type == self.drawn_type:
                yield event.width * event.height

    def clear(self):
        """Waits until a closed window is gone from the screen."""
        self.x11.XSync(self.display, 0)
        time.sleep(0.1)
        list(self.drawn())

    def wait_for_window(self, process):
        end, area = time.monotonic() + WAIT, 0
        while time.monotonic() < end and process.poll() is None:
            area += sum(self.drawn())  # without shared memory a picture comes in stripes
            if area >= WINDOW_AREA:
                return
            select.select([self.x11.XConnectionNumber(self.display)], [], [], 0.2)
        raise SystemExit(f"window-start: no window of {process.args[0]} came up")

    def close(self):
        self.server.terminate()
        self.server.wait()


def processor_ms(pid):
    """Of all threads; to the nanosecond, unlike the ticks of stat."""
    tasks = Path(f"/proc/{pid}/task").iterdir()
    return sum(int((task / "schedstat").read_text().split()[0]) for task in tasks) / 1e6


def resident_mb(pid):
    status = Path(f"/proc/{pid}/status").read_text()
    return int(status.split("VmRSS:")[1].split()[0]) / 1024


def measure(screen, program, rests=False, picture=None):
    screen.clear()
    environment = {k: v for k, v in os.environ.items() if k not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    started = time.monotonic()
    process = subprocess.Popen([program], env=environment | {"DISPLAY": screen.name},
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        screen.wait_for_window(process)
        shown = 1000 * (time.monotonic() - started)
        used, memory = processor_ms(process.pid), resident_mb(process.pid)
        time.sleep(SETTLING)
        settled = processor_ms(process.pid)
        if rests:
            time.sleep(REST)
        idle = processor_ms(process.pid) - settled
        if picture:
            subprocess.run(["import", "-display", screen.name, "-window", "root", picture], check=True)
    finally:
        process.kill()
        process.wait()
    return shown, used, memory, idle


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("-n", type=int, default=11, metavar="TIMES")
    parser.add_argument("--picture", metavar="FILE", help="keep what the last program shows")
    parser.add_argument("program", nargs="+")
    given = parser.parse_args()
    screen = Screen()
    runs = {program: [] for program in given.program}
    try:
        # The first start loads the files of the program into memory and is not counted.
        rests = {program: measure(screen, program, True, given.picture)[-1] for program in runs}
        for _ in range(given.n):
            for program, results in runs.items():
                results.append(measure(screen, program))
    finally:
        screen.close()
    print(f"{'':40} {'first picture, ms':>18} {'processor, ms':>15} {'MB':>5} {'idle, ms':>9}")
    print(f"{'':40} {'median':>10} {'best':>7} {'median':>8} {'best':>6}")
    for program, results in runs.items():
        shown, used, memory, _ = zip(*results)
        print(f"{program[-40:]:40} {statistics.median(shown):10.1f} {min(shown):7.1f} {statistics.median(used):8.1f} "
              f"{min(used):6.1f} {statistics.median(memory):5.1f} {rests[program]:9.2f}")


if __name__ == "__main__":
    sys.exit(main())
