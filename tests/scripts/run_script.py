#!/usr/bin/env python3
"""Runs one script through the real program and holds what it does against the script's first lines.

Usage: run_script.py PROGRAM SCRIPT.lua

The comment lines at the top of the script say what is expected, in any order:

    -- args: WORD ...     the script's arguments
    -- options: WORD ...  of the program, in front of --run
    -- status: N          exit status, 0 unless given
    -- out: TEXT          a line of standard output; all of them, in their order
    -- err: TEXT          a line of standard error; none unless given

{script}, {folder} and {home} stand for the script's path, its folder and the program's folder. The
script runs from a copy in a folder of its own, on a fresh copy of home/, without a display.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

DIRECTIVE = re.compile(r"-- (args|options|status|out|err):(?: (.*))?$")
SECONDS = 400  # a hang; under sanitizers a busy machine takes long for anything


def expectations(script: Path) -> dict[str, list[str]]:
    found: dict[str, list[str]] = {"args": [], "options": [], "status": [], "out": [], "err": []}
    for line in script.read_text(encoding="utf-8").splitlines():
        if not line.startswith("--"):
            break
        if match := DIRECTIVE.match(line):
            found[match.group(1)].append(match.group(2) or "")
    return found


def quiet_environment(folder: Path) -> dict[str, str]:
    kept = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
    return kept | {"PATH": os.environ["PATH"], "HOME": str(folder)}


def differences(name: str, expected: list[str], got: str) -> list[str]:
    lines = got.splitlines()
    if lines == expected:
        return []
    return [f"{name} differs", *(f"  expected: {line}" for line in expected),
            *(f"  got:      {line}" for line in lines)]


def check(program: str, script: Path, work: Path) -> list[str]:
    home, folder = work / "home", work / "scripts"
    shutil.copytree(script.parent / "home", home)
    folder.mkdir()
    copy = Path(shutil.copy(script, folder))
    expected = expectations(script)
    places = {"script": str(copy), "folder": f"{folder}/", "home": f"{home}/"}

    def filled(name: str) -> list[str]:
        return [line.format_map(places) if "{" in line else line for line in expected[name]]

    words = " ".join(filled("options")).split()
    arguments = " ".join(filled("args")).split()
    run = subprocess.run(
        [program, "--home", str(home), *words, "--run", str(copy), *arguments],
        capture_output=True, text=True, timeout=SECONDS, cwd=folder, env=quiet_environment(work),
        check=False)
    status = int((expected["status"] or ["0"])[0])
    found = [] if run.returncode == status else [f"status {run.returncode}, expected {status}"]
    return (found + differences("standard output", filled("out"), run.stdout)
            + differences("standard error", filled("err"), run.stderr))


def main() -> int:
    program, script = sys.argv[1], Path(sys.argv[2]).resolve()
    with tempfile.TemporaryDirectory(prefix="tessimo-") as work:
        found = check(program, script, Path(work))
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
