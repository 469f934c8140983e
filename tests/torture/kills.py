"""Runs that are killed anywhere: gone on with, their results are those of an undisturbed run.

Killed between enquiries, nothing that the bureau was paid for is lost.
"""

import json
import random
import signal
import subprocess
import time

from kit import ENQUIRY, EXAMPLES, Folder, HOST, host, jobs_of, lender, surroundings
from network import own_name
from servers import Server, reply, report

JOBS = 4000


def started(command, folder, **pipes):
    return subprocess.Popen([str(part) for part in command], cwd=folder, env=surroundings(),
                            stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **pipes)


def examine_batch(tally, kills, seed=7):
    """A batch is killed again and again until it comes to its end."""
    chance = random.Random(seed)
    replies = [(EXAMPLES / f"vedaxml_au_{name}.xml").read_text() for name in ("adverse", "clean")]
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of(replies[at % 2].replace("Testwell", f"Testwell{at}")
                                              for at in range(JOBS)))
        run = ["translate", "--input", folder / "jobs", "--quiet", "--output"]
        begun = time.monotonic()
        whole = host(*run, folder / "whole", "--jobs", "2", limit=300)
        seconds = time.monotonic() - begun
        wanted = (folder / "whole").read_bytes()
        tally.expect("an undisturbed run", whole.status == 0, whole)
        done = ends = 0
        while done < kills:
            out = folder / f"out{done}"
            resume = []
            for _ in range(8):
                process = started([HOST, *run, out, *resume, "--jobs", chance.choice("12")], folder,
                                  stdout=subprocess.DEVNULL)
                time.sleep(chance.random() * seconds * 0.6)
                if process.poll() is None:
                    how = chance.choice([signal.SIGKILL, signal.SIGKILL, signal.SIGTERM])
                    process.send_signal(how)
                    done += 1
                process.wait()
                resume = ["--resume"]
                if process.returncode == 0:
                    break
            last = host(*run, out, *resume, limit=300) if process.returncode else None
            same = out.exists() and out.read_bytes() == wanted
            ends += 1
            tally.expect("killed runs end with the undisturbed run's results, byte for byte", same,
                         f"run {ends}: {last}")
            left = [path.name for path in folder.iterdir() if path.name.startswith(out.name + ".")]
            tally.expect("nothing is left beside them", not left, left)
            out.unlink(missing_ok=True)
        tally.count("kills", done, done)


def examine_enquiries(tally, kills, seed=11):
    """What the bureau answered is on disk before it is asked the next."""
    chance = random.Random(seed)
    for number in range(kills):
        after = chance.randrange(3, 12)
        with Folder() as folder:
            process = []

            def answer(peer):
                while (request := peer.request()) is not None:
                    if peer.server.posts > after:
                        process[0].send_signal(signal.SIGKILL)
                        return
                    peer.send(reply(report(own_name(request))))

            with Server(answer) as server:
                (folder / "settings").write_text(json.dumps({"VedaXMLAU": lender(server.url())}))
                names = [f"Applicant{chr(65 + at)}" for at in range(15)]
                (folder / "jobs").write_text("".join(json.dumps(
                    {"Country": "AU", "Request": {**ENQUIRY, "LastName": name}}) + "\n"
                    for name in names))
                output = ["--output", folder / "out"] if number % 2 else []
                with open(folder / "jobs") as jobs, open(folder / "stdout", "wb") as stdout:
                    process.append(subprocess.Popen(
                        [str(part) for part in [HOST, "enquire", "--ndjson", "--settings",
                                                folder / "settings", *output]], cwd=folder,
                        env=surroundings(), stdin=jobs, stdout=stdout, stderr=subprocess.DEVNULL))
                    process[0].wait()
                kept = b"".join(path.read_bytes() for path in folder.iterdir()
                                if path.name.startswith("out") or path.name == "stdout")
                missing = [name for name in names[:after] if kept.count(name.encode()) == 0]
                tally.expect("every paid report is kept, " +
                             ("with --output" if output else "on standard output"),
                             not missing, f"killed at enquiry {after + 1}: {len(missing)} lost")


def examine(tally, bounded):
    examine_batch(tally, 8 if bounded else 50)
    examine_enquiries(tally, 4 if bounded else 20)
