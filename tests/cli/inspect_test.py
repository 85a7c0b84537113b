# SPDX-License-Identifier: MIT
"""Tests `inspect` with names, sizes, comparisons and a terminal, and texts made for trying out an application."""

import fcntl
import json
import os
import pty
import struct
import subprocess
import termios
import unittest

from demo import CLI, DemoProject

STRINGS = ('Number of Language\t2\r\nString ID\tResource Type\tDescription\tEnglish(0)\tArabic(53)\r\n'
           'ID_STRING_HI\tNormal\tgreeting\tHi %s, you\tmarhaban\r\n##number\t1\r\n')


class Inspect(DemoProject):
    def pack(self, name, *arguments):
        status, out, err = self.run_cli(*self.to_pack, '--output', name, *arguments)
        self.assertEqual((status, err), (0, ''), out)

    def inspect(self, *arguments):
        status, out, err = self.run_cli('inspect', *arguments)
        self.assertEqual((status, err), (0, ''))
        return out

    def test_names_come_from_a_header_or_a_project(self):
        self.pack('a.axf')
        (self.dir / 'ids.h').write_text('#define ID_IMAGE_LOGO 1\n#define ID_STRING_HI 2\n')
        for source in ('ids.h', 'demo.vcproj'):
            out = self.inspect('a.axf', '--ids', source)
            self.assertIn('           1  file, image or layout  ID_IMAGE_LOGO\n', out)
            self.assertIn('           2  ID_STRING_HI  Hi\n', out)
            self.assertRegex(self.inspect('a.axf', '--ids', source, '--size'), r' %  item 1 ID_IMAGE_LOGO\n')
        one = json.loads(self.inspect('a.axf', '--ids', 'ids.h', '--only', 'ID_IMAGE_LOGO', '--json'))
        self.assertEqual((list(one)[0], one['entries'], [item['id'] for item in one['block']]),
                         ('version', [], ['ID_IMAGE_LOGO']))
        (self.dir / 'empty.h').write_text('')
        for arguments, status, reason in ((('--ids', 'none.h'), 2, 'none.h'), (('--ids', 'empty.h'), 2, '--ids '),
                                          (('--only', 'language:x'), 2, '--only language:x'),
                                          (('--only', '7'), 1, 'a.axf: there is no item, entry or language "7"'),
                                          (('--only', '7', '--size'), 1, '"7"'), (('--diff',), 2, 'FILE_B'),
                                          (('a.axf',), 2, '--diff'), (('a.axf', '--diff', '--ids-b', 'ids.h'), 2, '--ids-b needs --ids')):
            found = self.run_cli('inspect', 'a.axf', *arguments)
            self.assertEqual((found[0], found[1]), (status, ''), arguments)
            self.assertIn(reason, found[2])

    def test_differences_add_up_and_decide_the_exit_status(self):
        self.pack('a.axf')
        out = self.inspect('--diff', 'a.axf', 'a.axf')
        size = (self.dir / 'a.axf').stat().st_size
        self.assertRegex(out, r'^change +before +after +delta  what\n\n +\d+ +\d+ +\+0  payload\n +%d +%d +\+0  file\n$' % (size, size))
        listing = self.dir / 'res/ref_list_demo.txt'
        listing.write_bytes(listing.read_bytes().decode('utf-16').replace('\tHi', '\tHello').encode('utf-16'))
        (self.dir / 'app.axf').write_bytes((self.dir / 'app.axf').read_bytes() + b'debug')
        self.pack('b.axf')
        status, out, err = self.run_cli('inspect', '--diff', 'a.axf', 'b.axf', '--ids', 'demo.vcproj', '--json')
        self.assertEqual((status, err), (1, ''))
        found = json.loads(out)
        self.assertEqual(list(found), ['version', 'payload', 'file', 'rows'])
        self.assertEqual(found['file']['delta'], (self.dir / 'b.axf').stat().st_size - size)
        self.assertIn({'change': 'changed', 'kind': 'string', 'language': 0, 'number': 2, 'id': 'ID_STRING_HI',
                       'before': 6, 'after': 12, 'delta': 6}, found['rows'])
        out = self.run_cli('inspect', 'a.axf', 'b.axf', '--diff', '--only', 'language:0')[1]
        self.assertRegex(out, r'\nchanged +6 +12 +\+6  language 0 string 2\n(?s:.*)\n\n +28 +32 +\+4  selected\n +\d+ +\d+ +\+4  payload\n')
        self.assertNotIn('section', out)
        (self.dir / 'a.h').write_text('#define ID_IMAGE_LOGO 1\n')
        (self.dir / 'b.h').write_text('#define ID_IMAGE_LOGO 3\n#define ID_OTHER 1\n')
        names = ('--ids', 'a.h', '--ids-b', 'b.h')
        status, out, _ = self.run_cli('inspect', 'a.axf', 'b.axf', '--diff', *names, '--only', '1', '--json')
        found = json.loads(out)
        self.assertEqual(status, 1)
        self.assertEqual([(row['change'], row['id']) for row in found['rows']], [('removed', 'ID_IMAGE_LOGO'), ('added', 'ID_OTHER')])
        self.assertIn('a.axf and b.axf: there is no item, entry or language "7" in them',
                      self.run_cli('inspect', 'a.axf', 'b.axf', '--diff', '--only', '7')[2])
        (self.dir / 'b.axf').write_bytes((self.dir / 'b.axf').read_bytes()[:-9])
        status, out, err = self.run_cli('inspect', '--diff', 'a.axf', 'b.axf')
        self.assertEqual((status, out), (1, ''))
        self.assertRegex(err, '^morvanite-cli: b.axf: .*section names are outside the file\n$')

    def test_lines_are_cut_to_the_width_of_a_terminal_only(self):
        listing = self.dir / 'res/ref_list_demo.txt'
        text = 'A long text 你好世界 and so on'
        listing.write_bytes(listing.read_bytes().decode('utf-16').replace('\tHi', '\t' + text).encode('utf-16'))
        self.pack('a.axf')
        self.assertIn('           2  %s\n' % text, self.inspect('a.axf'))
        for columns, shown in ((30, 'A long text 你…'), (31, 'A long text 你好…'), (80, text)):
            terminal, end = pty.openpty()
            fcntl.ioctl(end, termios.TIOCSWINSZ, struct.pack('4H', 24, columns, 0, 0))
            subprocess.run([CLI, 'inspect', 'a.axf', '--only', 'language:0'], stdout=end, cwd=self.dir, env=self.env, check=True)
            os.close(end)
            out = os.read(terminal, 65536).decode()
            os.close(terminal)
            self.assertIn('           2  %s\r\n' % shown, out)

    def test_a_language_for_trying_out_is_made_from_the_source(self):
        (self.dir / 'res/ref_list_demo.txt').write_bytes(STRINGS.encode('utf-16'))
        files = {file: file.read_bytes() for file in self.dir.rglob('*') if file.is_file()}
        expected = {'English': {'0': {'2': '⟦Ĥî %s, ýöû~~~⟧'}, '53': {'2': 'marhaban'}},
                    '53': {'0': {'2': 'Hi %s, you'}, '53': {'2': '⟦\u202eĤî\u202c %s\u202e,\u202c \u202eýöû\u202c~~~⟧'}}}
        for language, strings in expected.items():
            self.pack('pseudo.axf', '--pseudo', language)
            self.assertEqual(json.loads(self.inspect('pseudo.axf', '--json'))['strings'], strings)
        self.assertEqual({file: file.read_bytes() for file in files}, files)
        (self.dir / 'res/ref_list_demo.txt').write_bytes(STRINGS.replace('\tmarhaban', '\t').encode('utf-16'))
        self.pack('pseudo.axf', '--pseudo', '53')
        self.assertEqual(json.loads(self.inspect('pseudo.axf', '--json'))['strings'], expected['53'])
        status, out, err = self.run_cli(*self.to_pack, '--output', 'none.axf', '--pseudo', 'Klingon')
        self.assertEqual((status, err), (2, 'morvanite-cli: --pseudo: the project has no language "Klingon"; it has "English", "Arabic"\n'))
        self.assertFalse((self.dir / 'none.axf').exists())
        status, out, err = self.run_cli(*self.to_pack, '--pseudo', 'English', '--remote')
        self.assertEqual((status, out), (2, ''))
        self.assertIn('--pseudo excludes --remote', err)


if __name__ == '__main__':
    unittest.main(argv=['inspect_test'])
