# SPDX-License-Identifier: MIT
"""Tests morvanite-cli as its user sees it: output, standard error and exit status together, byte for byte."""

import json
import os
import pathlib
import shutil
import socket
import struct
import threading
import unittest

from demo import CLI, LOADED, DemoProject


class Cli(DemoProject):
    def test_load_prints_the_report_of_an_ide(self):
        for project in (self.project, 'demo.vcproj'):
            self.assertEqual(self.run_cli('load', project), (0, LOADED + '\r\n\r\nload done\r\n', ''))

    def test_a_wrong_path_of_a_project_is_explained_by_every_command(self):
        folder = self.dir / 'a/here'
        folder.mkdir(parents=True)
        (folder / 'real.vcproj').touch()
        (folder / 'real.axf').touch()
        for path, fault in ((folder, 'here" is a folder'), (folder / 'none', 'none"'),
                            (folder / 'real.axf', 'real.axf" isn\'t the file of a project')):
            for command, options in (('load', ()), ('load', ('--strict',)), ('save', ()), ('headers', ('--list',)), ('check', ()),
                                     ('headers', ('--output', 'x')), ('pack', self.to_pack[2:]), ('ids', ()), ('strings list', ()),
                                     ('strings set', ('ID_X', '--language', 'en', 'x')), ('kept', ()), ('add', ('logo.png',))):
                status, out, err = self.run_cli(*command.split(), path, *options)
                self.assertEqual(status, 1, command)
                self.assertIn(f'{fault}; give the path of a .vcproj file ("real.vcproj" is in this folder)', out + err, command)

    def test_a_project_that_does_not_open_is_reported_and_explained_on_standard_error(self):
        (self.dir / 'config.xml').unlink()
        (self.dir / 'demo.vcproj').touch()
        for arguments, report, reason in (
                (('load', self.project), '\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n', 'config.xml'),
                (self.to_pack, '\r\n### error 7 ###\r\n\r\n\r\npack done\r\n\r\n### error 404 ###\r\n', 'config.xml'),
                (('save', self.project), '', "can't be opened"),
                (('ids', self.project), '', "can't be opened")):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (1, report))
            self.assertIn(reason, err)

    def test_save_prints_no_lines_of_the_load_and_a_second_save_changes_nothing(self):
        files = [self.dir / name for name in ('res/demo.res.xml', 'res/ref_list_demo.txt', 'ResID/ResID.h')]
        contents = []
        for _ in range(2):
            self.assertEqual(self.run_cli('save', self.project),
                             (0, '[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n', ''))
            contents.append([file.read_bytes() for file in files])
        self.assertIn(b'\n#define  ID_FILE_TUNE    100000', contents[0][2])
        self.assertEqual(contents[0], contents[1])

    def test_a_save_touches_only_the_files_that_change(self):
        files = [self.dir / name for name in ('res/demo.res.xml', 'res/ref_list_demo.txt', 'ResID/ResID.h')]

        def marks(files=files):
            return [(file.stat().st_ino, file.stat().st_mtime_ns) for file in files]
        self.run_cli('save', self.project)
        before = marks()
        files[2].chmod(0o444)  # nothing has to be written to it
        self.assertEqual((self.run_cli('save', self.project)[0], marks()), (0, before))
        self.assertEqual(self.run_cli('strings', 'set', self.project, 'ID_STRING_HI', 'Hello', '--language', 'English')[0], 0)
        self.assertEqual([one != other for one, other in zip(marks(), before)], [False, True, False])
        sample = shutil.copytree(pathlib.Path(__file__).resolve().parents[2] / 'sample', self.dir / 'sample')
        project = next(sample.glob('**/*.vcproj'))
        self.run_cli('save', project)
        tables = sorted((project.parent / 'ResID').iterdir())  # of the layouts, from the converter
        before = marks(tables)
        self.assertEqual((self.run_cli('save', project)[0], marks(tables), len(tables)), (0, before, 4))

    def test_save_keeps_replaced_files_and_restore_returns_them(self):
        listing = self.dir / 'res/demo.res.xml'
        before = listing.read_bytes().replace(b'</APP>', b'<NEWS>.\\lost.bin</NEWS></APP>')
        listing.write_bytes(before)
        status, out, err = self.run_cli('save', self.project)
        self.assertEqual((status, out), (0, '[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n'))
        self.assertIn('kept in ' + str(self.dir / 'state/morvanite/kept/demo-'), err)
        self.assertIn('Warning 1: unknown XML tag [NEWS] discarded (Line 6).', err)
        self.assertNotIn(b'lost.bin', listing.read_bytes())
        self.assertRegex(self.run_cli('kept', 'demo.vcproj')[1], r'(?m)^1\t[-:T0-9]+\t.*/res/demo\.res\.xml$')
        status, out, _ = self.run_cli('kept', self.project, '--restore', '1')
        self.assertEqual((status, listing.read_bytes()), (0, before))
        self.assertRegex(out, 'are kept in .*/2$')
        self.assertEqual(self.run_cli('kept', self.project, '--restore', '7')[0], 1)

    def test_pack_prints_every_phase_and_inspect_reads_the_result(self):
        status, out, err = self.run_cli(*self.to_pack, '--convert-images', '1', '--depfile', 'deps')
        self.assertEqual((status, err), (0, ''))
        self.assertTrue(out.startswith(LOADED + '\r\npack resource started\r\n\r\nconstruct app icon resource...'), out)
        self.assertTrue(out.endswith('\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n'), out)
        depfile = (self.dir / 'deps').read_text()
        self.assertNotIn('.tmp', depfile)
        for name in ('logo.png', 'tune.mp3', 'config.xml', 'demo.res.xml', 'ref_list_demo.txt', 'app.axf'):
            self.assertIn(name, depfile)
        seen = [json.loads(self.run_cli('inspect', name, '--json')[1]) for name in ('app.axf.pkd', 'arm/app.res')]
        self.assertEqual([one['kind'] for one in seen], ['elf', 'res'])
        self.assertEqual(seen[0]['block'], seen[1]['block'])
        self.assertEqual([item['key'] for item in seen[0]['block']][1:3], [100000, 1])
        self.assertEqual(seen[0]['strings'], {'0': {'2': 'Hi'}})

    def test_a_quiet_command_prints_only_problems(self):
        status, out, err = self.run_cli(*self.to_pack, '-q')
        self.assertEqual((status, {line[:9] for line in out.splitlines()}, err), (0, {'[warning]'}, ''))
        loud = self.run_cli('load', self.dir / 'missing.vcproj')[1]
        self.assertEqual(self.run_cli('load', '-q', self.dir / 'missing.vcproj')[1],
                         ''.join(line for line in loud.splitlines(True) if '###' in line))
        (self.dir / 'tune.mp3').unlink()
        status, out, _ = self.run_cli(*self.to_pack, '-q')
        self.assertNotEqual((status, out), (0, ''))
        self.assertTrue(all('rror' in line or 'arning' in line for line in out.splitlines()), out)

    def test_only_messages_have_colours(self):
        for option, env, is_bold in ((('--color', 'always'), {}, True), ((), {'TERM': 'xterm'}, False),
                                     (('--color', 'always'), {'NO_COLOR': '1'}, True)):
            self.env.update(env)
            _, out, err = self.run_cli(*option, 'load', self.dir / 'missing.vcproj')
            self.assertEqual(('\x1b' in out, '\x1b[1mmorvanite-cli:\x1b[0m ' in err), (False, is_bold), option)

    def test_names_in_a_depfile_are_escaped_for_make_and_ninja(self):
        def depfile_of(name):
            (self.dir / name).write_bytes(b'x')
            (self.dir / 'res/demo.res.xml').write_text(f'<APP><FILE id="ID_A" type="Normal">.\\{name}</FILE></APP>')
            status, _, err = self.run_cli(*self.to_pack, '--depfile', 'deps')
            return status, err, (self.dir / 'deps').read_text()
        status, _, text = depfile_of('a #b:c$d.bin')
        self.assertEqual(status, 0)
        self.assertIn(r'/a\ \#b\:c$$d.bin', text)
        status, err, _ = depfile_of('a;touch x.bin')
        self.assertEqual(status, 1)
        self.assertIn("a;touch x.bin, and a dependency file can't contain a name with a semicolon", err)

    def test_the_program_and_its_library_have_the_same_parser(self):
        for words in (('--help',), ('pack', '--help'), ('help', 'strings', 'import'), ('chek',), ('pack', '--inptu'),
                      ('strings', 'impor'), ('check', '--format', 'jsn'), ('merge',), ('--complete', 'pack', '--target')):
            alone, with_library = (self.run_cli(*words, word) for word in ('u', '\u00fc'))
            same = [text.replace('\u00fc', 'u') for text in with_library[1:]]
            self.assertEqual((alone[0], *alone[1:]), (with_library[0], *same), words)

    def test_a_wrong_command_line_exits_with_2_and_a_message(self):
        for arguments in ((), ('fly',), ('load',), ('pack', self.project), ('load', self.project, '--fast'),
                          ('load', '/' + 'x' * 300, '--remote')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual((status, out), (2, ''), arguments)
            self.assertNotEqual(err, '', arguments)
        for arguments, meant in ((('lod',), "'load'"), (('chek', self.project), "'check'"), (('hlep',), "'help'"),
                                 (('strings', 'exprot'), "'export'"), (('pack', self.project, '--ouput', 'x'), "'--output'"),
                                 (('check', '--format', 'jsn'), "'json'"), (('--setings=x', 'load'), "'--settings'"),
                                 (('LOAD',), "'load'"), (('load', '--QUIET'), "'--quiet'"),
                                 (('strings', 'export', '--format', 'xlf'), "'xliff'"), (('--', 'load', 'x'), None),
                                 (('ids', '--', '-x', '--jsn'), None), (('build',), None), (('check', '--format', 'x'), None)):
            status, _, err = self.run_cli(*arguments)
            self.assertEqual((status, 'did you mean' in err), (2, meant is not None), arguments)
            self.assertIn(meant or '', err)
        self.assertIn('text, json or sarif', err)
        for option in ('--jobs', '--cache', '--output', '--debug-log', '--settings'):
            self.assertEqual(self.run_cli(*self.to_pack, option, ''), (2, '', f'morvanite-cli: the value of {option} is empty\n'))
        self.assertEqual(self.run_cli('help', 'strings', 'export')[:2], self.run_cli('strings', 'export', '--help')[:2])
        self.assertEqual(self.run_cli('help')[:2], self.run_cli('--help')[:2])
        self.assertEqual(self.run_cli('help', 'pack', 'x')[0], 2)
        version = json.loads(self.run_cli('--describe')[1])['release']  # from CMakeLists.txt
        self.assertEqual(self.run_cli('-V'), self.run_cli('--version'))
        self.assertEqual(self.run_cli('--version')[:2], (0, 'morvanite-cli %s\n' % version))

    def test_lists_and_checks_layouts(self):
        status, _, err = self.run_cli('layouts', self.project)
        self.assertEqual(status, 1)
        self.assertIn('set folders=1', err)
        self.put_settings('[Layout]\nfolders=1\ncatalogue=catalogue.xml\n')
        layouts = ('<TarvoXML>\n<Layout id="ID_START">\n<Screen name="start" background="@ID_IMAGE_LOGO">\n'
                   '<Label pos="(1,2)" name="hi" text="@ID_STRING_HI">\n<TextStyle prop="textStyle" font="large"/></Label>\n'
                   '<Panel/></Screen></Layout></TarvoXML>')
        self.put_layouts(layouts)
        self.assertEqual(self.run_cli('layouts', self.project),
                         (0, '240x320 ID_START\n  Screen "start" background="@ID_IMAGE_LOGO"\n'
                             '    Label "hi" pos="(1,2)" text="@ID_STRING_HI"\n'
                             '      TextStyle prop="textStyle" font="large"\n    Panel\n', ''))
        self.assertEqual(self.run_cli('layouts', self.project, '--check'), (0, '', ''))
        layout, = json.loads(self.run_cli('layouts', self.project, '--json')[1])['layouts']
        self.assertEqual((layout['resolution'], layout['id'], layout['file']), ('240x320', 'ID_START', 'res/screens.xml'))
        self.put_layouts(layouts.replace('@ID_STRING_HI', '@ID_START').replace('(1,2)', '1,2'))
        self.assertEqual(self.run_cli('layouts', self.project, '--check'),
                         (1, 'res/screens.xml, line 4: the value "1,2" of "pos" is not of the type ZulPoint\n'
                             'res/screens.xml, line 4: "ID_START" is not a string\n', ''))
        (self.dir / 'bad.xml').write_text('<catalogue version="1">\n<class name="A" base="B"/></catalogue>')
        self.put_settings(f'[Layout]\nfolders=1\ncatalogue={self.dir}/bad.xml\n')
        self.put_layouts(layouts.replace('</Layout>', ''))
        status, out, _ = self.run_cli('layouts', self.project, '--check')
        self.assertEqual(status, 1)
        self.assertIn('bad.xml, line 2: unknown base "B"\n', out)
        self.assertIn('screens.xml, line 6: this is not well-formed XML', out)
        self.assertEqual(self.run_cli('layouts', self.project)[:2], (1, ''))

    def test_exports_and_imports_strings_and_a_dry_run_changes_nothing(self):
        strings = self.dir / 'res/ref_list_demo.txt'
        before = strings.read_bytes()
        imported = '[demo] import - 0 error(s), 0 warning(s)\r\n'
        (self.dir / 'demo.vcproj').write_text('<VisualStudioProject><Files><File RelativePath=".\\table.csv"/></Files></VisualStudioProject>')
        for name in ('table.xls', 'table.xlsx', 'table.csv', 'table.csv'):
            self.assertEqual(self.run_cli('strings', 'export', self.project, name),
                             (0, '[demo] export - 0 error(s), 0 warning(s)\r\n', ''))
            self.assertEqual(self.run_cli('strings', 'import', self.project, name, '--dry-run'),
                             (0, 'same\tB3\tNormal\r\nsame\tC3\tgreeting\r\nsame\tD3\tHi\r\n' + imported, ''))
        sheet = (self.dir / name).read_text(encoding='utf-8-sig')
        (self.dir / name).write_text(sheet.replace('Hi', '"Hello\tthere"').replace('##', 'ID_NEW,Push,,"a, b"\n##'))
        self.assertEqual(self.run_cli('strings', 'import', self.project, name, '--dry-run'),
                         (0, 'same\tB3\tNormal\r\nsame\tC3\tgreeting\r\nkept\tD3\tHello\\tthere\tHi\r\n'
                             'new\tB4\tPush\r\nnew\tD4\ta, b\r\n' + imported, ''))
        self.assertEqual(strings.read_bytes(), before)
        status, out, err = self.run_cli('strings', 'import', self.project, name)
        self.assertEqual((status, out, err), (0, imported + '[demo] save - 0 error(s), 0 warning(s)\r\n', ''))
        self.assertIn('ID_STRING_HI\tNormal\tgreeting\tHi\r\nID_NEW\tPush\t\ta, b\r\n##number\t2\r\n',
                      strings.read_bytes().decode('utf-16'))
        status, out, _ = self.run_cli('strings', 'stats', self.project, '--json')
        self.assertEqual(json.loads(out), {'version': 1, 'rows': 2, 'languages': [
            {'language': 0, 'name': 'English', 'texts': 2, 'missing': 0, 'same_as_first': 0}]})
        after = strings.read_bytes()
        (self.dir / name).write_text(sheet.replace('##', 'ID_TWO,Normal,,"two\nlines"\n##'))
        status, _, err = self.run_cli('strings', 'import', self.project, name)
        self.assertTrue(status == 1 and 'so nothing is saved; fix ID_TWO (English)' in err, err)
        self.assertEqual(strings.read_bytes(), after)
        strings.write_bytes(after.decode('utf-16').replace('ID_NEW', 'ID_IMAGE_LOGO').encode('utf-16'))
        status, out, err = self.run_cli('strings', 'import', self.project, name)
        self.assertTrue((status, out) == (1, '') and 'ID conflicts' in err and 'nothing is imported' in err, out + err)

    def test_lists_ids_in_byte_order_and_writes_the_debug_log_to_the_given_file(self):
        self.env['MORVANITE_DEBUG_LOG'] = str(self.dir / 'log')
        listed = 'ID_FILE_TUNE\t100000\nID_IMAGE_LOGO\t1\nID_STRING_HI\t2\n'
        self.assertEqual(self.run_cli('ids', self.project), (0, listed, ''))
        self.assertIn('enter IDGen::FillValue()\n', (self.dir / 'log').read_text())
        self.assertIn('Morvanite got LOAD command\n', self.run_cli('--debug-log', '-', 'load', self.project)[2])

    def test_a_failed_pack_explains_its_code(self):
        (self.dir / 'arm').rmdir()
        for arguments, code, words in ((self.to_pack, 2, 'and so must the folder arm beside the input'),
                                       ((*self.to_pack, '--output', 'app.axf'), -1001, 'must be different files')):
            status, out, err = self.run_cli(*arguments)
            self.assertEqual(status, 1)
            self.assertTrue(out.endswith(f'\r\n\r\npack done\r\n\r\n### error {code} ###\r\n'), out)
            self.assertTrue(f'morvanite-cli: the pack failed with {code}: ' in err and words in err, err)

    def test_a_closed_or_full_output_does_not_stop_work_on_files(self):
        reader, writer = os.pipe()
        os.close(reader)
        status, _, err = self.run_cli(*self.to_pack, stdout=writer)
        os.close(writer)
        self.assertEqual((status, err), (1, ''))
        self.assertEqual(self.run_cli('inspect', 'arm/app.res')[0], 0)
        with open('/dev/full', 'wb') as full:
            status, _, err = self.run_cli('load', self.project, stdout=full)
        self.assertEqual(status, 1)
        self.assertIn('cannot write the output', err)
        for words in (('ids', self.project), ('--help',), ('inspect', 'arm/app.res')):
            closed = ('sh', '-c', 'exec "$0" "$@" >&-', CLI, *words)
            status, _, err = self.run_program(*closed)
            self.assertEqual(status, 1, words)
            self.assertIn('cannot write the output', err)

    def test_numbers_of_the_settings_out_of_range_are_told(self):
        folder = self.dir / 'settings/morvanite'
        folder.mkdir(parents=True)
        (folder / 'Morvanite.ini').write_text('[Pack]\njobs=99\n')
        status, _, err = self.run_cli(*self.to_pack, '--settings', self.dir / 'settings')
        self.assertEqual((status, err.count('jobs=99'), err.count('it counts as 64')), (0, 1, 1), err)

    def test_a_running_server_executes_commands_and_ends_on_sigterm(self):
        status, out, err = self.run_cli('load', self.project, '--remote')
        self.assertTrue(status == 1 and out == '' and err != '', err)
        server = self.serve()
        self.assertEqual(self.run_cli('load', self.project, '--remote'), (0, LOADED + '\r\n\r\nload done\r\n', ''))
        status, out, _ = self.run_cli(*self.to_pack, '--remote')
        self.assertTrue(status == 0 and out.startswith('\r\npack resource started'), out)
        self.assertEqual(self.run_cli('serve')[0], 1)
        server.terminate()
        self.assertEqual(server.wait(10), 0)
        self.assertFalse([path for path in self.runtime.iterdir() if path.is_socket()])

    def test_a_server_whose_output_is_not_read_continues_and_ends_on_sigterm(self):
        self.env['MORVANITE_DEBUG_LOG'] = '-'
        record = f'{self.dir}/{"x" * 150}.vcproj'.encode('utf-16-le').ljust(520, b'\0')

        def load(count):
            with socket.socket(socket.AF_UNIX) as ide:
                ide.settimeout(20)
                ide.connect(str(self.runtime / '#QRK-MORVANITE-WNDCLASS#'))
                for _ in range(count):
                    ide.sendall(struct.pack('<II', 0xAFBDDBFB, len(record)) + record)
                    self.assertEqual(ide.recv(4), b'\1\0\0\0')

        server = self.serve()
        load(1500)
        server.terminate()
        self.assertEqual(server.wait(10), 0)
        server = self.serve()
        load(1500)
        read = []
        reader = threading.Thread(target=lambda: read.append(server.stderr.read()))
        reader.start()
        load(1)
        server.terminate()
        reader.join(10)
        self.assertRegex(read[0], rb'\nmorvanite-cli: \d+ lines are missing here')


if __name__ == '__main__':
    unittest.main(argv=['cli_test'])
