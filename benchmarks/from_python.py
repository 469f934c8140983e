"""What reading a reply from Python costs beside the translation in C++: from_python.py REPLY CPP_US."""

from __future__ import annotations

import datetime
import pathlib
import sys
import time
from collections.abc import Callable

import zrcreditbureau as zr

REPLY = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
DAY = datetime.date(2014, 6, 15)


def new_request() -> tuple[zr.ZRCreditBureau, zr.Request]:
    bureau = zr.ZRCreditBureau()
    bureau.Initialise("AU")
    request = bureau.CreateRequest()
    request.ServiceName = "VedaXMLAU"
    request.ProductId = "consumer-enquiry"
    return bureau, request


def translate(bureau: zr.ZRCreditBureau, request: zr.Request) -> zr.ResponseElements:
    if not bureau.BuildResponse(request, DAY, REPLY):
        sys.exit(bureau.ErrorMessage())
    return request.Response.ResponseElements


def read_lines(lines: zr.ResponseElements) -> None:
    for line in lines:
        line.ResponseGroup
        line.ResponseGroupSort
        line.ResponseSubGroup
        line.ResponseName
        line.ResponseDescription


def least(run: Callable[[], object]) -> float:
    """Microseconds of one run: what it costs when the machine does nothing else."""
    times = []
    for _ in range(15):
        start = time.process_time()
        for _ in range(100):
            run()
        times.append((time.process_time() - start) * 10_000)
    return min(times)


host = new_request()
for name, bar, run in [
    ("Python: translate", "", lambda: translate(*host)),
    ("Python: translate and read each line", "1.7", lambda: read_lines(translate(*host))),
    ("Python: translate and read as rows", "", lambda: translate(*host).rows()),
    ("Python: lines with a new facade", "2.0", lambda: read_lines(translate(*new_request()))),
]:
    taken = least(run)
    print(f"{name:38} {taken:10.1f} {taken / float(sys.argv[2]):12.3f} {bar:>10}")
