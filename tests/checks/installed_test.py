"""The program as it is installed: it finds its data, its manual and its examples there, and from its
build folder those of the tree. A user's folder is filled by the first start and by nothing else.

Usage: installed_test.py BUILD_DIR
"""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path()
SCRIPT = """\
print(store.NumPathSegments, store.toolradius[1])
"""


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls) -> None:
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.prefix = Path(cls.folder.name) / "usr"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.prefix], check=True,
                       stdout=subprocess.DEVNULL)
        cls.program = cls.prefix / "bin" / "tessimo"

    def start(self, program: Path, *arguments: str) -> tuple[str, Path]:
        home = Path(tempfile.mkdtemp(dir=self.folder.name))
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("XDG_", "TESSIMO_"))}
        answer = subprocess.run([program, *arguments], check=True, text=True, cwd=home,
                                env=kept | {"HOME": str(home)}, stdout=subprocess.PIPE).stdout
        return answer, home / ".local" / "share" / "tessimo"

    def run_script(self, program: Path) -> Path:
        script = Path(self.folder.name) / "script.lua"
        script.write_text(SCRIPT)
        answer, filled = self.start(program, "--run", str(script))
        self.assertEqual(answer.split()[0], "0")
        return filled

    def test_the_version_needs_nothing(self) -> None:
        answer, filled = self.start(self.program, "--version")
        self.assertRegex(answer, r"^Tessimo Mill \d+\.\d+\.\d+\n$")
        self.assertFalse(filled.exists())

    def test_a_users_folder_is_filled_from_the_installation(self) -> None:
        mark = self.prefix / "share" / "tessimo" / "marked.msx"
        mark.write_text("of this installation")
        self.addCleanup(mark.unlink)
        filled = self.run_script(self.program)
        self.assertEqual((filled / "marked.msx").read_text(), "of this installation")
        shipped = {path.name for path in (ROOT / "data").iterdir()}
        self.assertLessEqual(shipped, {path.name for path in filled.iterdir()})
        self.assertFalse((filled / "help").exists(), "the manual is read where it is")
        self.assertFalse((filled / "examples").exists())

    def test_from_the_build_folder_it_is_filled_from_the_tree(self) -> None:
        filled = self.run_script(BUILD / "bin" / "tessimo")
        self.assertEqual((filled / "tess.def").read_bytes(), (ROOT / "data/tess.def").read_bytes())

    def test_manual_examples_and_desktop_files_are_there(self) -> None:
        share = self.prefix / "share"
        manual = share / "tessimo" / "help" / "tsmo_manual.pdf"
        self.assertEqual(manual.read_bytes(), (BUILD / "manual/tsmo_manual.pdf").read_bytes())
        self.assertTrue((share / "tessimo/examples/bracket.cdm").is_file())
        for name in ("applications/tessimo.desktop", "mime/packages/tessimo.xml",
                     "metainfo/tessimo.metainfo.xml", "icons/hicolor/scalable/apps/tessimo.svg",
                     "doc/tessimo/copyright"):
            self.assertTrue((share / name).is_file(), name)


if __name__ == "__main__":
    BUILD = Path(sys.argv.pop()).resolve()
    unittest.main()
