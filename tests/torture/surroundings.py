"""A hostile person's files and environment: the report is the same, and nothing is sent or written.
"""

import base64
import json

from kit import EXAMPLES, Folder, HOST, enquire, run, side_by_side, translate
from servers import Server, answering, make_authority, make_certificate, reply, report, tls

SHEET = EXAMPLES.parent / "xslt" / "vedaxml_au.xsl"
NETRC = "machine 127.0.0.1 login someone password canary-netrc\ndefault login a password canary\n"

# name: the environment, with {home} a folder of hostile files and {port} a server that must hear
# nothing. An enquiry and a translation are made in each.
HOSTILE = {
    ".netrc in the home folder": {"HOME": "{home}"},
    "NETRC": {"NETRC": "{home}/.netrc"},
    ".curlrc": {"HOME": "{home}", "CURL_HOME": "{home}", "XDG_CONFIG_HOME": "{home}"},
    "http_proxy": {"http_proxy": "http://127.0.0.1:{port}", "HTTP_PROXY": "http://127.0.0.1:{port}"},
    "https_proxy": {"https_proxy": "http://127.0.0.1:{port}"},
    "all_proxy": {"all_proxy": "socks5h://127.0.0.1:{port}",
                  "ALL_PROXY": "http://127.0.0.1:{port}"},
    "a proxy that is none": {"https_proxy": "::nonsense::", "no_proxy": "*" * 10_000},
    "SSLKEYLOGFILE": {"SSLKEYLOGFILE": "{home}/keys"},
    "XML catalogues": {"XML_CATALOG_FILES": "file://{home}/catalog.xml http://127.0.0.1:{port}/",
                       "SGML_CATALOG_FILES": "{home}/catalog.xml"},
    "libxml's debugging": {"XMLLINT_INDENT": "\t\t", "XML_DEBUG_CATALOG": "9",
                           "XML_MEM_BREAKPOINT": "1", "XML_MEM_TRACE": "1"},
    "libxslt's plug-ins": {"LIBXSLT_PLUGINS_PATH": "{home}"},
    "curl's debugging": {"CURL_VERBOSE": "1", "CURL_ENTROPY": "1", "CURL_CA_BUNDLE": "{home}/none"},
    "host aliases": {"HOSTALIASES": "{home}/hosts", "LOCALDOMAIN": "example",
                     "RES_OPTIONS": "timeout:0 attempts:0 nonsense"},
    "Turkish": {"LC_ALL": "tr_TR.UTF-8", "LANG": "tr_TR.UTF-8"},
    "German": {"LC_ALL": "de_DE.UTF-8"},
    "a language that is none": {"LC_ALL": "../../etc", "LANGUAGE": "%s%n", "LOCPATH": "{home}",
                                "NLSPATH": "{home}/%N"},
    "a time zone that is none": {"TZ": ":{home}/zone"},
    "no folder for temporary files": {"TMPDIR": "{home}/none", "TMP": "/nonexistent"},
    "iconv's own modules": {"GCONV_PATH": "{home}"},
    "a web server's variables": {"REQUEST_METHOD": "GET", "HTTP_PROXY": "http://127.0.0.1:{port}"},
    "nothing at all": {"PATH": "", "HOME": "", "TZ": "", "LC_ALL": ""},
    "a large environment": {f"LARGE_{at}": "x" * 1000 for at in range(100)},
    "a setting that is none": {"ZR_NO_SUCH_SETTING": "x"},
}


def hostile_home(folder, port):
    home = folder / "home"
    home.mkdir()
    (home / ".netrc").write_text(NETRC)
    (home / ".netrc").chmod(0o600)
    (home / ".curlrc").write_text(f"proxy = http://127.0.0.1:{port}\ntrace = {home}/trace\n")
    (home / "catalog.xml").write_text(
        '<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog">'
        f'<rewriteSystem systemIdStartString="" rewritePrefix="http://127.0.0.1:{port}/"/>'
        "</catalog>")
    (home / "hosts").write_text("bureau example.invalid\n")
    (home / "zone").write_bytes(b"TZif2" + b"\xff" * 100)
    (home / "gconv-modules").write_text("module INTERNAL X// hostile 1\n")
    return home


def written(folder):
    """What stands in the files of a folder."""
    return {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}


def examine_environment(tally, name, server, trust, wanted):
    def heard(peer):
        peer.request()
    with Folder() as folder, Server(heard) as proxy:
        home = hostile_home(folder, proxy.port)
        before = written(home)
        environment = {key: value.replace("{home}", str(home)).replace("{port}", str(proxy.port))
                       for key, value in HOSTILE[name].items()}
        done = enquire(server.url(), environment={**trust, **environment})
        tally.expect("an enquiry as in a plain one", done.out == wanted[0], f"{name}: {done}")
        done = translated(environment)
        tally.expect("a translation as in a plain one", done.out == wanted[1], f"{name}: {done}")
        tally.expect("nothing is sent elsewhere", proxy.connections == 0, name)
        tally.expect("nothing is written", written(home) == before, f"{name}: {written(home)}")


def translated(environment):
    return translate(EXAMPLES / "vedaxml_au_adverse.xml", "--xslt-file-name", SHEET,
                     environment=environment)


def examine_credentials(tally, trust):
    """A server that asks for credentials gets the settings' and no others."""
    ask = answering(lambda _request: reply("", "401 Who", 'WWW-Authenticate: Basic realm="r"\r\n'))
    with Folder() as folder, Server(ask) as server:
        home = hostile_home(folder, 1)
        for settings in ({"UserId": "", "UserPassword": ""}, {"UserId": "user-1"},
                         {"UserId": "someone", "UserPassword": ""}):
            enquire(server.url(), settings=settings,
                    environment={**trust, "HOME": str(home), "NETRC": str(home / ".netrc")})
        sent = [request.header("Authorization") for request in server.requests]
        tally.expect("a .netrc answers no challenge",
                     not any(found_in(value) for value in sent), sent)


def found_in(header):
    if not header.startswith("Basic "):
        return False
    return b"canary" in base64.b64decode(header[6:])


def examine_opened(tally):
    """What a translation opens: the system's libraries, the reply and the style sheet."""
    with Folder() as folder:
        home = hostile_home(folder, 1)
        run(["strace", "-f", "-qq", "-e", "trace=open,openat,creat", "-o", folder / "trace", HOST,
             "translate", EXAMPLES / "vedaxml_au_adverse.xml", "--service", "VedaXMLAU",
             "--xslt-file-name", SHEET], environment={"HOME": str(home)})
        trace = (folder / "trace").read_text(errors="replace")
        tally.expect("nothing of the home folder is opened",
                     "vedaxml_au.xsl" in trace and str(home) not in trace, trace)
        tally.expect("nothing is opened to be written", "O_WRONLY" not in trace and
                     "O_RDWR" not in trace and "O_CREAT" not in trace, trace)


def examine(tally, _bounded):
    answer = answering(lambda _request: reply(report()))
    with Folder() as folder:
        make_authority(folder)
        trust = {"SSL_CERT_FILE": str(folder / "authority.pem")}
        with Server(answer, tls(make_certificate(folder, "bureau"))) as server:
            wanted = (enquire(server.url(), environment=trust).out, translated({}).out)
            tally.expect("a plain environment", json.loads(wanted[0])["Result"] and
                         json.loads(wanted[1])["Result"])
            side_by_side(lambda name: examine_environment(tally, name, server, trust, wanted),
                         HOSTILE)
        examine_credentials(tally, trust)
    examine_opened(tally)
