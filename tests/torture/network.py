"""Faults on raw sockets, byte by byte; every enquiry is posted once, and ends.

Numbers are the platform's: what the message must carry.
"""

import json
import time

from kit import ENQUIRY, Folder, enquire, host, lender, side_by_side
from servers import Server, answering, reply, report

LOST, INVALID, TIMEOUT = "error -2147012866)", "error -2147012744)", "error -2147012894)"
NOT_XML = "The response received was not a valid XML document."
STATUS = "An unexpected Status response of"
OK = b"HTTP/1.1 200 OK\r\n"
CHUNKED = OK + b"Transfer-Encoding: chunked\r\n\r\n"
BODY = report().encode()
MOST_MEGABYTES = 400
MOST_SECONDS = 40       # where nothing waits for a time-out of 30 seconds
WHOLE_SECONDS = 270     # the end of an exchange that makes progress for ever: eight time-outs


def length(value):
    return OK + b"Content-Length: " + value + b"\r\n\r\n"


def sends(data, end=None):
    """Answers one request with the bytes, then closes, resets or holds the connection."""
    def handle(peer):
        if peer.request() is not None:
            peer.send(data)
            if end:
                getattr(peer, end)()
    return handle


def forever(first, piece, **how):
    def handle(peer):
        if peer.request() is not None:
            peer.send_forever(piece, first, **how)
    return handle


def again(answer):
    """Answers every request that comes, on this connection and the next."""
    return answering(lambda _request: answer)


def stale_for_ever(peer):
    count = 0
    while peer.request() is not None:
        count += 1
        peer.send(reply("", "401 Who", 'WWW-Authenticate: Digest realm="r", nonce="'
                        f'{time.monotonic_ns()}", algorithm=MD5, qop="auth", stale=true\r\n'))


def gzipped():
    import gzip
    return gzip.compress(BODY)


# name: what the server does, what the message says; "" where the report is right, a bar between
# alternatives
FAULTS = {
    "closes before it replies": (sends(b""), LOST),
    "resets before it replies": (sends(b"", "reset"), LOST),
    "closes within the status line": (sends(b"HTTP/1.1 20"), LOST),
    "closes within the headers": (sends(OK + b"Content-Le"), LOST),
    "closes within the body": (sends(length(b"9999") + BODY), LOST),
    "resets within the body": (sends(length(b"9999") + BODY, "reset"), LOST),
    "closes within a chunk": (sends(CHUNKED + b"ffff\r\n" + BODY), LOST),
    "closes before the last chunk": (sends(CHUNKED + b"%x\r\n" % len(BODY) + BODY + b"\r\n"), LOST),
    "a chunk size that is none": (sends(CHUNKED + b"zz\r\n" + BODY), INVALID),
    "a chunk size out of range": (sends(CHUNKED + b"f" * 20 + b"\r\n" + BODY), INVALID),
    "a length with letters": (sends(length(b"12abc") + BODY), INVALID),
    "a negative length": (sends(length(b"-5") + BODY), INVALID),
    "a length out of range": (sends(length(b"9" * 30) + BODY), INVALID),
    "two different lengths": (sends(OK + b"Content-Length: 5\r\n" + length(
        b"%d" % len(BODY))[len(OK):] + BODY), INVALID),
    "a list of different lengths": (sends(length(b"5, %d" % len(BODY)) + BODY), INVALID),
    "not HTTP": (sends(b"\x01\x02\x03\xff\r\n\r\n"), INVALID),
    "HTTP 0.9": (sends(b"<html>hello</html>\r\n"), INVALID),
    "a status of two digits": (sends(b"HTTP/1.1 20 OK\r\nContent-Length: 0\r\n\r\n"), INVALID),
    "a status of four digits": (sends(b"HTTP/1.1 2000 OK\r\nContent-Length: 0\r\n\r\n"), INVALID),
    "another protocol": (sends(b"SSH-2.0-OpenSSH_9.2\r\n"), INVALID),
    "an unknown charset": (sends(reply(BODY, headers="Content-Type: text/xml; "
                                       "charset=klingon\r\n")), INVALID),
    "charset UTF-7": (sends(reply(BODY, headers="Content-Type: text/xml; charset=utf-7\r\n")),
                      INVALID + "|" + NOT_XML),
    "a compressed reply that nobody asked for": (sends(reply(gzipped(), headers="Content-Encoding: "
                                                             "gzip\r\n")), "Possible|not a valid"),
    "an empty reply": (sends(reply(b"")), NOT_XML),
    "a reply of blanks": (sends(reply(b" " * 1000)), NOT_XML),
    "a reply of NULs": (sends(reply(b"\0" * 1000)), NOT_XML),
    "a web page": (sends(reply("<html><head><title>Sign in</title></head><body/></html>")), NOT_XML),
    "a web page in a namespace": (sends(reply('<h:HTML xmlns:h="http://www.w3.org/1999/xhtml"/>')),
                                  NOT_XML),
    "no content": (sends(b"HTTP/1.1 204 No Content\r\n\r\n"), STATUS),
    "switching protocols": (sends(b"HTTP/1.1 101 Switching Protocols\r\nUpgrade: h2c\r\n\r\n"),
                            "Possible|unexpected Status"),
    "a server error": (sends(reply("<html/>", "500 Broken")), STATUS + " 'Broken' (500)"),
    "a reply twice": (sends(reply(BODY) * 2), ""),
    "more behind the reply": (sends(reply(BODY) + b"x" * 100_000), ""),
    "continues a while": (sends(b"HTTP/1.1 100 Continue\r\n\r\n" * 3 + reply(BODY)), ""),
    "a reply without a length": (sends(OK + b"\r\n" + BODY), ""),
    "HTTP 1.0": (sends(b"HTTP/1.0 200 OK\r\n\r\n" + BODY), ""),
    "equal lengths twice": (sends(OK + b"Content-Length: %d\r\n" % len(BODY) +
                                  length(b"%d" % len(BODY))[len(OK):] + BODY), ""),
    "small chunks": (sends(CHUNKED + b"".join(b"1\r\n%c\r\n" % byte for byte in BODY) +
                           b"0\r\n\r\n"), ""),
    "trailers": (sends(CHUNKED + b"%x\r\n" % len(BODY) + BODY + b"\r\n0\r\nX-One: 1\r\n\r\n"), ""),
    "continues for ever": (forever(b"", b"HTTP/1.1 100 Continue\r\n\r\n" * 100), INVALID),
    "headers for ever": (forever(OK, b"X-More: " + b"x" * 1000 + b"\r\n"), INVALID),
    "one header for ever": (forever(OK + b"X-More: ", b"x" * 10_000), INVALID),
    "short headers for ever": (forever(OK, b"a:\r\n" * 1000), INVALID),
    "trailers for ever": (forever(CHUNKED + b"5\r\nhello\r\n0\r\n",
                                  b"X-More: " + b"x" * 1000 + b"\r\n"), INVALID),
    "a chunk extension for ever": (forever(CHUNKED + b"5;", b"x" * 10_000), INVALID + "|" + LOST),
    "a body for ever": (forever(OK + b"\r\n", b"x" * 100_000), INVALID),
    "chunks for ever": (forever(CHUNKED, b"5\r\nhello\r\n" * 1000), INVALID),
    "a length over the limit": (sends(length(b"%d" % (200 << 20)), "hold"), INVALID + "|" + TIMEOUT),
}
WAITING = {
    "says nothing": (lambda peer: (peer.request(), peer.hold()), TIMEOUT),
    "stops within the headers": (sends(OK + b"Conte", "hold"), TIMEOUT),
    "stops within the body": (sends(length(b"9999") + BODY, "hold"), TIMEOUT),
    "stops within the trailers": (sends(CHUNKED + b"1\r\nx\r\n0\r\nX-", "hold"), TIMEOUT),
}
NEVER_ENDING = {
    "a byte a second": (forever(OK + b"\r\n", b" ", pause=1), TIMEOUT),
    "a header byte a second": (forever(OK + b"X:", b"x", pause=1), TIMEOUT),
    "a trailer a second": (forever(CHUNKED + b"1\r\nx\r\n0\r\n", b"a:\r\n", pause=1), TIMEOUT),
}


def faults_of(done, message, expected, server, seconds):
    faults = []
    if done.died:
        faults.append("it died")
    if done.status != (1 if expected else 0):
        faults.append(f"status {done.status}")
    if not any(part in message for part in expected.split("|")):
        faults.append(f"message {message!r}")
    if server.posts != 1:
        faults.append(f"{server.posts} posts")
    if done.seconds > seconds:
        faults.append(f"{done.seconds:.0f} s")
    if done.megabytes > MOST_MEGABYTES:
        faults.append(f"{done.megabytes:.0f} MB")
    return faults


def examine_fault(tally, name, handle, expected, seconds):
    with Server(handle) as server:
        done = enquire(server.url(), limit=seconds + 30)
        message = done.json().get("ErrorMessage", done.said())
        faults = faults_of(done, message, expected, server, seconds)
        if not expected and done.json().get("Response", {}).get("LastName") != "Clean":
            faults.append("the report is missing")
    tally.faultless(name, faults)


def examine_challenges(tally):
    """Challenges for ever: two tries with the credentials, and the message of status 401."""
    with Server(stale_for_ever) as server:
        done = enquire(server.url(), limit=60)
        answered = [post for post in server.requests if post.header("Authorization")]
        tally.expect("a digest challenge that is stale for ever: two tries at most",
                     done.status == 1 and len(answered) <= 2 and server.posts <= 3 and
                     "(401)" in done.said(), f"{server.posts} posts, {done}")


def own_name(request):
    """The family name that a request document asks for."""
    body = request.body.decode()
    return body.partition("<family-name>")[2].partition("<")[0]


def examine_strays(tally):
    """What a server sends out of turn is never the next applicant's report."""
    names = [f"Applicant{letter}" for letter in "ABCDEFGH"]

    def twice(peer):
        while (request := peer.request()) is not None:
            peer.send(reply(report(own_name(request))) * 2)

    def late_408(peer):
        while (request := peer.request()) is not None:
            peer.send(reply(report(own_name(request))))
            time.sleep(0.05)
            peer.send(reply("", "408 Request Timeout", "Connection: close\r\n"))

    for case, handle in (("a reply twice: everyone gets an own report", twice),
                         ("a 408 on an idle connection: everyone gets an own report", late_408)):
        with Server(handle) as server, Folder() as folder:
            (folder / "settings").write_text(json.dumps({"VedaXMLAU": lender(server.url())}))
            jobs = "".join(json.dumps({"Country": "AU", "Request": {**ENQUIRY, "LastName": name}})
                           + "\n" for name in names)
            done = host("enquire", "--ndjson", "--settings", folder / "settings",
                        given=jobs.encode())
            results = [json.loads(line) for line in done.out.splitlines()]
            for name, result in zip(names, results + [{}] * len(names)):
                got = result.get("Response", {}).get("LastName", "")
                tally.expect(case, got.upper() == name.upper(), f"{name} got {got!r}")
            tally.expect("each of them is posted once", server.posts == len(names),
                         f"{server.posts} posts of {len(names)}")
            tally.expect("each of them has a connection of its own",
                         server.connections == len(names), f"{server.connections} connections")


def examine(tally, bounded):
    waiting = [(name, *row, MOST_SECONDS + 20) for name, row in WAITING.items()]
    if not bounded:
        waiting += [(name, *row, WHOLE_SECONDS) for name, row in NEVER_ENDING.items()]
    faults = [(name, *row, MOST_SECONDS) for name, row in FAULTS.items()]
    # Those that wait begin first, beside the two at a time that work.
    side_by_side(lambda case: examine_fault(tally, *case), waiting + faults, len(waiting) + 2)
    examine_challenges(tally)
    examine_strays(tally)
