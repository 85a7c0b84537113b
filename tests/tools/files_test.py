# SPDX-License-Identifier: MIT
"""Tests the converter's command line and its work on files. Usage: files_test.py CONVERTER"""

import os
import re
import stat

from converter import CONVERTER, ConverterTest, main, run
from pictures import bmp, device, gif, gif_frame

WHITE = bmp(1, 1, 24, b'\xff\xff\xff\0')
WHITE_CONVERTED = device([[(255, 255, 255)]])


class Files(ConverterTest):
    def setUp(self):
        super().setUp()
        self.source = self.put(b'a.png', WHITE)  # the first bytes determine the kind, not the name

    def converts(self, source, target):
        self.assertEqual(run('-f', '-i', source, target), (0, b'', b''))
        with open(target, 'rb') as file:
            self.assertEqual(file.read(), WHITE_CONVERTED)

    def test_wrong_command_lines_print_the_usage(self):
        for arguments in ('', '--help', '-f -i a', '-i -f a b', '-f -i a b c', '-f x a b'):
            with self.subTest(arguments):
                self.assertEqual(run(*arguments.split()), (
                    1, b'', b'usage: qrk_resgenerator.exe -f -i SOURCE TARGET (SOURCE: a bmp, gif, jpg or png picture; '
                    b"TARGET: the device's picture, replaced)\n"))

    def test_reports_other_files_with_their_first_bytes(self):
        self.refuses(b'none\n', b'file of 5 bytes that begins with 6e 6f 6e 65 0a, expected a bmp, gif, jpg or png')
        self.refuses(b'', b'empty file')

    def test_accepts_names_with_blanks_and_any_bytes_and_leaves_no_other_file(self):
        self.converts(self.put(b'my \xe5\xa4\xa9 \xff.bmp', WHITE), self.path(b' out \xfe.tmp '))
        self.assertEqual(len(os.listdir(self.folder)), 3)

    def test_replaces_a_read_only_target_and_follows_no_link(self):
        os.chmod(self.put(b'out', b'old'), stat.S_IRUSR)
        self.converts(self.source, self.target)
        os.symlink(self.put(b'precious', b'mine'), self.path(b'link'))
        self.converts(self.source, self.path(b'link'))
        self.assertFalse(os.path.islink(self.path(b'link')))
        self.assertEqual(self.get(b'precious'), b'mine')

    def test_a_missing_source_removes_the_old_target(self):
        self.put(b'out', b'old')
        self.refused(self.path(b'none'), self.target, b'/none', b'cannot open it: No such file or directory')
        self.assertFalse(os.path.exists(self.target))

    def test_refuses_sources_and_targets_that_are_not_regular_files(self):
        os.mkdir(self.path(b'folder'))
        os.mkfifo(self.path(b'pipe'))
        for source, target, path, text in (
                (b'a.png', b'a.png', b'/a.png', b'is the source itself'),
                (b'a.png', b'./a.png', b'/./a.png', b'is the source itself'),
                (b'a.png', b'folder', b'/folder', b'not a regular file'),
                (b'a.png', b'pipe', b'/pipe', b'not a regular file'),
                (b'folder', b'out', b'/folder', b'not a regular file'),
                (b'pipe', b'out', b'/pipe', b'not a regular file'),
                (b'a.png', b'no/o', b'no/o', b'cannot create it: No such file or directory'),
                (b'a.png', b'a.png/o', b'a.png/o', b'cannot examine it: Not a directory'),
                (b'a\nb\x1b', b'out', b'/a?b?', b'cannot open it: No such file or directory')):
            with self.subTest(source=source, target=target):
                self.refused(self.path(source), self.path(target), path, text)
                self.assertEqual(sorted(os.listdir(self.folder)), [b'a.png', b'folder', b'pipe'])
        self.assertEqual(self.get(b'a.png'), WHITE)

    def test_a_full_disk_at_any_byte_leaves_no_target(self):
        for room in range(1, len(WHITE_CONVERTED)):
            self.refused(self.source, self.target, b'/out', b'cannot write it: File too large', RLIMIT_FSIZE=room)
            self.assertEqual(os.listdir(self.folder), [b'a.png'])
        self.converts(self.source, self.target)

    def test_accepts_up_to_64_megapixels_if_memory_suffices(self):
        pixel = gif_frame([[0]])
        source = self.put(b'large.gif', gif(8000, 8000, pixel))
        self.assertEqual(run('-f', '-i', source, self.target), (0, b'', b''))
        self.assertEqual(os.path.getsize(self.target), 24 + 4 * 64_000_000)
        with open(CONVERTER, 'rb') as program:
            if re.search(b'__asan_init', program.read()):
                self.skipTest('the sanitizer itself needs more than any limit')
        text = b'there is not enough memory for a picture of 8000 x 8000 pixels'
        self.refused(source, self.target, b'/large.gif', text, RLIMIT_AS=64 << 20)
        self.assertFalse(os.path.exists(self.target))


if __name__ == '__main__':
    main()
