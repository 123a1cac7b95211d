"""The list of fixed rules holds every one of them, and refuses a line of another form."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "list_fixed"
ROOT = SCRIPT.parent.parent
REFUSED = "not one line of '// Fixed: RULE; CONSEQUENCE.'"


def run_on(tree: dict[str, str]) -> tuple[int, list[str]]:
    """Exit status and output lines of the script on a tree of file name to contents."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            file = Path(folder) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        command = [sys.executable, SCRIPT, folder]
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        return result.returncode, result.stdout.splitlines()


class ListFixed(unittest.TestCase):
    def test_rules_come_with_their_place_in_the_order_of_files(self):
        tree = {
            "shell/qt/b.h": "\n  // Fixed: one is two; programs change.\n  int b;\n",
            "core/a.cpp": "// Fixed: x is y (0, 1); old files differ.\nint a;\n",
        }
        expected = [
            "core/a.cpp:1: x is y (0, 1); old files differ.",
            "shell/qt/b.h:2: one is two; programs change.",
        ]
        self.assertEqual(run_on(tree), (0, expected))

    def test_two_rules_may_follow_one_another(self):
        text = "// Fixed: a; b.\n// Fixed: c; d.\nint x;\n"
        self.assertEqual(run_on({"cnc/a.h": text}), (0, ["cnc/a.h:1: a; b.", "cnc/a.h:2: c; d."]))

    def test_any_other_form_is_refused_where_it_stands(self):
        for line in [
            "// Fixed: a rule without a consequence.",
            "// Fixed: a rule; a consequence",
            "// Fixed: a rule; a consequence; another.",
            "// Fixed:a rule; a consequence.",
            "// fixed: a rule; a consequence.",
            "int x;  // Fixed: a rule; a consequence.",
            "// It is Fixed: a rule; a consequence.",
            "// Fixed: a rule; a consequence.\n// that goes on.",
        ]:
            with self.subTest(line=line):
                tree = {"core/a.h": f"int y;\n{line}\nint z;\n"}
                self.assertEqual(run_on(tree), (1, [f"core/a.h:2: {REFUSED}"]))

    def test_a_tree_without_rules_is_refused(self):
        status, lines = run_on({"core/a.h": "// Fixed sizes are no rule.\n"})
        self.assertEqual(status, 1)
        self.assertIn("no fixed rules", lines[0])

    def test_what_misleads_most_is_on_the_list(self):
        result = subprocess.run([sys.executable, SCRIPT, ROOT], capture_output=True, text=True, check=True)
        for file in [
            "display/renderer.cpp",  # each line twice
            "toolpath/scan_points.cpp",  # the nudge beside the scan line
            "toolpath/parallel_spiral.cpp",  # the borrowed radius
            "toolpath/path_placement.cpp",  # Clear All Paths
        ]:
            self.assertIn(f"\n{file}:", "\n" + result.stdout, file)


if __name__ == "__main__":
    unittest.main()
