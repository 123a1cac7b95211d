#!/usr/bin/env python3
"""Works the program from outside as an operator does: keys and pointer of a virtual display.

Usage: from_outside_test.py PROGRAM [FOLDER FOR SCREENSHOTS]
"""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from outside_test import FIRST_QUESTION, TITLE, OutsideTest, run_tests  # noqa: E402
from virtual_display import PATIENCE, VirtualDisplay  # noqa: E402

EMPTY = "save(arg[1])\n"
ROWS = """\
open(arg[1])
for s in segments() do print(s.type, s.x0, s.y0, s.x1, s.y1, s.xc, s.yc) end
"""
LINE, ARC = 1, 2
SQUARE = ((0.5, 0.5), (2.5, 0.5), (2.5, 2), (0.5, 2))
SQUARE_DXF = "0\nSECTION\n2\nENTITIES\n" + "".join(
    f"0\nLINE\n10\n{x}\n20\n{y}\n11\n{to_x}\n21\n{to_y}\n"
    for (x, y), (to_x, to_y) in zip(SQUARE, SQUARE[1:] + SQUARE[:1], strict=True)
) + "0\nENDSEC\n0\nEOF\n"
Row = tuple[float, ...]


class FromOutside(OutsideTest):
    def setUp(self) -> None:
        self.display = self.enterContext(VirtualDisplay(1280, 900))
        self.work = Path(self.display.folder.name)
        self.drawing = str(self.work / "part.cdm")
        self.script(EMPTY, self.drawing)
        self.asked = False
        self.start()

    def start(self) -> None:
        self.start_program(self.drawing)
        self.wait_for(lambda: self.display.windows(TITLE) != [], "the window is there")
        self.window = self.display.windows(TITLE)[0]
        if not self.asked:
            self.answer_first_start()
        self.display.activate(self.window)
        self.settle()

    def answer_first_start(self) -> None:
        """The folder is new: the first window asks for the control, and only that one."""
        self.wait_for(lambda: self.display.windows(FIRST_QUESTION) != [], "it asks for the control")
        self.display.activate(self.display.windows(FIRST_QUESTION)[0])
        self.settle()
        self.screenshot("first_start")
        self.act("key", "Return")
        self.wait_for(lambda: self.display.windows(FIRST_QUESTION) == [], "it is answered")
        self.asked = True

    def windows(self) -> int:
        """How many windows the program shows; an open menu is one."""
        return len(self.display.answer("search", "--onlyvisible", "--class", "tessimo").split())

    def act(self, *arguments: str) -> None:
        self.display.tool(*arguments)
        self.settle()

    def key(self, name: str) -> None:
        self.act("key", name)

    def open_menu(self, title: str) -> None:
        self.key(f"alt+{title}")
        self.wait_for(lambda: self.windows() > 1, "the menu is open")

    def menu(self, title: str, entry: str) -> None:
        self.open_menu(title)
        self.key(entry)
        self.wait_for(lambda: self.windows() == 1, "the menu is closed")
        self.settle()

    def exit(self) -> None:
        self.open_menu("f")
        self.display.tool("key", "x")
        self.assertEqual(self.program.wait(timeout=PATIENCE), 0)

    def is_saved(self) -> bool:
        """What is not saved has a journal; it goes when the files are written."""
        return not any(self.work.glob(".local/share/tessimo/Unsaved/*"))

    def to(self, x: int, y: int) -> tuple[str, ...]:
        return "mousemove", "--window", self.window, str(x), str(y)

    def click(self, x: int, y: int) -> None:
        self.act(*self.to(x, y))
        self.act("click", "1")

    def place_marker_near(self, x: int, y: int) -> None:
        """A right click that is moved a little while the shift key turns object snap over."""
        self.act(*self.to(x + 3, y + 3))
        self.act("keydown", "shift", "mousedown", "3")
        self.act(*self.to(x, y))
        self.act("mouseup", "3", "keyup", "shift")

    def saved_rows(self) -> list[Row]:
        self.wait_for(lambda: not self.is_saved(), "there is something to save")
        self.menu("f", "s")
        self.wait_for(self.is_saved, "the drawing is saved")
        lines = self.script(ROWS, self.drawing).splitlines()
        return [tuple(float(word) for word in line.split()) for line in lines]

    def test_a_part_is_drawn_undone_redone_saved_and_reopened(self) -> None:
        corner = (820, 330)

        self.key("r")
        self.click(*corner)
        rectangle = self.saved_rows()
        self.assertEqual([row[0] for row in rectangle], [LINE] * 4)
        x, y = rectangle[1][3:5]
        self.assertEqual(rectangle[0][1:3], (0, 0), "it starts at the marker")
        self.assertNotIn(0, (x, y))

        self.place_marker_near(corner[0] + 9, corner[1] + 7)
        self.menu("d", "1")
        self.click(corner[0] + 60, corner[1])
        drawn = self.saved_rows()
        self.assertEqual(drawn[:4], rectangle)
        self.assertEqual(drawn[4][0], ARC, "a drawn circle is an arc that returns to its start")
        self.assertEqual(drawn[4][5:7], (x, y), "its centre is the corner, to the last bit")
        self.screenshot("from_outside")

        self.menu("e", "u")
        self.assertEqual(self.saved_rows(), rectangle)
        self.menu("e", "r")
        self.assertEqual(self.saved_rows(), drawn)

        self.exit()
        self.start()
        self.key("l")
        self.click(500, 500)
        again = self.saved_rows()
        self.assertEqual(again[:5], drawn)
        self.assertEqual(len(again), 6)
        self.exit()

    def dialog(self, title: str) -> None:
        """The dialog of that title has the keyboard."""
        self.wait_for(lambda: self.display.windows(title) != [], f"{title} is open")
        self.display.activate(self.display.windows(title)[0])
        self.settle()

    def test_a_job_goes_from_the_first_line_to_the_program_by_keyboard_alone(self) -> None:
        outline = self.work / "outline.dxf"
        outline.write_text(SQUARE_DXF)
        self.open_menu("f")
        self.display.tool("key", "i")
        self.dialog("Open DXF File")
        self.display.tool("type", str(outline))
        self.display.tool("key", "Return")
        self.dialog("Import DXF File")
        self.screenshot("import_by_keyboard")
        self.key("alt+i")
        self.wait_for(lambda: self.windows() == 1, "the outline is imported")
        self.wait_for(lambda: not self.is_saved(), "its rows are in the drawing")

        self.open_menu("c")
        self.key("t")
        self.dialog("Tool Select & Definition")
        self.key("Return")
        self.wait_for(lambda: self.windows() == 1, "the tool is chosen")
        self.key("ctrl+a")
        self.menu("c", "v")
        self.open_menu("c")
        self.key("r")
        self.wait_for(lambda: self.windows() == 1, "the menu is closed")
        self.settle()
        self.screenshot("pocket_by_keyboard")

        self.key("ctrl+s")
        self.dialog("Save As")
        self.display.tool("key", "Return")
        self.wait_for(self.is_saved, "the drawing is saved")
        self.assertTrue(list(self.work.rglob("*.TPM")), "with its path")

        self.display.tool("key", "ctrl+m")
        self.dialog("View File")
        program = next(self.work.rglob("*.CNC")).read_text()
        self.assertIn("G01", program)
        self.key("Escape")
        self.wait_for(lambda: self.windows() == 1, "the program has been looked at")
        self.open_menu("f")
        self.display.tool("key", "x")
        self.wait_for(lambda: len(self.display.windows("Tessimo Mill")) == 2, "it asks for the setup")
        self.settle()
        self.display.tool("key", "alt+n")
        self.assertEqual(self.program.wait(timeout=PATIENCE), 0)


if __name__ == "__main__":
    run_tests()
