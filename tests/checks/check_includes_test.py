"""The include rule finds each kind of violation, and only those, in small trees made here."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_includes"


def run_on(tree: dict[str, str]) -> tuple[int, list[str]]:
    """Exit status and output lines of the check on a tree of file name to contents."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            file = Path(folder) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        result = subprocess.run(
            [sys.executable, SCRIPT, folder], capture_output=True, text=True, check=False
        )
        return result.returncode, result.stdout.splitlines()


class CheckIncludes(unittest.TestCase):
    def expect_clean(self, tree: dict[str, str]) -> None:
        self.assertEqual(run_on(tree), (0, ["check_includes: every include points down"]))

    def expect_finding(self, tree: dict[str, str], *lines: str) -> None:
        self.assertEqual(run_on(tree), (1, list(lines)))

    def test_every_downward_include_is_free(self):
        below = ["core", "geometry", "display", "drafting", "toolpath", "cnc", "import", "tools"]
        tree = {f"{room}/a.h": "#include <string>\n" for room in below}
        tree["shell/a.h"] = "".join(f'#include "{room}/a.h"\n' for room in below)
        tree["shell/automation/a.h"] = '#include "core/a.h"\n#include "shell/a.h"\n'
        tree["shell/qt/a.h"] = '#include "shell/automation/a.h"\n#include "shell/a.h"\n'
        tree["toolpath/b.h"] = '#include "drafting/a.h"\n#include "toolpath/a.h"\n'
        tree["tests/core/a_test.cpp"] = '#include "shell/qt/a.h"\n'
        self.expect_clean(tree)

    def test_upward_include_is_found_with_its_line(self):
        self.expect_finding(
            {"core/a.cpp": '// A.\n#include "geometry/b.h"\n', "geometry/b.h": ""},
            "core/a.cpp:2: core may not include geometry (geometry/b.h)",
        )

    def test_rooms_side_by_side_do_not_see_each_other(self):
        for room, other in [
            ("cnc", "display"),
            ("cnc", "toolpath"),
            ("import", "toolpath"),
            ("toolpath", "cnc"),
            ("tools", "toolpath"),
            ("drafting", "tools"),
            ("geometry", "display"),
            ("display", "drafting"),
            ("drafting", "toolpath"),
            ("tools", "shell"),
        ]:
            with self.subTest(room=room, other=other):
                self.expect_finding(
                    {f"{room}/a.h": f'#include "{other}/b.h"\n', f"{other}/b.h": ""},
                    f"{room}/a.h:1: {room} may not include {other} ({other}/b.h)",
                )

    def test_inner_rooms_of_the_shell_are_above_it(self):
        self.expect_finding(
            {"shell/a.h": '#include "shell/qt/b.h"\n', "shell/qt/b.h": ""},
            "shell/a.h:1: shell may not include shell/qt (shell/qt/b.h)",
        )
        self.expect_finding(
            {"shell/automation/a.h": '#include "shell/qt/b.h"\n', "shell/qt/b.h": ""},
            "shell/automation/a.h:1: shell/automation may not include shell/qt (shell/qt/b.h)",
        )

    def test_entry_of_the_program_picks_from_all_rooms(self):
        tree = {
            "shell/automation/command_line.h": "",
            "shell/main.cpp": '#include "shell/automation/command_line.h"\n',
        }
        self.expect_clean(tree)

    def test_neither_brackets_nor_dots_hide_an_include(self):
        self.expect_finding(
            {
                "core/a.h": "#include <shell/b.h>\n",
                "core/c.h": '  #  include "../shell/b.h"\n',
                "shell/b.h": "",
            },
            "core/a.h:1: core may not include shell (shell/b.h)",
            "core/c.h:1: core may not include shell (shell/b.h)",
        )

    def test_generated_header_belongs_to_its_room(self):
        self.expect_finding(
            {"core/a.h": '#include "shell/generated.h"\n'},
            "core/a.h:1: core may not include shell (shell/generated.h)",
        )

    def test_no_room_includes_the_tests(self):
        self.expect_finding(
            {"core/a.h": '#include "tests/support/b.h"\n', "tests/support/b.h": ""},
            "core/a.h:1: core includes tests/support/b.h, which is in no room",
        )

    def test_ring_of_two_files_is_found(self):
        self.expect_finding(
            {"core/a.h": '#include "core/b.h"\n', "core/b.h": '\n#include "core/a.h"\n'},
            "core/b.h:2: include cycle: core/a.h -> core/b.h -> core/a.h",
        )

    def test_ring_through_a_file_named_beside_is_found(self):
        self.expect_finding(
            {
                "core/a.h": '#include "b.h"\n',
                "core/b.h": '#include "core/c.h"\n',
                "core/c.h": '#include "a.h"\n',
            },
            "core/c.h:1: include cycle: core/a.h -> core/b.h -> core/c.h -> core/a.h",
        )

    def test_file_that_includes_itself_is_found(self):
        self.expect_finding(
            {"core/a.h": '#include "core/a.h"\n'},
            "core/a.h:1: include cycle: core/a.h -> core/a.h",
        )

    def test_two_roads_to_one_file_are_no_ring(self):
        self.expect_clean(
            {
                "core/a.h": '#include "core/b.h"\n#include "core/c.h"\n',
                "core/b.h": '#include "core/d.h"\n',
                "core/c.h": '#include "core/d.h"\n',
                "core/d.h": "",
            }
        )

    def test_toolkit_outside_its_folders_is_found(self):
        folders = "shell/qt/, tests/qt/, bench/qt/"
        for header in ["<QString>", '"QWidget"', "<QtWidgets/QWidget>", "<qstring.h>", '"ui_a.h"']:
            for file in ["core/a.cpp", "shell/a.cpp", "tests/core/a_test.cpp", "fuzz/a_fuzz.cpp"]:
                with self.subTest(header=header, file=file):
                    self.expect_finding(
                        {file: f"#include {header}\n"},
                        f'{file}:1: Qt ({header.strip(chr(34) + "<>")}) is for {folders} only',
                    )

    def test_toolkit_is_free_in_its_folders(self):
        for file in ["shell/qt/a.cpp", "tests/qt/a_test.cpp", "bench/qt/a_bench.cpp"]:
            with self.subTest(file=file):
                self.expect_clean({file: '#include <QString>\n#include "ui_a.h"\n'})

    def test_commented_include_does_not_count(self):
        self.expect_clean({"core/a.h": '// #include "shell/b.h"\n', "shell/b.h": ""})

    def test_tree_without_sources_is_refused(self):
        status, lines = run_on({"README.md": ""})
        self.assertEqual(status, 1)
        self.assertIn("no source files", lines[0])


if __name__ == "__main__":
    unittest.main()
