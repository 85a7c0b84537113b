#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the rule glyph-missing and "strings codepoints" with fontTools, for two fonts and most characters.

Use: fonts_test.py MORVANITE_CLI PROGRAM_FOLDER
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unicodedata
import unittest

PROGRAM = os.path.abspath(sys.argv.pop())
CLI = os.path.abspath(sys.argv.pop())
FONTS = {'default': '/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf',
         'hi': '/usr/share/fonts/truetype/lohit-devanagari/Lohit-Devanagari.ttf'}
# Languages of the program's table: their columns, and the code of one that has its own font.
COLUMNS = ('English(0)', 'French(6)', 'German(8)', 'Spanish(10)', 'Russian(20)', 'Hindi(47)')
NAMED = 20 # the most characters that a finding names

sys.path.append('/usr/lib/python3/dist-packages') # where Debian has fontTools, if another Python runs this
try:
    from fontTools.ttLib import TTFont
except ImportError:
    TTFont = None


def characters():
    """Characters that can be in a text, with some above U+FFFF, in as many parts as there are languages."""
    all_ = [chr(code) for code in (*range(0x21, 0x3100), *range(0xA000, 0xD800), *range(0xF900, 0xFFFE), *range(0x1D400, 0x1D800),
                                   *range(0x1F300, 0x1F700))]
    all_ = [c for c in all_ if unicodedata.category(c) not in ('Cc', 'Zs', 'Zl', 'Zp') and c not in '\\\ufeff']
    return [all_[language::len(COLUMNS)] for language in range(len(COLUMNS))]


@unittest.skipUnless(TTFont, 'python3-fonttools is not installed')
@unittest.skipUnless(all(map(os.path.exists, FONTS.values())), 'needs fonts-dejavu-core and fonts-lohit-deva')
class Coverage(unittest.TestCase):
    def setUp(self):
        self.dir = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.dir, ignore_errors=True)
        (self.dir / 'res').mkdir()
        (self.dir / 'demo.vcproj').touch()
        (self.dir / 'config.xml').write_text('<config><resolution><Width>240</Width><Height>320</Height></resolution>'
                                             '<zxa><zepversion>20</zepversion></zxa></config>')
        (self.dir / 'res/demo.res.xml').write_text('<APP id="APP_demo"><STRING>res\\ref_list_demo.txt</STRING></APP>')
        (self.dir / 'morvanite-check.ini').write_text('[Font]\n' + ''.join(f'{key}={file} 16\n' for key, file in FONTS.items()))

    def put_texts(self, texts):
        """A row of each hundred characters."""
        rows = [f'Number of Language\t{len(COLUMNS)}', '\t'.join(['String ID', 'Resource Type', 'Description', *COLUMNS])]
        size = 100
        for start in range(0, max(map(len, texts)), size):
            rows.append('\t'.join([f'ID_{start}', 'Normal', ''] + [''.join(text[start:start + size]) for text in texts]))
        rows.append(f'##number\t{len(rows) - 2}')
        (self.dir / 'res/ref_list_demo.txt').write_bytes(b'\xff\xfe' + '\r\n'.join(rows + ['']).encode('utf-16-le'))

    def output(self, *arguments):
        return subprocess.run((CLI, *arguments), stdout=subprocess.PIPE, check=True, cwd=self.dir,
                              env=dict(os.environ, MORVANITE_PROGRAM_DIR=PROGRAM)).stdout.decode()

    def test_missing_characters_are_those_of_the_fonts_tables(self):
        texts = characters()
        self.put_texts(texts)
        found = {finding['language']: finding['text'] for finding in json.loads(self.output(
            'check', 'demo.vcproj', '--rule=glyph-missing', '--format=json', '--fail-on=never'))['findings']}
        for column, text in zip(COLUMNS, texts):
            number = int(re.search(r'\d+', column)[0])
            font = FONTS['hi' if column.startswith('Hindi') else 'default']
            covered = TTFont(font).getBestCmap()
            missing = sorted(ord(c) for c in text if ord(c) not in covered and unicodedata.category(c) != 'Cf'
                             and not 0xFE00 <= ord(c) <= 0xFE0F)
            self.assertGreater(len(missing), NAMED)
            self.assertLess(len(missing), len(text))
            named = ', '.join(f'U+{code:04X} ({chr(code)})' for code in missing[:NAMED])
            self.assertEqual(found[number], f'the font lacks {len(missing)} characters: {named}, ...')

    def test_code_points_are_those_of_the_texts(self):
        texts = characters()
        self.put_texts(texts)
        for column, text in zip(COLUMNS, texts):
            ranges = self.output('strings', 'codepoints', 'demo.vcproj', '--language', re.search(r'\d+', column)[0],
                                 '--format', 'ranges')
            listed = [[int(code, 16) for code in re.findall('[0-9A-F]+', line.replace('U+', ''))] for line in ranges.split('\n')]
            codes = [code for pair in listed if pair for code in range(pair[0], pair[-1] + 1)]
            self.assertEqual(codes, sorted(map(ord, text)))

    def test_a_font_that_is_cut_off_is_a_finding(self):
        self.put_texts([['A']] * len(COLUMNS))
        whole = pathlib.Path(FONTS['default']).read_bytes()
        (self.dir / 'morvanite-check.ini').write_text('[Font]\ndefault=cut.ttf 16\n')
        for size in (len(whole), len(whole) - 1, len(whole) * 9 // 10, len(whole) // 2, 300, 1, 0):
            (self.dir / 'cut.ttf').write_bytes(whole[:size])
            findings = json.loads(self.output('check', 'demo.vcproj', '--format=json', '--fail-on=never'))['findings']
            self.assertEqual([finding['rule'] for finding in findings if 'cut.ttf' in finding['text']],
                             ['check-settings'] if size < len(whole) else [], size)


if __name__ == '__main__':
    unittest.main()
