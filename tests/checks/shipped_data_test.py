"""The shipped setups hold what docs/tools_and_feeds.md says: speeds and feeds follow from it."""

import math
import re
import unittest
from pathlib import Path

DATA = Path(__file__).resolve().parents[2] / "data"
TOP_SPEED = {
    "mill_inch.msu": 5000, "mill_mm.msu": 5000, "lathe.msu": 2800, "lathe_mm.msu": 2800
}
METRIC = ("mill_mm.msu", "lathe_mm.msu")
WORK = {"lathe.msu": 1, "lathe_mm.msu": 25}  # diameters of a lathe's work
CHIPS = {"lathe.msu": (0.0009, 0.0061), "lathe_mm.msu": (0.024, 0.151)}  # per turn
TABLE_CYCLES = ["G81", "G82", "G83", "G84", "G85", "G86", "G89"]


def entries(name: str) -> list[tuple[str, str]]:
    """Key and value of each line; the value keeps the blank of its sign."""
    lines = (DATA / name).read_bytes().decode("ascii").split("\r\n")
    assert lines.pop() == "" and not any("\n" in line for line in lines), "lines end with CR LF"
    return [tuple(line.split(" =", 1)) for line in lines]


def rows(name: str, opening: str) -> list[dict[str, str]]:
    """The cycles or tools of a setup, each from its opening key to the next row."""
    found, current = [], None
    for key, value in entries(name):
        if key in ("cycle #", "tool #"):
            current = {} if key == opening else None
            found += [current] if current is not None else []
        if current is not None:
            current[key] = value.strip()
    return found


def recommended(name: str, tool: dict[str, str]) -> set[int]:
    """Spindle speeds that the cutting speed asks for; on a lathe also those of its work."""
    speed, diameter = float(tool["cutting speed"]), 2 * float(tool["tool radius"])
    per_turn = 1000 if name in METRIC else 12
    diameters = [diameter, WORK[name]] if name in WORK else [diameter]
    return {math.floor(per_turn * speed / (math.pi * d) + 0.5) for d in diameters}


class ShippedData(unittest.TestCase):
    def for_each_tool(self, check) -> None:
        for name in TOP_SPEED:
            for tool in rows(name, "tool #"):
                with self.subTest(setup=name, tool=tool["tool name"]):
                    check(name, tool)

    def test_every_setup_has_a_full_chest(self):
        for name in TOP_SPEED:
            tools = rows(name, "tool #")
            self.assertGreaterEqual(len(tools), 12)
            self.assertEqual(
                [int(tool["tool #"]) for tool in tools], list(range(1, len(tools) + 1))
            )
            self.assertEqual(len({tool["tool name"] for tool in tools}), len(tools))

    def test_tool_names_survive_the_setup_file_and_the_list(self):
        def check(_, tool):
            self.assertRegex(tool["tool name"], r"^[a-z0-9][a-z0-9 ./-]{0,19}$")

        self.for_each_tool(check)

    def test_no_value_holds_a_comma(self):
        for name in TOP_SPEED:
            for key, value in entries(name):
                self.assertNotIn(",", value, key)

    def test_recommended_speed_follows_from_the_cutting_speed(self):
        def check(name, tool):
            self.assertIn(int(tool["recommended spindle speed"]), recommended(name, tool))

        self.for_each_tool(check)

    def test_spindle_speed_stays_below_recommendation_and_top(self):
        def check(name, tool):
            speed, advised = int(tool["spindle speed"]), int(tool["recommended spindle speed"])
            self.assertLessEqual(speed, min(advised, TOP_SPEED[name]))
            self.assertGreater(speed, 0.9 * min(advised, TOP_SPEED[name]))
            self.assertEqual(speed % 10, 0)

        self.for_each_tool(check)

    def test_feed_is_a_chip_load_the_tool_can_take(self):
        def check(name, tool):
            unit = "mm/min" if name in METRIC else "ipm"
            self.assertRegex(tool["feed rate"], rf"^[\d.]+( to [\d.]+)? {unit}$")
            feeds = [float(feed) for feed in re.findall(r"[\d.]+", tool["feed rate"])]
            self.assertEqual(feeds, sorted(feeds))
            if "tap" in tool["tool name"]:
                return
            teeth = int(tool["tool number of flutes"]) * int(tool["spindle speed"])
            chips = [feed / teeth for feed in feeds]
            if name in CHIPS and teeth == int(tool["spindle speed"]):
                least, most = CHIPS[name]
                self.assertTrue(least < chips[0] and chips[1] < most, chips)
            else:
                diameter = 2 * float(tool["tool radius"])
                self.assertTrue(0.0014 < chips[0] / diameter and chips[1] / diameter < 0.041, chips)

        self.for_each_tool(check)

    def test_tap_feed_is_pitch_times_speed(self):
        pitches = {"6-32": 1 / 32, "10-32": 1 / 32, "1/4-20": 1 / 20}
        pitches |= {"m3x0.5": 0.5, "m4x0.7": 0.7, "m5x0.8": 0.8, "m6x1": 1}
        tools = [tool for name in TOP_SPEED for tool in rows(name, "tool #")]
        taps = [tool for tool in tools if tool["tool name"].endswith(" tap")]
        self.assertEqual(len(taps), 9)
        for tool in taps:
            pitch = pitches[tool["tool name"].removesuffix(" tap")]
            feed = float(tool["feed rate"].split()[0])
            self.assertAlmostEqual(feed, pitch * int(tool["spindle speed"]))

    def test_every_setup_has_the_cycle_templates(self):
        for name in TOP_SPEED:
            cycles = [cycle["cycle text"][:3] for cycle in rows(name, "cycle #")]
            self.assertEqual(cycles, TABLE_CYCLES + ["G79"])

    def test_cycle_words_are_those_that_the_cycle_takes(self):
        for name in TOP_SPEED:
            for cycle in rows(name, "cycle #"):
                with self.subTest(setup=name, cycle=cycle["cycle text"]):
                    number = int(cycle["cycle text"][1:3])
                    self.assertEqual(float(cycle["cycle incr depth"]) > 0, number in (79, 83))
                    self.assertEqual(float(cycle["cycle dwell"]) > 0, number in (82, 86, 89))
                    self.assertGreater(float(cycle["cycle final depth"]), 0)
                    self.assertGreater(float(cycle["cycle feedrate"]), 0)

    def test_colours_can_be_told_apart(self):
        for name in TOP_SPEED:
            values = dict(entries(name))
            parts = ("background", "stock", "draw", "select", "verified", "grid", "marker")
            colours = [int(values[f"{part} color"]) for part in parts]
            self.assertEqual(len(set(colours)), len(colours))
            for tool in rows(name, "tool #"):
                colour = int(tool["tool path color"])
                self.assertTrue(0 <= colour <= 15)
                self.assertNotIn(colour, colours[:5], tool["tool name"])

    def test_setups_of_controls_hold_the_same_shop(self):
        """They differ from the plain ones by their definitions alone."""
        names = {path.name for path in DATA.glob("*.msu")}
        plain = {name for name in names if name in TOP_SPEED}
        self.assertEqual(plain, set(TOP_SPEED))
        self.assertEqual(len(names), 16)
        for name in names - plain:
            base = next(base for base in plain if name.endswith(f"_{base}"))
            self.assertEqual((DATA / name).read_bytes(), (DATA / base).read_bytes(),
                             f"{name}: run scripts/make_control_setups")
            self.assertTrue((DATA / name).with_suffix(".msx").is_file(), name)

    def test_every_setup_is_listed_for_one_control(self):
        lines = (DATA / "controls.txt").read_bytes().decode("ascii").split("\r\n")
        self.assertEqual(lines.pop(), "")
        listed = []
        for line in lines:
            name, inch, metric = re.fullmatch(r'"([^"]+)",([^,]+),([^,]+)', line).groups()
            listed += [setup for setup in (inch, metric) if setup != "-"]
        self.assertEqual(sorted(listed), sorted(path.name for path in DATA.glob("*.msu")))

    def test_definition_and_setup_come_in_pairs(self):
        pointed = (DATA / "tess.def").read_bytes()
        self.assertEqual(pointed, b"1.0\r\nmill_inch.msu\r\n")
        for name in TOP_SPEED:
            self.assertTrue((DATA / name).with_suffix(".msx").is_file(), name)
        self.assertTrue((DATA / "standard.msx").is_file())


if __name__ == "__main__":
    unittest.main()
