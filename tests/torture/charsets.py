"""Replies in every encoding that the machine knows, and in none: the right text, or refused."""

import json
import subprocess

from kit import ENQUIRY, Folder, enquire, host, lender, side_by_side, translate
from servers import Server, answering, reply, report

INVALID, NOT_XML = "error -2147012744)", "The response received was not a valid XML document."
REFUSED = (INVALID, NOT_XML)
WORD = "Zoë"
LONE_LOW, LONE_HIGH = b"\x00\xdc", b"\x00\xd8"
MARK8, MARK16 = b"\xef\xbb\xbf", b"\xff\xfe"


def wide(text):
    return text.encode("utf-16-le")


BROKEN16 = report("A%B").split("%")

# name: the reply's bytes, its Content-Type's charset, the family name that comes of it or None
REPLIES = {
    "UTF-8": (report(WORD).encode(), "utf-8", WORD),
    "UTF-8, not told": (report(WORD).encode(), None, WORD),
    "UTF-8 with a mark": (MARK8 + report(WORD).encode(), None, WORD),
    "a mark that contradicts the charset": (MARK8 + report(WORD).encode(), "iso-8859-1", WORD),
    "Latin-1": (report(WORD).encode("latin-1"), "iso-8859-1", WORD),
    "Latin-1 in quotes": (report(WORD).encode("latin-1"), '"ISO-8859-1"', WORD),
    "UTF-16 with a mark": (MARK16 + wide(report(WORD)), None, WORD),
    "UTF-16, told": (wide(report(WORD)), "utf-16le", WORD),
    "UTF-16, big-endian": (report(WORD).encode("utf-16-be"), "utf-16be", WORD),
    "UTF-7": (report("+AFo-").encode(), "utf-7", None),
    "HZ": (report("~{<:~}").encode(), "hz-gb-2312", None),
    "no charset at all": (report(WORD).encode(), "klingon", None),
    "a charset with a path": (report(WORD).encode(), "../../etc/passwd", None),
    "a charset with a suffix": (report(WORD).encode(), "utf-8//IGNORE", None),
    "a long charset": (report(WORD).encode(), "x" * 5000, None),
    "two marks": (MARK8 * 2 + report(WORD).encode(), None, None),
    "two wide marks": (MARK16 * 2 + wide(report(WORD)), None, None),
    "a lone low surrogate": (MARK16 + wide(BROKEN16[0]) + LONE_LOW + wide(BROKEN16[1]), None, None),
    "a lone high surrogate": (MARK16 + wide(BROKEN16[0]) + LONE_HIGH + wide(BROKEN16[1]), None,
                              None),
    "a surrogate written as UTF-8": (report("A%").encode().replace(b"%", b"\xed\xa0\x80"), None,
                                     None),
    "half a character": (MARK16 + wide(report(WORD)) + b"\x3c", None, None),
    "NULs between": (report(WORD).encode().replace(b"><", b">\0<"), None, None),
}


def examine_reply(tally, name):
    data, charset, wanted = REPLIES[name]
    told = f"Content-Type: text/xml; charset={charset}\r\n" if charset else \
        "Content-Type: text/xml\r\n"
    with Server(answering(lambda _request: reply(data, headers=told))) as server:
        done = enquire(server.url())
        result = done.json()
        got = result.get("Response", {}).get("LastName")
        held = done.status == 0 and got == wanted if wanted else \
            done.status == 1 and any(part in result.get("ErrorMessage", "") for part in REFUSED)
        tally.expect("read rightly" if wanted else "refused", held and not done.died,
                     f"{name}: {got!r}, {result.get('ErrorMessage')!r}, {done}")


def examine_all(tally):
    """Every charset that iconv lists: a reply in it is read or refused, and the run goes on."""
    listed = subprocess.run(["iconv", "-l"], capture_output=True, text=True, check=True).stdout
    names = [name.rstrip("/") for name in listed.replace(",", " ").split()]
    names = [name for name in names if name.isascii() and "//" not in name]
    asked = iter(names)

    def answer(_request):
        return reply(report("Plain"), headers=f"Content-Type: text/xml; charset={next(asked)}\r\n")

    with Server(answering(answer)) as server, Folder() as folder:
        (folder / "settings").write_text(json.dumps({"VedaXMLAU": lender(server.url())}))
        job = json.dumps({"Country": "AU", "Request": ENQUIRY}) + "\n"
        done = host("enquire", "--ndjson", "--settings", folder / "settings",
                    given=(job * len(names)).encode(), limit=200)
        results = [json.loads(line) for line in done.out.splitlines()]
        for name, result in zip(names, results + [{}] * (len(names) - len(results))):
            got = result.get("Response", {}).get("LastName", "")
            refused = not result.get("Result", True) and result.get("ErrorMessage")
            read = result.get("Result") and got in decoded(report("Plain"), name)
            tally.expect("every charset that iconv lists: read or refused", read or refused,
                         f"{name}: {got!r}")


def decoded(text, charset):
    """The text as the charset has it."""
    return subprocess.run(["iconv", "-f", charset, "-t", "UTF-8"], input=text.encode(),
                          capture_output=True, check=False).stdout.decode("utf-8", "replace")


# name: a document, whether it is accepted
DOCUMENTS = {
    "a namespace with a blank": ('<a xmlns="a b"/>', True),
    "a namespace that is no address": ('<a xmlns="::"/>', True),
    "an encoding that is not the text's": ('<?xml version="1.0" encoding="utf-16"?><a/>', True),
    "a web page": ("<html/>", False),
    "a web page in capitals": ("<HTML><BODY/></HTML>", False),
    "a web page in a namespace": ('<x:html xmlns:x="urn:x"/>', False),
    "a web page behind a declaration": ('<!DOCTYPE html><html/>', False),
    "a page within a document": ("<a><html/></a>", True),
    "a name that begins so": ("<htmlx/>", True),
}


def examine_documents(tally):
    for name, (text, accepted) in DOCUMENTS.items():
        with Folder() as folder:
            (folder / "reply.xml").write_text(text)
            done = translate(folder / "reply.xml")
            tally.expect("documents that are accepted" if accepted else "web pages are refused",
                         done.status == (0 if accepted else 1) and
                         (accepted or NOT_XML in done.json().get("ErrorMessage", "")),
                         f"{name}: {done}")


def examine(tally, _bounded):
    side_by_side(lambda name: examine_reply(tally, name), REPLIES)
    examine_all(tally)
    examine_documents(tally)
