#!/usr/bin/env python3
"""Many sessions of `ymap serve` on one running configuration: some are killed at random moments in
the midst of edits, and many edit at once. The document is whole at every moment, and has every edit
that was acknowledged.

usage: sessions.py --ymap COMMAND [--killed N] [--at-once N] [--seed N] [--json FILE]
FILE gets what was found as rows for bench/report.py, the memory of an idle session among them.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import threading
import time
import xml.etree.ElementTree as ET

NETCONF = "urn:ietf:params:xml:ns:netconf:base:1.0"
INTERFACES = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
NATIVE = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"
END = b"]]>]]>"


def row(name, value, unit="", bound=None, holds=None):
    """A row for bench/report.py."""
    return {"section": "Over NETCONF: many sessions", "name": name, "value": value, "unit": unit,
            "bound": bound, "holds": holds}


class Gone(Exception):
    """The session has ended."""


class Session:
    """A session over pipes, in the framing of base:1.0."""

    def __init__(self, command, log):
        # pylint: disable-next=consider-using-with
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=log)
        self.taken = b""
        self.send(f'<hello xmlns="{NETCONF}"><capabilities><capability>'
                  "urn:ietf:params:netconf:base:1.0</capability></capabilities></hello>")
        self.receive()

    def send(self, message):
        try:
            os.write(self.process.stdin.fileno(), message.encode() + END)
        except BrokenPipeError as error:
            raise Gone from error

    def receive(self):
        while END not in self.taken:
            piece = os.read(self.process.stdout.fileno(), 1 << 16)
            if not piece:
                raise Gone
            self.taken += piece
        message, _, self.taken = self.taken.partition(END)
        return message.decode()

    def create(self, name):
        self.send(f'<rpc message-id="1" xmlns="{NETCONF}"><edit-config><target><running/></target>'
                  f'<config><interfaces xmlns="{INTERFACES}"><interface xmlns:nc="{NETCONF}" '
                  f'nc:operation="create"><name>{name}</name><description>Made by a session that '
                  "may not live long</description></interface></interfaces></config>"
                  "</edit-config></rpc>")
        answer = self.receive()
        if "<ok/>" not in answer:
            raise AssertionError(f"create of {name}: {answer}")

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait()


class Store:
    """A running configuration and the log of its sessions."""

    def __init__(self, ymap, folder):
        self.running = folder / "running.xml"
        self.running.write_text(f'<interface-configurations xmlns="{NATIVE}"/>\n')
        self.command = [ymap, "serve", "--running", str(self.running), "--log-to-stderr"]
        self.log_path = folder / "log"
        self.log = open(self.log_path, "ab")  # pylint: disable=consider-using-with

    def open(self):
        return Session(self.command, self.log)

    def names(self):
        """The interfaces in the file as it is now, which is whole or no XML."""
        root = ET.parse(self.running).getroot()
        return [each.text for each in root.iter(f"{{{NATIVE}}}interface-name")]


def kill_sessions(store, count, seed):
    """Sessions create interfaces until they are killed; three live at a time, while the file is read
    over and over."""
    before = set(store.names())
    acknowledged, asked = set(), {}
    is_done = threading.Event()
    reads = 0

    def read_over_and_over():
        nonlocal reads
        while not is_done.is_set():
            store.names()
            reads += 1
            time.sleep(0.002)

    def live_and_die(number):
        random_numbers = random.Random(seed * 1000 + number)
        session = store.open()
        killer = threading.Timer(random_numbers.uniform(0.0, 0.08), session.process.kill)
        killer.start()
        try:
            for each in range(10**6):
                name = asked[number] = f"port-{number}-{each}"
                session.create(name)
                acknowledged.add(name)
        except (Gone, ConnectionResetError):
            pass
        finally:
            killer.join()
            session.close()

    with concurrent.futures.ThreadPoolExecutor(4) as pool:
        reader = pool.submit(read_over_and_over)
        lives = [pool.submit(live_and_die, number) for number in range(count)]
        try:
            for life in lives:
                life.result()
        finally:
            is_done.set()
        reader.result()

    names = [name for name in store.names() if name not in before]
    lost = acknowledged - set(names)
    more = set(names) - acknowledged - set(asked.values())
    assert not lost, f"acknowledged and not there: {sorted(lost)}"
    assert not more, f"there and never asked for: {sorted(more)}"
    assert len(names) == len(set(names)), "an interface is there twice"
    assert len(acknowledged) >= count / 4, f"only {len(acknowledged)} edits were acknowledged"
    last = store.open()  # whoever comes next isn't held up by what the dead have left
    last.create("after-all")
    last.close()
    assert "after-all" in store.names()
    print(f"killed: {count} sessions, {len(acknowledged)} edits acknowledged, all of them there, "
          f"{len(set(names) - acknowledged)} more done when their session died; the document was "
          f"whole at each of {reads} looks")
    return [
        row(f"{count} sessions killed at random moments of their edits: edits acknowledged",
            len(acknowledged)),
        row("the same: acknowledged and lost", len(lost), bound="at most 0", holds=True),
        row("the same: looks at the document that found it torn", 0, bound="at most 0", holds=True),
    ]


def edit_at_once(store, count, edits=4):
    """Sessions that are all open edit at once."""
    began = time.monotonic()
    sessions = [store.open() for _ in range(count)]
    opened = time.monotonic()
    barrier = threading.Barrier(count)

    def edit(number):
        barrier.wait()
        for each in range(edits):
            sessions[number].create(f"at-once-{number}-{each}")

    with concurrent.futures.ThreadPoolExecutor(count) as pool:
        for done in [pool.submit(edit, number) for number in range(count)]:
            done.result()
    ended = time.monotonic()
    names = set(store.names())
    lost = {f"at-once-{number}-{each}" for number in range(count) for each in range(edits)} - names
    assert not lost, f"acknowledged and not there: {sorted(lost)}"
    for session in sessions:
        session.close()
        assert session.process.returncode == 0, f"exit {session.process.returncode}"
    print(f"at once: {count} sessions opened in {opened - began:.2f} s, {count * edits} edits, all "
          f"acknowledged and there, in {ended - opened:.2f} s")
    return [row(f"{count} sessions at once: edits acknowledged and stored",
                count * edits / (ended - opened), "a second"),
            row("the same: opening all of them", opened - began, "s")]


def memory_of(session):
    """Resident memory and the part that no other process has, in KiB."""
    values = {}
    path = pathlib.Path(f"/proc/{session.process.pid}/smaps_rollup")
    for line in path.read_text(encoding="ascii").splitlines()[1:]:
        name, value = line.split(":")
        values[name] = int(value.split()[0])
    return values["Rss"], values["Private_Clean"] + values["Private_Dirty"]


def idle_memory(store):
    """Of a session that has read its document, among ten."""
    sessions = [store.open() for _ in range(10)]
    time.sleep(0.5)
    resident, own = memory_of(sessions[-1])
    print(f"idle: a session of ten takes {resident:,} KiB, {own:,} KiB of them its own")
    for session in sessions:
        session.close()
    return [row("memory of an idle session on a small document", resident, "KiB"),
            row("the same, what it shares with no other process", own, "KiB")]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("--ymap", required=True)
    parser.add_argument("--killed", type=int, default=150)
    parser.add_argument("--at-once", type=int, default=50)
    parser.add_argument("--json")
    parser.add_argument("--seed", type=int, default=random.randrange(10**6))
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}")
    with tempfile.TemporaryDirectory() as folder:
        store = Store(os.path.realpath(arguments.ymap), pathlib.Path(folder))
        try:
            rows = (idle_memory(store) + edit_at_once(store, arguments.at_once)
                    + kill_sessions(store, arguments.killed, arguments.seed))
        except BaseException:
            log = store.log_path.read_text(errors="replace")
            print("\n".join(log.splitlines()[-20:]), file=sys.stderr)
            raise
    if arguments.json:
        pathlib.Path(arguments.json).write_text(json.dumps(rows, indent=2))
    return 0


if __name__ == "__main__":
    sys.exit(main())
