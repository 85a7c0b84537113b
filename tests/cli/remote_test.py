# SPDX-License-Identifier: MIT
"""Tests commands that a running server executes, and which libraries they load: remote_test.py MORVANITE_CLI"""

import os
import unittest

from demo import LOADED, DemoProject


class Remote(DemoProject):
    def libraries_of(self, *arguments):
        """Returns the result of a command, and the names of the files that its process loaded."""
        self.env.update(LD_DEBUG='files', LD_DEBUG_OUTPUT=str(self.dir / 'loader'))
        result = self.run_cli(*arguments)
        del self.env['LD_DEBUG'], self.env['LD_DEBUG_OUTPUT']
        logs = list(self.dir.glob('loader.*'))
        text = ''.join(log.read_text() for log in logs)
        for log in logs:
            log.unlink()
        self.assertIn('libc.so', text)
        return result, text

    def test_neither_qt_nor_the_work_library_is_loaded(self):
        commands = (('load', self.project), ('save', 'demo.vcproj'), self.to_pack, ('-q', 'load', self.project))
        for words in commands:
            (status, out, err), loaded = self.libraries_of(*words, '--remote')
            self.assertEqual((status, out), (1, ''))
            self.assertIn('Morvanite is not running', err)
            self.assertFalse('Qt' in loaded or 'morvanite-commands' in loaded, words)
        self.serve()
        for words in commands:
            (status, _, err), loaded = self.libraries_of(*words, '--remote')
            self.assertEqual((status, err), (0, ''))
            self.assertFalse('Qt' in loaded or 'morvanite-commands' in loaded, words)

    def test_the_answer_is_the_same_with_options_that_need_the_library(self):
        wrong = (*self.to_pack[:-1], 'elf')
        self.serve()
        self.run_cli('load', self.project, '--remote')
        for words in (('load', '../' + self.dir.name + '/./none.vcproj'), self.to_pack, wrong,
                      ('pack', self.project, '--input', 'x', '--resolution', '240', '--target', 'DLL'),
                      ('pack', self.project, '--input', 'none', '--resolution', '1*1', '--target', 'AXF'),
                      ('save', self.project), ('load', 'x' * 300), ('-q', 'load', 'none.vcproj')):
            alone, with_library = (self.run_cli(*options, *words, '--remote') for options in ((), ('--debug-log', 'log')))
            self.assertEqual(alone, with_library)
        self.assertTrue((self.dir / 'log').exists())

    def test_paths_and_the_number_of_errors_decide(self):
        self.serve()
        (self.dir / 'sub').mkdir()
        loaded = (0, LOADED + '\r\n\r\nload done\r\n', '')
        self.assertEqual(self.run_cli('load', 'sub/../demo.vcproj', '--remote'), loaded)
        (self.dir / 'res/demo.res.xml').unlink()
        os.mkfifo(self.dir / 'res/demo.res.xml')
        status, out, _ = self.run_cli('save', '.\\demo.vcproj', '--remote')
        self.assertEqual((status, ' save - 1 error(s)' in out), (1, True), out)
        self.assertEqual(self.run_cli('-q', 'load', '\u4e2d\U0001f600.vcproj', '--remote'),
                         (1, '### error 7 ###\r\n### error 110 ###\r\n', ''))

    def test_only_the_settings_of_the_server_count(self):
        self.serve()
        folder = self.dir / 'settings/morvanite'
        folder.mkdir(parents=True)
        (folder / 'Morvanite.ini').write_text('[Text]\ncode_page=none-such\n')
        self.env['XDG_CONFIG_HOME'] = str(folder.parent)
        self.assertEqual(self.run_cli('load', self.project)[0], 1)
        self.assertEqual(self.run_cli('load', self.project, '--remote')[0], 0)

    def test_a_report_that_cannot_be_written_is_a_failure(self):
        self.serve()
        with open('/dev/full', 'wb') as full:
            status, _, err = self.run_cli('load', self.project, '--remote', stdout=full)
        self.assertEqual((status, err.count('cannot write the output')), (1, 1))


if __name__ == '__main__':
    unittest.main(argv=['remote_test'])
