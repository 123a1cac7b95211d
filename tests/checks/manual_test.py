"""The manual has a place for every command, key, form and message of the program, and nothing that the
program does not have. What the program has is what it tells and what its sources show.

Usage: manual_test.py FACTS.txt MANUAL.pdf VERSION
"""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LISTS = ROOT / "docs" / "manual"
ROOMS = ("core", "geometry", "display", "drafting", "toolpath", "cnc", "import", "tools", "shell")
FACTS, MANUAL, VERSION = Path(), Path(), ""
ADD = "add a line to docs/manual/"


def listed(name: str, separator: str) -> list[str]:
    lines = (LISTS / name).read_text(encoding="utf-8").splitlines()
    return [line.split(separator, 1)[0].strip() for line in lines
            if line and not line.startswith("#")]


def told(kind: str) -> list[str]:
    """The names that the program tells of one kind."""
    lines = (line.split("\t") for line in FACTS.read_text(encoding="utf-8").splitlines())
    return [cells[1] for cells in lines if cells[0] == kind]


def forms() -> set[str]:
    """Forms have a name of their kind, which stands where they are made."""
    found: set[str] = set()
    for room in ROOMS:
        for path in (ROOT / room).glob("*.[ch]*"):
            code = re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
            found.update(re.findall(r'"((?:frm|[dD]lg)[A-Z]\w*)"', code))
            found.update(re.findall(r'\bForm\(\s*"(\w+)"', code))
    return found


def messages(root: Path) -> list[str]:
    answer = subprocess.run([ROOT / "scripts" / "list_messages", root], check=True, text=True,
                            stdout=subprocess.PIPE).stdout
    return [line.split("\t", 1)[1] for line in answer.splitlines()]


def place(name: str) -> str:
    return re.sub(r"[^A-Za-z0-9]", "_", name)


class Manual(unittest.TestCase):
    def assert_same(self, name: str, separator: str, wanted: list[str]) -> None:
        has = listed(name, separator)
        self.assertEqual([], sorted(set(wanted) - set(has)), f"not in the manual: {ADD}{name}")
        self.assertEqual([], sorted(set(has) - set(wanted)), f"of nothing in the program: {name}")
        self.assertEqual(len(has), len(set(has)), f"twice in {name}")

    def test_every_command_has_a_line(self) -> None:
        self.assertGreater(len(told("command")), 100)
        self.assert_same("commands.txt", ":", told("command"))

    def test_every_key_without_a_command_has_a_line(self) -> None:
        self.assertIn("Esc", told("key"))
        self.assert_same("keys.txt", ":", told("key"))

    def test_every_form_has_a_line(self) -> None:
        self.assertGreater(len(forms()), 30)
        self.assert_same("forms.txt", ":", sorted(forms()))

    def test_every_message_has_a_line(self) -> None:
        self.assertGreater(len(messages(ROOT)), 80)
        self.assert_same("messages.txt", " | ", messages(ROOT))

    def test_no_explanation_is_empty(self) -> None:
        for name, separator in (("commands.txt", ":"), ("keys.txt", ":"), ("forms.txt", "|"),
                                ("messages.txt", " | ")):
            for line in (LISTS / name).read_text(encoding="utf-8").splitlines():
                if line and not line.startswith("#"):
                    self.assertGreater(len(line.partition(separator)[2].split()), 1, line)

    def test_the_document_has_a_place_for_each_of_them(self) -> None:
        document = MANUAL.read_bytes()
        pages = int(re.search(rb"/Type /Pages\s.*?/Count (\d+)", document, re.S)[1])
        self.assertGreater(pages, 50)
        names = re.search(rb"/Dests <<\s*/Names \[(.*?)\]\s*>>", document, re.S)[1]
        places = {name.decode() for name in re.findall(rb"\((\w+)\) \[ \d+ 0 R /XYZ", names)}
        wanted = {place(name) for name in [*told("command"), *forms()]}
        self.assertEqual(set(), wanted - places)

    def test_the_same_sources_make_the_same_document(self) -> None:
        with tempfile.TemporaryDirectory() as folder:
            again = Path(folder) / "again.pdf"
            subprocess.run([ROOT / "scripts" / "make_manual", FACTS, again, VERSION], check=True)
            self.assertEqual(again.read_bytes(), MANUAL.read_bytes())


class Messages(unittest.TestCase):
    """What the list finds in sources that are made for it."""

    def found_in(self, code: str) -> list[str]:
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "core").mkdir()
            (Path(folder) / "core" / "a.cpp").write_text(code, encoding="utf-8")
            return messages(Path(folder))

    def test_texts_of_the_call(self) -> None:
        self.assertEqual(["There is no tool ... in the chest."], self.found_in(
            'void f() {\n  prompts.showMessage({.text = "There is no tool " + name(1, 2) +\n'
            '      " in the "\n "chest.", .title = "Tool Chest of Mine"});\n}\n'))

    def test_constants(self) -> None:
        self.assertEqual(["Save it now, or never?"], self.found_in(
            'constexpr char kAsk[] = "Save it "\n    "now, or never?";\n'
            "void f() {\n  askUser(session, kAsk, kYesNo, answer);\n}\n"))

    def test_texts_that_are_handed_to_a_routine(self) -> None:
        self.assertEqual(["The pen is too long.", "The pen is too short."], self.found_in(
            "void tell(const std::string& text) {\n  prompts.showMessage({.text = text});\n}\n\n"
            'void g(bool b) {\n  tell(b ? "The pen is too long." : "The pen is too short.");\n}\n'))

    def test_texts_that_a_routine_makes(self) -> None:
        self.assertEqual(["Row ... has no length."], self.found_in(
            'std::string fault(int row) {\n  return "Row " + text(row) + " has no length.";\n}\n\n'
            "void g() {\n  const auto text = fault(1);\n  prompts.showMessage({.text = text});\n}\n"))

    def test_captions_are_no_messages(self) -> None:
        self.assertEqual([], self.found_in(
            'void g() {\n  tell("Rough Cut Pocket");\n  prompts.showMessage({.text = "All Rows"});\n}\n'))


if __name__ == "__main__":
    VERSION, MANUAL, FACTS = sys.argv.pop(), Path(sys.argv.pop()), Path(sys.argv.pop())
    unittest.main()
