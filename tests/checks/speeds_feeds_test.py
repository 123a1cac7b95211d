"""The shipped speeds-and-feeds database holds the rows of feeds/, and these are plausible."""

import csv
import math
import re
import sqlite3
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DATABASE = ROOT / "data" / "SpeedsFeeds.MDB"
KINDS, MATERIALS = ("End", "Slot", "Face"), ("HSS", "Carbide")
FIGURES = [f"{what}_{kind}_{of}" for kind in KINDS for of in MATERIALS
           for what in ("Tool", "FeedMin", "FeedMax")]
SLOT_SPEED = {"HSS": 0.80, "Carbide": 0.72}
SLOT_CHIP = 0.73

# What is usual of each category, generously: speeds of HSS and of carbide in surface feet per
# minute, chip loads of end mills and of face mills in thousandths of an inch per tooth.
USUAL = {
    "AluminumAlloys": ((50, 1000), (200, 1500), (0.7, 7), (3, 25)),
    "CopperAlloys": ((35, 300), (100, 1000), (0.3, 5), (2, 20)),
    "CarbonSteels": ((20, 300), (100, 1000), (0.25, 4), (2, 15)),
    "AlloySteels": ((20, 200), (75, 700), (0.07, 4), (2, 15)),
    "ToolSteels": ((15, 100), (75, 300), (0.3, 3.5), (2, 10)),
    "StainlessSteels": ((12, 100), (60, 400), (0.15, 3.5), (2, 10)),
    "CastIrons": ((20, 120), (60, 800), (0.5, 6), (3, 20)),
    "HighTempAlloys": ((5, 75), (25, 200), (0.05, 2), (1.5, 10)),
    "Plastics": ((100, 1000), (100, 1000), (0.6, 12), (3, 25)),
    "Woods": ((200, 1000), (400, 2000), (1.5, 20), (5, 30)),
}


def table(name: str) -> list[dict[str, str]]:
    with (ROOT / "feeds" / f"{name}.csv").open(newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))


def tables() -> list[str]:
    return sorted(path.stem for path in (ROOT / "feeds").glob("*.csv") if path.stem != "sources")


def material_tables() -> list[str]:
    return [row["Table Name"] for row in table("MaterialCategory")]


def figure(row: dict[str, str], column: str) -> float:
    return float(row[column])


def middle_of(hardness: str) -> float | None:
    """Of a range in Brinell; other scales are not compared."""
    found = re.fullmatch(r"(\d+)-(\d+)", hardness)
    return (int(found[1]) + int(found[2])) / 2 if found else None


def key_of(row: dict[str, str]) -> tuple[str, str, str]:
    return row["Material"], row.get("Hardness", ""), row.get("Material Condition", "")


class Database(unittest.TestCase):
    def setUp(self):
        self.database = sqlite3.connect(f"file:{DATABASE}?mode=ro&immutable=1", uri=True)
        self.addCleanup(self.database.close)

    def test_it_holds_the_tables_and_nothing_else(self):
        found = self.database.execute("SELECT type, name FROM sqlite_master ORDER BY name")
        self.assertEqual(found.fetchall(), [("table", name) for name in tables()])

    def test_each_row_is_that_of_its_table_in_its_order(self):
        for name in tables():
            found = self.database.execute(f'SELECT * FROM "{name}" ORDER BY rowid')
            columns = [column[0] for column in found.description]
            rows = table(name)
            self.assertEqual(columns, list(rows[0]))
            cells = [["" if cell is None else cell for cell in row] for row in found]
            wanted = [[row[column] for column in columns] for row in rows]
            for got, row in zip(cells, wanted, strict=True):
                same = [type(cell)(text) if text else "" for cell, text in zip(got, row)]
                self.assertEqual(got, same, name)

    def test_figures_are_numbers(self):
        for name in material_tables():
            for column in FIGURES:
                kinds = f'SELECT DISTINCT typeof("{column}") FROM "{name}"'
                self.assertEqual(self.database.execute(kinds).fetchall(), [("real",)])

    def test_the_script_makes_these_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            made = Path(folder) / "made.mdb"
            subprocess.run([ROOT / "scripts" / "make_speeds_feeds", made], check=True)
            self.assertEqual(made.read_bytes(), DATABASE.read_bytes())

    def test_the_material_of_a_new_setup_is_there(self):
        rows = self.database.execute(
            "SELECT Hardness FROM AluminumAlloys WHERE Material = ? AND [Material Condition] = "
            "(SELECT ConditionCode FROM MaterialCodes WHERE Description = 'Cold Drawn')",
            ["Wrought Aluminum Alloys 5000 6000 7000 Series"],
        )
        self.assertEqual(rows.fetchall(), [("30-80",)])


class Tables(unittest.TestCase):
    def for_each_row(self, check) -> None:
        for name in material_tables():
            for row in table(name):
                with self.subTest(table=name, row=key_of(row)):
                    check(name, row)

    def test_their_size(self):
        rows = {name: table(name) for name in material_tables()}
        self.assertEqual(len(rows), 10)
        self.assertEqual(sum(map(len, rows.values())), 172)
        self.assertEqual(len({(name, r["Material"]) for name in rows for r in rows[name]}), 89)
        self.assertEqual(len(table("MaterialCodes")), 18)

    def test_no_row_stands_twice(self):
        for name in material_tables():
            keys = [key_of(row) for row in table(name)]
            self.assertEqual(len(set(keys)), len(keys), name)

    def test_texts_survive_the_setup_file_and_a_statement(self):
        for row in table("MaterialCategory") + table("MaterialCodes"):
            for text in row.values():
                self.assertRegex(text, r"^[^,'\"|]+$")

        def check(_, row):
            self.assertNotRegex(row["Material"], r"['\"|=]|[^ -z]")
            self.assertNotIn(",", row.get("Hardness", ""))

        self.for_each_row(check)

    def test_every_condition_has_its_description(self):
        codes = {row["ConditionCode"] for row in table("MaterialCodes")}
        used = {row["Material Condition"] for name in material_tables() for row in table(name)
                if "Material Condition" in row}
        self.assertEqual(codes, used)

    def test_figures_are_what_the_sources_say(self):
        sources = {tuple(list(row.values())[:6]): row for row in table("sources")}

        def check(name, row):
            for kind in KINDS:
                for of in MATERIALS:
                    source = sources.pop((name, *key_of(row), kind, of))
                    speed, least = figure(row, f"Tool_{kind}_{of}"), float(source["sfm low"])
                    self.assertLessEqual(abs(speed - least), 2.5)
                    self.assertLessEqual(speed, float(source["sfm high"]))
                    chips = [figure(row, f"{end}_{kind}_{of}") for end in ("FeedMin", "FeedMax")]
                    self.assertEqual(chips, [float(source["mil low"]), float(source["mil high"])])

        self.for_each_row(check)
        self.assertEqual(sources, {}, "sources of rows that are not there")

    def test_the_smaller_chip_load_is_not_above_the_larger_one(self):
        def check(_, row):
            for kind in KINDS:
                for of in MATERIALS:
                    least = figure(row, f"FeedMin_{kind}_{of}")
                    self.assertTrue(0 < least <= figure(row, f"FeedMax_{kind}_{of}"))

        self.for_each_row(check)

    def test_slots_are_slower_and_lighter_than_open_cuts(self):
        def check(_, row):
            for of, share in SLOT_SPEED.items():
                slot, end = figure(row, f"Tool_Slot_{of}"), figure(row, f"Tool_End_{of}")
                self.assertLessEqual(abs(slot - share * end), max(5, 0.03 * end))
                self.assertLess(slot, end)
                for chip in ("FeedMin", "FeedMax"):
                    ratio = figure(row, f"{chip}_Slot_{of}") / figure(row, f"{chip}_End_{of}")
                    self.assertLess(abs(ratio - SLOT_CHIP), 0.03)

        self.for_each_row(check)

    def test_nothing_rises_with_the_hardness_of_a_material(self):
        pairs = 0
        for name in material_tables():
            rows = [row for row in table(name) if middle_of(row.get("Hardness", ""))]
            for soft in rows:
                for hard in rows:
                    if soft["Material"] != hard["Material"]:
                        continue
                    if middle_of(soft["Hardness"]) < middle_of(hard["Hardness"]):
                        pairs += 1
                        for column in FIGURES:
                            self.assertLessEqual(
                                figure(hard, column), figure(soft, column), (key_of(hard), column)
                            )
        self.assertGreater(pairs, 100)

    def test_each_category_stays_within_what_is_usual(self):
        def check(name, row):
            hss, carbide, chip, face = USUAL[name]
            for kind in KINDS:
                for of, speeds in (("HSS", hss), ("Carbide", carbide)):
                    least, most = speeds
                    share = SLOT_SPEED[of] if kind == "Slot" else 1
                    self.assertTrue(
                        least * share * 0.9 <= figure(row, f"Tool_{kind}_{of}") <= most, (kind, of)
                    )
                    least, most = face if kind == "Face" else chip
                    share = SLOT_CHIP if kind == "Slot" else 1
                    self.assertGreaterEqual(figure(row, f"FeedMin_{kind}_{of}"), least * share)
                    self.assertLessEqual(figure(row, f"FeedMax_{kind}_{of}"), most)

        self.for_each_row(check)


class ChipLoads(unittest.TestCase):
    def test_they_grow_with_the_diameter(self):
        curves: dict[tuple[str, str], list[list[float]]] = {}
        for row in table("ChipLoads"):
            curve = curves.setdefault((row["Chip Load Group"], row["Tool"]), [])
            curve.append([float(row[name]) for name in ("Diameter", "ChipMin", "ChipMax")])
        self.assertEqual(len(curves), 22)
        for name, curve in curves.items():
            self.assertEqual(curve, sorted(curve), name)
            for column in range(3):
                self.assertEqual([p[column] for p in curve], sorted(p[column] for p in curve), name)
            for diameter, least, most in curve:
                self.assertTrue(0 < least <= most, name)
                # No cutter takes more than a sixth of its diameter in one bite.
                self.assertLess(most / 1000, diameter / 6, name)
                self.assertTrue(0.125 <= diameter <= 1, name)

    def test_groups_name_materials_and_chip_loads_that_exist(self):
        groups = {row["Chip Load Group"] for row in table("ChipLoads")}
        tables_of = {r["Material Category"]: r["Table Name"] for r in table("MaterialCategory")}
        rows = table("ChipLoadGroups")
        self.assertEqual(len(rows), len({(r["Material Category"], r["Material"]) for r in rows}))
        for row in rows:
            self.assertIn(row["Chip Load Group"], groups)
            materials = {r["Material"] for r in table(tables_of[row["Material Category"]])}
            self.assertIn(row["Material"], materials)

    def test_a_half_inch_cutter_takes_about_the_larger_chip_load_of_its_row(self):
        """Different sources: within a factor of 2.5 of each other."""
        loads = {(row["Chip Load Group"], float(row["Diameter"])): row for row in table("ChipLoads")
                 if row["Tool"] in ("carbide", "coated carbide", "any", "carbide router bit")}
        tables_of = {r["Material Category"]: r["Table Name"] for r in table("MaterialCategory")}
        for group in table("ChipLoadGroups"):
            load = loads[group["Chip Load Group"], 0.5]
            rows = [row for row in table(tables_of[group["Material Category"]])
                    if row["Material"] == group["Material"]]
            most = max(figure(row, "FeedMax_End_Carbide") for row in rows)
            with self.subTest(material=group["Material"]):
                self.assertLess(abs(math.log(float(load["ChipMax"]) / most)), math.log(2.51))


if __name__ == "__main__":
    unittest.main()
