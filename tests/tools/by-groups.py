#!/usr/bin/env python3
"""Runs ctest and says, a line a group, how its tests went. A group is what has the same label.

  tests/tools/by-groups.py [what ctest understands...]

The line of a group comes when its last test has ended; its seconds are those of its tests, several of which may run
at a time. What a failing test has written comes at once, as ctest gives it, and so does all else that it says.
"""
import json
import re
import subprocess
import sys

RESULT = re.compile(r"\s*\d+/\d+ Test +#\d+: (.*?) \.*\s*(Passed|\*\*\*.*?|Not Run.*?)\s+([\d.]+) sec")
NOISE = re.compile(r"\s+Start +\d+: |Test project |Internal ctest changing into directory|Label Time Summary|"
                   r"\S.* = +[\d.]+ sec\*proc ")
SUMMARY = re.compile(r"\d+% tests passed")


def failed(status):
    return status.startswith("***") and not status.startswith("***Skipped")


class Group:
    def __init__(self):
        self.tests = self.ended = self.failed = self.skipped = 0
        self.seconds = 0.0

    def note(self, status, seconds):
        self.ended += 1
        self.seconds += seconds
        self.skipped += status.startswith(("***Skipped", "Not Run"))
        self.failed += failed(status)

    def __str__(self):
        odd = "".join(f", {n} {what}" for n, what in ((self.failed, "failed"), (self.skipped, "skipped")) if n)
        return f"{self.tests:,} test{'s' * (self.tests != 1)}, {self.seconds:.0f} s{odd}"


def labelof(test):
    for item in test.get("properties", []):
        if item["name"] == "LABELS":
            return item["value"][0]
    return "other"


def listed(arguments):
    """The group of each test that these arguments choose, by the test's name."""
    listing = subprocess.run(["ctest", *arguments, "--show-only=json-v1"], stdout=subprocess.PIPE, text=True)
    if listing.returncode != 0:
        sys.exit(listing.returncode)
    return {test["name"]: labelof(test) for test in json.loads(listing.stdout)["tests"]}


def main(arguments):
    labels = listed(arguments)
    groups = {}
    for label in labels.values():
        groups.setdefault(label, Group()).tests += 1
    width = max((len(label) for label in groups), default=0)
    print(f"{len(labels):,} tests: " + ", ".join(f"{label} {group.tests:,}" for label, group in groups.items()),
          flush=True)

    run = subprocess.Popen(["ctest", *arguments], stdout=subprocess.PIPE, text=True, errors="replace")
    blank = True  # no more than one empty line in a row, of those that are left when the noise is gone
    done = ""  # the line of a group that has ended waits for the output of its last test
    for line in run.stdout:
        result = RESULT.match(line)
        noise = NOISE.match(line)
        if done and (result or noise or SUMMARY.match(line)):
            print(done, flush=True)
            done, blank = "", False
        if result:
            group = groups[labels.get(result[1], "other")]
            group.note(result[2], float(result[3]))
            if group.ended == group.tests:
                done = f"  {labels[result[1]]:{width}}  {group}"
            if failed(result[2]):  # what was skipped is listed at the end
                print(re.sub(r"\.{4,}", "...", line), end="")
                blank = False
        elif not noise and not (blank and not line.strip()):
            print(line, end="", flush=True)
            blank = not line.strip()
    return run.wait()


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except KeyboardInterrupt:
        sys.exit(130)
