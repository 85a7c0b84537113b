"""How morvanite-cli names, reads and writes files: links, limits, signals, pipes, and why something can't be done."""

import os
import resource
import signal
import subprocess
import threading
import unittest

from demo import CLI, DemoProject

EXPORTED = '[demo] export - 0 error(s), 0 warning(s)\r\n'


class Files(DemoProject):
    def content(self):
        return {path: path.read_bytes() for path in self.dir.rglob('*') if path.is_file()}

    def test_a_link_out_of_the_project_is_written_to_only_where_the_user_allows_it(self):
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
        self.assertIn(f'"{header}" isn\'t written', err.replace('/./', '/'))
        self.assertEqual(profile.read_text(), 'mine')
        (self.dir / 'none/morvanite').mkdir()
        (self.dir / 'none/morvanite/Morvanite.ini').write_text('[Path]\nfollow_links=1\n')
        self.assertEqual(self.run_cli('save', project)[0], 0)
        self.assertIn('ID_FILE_TUNE', profile.read_text())

    def test_a_file_that_may_not_grow_fails_the_save_and_not_the_program(self):
        before = self.content()
        status, _, err = self.run_cli(
            'save', self.project, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (100, 100)))
        self.assertEqual(status, 1)
        self.assertIn(f'cannot write "{self.dir}/res/', err)
        self.assertIn('File too large; ', err)
        self.assertEqual(self.content(), before)

    def test_a_header_that_cannot_be_written_fails_the_save_and_the_import_and_says_why(self):
        self.assertEqual(self.run_cli('strings', 'export', self.project, 'a.csv')[0], 0)
        (self.dir / 'ResID/ResID.h').mkdir(parents=True)
        for arguments in (('save', self.project), ('strings', 'import', self.project, 'a.csv')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual(status, 1, err)
            self.assertIn('[demo] save - 0 error(s), 0 warning(s)\r\n', out)
            self.assertIn('ResID.h": Is a directory; ', err)

    def test_a_file_of_the_project_that_cannot_be_read_is_named_with_the_reason(self):
        strings, listing = self.dir / 'res/ref_list_demo.txt', self.dir / 'res/demo.res.xml'
        three = strings.read_bytes().decode('utf-16').replace('Language\t1', 'Language\t3').encode('utf-16')
        for file, content, reported, reason in (
                (strings, three, 'Error 1: language "" is unrecognized.\r\n',
                 f'"{strings}": line 1 says that there are 3 languages, and line 2 has 1\n'),
                (strings, None, '', f'cannot read "{strings}": No such file or directory; '),
                (listing, b'<APP>\n\n<FILE</APP>', 'invalid resource format (Line 4).', 'line 3: this is no well-formed XML'),
                (listing, b'', 'invalid resource format (Line 1).', 'is empty'),
                (listing, None, '', f'cannot read "{listing}": No such file or directory; ')):
            file.unlink() if content is None else file.write_bytes(content)
            status, out, err = self.run_cli('load', self.project)
            self.assertEqual(status, 1)
            self.assertIn(reported, out)
            self.assertIn(reason, err)

    def test_a_name_that_is_no_utf8_is_refused_and_taken_for_no_other(self):
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

    def test_a_path_that_is_too_long_is_refused_with_the_reason(self):
        deep = self.dir / '/'.join(['deep' * 50] * 3)
        (deep / 'res').mkdir(parents=True)
        for name in ('config.xml', 'res/demo.res.xml'):
            (deep / name).write_bytes((self.dir / name).read_bytes())
        status, _, err = self.run_cli('load', deep / 'demo.vcproj')
        self.assertEqual(status, 1)
        self.assertIn('may have 520 characters', err)

    def test_an_export_goes_through_a_pipe_or_a_device_and_a_signal_ends_the_wait_for_a_reader(self):
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
