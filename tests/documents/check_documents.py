#!/usr/bin/env python3
"""Looks whether what the documents name is there: links, headings that links lead to, scripts and
their options, files of the tree, lines of sources, benchmarks and tests; and whether the page on the
architecture names every unit of the sources, and the manuals have the chapters that they promise,
all of them the same number. Prints each thing that is not, with its line.

    tests/documents/check_documents.py [folder]
"""

import os
import re
import sys
from pathlib import Path

SKIPPED = {"build", ".git", "screenshots"}
TREE_PARTS = ("src/", "tests/", "docs/", "benchmarks/", "fuzz/", "packaging/", "samples/", "help/",
              "cmake/", ".ci/")
FLOORS = ("app/", "platform/", "workbench/", "convert/", "image/", "filesystems/", "core/")


def documents(root):
    for path in sorted(root.rglob("*.md")):
        parts = path.relative_to(root).parts
        if not any(part in SKIPPED or part.startswith("build-") for part in parts):
            yield path


def anchors(text):
    """The anchors of a document's headings, as the usual forges make them."""
    found = set()
    for line in text.splitlines():
        if line.startswith("#"):
            words = re.sub(r"[^\w\- ]", "", line.lstrip("#").strip().lower())
            found.add(words.replace(" ", "-"))
    return found


class Checker:
    def __init__(self, root):
        self.root = root
        self.faults = []
        self.tests = names_in(root / "tests", r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)", "{}.{}")
        self.benchmarks = names_in(root / "benchmarks", r"\bBENCHMARK(?:_CAPTURE)?\(\s*(\w+)", "{}")
        self.benchmarks |= names_in(root / "benchmarks", r'RegisterBenchmark\(\s*"([^"]+)"', "{}")
        self.benchmarks |= names_in(root / "benchmarks", r'RegisterJob\(\s*\{"(\w+)/', "{}")

    def fault(self, path, number, what):
        self.faults.append(f"{path.relative_to(self.root)}:{number}: {what}")

    def check(self, path):
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            for target in re.findall(r"\]\(([^)\s]+)\)", line):
                self.check_link(path, number, target)
            if line.startswith("    ") or re.match(r"^\.?/?[\w./-]+ ", line):
                self.check_command(path, number, line.split("#")[0].strip())
            for row in re.findall(r"^\| `(\w+/\w+\.\w+)` \| `(.+?)` \|", line):
                self.check_source_line(path, number, *row)
            for code in re.findall(r"`([^`]+)`", line):
                self.check_code(path, number, code)

    def check_link(self, path, number, target):
        if re.match(r"^[a-z]+:", target):
            return
        file, _, anchor = target.partition("#")
        there = (path.parent / file).resolve() if file else path
        if not there.exists():
            self.fault(path, number, f"the link {target} leads nowhere")
        elif anchor and anchor not in anchors(there.read_text(encoding="utf-8")):
            self.fault(path, number, f"{file or 'this page'} has no heading for #{anchor}")

    def check_command(self, path, number, line):
        words = [word for word in line.split() if not re.match(r"^[A-Z_]+=", word)]
        if not words or not self.is_script_name(words[0]):
            return
        script = self.root / words[0]
        if not script.is_file() or not os.access(script, os.X_OK):
            self.fault(path, number, f"there is no command {words[0]}")
            return
        text = script.read_text(encoding="utf-8")
        for word in words[1:]:
            option = word.split("=")[0]
            if option.startswith("--benchmark_filter"):
                self.check_filter(path, number, word.partition("=")[2].strip("'\""))
            elif option.startswith("--") and not option.startswith("--benchmark_"):
                if option not in text:
                    self.fault(path, number, f"{words[0]} knows no {option}")

    @staticmethod
    def is_script_name(word):
        return word.startswith("./") or (word.startswith(TREE_PARTS) and "." not in word[1:])

    def check_filter(self, path, number, pattern):
        if not any(re.search(pattern.split("/")[0], name) for name in self.benchmarks):
            self.fault(path, number, f"no benchmark is named like {pattern}")

    def check_source_line(self, path, number, file, text):
        source = self.root / "src" / file
        lines = source.read_text(encoding="utf-8").splitlines() if source.exists() else []
        if text.replace("\\|", "|") not in (line.strip() for line in lines):
            self.fault(path, number, f"src/{file} has no line {text}")

    def check_code(self, path, number, code):
        if " " in code:
            self.check_command(path, number, code)
        elif re.fullmatch(r"[A-Z]\w+\.[A-Z]\w+", code) and path.name == "reliability.md":
            if code not in self.tests:
                self.fault(path, number, f"there is no test {code}")
        elif re.search(r"[*<]|NAME|TARGET", code):
            return
        elif code.startswith(TREE_PARTS):
            if not (self.root / code).exists():
                self.fault(path, number, f"{code} is not there")
        elif code.startswith(FLOORS) and code.endswith((".h", ".cpp")):
            if not (self.root / "src" / code).exists():
                self.fault(path, number, f"src/{code} is not there")


    def check_units(self):
        page = self.root / "docs/architecture.md"
        if not page.exists():
            return
        words = set(re.findall(r"\w+", page.read_text(encoding="utf-8")))
        units = {path.stem for suffix in ("h", "cpp")
                 for path in (self.root / "src").rglob(f"*.{suffix}")}
        for unit in sorted(units - words):
            self.fault(page, 1, f"the unit {unit} is not named")

    def check_manuals(self):
        counts = {}
        for path in sorted((self.root / "help").glob("*")):
            text = path.read_text(encoding="utf-8")
            promised = re.findall(r"^ {2,3}(\d+ .+)$", text, re.M)
            chapters = re.findall(r"^(\d+  .+)\n-+$", text, re.M)
            plain = [[" ".join(title.upper().split()) for title in titles]
                     for titles in (promised, chapters)]
            if plain[0] != plain[1]:
                self.fault(path, 1, "its chapters are not those of its list")
            for number, line in enumerate(text.splitlines(), 1):
                if len(line) > 79:
                    self.fault(path, number, "the line is too long for a window of 80 columns")
            counts[path] = len(chapters)
        if len(set(counts.values())) > 1:
            self.fault(min(counts, key=counts.get), 1, "another manual has more chapters")


def names_in(folder, pattern, form):
    found = set()
    for path in folder.rglob("*.cpp"):
        for groups in re.finditer(pattern, path.read_text(encoding="utf-8")):
            found.add(form.format(*groups.groups()))
    return found


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2]).resolve()
    checker = Checker(root)
    count = 0
    for path in documents(root):
        checker.check(path)
        count += 1
    checker.check_units()
    checker.check_manuals()
    if count == 0:
        checker.faults.append(f"{root} has no documents")
    print("\n".join(checker.faults) if checker.faults else f"{count} documents, all is there")
    return 1 if checker.faults else 0


if __name__ == "__main__":
    sys.exit(main())
