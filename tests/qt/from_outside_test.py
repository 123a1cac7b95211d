#!/usr/bin/env python3
"""Works the program from outside as an operator does: keys and pointer of a virtual display.

Usage: from_outside_test.py PROGRAM [FOLDER FOR SCREENSHOTS]
"""

import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from virtual_display import VirtualDisplay, wait_until_idle  # noqa: E402

PROGRAM = ""
SCREENSHOTS: Path | None = None
SETTLED = 0.45  # seconds: longer than the surface or a menu keeps the pointer out
EMPTY = "save(arg[1])\n"
ROWS = """\
open(arg[1])
for s in segments() do print(s.type, s.x0, s.y0, s.x1, s.y1, s.xc, s.yc) end
"""
LINE, ARC = 1, 2
Row = tuple[float, ...]


class FromOutside(unittest.TestCase):
    def setUp(self) -> None:
        self.display = self.enterContext(VirtualDisplay(1280, 900))
        self.work = Path(self.display.folder.name)
        self.drawing = str(self.work / "part.cdm")
        self.run_script(EMPTY)
        self.start()
        self.addCleanup(self.stop)

    def run_script(self, text: str) -> str:
        script = self.work / "script.lua"
        script.write_text(text)
        return subprocess.run([PROGRAM, "--run", str(script), self.drawing], check=True, text=True,
                              capture_output=True, env=self.display.environment).stdout

    def start(self) -> None:
        self.program = subprocess.Popen([PROGRAM, self.drawing], env=self.display.environment)
        self.window = self.display.tool("search", "--sync", "--onlyvisible", "--name",
                                        "^Tessimo Mill - Version").split()[0]
        self.display.tool("windowactivate", "--sync", self.window)
        self.settle()

    def stop(self) -> None:
        if self.program.poll() is None:
            self.program.kill()
        self.program.wait()

    def settle(self) -> None:
        wait_until_idle(self.program.pid, SETTLED)

    def act(self, *arguments: str) -> None:
        self.display.tool(*arguments)
        self.settle()

    def key(self, name: str) -> None:
        self.act("key", name)

    def menu(self, title: str, entry: str) -> None:
        self.key(f"alt+{title}")
        self.key(entry)

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
        self.menu("f", "s")
        lines = self.run_script(ROWS).splitlines()
        return [tuple(float(word) for word in line.split()) for line in lines]

    def screenshot(self, name: str) -> None:
        if SCREENSHOTS is None:
            return
        SCREENSHOTS.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", "root", str(SCREENSHOTS / f"{name}.png")],
                       env=self.display.environment, check=True)

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

        self.menu("f", "x")
        self.assertEqual(self.program.wait(timeout=60), 0)
        self.start()
        self.key("l")
        self.click(500, 500)
        again = self.saved_rows()
        self.assertEqual(again[:5], drawn)
        self.assertEqual(len(again), 6)
        self.menu("f", "x")
        self.assertEqual(self.program.wait(timeout=60), 0)


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    if len(sys.argv) > 1:
        SCREENSHOTS = Path(sys.argv.pop(1))
    unittest.main()
