#!/usr/bin/env python3
"""Documents that are made to hurt, through the real command: each ends soon and in little memory,
and what it has to say is a line that a person can read. Most are refused before anything is walked;
what is merely large is taken.
"""

import argparse
import json
import os
import pathlib
import resource
import subprocess
import sys
import tempfile

IETF = "xmlns='urn:ietf:params:xml:ns:yang:ietf-interfaces'"
CFG = "xmlns='http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg'"
NC = "xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0'"
JSON_ROOT = '{"Brelvik-NQ-ifmgr-cfg:interface-configurations": '


def root(content, attributes=""):
    return f"<interfaces {IETF} {NC}{attributes}>{content}</interfaces>"


def name(value):
    return root(f"<interface><name>{value}</name></interface>")


def numbered(count, text):
    return "".join(text.replace("#", str(i)) for i in range(count))


def data(content):
    return f"<interface-configurations {CFG}>{content}</interface-configurations>"


def case(document):
    return json.dumps({"input": document.split("\n"), "op": "edit", "calls": []})


def entity_bomb():
    entities = "".join(f"<!ENTITY e{i} '{f'&e{i - 1};' * 10}'>" for i in range(1, 30))
    return f"<!DOCTYPE interfaces [<!ENTITY e0 'ha'>{entities}]>" + name("&e29;")


def deep(levels):
    return root("<a>" * levels + "</a>" * levels)


# What a row is about; its document; the exit status; what a line on standard error has in it, "" if
# nothing is said. Documents are made when their turn comes.
REQUESTS = [
    ("entities that grow", entity_bomb, 2, "a DOCTYPE is not accepted"),
    ("an entity of a megabyte, many times",
     lambda: f"<!DOCTYPE a [<!ENTITY e '{'x' * 1_000_000}'>]>" + name("&e;" * 10_000),
     2, "a DOCTYPE is not accepted"),
    ("entities of a DTD elsewhere",
     lambda: "<!DOCTYPE a [<!ENTITY % p SYSTEM 'http://127.0.0.1/x'>%p;]>" + name("a"),
     2, "a DOCTYPE is not accepted"),
    ("10 MB of one tag", lambda: root(f"<{'a' * 10_000_000}/>"), 2, ":1: "),
    ("a tag as long as the parser takes", lambda: root(f"<{'a' * 49_000}/>"), 1, "/aaaaaa"),
    ("10 MB of one attribute", lambda: root("", f" nc:operation='{'a' * 10_000_000}'"),
     2, "a tag is longer than"),
    ("an attribute as long as a tag may be", lambda: root("", f" nc:operation='{'a' * 50_000}'"),
     2, "unknown operation 'aaaaaa"),
    ("a tag that is a little too long", lambda: root("", f" nc:operation='{'a' * 70_000}'"),
     2, "a tag is longer than"),
    ("attributes without end", lambda: "<interfaces" + numbered(300_000, " a#=''"),
     2, "a tag is longer than"),
    ("namespaces without end", lambda: root("", numbered(200_000, " xmlns:a#='urn:#'")),
     2, "a tag is longer than"),
    ("the same attribute twice",
     lambda: root("", " nc:operation='merge' nc:operation='merge'"), 2, "operation"),
    ("a namespace redeclared at each level",
     lambda: root(numbered(60, "<a xmlns='urn:#'>") + "</a>" * 60), 1, "/a: "),
    ("a namespace redeclared beyond all levels",
     lambda: root(numbered(100_000, "<a xmlns='urn:#'>") + "</a>" * 100_000),
     2, "nested deeper than 64 levels"),
    ("200,000 names", lambda: root(numbered(200_000, "<n#/>")), 2, "more than 65536 names"),
    ("200,000 names of instructions", lambda: root(numbered(200_000, "<?n# x?>")),
     2, "more than 65536 names"),
    ("200,000 namespaces in scope",
     lambda: root(("<a" + numbered(4_000, " xmlns:p#='u'") + ">") * 50),
     2, "more than 1000 namespaces"),
    ("100,000 levels", lambda: deep(100_000), 2, "nested deeper than 64 levels"),
    ("as many levels as are taken", lambda: deep(63), 1, "/a: "),
    ("UTF-8 that is too long", lambda: name("#").encode().replace(b"#", b"\xc0\xaf"), 2, ":1: "),
    ("half of a surrogate pair",
     lambda: name("#").encode().replace(b"#", b"\xed\xa0\x80"), 2, ":1: "),
    ("a sequence cut short", lambda: name("#").encode().replace(b"#", b"\xe2\x82"), 2, ":1: "),
    ("a byte of no sequence", lambda: root("<#/>").encode().replace(b"#", b"\xff"), 2, ":1: "),
    ("a NUL byte in a value", lambda: name("a\0b"), 2, ":1: "),
    ("a NUL byte in a tag", lambda: root("<a\0b/>"), 2, ":1: "),
    ("a NUL by reference", lambda: name("a&#0;b"), 2, "value 0"),
    ("control characters for the terminal",
     lambda: root("", " nc:operation='&#x9b;31m&#x7f;\u009b&#10;x'"),
     2, "unknown operation ' 31m   x'"),
    ("UTF-16 cut within a character", lambda: b"\xff\xfe<\0i\0n", 2, ":1: "),
    ("an encoding of no one", lambda: "<?xml version='1.0' encoding='x-none'?><a/>",
     2, "encoding"),
    ("10 MB of blanks and no end", lambda: " " * 10_000_000, 2, ":1: "),
    ("a comment without end", lambda: f"<interfaces {IETF}><!--" + "-" * 5_000_000, 2, ":1: "),
    ("nothing at all", lambda: "", 2, ":1: "),
    ("a second filter, after which the parser's memory is gone",
     lambda: "<rpc message-id='1' xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'><get>" +
             "<filter type='subtree'/>" * 1_000 + "</get></rpc>", 2, "a second 'filter'"),
    # Merely large
    ("a million siblings", lambda: data("<a/>" * 1_000_000), 0, ""),
    ("comments and instructions, one after the other",
     lambda: root("<!--x--><?p x?>" * 50_000 + "<interface><name>a</name></interface>"), 0, ""),
    ("instructions alone", lambda: root("<?p x?>" * 50_000), 0, ""),
    ("a value of 10 MB", lambda: name("a" * 10_000_000), 0, ""),
    ("a value of 1 MB in CDATA", lambda: name(f"<![CDATA[{'<' * 1_000_000}]]>"), 0, ""),
    ("20,000 entries of one name",
     lambda: root("<interface><name>a</name></interface>" * 20_000), 0, ""),
]

# The same as data of the router, which may be JSON as well.
NATIVE = [
    ("entities", entity_bomb, 2, "a DOCTYPE is"),
    ("100,000 levels", lambda: deep(100_000), 2, "nested deeper than 64 levels"),
    ("a million entries without keys",
     lambda: data("<interface-configuration/>" * 1_000_000), 0, ""),
    ("100,000 objects", lambda: JSON_ROOT + '{"a":' * 100_000, 2, "nested deeper than 64 levels"),
    ("100,000 arrays", lambda: JSON_ROOT + "[" * 100_000, 2, "an array stands where"),
    ("10 MB of one name", lambda: f'{{"{"a" * 10_000_000}": 1}}', 2, "'aaaaaa"),
    ("10 MB of one number", lambda: f'{JSON_ROOT}{{"a": {"1" * 10_000_000}}}}}', 2, "number"),
    ("a string without end", lambda: f'{JSON_ROOT}"{"a" * 10_000_000}', 2, ":1: "),
    ("half of a surrogate pair", lambda: JSON_ROOT + '"\\ud800"}', 2, ":1: "),
    ("a NUL by escape", lambda: JSON_ROOT + '"\\u0000"}', 2, "control character"),
    ("control characters in a name", lambda: '{"a\\u009b\\u001b\\u007f": 1}', 2, "'a   '"),
    ("300,000 members", lambda: JSON_ROOT + "{" + numbered(300_000, '"a#":1,')[:-1] + "}}",
     0, ""),
    ("UTF-16", lambda: (JSON_ROOT + "{}}").encode("utf-16"), 2, ":1: "),
]

CASES = [
    ("entities", lambda: case(entity_bomb()), 2, "a DOCTYPE is"),
    ("100,000 levels", lambda: case(deep(100_000)), 2, "nested deeper than 64 levels"),
    ("no document, but a long line", lambda: case("\u009b" * 5_000_000), 2, "input:1: "),
    ("100,000 arrays", lambda: "[" * 100_000, 2, "syntax error"),
    ("a long line that is no JSON", lambda: "\u009b" * 5_000_000, 2, "syntax error"),
    ("a call with a long result",
     lambda: '{"input": [], "calls": [{"call": "sibling", "result": "' + "a" * 5_000_000 + '"}]}',
     2, "no result"),
]

# Each byte of it can be the last one.
CUT = (f"<?xml version='1.0'?><interfaces {IETF} {NC}><interface nc:operation='create'>"
       "<name>a&amp;b</name><description><![CDATA[x]]></description></interface></interfaces>")
CUT_JSON = JSON_ROOT + '{"interface-configuration": [{"active": "a\\u0062", "x": [null, 1.5]}]}}'


class Runner:
    def __init__(self, ymap, folder, sanitized):
        self.ymap, self.folder, self.sanitized = ymap, folder, sanitized
        self.count, self.failed = 0, 0
        self.slowest, self.largest = 0, 0

    def write(self, document):
        """Makes the document in a process of its own: what the command has asked for at the most is
        told with what the process held that has started it."""
        if os.fork() == 0:
            text = document()
            (self.folder / "in").write_bytes(text if isinstance(text, bytes) else text.encode())
            os._exit(0)
        if os.wait()[1] != 0:
            raise OSError("a document can't be written")

    def expect(self, label, arguments, document, status, message):
        """Runs the command in the folder; the document is the file that its arguments end with."""
        self.write(document)
        size = (self.folder / "in").stat().st_size
        with open(self.folder / "out", "w+b") as out, open(self.folder / "err", "w+b") as err:
            process = subprocess.Popen(
                [self.ymap, *arguments, "in"], cwd=self.folder, stdin=subprocess.DEVNULL,
                stdout=out, stderr=err,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (60, 60)))
            _, code, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(code)
            err.seek(0)
            said, printed = err.read(), out.seek(0, os.SEEK_END)
        lines = said.split(b"\n")
        seconds, kilobytes = usage.ru_utime + usage.ru_stime, usage.ru_maxrss
        self.slowest, self.largest = max(self.slowest, seconds), max(self.largest, kilobytes)
        faults = {
            f"exit status {process.returncode}, not {status}": process.returncode != status,
            "standard output": status == 2 and printed > 0,
            "no line": bool(message) and message.encode() not in said,
            "something is said": not message and bool(said),
            "no line end": bool(said) and lines[-1] != b"",
            "several lines": status == 2 and len(lines) > 2,
            "a long line": any(len(line) > 600 for line in lines),
            "control characters": any(c < 0x20 or c == 0x7f for line in lines for c in line) or
                                  any(0x80 <= ord(c) < 0xa0 for c in said.decode(errors="replace")),
            # Enough for a loaded machine, and far below what a quadratic step would take.
            f"{seconds:.1f} s": seconds > 15,
            # A document that is refused is never held whole. A sanitizer's shadow is memory too.
            f"{kilobytes} KB": not self.sanitized and kilobytes > (
                150_000 if status == 2 else 40_000 + 40 * size // 1024),
        }
        self.count += 1
        if any(faults.values()):
            self.failed += 1
            print(f"{label}: {', '.join(fault for fault, holds in faults.items() if holds)}\n"
                  f"    {said[:1000]!r}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--ymap", type=pathlib.Path,
                        default=pathlib.Path(__file__).parent.parent / "build/release/host/ymap")
    parser.add_argument("--sanitized", action="store_true", help="don't look at memory")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="ymap-") as temporary:
        folder = pathlib.Path(temporary)
        (folder / "read.xml").write_text(root(""))
        (folder / "edit.xml").write_text(root(""))
        runner = Runner(arguments.ymap.resolve(), folder, arguments.sanitized)
        edit = ["map", "--op", "edit"]
        for label, document, status, message in REQUESTS:
            runner.expect(label, edit, document, status, message)
        for label, document, status, message in NATIVE:
            runner.expect(f"{label}, as data", ["edit", "edit.xml", "--data"], document, status,
                          message)
        for label, document, status, message in CASES:
            runner.expect(f"{label}, in a case", ["replay"], document, status, message)
        for whole, verb in (CUT, edit), (CUT_JSON, ["edit", "edit.xml", "--data"]):
            runner.expect("whole", verb, lambda: whole, 0, "")
            for size in range(1, len(whole), 5):
                runner.expect(f"cut at {size}", verb, lambda: whole[:size], 2, ":1: ")
    print(f"hostile: {runner.count} documents, {runner.failed} failed; "
          f"at most {runner.slowest:.1f} s and {runner.largest // 1024} MB")
    return 1 if runner.failed else 0


if __name__ == "__main__":
    sys.exit(main())
