#!/usr/bin/env python3
"""Gives the checker of the includes small trees with faults, and looks whether it finds them."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKER = Path(__file__).with_name("check_includes.py")


class CheckIncludesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, name, *includes):
        path = self.root / "src" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        lines = [f"#include {name if name[0] == '<' else chr(34) + name + chr(34)}"
                 for name in includes]
        path.write_text("// A unit.\n" + "\n".join(lines) + "\n", encoding="utf-8")

    def check(self):
        done = subprocess.run([sys.executable, str(CHECKER), str(self.root)], text=True,
                              capture_output=True, check=False)
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode == 0, "run downward" in done.stdout)
        return done.stdout.splitlines() if done.returncode else []

    def test_downward_and_on_the_same_floor_passes(self):
        self.write("core/a.h", "<string>", "<cstdint>")
        self.write("core/a.cpp", "core/a.h", "core/b.h")
        self.write("core/b.h")
        self.write("workbench/c.cpp", "core/a.h")
        self.write("platform/qt/d.cpp", "<QWidget>", "workbench/c.h")
        self.write("workbench/c.h")
        self.write("app/main.cpp", "<QtWidgets/QApplication>", "platform/qt/e.h")
        self.write("platform/qt/e.h")
        self.assertEqual(self.check(), [])

    def test_every_floor_is_above_those_before_it(self):
        floors = ["core", "filesystems", "image", "convert", "workbench", "platform", "app"]
        for below, above in zip(floors, floors[1:]):
            with self.subTest(above):
                self.write(f"{above}/high.h")
                self.write(f"{below}/low.cpp", f"{above}/high.h")
                self.assertEqual(self.check(),
                                 [f"src/{below}/low.cpp:2: {above}/high.h stands above"])
                self.write(f"{below}/low.cpp")

    def test_files_of_the_pc_are_on_the_ground(self):
        self.write("image/pc_file.h", "core/a.h")
        self.write("core/a.h")
        self.write("filesystems/b.cpp", "image/pc_file.h")
        self.assertEqual(self.check(), [])
        self.write("image/pc_file.cpp", "filesystems/b.h")
        self.write("filesystems/b.h")
        self.assertEqual(self.check(), ["src/image/pc_file.cpp:2: filesystems/b.h stands above"])

    def test_two_units_that_include_each_other_are_found(self):
        self.write("core/a.h")
        self.write("core/a.cpp", "core/a.h", "core/b.h")
        self.write("core/b.h")
        self.write("core/b.cpp", "core/b.h", "core/a.h")
        self.write("image/above.cpp", "core/a.h")
        self.assertEqual(self.check(), ["units that include each other: core/a, core/b"])

    def test_a_ring_of_three_is_found(self):
        self.write("core/a.h", "core/b.h")
        self.write("core/b.h", "core/c.h")
        self.write("core/c.h", "core/a.h")
        self.assertEqual(self.check(), ["units that include each other: core/a, core/b, core/c"])

    def test_qt_in_the_logic_and_in_the_scripted_platform_is_found(self):
        for name in ("workbench/a.cpp", "platform/scripted/a.cpp"):
            with self.subTest(name):
                self.write(name, "<QString>")
                self.assertEqual(self.check(), [f"src/{name}:2: QString is Qt's"])
                self.write(name)

    def test_an_include_that_leads_nowhere_is_found(self):
        self.write("core/a.cpp", "gone.h")
        self.assertEqual(self.check(), ["src/core/a.cpp:2: there is no gone.h"])

    def test_a_tree_without_sources_is_a_fault(self):
        self.assertEqual(len(self.check()), 1)


if __name__ == "__main__":
    unittest.main()
