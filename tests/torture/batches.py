"""Batches among hostile files: nothing is left out in silence, followed, overwritten or held whole."""

import json
import os
import signal
import socket
import subprocess
import time

from kit import EXAMPLES, Folder, HOST, host, jobs_of, surroundings, wait_until

SMALL = (EXAMPLES / "vedaxml_au_clean.xml").read_text()
OWN = ("--service", "VedaXMLAU", "--date", "2012-06-15")


def replies_in(folder, count=3):
    inside = folder / "replies"
    inside.mkdir()
    for at in range(count):
        (inside / f"reply{at:03}.xml").write_text(SMALL)
    return inside


def started(command, folder):
    return subprocess.Popen([str(part) for part in command], cwd=folder, env=surroundings(),
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE)


def examine_folders(tally):
    """Pipes, devices, sockets and links in a folder are passed over with a word."""
    with Folder() as folder:
        inside = replies_in(folder)
        os.mkfifo(inside / "pipe.xml")
        (inside / "device.xml").symlink_to("/dev/zero")
        (inside / "nowhere.xml").symlink_to(folder / "missing")
        with socket.socket(socket.AF_UNIX) as listening:
            listening.bind(str(inside / "socket.xml"))
            done = host("translate", inside, *OWN, limit=20)
        results = done.out.splitlines()
        names = [json.loads(line)["File"].rsplit("/", 1)[-1] for line in results]
        tally.expect("pipes, devices and sockets: the run goes on", not done.died and
                     sum(json.loads(line)["Result"] for line in results) == 3, done)
        for name in ("pipe.xml", "device.xml", "socket.xml", "nowhere.xml"):
            tally.expect("pipes, devices and sockets: each is told of", name in done.err.decode() or
                         name in names, f"{name}: {done}")


def examine_changes(tally):
    """What is added to a folder, or taken out of it, while a run is on is told of."""
    for change in ("added", "removed"):
        with Folder() as folder:
            inside = replies_in(folder, 3000)
            process = started([HOST, "translate", inside, *OWN, "--output", folder / "out"], folder)
            wait_until(lambda: any(folder.glob("out*")))
            if change == "added":
                (inside / "zzz.xml").write_text(SMALL)
            else:
                (inside / "reply2999.xml").unlink()
            told = process.communicate(timeout=60)[1].decode()
            name = "zzz.xml" if change == "added" else "reply2999.xml"
            kept = (folder / "out").read_text() if (folder / "out").exists() else ""
            tally.expect(f"a file that is {change} meanwhile is told of", name in told or
                         name in kept or change in told, told[:300])


def examine_outputs(tally):
    with Folder() as folder:
        jobs = folder / "jobs"
        jobs.write_bytes(jobs_of([SMALL] * 5))
        before = jobs.read_bytes()
        (folder / "link").symlink_to(jobs)
        os.link(jobs, folder / "hard")
        for name in ("jobs", "link", "hard", "./jobs"):
            done = host("translate", "--input", jobs, "--output", f"{folder}/{name}", folder=folder)
            tally.expect("an output that is the input is refused", done.status == 2 and
                         jobs.read_bytes() == before, f"{name}: {done}")
        done = host("translate", EXAMPLES / "vedaxml_au_clean.xml", *OWN, "--output",
                    folder / "same", "--html", folder / "same", "--xslt-file-name",
                    EXAMPLES.parent / "xslt" / "vedaxml_au.xsl")
        tally.expect("two outputs that are one are refused", done.status == 2, done)

    with Folder() as folder:
        jobs = folder / "jobs"
        jobs.write_bytes(jobs_of([SMALL] * 5))
        victim = folder / "victim"
        victim.write_text("precious")
        (folder / "out.part").symlink_to(victim)
        for how in ((), ("--resume",)):
            done = host("translate", "--input", jobs, "--output", folder / "out", *how)
            tally.expect("a link in the place of the unfinished file is not followed",
                         victim.read_text() == "precious", done)


def examine_permissions(tally):
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of([SMALL] * 5))
        host("translate", "--input", folder / "jobs", "--output", folder / "many")
        host("translate", EXAMPLES / "vedaxml_au_clean.xml", *OWN, "--output", folder / "one",
             "--html", folder / "page", "--xslt-file-name",
             EXAMPLES.parent / "xslt" / "vedaxml_au.xsl")
        for name in ("many", "one", "page"):
            mode = (folder / name).stat().st_mode & 0o777 if (folder / name).exists() else 0o777
            tally.expect("files with personal data are their owner's only", mode == 0o600,
                         f"{name}: {mode:o}")
        for how in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            os.mkfifo(folder / "pipe")
            process = started([HOST, "translate", folder / "pipe", *OWN, "--output",
                               folder / "never"], folder)
            time.sleep(0.3)
            process.send_signal(how)
            process.communicate(timeout=20)
            (folder / "pipe").unlink()
            left = [path.name for path in folder.iterdir() if "never" in path.name]
            tally.expect("temporary files do not outlive a signal", not left, left)


def examine_resuming(tally):
    """An unfinished file that is damaged is not gone on with as if it were whole."""
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of(SMALL.replace("Testwell", f"T{at}")
                                              for at in range(3000)))
        command = ["translate", "--input", folder / "jobs", "--quiet", "--output"]
        host(*command, folder / "whole")
        wanted = (folder / "whole").read_bytes()
        for name, change in (
                ("a line changed", lambda data: data.replace(b'"Result":true', b'"Result":trux', 1)),
                ("an empty line", lambda data: b"\n" + data),
                ("noise", lambda data: b"\xff" * len(data))):
            out, part = folder / "out", folder / "out.part"
            out.unlink(missing_ok=True)
            process = started([HOST, *command, out], folder)
            wait_until(lambda: part.exists() and part.stat().st_size > 60_000)
            process.kill()
            process.communicate()
            if not part.exists():
                continue    # it was through before it could be stopped
            part.write_bytes(change(part.read_bytes()))
            done = host(*command, out, "--resume")
            right = out.exists() and out.read_bytes() == wanted
            refused = not out.exists() and done.status in (1, 2) and done.err.strip()
            tally.expect("an unfinished file that is damaged: refused, or the right results",
                         right or refused, f"{name}: {done}")
            part.unlink(missing_ok=True)


def examine_rivals(tally):
    """Two runs on one output: one of them is refused or waits, and the finished file is whole."""
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of([SMALL] * 3000))
        command = ["translate", "--input", folder / "jobs", "--output"]
        host(*command, folder / "whole")
        wanted = (folder / "whole").read_bytes()
        for pause in (0, 0.02, 0.05, 0.1, 0.2, 0.4):
            rivals = []
            for _ in range(2):
                rivals.append(started([HOST, *command, folder / "out"], folder))
                time.sleep(pause)
            for rival in rivals:
                rival.communicate(timeout=100)
            statuses = [rival.returncode for rival in rivals]
            tally.expect("two runs on one output: the finished file is whole",
                         0 in statuses and (folder / "out").read_bytes() == wanted,
                         f"{statuses} after {pause} s")
            (folder / "out").unlink(missing_ok=True)


def examine_bounds(tally):
    large = SMALL.replace("</primary-match>", "<x>" + "y" * (60 << 20) + "</x></primary-match>", 1)
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of([large] * 8))
        done = host("translate", "--input", folder / "jobs", "--jobs", "8", "--output",
                    folder / "out", limit=300)
        tally.expect("eight replies of 60 MB on eight workers: within 2 GB",
                     done.status == 0 and done.megabytes < 2000, done)
    with Folder() as folder:
        with open(folder / "jobs", "wb") as jobs:
            jobs.write(jobs_of([SMALL]))
            jobs.write(b'{"x":"' + b"y" * 300_000_000 + b'"}\n')
            jobs.write(jobs_of([SMALL]))
        for how in (("--input", folder / "jobs"), ("--input", folder / "jobs", "--jobs", "2")):
            done = host("translate", *how, limit=120)
            results = [json.loads(line) for line in done.out.splitlines()]
            tally.expect("a line of 300 MB: refused, and the run goes on",
                         [result["Result"] for result in results] == [True, False, True] and
                         "longer than" in results[1]["ErrorMessage"], done)
            tally.expect("a line of 300 MB: within 900 MB", done.megabytes < 900, done)


def examine(tally, bounded):
    examine_folders(tally)
    examine_outputs(tally)
    examine_permissions(tally)
    examine_changes(tally)
    examine_resuming(tally)
    examine_rivals(tally)
    if not bounded:
        examine_bounds(tally)
