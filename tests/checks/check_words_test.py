"""The rule of words finds a G or M word in any text but those of the writer, in small trees."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_words"


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


class CheckWords(unittest.TestCase):
    def expect_clean(self, tree: dict[str, str]) -> None:
        self.assertEqual(run_on(tree), (0, ["check_words: programs are written in one place"]))

    def expect_word(self, word: str, text: str, file: str = "cnc/a.cpp", line: int = 1) -> None:
        only = "cnc/program_writer.cpp, cnc/cnc_line.cpp and cnc/dialect.cpp only"
        self.assertEqual(
            run_on({file: text}), (1, [f"{file}:{line}: the word {word} is for {only}"])
        )

    def test_the_writer_has_its_words(self):
        self.expect_clean(
            {"cnc/program_writer.cpp": 'put("G00");', "cnc/cnc_line.cpp": 'is("G92", "M03");'}
        )

    def test_words_are_found_in_every_room(self):
        self.expect_word("G00", 'put("G00");')
        self.expect_word("M06", '\n\nline("  M06 T" + number);', line=3)
        self.expect_word("G1", 'put("%G1");', file="toolpath/a.h")
        self.expect_word("M5", 'put("M5");', file="shell/qt/a.cpp")

    def test_a_word_in_the_making_is_found_below_the_shell(self):
        self.expect_word("G", 'return "G" + std::to_string(number);')
        self.expect_clean({"shell/tool_bands.cpp": '{"VGrid", "Visual Grid", "G"},'})

    def test_the_key_of_a_command_is_no_word(self):
        self.expect_clean({"drafting/a.cpp": '.info = {.key = "G"}, .info = {.sharedKey = "G"},'})
        self.expect_word("G", '.key = put("G"),', file="drafting/a.cpp")
        self.expect_word("G1", '.key = "G1",', file="drafting/a.cpp")

    def test_other_texts_and_comments_are_free(self):
        self.expect_clean(
            {
                "core/a.h": '// "G00" is a rapid.\n/* "M06"\n"G1" */ bool isMetric(I == "M");',
                "cnc/a.cpp": 'say("PNG1 and RGB8, Group 5"); // as in "G81"',
            }
        )

    def test_a_comment_moves_no_line(self):
        self.expect_word("G04", '/* one\ntwo */\nput("G04");', line=3)

    def test_nothing_to_read_is_an_error(self):
        status, lines = run_on({"docs/a.md": "G00"})
        self.assertEqual(status, 1)
        self.assertIn("no source files", lines[0])


if __name__ == "__main__":
    unittest.main()
