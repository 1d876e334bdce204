#!/usr/bin/env python3
"""Holds the include table: which folder may include which. Every #include "..." of a source file is checked."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Folder (or file): what it may include beside itself. The same table stands in docs/architecture.md.
ALLOWED = {
    "platform": set(),
    "geometry": {"platform"},
    "text": {"platform"},
    "output": {"geometry", "platform"},
    "render": {"output", "geometry", "platform"},
    "control/interface": {"geometry/enumerations.h", "output/enumerations.h", "text/enumerations.h", "platform"},
    "control": {"control/interface", "text", "geometry", "output", "render", "platform"},
    "pages": {"control/interface", "output/units.h", "text", "geometry", "platform"},
    "module": {"pages", "control", "platform"},
    # A control gives no text back, so the listings of dates and of the copies' texts ask the composition itself.
    "host": {"control/interface", "output/vector_record.h", "platform",
             "text/autodate.h", "text/autodate_pattern.h", "text/calendar.h", "text/copy_texts.h"},
}
# Where only one place may name something.
ONLY_IN = {"TextSettings": ("control", "tests", "bench", "fuzz")}


def folder_of(path):
    """The most specific row of the table that holds the path."""
    rows = [row for row in ALLOWED if path == row or path.startswith(row + "/")]
    return max(rows, key=len, default=None)


def may_include(row, target):
    # Backends' own headers are found through the folder that the build selects.
    if target.startswith("native/"):
        return row == "platform"
    if folder_of(target) == row:
        return True
    return any(target == entry or target.startswith(entry + "/") for entry in ALLOWED[row])


def violations(path, text):
    row = folder_of(path)
    if row is None:
        return
    for number, line in enumerate(text.splitlines(), 1):
        match = re.match(r'\s*#\s*include\s+"([^"]+)"', line)
        if match and not may_include(row, match.group(1)):
            yield f"{path}:{number}: {row}/ may not include {match.group(1)}"
        for name, places in ONLY_IN.items():
            if re.search(rf"\b{name}\b", line) and not path.startswith(places):
                yield f"{path}:{number}: only {', '.join(places)} name {name}"


def main():
    found = []
    checked = 0
    for row in {row.split("/")[0] for row in ALLOWED}:
        for file in sorted((ROOT / row).rglob("*")):
            if file.suffix in {".h", ".cpp", ".inc"}:
                checked += 1
                found += violations(file.relative_to(ROOT).as_posix(), file.read_text(encoding="utf-8"))
    # The check itself can fail: both kinds of violation are seen where they are planted.
    planted = list(violations("geometry/x.cpp", '#include "output/units.h"\nTextSettings settings;'))
    if len(planted) != 2 or list(violations("output/x.cpp", '#include "geometry/matrix.h"')):
        found.append("the include check does not see what it must")
    print("\n".join(found) or f"{checked} files keep the include table")
    return 1 if found or checked < 50 else 0


if __name__ == "__main__":
    sys.exit(main())
