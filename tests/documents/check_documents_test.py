#!/usr/bin/env python3
"""Gives the checker of the documents a small tree with faults, and looks whether it finds them."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKER = Path(__file__).with_name("check_documents.py")


class CheckDocumentsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("tests/a_test.cpp", "TEST(Suite, Holds) {}\nTEST_F(Other, HoldsToo) {}\n")
        self.write("benchmarks/a.cpp", "BENCHMARK(CopyImage);\nBENCHMARK_CAPTURE(Read, a, 1);\n")
        self.write("src/core/bytes.h", "")
        self.write("fuzz/run", "case --seconds) ;;\n")
        os.chmod(self.root / "fuzz/run", 0o755)
        self.write("docs/page.md", "# One Page: its heading\n")

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def check(self, text, name="README.md"):
        self.write(name, text)
        done = subprocess.run([sys.executable, str(CHECKER), str(self.root)], text=True,
                              capture_output=True, check=False)
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode == 0, "all is there" in done.stdout)
        return done.stdout.splitlines() if done.returncode else []

    def test_what_is_there_passes(self):
        self.assertEqual(self.check(
            "[a](docs/page.md) [b](docs/page.md#one-page-its-heading) [c](https://x.example/)\n"
            "    fuzz/run --seconds 60\n"
            "    X=1 fuzz/run # --more\n"
            "    benchmarks/none.txt\n"
            "`core/bytes.h`, `src/core`, `src/NAME.h`, `fuzz/run --seconds 1`\n"), [])

    def test_a_dead_link_is_found(self):
        self.assertEqual(self.check("\n[a](docs/gone.md)\n"),
                         ["README.md:2: the link docs/gone.md leads nowhere"])

    def test_a_heading_that_is_gone_is_found(self):
        self.assertEqual(self.check("[a](docs/page.md#gone)\n"),
                         ["README.md:1: docs/page.md has no heading for #gone"])

    def test_a_command_that_is_gone_is_found(self):
        self.assertEqual(self.check("    ./go now\n"), ["README.md:1: there is no command ./go"])

    def test_a_file_that_nobody_may_run_is_no_command(self):
        os.chmod(self.root / "fuzz/run", 0o644)
        self.assertEqual(self.check("    fuzz/run\n"),
                         ["README.md:1: there is no command fuzz/run"])

    def test_an_option_that_is_gone_is_found(self):
        self.assertEqual(self.check("`fuzz/run --minutes 1`\n"),
                         ["README.md:1: fuzz/run knows no --minutes"])

    def test_a_benchmark_that_is_gone_is_found(self):
        self.write("benchmarks/run", "")
        os.chmod(self.root / "benchmarks/run", 0o755)
        self.assertEqual(self.check("    benchmarks/run --benchmark_filter='Copy|None'\n"), [])
        self.assertEqual(self.check("    benchmarks/run --benchmark_filter=Gone\n"),
                         ["README.md:1: no benchmark is named like Gone"])

    def test_a_source_that_is_gone_is_found(self):
        self.assertEqual(self.check("`core/gone.h` `src/gone`\n"),
                         ["README.md:1: src/core/gone.h is not there",
                          "README.md:1: src/gone is not there"])

    def test_a_line_of_a_source_that_is_gone_is_found(self):
        self.write("src/core/bytes.cpp", "  if (a || b) {\n")
        self.assertEqual(self.check("| `core/bytes.cpp` | `if (a \\|\\| b) {` | why |\n"), [])
        self.assertEqual(self.check("| `core/bytes.cpp` | `if (a` | why |\n"),
                         ["README.md:1: src/core/bytes.cpp has no line if (a"])

    def test_a_test_that_is_gone_is_found(self):
        self.assertEqual(self.check("`Suite.Holds` `Other.HoldsToo`\n", "docs/reliability.md"), [])
        self.assertEqual(self.check("`Suite.Gone`\n", "docs/reliability.md"),
                         ["docs/reliability.md:1: there is no test Suite.Gone"])

    def test_a_unit_that_the_page_on_the_architecture_forgets_is_found(self):
        self.write("src/core/byte.cpp", "")
        self.assertEqual(self.check("| `bytes` things |\n", "docs/architecture.md"),
                         ["docs/architecture.md:1: the unit byte is not named"])
        self.assertEqual(self.check("`core/bytes.h` and `byte`\n", "docs/architecture.md"), [])

    def test_manuals_with_other_chapters_than_they_promise_are_found(self):
        manual = "   1  One\n   2  Two, \u00e1\n\n1  ONE\n------\n\n2  TWO, \u00c1\n-------\n"
        self.write("help/A", manual)
        self.write("help/B", manual)
        self.assertEqual(self.check(""), [])
        self.write("help/B", manual.replace("2  TWO", "3  TWO"))
        self.assertEqual(self.check(""), ["help/B:1: its chapters are not those of its list"])
        self.write("help/B", "   1  One\n\n1  ONE\n------\n")
        self.assertEqual(self.check(""), ["help/B:1: another manual has more chapters"])
        self.write("help/B", manual + "x" * 80 + "\n")
        self.assertEqual(self.check(""),
                         ["help/B:9: the line is too long for a window of 80 columns"])

    def test_a_tree_without_documents_is_a_fault(self):
        (self.root / "docs/page.md").unlink()
        done = subprocess.run([sys.executable, str(CHECKER), str(self.root)], text=True,
                              capture_output=True, check=False)
        self.assertEqual(done.returncode, 1)


if __name__ == "__main__":
    unittest.main()
