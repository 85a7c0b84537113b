# SPDX-License-Identifier: MIT
"""Tests the commands that begin a project and fill it: init, add, strings set, strings add-language, strings list."""

import hashlib
import json
import pathlib
import shutil
import unittest

from demo import DemoProject

SAMPLE = pathlib.Path(__file__).parents[2] / 'sample'
WHAT = ('--resolution', '240x320', '--resolution', '176x220', '--language', 'en', '--language', '8',
        '--language', 'chinese, simplified')


def hashes(folder):
    return {str(path.relative_to(folder)): hashlib.sha256(path.read_bytes()).hexdigest()
            for path in sorted(folder.rglob('*')) if path.is_file()}


class Begin(DemoProject):
    def setUp(self):
        super().setUp()
        self.new = self.dir / 'my app'
        self.vcproj = str(self.new / 'app.vcproj')

    def init(self, *options, status=0):
        done = self.run_cli('init', 'my app', '--name', 'app', *WHAT, *options)
        self.assertEqual(done[0], status, done)
        return done[1], done[2]

    def test_a_new_project_loads_checks_clean_and_is_as_a_save_writes_it(self):
        for options in ((), ('--git', 'text'), ('--git', 'none'), ('--cmake',), ('with layouts',)):
            with self.subTest(options):
                if options == ('with layouts',):
                    self.put_settings('[Layout]\nfolders=1\n')
                    options = ()
                out, err = self.init(*options)
                before = hashes(self.new)
                self.assertEqual({line[12:] for line in out.splitlines() if line.startswith('made ')}, set(before))
                self.assertEqual((err, len(out.split('\nNext:\n')[1].splitlines())), ('', 3))
                status, out, err = self.run_cli('load', self.vcproj)
                self.assertEqual((status, err), (0, ''))
                self.assertIn('[app] open - 0 error(s), 0 warning(s)', out)
                self.assertEqual(self.run_cli('check', self.vcproj, '--fail-on', 'note'), (0, '', ''))
                self.assertEqual(self.run_cli('save', self.vcproj)[::2], (0, ''))
                after = hashes(self.new)
                self.assertIsNotNone(after.pop('ResID/ResID.h'))
                self.assertEqual(before, after)
                shutil.rmtree(self.new)

    def test_the_git_attributes_are_those_of_the_form(self):
        lists = '*.res.xml -text merge=morvanite\n'
        self.init()
        self.assertEqual((self.new / '.gitattributes').read_text(),
                         'res/ref_list_*.txt -text diff=morvanite merge=morvanite\n' + lists)
        self.assertEqual((self.new / '.gitignore').read_text(), '/ResID/\n*.tmp\n*.pkd\n/arm/\n')
        (self.new / '.gitattributes').unlink()
        out, _ = self.init('--git', 'text')
        self.assertEqual((self.new / '.gitattributes').read_text(), 'res/ref_list_*.txt text '
                         'working-tree-encoding=UTF-16LE-BOM eol=crlf merge=morvanite\n' + lists)
        self.assertIn('made my app/.gitattributes\nkept my app/app.vcproj, which exists already\n', out)

    def test_init_changes_nothing_on_a_dry_run_or_a_failure_and_nothing_that_exists(self):
        out, _ = self.init('--dry-run')
        self.assertIn('would make my app/res/app.res.xml\n', out)
        self.assertFalse(self.new.exists())
        self.new.mkdir()
        (self.new / 'config.xml').write_text('mine')
        (self.new / 'res').write_text('no folder')
        before = hashes(self.new)
        for option in ((), ('--dry-run',)):
            _, err = self.init(*option, status=1)
            self.assertRegex(err, r"res\" exists, but it isn't a folder.*nothing was made")
        self.assertEqual(hashes(self.new), before)
        (self.new / 'res').unlink()
        (self.new / 'first.vcproj').touch()
        out, err = self.init()
        self.assertIn('kept my app/config.xml, which exists already\n', out)
        self.assertIn('the project "first.vcproj" already', err)
        self.assertIn('in the folder of the project', self.run_cli('init', 'my app/inner', *WHAT, '-q')[2])
        self.assertEqual((self.new / 'config.xml').read_text(), 'mine')

    def test_wrong_words_are_refused_before_anything_is_made(self):
        good = ('--resolution', '240x320', '--language', 'en')
        for arguments, reason in (
                (('x', *good, '--name', '-a'), 'name "-a"'), (('a b', *good), 'choose one with --name'),
                (('x', *good, '--name', 'all', '--cmake'), 'CMake uses'), (('x', *good, '--git', 'svn'), 'svn'),
                (('x', *good, '--resolution', '240x321'), 'nearest are 240x320, '), (('x', *good, '--resolution', '240x32'), 'nearest are 240x320, '), (('x', *good, '--resolution', '9'), 'size such as'),
                (('x', *good, '--language', 'Germn'), 'such as "German"'), (('x', *good, '--language', '-1'), 'no such language'),
                (('x', '--language', 'en'), '--resolution'), (('x', '--resolution', '240x320'), '--language')):
            status, out, err = self.run_cli('init', *arguments)
            self.assertEqual((status, out), (2, ''), arguments)
            self.assertIn(reason, err)
        self.assertEqual(self.run_cli('init', 'tune.mp3/x', *good)[0], 1)
        self.assertFalse((self.dir / 'x').exists())

    def rows(self):
        return (self.dir / 'res/ref_list_demo.txt').read_bytes().decode('utf-16').split('\r\n')[1:-2]

    def test_add_gives_the_ids_of_the_window(self):
        for name in ('Sun 1.png', 'sun_1.png', 'chime.WAV', 'data.bin'):
            (self.dir / name).write_bytes(name.encode())
        before = self.state()
        arguments = ('add', self.project, 'Sun 1.png', 'sun_1.png', 'chime.WAV', 'data.bin')
        out = ('new\tID_IMAGE_SUN_1\t.\\Sun 1.png\nnew\tID_IMAGE_SUN_11\t.\\sun_1.png\n'
               'new\tID_AUDIO_CHIME\t.\\chime.WAV\nnew\tID_FILE_DATA\t.\\data.bin\n')
        note = f'morvanite-cli: {self.dir}/sun_1.png: the ID ID_IMAGE_SUN_1 is taken, so this file has ID_IMAGE_SUN_11; --id gives another ID to a file that is added alone\n'
        self.assertEqual(self.run_cli(*arguments, '--dry-run'), (0, out, note))
        self.assertEqual(self.state(), before)
        self.assertEqual(self.run_cli(*arguments, '-q'), (0, '', note))
        self.assertEqual(self.run_cli(*arguments), (0, out.replace('new', 'same'), ''))
        out = 'new\tID_A\t.\\Sun 1.png\n'
        for expected in (out, out.replace('new', 'same')):
            self.assertEqual(self.run_cli('add', 'demo.vcproj', 'Sun 1.png', '--resolution', '176x220', '--id', 'ID_A', '--push'), (0, expected, ''))
        listing = (self.dir / 'res/demo.res.xml').read_text()
        self.assertIn('<RESOLUTION width="176" height="220" class="image">\n'
                      '        <IMAGE id="ID_A" type="Push">.\\Sun 1.png</IMAGE>', listing)
        self.assertIn('\n    <IMAGE id="ID_IMAGE_SUN_1" type="Normal">', listing)
        self.assertIn('ID_A    103000', (self.dir / 'ResID/ResID.h').read_text())

    def test_add_refuses_what_a_project_cannot_have_and_then_changes_nothing(self):
        outside = str(SAMPLE / 'res/240x320/sun.png')
        (self.dir / 'new.png').write_bytes(b'new')
        (self.dir / 'two  blanks.png').write_bytes(b'new')
        (self.dir / 'res/sun.png').write_bytes(b'another')
        before = self.state()
        for arguments, status, reason in (
                ((outside,), 1, 'outside of the project'), ((outside, '--copy'), 1, 'exists and is another file'),
                (('res',), 1, 'folder'), (('none.png',), 1, 'not found'), (('two  blanks.png',), 1, 'two blanks in a row'), (('tune.mp3', '--resolution', '240x320'), 1, 'only for pictures'),
                (('logo.png', '--id', 'ID_FILE_TUNE'), 1, 'already exists'), (('logo.png', '--id', '1'), 2, 'begin with a digit'),
                (('logo.png', 'tune.mp3', '--id', 'ID_X'), 2, 'single file'), (('logo.png', '--resolution', '1x1'), 2, 'nearest')):
            done = self.run_cli('add', self.project, 'new.png', *arguments) if status == 1 and '--id' not in arguments else \
                self.run_cli('add', self.project, *arguments)
            self.assertEqual(done[:2], (status, ''), arguments)
            self.assertIn(reason, done[2])
            self.assertEqual(self.state(), before, arguments)
        status, out, _ = self.run_cli('add', self.project, outside, '--copy', '--resolution', '176x220')
        copy = self.dir / 'res/176x220/sun.png'
        self.assertEqual((status, out), (0, 'copied\t%s\t%s\nnew\tID_IMAGE_SUN\t.\\res\\176x220\\sun.png\n' % (outside, copy)))
        self.assertEqual(copy.read_bytes(), pathlib.Path(outside).read_bytes())

    def test_strings_are_set_and_listed(self):
        self.assertEqual(self.run_cli('strings', 'add-language', self.project, 'de', 'English', '--dry-run')[1],
                         'new\tGerman\t8\nsame\tEnglish\t0\n')
        self.assertEqual(self.run_cli('strings', 'add-language', self.project, 'de', 'English')[0], 0)
        done = self.run_cli('strings', 'set', self.project, 'id_new', '--language', 'German', 'Größe "ß"', '--language', '0', 'Size')
        self.assertEqual(done, (0, 'new\tID_NEW\tGerman\tGröße "ß"\nnew\tID_NEW\tEnglish\tSize\n', ''))
        done = self.run_cli('strings', 'set', 'demo.vcproj', 'ID_STRING_HI', '--language', 'de', '--language', 'en', '--', '-1', 'Hello')
        self.assertEqual(done, (0, 'filled\tID_STRING_HI\tGerman\t-1\nreplaced\tID_STRING_HI\tEnglish\tHello\tHi\n', ''))
        self.assertEqual(self.rows(), ['String ID\tResource Type\tDescription\tEnglish(0)\tGerman(8)',
                                       'ID_STRING_HI\tNormal\tgreeting\tHello\t-1', 'ID_NEW\tNormal\t\tSize\tGröße "ß"'])
        self.run_cli('strings', 'set', self.project, 'ID_NEW', '--language', 'en', '')
        self.assertEqual(self.run_cli('strings', 'list', self.project, '--language', 'en'),
                         (0, 'ID_STRING_HI\tEnglish\tHello\nID_NEW\tEnglish\t\n', ''))
        self.assertEqual(self.run_cli('strings', 'list', self.project, '--missing'), (0, 'ID_NEW\tEnglish\t\n', ''))
        listing = self.run_cli('strings', 'list', self.project, '--json')[1]
        self.assertEqual(list(json.loads(listing))[0], 'version')
        self.assertEqual(json.loads(listing)['strings'][1], {'id': 'ID_NEW', 'type': 'Normal', 'description': '', 'texts': [
            {'language': 0, 'name': 'English', 'text': ''}, {'language': 8, 'name': 'German', 'text': 'Größe "ß"'}]})

    def test_a_text_that_cannot_be_set_changes_nothing(self):
        before = self.state()
        for arguments, status, reason in (
                (('ID_X', '--language', 'de', 'x'), 2, 'has "English"'), (('ID_X', '--language', 'en', 'x', 'y'), 2, '2 texts for 1'),
                (('ID_X', '--language', 'en', '--language', '0', 'x', 'y'), 2, 'a text of this language already'),
                (('ID_X', '--language', 'en', 'a\tb'), 2, 'tab'), (('9', '--language', 'en', 'x'), 1, 'ID is invalid'),
                (('ID_FILE_TUNE', '--language', 'en', 'x'), 1, 'already exists')):
            done = self.run_cli('strings', 'set', self.project, *arguments)
            self.assertEqual(done[:2], (status, ''), arguments)
            self.assertIn(reason, done[2])
        self.assertEqual(self.run_cli('strings', 'set', self.project, 'ID_STRING_HI', '--language', 'en', 'Hi'),
                         (0, 'same\tID_STRING_HI\tEnglish\tHi\n', ''))
        self.assertEqual(self.run_cli('strings', 'add-language', self.project, 'Klingon')[:2], (2, ''))
        self.assertEqual(self.run_cli('strings', 'list', self.project, '--language', 'de')[:2], (2, ''))
        self.assertEqual(self.state(), before)

    def test_a_project_that_would_lose_something_is_not_changed(self):
        listing = self.dir / 'res/demo.res.xml'
        listing.write_bytes(listing.read_bytes().replace(b'</APP>', b'<NEWS>.\\lost.bin</NEWS></APP>'))
        before = self.state()
        for arguments in (('add', self.project, 'app.axf'), ('strings', 'add-language', self.project, 'de'),
                          ('strings', 'set', self.project, 'ID_X', '--language', 'en', 'x')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (1, ''))
            self.assertIn('res/demo.res.xml:5: ', err)
            self.assertIn('nothing is changed', err)
        self.assertEqual(self.state(), before)


if __name__ == '__main__':
    unittest.main(argv=['begin_test'])
