"""A hundred thousand jobs in one process: memory does not grow with their number."""

import os
import subprocess

from kit import EXAMPLES, Folder, HOST, jobs_of, surroundings

GROWTH = 8.0    # megabytes from a tenth of the run to its end
SHEET = EXAMPLES.parent / "xslt" / "vedaxml_au.xsl"


def megabytes(pid):
    try:
        with open(f"/proc/{pid}/statm") as file:
            return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") / (1 << 20)
    except (OSError, IndexError):
        return None


def run_jobs(command, path, folder, count):
    """Runs the jobs; gives the status, the number of results and what memory there was in between."""
    with open(path, "rb") as jobs:
        process = subprocess.Popen([str(part) for part in command], stdin=jobs, cwd=folder,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   env=surroundings())
        seen, results = [], 0
        while block := process.stdout.read1(1 << 16):
            results += block.count(b"\n")
            seen.append((results, megabytes(process.pid)))
        process.wait()
    late = [size for at, size in seen if size and at > count * 0.9]
    early = [size for at, size in seen if size and count * 0.1 < at < count * 0.3]
    return process.returncode, results, early, late


def examine_jobs(tally, name, command, replies, count):
    with Folder() as folder:
        path = folder / "jobs"
        lines = jobs_of(replies).splitlines(keepends=True)
        with open(path, "wb") as jobs:
            for at in range(count):
                jobs.write(lines[at % len(lines)])
        status, results, early, late = run_jobs(command, path, folder, count)
        told = (f"{name}: status {status}, {results} results, "
                f"{max(early or [0]):.1f} MB and {max(late or [0]):.1f} MB")
        tally.expect(f"{count:,} jobs: a result each", status in (0, 1) and results == count, told)
        tally.expect(f"{count:,} jobs: flat memory", early and late and
                     max(late) - max(early) < GROWTH, told)


def examine(tally, bounded):
    count = 10_000 if bounded else 100_000
    small = (EXAMPLES / "vedaxml_au_clean.xml").read_text()
    wrong = ["<a>", "", "<html/>", "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"]
    translate = [HOST, "translate"]
    sheet = ["--xslt-file-name", SHEET]
    examine_jobs(tally, "one after the other", [*translate, "--ndjson"], [small], count)
    examine_jobs(tally, "two workers", [*translate, "--input", "-", "--ndjson", "--jobs", "2"],
                 [small], count)
    examine_jobs(tally, "all of them wrong", [*translate, "--ndjson"], wrong, count)
    examine_jobs(tally, "with a style sheet", [*translate, "--ndjson", *sheet], [small],
                 count // 10)
