#!/usr/bin/env python3
"""Each test that a row of docs/promises.md names is there.

A row stands in a table whose head is "| promise | tests |". A test is a test of GoogleTest as Suite.Name, or a file: a script, a
file of tests/, or a transcript by its name alone.
"""

import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
PAGE = TOP / "docs/promises.md"


def main():
    tests = {f"{suite}.{name}" for source in (TOP / "tests").glob("*.cpp")
             for suite, name in re.findall(r"^TEST\((\w+), (\w+)\)", source.read_text(), re.M)}
    places = [TOP, TOP / "tests", TOP / "tests/transcripts"]
    checked, wrong, in_table = 0, [], False
    for number, line in enumerate(PAGE.read_text().splitlines(), 1):
        is_row = in_table and line.startswith("| ")
        in_table = line == "| promise | tests |" or in_table and line.startswith("|")
        if not is_row:
            continue
        names = re.findall(r"`([^`]+)`", line.split("|")[-2])
        missing = [name for name in names
                   if name not in tests and not any((place / name).is_file() for place in places)]
        checked += len(names)
        if not names:
            wrong.append(f"{PAGE.name}:{number}: no test is named")
        wrong += [f"{PAGE.name}:{number}: there is no {name}" for name in missing]
    print(*wrong, f"promises: {checked} names of tests, {len(wrong)} wrong", sep="\n")
    return 1 if wrong or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
