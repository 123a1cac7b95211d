"""What the checks of the tree share: its rooms, its files, its code without what is no code, and how
a check is started."""

import re
import sys
from collections.abc import Callable
from pathlib import Path

# Lowest first.
ROOMS = ["core", "geometry", "display", "drafting", "toolpath", "cnc", "import", "tools", "shell"]
# Folders beside the rooms; their files may include any room, and no room includes them.
OUTSIDE = ["bench", "examples", "fuzz", "tests"]

RAW_STRING = r'R"(?P<raw>\w*)\(.*?\)(?P=raw)"'
STRING = r'"(?:\\.|[^"\\\n])*"'
CHARACTER = r"(?<!\w)'(?:\\.|[^'\\\n])+'"  # after a digit the mark parts thousands
COMMENT = r"//[^\n]*|/\*.*?\*/"
NO_CODE = re.compile(f"{RAW_STRING}|{STRING}|{CHARACTER}|(?P<comment>{COMMENT})", re.DOTALL)


def source_files(root: Path, folders: list[str] = ROOMS, kinds: tuple[str, ...] = (".h", ".cpp")):
    found = [file for folder in folders for file in (root / folder).rglob("*")]
    return sorted(file for file in found if file.suffix in kinds)


def text_of(path: Path) -> str:
    return path.read_text(encoding="utf-8", errors="replace")


def without_comments(text: str) -> str:
    """The text with its lines as they are, but for comments."""
    return NO_CODE.sub(lambda found: kept_lines(found) if found["comment"] else found[0], text)


def code_of(text: str) -> str:
    """The text with its lines as they are, but without comments and what stands in quotes."""
    return NO_CODE.sub(lambda found: ("" if found["comment"] else '""') + kept_lines(found), text)


def kept_lines(found: re.Match) -> str:
    return "\n" * found[0].count("\n")


def line_of(text: str, place: int) -> int:
    """The line of that character, from 1."""
    return text.count("\n", 0, place) + 1


def run_check(findings_of: Callable[[Path], list[str]], clean: str, folders: list[str] = ROOMS) -> int:
    """Prints what the check finds below the folder that the command line names, else below the
    tree's own, or what holds when that is nothing. The exit status: 1 with findings, and where
    there is nothing to check."""
    name = Path(sys.argv[0]).name
    places = [argument for argument in sys.argv[1:] if not argument.startswith("-")]
    root = Path(places[0] if places else Path(__file__).parent.parent).resolve()
    if not source_files(root, folders):
        print(f"{name}: no source files under {root}")
        return 1
    findings = findings_of(root)
    print("\n".join(findings) or f"{name}: {clean}")
    return 1 if findings else 0
