#!/usr/bin/env python3
"""Replies to look at, from the examples: each repeats, drops and changes records of one example by a
seed, so that the same seed gives the same replies. Beside every reply lies the job that translates it.

make_replies.py FOLDER [--seed N] [--count N]"""
import argparse
import copy
import json
import pathlib
import random
import shutil
import xml.etree.ElementTree as ET

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"

# Example, service, product.
SOURCES = [
    ("vedaxml_au_adverse", "VedaXMLAU", "consumer-enquiry"),
    ("b2bay_au", "B2BayAU", "consumer-enquiry"),
    ("vedaxml_nz_person", "VedaXMLNZ", "enquiry_individual"),
    ("vedaxml_nz_company_directors", "VedaXMLNZ", "enquiry_company_with_directors"),
    ("b2bay_nz_individual", "B2BayNZ", "enquiry_individual"),
    ("b2bay_nz_company", "B2BayNZ", "enquiry_company"),
    ("b2bay_nz_v2_individual", "B2BayNZ_V2", "enquiry_individual"),
    ("b2bay_nz_v2_company_directors", "B2BayNZ_V2", "enquiry_company_with_directors"),
]
# Those of the examples that are no reports.
OTHERS = [
    ("vedaxml_au_clean", "VedaXMLAU", "consumer-enquiry"),
    ("vedaxml_au_company_search", "VedaXMLAU", "consumer-enquiry"),
    ("vedaxml_au_refused", "VedaXMLAU", "consumer-enquiry"),
]
RECORDS = {
    "default", "court-action", "bankruptcy", "disqualified-directorship", "credit-enquiry", "judgement",
    "insolvency", "collection", "public-notice", "company-default", "company-judgement",
    "company-collection", "company-public-notice", "company-credit-enquirer",
    "company-mercantile-gazette", "alias", "director-report", "directorship",
}
STATUSES = ["Registered", "In Receivership", "In Liquidation", "Struck off", "Removed"]


def change(chance, element):
    """One value or attribute of a record, as a bureau might have written it."""
    tag = element.tag
    text = (element.text or "").strip()
    if tag.endswith(("amount", "balance")) and text:
        element.text = chance.choice(["0", "0.00", "%d" % chance.randrange(1, 90000),
                                      "%.2f" % (chance.randrange(1, 9000000) / 100)])
    elif "date" in tag and text[:4].isdigit():
        element.text = day(chance)
    elif tag == "company-status" or tag == "organisation-status":
        element.text = chance.choice(STATUSES)
    for name, value in element.attrib.items():
        if "date" in name and value[:4].isdigit():
            element.set(name, day(chance))
        elif name == "code" and tag.endswith("default-status"):
            element.set(name, chance.choice(["P", "S", "O", "", "PP"]))
        elif name == "code" and tag == "court-action-status":
            element.set(name, chance.choice(["D", "P", "S", "O"]))
        elif name == "code" and tag == "judgement-status":
            element.set(name, chance.choice(["", "OU", "SA"]))
        elif name == "code" and tag == "insolvency-type":
            element.set(name, chance.choice(["TYPNP", "TYPDP", "TYPVL", "typcl", ""]))
        elif name == "match-type" or (name == "type" and tag in ("primary-match", "possible-match")):
            element.set(name, chance.choice(["exact", "PARTIAL", "Possible", "No Match"]))
        elif name == "indicator":
            element.set(name, chance.choice(["YES", "yes", "NO"]))


def day(chance):
    return "%04d-%02d-%02d" % (chance.randrange(1999, 2013), chance.randrange(1, 13),
                               chance.randrange(1, 29))


def mutate(chance, root):
    for parent in list(root.iter()):
        for child in list(parent):
            if child.tag not in RECORDS:
                continue
            at = list(parent).index(child)
            fate = chance.random()
            if fate < 0.2:
                parent.remove(child)
                continue
            for _ in range(chance.randrange(0, 4) if fate > 0.6 else 0):
                parent.insert(at, copy.deepcopy(child))
    for element in root.iter():
        if chance.random() < 0.5:
            change(chance, element)
    for element in root.iter():
        # Now and then a value is not there.
        for child in list(element):
            if len(child) == 0 and chance.random() < 0.04:
                element.remove(child)


def write(folder, name, content, service, product, directors=False):
    (folder / (name + ".xml")).write_bytes(content)
    country = "AU" if service.endswith("AU") else "NZ"
    settings = {"CompanyAddDirectorsStatistics": directors} if country == "NZ" else {}
    (folder / (name + ".json")).write_text(json.dumps(
        {"service": service, "product": product, "date": "2012-06-15", "settings": settings}))


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("folder", type=pathlib.Path)
    arguments.add_argument("--seed", type=int, default=13)
    arguments.add_argument("--count", type=int, default=200)
    given, _ = arguments.parse_known_args()
    shutil.rmtree(given.folder, ignore_errors=True)
    given.folder.mkdir(parents=True)
    for name, service, product in SOURCES + OTHERS:
        write(given.folder, name, (EXAMPLES / (name + ".xml")).read_bytes(), service, product)
    for number in range(given.count):
        chance = random.Random(given.seed * 100003 + number)
        name, service, product = SOURCES[number % len(SOURCES)]
        root = ET.parse(EXAMPLES / (name + ".xml")).getroot()
        mutate(chance, root)
        write(given.folder, "made_%03d_%s" % (number, name), ET.tostring(root, "utf-8", xml_declaration=True),
              service, product, chance.random() < 0.3)


if __name__ == "__main__":
    main()
