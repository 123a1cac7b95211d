"""A display without a screen, with a window manager, for programs that are worked from outside.

Owns: cpu_of, wait_until, wait_until_idle, VirtualDisplay.
"""

import os
import subprocess
import tempfile
import time
from collections.abc import Callable
from pathlib import Path

# How long to wait for what must come, in seconds. It only tells a program that hangs from one that
# is slow: under sanitizers, on a machine that is busy with other things, a start takes a minute.
PATIENCE = 400
POLL = 0.005

# What a thread has worked by process and number, in nanoseconds.
Work = dict[tuple[int, str], int]


def work_of_thread(task: Path) -> tuple[int, bool] | None:
    """Nanoseconds, and whether it is at work: it runs, waits for a processor, or for the disk.
    Nothing of a thread that has ended since its process was looked at."""
    try:
        worked = int(task.joinpath("schedstat").read_text().split()[0])
        state = task.joinpath("stat").read_text().rpartition(")")[2].split()[0]
    except (FileNotFoundError, ProcessLookupError):
        return None
    return worked, state in "RD"


def work_of(processes: list[int]) -> tuple[Work, bool]:
    """What all threads have worked, and whether one is at work."""
    work: Work = {}
    busy = False
    for process in processes:
        for task in Path(f"/proc/{process}/task").iterdir():
            if (thread := work_of_thread(task)) is not None:
                work[process, task.name] = thread[0]
                busy |= thread[1]
    return work, busy


def cpu_of(process: int) -> float:
    """Milliseconds that all threads of a process have worked."""
    return sum(work_of([process])[0].values()) / 1e6


def wait_until_idle(processes: list[int], quiet: float) -> float:
    """Waits until all these processes have slept for `quiet` seconds together. Gives when one last
    worked, in the time of the monotonic clock."""
    deadline = time.monotonic() + PATIENCE
    worked, before = time.monotonic(), Work()
    while time.monotonic() - worked < quiet:
        if time.monotonic() > deadline:
            raise TimeoutError("the program does not come to rest")
        time.sleep(POLL)
        now, busy = work_of(processes)
        if busy or now != before:
            worked, before = time.monotonic(), now
    return worked


def wait_until(holds: Callable[[], bool], what: str) -> None:
    """Waits for a state; `what` says which."""
    deadline = time.monotonic() + PATIENCE
    while not holds():
        if time.monotonic() > deadline:
            raise TimeoutError(f"it does not come to this: {what}")
        time.sleep(POLL)


class VirtualDisplay:
    """Xvfb and openbox while the `with` block lasts; `environment` is for programs on it."""

    def __init__(self, width: int = 1920, height: int = 1080) -> None:
        self.size = f"{width}x{height}x24"
        self.environment: dict[str, str] = {}

    def __enter__(self) -> "VirtualDisplay":
        self.folder = tempfile.TemporaryDirectory(prefix="tessimo-")
        reading, writing = os.pipe()
        # Without the repetition of keys: one that is held too long by a busy machine is one key.
        # Without a new beginning when the only program on it ends: that throws out whoever comes
        # just then, as the window manager while it is asked for.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", self.size, "-nolisten", "tcp",
             "-r", "-noreset"],
            pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the virtual display did not start")
        self.environment = {"PATH": os.environ["PATH"], "HOME": self.folder.name,
                            "XDG_RUNTIME_DIR": self.folder.name, "DISPLAY": f":{number}"}
        self.environment |= {name: value for name, value in os.environ.items() if "SAN_" in name}
        self.manager = subprocess.Popen(["openbox"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self.answer("get_num_desktops") != "", "the window manager answers")
        return self

    def __exit__(self, *_: object) -> None:
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def tool(self, *arguments: str) -> None:
        """Has xdotool do something."""
        subprocess.run(["xdotool", *arguments], env=self.environment, check=True)

    def answer(self, *arguments: str) -> str:
        """What xdotool answers to a question; "" where there is no answer yet."""
        asked = subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True,
                               text=True)
        return asked.stdout.strip() if asked.returncode == 0 else ""

    def windows(self, title: str) -> list[str]:
        """The visible windows whose title begins so."""
        return self.answer("search", "--onlyvisible", "--name", f"^{title}").split()

    def activate(self, window: str) -> None:
        """Gives the keyboard to a window."""
        self.tool("windowactivate", window)
        for question in ("getactivewindow", "getwindowfocus"):
            wait_until(lambda asked=question: self.answer(asked) == window,
                       f"{question} is the window")

    def settle(self, process: int, quiet: float) -> None:
        """Waits until a process and all that it hears of the keys and the pointer from, and shows
        its windows by, have slept for `quiet` seconds together."""
        wait_until_idle([process, self.server.pid, self.manager.pid], quiet)
