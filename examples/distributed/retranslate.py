"""Translates a store of replies again, on a Dask cluster or in this process: report lines as CSV.

usage: retranslate.py STORE OUTPUT.csv YYYY-MM-DD [--scheduler-file FILE] [--shard 1000]

STORE is a folder of replies that every worker sees under the same name, as it sees the folder
beside OUTPUT.csv where each task leaves its part. A part has its name only when it is whole, and the bytes of a part are
the same whoever makes it, so a task that is run twice, or again after its worker died, does no harm,
and a run that is broken off goes on where it was. OUTPUT.csv is the parts one behind the other.
"""

from __future__ import annotations

import argparse
import csv
import datetime
import hashlib
import os
import pathlib
import sys
import uuid
from collections.abc import Iterable, Sequence
from typing import Any

import zrcreditbureau

SERVICE, COUNTRY, PRODUCT = "VedaXMLAU", "AU", "consumer-enquiry"


def translate_part(names: list[str], day: datetime.date, part: str) -> list[str]:
    """Writes the lines of these replies to the part; what to say of the replies that failed."""
    said = []
    unfinished = f"{part}.{uuid.uuid4().hex}"
    with zrcreditbureau.ZRCreditBureau() as bureau, open(unfinished, "w", encoding="utf-8", newline="") as out:
        bureau.Initialise(COUNTRY)
        request = bureau.CreateRequest()
        request.ServiceName = SERVICE
        request.ProductId = PRODUCT
        writer = csv.writer(out)
        for name in names:
            try:
                text = pathlib.Path(name).read_text(encoding="utf-8-sig")
            except (OSError, UnicodeError) as error:
                said.append(f"{name}: {type(error).__name__}")
                continue
            if bureau.BuildResponse(request, day, text):
                writer.writerows((name, *row) for row in request.Response.ResponseElements.rows())
            else:
                said.append(f"{name}: {bureau.ErrorMessage()}")
    os.replace(unfinished, part)
    return said


def results(work: Sequence[tuple[Any, ...]], scheduler: str | None) -> Iterable[list[str]]:
    """Does the work here, or on the cluster: what each task has to say."""
    if scheduler is None:
        yield from (translate_part(*task) for task in work)
        return
    import distributed

    with distributed.Client(scheduler_file=scheduler) as client:  # type: ignore[no-untyped-call]
        tasks = client.map(lambda task: translate_part(*task), work, pure=False, retries=3)
        done = distributed.as_completed(tasks, with_results=True)  # type: ignore[no-untyped-call]
        for task, said in done:
            task.release()
            yield said


def main() -> int:
    parser = argparse.ArgumentParser(description=(__doc__ or "").splitlines()[0])
    parser.add_argument("store", type=pathlib.Path)
    parser.add_argument("output", type=pathlib.Path)
    parser.add_argument("day", type=datetime.date.fromisoformat, help="the day of the replies, YYYY-MM-DD")
    parser.add_argument("--scheduler-file", help="what a Dask scheduler wrote of itself; else this process works")
    parser.add_argument("--shard", type=int, default=1000, help="replies a task (%(default)s)")
    given = parser.parse_args()

    names = sorted(str(path) for path in given.store.glob("*.xml"))
    run = repr((names, given.day, given.shard, SERVICE, PRODUCT, zrcreditbureau.__version__))
    key = hashlib.sha256(run.encode()).hexdigest()[:12]
    folder = given.output.with_name(f"{given.output.name}.parts-{key}")
    parts = [folder / f"{at // given.shard:06}" for at in range(0, len(names), given.shard)]
    work = [(names[at * given.shard : (at + 1) * given.shard], given.day, str(part))
            for at, part in enumerate(parts) if not part.exists()]
    if not names:
        parser.error(f"{given.store} has no replies (*.xml)")
    folder.mkdir(exist_ok=True)
    failed = 0
    for done, said in enumerate(results(work, given.scheduler_file), 1):
        failed += len(said)
        print("\n".join([*said, f"{done} of {len(work)} parts"]), file=sys.stderr)
    unfinished = given.output.with_name(given.output.name + ".part")
    with open(unfinished, "wb") as out:
        out.write(",".join(("File", *zrcreditbureau.ResponseElements.fields)).encode() + b"\r\n")
        for part in parts:
            out.write(part.read_bytes())
    os.replace(unfinished, given.output)
    for left in folder.iterdir():
        left.unlink()
    folder.rmdir()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
