#!/usr/bin/env python3
"""Holds the YANG modules that the command writes against yanglint: it takes them, native documents
and replies are valid by them, and what the deviations leave of ietf-interfaces is what maps."""

import argparse
import copy
import csv
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

TOP = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = TOP / "examples"
NETCONF = "{urn:ietf:params:xml:ns:netconf:base:1.0}"
IETF = "{urn:ietf:params:xml:ns:yang:ietf-interfaces}"
CONFIGURATION = "{http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg}"
FILTERS = "{http://brelvik.example/ns/yang/Brelvik-NQ-ip-pfilter-cfg}"

NATIVE_DATA = [["native-operational.xml", "native-configuration.xml"],
               ["native-interface-types.xml", "native-filters.xml"]]


def run(*command):
    return subprocess.run([str(word) for word in command], timeout=60, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)


class Yang(unittest.TestCase):
    arguments = None

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory(prefix="ymap-")
        cls.work = pathlib.Path(cls.temporary.name)
        run(TOP / "scripts/generate", cls.arguments.ymap, cls.work).check_returncode()
        cls.native = sorted((cls.work / "yang").glob("Brelvik-*.yang"))
        cls.deviations = cls.work / "yang/ymap-ietf-interfaces-deviations.yang"
        cls.ietf = cls.arguments.modules / "ietf-interfaces@2014-05-08.yang"

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    def yanglint(self, *words):
        """Its messages, of which warnings are errors here, and its output."""
        done = run(self.arguments.yanglint, "-p", self.arguments.modules, *words)
        self.assertEqual(done.returncode != 0, bool(done.stderr), done.stderr)
        return done.stderr, done.stdout

    def faults(self, modules, roots, kind="data"):
        """What is wrong with the data of these roots. What the map knows nothing of, the nodes of
        packet filters, is left out."""
        roots = copy.deepcopy(roots)
        for root in roots:
            for node in root.iter():
                for child in [each for each in node if each.tag.startswith(FILTERS)]:
                    node.remove(child)
        data = self.work / "data.xml"
        data.write_bytes(b"".join(ElementTree.tostring(root) for root in roots))
        return self.yanglint("-t", kind, *modules, data)[0]

    def read(self, request, documents):
        """The roots of the reply."""
        files = [word for name in documents for word in ("--data", EXAMPLES / name)]
        done = run(self.arguments.ymap, "read", request, *files)
        self.assertEqual(done.returncode, 0, done.stderr)
        roots = list(ElementTree.fromstring(done.stdout).find(NETCONF + "data"))
        self.assertTrue(roots)
        return roots

    def test_modules_are_accepted(self):
        self.assertEqual(len(self.native), 2)
        for module in [*self.native, self.deviations]:
            self.assertEqual(self.yanglint(module)[0], "")
            # A <hello> advertises modules of version 1, which is that of those that don't say it.
            self.assertNotIn("yang-version", module.read_text())

    def test_what_deviations_leave_is_what_maps(self):
        table = run(self.arguments.ymap, "table", "--format", "csv", "--mapped", "--model", "if")
        mapped = {row["node"] for row in csv.DictReader(table.stdout.splitlines())}
        above = {path[:at.start()] for path in mapped for at in re.finditer("(?<!^)/", path)}
        for features in ["ietf-interfaces:*", "ietf-interfaces:"]:
            _, tree = self.yanglint("-F", features, "-f", "tree", self.ietf, self.deviations)
            left, path = set(), []
            for indent, name in re.findall(r"^([ |]*)\+--r[ow] ([\w-]+)", tree, re.M):
                path[len(indent) // 3:] = [name]
                left.add("/" + "/".join(path))
            self.assertEqual(left, mapped | above, features)

    def test_native_documents_are_valid(self):
        documents = sorted(EXAMPLES.glob("native-*.xml"))
        self.assertTrue(documents)
        for document in documents:
            root = ElementTree.parse(document).getroot()
            self.assertEqual(self.faults(self.native, [root]), "", document.name)
        # The modules do say something: of keys, of nodes, of what is configuration.
        root = ElementTree.parse(EXAMPLES / "native-configuration.xml").getroot()
        ElementTree.SubElement(root[0], CONFIGURATION + "shut")
        self.assertIn('Node "shut" not found', self.faults(self.native, [root]))
        root[0].remove(root[0][-1])
        root[0].remove(root[0].find(CONFIGURATION + "active"))
        self.assertIn('key "active"', self.faults(self.native, [root]))
        root = ElementTree.parse(EXAMPLES / "native-operational.xml").getroot()
        self.assertIn('unexpected data state node "interfaces"',
                      self.faults(self.native, [root], "config").lower())

    def test_replies_are_valid_with_the_deviations_and_not_without(self):
        get = self.work / "get.xml"
        get.write_text(f'<rpc message-id="1" xmlns="{NETCONF[1:-1]}"><get/></rpc>')
        for documents in NATIVE_DATA:
            roots = self.read(get, documents)
            tags = {root.tag for root in roots}
            self.assertTrue({IETF + "interfaces", IETF + "interfaces-state"} < tags, tags)
            modules = [self.ietf, *self.native]
            self.assertEqual(self.faults([*modules, self.deviations], roots), "")
            self.assertIn('Mandatory node "type"', self.faults(modules, roots))

            roots = self.read(EXAMPLES / "read-all.xml", documents)
            self.assertEqual(self.faults([self.ietf, self.deviations], roots, "config"), "")
            self.assertIn('Mandatory node "type"', self.faults([self.ietf], roots, "config"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--ymap", type=pathlib.Path, default=TOP / "build/release/host/ymap")
    parser.add_argument("--yanglint", default="yanglint")
    parser.add_argument("--modules", type=pathlib.Path, required=True,
                        help="the folder of ietf-interfaces@2014-05-08.yang")
    Yang.arguments, rest = parser.parse_known_args()
    if Yang.arguments.yanglint.endswith("NOTFOUND") or not Yang.arguments.modules.is_dir():
        sys.exit("yang: needs yanglint of libyang2-tools and the modules of libyuma-base: "
                 "scripts/setup, then cmake once more")
    unittest.main(argv=[sys.argv[0], *rest])
