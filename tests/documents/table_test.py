#!/usr/bin/env python3
"""Gives the table of the benchmarks results of each kind, and looks at its lines."""

import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TABLE = Path(__file__).resolve().parents[2] / "benchmarks/table.py"


def result(name, time, unit="ms", **more):
    return dict(name=name, real_time=time, cpu_time=time, time_unit=unit) | more


class TableTest(unittest.TestCase):
    def rows(self, *results, status=0):
        """The cells of the table's lines behind its head."""
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder, "result.json")
            path.write_text(json.dumps({"benchmarks": results}), encoding="utf-8")
            made = subprocess.run([sys.executable, TABLE, path], capture_output=True, text=True,
                                  check=False)
        self.assertEqual(made.returncode, status, made.stderr)
        lines = made.stdout.splitlines()
        self.assertEqual(len({len(line) for line in lines}), 1)
        return [[cell.strip() for cell in line.strip("|").split("|")] for line in lines[2:]]

    def test_size_comes_from_time_and_speed(self):
        rows = self.rows(result("OpenByClick/os9_disk/manual_time", 2, bytes_per_second=50e6,
                                times_copy=1234.4))
        self.assertEqual(rows, [["Open by click, os9 disk", "100 kB", "2.00 ms", "50.0 MB",
                                 "1,234", "", "", ""]])

    def test_size_comes_from_the_time_that_the_speed_was_counted_by(self):
        rows = self.rows(result("ReadImage/a", 4, bytes_per_second=50e6, cpu_time=2))
        self.assertEqual(rows[0][1:4], ["100 kB", "4.00 ms", "25.0 MB"])

    def test_of_a_peer_the_quickest_runs_are_compared(self):
        rows = self.rows(result("DirProcess/d/iterations:15/manual_time", 4, bytes_per_second=1e6,
                                ours_ms=2, peer_ms=8, label="imgtool dir"))
        self.assertEqual(rows, [["Dir process, d", "4.00 kB", "2.00 ms", "2.00 MB", "",
                                 "imgtool dir", "8.00 ms", "4.0"]])

    def test_of_many_named_arguments_the_slowest_stands_for_all(self):
        rows = self.rows(result("Scroll/zoom:1", 20, "us"), result("Scroll/zoom:2", 1.5),
                         result("Fill/68", 9, "ns"))
        self.assertEqual([row[0::2][:2] for row in rows],
                         [["Scroll, the slowest of 2", "1.50 ms"], ["Fill, 68", "9.00 ns"]])

    def test_a_benchmark_that_failed_is_told(self):
        rows = self.rows(result("A", 1), result("B", 1, error_occurred=True), status=1)
        self.assertEqual([row[0] for row in rows], ["A"])

    def test_rounding_up_to_the_next_unit_keeps_three_digits(self):
        rows = self.rows(result("A", 9.996), result("B", 99.96), result("C", 0.9999))
        self.assertEqual([row[2] for row in rows], ["10.0 ms", "100 ms", "1.00 ms"])


if __name__ == "__main__":
    unittest.main()
