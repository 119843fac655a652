#!/usr/bin/env python3
"""Follows each link of the pages in a folder and below: files and headings that they name are there.
"""

import pathlib
import re
import sys


def anchors(text):
    """What a heading is linked by: its words in small letters, with hyphens."""
    return {re.sub(r"[^\w -]", "", heading).strip().lower().replace(" ", "-")
            for heading in re.findall(r"^#+ (.*)", text, re.M)}


def main():
    folder = pathlib.Path(sys.argv[1])
    links, dead = 0, []
    for page in sorted(folder.rglob("*.md")):
        if "build" in page.relative_to(folder).parts:
            continue
        for link in re.findall(r"\]\((?!\w+:)([^)\s]+)\)", page.read_text()):
            path, _, anchor = link.partition("#")
            target = page.parent / path if path else page
            links += 1
            if not target.exists() or anchor and anchor not in anchors(target.read_text()):
                dead.append(f"{page.relative_to(folder)}: {link}")
    print("\n".join([*dead, f"links: {links}, of them dead {len(dead)}"]))
    return 1 if dead or not links else 0


if __name__ == "__main__":
    sys.exit(main())
