"""Documents of every shape, doubled: twice the size costs at most 2.3 times the instructions.

Instructions are counted by simulation, less those of starting up. Beside each pair a large document
of the shape is translated under the clock, so that what is refused is refused soon.
"""

import re

from kit import Folder, HOST, run, side_by_side, translate

MOST_RATIO = 2.3
LARGE_BYTES = 10_000_000
LARGE_SECONDS = 4.0     # CPU for ten megabytes
LARGE_MEGABYTES = 600


def reply(inner, root="BCAmessage", attributes=""):
    return f"<{root}{attributes}>{inner}</{root}>"


def lines(piece, count):
    return "".join(piece.replace("#", str(at)) for at in range(count))


def nested_report(inner):
    return reply("<BCAservices><BCAservice><BCAservice-data><response><enquiry-report>"
                 f"<primary-match>{inner}</primary-match></enquiry-report></response>"
                 "</BCAservice-data></BCAservice></BCAservices>")


# name: the document of so many pieces, the pieces of the smaller of the pair
SHAPES = {
    "elements in a row": (lambda n: reply("<a/>" * n), 8000),
    "text": (lambda n: reply("x" * n), 200_000),
    "lines of text": (lambda n: reply("x\n" * n), 60_000),
    "carriage returns": (lambda n: reply("x\r\n" * n), 60_000),
    "character references": (lambda n: reply("&#65;" * n), 20_000),
    "ampersands": (lambda n: reply("&amp;" * n), 20_000),
    "wide characters": (lambda n: reply("\U0001f600" * n), 50_000),
    "CDATA sections": (lambda n: reply("<![CDATA[x]]>" * n), 10_000),
    "comments": (lambda n: reply("<!--x-->" * n), 10_000),
    "one comment": (lambda n: reply("<!--" + "x-" * n + "x-->"), 100_000),
    "processing instructions": (lambda n: reply("<?p x?>" * n), 10_000),
    "blanks in a tag": (lambda n: reply("<a" + " " * n + "/>"), 200_000),
    "one long name": (lambda n: reply("<" + "n" * n + "/>"), 10_000),
    "one long attribute": (lambda n: reply(f'<a b="{"x" * n}"/>'), 200_000),
    "an attribute of references": (lambda n: reply(f'<a b="{"&lt;" * n}"/>'), 20_000),
    "attributes, many elements": (lambda n: reply(lines('<a b="1" c="2" d="3" e="4"/>', n)), 5000),
    "attributes of one element": (lambda n: reply("<a" + lines(' a#=""', n) + "/>"), 120),
    "too many attributes": (lambda n: reply("<a" + lines(' a#=""', n) + "/>"), 5000),
    "distinct names": (lambda n: reply(lines("<n#/>", n)), 4000),
    "too many distinct names": (lambda n: reply(lines("<n#/>", n)), 40_000),
    "distinct attribute names": (lambda n: reply(lines('<a n#=""/>', n)), 4000),
    "namespaces, one an element": (lambda n: reply(lines('<a xmlns:p="u#"/>', n)), 3000),
    "too many namespaces": (lambda n: reply(lines('<a xmlns:p="u#"/>', n)), 30_000),
    "prefixes of one element": (lambda n: reply("<a" + lines(' xmlns:p#="u"', n) + "/>"), 100),
    "default namespaces": (lambda n: reply(lines('<a xmlns="u#"/>', n)), 3000),
    "nesting": (lambda n: reply(("<a>" * 100 + "</a>" * 100) * n), 60),
    "too deep": (lambda n: reply("<a>" * n + "</a>" * n), 20_000),
    "unfinished": (lambda n: "<a>" * n, 20_000),
    "an open tag that never ends": (lambda n: "<a" + " b" * n, 20_000),
    "less-than signs": (lambda n: "<" * n, 50_000),
    "enumerated attribute": (lambda n: "<!DOCTYPE r [<!ATTLIST r a (0" + lines("|#", n) +
                             ")>]><r/>", 2000),
    "attribute declarations": (lambda n: "<!DOCTYPE r [" + lines("<!ATTLIST r a# CDATA #IMPLIED>",
                                                                 n) + "]><r/>", 2000),
    "element declarations": (lambda n: "<!DOCTYPE r [" + lines("<!ELEMENT e# ANY>", n) + "]><r/>",
                             2000),
    "entity declarations": (lambda n: "<!DOCTYPE r [" + lines('<!ENTITY e# "x">', n) + "]><r/>",
                            2000),
    "a content model": (lambda n: "<!DOCTYPE r [<!ELEMENT r " + "(" * n + "a" + ")" * n + ">]><r/>",
                        2000),
    "brackets in a declaration": (lambda n: "<!DOCTYPE r SYSTEM '" + "[" * n + "'><r/>", 50_000),
    "bureau errors": (lambda n: reply("<BCAservice-data><response>" +
                                      "<error><error-description code='1'>x</error-description>"
                                      "</error>" * n + "</response></BCAservice-data>"), 2000),
    "defaults on file": (lambda n: nested_report(
        "<individual-consumer-credit-file>" +
        lines("<credit-default><default-date>2011-01-01</default-date><original-default>"
              "<default-amount>#</default-amount></original-default></credit-default>", n) +
        "</individual-consumer-credit-file>"), 700),
    "enquiries on file": (lambda n: nested_report(
        "<individual-consumer-credit-file>" +
        lines('<credit-enquiry enquiry-date="2011-08-30"><enquiry-amount>#</enquiry-amount>'
              "</credit-enquiry>", n) + "</individual-consumer-credit-file>"), 700),
    "addresses": (lambda n: nested_report("<individual>" + lines(
        '<address type="residential-previous"><street-name>#</street-name></address>', n) +
        "</individual>"), 700),
}
IN_BOUNDED = ["elements in a row", "distinct names", "too many distinct names",
              "namespaces, one an element", "attributes of one element", "enumerated attribute",
              "a content model", "defaults on file", "lines of text"]


def instructions(path, folder, name):
    """What a translation of the file costs."""
    done = run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={folder / name}", HOST,
                "translate", path, "--service", "VedaXMLAU", "--date", "2012-06-15"], limit=300)
    counted = re.search(rb"Collected : (\d+)", done.err)
    return int(counted[1]) if counted and not done.died else None


def write(folder, name, text):
    path = folder / f"{name}.xml"
    path.write_text(text)
    return path


def examine_doubling(tally, folder, start, name, number):
    shape, small = SHAPES[name]
    costs = [instructions(write(folder, f"{number}-{times}", shape(small * times)), folder,
                          f"{number}-{times}.out") for times in (1, 2)]
    if None in costs:
        tally.expect("doubled", False, f"{name}: it did not end well")
        return
    # What starting up costs varies a little: below that nothing is measured.
    small_cost, large_cost = (max(cost - start, 400_000) for cost in costs)
    tally.expect("doubled: at most 2.3 times the instructions",
                 large_cost <= MOST_RATIO * small_cost,
                 f"{name}: {small_cost:,} and {large_cost:,}, {large_cost / small_cost:.2f} times")


def examine_large(tally, folder, name, number):
    shape, small = SHAPES[name]
    pieces = small * LARGE_BYTES // len(shape(small))
    done = translate(write(folder, f"{number}-large", shape(pieces)), limit=120)
    tally.expect("ten megabytes: an answer, within 4 s and 600 MB",
                 not done.died and done.status in (0, 1) and done.cpu < LARGE_SECONDS and
                 done.megabytes < LARGE_MEGABYTES, f"{name}: {done}")


def examine(tally, bounded):
    names = IN_BOUNDED if bounded else list(SHAPES)
    with Folder() as folder:
        start = instructions(write(folder, "start", reply("")), folder, "start.out")
        side_by_side(lambda name: examine_doubling(tally, folder, start, name, names.index(name)),
                     names)
        side_by_side(lambda name: examine_large(tally, folder, name, names.index(name)), names)
