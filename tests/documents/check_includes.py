#!/usr/bin/env python3
"""Looks whether the includes of src/ run downward only, as docs/architecture.md has it: each from
its own floor or one below, no ring of units, and Qt in the shell and the program alone. Prints each
include that does not, with its line.

    tests/documents/check_includes.py [folder]
"""

import re
import sys
from pathlib import Path

FLOORS = ["core", "filesystems", "image", "convert", "workbench", "platform", "app"]

# It stands in the folder of its neighbours, and needs the ground floor alone.
ON_THE_GROUND = {"image/pc_file"}

QT_FOLDERS = ("platform/qt/", "app/")
INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def unit_of(path):
    return str(Path(path).with_suffix(""))


def floor_of(path):
    return 0 if unit_of(path) in ON_THE_GROUND else FLOORS.index(Path(path).parts[0])


class Checker:
    def __init__(self, sources):
        self.sources = sources
        self.faults = []
        self.units = {}

    def check(self, path):
        name = str(path.relative_to(self.sources))
        below = self.units.setdefault(unit_of(name), set())
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            found = INCLUDE.match(line)
            if not found:
                continue
            ours, foreign = found.groups()
            what = self.fault_of(name, ours) if ours else self.fault_of_foreign(name, foreign)
            if what:
                self.faults.append(f"{path.relative_to(self.sources.parent)}:{number}: {what}")
            elif ours and unit_of(ours) != unit_of(name):
                below.add(unit_of(ours))

    def fault_of(self, name, included):
        if not (self.sources / included).is_file():
            return f"there is no {included}"
        if floor_of(included) > floor_of(name):
            return f"{included} stands above"
        return None

    @staticmethod
    def fault_of_foreign(name, included):
        if re.match(r"Q[A-Z]", included.rpartition("/")[2]) and not name.startswith(QT_FOLDERS):
            return f"{included} is Qt's"
        return None

    def find_rings(self):
        """A unit without its way down to the ground is part of a ring, or stands above one."""
        left = dict(self.units)
        while True:
            done = [unit for unit, below in left.items() if not below & left.keys()]
            if not done:
                break
            for unit in done:
                del left[unit]
        while True:  # without those that only stand above
            included = set().union(*left.values()) if left else set()
            above = [unit for unit in left if unit not in included]
            if not above:
                break
            for unit in above:
                del left[unit]
        if left:
            self.faults.append("units that include each other: " + ", ".join(sorted(left)))


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2]).resolve()
    checker = Checker(root / "src")
    for path in sorted((root / "src").rglob("*")):
        if path.suffix in (".h", ".cpp"):
            checker.check(path)
    checker.find_rings()
    if not checker.units:
        checker.faults.append(f"{root} has no sources")
    told = "\n".join(checker.faults)
    print(told if checker.faults else f"{len(checker.units)} units, all includes run downward")
    return 1 if checker.faults else 0


if __name__ == "__main__":
    sys.exit(main())
