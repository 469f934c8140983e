"""What every group is made with: a tally of what held, and programs run under watch."""

import json
import os
import pathlib
import resource
import shutil
import signal
import socket
import subprocess
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build"
BIN = BUILD / "release" / "bin"
HOST = BIN / "zrcreditbureau"
GATEWAY = BIN / "bureau_gateway"
EXAMPLES = ROOT / "examples"
MEGABYTE = 1 << 20

# What a person's details and the lender's secrets stand for while a case runs.
ENQUIRY = {"ServiceName": "VedaXMLAU", "ProductId": "consumer-enquiry", "LastName": "Clean",
           "FirstName": "Ann", "Gender": "Female", "DateOfBirth": "1970-01-02",
           "StreetNumber": "1", "StreetName": "High", "StreetType": "Street", "Suburb": "Kew",
           "State": "VIC", "Postcode": "3101", "AccountType": "Terms", "EnquiryAmount": 15000}


class Tally:
    """The rows of one group: how often each case was tried, and how often it held."""

    def __init__(self, group):
        self.group = group
        self.rows = {}
        self.faults = []
        self._lock = threading.Lock()

    def expect(self, case, held, told=""):
        """Counts one try of a case; `told` says what was seen where it did not hold."""
        with self._lock:
            row = self.rows.setdefault(case, [0, 0])
            row[0] += 1
            row[1] += bool(held)
            if not held:
                self.faults.append((case, str(told)))
        return bool(held)

    def count(self, case, tried, held, told=""):
        """Adds what another program counted."""
        with self._lock:
            row = self.rows.setdefault(case, [0, 0])
            row[0] += tried
            row[1] += held
            if held != tried:
                self.faults.append((case, str(told)))

    def faultless(self, case, faults):
        """Counts one try of a case that is told by its list of faults."""
        return self.expect(case, not faults, "; ".join(faults))


class Ran:
    """What a program did and took."""

    def __init__(self, status, out, err, usage, seconds, late):
        self.status = status            # negative: the signal that ended it
        self.out = out
        self.err = err
        self.cpu = usage.ru_utime + usage.ru_stime
        self.megabytes = usage.ru_maxrss / 1024
        self.seconds = seconds
        self.late = late                # it was ended for taking too long

    @property
    def died(self):
        return self.late or self.status < 0 or self.status > 128

    def json(self):
        """Its output as one JSON document; an empty one where it is none."""
        try:
            return json.loads(self.out)
        except ValueError:
            return {}

    def said(self):
        """All that it printed."""
        return (self.out + self.err).decode("utf-8", "replace")

    def __str__(self):
        return (f"status {self.status}{' (stopped as too slow)' if self.late else ''}, "
                f"{self.cpu:.1f} s CPU, {self.seconds:.1f} s, {self.megabytes:.0f} MB: "
                f"{self.err.decode('utf-8', 'replace')[:300]!r}")


def run(command, given=b"", environment=None, folder=None, limit=60, memory=None):
    """Runs a program to its end, or for `limit` seconds; `memory` bounds its address space in MB."""
    def prepare():
        if memory:
            resource.setrlimit(resource.RLIMIT_AS, (memory * MEGABYTE, memory * MEGABYTE))

    with tempfile.TemporaryFile() as source, tempfile.TemporaryFile() as out, \
            tempfile.TemporaryFile() as err:
        source.write(given)
        source.seek(0)
        begun = time.monotonic()
        process = subprocess.Popen([str(part) for part in command], stdin=source, stdout=out,
                                   stderr=err, cwd=folder, env=surroundings(environment),
                                   preexec_fn=prepare, start_new_session=True)
        late = threading.Event()
        timer = threading.Timer(limit, lambda: (late.set(), kill_group(process.pid)))
        timer.start()
        _, status, usage = os.wait4(process.pid, 0)
        timer.cancel()
        process.returncode = os.waitstatus_to_exitcode(status)
        seconds = time.monotonic() - begun
        out.seek(0)
        err.seek(0)
        return Ran(process.returncode, out.read(), err.read(), usage, seconds, late.is_set())


def kill_group(pid):
    try:
        os.killpg(pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def surroundings(more=None):
    """A plain environment: nothing of the machine's own proxies or certificates."""
    plain = {"PATH": "/usr/local/bin:/usr/bin:/bin:/usr/sbin", "LC_ALL": "C.UTF-8", "TZ": "UTC",
             "HOME": "/nonexistent"}
    plain.update({name: value for name, value in (more or {}).items() if value is not None})
    return plain


def host(*arguments, **how):
    return run([HOST, *arguments], **how)


def translate(path, *arguments, service="VedaXMLAU", date="2012-06-15", **how):
    return host("translate", path, "--service", service, "--date", date, "--format", "json",
                *arguments, **how)


def enquire(url, fields=None, settings=None, arguments=("--format", "json"), service="VedaXMLAU",
            **how):
    """One enquiry sent to an address, with the settings of a lender."""
    with Folder() as folder:
        job = {"Country": service[-2:], "Request": {**ENQUIRY, "ServiceName": service,
                                                    **(fields or {})}}
        (folder / "job.json").write_text(json.dumps(job))
        (folder / "settings.json").write_text(json.dumps({service: lender(url, settings)}))
        return host("enquire", "--request", folder / "job.json", "--settings",
                    folder / "settings.json", *arguments, **how)


def lender(url, more=None):
    """A service's settings."""
    return {"RequestURLTest": url, "UserId": "user-1", "UserPassword": "word-1",
            "SubscriberId": "SUB1", "SubscriberSecurityCode": "77", **(more or {})}


def jobs_of(replies, **more):
    """Lines that `translate --ndjson` and `--input` take, a reply each."""
    return "".join(json.dumps({"Country": "AU", "ResponseDate": "2012-06-15", **more,
                               "Request": {"ServiceName": "VedaXMLAU",
                                           "ProductId": "consumer-enquiry"},
                               "ResponseXML": reply}) + "\n" for reply in replies).encode()


class Folder:
    """A folder that is gone afterwards."""

    def __enter__(self):
        self.path = pathlib.Path(tempfile.mkdtemp(prefix="torture-"))
        return self.path

    def __exit__(self, *_):
        shutil.rmtree(self.path, ignore_errors=True)


def side_by_side(work, cases, workers=2):
    """Runs the cases on so many threads, waiting ones beside each other."""
    with ThreadPoolExecutor(workers) as pool:
        for done in [pool.submit(work, case) for case in cases]:
            done.result()


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def wait_until(true, seconds=10):
    end = time.monotonic() + seconds
    while not true():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


class Service:
    """A program that runs beside the cases and is stopped behind them."""

    def __init__(self, command, ready, environment=None, folder=None):
        self.process = subprocess.Popen([str(part) for part in command], cwd=folder,
                                        env=surroundings(environment), stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if not wait_until(lambda: ready() or self.process.poll() is not None) or not ready():
            self.stop()
            raise RuntimeError(f"{command[0]} did not start")

    def stop(self):
        self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()


def listens(port):
    with socket.socket() as probe:
        probe.settimeout(1)
        return probe.connect_ex(("127.0.0.1", port)) == 0


class Bureau(Service):
    """The stand-in for the bureau's gateway, with its log of exchanges."""

    def __init__(self, folder, *options):
        self.folder = folder
        self.log = folder / "exchanges"
        address = folder / "address"
        super().__init__([GATEWAY, "--ready-file", address, "--certificate-file",
                          folder / "bureau.pem", "--log", self.log, *options],
                         lambda: address.exists() and address.read_text().strip() != "",
                         environment={"BUREAU_GATEWAY_USER": "user-1",
                                      "BUREAU_GATEWAY_PASSWORD": "word-1"})
        self.url = address.read_text().strip() + "/cta/sys1"

    def trusted(self, more=None):
        return {"SSL_CERT_FILE": str(self.folder / "bureau.pem"), **(more or {})}

    def exchanges(self):
        return len(self.log.read_text().splitlines()) if self.log.exists() else 0
