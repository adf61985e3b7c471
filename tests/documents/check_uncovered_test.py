#!/usr/bin/env python3
"""Gives the checker of uncovered lines a small tree with a report, and looks what it finds."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKER = Path(__file__).with_name("check_uncovered.py")
SOURCE = "int F() {\n    if (a || b) {\n        return 1;\n    }\n}\n"


class CheckUncoveredTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "src/core").mkdir(parents=True)
        (self.root / "docs").mkdir()
        (self.root / "src/core/a.cpp").write_text(SOURCE, encoding="utf-8")

    def check(self, rows, not_run):
        lines = [{"line_number": number, "count": 0 if number in not_run else 3}
                 for number in range(1, 5)]
        lines[3]["gcovr/noncode"] = True
        report = self.root / "report.json"
        report.write_text(json.dumps({"files": [{"file": "src/core/a.cpp", "lines": lines}]}),
                          encoding="utf-8")
        table = "# Page\n\n| File | Line | Why |\n| --- | --- | --- |\n" + rows
        (self.root / "docs/reliability.md").write_text(table, encoding="utf-8")
        done = subprocess.run([sys.executable, str(CHECKER), str(report), str(self.root)],
                              text=True, capture_output=True, check=False)
        self.assertEqual(done.stderr, "")
        return done.returncode, done.stdout.splitlines()

    def test_lines_that_have_their_reason_pass(self):
        rows = "| `core/a.cpp` | `if (a \\|\\| b) {` | x |\n| `core/a.cpp` | `return 1;` | `y` |\n"
        self.assertEqual(self.check(rows, {2, 3, 4}),
                         (0, ["2 lines are not run, docs/reliability.md says why"]))

    def test_everything_run_and_nothing_listed_passes(self):
        self.assertEqual(self.check("", set())[0], 0)

    def test_a_line_without_a_reason_is_found(self):
        self.assertEqual(self.check("", {3}), (1, [
            "src/core/a.cpp:3: no test runs this line, and docs/reliability.md does not say why: "
            "return 1;"]))

    def test_a_row_of_a_line_that_is_run_is_found(self):
        self.assertEqual(self.check("| `core/a.cpp` | `return 1;` | x |\n", set()), (1, [
            "docs/reliability.md: a test does run src/core/a.cpp: return 1;"]))


if __name__ == "__main__":
    unittest.main()
