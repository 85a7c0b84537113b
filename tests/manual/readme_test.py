#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The README's commands work, and the documents show the pictures that exist: readme_test.py commands|pictures TREE [BIN]

`commands` runs every block marked "sh" of TREE/README.md, in their order, on a copy of what they need, with the programs
in BIN. Blocks marked "c" become show_title.c.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile


def check_commands(tree, programs):
    text = (tree / 'README.md').read_text()
    commands = re.findall(r'^```sh\n(.*?)^```', text, re.M | re.S)
    assert len(commands) >= 4, commands
    with tempfile.TemporaryDirectory() as work:
        for name in ('sample', 'cmake', 'device'):
            shutil.copytree(tree / name, pathlib.Path(work) / name, ignore=shutil.ignore_patterns('ResID'))
        shutil.copy(tree / 'CMakeLists.txt', work)  # has the version
        (pathlib.Path(work) / 'show_title.c').write_text('\n'.join(re.findall(r'^```c\n(.*?)^```', text, re.M | re.S)))
        environment = {name: value for name, value in os.environ.items() if name not in ('MAKEFLAGS', 'CMAKE_GENERATOR')}
        environment.update(PATH='%s:%s' % (programs, os.environ['PATH']), XDG_CONFIG_HOME=work, XDG_STATE_HOME=work)
        result = subprocess.run(['bash', '-euxc', ''.join(commands)], cwd=work, env=environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        assert result.returncode == 0, result.stdout
        assert 'Weather clock' in result.stdout.split('+ qemu-arm')[1], result.stdout


def check_pictures(tree):
    documents = [tree / 'README.md', *(tree / 'docs').rglob('*.md')]
    shown = {(document.parent / path).resolve() for document in documents
             for path in re.findall(r'!\[[^\]]*\]\(([^)]*)\)', document.read_text())}
    existing = {path.resolve() for path in (tree / 'docs/pictures').rglob('*') if path.suffix in ('.png', '.gif')}
    assert shown == existing, 'Shown in only one document or existing, but not both: %s' % (shown ^ existing)


if __name__ == '__main__':
    {'commands': check_commands, 'pictures': check_pictures}[sys.argv[1]](*map(pathlib.Path, sys.argv[2:]))
