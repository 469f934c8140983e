"""Proxies of the machine, tinyproxy and squid, with and without credentials, and a proxy that spies.

A bureau's credentials never reach a proxy, a proxy's never the bureau; one enquiry is one post.
"""

import base64
import getpass
import subprocess
import time

from kit import Folder, Service, enquire, free_port, listens
from servers import (Server, answering, make_authority, make_certificate, reply, report, tls)

USER, PASSWORD = "proxy-user-7", "proxy-word-7"
# What a refusal for credentials may look like: its status (tinyproxy's is 401 for wrong ones), or a
# connection that is reset while the enquiry is still being sent.
DENIED = ("(407)", "(401)", "was lost")


def tinyproxy(folder, port, credentials):
    (folder / "tinyproxy.conf").write_text(
        f"Port {port}\nListen 127.0.0.1\nTimeout 60\nMaxClients 20\nLogFile \"{folder}/proxy.log\"\n"
        "LogLevel Info\nAllow 127.0.0.1\n" +
        (f"BasicAuth {USER} {PASSWORD}\n" if credentials else ""))
    return ["tinyproxy", "-d", "-c", folder / "tinyproxy.conf"]


def squid(folder, port, credentials):
    folder.chmod(0o777)
    word = subprocess.run(["openssl", "passwd", "-apr1", PASSWORD], capture_output=True, text=True,
                          check=True).stdout
    (folder / "words").write_text(f"{USER}:{word}")
    who = "proxy" if getpass.getuser() == "root" else getpass.getuser()
    asked = (f"auth_param basic program /usr/lib/squid/basic_ncsa_auth {folder}/words\n"
             "acl known proxy_auth REQUIRED\nhttp_access allow known\n")
    (folder / "squid.conf").write_text(
        f"http_port 127.0.0.1:{port}\ncache_effective_user {who}\npid_filename none\n"
        f"cache_log {folder}/cache.log\naccess_log stdio:{folder}/proxy.log\ncache deny all\n"
        "shutdown_lifetime 0 seconds\npinger_enable off\n" +
        (asked if credentials else "http_access allow localhost\n") + "http_access deny all\n")
    return ["squid", "-N", "-f", folder / "squid.conf"]


def told(done):
    return done.json().get("ErrorMessage", done.said())


def expect(tally, case, how, done, server, ends, posts):
    """One enquiry through a proxy: `ends` are the messages that it may end with; none: a report."""
    right = any(end in told(done) for end in ends) if ends else done.status == 0
    faults = [] if right and not done.died else [str(done)]
    if server.posts != posts:
        faults.append(f"{server.posts} posts")
    heads = b"".join(request.head for request in server.requests).lower()
    if b"proxy-authorization" in heads or PASSWORD.encode() in heads or \
            base64.b64encode(f"{USER}:{PASSWORD}".encode()).lower() in heads:
        faults.append("the server was given the proxy's credentials")
    if PASSWORD in done.said() or "word-1" in told(done):
        faults.append("a password was shown")
    tally.faultless(case, [f"{how}: {fault}" for fault in faults])
    server.requests.clear()


def examine_program(tally, name, make, server, trust):
    """One of the two proxies, for both schemes, with and without credentials."""
    scheme = "https" if server.context else "http"
    for credentials in (False, True):
        port = free_port()
        with Folder() as folder, Service(make(folder, port, credentials), lambda: listens(port)):
            given = {"ProxyServer": f"127.0.0.1:{port}"}
            known = {**given, "ProxyUserName": USER, "ProxyPassword": PASSWORD}
            row = f"{name}, {scheme}" + (", credentials asked for" if credentials else "")
            done = enquire(server.url(), settings=given, environment=trust)
            expect(tally, row, "none given", done, server,
                   DENIED if credentials else (), 0 if credentials else 1)
            done = enquire(server.url(), settings=known, environment=trust)
            expect(tally, row, "the right ones", done, server, (), 1)
            if credentials:
                wrong = {**known, "ProxyPassword": "wrong"}
                done = enquire(server.url(), settings=wrong, environment=trust)
                expect(tally, row, "wrong ones", done, server, DENIED, 0)
            preconfigured = {**trust, f"{scheme}_proxy": f"http://127.0.0.1:{port}"}
            log = folder / "proxy.log"
            before = log.read_text() if log.exists() else ""
            done = enquire(server.url(), settings={**known, "ProxyServer": "[PRECONFIG]"},
                           environment=preconfigured)
            expect(tally, row, "from the environment", done, server, (), 1)
            time.sleep(0.5)  # a proxy writes of the end of a connection later
            after = log.read_text()
            tally.expect("the environment's proxy is asked where the settings say so",
                         after != before, row)
            done = enquire(server.url(), environment=preconfigured)
            expect(tally, row, "direct passes the environment by", done, server, (), 1)
            tally.expect("the environment's proxy is not asked otherwise",
                         log.read_text() == after, row)
            done = enquire(server.url(), settings={**known, "ProxyServer": "[PRECONFIG]"},
                           environment={**preconfigured, "no_proxy": "127.0.0.1"})
            expect(tally, row, "passed by with no_proxy", done, server, (), 1)
            tally.expect("no proxy's log has a bureau's or a proxy's password",
                         not any(word in log.read_text() for word in ("word-1", PASSWORD)), row)


def spying(answer):
    """A proxy that notes down what it is sent."""
    def handle(peer):
        while peer.request() is not None:
            peer.send(answer)
    return Server(handle)


REFUSALS = {
    "asks for ever": reply("", "407 Who", 'Proxy-Authenticate: Basic realm="p"\r\n'),
    "asks for a digest that is stale for ever": reply("", "407 Who", 'Proxy-Authenticate: Digest realm="p", '
                                             'nonce="1", stale=true\r\n'),
    "refuses": reply("no", "403 Forbidden"),
    "is broken": reply("no", "502 Bad Gateway"),
    "sends elsewhere": reply("", "302 Found", "Location: http://127.0.0.1:1/\r\n"),
    "answers with a page": reply("<html/>"),
}


def examine_spies(tally):
    """Proxies that ask, refuse or lie, with the bureau's credentials at stake."""
    for scheme in ("http", "https"):
        for name, answer in REFUSALS.items():
            with spying(answer) as spy:
                done = enquire(f"{scheme}://127.0.0.1:1/sys1", limit=90, settings={
                    "ProxyServer": f"127.0.0.1:{spy.port}", "ProxyUserName": USER,
                    "ProxyPassword": PASSWORD})
                heads = b"".join(request.head for request in spy.requests)
                bureaus = base64.b64encode(b"user-1:word-1") in heads or b"word-1" in heads or \
                    b'username="user-1"' in heads
                authorised = [r for r in spy.requests if r.header("Proxy-Authorization")]
                tally.expect("a proxy that " + name + ": an error, two tries at most",
                             done.status == 1 and not done.died and len(authorised) <= 2 and
                             len(spy.requests) <= 3, f"{len(spy.requests)} requests, {done}")
                tally.expect("a proxy is not given the bureau's credentials", not bureaus,
                             heads[:500])
                tally.expect("a proxy's password is in no message",
                             PASSWORD not in done.said(), done)


def examine(tally, _bounded):
    answer = answering(lambda _request: reply(report()))
    with Folder() as folder:
        make_authority(folder)
        context = tls(make_certificate(folder, "bureau"))
        for how in (None, context):
            with Server(answer, how) as server:
                trust = {"SSL_CERT_FILE": str(folder / "authority.pem")}
                examine_program(tally, "tinyproxy", tinyproxy, server, trust)
                examine_program(tally, "squid", squid, server, trust)
    examine_spies(tally)
