#!/usr/bin/python3
"""A whole job by the mouse alone, from a new drawing to the program of the machine; the keyboard
only fills fields. What to point at is found as a screen reader finds it.

Usage: by_mouse_test.py PROGRAM [FOLDER FOR SCREENSHOTS]
"""

import math
import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from outside_test import FIRST_QUESTION, TITLE, OutsideTest, run_tests  # noqa: E402
from screen_reader import Item, ScreenReader  # noqa: E402
from virtual_display import VirtualDisplay  # noqa: E402

CUTTER = 4.0
DEPTH = 3.0
LEFT, BOTTOM, RIGHT, TOP = 20, 15, 80, 60
CENTRE_X, CENTRE_Y, RADIUS = 50, 35, 8
PROOF_OF_JOB = "open(arg[1])\nprint(proof().clean)\n"
MOVE = re.compile(r"([XYZ])(-?[0-9.]+)")
Place = tuple[float, float, float]


class ByMouse(OutsideTest):
    def setUp(self) -> None:
        self.display = self.enterContext(VirtualDisplay(1366, 768))
        self.reader = self.enterContext(ScreenReader(self.display.environment))
        self.start_program(environment=self.reader.environment)
        # Where the pointer is on the screen and in the drawing, and the pixels of a unit.
        self.pixel = self.at = (0.0, 0.0)
        self.scale = 0.0

    def find(self, role: str, name: str, window: str = "") -> Item:
        """Once it stays where it is: a window that has just come is moved by the window manager."""
        self.reader.find(role, name, window)
        self.settle()
        return self.reader.find(role, name, window)

    def press_at(self, x: int, y: int) -> None:
        self.display.tool("mousemove", str(x), str(y), "click", "1")

    def press(self, role: str, name: str, window: str = "") -> None:
        self.press_at(*self.find(role, name, window).middle())

    def menu(self, title: str, entry: str) -> None:
        self.press("menu item", title)
        self.press("menu item", entry)

    def wait_for_label(self, name: str) -> None:
        """The status areas say so."""
        self.reader.find("label", name, TITLE)

    def fill(self, name: str, value: str, window: str) -> None:
        """A triple click marks all that is in the field."""
        left, top, _, height = self.find("text", name, window).box()
        self.display.tool("mousemove", str(left + 10), str(top + height // 2),
                          "click", "--repeat", "3", "--delay", "20", "1")
        self.settle()
        self.display.tool("type", value)
        self.wait_for(lambda: self.reader.find("text", name, window).text == value,
                      f"{name} has {value}")

    def here(self) -> tuple[float, float]:
        """The place of the pointer in the drawing, which the status bar tells."""
        def told(axis: str) -> float:
            label = self.reader.find_matching("label", rf"{axis}: \S+", TITLE)
            return float(label.name.split()[1])
        return told("X"), told("Y")

    def hover(self, pixel: tuple[float, float]) -> None:
        self.pixel = pixel
        self.display.tool("mousemove", str(round(pixel[0])), str(round(pixel[1])))
        self.settle()
        self.at = self.here()

    def measure(self) -> None:
        """How many pixels a unit has, from two places far apart."""
        self.settle()
        self.hover((350, 400))
        left = self.at[0]
        self.hover((1050, 400))
        self.scale = 700 / (self.at[0] - left)

    def move_towards(self, x: float, y: float, part: float = 1) -> None:
        self.hover((self.pixel[0] + (x - self.at[0]) * self.scale * part,
                    self.pixel[1] - (y - self.at[1]) * self.scale * part))

    def point_at(self, x: float, y: float) -> None:
        """As an operator does: nearer and nearer, until the status bar tells the place. The surface
        keeps the pointer out until the last click is done with. Whole steps of the grid could pass
        the place for ever."""
        self.settle()
        for attempt in range(8):
            self.move_towards(x, y, 1 if attempt == 0 else 0.6)
            if self.at == (x, y):
                return
        self.assertEqual(self.at, (x, y))

    def click(self, x: float, y: float, button: str = "1") -> None:
        self.point_at(x, y)
        self.display.tool("click", button)

    def draw(self) -> None:
        """The last line ends near the first corner, where object snap takes it."""
        self.click(LEFT, BOTTOM, "3")
        self.press("push button", "Line")
        for x, y in ((RIGHT, BOTTOM), (RIGHT, TOP), (LEFT, TOP)):
            self.click(x, y)
        left, top, _, height = self.find("button menu", "Object Snap").box()
        switch = (left + 8, top + height // 2)  # beside its arrow
        self.press_at(*switch)
        self.settle()
        self.move_towards(LEFT + 2, BOTTOM + 2)
        self.wait_for_label("Snap: end point")
        self.display.tool("click", "1")
        self.wait_for(lambda: self.here() == (LEFT, BOTTOM), "the outline is closed")
        self.settle()
        self.press_at(*switch)

        self.click(CENTRE_X, CENTRE_Y, "3")
        self.press("push button", "Circle, Center + 1 Point")
        self.click(CENTRE_X + RADIUS, CENTRE_Y)

    def verify(self) -> None:
        self.press("push button", "Select Contiguous")
        self.click(CENTRE_X, BOTTOM)
        self.wait_for_label("4 rows selected")
        self.press("push button", "Verify/Accept Pocket")
        self.wait_for_label("Pocket verified, 4 rows")
        self.press("push button", "Select Contiguous")
        self.click(CENTRE_X + RADIUS, CENTRE_Y)
        self.wait_for_label("1 row selected, 4 verified")
        self.press("push button", "Verify/Accept Island")
        self.wait_for_label("Island verified, 1 row")

    def prepare(self) -> None:
        self.press("push button", "Select Tool")
        self.press("list item", " 5: 4 mm end mill 2fl", "Tool Select")
        self.press("push button", "Accept", "Tool Select")
        self.wait_for_label("Tool 5: 4 mm end mill 2fl, 4.0000 mm")

        self.menu("Options", "Drawing Title Block...")
        for field, value in (("Drawing Title:", "Frame"), ("Designer:", "Ada")):
            self.fill(field, value, "Drawing Title Block")
        self.press("push button", "Accept", "Drawing Title Block")

        self.press("push button", "Pocketing Specifications")
        self.fill("Final Depth :", "3", "Pocketing")
        self.press("push button", "Accept", "Pocketing")

    def cut(self) -> None:
        self.press("push button", "Rough Cut Pocket")
        roughed = self.path_rows()
        self.assertGreater(roughed, 50)
        self.press("push button", "Place Finish Path")
        self.press("push button", "OK", "Finishing Path Options")
        self.click(LEFT, BOTTOM)
        self.click(CENTRE_X, BOTTOM)
        self.click(CENTRE_X, 20)
        self.wait_for(lambda: self.path_rows() > roughed, "the wall is finished")

    def path_rows(self) -> int:
        label = self.reader.find_matching("label", r"[0-9]+ path rows, .* mm, .* min", TITLE)
        return int(label.name.split()[0])

    def look_at_the_path(self) -> None:
        rows = self.path_rows()
        self.press("push button", "Edit Path/Cycle")
        self.screenshot("mouse_path")
        self.press("push button", "Exit", "View/Edit Path Segments")
        self.assertEqual(self.path_rows(), rows)

    def write(self) -> Path:
        self.press("push button", "Make CNC Mill File")
        self.press("push button", "Yes")
        self.fill("Name", "mouse", "Save As")
        self.press("push button", "Save", "Save As")
        self.reader.find("push button", "Close", "View File")
        self.screenshot("mouse_program")
        self.press("push button", "Close", "View File")
        return Path(self.display.folder.name) / ".local/share/tessimo/CNC"

    def test_a_job_goes_from_a_new_drawing_to_the_program(self) -> None:
        self.press("radio button", "Millimeter", FIRST_QUESTION)
        self.press("push button", "Accept", FIRST_QUESTION)
        self.press("push button", "New", TITLE)
        self.measure()
        self.draw()
        self.verify()
        self.prepare()
        self.cut()
        self.look_at_the_path()
        self.screenshot("mouse_job")
        folder = self.write()
        self.check((folder / "mouse.CNC").read_text())
        self.assertEqual(self.script(PROOF_OF_JOB, str(folder / "mouse.CDM")), "true\n")

    def check(self, program: str) -> None:
        """All that is cut lies within the outline and outside the island, by the cutter's radius;
        the walls and the floor are reached, in more passes than one."""
        lines = program.splitlines()
        self.assertIn("{Drawing Title}:  Frame ", program)
        self.assertIn("{Designer}:  Ada", program)
        self.assertIn("4 mm end mill", program)
        self.assertIn("M03", program)
        self.assertEqual(lines[-3:], ["M05", "M30", "%"])
        cut = [place for place in places(lines) if place[2] < 0]
        self.assertGreater(len(cut), 200)
        offset = CUTTER / 2
        across = [x for x, _, _ in cut]
        along = [y for _, y, _ in cut]
        for value, wall in ((min(across), LEFT + offset), (max(across), RIGHT - offset),
                            (min(along), BOTTOM + offset), (max(along), TOP - offset)):
            self.assertAlmostEqual(value, wall, delta=0.001)
        nearest = min(math.hypot(x - CENTRE_X, y - CENTRE_Y) for x, y, _ in cut)
        self.assertGreaterEqual(nearest, RADIUS + offset - 0.001)
        depths = {z for _, _, z in cut}
        self.assertEqual(min(depths), -DEPTH)
        self.assertIn(-DEPTH / 2, depths)


def places(lines: list[str]) -> list[Place]:
    """Where each move of the program ends."""
    at = {"X": math.inf, "Y": math.inf, "Z": math.inf}
    ends = []
    for line in lines:
        moved = dict(MOVE.findall(line))
        if moved and line.startswith(("G00", "G01", "G02", "G03")):
            at |= {axis: float(value) for axis, value in moved.items()}
            ends.append((at["X"], at["Y"], at["Z"]))
    return ends


if __name__ == "__main__":
    run_tests()
