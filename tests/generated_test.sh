#!/usr/bin/env bash
# What docs/ holds of the map is what the built library says.
# usage: generated_test.sh YMAP SOURCES
set -euo pipefail
ymap=$1
sources=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$sources/scripts/generate" "$ymap" "$work"
for made in mapping.md mapping.dot yang; do
    diff -ru "$sources/docs/$made" "$work/$made" | head -n 60 ||
        { echo "docs/$made is out of date: scripts/docs"; exit 1; }
done
read -r sum _ < <(sha256sum "$work/mapping.dot")
grep -qF "$sum" "$sources/docs/mapping.svg" ||
    { echo "docs/mapping.svg is not drawn from docs/mapping.dot: scripts/docs"; exit 1; }
echo "generated: $(find "$work" -type f | wc -l) files agree"
