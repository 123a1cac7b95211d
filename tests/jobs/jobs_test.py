#!/usr/bin/env python3
"""Runs the small jobs through the real program and holds their tables against golden/NAME.txt.

Usage: jobs_test.py PROGRAM PICTURES

Each job leaves its picture PICTURES/NAME.png. With TESSIMO_PROMOTE_GOLDENS set the tables are
written instead, and the test fails so that nobody takes that for a pass; scripts/promote_goldens
does this, and the difference is read in review.
"""

import difflib
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.dont_write_bytecode = True  # nothing beside the sources
sys.path.insert(0, str(HERE.parent / "scripts"))
from run_script import quiet_environment  # noqa: E402  (stands beside the other scripts' tests)

GOLDEN = HERE / "golden"
FEWEST_JOBS = 40  # a run that lost its jobs is no pass
SECONDS = 1200  # a hang; under sanitizers a busy machine takes long
HEAD = "== "


def tables_of(output: str) -> dict[str, str]:
    """The text of each job by its name, from "== NAME" to the next."""
    tables: dict[str, str] = {}
    name = ""
    for line in output.splitlines(keepends=True):
        if line.startswith(HEAD):
            name = line[len(HEAD):].strip()
            if name in tables:
                sys.exit(f"two jobs are called {name}")
            tables[name] = ""
        else:
            tables[name] += line
    return tables


def work(program: Path, pictures: Path) -> dict[str, str]:
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.glob("*.png"):
        old.unlink()
    with tempfile.TemporaryDirectory(prefix="tessimo-") as folder:
        home = Path(folder) / "home"
        shutil.copytree(HERE.parent / "scripts" / "home", home)
        run = subprocess.run(
            [str(program), "--home", str(home), "--allow-io", "--run", str(HERE / "run_jobs.lua"),
             str(pictures)],
            capture_output=True, text=True, timeout=SECONDS, cwd=folder,
            env=quiet_environment(Path(folder)), check=False)
    if run.returncode != 0 or run.stderr:
        sys.exit(f"status {run.returncode}\n{run.stderr}")
    return tables_of(run.stdout)


def reviewed() -> dict[str, str]:
    return {path.stem: path.read_text(encoding="utf-8") for path in GOLDEN.glob("*.txt")}


def promote(tables: dict[str, str]) -> None:
    for name in reviewed().keys() - tables.keys():
        (GOLDEN / f"{name}.txt").unlink()
    for name, table in tables.items():
        (GOLDEN / f"{name}.txt").write_text(table, encoding="utf-8")


def difference(name: str, expected: str, got: str) -> list[str]:
    if expected == got:
        return []
    lines = difflib.unified_diff(expected.splitlines(), got.splitlines(),
                                 f"golden/{name}.txt", "this run", lineterm="")
    return [*lines, ""]


def differences(expected: dict[str, str], got: dict[str, str]) -> list[str]:
    found = [f"{name} has no golden table" for name in got.keys() - expected.keys()]
    found += [f"golden/{name}.txt has no job" for name in expected.keys() - got.keys()]
    found.sort()
    for name in got:
        if name in expected:
            found += difference(name, expected[name], got[name])
    return found


def without_picture(names: list[str], pictures: Path) -> list[str]:
    return [f"{name} has no picture" for name in names
            if not (pictures / f"{name}.png").is_file()]


def main() -> int:
    program, pictures = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    tables = work(program, pictures)
    if "TESSIMO_PROMOTE_GOLDENS" in os.environ:
        promote(tables)
        print(f"promoted {len(tables)} tables")
        return 1
    found = differences(reviewed(), tables) + without_picture(list(tables), pictures)
    if len(tables) < FEWEST_JOBS:
        found.append(f"only {len(tables)} jobs")
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
