"""A pattern for tests is turned into the targets that its tests need, and no others."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "test_targets"

SOURCES = {
    "core/text_test.cpp": "TEST(Text, IsTrimmed) {\n",
    "shell/automation/job_test.cpp": """
TEST_P(Jobs, EndWell) {
}
const Job kJobs[] = {{"flange", 1}, {"plate", 2}};
INSTANTIATE_TEST_SUITE_P(Examples, Jobs, ::testing::ValuesIn(kJobs));
""",
    "geometry/points_test.cpp": """
TEST_F(Points,
       AreNear) {
RC_GTEST_PROP(PointsProperty, TurnBack, ()) {
RC_GTEST_FIXTURE_PROP(PointsFixture, Meet, ()) {
""",
    "geometry/rows.h": "// TEST(NoTest, OfAHeader)\n",
}

# What ctest knows: a case of a program that was built, a program that was not, the program itself,
# and a check that needs neither.
LISTED = """
add_test([=[Old.CaseThatStands]=] "{build}/tests/core_tests" "--gtest_filter=Old.CaseThatStands")
add_test(display_tests_NOT_BUILT display_tests_NOT_BUILT)
add_test(jobs.golden_rows "python3" "{root}/tests/jobs_test.py" "{build}/bin/tessimo" "{build}/p")
add_test(rules.includes "python3" "{root}/scripts/check_includes")
"""


class TestTargets(unittest.TestCase):
    def expect(self, pattern: str, *targets: str) -> None:
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder).resolve()
            for name, text in SOURCES.items():
                file = root / "tests" / name
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            build = root / "build"
            build.mkdir()
            listed = LISTED.format(build=build, root=root)
            (build / "CTestTestfile.cmake").write_text(listed)
            (build / "tests").mkdir()
            (build / "tests" / "core_tests").write_text("")
            (build / "tests" / "core_tests").chmod(0o755)
            command = [sys.executable, SCRIPT, build, pattern, root]
            result = subprocess.run(command, capture_output=True, text=True, check=True)
            self.assertEqual(result.stdout.splitlines(), list(targets), pattern)

    def test_a_suite_or_a_case_needs_the_program_of_its_room(self):
        for pattern in ("Text", "^Text\\.Is", "IsTrimmed$"):
            self.expect(pattern, "tests/core_tests")

    def test_a_test_may_be_of_any_kind(self):
        for pattern in ("Points.AreNear", "TurnBack", "PointsFixture.Meet"):
            self.expect(pattern, "tests/geometry_tests")

    def test_parameters_belong_to_the_name(self):
        for pattern in ("Examples/Jobs", "Jobs.EndWell/", "plate"):
            self.expect(pattern, "tests/shell_automation_tests")

    def test_names_of_several_rooms_need_all_their_programs(self):
        self.expect("Text|Points", "tests/core_tests", "tests/geometry_tests")

    def test_what_ctest_knows_counts_though_no_source_has_it(self):
        self.expect("CaseThatStands", "tests/core_tests")

    def test_a_script_needs_the_program_that_it_starts(self):
        self.expect("golden_rows", "bin/tessimo")

    def test_a_check_of_the_tree_needs_no_build(self):
        self.expect("rules")

    def test_a_name_that_nobody_has_needs_everything(self):
        for pattern in ("NoTest", "Unheard", "display_tests"):
            self.expect(pattern, "all")


if __name__ == "__main__":
    unittest.main()
