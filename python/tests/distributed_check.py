"""The example for a Dask cluster: a worker is killed in the middle of a run, and its output is byte for
byte that of one process and of the command line under GNU parallel.

usage: distributed_check.py ZRCREDITBUREAU [REPLIES]
"""

from __future__ import annotations

import pathlib
import signal
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
REPLIES = int(sys.argv[2]) if len(sys.argv) > 2 else 6000
SHARD = 1000
DAY = "2012-06-15"


def make_store(store: pathlib.Path) -> None:
    """Many replies of two kinds, and one that cannot be read among them."""
    texts = [(ROOT / "examples" / f"vedaxml_au_{name}.xml").read_bytes() for name in ("adverse", "clean")]
    store.mkdir()
    for at in range(REPLIES):
        (store / f"{at:07}.xml").write_bytes(texts[at % 2] if at != REPLIES // 2 else b"<torn")


def retranslate(store: pathlib.Path, output: pathlib.Path, *more: str) -> subprocess.Popen[bytes]:
    script = ROOT / "examples/distributed/retranslate.py"
    return subprocess.Popen([sys.executable, script, store, output, DAY, "--shard", str(SHARD), *more],
                            stderr=subprocess.PIPE)


def ends(process: subprocess.Popen[bytes]) -> None:
    said = process.communicate(timeout=500)[1].decode()
    if process.returncode != 1 or said.count(".xml:") != 1:  # the torn reply
        raise SystemExit(f"distributed_check: status {process.returncode}: {said}")


def dask(work: pathlib.Path, part: str, *options: str) -> subprocess.Popen[bytes]:
    with open(work / f"{part}.log", "ab") as log:
        return subprocess.Popen([sys.executable, "-m", f"distributed.cli.dask_{part}", *options],
                                stdout=log, stderr=log, cwd=work)


def on_dask(work: pathlib.Path, store: pathlib.Path, output: pathlib.Path) -> None:
    address = work / "scheduler.json"
    scheduler = dask(work, "scheduler", "--host", "127.0.0.1", "--port", "0", "--no-dashboard",
                     "--scheduler-file", str(address))
    started = [scheduler]
    try:
        worker = ("--no-nanny", "--nthreads", "1", "--no-dashboard", "--scheduler-file", str(address))
        started += [dask(work, "worker", *worker, "--name", name) for name in ("one", "two")]
        while not address.exists():
            time.sleep(0.05)
        run = retranslate(store, output, "--scheduler-file", str(address))
        parts = output.parent
        while run.poll() is None and not list(parts.glob(f"{output.name}.parts-*/*[0-9]")):
            time.sleep(0.01)
        if run.poll() is not None:
            raise SystemExit("distributed_check: over before a worker could be killed")
        started[1].send_signal(signal.SIGKILL)
        ends(run)
    finally:
        for process in started:
            process.kill()
            process.wait()


def under_parallel(work: pathlib.Path, store: pathlib.Path, output: pathlib.Path) -> None:
    recipe = (ROOT / "examples/distributed/parallel.sh", store, output, DAY, str(-(-REPLIES // SHARD)))
    done = subprocess.run(["bash", *recipe], cwd=work, env={"PATH": f"{pathlib.Path(PROGRAM).parent}:/usr/bin:/bin",
                                                            "HOME": str(work)})
    if done.returncode != 1:
        raise SystemExit(f"distributed_check: GNU parallel ended with {done.returncode}")


def main() -> None:
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        store = work / "store"
        make_store(store)
        ways: dict[str, Callable[[pathlib.Path], None]] = {
            "one process": lambda output: ends(retranslate(store, output)),
            "dask, a worker killed": lambda output: on_dask(work, store, output),
            "parallel": lambda output: under_parallel(work, store, output),
        }
        took = {}
        for name, run in ways.items():
            start = time.monotonic()
            run(work / f"{name}.csv")
            took[name] = time.monotonic() - start
        whole = [(work / f"{name}.csv").read_bytes() for name in took]
        if len(set(whole)) != 1 or whole[0].count(b"\n") < 10 * REPLIES:
            raise SystemExit(f"distributed_check: the outputs differ: {[len(one) for one in whole]}")
        for name, seconds in took.items():
            print(f"{name}: {REPLIES} replies, {seconds:.1f} s, the same {len(whole[0])} bytes")


if __name__ == "__main__":
    main()
