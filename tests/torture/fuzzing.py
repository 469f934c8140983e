"""Fuzz targets for each service, the job reader, the formatter, the writer and a host's calls."""

import re

from kit import BUILD, EXAMPLES, Folder, ROOT, run, side_by_side

CORPUS = ROOT / "fuzz" / "corpus"
RUNS = 200_000


def targets():
    return sorted((BUILD / "fuzz" / "bin").glob("fuzz_*"))


def examine_target(tally, target, runs):
    name = target.name.removeprefix("fuzz_")
    with Folder() as folder:
        (folder / "found").mkdir()
        seeds = [CORPUS / name] if (CORPUS / name).exists() else [CORPUS / "reply", EXAMPLES]
        done = run([target, f"-runs={runs}", "-timeout=10", "-rss_limit_mb=4096", "-max_len=65536",
                    f"-artifact_prefix={BUILD}/torture/", folder / "found", *seeds],
                   limit=24 * 3600)
        tried = re.findall(rb"^Done (\d+) runs|stat::number_of_executed_units: (\d+)", done.err,
                           re.M)
        count = int(next((part for part in tried[-1] if part), 0)) if tried else 1
        tally.count(f"executions of {name}", count, count if done.status == 0 else 0,
                    done.said()[-2000:])


def examine(tally, bounded, runs=0):
    if bounded and not runs:
        return  # the check before a change lands runs them by the clock
    found = targets()
    tally.expect("the targets are built", len(found) >= 9, [path.name for path in found])
    runs = runs or RUNS
    side_by_side(lambda target: examine_target(tally, target, runs), found)
