"""The lines of a stored reply as CSV, and its summary on standard error.

usage: report_lines.py REPLY.xml YYYY-MM-DD > lines.csv
"""

from __future__ import annotations

import csv
import datetime
import pathlib
import sys

import zrcreditbureau


def main() -> int:
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    reply = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    received = datetime.date.fromisoformat(sys.argv[2])
    with zrcreditbureau.ZRCreditBureau() as bureau:
        if not bureau.Initialise("AU"):
            print(bureau.ErrorMessage(), file=sys.stderr)
            return 1
        request = bureau.CreateRequest()
        request.ServiceName = "VedaXMLAU"
        request.ProductId = "consumer-enquiry"
        if not bureau.BuildResponse(request, received, reply):
            print(bureau.ErrorMessage(), file=sys.stderr)
            return 1
        response = request.Response
        print(f"{response.Name}: {response.DefaultCountUnpaid} unpaid defaults, "
              f"{response.DefaultLoadedBalance} owed", file=sys.stderr)
        lines = response.ResponseElements
        writer = csv.writer(sys.stdout)
        writer.writerow(lines.fields)
        writer.writerows(lines.rows())
    return 0


if __name__ == "__main__":
    sys.exit(main())
