"""The rule of changes finds every way round the one type, in small trees."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_changes"


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


class CheckChanges(unittest.TestCase):
    def expect_clean(self, text: str, file: str = "toolpath/a.cpp") -> None:
        self.assertEqual(
            run_on({file: text}), (0, ["check_changes: rows change through one type"]), text
        )

    def expect_found(self, what: str, text: str, file: str = "toolpath/a.cpp", line: int = 1):
        finding = f"{file}:{line}: {what}: rows change through drafting/change.h"
        self.assertEqual(run_on({file: text}), (1, [finding]), text)

    def test_counters_and_the_mark_of_saved_work(self):
        for name in ["NumSegments", "NumPathSegments", "drawingsaved"]:
            self.expect_found(f"sets {name}", f"store.{name} = 0;")
            self.expect_found(f"sets {name}", f"context.store.{name} -= 2;", file="shell/qt/a.cpp")
        self.expect_found("sets NumSegments", "++store.NumSegments;")
        self.expect_found("sets NumSegments", "store.NumSegments--;")
        self.expect_found("sets drawingsaved", "\n\nstore_.drawingsaved\n    = true;", line=3)
        self.expect_found("hands out NumSegments", "Int16& rows = store.NumSegments;")
        self.expect_found("hands out drawingsaved", "auto& saved{store.drawingsaved};")

    def test_columns(self):
        for column in ["segattr", "x0", "centery", "pscode", "psz", "psvisible"]:
            self.expect_found(f"writes {column}[row]", f"store.{column}[row] = 1;")
        self.expect_found("writes x1[sg + 1]", "cam.store.x1[sg + 1] += dx;")
        self.expect_found("writes psx0[a]", "std::swap(store.psx0[a], store.psx1[a]);")
        self.expect_found("hands out segattr[sg]", "Int16& state = store.segattr[sg];")

    def test_routines(self):
        for routine in ["AddSeg", "addPathSegment", "setPathRow", "logSegment", "performEdit"]:
            self.expect_found(f"calls {routine}", f"{routine}(store, row);", file="import/a.h")
        self.expect_found("calls logRecord", "context.changelog.logRecord(record, true);")
        self.expect_found("calls roundall", "roundall(cam.store);")
        self.expect_found("calls AddSeg", "AddSeg(store, row, nullptr);", file="core/units.cpp")

    def test_reading_is_free(self):
        self.expect_clean("if (store.NumSegments == 0 || !store.drawingsaved) return;")
        self.expect_clean("const Int16& rows = store.NumSegments;")
        self.expect_clean("for (int sg = 1; sg <= store.NumSegments; ++sg) use(store.x0[sg]);")
        self.expect_clean("const int attr = store.segattr[sg];\nif (store.psz[ps] >= z) low = 1;")
        self.expect_clean("change.roundall(); cam.roundall(); change.segments.append(row);")

    def test_comments_and_texts_are_free(self):
        self.expect_clean('// store.NumSegments = 0;\n/* AddSeg(store); */ say("x0[1] = 2");')

    def test_a_comment_moves_no_line(self):
        self.expect_found("calls AddSeg", "/* one\ntwo */\nAddSeg(store, row);", line=3)

    def test_the_store_and_the_type_may(self):
        for file in ["core/lifecycle.cpp", "drafting/change.cpp", "drafting/row_edit.cpp"]:
            status, _ = run_on({file: "store.NumSegments = 0;", "display/a.cpp": "int a;"})
            self.assertEqual(status, 0, file)

    def test_nothing_to_read_is_an_error(self):
        status, lines = run_on({"docs/a.md": "store.NumSegments = 0;"})
        self.assertEqual(status, 1)
        self.assertIn("no source files", lines[0])


if __name__ == "__main__":
    unittest.main()
