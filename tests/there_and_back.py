#!/usr/bin/env python3
"""The map of an edit says the same as the edit, and what an edit writes, a read gives back.

What `ymap map --format xml` makes of an edit, put as <config> into an edit-config with the edit's
own default-operation, has to change native data as `ymap edit` does with the edit itself: into the
same document, or both are refused with the same error-tag. The edits are those of the examples and
of the transcripts, and some that are drawn at random; these have an oracle as well, which says by
RFC 6241, 7.2, what clients read in the end.

Told apart and counted: documents that can't be read, and edits without a configuration, since their
walk ends with a status or they reach entries that they don't name. Where the map notes that it
doesn't carry something out, the edit has to be refused. Of edits on native roots, the map is none.
"""

import argparse
import concurrent.futures
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree
from xml.sax.saxutils import escape

sys.dont_write_bytecode = True  # the folder of the tests stays as it is
import transcripts

NC = "urn:ietf:params:xml:ns:netconf:base:1.0"
IETF = "urn:ietf:params:xml:ns:yang:ietf-interfaces"
CFG = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"


def edit_config(config, default):
    return (f'<rpc message-id="1" xmlns="{NC}" xmlns:nc="{NC}"><edit-config><target><running/>'
            f"</target><default-operation>{default}</default-operation>{config}"
            "</edit-config></rpc>")


def of_entries(entries, default, attribute=""):
    return edit_config(f'<config><interfaces xmlns="{IETF}" {attribute}>\n{entries}'
                       "</interfaces></config>", default)


def default_of(text):
    found = re.search(r"default-operation>\s*(\w+)\s*<", text)
    return found[1] if found else "merge"


def element(tag, value, operation):
    attribute = f' nc:operation="{operation}"' if operation else ""
    return f"<{tag}{attribute}>{escape(value)}</{tag}>"


def native(entries):
    """A native document; its entries are active. One that clients don't see is always there."""
    text = f'<interface-configurations xmlns="{CFG}">\n'
    for name, leaves in entries.items():
        text += ("<interface-configuration><active>act</active>" +
                 element("interface-name", name, "") +
                 "".join(element({"enabled": "shutdown"}.get(tag, tag), value, "")
                         for tag, value in leaves.items()) +
                 "<bandwidth>9</bandwidth></interface-configuration>\n")
    return text + ("<interface-configuration><active>prepared</active><interface-name>a"
                   "</interface-name><description>unseen</description>"
                   "</interface-configuration>\n</interface-configurations>\n")


# -------------------------------------------------------------------------------------------------
# Edits at random

NAMES = ["a", "b", "port 1/2", " a ", "lo&1", "Ærø", "]]>'\"\\"]
OTHERS = [f"port-{i}" for i in range(20)]  # with them, a list is long enough for an index
OPERATIONS = ["merge", "create", "replace", "delete", "remove"]


def draw_entries(draw):
    names = draw.sample(NAMES, draw.randrange(4)) + draw.choice([[], [], OTHERS])
    return {name: draw_leaves(draw) for name in names}


def draw_leaves(draw):
    leaves = {"description": draw.choice(["x", "b <c>", " d\te\n", "&"]),
              "enabled": draw.choice(["true", "false"])}
    return {tag: leaves[tag] for tag in draw.sample(list(leaves), draw.randrange(3))}


class DrawnEdit:
    """Entries with an operation or none, and leaves with one or none."""

    def __init__(self, draw):
        self.default = draw.choice(["merge", "merge", "none", "replace"])
        self.root = draw.choice([""] * 5 + OPERATIONS)
        own = [""] * 4 + OPERATIONS
        self.entries = [
            (name, draw.choice(own), [(tag, value, draw.choice(own + [""] * 4))
                                      for tag, value in draw_leaves(draw).items()])
            for name in draw.sample(NAMES + OTHERS[-2:], draw.choice([1, 1, 2, 3]))]
        if draw.random() < 0.05:
            self.entries.append(self.entries[0])

    def text(self):
        attribute = f'nc:operation="{self.root}"' if self.root else ""
        return of_entries("".join(
            element("interface", "", operation).removesuffix("</interface>") +
            element("name", name, "") + "".join(element(*leaf[:2], leaf[2]) for leaf in leaves) +
            "</interface>\n" for name, operation, leaves in self.entries), self.default, attribute)

    def expected(self, before):
        """What becomes of the entries, or None for an edit that has to be refused."""
        if self.root in ("delete", "remove"):  # whatever it holds
            return None if self.root == "delete" and not before else {}
        if self.root == "create" and before:
            return None
        names = [name for name, _, _ in self.entries]
        if len(set(names)) < len(names):
            return None
        above = self.root or self.default
        after = {name: dict(leaves) for name, leaves in before.items()
                 if above != "replace" or name in names}
        for name, operation, leaves in self.entries:
            operation = operation or above
            if operation in ("delete", "none") and name not in before:
                return None
            if operation == "create" and name in before:
                return None
            if operation in ("delete", "remove"):
                after.pop(name, None)
                continue
            was = before.get(name, {})
            entry = {} if operation == "replace" else dict(was)
            for tag, value, own in leaves:
                own = own or operation
                if own == ("create" if tag in was else "delete"):
                    return None
                if own in ("delete", "remove"):
                    entry.pop(tag, None)
                elif own != "none":
                    entry[tag] = value
            after[name] = entry
        return after


# -------------------------------------------------------------------------------------------------
# Edits that are written down

def written_edits():
    """The label and the text of each edit of the examples and the transcripts."""
    for path in sorted((transcripts.TOP / "examples").glob("*.xml")):
        yield path.name, path.read_text()
    for path in sorted((transcripts.TOP / "tests/transcripts").glob("*.txt")):
        for run in transcripts.parse(path.read_text())[0]:
            text = "".join(line + "\n" for line in run.input)
            if re.match(r"<(\w+:)?interface[ />]|[a-z]*\n*\Z", text) and "changes" in run.command:
                default = re.search(r"default=(\w+)", run.command)
                attribute = re.search(r"root='([^']*)'", run.command)
                text = of_entries(text, default[1] if default else "merge",
                                  attribute[1] if attribute else "")
            elif re.match("<interface[ />]", text):
                text = of_entries(text, "merge")
            yield f"{path.name}:{run.line}", text


class Checker:
    def __init__(self, ymap, folder):
        self.ymap, self.folder = ymap, folder
        self.counts, self.failures = {}, []

    def write(self, name, text):
        (self.folder / name).write_text(text)
        return name

    def run(self, *arguments):
        return subprocess.run([self.ymap, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60)

    def count(self, what):
        self.counts[what] = self.counts.get(what, 0) + 1

    def fail(self, label, what, *texts):
        self.failures.append("\n".join([f"{label}: {what}", *texts]))

    def map(self, requests):
        """What the map makes of each request: its configuration, or None; and what is noted."""
        done = self.run("map", "--keep-going", "--op", "edit", "--format", "xml", *requests)
        configurations = dict(re.findall(
            r"^<!-- (\S+) -->\n(<nc:config [^>]*/>|<nc:config .*?</nc:config>)$", done.stdout,
            re.M | re.S))
        notes = {}
        for name, note in re.findall(r"^([er]\d+\.xml)(?::\d+)?: (.*)$", done.stderr, re.M):
            notes.setdefault(name, []).append(note)
        return {request: (configurations.get(request), notes.get(request, []))
                for request in requests}

    def edit(self, request, data):
        """The status of an edit, and the document or the error-tag that it gives."""
        done = self.run("edit", request, "--data", data)
        tag = re.search(rf"^{re.escape(request)}(?::\d+)?: ([a-z-]+): ", done.stderr, re.M)
        return done.returncode, done.stdout if done.returncode == 0 else tag and tag[1]

    def compare(self, label, request, text, data, mapped):
        """Applies the edit and what the map makes of it; returns what became of the edit."""
        configuration, notes = mapped
        own = self.edit(request, data)
        if own[0] == 2:
            self.count("not read")
        elif notes or configuration is None:
            self.count("without a configuration")
            if own[0] == 0 and configuration is not None:
                self.fail(label, "edited in spite of a note", text, *notes)
        else:
            self.count(("applied", "refused")[own[0]])
            other = self.write(f"m{request}", edit_config(configuration, default_of(text)))
            there = self.edit(other, data)
            if there != own:
                self.fail(label, "the map's configuration does something else", text,
                          f"on {data}: the edit", str(own), "the configuration", configuration,
                          str(there))
        return own

    def check_written(self, pool):
        documents = {}
        for label, text in written_edits():
            try:
                tree = xml.etree.ElementTree.fromstring(text)
            except xml.etree.ElementTree.ParseError:
                continue
            if "/ns/yang/Brelvik" in text:
                continue
            if tree.tag == f"{{{IETF}}}interfaces" or tree.find(f".//{{{NC}}}edit-config"):
                documents[self.write(f"e{len(documents)}.xml", text)] = label, text
        # Those of the examples are about the entries of their native document.
        small = self.write("small.xml", native({"a": {"description": "x"}, "b": {}}))
        example = str(transcripts.TOP / "examples/native-configuration.xml")
        mapped = self.map(documents)

        def compare(request):
            label, text = documents[request]
            data = example if label.endswith(".xml") else small
            self.compare(label, request, text, data, mapped[request])

        list(pool.map(compare, documents))

    def check_drawn(self, pool, seed, count):
        draw = random.Random(seed)
        edits = {f"r{i}.xml": DrawnEdit(draw) for i in range(count)}
        data = {}
        for request, edit in edits.items():
            self.write(request, edit.text())
            data[request] = draw_entries(draw)
            self.write(f"n{request}", native(data[request]))
        mapped = self.map(edits)
        list(pool.map(lambda request: self.check_one(
            f"seed {seed}, {request}", request, edits[request], data[request], mapped[request]),
            edits))

    def check_one(self, label, request, edit, before, mapped):
        text = edit.text()
        status, result = self.compare(label, request, text, f"n{request}", mapped)
        expected = edit.expected(before)
        if (status == 0) != (expected is not None):
            self.fail(label, f"on {before}, {expected} is expected, not status {status}", text)
        elif status == 0:
            read = self.run("read", "all.xml", "--data", self.write(f"o{request}", result))
            if self.entries_of(read.stdout) != expected:
                self.fail(label, f"on {before}, {expected} is expected, and read is", read.stdout,
                          text)

    @staticmethod
    def entries_of(reply):
        try:
            tree = xml.etree.ElementTree.fromstring(reply)
        except xml.etree.ElementTree.ParseError:
            return None
        entries = {}
        for entry in tree.iter(f"{{{IETF}}}interface"):
            leaves = {leaf.tag.removeprefix(f"{{{IETF}}}"): leaf.text or "" for leaf in entry}
            entries[leaves.pop("name")] = leaves
        return entries


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--ymap", type=pathlib.Path,
                        default=transcripts.TOP / "build/release/host/ymap")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=300, help="edits that are drawn")
    arguments = parser.parse_args()
    with (tempfile.TemporaryDirectory(prefix="ymap-") as temporary,
          concurrent.futures.ThreadPoolExecutor(2) as pool):
        checker = Checker(arguments.ymap.resolve(), pathlib.Path(temporary))
        checker.write("all.xml", f'<interfaces xmlns="{IETF}"/>')
        checker.check_written(pool)
        checker.check_drawn(pool, arguments.seed, arguments.count)
    for failure in checker.failures:
        print(failure + "\n")
    told = ", ".join(f"{count} {what}" for what, count in sorted(checker.counts.items()))
    print(f"there and back: {told}; {len(checker.failures)} failed")
    # Of each kind there have to be some, or nothing was looked at.
    return 1 if checker.failures or min(checker.counts.get(what, 0) for what in (
        "applied", "refused", "without a configuration")) < 50 else 0


if __name__ == "__main__":
    sys.exit(main())
