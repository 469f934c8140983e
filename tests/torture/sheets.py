"""Hostile style sheets: an enquiry never fails for one, and reads, writes, reaches and waits for nothing.

What comes is what the sheet rightly gives, or the red page with its reason; within two seconds of
processor for a small reply, and bounded memory.
"""

import os
import pathlib
import re

from kit import EXAMPLES, HOST, Folder, ROOT, run, side_by_side, translate
from servers import Server

REPLY = EXAMPLES / "vedaxml_au_clean.xml"
RED = "Error transforming XML using XSL file"
MOST_SECONDS = 4.0      # two of the sheet, and a slow machine's start
MOST_MEGABYTES = 700    # its text and its tree have bounds of their own
MACHINE_MEGABYTES = 3000    # so that a sheet without a bound does not take the machine along
MARK = "stolen-mark"

HEAD = ('<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform" '
        'xmlns:exsl="http://exslt.org/common" xmlns:str="http://exslt.org/strings" '
        'xmlns:dyn="http://exslt.org/dynamic" xmlns:func="http://exslt.org/functions" '
        'xmlns:math="http://exslt.org/math" xmlns:set="http://exslt.org/sets" '
        'xmlns:date="http://exslt.org/dates-and-times" xmlns:regexp="http://exslt.org/regular-'
        'expressions" xmlns:crypto="http://exslt.org/crypto" xmlns:msxsl="urn:schemas-microsoft-com:xslt" '
        'xmlns:xalan="http://xml.apache.org/xalan" xmlns:saxon="http://icl.com/saxon" '
        'xmlns:redirect="org.apache.xalan.xslt.extensions.Redirect" xmlns:f="urn:f" '
        'extension-element-prefixes="exsl str dyn func msxsl xalan saxon redirect">')
TAIL = "</xsl:stylesheet>"


def sheet(top="", body="", head=HEAD):
    return head + top + f'<xsl:template match="/"><out>{body}</out></xsl:template>' + TAIL


def copy(expression):
    return f'<xsl:copy-of select="{expression}"/><xsl:value-of select="{expression}"/>'


def nested(levels, inner):
    return ('<xsl:for-each select="//node()">' * levels) + inner + "</xsl:for-each>" * levels


def doubled(times, first="aaaaaaaa"):
    """A variable that doubles so many times."""
    text = f'<xsl:variable name="v0" select="\'{first}\'"/>'
    for at in range(times):
        text += f'<xsl:variable name="v{at + 1}" select="concat($v{at}, $v{at})"/>'
    return text


def grown(times):
    """A tree that doubles so many times."""
    text = '<xsl:variable name="t0"><a/><a/></xsl:variable>'
    for at in range(times):
        text += (f'<xsl:variable name="t{at + 1}"><xsl:copy-of select="$t{at}"/>'
                 f'<xsl:copy-of select="$t{at}"/></xsl:variable>')
    return text


def recursion(call, name="r", parameter=""):
    return f'<xsl:template name="{name}">{parameter}{call}</xsl:template>'


CALL = '<xsl:call-template name="r"/>'
COUNTING = ('<xsl:param name="n" select="0"/><xsl:if test="$n &lt; 100000000">'
            '<xsl:call-template name="r"><xsl:with-param name="n" select="$n + 1"/>'
            "</xsl:call-template></xsl:if>")
FUNCTION = ('<func:function name="f:loop"><xsl:param name="n"/><func:result select="f:loop($n + 1)"/>'
            "</func:function>")
FOREST = ('<func:function name="f:tree"><xsl:param name="n"/><func:result select="f:tree($n + 1) + '
          'f:tree($n + 2)"/></func:function>')

# {dir}: the sheet's folder; {up}: a folder above it with a file secret.xml; {url}: a server.
READS = {
    "document() of the system's users": copy("document('/etc/passwd')"),
    "document() of a file address": copy("document('file://{up}/secret.xml')"),
    "document() above the sheet": copy("document('../secret.xml')"),
    "document() round a corner": copy("document('sub/../../secret.xml')"),
    "document() with escapes": copy("document('%2e%2e/secret.xml')"),
    "document() by an absolute path": copy("document('{up}/secret.xml')"),
    "document() through a link": copy("document('link.xml')"),
    "document() through a linked folder": copy("document('folder/secret.xml')"),
    "document() with a base of its own": copy("document('secret.xml', document('../secret.xml'))"),
    "document() of a device": copy("document('/dev/zero')"),
    "document() of a pipe": copy("document('pipe.xml')"),
    "document() of the process": copy("document('/proc/self/environ')"),
    "document() of a command": copy("document('|cat {up}/secret.xml')"),
}
NETWORK = {
    "document() of an address": copy("document('{url}secret.xml')"),
    "document() of a secure address": copy("document('https://127.0.0.1:1/x')"),
    "document() of a file server": copy("document('ftp://127.0.0.1:1/x')"),
    "document() of a share": copy("document('//127.0.0.1/x')"),
}
WHOLE = {  # whole sheets
    "include of an address": sheet('<xsl:include href="{url}x.xsl"/>'),
    "include above the sheet": sheet('<xsl:include href="../secret.xsl"/>'),
    "import of another folder's sheet": HEAD + '<xsl:import href="{up}/secret.xsl"/>' + TAIL,
    "include through a link": sheet('<xsl:include href="link.xsl"/>'),
    "an entity of a file": '<!DOCTYPE x [<!ENTITY e SYSTEM "file://{up}/secret.txt">]>' +
    sheet(body="&e;"),
    "an entity of an address": '<!DOCTYPE x [<!ENTITY e SYSTEM "{url}e">]>' + sheet(body="&e;"),
    "a declaration of an address": '<!DOCTYPE x SYSTEM "{url}x.dtd">' + sheet(body="ok"),
    "entities in entities": '<!DOCTYPE x [<!ENTITY a "aaaaaaaaaaaaaaaa">' + "".join(
        f'<!ENTITY {chr(98 + at)} "{f"&{chr(97 + at)};" * 16}">' for at in range(8)) + "]>" +
    sheet(body="&i;"),
}
WRITES = {
    "exsl:document": '<exsl:document href="{dir}/made" method="text">x</exsl:document>',
    "exsl:document elsewhere": '<exsl:document href="{up}/made" method="text">x</exsl:document>',
    "exsl:document in a new folder": '<exsl:document href="{dir}/made/x/y">x</exsl:document>',
    "exsl:document to an address": '<exsl:document href="{url}made">x</exsl:document>',
    "exsl:document over the sheet": '<exsl:document href="{dir}/sheet.xsl">x</exsl:document>',
    "xsl:document": '<xsl:document href="{dir}/made">x</xsl:document>',
    "xsl:result-document": '<xsl:result-document href="{dir}/made">x</xsl:result-document>',
    "saxon:output": '<saxon:output href="{dir}/made" file="{dir}/made">x</saxon:output>',
    "redirect:write": '<redirect:write file="{dir}/made">x</redirect:write>',
}
TIME = {
    "four nested counts": sheet(body=nested(4, '<xsl:if test="count(//*) &gt; 0">x</xsl:if>')),
    "counts within counts": sheet(body=copy("count(//*[count(//*[count(//*[count(//*) &gt; 0]) "
                                            "&gt; 0]) &gt; 0])")),
    "counts of all axes": sheet(body=nested(3, copy("count(preceding::node()/following::node())"))),
    "sorts within sorts": sheet(body='<xsl:for-each select="//node()"><xsl:sort select="count('
                                     '//node()[count(//node()) &gt; 1])"/>' * 2 +
                                     "x" + "</xsl:for-each>" * 2),
    "numbers of any level": sheet(body=nested(3, '<xsl:number level="any" count="node()"/>')),
    "keys of keys": sheet('<xsl:key name="k" match="node()" use="count(//node()[count(//node()) '
                          '&gt; 1])"/>', nested(2, copy("count(key('k', 1))"))),
    "a recursion without an end": sheet(recursion(CALL), CALL),
    "a recursion that counts": sheet(recursion(COUNTING), CALL),
    "a recursion that doubles": sheet(recursion(CALL + CALL), CALL),
    "templates that apply to themselves": sheet(
        '<xsl:template match="*"><xsl:apply-templates select="/*"/></xsl:template>',
        "<xsl:apply-templates/>"),
    "a function without an end": sheet(FUNCTION, copy("f:loop(1)")),
    "a function that doubles": sheet(FOREST, copy("f:tree(1)")),
    "a variable that needs itself": sheet('<xsl:variable name="a" select="$b"/>'
                                          '<xsl:variable name="b" select="$a"/>', copy("$a")),
    "evaluation in evaluation": sheet(body=nested(3, copy("dyn:evaluate('count(//node())')"))),
    "a map of maps": sheet(body=copy("dyn:map(//node(), 'dyn:map(//node(), &quot;count(//node())"
                                     "&quot;)')")),
    "tokens of tokens": sheet(body=doubled(16) + nested(2, copy("count(str:tokenize($v16, ''))"))),
    "replacing for ever": sheet(body=doubled(18) + copy("string-length(str:replace($v18, 'a', "
                                                        "$v12))")),
    "translating for ever": sheet(body=doubled(17) + nested(2, copy("string-length(translate($v17, "
                                                                    "$v17, 'b'))"))),
    "substrings for ever": sheet(body=doubled(20) + nested(2, copy("string-length(substring-after("
                                                                   "$v20, 'b'))"))),
    "distinct sets": sheet(body=nested(2, copy("count(set:distinct(//node() | //@*))"))),
    "ids of everything": sheet(body=nested(3, copy("count(id(//node()))"))),
}
MEMORY = {
    "a text that doubles": sheet(body=doubled(40) + copy("$v40")),
    "a tree that doubles": sheet(body=grown(26) + copy("$t26")),
    "node sets of trees": sheet(body=grown(22) + copy("count(exsl:node-set($t22)//*)")),
    "padding": sheet(body=copy("str:padding(2000000000, 'x')")),
    "padding in rows": sheet(body=nested(2, copy("str:padding(10000000, 'x')"))),
    "an attribute": sheet(body=f'<a>{doubled(30)}<xsl:attribute name="b"><xsl:value-of '
                               'select="$v30"/></xsl:attribute></a>'),
    "a comment": sheet(body=doubled(30) + '<xsl:comment><xsl:value-of select="$v30"/></xsl:comment>'),
    "output over 64 MiB": sheet(body=doubled(20) + nested(2, '<xsl:value-of select="$v20"/>')),
    "elements for ever": sheet(recursion("<a/>" * 100 + CALL), CALL),
    "deep elements": sheet(recursion(f"<a>{CALL}</a>"), CALL),
    "copies of the reply": sheet(body=nested(3, '<xsl:copy-of select="/"/>')),
    "a deep expression": sheet(body=copy("(" * 50_000 + "1" + ")" * 50_000)),
    "a long expression": sheet(body=copy("1" + "+1" * 200_000)),
    "deep predicates": sheet(body=copy("//*" + "[.//*" * 5000 + "]" * 5000)),
    "a deep sheet": sheet(body="<a>" * 20_000 + "</a>" * 20_000),
    "a number of many digits": sheet(body=copy("format-number(1, '" + "0" * 1_000_000 + "')")),
}
BROKEN = {
    "no XML": "this is no XML", "nothing": "", "NULs": "\0" * 1000, "no style sheet": "<html/>",
    "a version to come": sheet(body="ok").replace('version="1.0"', 'version="9.0"'),
    "an unknown encoding": sheet('<xsl:output encoding="klingon"/>', "ok"),
    "an unknown method": sheet('<xsl:output method="f:own"/>', "ok"),
    "an unknown element": sheet(body="<xsl:nonsense/>"),
    "an unknown function": sheet(body=copy("nonsense()")),
    "a bad expression": sheet(body=copy("///[")),
    "a message that ends it": sheet(body='<xsl:message terminate="yes">stop</xsl:message>'),
    "messages for ever": sheet(recursion("<xsl:message>noise</xsl:message>" + CALL), CALL),
    "an include of itself": sheet('<xsl:include href="sheet.xsl"/>', "ok"),
    "an import of itself": HEAD + '<xsl:import href="sheet.xsl"/>' + TAIL,
    "a script": sheet('<msxsl:script language="JScript" implements-prefix="f">function x(){}'
                      "</msxsl:script>", copy("f:x()")),
    "a name that is script": None,
}
DEVICES = {"a device of zeroes": "/dev/zero", "a device of noise": "/dev/urandom",
           "a folder": "/tmp", "a file that is not there": "/nonexistent/sheet.xsl",
           "standard input": "/dev/stdin", "the process's memory": "/proc/self/mem",
           "a pipe that nobody writes": "{dir}/pipe.xml"}


def prepare(folder):
    """A sheet's folder with traps in it, below a folder with secrets."""
    inside = folder / "sheets"
    inside.mkdir()
    (inside / "sub").mkdir()
    (folder / "secret.xml").write_text(f"<secret>{MARK}</secret>")
    (folder / "secret.txt").write_text(MARK)
    (folder / "secret.xsl").write_text(sheet(body=MARK))
    (inside / "link.xsl").symlink_to(folder / "secret.xsl")
    (inside / "link.xml").symlink_to(folder / "secret.xml")
    (inside / "folder").symlink_to(folder)
    os.mkfifo(inside / "pipe.xml")
    return inside


def listing(folder):
    return sorted((str(path), path.lstat().st_size) for path in folder.rglob("*"))


def sheet_file(inside, text, url):
    """The sheet as a file: its text written down, or the path that stands for one."""
    if isinstance(text, pathlib.PurePath):
        return str(text).replace("{dir}", str(inside))
    if text is None:
        return inside / "<script>alert(1)<b>.xsl"
    text = text.replace("{dir}", str(inside)).replace("{up}", str(inside.parent))
    (inside / "sheet.xsl").write_text(text.replace("{url}", url))
    return inside / "sheet.xsl"


def examine_sheet(tally, server, kind, name, text):
    with Folder() as folder:
        inside = prepare(folder)
        path = sheet_file(inside, text, server.url("/"))
        before = listing(folder)
        done = translate(REPLY, "--xslt-file-name", path, limit=60, memory=MACHINE_MEGABYTES)
        html = done.json().get("Response", {}).get("ResponseHTML", "")
        faults = {
            "the enquiry failed": done.status != 0 or not html,
            "it took too long": done.cpu > MOST_SECONDS or done.seconds > 30,
            "it took too much memory": done.megabytes > MOST_MEGABYTES,
            "it read what it must not": MARK in html or "root:" in html,
            "it wrote": listing(folder) != before,
            "its output is beyond its bound": len(html) > 65 << 20,
            "the red page runs script": "<script>" in html,
        }
        tally.faultless(kind, [f"{name}: {fault}; {done}; {html[:300]}"
                               for fault, seen in faults.items() if seen])


def examine_neighbours(tally):
    """What a sheet may do: read what stands beside it."""
    body = copy("document('near.xml')") + copy("document('sub/near.xml')") + \
        copy("string(document('')/*/@version)") + "<xsl:call-template name='near'/>"
    with Folder() as folder:
        inside = prepare(folder)
        for path in (inside / "near.xml", inside / "sub" / "near.xml"):
            path.write_text(f"<near>{path.parent.name}-fine</near>")
        (inside / "near.xsl").write_text(
            HEAD + '<xsl:template name="near">included-fine</xsl:template>' + TAIL)
        (inside / "sheet.xsl").write_text(sheet('<xsl:include href="near.xsl"/>', body))
        done = translate(REPLY, "--xslt-file-name", inside / "sheet.xsl")
        html = done.json().get("Response", {}).get("ResponseHTML", "")
        for wanted in ("sheets-fine", "sub-fine", "included-fine", "1.0"):
            tally.expect("neighbours of a sheet are read", wanted in html, f"{wanted}: {html}")


def examine_red_page(tally):
    """Nothing of a reply or a file name is markup in the red page."""
    for reply in ("<a><script>alert(1)</script>", "<script>alert(1)</script", "<img src=x onerror="
                  "'alert(1)'>", "<a>&<script>alert(1)</script></a>"):
        with Folder() as folder:
            (folder / "reply.xml").write_text(reply)
            (folder / "sheet.xsl").write_text(sheet(body="ok"))
            # A reply that is no XML fails before its sheet; the page is made for the sheet's own.
            (folder / "bad.xsl").write_text(reply)
            for source, path in ((folder / "reply.xml", folder / "sheet.xsl"),
                                 (REPLY, folder / "bad.xsl")):
                html = translate(source, "--xslt-file-name", path).json().get("Response", {}).get(
                    "ResponseHTML", "")
                tally.expect("the red page shows script and does not run it",
                             "<script" not in html and "<img" not in html, html)


# Example, service, sheet, and the record that the reply has many of.
SHIPPED = [
    ("vedaxml_au_adverse", "VedaXMLAU", "vedaxml_au", "court-action"),
    ("b2bay_au", "B2BayAU", "vedaxml_au", "default"),
    ("vedaxml_nz_person", "VedaXMLNZ", "vedaxml_nz", "credit-enquiry"),
    ("b2bay_nz_individual", "B2BayNZ", "b2bay_nz", "default"),
    ("b2bay_nz_v2_individual", "B2BayNZ_V2", "b2bay_nz_v2", "judgement"),
]
START_MEGABYTES = 21    # the program, its libraries and a compiled sheet


def examine_shipped(tally, example, service, name, record):
    """Translating and rendering a large reply, which the program and the response hold besides."""
    small = (EXAMPLES / f"{example}.xml").read_text()
    one = re.search(rf"<{record}[ >].*?</{record}>\s*", small, re.S)
    large = small.replace(one[0], one[0] * ((4 << 20) // len(one[0])), 1)
    with Folder() as folder:
        (folder / "large.xml").write_text(large)
        # Its memory is measured from outside: what is started from here seems as large as this is.
        done = run(["/usr/bin/time", "-f", "%M", "-o", folder / "memory", HOST, "translate",
                    folder / "large.xml", "--service", service, "--date",
                    "2012-06-15", "--html", folder / "page.html", "--xslt-file-name",
                    ROOT / "xslt" / f"{name}.xsl", "--output", folder / "report.txt"])
        made = (folder / "page.html").exists() and "color:red" not in (
            folder / "page.html").read_text()
        megabytes = int((folder / "memory").read_text()) / 1024 - START_MEGABYTES
        tally.expect("shipped sheets: at most ten times the memory of the reply", made and
                     megabytes <= 10 * len(large.encode()) / (1 << 20),
                     f"{example}, {len(large)} bytes: {megabytes:.0f} MB, {done}")


KINDS = {"reads": {name: sheet(body=body) for name, body in READS.items()},
         "network": {name: sheet(body=body) for name, body in NETWORK.items()},
         "includes and entities": WHOLE,
         "writes": {name: sheet(body=body) for name, body in WRITES.items()},
         "time": TIME, "memory": MEMORY, "broken sheets": BROKEN,
         "no files": {name: pathlib.PurePath(path) for name, path in DEVICES.items()}}


def examine(tally, bounded):
    cases = [(kind, name, text) for kind, rows in KINDS.items() for name, text in rows.items()]
    if bounded:
        # One in three of those that work until a bound stops them.
        cases = [case for at, case in enumerate(cases)
                 if case[0] not in ("time", "memory") or at % 3 == 0]
    with Server(lambda peer: peer.request()) as server:
        side_by_side(lambda case: examine_sheet(tally, server, *case), cases)
        tally.expect("no sheet reaches a server", server.connections == 0, server.connections)
    side_by_side(lambda case: examine_shipped(tally, *case), SHIPPED)
    examine_neighbours(tally)
    examine_red_page(tally)
