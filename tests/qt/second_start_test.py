#!/usr/bin/python3
"""A second start with a file, while a window is open: two real processes.

Usage: second_start_test.py PROGRAM
"""

import os
import shutil
import signal
import stat
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from outside_test import TITLE, OutsideTest, run_tests  # noqa: E402
from screen_reader import ScreenReader  # noqa: E402
from virtual_display import PATIENCE, VirtualDisplay  # noqa: E402

RUNS_ALREADY = ("Tessimo is already running!!!\n"
                "Only one instance of this program can be running at one time.")
NOT_SAVED = "Drawing not saved! Save now?"
DATA = Path(__file__).resolve().parents[2] / "data"
EMPTY = "save(arg[1])\n"


class SecondStart(OutsideTest):
    def setUp(self) -> None:
        self.display = self.enterContext(VirtualDisplay(1366, 768))
        self.reader = self.enterContext(ScreenReader(self.display.environment))
        self.work = Path(self.display.folder.name)
        self.socket = self.work / "tessimo.socket"
        self.home = self.work / "home"
        shutil.copytree(DATA, self.home)
        self.open_first()

    def open_first(self) -> None:
        """Of a folder that was named, nothing is asked at its first start."""
        self.start_program("--home", str(self.home), environment=self.reader.environment)
        self.reader.find("label", "Drawing:<Untitled>", TITLE)
        self.wait_for(self.socket.exists, "it can be reached")
        self.settle()

    def drawing(self, name: str) -> Path:
        path = self.work / name
        path.parent.mkdir(exist_ok=True)
        self.script(EMPTY, str(path))
        return path

    def start_second(self, *arguments: str, folder: Path | None = None,
                     **environment: str) -> subprocess.Popen[bytes]:
        second = subprocess.Popen([self.PROGRAM, "--home", str(self.home), *arguments],
                                  cwd=folder or self.work,
                                  env=self.reader.environment | environment)
        self.addCleanup(self.stop, second)
        return second

    def hand_over(self, *arguments: str, folder: Path | None = None) -> None:
        second = self.start_second(*arguments, folder=folder)
        self.assertEqual(second.wait(timeout=PATIENCE), 0)

    def expect_refusal(self, second: subprocess.Popen[bytes]) -> None:
        """The second one says so, and ends."""
        self.reader.find("label", RUNS_ALREADY, "User Error")
        self.press("OK", "User Error")
        self.assertEqual(second.wait(timeout=PATIENCE), 1)

    def press(self, button: str, window: str) -> None:
        self.settle()
        x, y = self.reader.find("push button", button, window).middle()
        self.display.tool("mousemove", str(x), str(y), "click", "1")

    def wait_for_drawing(self, name: str) -> None:
        self.reader.find("label", f"Drawing:{name}", TITLE)

    def draw_a_rectangle(self) -> None:
        self.display.activate(self.display.windows(TITLE)[0])
        self.settle()
        self.display.tool("key", "r")
        self.settle()
        self.display.tool("mousemove", "800", "300", "click", "1")
        self.reader.find("label", "Modified", TITLE)
        self.settle()

    def test_files_with_any_name_are_opened(self) -> None:
        for name in ("two words.cdm", "Fräse \"1\".cdm", "-dash.cdm"):
            with self.subTest(name):
                self.hand_over(str(self.drawing(name)))
                self.wait_for_drawing(name.upper())

    def test_a_name_counts_from_the_folder_where_it_was_typed(self) -> None:
        self.drawing("elsewhere/part.cdm")
        self.hand_over("part.cdm", folder=self.work / "elsewhere")
        self.wait_for_drawing("PART.CDM")
        self.hand_over("../elsewhere/part", folder=self.work / "elsewhere")

    def test_a_name_with_a_line_end_is_not_handed_over(self) -> None:
        self.expect_refusal(self.start_second(str(self.drawing("two\nlines.cdm"))))
        self.wait_for_drawing("<Untitled>")

    def test_without_a_file_it_says_that_it_runs(self) -> None:
        self.expect_refusal(self.start_second())

    def test_a_file_that_is_not_there_is_told(self) -> None:
        missing = self.work / "missing.cdm"
        self.hand_over(str(missing))
        self.reader.find("label", f"There is no file {missing}.")
        self.press("OK", "Tessimo")
        self.wait_for_drawing("<Untitled>")

    def test_unsaved_work_is_asked_about(self) -> None:
        part = self.drawing("part.cdm")
        self.draw_a_rectangle()
        self.hand_over(str(part))
        self.reader.find("label", NOT_SAVED)
        self.press("Cancel", "Tessimo")
        self.wait_for(lambda: self.reader.look(lambda item: item.name == NOT_SAVED) is None,
                      "it is answered")
        self.wait_for_drawing("<Untitled>")
        self.hand_over(str(part))
        self.reader.find("label", NOT_SAVED)
        self.press("No", "Tessimo")
        self.wait_for_drawing("PART.CDM")

    def test_a_dialog_comes_first(self) -> None:
        part = self.drawing("part.cdm")
        self.press("Pocketing Specifications", TITLE)
        self.reader.find("push button", "Accept", "Pocketing")
        self.expect_refusal(self.start_second(str(part)))
        self.press("Cancel", "Pocketing")
        self.wait_for_drawing("<Untitled>")
        self.wait_for(lambda: self.display.windows("Pocketing") == [], "the dialog is closed")
        self.hand_over(str(part))
        self.wait_for_drawing("PART.CDM")

    def test_what_was_refused_is_not_opened_later(self) -> None:
        """A program that stands still is as busy as one can be."""
        part = self.drawing("part.cdm")
        os.kill(self.program.pid, signal.SIGSTOP)
        second = self.start_second(str(part))
        # The screen reader would wait for the program that stands still.
        self.wait_for(lambda: self.display.windows("User Error") != [], "it says so")
        self.display.activate(self.display.windows("User Error")[0])
        self.display.tool("key", "Return")
        self.assertEqual(second.wait(timeout=PATIENCE), 1)
        os.kill(self.program.pid, signal.SIGCONT)
        self.settle()
        self.wait_for_drawing("<Untitled>")
        self.hand_over(str(part))
        self.wait_for_drawing("PART.CDM")

    def test_what_a_killed_one_left_is_replaced(self) -> None:
        self.stop(self.program)
        self.assertTrue(self.socket.exists())
        self.open_first()
        self.hand_over(str(self.drawing("part.cdm")))
        self.wait_for_drawing("PART.CDM")

    def test_only_the_same_user_gets_in(self) -> None:
        self.assertEqual(stat.S_IMODE(self.socket.stat().st_mode), 0o700)

    def test_without_a_socket_it_says_that_it_runs(self) -> None:
        part = self.drawing("part.cdm")
        self.socket.unlink()
        self.expect_refusal(self.start_second(str(part)))

    def test_without_a_folder_of_running_programs_nothing_is_left_where_it_was_started(self) -> None:
        folder = self.work / "empty"
        folder.mkdir()
        self.stop(self.program)
        no_folder = str(self.socket)
        second = self.start_second(folder=folder, XDG_RUNTIME_DIR=no_folder, TMPDIR=no_folder)
        self.reader.find("label", "Drawing:<Untitled>", TITLE)
        self.display.settle(second.pid, 0.2)
        self.assertEqual(list(folder.iterdir()), [])


if __name__ == "__main__":
    run_tests()
