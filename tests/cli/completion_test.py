# SPDX-License-Identifier: MIT
"""Completion in bash, zsh and fish: each offers what the description of the command line has, and completes names."""

import json
import os
import pathlib
import pty
import re
import select
import shlex
import sys
import time
import unittest

from demo import CLI, DemoProject

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / 'packaging/completions'
BASH = '. /usr/share/bash-completion/bash_completion; . %s' % shlex.quote(str(SCRIPTS / 'morvanite-cli.bash'))
ZSH = ('fpath=(%s $fpath); autoload -Uz compinit; compinit -u -D; bindkey -e; zstyle ":completion:*" insert-tab false' %
       shlex.quote(str(SCRIPTS)))
NAMES = ('my dir/one.vcproj', "it's.vcproj", 'c:d.vcproj', 'c;d.txt')
# What is typed before the tab, and the words that a command would get.
TYPED = (
    ('pa', ('pack',)),
    ('pack --reso', ('pack', '--resolution')),
    ('pack --target d', ('pack', '--target', 'dll')),
    ('pack --target=d', ('pack', '--target=dll')),
    ('pack --resolution 240x32', ('pack', '--resolution', '240x320')),
    ("load x --settings 'my dir' --rem", ('load', 'x', '--settings', 'my dir', '--remote')),
    ('load my\\ dir/', ('load', 'my dir/one.vcproj')),
    ('load it', ('load', "it's.vcproj")),
    ('load c', ('load', 'c:d.vcproj')),
    ('load c:', ('load', 'c:d.vcproj')),
)


class Completion(DemoProject):
    def setUp(self):
        super().setUp()
        (self.dir / 'my dir').mkdir()
        for name in NAMES:
            (self.dir / name).write_bytes(b'')
        self.env.update(PATH=os.path.dirname(CLI) + ':' + os.environ['PATH'], HOME=str(self.dir), TERM='dumb', PS1='$ ')

    def candidates(self, *words):
        status, out, err = self.run_cli('--complete', *words)
        self.assertEqual((status, err), (0, ''), words)
        return [line.split('\t')[0] for line in out.splitlines()]

    def commands_with_options(self):
        """(words of a command, its long options with those of all commands)."""
        program = json.loads(self.run_cli('--describe')[1])
        common = [option for option in program['options'] if option['for_all_commands']]

        def walk(words, command):
            yield words, {name for option in command['options'] + (common if words else []) for name in option['names']
                          if name.startswith('--')}
            for inner in command['commands']:
                yield from walk((*words, inner['name']), inner)
        return list(walk((), program))

    def shell_lists_options(self, *shell):
        """Runs a shell with a script that prints the candidates for each line, one a line, and an empty line after it."""
        commands = self.commands_with_options()
        lines = [' '.join(('morvanite-cli', *words, '--')) for words, _ in commands]
        status, out, err = self.run_program(*shell, *lines)
        self.assertEqual((status, err), (0, ''))
        lists = [set(part.split()) for part in out.split('\n\n')]
        self.assertEqual(len(lists), len(commands) + 1)
        for (words, options), listed in zip(commands, lists):
            self.assertEqual({name for name in listed if name.startswith('--')}, options, (shell[0], words))

    def test_every_shell_offers_the_options_of_every_command(self):
        self.shell_lists_options('bash', '--norc', '-c', BASH + '''
            for line; do
                COMP_LINE=$line COMP_POINT=${#line} COMP_WORDS=($line) COMPREPLY=()
                COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
                _morvanite_cli
                printf '%s\\n' "${COMPREPLY[@]}" ''
            done''', 'bash')
        self.shell_lists_options('fish', '--no-config', '-c', '''
            source %s
            for line in $argv; complete -C "$line" | string replace -r '\\t.*' ''; echo; end''' %
                                 (SCRIPTS / 'morvanite-cli.fish'))
        # The functions of zsh that the file calls; the keys below are typed into a true one.
        self.shell_lists_options('zsh', '-f', '-c', '''
            fpath=(%s); autoload -Uz _morvanite-cli
            _call_program() { eval "${@[2,-1]}" }
            _describe() { print -l -- ${${(P)@[-1]}%%%%:*} }
            for line; do
                words=(${=line}) CURRENT=$#words PREFIX=--
                _morvanite-cli; print
            done''' % SCRIPTS, 'zsh')

    def type_into(self, shell, setup):
        """Types each line and a tab into a shell, and compares the words that the shell then has in its line."""
        pid, terminal = pty.fork()
        if pid == 0:
            os.chdir(self.dir)
            os.execvpe(shell[0], shell, self.env)
        try:
            self.send(terminal, setup + "\necho READ''Y\n", 'READY')
            for typed, words in TYPED:
                out = self.send(terminal, 'morvanite-cli %s\t\x01printf "<%%s>" \x05 EN""D\n' % typed, '<END>')
                self.assertIn(''.join('<%s>' % word for word in ('morvanite-cli', *words, 'END')), out, shell)
        finally:
            os.close(terminal)
            os.waitpid(pid, 0)

    def send(self, terminal, keys, end):
        os.write(terminal, keys.encode())
        out = b''
        deadline = time.monotonic() + 30
        while end.encode() not in out and time.monotonic() < deadline:
            if select.select([terminal], [], [], 1)[0]:
                out += os.read(terminal, 65536)
        return out.decode(errors='replace')

    def test_keys_typed_into_bash(self):
        self.type_into(['bash', '--norc', '--noprofile', '-i'], BASH)

    def test_keys_typed_into_zsh(self):
        self.type_into(['zsh', '-f', '-i'], ZSH)

    def test_lines_of_fish(self):
        for typed, words in TYPED:
            line = 'morvanite-cli ' + typed
            status, out, err = self.run_program('fish', '--no-config', '-c', 'source %s; complete -C $argv[1]' %
                                                (SCRIPTS / 'morvanite-cli.fish'), line)
            self.assertEqual((status, err), (0, ''))
            self.assertIn(words[-1], [one.split('\t')[0] for one in out.splitlines()], line)
            self.assertNotIn('c;d.txt', out)

    def test_candidates_of_settings_and_projects(self):
        sizes = self.run_cli('resolutions')[1].split()
        self.assertEqual(self.candidates('pack', '--resolution', ''), ['words', *sizes])
        self.assertEqual(self.candidates('pack', '--resolution='), ['words', *sizes])
        settings = self.dir / 'own/morvanite/Morvanite.ini'
        settings.parent.mkdir(parents=True)
        settings.write_text('[Path]\nreso_set=nowhere.ini\n')
        self.assertEqual(self.candidates('--settings', 'own', 'pack', '--resolution', ''), ['words'])
        settings.write_text('[Text]\ncode_page=unknown\n')
        self.assertEqual(self.run_cli('--complete', 'pack', '--settings=own', '--resolution', '')[1:], ('', ''))
        listing = self.dir / 'res/demo.res.xml'
        listing.write_bytes(listing.read_bytes().replace(b'</APP>', b'<NEWS/></APP>'))
        self.run_cli('save', self.project)
        self.assertEqual(self.candidates('kept', 'demo.vcproj', '--restore', ''), ['words', '1'])
        self.assertEqual(self.candidates('strings', 'list', 'demo.vcproj', '--language', ''), ['words', 'English'])
        self.assertEqual(self.candidates('strings', 'export', 'demo.vcproj', '--language='), ['words', 'English', 'none'])
        self.assertEqual(self.candidates('strings', 'set', 'demo.vcproj', ''), ['words', 'ID_STRING_HI'])
        others = self.candidates('strings', 'add-language', 'demo.vcproj', '')
        self.assertTrue('German' in others and 'English' not in others)
        self.assertIn('English', self.candidates('init', 'x', '--language', ''))

    def test_what_the_line_already_has_decides(self):
        self.assertEqual(self.candidates('load', ''), ['files *.vcproj'])
        self.assertEqual(self.candidates('inspect', ''), ['files'])
        self.assertEqual(self.candidates('headers', 'x', '--output', ''), ['folders'])
        self.assertEqual(self.candidates('strings', ''), ['words', 'export', 'import', 'stats', 'codepoints', 'cat', 'list', 'set',
                                                             'add-language'])
        self.assertEqual(self.candidates('load', 'x', '--', '-'), ['words'], 'no options after --')
        left = self.candidates('pack', 'x', '--remote', '--ver', '2', '-')
        self.assertIn('--input', left)
        self.assertFalse({'--remote', '--ver', '--strict', '--temp'} & set(left), 'given, or not to be used with it')

    def test_no_word_makes_it_write_an_error(self):
        for words in ((), ('nothing', '--what=', '-'), (b'\xff', ''), ('kept', b'\xff', '--restore', ''), ('--', '')):
            self.candidates(*words)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
