"""Writes the page on performance and its plot from what scripts/bench has measured.

usage: report.py BUILD-DIRECTORY PAGE-DIRECTORY

Reads bounds.txt, walks.json and side_by_side.json; writes performance.md and performance.svg.
"""

import json
import math
import os
import re
import statistics
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
    """The runs of one bench program, by name. Times are medians over the repetitions."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            content = json.load(file)
        self.context = content["context"]
        self.runs = {}
        for run in content["benchmarks"]:
            if run["run_type"] == "iteration":
                name = re.sub("/(repeats:1|manual_time)$", "", run["run_name"])
                self.runs.setdefault(name, []).append(run)

    def median(self, name, key="cpu_time"):
        return statistics.median(run[key] for run in self.runs[name])

    def cost(self, subject, logs, size):
        """Processor time for each interface, in nanoseconds."""
        runs = self.runs[f"walk/{subject}/{logs}/{size}"]
        return statistics.median(1e9 / run["items_per_second"] for run in runs)


def read_bounds(path):
    """The rows of check-bounds: name, measured, limit, whether it holds."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()[1:]
    return [tuple(line.rsplit(None, 3)) for line in lines]


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
    rows = [(name, measured, limit, holds.replace("NO", "**no**"))
            for name, measured, limit, holds in bounds]
    growth = (walks.cost("native_operational/get", "off", 100000)
              / walks.cost("native_operational/get", "off", 1000))
    rows.append(("cost per interface at 100,000 interfaces, times that at 1,000",
                 f"{growth:.2f}", "1.3", met(growth <= 1.3)))
    one, two = (walks.median(f"threads/{n}", "items_per_second") for n in (1, 2))
    cpu_one, cpu_two = (walks.median(f"threads/{n}", "cpu") for n in (1, 2))
    rows.append(("walks of two threads on two contexts, times those of one",
                 f"{two / one:.2f}", "at least 1.8", met(two / one >= 1.8)))
    # Two threads do the work of one twice: with nothing to wait for, in the time of one.
    by_cpu = 2 * (2 * cpu_one / cpu_two)
    rows.append(("the same, by the processor's time that the walks take",
                 f"{by_cpu:.2f}", "at least 1.8", met(by_cpu >= 1.8)))
    load = ", ".join(f"{value:.1f}" for value in walks.context["load_avg"])
    fresh = (walks.cost("native_operational/get", "fresh_memory", 100000)
             / walks.cost("native_operational/get", "off", 100000))
    values = {name: measured for name, measured, _, _ in bounds}
    library = values["the library's share of the instructions of the walk, %"]
    framework = values["the framework stand-in's share, %"]
    calls = float(values["calls of the framework per interface"])
    own = float(values["own instructions per call of the framework"])
    return f"""## Bounds

{table(("bound, on the operational reference tree, logs off", "measured", "limit", "holds"), rows)}

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
  stand-in's; the rest is libc's, for its comparisons and copies. Input is read once, in the order
  in which it lies in memory, so that a tree far larger than the caches costs little more than one
  within them. What grows is the list of added paths: where the kernel has to hand out its pages
  first, a walk over 100,000 interfaces takes {fresh:.2f} times as long. The other numbers are
  of a process that uses its memory again.
- **Threads.** Walks share nothing that is written while logs are off, and wait for nothing. The
  first of the two rows is by the clock and needs two processors that nobody else uses; the load of
  the machine, of {walks.context["num_cpus"]} processors, was {load} when the run began. The second
  shows whether one walk makes another one dearer.
"""


def walks_section(walks):
    def rows(logs):
        return [(label, *(number(walks.cost(name, logs, size)) for size in SIZES))
                for name, label in ROOTS.items()]

    head = ("nanoseconds per interface", *(f"{size:,}" for size in SIZES))
    point = {logs: number(walks.median(f"log_point/{logs}"))
             for logs in ("off", "error_level", "trace")}
    global_root = number(walks.cost("native_global/get", "off", 1))
    return f"""## Walks

![Cost per interface of walks over 1 to 100,000 interfaces, and the side by side](performance.svg)

Processor time with all logs off:

{table(head, rows("off"))}

With the error level on. A request on an entry of `/interfaces-state` has an error line, since its
statistics don't know the entry's key; the others have none:

{table(head, rows("error_level"))}

With the trace on, where every log point formats a line and puts it into the ring:

{table(head, rows("trace"))}

A walk of `/global-interface-configuration`, which has one leaf, takes {global_root} ns.

{table(("one log point", "nanoseconds"),
       [("logs off", point["off"]),
        ("its level on: entry handed to the log layer, which formats it", point["error_level"]),
        ("trace on: line formatted and put into the ring", point["trace"])])}
"""


def side_by_side_section(bounds, side):
    calls = next(float(row[1]) for row in bounds if row[0].startswith("calls of")) * 10000

    def ms(name, key="cpu_time"):
        return side.median(name, key)

    paths, tree = ms("mapping_step/library_paths"), ms("mapping_step/library_tree")
    by_hand, xslt = ms("mapping_step/by_hand"), ms("mapping_step/libxslt")
    nodes = side.median("mapping_step/library_paths", "nodes")
    steps = [
        ("the library: the walk, to the list of added paths", paths),
        ("the library: the same, and the data tree built of the paths", tree),
        ("walk over the libxml2 tree written by hand, to a libxml2 tree", by_hand),
        ("stylesheet run by libxslt, to a libxml2 tree", xslt),
    ]
    step_rows = [(label, number(time), number(time * 1e6 / nodes), f"{time / paths:.2f}")
                 for label, time in steps]
    ways = {name: (ms(f"whole_way/{name}", "real_time"), ms(f"whole_way/{name}", "cpu") * 1e3)
            for name in ("ymap", "xsltproc")}
    way_rows = [(f"`{name}`", number(wall), number(cpu), f"{wall / ways['ymap'][0]:.2f}")
                for name, (wall, cpu) in ways.items()]

    def goal(text, ratio, least):
        return (text, f"{ratio:.2f}", f"at least {least}", met(ratio >= least))

    goals = [
        goal("libxslt's time over the library's, to added paths", xslt / paths, 10),
        goal("libxslt's time over the library's, to a data tree", xslt / tree, 10),
        goal("the hand-written walk's time per node over the library's, to added paths",
             by_hand / paths, 1),
        goal("the hand-written walk's time per node over the library's, to a data tree",
             by_hand / tree, 1),
        goal("`xsltproc`'s time over `ymap`'s, from text to text",
             ways["xsltproc"][0] / ways["ymap"][0], 1),
        goal("the same, processor time", ways["xsltproc"][1] / ways["ymap"][1], 1),
    ]
    return f"""## Side by side

The same native operational document of 10,000 interfaces ({nodes:,.0f} elements), mapped to the
same `/interfaces-state`; the results are compared before anything is measured, those of the two
commands byte by byte. The mapping step starts from the tree in memory that each side reads, and
ends with a result that is freed beside the clock. The library and the stand-in framework add
paths to a flat list, which is the output tree of the contract; building the data tree that `ymap`
prints is one more pass.

{table(("mapping step", "milliseconds", "ns per node", "times the library's"), step_rows)}

{table(("from text to text", "milliseconds", "processor time", "times `ymap`'s"), way_rows)}

{table(("goal", "measured", "wanted", "met"), goals)}

Where a goal is missed, the calls set the limit: the step makes {calls / 1e6:.1f} million calls of
the framework for this document, so that ten times faster than libxslt would leave
{xslt / 10 * 1e6 / calls:.1f} ns for each, the framework's own work and the copy of every value
included. Most of the time goes to the stand-in's comparison and its level test, then to the list of
added paths. The data tree consists of plain nodes that own all their texts, namespaces included; a
libxml2 tree shares names and namespaces.

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


def page(bounds, walks, side):
    compiler = first_line("g++", "--version")
    xslt = first_line("xsltproc", "--version")
    caches = ", ".join(
        f"L{cache['level']} {cache['type'].lower()} {cache['size'] // 1024:,} KiB"
        for cache in walks.context["caches"])
    repetitions = len(side.runs["mapping_step/libxslt"])
    return f"""# Performance

Written by `scripts/bench` on {walks.context["date"][:10]}; a run takes a few minutes and measures
everything anew. Times are medians, of {repetitions} repetitions side by side and of five in the
walks (of one where the trace of 10,000 interfaces or more is written), which took turns in random
order. Machines differ and so do their minutes: trust the ratios.

Machine: {processor()}, {walks.context["num_cpus"]} processors; {caches}.
Compiler: {compiler}, preset `release`. {xslt}.

{bounds_section(bounds, walks)}
{walks_section(walks)}
{side_by_side_section(bounds, side)}"""


# -------------------------------------------------------------------------------------------------
# The plot

WIDTH, HEIGHT = 860, 640
# Colours that stay apart for most eyes.
LINES = [
    ("native_operational/get", "trace", "operational, trace on", "#CC79A7"),
    ("native_operational/get", "off", "operational", "#0072B2"),
    ("native_configuration/get", "off", "native configuration", "#D55E00"),
    ("ietf_state/get", "off", "read of /interfaces-state", "#009E73"),
    ("ietf_configuration/create", "off", "edit of /interfaces", "#555555"),
]


def text(x, y, content, anchor="start", colour="#222222", extra=""):
    return (f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}"{extra}>'
            f"{content}</text>")


def line_panel(walks, left, top, right, bottom):
    """Cost per interface over the number of interfaces, both on logarithmic scales."""
    costs = {(name, logs): [walks.cost(name, logs, size) for size in SIZES]
             for name, logs, _, _ in LINES}
    low = math.floor(math.log10(min(map(min, costs.values()))))
    high = math.ceil(math.log10(max(map(max, costs.values()))))

    def x_of(size):
        return left + (right - left) * math.log10(size) / math.log10(SIZES[-1])

    def y_of(cost):
        return bottom - (bottom - top) * (math.log10(cost) - low) / (high - low)

    out = [text(left, top - 20, "Cost per interface, by interfaces in the tree (logs off unless "
                                "said)", extra=' font-weight="bold"')]
    for power in range(low, high + 1):
        y = y_of(10**power)
        label = f"{10**(power - 3):g} µs"
        out.append(f'<line x1="{left}" y1="{y:.1f}" x2="{right}" y2="{y:.1f}" stroke="#dddddd"/>')
        out.append(text(left - 8, y + 4, label, "end"))
    for size in SIZES:
        out.append(text(x_of(size), bottom + 20, f"{size:,}", "middle"))

    # Labels stand behind the ends of the lines, pushed apart where they would meet.
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
                   [(label, side.median(f"mapping_step/{name}"), colour)
                    for label, name, colour in steps], 30, 430, 740),
        *bar_panel("From text to text, 10,000 interfaces (processor time)",
                   [(name, side.median(f"whole_way/{name}", "cpu") * 1e3, colour)
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
    for name, content in (("performance.md", page(bounds, walks, side)),
                          ("performance.svg", plot(walks, side))):
        with open(os.path.join(pages, name), "w", encoding="utf-8") as file:
            file.write(content)


if __name__ == "__main__":
    main()
