"""The worked example of docs/developers.md compiles, its test too, in the form that the tree asks for.

Usage: worked_example_test.py COMPILE_COMMANDS
"""

import json
import re
import shlex
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COMMANDS = ""
HEADING = "### Followed to the letter: a drawing mode with a form\n"
NEW_FILES = ["drafting/slot.cpp", "drafting/frmSlot.h", "drafting/frmSlot.cpp",
             "shell/qt/icons/miSlot.svg", "tests/drafting/slot_test.cpp"]
REMEMBERED = "float slotWidth = 0.25F;"
LISTED = "DRAFTING(kSlotCommand)"


def example() -> str:
    text = (ROOT / "docs" / "developers.md").read_text("utf-8")
    return text.split(HEADING)[1].split("\n## ")[0]


def blocks(text: str) -> list[str]:
    """The indented pieces, without their indentation."""
    pieces = re.findall(r"(?:^ {4}.*\n|^\n(?= {4}))+", text, re.MULTILINE)
    return [re.sub(r"^ {4}", "", piece.strip("\n") + "\n", flags=re.MULTILINE) for piece in pieces]


class WorkedExample(unittest.TestCase):
    def setUp(self) -> None:
        self.tree = Path(self.enterContext(tempfile.TemporaryDirectory()))
        for name, text in zip(NEW_FILES, blocks(example()), strict=True):
            self.write(name, text)
        self.put_behind("drafting/drafting_context.h", "struct CommandRecord {\n", f"  {REMEMBERED}\n")
        self.put_behind("core/command_list.h", "#define TESSIMO_DRAFTING_COMMANDS(DO) \\\n",
                        f"  {LISTED.replace('DRAFTING', 'DO')} \\\n")

    def write(self, name: str, text: str) -> None:
        file = self.tree / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def put_behind(self, name: str, place: str, line: str) -> None:
        text = (ROOT / name).read_text("utf-8")
        self.assertEqual(text.count(place), 1, f"{name} has no longer its place for a line")
        self.write(name, text.replace(place, place + line))

    def compile(self, name: str) -> None:
        folder = name.rpartition("/")[0]
        words = next(shlex.split(entry["command"])
                     for entry in json.loads(Path(COMMANDS).read_text())
                     if entry["file"].startswith(f"{ROOT}/{folder}/"))
        flags = [word for word in words if word.startswith(("-I", "-std=", "-W", "-D"))]
        run = subprocess.run(["g++", "-fsyntax-only", f"-I{self.tree}", *flags, self.tree / name],
                             capture_output=True, text=True)
        self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_its_sources_compile(self) -> None:
        for name in NEW_FILES:
            if name.endswith(".cpp"):
                with self.subTest(name):
                    self.compile(name)

    def test_its_sources_have_the_form_of_the_tree(self) -> None:
        for name in NEW_FILES:
            if not name.endswith(".svg"):
                formatted = subprocess.run(
                    ["clang-format-14", f"--style=file:{ROOT}/.clang-format", self.tree / name],
                    check=True, capture_output=True, text=True).stdout
                with self.subTest(name):
                    self.assertEqual((self.tree / name).read_text(), formatted)

    def test_it_tells_of_every_line_and_counts_its_files(self) -> None:
        text = example()
        for line in (REMEMBERED, LISTED, "`CHANGELOG.md`"):
            self.assertIn(line, text)
        self.assertIn("take ten files: five are new, and five get a line", text)
        lines = set(re.findall(r"`([\w/]+\.(?:h|md|txt))`", text.split("\nThe lines: ")[1]))
        self.assertEqual((len(NEW_FILES), len(lines)), (5, 5))
        self.assertFalse([name for name in NEW_FILES if (ROOT / name).exists()])


if __name__ == "__main__":
    COMMANDS = sys.argv.pop(1)
    unittest.main()
