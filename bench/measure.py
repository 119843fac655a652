"""Measures, for scripts/bench, what needs no quiet machine: instructions, counted by callgrind, and
peak memory. Beside them the time of whole commands, which take turns.

usage: measure.py BUILD-DIRECTORY

Writes measured.json: the figures by name, and the rows of their bounds.
"""

import concurrent.futures
import glob
import json
import os
import re
import subprocess
import sys
import time

# Interfaces of the reference document, and the sizes that growth is measured between.
SIZE, LARGE = 10000, 100000
FEW, MANY = 1000, 20000
# Requests that name every interface of the data, which an interface may not make dearer.
NAMING_ALL = {
    "read": ("read", "configuration", "`read` of N interfaces by name out of N, configuration"),
    "read-state": ("read", "operational", "the same, state"),
    "merge": ("edit", "configuration", "`edit` of N entries in N, merge"),
    "create": ("edit", "configuration", "the same, create"),
    "delete": ("edit", "configuration", "the same, delete"),
}


class Profile:
    """What callgrind wrote of a process or, where the process asked for it, of a part of it."""

    def __init__(self, path):
        self.path = path
        with open(path, encoding="utf-8") as file:
            self.text = file.read()

    def found(self, pattern, text=None):
        """What the group of a pattern is in the profile, or in another text about it."""
        match = re.search(pattern, text or self.text, re.MULTILINE)
        if match is None:
            sys.exit(f"{self.path} has no {pattern}")
        return match.group(1)

    def total(self):
        """All instructions, those of loading included."""
        return int(self.found(r"^totals: (\d+)"))

    def of(self, function):
        """Instructions of a function and all that it calls."""
        table = subprocess.run(
            ["callgrind_annotate", "--inclusive=yes", "--threshold=100", self.path],
            capture_output=True, text=True, check=True).stdout
        line = rf"^ *([\d,]+) \([^:]*:{re.escape(function)}\(.*\) \["
        return int(self.found(line, table).replace(",", ""))

    def calls(self, function):
        """How many times a function was called."""
        number = re.escape(self.found(rf"^c?fn=(\(\d+\)) {function}$"))
        return sum(map(int, re.findall(rf"^cfn={number}.*\ncalls=(\d+)", self.text, re.MULTILINE)))


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

    def profile(self, name, command):
        """Runs a command in callgrind. A command that asks for profiles of its parts writes them
        beside that of the whole, with a number after the name."""
        path = os.path.join(self.folder, f"callgrind.{name}")
        for old in glob.glob(f"{path}*"):
            os.remove(old)
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={path}", *command],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"{' '.join(command)} has failed:\n{done.stderr}")
        return Profile(path)

    def map(self, document):
        return [self.ymap, "map", "--op", "get", "--format", "xml", document]


def run(command):
    """Seconds by the clock and of the processor, and peak memory in bytes."""
    start = time.monotonic()
    with subprocess.Popen(command, stdout=subprocess.DEVNULL) as process:
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(command)} has failed")
    return time.monotonic() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def least(turns, commands):
    """The least of each figure of run() over some turns, in which the commands alternate."""
    runs = {name: [] for name in commands}
    for _ in range(turns):
        for name, command in commands.items():
            runs[name].append(run(command))
    return {name: [min(figures) for figures in zip(*each)] for name, each in runs.items()}


def count_walks(machine):
    """Profiles of single walks over 1,000 interfaces, by root and state of the logs."""
    whole = machine.profile("walks", [machine.program("walks_bench"), "--once"])
    parts = [Profile(path) for path in glob.glob(f"{whole.path}.*")]
    return {part.found(r"^desc: Trigger: Client Request: (\S+)"): part for part in parts}


def count_steps(machine):
    """Instructions an interface of the mapping steps side by side."""
    interfaces = 2000
    profile = machine.profile("steps", [machine.program("side_by_side_bench"),
                                        machine.document("operational", interfaces),
                                        "--benchmark_filter=none"])
    return {name: profile.of(f"(anonymous namespace)::map_{name}") / interfaces
            for name in ("to_paths", "to_tree", "by_hand", "by_stylesheet")}


def count_requests(machine, data, stylesheet):
    """Instructions of whole commands: on the reference document, and of the sizes of growth."""
    commands = {
        "pass": [machine.program("sax_pass"), data],
        "map": machine.map(data),
        "xsltproc": ["xsltproc", stylesheet, machine.document("operational", FEW)],
        "one": [machine.ymap, "read", machine.document("read-state-one", SIZE), "--data", data],
        "all": [machine.ymap, "read", machine.document("read-state-all", SIZE), "--data", data],
    }
    for kind, (verb, native, _) in NAMING_ALL.items():
        for size in (MANY, FEW, 1):
            commands[f"{kind}-{size}"] = [machine.ymap, verb, machine.document(kind, size),
                                          "--data", machine.document(native, size)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        profiles = dict(zip(commands, pool.map(machine.profile, commands, commands.values())))
    counts = {name: profile.total() for name, profile in profiles.items()}
    counts["xsltproc"] *= SIZE // FEW
    counts["walk"] = profiles["map"].of("ozk::Run::walk")
    counts["write"] = profiles["map"].of("ymap::formats::write_xml")
    return counts


def of_each(counts, kind, size):
    """Instructions an interface. What a process does whatever its input, such as loading the
    library, is not an interface's: a run with one tells it."""
    return (counts[f"{kind}-{size}"] - counts[f"{kind}-1"]) / (size - 1)


def run_large(machine):
    """Times and memory of a document that is much larger than the caches."""
    data, one = (machine.document(kind, LARGE) for kind in ("operational", "read-state-one"))
    size = os.path.getsize(data)
    times = least(5, {"pass": [machine.program("sax_pass"), data],
                      "read": [machine.ymap, "read", one, "--data", data]})
    _, _, map_memory = run(machine.map(data))
    os.remove(data)
    return {"size": size, "pass": times["pass"][1], "read": times["read"][1],
            "read memory": times["read"][2] / size, "map memory": map_memory / size}


def row(name, value, limit, is_least=False):
    """A line of the table of bounds: the limit is the most or the least that may come out."""
    return {"section": "Bounds", "name": name, "value": value, "unit": "",
            "bound": f"{'≥' if is_least else '≤'} {limit}",
            "holds": value >= limit if is_least else value <= limit}


def rows(counts, large, traced):
    """The bounds of whole requests."""
    ways = counts["pass"] + counts["walk"] + counts["write"]
    return [row(*bound) for bound in (
        (f"`map --format xml` of operational data, {SIZE:,} interfaces: instructions over pass, "
         "walk and write", counts["map"] / ways, 1.4),
        (f"the same, {LARGE:,} interfaces: peak memory over the document's size",
         large["map memory"], 2.5),
        (f"`read` of one interface by name out of {LARGE:,}: processor time over the pass",
         large["read"] / large["pass"], 3),
        (f"the same out of {SIZE:,}, instructions", counts["one"] / counts["pass"], 3),
        (f"`read` of one out of {LARGE:,}: peak memory over the document's size",
         large["read memory"], 2.5),
        (f"`read` of all of {SIZE:,} interfaces: instructions over the pass",
         counts["all"] / counts["pass"], 5),
        *((f"{what}: instructions an interface, {MANY:,} over {FEW:,}",
           of_each(counts, kind, MANY) / of_each(counts, kind, FEW), 1.2)
          for kind, (_, _, what) in NAMING_ALL.items()),
        ("a walk with the trace level on: times that a log entry is formatted",
         traced.calls("vsnprintf") / traced.calls("_tlm_dt_log_filter_adv"), 1),
    )]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    machine = Machine(sys.argv[1])
    stylesheet = os.path.join(os.path.dirname(__file__), "interfaces_state.xsl")
    data = machine.document("operational", SIZE)
    counts = count_requests(machine, data, stylesheet)
    large = run_large(machine)
    walks = count_walks(machine)
    traced = walks["native_operational/get/trace_level"]
    measured = {
        "interfaces": SIZE,
        "commands": counts,
        "times": least(9, {"map": machine.map(data), "xsltproc": ["xsltproc", stylesheet, data]}),
        "large": large,
        "growing": {what: [of_each(counts, kind, size) for size in (FEW, MANY)]
                    for kind, (_, _, what) in NAMING_ALL.items()},
        "walks": {name: profile.total() / 1000 for name, profile in walks.items()},
        "log entries": traced.calls("_tlm_dt_log_filter_adv") / 1000,
        "steps": count_steps(machine),
        "rows": rows(counts, large, traced),
    }
    with open(os.path.join(machine.build, "measured.json"), "w", encoding="utf-8") as file:
        json.dump(measured, file, indent=2)
    for row in measured["rows"]:
        print(f"{row['value']:6.2f}  {row['bound']}  {row['name']}")


if __name__ == "__main__":
    main()
