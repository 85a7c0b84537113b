#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the data of the program folder and of the sample for errors that the programs can't report themselves.

Usage: program_folder.py REPOSITORY
"""

import pathlib
import re
import sys
import unittest

REPOSITORY = pathlib.Path(sys.argv.pop())
STRINGS = (REPOSITORY / "sample/res/ref_list_weatherclock.txt").read_text(encoding="utf-16").splitlines()


def lines_of(name, section):
    """Returns the lines of a section without comments and empty lines."""
    found, inside = [], False
    for line in (REPOSITORY / "packaging/program" / name).read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            inside = line == f"[{section}]"
        elif inside and line.strip() and not line.startswith(";"):
            found.append(line)
    return found


class ProgramFolder(unittest.TestCase):
    def test_languages_are_unique_valid_as_column_titles_and_within_the_readers_limit(self):
        lines = lines_of("tuvik.ini", "Language")
        names, numbers = zip(*(line.rsplit("=", 1) for line in lines))
        self.assertGreaterEqual(len(lines), 40)
        self.assertEqual(len({name.lower() for name in names}), len(lines))
        self.assertEqual(len({int(number) for number in numbers} & set(range(65535))), len(lines))
        self.assertTrue(all(re.fullmatch(r"[^(=\t]{1,128}", name) for name in names))
        self.assertLess(sum(len(line) + 1 for line in lines), 4096 - 1)

        codes = dict(line.split("=") for line in lines_of("tuvik.ini", "Code"))
        self.assertEqual(list(codes), list(numbers), "each language has a code")
        self.assertEqual(len(set(codes.values())), len(codes))
        self.assertTrue(all(re.fullmatch(r"[a-z]{2,3}(-[A-Z][a-z]{3})?(-([A-Z]{2}|\d{3}))?", code) for code in codes.values()))
        self.assertEqual((codes["8"], codes["13"], codes["44"]), ("de", "pt-BR", "ar"))

        columns = re.findall(r"\t([^\t(]+)\((\d+)\)", STRINGS[1])
        self.assertEqual(len(columns), 6)
        self.assertLessEqual({f"{name}={number}" for name, number in columns}, set(lines))
        program = (REPOSITORY / "sample/src/main.c").read_text(encoding="utf-8")
        used = re.findall(r'\{"[a-z]{2}", "[A-Za-z]+", (\d+)\}', program)
        self.assertEqual(sorted(used), sorted(number for _, number in columns))

    def test_all_texts_of_the_sample_but_one_are_translated_with_the_same_placeholders(self):
        self.assertGreaterEqual(len(STRINGS), 28)
        gaps = []
        for row in STRINGS[2:-1]:
            cells = row.split("\t")
            self.assertEqual(len(cells), 9, row)
            gaps += [(cells[0], column) for column in range(3, 9) if not cells[column]]
            places = {tuple(re.findall(r"%(?:\d*d|%)", text.replace("٪", "%%"))) for text in cells[3:] if text}
            self.assertEqual(len(places), 1, row)
        self.assertEqual(gaps, [("ID_STRING_FROST_PUSH", 7)], "the gap that the window's string table shows")

    def test_resolutions_are_unique_and_include_those_of_the_sample(self):
        sizes = lines_of("resolutions.ini", "Resolution")
        self.assertGreaterEqual(len(sizes), 12)
        self.assertEqual(len(set(sizes)), len(sizes))
        self.assertTrue(all(re.fullmatch(r"[1-9]\d*x[1-9]\d*", size) for size in sizes))
        project = (REPOSITORY / "sample/res/weatherclock.res.xml").read_text(encoding="utf-8")
        for width, height in re.findall(r'<RESOLUTION width="(\d+)" height="(\d+)"', project):
            self.assertIn(f"{width}x{height}", sizes)

    def test_settings_have_every_key_with_its_default(self):
        call = re.compile(r'\.(?:String|Int)\("([^"]+)",\s*"([^"]+)"(?:,\s*(?:"((?:[^"\\]|\\.)*)"|(\d+)))?\)')
        calls = [found for source in (REPOSITORY / "src").rglob("*.cpp") for found in call.findall(source.read_text("utf-8"))]
        self.assertGreater(len(calls), 10)
        for section, key, text, number in calls:
            # These two keys differ from the defaults so that a first project finds its lists.
            if (section, key) not in {("Path", "reso_set"), ("Resource Type", "Count")} and section != "Text":
                self.assertIn(f"{key}={text or number}".replace("\\\\", "\\"), lines_of("Morvanite.ini", section))


if __name__ == "__main__":
    unittest.main()
