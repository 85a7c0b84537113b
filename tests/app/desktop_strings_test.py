#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the strings on a screen with a window manager and with another program's clipboard: edits cells by the
keyboard, finds, pastes, undoes, saves, and restores the same texts.

usage: desktop_strings_test.py MORVANITE SAMPLE_PROJECT_FOLDER
"""

import re
import subprocess
import unittest

from desktop_test import OnScreen, until

ENGLISH, RUSSIAN, HINDI = 3, 4, 7
FROST = 'पाले की चेतावनी'


class Lists(OnScreen):
    """A list of rows in the program's window."""

    def press(self, *keys):
        """Presses all keys in one call, so the program receives them in this order, however slow it is."""
        self.xdotool('key', '--delay', 20, *keys)

    def copied(self):
        done = subprocess.run(['xclip', '-o', '-selection', 'clipboard'], env=self.env, capture_output=True, timeout=20)
        return done.stdout.decode()

    def copy(self, text):
        """Copies a text to the clipboard, as another program does."""
        subprocess.run(['xclip', '-i', '-selection', 'clipboard'], env=self.env, input=text.encode(), check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=20)

    def what_is_copied_by(self, *keys):
        self.copy('nothing yet')
        self.press(*keys)
        until(lambda: self.copied() not in ('', 'nothing yet'))  # '': the program has only just become the owner
        return self.copied()

    def rows(self):
        """Returns the rows of the grid, in its order, without the titles. Expects the keyboard focus in the grid."""
        return [line.split('\t') for line in self.what_is_copied_by('ctrl+a', 'ctrl+shift+c').split('\n')[1:] if line]

    def texts(self):
        return {row[0]: row for row in self.rows()}

    def until_active(self, window):
        until(lambda: self.xdotool('getactivewindow') == window)

    def open_at(self, *keys):
        """Opens the project, selects a row of its tree by keys, and moves to the list of that folder."""
        program, window = self.open()
        self.xdotool('windowsize', '--sync', window, 1270, 800)
        self.until_active(window)
        self.select(window, *keys)
        return program, window

    def select(self, window, *keys):
        self.xdotool('mousemove', '--window', window, 60, 70, 'click', 1)
        self.press(*keys, 'F6', 'ctrl+Home')

    def until_saved(self):
        until(lambda: not self.xdotool('search', '--onlyvisible', '--name', r'weatherclock\*'))

    def widths(self, section):
        """Returns the settings of the list, as text."""
        settings = (self.dir / 'bin/Morvanite.ini').read_text()
        return re.search(r'^\[%s\]\n((?:\w+=.*\n)+)' % section, settings, re.M)[1]


class Strings(Lists):
    def test_edits_saves_and_restores_strings(self):
        strings = self.dir / 'sample/res/ref_list_weatherclock.txt'
        program, window = self.open_at('End')
        rows = self.rows()
        self.assertEqual([len(rows), rows[0][0]], [33, 'ID_STRING_ALARM'])

        self.press('ctrl+Home', 'Right', 'Right', 'Right', 'Return')
        self.xdotool('type', '--delay', 20, 'Zzz\tBudilnik')
        self.press('Return')
        self.assertEqual(self.texts()['ID_STRING_ALARM'][ENGLISH:RUSSIAN + 1], ['Zzz', 'Budilnik'])

        self.press('ctrl+f')
        self.xdotool('type', '--delay', 20, 'warning')
        self.press('Down')
        self.assertEqual(list(self.texts()), ['ID_STRING_FROST_PUSH', 'ID_STRING_STORM_PUSH'])

        self.copy('ID\tHindi\nID_STRING_FROST_PUSH\t%s\n' % FROST)
        self.press('ctrl+shift+v')
        question = self.window('^Morvanite$')
        self.until_active(question)
        self.press('Return')
        self.until_active(window)
        self.assertEqual(self.texts()['ID_STRING_FROST_PUSH'][HINDI], FROST)
        for key, text in (('ctrl+z', ''), ('ctrl+y', FROST)):
            self.press(key)
            self.assertEqual(self.texts()['ID_STRING_FROST_PUSH'][HINDI], text)
        self.press('ctrl+f', 'Escape')  # the find bar
        before = self.rows()
        self.assertEqual(len(before), 33)

        self.press('ctrl+s')
        until(lambda: FROST in strings.read_text('utf-16') and 'Zzz\tBudilnik' in strings.read_text('utf-16'))
        self.until_saved()
        self.close(program)
        program, _ = self.open_at('End')
        self.assertEqual(self.rows(), before)
        self.close(program)


if __name__ == '__main__':
    unittest.main(verbosity=2)
