#!/usr/bin/env python3
"""Translates stored replies the plain way: lxml parses, an XPath is evaluated for every value.

naive_translate.py LAYOUTS JOBS > RESULTS

JOBS has one translation job a line, as `zrcreditbureau translate --ndjson` reads them; RESULTS gets
one line each: the report's lines, and the counts of its records by year. LAYOUTS says where the
values of each kind of report are. This is what one would write without the component, for its cost;
the texts are not the component's in every detail. Paths are compiled once.
"""

import datetime
import functools
import json
import sys

from lxml import etree

REPORT = "BCAservices/BCAservice/BCAservice-data/response/enquiry-report"
NAMES = ("individual-name/first-given-name", "individual-name/other-given-name",
         "individual-name/family-name")
MONTHS = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()


@functools.lru_cache(maxsize=None)
def compiled(path):
    return etree.XPath(path)


def select(node, path):
    return compiled(path)(node)


def text_at(node, path):
    found = select(node, path)
    if not found:
        return ""
    first = found[0]
    return (first if isinstance(first, str) else "".join(first.itertext())).strip()


def as_date(text):
    try:
        return datetime.date.fromisoformat(text[:10])
    except ValueError:
        return None


def piece_text(node, piece, position):
    if piece["condition"] and not select(node, piece["condition"]):
        return ""
    form = piece["form"]
    if piece["parts"]:
        nodes = select(node, piece["path"]) if piece["path"] else [node]
        text = piece["separator"].join(pieces_text(each, piece["parts"], position)
                                       for each in nodes)
    elif form == "name":
        text = " ".join(filter(None, (text_at(node, name) for name in NAMES)))
    elif form == "position":
        text = str(position)
    elif piece["path"]:
        text = text_at(node, piece["path"])
        if form == "date":
            date = as_date(text)
            text = f"{date.day:02}-{MONTHS[date.month - 1]}-{date.year % 100:02}" if date else ""
        elif form == "money":
            try:
                text = f"${float(text or 0):,.2f}"
            except ValueError:
                pass
    else:
        return piece["before"] + piece["after"]
    return piece["before"] + text + piece["after"] if text else ""


def pieces_text(node, pieces, position):
    return "".join(piece_text(node, piece, position) for piece in pieces)


def report_lines(sources, layout, prefix):
    lines = []
    for section in layout["sections"]:
        if section["source"] >= len(sources):
            continue
        for position, record in enumerate(select(sources[section["source"]], section["records"]),
                                          start=1):
            number = text_at(record, section["id"]) if section["id"] else str(position)
            for line in section["lines"]:
                for node in select(record, line["each"]) if line["each"] else [record]:
                    value = pieces_text(node, line["value"], position)
                    if value:
                        lines.append({"ResponseGroup": prefix + section["group"],
                                      "ResponseSubGroup": f"{section['sub_group']} {number}",
                                      "ResponseName": pieces_text(node, line["label"], position),
                                      "ResponseDescription": value})
    return lines


def statistics(source, layout, day):
    counts = []
    for category in layout["statistics"]:
        years = [0] * 5
        values = []
        for record in select(source, category["records"]):
            years[0] += 1
            date = as_date(text_at(record, category["date"])) if category["date"] else None
            for year in range(1, 5):
                if date and date > day.replace(year=day.year - year):
                    years[year] += 1
            values.append([text_at(record, path) for path in category["values"]])
        counts.append({"Counts": years, "Values": values})
    return counts


def translate(job, layouts):
    service = job["Request"]["ServiceName"]
    day = datetime.date.fromisoformat(job["ResponseDate"])
    root = etree.fromstring(job["ResponseXML"].encode())
    report = select(root, REPORT)[0]
    match = select(report, "primary-match")
    company = select(report, "company-report")
    person_layout = layouts[service + " person"]
    if match:
        return {"Result": True, "Statistics": statistics(match[0], person_layout, day),
                "ResponseElements": report_lines([match[0], report], person_layout, "")}
    if not company:
        return {"Result": True, "Statistics": statistics(report, person_layout, day),
                "ResponseElements": report_lines([report], person_layout, "")}
    company_layout = layouts[service + " company"]
    counts = statistics(report, company_layout, day)
    lines = report_lines(company, company_layout, "")
    for director in select(report, "director-report"):
        counts += statistics(director, person_layout, day)
        lines += report_lines([director], person_layout, "Director: ")
    return {"Result": True, "Statistics": counts, "ResponseElements": lines}


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        layouts = json.load(file)
    with open(sys.argv[2], encoding="utf-8") as jobs:
        for line in jobs:
            print(json.dumps(translate(json.loads(line), layouts), ensure_ascii=False,
                             separators=(",", ":")))


if __name__ == "__main__":
    main()
