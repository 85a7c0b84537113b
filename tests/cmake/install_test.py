# SPDX-License-Identifier: MIT
"""An installed Morvanite whose prefix was moved to a place that nobody may write to.

Use: install_test.py BUILD REPOSITORY
"""

import os
import pathlib
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

BUILD, REPOSITORY = map(os.path.abspath, sys.argv[1:3])
NOBODY = 65534
FIRMWARE = '''#include "morvanite_device.h"
int main(void) { morvanite_payload payload; return morvanite_open(&payload, (const uint8_t *)"", 0, 0) == MORVANITE_DAMAGED; }
'''


def install(*options, **env):
    subprocess.run(('cmake', '--install', BUILD, *options), check=True, stdout=subprocess.DEVNULL, env=os.environ | env)


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.top = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.top)
        install('--prefix', cls.top / 'first')
        cls.prefix = cls.top / 'moved here, ü'
        (cls.top / 'first').rename(cls.prefix)
        (cls.top / 'work').mkdir()
        shutil.copytree(pathlib.Path(REPOSITORY, 'sample'), cls.top / 'work/sample', ignore=shutil.ignore_patterns('ResID'))
        folders = [path for path in (cls.prefix, *cls.prefix.rglob('*')) if path.is_dir()]
        for folder in folders:
            folder.chmod(0o555)
        cls.addClassCleanup(lambda: [folder.chmod(0o755) for folder in folders])
        cls.user = {}
        if os.geteuid() == 0:  # who may write everywhere
            cls.top.chmod(0o755)
            for path in (cls.top / 'work', *(cls.top / 'work').rglob('*')):
                os.chown(path, NOBODY, NOBODY)
            cls.user = {'user': NOBODY, 'group': NOBODY, 'extra_groups': []}
        cls.env = {key: value for key, value in os.environ.items() if not key.startswith(('MORVANITE_', 'CMAKE_', 'MAKE'))}
        home = str(cls.top / 'work/home')
        cls.env |= {'HOME': home, 'XDG_CONFIG_HOME': home, 'PKG_CONFIG_PATH': str(cls.prefix / 'share/pkgconfig')}

    def run_there(self, *arguments, status=0):
        done = subprocess.run(list(map(str, arguments)), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120,
                              cwd=self.top / 'work', env=self.env, **self.user)
        output = os.fsdecode(done.stdout)
        self.assertEqual(done.returncode, status, output)
        return output

    def configure(self, source, *options, status=0):
        return self.run_there('cmake', '-G', 'Ninja', '-S', source, '-B', source + '.build', '-D',
                              f'CMAKE_PREFIX_PATH={self.prefix}', '--toolchain', self.top / 'work/sample/arm.cmake', *options,
                              status=status)

    def test_every_link_leads_to_a_file_below_the_prefix(self):
        links = [path for path in self.prefix.rglob('*') if path.is_symlink()]
        self.assertEqual({path.name for path in links}, {'morvanite', 'morvanite-cli', 'Morvanite.ini', 'tuvik.ini',
                                                         'resolutions.ini', 'catalogue.xml', 'layout_tables.xml', 'AppLogo.img'})
        for link in links:
            self.assertTrue(link.exists() and link.resolve().is_relative_to(self.prefix.resolve()), link)

    def test_the_sample_is_built_with_the_package_runs_and_is_packed_by_hand(self):
        self.configure('sample')
        self.run_there('cmake', '--build', 'sample.build')
        self.assertNotIn('Packing', self.run_there('cmake', '--build', 'sample.build'), 'nothing has changed')
        packed = self.top / 'work/sample.build/weatherclock.packed.axf'
        self.assertIn('Погодные часы', self.run_there('qemu-arm', packed, 'ru'))
        cli = self.prefix / 'bin/morvanite-cli'
        self.run_there(cli, 'save', 'sample/weatherclock.vcproj', '--strict')
        self.run_there(cli, 'pack', 'sample/weatherclock.vcproj', '--input', 'sample.build/weatherclock.axf', '--output', 'by-hand',
                       '--resolution', '240x320', '--target', 'axf', '--convert-images', '1', '--strict')
        self.assertEqual((self.top / 'work/by-hand').read_bytes(), packed.read_bytes())
        self.run_there(cli, 'strings', 'export', 'sample/weatherclock.vcproj', 'texts.xlsx')

    def test_a_package_of_another_version_is_refused(self):
        folder = self.top / 'work/newer'
        shutil.copytree(self.top / 'work/sample', folder, dirs_exist_ok=True)
        lists = folder / 'CMakeLists.txt'
        lists.write_text(lists.read_text().replace('Morvanite 1.0', 'Morvanite 2.0'))
        if self.user:
            os.chown(folder, NOBODY, NOBODY)
        self.assertIn('version: 1.', self.configure('newer', status=1))

    def test_pkg_config_tells_where_the_reader_is(self):
        def ask(what):
            return shlex.split(self.run_there('pkg-config', what, 'morvanite-device'))
        folder, = ask('--variable=sourcedir')
        self.assertTrue(os.path.samefile(ask('--variable=includedir')[0], self.prefix / 'include/morvanite'))
        (self.top / 'work/firmware.c').write_text(FIRMWARE)
        self.run_there('arm-linux-gnueabihf-gcc', '-std=c99', '-static', *ask('--cflags'), 'firmware.c',
                       *pathlib.Path(folder).glob('*.c'), '-o', 'firmware')
        self.run_there('qemu-arm', 'firmware', status=1)

    def test_the_window_starts_packs_for_an_ide_and_ends(self):
        env = self.env | {'QT_QPA_PLATFORM': 'offscreen', 'MORVANITE_RUNTIME_DIR': str(self.top / 'work/run')}
        window = subprocess.Popen((self.prefix / 'bin/morvanite', 'sample/weatherclock.vcproj'), env=env, cwd=self.top / 'work',
                                  stderr=subprocess.DEVNULL, **self.user)
        self.addCleanup(window.kill)
        command = (self.prefix / 'bin/morvanite-cli', 'load', 'sample/weatherclock.vcproj', '--remote')
        for _ in range(100):
            done = subprocess.run(command, env=env, cwd=self.top / 'work', capture_output=True, **self.user)
            if done.returncode == 0:
                break
            time.sleep(0.1)
        self.assertIn(b'load done', done.stdout, done.stderr)
        window.send_signal(signal.SIGTERM)
        self.assertEqual(window.wait(timeout=30), -signal.SIGTERM)


class Staged(unittest.TestCase):
    def test_a_prefix_of_the_system_has_its_settings_in_etc_and_keeps_changed_ones(self):
        with tempfile.TemporaryDirectory() as top:
            install('--prefix', '/usr', '--component', 'cli', DESTDIR=top)
            settings = pathlib.Path(top, 'etc/morvanite/Morvanite.ini')
            self.assertIn('reso_set=', settings.read_text())
            self.assertEqual(os.readlink(f'{top}/usr/lib/morvanite/Morvanite.ini'), '../../../etc/morvanite/Morvanite.ini')
            settings.write_text('[Path]\nreso_set=mine\n')
            install('--prefix', '/usr', '--component', 'cli', DESTDIR=top)
            self.assertEqual(settings.read_text(), '[Path]\nreso_set=mine\n')
            self.assertFalse(os.path.exists(f'{top}/usr/bin/morvanite'))


if __name__ == '__main__':
    unittest.main(argv=['install_test'])
