#!/usr/bin/env python3
"""Tells which lines of src were reached: coverage_table.py BUILD [--lines]

A line is reached when any program that has it ran it. Exit status 1 below 95%.
"""

import collections
import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WANTED = 95.0


def counts(build):
    """How often each line of each file of src ran."""
    lines = collections.defaultdict(lambda: collections.defaultdict(int))
    notes = sorted(build.rglob("*.gcno"))
    for at in range(0, len(notes), 40):
        done = subprocess.run(["gcov", "--json-format", "--stdout", *map(str, notes[at:at + 40])],
                              capture_output=True, check=False, cwd=build)
        for document in done.stdout.splitlines():
            for file in json.loads(document)["files"]:
                path = (build / file["file"]).resolve()
                if path.is_relative_to(ROOT / "src"):
                    for line in file["lines"]:
                        lines[path.relative_to(ROOT)][line["line_number"]] += line["count"]
    return lines


def spans(numbers):
    """Line numbers as "3, 7-9"."""
    parts = []
    for number in sorted(numbers):
        if parts and parts[-1][1] == number - 1:
            parts[-1][1] = number
        else:
            parts.append([number, number])
    return ", ".join(str(a) if a == b else f"{a}-{b}" for a, b in parts)


def main():
    lines = counts(pathlib.Path(sys.argv[1]).resolve())
    folders = collections.defaultdict(lambda: [0, 0])
    for path, counted in lines.items():
        for name in (str(path.parent), "src, all of it"):
            folders[name][0] += len(counted)
            folders[name][1] += sum(count > 0 for count in counted.values())
    print(f"{'folder':<32} {'lines':>7} {'reached':>8} {'percent':>8}")
    for name, (total, reached) in sorted(folders.items()):
        print(f"{name:<32} {total:>7} {reached:>8} {100 * reached / total:>8.1f}")
    if "--lines" in sys.argv:
        print("\nnot reached")
        for path, counted in sorted(lines.items()):
            missed = [line for line, count in counted.items() if count == 0]
            if missed:
                print(f"{path}: {spans(missed)}")
    total, reached = folders["src, all of it"]
    return 0 if total and 100 * reached / total >= WANTED else 1


sys.exit(main())
