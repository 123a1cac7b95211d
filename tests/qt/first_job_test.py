#!/usr/bin/env python3
"""Follows the first chapter of the manual, docs/manual/first_job.md, key by key in a new home: from
the first start to the program of a pocket.

Usage: first_job_test.py PROGRAM [FOLDER FOR SCREENSHOTS]
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from outside_test import TITLE, OutsideTest, run_tests  # noqa: E402
from virtual_display import VirtualDisplay  # noqa: E402

CHAPTER = Path(__file__).resolve().parents[2] / "docs" / "manual" / "first_job.md"
PROOF_OF_JOB = "open(arg[1])\nprint(proof().clean)\n"


class FirstJob(OutsideTest):
    def setUp(self) -> None:
        self.display = self.enterContext(VirtualDisplay(1366, 768))
        self.start_program()

    def key(self, *names: str) -> None:
        for name in names:
            self.display.tool("key", name)
            self.settle()

    def type(self, text: str) -> None:
        self.display.tool("type", text)
        self.settle()

    def window(self, title: str) -> None:
        """Waits for a window and gives it the keyboard."""
        self.wait_for(lambda: self.display.windows(title) != [], f"there is {title}")
        self.display.activate(self.display.windows(title)[0])
        self.settle()

    def position(self, x: int, y: int) -> None:
        self.key("e")
        self.window("Position Cursor")
        self.type(f"{x}\t{y}")
        self.key("Return")
        self.wait_for(lambda: self.display.windows("Position Cursor") == [], "it is accepted")
        self.settle()

    def click_at(self, x: int, y: int) -> None:
        self.position(x, y)
        self.key("Return")

    def cam(self, letter: str) -> None:
        self.key("alt+c", letter)

    def test_it_leads_to_the_program(self) -> None:
        self.window("Control and Units")
        self.key("alt+m", "Return")
        self.window(TITLE)
        self.wait_for(lambda: self.display.windows("Control and Units") == [], "it is answered")
        self.settle()
        self.screenshot("job_1")

        self.position(20, 15)
        self.key("Insert", "r")
        self.click_at(80, 60)
        self.screenshot("job_2")

        self.key("alt+d", "n")  # Select Contiguous
        self.click_at(50, 15)
        self.cam("v")

        self.cam("s")
        self.window("Pocketing")
        self.type("\t4")
        self.key("Return")

        self.cam("r")

        self.cam("f")
        self.window("Finishing")
        self.key("Return")
        self.click_at(20, 15)
        self.click_at(50, 15)
        self.click_at(50, 37)
        self.screenshot("job_3")

        self.key("ctrl+m")
        self.key("Return")
        self.window("Save As")
        self.type("first")
        self.key("Return")
        self.window("View File")
        self.screenshot("job_4", "View File")
        self.key("Escape")

        folder = Path(self.display.folder.name) / ".local/share/tessimo/CNC"
        program = (folder / "first.CNC").read_text()
        self.assertIn("6 mm end mill", program)
        self.assertIn("Z-4.0", program)
        self.assertTrue((folder / "first.CDM").is_file())
        self.assertEqual(self.script(PROOF_OF_JOB, str(folder / "first.CDM")), "true\n")

    def test_the_chapter_says_the_same(self) -> None:
        text = CHAPTER.read_text(encoding="utf-8")
        for part in ("<kbd>Alt</kbd>+<kbd>M</kbd>", "<kbd>Insert</kbd>", "Select Contiguous",
                     "type `4`", "type `80`, <kbd>Tab</kbd>, `60`", "`37`",
                     "<kbd>Ctrl</kbd>+<kbd>M</kbd>", "Type `first`"):
            self.assertIn(part, text)


if __name__ == "__main__":
    run_tests()
