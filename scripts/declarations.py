"""What C++ files declare at the level of namespaces, for the checks of the tree.

It knows the layout that check_format keeps and no more of the language than the tree uses.
"""

import re
from typing import NamedTuple

from source_tree import code_of, kept_lines, line_of

DIRECTIVE = re.compile(r"^[ \t]*#(?:\\\n|[^\n])*", re.MULTILINE)
MACRO = re.compile(r"^[ \t]*#[ \t]*define[ \t]+(\w+)", re.MULTILINE)

NAMESPACE = re.compile(r"^(?:inline\s+)?namespace\s*([\w:]*)$")
TYPE = re.compile(r"\b(?:struct|class|union|enum(?:\s+(?:class|struct))?)\s+(\w+)\b(?!\s*::\w)[^()=]*$")
ALIAS = re.compile(r"^(?:template\s*<.*>\s*)?using\s+(\w+)\s*=", re.DOTALL)
TEMPLATE = re.compile(r"<[^<>]*>")
PARENTHESES = re.compile(r"\([^()]*\)")
NO_DECLARATION = re.compile(r"^(?:using|friend|static_assert|extern template)\b|\boperator\b")
ANNOUNCED = re.compile(r"(?:(?:extern\s+)?template\s*)?(?:struct|class|enum|union)\s[\w\s:]+", re.DOTALL)
ANYTHING = "{}"  # what follows a body that is not a routine's


class Declaration(NamedTuple):
    kind: str  # "type", "alias", "routine", "variable" or "macro"
    name: str
    line: int  # from 1
    scope: str  # the namespaces, as "tess::testing"; "" for a macro
    local: bool  # within a namespace without a name: nobody else can mean it


def without(pattern: re.Pattern, code: str) -> str:
    """The code without what the pattern finds, from the inside out."""
    while (shorter := pattern.sub(" ", code)) != code:
        code = shorter
    return code


def declared_by(statement: str) -> tuple[str, str] | None:
    """Kind and name of what a statement declares; None when it only announces what others own."""
    if alias := ALIAS.match(statement):
        return "alias", alias[1]
    bare = without(TEMPLATE, statement)
    if NO_DECLARATION.search(bare) or ANNOUNCED.fullmatch(bare):
        return None
    head, parenthesis, _ = bare.partition("(")
    if "=" in head or not parenthesis:
        words = re.split(r"[=\[]", bare)[0].split()
        return ("variable", words[-1].strip("&*")) if len(words) > 1 else None
    words = re.findall(r"[\w:~]+", head)
    return ("routine", words[-1]) if len(words) > 1 and "::" not in words[-1] else None


def defined_by(head: str) -> tuple[str, str] | None:
    """The same for what stands in front of a body."""
    if found := TYPE.search(without(TEMPLATE, head)):
        specialised = re.search(rf"\b{found[1]}\s*<", head)
        return None if specialised else ("type", found[1])
    return declared_by(head)


class Reader:
    """Walks through the code of one file and keeps what is declared outside all bodies."""

    def __init__(self, text: str):
        self.code = DIRECTIVE.sub(kept_lines, code_of(text))
        self.found: list[Declaration] = []
        self._scopes: list[str] = []  # of the namespaces that are open
        self._statement = ""
        self._start = 0  # of the statement
        self._depth = 0  # of bodies
        self._parentheses = 0
        for at, letter in enumerate(self.code):
            if self._depth > 0:
                self._depth += {"{": 1, "}": -1}.get(letter, 0)
            else:
                self._take(at, letter)

    def _take(self, at: int, letter: str) -> None:
        self._parentheses += {"(": 1, ")": -1}.get(letter, 0)
        if self._parentheses > 0 or letter not in "{};":
            if not self._statement.strip():
                self._start = at
            self._statement += letter
        elif letter == "{":
            self._open()
        elif letter == ";":
            self._keep(declared_by(self._statement.strip()))
        else:
            self._scopes.pop()
            self._statement = ""

    def _open(self) -> None:
        head = self._statement.strip()
        if space := NAMESPACE.match(head):
            self._scopes.append(space[1])
            self._statement = ""
            return
        self._depth = 1
        found = defined_by(head)
        self._keep(found)
        if found is None or found[0] != "routine":
            self._statement = ANYTHING  # up to the semicolon

    def _keep(self, found: tuple[str, str] | None) -> None:
        if found is not None and not self._statement.startswith(ANYTHING):
            scope = "::".join(filter(None, self._scopes))
            line = line_of(self.code, self._start)
            self.found.append(Declaration(*found, line, scope, "" in self._scopes))
        self._statement = ""


def macros(text: str) -> list[Declaration]:
    """The macros that outlive their file."""
    return [
        Declaration("macro", macro[1], line_of(text, macro.start()), "", False)
        for macro in MACRO.finditer(text)
        if not re.search(rf"^[ \t]*#[ \t]*undef[ \t]+{macro[1]}\b", text, re.MULTILINE)
    ]


def declarations(text: str) -> list[Declaration]:
    """All of one file, in the order of their lines."""
    return sorted(macros(text) + Reader(text).found, key=lambda found: found.line)
