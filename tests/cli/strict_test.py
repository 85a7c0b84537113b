# SPDX-License-Identifier: MIT
"""Tests --strict, headers, --settings and the arguments of a pack: refusals have a reason, and nothing is written."""

import pathlib
import unittest

from demo import CLI, DemoProject


class Strict(DemoProject):
    def change(self, name, old, new, encoding='utf-8'):
        file = self.dir / name
        text = file.read_bytes().decode(encoding)
        self.assertIn(old, text)
        file.write_bytes(text.replace(old, new).encode(encoding))

    def assert_refused(self, arguments, *reasons, status=1):
        before = self.state()
        done, out, err = self.run_cli(*arguments)
        self.assertEqual(done, status, out + err)
        for reason in reasons:
            self.assertIn(reason, err)
        self.assertEqual(self.state(), before, arguments)
        return out

    def strict_commands(self):
        (self.dir / 'table.csv').write_text('Number of Language,1\nString ID,Resource Type,Description,English(0)\n'
                                            'ID_NEW,Normal,,x\n##number,1\n')
        return (('load', self.project, '--strict'), ('save', self.project, '--strict'), (*self.to_pack, '--strict'),
                ('strings', 'import', self.project, 'table.csv', '--strict'),
                ('headers', self.project, '--output', 'made'))

    def test_omitted_content_stops_every_strict_command(self):
        commands = self.strict_commands()
        settings = self.dir / 'own/morvanite/Morvanite.ini'
        settings.parent.mkdir(parents=True)
        settings.write_text('[Path]\nreso_set=nowhere.ini\n')
        self.change('config.xml', '<zxa>', '\n<!--\n<<<<<<< HEAD\n--><zxa>')
        for arguments in commands:
            self.assert_refused(arguments, 'config.xml:3: the line begins with "<<<<<<<"')
            self.assert_refused((*arguments, '--settings', 'own'), 'nowhere.ini: there is no list of screen sizes')
        for command in ('load', 'save'):  # these continue, and report it
            status, _, err = self.run_cli(command, self.project, '--settings', 'own')
            self.assertTrue(status == 0 and 'config.xml:3: ' in err and 'nowhere.ini' in err, err)
        self.assertNotIn('nowhere.ini', self.run_cli('load', self.project)[2], 'the settings are for one command')
        self.change('config.xml', '<<<<<<< HEAD', '')
        self.change('res/demo.res.xml', '<STRING>', '<NEWS/><STRING>')
        for arguments in commands:
            self.assert_refused(arguments, 'res/demo.res.xml:3: <NEWS> is left out')
        self.assertTrue(self.assert_refused(commands[0]).endswith('\r\n\r\nload done\r\n'), 'the report is unchanged')
        for folder in ('nobody', 'logo.png'):
            self.assert_refused(('load', self.project, '--settings', folder), '--settings', 'no such folder', status=2)

    def test_names_a_missing_file_of_the_program(self):
        program = self.dir / 'program'
        program.mkdir()
        self.env['MORVANITE_PROGRAM_DIR'] = str(program)
        own = pathlib.Path(CLI).parent
        (program / 'tuvik.ini').symlink_to(own / 'tuvik.ini')
        for name, target, reason in (('Morvanite.ini', None, 'does not exist or is a link to nothing; install it again'),
                                     ('Morvanite.ini', 'nowhere', 'does not exist or is a link to nothing; install it again'),
                                     ('resolutions.ini', None, 'the key reso_set in section Path of Morvanite.ini names this file'),
                                     ('resolutions.ini', 'nowhere', 'does not exist or is a link to nothing; install it again or')):
            for link in program.glob('[Mr]*.ini'):
                link.unlink()
            if name == 'resolutions.ini':
                (program / 'Morvanite.ini').symlink_to(own / 'Morvanite.ini')
            if target:
                (program / name).symlink_to(target)
            self.assert_refused(('load', self.project, '--strict'), f'{program / name}: there is no list of screen sizes', reason)
            self.assertIn(reason, self.run_cli('load', self.project)[2])

    def test_strict_load_refuses_content_that_a_save_would_drop_and_save_keeps_it(self):
        listing = self.dir / 'res/demo.res.xml'
        strings = self.dir / 'res/ref_list_demo.txt'
        whole = listing.read_bytes(), strings.read_bytes()
        rows = whole[1].decode('utf-16')
        image = '<IMAGE id="ID_IMAGE_LOGO" type="Normal">'.encode()
        for change, reason in (
                (lambda text: text.replace(b'logo.png', b'M\xe4dchen.png'), ':3: ".\\M\ufffddchen.png" has bytes that are not text'),
                (lambda text: text.replace(b'<FILE', b'<!-- the tune\'s\nlicence -->\n<FILE'), ':4: a save drops the comment "the tune\'s licence"'),
                (lambda text: b'<!-- 1 -->' + text, ':1: the comment "1"'), (lambda text: text + b'<!-- 2 -->', 'the comment "2"'),
                (lambda text: text.replace(b'</APP>', b'loose<![CDATA[er]]></APP>'), 'the text "loose" is left out'),
                (lambda text: text.replace(image, b'<!-- 3 -->' + image), ':3: the comment "3"'),
                (lambda text: text.replace(b'.png<', b'.png<!-- 4 --><'), ':3: the comment "4"'),
                (lambda text: text.replace(b'<FILE', b'<FILE note="mine"'), ':2: the attribute "note" is left out'),
                (lambda text: text.replace(b'"Push"', b'"push"'), ':2: the type "push" of ID_FILE_TUNE is neither'),
                (rows.replace('HI\tN', 'HI\tPush\t\tHo\r\nID_STRING_HI\tN'), ':4: the type "Normal" of ID_STRING_HI is left out'),
                (rows.replace('Language\t1', 'Language\t1\t\tmine'), ':1: "mine" is left out'),
                (rows.replace('number\t1', 'number\t1\tmine'), ':4: "mine" is left out')):
            listing.write_bytes(whole[0] if isinstance(change, str) else change(whole[0]))
            strings.write_bytes(change.encode('utf-16') if isinstance(change, str) else whole[1])
            old = strings if isinstance(change, str) else listing
            before = old.read_bytes()
            if 'comment' in reason:
                self.assertEqual(self.run_cli('load', self.project, '--strict')[0], 0, 'complete without the comment')
            else:
                self.assert_refused(('load', self.project, '--strict'), old.name + reason if reason[0] == ':' else reason)
            self.assertEqual(self.run_cli('save', self.project)[0], 0)
            self.assertNotEqual(old.read_bytes(), before)
            kept = [file.read_bytes() for file in (self.dir / 'state').rglob('*') if file.is_file()]
            self.assertIn(before, kept, reason)
        self.assertEqual(self.run_cli('load', self.project, '--strict')[::2], (0, ''), 'a saved file is read completely')

    def test_pack_reports_a_resolution_missing_in_the_list_and_a_strict_pack_stops(self):
        unlisted = [('240x32' if word == '240x320' else word) for word in self.to_pack]
        self.assert_refused((*unlisted, '--strict'), 'resolutions.ini: the list of screen sizes doesn\'t contain 240x32')
        status, _, err = self.run_cli(*unlisted)
        self.assertEqual(status, 0)
        self.assertIn("doesn't contain 240x32", err)
        self.assertEqual(self.run_cli(*self.to_pack, '--strict')[::2], (0, ''))

    def test_refuses_wrong_arguments_before_it_opens_or_requires_the_project(self):
        for old, new, reason in (('axf', 'elf', '--target is "elf", but it must be axf (an ELF file) or dll'),
                                 ('240x320', '240', '--resolution is "240", but it must be'),
                                 ('240x320', '240x32x', '--resolution is "240x32x", but it must be'),
                                 ('240x320', '0x320', '--resolution is "0x320", but it must be'),
                                 ('240x320', 'x320', '--resolution is "x320", but it must be'),
                                 ('240x320', 'wide', '--resolution is "wide"')):
            words = [(new if word == old else word) for word in self.to_pack]
            for also in ((), ('--remote',)):
                self.assertEqual(self.assert_refused((*words, *also), reason, status=2), '')
        self.assert_refused(('load', self.project, '--strict', '--remote'), 'excludes', status=2)

    def test_headers_writes_the_headers_of_a_save_to_a_folder_that_pack_can_use(self):
        (self.dir / 'morvanite.ini').write_text('[Layout]\nfolders=1\ncatalogue=catalogue.xml\nexport_xml=catalogue.xml\n'
                                                'export_layout=layout_tables.xml\n')
        (self.dir / 'res/l.xml').write_text('<TarvoXML><Layout id="ID_START"><Screen text="@ID_STRING_HI"/></Layout></TarvoXML>')
        self.change('res/demo.res.xml', 'class="image">', 'class="image layout"><LAYOUT>res\\l.xml</LAYOUT>')
        before = self.state()
        made, times = self.dir / 'a b/made', []
        for target, begins in ((('--depfile-target', 'x'), 'x: '), ((), f'{made}/ResID.h: '.replace('a b', 'a\\ b'))):
            self.assertEqual(self.run_cli('headers', self.project, '--output', made, '--depfile', 'deps', *target), (0, '', ''))
            depfile = (self.dir / 'deps').read_text()
            self.assertTrue(depfile.startswith(begins), depfile)
            times.append({path: path.stat().st_mtime_ns for path in made.iterdir()})
        for name in ('config.xml', 'demo.res.xml', 'ref_list_demo.txt', 'Morvanite.ini', 'tuvik.ini', 'resolutions.ini',
                     self.dir.name + '/morvanite.ini', 'catalogue.xml', 'layout_tables.xml', 'res/l.xml'):
            self.assertIn('/' + name, depfile)
        self.assertNotIn(str(self.dir / 'none'), depfile, 'settings that the user does not have')
        self.assertEqual(times[0], times[1], 'equal headers stay unchanged')
        changed = (self.dir / 'res').stat().st_mtime_ns
        status, out, err = self.run_cli(*self.to_pack, '--strict', '--headers', made, '--temp', 'temp')
        self.assertEqual((status, err), (0, ''), out)
        self.assertEqual((self.dir / 'res').stat().st_mtime_ns, changed, 'not even for a moment')
        self.assertEqual(list((self.dir / 'temp').iterdir()), [])
        after = self.state()
        self.assertEqual({name: after[name] for name in before}, before)
        self.assertFalse((self.dir / 'ResID').exists())
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        self.assertEqual({path.name: path.read_bytes() for path in made.iterdir()},
                         {name: (self.dir / 'ResID' / name).read_bytes()
                          for name in ('LayoutID.h', 'ResID.h', 'zul_xml_enum.i', 'zul_xml_table.i')})


if __name__ == '__main__':
    unittest.main(argv=['strict_test'])
