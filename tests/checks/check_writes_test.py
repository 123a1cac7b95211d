"""The rule of writes finds every way to a file but that through the writer, in small trees."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check_writes"


def run_on(tree: dict[str, str]) -> tuple[int, list[str]]:
    """Exit status and output lines of the check on a tree of file name to contents."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            file = Path(folder) / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        result = subprocess.run(
            [sys.executable, SCRIPT, folder], capture_output=True, text=True, check=False
        )
        return result.returncode, result.stdout.splitlines()


class CheckWrites(unittest.TestCase):
    def expect_clean(self, *statements: str) -> None:
        for statement in statements:
            with self.subTest(statement=statement):
                self.assertEqual(
                    run_on({"shell/a.cpp": statement}),
                    (0, ["check_writes: files are written in one place"]),
                )

    def expect_found(self, what: str, text: str, file: str = "shell/a.cpp", line: int = 1) -> None:
        with self.subTest(text=text):
            self.assertEqual(
                run_on({file: text}),
                (1, [f"{file}:{line}: '{what}' is for core/file_writer.cpp only"]),
            )

    def test_the_writer_has_its_ways(self):
        self.assertEqual(
            run_on({"core/file_writer.cpp": "::openat(folder, name, O_WRONLY); ::unlink(name);"})[0],
            0,
        )

    def test_streams_and_the_c_library(self):
        self.expect_found("fopen", 'FILE* f = std::fopen(path, "w");')
        self.expect_found("freopen", 'freopen(path, "a", stderr);')
        self.expect_found("ofstream", "std::ofstream log(path);", file="tools/deep/a.h")
        self.expect_found("fstream", "std::fstream log(path);")
        self.expect_found("filebuf", "std::filebuf log;")
        self.expect_found("std::rename", "std::rename(from, to);")
        self.expect_found("std::remove", "if (std::remove(path.c_str()) != 0) fail();")

    def test_the_system(self):
        for flag in ("O_WRONLY", "O_RDWR", "O_CREAT", "O_TRUNC", "O_APPEND"):
            self.expect_found(flag, f"int f = open(path, {flag});", file="core/a.cpp")
        for call in ("unlink", "unlinkat", "renameat2", "linkat", "symlink", "creat", "mkstemp",
                     "truncate"):
            self.expect_found(f"::{call}", f"::{call}(path);")

    def test_the_library_of_files(self):
        self.expect_found("fs::remove", "fs::remove(path, error);")
        self.expect_found("std::filesystem::rename", "std::filesystem::rename(a, b);")
        self.expect_found("fs::copy_file", "fs::copy_file(a, b);")
        self.expect_found("fs::copy", "\n\n  fs::copy(a, b);", line=3)

    def test_the_toolkit(self):
        self.expect_found("QIODevice::WriteOnly", "file.open(QIODevice::WriteOnly);")
        self.expect_found("QSaveFile", "QSaveFile file(path);")
        self.expect_found("QFile::remove", "QFile::remove(path);")
        self.expect_found(".save", 'image.save(path, "PNG");')
        self.expect_found("->save", "widget->save(name);")
        self.expect_found("setOutputFileName", "printer.setOutputFileName(path);")
        self.expect_found("setFileName", "generator.setFileName(path);")
        self.expect_found("QPdfWriter document", "QPdfWriter document(path);")

    def test_what_reads_or_stays_in_memory_is_free(self):
        self.expect_clean(
            "int f = ::open(path, O_RDONLY | O_CLOEXEC);",
            "file.open(QIODevice::ReadOnly);",
            'image.save(&buffer, "PNG"); painter.save();',
            "QPdfWriter document(&buffer);",
            "v.erase(std::remove(v.begin(), v.end(), x), v.end());",
            "rename(setting); list.link(row); unlinked(path);",
            "fs::exists(path); fs::create_directories(path);",
            'addopen(&actions, 1, "/dev/null", O_WRONLY, 0);',
            "// std::ofstream log(path);\n/* ::unlink(path); */",
        )

    def test_nothing_to_read_is_an_error(self):
        status, lines = run_on({"docs/a.md": "std::ofstream"})
        self.assertEqual(status, 1)
        self.assertIn("no source files", lines[0])


if __name__ == "__main__":
    unittest.main()
