#!/usr/bin/env python3
"""Looks through the data of the program folder for what the programs can't say themselves.

Use: program_folder.py REPOSITORY
"""

import pathlib
import re
import sys
import unittest

REPOSITORY = pathlib.Path(sys.argv.pop())
FOLDER = REPOSITORY / "packaging" / "program"


def lines_of(name, section):
    """The lines of a section without comments and empty ones."""
    found, inside = [], False
    for line in (FOLDER / name).read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            inside = line == f"[{section}]"
        elif inside and line.strip() and not line.startswith(";"):
            found.append(line)
    return found


class Languages(unittest.TestCase):
    def setUp(self):
        self.lines = lines_of("tuvik.ini", "Language")
        self.table = [(name, int(number)) for name, number in (line.rsplit("=", 1) for line in self.lines)]

    def test_names_and_numbers_are_unique_and_can_head_a_column(self):
        self.assertGreaterEqual(len(self.table), 40)
        self.assertEqual(len({name.lower() for name, _ in self.table}), len(self.table))
        self.assertEqual(len({number for _, number in self.table}), len(self.table))
        for name, number in self.table:
            self.assertRegex(name, r"^[^(=\t]{1,128}$")
            self.assertIn(number, range(0, 65535))

    def test_the_section_fits_the_readers_limit(self):
        self.assertLess(sum(len(line) + 1 for line in self.lines), 4096 - 1)

    def test_the_sample_uses_the_numbers_of_the_table(self):
        text = (REPOSITORY / "sample/res/ref_list_weatherclock.txt").read_text(encoding="utf-16")
        columns = re.findall(r"\t([^\t(]+)\((\d+)\)", text.splitlines()[1])
        self.assertEqual(len(columns), 6)
        for name, number in columns:
            self.assertIn((name, int(number)), self.table)
        program = (REPOSITORY / "sample/src/main.c").read_text(encoding="utf-8")
        numbers = re.findall(r'\{"[a-z]{2}", "[A-Za-z]+", (\d+)\}', program)
        self.assertEqual(sorted(numbers), sorted(number for _, number in columns))


class Texts(unittest.TestCase):
    def test_every_text_of_the_sample_is_translated_with_the_same_places_for_numbers(self):
        text = (REPOSITORY / "sample/res/ref_list_weatherclock.txt").read_text(encoding="utf-16")
        rows = [line.split("\t") for line in text.splitlines()[2:-1]]
        self.assertGreaterEqual(len(rows), 25)
        for row in rows:
            texts = row[3:]
            self.assertEqual(len(texts), 6, row[0])
            self.assertTrue(all(texts), row[0])
            self.assertEqual(len({tuple(re.findall(r"%(?:\d*d|%)", cell.replace("٪", "%%"))) for cell in texts}), 1, row[0])


class Resolutions(unittest.TestCase):
    def test_sizes_are_unique_and_hold_those_of_the_sample(self):
        sizes = lines_of("resolutions.ini", "Resolution")
        self.assertGreaterEqual(len(sizes), 12)
        self.assertEqual(len(set(sizes)), len(sizes))
        for size in sizes:
            self.assertRegex(size, r"^[1-9]\d*x[1-9]\d*$")
        project = (REPOSITORY / "sample/res/weatherclock.res.xml").read_text(encoding="utf-8")
        for width, height in re.findall(r'<RESOLUTION width="(\d+)" height="(\d+)"', project):
            self.assertIn(f"{width}x{height}", sizes)


class Settings(unittest.TestCase):
    # Their lines differ from the programs' defaults so that a first project finds its lists.
    FILLED = {("Path", "reso_set"), ("Resource Type", "Count")}

    def test_every_key_that_the_programs_read_stands_there_with_their_default(self):
        call = re.compile(r'\.(?:String|Int)\("([^"]+)",\s*"([^"]+)"(?:,\s*(?:"((?:[^"\\]|\\.)*)"|(\d+)))?\)')
        found = 0
        for source in (REPOSITORY / "src").rglob("*.cpp"):
            for section, key, text, number in call.findall(source.read_text(encoding="utf-8")):
                found += 1
                if (section, key) in self.FILLED or section == "Text":
                    continue
                default = (text or number).replace("\\\\", "\\")
                self.assertIn(f"{key}={default}", lines_of("Morvanite.ini", section), f"[{section}] of {source.name}")
        self.assertGreater(found, 10)

    def test_every_key_has_a_comment_above_it(self):
        lines = (FOLDER / "Morvanite.ini").read_text(encoding="utf-8").splitlines()
        for above, line in zip(lines, lines[1:]):
            if "=" in line and not line.startswith(";"):
                self.assertTrue(above.startswith("; "), line)

    def test_the_files_are_plain_utf8(self):
        for name in ("Morvanite.ini", "tuvik.ini", "resolutions.ini"):
            data = (FOLDER / name).read_bytes()
            self.assertFalse(data.startswith(b"\xef\xbb\xbf"), name)
            self.assertNotIn(b"\0", data)
            self.assertTrue(data.endswith(b"\n"), name)


if __name__ == "__main__":
    unittest.main()
