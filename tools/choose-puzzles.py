#!/usr/bin/env python3
"""Chooses generated puzzles for a library:

    choose-puzzles.py EACH TWOFOLD.jsonl FOURFOLD.jsonl [MORE.jsonl] > rows.jsonl

Keeps what the continuous generator would keep (level 4 or above, or fewer than 27 givens), of each level at most
EACH, the first ones, no puzzle twice. A puzzle beyond the techniques has no list of steps and is left out.
MORE, of point symmetry, may be as long as it takes: only levels that are still rare are taken from it, and it is read
no further than they need.
"""
import collections
import json
import re
import sys

FIRSTNUMBER = 8371
RARE = 20


def rows(path, supersymmetric):
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            made = json.loads(line)
            if "fault" in made:
                continue
            steps = {int(level): int(count) for level, count in re.findall(r"(\d+)x(\d+)", made["dettaglio"])}
            if max(steps, default=0) != made["level"]:
                continue  # given up: level 21 without its steps
            if made["level"] < 4 and made["givens"] >= 27:
                continue
            row = {
                "stringa": made["puzzle"],
                "dettaglio": made["dettaglio"],
                "livello": str(made["level"]),
                "numeri": str(made["givens"]),
                "difficolta": str(made["difficolta"]),
                "supersimmetrico": "s" if supersymmetric else "",
            }
            row.update({f"f{level}": str(steps.get(level, 0)) for level in range(1, 22)})
            yield made["level"], row


def main():
    each = int(sys.argv[1])
    kept, seen, chosen = collections.Counter(), set(), []
    # Half of each level from either symmetry where both have it, the rest from whichever has more.
    pools = [list(rows(path, number == 1)) for number, path in enumerate(sys.argv[2:4])]
    for most in (each // 2, each):
        for pool in pools:
            taken = collections.Counter()
            for level, row in pool:
                if row["stringa"] in seen or kept[level] >= each or taken[level] >= most:
                    continue
                seen.add(row["stringa"])
                kept[level] += 1
                taken[level] += 1
                chosen.append((level, row))
    for path in sys.argv[4:5]:
        for level, row in rows(path, False):
            if kept[level] < RARE and row["stringa"] not in seen:
                seen.add(row["stringa"])
                kept[level] += 1
                chosen.append((level, row))
            if all(kept[level] >= RARE for level in range(22)):
                break
    chosen.sort(key=lambda pair: pair[0])
    for number, (_, row) in enumerate(chosen):
        print(json.dumps({"progressivo": str(FIRSTNUMBER + number), **row}))


main()
