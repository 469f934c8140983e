"""The stand-in's faults by name, over HTTPS: the message, and how many enquiries arrived."""

import re

from kit import GATEWAY, Bureau, Folder, enquire, run, side_by_side

LOST, INVALID = "error -2147012866)", "error -2147012744)"
SECURITY, HOST_NAME = "error -2147012721)", "error -2147012858)"
EXPIRED, UNKNOWN = "error -2147012859)", "error -2147012851)"
NOT_XML = "The response received was not a valid XML document."
STATUS = "An unexpected Status response of"

# fault: what the message says, "" where the report is right; enquiries that the bureau saw
FAULTS = {
    "delay-accept=300": ("", 1),
    "delay-tls=300": ("", 1),
    "drop-connect": (LOST + "|" + SECURITY, 0),
    "not-tls": (SECURITY + "|" + LOST, 0),
    "cert-host": (HOST_NAME, 0),
    "cert-expired": (EXPIRED, 0),
    "cert-unknown": (UNKNOWN, 0),
    "status=401": ("user|" + STATUS, 1),
    "status=500": (STATUS, 1),
    "status=302": (STATUS, 1),
    "delay-headers=300": ("", 1),
    "delay-body=300": ("", 1),
    "drop-before-headers": (LOST, 1),
    "drop-in-headers": (LOST, 1),
    "drop-in-body": (LOST, 1),
    "truncate": (LOST, 1),
    "oversize=30000000": ("", 1),
    "oversize=80000000": (INVALID, 1),
    "slow-body=50": ("", 1),
    "charset=utf-16le": ("", 1),
    "charset=utf-16be": ("", 1),
    "charset=iso-8859-1": ("", 1),
    "charset=klingon": (INVALID, 1),
    "bom": ("", 1),
    "bom=utf-16le": ("", 1),
    "html": (NOT_XML, 1),
    "redirect": (STATUS, 1),
    "malformed": (NOT_XML, 1),
    "entity": (NOT_XML, 1),
    "deep": (NOT_XML, 1),
    "attributes": (NOT_XML, 1),
    "empty": (NOT_XML, 1),
    "not-http": (INVALID, 1),
}


def examine_fault(tally, fault):
    expected, arrived = FAULTS[fault]
    with Folder() as folder, Bureau(folder, "--fault", fault) as bureau:
        done = enquire(bureau.url, environment=bureau.trusted())
        message = done.json().get("ErrorMessage", done.said())
        faults = []
        if done.died or done.status != (1 if expected else 0):
            faults.append(str(done))
        if not any(part in message for part in expected.split("|")):
            faults.append(f"message {message!r}")
        if not expected and done.json().get("Response", {}).get("LastName") != "Clean":
            faults.append("the report is missing")
        if bureau.exchanges() != arrived:
            faults.append(f"{bureau.exchanges()} enquiries arrived")
    tally.faultless(fault, faults)


def examine(tally, _bounded):
    listed = re.findall(rb"^  ([a-z]+(?:-[a-z]+)*)(?:=[A-Z]+|\[=[A-Z]+\])?  +", run(
        [GATEWAY, "--help"]).out.partition(b"Faults, KIND")[2], re.M)
    known = {fault.partition("=")[0] for fault in FAULTS}
    unknown = [name.decode() for name in listed if name.decode() not in known]
    tally.expect("every fault of the stand-in has a case", listed and not unknown, unknown)
    side_by_side(lambda fault: examine_fault(tally, fault), FAULTS, 4)
