# SPDX-License-Identifier: MIT
"""check and ids --against as a user sees them: outputs, exit status, baseline, and that a check writes nothing."""

import json
import os
import pathlib
import re
import shutil
import unittest

from demo import DemoProject

# The published schema isn't part of the project.
SCHEMA = pathlib.Path(os.environ.get('MORVANITE_SARIF_SCHEMA', 'sarif-2.1.0.json'))

STRINGS = ('Number of Language\t2\r\nString ID\tResource Type\tDescription\tEnglish(0)\tFrench(1)\r\n'
           'ID_STRING_HI\tNormal\tgreeting\tHi  you\t\r\n##number\t1\r\n')
FINDINGS = ('res/ref_list_demo.txt:3:30: note: ID_STRING_HI, English: two blanks one after the other [double-blank]\n'
            'res/ref_list_demo.txt:3:38: warning: ID_STRING_HI, French: the translation is missing [translation-missing]\n')
RULES = ('--rule', 'double-blank', '--rule', 'translation-missing', '--rule', 'id-undefined')


class Check(DemoProject):
    def setUp(self):
        super().setUp()
        (self.dir / 'res/ref_list_demo.txt').write_bytes(STRINGS.encode('utf-16'))

    def check(self, *arguments):
        return self.run_cli('check', *RULES, self.project, *arguments)

    def test_text_json_and_the_status(self):
        before = self.state()
        self.assertEqual(self.check(), (0, FINDINGS, 'morvanite-cli: errors: 0, warnings: 1, notes: 1\n'))
        for level, status in (('error', 0), ('warning', 1), ('note', 1), ('never', 0)):
            self.assertEqual(self.check('--fail-on', level)[0], status, level)
        status, out, err = self.check('--format', 'json')
        found = json.loads(out)
        self.assertEqual((status, err, found['version'], found['project'], found['counts']),
                         (0, '', 1, 'demo.vcproj', {'error': 0, 'warning': 1, 'note': 1}))
        self.assertEqual(found['findings'][1],
                         {'rule': 'translation-missing', 'severity': 'warning', 'file': 'res/ref_list_demo.txt',
                          'line': 3, 'column': 38, 'id': 'ID_STRING_HI', 'language': 1, 'text': 'the translation is missing'})
        self.assertEqual(self.state(), before, 'a check only reads')
        self.assertEqual(self.check('--rule', 'no-such-rule')[0], 2)
        self.assertEqual(self.run_cli('check')[0], 2)
        (self.dir / 'morvanite-check.ini').write_text('[Nothing]\nkey=1\n')
        places = [line.split(': ')[0] for line in self.run_cli('check', self.project)[1].splitlines()]
        self.assertEqual(places, sorted(places), 'in the order of the files')

    def test_a_project_that_does_not_open_has_findings(self):
        (self.dir / 'demo.vcproj').touch()
        (self.dir / 'res/ref_list_demo.txt').write_bytes(b'')
        self.assertEqual(self.check()[:2], (1, 'demo.vcproj: error: the project can\'t be opened, so nothing else was checked '
                                               '[project-unreadable]\n'))
        for name in ('res/demo.res.xml', 'config.xml'):
            (self.dir / name).unlink()
            self.assertIn(name.split('/')[-1], self.check()[1])

    def test_a_baseline_accepts_what_there_was(self):
        self.assertEqual(self.check('--write-baseline', 'base.txt', '-o', 'out.txt')[:2], (0, ''))
        self.assertEqual((self.dir / 'out.txt').read_text(), FINDINGS)
        self.assertEqual(self.check('--baseline', 'base.txt', '--fail-on', 'note'), (0, '', ''))
        self.assertEqual(self.check('--baseline', 'none.txt')[0], 2)

    def test_an_output_is_no_file_of_the_project(self):
        (self.dir / 'main.c').write_text('show(ID_STRING_HI);\n')
        (self.dir / 'morvanite-check.ini').write_text('[Sources]\nfiles=*.c\n')
        (self.dir / 'link').symlink_to('logo.png')
        (self.dir / 'clock.h').write_text('int hours;\n')
        (self.dir / 'demo.vcproj').write_text('<VisualStudioProject><Files><File RelativePath=".\\Clock.h"/></Files></VisualStudioProject>')
        before = self.state()
        for option in ('-o', '--write-baseline'):
            for name in ('config.xml', 'res/demo.res.xml', 'res/ref_list_demo.txt', 'link', 'tune.mp3', 'main.c', 'clock.h', 'morvanite-check.ini'):
                status, out, err = self.check(option, name)
                self.assertEqual((status, out), (2, ''), name)
                self.assertIn(f'{name} is not written because it is the same file as', err)
        for options in (('-o', 'x', '--write-baseline', 'x'), ('-o', '-', '--write-baseline', '-'), ('-o', 'x', '--baseline', 'x')):
            self.assertEqual(self.check(*options)[:2], (2, ''), options)
        (self.dir / 'config.xml').write_text('<config>')  # the project can't be opened
        self.assertEqual(self.check('-o', 'config.xml')[0], 2)
        (self.dir / 'config.xml').write_bytes(before[str(self.dir / 'config.xml')][1])
        status, out, _ = self.check('--write-baseline', '-')
        self.assertEqual((status, out.count('\t'), out.count('error')), (0, 6, 0))
        self.assertFalse((self.dir / '-').exists())

    def test_broken_settings_are_told_with_a_rule_and_without_the_paths_of_the_machine(self):
        (self.dir / 'morvanite-check.ini').write_text('[Font]\ndefault=fonts/no.ttf 16\n[Sources]\nfiles=none/*.c\n')
        status, out, _ = self.run_cli('check', self.project, '--rule', 'glyph-missing')
        self.assertRegex(out, r'^morvanite-check.ini:2: error: section Font, key default: fonts/no.ttf: the file can.t be read: No such .*\n$')
        self.assertIn('morvanite-check.ini:4: warning: section Sources, key files: no file matches', self.run_cli('check', self.project)[1])
        (self.dir / 'src').mkdir()
        (self.dir / 'src/a.c').symlink_to('a.c')  # can't be read
        (self.dir / 'res/demo.res.xml').unlink()
        for settings in ('[Sources]\nfiles=src/*.c\n', '[Font]\ndefault=../no.ttf 16\n'):
            (self.dir / 'morvanite-check.ini').write_text(settings)
            found = json.loads(self.run_cli('check', self.project, '--format', 'json', '--header', '../none.h')[1])['findings']
            self.assertNotIn(str(self.dir.parent), ''.join(finding['text'] for finding in found))
        (self.dir / 'morvanite-check.ini').unlink()
        (self.dir / 'morvanite-check.ini').symlink_to('morvanite-check.ini')
        self.assertIn('the symbolic links at its path lead in a circle', self.run_cli('check', self.project)[1])

    def test_sarif_has_the_form_of_its_schema(self):
        (self.dir / 'morvanite-check.ini').write_text('[Sources]\nfiles=*.c\n')
        (self.dir / 'a b.c').write_text('int é = ID_NONE;\n')
        self.check('--write-baseline', 'base.txt')
        (self.dir / 'a b.c').write_text('int é = ID_NONE + ID_OTHER;\n')
        for arguments in ((), ('--baseline', 'base.txt')):
            log = json.loads(self.check('--format', 'sarif', *arguments)[1])
            self.assertNotIn(str(self.dir), json.dumps(log), "no machine's path")
            results = log['runs'][0]['results']
            self.assertEqual(sorted({result['ruleId'] for result in results}),
                             ['double-blank', 'id-undefined', 'translation-missing'])
            self.assertEqual(sum(result.get('baselineState') == 'new' for result in results), len(arguments) // 2)
            self.assertIn('a%20b.c', json.dumps(results))
            self.validate(log)
        (self.dir / 'config.xml').unlink()
        self.validate(json.loads(self.check('--format', 'sarif')[1]))

    def validate(self, log):
        try:
            import jsonschema
        except ImportError:
            self.skipTest('python3-jsonschema is missing: SARIF is not compared with its schema')
        if not SCHEMA.exists():
            self.skipTest('MORVANITE_SARIF_SCHEMA does not name the schema of SARIF: SARIF is not compared with it')
        schema = json.loads(SCHEMA.read_text())
        validator = jsonschema.validators.validator_for(schema)(schema)
        self.assertEqual([error.message for error in validator.iter_errors(log)], [])
        log['runs'][0]['results'][0]['level'] = 'fatal'
        self.assertNotEqual(list(validator.iter_errors(log)), [], 'the schema refuses what is wrong')


class CodePointsOfAScreen(DemoProject):
    def test_are_those_of_the_texts_in_its_layouts(self):
        sample = pathlib.Path(__file__).parents[2] / 'sample'
        project = str(shutil.copytree(sample, self.dir / 'sample', ignore=shutil.ignore_patterns('tmp', 'build*')) / 'weatherclock.vcproj')
        strings = json.loads(self.run_cli('strings', 'list', project, '--json', '--language', '0')[1])['strings']
        screens = re.split(r'^(\d+x\d+) \w+$', self.run_cli('layouts', project)[1], flags=re.M)
        for screen in sorted(set(screens[1::2])):
            shown = ''.join(layout for name, layout in zip(screens[1::2], screens[2::2]) if name == screen)
            text = ''.join(row['texts'][0]['text'] for row in strings if re.search(rf'@{row["id"]}\b', shown))
            listed = self.run_cli('strings', 'codepoints', project, '--language', '0', '--resolution', screen)[1]
            self.assertEqual([line.split(' ', 1)[1] for line in listed.splitlines()], sorted(set(text)), screen)
        self.assertEqual(self.run_cli('strings', 'codepoints', project, '--resolution', '24x32')[0], 2)


class IdsAgainst(DemoProject):
    def against(self, defines, *arguments):
        (self.dir / 'old.h').write_text(''.join(f'#define {line}\n' for line in defines))
        return self.run_cli('ids', self.project, '--against', 'old.h', *arguments)

    def test_changed_gone_and_new_ids(self):
        same = ('_OLD_H_', 'ID_IMAGE_LOGO 1', 'ID_STRING_HI 2', 'ID_FILE_TUNE 100000')
        self.assertEqual(self.against(same), (0, '', ''))
        self.assertEqual(self.against(same[:3]), (0, 'new\tID_FILE_TUNE\t100000\n', ''))
        old = ('ID_STRING_HI 1', 'ID_STRING_OLD 2', 'ID_FILE_TUNE 100000')
        self.assertEqual(self.against(old), (1, 'changed\tID_STRING_HI\t1\t2\ngone\tID_STRING_OLD\t2\n'
                                                'new\tID_IMAGE_LOGO\t1\tmoved 1\n', ''))
        status, out, _ = self.against(old, '--json')
        self.assertEqual((status, json.loads(out)),
                         (1, {'version': 1, 'changed': [{'id': 'ID_STRING_HI', 'before': 1, 'now': 2}],
                              'gone': [{'id': 'ID_STRING_OLD', 'before': 2}],
                              'new': [{'id': 'ID_IMAGE_LOGO', 'number': 1, 'moved': 1}]}))
        self.assertEqual(json.loads(self.run_cli('ids', self.project, '--json')[1])['ids'][0],
                         {'id': 'ID_FILE_TUNE', 'number': 100000})
        self.assertEqual(self.run_cli('check', self.project, '--header', 'old.h', '--rule', 'id-renumbered')[:2],
                         (1, 'old.h:1: error: ID_STRING_HI: the number was 1 and is 2 now [id-renumbered]\n'
                             'old.h:2: error: ID_STRING_OLD: the number was 2, and the project no longer has the ID '
                             '[id-renumbered]\n'))

    def test_a_header_without_numbers_is_refused(self):
        self.assertEqual(self.against(())[0], 2)
        self.assertEqual(self.run_cli('ids', self.project, '--against', 'none.h')[0], 2)
        self.assertIn('old.h: error: ', self.run_cli('check', self.project, '--header', 'old.h')[1])


if __name__ == '__main__':
    unittest.main(argv=['check_test'])
