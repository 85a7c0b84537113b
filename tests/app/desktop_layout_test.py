#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests a layout on a screen with a window manager: adds a component from the Toolbox, sets a property of each kind,
moves it into another one, selects in the preview at several zooms, deletes, saves, and restores the same components.

usage: desktop_layout_test.py MORVANITE SAMPLE_PROJECT_FOLDER
"""

import pathlib
import shutil
import unittest
import xml.etree.ElementTree

from desktop_strings_test import Lists  # reads the command line
from desktop_test import PROGRAM, until

MIDDLE = (819, 210)  # the middle of the preview, in the window
GAUGE_OF_TOOLBOX = (30, 204)
FIRST = ['F2', 'Home', 'Return']  # selects the first of a list of choices

# For each component: rows of its properties, the keys pressed there ("{typed}"), and the attribute then in the file.
EDITS = {
    'title': [(2, ['F2', 'End', 'Up', 'Return'], 'text', '@ID_STRING_STORM_PUSH'),
              (10, ['{2000ms}', 'Return'], 'scrollTime', '2000ms'),
              (14, ['{1.5}', 'Tab', '{1}', 'Tab'], 'anchor', '(1.5,1)'),
              (18, FIRST, 'enabled', 'true')],
    'today': [(4, ['{-3}', 'Return'], 'padding', None),  # is an element
              (9, ['{1}', 'Tab', '{2}', 'Tab', '{3}', 'Tab', '{4}', 'Down'], 'clip', '(1,2,3,4)')],
    'alarm': [(11, FIRST, 'images', '(@ID_IMAGE_BACKGROUND,@ID_IMAGE_WARNING_PUSH,0,0)'),
              (15, ['{0042}', 'Return'], 'event', '0042')],
    'cp01': [(1, FIRST, 'parent', None),  # the screen
             (2, ['{-0.50}', 'Return'], 'startAngle', '-0.50'),
             (4, FIRST, 'dial', '@ID_IMAGE_BACKGROUND'),
             (6, ['{7}', 'Tab', '{-8}', 'shift+Tab', '{9}', 'Return'], 'pivot', '(9,-8)'),
             (12, ['{10}', 'Tab', '{20}', 'Tab', '{30}', 'Return'], 'fillColor', '#0A141E'),
             (14, ['{5}', 'Return'], 'pos', '(5,0)'),
             (15, ['{70}', 'Escape'], 'size', None)],
}


class Layouts(Lists):
    def setUp(self):
        super().setUp()
        shutil.copy(pathlib.Path(PROGRAM).parent / 'catalogue.xml', self.dir / 'bin')
        self.file = self.dir / 'sample/res/layout_weatherclock_240x320.xml'

    def open_layout(self):
        """Leaves the keyboard focus in the list of components."""
        program, window = self.open()
        self.xdotool('windowsize', '--sync', window, 1270, 800)
        self.until_active(window)
        self.xdotool('mousemove', '--window', window, 60, 70, 'click', 1)
        self.press('Home', 'L', 'Down', 'Down', 'F6')
        return program, window

    def component(self, name):
        return xml.etree.ElementTree.parse(self.file).find(".//*[@name='%s']" % name)

    def do(self, *keys):
        for key in keys:
            self.xdotool('type', '--delay', 20, '--', key[1:-1]) if key[0] == '{' else self.press(key)

    def edit(self, name):
        """Expects the focus in the list and leaves it there."""
        self.press('F6', 'F6')
        row = -1
        for to, keys, _, _ in EDITS[name]:
            self.do(*['Down'] * (to - row), *keys)
            row = to + keys.count('Down')
        self.press('shift+F6', 'shift+F6')

    def answer(self, window, key):
        self.until_active(self.window('^Morvanite$'))
        self.press(key)
        self.until_active(window)

    def name(self):
        """Returns the name of the selected component. Expects the focus in the preview and leaves it there."""
        name = self.what_is_copied_by('F6', 'Down', 'F2', 'ctrl+c')
        self.press('Escape', 'shift+F6')
        return name

    def picked_at(self, window, x):
        """Returns the component that a click selects, `x` pixels to the right of the middle of the preview."""
        self.xdotool('mousemove', '--window', window, MIDDLE[0] + x, MIDDLE[1], 'click', 1)
        return self.name()

    def test_edits_saves_and_restores_a_layout(self):
        program, window = self.open_layout()
        for way, name in ((['Home', 'Down'], 'title'), (['Down'] * 3, 'today'), (['End', 'Up'], 'alarm')):
            self.press(*way)
            self.edit(name)
        self.xdotool('mousemove', '--window', window, *GAUGE_OF_TOOLBOX, 'click', '--repeat', 2, '--delay', 50, 1)
        self.press('shift+F6', 'shift+F6', 'shift+F6')
        self.edit('cp01')
        self.press('F6', 'F6', *['Up'] * 3)
        self.do('{2x}', 'Return')  # replaces the red of the colour
        self.answer(window, 'Return')  # to the message about the refused text

        self.press('shift+F6', 'ctrl+Home')
        self.assertEqual([self.picked_at(window, x) for x in (0, -40)], ['today_condition', 'today_picture'])
        self.press('Menu', *['Down'] * 4, 'Return')  # 500%
        self.assertEqual(self.picked_at(window, -40), 'today_condition')
        self.xdotool('mousemove', '--window', window, *MIDDLE, 'mousedown', 2)
        self.xdotool('mousemove', '--window', window, MIDDLE[0] + 200, MIDDLE[1])
        self.xdotool('mouseup', 2)
        self.assertEqual(self.picked_at(window, 0), 'today_picture')
        self.press('shift+F6', 'Delete')
        self.answer(window, 'alt+y')
        self.press('F6', 'F6', 'Down')
        self.do('{begin}', 'ctrl+s')  # while the editor is open
        until(lambda: 'name="begin"' in self.file.read_text())
        until(lambda: not self.xdotool('search', '--onlyvisible', '--name', r'weatherclock\*'))
        self.close(program)
        for name, edits in EDITS.items():
            for _, _, attribute, value in edits:
                self.assertEqual(self.component(name).get(attribute), value, (name, attribute))
        self.assertEqual([self.component('today')[0].get('left'), self.component('begin')[-1].get('name')], ['-3', 'cp01'])
        self.assertIsNone(self.component('today_picture'))
        saved = self.file.read_bytes(), self.widths('wnd_1019')
        program, window = self.open_layout()
        self.press('F6')
        self.assertEqual(self.name(), 'begin')
        self.press('shift+F6', 'End', 'F6')
        self.assertEqual(self.name(), 'cp01')
        self.close(program)
        self.assertEqual((self.file.read_bytes(), self.widths('wnd_1019')), saved)


if __name__ == '__main__':
    unittest.main(verbosity=2)
