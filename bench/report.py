"""Writes the page on performance and its picture from what scripts/bench has measured.

usage: report.py BUILD-DIRECTORY PAGE-DIRECTORY [ROWS.json...]

Reads bounds.txt, measured.json, walks.json and side_by_side.json; writes performance.md and
performance.svg. A file ROWS.json holds further results, a list of objects with `section`, `name`,
`value` (a number), `unit` and `bound` (texts, empty for none) and `holds` (true, false or null):
each section of them becomes a section of the page, with a table of its rows.
"""

import json
import os
import re
import subprocess
import sys

from measure import row

SIZES = [1, 10, 100, 1000, 10000, 100000]
ROOTS = {
    "native_operational/get": "native operational data to `/interfaces-state`, get",
    "native_configuration/get": "native configuration to `/interfaces`, get-config",
    "ietf_state/get": "request on `/interfaces-state`, get",
    "ietf_configuration/get": "request on `/interfaces`, get-config",
    "ietf_configuration/create": "request on `/interfaces`, edit: create",
    "ietf_configuration/delete": "request on `/interfaces`, edit: delete",
}
LOGS = {"off": "off", "error_level": "error level", "trace_level": "trace level",
        "trace": "trace buffer"}
STEPS = {
    "to_paths": "the library: the walk, to the list of added paths",
    "to_tree": "the library: the same, and the data tree made of the paths",
    "by_hand": "walk over the libxml2 tree written by hand, to a libxml2 tree",
    "by_stylesheet": "stylesheet run by libxslt, to a libxml2 tree",
}


def load(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return json.load(file)


class Results:
    """The runs of one bench program, by name. A time is the least of its repetitions: what is added
    to it comes from elsewhere."""

    def __init__(self, *path):
        content = load(*path)
        self.context = content["context"]
        self.runs = {}
        for run in content["benchmarks"]:
            if run["run_type"] == "iteration":
                name = re.sub("/(repeats:1|manual_time)$", "", run["run_name"])
                self.runs.setdefault(name, []).append(run)

    def least(self, name, key="cpu_time"):
        return min(run[key] for run in self.runs[name])

    def cost(self, name):
        """Processor time for each interface, in nanoseconds."""
        return min(1e9 / run["items_per_second"] for run in self.runs[name])


def read_bounds(path):
    """The rows of check-bounds by compiler: name, measured, limit, whether it holds."""
    tables = {}
    with open(path, encoding="utf-8") as file:
        for line in file.read().splitlines():
            heading = re.match(r"bound, as (\S+) builds it", line)
            if heading:
                rows = tables.setdefault(heading.group(1), [])
            else:
                rows.append(tuple(line.rsplit(None, 3)))
    return tables


def number(value):
    """Three digits that count."""
    if value >= 100:
        return f"{value:,.0f}"
    return f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def table(head, rows):
    aligned = ["---"] + ["---:"] * (len(head) - 1)
    return "\n".join("| " + " | ".join(map(str, cells)) + " |" for cells in [head, aligned, *rows])


def rows_table(rows):
    said = {True: "yes", False: "**no**", None: "-"}
    return table(("result", "measured", "bound", "holds"),
                 [(each["name"], f"{number(each['value'])} {each['unit']}".rstrip(),
                   each["bound"] or "-", said[each["holds"]]) for each in rows])


def machine(context):
    """The processor, its caches and the compiler, a line each."""
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        model = re.search(r"^model name\s*: (.*)", file.read(), re.MULTILINE)
    caches = ", ".join(f"L{cache['level']} {cache['type'].lower()} {cache['size'] // 1024:,} KiB"
                       for cache in context["caches"])
    versions = [subprocess.run([program, "--version"], capture_output=True, text=True,
                               check=True).stdout.splitlines()[0] for program in ("g++", "xsltproc")]
    return (f"{model.group(1) if model else 'processor unknown'}, {context['num_cpus']} processors; "
            f"{caches}.\n{versions[0]}, preset `release`. {versions[1]}.")


def page(bounds, measured, walks, side, more):
    interfaces, commands, large = (measured[key] for key in ("interfaces", "commands", "large"))
    steps, times = measured["steps"], measured["times"]
    least = {name: side.least(name) for name in STEPS}
    own_rows = {name: float(value) for name, value, _, _ in bounds["g++"]}
    calls = own_rows["calls of the framework per interface"]
    own = calls * own_rows["own instructions per call of the framework"]
    each_call = least["to_paths"] * 1e6 / interfaces / calls
    commands["rest"] = commands["map"] - sum(commands[part] for part in ("pass", "walk", "write"))
    threads = "walkers/real_time/threads"
    busy = {"holds": None} if walks.context["load_avg"][0] > walks.context["num_cpus"] else {}
    entries = measured["log entries"]

    def on(logs):
        return measured["walks"][f"native_operational/get/{logs}"]

    rows = measured["rows"] + [
        row(f"mapping step of {interfaces:,} interfaces to a data tree: libxslt's time over the "
            "library's, minima of nine", least["by_stylesheet"] / least["to_tree"], 5, True),
        row("the same: time of a walk written by hand over the library's",
            least["by_hand"] / least["to_tree"], 1, True),
        row("from text to text: `xsltproc`'s processor time over that of `ymap map`",
            times["xsltproc"][1] / times["map"][1], 1, True),
        row("a walk: time an interface at 100,000 over that at 1,000",
            walks.cost("walk/native_operational/get/off/100000")
            / walks.cost("walk/native_operational/get/off/1000"), 1.3),
        row("walks of two threads on two contexts, over those of one, by the clock",
            walks.cost(f"{threads}:1") / walks.cost(f"{threads}:2"), 1.8, True) | busy,
        # Two threads do the work of one twice: with nothing to wait for, at the same cost.
        row("the same, by the processor's time that the walks take",
            2 * walks.least(f"{threads}:1") / walks.least(f"{threads}:2"), 1.8, True),
    ] + more
    sections = {}
    for result in rows:
        sections.setdefault(result["section"], []).append(result)

    library = [(name, value, clang, limit if limit == clang_limit else f"{limit}, {clang_limit}",
                holds if holds == clang_holds else f"{holds}, {clang_holds}")
               for (name, value, limit, holds), (_, clang, clang_limit, clang_holds)
               in zip(bounds["g++"], bounds["clang++"], strict=True)]
    whole = {"the bare pass": "pass", "`map`": "map", "of it the walk": "walk",
             "of it the writing of the result": "write", "of it all but these and a pass": "rest",
             "`read` of one by name": "one", "`read` of all": "all"}
    growing = [(name, f"{few:,.0f}", f"{many:,.0f}")
               for name, (few, many) in measured["growing"].items()]
    by_size = [(label, f"{measured['walks'][f'{name}/off']:,.0f}",
                *(number(walks.cost(f"walk/{name}/off/{size}")) for size in SIZES))
               for name, label in ROOTS.items()]
    by_logs = [(label, *(f"{measured['walks'][f'{name}/{state}']:,.0f}" for state in LOGS),
                *(number(walks.cost(f"walk/{name}/{state}/1000")) for state in LOGS))
               for name, label in ROOTS.items()]
    step_rows = [(label, number(least[name]), f"{least[name] / least['to_tree']:.2f}",
                  f"{steps[name]:,.0f}", f"{steps[name] / steps['to_tree']:.2f}")
                 for name, label in STEPS.items()]
    way_rows = [(f"`{name}`", number(times[key][0] * 1e3), number(times[key][1] * 1e3),
                 f"{times[key][1] / times['map'][1]:.2f}", f"{commands[key] / interfaces:,.0f}",
                 f"{commands[key] / commands['map']:.2f}")
                for name, key in (("ymap map --op get --format xml", "map"),
                                  ("xsltproc", "xsltproc"))]
    further = "".join(f"\n## {section}\n\n{rows_table(those)}\n"
                      for section, those in sections.items() if section != "Bounds")
    return f"""# Performance

What the map library and the command `ymap` cost: the bounds that are set, what was measured, and
what lies between. `scripts/bench` measures everything anew and writes this page, in a few minutes on two
processors; `scripts/check-bounds` measures the library's own bounds alone, needs no clock and fails
where one doesn't hold. This run is of {walks.context["date"][:10]}.

Instructions are counted by callgrind and come out the same on a busy machine. Times are minima of
nine repetitions, which took turns, and of five at 100,000 interfaces: of them trust the ratios.
Unless said, a time is the processor's. What two threads do by the clock says nothing, and is not
judged, where the load is above the number of processors: it was {walks.context["load_avg"][0]:.1f} when the walks began.

An interface is one of the reference document, 48 elements: name, MAC address, 36 counters and the
type of its statistics, state, line state, MTU, bandwidth, description, and the elements around them.

{machine(walks.context)}

## Bounds

What a command makes of a document is measured by the bare pass over the same document: libxml2
reads it and calls for each element and text, and nobody does anything with them. A **no** is a bound
that isn't met, by as much as its row says.

{rows_table(sections["Bounds"])}

![Times of the mapping step and of the whole way, beside the rivals](performance.svg)

## The library

{table(("on the operational reference tree, logs off", "g++", "clang++", "bound", "holds"), library)}

The library makes {calls:,.0f} calls of the framework for an interface and spends {own:,.0f}
instructions of its own between them. It imports no allocator and, while logs are off, walks share
nothing that is written. What a load has to process is one address for each imported name; the
1024 bytes of a trace line are in the frame of a function that is entered only to write one. Input
is read once, from its beginning to its end, so that a tree far larger than the caches costs little
more than one within them.

## Requests

The reference document of {interfaces:,} interfaces, in instructions an interface:

{table(("whole processes", "instructions"),
       [(name, f"{commands[count] / interfaces:,.0f}") for name, count in whole.items()])}

Requests that name each of N interfaces, in another order than the data has them. A process begins
by loading what it runs and by asking the library for the schema that the request is held against.
A run with one interface tells how much that is, {commands["read-1"] / 1e6:,.0f} million instructions in a `read` of
configuration and {commands["read-state-1"] / 1e6:,.0f} million in one of state; it is taken off before the sizes are compared:

{table(("instructions an interface", "N = 1,000", "N = 20,000"), growing)}

At {large["size"] / 1e6:,.0f} MB and 100,000 interfaces, the pass takes {large["pass"]:.2f} s and the
`read` of one interface {large["read"]:.2f} s.

## Walks

An interface with all logs off, in instructions and, by the number of interfaces in the tree, in
nanoseconds:

{table(("logs off", "instructions", *(f"{size:,} ns" for size in SIZES)), by_size)}

With logs on, at 1,000 interfaces. With the trace level on, the log layer formats an entry of each
log point once, into a buffer on the stack where it fits; the walk of operational data takes
{on("trace_level") / on("off"):.1f} times the instructions. With the trace buffer on, every log point formats a line and
puts it into the ring. Of the error level, a request on an entry of `/interfaces-state` has a line,
since its statistics don't know the entry's key; the others have none:

{table(("an interface", *(f"{label}, instructions" for label in LOGS.values()),
        *(f"{label}, ns" for label in LOGS.values())), by_logs)}

That is {(on("trace_level") - on("off")) / entries:,.0f} instructions for an entry of the log layer, of which the walk of operational data
makes {entries:,.0f} for an interface, and {(on("trace") - on("off")) / entries:,.0f} for a line of the trace.

## Side by side

The same native operational document of {interfaces:,} interfaces, mapped to the same
`/interfaces-state`; the results are compared before anything is measured, those of the two commands
byte by byte. The mapping step starts from the tree in memory that each side reads, and ends with a
result that is freed beside the clock. The walk adds paths to a flat list, which is the output tree
of the contract; the data tree that `ymap` prints is made of it once.

{table(("mapping step", "ms", "times the data tree's", "instructions an interface",
        "times the data tree's"), step_rows)}

{table(("from text to text", "ms by the clock", "ms of the processor", "times `ymap`'s",
        "instructions an interface", "times `ymap`'s"), way_rows)}

The walk written by hand has no request to look at, no operation, no edits, no hooks for other
models, no log and no trace, and looks at names only where something maps. The stylesheet does none
of these either; its advantage is that it is data, replaced without building anything. The library
asks the log layer six questions for each leaf and compares each tag with its siblings' in the order
of the schema, as its contract with the framework has it.

## What can't be had

**Ten times libxslt can't be had by anyone** who keeps the contract. An interface takes {calls:,.0f}
calls of the framework, and libxslt {least["by_stylesheet"] * 1e6 / interfaces:,.0f} ns: a tenth of
that is {least["by_stylesheet"] * 1e5 / interfaces / calls:.2f} ns a call, for all that the library,
the framework and the tree do around it. At {each_call:.1f} ns for each call, what the walk takes
here, {least["by_stylesheet"] / least["to_paths"]:.1f} times are left before there is a tree. Nor
would a library without any work of its own get there: a tenth of libxslt's instructions is
{steps["by_stylesheet"] / 10:,.0f}, and of the {steps["to_paths"]:,.0f} of the walk
{steps["to_paths"] - own:,.0f} are comparisons, level tests and added paths beyond it.
{further}"""


def picture(measured, side):
    """Bars: the mapping step, and the whole way from text to text, in milliseconds."""
    ours, theirs = "#0072B2", "#999999"
    panels = {
        "Mapping step, 10,000 interfaces (processor time)":
            [(label, side.least(name), colour) for label, name, colour in (
                ("library, to paths", "to_paths", ours), ("library, to a tree", "to_tree", ours),
                ("written by hand", "by_hand", theirs), ("libxslt", "by_stylesheet", theirs))],
        "From text to text, 10,000 interfaces (processor time)":
            [(label, measured["times"][name][1] * 1e3, colour) for label, name, colour in (
                ("ymap map", "map", ours), ("xsltproc", "xsltproc", theirs))],
    }
    body, y = [], 28
    for title, bars in panels.items():
        body.append(f'<text x="16" y="{y}" font-weight="bold">{title}</text>')
        longest = max(value for _, value, _ in bars)
        for label, value, colour in bars:
            y += 26
            width = 480 * value / longest
            body += [f'<text x="152" y="{y}" text-anchor="end">{label}</text>',
                     f'<rect x="160" y="{y - 14}" width="{width:.1f}" height="18" fill="{colour}"/>',
                     f'<text x="{168 + width:.1f}" y="{y}">{number(value)} ms</text>']
        y += 44
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 740 {y - 20}" '
            'font-family="sans-serif" font-size="14" fill="#222222">\n'
            f'<rect width="740" height="{y - 20}" fill="#ffffff"/>\n' + "\n".join(body)
            + "\n</svg>\n")


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    build, pages = sys.argv[1:3]
    measured = load(build, "measured.json")
    side = Results(build, "side_by_side.json")
    more = [each for path in sys.argv[3:] for each in load(path)]
    walks, bounds = Results(build, "walks.json"), read_bounds(os.path.join(build, "bounds.txt"))
    for name, content in (("performance.md", page(bounds, measured, walks, side, more)),
                          ("performance.svg", picture(measured, side))):
        with open(os.path.join(pages, name), "w", encoding="utf-8") as file:
            file.write(content)


if __name__ == "__main__":
    main()
