#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the files on a screen with a window manager: drops files from another program, renames, browses, chooses
resolutions, saves, handles files that other programs change, and restores the same rows, widths and thumbnails.

usage: desktop_files_test.py MORVANITE SAMPLE_PROJECT_FOLDER DRAG_SOURCE
"""

import os
import re
import subprocess
import sys
import time
import unittest

DRAG_SOURCE = sys.argv.pop()

import desktop_strings_test  # reads the command line
from desktop_test import until

BOX = '^Morvanite$'
CHANGED = r'weatherclock\*'
TO_240_X_320 = ['Home'] + ['Down'] * 6  # in the project tree


class Files(desktop_strings_test.Lists):
    def setUp(self):
        super().setUp()
        self.project = self.dir / 'sample'
        self.resources = self.project / 'res/weatherclock.res.xml'
        self.strings = self.project / 'res/ref_list_weatherclock.txt'
        self.git('init', '-q', '-b', 'main')
        self.commit()
        self.git('checkout', '-q', '-b', 'colleague')
        for path, old, new in ((self.resources, 'ID_AUDIO_TICK', 'ID_AUDIO_TOCK'), (self.strings, 'Frost', 'Hoarfrost')):
            self.replace(path, old, new)
        for path in (self.project / 'config.xml', *self.project.glob('res/layout_*.xml')):
            path.write_bytes(path.read_bytes() + b'\n')
        self.commit()
        self.git('checkout', '-q', 'main')

    def git(self, *arguments):
        subprocess.run(['git', '-c', 'user.name=x', '-c', 'user.email=x@example.org', *arguments], cwd=self.project, check=True)

    def commit(self):
        self.git('add', '-A')
        self.git('commit', '-q', '-m', 'A state of the project')

    def replace(self, path, old, new):
        """Changes a file as editors do: writes a new file and renames it over the old one."""
        encoding = 'utf-16' if path == self.strings else 'utf-8'
        text = path.read_bytes().decode(encoding)
        self.assertIn(old, text)
        made = self.dir / 'made'
        made.write_bytes(text.replace(old, new).encode(encoding))
        os.replace(made, path)

    def windows(self, name):
        return self.xdotool('search', '--onlyvisible', '--name', name).split()

    def answer(self, key, name=BOX):
        """Presses a key in the box or dialog that opens, and waits until it closes."""
        box = self.window(name)
        self.until_active(box)
        self.press(key)
        until(lambda: box not in self.windows('.'))

    def expect_no_question(self):
        time.sleep(1.5)  # the watch reports a change within half a second
        self.assertEqual(self.windows(BOX), [])

    def activate(self, window):
        """Activates a window: window managers lose the keyboard focus when two windows close at once."""
        self.xdotool('windowactivate', window)
        self.until_active(window)

    def drop(self, window, *paths):
        """Drags files from the window of another program onto the list."""
        source = self.start(DRAG_SOURCE, '1200', '840', *paths)
        self.window('Drag Source')
        self.xdotool('mousemove', 1220, 860, 'mousedown', 1)
        for step in range(8):
            self.xdotool('mousemove', 1200 - 80 * step, 820 - 60 * step)
            time.sleep(0.1)
        self.xdotool('mousemove', '--window', window, 500, 400)
        time.sleep(0.3)
        self.xdotool('mouseup', 1)
        self.answer('Return')  # the box about the file of another kind
        source.kill()

    def edit(self, window):
        new = [self.project / 'res/240x320' / name for name in ('hail.png', 'hail2.png', 'hail.txt')]
        for path in new:
            path.write_bytes((self.project / 'res/240x320/sun.png').read_bytes())
        self.press('F4', 'ctrl+t')
        self.drop(window, *new)
        until(lambda: self.windows(CHANGED))

        self.press('ctrl+Home', 'space', 'F2')
        self.xdotool('type', '--delay', 20, 'id_image_backdrop\n')
        # Double-clicks the path of the next row, the clouds; the row is as high as a thumbnail.
        self.xdotool('mousemove', '--window', window, 560, 128, 'click', '--repeat', 2, '--delay', 50, 1)
        self.until_active(self.window('^Open$'))
        self.press('ctrl+a')
        self.xdotool('type', '--delay', 20, str(self.project / 'res/320x240/cloud.png'))
        self.answer('Return', '^Open$')
        self.until_active(window)
        self.press('Menu', 'Up', 'Return')  # the last entry, Push Resource

        self.xdotool('mousemove', '--window', window, 60, 70, 'click', 1)
        self.press('Home', 'Menu', 'r', 'Return')  # Resolution...
        self.until_active(self.window('^Select...$'))
        self.xdotool('type', '128x64 ')
        self.press('Return')
        self.answer('Return')  # the question
        until(lambda: not self.windows('^Select...$'))
        self.activate(window)

    def change_by_others(self, window):
        """Checks that each way in which another program changes the project leads to one question."""
        self.replace(self.strings, 'Frost', 'Rime')
        self.answer('alt+y')
        self.select(window, 'End')
        self.assertIn('Rime', self.texts_of_table())
        self.expect_no_question()

        self.commit()
        self.git('checkout', '-q', 'colleague')
        self.answer('alt+y')
        self.expect_no_question()
        self.assertIn('Hoarfrost', self.texts_of_table())

        config = self.project / 'config.xml'
        config.write_bytes(config.read_bytes() + b'<!-- another option -->\n')
        self.answer('alt+n')
        self.expect_no_question()

    def texts_of_table(self):
        return self.what_is_copied_by('ctrl+a', 'ctrl+shift+c')

    def test_adds_renames_saves_and_restores_files(self):
        program, window = self.open_at(*TO_240_X_320)
        self.edit(window)
        self.press('ctrl+s')
        self.until_saved()
        text = self.resources.read_text()
        for line in (r'<IMAGE id="ID_IMAGE_BACKDROP" type="Normal">.\res\240x320\background.jpg</IMAGE>',
                     r'<IMAGE id="ID_IMAGE_CLOUD" type="Push">.\res\320x240\cloud.png</IMAGE>',
                     r'type="Normal">.\res\240x320\hail.png</IMAGE>', r'type="Normal">.\res\240x320\hail2.png</IMAGE>'):
            self.assertEqual(text.count(line), 1, line)
        self.assertNotIn('hail.txt', text)
        self.assertRegex(text, '<RESOLUTION [^>]*width="128" height="64"')
        self.expect_no_question()  # about the program's own save
        self.change_by_others(window)

        # Drags the edge of the ID column. A click on the header sorts by path, and another one reverses the order.
        self.select(window, *TO_240_X_320)
        self.xdotool('mousemove', '--window', window, 404, 59, 'mousedown', 1)
        for x in (410, 425, 440):
            self.xdotool('mousemove', '--window', window, x, 59)
        self.xdotool('mouseup', 1)
        for x in (560, 620):  # too far apart for a double click
            self.xdotool('mousemove', '--window', window, x, 59, 'click', 1)
        self.close(program)
        remembered = self.widths('wnd_1011')
        self.assertIn('\nsort=-3\n', '\n' + remembered)
        self.assertGreater(int(re.search(r'^0=(\d+)', remembered, re.M)[1]), 210)
        self.assertIn('\nthumbnails=1\n', (self.dir / 'bin/Morvanite.ini').read_text())

        program, window = self.open_at(*TO_240_X_320)
        self.press('space', 'F2')
        self.xdotool('type', '--delay', 20, 'id_image_last\n')
        self.press('ctrl+s')
        until(lambda: r'<IMAGE id="ID_IMAGE_LAST" type="Normal">.\res\240x320\sun.png<' in self.resources.read_text())
        self.close(program)
        self.assertEqual(self.widths('wnd_1011'), remembered)


if __name__ == '__main__':
    unittest.main(verbosity=2)
