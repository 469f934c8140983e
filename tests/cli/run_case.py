#!/usr/bin/env python3
"""Runs one command-line case: run_case.py PROGRAM CASE [--update]

A case is one readable file: what it shows, then sections, each headed by its name in brackets.

  [file NAME]    a file to make in the case's folder first
  [environment]  NAME=value lines
  [input]        standard input; without a final line break when the section is headed [input raw]
  [command]      what the shell runs; zrcreditbureau is the program, $CLI_TESTS the folder of this
                 script, whose gateway.sh starts a bureau to talk to
  [status]       the exit status, 0 when the section is missing
  [output]       standard output
  [errors]       standard error, empty when the section is missing
  [output json]  members that the JSON documents of standard output must have, one line for each
                 document; an object here names some of the members, anything else must be equal
  [made NAME]    a file that the command must have made
  [no NAME]      a file that it must not have made

{ANY} in expected text stands for any text within a line, {STAMP} for a time stamp of twelve digits,
{CR} for a carriage return. --update rewrites the expected output, errors and status as they are.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

MASKS = {"{ANY}": r"[^\n]*", "{STAMP}": r"\d{12}", "{CR}": "\r"}
HEADING = re.compile(r"^\[([a-z]+(?: [^\]]+)?)\]$")
KINDS = {"file", "environment", "input", "command", "status", "output", "errors", "made", "no"}


def read_sections(path):
    sections, current = {}, None
    for line in path.read_text(encoding="utf-8").splitlines(keepends=True):
        heading = HEADING.match(line.rstrip("\n"))
        if heading and heading[1].split()[0] in KINDS:
            current = heading[1]
            sections[current] = ""
        elif current is not None:
            sections[current] += line
    return sections


def pattern(expected):
    parts = re.split("(" + "|".join(re.escape(mask) for mask in MASKS) + ")", expected)
    return "".join(MASKS.get(part, re.escape(part)) for part in parts)


def differs(name, expected, actual):
    if re.fullmatch(pattern(expected), actual):
        return []
    return [f"--- {name} expected", expected, f"--- {name} found", actual]


def lacks(expected, actual, where):
    """What an actual JSON value lacks of the expected one."""
    if isinstance(expected, dict) and isinstance(actual, dict):
        return [fault for name, value in expected.items()
                for fault in ([f"{where}.{name} is missing"] if name not in actual
                              else lacks(value, actual[name], f"{where}.{name}"))]
    return [] if expected == actual else [f"{where} is {json.dumps(actual)}, "
                                          f"expected {json.dumps(expected)}"]


def json_faults(expected, output):
    wanted = [json.loads(line) for line in expected.splitlines() if line.strip()]
    found = [json.loads(line) for line in output.splitlines()]
    faults = [] if len(wanted) == len(found) else [f"{len(found)} documents, not {len(wanted)}"]
    for number, (one, other) in enumerate(zip(wanted, found), start=1):
        faults += lacks(one, other, f"document {number}")
    return faults


def run(program, sections, folder):
    for heading, content in sections.items():
        if heading.startswith("file "):
            (folder / heading[5:]).write_text(content, encoding="utf-8")
    environment = {"CLI_TESTS": str(pathlib.Path(__file__).resolve().parent), "PATH": f"{program.parent}:/usr/bin:/bin",
                   "LC_ALL": "C.UTF-8", "TZ": "UTC"}
    for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    for line in sections.get("environment", "").splitlines():
        name, _, value = line.partition("=")
        environment[name] = value
    given = sections.get("input", sections.get("input raw", "")[:-1])
    return subprocess.run(["/bin/bash", "-c", sections["command"]], cwd=folder, env=environment,
                          input=given.encode(), capture_output=True, timeout=100)


def check(sections, done, folder):
    output = done.stdout.decode("utf-8")
    faults = differs("status", sections.get("status", "0").strip(), str(done.returncode))
    faults += differs("errors", sections.get("errors", ""), done.stderr.decode("utf-8"))
    if "output json" in sections:
        faults += json_faults(sections["output json"], output)
    else:
        faults += differs("output", sections.get("output", ""), output)
    for heading, content in sections.items():
        kind, _, name = heading.partition(" ")
        if kind == "made":
            path = folder / name
            faults += differs(name, content, path.read_bytes().decode() if path.exists() else "")
        elif kind == "no" and list(folder.glob(name)):
            faults.append(f"{name} was made")
    return faults


def update(path, sections, done):
    """Rewrites the case with what was found."""
    found = {"status": str(done.returncode) + "\n", "output": done.stdout.decode(),
             "errors": done.stderr.decode()}
    text = re.split(r"^\[(?:status|output|errors)\]\n", path.read_text(), flags=re.M)[0]
    for name, content in found.items():
        if content and (name, content) != ("status", "0\n"):
            text += f"[{name}]\n" + content.replace("\r", "{CR}")
    path.write_text(text)


def main():
    program, path = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    sections = read_sections(path)
    with tempfile.TemporaryDirectory() as folder:
        done = run(program, sections, pathlib.Path(folder))
        if "--update" in sys.argv:
            update(path, sections, done)
            return 0
        faults = check(sections, done, pathlib.Path(folder))
    if faults:
        print(f"{path.name} fails:", *faults, sep="\n")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
