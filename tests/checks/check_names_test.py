"""The list of fixed names is held against the headers: each kind, and each way to be wrong."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_names"
FIELDS = "name,kind,header,unit,meaning\n"
CLEAN = (0, ["check_names: every fixed name is declared once, where it says"])

STORE = """\
// The store; int commented = 0; is no declaration.
#pragma once
struct Store : Settings {
  Column<float> x0, y0, x1;
  Column<std::string> toolname{kLastTool};
  float markerx = 0, markery = 0;
  bool sized = false;
  Int16 count;
};
class Drawn;
enum class Side { Left, Right };
void AddSeg(Store& store, float markerx, int side);
template <typename T>
void swapValues(T& a, T& b) {
  const float d = distance(a, b);
  use(a);
}
inline float twice(Point a) { return distance(a, a) / nonZero(2); }
"""


def run_on(names: str, headers: dict[str, str]) -> tuple[int, list[str]]:
    """Exit status and output lines of the check on the list and a tree of headers."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in {"docs/names.csv": names, **headers}.items():
            file = Path(folder) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        result = subprocess.run(
            [sys.executable, SCRIPT, folder], capture_output=True, text=True, check=False
        )
        return result.returncode, result.stdout.splitlines()


class CheckNames(unittest.TestCase):
    def expect_finding(self, rows: str, headers: dict[str, str], *lines: str) -> None:
        self.assertEqual(run_on(FIELDS + rows, headers), (1, list(lines)))

    def test_each_kind_is_found(self):
        for kind, names in {
            "column": ["x0", "y0", "x1", "toolname"],
            "variable": ["markerx", "markery", "sized", "count"],
            "routine": ["AddSeg", "swapValues", "twice"],
            "type": ["Store", "Side"],
        }.items():
            for name in names:
                with self.subTest(kind=kind, name=name):
                    rows = f"{name},{kind},core/store.h,,meaning\n"
                    self.assertEqual(run_on(FIELDS + rows, {"core/store.h": STORE}), CLEAN)

    def test_settings_are_lines_of_the_list(self):
        rows = "cfg_depth,setting,core/settings_list.h,,meaning\n"
        text = '#define TESSIMO_SETTINGS(SETTING) \\\n  SETTING(cfg_depth, float, "final depth")\n'
        self.assertEqual(run_on(FIELDS + rows, {"core/settings_list.h": text}), CLEAN)

    def test_neither_use_nor_parameter_nor_comment_is_a_declaration(self):
        for kind, names in {
            "routine": ["distance", "nonZero", "use"],
            "variable": ["side", "d", "commented", "store", "x0"],
            "column": ["markerx"],
            "type": ["Drawn", "Settings"],
        }.items():
            for name in names:
                with self.subTest(kind=kind, name=name):
                    self.expect_finding(
                        f"{name},{kind},core/store.h,,meaning\n",
                        {"core/store.h": STORE},
                        f"docs/names.csv:2: {name}: no such {kind} in core/store.h",
                    )

    def test_second_declaration_is_found(self):
        self.expect_finding(
            "AddSeg,routine,core/store.h,,meaning\n",
            {"core/store.h": STORE, "shell/b.h": "int AddSeg(int row);\n"},
            "docs/names.csv:2: AddSeg: also declared in shell/b.h",
        )

    def test_announcement_of_an_interface_is_no_second_declaration(self):
        headers = {
            "core/store.h": STORE,
            "core/listener.h": "class L {\n  virtual void AddSeg() {}\n};\n",
            "shell/b.h": "class B : L {\n  void AddSeg() override;\n};\n",
        }
        rows = "AddSeg,routine,core/store.h,,meaning\n"
        self.assertEqual(run_on(FIELDS + rows, headers), CLEAN)

    def test_member_of_another_class_may_share_the_name(self):
        members = "  int AddSeg(int row) const;\n  float x0;\n  bool sized;\n"
        other = "namespace n {\nclass Index {\n" + members + "};\n}\n"
        for row in ["AddSeg,routine", "x0,column", "sized,variable"]:
            with self.subTest(row=row):
                headers = {"core/store.h": STORE, "core/index.h": other}
                self.assertEqual(run_on(f"{FIELDS}{row},core/store.h,,meaning\n", headers), CLEAN)

    def test_field_twice_in_its_header_is_found(self):
        self.expect_finding(
            "count,variable,core/store.h,,meaning\n",
            {"core/store.h": STORE + "struct B {\n  int count = 0;\n};\n"},
            "docs/names.csv:2: count: declared 2 times in core/store.h",
        )

    def test_routine_of_a_namespace_is_found_there(self):
        self.expect_finding(
            "AddSeg,routine,core/store.h,,meaning\n",
            {
                "core/store.h": STORE,
                "core/b.h": "namespace n {\nstruct P {\n};\nint AddSeg(int);\n}\n",
            },
            "docs/names.csv:2: AddSeg: also declared in core/b.h",
        )

    def test_wrong_header_is_found(self):
        self.expect_finding(
            "AddSeg,routine,core/other.h,,meaning\n",
            {"core/store.h": STORE},
            "docs/names.csv:2: AddSeg: no such routine in core/other.h",
            "docs/names.csv:2: AddSeg: also declared in core/store.h",
        )

    def test_faults_of_the_list_itself_are_found(self):
        row = "AddSeg,routine,core/store.h,,meaning\n"
        for rows, finding in {
            row + row: "docs/names.csv:3: AddSeg: listed twice",
            "AddSeg,odd,core/store.h,,meaning\n": "docs/names.csv:2: AddSeg: unknown kind 'odd'",
            "AddSeg,routine,core/store.h,,\n": "docs/names.csv:2: AddSeg: no meaning",
            "AddSeg,routine,core/store.h\n": "docs/names.csv:2: not 5 fields",
            "": "docs/names.csv:1: no names",
        }.items():
            with self.subTest(finding=finding):
                self.expect_finding(rows, {"core/store.h": STORE}, finding)

    def test_other_columns_are_refused(self):
        self.assertEqual(
            run_on("name,kind\nAddSeg,routine\n", {"core/store.h": STORE}),
            (1, ["docs/names.csv:1: the columns are not name,kind,header,unit,meaning"]),
        )


if __name__ == "__main__":
    unittest.main()
