"""Runs groups of cases and prints the table: case, tried, held."""

import argparse
import importlib
import signal
import sys
import time

from kit import BUILD, Tally

# Each group is a file with examine(tally, bounded); its first line of comment says what it shows.
GROUPS = ["conformance", "doctype", "shapes", "network", "gateway", "tls", "redirects", "proxies",
          "charsets", "surroundings", "canaries", "sheets", "allocator", "batches", "kills", "machine",
          "endurance", "threads", "fuzzing"]
SHOWN = 5  # faults a case that are printed; all are in the file


def arguments():
    parser = argparse.ArgumentParser(
        prog="./torture", formatter_class=argparse.RawDescriptionHelpFormatter,
        description="Attacks the component and prints a table of what was tried and what held.",
        epilog="groups:\n" + "\n".join(f"  {name:14}{about(name)}" for name in GROUPS) +
        "\n\nExit status 0 when everything held. What did not is told below the table and in\n"
        "build/torture/faults.txt.")
    parser.add_argument("group", nargs="*", choices=[[], *GROUPS], metavar="GROUP",
                        help="only these groups; all when none is named")
    parser.add_argument("--bounded", action="store_true",
                        help="the share that fits before a change lands, a few minutes on two "
                             "processors, with the builds that are there")
    parser.add_argument("--fuzz-runs", type=int, metavar="N", default=0,
                        help="executions of each fuzz target (ten million take hours)")
    return parser.parse_args()


def about(name):
    return importlib.import_module(name).__doc__.strip().splitlines()[0]


def main():
    given = arguments()
    # Where they are ignored, as by nohup and behind "&", what is started here would ignore them too.
    signal.signal(signal.SIGHUP, signal.SIG_DFL)
    signal.signal(signal.SIGINT, signal.default_int_handler)
    names = given.group or (GROUPS if not given.fuzz_runs else ["fuzzing"])
    folder = BUILD / "torture"
    folder.mkdir(parents=True, exist_ok=True)
    failed = 0
    faults = []
    print(f"{'case':<66} {'tried':>7} {'held':>7}", flush=True)
    for name in names:
        module = importlib.import_module(name)
        tally, begun = Tally(name), time.monotonic()
        more = [given.fuzz_runs] if name == "fuzzing" else []
        try:
            module.examine(tally, given.bounded, *more)
        except Exception as error:  # the other groups are still to come
            tally.expect("the group came to its end", False, repr(error))
        for case, (tried, held) in sorted(tally.rows.items()):
            print(f"{name + ': ' + case:<66} {tried:>7} {held:>7}{'' if tried == held > 0 else '  *'}")
            failed += not tried == held > 0
        print(f"{'':<4}({name}: {time.monotonic() - begun:.0f} s)", flush=True)
        faults += [f"{name}: {case}: {told}" for case, told in tally.faults]
    (folder / "faults.txt").write_text("\n".join(faults) + "\n")
    shown = {}
    for fault in faults:
        case = ": ".join(fault.split(": ")[:2])
        shown[case] = shown.get(case, 0) + 1
        if shown[case] <= SHOWN:
            print(fault[:600], file=sys.stderr)
    print(f"{failed} cases did not hold." if failed else "Everything held.")
    return 1 if failed else 0


sys.exit(main())
