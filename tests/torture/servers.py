"""Servers on loopback that send exactly what a case tells them, byte by byte."""

import socket
import ssl
import subprocess
import threading
import time



class Request:
    def __init__(self, head, body, connection):
        self.head = head
        self.body = body
        self.connection = connection

    def header(self, name):
        for line in self.head.split(b"\r\n")[1:]:
            key, _, value = line.partition(b":")
            if key.strip().lower() == name.lower().encode():
                return value.strip().decode("latin-1")
        return ""


class Peer:
    """One accepted connection."""

    def __init__(self, server, stream, number):
        self.server = server
        self.stream = stream
        self.number = number
        self.buffer = b""

    def request(self):
        """The next request, noted down; None where the peer has gone."""
        while b"\r\n\r\n" not in self.buffer:
            if not self._more():
                return None
        head, _, self.buffer = self.buffer.partition(b"\r\n\r\n")
        request = Request(head, b"", self.number)
        length = int(request.header("Content-Length") or 0)
        while len(self.buffer) < length:
            if not self._more():
                return None
        request.body, self.buffer = self.buffer[:length], self.buffer[length:]
        self.server.requests.append(request)
        return request

    def _more(self):
        data = self.stream.recv(65536)
        self.buffer += data
        return bool(data)

    def send(self, data):
        self.stream.sendall(data)

    def send_forever(self, piece, first=b"", most=400 << 20, pause=0.0):
        """Sends until the peer has had enough, or far more than it should take."""
        self.send(first)
        sent = 0
        while sent < most and not self.server.closing:
            self.send(piece)
            sent += len(piece)
            if pause:
                time.sleep(pause)

    def hold(self, seconds=900):
        """Keeps the connection open, saying nothing, until the peer leaves it."""
        end = time.monotonic() + seconds
        self.stream.settimeout(0.5)
        while time.monotonic() < end and not self.server.closing:
            try:
                if not self.stream.recv(65536):
                    return
            except (TimeoutError, ssl.SSLWantReadError):
                continue

    def reset(self):
        """Makes the close a reset."""
        self.stream.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER,
                               b"\x01\x00\x00\x00\x00\x00\x00\x00")

    def start_tls(self, context):
        self.stream = context.wrap_socket(self.stream, server_side=True)


class Server:
    """Hands every connection to `handle(peer)` on a thread of its own."""

    def __init__(self, handle, context=None):
        self.handle = handle
        self.context = context
        self.requests = []
        self.connections = 0
        self.closing = False
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while True:
            try:
                stream, _ = self.listener.accept()
            except OSError:
                return
            self.connections += 1
            threading.Thread(target=self._serve, args=(stream, self.connections),
                             daemon=True).start()

    def _serve(self, stream, number):
        peer = Peer(self, stream, number)
        try:
            if self.context:
                peer.start_tls(self.context)
            self.handle(peer)
        except (OSError, ValueError):
            pass  # the peer has gone, or broke the handshake off
        finally:
            try:
                peer.stream.close()
            except OSError:
                pass

    @property
    def posts(self):
        return sum(request.head.startswith(b"POST ") for request in self.requests)

    def url(self, path="/sys1", scheme=None):
        return f"{scheme or ('https' if self.context else 'http')}://127.0.0.1:{self.port}{path}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.closing = True
        self.listener.close()


def reply(body, status="200 OK", headers=""):
    body = body if isinstance(body, bytes) else body.encode()
    return (f"HTTP/1.1 {status}\r\nContent-Length: {len(body)}\r\n{headers}\r\n").encode() + body


def answering(answer):
    """A handler that answers request after request."""
    def handle(peer):
        while (request := peer.request()) is not None:
            peer.send(answer(request))
    return handle


def report(name="Clean", extra=""):
    """A bureau's reply for an applicant, short and in order."""
    return ("<BCAmessage type=\"RESPONSE\"><BCAservices><BCAservice><BCAservice-data><response>"
            "<enquiry-report><primary-match type=\"complete\"><individual><individual-name>"
            f"<family-name>{name}</family-name><first-given-name>Ann</first-given-name>"
            f"</individual-name></individual>{extra}</primary-match></enquiry-report></response>"
            "</BCAservice-data></BCAservice></BCAservices></BCAmessage>")


def openssl(*arguments, folder):
    subprocess.run(["openssl", *arguments], cwd=folder, check=True, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def make_authority(folder, name="authority"):
    openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", f"{name}.key", "-out",
            f"{name}.pem", "-days", "30", "-subj", f"/CN={name}", "-addext",
            "basicConstraints=critical,CA:TRUE", "-addext", "keyUsage=critical,keyCertSign,cRLSign",
            folder=folder)
    return folder / f"{name}.pem"


def make_certificate(folder, name, names="IP:127.0.0.1", subject="/CN=bureau", more="",
                     authority="authority", key=("-newkey", "rsa:2048"), digest="sha256",
                     days=("-days", "30")):
    """A key and a certificate of an authority in the folder; gives the file that holds both."""
    openssl("req", *key, "-nodes", "-keyout", f"{name}.key", "-out", f"{name}.csr", "-subj",
            subject, folder=folder)
    extensions = (f"subjectAltName={names}\n" if names else "") + more
    (folder / f"{name}.ext").write_text(extensions)
    (folder / f"{name}.db").touch()
    if days[0] == "-days":
        openssl("x509", "-req", "-in", f"{name}.csr", "-CA", f"{authority}.pem", "-CAkey",
                f"{authority}.key", "-CAcreateserial", "-out", f"{name}.crt", f"-{digest}", *days,
                "-extfile", f"{name}.ext", folder=folder)
    else:
        (folder / f"{name}.cnf").write_text(
            "[ca]\ndefault_ca=d\n[d]\n"
            f"database={name}.db\nnew_certs_dir=.\nserial={name}.srl\ndefault_md={digest}\n"
            "policy=p\nunique_subject=no\n[p]\ncommonName=optional\n")
        (folder / f"{name}.srl").write_text("01\n")
        openssl("ca", "-batch", "-config", f"{name}.cnf", "-in", f"{name}.csr", "-cert",
                f"{authority}.pem", "-keyfile", f"{authority}.key", "-out", f"{name}.crt",
                "-notext", *days, "-extfile", f"{name}.ext", folder=folder)
    both = folder / f"{name}.both"
    both.write_text((folder / f"{name}.key").read_text() + (folder / f"{name}.crt").read_text())
    return both


def tls(both, chain=None, change=None):
    """A server's side of TLS."""
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.set_ciphers("ALL:@SECLEVEL=0")
    if chain:
        both.write_text(both.read_text() + chain.read_text())
    context.load_cert_chain(both)
    if change:
        change(context)
    return context
