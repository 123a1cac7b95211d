"""What a screen reader sees of a program: its windows, menus, buttons and texts, each with its
place on the screen, so that a test can point at them as an operator does.

Owns: Item, ScreenReader.
"""

import re
import subprocess
from collections.abc import Callable, Iterator

import dbus
import dbus.bus

from virtual_display import PATIENCE, wait_until

ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
TEXT = "org.a11y.atspi.Text"
VALUE = "org.freedesktop.DBus.Properties"
ON_SCREEN = dbus.UInt32(0)  # the origin of coordinates
# The bits of an item's state, as the protocol numbers them.
CHECKED, ENABLED, SHOWING = 4, 8, 25


class Item:
    """One thing on the screen. It may be gone at any time: asking it raises dbus.DBusException
    then."""

    def __init__(self, bus: dbus.bus.BusConnection, owner: str, path: str) -> None:
        self.bus = bus
        self.proxy = bus.get_object(owner, path, introspect=False)

    def ask(self, interface: str, question: str, *arguments: object) -> object:
        return self.proxy.get_dbus_method(question, interface)(*arguments, timeout=PATIENCE)

    @property
    def name(self) -> str:
        return str(self.ask(VALUE, "Get", ACCESSIBLE, "Name"))

    @property
    def role(self) -> str:
        return str(self.ask(ACCESSIBLE, "GetRoleName"))

    @property
    def text(self) -> str:
        """What is written in a field."""
        return str(self.ask(TEXT, "GetText", 0, -1))

    def has(self, state: int) -> bool:
        low, high = self.ask(ACCESSIBLE, "GetState")
        return bool((int(high) << 32 | int(low)) >> state & 1)

    def box(self) -> tuple[int, int, int, int]:
        """Left, top, width and height on the screen."""
        left, top, width, height = self.ask(COMPONENT, "GetExtents", ON_SCREEN)
        return int(left), int(top), int(width), int(height)

    def middle(self) -> tuple[int, int]:
        left, top, width, height = self.box()
        return left + width // 2, top + height // 2

    def children(self) -> "list[Item]":
        return [Item(self.bus, owner, path) for owner, path in self.ask(ACCESSIBLE, "GetChildren")]

    def all_shown(self) -> "Iterator[Item]":
        """What is shown below this item, from the top of each window down."""
        for child in self.children():
            if child.has(SHOWING):
                yield child
                yield from child.all_shown()


class ScreenReader:
    """Listens to the programs that are started with its `environment`, while the `with` block
    lasts."""

    def __init__(self, environment: dict[str, str]) -> None:
        self.environment = environment | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def __enter__(self) -> "ScreenReader":
        self.server = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--print-address=1"],
            env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        address = self.server.stdout.readline().strip()
        if not address:
            raise RuntimeError("the bus of the screen reader did not start")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.session = dbus.bus.BusConnection(address)
        asked = self.session.get_object("org.a11y.Bus", "/org/a11y/bus", introspect=False)
        self.bus = dbus.bus.BusConnection(
            asked.GetAddress(dbus_interface="org.a11y.Bus", timeout=PATIENCE))
        return self

    def __exit__(self, *_: object) -> None:
        self.bus.close()
        self.session.close()
        self.server.terminate()
        self.server.wait()
        self.server.stdout.close()

    def desktop(self) -> Item:
        return Item(self.bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")

    def windows(self) -> list[Item]:
        """Of all programs; an open menu is one."""
        programs = self.desktop().children()
        return [window for program in programs for window in program.children()
                if window.has(SHOWING)]

    def look(self, fits: Callable[[Item], bool], window: str = "") -> Item | None:
        """The first thing shown that fits, in windows whose title begins so."""
        try:
            for top in self.windows():
                if top.name.startswith(window):
                    for item in top.all_shown():
                        if fits(item):
                            return item
        except dbus.DBusException:
            pass  # it changed while it was looked at
        return None

    def wait_to_find(self, role: str, window: str, what: str,
                     fits: Callable[[str], bool]) -> Item:
        found: list[Item] = []

        def is_there() -> bool:
            item = self.look(lambda item: item.role == role and fits(item.name), window)
            if item is not None:
                found.append(item)
            return item is not None
        wait_until(is_there, f"there is a {role} {what}")
        return found[-1]

    def find(self, role: str, name: str, window: str = "") -> Item:
        """Waits for it. The keys of a menu's entry do not count as its name."""
        return self.wait_to_find(role, window, name, lambda text: text.split("\t")[0] == name)

    def find_matching(self, role: str, pattern: str, window: str = "") -> Item:
        """Waits for one whose whole name is of that pattern."""
        return self.wait_to_find(role, window, pattern,
                                 lambda text: re.fullmatch(pattern, text) is not None)
