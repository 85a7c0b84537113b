#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Tests the program on a screen with a window manager: opens a project, visits its tree, clears a folder, saves, ends,
and restores the same place.

usage: desktop_test.py MORVANITE SAMPLE_PROJECT_FOLDER
"""

import ctypes
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, SAMPLE = sys.argv[1:3]
del sys.argv[1:3]


def until(condition, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.1)
    raise AssertionError('it did not come to pass: %s' % condition)


class OnScreen(unittest.TestCase):
    SIZE = '1280x900'

    def setUp(self):
        self.dir = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.dir)
        shutil.copytree(SAMPLE, self.dir / 'sample', ignore=shutil.ignore_patterns('ResID'))
        (self.dir / 'run').mkdir(mode=0o700)
        self.env = dict(os.environ, XDG_CONFIG_HOME=str(self.dir / 'settings'), XDG_STATE_HOME=str(self.dir / 'state'),
                        MORVANITE_RUNTIME_DIR=str(self.dir / 'run'), XDG_RUNTIME_DIR=str(self.dir / 'run'),
                        QT_QPA_PLATFORM='xcb', LC_ALL='C.UTF-8',
                        LSAN_OPTIONS='print_suppressions=0:suppressions=%s/leaks_of_others.txt' % pathlib.Path(__file__).parent)
        # The program writes its settings to its own folder, so the test has a copy of that folder.
        shutil.copytree(pathlib.Path(PROGRAM).parent, self.dir / 'bin',
                        ignore=lambda folder, names: [name for name in names if not name.endswith(('.ini', '.img'))])
        self.env['MORVANITE_PROGRAM_DIR'] = str(self.dir / 'bin')
        reader, writer = os.pipe()
        self.screen = self.start('Xvfb', '-displayfd', str(writer), '-screen', '0', self.SIZE + 'x24', pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as number:
            self.env['DISPLAY'] = ':' + number.readline().strip()
        self.start('openbox', '--sm-disable')
        time.sleep(0.5)

    def start(self, *command, **options):
        with open(self.dir / 'said', 'ab') as said:
            process = subprocess.Popen(command, env=self.env, stdout=said, stderr=said, **options)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def xdotool(self, *arguments):
        done = subprocess.run(['xdotool', *map(str, arguments)], env=self.env, capture_output=True, text=True)
        return done.stdout.strip()

    def window(self, name):
        return until(lambda: self.xdotool('search', '--onlyvisible', '--name', name).split('\n')[0])

    def keys(self, *keys):
        for key in keys:
            self.xdotool('key', key)
            time.sleep(0.15)

    def geometry(self, window):
        text = self.xdotool('getwindowgeometry', '--shell', window)
        return {key: value for key, _, value in (line.partition('=') for line in text.split('\n'))
                if key in ('X', 'Y', 'WIDTH', 'HEIGHT')}

    def open(self):
        program = self.start(PROGRAM, str(self.dir / 'sample/weatherclock.vcproj'))
        window = self.window(r'Morvanite - \[weatherclock')
        self.xdotool('windowactivate', '--sync', window)
        time.sleep(0.5)
        return program, window

    def close(self, program):
        for _ in range(4): # on a busy machine the window manager may not have focused the window yet
            self.keys('alt+F4')
            try:
                program.wait(7)
                break
            except subprocess.TimeoutExpired:
                pass
        self.assertEqual(program.poll(), 0, (self.dir / 'said').read_text(errors='replace')[-8000:])

    def set(self, old, new):
        settings = self.dir / 'bin/Morvanite.ini'
        settings.write_text(settings.read_text().replace(old, new))

    def position(self):
        """Returns the stored position: left, top, right and bottom of the window with its frame."""
        return [int(number) for number in re.search(r'^position=(.*)', (self.dir / 'bin/Morvanite.ini').read_text(), re.M)[1].split(',')]


class Desktop(OnScreen):
    def test_opens_changes_saves_and_restores_a_project(self):
        resources = self.dir / 'sample/res/weatherclock.res.xml'
        program, window = self.open()
        self.assertIn('<FILE', resources.read_text())
        for row in range(10):
            self.xdotool('mousemove', '--window', window, 60, 70 + 19 * row, 'click', 1)
        self.xdotool('mousemove', '--window', window, 60, 70, 'click', 1)
        self.keys('Home', 'Down', 'Menu')  # selects Files, and opens its menu
        self.keys('r')
        self.window('^Morvanite$')  # the question
        self.keys('alt+y')
        until(lambda: self.xdotool('search', '--onlyvisible', '--name', r'Morvanite - \[weatherclock\*'))
        self.keys('ctrl+s')
        until(lambda: '<FILE' not in resources.read_text())
        self.assertIn('<IMAGE', resources.read_text())
        self.xdotool('windowmove', '--sync', window, 130, 90, 'windowsize', '--sync', window, 820, 610)
        time.sleep(0.5)
        before = self.geometry(window)
        self.close(program)

        program, window = self.open()
        self.assertEqual(self.geometry(window), before)
        second = self.start(PROGRAM)
        self.assertEqual(second.wait(10), 0, 'a second start ends at once')
        self.close(program)

        both = [self.start(PROGRAM), self.start(PROGRAM)]  # like an icon that is clicked twice
        until(lambda: any(start.poll() == 0 for start in both))
        self.window('^Morvanite$')
        time.sleep(0.3)
        self.close(next(start for start in both if start.poll() is None))

    def test_menus_and_keys_work_after_each_change_of_the_window(self):
        self.set('folders=0', 'folders=1')
        program, window = self.open()

        def minimise(seconds):
            self.xdotool('windowminimize', window)
            time.sleep(seconds)
            self.xdotool('windowactivate', window)

        changes = [lambda pause=pause: minimise(pause) for pause in (0.02, 0.05, 0.1, 0.5)]
        changes += [lambda keys=keys: self.keys(*keys) for keys in (('alt+w', 't'), ('alt+w', 'c'), ('alt+w', 'a'))]
        for number, change in enumerate(changes):
            self.keys('Home', 'L', 'Down', 'Menu', 'n', 'Return')  # a layout
            self.window(r'^Morvanite - .*weatherclock\*')
            change()
            time.sleep(0.7)
            self.keys('ctrl+s')
            self.assertTrue(until(lambda: not self.xdotool('search', '--onlyvisible', '--name', r'^Morvanite - .*\*')), number)
        self.close(program)

    def own_clipboard(self):
        """Becomes the owner of the clipboard like a program that hangs: it never answers."""
        x11 = ctypes.CDLL('libX11.so.6')
        x11.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(x11.XOpenDisplay(self.env['DISPLAY'].encode()))
        root = x11.XDefaultRootWindow(display)
        owner = x11.XCreateSimpleWindow(display, ctypes.c_ulong(root), 0, 0, 1, 1, 0, ctypes.c_ulong(0), ctypes.c_ulong(0))
        clipboard = x11.XInternAtom(display, b'CLIPBOARD', 0)
        x11.XSetSelectionOwner(display, ctypes.c_ulong(clipboard), ctypes.c_ulong(owner), ctypes.c_ulong(0))
        x11.XSync(display, 0)
        self.addCleanup(x11.XCloseDisplay, display)

    def test_a_hanging_clipboard_owner_does_not_block_the_program(self):
        self.set('folders=0', 'folders=1')
        program, window = self.open()
        size = self.geometry(window)
        self.own_clipboard()
        begin = time.monotonic()
        self.xdotool('mousemove', '--window', window, int(size['WIDTH']) - 60, int(size['HEIGHT']) // 2, 'click', 1)
        self.keys('a', 'ctrl+a', 'F6')  # in the pane, then in the tree
        self.keys('Home', 'L', 'Down', 'Menu', 'n', 'ctrl+a')  # creates a layout, whose label is in its editor
        self.own_clipboard()
        self.xdotool('type', 'id_made')
        self.keys('Return', 'ctrl+s')
        until(lambda: any('ID_MADE' in path.read_text() for path in self.dir.glob('sample/res/layout_*.xml')))
        self.close(program)
        self.assertLess(time.monotonic() - begin, 9)

    def test_options_need_no_screen(self):
        said = {option: subprocess.run([PROGRAM, option], capture_output=True, text=True, env={**os.environ, 'DISPLAY': ''})
                for option in ('--help', '--version')}
        self.assertIn('PROJECT.vcproj', said['--help'].stdout)
        self.assertRegex(said['--version'].stdout, r'^morvanite \d+\.\d+\.\d+\n$')
        self.assertEqual([said['--help'].returncode, said['--version'].returncode], [0, 0])

    def test_a_lost_screen_ends_the_program_without_damage_to_files(self):
        before = {path: path.read_bytes() for path in self.dir.glob('sample/**/*') if path.is_file()}
        program, _ = self.open()
        self.screen.kill()
        until(lambda: program.poll() is not None)
        self.assertEqual({path: path.read_bytes() for path in before}, before)


class SmallScreen(OnScreen):
    SIZE = '1024x700'

    def test_the_window_fits_the_screen(self):
        for stored, size in (('', None), ('100,-40,900,500', (800, 540)), ('0,0,3000,2000', (1024, 700)), ('20,30,720,530', (700, 500))):
            self.set('position=', 'position=%s' % stored)
            program, window = self.open()
            shown = {key: int(value) for key, value in self.geometry(window).items()}
            self.close(program)
            left, top, right, bottom = self.position()
            self.set('position=%d,%d,%d,%d' % (left, top, right, bottom), 'position=')
            self.assertTrue(0 <= left <= right <= 1024 and 0 <= top <= bottom <= 700, (stored, left, top, right, bottom))
            self.assertGreaterEqual(shown['Y'] - top, 15, 'the title counts')
            if size:
                self.assertEqual((right - left, bottom - top), size)
        self.assertEqual((left, top), (20, 30))


if __name__ == '__main__':
    unittest.main(verbosity=2)
