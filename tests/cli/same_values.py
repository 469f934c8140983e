#!/usr/bin/env python3
"""Holds three forms of the results of one archive against one another, value by value:
same_values.py NAME [LEAST], for NAME.db, NAME.ndjson (of summary and lines), NAME.csv and
NAME.lines.csv, of which there are at least so many replies."""

import csv
import decimal
import json
import sqlite3
import sys

name, least = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1
database = sqlite3.connect(name + ".db")
database.row_factory = sqlite3.Row
results = [json.loads(line, parse_float=decimal.Decimal) for line in open(name + ".ndjson", encoding="utf-8")]
replies = database.execute("SELECT * FROM replies ORDER BY Id").fetchall()
rows = list(csv.DictReader(open(name + ".csv", newline="", encoding="utf-8")))
values = 0
def same(field, kept, row, meant):
    global values
    number = isinstance(meant, (int, decimal.Decimal)) and kept is not None
    assert (decimal.Decimal(repr(kept)) if number else kept) == meant, (field, kept, meant)
    text = "" if meant is None else str(meant).lower() if isinstance(meant, bool) else str(meant)
    assert row == text, (field, row, text)
    values += 1
assert len(results) == len(replies) == len(rows) >= least, (len(results), len(replies), len(rows))
figures = {}
for result, reply, row in zip(results, replies, rows):
    response = result.pop("Response")
    lines, companies = response.pop("ResponseElements"), response.pop("CompanySelections")
    for field, meant in {**result, **response}.items():
        same(field, reply[field], row[field], meant)
    assert set(reply.keys()) - {"Id"} == set(row) and len(row) == 6 + len(response)
    for table, meant in ("lines", lines), ("companies", companies):
        kept = [dict(one) for one in database.execute(
            f"SELECT * FROM {table} WHERE Reply = ? ORDER BY Number", (reply["Id"],))]
        assert [list(one.values())[2:] for one in kept] == [list(one.values()) for one in meant]
        assert [one["Number"] for one in kept] == list(range(1, len(meant) + 1))
    kept = dict(database.execute("SELECT Name, Value FROM statistics WHERE Reply = ?", (reply["Id"],)).fetchall())
    meant = {field: value for field, value in response.items()
             if isinstance(value, (int, decimal.Decimal)) and not isinstance(value, bool) and value}
    assert {field: decimal.Decimal(repr(value)) for field, value in kept.items()} == meant
    figures.update(meant)
kept = database.execute("SELECT File, ResponseGroup, ResponseGroupSort, ResponseSubGroup, ResponseName,"
                        " ResponseDescription FROM lines JOIN replies ON Reply = Id ORDER BY Id, Number").fetchall()
rows = [tuple(row.values()) for row in csv.DictReader(open(name + ".lines.csv", newline="", encoding="utf-8"))]
assert [tuple(one) for one in kept] == rows and len(rows) > 100
assert {"DefaultCountUnpaid", "DefaultLoadedValue"} <= set(figures), sorted(figures)
plan = " ".join(row[3] for row in database.execute("EXPLAIN QUERY PLAN SELECT * FROM lines WHERE ResponseGroup = 'x'"))
assert "lines_by_label" in plan, plan
assert values > 300, values
