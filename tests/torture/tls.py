"""Servers whose TLS is not to be trusted: refused with the number that says why, nothing sent."""

import ssl

from kit import Folder, enquire, side_by_side
from servers import Server, answering, make_authority, make_certificate, reply, report, tls

SECURITY, OTHER_HOST = "error -2147012721)", "error -2147012858)"
EXPIRED, UNKNOWN = "error -2147012859)", "error -2147012851)"
LOST, TIMEOUT = "error -2147012866)", "error -2147012894)"
SERVER_USE = "extendedKeyUsage=serverAuth\n"


def version(name):
    def change(context):
        context.minimum_version = ssl.TLSVersion.MINIMUM_SUPPORTED
        context.maximum_version = getattr(ssl.TLSVersion, name)
    return change


def ciphers(names):
    def change(context):
        context.maximum_version = ssl.TLSVersion.TLSv1_2
        context.set_ciphers(names + ":@SECLEVEL=0")
    return change


# name: how the certificate is made, how TLS is changed, what the message carries
BAD = {
    "its own authority": ({"authority": "stranger"}, None, UNKNOWN),
    "expired": ({"days": ("-startdate", "20200101000000Z", "-enddate", "20210101000000Z")}, None,
                EXPIRED),
    "not yet valid": ({"days": ("-startdate", "20900101000000Z", "-enddate", "20910101000000Z")},
                      None, EXPIRED + "|" + SECURITY),
    "another host": ({"names": "DNS:bureau.example"}, None, OTHER_HOST),
    "another address": ({"names": "IP:127.0.0.2"}, None, OTHER_HOST),
    "a wildcard for everything": ({"names": "DNS:*"}, None, OTHER_HOST),
    "the address as a name": ({"names": "DNS:127.0.0.1"}, None, OTHER_HOST),
    "the name in the subject only": ({"names": "DNS:x.example", "subject": "/CN=127.0.0.1"}, None,
                                     OTHER_HOST),
    "issued for clients only": ({"more": "extendedKeyUsage=clientAuth\n"}, None, SECURITY + "|" +
                                UNKNOWN),
    "a key of 512 bits": ({"key": ("-newkey", "rsa:512")}, None, SECURITY),
    "signed with MD5": ({"digest": "md5"}, None, SECURITY + "|" + UNKNOWN),
    "issued by one that is no authority": ({"authority": "leaf"}, None, UNKNOWN + "|" + SECURITY),
    "TLS 1.0": ({}, version("TLSv1"), SECURITY + "|" + LOST),
    "TLS 1.1": ({}, version("TLSv1_1"), SECURITY + "|" + LOST),
    "no encryption": ({}, ciphers("NULL"), SECURITY),
    "no authentication": ({}, ciphers("aNULL"), SECURITY),
}
BROKEN = {
    "says nothing": (lambda peer: peer.hold(), TIMEOUT),
    "plain text": (lambda peer: peer.send(b"HTTP/1.1 200 OK\r\n\r\n<r/>"), SECURITY + "|" + LOST),
    "closes at once": (lambda peer: None, LOST + "|" + SECURITY),
    "closes after the greeting": (lambda peer: peer.stream.recv(4096), LOST + "|" + SECURITY),
    "an alert": (lambda peer: peer.send(b"\x15\x03\x03\x00\x02\x02\x28"), SECURITY + "|" + LOST),
    "records of noise": (lambda peer: peer.send(b"\x16\x03\x03\x40\x00" + b"\xff" * 16384),
                         SECURITY + "|" + LOST),
}


def examine_server(tally, name, server, expected, folder, posts=0, status=1):
    with server:
        done = enquire(server.url(scheme="https"), limit=90,
                       environment={"SSL_CERT_FILE": str(folder / "authority.pem")})
        message = done.json().get("ErrorMessage", done.said())
        faults = [] if done.status == status and not done.died else [str(done)]
        if not any(part in message for part in expected.split("|")):
            faults.append(f"message {message!r}")
        if server.posts != posts:
            faults.append(f"{server.posts} posts")
    tally.faultless(name, faults)


def examine(tally, _bounded):
    answer = answering(lambda _request: reply(report()))
    with Folder() as folder:
        make_authority(folder)
        make_authority(folder, "stranger")
        make_certificate(folder, "leaf")
        (folder / "leaf.pem").write_text((folder / "leaf.crt").read_text())

        good = make_certificate(folder, "good", more=SERVER_USE)
        examine_server(tally, "a good server is asked", Server(answer, tls(good)), "", folder, 1, 0)

        def bad(name):
            how, change, expected = BAD[name]
            both = make_certificate(folder, f"bad{list(BAD).index(name)}", **how)
            chain = folder / "leaf.pem" if how.get("authority") == "leaf" else None
            examine_server(tally, name, Server(answer, tls(both, chain, change)), expected, folder)

        def broken(name):
            handle, expected = BROKEN[name]
            examine_server(tally, name, Server(handle), expected, folder)

        side_by_side(lambda name: (bad if name in BAD else broken)(name), [*BROKEN, *BAD], 3)
