#!/usr/bin/env python3
"""Measures starting up, the program against the bare window, under a virtual display of its own.

Usage: start_up.py PROGRAM BARE_WINDOW [RUNS]

The two start alternately. CPU is that of all threads until the program has had nothing to do for a
while; the time is from the start to the last work before that; the memory is the peak. Medians.
"""

import statistics
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests/support"))

from virtual_display import VirtualDisplay, cpu_of, wait_until_idle  # noqa: E402

QUIET = 0.6  # seconds without work: longer than any timer of a start but that of the splash


@dataclass
class Start:
    cpu: float  # milliseconds
    time: float  # milliseconds
    peak: float  # megabytes


def peak_of(pid: int) -> float:
    status = Path(f"/proc/{pid}/status").read_text()
    return int(status.split("VmHWM:")[1].split()[0]) / 1024


def start(command: list[str], environment: dict[str, str]) -> Start:
    began = time.monotonic()
    with subprocess.Popen(command, env=environment) as process:
        ready = wait_until_idle([process.pid], QUIET)
        figures = Start(cpu_of(process.pid), (ready - began) * 1000, peak_of(process.pid))
        process.terminate()
    return figures


def answer_first_start(program: str, display: VirtualDisplay) -> None:
    """The first window of a new operator asks for the control: that is no start to be measured."""
    home = Path(display.folder.name)
    script = home / "empty.lua"
    script.write_text("")
    subprocess.run([program, "--run", str(script)], env=display.environment, check=True)
    (home / ".local/share/tessimo/FirstStart.txt").unlink()


def median(starts: list[Start]) -> Start:
    return Start(*(statistics.median(getattr(one, field) for one in starts)
                   for field in ("cpu", "time", "peak")))


def main() -> None:
    program, bare = sys.argv[1], sys.argv[2]
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 11
    commands = {"bare window": [bare], "program": [program]}
    starts: dict[str, list[Start]] = {title: [] for title in commands}
    with VirtualDisplay() as display:
        answer_first_start(program, display)
        for _ in range(runs + 1):
            for title, command in commands.items():
                starts[title].append(start(command, display.environment))
    # The first of each reads its files from the disk.
    figures = {title: median(all_of[1:]) for title, all_of in starts.items()}
    for title, one in figures.items():
        print(f"{title:12} CPU {one.cpu:6.1f} ms, ready after {one.time:4.0f} ms, "
              f"peak {one.peak:5.1f} MB")
    ours, yardstick = figures["program"], figures["bare window"]
    print(f"{'ratio':12} CPU {ours.cpu / yardstick.cpu:6.2f}{'':25}"
          f"peak {ours.peak / yardstick.peak:5.2f}")


if __name__ == "__main__":
    main()
