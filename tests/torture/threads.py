"""Facades on threads of their own under the thread sanitizer, in C++ and through the handles of the
C library: no race, the same results."""

from kit import BUILD, run

PROGRAMS = {"eight threads": ("test_facade", "Threads.*"),
            "threads that share handles": ("test_c_abi", "CAbi.ServesThreads*")}


def examine(tally, bounded):
    folder = BUILD / "thread" / "bin"
    if bounded and not folder.exists():
        return  # a build of its own, which the bounded share does without
    for case, (program, tests) in PROGRAMS.items():
        done = run([folder / program, f"--gtest_filter={tests}"], limit=500, environment={
            "TSAN_OPTIONS": "halt_on_error=1 exitcode=66"})
        passed = done.out.count(b"[       OK ]")
        tally.expect(case, done.status == 0 and passed > 0 and
                     b"WARNING: ThreadSanitizer" not in done.err, done.said()[-2000:])
