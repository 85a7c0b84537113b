# SPDX-License-Identifier: MIT
"""Tests that a build with morvanite_pack writes no file beside the sources, whatever errors they have.

Usage: sources_test.py MORVANITE_CLI REPOSITORY GENERATOR
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

REPOSITORY, GENERATOR = os.path.abspath(sys.argv[2]), sys.argv[3]
sys.path.insert(0, REPOSITORY + '/tests/cli')
from demo import CLI, FILES  # noqa: E402

NOBODY = 65534
LIST = FILES['res/demo.res.xml'].decode()
STRINGS = FILES['res/ref_list_demo.txt'].decode('utf-16')
BUILD = '''cmake_minimum_required(VERSION 3.20)
project(Demo LANGUAGES C)
find_package(Morvanite 1.0 REQUIRED PATHS "{repository}")
add_executable(app main.c)
morvanite_pack(app PROJECT demo.vcproj RESOLUTION {size} TARGET dll SETTINGS settings CONVERT_IMAGES)
'''


class Sources(unittest.TestCase):
    def setUp(self):
        self.work = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.work)
        self.work.chmod(0o755)
        self.app = self.work / 'the app'
        self.user = {}
        (self.app / 'res').mkdir(parents=True)
        (self.app / 'settings/morvanite').mkdir(parents=True)
        for name, content in FILES.items():
            (self.app / name).write_bytes(content)
        self.put('demo.vcproj', '')
        self.put('main.c', '#include "ResID.h"\nint main(void) { return ID_STRING_HI == 0; }\n')
        self.put('settings/morvanite/Morvanite.ini', '[Application]\n')
        self.put('CMakeLists.txt', BUILD.format(repository=REPOSITORY, size='240x320'))

    def put(self, name, text, encoding='utf-8'):
        (self.app / name).write_bytes(text.encode(encoding))

    def run_cmake(self, *arguments):
        """Returns the exit status and the output, in which CMake may wrap a message."""
        env = {key: value for key, value in os.environ.items() if key not in ('MAKEFLAGS', 'MFLAGS', 'CMAKE_GENERATOR')}
        done = subprocess.run(('cmake', *map(str, arguments)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              timeout=120, env=env, **self.user)
        return done.returncode, re.sub(r'\s+', ' ', done.stdout)

    def configure(self, folder):
        return self.run_cmake('-G', GENERATOR, '-S', self.app, '-B', self.work / folder, '-D', f'MORVANITE_CLI={CLI}')

    def steps(self, folder):
        """Returns the steps of a build that must succeed."""
        status, output = self.run_cmake('--build', self.work / folder)
        self.assertEqual(status, 0, output)
        return sorted(re.findall('Numbering the|Building C|Linking C|Packing the', output))

    def state(self):
        """Returns all files beside the sources and beside the program, with their contents or times."""
        files = {str(path): path.read_bytes() for path in self.app.rglob('*') if path.is_file()}
        program = {str(path): path.stat().st_mtime_ns for path in pathlib.Path(CLI).parent.rglob('*')}
        return files | program, sorted(map(str, self.app.rglob('*')))

    def assert_fails_untouched(self, *reasons):
        before = self.state()
        status, output = self.configure('out')
        if status == 0:
            status, output = self.run_cmake('--build', self.work / 'out')
        self.assertNotEqual(status, 0, output)
        for reason in reasons:
            self.assertIn(reason, output)
        self.assertEqual(self.state(), before)
        self.assertFalse(list(self.work.glob('out/**/ResID.h')) + list(self.work.glob('out/*.packed.dll')))

    def test_builds_a_valid_project_in_two_independent_folders(self):
        before = self.state()
        for folder in ('one', 'two'):
            self.assertEqual(self.configure(folder)[0], 0)
            self.assertEqual(self.steps(folder), ['Building C', 'Linking C', 'Numbering the', 'Packing the'])
        self.put('res/demo.res.xml', LIST.replace('ID_IMAGE_LOGO', 'ID_IMAGE_MINE'))
        for folder in ('one', 'two'):
            self.assertNotEqual(self.steps(folder), [])
        for folder in ('one', 'two', 'one'):
            self.assertEqual(self.steps(folder), [], folder)
        self.put('res/demo.res.xml', LIST)
        self.assertEqual(self.state(), before)

    def test_an_incomplete_project_fails_the_build(self):
        row = 'ID_STRING_HI\tNormal\tgreeting\tHi\r\n'
        conflict = f'<<<<<<< HEAD\r\n{row}=======\r\n{row.replace("Hi", "Hello")}>>>>>>> other\r\n'
        for name, text, *reasons in (
                ('res/ref_list_demo.txt', STRINGS.replace('ID_STRING_HI', 'ID_IMAGE_LOGO'),
                 'res/ref_list_demo.txt:3: the row of ID_IMAGE_LOGO with all its texts is left out', 'Error 1: ID conflicts - ID_IMAGE_LOGO.'),
                ('res/ref_list_demo.txt', STRINGS.replace(row, conflict),
                 'res/ref_list_demo.txt:3: the line begins with "<<<<<<<"', 'ref_list_demo.txt:7: '),
                ('settings/morvanite/Morvanite.ini', '[Path]\nreso_set=nowhere.ini\n',
                 'nowhere.ini: there is no list of screen sizes', 'res/demo.res.xml:3: <RESOLUTION> is left out'),
                ('CMakeLists.txt', BUILD.format(repository=REPOSITORY, size='240x32'),
                 'RESOLUTION is 240x32, but', 'the list of screen sizes has only 96x64, ')):
            good = (self.app / name).read_bytes()
            self.put(name, text, 'utf-16' if name.endswith('list_demo.txt') else 'utf-8')
            self.assert_fails_untouched(*reasons)
            (self.app / name).write_bytes(good)

    def test_builds_from_a_read_only_tree(self):
        (self.work / 'out').mkdir()
        if os.geteuid() == 0:  # root may write everywhere
            os.chown(self.work / 'out', NOBODY, NOBODY)
            self.user = {'user': NOBODY, 'group': NOBODY, 'extra_groups': []}
        for path in (*self.app.rglob('*'), self.app):
            path.chmod(0o555 if path.is_dir() else 0o444)
        self.addCleanup(lambda: [path.chmod(0o755) for path in (self.app, *self.app.rglob('*')) if path.is_dir()])
        if subprocess.run((CLI, '--version'), stdout=subprocess.DEVNULL, **self.user).returncode != 0:
            self.skipTest('another user may not run the program')
        self.assertNotEqual(subprocess.run(('touch', self.app / 'res/x'), stderr=subprocess.DEVNULL, **self.user).returncode, 0)
        status, output = self.configure('out')
        self.assertEqual(status, 0, output)
        self.assertIn('Packing the', self.steps('out'))
        self.assertEqual(self.steps('out'), [])

    def test_finds_the_package_of_the_programs_version(self):
        version = subprocess.run((CLI, '--version'), capture_output=True, text=True).stdout.split()[-1]
        major, minor, _ = map(int, version.split('.'))
        self.put('main.c', 'int main(void) { return 0; }\n')
        for wanted, found in ((f'{version} EXACT', True), (f'{major}.{minor}', True), (f'{major}.{minor + 1}', False),
                              (f'{major + 1}.0', False), (f'{major - 1}.0', False)):
            self.put('CMakeLists.txt', BUILD.format(repository=REPOSITORY, size='240x320').replace('1.0 REQ', wanted + ' REQ'))
            status, output = self.configure('version ' + wanted)
            self.assertEqual(status == 0, found, output)


if __name__ == '__main__':
    unittest.main(argv=['sources_test'])
