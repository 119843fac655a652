"""Measures `ymap serve` beside netconfd, Debian's NETCONF server with a datastore of its own: the same
requests on the same interfaces by pipe, one server after the other. Both are driven as sshd drives
them, by the program that is their subsystem: for netconfd that is netconf-subsystem, in front of a
server that is there already and saves its data in a file, which it doesn't flush; `ymap serve` is
the server itself and flushes its file ahead of the answer.

usage: serve_beside_netconfd.py YMAP [--json FILE] [--sizes N...]   1,000 and 10,000 unless given

Prints a table. FILE gets the same as rows for report.py.
"""

import argparse
import contextlib
import getpass
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

NETCONF = "urn:ietf:params:xml:ns:netconf:base:1.0"
INTERFACES = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
EMPTY = '<interface-configurations xmlns="http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"/>\n'
# netconfd's own, which no option moves.
SOCKET = pathlib.Path("/tmp/ncxserver.sock")
PORT = 2840

HELLO = (f'<hello xmlns="{NETCONF}"><capabilities><capability>'
         "urn:ietf:params:netconf:base:1.1</capability></capabilities></hello>]]>]]>").encode()


class Session:
    """A session by pipe, opened up to the server's hello; `greeting` is the time to it."""

    def __init__(self, command, environment=None):
        began = time.perf_counter()
        # pylint: disable-next=consider-using-with
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        env=environment)
        self.write(HELLO)
        self.read(b"]]>]]>")
        self.greeting = time.perf_counter() - began

    def write(self, data):
        view = memoryview(data)
        while view:
            view = view[os.write(self.process.stdin.fileno(), view):]

    def read(self, end):
        pieces, tail = [], b""
        while not tail.endswith(end):
            piece = os.read(self.process.stdout.fileno(), 1 << 20)
            if not piece:
                sys.exit(f"{self.process.args[0]} has ended the session")
            pieces.append(piece)
            tail = tail[-len(end):] + piece
        return b"".join(pieces)

    def request(self, *operations):
        """Carries operations out one after the other; seconds for all, and the last answer."""
        messages = [f'<rpc message-id="1" xmlns="{NETCONF}">{operation}</rpc>'.encode()
                    for operation in operations]
        began = time.perf_counter()
        for message in messages:
            self.write(b"\n#%d\n%b\n##\n" % (len(message), message))
            answer = self.read(b"\n##\n")
        seconds = time.perf_counter() - began
        message = joined(answer)
        if b"<rpc-error" in message:
            sys.exit(f"{self.process.args[0]} answers: {message.decode()}")
        return seconds, message

    def close(self):
        self.request("<close-session/>")
        self.process.wait(timeout=30)


def joined(answer):
    """The message that chunks make (RFC 6242, 4.2)."""
    pieces, at = [], 0
    while not answer.startswith(b"\n##\n", at):
        end = answer.index(b"\n", at + 1)
        size = int(answer[at + 2:end])
        pieces.append(answer[end + 1:end + 1 + size])
        at = end + 1 + size
    return b"".join(pieces)


class Ymap:
    """The server of this project, with the running configuration in a file."""

    name = "ymap serve"

    def __init__(self, command, folder):
        self.running = folder / "running.xml"
        self.running.write_text(EMPTY, encoding="utf-8")
        # "type" has no place in the router's model; netconfd wants it.
        self.command = [command, "serve", "--running", str(self.running), "--unmapped", "drop"]

    def open(self):
        return Session(self.command)

    @staticmethod
    def edit(config):
        return [edit_config("running", config)]


class Netconfd:
    """The peer. As it comes, it takes edits in a candidate, which a commit makes the running
    configuration; it can be told to take them there at once."""

    name = "netconfd"

    def __init__(self, folder, target="candidate"):
        if SOCKET.exists():
            sys.exit(f"{SOCKET} is there: netconfd runs already, or has left it")
        # Where it saves its data.
        home = {**os.environ, "YUMA_HOME": str(folder)}
        (folder / "data").mkdir(exist_ok=True)
        self.target = target
        self.environment = {**home, "USER": getpass.getuser(),
                            "SSH_CONNECTION": f"127.0.0.1 1 127.0.0.1 {PORT}"}
        with open(folder / "netconfd.log", "wb") as log:
            # pylint: disable-next=consider-using-with
            self.process = subprocess.Popen(
                ["netconfd", "--module=ietf-interfaces", "--module=iana-if-type", "--no-startup",
                 f"--superuser={getpass.getuser()}", f"--port={PORT}", f"--target={target}"],
                stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT, cwd=folder,
                env=home)
        for _ in range(300):
            if SOCKET.exists():
                return
            if self.process.poll() is not None:
                break
            time.sleep(0.1)
        self.close()
        sys.exit("netconfd doesn't get ready: " + (folder / "netconfd.log").read_text())

    def open(self):
        session = Session(["netconf-subsystem", f"--ncxserver-sockname={PORT}@{SOCKET}"],
                          self.environment)
        # A request that comes together with the hello would not be answered.
        time.sleep(0.1)
        return session

    def edit(self, config):
        edit = [edit_config(self.target, config)]
        return edit if self.target == "running" else edit + ["<commit/>"]

    def close(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(timeout=60)
        with contextlib.suppress(FileNotFoundError):
            SOCKET.unlink()


def edit_config(target, config):
    return (f"<edit-config><target><{target}/></target><config>"
            f'<interfaces xmlns="{INTERFACES}">{config}</interfaces></config></edit-config>')


def interface_name(number):
    return f"gigabit-ethernet-{number // 100}/{number % 100}"


def entry(number):
    return (f'<interface xmlns:nc="{NETCONF}" nc:operation="create">'
            f"<name>{interface_name(number)}</name><description>Port {number}</description>"
            "<enabled>true</enabled>"
            '<type xmlns:ianaift="urn:ietf:params:xml:ns:yang:iana-if-type"'
            ">ianaift:ethernetCsmacd</type></interface>")


def read(content):
    return ('<get-config><source><running/></source><filter type="subtree">'
            f'<interfaces xmlns="{INTERFACES}">{content}</interfaces></filter></get-config>')


def number_of(index, size):
    """Interfaces in an order that no cache has guessed."""
    return index * 7919 % size


def rate(session, make, seconds, most):
    """Requests a second of those that `make` gives for 0, 1, ..., the best of three stretches."""
    best = 0
    for stretch in range(3):
        began, count = time.perf_counter(), 0
        while count < most and time.perf_counter() - began < seconds:
            session.request(*make(stretch * most + count))
            count += 1
        best = max(best, count / (time.perf_counter() - began))
        if time.perf_counter() - began > 4 * seconds:
            break  # a request that takes that long isn't measured better by a second one
    return best


def created(server, size):
    """A session with all interfaces, and the time that their edit took."""
    session = server.open()
    seconds, _ = session.request(*server.edit("".join(map(entry, range(size)))))
    return session, seconds


def edit_rate(server, session, size):
    def edit_one(index):
        return server.edit(
            f"<interface><name>{interface_name(number_of(index, size))}</name>"
            f"<description>Edit {index}</description></interface>")

    return rate(session, edit_one, 1, 1000)


def measure(server, size):
    """The figures of one server, by name."""
    session, create = created(server, size)
    _, answer = session.request(read(""))
    found = answer.count(b"<description>")
    if found != size:
        sys.exit(f"{server.name} has {found} interfaces, not {size}")
    every = min(session.request(read(""))[0] for _ in range(7))

    def read_one(index):
        return [read(f"<interface><name>{interface_name(number_of(index, size))}</name></interface>")]

    reads = rate(session, read_one, 1, 100000)
    _, answer = session.request(*read_one(3))
    if answer.count(b"<description>") != 1:
        sys.exit(f"{server.name} finds more or less than one interface")
    edits = edit_rate(server, session, size)
    session.close()
    greetings = []
    for _ in range(40):
        other = server.open()
        greetings.append(other.greeting)
        other.close()
    return {"reads": reads, "edits": edits, "create": create, "all": every,
            "hello": min(greetings)}


# What is compared: its name, its unit and the figure's multiple of a second, whether more is better.
KINDS = {
    "reads": ("reads of one interface by name", "a second", 1, True),
    "edits": ("edits of one leaf, acknowledged", "a second", 1, True),
    "create": ("create of all in one edit", "ms", 1e3, False),
    "all": ("read of all", "ms", 1e3, False),
    "hello": ("hello to hello", "ms", 1e3, False),
}
# Bounds on ymap's figure over netconfd's.
BOUNDS = {
    1000: {"reads": 1, "edits": 10, "create": 1, "all": 1, "hello": 2},
    10000: {"reads": 10, "edits": 100, "create": 0.1, "all": 1},
}


def rows(size, ours, peers, peers_direct_edits):
    """Rows of the report for one size."""
    section = f"Over NETCONF, beside netconfd: {size:,} interfaces"
    for kind, (name, unit, factor, more_is_better) in KINDS.items():
        ratio = ours[kind] / peers[kind]
        bound = BOUNDS.get(size, {}).get(kind)
        holds = None if bound is None else ratio >= bound if more_is_better else ratio <= bound
        least = None if bound is None else f"{'at least' if more_is_better else 'at most'} {bound:g}"
        yield from ({"section": section, "name": f"{name}: {whose}", "value": figures[kind] * factor,
                     "unit": unit, "bound": None, "holds": None}
                    for whose, figures in ((Ymap.name, ours), (Netconfd.name, peers)))
        yield {"section": section, "name": f"{name}: {Ymap.name} over {Netconfd.name}",
               "value": ratio, "unit": "times", "bound": least, "holds": holds}
    yield {"section": section, "name": "edits of one leaf: netconfd without a candidate",
           "value": peers_direct_edits, "unit": "a second", "bound": None, "holds": None}


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("ymap")
    parser.add_argument("--json")
    parser.add_argument("--sizes", type=int, nargs="+", default=[1000, 10000])
    arguments = parser.parse_args()

    table = []
    for size in arguments.sizes:
        folder = pathlib.Path(tempfile.mkdtemp())
        try:
            ours = measure(Ymap(arguments.ymap, folder), size)
            with contextlib.closing(Netconfd(folder)) as peer:
                peers = measure(peer, size)
            with contextlib.closing(Netconfd(folder, "running")) as peer:
                session, _ = created(peer, size)
                direct_edits = edit_rate(peer, session, size)
                session.close()
        finally:
            shutil.rmtree(folder)
        table += rows(size, ours, peers, direct_edits)

    section = None
    for row in table:
        if row["section"] != section:
            section = row["section"]
            print(f"\n{section}")
        holds = {None: "", True: "yes", False: "NO"}[row["holds"]]
        print(f"  {row['name']:62}  {row['value']:10.3f} {row['unit']:8}  {row['bound'] or '':12}  "
              f"{holds}")
    if arguments.json:
        with open(arguments.json, "w", encoding="utf-8") as file:
            json.dump(table, file, indent=2)
    return 0 if all(row["holds"] is not False for row in table) else 1


if __name__ == "__main__":
    sys.exit(main())
