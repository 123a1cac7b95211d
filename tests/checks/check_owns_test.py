"""Owns lists that drift and types that are defined twice are found, and only those, in small trees
made here."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_owns"
CLEAN = "check_owns: every header names what it declares; no type is twice"

# One of each thing that a header may own, with what must not be taken for one.
RICH = """// Everything at once.
// Owns: TESSIMO_LIST, kMin, Kind, Box, Pair, Rows, area, grown, log, shared, printed, Plain.
#pragma once

#include <string>

#define TESSIMO_LIST(LINE) \\
  LINE(one)                \\
  LINE(two)
#define TESSIMO_HERE 1
#undef TESSIMO_HERE

namespace tess {

class Announced;
struct AlsoAnnounced;
enum class Late : int;
template <typename T>
class Column;

inline constexpr std::size_t kMin = std::size_t{1} << 20;
enum class Kind { Line, Arc };  // a comment with "int notOurs();"

// A class with members that are nobody's names outside.
class Box final : public Kind2<Kind, int> {
 public:
  explicit Box(int wide = 1) : wide_(wide) {}
  int area() const { return wide_; }
  struct Corner {
    int x;
  };
  friend bool operator==(const Box&, const Box&) = default;

 private:
  int wide_ = 0;
};

template <typename T>
struct Pair {
  T first, second;
};
template <>
struct Pair<int> {
  int both;
};
using Rows = std::vector<Pair<Box>>;
using std::string;

constexpr int area(const Box& box) {
  const char brace = '{';
  struct Local {};
  return brace + static_cast<int>(R"(int inText;)"[0]);
}
std::vector<int> grown(std::vector<int> values, const Box& by = {}, int (*turn)(int) = nullptr);
std::vector<int> grown(std::vector<int> values, const Pair<int>& by);
bool operator<(const Box& a, const Box& b);
template <typename... Parts>
void log(Parts&&... parts) {
  (void)sizeof...(parts);
}
extern template class Column<float>;
extern Box shared;

namespace {
int nobodyElses();
}  // namespace

namespace testing {
void printed(const Box& box);
}  // namespace testing

struct Plain {
  int value = 0;
} inline plainly{};

}  // namespace tess
"""


def header(owns: str, body: str) -> str:
    return f"// A header.\n// Owns: {owns}.\n#pragma once\n\nnamespace tess {{\n\n{body}\n\n}}\n"


class CheckOwns(unittest.TestCase):
    maxDiff = None

    def run_on(self, tree: dict[str, str], *options: str) -> tuple[int, list[str], dict[str, str]]:
        """Exit status and output lines of the check, and the tree afterwards."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in tree.items():
                file = Path(folder) / name
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            command = [sys.executable, SCRIPT, *options, folder]
            result = subprocess.run(command, capture_output=True, text=True, check=False)
            after = {name: (Path(folder) / name).read_text() for name in tree}
            return result.returncode, result.stdout.splitlines(), after

    def expect_clean(self, tree: dict[str, str]) -> None:
        self.assertEqual(self.run_on(tree)[:2], (0, [CLEAN]))

    def expect_finding(self, tree: dict[str, str], *lines: str) -> None:
        self.assertEqual(self.run_on(tree)[:2], (1, list(lines)))

    def test_every_kind_of_declaration_is_known(self):
        self.expect_clean({"core/rich.h": RICH})

    def test_a_declaration_that_the_list_lacks_is_found_where_it_stands(self):
        for body, name in [
            ("struct Extra {};", "Extra"),
            ("class Extra : public Base {};", "Extra"),
            ("enum class Extra { One };", "Extra"),
            ("using Extra = int;", "Extra"),
            ("int extra(int a);", "extra"),
            ("inline int extra(int a) {\n  return a;\n}", "extra"),
            ("inline constexpr int kExtra = 1;", "kExtra"),
            ("inline constexpr int kExtra[] = {1, 2};", "kExtra"),
            ("#define EXTRA 1", "EXTRA"),
        ]:
            with self.subTest(body=body):
                self.expect_finding(
                    {"core/a.h": header("Box", f"struct Box {{}};\n{body}")},
                    f"core/a.h:8: declares '{name}', which its Owns list lacks",
                )

    def test_a_name_that_is_not_declared_is_found_at_the_list(self):
        for gone in ["Gone", "the lists of each room"]:
            self.expect_finding(
                {"core/a.h": header(f"{gone}, Box", "struct Box {};\nstruct Gone2;")},
                f"core/a.h:2: owns '{gone}', which it does not declare",
            )

    def test_another_order_or_form_is_found_at_the_list(self):
        body = "struct Box {};\nstruct Line {};"
        for owns in ["Line, Box", "Box, Line, Box", "Box,Line", "Box,\n//       Line"]:
            with self.subTest(owns=owns):
                self.expect_finding(
                    {"core/a.h": header(owns, body)},
                    "core/a.h:2: owns what it declares, but not once each in that order and form",
                )

    def test_a_header_without_a_list_is_found(self):
        self.expect_finding({"core/a.h": "// A header.\n#pragma once\n"}, "core/a.h:1: no Owns list")

    def test_a_list_of_several_lines_is_one(self):
        names = [f"routineOfALongName{n}" for n in range(5)]
        owns = f"{', '.join(names[:4])},\n//       {names[4]}"
        self.expect_clean({"core/a.h": header(owns, "\n".join(f"void {n}();" for n in names))})

    def test_sources_need_no_list(self):
        self.expect_clean({"core/a.cpp": "namespace tess {\nint extra() {\n  return 1;\n}\n}\n"})

    def test_a_type_of_two_files_is_found(self):
        for kind in ["struct", "class", "enum class", "union"]:
            with self.subTest(kind=kind):
                source = f"namespace tess {{\n\n{kind} Box {{}};\n\n}}\n"
                self.expect_finding(
                    {
                        "core/a.h": header("Box", "struct Box {};"),
                        "import/b.cpp": source,
                    },
                    "import/b.cpp:3: type 'tess::Box' is defined in core/a.h:7 too",
                )

    def test_types_of_other_namespaces_or_of_one_file_alone_are_free(self):
        self.expect_clean(
            {
                "core/a.h": header("Box", "struct Box {};"),
                "core/a.cpp": "namespace tess {\nstruct Box::Corner {};\nstruct Box;\n}\n",
                "core/b.cpp": "namespace tess {\nnamespace {\nstruct Box {};\n}\n}\n",
                "core/c.cpp": "namespace tess::testing {\nstruct Box {};\n}\n",
                "core/d.cpp": "namespace tess {\nvoid f() {\n  struct Box {};\n}\n}\n",
            }
        )

    def test_fix_writes_the_list_in_the_order_of_declarations_to_the_width_of_a_line(self):
        long = [f"routineOfALongName{n}" for n in range(6)]
        body = "struct Late {};\nstruct Box {};\n" + "\n".join(f"void {n}();" for n in long)
        status, lines, after = self.run_on({"core/a.h": header("Box, Gone", body)}, "--fix")
        self.assertEqual((status, lines), (0, [CLEAN]))
        written, rest = after["core/a.h"].split("#pragma")
        self.assertEqual(
            written,
            "// A header.\n// Owns: Late, Box, routineOfALongName0, routineOfALongName1, "
            "routineOfALongName2,\n//       routineOfALongName3, routineOfALongName4, "
            "routineOfALongName5.\n",
        )
        self.assertEqual(rest, header("", body).split("#pragma")[1])

    def test_fix_leaves_what_no_list_can_mend(self):
        tree = {
            "core/a.h": "// A header.\n#pragma once\n",
            "core/b.h": header("Box", "struct Box {};"),
            "core/c.cpp": "namespace tess {\nstruct Box {};\n}\n",
        }
        status, lines, after = self.run_on(tree, "--fix")
        self.assertEqual(status, 1)
        self.assertEqual(
            lines,
            [
                "core/a.h:1: no Owns list",
                "core/c.cpp:2: type 'tess::Box' is defined in core/b.h:7 too",
            ],
        )
        self.assertEqual(after, tree)

    def test_a_tree_without_sources_is_refused(self):
        status, lines, _ = self.run_on({"README.md": ""})
        self.assertEqual(status, 1)
        self.assertIn("no source files", lines[0])


if __name__ == "__main__":
    unittest.main()
