"""morvanite-cli as its user sees it: output, error stream and exit status together, byte for byte."""

import json
import os
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

CLI = ''
CONFIG = ('<config><resolution><Width>240</Width><Height>320</Height></resolution>'
          '<zxa><zepversion>20</zepversion></zxa></config>')
LIST = ('<APP id="APP_demo">\n'
        '<FILE id="ID_FILE_TUNE" type="Push">.\\tune.mp3</FILE>\n'
        '<RESOLUTION width="240" height="320" class="image">'
        '<IMAGE id="ID_IMAGE_LOGO" type="Normal">.\\logo.png</IMAGE></RESOLUTION>\n'
        '<STRING>res\\ref_list_demo.txt</STRING>\n'
        '</APP>\n')
STRINGS = ('Number of Language\t1\r\n'
           'String ID\tResource Type\tDescription\tEnglish(0)\r\n'
           'ID_STRING_HI\tNormal\tgreeting\tHi\r\n'
           '##number\t1\r\n')


def png():
    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', 2, 1, 8, 2, 0, 0, 0)) +
            chunk(b'IDAT', zlib.compress(b'\0\xff\0\0\0\0\xff')) + chunk(b'IEND', b''))


def arm_elf():
    """A header, one empty section and the section name table: the least that a section can be added to."""
    names = b'\0.shstrtab\0'
    header = b'\x7fELF\x01\x01\x01' + bytes(9) + struct.pack('<HHIIIIIHHHHHH', 2, 40, 1, 0, 0, 52 + 12, 0x5000400, 52, 32, 0,
                                                            40, 2, 1)
    table = bytes(40) + struct.pack('<IIIIIIIIII', 1, 3, 0, 0, 52, len(names), 0, 0, 1, 0)
    return header + names.ljust(12, b'\0') + table


class Cli(unittest.TestCase):
    def setUp(self):
        self.maxDiff = None
        self.dir = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.dir, ignore_errors=True)
        self.write('config.xml', CONFIG)
        self.write('res/demo.res.xml', LIST)
        self.write('res/ref_list_demo.txt', b'\xff\xfe' + STRINGS.encode('utf-16-le'))
        self.write('tune.mp3', b'tune')
        self.write('logo.png', png())
        self.write('app.axf', arm_elf())
        os.mkdir(self.path('arm'))
        self.project = self.path('demo.vcproj')
        self.env = dict(os.environ, XDG_CONFIG_HOME=self.path('none'), MORVANITE_RUNTIME_DIR=self.path('run'))

    def path(self, name):
        return os.path.join(self.dir, name)

    def write(self, name, content):
        os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
        with open(self.path(name), 'wb') as out:
            out.write(content if isinstance(content, bytes) else content.encode())

    def read(self, name):
        with open(self.path(name), 'rb') as file:
            return file.read()

    def run_cli(self, *arguments, **options):
        done = subprocess.run([CLI, *arguments], capture_output=True, env=self.env, cwd=self.dir, timeout=60, **options)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def pack(self, *more):
        return self.run_cli('pack', self.project, '--input', self.path('app.axf'), '--resolution', '240x320', '--target', 'axf',
                            *more)

    LOADED = ('Loading resource from "res\\demo.res.xml"...\r\n'
              'Loading strings from "res\\ref_list_demo.txt"...\r\n'
              '[demo] open - 0 error(s), 0 warning(s)\r\n')

    def test_a_load_prints_what_an_ide_would_read(self):
        self.assertEqual(self.run_cli('load', self.project), (0, self.LOADED + '\r\n\r\nload done\r\n', ''))
        self.assertEqual(self.run_cli('load', 'demo.vcproj')[1], self.LOADED + '\r\n\r\nload done\r\n')

    def test_a_project_that_does_not_open_says_so_in_the_report_and_why_on_the_error_stream(self):
        os.unlink(self.path('config.xml'))
        failed = '\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n'
        status, out, err = self.run_cli('load', self.project)
        self.assertEqual((status, out), (1, failed))
        self.assertIn('config.xml', err)
        for command in ('save', 'ids'):
            status, out, err = self.run_cli(command, self.project)
            self.assertEqual((status, out), (1, ''))
            self.assertIn("can't be opened", err)
        status, out, err = self.pack()
        self.assertEqual((status, out), (1, '\r\n### error 7 ###\r\n\r\n\r\npack done\r\n\r\n### error 404 ###\r\n'))

    def test_a_save_prints_no_line_of_the_opening_and_the_second_one_changes_nothing(self):
        expected = (0, '[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n', '')
        self.assertEqual(self.run_cli('save', self.project), expected)
        first = {name: self.read(name) for name in ('res/demo.res.xml', 'res/ref_list_demo.txt', 'ResID/ResID.h')}
        self.assertIn(b'\n#define  ID_FILE_TUNE    100000', first['ResID/ResID.h'])
        self.assertEqual(self.run_cli('save', self.project), expected)
        for name, content in first.items():
            self.assertEqual(self.read(name), content)

    def test_a_save_that_numbers_or_writes_in_vain_fails(self):
        names = ''.join('<FILE id="ID_%04d" type="Push">.\\a.mp3</FILE>' % i for i in range(1001))
        self.write('res/demo.res.xml', '<APP>%s</APP>' % names)
        status, out, err = self.run_cli('save', self.project)
        self.assertEqual(status, 1)
        self.assertIn('failed to generate header files', err)

    def test_ids_are_listed_in_the_byte_order_of_their_names(self):
        self.assertEqual(self.run_cli('ids', self.project),
                         (0, 'ID_FILE_TUNE\t100000\nID_IMAGE_LOGO\t1\nID_STRING_HI\t2\n', ''))

    def test_a_pack_prints_every_phase_and_inspect_reads_the_result_back(self):
        status, out, err = self.pack('--convert-images', '1', '--depfile', self.path('deps'))
        self.assertEqual((status, err), (0, ''))
        self.assertTrue(out.startswith(self.LOADED + '\r\npack resource started\r\n\r\nconstruct app icon resource...'), out)
        self.assertTrue(out.endswith('\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n'), out)
        self.assertNotIn('.tmp', self.read('deps').decode())
        for name in ('logo.png', 'tune.mp3', 'config.xml', 'demo.res.xml', 'ref_list_demo.txt', 'app.axf'):
            self.assertIn(name, self.read('deps').decode())
        side = None
        for name, kind in (('app.axf.pkd', 'elf'), ('arm/app.res', 'res')):
            status, out, err = self.run_cli('inspect', self.path(name), '--json')
            self.assertEqual((status, err), (0, ''))
            seen = json.loads(out)
            self.assertEqual(seen['kind'], kind)
            self.assertEqual(seen['strings'], {'0': {'2': 'Hi'}})
            self.assertEqual([item['key'] for item in seen['block']][1:3], [100000, 1])
            self.assertTrue(side is None or side == seen['block'])
            side = seen['block']

    def test_a_pack_of_a_project_that_is_not_there_or_with_a_bad_target_has_its_code(self):
        self.assertTrue(self.run_cli('pack', self.project, '--input', 'app.axf', '--resolution', '240x320', '--target', 'elf')[1]
                        .endswith('\r\n### error 87 ###\r\n'))
        self.assertTrue(self.pack('--output', self.path('app.axf'))[1].endswith('\r\n### error -1001 ###\r\n'))
        status, out, _ = self.run_cli('pack', self.project, '--input', 'none.axf', '--resolution', '1x1', '--target', 'axf')
        self.assertTrue(status == 1 and out.endswith('\r\n### error -1030 ###\r\n'), out)

    def test_a_wrong_command_line_ends_with_2_and_a_message(self):
        for arguments in ((), ('fly',), ('load',), ('pack', self.project), ('load', self.project, '--fast'),
                          ('load', '/' + 'x' * 300)):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (2, ''), arguments)
            self.assertNotEqual(err, '', arguments)
        self.assertEqual(self.run_cli('--version')[:2], (0, 'morvanite-cli 1.0.0\n'))
        for command in ('load', 'save', 'pack', 'ids', 'inspect', 'serve'):
            self.assertEqual(self.run_cli(command, '--help')[0], 0)
            self.assertIn(command, self.run_cli('--help')[1])

    def test_the_debug_log_goes_where_it_is_sent(self):
        self.assertEqual(self.run_cli('load', self.project)[2], '')
        self.assertIn('Morvanite got LOAD command\n', self.run_cli('--debug-log', '-', 'load', self.project)[2])
        self.env['MORVANITE_DEBUG_LOG'] = self.path('log')
        self.run_cli('ids', self.project)
        self.assertIn(b'enter IDGen::FillValue()\n', self.read('log'))

    def test_a_closed_or_full_output_ends_the_program_without_a_crash(self):
        reader, writer = os.pipe()
        os.close(reader)
        done = subprocess.run([CLI, 'load', self.project], stdout=writer, stderr=subprocess.PIPE, env=self.env, timeout=60)
        os.close(writer)
        self.assertGreaterEqual(done.returncode, 0)
        self.assertEqual(done.stderr, b'')
        with open('/dev/full', 'wb') as full:
            done = subprocess.run([CLI, 'load', self.project], stdout=full, stderr=subprocess.PIPE, env=self.env, timeout=60)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b'cannot write the output', done.stderr)

    def test_a_running_server_does_the_work_and_ends_on_sigterm(self):
        status, out, err = self.run_cli('load', self.project, '--remote')
        self.assertEqual((status, out), (1, ''))
        self.assertNotEqual(err, '')
        with subprocess.Popen([CLI, 'serve'], env=self.env) as server:
            while not os.path.exists(self.path('run/#QRK-MORVANITE-WNDCLASS#')):
                self.assertIsNone(server.poll())
                time.sleep(0.01)
            expected = (0, self.LOADED + '\r\n\r\nload done\r\n', '')
            self.assertEqual(self.run_cli('load', self.project, '--remote'), expected)
            self.assertEqual(self.run_cli('save', self.project, '--remote'),
                             (0, '[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n', ''))
            status, out, _ = self.pack('--remote')
            self.assertTrue(status == 0 and out.startswith('\r\npack resource started'), out)
            self.assertEqual(self.run_cli('serve')[0], 1)
            server.send_signal(signal.SIGTERM)
            self.assertEqual(server.wait(10), 0)


if __name__ == '__main__':
    CLI = sys.argv.pop(1)
    unittest.main()
