"""A failing allocator at every point: a clean failure or the right answer, never a crash.

A program that runs in the component's process makes each allocation fail in turn, and prints a line
an area: its name, how many points were tried, how many held.
"""

import re

from kit import BIN, EXAMPLES, Folder, jobs_of, host, run

PROGRAM = BIN / "failing_allocator"
LIMIT = 500


def examine_points(tally, bounded):
    done = run([PROGRAM, *(["--bounded"] if bounded else [])], limit=LIMIT)
    areas = re.findall(r"^(\S.*?)\s+(\d+)\s+(\d+)\s*$", done.out.decode(), re.M)
    tally.expect("the program ends well", areas and not done.died, done)
    for area, tried, held in areas:
        tally.count(f"every point of {area}", int(tried), int(held), done.said()[-2000:])


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
