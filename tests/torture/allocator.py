"""A failing allocator at every point: a clean failure or the right answer, never a crash.

`failing_allocator` runs tasks in the component's process again and again, each time with another
allocation that fails, alone or with all behind it.
"""

import re

from kit import BIN, EXAMPLES, Folder, ROOT, jobs_of, host, run

PROGRAM = BIN / "failing_allocator"
LINE = re.compile(r"^(\S+)\s+tried\s+(\d+)\s+right\s+(\d+)\s+clean\s+(\d+)(.*)", re.M)


# Each task's points and, of those of a page, one in so many: there are two hundred thousand.
TASKS = ["translate", "compose", "exchange", "initialise-au", "initialise-nz", "json"]
PAGES = ["html-au", "html-nz"]


def examine_points(tally, bounded):
    for names, step, how in ((names, step, how) for names, step in
                             ((TASKS, 25 if bounded else 1), (PAGES, 2000 if bounded else 30))
                             for how in ([], ["--from"])):
        done = run([PROGRAM, ROOT, *names, "--step", str(step), *how], limit=1800)
        rows = LINE.findall(done.out.decode())
        tally.expect("the program tries its tasks", rows and not done.died, done)
        for task, tried, right, clean, rest in rows:
            crashes = int(re.search(r"crash\s+(\d+)", rest)[1])
            # The style-sheet library may itself end the process, which the documents tell; what
            # comes out of it is still never wrong.
            html = task.startswith("html")
            held = int(right) + int(clean) + (crashes if html else 0)
            tally.count(f"{task}: {how_told(how)}{', never a wrong page' if html else ''}",
                        int(tried), held, task + rest)


def how_told(how):
    return "all from one on fail" if how else "one allocation fails"


def examine_address_space(tally, bounded):
    """The process may have so much memory and no more: an answer or a failure that says why."""
    small = (EXAMPLES / "vedaxml_au_adverse.xml").read_text()
    large = small.replace("</primary-match>", "<x>" + "y" * (60 << 20) + "</x></primary-match>", 1)
    with Folder() as folder:
        (folder / "large.xml").write_text(large)
        (folder / "jobs").write_bytes(jobs_of([large]))
        for megabytes in ([300, 500] if bounded else range(100, 1000, 100)):
            for how in (["translate", folder / "large.xml", "--service", "VedaXMLAU"],
                        ["translate", "--input", folder / "jobs"]):
                done = host(*how, memory=megabytes)
                right = done.status == 0 and b"2 unpaid" not in done.err
                failed = done.status in (1, 2) and b"emory" in done.err + done.out
                tally.expect("a reply of 60 MB in too little memory: an answer, or \"Not enough "
                             "memory.\"", not done.died and (right or failed),
                             f"{megabytes} MB: {done}")


def examine(tally, bounded):
    if PROGRAM.exists():
        examine_points(tally, bounded)
    else:
        tally.expect("the program is there", False, f"{PROGRAM} is not built")
    examine_address_space(tally, bounded)
