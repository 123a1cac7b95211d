#!/usr/bin/env python3
"""Measures starting up, the program against the bare window, under a virtual display of its own.

Usage: start_up.py PROGRAM BARE_WINDOW [RUNS]

The two start alternately. CPU is that of all threads until the program has had nothing to do for a
while; the time is from the start to the last work before that; the memory is the peak. Medians.
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

QUIET = 0.6  # seconds without work: longer than any timer of a start but that of the splash


@dataclass
class Start:
    cpu: float  # milliseconds
    time: float  # milliseconds
    peak: float  # megabytes


def cpu_of(pid: int) -> float:
    """Milliseconds of all threads of a process."""
    return sum(int(task.joinpath("schedstat").read_text().split()[0])
               for task in Path(f"/proc/{pid}/task").iterdir()) / 1e6


def peak_of(pid: int) -> float:
    status = Path(f"/proc/{pid}/status").read_text()
    return int(status.split("VmHWM:")[1].split()[0]) / 1024


def start(command: list[str], environment: dict[str, str]) -> Start:
    began = time.monotonic()
    with subprocess.Popen(command, env=environment) as process:
        worked, cpu = began, 0.0
        while time.monotonic() - worked < QUIET:
            time.sleep(0.005)
            now = cpu_of(process.pid)
            if now > cpu:
                worked, cpu = time.monotonic(), now
        figures = Start(cpu, (worked - began) * 1000, peak_of(process.pid))
        process.terminate()
    return figures


def median(starts: list[Start]) -> Start:
    return Start(*(statistics.median(getattr(one, field) for one in starts)
                   for field in ("cpu", "time", "peak")))


def display(folder: Path) -> tuple[subprocess.Popen[bytes], str]:
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1920x1080x24", "-nolisten", "tcp"],
        pass_fds=[writing], stderr=folder.joinpath("display.log").open("wb"))
    os.close(writing)
    with os.fdopen(reading) as answer:
        return server, ":" + answer.readline().strip()


def main() -> None:
    program, bare = sys.argv[1], sys.argv[2]
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 11
    with tempfile.TemporaryDirectory(prefix="tessimo-") as name:
        folder = Path(name)
        server, number = display(folder)
        environment = {"PATH": os.environ["PATH"], "HOME": name, "XDG_RUNTIME_DIR": name,
                       "DISPLAY": number}
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        commands = {"bare window": [bare], "program": [program]}
        starts: dict[str, list[Start]] = {title: [] for title in commands}
        try:
            for _ in range(runs + 1):
                for title, command in commands.items():
                    starts[title].append(start(command, environment))
        finally:
            manager.terminate()
            server.terminate()
            server.wait()
    # The first of each reads its files from the disk, and makes those of a new operator.
    figures = {title: median(all_of[1:]) for title, all_of in starts.items()}
    for title, one in figures.items():
        print(f"{title:12} CPU {one.cpu:6.1f} ms, ready after {one.time:4.0f} ms, "
              f"peak {one.peak:5.1f} MB")
    ours, yardstick = figures["program"], figures["bare window"]
    print(f"{'ratio':12} CPU {ours.cpu / yardstick.cpu:6.2f}{'':25}"
          f"peak {ours.peak / yardstick.peak:5.2f}")


if __name__ == "__main__":
    main()
