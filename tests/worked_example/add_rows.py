#!/usr/bin/env python3
"""Writes agent/models.cpp once more with the rows of the worked example at the head of its tables.

usage: add_rows.py MODELS ROWS OUTPUT
"""

import pathlib
import re
import sys

models, rows, output = map(pathlib.Path, sys.argv[1:])
text = models.read_text()
for table, row in re.findall(r" *// (\w+)\n(.*\n)", rows.read_text()):
    text, found = re.subn(rf"( {table}\[\] = {{\n)", lambda head: head[1] + row, text)
    if found != 1:
        sys.exit(f"{models}: {found} tables are called {table}")
output.write_text(text)
