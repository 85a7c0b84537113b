#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares rules about texts with pofilter of the Translate Toolkit, which checks translations too.

True texts in eleven languages get faults. For each pair of texts, both must find something, or neither; all differences
are explained in the table below.

Use: pofilter_test.py MORVANITE_CLI PROGRAM_FOLDER
"""

import configparser
import json
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from collections import Counter

PROGRAM = os.path.abspath(sys.argv.pop())
CLI = os.path.abspath(sys.argv.pop())
HERE = pathlib.Path(__file__).parent

# Our rule, and what pofilter calls the same.
TESTS = {'blank-edge': ('startwhitespace', 'endwhitespace'), 'blank-only': ('blank',), 'double-blank': ('doublespacing',),
         'end-punctuation': ('endpunc',), 'escape-mismatch': ('escapes', 'newlines', 'tabs'),
         'placeholder-mismatch': ('printf', 'pythonbraceformat'), 'same-as-source': ('unchanged',)}


def true_pairs():
    """Source text, language code and translation of every true text."""
    for name in ('true_texts.txt', 'faulty_texts.txt'):
        for block in (HERE / name).read_text(encoding='utf-8').split('\n\n'):
            texts = dict(line.split('=', 1) for line in block.split('\n') if re.match(r'[a-z]{2}(-\w+)?=', line))
            source = texts.pop('en')
            yield from ((source, code, text) for code, text in texts.items())


def replaced(pattern, new):
    """A fault that replaces what a pattern first matches; None for a text without it."""
    def put_in(_source, text):
        other = re.sub(pattern, new, text, count=1)
        return other if other != text else None
    return put_in


END = r'[.!?:;。！？：；؟؛।…]+$'
FAULTS = {
    'end mark lost': replaced(END, ''),
    'full stop added': replaced(r'$', '.'),
    'other end mark': replaced(END, '!!'),
    'stop for another mark': replaced(r'[!?:！？：؟…]$', '.'),
    'dots for an ellipsis': replaced(r'…$', '...'),
    'ellipsis for dots': replaced(r'\.\.\.$', '…'),
    'blank at the end': replaced(r'$', ' '),
    'blank at the beginning': replaced(r'^', ' '),
    'no-break blank at the end': replaced(r'$', '\u00a0'),
    'blank at the end lost': replaced(r' $', ''),
    'two blanks': replaced(r'(?<=\w) (?=\w)', '  '),
    'line break lost': replaced(r'\\n', ' '),
    'line break added': replaced(r'$', r'\\n'),
    'tab lost': replaced(r'\\t', ' '),
    'quotation mark lost': replaced(r'\\"', ''),
    'backslash lost': replaced(r'\\\\', '/'),
    'other quotation marks': lambda _, text: re.sub(r'\\"(.*)\\"', r'“\1”', text) if r'\"' in text else None,
    'integer for a text': replaced(r'%s', '%d'),
    'text for an integer': replaced(r'%d', '%s'),
    'long for an integer': replaced(r'%d', '%ld'),
    'placeholder lost': replaced(r'%(\d\$)?[dsu]|\{\w+\}', ''),
    'placeholder added': replaced(r'$', ' %s'),
    'width added': replaced(r'%d', '%5d'),
    'numbers of arguments exchanged': lambda _, text: text.replace('%1$s', '%2$s', 1) if '%1$s' in text else None,
    'placeholder translated': replaced(r'\{name\}', '{nom}'),
    'other number in braces': replaced(r'\{1\}', '{2}'),
    'only blanks': lambda _, __: '  ',
    'not translated': lambda source, _: source,
}


def has_other_blanks(source, _, text):
    return re.search(r'\s*$', source)[0] != re.search(r'\s*$', text)[0]


# Rule, who finds something, in which pairs (source, language, text), and why that is right.
EXPLAINED = [
    ('blank-edge', 'pofilter', lambda _, __, text: text.endswith(r'\n'),
     'To pofilter a line break is a blank; escape-mismatch reports it.'),
    ('blank-edge', 'pofilter', lambda _, code, text: code == 'ja' and text.endswith('：'),
     'The glyph of full-width punctuation has its own blank. pofilter knows that of Chinese, but not of Japanese.'),
    ('end-punctuation', 'check', has_other_blanks, 'pofilter leaves out endpunc where the blanks at the end differ.'),
    ('end-punctuation', 'check', lambda _, code, __: code in ('ja', 'zh-Hans'),
     'Neither the full stop nor "：" is among the marks that pofilter knows for these languages.'),
    ('end-punctuation', 'pofilter', lambda source, _, text: re.search(r'(…|\.\.\.)$', source) and re.search(r'(…|\.\.\.)$', text),
     'An ellipsis and three dots mean the same.'),
    ('end-punctuation', 'pofilter', lambda _, code, text: code == 'hi' and text.endswith('।'),
     'pofilter lacks the full stop of Hindi.'),
    ('end-punctuation', 'pofilter', lambda source, code, text: code == 'ja' and (source[-1], text[-1]) in (('?', '？'), ('!', '！')),
     'pofilter lacks these equivalents for Japanese.'),
    ('end-punctuation', 'pofilter', lambda _, code, __: code == 'th', 'Thai has no marks at the ends of sentences.'),
    ('end-punctuation', 'pofilter', lambda source, _, text: source[-1].isalpha() and re.search(r'(?<!\S)\S{1,5}\.$', text),
     'The full stop of an abbreviation ends no sentence.'),
    ('end-punctuation', 'pofilter', lambda _, __, text: text.endswith('!!'),
     'The check compares the last mark, and pofilter all marks at the end.'),
    ('escape-mismatch', 'check', lambda source, _, text: source.count(r'\"') != text.count(r'\"'),
     'The source code needs the backslashes; pofilter sees the quotation marks without them.'),
    ('placeholder-mismatch', 'check', lambda _, __, text: text.count('%2$s') == 2,
     'pofilter counts the placeholders, and "%1$s" is missing.'),
    ('placeholder-mismatch', 'check', lambda source, _, text: '{0}' in source and '{0}' not in text,
     'pofilter compares the highest numbers in braces only.'),
    ('placeholder-mismatch', 'pofilter', lambda source, _, __: re.search(r'\d%', source),
     'A percent sign of prose is no placeholder.'),
    ('placeholder-mismatch', 'pofilter', lambda source, _, __: '%1 of %2' in source,
     'These are no placeholders of printf, and can be in any order.'),
    ('placeholder-mismatch', 'pofilter', lambda _, __, text: '%5d' in text, 'A width changes no argument.'),
    ('same-as-source', 'pofilter', lambda source, _, __: 'km/h' in source, 'Nothing in the text has three letters, so it needs no translation.'),
]


def corpus():
    """The true pairs, and a sample of them with each fault: a description of the fault, source, code, text."""
    rng = random.Random(19)
    true = list(true_pairs())
    yield from (('none', *pair) for pair in true)
    for fault, put_in in FAULTS.items():
        faulty = [(fault, source, code, put_in(source, text)) for source, code, text in true]
        faulty = [pair for pair in faulty if pair[3] is not None]
        yield from rng.sample(faulty, min(len(faulty), 30))


class Pofilter(unittest.TestCase):
    def setUp(self):
        self.dir = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.dir, ignore_errors=True)

    def found_by_check(self, pairs):
        """The rules that find something in each pair."""
        table = configparser.ConfigParser(delimiters='=')
        table.optionxform = str
        table.read_string(pathlib.Path(PROGRAM, 'tuvik.ini').read_text(encoding='utf-8'))
        numbers = {code: number for number, code in table['Code'].items()}
        names = {number: name for name, number in table['Language'].items()}
        codes = sorted({code for _, _, code, _ in pairs})
        (self.dir / 'res').mkdir()
        (self.dir / 'demo.vcproj').touch()
        (self.dir / 'config.xml').write_text('<config><resolution><Width>240</Width><Height>320</Height></resolution>'
                                             '<zxa><zepversion>20</zepversion></zxa></config>')
        (self.dir / 'res/demo.res.xml').write_text('<APP id="APP_demo"><STRING>res\\ref_list_demo.txt</STRING></APP>')
        columns = [f'{names[numbers[code]]}({numbers[code]})' for code in ['en'] + codes]
        rows = [f'Number of Language\t{len(columns)}', '\t'.join(['String ID', 'Resource Type', 'Description'] + columns)]
        for i, (_, source, code, text) in enumerate(pairs):
            rows.append('\t'.join([f'ID_{i}', 'Normal', '', source] + [text if other == code else '' for other in codes]))
        rows.append(f'##number\t{len(pairs)}')
        (self.dir / 'res/ref_list_demo.txt').write_bytes('\r\n'.join(rows + ['']).encode('utf-16'))
        chosen = [f'--rule={rule}' for rule in TESTS]
        done = subprocess.run((CLI, 'check', self.dir / 'demo.vcproj', '--format', 'json', '--fail-on', 'never', *chosen),
                              stdout=subprocess.PIPE, check=True, env=dict(os.environ, MORVANITE_PROGRAM_DIR=PROGRAM))
        found = [set() for _ in pairs]
        for finding in json.loads(done.stdout)['findings']:
            if finding['language'] != int(numbers['en']):
                found[int(finding['id'][3:])].add(finding['rule'])
        return found

    def found_by_pofilter(self, pairs):
        """The same for the rules that pofilter's tests stand for."""
        rules = {test: rule for rule, tests in TESTS.items() for test in tests}
        found = [set() for _ in pairs]
        for code in {code for _, _, code, _ in pairs}:
            lines = ['msgid ""', 'msgstr "Content-Type: text/plain; charset=UTF-8\\n"']
            for i, (_, source, other, text) in enumerate(pairs):
                if other == code:
                    lines += ['', f'msgctxt "{i}"', f'msgid "{source}"', f'msgstr "{text}"']
            po, out = self.dir / f'{code}.po', self.dir / f'{code}.out'
            po.write_text('\n'.join(lines) + '\n', encoding='utf-8')
            language = {'zh-Hans': 'zh_CN'}.get(code, code)
            subprocess.run(['pofilter', '--progress=none', f'--language={language}', po, out, *(f'--test={test}' for test in rules)],
                           check=True, stderr=subprocess.DEVNULL)
            for unit in out.read_text(encoding='utf-8').split('\n\n'):
                number = re.search(r'^msgctxt "(\d+)"', unit, re.M)
                if number:
                    found[int(number[1])].update(rules[test] for test in re.findall(r'\(pofilter\) (\w+):', unit))
        return found

    @unittest.skipUnless(shutil.which('pofilter'), 'translate-toolkit is not installed')
    def test_both_find_the_same(self):
        pairs = list(corpus())
        ours, theirs = self.found_by_check(pairs), self.found_by_pofilter(pairs)
        unexplained, used, agreed = [], set(), Counter()
        for pair, by_check, by_pofilter in zip(pairs, ours, theirs):
            agreed.update(by_check & by_pofilter)
            for rule in by_check ^ by_pofilter:
                who = 'check' if rule in by_check else 'pofilter'
                row = next((row for row in EXPLAINED if row[:2] == (rule, who) and row[2](*pair[1:])), None)
                used.add(row)
                if not row:
                    unexplained.append((rule, who, *pair))
        self.assertEqual(unexplained, [])
        self.assertEqual([row for row in EXPLAINED if row not in used], [])
        self.assertEqual(set(agreed), set(TESTS))
        self.assertGreater(agreed['end-punctuation'], 100)
        self.assertGreater(agreed['placeholder-mismatch'], 100)


if __name__ == '__main__':
    unittest.main()
