"""--strict, headers, --settings and the words of a pack: what is refused, with its reason, and that nothing was written."""

import unittest

from demo import DemoProject


class Strict(DemoProject):
    def state(self):
        return {str(path): (path.stat().st_mtime_ns, path.read_bytes()) for path in self.dir.rglob('*') if path.is_file()}

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

    def test_whatever_is_left_out_stops_every_strict_command(self):
        commands = self.strict_commands()
        self.change('res/demo.res.xml', '<STRING>', '<NEWS/><STRING>')
        for arguments in commands:
            self.assert_refused(arguments, 'res/demo.res.xml:4: <NEWS> is left out')
        self.assertTrue(self.assert_refused(commands[0]).endswith('\r\n\r\nload done\r\n'), 'the report stays')
        self.assertEqual(self.run_cli('load', self.project)[::2], (0, ''))

    def test_markers_of_a_merge_stop_it_and_are_told_without_strict(self):
        commands = self.strict_commands()
        self.change('res/ref_list_demo.txt', 'ID_STRING_HI', '=======\r\nID_STRING_HI', 'utf-16')
        self.change('config.xml', '<zxa>', '\n<!--\n<<<<<<< HEAD\n--><zxa>')
        for arguments in commands:
            self.assert_refused(arguments, 'config.xml:3: the line begins with "<<<<<<<"',
                                'ref_list_demo.txt:3: the line begins with "======="')
        for command in ('load', 'save'):
            status, _, err = self.run_cli(command, self.project)
            self.assertEqual(status, 0)
            self.assertIn('config.xml:3: ', err)
        (self.dir / 'res/demo.res.xml').write_text('<APP>\n>>>>>>> other\n')
        for arguments in commands[:3]:
            self.assert_refused(arguments, 'res/demo.res.xml:2: the line begins with ">>>>>>>"')

    def test_a_list_of_sizes_that_is_not_there_stops_it_and_is_told_without_strict(self):
        commands = self.strict_commands()
        settings = self.dir / 'own/morvanite/Morvanite.ini'
        settings.parent.mkdir(parents=True)
        settings.write_text('[Path]\nreso_set=nowhere.ini\n')
        reason = 'nowhere.ini: there is no list of screen sizes'
        for arguments in commands:
            self.assert_refused((*arguments, '--settings', 'own'), reason, '<RESOLUTION> is left out')
        status, _, err = self.run_cli('--settings', 'own', 'load', self.project)
        self.assertEqual(status, 0)
        self.assertIn(reason, err)
        self.assertEqual(self.run_cli('load', self.project)[::2], (0, ''), 'the settings are for one command')
        for folder in ('nobody', 'logo.png', ''):
            self.assert_refused(('load', self.project, '--settings', folder), '--settings', 'no such folder', status=2)

    def test_a_pack_says_that_the_list_lacks_its_resolution_and_a_strict_one_stops(self):
        unlisted = [('240x32' if word == '240x320' else word) for word in self.to_pack]
        self.assert_refused((*unlisted, '--strict'), 'resolutions.ini: the list of screen sizes has no 240x32')
        status, _, err = self.run_cli(*unlisted)
        self.assertEqual(status, 0)
        self.assertIn('has no 240x32', err)
        self.assertEqual(self.run_cli(*self.to_pack, '--strict')[::2], (0, ''))

    def test_wrong_words_are_refused_before_the_project_is_opened_or_asked_for(self):
        for old, new, reason in (('axf', 'elf', '--target is "elf", but it must be axf (an ELF file) or dll'),
                                 ('240x320', '240', '--resolution is "240", but it must be'),
                                 ('240x320', 'wide', '--resolution is "wide"')):
            words = [(new if word == old else word) for word in self.to_pack]
            for also in ((), ('--remote',)):
                self.assertEqual(self.assert_refused((*words, *also), reason, status=2), '')
        self.assert_refused(('load', self.project, '--strict', '--remote'), 'excludes', status=2)

    def test_headers_go_into_a_folder_with_the_text_of_a_save_and_nowhere_else(self):
        before = self.state()
        self.assertEqual(self.run_cli('headers', self.project, '--output', 'a b/made', '--depfile', 'deps'), (0, '', ''))
        header = self.dir / 'a b/made/ResID.h'
        text, time = header.read_bytes(), header.stat().st_mtime_ns
        depfile = (self.dir / 'deps').read_text()
        self.assertTrue(depfile.startswith(str(header).replace(' ', '\\ ') + ': '), depfile)
        for name in ('config.xml', 'demo.res.xml', 'ref_list_demo.txt', 'Morvanite.ini', 'tuvik.ini', 'resolutions.ini'):
            self.assertIn('/' + name, depfile)
        self.assertNotIn(str(self.dir / 'none'), depfile, 'the settings of a user who has none')
        self.assertEqual(self.state().keys() - before.keys(), {str(header), str(self.dir / 'deps')})
        self.assertEqual(self.run_cli('headers', self.project, '--output', 'a b/made')[0], 0)
        self.assertEqual(header.stat().st_mtime_ns, time)
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        self.assertEqual((self.dir / 'ResID/ResID.h').read_bytes(), text)

    def test_the_tables_of_layouts_go_there_too_and_a_pack_takes_them_from_there(self):
        (self.dir / 'morvanite.ini').write_text('[Layout]\nfolders=1\ncatalogue=catalogue.xml\nexport_xml=catalogue.xml\n'
                                                'export_layout=layout_tables.xml\n')
        (self.dir / 'res/l.xml').write_text('<TarvoXML><Layout id="ID_START"><Screen text="@ID_STRING_HI"/></Layout></TarvoXML>')
        self.change('res/demo.res.xml', 'class="image">', 'class="image layout"><LAYOUT>res\\l.xml</LAYOUT>')
        before = self.state()
        self.assertEqual(self.run_cli('headers', self.project, '--output', 'made', '--depfile', 'deps', '--depfile-target', 'x')[0], 0)
        made = sorted(path.name for path in (self.dir / 'made').iterdir())
        self.assertEqual(made, ['LayoutID.h', 'ResID.h', 'zul_xml_enum.i', 'zul_xml_table.i'])
        depfile = (self.dir / 'deps').read_text()
        self.assertTrue(depfile.startswith('x: '), depfile)
        for name in ('demo/morvanite.ini', 'catalogue.xml', 'layout_tables.xml', 'res/l.xml'):
            self.assertIn(name.replace('demo', self.dir.name), depfile)
        status, out, err = self.run_cli(*self.to_pack, '--strict', '--headers', 'made', '--temp', 'temp')
        self.assertEqual((status, err), (0, ''), out)
        after = self.state()
        self.assertEqual({name: after[name] for name in before}, before)
        self.assertFalse((self.dir / 'ResID').exists())
        self.assertEqual(self.run_cli('save', self.project)[0], 0)
        for name in made:
            self.assertEqual((self.dir / 'made' / name).read_bytes(), (self.dir / 'ResID' / name).read_bytes())


if __name__ == '__main__':
    unittest.main(argv=['strict_test'])
