#!/usr/bin/env python3
"""Sessions of `ymap serve` over pipes: what a client sends, byte by byte, what it gets, what is
stored and what the log says. No SSH is needed: the server knows nothing of it.
"""

import argparse
import calendar
import concurrent.futures as futures
import contextlib
import fcntl
import json
import os
import pathlib
import pwd
import re
import resource
import select
import signal
import subprocess
import sys
import tempfile
import threading
import time
import traceback
import xml.etree.ElementTree as ET

TOP = pathlib.Path(__file__).resolve().parent.parent
NC = "urn:ietf:params:xml:ns:netconf:base:1.0"
IF = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
CFG = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"
MONITORING = "urn:ietf:params:xml:ns:yang:ietf-netconf-monitoring"
BASE = "urn:ietf:params:netconf:base:"
LOOPBACK = "loopback10"
YMAP = None
SANITIZED = False
DEADLINE = 60  # seconds that a test waits for anything


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


def hello(*versions, more=""):
    capabilities = "".join(f"<capability>{BASE}{each}</capability>" for each in versions)
    return f'<hello xmlns="{NC}"><capabilities>{capabilities}</capabilities>{more}</hello>'


def rpc(operation, attributes='message-id="1"'):
    return f'<rpc xmlns="{NC}" {attributes}>{operation}</rpc>'


def ended(message):
    return message.encode() + b"]]>]]>"


def chunked(message, sizes=()):
    message, out = message.encode(), b""
    for size in (*sizes, len(message)):
        piece, message = message[:size], message[size:]
        out += b"\n#%d\n%s" % (len(piece), piece) if piece else b""
    return out + b"\n##\n"


def interfaces(content, attributes=""):
    return f'<interfaces xmlns="{IF}" xmlns:nc="{NC}"{attributes}>{content}</interfaces>'


def interface(name, content="", attributes=""):
    return interfaces(f"<interface{attributes}><name>{name}</name>{content}</interface>")


def operation(name):
    return f' nc:operation="{name}"'


def get(content=None, name="get", source=""):
    return f"<{name}>{source}" + ("" if content is None else
                                  f"<filter>{content}</filter>") + f"</{name}>"


def get_config(content=None, source="<running/>"):
    return get(content, "get-config", f"<source>{source}</source>")


def edit(config, options="", target="<running/>"):
    return (f"<edit-config><target>{target}</target>{options}<config>{config}</config>"
            "</edit-config>")


def describe(text, name=LOOPBACK):
    return edit(interface(name, f"<description>{text}</description>"))


def locks(name, target="<running/>"):
    return f"<{name}><target>{target}</target></{name}>"


def get_schema(identifier, more=""):
    return (f'<get-schema xmlns="{MONITORING}"><identifier>{identifier}</identifier>{more}'
            "</get-schema>")


class Reply:
    """A message of the server. `errors` are tuples of type, tag and what else is told."""

    def __init__(self, text):
        self.text = text.decode()
        self.top = ET.fromstring(text)
        self.errors = [{re.sub("{.*}", "", each.tag): (each.text or "").strip()
                        for each in error.iter()}
                       for error in self.top.findall(f"{{{NC}}}rpc-error")]

    @property
    def ok(self):
        return self.top.find(f"{{{NC}}}ok") is not None

    @property
    def tags(self):
        return [each["error-tag"] for each in self.errors]


class Session:
    def __init__(self, folder, *options, running="running.xml", state=("state.xml",), version="1.1"):
        self.folder = folder
        log = open(folder / "log", "ab")
        self.log_begin = os.fstat(log.fileno()).st_size
        self.process = subprocess.Popen(
            [YMAP, "serve", "--running", running, "--log-to-stderr",
             *(f"--state={each}" for each in state), *options],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log, cwd=folder,
            env={**os.environ, "USER": "ada", "SSH_CONNECTION": "192.0.2.1 5 192.0.2.2 22"})
        log.close()
        self.input, self.output = self.process.stdin, self.process.stdout.fileno()
        self.received, self.framing = b"", ended
        self.id = self.process.pid
        if version:
            self.hello = self.read_message()
            self.send(ended(hello(version)))
            self.framing = chunked if version == "1.1" else ended

    def send(self, data):
        with contextlib.suppress(BrokenPipeError):
            self.input.write(data)
            self.input.flush()

    def send_in_background(self, data):
        thread = threading.Thread(target=self.send, args=(data,), daemon=True)
        thread.start()
        return thread

    def read(self):
        ready, _, _ = select.select([self.output], [], [], DEADLINE)
        expect(ready, f"no answer within {DEADLINE} s; so far {self.received[-200:]!r}")
        data = os.read(self.output, 1 << 16)
        self.received += data
        return data

    def read_message(self):
        """The next message, out of its frame; None at the end of the session's output."""
        while True:
            taken = self.take_message()
            if taken is not None:
                return Reply(taken)
            if not self.read():
                expect(not self.received, f"half a message: {self.received[-200:]!r}")
                return None

    def take_message(self):
        if self.framing is ended:
            message, mark, rest = self.received.partition(b"]]>]]>")
            if not mark:
                return None
            self.received = rest
            return message
        at, message = 0, b""
        while True:
            head = re.match(rb"\n#([1-9][0-9]*|#)\n", self.received[at:at + 14])
            if not head:
                return None
            at += head.end()
            if head[1] == b"#":
                self.received = self.received[at:]
                return message
            message += self.received[at:at + int(head[1])]
            at += int(head[1])

    def ask(self, body, attributes='message-id="1"'):
        self.send(self.framing(rpc(body, attributes)))
        reply = self.read_message()
        expect(reply is not None, f"no reply to {body[:200]}; log: {self.log()}")
        return reply

    def do(self, body):
        reply = self.ask(body)
        expect(reply.ok, f"not ok: {body[:200]}: {reply.text[:1000]}")

    def refuse(self, body, *tags):
        reply = self.ask(body)
        expect(reply.tags == list(tags), f"{tags} expected: {body[:300]}: {reply.text[:1000]}")
        return reply

    def end(self):
        """Closes the input; the exit status."""
        with contextlib.suppress(BrokenPipeError):
            self.input.close()
        return self.wait()

    def wait(self):
        """The exit status; what was still sent to us stays in `received`."""
        while self.read():
            pass
        return self.process.wait(DEADLINE)

    def ends(self, status, reason):
        """Waits for the end, which is for that reason."""
        expect(self.process.wait(DEADLINE) == status and
               self.log()[-1] == f"session {self.id}: ends: {reason}", self.log())

    def log(self):
        text = (self.folder / "log").read_bytes()[self.log_begin:].decode()
        return [line for line in text.splitlines() if f"session {self.id}:" in line
                or "session" not in line]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:  # ends by itself, or else is ended
            with contextlib.suppress(OSError, ValueError): # ValueError: closed before
                os.set_blocking(self.input.fileno(), False)
                self.input.close()
            with contextlib.suppress(subprocess.TimeoutExpired):
                self.process.wait(1)
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        with contextlib.suppress(BrokenPipeError):
            self.input.close()


def description(folder, name=LOOPBACK):
    """The description of an interface in the stored document; None without one."""
    for entry in ET.parse(folder / "running.xml").getroot():
        if entry.findtext(f"{{{CFG}}}interface-name") == name:
            return entry.findtext(f"{{{CFG}}}description")
    return None


# ------------------------------------------------------------------------------------------------
# Framing and hellos

def framing(folder):
    """Messages however their bytes are cut; both framings, several messages at once."""
    two = [rpc(get_config(interface(LOOPBACK)), f'message-id="{i}"') for i in (1, 2)]
    streams = {
        "1.0": b"\n \n".join(map(ended, two)),
        "1.1": chunked(two[0], [1, 1, 100]) + chunked(two[1], [200]),
    }
    for version, stream in streams.items():
        for size in (1, 7, len(stream)):
            with Session(folder, version=None) as session:
                session.read_message()
                session.framing = ended if version == "1.0" else chunked
                stream_whole = ended(hello("1.0", version)) + stream
                for at in range(0, len(stream_whole), size):
                    session.send(stream_whole[at:at + size])
                for i in "12":
                    reply = session.read_message()
                    expect(reply.top.get("message-id") == i and LOOPBACK in reply.top[0][0][0][0].text,
                           f"{version} in pieces of {size}: {reply.text}")
                session.end()
                session.ends(0, "the client has gone")
    # What a pipe takes at once, and one byte.
    with Session(folder, version="1.0") as session:
        for size in ((1 << 16) + 1 - len(ended(session.ask(get_config(), 'x=""').text)), 0):
            reply = session.ask(get_config(), f'x="{"y" * size}"')
            expect(reply.top.get("x") == "y" * size and session.received == b"", reply.text)


# What a row is about; the bytes in place of the client's hello; how the session ends.
HELLOS = [
    ("of a version that nobody knows", ended(hello("2.0")),
     "bad hello: the client speaks no version of NETCONF that is known here"),
    ("without a version", ended(hello()),
     "bad hello: the client speaks no version of NETCONF that is known here"),
    ("without capabilities", ended(f'<hello xmlns="{NC}"/>'),
     "bad hello: hello has no 'capabilities'"),
    ("with a session-id", ended(hello("1.1", more="<session-id>4</session-id>")),
     "bad hello: a client's hello has no session-id"),
    ("with something else", ended(hello("1.1", more="<x/>")),
     "bad hello: element 'x' is not supported in hello"),
    ("with something else among its capabilities",
     ended(hello("1.1").replace("<capabilities>", "<capabilities><x/>")),
     "bad hello: element 'x' is not expected in capabilities"),
    ("with a capability that isn't of NETCONF",
     ended(hello("1.1").replace("<capability>", "<capability xmlns=''>")),
     "bad hello: element 'capability' is not expected in capabilities"),
    ("with elements in a capability",
     ended(hello("1.1").replace("<capability>", "<capability><x/>")),
     "bad hello: hello:1: text stands beside the elements in 'capability'"),
    ("of no namespace", ended(hello("1.1").replace(NC, "urn:x")),
     "bad hello: a hello is expected, not 'hello'"),
    ("that is an rpc", ended(rpc(get())), "bad hello: a hello is expected, not 'rpc'"),
    ("that is no XML", ended("hello"), "bad hello: hello:1: Start tag expected, '<' not found"),
    ("with a DOCTYPE", ended("<!DOCTYPE hello>" + hello("1.1")),
     "bad hello: hello:1: a DOCTYPE is not accepted"),
    ("that isn't in UTF-8",
     b"<?xml version='1.0' encoding='latin1'?>" + ended(hello("1.1") + "<!-- \xe9 -->").replace(
         b"\xc3", b""), "bad hello: hello:1: a message has to be in UTF-8"),
    ("in chunks", chunked(hello("1.1")), "no hello within 1 s"),
    ("that is too big", b"<" + b"x" * 5000, "a message of more than 4096 bytes"),
    ("that doesn't end", hello("1.1").encode(), "no hello within 1 s"),
    ("that doesn't come", b"", "no hello within 1 s"),
]


def hellos(folder):
    with Session(folder) as session:
        top = session.hello.top
        ours = [each.text for each in top.iter(f"{{{NC}}}capability")]
        expect(top.tag == f"{{{NC}}}hello" and
               top.findtext(f"{{{NC}}}session-id") == str(session.id), session.hello.text)
        for each in (BASE + "1.0", BASE + "1.1",
                     "urn:ietf:params:netconf:capability:writable-running:1.0",
                     "urn:ietf:params:netconf:capability:rollback-on-error:1.0",
                     "urn:ietf:params:netconf:capability:validate:1.1"):
            expect(each in ours, f"{each} is not among {ours}")
        expect(any(each.startswith(f"{IF}?module=ietf-interfaces&revision=2014-05-08")
                   for each in ours), ours)
    for what, sent, reason in HELLOS:
        with Session(folder, "--hello-timeout=1", "--max-message=4096", version=None) as session:
            session.read_message()
            session.send(sent)
            expect(session.wait() == 1 and session.received == b"",
                   f"hello {what}: {session.received}")
            expect(session.log()[-1].endswith(f" ends: {reason}"), f"hello {what}: {session.log()}")


WHOLE = rpc(get_config(interface(LOOPBACK)))

# What a row is about; what is sent in place of a message of base:1.1; how the session ends.
BAD_FRAMES = [
    ("a chunk of no bytes", b"\n#0\n", "the size of a chunk begins with 0"),
    ("a size that is no number", b"\n#abc\n", "the size of a chunk is no number"),
    ("a size with a zero ahead", b"\n#012\nxxxxxxxxxxxx\n##\n", "the size of a chunk begins with 0"),
    ("a size with a blank", b"\n#12 \n", "the size of a chunk is no number"),
    ("a negative size", b"\n#-1\n", "the size of a chunk is no number"),
    ("no size", b"\n#\n", "the size of a chunk is no number"),
    ("a size beyond all chunks", b"\n#4294967296\n", "the size of a chunk is larger than 4294967295"),
    ("a size without end", b"\n#" + b"1" * 5000, "the size of a chunk is larger than 4294967295"),
    ("an end without a chunk", b"\n##\n", "a message without a chunk"),
    ("text between chunks", b"\n#1\nx!\n##\n", "no chunk begins where one is expected"),
    ("the other framing", ended(WHOLE), "no chunk begins where one is expected"),
    ("a carriage return", b"\r\n#1\r\nx", "no chunk begins where one is expected"),
    ("a size without a line feed, and then nothing", b"\n#12", "nothing came for 1 s within a message"),
    ("a chunk cut short, and then nothing", b"\n#12\nxxx", "nothing came for 1 s within a message"),
    ("4 GB announced, and then nothing", b"\n#4294967295\nxxx", "nothing came for 1 s within a message"),
]


def bad_frames(folder):
    for what, sent, reason in BAD_FRAMES:
        with Session(folder, "--frame-timeout=1") as session:
            session.send(chunked(WHOLE) + sent)
            expect(LOOPBACK in session.read_message().text, what)
            if "4 GB" in what:
                time.sleep(0.2)
                size = re.search(r"VmPeak:\s*(\d+)",
                                 pathlib.Path(f"/proc/{session.id}/status").read_text())
                expect(SANITIZED or int(size[1]) < 200_000, f"{size[1]} kB for {what}")
            expect(session.wait() == 1 and session.received == b"", f"{what}: {session.received}")
            expect(re.search(f"ends: (bad frame: )?{reason}$", session.log()[-1]),
                   f"{what}: {session.log()}")


def ends(folder):
    """Ends that are no fault, and that a client causes in the midst of things."""
    with Session(folder) as session:
        session.send(chunked(WHOLE))
        expect(session.end() == 0 and LOOPBACK.encode() in session.received,
               "a whole request at the end of input is answered")
    with Session(folder) as session:
        session.send(chunked(WHOLE)[:-2])
        expect(session.end() == 1 and session.received == b"", session.received)
        session.ends(1, "the input ended within a message")
    with Session(folder) as session:
        session.do("<close-session/>")
        session.ends(0, "closed by the client")
    for name in (signal.SIGTERM, signal.SIGHUP):
        with Session(folder) as session:
            session.ask(get_config(interface(LOOPBACK)))
            session.process.send_signal(name)
            session.ends(0, "ended by a signal")
    with Session(folder, "--idle-timeout=1") as session:
        session.ask(get_config(interface(LOOPBACK)))
        session.ends(0, "idle for 1 s")
    # A client that takes no answers; and one that has gone when the answer is ready.
    many = chunked(rpc(get())) * 1000
    with Session(folder, "--write-timeout=1") as session:
        sender = session.send_in_background(many)
        session.ends(1, "the client took nothing of an answer for 1 s")
        sender.join(DEADLINE)
    with Session(folder, "--write-timeout=1") as session: # one that takes a page at a time
        session.send(chunked(rpc(get_config(), f'message-id="1" x="{"y" * 60_000}"')) * 3)
        for _ in range(20): # in all, longer than it may take nothing
            time.sleep(0.08)
            session.received += os.read(session.output, 4096)
        for _ in range(3):
            session.read_message()
        session.end()
        session.ends(0, "the client has gone")
    # Whoever wants it to end waits for a second for the answer that nobody takes.
    with Session(folder) as session:
        sender = session.send_in_background(many)
        select.select([session.output], [], [], DEADLINE)
        time.sleep(0.2)
        session.process.terminate()
        session.ends(1, "ended by a signal: the client took nothing of an answer for 1 s")
        sender.join(DEADLINE)
    with Session(folder) as session:
        session.process.stdout.close()
        session.output = os.open("/dev/null", os.O_RDONLY)
        session.send(many[:10000])
        session.ends(1, "cannot write: Broken pipe")


def too_big(folder):
    limit = 100_000
    long = rpc(describe("x" * limit))
    for version, message in (("1.0", ended(long)), ("1.1", chunked(long)),
                             ("1.1", chunked(long, [1000] * 50))):
        with Session(folder, f"--max-message={limit}", version=version) as session:
            sender = session.send_in_background(message * 2)
            reply = session.read_message()
            expect(reply.tags == ["too-big"], reply.text)
            expect(session.read_message() is None, "one answer, and the end")
            sender.join(DEADLINE)
            session.ends(1, f"a message of more than {limit} bytes")
    # One that never ends is taken in up to a bound.
    with Session(folder, f"--max-message={limit}") as session:
        sender = session.send_in_background(b"\n#4294967295\n" + b"x" * 100_000_000)
        expect(session.read_message().tags == ["too-big"], "too-big")
        expect(session.wait() == 1, session.log())
        sender.join(DEADLINE)
    with Session(folder, f"--max-message={limit}") as session:
        session.send(b"\n#4294967295\n" + b"x" * (limit + 1))
        expect(session.read_message().tags == ["too-big"], "too-big, before all of it is there")
        session.end()
        session.ends(1, f"a message of more than {limit} bytes")
    # What has just the size that is allowed is answered.
    fit = rpc(get_config(interface(LOOPBACK)))
    for framing_of, version in ((ended, "1.0"), (chunked, "1.1")):
        padded = fit + " " * (limit - len(fit))
        with Session(folder, f"--max-message={limit}", version=version) as session:
            session.send(framing_of(padded))
            expect(LOOPBACK in session.read_message().text, "a message of the largest size")


def memory(folder):
    """A client that sends what takes most memory: its session is bounded by what the bytes need."""
    if SANITIZED:
        return
    key = LOOPBACK + "x" * 1_000_000
    for what, message in (
            ("errors, most of them below a long key",
             edit(interfaces("<a/><interface>" f"<name>{key}</name>{'<a/>' * 750_000}</interface>"))),
            ("empty elements", edit("<a xmlns='urn:x'/>" + "<a/>" * 1_000_000)),
            ("unknown leaves", edit(interface(LOOPBACK, "<a/>" * 1_000_000))),
            ("entries without a key", edit(interfaces("<interface/>" * 325_000))),
            ("all entries of state", get(f'<interfaces-state xmlns="{IF}">' + "<interface/>" * 325_000 +
                                         "</interfaces-state>")),
            ("keys of state", get(f'<interfaces-state xmlns="{IF}">' + "".join(
                f"<interface><name>{i}</name></interface>" for i in range(95_000)) +
                "</interfaces-state>")),
            ("filters", get(interfaces("<interface><a/></interface>" * 150_000))),
            ("all entries, again and again", get(interfaces("<interface/>" * 325_000))),
            ("matches", get(interfaces("<interface><type>x</type></interface>" * 100_000))),
            ("blanks, nearly as many as a message may have", get(interfaces(" " * 16_000_000)))):
        with Session(folder) as session:
            sender = session.send_in_background(chunked(rpc(message)))
            while session.take_message() is None:
                expect(session.read(), f"no answer to {what}")
            sender.join(DEADLINE)
            size = int(re.search(r"VmHWM:\s*(\d+)", pathlib.Path(
                f"/proc/{session.id}/status").read_text())[1])
            expect(size < 205_000, f"{what}: {len(message)} bytes took {size} kB")
            session.received = b""
            expect(LOOPBACK in session.ask(get_config(interface(LOOPBACK))).text, what)


# ------------------------------------------------------------------------------------------------
# Operations

def monitoring(folder):
    """All sessions, and what this one has counted (RFC 6022); no document is needed."""
    def leaves(node):
        return {re.sub("{.*}", "", each.tag): each.text for each in node}

    def sessions_of(session):
        reply = session.ask(get(f'<netconf-state xmlns="{MONITORING}"><sessions/></netconf-state>'))
        told = {each["session-id"]: each
                for each in map(leaves, reply.top.iter(f"{{{MONITORING}}}session"))}
        expect(set(told) == {str(each.id) for each in (one, two, three)}, reply.text)
        return told

    # One that only reads has no file to meet the others in until another session has made it.
    with Session(folder, "--read-only") as two, Session(folder) as one, Session(folder) as three:
        sessions_of(two)
        one.refuse(edit(interface(LOOPBACK, "", operation("create"))), "data-exists")
        one.refuse(edit(interface(LOOPBACK, "<type>x</type><foo/>")), "operation-not-supported",
                   "unknown-element")
        one.send(chunked("<rpc/>"))
        one.read_message()
        (folder / "state.xml").write_text("broken")
        told = sessions_of(one)
        own, other = told[str(one.id)], told[str(two.id)]
        expect((own["in-rpcs"], own["in-bad-rpcs"], own["out-rpc-errors"]) == ("2", "1", "3"), own)
        expect((own["username"], other["username"]) == ("ada", pwd.getpwuid(os.getuid()).pw_name),
               told)
        # Whatever else is locked, by whomever.
        with open(folder / "running.xml.lock", "r+b") as file:
            fcntl.lockf(file, fcntl.LOCK_EX | fcntl.LOCK_NB, 0, 4_194_400)
            sessions_of(one)
        began = calendar.timegm(time.strptime(other["login-time"], "%Y-%m-%dT%H:%M:%SZ"))
        expect(abs(time.time() - began) < DEADLINE, other)


def schemas(folder):
    """Each module that the server has is in its hello, and comes with get-schema."""
    with Session(folder) as session:
        listed = session.ask(get(f'<netconf-state xmlns="{MONITORING}"><schemas/></netconf-state>'))
        modules = [each.text for each in listed.top.iter(f"{{{MONITORING}}}identifier")]
        expect(len(modules) >= 3, listed.text)
        for module in modules:
            expect(f"?module={module}" in session.hello.text, f"{module}: {session.hello.text}")
            data = session.ask(get_schema(module, '<format xmlns:m="x">m:yang</format>')).top[0]
            expect(data.tag == f"{{{MONITORING}}}data" and data.text.startswith(f"module {module} "),
                   data.text)
            session.refuse(get_schema(module, "<version>1999-01-01</version>"), "invalid-value")


def replies(folder):
    """The envelope: attributes, prefixes, what can't be read."""
    attributes = 'message-id="a&amp;&lt;b" xmlns:x="urn:x" x:mine="&quot;1&quot;"'
    with Session(folder) as session:
        for body in (get_config(interface(LOOPBACK)), "<commit/>", locks("unlock")):
            top = session.ask(body, attributes).top
            expect(top.attrib == {"message-id": "a&<b", "{urn:x}mine": '"1"'}, top.attrib)
        session.send(chunked(f'<n:rpc message-id="2" xmlns:n="{NC}"><n:validate><n:source>'
                             "<n:running/></n:source></n:validate></n:rpc>"))
        expect(session.read_message().ok, "prefixes")
        session.send(chunked(f'<if:rpc message-id="3" xmlns:if="{NC}" xmlns="{IF}"><if:edit-config>'
                             f"<if:target><if:running/></if:target><if:config><interfaces><interface"
                             f' if:operation="create"><name>{LOOPBACK}</name></interface>'
                             "</interfaces></if:config></if:edit-config></if:rpc>"))
        reply = session.read_message()
        expect(reply.top.find(f".//{{{NC}}}error-path") is not None, reply.text)
        top = session.ask(locks("unlock"), f'message-id="3" n:operation="merge" xmlns:n="{NC}"').top
        expect(top.attrib == {"message-id": "3", f"{{{NC}}}operation": "merge"}, top.attrib)
        reply = session.ask(get(), "")
        expect(reply.errors[0] == {"rpc-error": "", "error-type": "rpc",
                                   "error-tag": "missing-attribute", "error-severity": "error",
                                   "error-message": "the rpc has no message-id",
                                   "error-info": "", "bad-attribute": "message-id",
                                   "bad-element": "rpc"}, reply.errors)
    # Of errors that are new in base:1.1, an old client is told as it knows them.
    for version, tag in (("1.0", "operation-failed"), ("1.1", "malformed-message")):
        with Session(folder, version=version) as session:
            for message, part in (("<rpc\n\n>", ":3:"), ("<rpc message-id='1'/>", "'rpc'"),
                                  (" ", ":1:"), (hello("1.1"), "'hello'"), ("#x", "framed"), ("\xe9\0", ":1:"),
                                  ("<!DOCTYPE x [<!ENTITY a 'b'>]>" + WHOLE, "DOCTYPE")):
                session.send(session.framing(message))
                reply = session.read_message()
                expect(reply.tags == [tag] and reply.errors[0]["error-type"] == "rpc" and
                       part in reply.errors[0]["error-message"], f"{message[:40]}: {reply.text}")
            if version == "1.1": # RFC 6241, 3
                for declared, encoding in (("", "UTF-16"), ("ISO-8859-1", "latin-1"),
                                           ("UTF-16", "UTF-8")):
                    message = (declared and f"<?xml version='1.0' encoding='{declared}'?>") + WHOLE
                    message = message.encode(encoding)
                    session.send(b"\n#%d\n%s\n##\n" % (len(message), message))
                    reply = session.read_message()
                    expect(reply.tags == [tag] and "UTF-8" in reply.text, reply.text)
            expect(LOOPBACK in session.ask(get_config(interface(LOOPBACK))).text, "it goes on")


def documents(folder):
    """What can be served: a document that is there, in JSON if it is only read."""
    root = {"Brelvik-NQ-ifmgr-cfg:interface-configurations": {"interface-configuration": [
        {"active": "act", "interface-name": "a"}]}}
    (folder / "running.json").write_text(json.dumps(root))
    with Session(folder, "--read-only", running="running.json") as session:
        expect("<name>a</name>" in session.ask(get_config()).text, "JSON")
    for running, part in (("running.json", "in JSON can't be edited"), ("none.xml", "cannot open"),
                          (".", "")):
        with Session(folder, running=running, version=None) as session:
            expect(session.wait() == 2 and session.received == b"", running)
            expect(part in session.log()[-1], session.log())
    (folder / "running.xml.lock").unlink(missing_ok=True)
    (folder / "running.xml.lock").mkdir()
    with Session(folder, version=None) as session:
        expect(session.wait() == 2 and "lock: Is a directory" in session.log()[-1], session.log())


# Functions of the system that fail when the environment says so, and note what stores a document.
PRELOADED = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

static int fails(const char *what, int error)
{
    const char *failing = getenv("FAILS");
    errno = error;
    return failing && !strcmp(failing, what);
}
static int sometimes_fails(const char *what, int error)
{
    static int count;
    return fails(what, error) && ++count % 4;
}
static void note(const char *call)
{
    FILE *calls = fopen("calls", "a");
    fputs(call, calls);
    fclose(calls);
}
void openlog(const char *name, int option, int facility)
{
    FILE *log = fopen("syslog", "a");
    fprintf(log, "%s %d %d\n", name, option, facility);
    fclose(log);
}
void syslog(int priority, const char *format, ...)
{
    FILE *log = fopen("syslog", "a");
    va_list arguments;
    va_start(arguments, format);
    fprintf(log, "%d ", priority);
    vfprintf(log, format, arguments);
    fputc('\n', log);
    fclose(log);
}
int rename(const char *from, const char *to)
{
    note("rename ");
    return fails("rename", EIO) ? -1 : renameat(AT_FDCWD, from, AT_FDCWD, to);
}
int fsync(int file)
{
    struct stat status;
    const char *what = fstat(file, &status) == 0 && S_ISDIR(status.st_mode) ? "folder" : "file";
    note(what);
    note(" ");
    return fails(what, EIO) ? -1 : syscall(SYS_fsync, file);
}
ssize_t write(int file, const void *bytes, size_t size)
{
    if (sometimes_fails("write", EINTR))
        return -1;
    if (file > 2)
        note("write ");
    return syscall(SYS_write, file, bytes, fails("write", 0) && size > 1 ? 1 : size);
}
ssize_t read(int file, void *bytes, size_t size)
{
    if (file == 0 && (fails("read", EIO) || sometimes_fails("piece", EINTR)))
        return -1;
    return syscall(SYS_read, file, bytes, fails("piece", 0) && size > 100 ? 100 : size);
}
ssize_t pread(int file, void *bytes, size_t size, off_t offset)
{
    return fails("pread", EIO) ? -1 : syscall(SYS_pread64, file, bytes, size, offset);
}
int open(const char *path, int flags, ...)
{
    static int count;
    va_list arguments;
    va_start(arguments, flags);
    if (strstr(path, ".lock") &&
        ((fails("open", EACCES) && ++count < 5) || (fails("race", ENOENT) && ++count < 2) ||
         (fails("access", EACCES)) || (fails("place", flags & O_CREAT ? ENOSPC : ENOENT))))
        return -1;
    return openat(AT_FDCWD, path, flags, flags & O_CREAT ? va_arg(arguments, int) : 0);
}
int fcntl(int file, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    struct flock *lock = va_arg(arguments, struct flock *);
    if (command == F_SETLK && (fails("lock", ENOLCK) ||
                               (fails("session", EAGAIN) && lock->l_start >= 100) ||
                               (fails("edits", EAGAIN) && lock->l_start == 1)))
        return -1;
    if (command == F_GETLK && fails("holder", ENOLCK))
        return -1;
    return syscall(SYS_fcntl, file, command, lock);
}
int fchown(int file, uid_t owner, gid_t group)
{
    if (fails("group", EPERM) || (owner != (uid_t)-1 && fails("owner", EPERM)))
        return -1;
    return syscall(SYS_fchown, file, owner, group);
}
int poll(struct pollfd *files, nfds_t count, int milliseconds)
{
    struct timespec time = {milliseconds / 1000, milliseconds % 1000 * 1000000};
    if (sometimes_fails("poll", EINTR) || fails("wait", EIO))
        return -1;
    return ppoll(files, count, milliseconds < 0 ? 0 : &time, 0);
}
int kill(pid_t process, int signal)
{
    return fails("kill", EPERM) ? -1 : fails("deaf", 0) ? 0 : syscall(SYS_kill, process, signal);
}
int fstat(int file, struct stat *status)
{
    return fails("fstat", EIO) && file > 2 ? -1 : syscall(SYS_fstat, file, status);
}
int clock_gettime(clockid_t clock, struct timespec *time)
{
    static int hours;
    int status = syscall(SYS_clock_gettime, clock, time);
    if (clock == CLOCK_MONOTONIC && (fails("edits", 0) || fails("deaf", 0)))
        time->tv_sec += hours++; // time flies
    return status;
}
int signalfd(int file, const sigset_t *signals, int flags)
{
    return fails("signals", ENOSYS) ? -1
                                    : syscall(SYS_signalfd4, file, signals, _NSIG / 8, flags);
}
FILE *fopen(const char *path, const char *mode)
{
    FILE *(*real)(const char *, const char *) = dlsym(RTLD_NEXT, "fopen");
    if (strstr(path, "running.xml"))
        note("read ");
    return real(path, mode);
}
FILE *fopencookie(void *cookie, const char *mode, cookie_io_functions_t functions)
{
    FILE *(*real)(void *, const char *, cookie_io_functions_t) = dlsym(RTLD_NEXT, "fopencookie");
    return fails("stream", ENOMEM) ? 0 : real(cookie, mode, functions);
}
"""


def preload(folder, fails=""):
    """The environment of a session where a function of the system's fails."""
    library = folder / "preloaded.so"
    if not library.exists():
        subprocess.run(["cc", "-shared", "-fPIC", "-xc", "-", "-o", library], check=True,
                       input=PRELOADED.encode())
    return {**os.environ, "LD_PRELOAD": str(library), "FAILS": fails}


def system_log(folder):
    """The lines that the system's log gets, which is where they go by default."""
    if SANITIZED:
        return
    for options, status, lines in (
            (["--running=running.xml", "--log=trace"], 0,
             ["ymap 1 24", "6 session N: begins: ", "7 TRC: OZK: ", "6 session N: ends: "]),
            (["--running=none.xml"], 2, ["3 none.xml: cannot open: "])):
        done = subprocess.run(
            [YMAP, "serve", *options], cwd=folder, capture_output=True, check=False,
            input=ended(hello("1.0")) + ended(rpc(get_config(interface(LOOPBACK)))),
            env=preload(folder))
        log = re.sub("session [0-9]+", "session N", (folder / "syslog").read_text())
        expect(done.returncode == status and all(f"\n{each}" in f"\n{log}" for each in lines), log)
        (folder / "syslog").unlink()


# ------------------------------------------------------------------------------------------------
# Files, and several sessions

def sessions(folder):
    """Locks, edits and kills among sessions on one document."""
    with Session(folder) as one, Session(folder) as two:
        two.do(describe("of two"))
        expect("of two" in one.ask(get_config(interface(LOOPBACK))).text, "each other's edits")
        files = os.listdir(f"/proc/{two.id}/fd")
        expect(len(files) < 20, f"a session holds few files, not {len(files)}")
        one.do(locks("lock"))
        for body, tag in ((locks("lock"), "lock-denied"), (describe("x"), "in-use")):
            reply = two.refuse(body, tag)
            expect(reply.errors[0]["session-id"] == str(one.id), reply.text)
        two.refuse(locks("unlock"), "operation-failed")
        two.do(edit(interface("x"), "<test-option>test-only</test-option>"))
        one.do(describe("of one"))
        one.do(locks("unlock"))
        two.do(locks("lock"))
        two.do(locks("unlock"))
        # Whoever closes is told so when the lock is free.
        one.do(locks("lock"))
        one.do("<close-session/>")
        two.do(locks("lock"))
        with Session(folder) as three:
            three.refuse(f"<kill-session><session-id>{three.id}</session-id></kill-session>",
                         "invalid-value")
            three.refuse(f"<kill-session><session-id>{os.getpid()}</session-id></kill-session>",
                         "invalid-value")
            three.do(f"<kill-session><session-id>{two.id}</session-id></kill-session>")
            three.do(locks("lock"))
            expect(two.wait() == 0 and "by a signal" in two.log()[-1], two.log())
            expect(f"session {two.id} was killed" in three.log()[-2], three.log())
            # A session that hears nothing is ended all the same.
            with Session(folder) as deaf:
                deaf.ask(get_config(interface(LOOPBACK)))
                deaf.process.send_signal(signal.SIGSTOP)
                three.do(f"<kill-session><session-id>{deaf.id}</session-id></kill-session>")
                expect(deaf.process.wait(DEADLINE) == -signal.SIGKILL, "killed")
            three.process.kill()
            three.process.wait()
        with Session(folder) as four: # the kernel frees what a killed session held
            four.do(locks("lock"))
    expect(description(folder) == "of one", description(folder))


def concurrent_edits(folder):
    """Sessions that edit one document at once lose none of each other's edits."""
    def work(number):
        try:
            with Session(folder) as session:
                for i in range(count):
                    session.do(edit(interface(f"loopback{number}.{i}", "", operation("create"))))
        except AssertionError as error:
            failures.append(error)

    failures, workers, count = [], 6, 10
    threads = [threading.Thread(target=work, args=(number,)) for number in range(workers)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    expect(not failures, failures)
    names = re.findall(r"loopback\d\.\d", (folder / "running.xml").read_text())
    expect(len(set(names)) == len(names) == workers * count, f"{len(names)} of {workers * count}")


def changes_outside(folder):
    """Documents that others write, whole and broken."""
    running, state = folder / "running.xml", folder / "state.xml"
    with Session(folder) as session:
        one = get_config(interface(LOOPBACK))
        expect("Router identity" in session.ask(one).text, "at first")
        good = running.read_text()
        running.write_text(good.replace("Router identity", "Router identitx"))
        expect("Router identitx" in session.ask(one).text, "of the same size")
        (folder / "other.xml").write_text(good.replace("Router identity", "renamed"))
        (folder / "other.xml").rename(running)
        session.do(describe("ours", "gigabit-ethernet-0/0/1"))
        expect(description(folder) == "renamed", "an edit is of the document as it is")
        good = running.read_text()
        running.write_text("<interface-configurations\n\n")
        for body in (one, describe("x"), "<validate><source><running/></source></validate>"):
            reply = session.refuse(body, "operation-failed")
            expect("running.xml:3: " in reply.text, reply.text)
        session.refuse("<validate><source><candidate/></source></validate>", "invalid-value")
        running.unlink()
        expect("cannot open" in session.refuse(one, "operation-failed").text, "gone")
        running.write_text("")
        with Session(folder) as another:
            expect("is empty" in another.refuse(one, "operation-failed").text, "empty")
        running.write_text(good)
        session.do(describe("back"))

        counters = get(f'<interfaces-state xmlns="{IF}"/>')
        expect("<statistics>" in session.ask(counters).text, "state")
        good = state.read_text()
        state.write_text(good[:len(good) // 2])
        reply = session.refuse(counters, "operation-failed")
        expect("state.xml:" in reply.text, reply.text)
        session.do(describe("state is not asked for"))
        state.write_text(good)
        expect("<statistics>" in session.ask(counters).text, "state again")
    running.write_text("broken")
    with Session(folder) as session:
        session.refuse(one, "operation-failed")
        expect(any("running.xml:1: " in line for line in session.log()), session.log())


def storing(folder):
    """What an edit does with the file, and what is left when it can't be done."""
    running = folder / "running.xml"
    real = folder / "real"
    real.mkdir()
    running.rename(real / "running.xml")
    running.symlink_to("real/running.xml")
    os.chmod(real / "running.xml", 0o4640)
    (real / "running.xml.new").write_text("left by a session that was killed")
    with Session(folder) as session:
        session.do(describe("linked"))
        expect(running.is_symlink() and description(folder) == "linked", "the link stays")
        expect((real / "running.xml").stat().st_mode & 0o7777 == 0o4640, "the mode stays")
        expect(sorted(each.name for each in real.iterdir()) == ["running.xml", "running.xml.lock"],
               list(real.iterdir()))
        before = running.read_bytes()
        (real / "running.xml.new").mkdir()
        reply = session.refuse(describe("x"), "operation-failed")
        expect("cannot store the edit" in reply.text and running.read_bytes() == before, reply.text)
        expect("linked" in session.ask(get_config(interface(LOOPBACK))).text, "what is stored")
        (real / "running.xml.new").rmdir()
        session.do(describe("stored"))
        for i in range(60): # what edits leave behind in memory is given back now and then
            session.do(describe(f"{i}" + "x" * 300_000))
        session.do(describe("y"))
        size = int(re.search(r"VmRSS:\s*(\d+)", pathlib.Path(
            f"/proc/{session.id}/status").read_text())[1])
        expect(SANITIZED or size < 20_000, f"{size} kB after edits")
    expect(description(folder) == "y", "the last edit")


def faults_of_the_system(folder):
    """What the system refuses is answered, and the session goes on, whether its log can be written
    or not."""
    with Session(folder, "--library=none.so") as session:
        for _ in range(2):
            reply = session.refuse(get_config(), "operation-failed")
            expect("none.so" in reply.text, reply.text)
        session.do("<validate><source><running/></source></validate>")
    with Session(folder) as one, Session(folder) as two:
        one.do(locks("lock"))
        one.do(locks("unlock"))
        no_limit = resource.RLIM_INFINITY
        resource.prlimit(one.id, resource.RLIMIT_FSIZE, (0, no_limit))
        for body in (locks("lock"), describe("x")):
            reply = one.refuse(body, "operation-failed")
            expect(reply.errors[0]["error-type"] == "application", reply.text)
        two.do(locks("lock"))
        two.do(locks("unlock"))
        resource.prlimit(one.id, resource.RLIMIT_FSIZE, (no_limit, no_limit))
        one.do(describe("after"))
    if not SANITIZED:
        failing_calls(folder)
    # Without standard output, the hello isn't written into the file that is opened first.
    done = subprocess.run(["sh", "-c", '"$0" serve --running running.xml --log-to-stderr >&-', YMAP],
                          cwd=folder, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    expect(done.returncode == 1 and b"cannot write" in done.stderr, done)
    expect(b"hello" not in (folder / "running.xml.lock").read_bytes(), "the locks hold a hello")


# What fails; the exit status; what the client reads; what the log says; whether the edit is stored.
FAILING = [
    ("rename", 0, "cannot store the edit: ", "Input/output error", False),
    ("file", 0, "cannot store the edit: ", "Input/output error", False),
    ("folder", 0, "is in place, but may not survive a loss of power: Input/output error", "", True),
    ("group", 0, "cannot store the edit: ", "Operation not permitted", False),
    ("owner", 0, "<ok/>", ": ok", True),
    ("write", 0, "<ok/>", ": ok", True),
    ("piece", 0, "<ok/>", ": ok", True),
    ("poll", 0, "<ok/>", ": ok", True),
    ("fstat", 0, "<ok/>", ": ok", True),
    ("edits", 0, "have edited without a pause for 30 s", "refused: in-use: ", False),
    ("holder", 0, "running.xml.lock: No locks available", "", False),
    ("pread", 0, "running.xml.lock: Input/output error", "", False),
    ("access", 2, "", "running.xml.lock: Permission denied", False),
    ("place", 2, "", "running.xml.lock: No space left on device", False),
    ("open", 0, "<ok/>", ": ok", True),
    ("race", 0, "<ok/>", ": ok", True),
    ("lock", 2, "", "running.xml.lock: No locks available", False),
    ("session", 2, "", "running.xml.lock: Resource temporarily unavailable", False),
    ("read", 1, "<hello", "ends: cannot read: Input/output error", False),
    ("wait", 1, "<hello", "ends: cannot wait: Input/output error", False),
    ("signals", 1, "", "ends: cannot wait for signals: Function not implemented", False),
]


def failing_calls(folder):
    """Calls of the system that fail or do a part, each in a session with one request."""
    def session(fails, request, *options, before=()):
        return subprocess.run(
            [*before, YMAP, "serve", "--running=running.xml", "--log-to-stderr", *options],
            cwd=folder, input=ended(hello("1.0")) + ended(request), capture_output=True,
            check=False, env=preload(folder, fails))

    for fails, status, reply, line, is_stored in (("", 0, "<ok/>", ": ok", True), *FAILING):
        new, old = f"after {fails}", description(folder)
        (folder / "calls").write_text("")
        done = session(fails, rpc(describe(new)))
        expect(done.returncode == status and reply in done.stdout.decode() and
               line in done.stderr.decode() and (b"<ok/>" in done.stdout) == (reply == "<ok/>"),
               f"{fails}: {done}")
        expect(description(folder) == (new if is_stored else old), f"{fails}: what is stored")
        expect(not (folder / "running.xml.new").exists(), f"{fails}: nothing else is left")
        if not fails: # nothing takes the old one's place that may yet be lost
            expect((folder / "calls").read_text() == "read write file rename folder ",
                   "the order of calls")
    # What hasn't changed is read once, edits of its own included.
    (folder / "calls").write_text("")
    session("", WHOLE + "]]>]]>" + rpc(describe("x")) + "]]>]]>" + WHOLE)
    expect((folder / "calls").read_text().count("read") == 1, "the document is read once")
    # Of memory, wherever it ends.
    for fails, sent, part in (("stream", WHOLE, b">resource-denied<"),
                              ("", "<" * 100_000_000, b"ends: failed: std::bad_alloc")):
        done = session(fails, sent, "--log=error", "--max-message=200000000",
                       before=["prlimit", "--as=120000000:120000000"])
        expect(part in done.stdout + done.stderr, done)
    with Session(folder) as other:
        for fails, part in (("kill", "access-denied is another user's"),
                            ("deaf", "operation-failed doesn't end")):
            done = session(fails, rpc(f"<kill-session><session-id>{other.id}</session-id>"
                                      "</kill-session>"))
            tag, _, part = part.partition(" ")
            expect(f"<error-tag>{tag}<" in done.stdout.decode() and
                   f"session {other.id} {part}<" in done.stdout.decode(), done)
        other.do("<validate><source><running/></source></validate>")


def deaths(folder):
    """Sessions that are killed in the midst of edits: documents are whole, and no edit that was
    answered is lost."""
    for i in range(20):
        with Session(folder) as session:
            session.send(b"".join(chunked(rpc(describe(f"{i}.{j}"))) for j in range(50)))
            time.sleep(0.003 * i * (5 if SANITIZED else 1))
            session.process.kill()
            session.process.wait()
            while session.read():
                pass
            answered = session.received.count(b"<ok/>")
            stored = description(folder)
        run, at = stored.split(".") if "." in stored else ("-1", "-1")
        expect(int(run) == i and int(at) + 1 in (answered, answered + 1) or
               int(run) < i and answered == 0, f"{stored} after {answered} answers of run {i}")


# Those that take long go ahead.
TESTS = [sessions, bad_frames, memory, hellos, ends, framing, monitoring, schemas,
         replies, documents, system_log, too_big, concurrent_edits, changes_outside, storing,
         faults_of_the_system, deaths]


def run(test):
    """Runs a test in a folder of its own; its seconds, and what is wrong or None."""
    begin, failure = time.monotonic(), None
    with tempfile.TemporaryDirectory() as path:
        folder = pathlib.Path(path)
        for source, copy in (("native-configuration.xml", "running.xml"),
                             ("native-operational.xml", "state.xml")):
            (folder / copy).write_bytes((TOP / "examples" / source).read_bytes())
        try:
            test(folder)
        except Exception: # all tests are to have their turn, unless one is enough
            failure = traceback.format_exc()
    return time.monotonic() - begin, failure


def main():
    global YMAP, SANITIZED
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--ymap", required=True)
    parser.add_argument("--sanitized", action="store_true")
    parser.add_argument("--fail-fast", action="store_true")
    parser.add_argument("test", nargs="*", help="names of tests; all unless given")
    arguments = parser.parse_args()
    YMAP, SANITIZED = os.path.abspath(arguments.ymap), arguments.sanitized

    status = 0
    with futures.ThreadPoolExecutor(1 if SANITIZED else 6) as pool: # most of them wait
        tests = {pool.submit(run, test): test.__name__ for test in TESTS
                 if not arguments.test or test.__name__ in arguments.test}
        for done in futures.as_completed(tests):
            seconds, failure = done.result()
            print(f"{tests[done]}: " + (f"FAILED\n{failure}" if failure else f"{seconds:.1f} s"))
            if failure:
                status = 1
            if failure and arguments.fail_fast:
                pool.shutdown(wait=False, cancel_futures=True)
                break
    return status


if __name__ == "__main__":
    sys.exit(main())
