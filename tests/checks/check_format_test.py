"""The format rule finds a badly laid out file, mends it on request, and refuses an empty tree."""

import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BAD = "int  answer( ){return 42;}\n"
GOOD = "int answer() {\n  return 42;\n}\n"


class CheckFormat(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.tree = Path(self.folder.name)
        (self.tree / ".clang-format").write_text((ROOT / ".clang-format").read_text())

    def run_check(self, *options: str) -> tuple[int, str]:
        command = [ROOT / "scripts" / "check_format", *options, self.tree]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        return result.returncode, result.stdout + result.stderr

    def write(self, name: str, text: str) -> Path:
        file = self.tree / name
        file.parent.mkdir(exist_ok=True)
        file.write_text(text)
        return file

    def test_well_laid_out_tree_passes(self):
        self.write("core/a.cpp", GOOD)
        self.assertEqual(self.run_check(), (0, "check_format: 1 files\n"))

    def test_bad_source_and_bad_header_are_named_with_their_line(self):
        self.write("core/a.cpp", GOOD + BAD)
        self.write("core/b.h", BAD)
        status, output = self.run_check()
        self.assertNotEqual(status, 0)
        self.assertIn("core/a.cpp:4:", output)
        self.assertIn("core/b.h:1:", output)

    def test_fix_writes_the_layout(self):
        file = self.write("core/a.cpp", BAD)
        self.assertEqual(self.run_check("--fix")[0], 0)
        self.assertEqual(file.read_text(), GOOD)

    def test_build_folders_are_passed_over(self):
        self.write("core/a.cpp", GOOD)
        self.write("build-asan/generated.cpp", BAD)
        self.assertEqual(self.run_check()[0], 0)

    def test_tree_without_sources_is_refused(self):
        status, output = self.run_check()
        self.assertEqual(status, 1)
        self.assertIn("no source files", output)


if __name__ == "__main__":
    unittest.main()
