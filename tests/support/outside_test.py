"""What tests of the window from outside share: a program on a virtual display that is waited for
and looked at.

Owns: OutsideTest, run_tests.
"""

import subprocess
import sys
import unittest
from collections.abc import Callable
from pathlib import Path

from virtual_display import VirtualDisplay, wait_until

TITLE = "Tessimo Mill - Version"
FIRST_QUESTION = "Control and Units"
SETTLED = 0.45  # seconds: longer than the surface or a menu keeps the pointer out


class OutsideTest(unittest.TestCase):
    PROGRAM = ""
    SCREENSHOTS: Path | None = None
    display: VirtualDisplay
    program: subprocess.Popen[bytes]

    def start_program(self, *arguments: str, environment: dict[str, str] | None = None) -> None:
        self.program = subprocess.Popen([self.PROGRAM, *arguments],
                                        env=environment or self.display.environment)
        self.addCleanup(self.stop, self.program)

    def stop(self, program: subprocess.Popen[bytes]) -> None:
        program.kill()
        program.wait()

    def wait_for(self, holds: Callable[[], bool], what: str) -> None:
        def holds_while_it_runs() -> bool:
            self.assertIsNone(self.program.poll(), "the program has ended")
            return holds()
        wait_until(holds_while_it_runs, what)

    def settle(self) -> None:
        self.display.settle(self.program.pid, SETTLED)

    def screenshot(self, name: str, title: str = "") -> None:
        """Of the whole screen, or of what a window has in its frame."""
        if self.SCREENSHOTS is not None:
            self.SCREENSHOTS.mkdir(parents=True, exist_ok=True)
            window = self.display.windows(title)[0] if title else "root"
            subprocess.run(["import", "-window", window, str(self.SCREENSHOTS / f"{name}.png")],
                           env=self.display.environment, check=True)

    def script(self, text: str, *arguments: str) -> str:
        """What the program prints for a script, without its window."""
        file = Path(self.display.folder.name) / "script.lua"
        file.write_text(text)
        return subprocess.run([self.PROGRAM, "--run", str(file), *arguments], check=True, text=True,
                              stdout=subprocess.PIPE, env=self.display.environment).stdout


def run_tests() -> None:
    """Usage: NAME_test.py PROGRAM [FOLDER FOR SCREENSHOTS]"""
    OutsideTest.PROGRAM = str(Path(sys.argv.pop(1)).resolve())
    if len(sys.argv) > 1:
        OutsideTest.SCREENSHOTS = Path(sys.argv.pop(1))
    unittest.main()
