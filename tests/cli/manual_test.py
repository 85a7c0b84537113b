# SPDX-License-Identifier: MIT
"""Help, description, manual pages and docs/cli.md have the same commands and options, as the parser has them."""

import json
import pathlib
import re
import subprocess
import sys
import unittest

from demo import DemoProject

WINDOW = sys.argv[2]
PAGES = pathlib.Path(sys.argv[3])
TREE = pathlib.Path(__file__).resolve().parents[2]
DOCUMENT = (TREE / 'docs/cli.md').read_text(encoding='utf-8')
sys.path.insert(0, str(TREE / 'packaging/manual'))
import manual  # noqa: E402


def names(options):
    return {name for option in options for name in option['names']}


def options_of_page(name):
    """The options that a page defines, with the placeholders of their values."""
    page = (PAGES / 'man1' / (name + '.1')).read_text(encoding='utf-8').replace('\\-', '-')
    defined = re.findall(r'^\.TP\n(\\f\[B\]-.*)$', page, re.M)
    return {option for line in defined for option in re.findall(r'\\f\[B\](-[-\w]+)\\f\[R\]', line)}


class Manual(DemoProject):
    def setUp(self):
        super().setUp()
        status, self.description, err = self.run_cli('--describe')
        self.assertEqual((status, err), (0, ''))
        self.program = json.loads(self.description)
        self.common = [option for option in self.program['options'] if option['for_all_commands']]

    def test_the_description_is_the_same_each_time_and_says_its_version_first(self):
        self.assertEqual(list(self.program)[:2], ['version', 'program'])
        self.assertEqual(self.run_cli('--describe')[1], self.description)
        pack = next(one for one in self.program['commands'] if one['name'] == 'pack')
        target = next(option for option in pack['options'] if option['names'] == ['--target'])
        self.assertEqual((target['value'], target['kind'], target['choices'], target['required']),
                         ('axf|dll', 'choice', ['axf', 'dll'], True))

    def assert_help_has(self, path, command):
        status, text, _ = self.run_cli(*path, '--help')
        self.assertEqual(status, 0)
        shown = {name for line in re.findall(r'^  (-\S+)', text, re.M) for name in line.split(',')}
        self.assertEqual(shown, names(command['options']), path)
        self.assertEqual(re.findall(r'^  ([a-z][-\w]*) +[A-Z][a-z]', text, re.M), [one['name'] for one in command['commands']])
        for option in command['options']:
            self.assertIn(option['description'], text)
        for inner in command['commands']:
            self.assert_help_has((*path, inner['name']), inner)

    def test_help_and_description_are_the_same(self):
        self.assert_help_has((), self.program)
        self.assertNotIn('--describe', self.run_cli('--help')[1])

    def test_each_command_has_a_page_with_its_options(self):
        commands = self.program['commands']
        pages = {page.stem for page in (PAGES / 'man1').iterdir()}
        self.assertEqual(pages, {'morvanite', 'morvanite-cli'} | {'morvanite-cli-' + one['name'] for one in commands})
        self.assertEqual(options_of_page('morvanite-cli'), names(self.program['options']))
        for command in commands:
            options = command['options'] + [one for inner in command['commands'] for one in inner['options']]
            self.assertEqual(options_of_page('morvanite-cli-' + command['name']), names(options + self.common))
        formats = {'morvanite-' + file.stem for file in (TREE / 'docs/formats').glob('*.md')}
        self.assertEqual({page.stem for page in (PAGES / 'man5').iterdir()}, formats | {'morvanite-checks'})

    def test_the_pages_have_no_fault_and_no_date(self):
        pages = sorted(PAGES.glob('man?/*'))
        lint = subprocess.run(['mandoc', '-T', 'lint', *pages], stdout=subprocess.PIPE, encoding='utf-8').stdout
        self.assertEqual([line for line in lint.splitlines() if 'missing date, using ""' not in line], [])
        for page in pages:
            text = page.read_text(encoding='utf-8')
            self.assertNotRegex(text, r'20\d\d(\\?-)\d\d\1\d\d')
            self.assertRegex(text, r'^\.TH "[-A-Z]+" "[15]" "" "Morvanite [0-9.]+" ')

    def test_the_document_has_the_synopses_and_a_section_for_each_command(self):
        block = manual.SYNOPSES.search(DOCUMENT)[0]
        self.assertEqual(block, manual.synopses(self.program), 'cmake --build build --target update_synopses corrects it')
        commands = self.program['commands']
        text = dict(manual.sections(DOCUMENT, 2)[1])['Commands']
        self.assertEqual({title for title, _ in manual.sections(text, 3)[1]}, {one['name'] for one in commands})
        everything = names(option for _, leaf in manual.leaves(self.program, '') for option in leaf['options'])
        self.assertEqual(set(re.findall(r'--[a-z][-\w]*', DOCUMENT)) - {'--build'},
                         {name for name in everything | names(self.program['options']) if name.startswith('--')})

    def test_the_windows_page_has_the_options_of_its_help(self):
        status, text, _ = self.run_program(WINDOW, '--help')
        self.assertEqual(status, 0)
        options = options_of_page('morvanite')
        self.assertEqual({name for name in options if name.startswith('--')}, set(re.findall(r'--\w+', text)))
        for option in options:
            self.assertEqual(self.run_program(WINDOW, option)[0], 0)

    def test_the_problem_matchers_find_file_and_line(self):
        matcher, of_check = (json.loads('{%s}' % block)['problemMatcher']['pattern']
                             for block in re.findall(r'```json\n(.*?)```', DOCUMENT, re.S))
        config = self.dir / 'config.xml'
        config.write_text(config.read_text().replace('<zxa>', '\n<!--\n<<<<<<< HEAD\n--><zxa>'))
        err = self.run_cli('load', 'demo.vcproj', '--strict')[2]
        found = re.search(matcher['regexp'], err, re.M)
        self.assertEqual((found[matcher['file']], found[matcher['line']]), (str(config), '3'))
        self.assertIn('<<<<<<<', found[matcher['message']])
        findings = self.run_cli('check', 'demo.vcproj', '--rule', 'conflict-marker')[1]
        found = re.search(of_check['regexp'], findings, re.M)
        self.assertEqual([found[of_check[key]] for key in ('file', 'line', 'severity')], ['config.xml', '3', 'error'])


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
