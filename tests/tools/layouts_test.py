#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the converter of layouts as the packer starts it: its command line, its messages, its files.

Use: layouts_test.py ZUL_XML_CONV CONVERT_I_2_H REPOSITORY
"""

import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest

REPOSITORY, SUBTOOL, TOOL = (os.path.abspath(sys.argv.pop()) for _ in range(3))
REPOSITORY = pathlib.Path(REPOSITORY)
TABLES = REPOSITORY / "packaging/program/layout_tables.xml"
CATALOGUE = b"""<catalogue version="1">
    <enumeration name="Align"><item name="left"/><item name="right"/></enumeration>
    <class name="Label"><member name="pos" type="ZulPoint"/><member name="text" type="ZulWString"/></class>
</catalogue>"""
LAYOUTS = b"""<TarvoXML>
    <Layout id="ID_LAYOUT_A"><Label pos="(1, 2)" text="@ID_STRING_HI"/></Layout>
    <Layout id="ID_LAYOUT_B"/>
</TarvoXML>"""
HEADER = b"#define  ID_LAYOUT_A    4\r\n#define  ID_LAYOUT_B    5\r\n#define  ID_STRING_HI    104000\r\n"


class Layouts(unittest.TestCase):
    def setUp(self):
        self.dir = pathlib.Path(tempfile.mkdtemp(prefix="lay outs "))
        self.addCleanup(shutil.rmtree, self.dir)
        for folder in ("out", "tables"):
            (self.dir / folder).mkdir()
        self.put("in.xml", LAYOUTS)
        self.put("types.xml", CATALOGUE)
        self.put("ResID.h", HEADER)

    def put(self, name, content):
        (self.dir / name).write_bytes(content)

    def run_tool(self, *arguments):
        """Returns the exit status and the messages."""
        done = subprocess.run(arguments, capture_output=True, cwd=self.dir, timeout=60,
                              env=dict(os.environ, MORVANITE_PROGRAM_DIR=str(self.dir), XDG_CONFIG_HOME=str(self.dir)))
        self.assertEqual(done.stdout, b"")
        return done.returncode, done.stderr.decode()

    def convert(self, *through, **changed):
        """Returns the exit status and the messages for the command line that the packer uses."""
        options = {"i": "in.xml", "o": "out", "x": "types.xml", "t": "tables", "h": "ResID.h", "E": SUBTOOL, **changed}
        words = [word for option in "ioxth" for word in (f"-{option}", self.path(options[option]))]
        return self.run_tool(*through, TOOL, *words, "-p", "-e", "-E", options["E"])

    def path(self, name):
        return f"{self.dir}\\{name}" if name else ""

    def names(self, folder):
        return sorted(path.name for path in (self.dir / folder).iterdir())

    def assert_refused(self, message, **changed):
        status, err = self.convert(**changed)
        self.assertEqual(status, 1, err)
        self.assertIn(message, err)
        self.assertEqual(self.names("out"), [])

    def test_writes_a_file_for_each_layout_id(self):
        self.assertEqual(self.convert(), (0, ""))
        self.assertEqual(self.names("out"), ["ID_LAYOUT_A.bin", "ID_LAYOUT_B.bin"])
        self.assertEqual(self.names("tables"), [], "only a save writes them")
        found = (self.dir / "out/ID_LAYOUT_A.bin").read_bytes()
        stamp = found[16:20]
        part = struct.pack("<HBBHBBiiHBBI", 1, 1, 5, 1, 26, 2, 1, 2, 2, 24, 1, 104000)
        self.assertEqual(found, struct.pack("<4sBBHII", b"MLAY", 1, 20, 1, 20 + len(part), 4) + stamp + part)
        again = (self.dir / "out/ID_LAYOUT_B.bin").read_bytes()
        self.assertEqual(again, struct.pack("<4sBBHII", b"MLAY", 1, 20, 0, 20, 5) + stamp)

    def test_all_values_are_text_without_a_catalogue(self):
        for catalogue in ("", "tables"):
            self.assertEqual(self.convert(x=catalogue, t=""), (0, ""))
            found = (self.dir / "out/ID_LAYOUT_A.bin").read_bytes()
            self.assertIn(b"pos\0(1, 2)\0", found)
            self.assertEqual(found[16:20], bytes(4))
        status, err = self.convert(x="other.xml")
        self.assertEqual(status, 0)
        self.assertRegex(err, r"other\.xml: the file does not exist, so all properties remain text\n$")

    def test_wrong_command_lines_print_the_usage(self):
        for words in ((), ("-i",), ("-i", "a"), ("-i", "a", "-o", "b", "-q"), ("-i", "a", "-i", "a", "-o", "b"), ("-i", "", "-o", "b")):
            status, err = self.run_tool(TOOL, *words)
            self.assertEqual((status, err[:6]), (2, "usage:"), words)
        self.assertEqual(self.run_tool(SUBTOOL, "a")[0], 2)

    def test_reports_errors_with_file_and_line_and_writes_nothing(self):
        for content, message in (
                (b"<TarvoXML>\n<Layout id></TarvoXML>", "in.xml, line 2: this is not well-formed XML"),
                (b"", "in.xml, line 1: "), (b"\n<Other/>", "in.xml, line 2: the outermost element should be <TarvoXML>"),
                (b"<TarvoXML>\n<Layout id='ID_LAYOUT_A'/>\n<layout/></TarvoXML>", "line 3: only <Layout> is allowed"),
                (b"<TarvoXML>\n<Layout/></TarvoXML>", 'line 2: <Layout> needs the attribute "id"'),
                (LAYOUTS.replace(b"_B", b"_A"), "line 3: the ID of this layout is empty or already used"),
                (LAYOUTS.replace(b"_B", b"_C"), 'line 3: "ID_LAYOUT_C" has no number in the header'),
                (LAYOUTS.replace(b"ID_LAYOUT_B", b"../b"), "line 3: the ID of this layout is not valid"),
                (LAYOUTS.replace(b"_HI", b"_LO"), 'line 2: "ID_STRING_LO" has no number in the header'),
                (LAYOUTS.replace(b"\"ID_LAYOUT_B\"/>", b"'ID_LAYOUT_B'>\n<Label><Label\npos='1'/></Label></Layout>"),
                 'line 4: "1" is not a valid value for "pos", which has the type ZulPoint')):
            self.put("in.xml", content)
            self.assert_refused(message)
        self.put("in.xml", LAYOUTS)
        self.put("bad.xml", CATALOGUE.replace(b"ZulPoint", b"ZulDot"))
        self.assert_refused('bad.xml, line 3: unknown type "ZulDot"', x="bad.xml")
        self.assert_refused("ResID2.h: No such file", h="ResID2.h")
        self.assert_refused("none.xml: can't be opened", i="none.xml")
        self.assert_refused("No such file", o="nowhere")

    def test_hostile_files_are_refused_with_a_message(self):
        deep = b"<Label>" * 100_000
        many = b"<Label pos='x'/>" * 20_000
        for content in (b"<TarvoXML><Layout id='ID_LAYOUT_A'>" + deep, b"<TarvoXML><Layout id='ID_LAYOUT_A'>" + many +
                        b"</Layout></TarvoXML>", bytes(range(256)) * 4000):
            self.put("in.xml", content)
            self.assert_refused("in.xml, line 1: ")
        self.assertLess(len(self.convert()[1].splitlines()), 200)

    def save(self):
        shutil.copy(TABLES, self.dir / "tables.xml")
        return self.convert(i="tables.xml", h="")

    def test_a_save_writes_the_tables_and_a_header_that_compiles(self):
        self.assertEqual(self.save(), (0, ""))
        self.assertEqual(self.names("tables"), ["LayoutID.h", "zul_xml_enum.i", "zul_xml_table.i"])
        self.assertEqual(self.names("out"), [])
        table = (self.dir / "tables/zul_xml_table.i").read_text()
        self.assertEqual(re.sub(r".*\(0x[0-9A-F]{8}\)\n", "", table, flags=re.S),
                         "ZUL_CLASS(1, Label)\nZUL_PROPERTY(1, pos)\nZUL_PROPERTY(2, text)\n")
        self.put("a.c", b"""#define LAYOUT_NAMES
#include "LayoutID.h"
#include <string.h>
enum { STAMP =
#define ZUL_TABLE(stamp) stamp };
#define ZUL_CLASS(number, name)
#define ZUL_PROPERTY(number, name)
#include "zul_xml_table.i"
int main(void)
{
    return LAYOUT_CLASS_Label != 1 || LAYOUT_PROPERTY_text != 2 || LAYOUT_ENUM_Align_right != 1 || LAYOUT_TABLE != STAMP ||
           strcmp(layout_class_names[1], "Label") != 0 || strcmp(layout_property_names[2], "text") != 0;
}
""")
        subprocess.run(("cc", "-std=c99", "-Wall", "-Wextra", "-Werror", "-Itables", "a.c", "-o", "a"), cwd=self.dir, check=True)
        subprocess.run(self.dir / "a", check=True)
        self.assertEqual(self.convert(), (0, ""))
        self.put("types.xml", CATALOGUE.replace(b"right", b"end"))
        shutil.rmtree(self.dir / "out")
        (self.dir / "out").mkdir()
        self.assert_refused("zul_xml_table.i: the file was made from another catalogue; save the project")
        self.assertEqual(self.save(), (0, ""))
        self.assertEqual(self.convert(), (0, ""))

    def test_a_file_size_limit_is_an_error_without_a_crash(self):
        limit = ("prlimit", "--fsize=20")
        status, err = self.convert(*limit)
        self.assertEqual(status, 1)
        self.assertRegex(err, "ID_LAYOUT_A.bin: .*File too large")
        self.assertEqual(self.names("out"), [])
        self.put("a.i", b"ZUL_CLASS(1, Label)\n")
        self.put("b.i", b"")
        status, err = self.run_tool(*limit, SUBTOOL, "a.i", "b.i", "new.h")
        self.assertEqual(status, 1)
        self.assertIn("new.h: File too large", err)
        self.assertEqual([name for name in self.names(".") if name.startswith("new")], [])

    def test_the_sub_tool_does_not_write_through_existing_files(self):
        self.put("a.i", b"ZUL_CLASS(1, Label)\n")
        self.put("mine", b"mine")
        for link in ("new.h", "new.h.new"):
            (self.dir / link).symlink_to("mine")
        self.assertEqual(self.run_tool(SUBTOOL, "a.i", "a.i", "new.h")[0], 1, "the same name twice")
        self.put("b.i", b"")
        self.assertEqual(self.run_tool(SUBTOOL, "a.i", "b.i", "new.h"), (0, ""))
        self.assertEqual((self.dir / "mine").read_bytes(), b"mine")
        self.assertIn(b"LAYOUT_CLASS_Label", (self.dir / "new.h").read_bytes())
        self.assertEqual(self.names(".")[-3:], ["out", "tables", "types.xml"], "no temporary file")

    def test_a_signal_also_ends_the_sub_tool(self):
        self.put("in.xml", LAYOUTS.replace(b"ID_LAYOUT_A", b"ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D"))
        self.put("slow", b"#!/bin/sh\necho $$ > started\nsleep 2\necho late > late\n")
        (self.dir / "slow").chmod(0o755)
        words = [word for option, name in zip("ioxth", ("in.xml", "out", "types.xml", "tables", "ResID.h"))
                 for word in (f"-{option}", self.path(name))]
        tool = subprocess.Popen((TOOL, *words, "-p", "-e", "-E", str(self.dir / "slow")), cwd=self.dir)
        deadline = time.monotonic() + 30
        while not (self.dir / "started").exists() or not (self.dir / "started").read_bytes():
            self.assertLess(time.monotonic(), deadline)
            time.sleep(0.02)
        tool.terminate()
        self.assertEqual(tool.wait(30), -signal.SIGTERM)
        with self.assertRaises(ProcessLookupError):
            os.kill(int((self.dir / "started").read_bytes()), 0)

    def test_the_sub_tool_keeps_the_old_header_when_a_table_is_invalid(self):
        self.put("old.h", b"old")
        self.put("a.i", b"ZUL_CLASS(1, A_B)\nZUL_ENUMERATOR(A, 0, B_C)\n")
        for content, message in ((b"ZUL_CLASS(1, Label)\nint x;\n", "b.i, line 2: this is not a line of a table"),
                                 (b"ZUL_CLASS(1, " + b"x" * 100_000 + b")\n", "b.i, line 1: "),
                                 (b"ZUL_CLASS(99999, x)\n", "b.i, line 1: "),
                                 (b"ZUL_ENUMERATOR(A_B, 0, C)\n", "LAYOUT_ENUM_A_B_C: two names")):
            self.put("b.i", content)
            status, err = self.run_tool(SUBTOOL, "a.i", "b.i", "old.h")
            self.assertEqual(status, 1)
            self.assertIn(message, err)
        self.assertEqual(self.run_tool(SUBTOOL, "none.i", "a.i", "old.h")[0], 1)
        self.assertEqual((self.dir / "old.h").read_bytes(), b"old")
        self.assertEqual([name for name in self.names(".") if name.startswith("old")], ["old.h"])


if __name__ == "__main__":
    unittest.main()
