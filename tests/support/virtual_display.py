"""A display without a screen, with a window manager, for programs that are worked from outside.

Owns: cpu_of, wait_until_idle, VirtualDisplay.
"""

import os
import subprocess
import tempfile
import time
from pathlib import Path


def cpu_of_thread(task: Path) -> int:
    """Nanoseconds; none of a thread that has ended since its process was looked at."""
    try:
        return int(task.joinpath("schedstat").read_text().split()[0])
    except (FileNotFoundError, ProcessLookupError):
        return 0


def cpu_of(pid: int) -> float:
    """Milliseconds that all threads of a process have worked."""
    return sum(cpu_of_thread(task) for task in Path(f"/proc/{pid}/task").iterdir()) / 1e6


class VirtualDisplay:
    """Xvfb and openbox while the `with` block lasts; `environment` is for programs on it."""

    def __init__(self, width: int = 1920, height: int = 1080) -> None:
        self.size = f"{width}x{height}x24"
        self.environment: dict[str, str] = {}

    def __enter__(self) -> "VirtualDisplay":
        self.folder = tempfile.TemporaryDirectory(prefix="tessimo-")
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", self.size, "-nolisten", "tcp"],
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
        return self

    def __exit__(self, *_: object) -> None:
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def tool(self, *arguments: str) -> str:
        """Runs xdotool and gives what it prints."""
        return subprocess.run(["xdotool", *arguments], env=self.environment, check=True,
                              capture_output=True, text=True).stdout.strip()


def wait_until_idle(pid: int, quiet: float, patience: float = 60) -> float:
    """Waits until a process has slept for `quiet` seconds. Gives when it last worked, in the time
    of the monotonic clock."""
    deadline = time.monotonic() + patience
    worked, cpu = time.monotonic(), 0.0
    while time.monotonic() - worked < quiet:
        if time.monotonic() > deadline:
            raise TimeoutError("the program does not come to rest")
        time.sleep(0.005)
        state = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[0]
        now = cpu_of(pid)
        if now != cpu or state == "R":  # less than before: a thread has ended
            worked, cpu = time.monotonic(), now
    return worked
