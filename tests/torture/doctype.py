"""Document type declarations in every form, watched by strace: no file and no connection.

What a declaration names must be opened by nothing, whether it is tolerated or refused.
"""

from kit import Folder, HOST, run, side_by_side
from servers import Server

REFUSED = b"The response received was not a valid XML document."

# What stands before the root element; {file} is a file that is there, {url} a server that listens.
TOLERATED = {
    "nothing but a name": "<!DOCTYPE r>",
    "a system identifier of a file": '<!DOCTYPE r SYSTEM "file://{file}">',
    "a bare path": '<!DOCTYPE r SYSTEM "{file}">',
    "a relative path": '<!DOCTYPE r SYSTEM "secret.dtd">',
    "an address": '<!DOCTYPE r SYSTEM "{url}r.dtd">',
    "a secure address": '<!DOCTYPE r SYSTEM "https://127.0.0.1:1/r.dtd">',
    "a file server": '<!DOCTYPE r SYSTEM "ftp://127.0.0.1:1/r.dtd">',
    "a public identifier": '<!DOCTYPE r PUBLIC "-//W3C//DTD XHTML 1.0 Strict//EN" "{url}r.dtd">',
    "a catalogue's name": '<!DOCTYPE r PUBLIC "-//OASIS//DTD DocBook XML V4.5//EN" "docbookx.dtd">',
    "single quotes and blanks": "<!DOCTYPE\n\tr  SYSTEM\n'{url}r.dtd'\n>",
    "a network share": '<!DOCTYPE r SYSTEM "//127.0.0.1/share/r.dtd">',
    "a comment before it": '<!-- x --><!DOCTYPE r SYSTEM "{url}r.dtd">',
}
REFUSED_FORMS = {
    "an empty internal subset": "<!DOCTYPE r []>",
    "an internal entity": '<!DOCTYPE r [<!ENTITY e "x">]>',
    "an entity of a file": '<!DOCTYPE r [<!ENTITY e SYSTEM "file://{file}">]>',
    "an entity of an address": '<!DOCTYPE r [<!ENTITY e SYSTEM "{url}e">]>',
    "a parameter entity": '<!DOCTYPE r [<!ENTITY % p SYSTEM "{url}p"> %p;]>',
    "a parameter entity of a file": '<!DOCTYPE r [<!ENTITY % p SYSTEM "{file}"> %p;]>',
    "entities in entities": '<!DOCTYPE r [<!ENTITY a "aaaaaaaaaa"><!ENTITY b "&a;&a;&a;&a;&a;&a;">'
                            '<!ENTITY c "&b;&b;&b;&b;&b;&b;"><!ENTITY e "&c;&c;&c;&c;">]>',
    "an entity in itself": '<!DOCTYPE r [<!ENTITY e "&e;">]>',
    "an attribute with a default": '<!DOCTYPE r [<!ATTLIST r a CDATA "x">]>',
    "an element": "<!DOCTYPE r [<!ELEMENT r ANY>]>",
    "a notation": '<!DOCTYPE r [<!NOTATION n SYSTEM "{file}">]>',
    "an unparsed entity": '<!DOCTYPE r [<!NOTATION n SYSTEM "n"><!ENTITY e SYSTEM "{url}e" NDATA n>]>',
    "a subset behind an identifier": '<!DOCTYPE r SYSTEM "{url}r.dtd" [<!ENTITY e "x">]>',
    "a subset behind a bracket in quotes": '<!DOCTYPE r SYSTEM "[>" [<!ENTITY e "x">]>',
    "a comment in the subset": "<!DOCTYPE r [<!-- ]> -->]>",
    "a processing instruction in the subset": "<!DOCTYPE r [<?p ]> ?>]>",
    "a subset that never ends": "<!DOCTYPE r [<!ENTITY e ",
    "a declaration that never ends": '<!DOCTYPE r SYSTEM "',
    "a declaration behind the root": None,
    "two declarations": "<!DOCTYPE r><!DOCTYPE r>",
    "lower case": "<!doctype r>",
}
OPENED = ("open", "openat", "openat2", "connect", "socket", "execve")


def document(form):
    if form is None:
        return "<r/><!DOCTYPE r>"
    used = "&e;" if " e " in form and "%" not in form and "NDATA" not in form else ""
    return form + f"<r>{used}</r>"


def touched(trace, folder):
    """What the program opened below the folder or connected to, but for the reply itself."""
    faults = []
    for line in trace.splitlines():
        if "socket(AF_INET" in line or "sin_port" in line or "sin6_port" in line:
            faults.append(line)
        if str(folder) in line and ("open" in line) and "reply.xml" not in line:
            faults.append(line)
        if any(name in line for name in ("secret.dtd", "docbookx.dtd", "/share/r.dtd")):
            faults.append(line)
        if "catalog" in line and "open" in line:
            faults.append(line)
    return faults


def examine_form(tally, name, form, tolerated, url):
    with Folder() as folder:
        secret = folder / "secret.dtd"
        secret.write_text("<!ENTITY e 'leaked'>")
        text = document(form and form.replace("{file}", str(secret)).replace("{url}", url))
        (folder / "reply.xml").write_text(text)
        done = run(["strace", "-f", "-qq", "-e", "trace=" + ",".join(OPENED), "-o",
                    folder / "trace", HOST, "translate", folder / "reply.xml", "--service",
                    "VedaXMLAU"], folder=folder)
        trace = (folder / "trace").read_text(errors="replace")
        tally.faultless(f"{'tolerated' if tolerated else 'refused'}: no file, no connection",
                        [f"{name}: {fault}" for fault in touched(trace, folder)] +
                        ([] if "reply.xml" in trace else [f"{name}: nothing was traced"]))
        if tolerated:
            tally.expect("bare declarations are tolerated", done.status == 0, f"{name}: {done}")
        else:
            tally.expect("others are refused", done.status == 1 and REFUSED in done.err,
                         f"{name}: {done}")


def examine(tally, _bounded):
    cases = [(name, form, True) for name, form in TOLERATED.items()]
    cases += [(name, form, False) for name, form in REFUSED_FORMS.items()]
    with Server(lambda peer: peer.request()) as server:
        side_by_side(lambda case: examine_form(tally, *case, server.url("/")), cases)
        tally.expect("a server that is named hears nothing", server.connections == 0,
                     f"{server.connections} connections")
