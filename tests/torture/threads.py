"""Eight facades on eight threads under the thread sanitizer: no race, the same results."""

from kit import BUILD, run

PROGRAM = BUILD / "thread" / "bin" / "test_facade"


def examine(tally, bounded):
    if bounded and not PROGRAM.exists():
        return  # a build of its own, which the bounded share does without
    done = run([PROGRAM, "--gtest_filter=Threads.*"], limit=500, environment={
        "TSAN_OPTIONS": "halt_on_error=1 exitcode=66"})
    passed = done.out.count(b"[       OK ]")
    tally.expect("eight threads", done.status == 0 and passed > 0 and
                 b"WARNING: ThreadSanitizer" not in done.err, done.said()[-2000:])
