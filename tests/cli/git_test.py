# SPDX-License-Identifier: MIT
"""Tests merges and diffs of a project by git itself, with both forms of the attributes."""

import os
import subprocess
import unittest

from demo import CLI, DemoProject

STRINGS = 'res/ref_list_demo.txt'
LIST = 'res/demo.res.xml'
ATTRIBUTES = {
    'safe': 'ref_list_*.txt -text diff=morvanite merge=morvanite\n*.res.xml -text merge=morvanite\n',
    'text': 'ref_list_*.txt text working-tree-encoding=UTF-16LE-BOM eol=crlf merge=morvanite\n*.res.xml -text merge=morvanite\n',
}
LANGUAGES = ('English(0)', 'French(6)')
BASE = (('ID_A', 'a', 'A'), ('ID_B', 'b', 'Bé'), ('ID_C', 'c', 'C'))


def in_conflict(ours, theirs):
    """The lines of a conflict, put together so that this file has no markers itself."""
    return ['<' * 7 + ' ours', *ours, '=' * 7, *theirs, '>' * 7 + ' theirs']


def lines(rows, languages=LANGUAGES):
    """The lines of a string file. A row is an ID and its texts."""
    yield 'Number of Language\t%d' % len(languages)
    yield '\t'.join(('String ID', 'Resource Type', 'Description') + languages)
    for row in rows:
        yield '\t'.join((row[0], 'Normal', '') + row[1:])
    yield '##number\t%d' % len(rows)


class Git(DemoProject):
    def setUp(self):
        super().setUp()
        self.env.update(HOME=str(self.dir / 'home'), PATH=os.path.dirname(CLI) + ':' + os.environ['PATH'], LC_ALL='C',
                        GIT_CONFIG_NOSYSTEM='1', GIT_AUTHOR_NAME='a', GIT_AUTHOR_EMAIL='a@b', GIT_COMMITTER_NAME='a',
                        GIT_COMMITTER_EMAIL='a@b', GIT_CONFIG_GLOBAL=str(self.dir / 'home/config'))
        (self.dir / 'home').mkdir()

    def git(self, *arguments, status=0):
        done = subprocess.run(['git', *arguments], cwd=self.dir, env=self.env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        text = done.stdout.decode()
        self.assertIn(done.returncode, status if isinstance(status, tuple) else (status,), text)
        return text

    def put(self, rows, languages=LANGUAGES):
        text = '\r\n'.join(lines(rows, languages)) + '\r\n'
        (self.dir / STRINGS).write_bytes(b'\xff\xfe' + text.encode('utf-16-le'))

    def rows(self):
        """The lines of the string file between the second and the last."""
        data = (self.dir / STRINGS).read_bytes()
        self.assertEqual(data[:2], b'\xff\xfe')
        text = data[2:].decode('utf-16-le')
        self.assertEqual(text.count('\r\n'), text.count('\n'))
        return text.split('\r\n')[2:-2]

    def commit(self, rows=None, languages=LANGUAGES):
        if rows:
            self.put(rows, languages)
        self.git('commit', '-qam', 'change')

    def begin(self, form, install=True):
        """Makes a repository with the table BASE on the branches main and other."""
        for name in ('.git', '.gitattributes'):
            subprocess.run(['rm', '-rf', self.dir / name], check=True)
        (self.dir / '.gitattributes').write_text(ATTRIBUTES[form])
        self.git('init', '-q', '-b', 'main')
        if install:
            self.assertEqual(self.run_cli('git', 'install')[::2], (0, ''))
        self.put(BASE)
        self.git('add', '.gitattributes', 'res')
        self.git('commit', '-qm', 'base')
        self.git('branch', 'other')

    def merge(self, ours, theirs, status=0, languages=(LANGUAGES, LANGUAGES)):
        """Commits one table on each branch and merges. Returns what git printed."""
        self.commit(ours, languages[0])
        self.git('checkout', '-q', 'other')
        self.commit(theirs, languages[1])
        self.git('checkout', '-q', 'main')
        return self.git('merge', '--no-edit', 'other', status=status)

    def test_rows_next_to_each_other_languages_and_ends_merge(self):
        for form in ATTRIBUTES:
            with self.subTest(form):
                self.begin(form)
                self.assertEqual(self.run_cli('git', 'status')[0], 0)
                self.merge((('ID_A', 'a1', 'A'), ('ID_B', 'b', 'Bé'), ('ID_C', 'c', 'C1'), ('ID_OURS', 'o', 'O')),
                           (('ID_A', 'a', 'A', ''), ('ID_B', 'b', 'B2', 'Ьb'), ('ID_C', 'c2', 'C', ''),
                            ('ID_THEIRS', 't', '', '天')), languages=(LANGUAGES, LANGUAGES + ('German(8)',)))
                self.assertEqual(self.rows(), list(lines(
                    (('ID_A', 'a1', 'A', ''), ('ID_B', 'b', 'B2', 'Ьb'), ('ID_C', 'c2', 'C1', ''), ('ID_OURS', 'o', 'O', ''),
                     ('ID_THEIRS', 't', '', '天')), LANGUAGES + ('German(8)',)))[2:-1])
                self.assertEqual(self.git('status', '--porcelain', '-uno'), '')
                self.assertEqual(self.run_cli('load', self.project, '--strict')[::2], (0, ''))

    def test_conflicts_are_marked_and_can_be_resolved(self):
        for form in ATTRIBUTES:
            with self.subTest(form):
                self.begin(form)
                out = self.merge((('ID_A', 'a1', 'A1'), ('ID_C', 'c', 'C')),
                                 (('ID_A', 'a2', 'A'), ('ID_B', 'b', 'B2'), ('ID_C', 'c', 'C')), status=1)
                self.assertIn(STRINGS + ': conflict in ID_A: English(0)\n', out)
                self.assertIn(STRINGS + ': conflict in ID_B: deleted in ours, changed in theirs\n', out)
                row = 'ID_A\tNormal\t\t%s\tA1'
                self.assertEqual(self.rows(), in_conflict([row % 'a1'], [row % 'a2']) +
                                 in_conflict([], ['ID_B\tNormal\t\tb\tB2']) + ['ID_C\tNormal\t\tc\tC'])
                self.assertEqual(self.git('status', '--porcelain', '-uno'), 'UU %s\n' % STRINGS)
                self.assertIn(':3: ', self.run_cli('load', self.project, '--strict')[2])
                self.put((('ID_A', 'a3', 'A1'), ('ID_C', 'c', 'C')))
                self.git('commit', '-qam', 'resolved')
                self.assertEqual(self.run_cli('load', self.project, '--strict')[0], 0)

    def test_diff_shows_rows(self):
        for form in ATTRIBUTES:
            with self.subTest(form):
                self.begin(form)
                self.put((BASE[0], ('ID_B', 'b', 'Ü'), BASE[2]))
                changed = [line for line in self.git('diff').splitlines() if line[:1] in '+-' and line[:3] not in ('+++', '---')]
                self.assertEqual([line.rstrip('\r') for line in changed], ['-ID_B\tNormal\t\tb\tBé', '+ID_B\tNormal\t\tb\tÜ'])

    def test_a_file_that_cannot_be_merged_has_both_versions(self):
        for form in ATTRIBUTES:
            self.begin(form)
            out = self.merge(BASE[:1] + (('ID_B', 'b1', 'B'),), BASE[:2] + (('ID_A', 'again', ''),), status=1)
            self.assertRegex(out, STRINGS + ': not merged: theirs, line 5: ID_A is in line 3 too; .*; the file has both versions')
            text = (self.dir / STRINGS).read_bytes().decode('utf-16')
            self.assertEqual(text.split('\r\n')[2:-1], ['ID_A\tNormal\t\ta\tA'] + in_conflict(
                ['ID_B\tNormal\t\tb1\tB', '##number\t2'],
                ['ID_B\tNormal\t\tb\tBé', 'ID_A\tNormal\t\tagain\t', '##number\t3']))
            self.assertEqual(self.git('status', '--porcelain', '-uno'), 'UU %s\n' % STRINGS)
            self.assertIn(':4: ', self.run_cli('load', self.project, '--strict')[2])
        self.begin('safe')
        base = (self.dir / LIST).read_text()
        for branch in ('other', 'main'):
            self.git('checkout', '-q', branch)
            (self.dir / LIST).write_text(base.replace('</APP>', '<!-- %s --></APP>' % branch))
            self.commit()
        out = self.git('merge', '--no-edit', 'other', status=1)
        self.assertIn(LIST + ': not merged: ours: line 5: the comment "main" would be lost', out)
        self.assertEqual((self.dir / LIST).read_text().splitlines()[4:],
                         in_conflict(['<!-- main --></APP>'], ['<!-- other --></APP>']))

    def test_branches_merged_in_both_directions_have_a_base_without_markers(self):
        self.begin('safe')
        self.commit((('ID_A', 'a1', 'A'), ('ID_B', 'b1', 'Bé'), BASE[2]))
        self.git('checkout', '-q', 'other')
        self.commit((('ID_A', 'a', 'A'), ('ID_B', 'b2', 'Bé'), ('ID_C', 'c2', 'C')))
        self.git('tag', 'theirs')
        both = (('ID_A', 'a1', 'A'), ('ID_B', 'b3', 'Bé'), ('ID_C', 'c2', 'C'))
        self.git('merge', 'main', status=1)
        self.put(both)
        self.git('commit', '-qam', 'merge')
        self.git('checkout', '-q', 'main')
        self.git('merge', 'theirs', status=1)
        self.put(both)
        self.git('commit', '-qam', 'merge')
        self.merge((('ID_A', 'a4', 'A'),) + both[1:], both[:2] + (('ID_C', 'c2', 'C4'),))
        self.assertEqual(self.rows(), list(lines((('ID_A', 'a4', 'A'), both[1], ('ID_C', 'c2', 'C4'))))[2:-1])

    def test_resource_lists_merge_by_section_and_id(self):
        self.begin('safe')
        base = (self.dir / LIST).read_text()

        def commit(branch, name):
            self.git('checkout', '-q', branch)
            (self.dir / LIST).write_text(base.replace('</RESOLUTION>', '<IMAGE id="ID_%s" type="Normal">.\\logo.png</IMAGE></RESOLUTION>'
                                                      % name))
            self.commit()

        commit('other', 'THEIRS')
        commit('main', 'OURS')
        self.git('merge', '--no-edit', 'other')
        merged = (self.dir / LIST).read_text()
        self.assertLess(merged.index('ID_OURS'), merged.index('ID_THEIRS'))
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        self.assertEqual((self.dir / LIST).read_text(), merged)

    def test_status_says_what_is_missing(self):
        self.begin('safe', install=False)
        (self.dir / '.gitattributes').write_text('*.res.xml merge=morvanite\n')
        status, out, err = self.run_cli('git', 'status')
        self.assertEqual((status, err), (1, ''))
        self.assertEqual(out.splitlines()[-2:], ['missing\tres/demo.res.xml\t-text is missing in .gitattributes',
                                                 'missing\tres/ref_list_demo.txt\tmerge=morvanite is missing in .gitattributes'])
        self.assertIn('missing\tmerge.morvanite.driver\trun "morvanite-cli git install"\n', out)
        self.env['PATH'] = os.environ['PATH']
        self.assertIn(f"merge.morvanite.driver = '{CLI}' merge %O %A %B --path %P\n",
                      self.run_cli('git', 'install', '--global')[1])
        (self.dir / '.gitattributes').write_text(ATTRIBUTES['safe'])
        self.assertEqual(self.run_cli('git', 'status'),
                         (0, 'fine\tthe settings of git\nfine\tres/demo.res.xml\nfine\tres/ref_list_demo.txt\n', ''))
        subprocess.run(['rm', '-rf', self.dir / '.git'], check=True)
        self.assertEqual(self.run_cli('git', 'install')[0], 1)

    def test_merge_ends_as_git_wants(self):
        self.put(BASE)
        data = (self.dir / STRINGS).read_bytes()
        for name, content in (('base', data), ('ours', data[:-1]), ('theirs', data)):
            (self.dir / name).write_bytes(content)
        for arguments in (('base', 'ours', 'theirs'), ('base', 'theirs', 'none'), ('base',), ('base', 'base', 'base', '--what')):
            self.assertEqual(self.run_cli('merge', *arguments)[0], 255)
        self.assertEqual((self.dir / 'ours').read_bytes(), data[:-1])
        (self.dir / 'ours').write_bytes(data)
        self.assertEqual(self.run_cli('merge', 'base', 'ours', 'theirs'), (0, '', ''))
        self.env['XDG_CONFIG_HOME'] = str(self.dir)
        (self.dir / 'morvanite').mkdir()
        (self.dir / 'morvanite/Morvanite.ini').write_text('[Text]\ncode_page=none-such\n')
        self.assertEqual(self.run_cli('merge', 'base', 'ours', 'theirs')[0], 255)

    def test_cat_prints_any_file(self):
        for content, printed in ((b'\xff\xfe' + 'ä\r\n天'.encode('utf-16-le'), 'ä\n天'), (b'', ''), ('ä\n'.encode(), 'ä\n'),
                                 (b'\xfe\xff\0A', 'A')):
            (self.dir / 'one').write_bytes(content)
            self.assertEqual(self.run_cli('strings', 'cat', 'one'), (0, printed, ''))
        self.assertEqual(self.run_cli('strings', 'cat', 'none')[0], 1)


if __name__ == '__main__':
    unittest.main(argv=['git_test.py'])
