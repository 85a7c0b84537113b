#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The README's commands work, and the documents show the pictures that exist:
readme_test.py commands|begin|pictures TREE [BIN]

`commands` runs every block marked "sh" of TREE/README.md, in their order, on a copy of what they need, with the programs
in BIN. Blocks marked "c" become show_title.c. `begin` runs only the five commands of the section "You begin", in a folder
that has nothing but the picture that they add, and then runs the application that they make.
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile


def run(commands, work, programs, trace='x'):
    environment = {name: value for name, value in os.environ.items() if name not in ('MAKEFLAGS', 'CMAKE_GENERATOR')}
    environment.update(PATH='%s:%s' % (programs, os.environ['PATH']), XDG_CONFIG_HOME=work, XDG_STATE_HOME=work)
    result = subprocess.run(['bash', '-eu%sc' % trace, commands], cwd=work, env=environment, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    assert result.returncode == 0, result.stdout
    return result.stdout


def check_begin(tree, programs):
    section = (tree / 'README.md').read_text().split('## You begin\n')[1].split('\n## ')[0]
    commands, = re.findall(r'^```sh\n(.*?)^```', section, re.M | re.S)
    assert len(commands.replace('\\\n', '').splitlines()) == 5, commands
    run_it, = re.findall(r'`(qemu-arm [^`]*)`', section)
    with tempfile.TemporaryDirectory() as work:
        picture, = re.findall(r'\S+\.png', commands)
        (pathlib.Path(work) / picture).parent.mkdir(parents=True)
        shutil.copy(tree / picture, pathlib.Path(work) / picture)
        run(commands, work, programs)
        packed = run_it.split()[1]
        seen = json.loads(run('morvanite-cli inspect --json ' + packed, work, programs, trace=''))
        texts = sorted(text for language in seen['strings'].values() for text in language.values())
        pictures = [item for item in seen['block'] if item['key'] < 0xffff0000]  # the others are the languages
        assert len(seen['strings']) == 3 and len(pictures) == 1, seen
        shown = run(run_it, work, programs, trace='')
        assert sorted(shown.splitlines()) == texts and 'Hallo' in texts, shown


def check_commands(tree, programs):
    text = (tree / 'README.md').read_text()
    commands = re.findall(r'^```sh\n(.*?)^```', text, re.M | re.S)
    assert len(commands) >= 4, commands
    with tempfile.TemporaryDirectory() as work:
        for name in ('sample', 'cmake', 'device'):
            shutil.copytree(tree / name, pathlib.Path(work) / name, ignore=shutil.ignore_patterns('ResID'))
        shutil.copy(tree / 'CMakeLists.txt', work)  # has the version
        (pathlib.Path(work) / 'show_title.c').write_text('\n'.join(re.findall(r'^```c\n(.*?)^```', text, re.M | re.S)))
        output = run(''.join(commands), work, programs)
        assert 'Weather clock' in output.split('+ qemu-arm')[1], output


def check_pictures(tree):
    documents = [tree / 'README.md', *(tree / 'docs').rglob('*.md')]
    shown = {(document.parent / path).resolve() for document in documents
             for path in re.findall(r'!\[[^\]]*\]\(([^)]*)\)', document.read_text())}
    existing = {path.resolve() for path in (tree / 'docs/pictures').rglob('*') if path.suffix in ('.png', '.gif')}
    assert shown == existing, 'Shown in only one document or existing, but not both: %s' % (shown ^ existing)


if __name__ == '__main__':
    {'commands': check_commands, 'begin': check_begin, 'pictures': check_pictures}[sys.argv[1]](*map(pathlib.Path, sys.argv[2:]))
