"""Measures what needs no quiet machine, for scripts/bench: instructions, counted by callgrind, and
peak memory; beside them the processor's time of one read, over that of a bare pass.

usage: measure.py BUILD-DIRECTORY

Writes measured.json: instructions of walks and mapping steps, and the bounds of whole requests.
"""

import concurrent.futures
import glob
import json
import os
import re
import subprocess
import sys

# Interfaces of the reference document, and the two sizes that growth is measured between.
SIZE, LARGE = 10000, 100000
FEW, MANY = 1000, 20000
# Requests that name every interface of the data, which an interface may not make dearer.
MANY_NAMES = {
    "read": ("read", "configuration"),
    "read-state": ("read", "operational"),
    "merge": ("edit", "configuration"),
    "create": ("edit", "configuration"),
    "delete": ("edit", "configuration"),
}


class Profile:
    """Instructions of a command, its loading included."""

    def __init__(self, path, command):
        if os.path.exists(path):
            os.remove(path)
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={path}", *command],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"{' '.join(command)} has failed:\n{done.stderr}")
        self.path = path

    def total(self):
        with open(self.path, encoding="utf-8") as file:
            return int(re.search(r"^totals: (\d+)", file.read(), re.MULTILINE).group(1))

    def of(self, function):
        """Instructions of a function and all that it calls."""
        table = subprocess.run(
            ["callgrind_annotate", "--inclusive=yes", "--threshold=100", self.path],
            capture_output=True, text=True, check=True).stdout
        found = re.search(r"^ *([\d,]+) \([^:]*:" + re.escape(function) + r"\(.*\) \[", table,
                          re.MULTILINE)
        if found is None:
            sys.exit(f"{self.path} has no {function}")
        return int(found.group(1).replace(",", ""))


class Machine:
    """The programs of a build directory and the documents that they are run on."""

    def __init__(self, build):
        self.build = build
        self.folder = os.path.join(build, "measured")
        self.ymap = os.path.join(build, "host/ymap")
        os.makedirs(self.folder, exist_ok=True)

    def program(self, name):
        return os.path.join(self.build, "bench", name)

    def document(self, kind, interfaces):
        path = os.path.join(self.folder, f"{kind}-{interfaces}.xml")
        with open(path, "wb") as file:
            subprocess.run([self.program("reference_document"), kind, str(interfaces)],
                           stdout=file, check=True)
        return path

    def profile(self, name, *command):
        return Profile(os.path.join(self.folder, f"callgrind.{name}"), command)


def run(*command):
    """Processor time in seconds and peak memory in bytes."""
    with subprocess.Popen(command, stdout=subprocess.DEVNULL) as process:
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(command)} has failed")
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def count_walks(machine):
    """Instructions an interface of each walk, by root and state of the logs."""
    interfaces = 1000  # of walks_bench
    for path in glob.glob(os.path.join(machine.folder, "callgrind.walks*")):
        os.remove(path)
    machine.profile("walks", machine.program("walks_bench"), "--once")
    walks = {}
    for path in glob.glob(os.path.join(machine.folder, "callgrind.walks.*")):
        with open(path, encoding="utf-8") as file:
            content = file.read()
        name = re.search(r"^desc: Trigger: Client Request: (\S+)", content, re.MULTILINE)
        if name is not None:
            total = re.search(r"^totals: (\d+)", content, re.MULTILINE)
            walks[name.group(1)] = int(total.group(1)) / interfaces
    return walks


def count_steps(machine):
    """Instructions an interface of the mapping steps side by side."""
    interfaces = 2000
    profile = machine.profile("steps", machine.program("side_by_side_bench"),
                              machine.document("operational", interfaces),
                              "--benchmark_filter=none")
    return {name: profile.of(f"(anonymous namespace)::map_{name}") / interfaces
            for name in ("to_paths", "to_tree", "by_hand", "by_stylesheet")}


def count_requests(machine):
    """Instructions of whole requests: on the reference document, and of two sizes."""
    data = machine.document("operational", SIZE)
    one, every = (machine.document(kind, SIZE) for kind in ("read-state-one", "read-state-all"))
    commands = {
        "pass": [machine.program("sax_pass"), data],
        "map": [machine.ymap, "map", "--op", "get", "--format", "xml", data],
        "xsltproc": ["xsltproc", "bench/interfaces_state.xsl", data],
        "one": [machine.ymap, "read", one, "--data", data],
        "all": [machine.ymap, "read", every, "--data", data],
    }
    for kind, (verb, native) in MANY_NAMES.items():
        for size in (MANY, FEW, 1):
            commands[f"{kind}-{size}"] = [machine.ymap, verb, machine.document(kind, size),
                                          "--data", machine.document(native, size)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        profiles = dict(zip(commands, pool.map(
            lambda name: machine.profile(name, *commands[name]), commands)))
    counts = {name: profile.total() for name, profile in profiles.items()}
    counts["walk"] = profiles["map"].of("ozk::Run::walk")
    counts["write"] = profiles["map"].of("ymap::formats::write_xml")
    return counts


def growth(counts, kind):
    """Instructions an interface of many interfaces over those of few. What a process does whatever
    its input, such as loading the library, is not an interface's: a run with one tells it."""
    many, few, one = (counts[f"{kind}-{size}"] for size in (MANY, FEW, 1))
    return ((many - one) / (MANY - 1)) / ((few - one) / (FEW - 1))


def run_large(machine):
    """Time and memory of a document that is much larger than the caches."""
    data = machine.document("operational", LARGE)
    one = machine.document("read-state-one", LARGE)
    size = os.path.getsize(data)
    turns = [(run(machine.program("sax_pass"), data), run(machine.ymap, "read", one, "--data", data))
             for _ in range(5)]
    _, map_memory = run(machine.ymap, "map", "--op", "get", "--format", "xml", data)
    for path in (data, one):
        os.remove(path)
    return {
        "size": size,
        "pass time": min(bare[0] for bare, _ in turns),
        "read time": min(read[0] for _, read in turns),
        "read memory": min(read[1] for _, read in turns) / size,
        "map memory": map_memory / size,
    }


def rows(counts, large):
    """The bounds of whole requests: name, measured, limit."""
    def over_pass(name):
        return counts[name] / counts["pass"]

    ways = counts["pass"] + counts["walk"] + counts["write"]
    return [
        (f"`map --format xml` of operational data, {SIZE:,} interfaces: instructions over pass, "
         "walk and write", counts["map"] / ways, 1.4),
        (f"the same, {LARGE:,} interfaces: peak memory over the document's size",
         large["map memory"], 2.5),
        (f"`read` of one interface by name out of {LARGE:,}: processor time over the pass",
         large["read time"] / large["pass time"], 3),
        ("the same: peak memory over the document's size", large["read memory"], 2.5),
        (f"the same out of {SIZE:,}: instructions over the pass", over_pass("one"), 3),
        (f"`read` of all of {SIZE:,} interfaces: instructions over the pass", over_pass("all"), 5),
        *((f"{what}: instructions an interface, {MANY:,} over {FEW:,}", growth(counts, kind), 1.2)
          for kind, what in (
              ("read", "`read` of N interfaces by name out of N, configuration"),
              ("read-state", "the same, state"),
              ("merge", "`edit` of N entries in N, merge"),
              ("create", "the same, create"),
              ("delete", "the same, delete"))),
    ]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    machine = Machine(sys.argv[1])
    counts = count_requests(machine)
    large = run_large(machine)
    measured = {
        "walks": count_walks(machine),
        "steps": count_steps(machine),
        "requests": counts,
        "large": large,
        "interfaces": SIZE,
        "rows": rows(counts, large),
    }
    with open(os.path.join(machine.build, "measured.json"), "w", encoding="utf-8") as file:
        json.dump(measured, file, indent=2)
    for name, value, limit in measured["rows"]:
        print(f"{value:6.2f}  {limit:4}  {name}")


if __name__ == "__main__":
    main()
