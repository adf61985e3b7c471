#!/usr/bin/env python3
"""Compares the lines that no test ran with the table of docs/reliability.md that says why. Prints
each line that the table lacks, and each row of a line that a test does run.

    tests/documents/check_uncovered.py COVERAGE.json [folder]

The first argument is what `gcovr --json` wrote. A row of the table is a file below src/, the line
as it stands there without its indentation, and the reason. Its text stands for the line, not its
number, which every edit would change.
"""

import json
import re
import sys
from pathlib import Path

DOCUMENT = "docs/reliability.md"


def documented(root):
    """The lines of the table, as (file, text)."""
    text = (root / DOCUMENT).read_text(encoding="utf-8")
    return {(file, line.replace("\\|", "|"))
            for file, line in re.findall(r"^\| `(\w+/\w+\.\w+)` \| `(.+?)` \|", text, re.M)}


def not_run(root, report):
    """The lines that were not run, as (file, text) with the line's number behind."""
    found = {}
    for file in json.loads(report.read_text(encoding="utf-8"))["files"]:
        lines = (root / file["file"]).read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            if line["count"] == 0 and not line.get("gcovr/noncode"):
                number = line["line_number"]
                text = lines[number - 1].strip()
                found[(file["file"].removeprefix("src/"), text)] = number
    return found


def main():
    root = Path(sys.argv[2] if len(sys.argv) > 2 else Path(__file__).parents[2])
    reasons = documented(root)
    lines = not_run(root, Path(sys.argv[1]))
    faults = [f"src/{file}:{lines[file, text]}: no test runs this line, and {DOCUMENT} does not "
              f"say why: {text}" for file, text in sorted(lines.keys() - reasons)]
    faults += [f"{DOCUMENT}: a test does run src/{file}: {text}"
               for file, text in sorted(reasons - lines.keys())]
    print("\n".join(faults) if faults else f"{len(lines)} lines are not run, {DOCUMENT} says why")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
