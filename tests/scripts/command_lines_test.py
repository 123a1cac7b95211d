#!/usr/bin/env python3
"""Holds command lines of the real program against their exit status and what they print.

Usage: command_lines_test.py PROGRAM
"""

import os
import re
import resource
import shutil
import socket
import subprocess
import sys
import tempfile
import unittest
from collections.abc import Sequence
from pathlib import Path

PROGRAM = ""
HOME = Path(__file__).resolve().parent / "home"
HANDBOOK = Path(__file__).resolve().parents[2] / "docs" / "scripts.md"
SECONDS = 400  # a hang; under sanitizers a busy machine takes long for anything
DRAWING = """\
add_path{type=1, x1=2, y1=1, z=-0.25, feed=10, code=100}
save(arg[1])
"""


class CommandLines(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory(prefix="tessimo-")
        self.addCleanup(folder.cleanup)
        self.work = Path(folder.name)
        self.home = self.work / "home"
        shutil.copytree(HOME, self.home)
        self.environment = {"PATH": os.environ["PATH"], "HOME": str(self.work)}
        self.environment |= {n: v for n, v in os.environ.items() if n.endswith("SAN_OPTIONS")}

    def run_program(self, *arguments: str, **variables: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [PROGRAM, *arguments], capture_output=True, text=True, timeout=SECONDS, cwd=self.work,
            env=self.environment | variables, check=False)

    def drawing(self) -> str:
        script = self.work / "draw.lua"
        script.write_text(DRAWING)
        path = str(self.work / "part.cdm")
        run = self.run_program("--home", str(self.home), "--run", str(script), path)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        return path

    def assert_fails(self, status: int, line: str, *arguments: str) -> None:
        run = self.run_program(*arguments)
        self.assertEqual(run.returncode, status)
        self.assertEqual(run.stdout, "")
        self.assertEqual(run.stderr, f"tessimo: {line}\n")

    def test_help_and_handbook_name_every_option(self) -> None:
        options = re.findall(r"^  (--?[a-z][a-z-]*)", self.run_program("--help").stdout, re.M)
        handbook = HANDBOOK.read_text(encoding="utf-8").split("\n## ")[1]
        self.assertGreater(len(options), 12)
        self.assertEqual(set(options), set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", handbook)))

    def test_version_and_help_need_nothing(self) -> None:
        run = self.run_program("--version")
        self.assertRegex(run.stdout, r"^Tessimo Mill \d+\.\d+\.\d+\n$")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        run = self.run_program("--help")
        self.assertIn("--make-cnc", run.stdout)
        self.assertEqual((run.returncode, run.stderr), (0, ""))

    # The toolkit takes over the operator's locale; a comma would then end numbers in its middle.
    def test_numbers_have_points_whatever_the_locale(self) -> None:
        text = "plot('part.png') print(0.75, os.setlocale(nil, 'numeric'))\n"
        script = self.work / "play.lua"
        script.write_text(text)
        for run in (self.run_program("--home", str(self.home), "--allow-io", "--run", str(script),
                                     LC_ALL="C.UTF-8"),
                    self.play(text, before=["--allow-io"], LC_ALL="C.UTF-8")):
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "0.75\tC\n", ""))

    # The toolkit takes over the operator's locale; in Turkish a capital i has another small letter,
    # and capitals sort among the small ones.
    def test_texts_have_the_same_case_and_order_whatever_the_locale(self) -> None:
        locales = self.work / "locales"
        locales.mkdir()
        subprocess.run(["localedef", "-i", "tr_TR", "-f", "UTF-8", locales / "tr_TR.UTF-8"],
                       check=True)
        text = "plot('part.png') print(('TITLE'):lower(), ('title'):upper(), 'B' < 'a')\n"
        script = self.work / "play.lua"
        script.write_text(text)
        language = {"LOCPATH": str(locales), "LC_ALL": "tr_TR.UTF-8"}
        for run in (self.run_program("--home", str(self.home), "--run", str(script), **language),
                    self.play(text, **language)):
            self.assertEqual((run.returncode, run.stdout, run.stderr),
                             (0, "title\tTITLE\ttrue\n", ""))

    def test_what_is_printed_into_a_closed_output_is_in_no_file(self) -> None:
        script = self.work / "write.lua"
        script.write_text("""\
            local file = io.open(arg[1], 'w')
            for _, output in ipairs { io.stdout, io.stderr } do
              output:write('printed')
              output:flush()
            end
            file:write('written')
            file:close()
        """)
        for closed in (1, 2):
            file = self.work / f"{closed}.txt"
            command = f'exec "$0" "$@" {closed}>&-'
            run = subprocess.run(["sh", "-c", command, PROGRAM, "--home", str(self.home),
                                  "--allow-io", "--run", str(script), str(file)],
                                 capture_output=True, timeout=SECONDS, env=self.environment,
                                 check=False)
            self.assertEqual((run.returncode, file.read_text()), (0, "written"), closed)

    def test_the_reader_of_jet_files_takes_its_file_and_nothing_else(self) -> None:
        file = self.work / "x.mdb"
        for content in (b"", b"a text", b"\0\1\0\0Standard Jet DB\0" + bytes(range(256)) * 32):
            file.write_bytes(content)
            with file.open("rb") as jet:
                run = subprocess.run([PROGRAM, "--read-jet"], stdin=jet, capture_output=True,
                                     timeout=SECONDS, env=self.environment, check=False)
            self.assertNotEqual(run.returncode, 2, "it is no wrong usage")
            self.assertIn(run.stdout[:8], (b"", b"TESSJET1"))
        self.assert_fails(2, "The following argument was not expected: --read-jet "
                          "(see tessimo --help)", "--read-jet", "--run", "x.lua")

    def test_wrong_usage_is_status_2(self) -> None:
        for arguments in (["--timeout", "-1", "--run", "x.lua"], ["--timeout", "5"],
                          ["--timeout", "nan", "--run", "x.lua"], ["--bad"], ["--run"], ["--make-cnc", "mill"], ["-o", "x"], ["a", "b"],
                          ["--setup", "x"], ["--plot", "x.png", "part.cdm", "--setup", "x"],
                          ["--make-cnc", "mill", "part.cdm", "--setup"],
                          ["--make-cnc", "mill", "part.cdm", "--setup", ""],
                          ["--make-cnc", "laser", "part.cdm"]):
            run = self.run_program(*arguments)
            self.assertEqual(run.returncode, 2, arguments)
            self.assertEqual(run.stdout, "", arguments)
            self.assertRegex(run.stderr, r"^tessimo: [^\n]+\n$", arguments)

    def test_a_mill_program_beside_its_drawing(self) -> None:
        part = self.drawing()
        run = self.run_program("--home", str(self.home), "--make-cnc", "mill", part)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertEqual(run.stdout, f"{self.work}/part.CNC\n")
        text = (self.work / "part.CNC").read_bytes().decode()
        self.assertTrue(text.startswith("%\r\n;" + 75 * "*" + "\r\n"))
        self.assertTrue(text.endswith("M30\r\n%\r\n"))

    def test_a_lathe_program_where_it_is_told(self) -> None:
        part = self.drawing()
        run = self.run_program("--home", str(self.home), "--make-cnc", "lathe", part,
                               "-o", "out.nc")
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))
        self.assertIn("Lathrix Pro", (self.work / "out.nc").read_text())

    def make(self, *arguments: str, **variables: str) -> subprocess.CompletedProcess[str]:
        return self.run_program("--home", str(self.home), "--make-cnc", "mill", *arguments,
                                **variables)

    def setups(self) -> None:
        shutil.copy(self.home / "test.msu", self.home / "other.msu")
        definition = (self.home / "standard.msx").read_bytes()
        (self.home / "other.msx").write_bytes(definition + b"COMMENTCHR,#\r\n")

    def test_a_program_by_another_setup_and_its_definition(self) -> None:
        part = self.drawing()
        self.setups()
        before = {file.name: file.read_bytes() for file in self.home.iterdir() if file.is_file()}
        for name in ("other", "OTHER.MSU", "other.msu"):
            run = self.make(part, "--setup", name, "-o", "out.nc", "--force")
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""), name)
            self.assertIn("\r\n#***", (self.work / "out.nc").read_bytes().decode())
        run = self.make(part)
        self.assertEqual(run.returncode, 0)
        self.assertIn("\r\n;***", (self.work / "part.CNC").read_bytes().decode())
        self.assertEqual(before, {file.name: file.read_bytes()
                                  for file in self.home.iterdir() if file.is_file()})

    def test_a_setup_that_is_not_in_the_programs_folder(self) -> None:
        part = self.drawing()
        self.setups()
        elsewhere = str(self.work / "away.msu")
        shutil.copy(self.home / "test.msu", elsewhere)
        for name in ("third", "third.msu", elsewhere, f"{self.home}/other.msu", ".msu", "/"):
            self.assert_fails(1, f"{part}: the program's folder has no setup {name} "
                              "(there are other.msu, test.msu)", "--home", str(self.home),
                              "--make-cnc", "mill", part, "--setup", name)
        self.assertFalse((self.work / "part.CNC").exists())

    def test_a_program_takes_the_place_of_programs_only(self) -> None:
        part = self.drawing()
        (self.work / "link.nc").symlink_to("part.cdm")
        (self.work / "hard.nc").hardlink_to(self.work / "PART.TPM")
        (self.work / "notes.txt").write_text("Dear customer,\n")
        before = {file.name: file.read_bytes() for file in self.work.iterdir() if file.is_file()}
        ours = "is a file of the drawing itself"
        for target, reason in (("part.cdm", ours), ("PART.TPM", ours), ("part.tpm", ours),
                               ("link.nc", ours), ("hard.nc", ours), ("./part.cdm", ours),
                               ("notes.txt", "is no CNC program"),
                               ("draw.lua", "is no CNC program")):
            with self.subTest(target=target):
                self.assert_fails(1, f"{part}: {target} {reason} (--force writes over it)", "--home",
                                  str(self.home), "--make-cnc", "mill", part, "-o", target)
                self.assertEqual(before, {file.name: file.read_bytes()
                                          for file in self.work.iterdir() if file.is_file()})
        for arguments in (["notes.txt", "--force"], ["notes.txt"], ["new.nc"], ["new.nc"]):
            run = self.make(part, "-o", *arguments)
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))
            self.assertIn("M30", (self.work / arguments[0]).read_text())

    def test_a_drawing_named_as_a_program_is_not_replaced_by_its_own(self) -> None:
        shutil.move(self.drawing(), self.work / "part.CNC")
        before = (self.work / "part.CNC").read_bytes()
        (self.work / "draw.lua").write_text(
            "open(arg[1] .. 'part.CNC') add_path{type=1, x1=1} "
            "on_message(function(text, title, buttons) return buttons[2] end) make_cnc('mill') print(messages[#messages].text)")
        run = self.run_program("--home", str(self.home), "--run", "draw.lua", f"{self.work}/")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertRegex(run.stdout, "^The program would take the place of the drawing")
        self.assertEqual((self.work / "part.CNC").read_bytes(), before)

    def test_no_picture_takes_the_place_of_the_drawing(self) -> None:
        part = self.drawing()
        before = Path(part).read_bytes()
        self.assert_fails(1, f"{part}: {part} is a file of the drawing itself (--force writes over "
                          "it)", "--home", str(self.home), "--plot", part, part)
        self.assertEqual(Path(part).read_bytes(), before)

    def test_a_full_disk_leaves_the_good_program(self) -> None:
        part = self.drawing()
        self.assertEqual(self.make(part, "-o", "out.nc").returncode, 0)
        good = (self.work / "out.nc").read_bytes()
        before = sorted(os.listdir(self.work))
        run = subprocess.run(
            [PROGRAM, "--home", str(self.home), "--make-cnc", "mill", part, "-o", "out.nc"],
            capture_output=True, text=True, timeout=SECONDS, cwd=self.work, env=self.environment,
            check=False, preexec_fn=lambda: resource.setrlimit(
                resource.RLIMIT_FSIZE, (len(good) - 100, resource.RLIM_INFINITY)))
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertEqual(run.stderr, f"tessimo: {part}: Disk full: out.nc\n")
        self.assertEqual((self.work / "out.nc").read_bytes(), good)
        self.assertEqual(sorted(os.listdir(self.work)), before)

    def test_a_damaged_definition_makes_no_program(self) -> None:
        part = self.drawing()
        definition = self.home / "standard.msx"
        for damage, reason in ((b"it,9\r\n", "line 1 field 1 has the unknown word 'it'"),
                               (b"LISTSTART,HEADERTEXT\r\n%\r\n",
                                "line 3 field 1: Input past end of file"),
                               (None, ": File not found")):
            with self.subTest(reason=reason):
                definition.unlink(missing_ok=True)
                if damage:
                    definition.write_bytes(damage)
                place = f"{definition} {reason}" if damage else f"{definition}{reason}"
                self.assert_fails(
                    1, f"{part}: the definition is damaged: {place} (--force makes the program all "
                    "the same)", "--home", str(self.home), "--make-cnc", "mill", part, "-o",
                    "out.nc")
                self.assertFalse((self.work / "out.nc").exists())
                run = self.make(part, "-o", "out.nc", "--force")
                self.assertEqual(run.returncode, 0)
                self.assertIn("tessimo: ", run.stderr)
                (self.work / "out.nc").unlink()

    def test_what_is_no_file_is_refused_at_once(self) -> None:
        part = self.drawing()
        home = ["--home", str(self.home)]
        for name in ("pipe.cdm", "pipe.lua", "pipe.nc", "pipe.png", "pipe.dxf"):
            os.mkfifo(self.work / name)
        pipe = "Path/File access error (it is a pipe)"
        device = "Path/File access error (it is a device): /dev/null"
        place = str(self.work)
        self.assert_fails(1, f"pipe.cdm: Couldn't revert to saved drawing. {pipe}", *home,
                          "--make-cnc", "mill", "pipe.cdm")
        self.assert_fails(1, f"pipe.lua: {pipe}", *home, "--run", "pipe.lua")
        self.assert_fails(1, "/dev/zero: Path/File access error (it is a device)", *home, "--run",
                          "/dev/zero")
        for target, reason in (("pipe.nc", f"{pipe}: pipe.nc"), ("/dev/null", device)):
            for force in ([], ["--force"]):
                self.assert_fails(1, f"{part}: {reason}", *home, "--make-cnc", "mill", part, "-o",
                                  target, *force)
        self.assert_fails(1, f"{part}: {pipe}: pipe.png", *home, "--plot", "pipe.png", part)
        (self.work / "read.lua").write_text(
            "import_dxf(arg[1] .. 'pipe.dxf') open(arg[1] .. 'pipe.cdm') "
            "for _, message in ipairs(messages) do print((message.text:gsub('\\n.*', ''))) end "
            "print(messages[#messages].text:match('[^\\n]*$'))")
        run = self.run_program(*home, "--run", "read.lua", f"{place}/")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn(pipe, run.stdout.splitlines()[0])
        self.assertEqual(run.stdout.splitlines()[-1], pipe)
        (self.work / "PART.TPM").unlink()
        os.mkfifo(self.work / "PART.TPM")
        self.assert_fails(1, f"{part}: {pipe}: {place}/PART.TPM", *home, "--make-cnc", "mill", part)
        for name in ("tess.def", "test.msu"):
            with self.subTest(name=name):
                kept = (self.home / name).read_bytes()
                (self.home / name).unlink()
                os.mkfifo(self.home / name)
                self.assert_fails(1, f"{pipe}: {self.home}/{name}", *home, "--run", "read.lua")
                (self.home / name).unlink()
                (self.home / name).write_bytes(kept)

    def test_files_that_are_too_large_are_refused_before_they_are_read(self) -> None:
        part = self.drawing()
        home = ["--home", str(self.home)]
        (self.work / "large.lua").touch()
        os.truncate(self.work / "large.lua", 1 << 40)
        os.truncate(part, 1 << 40)
        size = f"The file is too large ({1 << 40} bytes, at most "
        self.assert_fails(1, f"large.lua: {size}{16 << 20})", *home, "--run", "large.lua")
        self.assert_fails(1, f"{part}: Couldn't revert to saved drawing. {size}{64 << 20})", *home,
                          "--make-cnc", "mill", part)
        (self.work / "large.dxf").touch()
        os.truncate(self.work / "large.dxf", 1 << 40)
        (self.work / "import.lua").write_text(
            "import_dxf(arg[1] .. 'large.dxf') print((messages[1].text:gsub('\\n.*', '')))")
        run = self.run_program(*home, "--run", "import.lua", f"{self.work}/")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertIn(f"{size}{512 << 20})", run.stdout)
        os.truncate(self.home / "test.msu", 1 << 40)
        self.assert_fails(1, f"{size}{16 << 20}): {self.home}/test.msu", *home, "--make-cnc", "mill",
                          part)

    def test_drawings_that_give_no_program_are_status_1(self) -> None:
        home = ["--home", str(self.home)]
        (self.work / "short.cdm").write_text("1.0\r\nPROFILE\r\n1\r\n")
        self.assert_fails(1, "none.cdm: Couldn't revert to saved drawing. File not found",
                          *home, "--make-cnc", "mill", "none.cdm")
        self.assert_fails(1, "home: it is a folder", *home, "--make-cnc", "mill", "home")
        self.assert_fails(
            1, f"short.cdm: Input past end of file: {self.work}/short.cdm line 4 field 1",
            *home, "--make-cnc", "mill", "short.cdm")

    def test_scripts_that_are_none_are_status_1(self) -> None:
        self.assert_fails(1, "none.lua: File not found", "--home", str(self.home),
                          "--run", "none.lua")
        self.assert_fails(1, "home: it is a folder", "--home", str(self.home), "--run", "home")
        self.assert_fails(1, "Path not found: nowhere", "--home", "nowhere", "--run", "none.lua")

    def test_the_environment_names_the_folder_too(self) -> None:
        script = self.work / "where.lua"
        script.write_text("print(store.drawingpath)")
        run = self.run_program("--run", str(script), TESSIMO_HOME=str(self.home))
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, f"{self.home}/CNC/\n", ""))

    def play(self, script: str, *arguments: str,
             before: Sequence[str] = (), **variables: str) -> subprocess.CompletedProcess[str]:
        (self.work / "play.lua").write_text(script)
        (self.work / "run").mkdir(mode=0o700, exist_ok=True)
        return self.run_program("--home", str(self.home), *before, "--play", "play.lua", *arguments,
                                QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=str(self.work / "run"),
                                **variables)

    def test_a_script_in_the_window_leaves_what_a_run_leaves(self) -> None:
        script = """\
            rightclick(0, 0) key("R") click(3, 2)
            key("L") rightclick(1, 1) click(2, 1.5)
            save(arg[1])
            print(store.NumSegments, state.prompt)
        """
        played = self.play(script, str(self.work / "played.cdm"))
        run = self.run_program("--home", str(self.home), "--run", "play.lua",
                               str(self.work / "run.cdm"))
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertEqual((played.returncode, played.stdout, played.stderr), (0, run.stdout, ""))
        self.assertEqual((self.work / "played.cdm").read_bytes(),
                         (self.work / "run.cdm").read_bytes())

    def test_a_script_that_fails_in_the_window_is_status_1(self) -> None:
        played = self.play("tool('miLine')\nclick('here')")
        self.assertEqual((played.returncode, played.stdout), (1, ""))
        self.assertRegex(played.stderr, r"^tessimo: play\.lua:2: [^\n]+\n$")

    def test_a_handler_that_moves_the_drawing_gets_nothing_out(self) -> None:
        for command in ("tool('miNew')", "tool('miOpen')", "tool('miExit')", "tool('miLoadSetup')",
                        "make_cnc('mill')"):
            for work in ("--run", "--play"):
                with self.subTest(command=command, work=work), \
                        tempfile.TemporaryDirectory(prefix="tessimo-") as name:
                    outside = Path(name)
                    (outside / ".bashrc").write_text("good")
                    script = f"""
                        add_path{{type=1, x1=2, y1=1, z=-0.25, feed=10, code=100}}
                        store.drawingsaved = false
                        on_message(function()
                          store.drawingpath, store.drawingname = "{outside}/", ".bashrc"
                          return "Yes"
                        end)
                        {command}
                    """
                    (self.work / "play.lua").write_text(script)
                    run = (self.play(script) if work == "--play" else self.run_program(
                        "--home", str(self.home), "--run", "play.lua"))
                    self.assertEqual(run.returncode, 1)
                    self.assertEqual(
                        run.stderr, f"tessimo: play.lua:8: '{outside}/.bashrc' is outside the "
                        "folders that this script may use: those named on the command line, the "
                        "script's own and the drawing folder\n")
                    self.assertEqual([file.name for file in outside.iterdir()], [".bashrc"])
                    self.assertEqual((outside / ".bashrc").read_text(), "good")

    def test_a_script_ends_when_its_time_is_over(self) -> None:
        endless = {
            "a loop": "while true do end",
            "waiting": "while true do wait(1000) end",
            "a pattern match": "print(('a'):rep(1000):find(('.-'):rep(40) .. 'b'))",
            "a finaliser": "setmetatable({}, {__gc = function() while true do end end})",
        }
        for name, statement in endless.items():
            for work in ("--run", "--play"):
                with self.subTest(endless=name, work=work):
                    script = "print('before')\n" + statement
                    (self.work / "play.lua").write_text(script)
                    run = (self.play(script, before=["--timeout", "2"]) if work == "--play" else
                           self.run_program("--home", str(self.home), "--timeout", "2", "--run",
                                            "play.lua"))
                    self.assertEqual((run.returncode, run.stdout), (1, "before\n"))
                    self.assertRegex(
                        run.stderr, r"^tessimo: play\.lua(:\d+)?: the script has run longer than "
                        r"2 s\n$")

    def test_no_time_or_none_at_all_bounds_no_script(self) -> None:
        (self.work / "play.lua").write_text("wait(86400000) print('done')")
        for bound in ([], ["--timeout", "0"], ["--timeout", "50"]):
            run = self.run_program("--home", str(self.home), *bound, "--run", "play.lua")
            self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "done\n", ""))

    def test_the_window_of_a_script_needs_a_display_and_a_script(self) -> None:
        (self.work / "play.lua").write_text("")
        self.assert_fails(1, "none.lua: File not found", "--home", str(self.home),
                          "--play", "none.lua")
        self.assert_fails(1, "Path not found: nowhere", "--home", "nowhere", "--play", "play.lua")
        self.assert_fails(1, "there is no display for the window; tessimo --help tells what it "
                          "does without one", "--home", str(self.home), "--play", "play.lua")

    def test_no_window_without_a_display(self) -> None:
        run = self.run_program(DISPLAY="", WAYLAND_DISPLAY="", QT_QPA_PLATFORM="")
        self.assertEqual(run.returncode, 1)
        self.assertRegex(run.stderr, r"^tessimo: [^\n]+\n$")

    def test_a_display_that_cannot_be_reached_is_one_line(self) -> None:
        (self.work / "play.lua").write_text("print('never')")
        line = "tessimo: the display {} cannot be reached; tessimo --help tells what it does " \
            "without one\n"
        nowhere = {"DISPLAY": ":4711", "WAYLAND_DISPLAY": "", "QT_QPA_PLATFORM": ""}
        for variables, name in ((nowhere, ":4711"),
                                (nowhere | {"DISPLAY": "", "WAYLAND_DISPLAY": "none"}, "none"),
                                (nowhere | {"QT_QPA_PLATFORM": "xcb"}, ":4711 (xcb)"),
                                (nowhere | {"DISPLAY": "", "QT_QPA_PLATFORM": "nonsense"},
                                 "nonsense")):
            for job in ([], ["--play", "play.lua"]):
                with self.subTest(name=name, job=job):
                    run = self.run_program("--home", str(self.home), *job, **variables)
                    self.assertEqual((run.returncode, run.stdout, run.stderr),
                                     (1, "", line.format(name)))

    def test_a_machine_without_fonts_is_told(self) -> None:
        settings = self.work / "fonts.conf"
        settings.write_text("<fontconfig><dir>/nothing</dir></fontconfig>")
        run = self.run_program("--home", str(self.home), QT_QPA_PLATFORM="offscreen",
                               XDG_RUNTIME_DIR=str(self.work), FONTCONFIG_FILE=str(settings))
        self.assertEqual((run.returncode, run.stdout, run.stderr), (
            1, "", "tessimo: no font is installed for the texts of the window; Debian has some in "
            "fonts-dejavu-core\n"))

    def test_too_few_open_files_for_a_window_are_told(self) -> None:
        unlimited = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
        run = subprocess.run(
            [PROGRAM, "--home", str(self.home)], capture_output=True, text=True, timeout=SECONDS,
            env=self.environment | {"QT_QPA_PLATFORM": "offscreen"}, check=False,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (10, unlimited)))
        self.assertEqual((run.returncode, run.stdout, run.stderr), (
            1, "", "tessimo: the window needs 20 open files (ulimit -n), and the limit is 10\n"))

    def test_a_limit_that_permits_no_thread_is_told(self) -> None:
        (self.work / "nothing.lua").touch()
        unlimited = resource.getrlimit(resource.RLIMIT_STACK)[1]
        stack = 1 << 45  # bytes: a thread asks for one of that size
        said = "no thread can be started; memory or the number of processes is at its limit"
        for job, line in (([], said),
                          (["--timeout", "5", "--run", "nothing.lua"], f"nothing.lua: {said}")):
            run = subprocess.run(
                [PROGRAM, "--home", str(self.home), *job], capture_output=True, text=True,
                timeout=SECONDS, cwd=self.work, check=False,
                env=self.environment | {"QT_QPA_PLATFORM": "offscreen"},
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_STACK, (stack, unlimited)))
            self.assertEqual((run.returncode, run.stdout, run.stderr), (1, "", f"tessimo: {line}\n"))

    def test_a_display_that_never_answers_is_given_up(self) -> None:
        with socket.create_server(("127.0.0.1", 0)) as silent:
            # Displays have ports from 6000 on; the number may be any.
            name = f"127.0.0.1:{silent.getsockname()[1] - 6000}"
            run = self.run_program("--home", str(self.home), DISPLAY=name, QT_QPA_PLATFORM="xcb")
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertEqual(run.stderr, f"tessimo: the display {name} (xcb) cannot be reached; "
                         "tessimo --help tells what it does without one\n")


if __name__ == "__main__":
    PROGRAM = sys.argv.pop()
    unittest.main()
