#!/usr/bin/env python3
"""Sessions of `ymap serve` as its users have them: through sshd, as scripts/serve sets it up, with
clients that this project hasn't written, and by the lines that the script prints.

usage: sshd_test.py --ymap COMMAND
Ends with 77, and says so, where there is no sshd or no ncclient: scripts/setup serve installs both.
"""

import argparse
import concurrent.futures
import contextlib
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import time
import traceback
import xml.etree.ElementTree as ET

TOP = pathlib.Path(__file__).resolve().parent.parent
SKIPPED = 77
NETCONF = "urn:ietf:params:xml:ns:netconf:base:1.0"
INTERFACES = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
NATIVE = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"
HELLO = (f'<hello xmlns="{NETCONF}"><capabilities><capability>'
         "urn:ietf:params:netconf:base:1.0</capability></capabilities></hello>")
END = "]]>]]>"


def need_peers():
    """Goes over to Debian's interpreter if that is where ncclient is."""
    missing = [path for path in ("/usr/sbin/sshd", "/usr/bin/ssh") if not os.access(path, os.X_OK)]
    try:
        import ncclient  # pylint: disable=import-outside-toplevel,unused-import
    except ImportError:
        if os.path.realpath(sys.executable) != os.path.realpath("/usr/bin/python3"):
            os.execv("/usr/bin/python3", ["/usr/bin/python3", *sys.argv])
        missing.append("ncclient")
    if missing:
        print(f"SKIPPED, NOTHING WAS TESTED: {', '.join(missing)} missing; run scripts/setup serve")
        sys.exit(SKIPPED)


class Served:
    """scripts/serve, running in a process group of its own, and what it has printed."""

    def __init__(self, ymap, *options):
        # pylint: disable-next=consider-using-with
        self.process = subprocess.Popen(
            ["scripts/serve", "0", *options], cwd=TOP, env={**os.environ, "YMAP": ymap}, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True)
        self.printed = ""
        while "Sessions, until" not in self.printed:
            line = self.process.stdout.readline()
            if not line:
                raise AssertionError(f"scripts/serve has ended:\n{self.printed}")
            self.printed += line
        self.ssh, self.prompt, self.client = (
            shlex.split(line) for line in re.findall("^(?:ssh|/usr).*", self.printed, re.MULTILINE))
        self.port = int(self.ssh[self.ssh.index("-p") + 1])
        self.key = pathlib.Path(self.ssh[self.ssh.index("-i") + 1])
        self.folder = self.key.parent

    def connect(self):
        from ncclient import manager  # pylint: disable=import-outside-toplevel
        return manager.connect(
            host="127.0.0.1", port=self.port, username=self.ssh[-2].split("@")[0],
            key_filename=str(self.key), hostkey_verify=False, allow_agent=False,
            look_for_keys=False, timeout=60)

    def document(self):
        """The running configuration, without comments and white space between elements."""
        return ET.canonicalize(from_file=self.folder / "running.xml", strip_text=True)

    def interrupt(self):
        """Ctrl-C, which the terminal sends to all that run in its foreground."""
        os.killpg(self.process.pid, signal.SIGINT)
        return self.process.wait(timeout=30)

    def processes(self):
        """Those that still work for this server."""
        found = []
        for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            with contextlib.suppress(OSError):
                if str(self.folder).encode() in path.read_bytes():
                    found.append(path)
        return found


def interface(name, content="", operation="merge"):
    return (f'<config xmlns:nc="{NETCONF}"><interfaces xmlns="{INTERFACES}">'
            f'<interface nc:operation="{operation}"><name>{name}</name>{content}</interface>'
            "</interfaces></config>")


class Ssh:
    """A session of the plain ssh client, in the framing of base:1.0."""

    def __init__(self, served):
        # pylint: disable-next=consider-using-with
        self.process = subprocess.Popen(served.ssh, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.send(HELLO)

    def send(self, message):
        self.process.stdin.write((message + END).encode())
        self.process.stdin.flush()

    def receive(self):
        seen = b""
        while not seen.endswith(END.encode()):
            piece = os.read(self.process.stdout.fileno(), 65536)
            expect(piece, f"the session has ended after {seen}")
            seen += piece
        return seen.decode()

    def request(self, operation):
        """The server's hello is read with the answer to the first."""
        self.send(f'<rpc xmlns="{NETCONF}" message-id="1">{operation}</rpc>')
        while "<hello" in (answer := self.receive()) and "rpc-reply" not in answer:
            pass
        expect("<ok/>" in answer, answer)


def error_of(call, *arguments, **options):
    """The tag of the error that the server answers with, and what ncclient has read of it."""
    from ncclient.operations import RPCError  # pylint: disable=import-outside-toplevel
    try:
        call(*arguments, **options)
    except RPCError as error:
        return error.tag, error
    raise AssertionError("no error")


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


def printed_lines(served):
    """The session that a new user pastes; it leaves the document as it was."""
    before = served.document()
    done = subprocess.run(served.client, capture_output=True, text=True, check=False, timeout=120)
    expect(done.returncode == 0, done.stdout + done.stderr)
    for seen in ("<shutdown>true</shutdown>", "<enabled>true</enabled>",
                 "<in-octets>61283400912</in-octets>", "data-exists at /if:interfaces/if:interface"):
        expect(seen in done.stdout, f"{seen} in:\n{done.stdout}")
    expect(served.document() == before, "the document has changed")

    prompt = subprocess.run(served.prompt, input="print(m.get_config('running').data_xml)\n",
                            capture_output=True, text=True, check=False, timeout=120)
    expect("Uplink to core-1, port 7" in prompt.stdout, prompt.stdout + prompt.stderr)


def plain_ssh(served):
    """The plainest client: a document is sent, and the answers come before the end of the session."""
    done = subprocess.run(served.ssh, input=(TOP / "examples/session.txt").read_text(), text=True,
                          capture_output=True, check=False, timeout=60)
    messages = done.stdout.split(END)
    expect(len(messages) == 4 and messages[3] == "", f"{done.stdout}\n{done.stderr}")
    expect("Router identity" in messages[1] and "<ok/>" in messages[2], done.stdout)
    expect(done.stderr == "", done.stderr)

    # The key opens a session and nothing else.
    other = [*served.ssh[:1], *served.ssh[2:-1], "cat", str(served.key)]
    done = subprocess.run(other, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          check=False, timeout=60)
    expect(done.stdout.startswith("<hello") and "PRIVATE KEY" not in done.stdout, done.stdout)
    done = subprocess.run([*served.ssh[:1], *served.ssh[2:-2], "-W", f"127.0.0.1:{served.port}",
                           served.ssh[-2]], stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, check=False, timeout=60)
    expect(done.returncode != 0 and "SSH-" not in done.stdout, f"forwarded: {done.stdout}")


def two_clients(served):
    """Locks, edits under another's lock, and sessions that are ended by others or die."""
    one = served.connect()
    with served.connect() as two:
        one.lock("running")
        tag, error = error_of(two.lock, "running")
        expect(tag == "lock-denied" and f"<session-id>{one.session_id}<" in (error.info or ""),
               f"{tag} {error.info}")
        tag, error = error_of(two.edit_config, interface("te-1"), target="running")
        expect(tag == "in-use", tag)
        one.edit_config(interface("te-1", "<description>By one</description>"), target="running")
        two.kill_session(one.session_id)
        two.lock("running")
        two.unlock("running")
        expect("By one" in two.get_config("running").data_xml, "an edit of a killed session")

        tag, _ = error_of(two.edit_config, interface("te-2", "<mtu>9000</mtu>"), target="running")
        expect(tag == "unknown-element", tag)
        two.edit_config(interface("te-1", operation="delete"), target="running")

    # A client that dies holds no lock: sshd sees its connection end.
    three = Ssh(served)
    three.request("<lock><target><running/></target></lock>")
    three.process.kill()
    with served.connect() as four:
        began = time.monotonic()
        while True:
            try:
                four.lock("running")
                break
            except Exception as error:
                expect(time.monotonic() - began < 20, f"still locked: {error}")
                time.sleep(0.1)


def yangcli(served):
    """A client that shares no code with ncclient, as far as it runs without a terminal."""
    if shutil.which("yangcli") is None:
        print("yangcli: SKIPPED, it isn't installed; run scripts/setup test")
        return
    edit = served.folder / "edit.xml"
    edit.write_text(f'<interfaces xmlns="{INTERFACES}"><interface><name>loopback10</name>'
                    "<description>By yangcli</description></interface></interfaces>")
    login = ["yangcli", "server=127.0.0.1", f"user={served.ssh[-2].split('@')[0]}", "password=none",
             f"ncport={served.port}", f"private-key={served.key}", f"public-key={served.key}.pub",
             "batch-mode", "autoload=false", "autoaliases=false", "autouservars=false",
             "autohistory=false"]

    def run(command):
        return subprocess.run([*login, f"run-command={command}"], stdin=subprocess.DEVNULL,
                              text=True, capture_output=True, check=False, timeout=120).stdout

    done = run(f"edit-config target=running config=@{edit}")
    expect("RPC OK Reply" in done, done)
    done = run("get-config source=running")
    expect("description 'By yangcli'" in done, done)
    done = run("kill-session session-id=1")
    expect("error-tag invalid-value" in done, done)


def sessions_of_ssh(served, count=10):
    """Sessions that are open at the same time, each of which makes an interface."""
    clients = [Ssh(served) for _ in range(count)]
    for number, client in enumerate(clients):
        client.request("<edit-config><target><running/></target>"
                       f'{interface(f"many-{number}", operation="create")}</edit-config>')
    for client in clients:
        client.process.stdin.close()
        expect(client.process.wait(timeout=60) == 0, "a session that ended with its input")
    names = {each.text for each in ET.parse(served.folder / "running.xml").getroot().iter(
        f"{{{NATIVE}}}interface-name")}
    lost = {f"many-{number}" for number in range(count)} - names
    expect(not lost, f"lost: {lost}")


def all_taken_away(served):
    session = served.connect()
    expect(session.connected and served.processes(), "there is a session")
    status = served.interrupt()
    expect(status == 130, f"exit {status}")
    expect(not served.folder.exists(), "the folder is left")
    began = time.monotonic()
    while served.processes():
        expect(time.monotonic() - began < 10, f"left: {served.processes()}")
        time.sleep(0.05)


def read_only(served):
    with served.connect() as session:
        expect(":writable-running" not in session.server_capabilities, "writable-running")
        tag, _ = error_of(session.edit_config, interface("te-9"), target="running")
        expect(tag == "access-denied", tag)
        expect("Router identity" in session.get_config("running").data_xml, "it can be read")


def serve(ymap, options, tests):
    """Runs tests, one after the other, on a server with the options."""
    served = Served(ymap, *options)
    try:
        for test in tests:
            began = time.monotonic()
            test(served)
            print(f"{test.__name__}: {time.monotonic() - began:.1f} s", flush=True)
    except BaseException:
        print(f"--- {test.__name__} {' '.join(options)}", file=sys.stderr)
        for name in ("sessions.log", "sshd.log"):
            with contextlib.suppress(OSError):
                print(f"--- {name}\n{(served.folder / name).read_text()}", file=sys.stderr)
        raise
    finally:
        if served.process.poll() is None:
            served.process.terminate()
            served.process.wait(timeout=30)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("--ymap", required=True)
    arguments = parser.parse_args()
    need_peers()
    ymap = os.path.abspath(arguments.ymap)

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        servers = [pool.submit(serve, ymap, *each) for each in (
            ((), (printed_lines, plain_ssh, two_clients, yangcli, sessions_of_ssh, all_taken_away)),
            (("--read-only",), (read_only, all_taken_away)))]
    errors = [each.exception() for each in servers if each.exception()]
    for error in errors:
        traceback.print_exception(error)
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
