#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the rule placeholder-mismatch with msgfmt, which checks texts for printf too.

Use: printf_test.py MORVANITE_CLI
"""

import itertools
import json
import pathlib
import random
import re
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / 'cli'))
from demo import DemoProject  # noqa: E402

PLACEHOLDERS = ('%d', '%i', '%u', '%x', '%ld', '%hhd', '%zu', '%f', '%.2lf', '%Lf', '%c', '%s', '%-8s', '%p', '%*d', '%.*f', '%%',
                '%02d', '%+d', '%1$d', '%2$d', '%1$s', '%2$s', '%1$*2$d', '%', '%!', '%y', '')


def pairs():
    """Every pair of texts with one placeholder, and a sample of those with several."""
    rng = random.Random(19)
    yield from itertools.product((f'a {p} b' for p in PLACEHOLDERS), repeat=2)
    for _ in range(3000):
        source, text = ('; '.join(rng.choices(PLACEHOLDERS, k=rng.randint(1, 3))) for _ in range(2))
        yield f'{source};', f'{rng.choice((source, text))};'


class Printf(DemoProject):
    def found_by_check(self, texts):
        (self.dir / 'morvanite-check.ini').write_text('[Check]\nplaceholders=printf\n')
        rows = ['Number of Language\t2', 'String ID\tResource Type\tDescription\tEnglish(0)\tFrench(6)']
        rows += [f'ID_{i}\tNormal\t\t{source}\t{text}' for i, (source, text) in enumerate(texts)] + [f'##number\t{len(texts)}']
        (self.dir / 'res/ref_list_demo.txt').write_bytes('\r\n'.join(rows + ['']).encode('utf-16'))
        status, out, _ = self.run_cli('check', self.project, '--rule', 'placeholder-mismatch', '--format', 'json')
        self.assertEqual(status, 1)
        return {int(finding['id'][3:]) for finding in json.loads(out)['findings']}

    def found_by_msgfmt(self, texts):
        """What msgfmt says of each pair that it says anything of, by number."""
        po = self.dir / 'texts.po'
        lines = ['msgid ""', 'msgstr "Content-Type: text/plain; charset=UTF-8\\n"']
        places = {}
        for i, (source, text) in enumerate(texts):
            lines += ['', '#, c-format', f'msgctxt "{i}"', f'msgid "{source}"', f'msgstr "{text}"']
            places.update((line, i) for line in range(len(lines) - 3, len(lines) + 1))
        po.write_text('\n'.join(lines) + '\n')
        done = subprocess.run(('msgfmt', '--check-format', '-o', '/dev/null', po), stderr=subprocess.PIPE, check=False, text=True,
                              env={'LC_ALL': 'C', 'PATH': '/usr/bin:/bin'})
        return {places[int(line)]: said for line, said in re.findall(r'texts\.po:(\d+): (.*)', done.stderr)}

    @unittest.skipUnless(shutil.which('msgfmt'), 'gettext is not installed')
    def test_both_find_the_same(self):
        texts = list(pairs())
        # Of a source text that printf can't take, msgfmt says nothing. To the check, a text without any "%" isn't one for
        # printf, so that a single "%" in its translation is right.
        said = self.found_by_msgfmt([('none', source) for source, _ in texts])
        texts = [pair for i, pair in enumerate(texts) if '%' in pair[0] and 'not a valid' not in said.get(i, '')]
        ours, theirs = self.found_by_check(texts), set(self.found_by_msgfmt(texts))
        self.assertGreater(len(theirs), 500)
        self.assertGreater(len(texts) - len(theirs), 500)
        self.assertEqual([texts[i] for i in sorted(ours ^ theirs)][:20], [])


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
