#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Packs the sample again, in Python and only from the description of the format, and compares the bytes.

Usage: payload.py MORVANITE_CLI REPOSITORY
"""

import itertools
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

REPOSITORY = pathlib.Path(sys.argv[2])
sys.path.insert(0, str(REPOSITORY / "tests/cli"))
from demo import CLI, DemoProject  # noqa: E402

LIST = "sample/res/weatherclock.res.xml"
PUSH_KINDS = {"audio": 100000, "binary": 102000, "image": 103000, "string": 104000}


def padded(data):
    return data + bytes(-len(data) % 4)


class Layout:
    """The device's form of a layout, made from the description alone. The layout has a catalogue and no faults."""

    WORDS = {"ZulBool": 16, "ZulS32": 17, "ZulU32": 18, "ZulId": 18, "ZulMsec": 19, "ZulFloat": 20, "ZulColor": 21, "ZulResId": 23,
             "ZulWString": 24, "ZulImageSrc": 25, "ZulPoint": 26, "ZulSize": 27, "ZulFPoint": 28, "ZulRect": 29, "ZrpStateImage": 30}

    def __init__(self, catalogue, values):
        self.values, self.types, self.properties = values, {}, []
        for element in xml.etree.ElementTree.parse(catalogue).getroot():
            self.types[element.get("name")] = element
            if element.tag != "enumeration":
                self.properties += [m.get("name") for m in element if m.get("name") not in self.properties]
        self.classes = [name for name, element in self.types.items() if element.tag == "class"]

    def members(self, type_name):
        element = self.types[type_name]
        inherited = self.members(element.get("base")) if element.get("base") else {}
        return inherited | {member.get("name"): member.get("type") for member in element}

    def value(self, type_name, text):
        if type_name in self.types:
            return 22, struct.pack("<I", [item.get("name") for item in self.types[type_name]].index(text))
        if type_name == "ZulColor":
            return 21, struct.pack("<I", int(text[1:], 16))
        if type_name == "ZulMsec":
            return 19, struct.pack("<I", int(float(text.rstrip("ms")) * (1 if text.endswith("ms") else 1000)))
        words = [word.strip() for word in text.strip("()").split(",")]
        if "@" in text:
            return self.WORDS[type_name], struct.pack(f"<{len(words)}I", *(self.values.get(word[1:], 0) for word in words))
        if type_name in ("ZulFloat", "ZulFPoint"):
            return self.WORDS[type_name], struct.pack(f"<{len(words)}f", *map(float, words))
        return self.WORDS[type_name], struct.pack(f"<{len(words)}i", *(int(word == "true" or word) for word in words))

    @staticmethod
    def part(number, kind, content):
        words = len(content) // 4
        return struct.pack("<HBB", number, kind, min(words, 255)) + (b"" if words < 255 else struct.pack("<I", len(content))) + content

    def content(self, element, depth):
        self.levels = max(self.levels, depth)
        members, groups, inside = self.members(element.tag), b"", b""
        values = b"" if not element.get("name") else self.part(0, 3, padded(element.get("name").encode() + b"\0"))
        for name, text in element.items():
            if name not in ("name", "prop"):
                values += self.part(self.properties.index(name) + 1, *self.value(members[name], text))
        for child in element:
            if child.get("prop"):
                groups += self.part(self.properties.index(child.get("prop")) + 1, 2, self.content(child, depth + 1))
            else:
                inside += self.part(self.classes.index(child.tag) + 1, 1, self.content(child, depth + 1))
        return values + groups + inside

    def convert(self, layout, table):
        self.levels = 0
        parts = b"".join(self.part(self.classes.index(c.tag) + 1, 1, self.content(c, 1)) for c in layout)
        return struct.pack("<4sBBHIII", b"MLAY", 1, 20, self.levels, 20 + len(parts), self.values[layout.get("id")], table) + parts


class Sample:
    """The sample's project, read without code of Morvanite."""

    def __init__(self, folder, converter):
        self.folder, self.converter, self.with_layouts = folder, converter, False
        self.root = xml.etree.ElementTree.parse(folder / "res/weatherclock.res.xml").getroot()
        lines = (folder / "res/ref_list_weatherclock.txt").read_bytes().decode("utf-16").split("\r\n")
        self.languages = [int(n) for n in re.findall(r"\((\d+)\)", lines[1])]
        self.rows = [line.split("\t") for line in lines[2:] if line and not line.startswith("##")]
        self.values = self.number()

    def number(self):
        kinds = {row[0]: (row[1], "string") for row in self.rows}
        for element in self.root.iter():
            if element.tag == "IMAGE":
                kinds[element.get("id")] = (element.get("type"), "image")
            elif element.tag == "FILE":
                kinds[element.get("id")] = (element.get("type"), "audio" if element.text.endswith("wav") else "binary")
        for path in self.folder.glob("res/layout_*.xml") if self.with_layouts else ():
            kinds |= {layout.get("id"): ("Normal", "layout") for layout in xml.etree.ElementTree.parse(path).getroot()}
        values, following = {}, {"Normal": 1, **PUSH_KINDS}
        for name in sorted(kinds, key=str.encode):
            push, kind = kinds[name]
            counter = kind if push == "Push" else "Normal"
            values[name] = following[counter]
            following[counter] += 1
        return values

    def read(self, path, convert):
        source = self.folder / path.replace("\\", "/")
        if not convert or source.suffix not in (".png", ".jpg", ".gif", ".bmp"):
            return source.read_bytes()
        with tempfile.NamedTemporaryFile() as target:
            subprocess.run([self.converter, "-f", "-i", source, target.name], check=True)
            return pathlib.Path(target.name).read_bytes()

    def entries(self, convert):
        yield "AppLogo.img", (self.folder / "AppLogo.img").read_bytes()
        if convert:
            for number, line in enumerate((self.folder / "preview.lst").read_text().splitlines()):
                yield f"zep.preview_{number}", self.read(line, True)
        for line in (self.folder / "weatherclock_res.lst").read_text().splitlines():
            yield line.split("\\")[-1], self.read(line, convert)

    def strings(self, column):
        rows = [(self.values[row[0]], row[3 + column]) for row in self.rows if row[3 + column]]
        at = 4 + 8 * (len(rows) + 1)
        table, texts = struct.pack("<I", len(rows) + 1), b""
        for value, text in rows:
            table += struct.pack("<II", value, at + len(texts))
            texts += padded(text.encode("utf-16-le") + b"\0\0")
        return table + struct.pack("<II", 0xFFFFFFFF, at + len(texts)) + texts

    def items(self, screen, convert):
        for column, language in enumerate(self.languages):
            yield 0xFFFF0000 | language, self.strings(column)
        for kind in (".wav", ".bin"):
            for element in self.root.iter("FILE"):
                if element.text.endswith(kind):
                    yield self.values[element.get("id")], padded(bytes(8 if convert else 0) + self.read(element.text, False))
        groups = [g for g in self.root.findall("RESOLUTION") if f"{g.get('width')}x{g.get('height')}" == screen]
        for group in groups + [self.root]:
            for element in group.findall("IMAGE"):
                pushed = element.get("type") == "Push"
                yield self.values[element.get("id")], padded(self.read(element.text, convert or pushed))

        for path in self.folder.glob(f"res/layout_*_{screen}.xml") if self.with_layouts else ():
            table = int(re.search(r"LAYOUT_TABLE (0x[0-9A-F]+)", (self.folder / "ResID/LayoutID.h").read_text())[1], 16)
            converter = Layout(REPOSITORY / "packaging/program/catalogue.xml", self.values)
            for layout in xml.etree.ElementTree.parse(path).getroot():
                yield self.values[layout.get("id")], converter.convert(layout, table)

    def payload(self, screen, convert, base, pad):
        entries, items = list(self.entries(convert)), list(self.items(screen, convert))
        size = sum(len(name) + 9 for name, _ in entries) + len("zep-2.0") + 9 + 9
        directory, data, table, blocks = b"", b"", b"", b""
        start = base + size + -size % 4
        for name, content in entries:
            directory += name.encode() + b"\0" + struct.pack("<II", start + len(data), len(content))
            data += pad(content)
        start += len(data)
        count = 8 * (len(items) + 1)
        directory += b"zep-2.0\0" + struct.pack("<II", start, count) + b"\0" + struct.pack("<II", start, 0)
        for key, content in items:
            table += struct.pack("<II", key, start + count + len(blocks))
            blocks += content
        return padded(directory) + data + table + struct.pack("<II", 0xFFFFFFFF, start + count + len(blocks)) + blocks


class Payload(DemoProject):
    def setUp(self):
        super().setUp()
        # The settings of the project, and its list with layouts, are copied only by the test that needs layouts.
        shutil.copytree(REPOSITORY / "sample", self.dir / "sample", ignore=shutil.ignore_patterns("morvanite.ini"))
        listing = self.dir / LIST
        listing.write_text(re.sub(r'<RESOLUTION [^>]* class="layout">.*?</RESOLUTION>', "", listing.read_text(), flags=re.S))
        self.sample = Sample(self.dir / "sample", pathlib.Path(CLI).parent / "qrk_resgenerator.exe")
        self.input = self.dir / "app.axf"
        self.env["XDG_CONFIG_HOME"] = str(self.dir)

    def pack(self, screen, kind, convert):
        """Returns the bytes that the pack appended to those of the input."""
        status, out, err = self.run_cli("pack", "sample/weatherclock.vcproj", "--input", self.input, "--output", "packed",
                                        "--resolution", screen, "--target", kind, "--convert-images", str(convert))
        self.assertEqual(status, 0, out + err)
        return (self.dir / "packed").read_bytes()[self.input.stat().st_size:]

    def assert_same(self, found, wanted):
        """Compares without the long output of assertEqual."""
        self.assertEqual(len(found), len(wanted))
        self.assertEqual(next((n for n, pair in enumerate(zip(found, wanted)) if pair[0] != pair[1]), None), None)

    def test_packs_every_screen_with_both_conversions_and_both_kinds_of_offsets(self):
        self.input.write_bytes(self.input.read_bytes() + b"?")
        start, fill = self.input.stat().st_size + 3, bytes(3)
        (self.dir / "morvanite").mkdir()
        for screen, convert, relative in itertools.product(("240x320", "320x240", "480x272", "128x128"), (0, 1), (0, 1)):
            with self.subTest(screen=screen, convert=convert, relative=relative):
                (self.dir / "morvanite/Morvanite.ini").write_text(f"[ResID]\nrelativeoffset={relative}\n")
                appended = self.pack(screen, "axf", convert)
                wanted = fill + self.sample.payload(screen, convert, 0 if relative else start, padded)
                self.assert_same(appended[:len(wanted)], wanted)
                self.assert_same((self.dir / "arm/app.res").read_bytes(), self.sample.payload(screen, convert, 0, padded))

    def test_packs_layouts_if_the_settings_enable_them(self):
        shutil.copy(REPOSITORY / "sample/morvanite.ini", self.dir / "sample")
        shutil.copy(REPOSITORY / LIST, self.dir / LIST)
        self.sample.with_layouts = True
        self.sample.values = self.sample.number()
        status, out, err = self.run_cli("save", "sample/weatherclock.vcproj")
        self.assertEqual(status, 0, out + err)
        for screen in ("240x320", "320x240", "480x272", "128x128"):
            with self.subTest(screen=screen):
                wanted = self.sample.payload(screen, 1, 0, padded)
                self.assertEqual(wanted.count(b"MLAY\1"), screen != "128x128")
                self.assert_same(self.pack(screen, "axf", 1)[:len(wanted)], wanted)

    def test_appends_to_a_dll_of_any_size(self):
        for size in range(self.input.stat().st_size, self.input.stat().st_size + 4):
            with self.input.open("ab") as application:
                application.truncate(size)
            wanted = self.sample.payload("320x240", 1, size + 8, bytes)
            self.assert_same(self.pack("320x240", "dll", 1), b".zp_res\0" + wanted + struct.pack("<I", size))

    def test_icons_match_their_pictures(self):
        for picture, icon in (("sample/art/AppLogo.png", "sample/AppLogo.img"),
                              ("packaging/program/AppLogo.png", "packaging/program/AppLogo.img")):
            self.assert_same((REPOSITORY / icon).read_bytes(), self.sample.read(str(REPOSITORY / picture), True))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
