# SPDX-License-Identifier: MIT
"""Tests what a pack does to files, and what it reports about them on standard error."""

import json
import pathlib
import signal
import subprocess
import time
import unittest

from demo import CLI, FILES, DemoProject

# Converts pictures until logo.png, which is the last one. From then on, each call tells its processes and takes long.
SLOW_AT_THE_SECOND_RUN = '''
if [ ! -e "$PROGRAM/ran" ]; then
    printf 'a converted picture' > "$4"
    case "$3" in */logo.png) touch "$PROGRAM/ran";; esac
    exit
fi
printf half > "$4"; touch temp_image; trap "" TERM
tell() { echo $* > "$PROGRAM/new.$$"; mv "$PROGRAM/new.$$" "$PROGRAM/pid.$$"; }
%s
'''


class Pack(DemoProject):
    def use_converter(self, script):
        """Makes a program folder with a script instead of the converter: its source is $3 and its target $4."""
        program = self.dir / 'program'
        if not program.exists():
            program.mkdir()
            for entry in pathlib.Path(CLI).parent.iterdir():
                (program / entry.name).symlink_to(entry)
        tool = program / 'qrk_resgenerator.exe'
        tool.unlink(missing_ok=True)
        if script is not None:
            tool.write_text('#!/bin/sh\n' + script)
            tool.chmod(0o755)
        self.env['MORVANITE_PROGRAM_DIR'] = str(program)
        return program

    def names(self):
        return sorted(str(path.relative_to(self.dir)) for path in self.dir.rglob('*') if 'program' not in path.parts)

    def pack(self, *more):
        return self.run_cli(*self.to_pack, '--convert-images', '1', *more)

    def test_a_signal_ends_all_converters_and_leaves_no_temporary_file(self):
        names = [f'p{n}.png' for n in range(6)]
        for name in names:
            (self.dir / name).write_text(name)
        listing = self.dir / 'res/demo.res.xml'
        listing.write_text(listing.read_text().replace('<IMAGE', ''.join(
            f'<IMAGE id="ID_{n}" type="Normal">{name}</IMAGE>' for n, name in enumerate(names)) + '<IMAGE', 1))
        for folder in ('temp', 'tmp'):
            (self.dir / folder).mkdir()
        self.env['TMPDIR'] = str(self.dir / 'tmp')
        before = self.names()
        self.env['PROGRAM'] = str(self.dir / 'program')
        alone, in_a_group = 'tell $$; exec sleep 60', 'sleep 60 & tell $! $$; wait'
        jobs = ('--jobs', '4', '--cache', 'tmp/cache')
        for number, converters, work, options in (
                (signal.SIGTERM, 1, alone, ()), (signal.SIGINT, 1, alone, ('--temp', 'temp')),
                (signal.SIGTERM, 4, in_a_group, jobs), (signal.SIGHUP, 4, in_a_group, jobs)):
            program = self.use_converter(SLOW_AT_THE_SECOND_RUN % work)
            if options == jobs:
                (program / 'ran').touch()
            packing = subprocess.Popen([CLI, *self.to_pack, '--convert-images', '1', *options], env=self.env, cwd=self.dir,
                                       stdout=subprocess.DEVNULL)
            self.addCleanup(packing.wait)
            self.addCleanup(packing.kill)
            while len(pids := list(program.glob('pid.*'))) < converters:
                self.assertIsNone(packing.poll())
                time.sleep(0.01)
            self.assertGreaterEqual(len(self.names()), len(before) + max(converters, 2), 'pictures, or one and the output')
            packing.send_signal(number)
            self.assertEqual(packing.wait(30), -number)
            self.assertEqual(self.names(), before)
            for pid in (int(word) for path in pids for word in path.read_text().split()):
                for _ in range(100):  # a grandchild is taken over by another process, which looks after it at some time
                    if not pathlib.Path(f'/proc/{pid}').exists() or ') Z ' in pathlib.Path(f'/proc/{pid}/stat').read_text():
                        break
                    time.sleep(0.05)
                else:
                    self.fail(f'process {pid} runs after {number} with {options}')
            for path in (*pids, program / 'ran'):
                path.unlink()

    def test_simultaneous_packs_give_the_same_and_share_a_cache(self):
        cache = ('--cache', 'shared/cache')
        plain = self.pack('--temp', 'temp', '--output', 'plain.out')
        for options in ((), ('--once', '--jobs', '2', *cache)):
            packs = [subprocess.Popen([CLI, *self.to_pack, '--convert-images', '1', '--output', f'{n}.out', '--temp', f'temp{n}',
                                       *options], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                      env=self.env, cwd=self.dir) for n in range(3)]
            for n, pack in enumerate(packs):
                self.assertEqual((*(text.decode() for text in pack.communicate(timeout=60)), pack.returncode), (*plain[1:], 0))
                self.assertEqual((self.dir / f'{n}.out').read_bytes(), (self.dir / 'plain.out').read_bytes())
        stored = list((self.dir / 'shared/cache').iterdir())
        self.assertEqual(len(stored), 1)
        size = stored[0].stat().st_size
        path = self.dir / 'shared/cache'
        self.assertEqual(self.run_cli('cache', '--stats', *cache), (0, f'{path}: 1 pictures, {size} bytes\n', ''))
        self.assertEqual(json.loads(self.run_cli('cache', '--clear', '--json', *cache)[1]),
                         {'version': 1, 'folder': str(path), 'deleted': 1, 'bytes': size})
        self.assertEqual(list(path.iterdir()), [])
        self.assertEqual(self.run_cli('cache', '--stats')[::2], (2, 'morvanite-cli: the settings name no cache (section Pack, '
                                                                 'key cache); --cache names its folder\n'))
        self.assertEqual(self.pack('--jobs', '65')[2], 'morvanite-cli: --jobs is "65", but it must be a number from 1 to 64\n')

    def test_reports_how_the_converter_ended_and_never_uses_an_old_target(self):
        tool = self.use_converter('printf "a converted picture" > "$4"; exit 3') / 'qrk_resgenerator.exe'
        told = f'morvanite-cli: {self.dir}/logo.png: the converter {tool} '
        status, _, err = self.pack()
        self.assertEqual((status, err), (0, 2 * (told + 'ended with status 3\n')))
        for script, words in (('kill -SEGV $$', 'was ended by signal 11 (Segmentation fault)\n'),
                              (None, "could not be started: No such file or directory\n")):
            self.use_converter(script)
            (self.dir / 'logo.png.tmp').write_bytes(b'the picture of another day')
            status, out, err = self.pack()
            self.assertEqual((status, err.startswith(told + words)), (1, True), err)
            self.assertEqual(out.count('Need image convert'), 1, 'it fails at once')
            self.assertIn(f'\r\n[error] Cannot open file for read: {self.dir}/logo.png.tmp\r\n[error] Convert image fail.', out)
        self.use_converter('printf "a converted picture" > "$4"')
        (self.dir / 'logo.png.tmp').mkdir()
        status, out, err = self.pack()
        self.assertEqual(status, 1)
        self.assertIn(f"because the old {self.dir}/logo.png.tmp can't be removed: Is a directory\n", err)
        self.assertTrue(out.endswith('result=-1016\r\n\r\n\r\npack done\r\n\r\n### error -1016 ###\r\n'), out)

    def test_sorted_changes_only_the_order(self):
        side = self.dir / 'arm/app.res'
        self.assertEqual(self.pack()[0], 0)
        default = side.read_bytes()
        self.assertEqual(self.pack('--sorted')[0], 0)
        in_order = side.read_bytes()
        self.assertNotEqual(in_order, default)
        self.assertEqual(len(in_order), len(default))
        settings = self.dir / 'morvanite.ini'
        settings.write_text('[Pack]\nsorted=1\n')
        self.assertEqual(self.pack()[0], 0)
        self.assertEqual(side.read_bytes(), in_order)

    def test_fails_with_more_ids_than_numbers(self):
        names = ''.join(f'<FILE id="ID_{n}" type="Push">tune.mp3</FILE>' for n in range(1001))
        (self.dir / 'res/demo.res.xml').write_text(f'<APP>{names}</APP>')
        status, out, err = self.pack()
        self.assertTrue(status == 1 and out.endswith('result=0\r\n\r\n\r\npack done\r\n'), out)
        self.assertIn('more IDs of one kind than there are numbers', err)
        status, _, err = self.run_cli('save', self.project)
        self.assertEqual(status, 1)
        self.assertIn('failed to generate header files', err)

    def test_fails_if_layouts_do_not_load(self):
        self.put_settings('[Layout]\nfolders=1\n')
        self.put_layouts('<TarvoXML><Layout id="ID_START"/></TarvoXML>')
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        header = (self.dir / 'ResID/ResID.h').read_bytes()
        self.assertIn(b'ID_START', header)
        (self.dir / 'res/screens.xml').write_text('<TarvoXML>\n<Layout id="ID_START"></TarvoXML>')
        (self.dir / 'app.axf.pkd').write_bytes(b'of before')
        status, out, err = self.run_cli(*self.to_pack)
        self.assertTrue(status == 1 and out.endswith('\r\n\r\npack done\r\n\r\n### error -1044 ###\r\n'), out)
        self.assertIn('screens.xml:2: the layout file is not well-formed XML', err)
        self.assertEqual((self.dir / 'app.axf.pkd').read_bytes(), b'of before')
        self.assertEqual(self.run_cli('ids', self.project)[:2], (1, ''))
        status, out, err = self.run_cli('save', self.project)
        self.assertEqual(status, 1)
        self.assertTrue(out.endswith('[demo] save - 0 error(s), 1 warning(s)\r\n\r\n\r\nsave done\r\n'), out)
        self.assertIn('the headers are not changed', err)
        self.assertEqual((self.dir / 'ResID/ResID.h').read_bytes(), header)

    def test_omitted_layouts_of_the_list_fail_the_command_and_keep_the_numbers(self):
        settings = self.dir / 'morvanite.ini'
        self.put_layouts('<TarvoXML><Layout id="ID_START"/></TarvoXML>')
        listing = self.dir / 'res/demo.res.xml'
        listed = listing.read_text()
        for isOn in (True, False):
            settings.write_text('[Layout]\nfolders=1\n')
            listing.write_text(listed)
            self.assertEqual(self.run_cli('save', self.project)[::2], (0, ''))
            header = (self.dir / 'ResID/ResID.h').read_bytes()
            if isOn:
                listing.write_text(listed.replace('240', '241'))
                change = "the list of screen sizes doesn't contain 241x320"
            else:
                settings.write_text('')
                change = 'the settings turn layouts off .*; the (IDs|pack)'
            commands = [self.to_pack, ('ids', self.project), ('save', self.project)]
            if isOn:
                commands.insert(2, ('headers', self.project, '--output', 'made'))
            for command in commands:
                status, _, err = self.run_cli(*command)
                self.assertEqual(status, 1, command)
                what = '<' if command[0] == 'headers' else 'the layout file '
                self.assertRegex(err, f'demo.res.xml:[0-9]+: {what}.* is left out: {change}')
            self.assertEqual((self.dir / 'ResID/ResID.h').read_bytes() == header, isOn)
            self.assertEqual((self.dir / 'app.axf.pkd').exists(), not isOn, 'as without layouts')
            self.assertFalse((self.dir / 'made').exists())

    def test_a_depfile_replaces_no_file_of_the_pack_or_the_project(self):
        (self.dir / 'app.axf.pkd').write_bytes(b'of before')
        for name in ('res/demo.res.xml', 'app.axf', 'app.axf.pkd', 'arm/app.res', 'logo.png', 'link'):
            if name == 'link':
                (self.dir / name).symlink_to('app.axf')
            before = (self.dir / name).read_bytes() if (self.dir / name).exists() else None
            status, out, err = self.run_cli(*self.to_pack, '--depfile', name)
            self.assertTrue(status == 1 and out.endswith('### error -1001 ###\r\n'), name + out)
            self.assertIn(f'{self.dir}/{name} is', err)
            self.assertEqual((self.dir / name).read_bytes() if (self.dir / name).exists() else None, before)
        self.assertEqual(self.run_cli(*self.to_pack, '--depfile', 'deps')[0], 0)
        self.assertEqual(self.run_cli(*self.to_pack, '--depfile', 'deps')[0], 0, 'the previous one is replaced')
        for name in ('res/demo.res.xml', 'made/ResID.h'):
            status, _, err = self.run_cli('headers', self.project, '--output', 'made', '--depfile', name)
            self.assertEqual(status, 1)
            self.assertIn(f'{self.dir}/{name} is not written', err)
            self.assertNotIn(b': \\', (self.dir / name).read_bytes())

if __name__ == '__main__':
    unittest.main(argv=['pack_test'])
