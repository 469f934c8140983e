"""A machine that fails: a full disk, a disk that cannot write, calls that are interrupted.

strace makes a system call fail from its n-th time on, for one file or for all.
"""

import json

from kit import (ENQUIRY, EXAMPLES, Folder, HOST, host, jobs_of, lender, run, side_by_side)
from network import own_name
from servers import Server, answering, reply, report

# How the disk fails, and the calls that tell of it.
FAILURES = {"the disk is full": "ENOSPC", "the disk cannot write": "EIO",
            "the quota is used up": "EDQUOT"}
WRITING = "write,pwrite64,writev"


def failing(folder, calls, error, when, path, command, given=b"", limit=60):
    only = ["-P", path] if path else []
    return run(["strace", "-f", "-qq", "-o", "/dev/null", *only, "-e", "trace=" + calls, "-e",
                f"inject={calls}:error={error}:when={when}", HOST, *command], given=given,
               folder=folder, limit=limit)


def lines_of(data):
    """The whole lines that are JSON results; None where another is among them."""
    try:
        return [json.loads(line) for line in data.split(b"\n")[:-1]]
    except ValueError:
        return None


def examine_batch(tally, name, error, when):
    """A batch on a failing disk: told, no finished file, and gone on with afterwards."""
    reply_text = (EXAMPLES / "vedaxml_au_adverse.xml").read_text()
    with Folder() as folder:
        (folder / "jobs").write_bytes(jobs_of([reply_text] * 300))
        command = ["translate", "--input", folder / "jobs", "--output", folder / "out"]
        done = failing(folder, WRITING, error, f"{when}+", folder / "out.part", command)
        row = f"a batch while {name}"
        told = done.status not in (0, None) and not done.died and done.err.strip()
        tally.expect(row + ": told, and no finished file",
                     told and not (folder / "out").exists(), f"at write {when}: {done}")
        more = host(*command, *(["--resume"] if (folder / "out.part").exists() else []))
        results = lines_of((folder / "out").read_bytes()) if (folder / "out").exists() else None
        tally.expect(row + ": gone on with to the end",
                     more.status == 0 and results and len(results) == 300, f"{more}")


def examine_sync(tally, name, error):
    """A file whose bytes did not reach the disk is not called finished."""
    reply_text = (EXAMPLES / "vedaxml_au_adverse.xml").read_text()
    for calls in ("fsync,fdatasync", "rename,renameat,renameat2", "close"):
        with Folder() as folder:
            (folder / "jobs").write_bytes(jobs_of([reply_text] * 3))
            path = folder / "out.part"
            done = failing(folder, calls, error, "1+", path,
                           ["translate", "--input", folder / "jobs", "--output", folder / "out"])
            if calls == "close":
                # The bytes are there, or it is told: never a shortened file that looks finished.
                whole = (folder / "out").exists() and \
                    len((folder / "out").read_bytes().splitlines()) == 3
                held = done.status != 0 or whole
            else:
                held = done.status not in (0, None) and done.err.strip()
            tally.expect("syncing, renaming or closing fails: told", held and not done.died,
                         f"{calls} {name}: {done}")


def examine_single(tally):
    """One report to a full disk."""
    reply_file = EXAMPLES / "vedaxml_au_adverse.xml"
    for arguments in (("--format", "text"), ("--format", "json")):
        with open("/dev/full", "wb"):
            done = run(["sh", "-c", '"$@" >/dev/full', "sh", HOST, "translate", reply_file,
                        "--service", "VedaXMLAU", *arguments])
        tally.expect("a report to a full standard output: told", done.status not in (0, None) and
                     not done.died and done.err.strip(), done)
    for option in ("--output", "--html"):
        done = host("translate", reply_file, "--service", "VedaXMLAU", option, "/dev/full",
                    "--xslt-file-name", EXAMPLES.parent / "xslt" / "vedaxml_au.xsl")
        tally.expect("a report to a full file: told", done.status not in (0, None) and
                     not done.died and done.err.strip(), f"{option}: {done}")


def on_a_small_disk(folder, kilobytes, command, given):
    """Runs a command whose folder `disk` is a file system of its own, and keeps what it left there;
    none where this machine does not allow it."""
    for name in ("disk", "kept"):
        (folder / name).mkdir(exist_ok=True)
    script = (f'mount -t tmpfs -o size={kilobytes}k tmpfs "$0/disk" || exit 99; "$@"; s=$?; '
              'cp -r "$0/disk/." "$0/kept"; exit $s')
    done = run(["unshare", "-Urm", "sh", "-c", script, folder, *command], given=given, folder=folder)
    return None if done.status == 99 or b"unshare" in done.err else done


def examine_enquiries(tally):
    """Enquiries to an output that fails: none that cannot be kept is sent, none sent is lost."""
    for name, kilobytes in (("on a full disk", 0), ("on a disk that fills up", 64)):
        with Folder() as folder, Server(answering(
                lambda request: reply(report(own_name(request), "y" * 20_000)))) as server:
            (folder / "settings").write_text(json.dumps({"VedaXMLAU": lender(server.url())}))
            names = [f"Applicant{chr(65 + at)}" for at in range(10)]
            jobs = "".join(json.dumps({"Country": "AU", "Request": {**ENQUIRY, "LastName": one}})
                           + "\n" for one in names)
            command = [HOST, "enquire", "--ndjson", "--settings", folder / "settings", "--output",
                       folder / "disk" / "out"]
            if not kilobytes:
                kilobytes = 4   # room for nothing: the smallest there is, filled below
                command = ["sh", "-c", f'cat /dev/zero >"{folder}/disk/filler"; exec "$@"', "sh",
                           *command]
            done = on_a_small_disk(folder, kilobytes, command, jobs.encode())
            if done is None:
                continue
            kept = done.out + b"".join(path.read_bytes() for path in (folder / "kept").iterdir())
            lost = [one for one in names[:server.posts] if one.encode() not in kept]
            tally.expect(f"enquiries {name}: none is sent and lost, and the exit status says so",
                         not lost and done.status not in (0, None) and not done.died and
                         (server.posts == 0 or name != "on a full disk"),
                         f"{server.posts} sent, {len(lost)} lost: {done}")
            tally.expect(f"enquiries {name}: one message that tells of it", done.err.strip() and
                         len(done.err.splitlines()) <= 4, done)


def examine_output(tally):
    """An output that cannot be opened is told before anything is sent."""
    for place in ("missing/out", "."):
        with Folder() as folder, Server(answering(lambda _request: reply(report()))) as server:
            (folder / "settings").write_text(json.dumps({"VedaXMLAU": lender(server.url())}))
            job = json.dumps({"Country": "AU", "Request": ENQUIRY}) + "\n"
            done = host("enquire", "--ndjson", "--settings", folder / "settings", "--output",
                        folder / place, given=job.encode())
            tally.expect("an output that cannot be opened: nothing is sent", server.posts == 0 and
                         done.status not in (0, None) and not done.died and done.err.strip(), done)


def examine_interruptions(tally):
    """Calls that are interrupted, or do less than asked, change nothing."""
    reply_text = (EXAMPLES / "vedaxml_au_adverse.xml").read_text()
    with Folder() as folder:
        jobs = folder / "jobs"
        jobs.write_bytes(jobs_of([reply_text] * 20))
        command = ["translate", "--input", jobs, "--quiet"]
        wanted = host(*command).out
        # What the loader reads is not the program's to read again: only its own file fails.
        for calls, when, path in (("read,pread64,readv", "1+2", jobs), (WRITING, "1+3", None),
                                  ("poll,ppoll", "1+2", None), ("fsync,fdatasync", "1+2", None)):
            done = failing(folder, calls, "EINTR", when, path, command)
            tally.expect("interrupted calls change nothing", done.status == 0 and
                         done.out == wanted, f"{calls}: {done}")


def examine_starting(tally):
    """Starting up with calls that fail: it runs or ends with a word, and never hangs."""
    for calls in ("getrandom", "clone3,clone", "eventfd2,pipe2,pipe", "socket", "mmap",
                  "getcwd,readlink", "sched_getaffinity", "prlimit64", "ioctl,fstat,newfstatat"):
        with Folder() as folder:
            for when in ("5+", "25+", "60+"):
                done = failing(folder, calls, "ENOMEM" if calls == "mmap" else "EAGAIN",
                               when, None, ["translate", EXAMPLES / "vedaxml_au_clean.xml",
                                            "--service", "VedaXMLAU"], limit=30)
                # Libraries that cannot be loaded end a program before it begins (127).
                tally.expect("calls that fail at the start: an answer or a word",
                             not done.late and done.status in (0, 1, 2, 127) and
                             (done.status == 0 or done.err.strip()), f"{calls} {when}: {done}")


def examine(tally, bounded):
    whens = [1, 2] if bounded else [1, 2, 3, 5, 8]
    side_by_side(lambda case: examine_batch(tally, *case),
                 [(name, error, when) for name, error in FAILURES.items() for when in whens])
    for name, error in FAILURES.items():
        examine_sync(tally, name, error)
    examine_enquiries(tally)
    examine_output(tally)
    examine_single(tally)
    examine_interruptions(tally)
    examine_starting(tally)
