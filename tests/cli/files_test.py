# SPDX-License-Identifier: MIT
"""Tests how morvanite-cli names, reads and writes files: links, limits, signals, pipes, and reasons in messages."""

import fcntl
import json
import os
import resource
import signal
import subprocess
import threading
import unittest

from demo import CLI, FILES, LOADED, DemoProject

EXPORTED = '[demo] export - 0 error(s), 0 warning(s)\r\n'


class Files(DemoProject):
    def test_writes_through_a_link_out_of_the_project_only_if_the_user_allows_it(self):
        profile = self.dir / 'none/profile'
        profile.parent.mkdir()
        profile.write_text('mine')
        header = self.dir / 'demo/ResID/ResID.h'
        header.parent.mkdir(parents=True)
        header.symlink_to('../../none/profile')
        for name in ('config.xml', 'res'):
            (self.dir / name).rename(self.dir / 'demo' / name)
        project = self.dir / 'demo/demo.vcproj'
        status, _, err = self.run_cli('save', project)
        self.assertEqual(status, 1)
        self.assertIn(f'"{header}" is not written', err.replace('/./', '/'))
        self.assertEqual(profile.read_text(), 'mine')
        (self.dir / 'none/morvanite').mkdir()
        (self.dir / 'none/morvanite/Morvanite.ini').write_text('[Path]\nfollow_links=1\n')
        self.assertEqual(self.run_cli('save', project)[0], 0)
        self.assertIn('ID_FILE_TUNE', profile.read_text())

    def test_reads_but_does_not_save_a_project_whose_lists_are_links_out_of_it(self):
        (self.dir / 'none').mkdir()
        inner = self.dir / 'inner'
        inner.mkdir()
        for name in ('config.xml', 'tune.mp3', 'logo.png'):
            (self.dir / name).rename(inner / name)
        (inner / 'res').symlink_to('../res')
        project = str(inner / 'demo.vcproj')
        self.assertEqual(self.run_cli('load', project), (0, LOADED + '\r\n\r\nload done\r\n', ''))
        self.assertEqual(self.run_cli('headers', project, '--output', 'made'), (0, '', ''))
        self.assertEqual(self.run_cli(self.to_pack[0], project, *self.to_pack[2:])[::2], (0, ''))
        before = self.state()
        status, _, err = self.run_cli('save', project)
        self.assertEqual(status, 1)
        self.assertIn(f'{inner}/res/', err.replace('/./', '/'))
        self.assertIn(os.path.realpath(self.dir / 'res') + '/', err)
        self.assertNotIn('interrupted', err)
        self.assertEqual(self.state(), before)

    def test_headers_gives_the_layout_converter_absolute_paths(self):
        program = self.dir / 'program'
        program.mkdir()
        (program / 'Morvanite.ini').write_text('[Path]\nexport_xml=types.xml\nexport_layout=layouts.xml\nreso_set=sizes.ini\n')
        (program / 'sizes.ini').write_text('[Resolution]\n240x320\n')
        (program / 'types.xml').write_text('<catalogue/>')
        tool = program / 'zul_xml_conv.exe'
        tool.write_text('#!/bin/sh\necho "$MORVANITE_PROGRAM_DIR" > "$8/LayoutID.h"\n')
        tool.chmod(0o755)
        self.env['MORVANITE_PROGRAM_DIR'] = 'program'  # a relative path; the tool gets an absolute one
        self.assertEqual(self.run_cli('headers', self.project, '--output', 'made'), (0, '', ''))
        self.assertEqual(sorted(path.name for path in (self.dir / 'made').iterdir()), ['LayoutID.h', 'ResID.h'])
        self.assertEqual((self.dir / 'made/LayoutID.h').read_text().rstrip('/\n'), str(program))

    def interrupt_save(self):
        """Leaves what a killed save leaves: a journal, and the new string file beside the old one."""
        strings = self.dir / 'res/ref_list_demo.txt'
        new = strings.read_bytes().decode('utf-16').replace('\tHi', '\tHello').encode('utf-16')
        (self.dir / 'res/.ref_list_demo.txt.1-0').write_bytes(new)
        info = strings.stat()
        stamp = f'{info.st_size} {info.st_mtime_ns // 10**9}.{info.st_mtime_ns % 10**9}'
        (self.dir / 'res/.demo.journal').write_text(
            f'Morvanite journal 1\n1\nneeded\t0\t{stamp}\tres/ref_list_demo.txt\nend\n')
        return strings, new

    def test_commands_that_only_read_do_not_recover_an_interrupted_save(self):
        strings, new = self.interrupt_save()
        before = self.state()
        commands = (('headers', self.project, '--output', 'made'), ('load', self.project, '--strict'), (*self.to_pack, '--strict'))
        for arguments in commands:
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (1, ''))
            self.assertIn('was interrupted, so nothing was written; to finish that save, run "morvanite-cli save" or', err)
            self.assertEqual(self.state(), before)
        with open(self.dir / 'res/.demo.journal') as journal:
            fcntl.flock(journal, fcntl.LOCK_EX)
            waiting = subprocess.Popen([CLI, *commands[0]], env=self.env, cwd=self.dir)
            self.addCleanup(waiting.kill)
            with self.assertRaises(subprocess.TimeoutExpired):
                waiting.wait(1)
            os.remove(journal.name)
        self.assertEqual(waiting.wait(10), 0)
        self.interrupt_save()
        self.assertIn('it is finished now', self.run_cli('save', self.project)[2])
        self.assertEqual(strings.read_bytes(), new)

    def test_restore_restores_all_files_or_none_and_follows_no_link(self):
        listing = self.dir / 'res/demo.res.xml'
        strings = self.dir / 'res/ref_list_demo.txt'
        before = listing.read_bytes().replace(b'</APP>', b'<FILE>.\\lost.bin</FILE></APP>')
        listing.write_bytes(before)
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        saved = listing.read_bytes()
        entry, = (self.dir / 'state/morvanite/kept').glob('demo-*/1')
        (entry / '1').write_bytes(b'strings of before')
        (entry / 'index.json').write_text(json.dumps({'files': [str(listing), str(strings)]}))
        (self.dir / 'none').mkdir()
        profile = self.dir.parent / (self.dir.name + '.profile')
        self.addCleanup(profile.unlink)
        strings.rename(profile)
        mine = profile.read_bytes()
        strings.symlink_to(profile)
        status, _, err = self.run_cli('kept', self.project, '--restore', '1')
        self.assertEqual(status, 1)
        self.assertIn(f'"{strings}" is not written', err)
        self.assertIn(f'to "{os.path.realpath(profile)}"', err)
        self.assertEqual((profile.read_bytes(), listing.read_bytes()), (mine, saved))
        strings.unlink()
        strings.write_bytes(mine)
        _, new = self.interrupt_save()
        status, out, err = self.run_cli('kept', self.project, '--restore', '1')
        self.assertEqual((status, listing.read_bytes(), strings.read_bytes()), (0, before, b'strings of before'), err)
        self.assertEqual((entry.parent / '2/1').read_bytes(), new, 'the interrupted save was finished first')
        self.assertFalse((self.dir / 'res/.demo.journal').exists())
        (self.dir / 'demo.vcproj').write_text('')
        listed = self.run_cli('kept', self.project)
        self.assertEqual(listed[1].count('\n'), 4)
        self.assertEqual(self.run_cli('kept', 'DEMO.vcproj'), listed)

    def test_a_file_size_limit_fails_the_save_without_a_crash(self):
        before = self.state()
        status, _, err = self.run_cli(
            'save', self.project, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (100, 100)))
        self.assertEqual(status, 1)
        self.assertIn(f'cannot write "{self.dir}/res/', err)
        self.assertIn('File too large; ', err)
        self.assertEqual(self.state(), before)

    def test_two_simultaneous_imports_both_succeed(self):
        sheets = []
        for name in 'A', 'B':
            sheets.append(self.dir / f'{name}.csv')
            sheets[-1].write_text(f'Number of Language,1\nString ID,Resource Type,Description,English\nID_{name},Normal,,Text\n')
        for _ in range(6):
            (self.dir / 'res/ref_list_demo.txt').write_bytes(FILES['res/ref_list_demo.txt'])
            imports = [subprocess.Popen([CLI, 'strings', 'import', self.project, sheet], env=self.env,
                                        stdout=subprocess.DEVNULL) for sheet in sheets]
            self.assertEqual([each.wait(60) for each in imports], [0, 0])
            texts = (self.dir / 'res/ref_list_demo.txt').read_bytes().decode('utf-16')
            self.assertTrue('ID_A' in texts and 'ID_B' in texts, texts)

    def test_a_header_that_cannot_be_written_fails_save_and_import_with_a_reason(self):
        self.assertEqual(self.run_cli('strings', 'export', self.project, 'a.csv')[0], 0)
        (self.dir / 'ResID/ResID.h').mkdir(parents=True)
        for arguments in (('save', self.project), ('strings', 'import', self.project, 'a.csv')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual(status, 1, err)
            self.assertIn('[demo] save - 0 error(s), 0 warning(s)\r\n', out)
            self.assertIn('ResID.h": Is a directory; ', err)
            self.assertNotIn('failed to save', err)

    def test_a_file_of_the_project_that_cannot_be_read_is_named_with_the_reason(self):
        strings, listing = self.dir / 'res/ref_list_demo.txt', self.dir / 'res/demo.res.xml'
        three = strings.read_bytes().decode('utf-16').replace('Language\t1', 'Language\t3').encode('utf-16')
        for file, content, reported, reason in (
                (strings, three, 'Error 1: language "" is unrecognized.\r\n',
                 f'"{strings}": line 1 says that there are 3 languages, but line 2 has 1\n'),
                (strings, None, '', f'cannot read "{strings}": No such file or directory; '),
                (listing, b'<APP>\n\n<FILE</APP>', 'invalid resource format (Line 4).', 'line 3: this is not well-formed XML'),
                (listing, b'', 'invalid resource format (Line 1).', 'is empty'),
                (listing, None, '', f'cannot read "{listing}": No such file or directory; ')):
            file.unlink() if content is None else file.write_bytes(content)
            status, out, err = self.run_cli('load', self.project)
            self.assertEqual(status, 1)
            self.assertIn(reported, out)
            self.assertIn(reason, err)

    def test_refuses_a_name_that_is_not_utf8(self):
        here = os.fsencode(self.dir)
        other = here + b'/M\xf6ller'
        os.mkdir(other)
        for name in ('config.xml', 'res'):
            os.rename(here + b'/' + name.encode(), other + b'/' + name.encode())
        before = sorted(os.walk(other))
        for arguments in ((b'save', here + b'/M\xfcller/demo.vcproj'), ('strings', 'export', self.project, b'\xfc.csv')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (2, ''))
            self.assertIn('\\xfc', err)
        status, _, err = self.run_cli('save', 'demo.vcproj', preexec_fn=lambda: os.chdir(other))
        self.assertEqual(status, 2)
        self.assertIn('/M\\xf6ller" is not UTF-8', err)
        self.assertEqual(self.run_cli('save', self.dir / 'M\ufffdller/demo.vcproj')[0], 1)
        self.assertEqual(sorted(os.walk(other)), before)

    def test_a_path_may_have_520_characters(self):
        for parts, status, reason in ((2, 0, ''), (3, 1, 'may have at most 520 characters')):
            deep = self.dir / '/'.join(['deep' * 50] * parts)
            (deep / 'res').mkdir(parents=True)
            (deep / 'config.xml').write_bytes(FILES['config.xml'])
            (deep / 'res/demo.res.xml').write_text('<APP/>')
            done = self.run_cli('load', deep / 'demo.vcproj')
            self.assertEqual(done[0], status)
            self.assertIn(reason, done[2])

    def test_exports_to_a_pipe_or_a_device_and_a_signal_ends_the_wait_for_a_reader(self):
        pipe = self.dir / 'x.csv'
        self.run_cli('strings', 'export', self.project, 'plain.csv')
        os.mkfifo(pipe)
        read = []
        reader = threading.Thread(target=lambda: read.append(pipe.read_bytes()))
        reader.start()
        self.assertEqual(self.run_cli('strings', 'export', self.project, pipe), (0, EXPORTED, ''))
        reader.join(10)
        self.assertEqual(read, [(self.dir / 'plain.csv').read_bytes()])
        self.assertTrue(pipe.is_fifo())
        self.assertEqual(self.run_cli(*self.to_pack, '--depfile', '/dev/null')[0], 0)
        for ending in (signal.SIGINT, signal.SIGTERM):
            waiting = subprocess.Popen([CLI, 'strings', 'export', self.project, pipe], env=self.env, cwd=self.dir)
            self.addCleanup(waiting.kill)
            with self.assertRaises(subprocess.TimeoutExpired):
                waiting.wait(1)
            waiting.send_signal(ending)
            self.assertEqual(waiting.wait(10), -ending)


if __name__ == '__main__':
    unittest.main(argv=['files_test'])
