# SPDX-License-Identifier: MIT
"""Tests that every code in the sources and in the documents is explained, in the same words."""

import pathlib
import re
import unittest

from demo import DemoProject

TREE = pathlib.Path(__file__).parents[2]
ENUMS = (('pack/PackCodes.h', 'PackCode'), ('pack/ElfImage.h', 'ElfCode'), ('channel/IdeCommandHandler.h', 'ReportCode'),
         ('layout/LayoutFileObject.h', 'LayoutCode'), ('strings/StringFileFormat.h', 'Code'),
         ('exchange/Spreadsheet.h', 'SpreadsheetCode'))
FINDING = r'"((?:catalogue|import|layout|list|project|settings|sheet|strings)\.[a-z-]+)"'


class Explain(DemoProject):
    def explain(self, *code):
        status, out, err = self.run_cli('explain', *code)
        self.assertEqual((status, err), (0, ''), code)
        return out

    def test_knows_every_code_of_the_sources(self):
        codes = set()
        for header, name in ENUMS:
            body = re.search(rf'enum (?:class )?{name} : int\n\{{(.*?)\}};', (TREE / 'src/core' / header).read_text(), re.S)[1]
            found = set(re.findall(r'= (-?\d+),', body)) - {'0'}
            self.assertTrue(found, name)
            codes |= found
        for source in (TREE / 'src/core').rglob('*.cpp'):
            codes |= set(re.findall(FINDING, source.read_text())) - {'config.xml'}
        listed = [line.split()[0] for line in self.explain().splitlines()]
        self.assertEqual(codes - set(listed), set())
        self.assertEqual({code for code in listed if '.' in code} - codes, set(), 'a code that no source has')
        rules = re.findall(r'^([a-z-]+) \(.*\n    (.*)$', self.run_cli('check', '--explain', 'all')[1], re.M)
        for rule, explanation in rules:
            self.assertIn(rule, listed)
        self.assertIn(f'\n    {explanation}\n    See checks.md.\n', self.explain(rule))

    def test_has_the_words_and_names_the_place_of_the_documents(self):
        table = dict(re.findall(r'^\| (-\d+) \| (.*) \|$', (TREE / 'docs/pack-codes.md').read_text(), re.M))
        listed = [line.split()[0] for line in self.explain().splitlines()]
        for code, words in table.items():
            when, what_to_do = words.split(' | ')
            self.assertIn(f'{code} (a pack failed): {when}\n    {what_to_do}\n    See pack-codes.md.\n', self.explain(code))
        self.assertLessEqual({code for code in listed if re.fullmatch('-10[0-4][0-9]', code)} | {'-1'}, set(table))
        for document in set(re.findall(r'See (.*)\.$', ''.join(self.explain(code) for code in ('-1', '29', '-1500', '1608', '4306', 'sheet.header', 'settings.no-sizes', 'catalogue.malformed', 'list.type')), re.M)):
            self.assertTrue((TREE / 'docs' / document).is_file(), document)

    def test_takes_a_line_of_a_report_and_a_number_without_its_sign(self):
        for copied in ('1016', '### error -1016 ###', 'error -1016', 'Error 1016:', ' -1016 '):
            self.assertEqual(self.explain(copied), self.explain('-1016'), copied)
        self.assertEqual(self.explain('### error 5 ###'), self.explain('5'))
        packs = [int(line.split()[0]) for line in self.explain().splitlines() if line.startswith('-10')]
        self.assertEqual(packs, sorted(packs, reverse=True))

    def test_explains_errors_of_the_system_and_refuses_unknown_words(self):
        self.assertRegex(self.explain('2'), r"^2 \(a pack failed\): an output can't be opened: No such file or directory; ")
        self.assertEqual(self.explain('110').count('110 ('), 3, 'a command, a string file and the system have that number')
        for unknown in ('9999', 'no-such-rule', '-7777'):
            self.assertEqual(self.run_cli('explain', unknown), (2, '', f'morvanite-cli: explain: there is no code or rule "{unknown}"; '
                                                                       '"morvanite-cli explain" lists all\n'))


if __name__ == '__main__':
    unittest.main(argv=['explain_test'])
