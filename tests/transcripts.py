#!/usr/bin/env python3
"""Runs transcripts of the command and shows what comes out otherwise.

A transcript is a text file of runs, one after the other:

    # A comment, up to the next run.
    $ ymap edit - --data examples/native-configuration.xml
    < a line of standard input
    a line of standard output
    ! a line of standard error
    [exit 1]

Bash runs each line after a $ in the top folder of the sources; one that ends in a backslash goes
on. $TMP is a folder that the runs of a file share and that goes away after them; functions of the
shell that a run writes to $TMP/functions are there for those after it. The exit status isn't
written where it is 0. "[...]" alone on a line stands for any lines. Blank lines part runs.

What a reader couldn't see is shown: control characters by their pictures (U+2400 to U+2426), a
blank that ends a line as U+2420, an empty line at the end as U+2424. What changes from run to run,
or with any edit of the library's sources, is left out: addresses and source lines of trace lines.
"""

import argparse
import concurrent.futures
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
ANY_LINES = "[...]"


class Run:
    """A command with its input and what is expected of it; `lead` stands before it in the file."""

    def __init__(self, lead, command, line, indent):
        self.lead, self.command, self.line, self.indent = lead, command, line, indent
        self.input, self.expected, self.got = [], [], None

    def matches(self):
        pattern = "".join(r"(.*\n)*" if line == ANY_LINES else re.escape(line + "\n")
                          for line in self.expected)
        return re.fullmatch(pattern, "".join(line + "\n" for line in self.got)) is not None

    def update(self):
        if self.got is not None and not self.matches():
            self.expected = self.got

    def text(self):
        lines = ["$ " + self.command.replace("\n", "\n" + self.indent),
                 *("< " + line if line else "<" for line in self.input), *self.expected]
        return self.lead + "".join((self.indent + line).rstrip(" ") + "\n" for line in lines)


def parse(text, indent=""):
    """The runs of a file, and what follows the last. With an indent, of a page."""
    runs, lead, run = [], "", None
    lines = text.split("\n")[:-1]
    while lines:
        number = text.count("\n") - len(lines) + 1
        raw = lines.pop(0)
        line = raw.removeprefix(indent) if raw.startswith(indent) or not raw else None
        if line is not None and line.startswith("$ "):
            while line.endswith("\\"):
                line += "\n" + lines.pop(0).removeprefix(indent)
            run, lead = Run(lead, line[2:], number, indent), ""
            runs.append(run)
        elif line is None or line.startswith("# ") and not indent:
            run, lead = None, lead + raw + "\n"
        elif run is None or not line:
            lead += raw + "\n"  # a blank line may yet prove to be one of the output
        elif line.startswith("<") and line[1:2] in ("", " ") and not run.expected:
            run.input.append(line[2:])
        else:
            run.expected += lead.split("\n")[:-1] + [line]
            lead = ""
    return runs, lead


def shown(output, mark=""):
    text = output.decode(errors="backslashreplace")
    text = re.sub(r":\d+ ctx=(0x[0-9a-f]+|\(nil\))", ":* ctx=*", text)
    text = re.sub(r"ctx=(0x[0-9a-f]+|\(nil\))", "ctx=*", text)
    text = re.sub("[\0-\x09\x0b-\x1f]", lambda c: chr(0x2400 + ord(c[0])), text)
    text = re.sub("[\x7f-\x9f]", lambda c: "\u2421" if c[0] == "\x7f" else f"<U+{ord(c[0]):04X}>",
                  text)
    text = re.sub(r" $", "\u2420", text, flags=re.M)
    if text and not text.endswith("\n"):
        text += "\n[no line feed at the end]\n"
    lines = text.split("\n")[:-1]
    if lines and not lines[-1]:
        lines[-1] = "\u2424"
    return [(mark + line).rstrip(" ") for line in lines]


def execute(run, folder, environment, is_page):
    try:
        done = subprocess.run(
            ["bash", "-c", run.command], cwd=folder, env=environment, timeout=60,
            input="".join(line + "\n" for line in run.input).encode(),
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT if is_page else subprocess.PIPE)
    except subprocess.TimeoutExpired:
        run.got = ["[no end after a minute]"]
        return
    run.got = shown(done.stdout) + shown(done.stderr or b"", "! ")
    if done.returncode != 0 and not is_page:
        run.got.append(f"[exit {done.returncode}]")
    run.got = [line.replace(environment["TMP"], "$TMP") for line in run.got]


def check(path, arguments, is_page=False):
    """Runs a file; returns the number of its runs and a report on each that differs."""
    indent = "    " if is_page else ""
    runs, tail = parse(path.read_text(), indent)
    with tempfile.TemporaryDirectory(prefix="ymap-") as temporary:
        environment = {
            **os.environ, "TMP": temporary, "BASH_ENV": f"{temporary}/functions",
            "LC_ALL": "C.UTF-8",
            "PATH": f"{arguments.ymap.resolve().parent}{os.pathsep}{os.environ['PATH']}"}
        folder = TOP
        if is_page:  # what a page shows may write files where it runs
            folder = pathlib.Path(temporary, "top")
            folder.mkdir()
            for each in TOP.iterdir():
                (folder / each.name).symlink_to(each)
        for run in runs:
            if run.command.startswith("ymap ") or not is_page:
                execute(run, folder, environment, is_page)
    done = [run for run in runs if run.got is not None]
    reports = []
    for run in done:
        if not run.matches():
            lines = difflib.unified_diff(run.expected, run.got, lineterm="", n=2)
            reports.append("\n".join([f"{path}:{run.line}: $ {run.command}", *list(lines)[2:]]))
    if arguments.update:
        for run in done:
            run.update()
        text = "".join(run.text() for run in runs) + tail
        read = [(run.input, run.expected) for run in parse(text, indent)[0]]
        if read != [(run.input, run.expected) for run in runs]:
            raise ValueError(f"{path}: output that looks like another part of a transcript")
        path.write_text(text)
    return len(done), reports


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--ymap", type=pathlib.Path, default=TOP / "build/release/host/ymap")
    parser.add_argument("--update", action="store_true", help="write what comes out to the files")
    parser.add_argument("--readme", type=pathlib.Path, metavar="PAGE", action="append", default=[],
                        help="run the indented examples of a page of Markdown")
    parser.add_argument("files", type=pathlib.Path, nargs="*",
                        help="transcripts (all of the folder tests/transcripts unless given)")
    arguments = parser.parse_args()
    files = arguments.files
    if not files and not arguments.readme:
        files = sorted((TOP / "tests/transcripts").glob("*.txt"))
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        results = [pool.submit(check, path, arguments) for path in files]
        results += [pool.submit(check, page, arguments, True) for page in arguments.readme]
        counts, reports = zip(*(result.result() for result in results))
    for report in sum(reports, []):
        print(report + "\n")
    differing = len(sum(reports, []))
    outcome = "updated" if arguments.update else "differ"
    print(f"transcripts: {sum(counts)} runs, {differing} {outcome}"
          f"{' (- expected, + now)' if differing else ''}")
    return 1 if differing and not arguments.update or not sum(counts) else 0


if __name__ == "__main__":
    sys.exit(main())
