"""Writes the page on performance and its plot from what scripts/bench has measured.

usage: report.py BUILD-DIRECTORY PAGE-DIRECTORY

Reads bounds.txt, measured.json, walks.json, side_by_side.json and, if there is one, netconf.json;
writes performance.md and performance.svg.
"""

import json
import math
import os
import re
import subprocess
import sys

SIZES = [1, 10, 100, 1000, 10000, 100000]
ROOTS = {
    "native_operational/get": "native operational data to `/interfaces-state`, get",
    "native_configuration/get": "native configuration to `/interfaces`, get-config",
    "ietf_state/get": "request on `/interfaces-state`, get",
    "ietf_configuration/get": "request on `/interfaces`, get-config",
    "ietf_configuration/create": "request on `/interfaces`, edit: create",
    "ietf_configuration/delete": "request on `/interfaces`, edit: delete",
}


class Results:
    """The runs of one bench program, by name. A time is the least of its repetitions: what is added
    to it comes from elsewhere."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            content = json.load(file)
        self.context = content["context"]
        self.runs = {}
        for run in content["benchmarks"]:
            if run["run_type"] == "iteration":
                name = re.sub("/(repeats:1|manual_time)$", "", run["run_name"])
                self.runs.setdefault(name, []).append(run)

    def least(self, name, key="cpu_time"):
        return min(run[key] for run in self.runs[name])

    def nanoseconds(self, name):
        """Time for each item."""
        return min(1e9 / run["items_per_second"] for run in self.runs[name])

    def cost(self, subject, logs, size):
        """Processor time for each interface, in nanoseconds."""
        return self.nanoseconds(f"walk/{subject}/{logs}/{size}")


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
    return "\n".join("| " + " | ".join(map(str, row)) + " |" for row in [head, aligned, *rows])


def met(holds):
    return "yes" if holds else "**no**"


def first_line(*command):
    output = subprocess.run(command, capture_output=True, text=True, check=False).stdout
    return output.splitlines()[0] if output else "unknown"


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return "unknown"


# -------------------------------------------------------------------------------------------------
# The page


def bounds_section(bounds, walks):
    rows = [(name, measured, other, limit if limit == other_limit else f"{limit}, {other_limit}",
             holds if holds == other_holds else f"{holds}, {other_holds}")
            for (name, measured, limit, holds), (_, other, other_limit, other_holds)
            in zip(bounds["g++"], bounds["clang++"], strict=True)]
    growth = (walks.cost("native_operational/get", "off", 100000)
              / walks.cost("native_operational/get", "off", 1000))
    rows.append(("time an interface at 100,000 interfaces, times that at 1,000",
                 f"{growth:.2f}", "-", "1.3", met(growth <= 1.3)))
    two = walks.nanoseconds("threads/1") / walks.nanoseconds("threads/2")
    rows.append(("walks of two threads on two contexts, times those of one",
                 f"{two:.2f}", "-", "at least 1.8", met(two >= 1.8)))
    # Two threads do the work of one twice: with nothing to wait for, in the time of one.
    by_cpu = 2 * (2 * walks.least("threads/1", "cpu") / walks.least("threads/2", "cpu"))
    rows.append(("the same, by the processor's time that the walks take",
                 f"{by_cpu:.2f}", "-", "at least 1.8", met(by_cpu >= 1.8)))
    load = ", ".join(f"{value:.1f}" for value in walks.context["load_avg"])
    fresh = (walks.cost("native_operational/get", "fresh_memory", 100000)
             / walks.cost("native_operational/get", "off", 100000))
    values = {name: measured for name, measured, _, _ in bounds["g++"]}
    library = values["the library's share of the instructions of the walk, %"]
    framework = values["the framework stand-in's share, %"]
    calls = float(values["calls of the framework per interface"])
    own = float(values["own instructions per call of the framework"])
    return f"""## The library

{table(("on the operational reference tree, logs off", "g++", "clang++", "limit", "holds"), rows)}

An interface of the reference tree is 48 nodes: its name, MAC address, 36 counters, the type of its
statistics, its state, line state, MTU, bandwidth and description, and the nodes around them. The
library makes {calls:,.0f} calls of the framework for it and spends {calls * own:,.0f} instructions
of its own between them. `scripts/check-bounds` measures all but the last three rows, which need a
clock, and fails where one doesn't hold.

- **Relocations.** What a load has to process is one address for each imported name, which the
  calls go through; the entry points of the sibling libraries are bound at their first call. Tables
  of texts hold their texts themselves and need none.
- **Memory.** The library imports no allocator. `ozk_strdup`, on a failure, is the framework's.
- **Stack.** The 1024 bytes of a trace line are in the frame of the function that writes it, which
  is entered only while a log or the trace is on.
- **Large trees.** Of the instructions of a walk {library} % are the library's and {framework} % the
  stand-in's; the rest is libc's, for its comparisons and copies. Input is read once, from its
  beginning to its end, so that a tree far larger than the caches costs little more than one within
  them. What grows is the list of added paths: where the kernel has to hand out its pages first, a
  walk over 100,000 interfaces takes {fresh:.2f} times as long. The other numbers are of a process
  that uses its memory again.
- **Threads.** Walks share nothing that is written while logs are off, and wait for nothing. The
  first of the two rows is by the clock and needs two processors that nobody else uses; the load of
  the machine, of {walks.context["num_cpus"]} processors, was {load} when the run began. The second
  shows whether one walk makes another one dearer.
"""


def requests_section(measured):
    counts, interfaces = measured["requests"], measured["interfaces"]
    large = measured["large"]
    rows = [(name, f"{value:.2f}", limit, met(value <= limit))
            for name, value, limit in measured["rows"]]

    def of_each(count):
        return f"{count / interfaces:,.0f}"

    rest = counts["map"] - counts["pass"] - counts["walk"] - counts["write"]
    parts = [
        ("the bare pass", of_each(counts["pass"])),
        ("`map`", of_each(counts["map"])),
        ("of it the walk", of_each(counts["walk"])),
        ("of it the writing of the result", of_each(counts["write"])),
        ("of it all but these and a pass", of_each(rest)),
        ("`read` of one interface by name", of_each(counts["one"])),
        ("`read` of all", of_each(counts["all"])),
        ("`xsltproc`, for what `map` does", of_each(counts["xsltproc"])),
    ]
    each = [(what, *(of_size(counts, kind, size) for size in (1000, 20000)))
            for kind, what in (("read", "`read` by name, configuration"),
                               ("read-state", "`read` by name, state"),
                               ("merge", "`edit`, merge"), ("create", "`edit`, create"),
                               ("delete", "`edit`, delete"))]
    loading = counts["read-state-1"]
    return f"""## Requests

What the command makes of a document is measured by a bare pass over the same document: libxml2
reads it and calls for each element and text, and nobody does anything with them.

{table(("bound", "measured", "limit", "holds"), rows)}

The reference document of {interfaces:,} interfaces, in instructions an interface:

{table(("whole processes", "instructions"), parts)}

Each process begins by loading what it runs, and a `read` or an `edit` by asking the library for the
schema that the request is held against: the `read` of one state entry out of one takes
{loading / 1e6:,.0f} million instructions. That much is taken off before the two sizes of a request
on N interfaces are compared:

{table(("instructions an interface", "1,000", "20,000"), each)}

At {large["size"] / 1e6:,.0f} MB and 100,000 interfaces, the pass takes {large["pass time"]:.2f} s and
the `read` of one interface {large["read time"]:.2f} s of the processor's time, the least of five.
"""


def of_size(counts, kind, size):
    return f"{(counts[f'{kind}-{size}'] - counts[f'{kind}-1']) / (size - 1):,.0f}"


def walks_section(measured, walks):
    counted = measured["walks"]
    logs = {"off": "off", "error_level": "error level", "trace_level": "trace level",
            "trace": "trace buffer"}
    by_size = [(label, f"{counted[f'{name}/off']:,.0f}",
                *(number(walks.cost(name, "off", size)) for size in SIZES))
               for name, label in ROOTS.items()]
    by_logs = [(label, *(f"{counted[f'{name}/{state}']:,.0f}" for state in logs),
                *(number(walks.cost(name, state, 1000)) for state in list(logs)[1:]))
               for name, label in ROOTS.items()]
    dearer = counted["native_operational/get/trace_level"] / counted["native_operational/get/off"]
    points = [(label, number(walks.least(f"log_point/{state}"))) for state, label in (
        ("off", "logs off"),
        ("error_level", "its level on: entry handed to the log layer, which formats it"),
        ("trace", "trace buffer on: line formatted and put into the ring"))]
    return f"""## Walks

![Time an interface of walks over 1 to 100,000 interfaces, and the side by side](performance.svg)

An interface with all logs off, in instructions and, by the number of interfaces in the tree, in
nanoseconds:

{table(("logs off", "instructions", *(f"{size:,} ns" for size in SIZES)), by_size)}

A walk of `/global-interface-configuration`, which has one leaf, takes
{number(walks.cost("native_global/get", "off", 1))} ns.

The same with logs on, at 1,000 interfaces. With the trace level on, the log layer formats an entry
of each trace point, which makes the walk of operational data {dearer:.1f} times as dear; with the
trace buffer on, every log point formats a line and puts it into the ring. Of the error level,
a request on an entry of `/interfaces-state` has a line, since its statistics don't know the entry's
key; the others have none:

{table(("an interface", *(f"{label}, instructions" for label in logs.values()),
        *(f"{label}, ns" for label in list(logs.values())[1:])), by_logs)}

{table(("one log point", "nanoseconds"), points)}
"""


def side_by_side_section(bounds, measured, side):
    values = {row[0]: row[1] for row in bounds["g++"]}
    calls = float(values["calls of the framework per interface"])
    own = calls * float(values["own instructions per call of the framework"])
    interfaces, counted = measured["interfaces"], measured["steps"]
    paths, tree, by_hand, xslt = (
        side.least(f"mapping_step/{name}")
        for name in ("library_paths", "library_tree", "by_hand", "libxslt"))
    nodes = side.least("mapping_step/library_paths", "nodes")
    steps = [
        ("the library: the walk, to the list of added paths", paths, counted["to_paths"]),
        ("the library: the same, and the data tree made of the paths", tree, counted["to_tree"]),
        ("walk over the libxml2 tree written by hand, to a libxml2 tree", by_hand,
         counted["by_hand"]),
        ("stylesheet run by libxslt, to a libxml2 tree", xslt, counted["by_stylesheet"]),
    ]
    step_rows = [(label, number(time), number(time * 1e6 / nodes), f"{time / tree:.2f}",
                  f"{count:,.0f}", f"{count / counted['to_tree']:.2f}")
                 for label, time, count in steps]
    ways = {name: (side.least(f"whole_way/{name}", "real_time"),
                   side.least(f"whole_way/{name}", "cpu") * 1e3, measured["requests"][command])
            for name, command in (("ymap", "map"), ("xsltproc", "xsltproc"))}
    way_rows = [(f"`{name}`", number(wall), number(cpu), f"{wall / ways['ymap'][0]:.2f}",
                 f"{count / interfaces:,.0f}", f"{count / ways['ymap'][2]:.2f}")
                for name, (wall, cpu, count) in ways.items()]

    def goal(text, ratio, least):
        return (text, f"{ratio:.2f}", f"at least {least}", met(ratio >= least))

    goals = [
        goal("libxslt's time over the library's, to a data tree", xslt / tree, 5),
        goal("the same, instructions", counted["by_stylesheet"] / counted["to_tree"], 5),
        goal("the hand-written walk's time over the library's, to a data tree", by_hand / tree, 1),
        goal("`xsltproc`'s time over `ymap`'s, from text to text",
             ways["xsltproc"][0] / ways["ymap"][0], 1),
        goal("the same, processor time", ways["xsltproc"][1] / ways["ymap"][1], 1),
    ]
    tenth = counted["by_stylesheet"] / 10
    return f"""## Side by side

The same native operational document of {interfaces:,} interfaces ({nodes:,.0f} elements), mapped to
the same `/interfaces-state`; the results are compared before anything is measured, those of the two
commands byte by byte. The mapping step starts from the tree in memory that each side reads, and
ends with a result that is freed beside the clock. The walk adds paths to a flat list, which is the
output tree of the contract; the data tree that `ymap` prints is made of it once.

{table(("mapping step", "milliseconds", "ns a node", "times the data tree's",
        "instructions an interface", "times the data tree's"), step_rows)}

{table(("from text to text", "milliseconds", "processor time", "times `ymap`'s",
        "instructions an interface", "times `ymap`'s"), way_rows)}

{table(("goal", "measured", "wanted", "met"), goals)}

**Ten times libxslt can't be had**, by no library that keeps the contract. It makes {calls:,.0f} calls
of the framework for an interface, and the walk takes {paths * 1e6 / interfaces / calls:.1f} ns for
each, all included: {xslt / paths:.1f} times libxslt, before there is a tree. A tenth of libxslt's
instructions are {tenth:,.0f} an interface. The walk takes {counted["to_paths"]:,.0f}, of which the
library's own are {own:,.0f}: {counted["to_paths"] - own:,.0f} would be left if it had none, for
comparisons, level tests and added paths alone.

What the rivals don't do:

- The hand-written walk has no request to look at: no operation, no gate on `MAP_OP_GET`, no edits,
  no hooks for other models, no node that is known and left out, no log and no trace. It looks at
  names only where something maps.
- The stylesheet does none of these either, and reads only. Its advantage is that it is data: it can
  be replaced without building anything.
- The library asks the log layer six questions for each leaf and compares each tag with its
  siblings' in the order of the schema, as its contract with the framework has it; the walk written
  by hand is free to do neither.
"""


def netconf_section(path):
    """A section on the server beside others, if it was measured: `path` holds an object with
    `text`, which stands above the table, its `head` and its `rows`, all of them texts."""
    if not os.path.exists(path):
        return ""
    with open(path, encoding="utf-8") as file:
        compared = json.load(file)
    return f"""
## Over NETCONF

{compared["text"]}

{table(compared["head"], compared["rows"])}
"""


def page(build, bounds, measured, walks, side):
    compiler = first_line("g++", "--version")
    xslt = first_line("xsltproc", "--version")
    caches = ", ".join(
        f"L{cache['level']} {cache['type'].lower()} {cache['size'] // 1024:,} KiB"
        for cache in walks.context["caches"])
    repetitions = len(side.runs["mapping_step/libxslt"])
    return f"""# Performance

Written by `scripts/bench` on {walks.context["date"][:10]}; a run takes a few minutes and measures
everything anew. Instructions are counted by callgrind and come out the same on a busy machine.
Times are the processor's unless said, and minima, of {repetitions} repetitions side by side and of
five elsewhere, which took turns: of them trust the ratios.

Machine: {processor()}, {walks.context["num_cpus"]} processors; {caches}.
Compiler: {compiler}, preset `release`. {xslt}.

{bounds_section(bounds, walks)}
{requests_section(measured)}
{walks_section(measured, walks)}
{side_by_side_section(bounds, measured, side)}{netconf_section(os.path.join(build, "netconf.json"))}"""


# -------------------------------------------------------------------------------------------------
# The plot

WIDTH, HEIGHT = 860, 640
# Colours that stay apart for most eyes.
LINES = [
    ("native_operational/get", "off", "operational", "#0072B2"),
    ("native_configuration/get", "off", "native configuration", "#D55E00"),
    ("ietf_state/get", "off", "read of /interfaces-state", "#009E73"),
    ("ietf_configuration/create", "off", "edit of /interfaces", "#555555"),
]


def text(x, y, content, anchor="start", colour="#222222", extra=""):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}"{extra}>'
            f"{content}</text>")


def line_panel(walks, left, top, right, bottom):
    """Time an interface over the number of interfaces, both on logarithmic scales."""
    costs = {(name, logs): [walks.cost(name, logs, size) for size in SIZES]
             for name, logs, _, _ in LINES}
    low = math.floor(math.log10(min(map(min, costs.values()))))
    high = math.ceil(math.log10(max(map(max, costs.values()))))

    def x_of(size):
        return left + (right - left) * math.log10(size) / math.log10(SIZES[-1])

    def y_of(cost):
        return bottom - (bottom - top) * (math.log10(cost) - low) / (high - low)

    out = [text(left, top - 20, "Time an interface, by interfaces in the tree (logs off)",
                extra=' font-weight="bold"')]
    for power in range(low, high + 1):
        y = y_of(10**power)
        label = f"{10**(power - 3):g} µs"
        out.append(f'<line x1="{left}" y1="{y:.1f}" x2="{right}" y2="{y:.1f}" stroke="#dddddd"/>')
        out.append(text(left - 8, y + 4, label, "end"))
    for size in SIZES:
        out.append(text(x_of(size), bottom + 20, f"{size:,}", "middle"))

    # Labels stand after the ends of the lines, pushed apart where they would meet.
    ends = sorted((y_of(costs[name, logs][-1]), label, colour)
                  for name, logs, label, colour in LINES)
    free = top
    for y, label, colour in ends:
        free = max(y, free)
        out.append(text(right + 12, free + 4, label, colour=colour))
        free += 16
    for name, logs, _, colour in LINES:
        points = [(x_of(size), y_of(cost)) for size, cost in zip(SIZES, costs[name, logs])]
        joined = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        out.append(f'<polyline points="{joined}" fill="none" stroke="{colour}" stroke-width="2"/>')
        out += [f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}"/>' for x, y in points]
    return out


def bar_panel(title, bars, left, top, right):
    """Milliseconds as bars: label, value and colour each."""
    out = [text(left, top - 14, title, extra=' font-weight="bold"')]
    longest = max(value for _, value, _ in bars)
    start = left + 210
    for i, (label, value, colour) in enumerate(bars):
        y = top + 24 * i
        width = (right - start) * value / longest
        out.append(text(start - 8, y + 13, label, "end"))
        out.append(f'<rect x="{start}" y="{y}" width="{width:.1f}" height="17" fill="{colour}"/>')
        out.append(text(start + width + 6, y + 13, f"{number(value)} ms"))
    return out


def plot(walks, side):
    ours, theirs = "#0072B2", "#999999"
    steps = [("library, to paths", "library_paths", ours),
             ("library, to a tree", "library_tree", ours),
             ("written by hand", "by_hand", theirs),
             ("libxslt", "libxslt", theirs)]
    ways = [("ymap", ours), ("xsltproc", theirs)]
    body = [
        *line_panel(walks, 70, 50, 640, 350),
        *bar_panel("Mapping step, 10,000 interfaces (processor time)",
                   [(label, side.least(f"mapping_step/{name}"), colour)
                    for label, name, colour in steps], 30, 430, 740),
        *bar_panel("From text to text, 10,000 interfaces (processor time)",
                   [(name, side.least(f"whole_way/{name}", "cpu") * 1e3, colour)
                    for name, colour in ways], 30, 570, 740),
    ]
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" '
            'font-family="sans-serif" font-size="13">\n'
            f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>\n'
            + "\n".join(body) + "\n</svg>\n")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    build, pages = sys.argv[1:]
    bounds = read_bounds(os.path.join(build, "bounds.txt"))
    walks = Results(os.path.join(build, "walks.json"))
    side = Results(os.path.join(build, "side_by_side.json"))
    with open(os.path.join(build, "measured.json"), encoding="utf-8") as file:
        measured = json.load(file)
    for name, content in (("performance.md", page(build, bounds, measured, walks, side)),
                          ("performance.svg", plot(walks, side))):
        with open(os.path.join(pages, name), "w", encoding="utf-8") as file:
            file.write(content)


if __name__ == "__main__":
    main()
