#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks rules of this tree that compilers don't check. Prints each breach; the exit status is 1 if there is one."""

import email.utils
import pathlib
import re
import subprocess
import sys

LONGEST_FILE = 500
LONGEST_FUNCTION = 60
# Files and functions that may be longer, and why. The lists may only shrink.
EXCUSED_FILES = {}
EXCUSED_FUNCTIONS = {}
LICENCE = 'SPDX-License-Identifier: MIT'
SOURCES = ('*.h', '*.hpp', '*.c', '*.cpp', '*.py', '*.sh', '*.cmake', '*CMakeLists.txt', '.ci/run', '*.cmake.in',
           '*.pc.in', 'debian/rules', 'debian/tests/sample', 'debian/tests/window', 'packaging/completions/*')
UNPLAIN = r'\b(?:stands?|standing|lies?|lying|bears|mends?|mending)\b'
# Files of the core that may open a file for writing: the one that replaces project files in one step, and the pack.
WRITERS = ('src/core/platform/FileReplacement.cpp', 'src/core/pack/', 'src/core/inspect/Extract.cpp',
           'src/core/wire/LocalSocket.cpp',
           'src/core/platform/RunTool.cpp',
           'src/core/platform/SaveJournal.cpp', 'src/core/platform/Leftovers.cpp')  # open files only for a lock


def tracked(*patterns):
    out = subprocess.run(['git', 'ls-files', '-z', '--', *patterns], check=True, capture_output=True).stdout
    return [name.decode() for name in out.split(b'\0') if name]


def function_lengths(lines):
    """Returns (name, first line, length) of each function: from the line of its opening brace to the closing one."""
    start = None
    for number, line in enumerate(lines, 1):
        indent = len(line) - len(line.lstrip())
        if start is None and line.strip() == '{' and indent <= 4:
            head = lines[number - 2].strip() if number > 1 else ''
            if '(' in head or ')' in head:
                start = (number, indent, head)
        elif start and line.rstrip() in (' ' * start[1] + '}', ' ' * start[1] + '};'):
            yield start[2], start[0], number - start[0] - 1
            start = None


def parts_of_the_tree():
    """Returns folder -> (name, what its headers may include, what its sources may include) of each morvanite_part."""
    parts = {}
    for lists in tracked('src/*CMakeLists.txt'):
        text = pathlib.Path(lists).read_text(encoding='utf-8')
        for name, folder, rest in re.findall(r'^morvanite_part\((\S+) ([^\s)]+)([^)]*)\)', text, re.M):
            uses, _, within = rest.partition('WITHIN')
            uses, within = uses.split()[1:], within.split()
            parts[str(pathlib.PurePath(lists).parent / folder)] = (name, uses, within)
    return parts


def without_raw_strings(text):
    """Returns a source without its raw strings, which may be sources of something else. Every line keeps its number."""
    return re.sub(r'R"(\w*)\(.*?\)\1"', lambda match: '""' + '\n' * match[0].count('\n'), text, flags=re.S)


def includes_in(source):
    text = without_raw_strings(pathlib.Path(source).read_text(encoding='utf-8'))
    return re.findall(r'^#include "([^"]+)"', text, re.M)


def folders_of_headers(headers, breaches):
    """Returns header -> its folder. Two headers of one name are a breach: an include could find the wrong one."""
    folder_of = {}
    for path in map(pathlib.PurePath, headers):
        if path.name in folder_of:
            breaches.append('%s: a header of that name is in %s too' % (path, folder_of[path.name]))
        folder_of[path.name] = str(path.parent)
    return folder_of


def class_breaches(sources):
    """Finds classes of one name outside of functions and unnamed namespaces: the linker would use either for both."""
    breaches, file_of = [], {}
    for source in sources:
        text = pathlib.Path(source).read_text(encoding='utf-8')
        named = re.sub(r'\nnamespace\n\{.*?\n\} // namespace\n', '\n', text, flags=re.S)
        for name in re.findall(r'^(?:class|struct) (\w+)(?: final)?(?: :[^;{]*)?\n\{', named, re.M):
            if file_of.setdefault(name, source) != source:
                breaches.append('%s: %s has a class %s too' % (source, file_of[name], name))
    return breaches


def program_breaches(folder_of, parts):
    """Does the same for folders of programs, tools and tests, each as a whole: their targets must link the libraries
    whose headers their files include, directly or through a header that belongs to no library, such as a fixture."""
    breaches = []
    library_of = {folder: part[0] for folder, part in parts.items()}
    lists = {str(pathlib.PurePath(path).parent): pathlib.Path(path).read_text(encoding='utf-8')
             for path in tracked('src/cli/CMakeLists.txt', 'device/CMakeLists.txt', 'tools/*/CMakeLists.txt',
                                 'tests/*/CMakeLists.txt')}
    for folder, text in lists.items():
        for name in re.findall(r'^add_library\(morvanite_(\w+)', text, re.M):
            library_of[folder] = name
    for folder, text in lists.items():
        listed = set()
        for words in re.findall(r'morvanite_test\([^)]*USES([^)]*)\)|morvanite_uses\(\S+([^)]*)\)', text):
            listed.update(' '.join(words).split())
        for words in re.findall(r'target_link_libraries\(\S+([^)]*)\)', text):
            listed.update(re.findall(r'morvanite_(\w+)', words))
        listed &= set(library_of.values()) - {library_of.get(folder)}
        included = {}  # library -> a file that includes it
        seen = set()
        files = [(name, name) for name in tracked(folder + '/*.h', folder + '/*.cpp')
                 if str(pathlib.PurePath(name).parent) not in parts]
        while files:
            source, path = files.pop()
            for header in includes_in(path):
                place = folder_of.get(header)
                if place in library_of and place != folder:
                    included.setdefault(library_of[place], source)
                elif place and place != folder and header not in seen:
                    seen.add(header)
                    files.append((source, place + '/' + header))
        for other in included.keys() - listed:
            breaches.append('%s: includes a header of %s, which the CMakeLists.txt there doesn\'t list' %
                            (included[other], other))
        for other in listed - included.keys():
            breaches.append('%s/CMakeLists.txt: nothing there includes a header of %s' % (folder, other))
    return breaches


def part_breaches(folder_of, parts):
    """Finds includes that the lists of the parts don't have, and entries of the lists that nothing includes."""
    breaches = []
    for folder, (name, uses, within) in parts.items():
        included = {'.h': set(), '.cpp': set()}
        for source in tracked(folder + '/*.h', folder + '/*.cpp'):
            kind = pathlib.PurePath(source).suffix
            for header in includes_in(source):
                if header not in folder_of:
                    breaches.append('%s: includes %s, which is no header of this tree' % (source, header))
                elif folder_of[header] != folder:
                    other = parts.get(folder_of[header], (folder_of[header],))[0]
                    included[kind].add(other)
                    if other not in uses and (kind == '.h' or other not in within):
                        breaches.append('%s: includes %s of %s, which %s doesn\'t list' % (source, header, other, name))
        known = {part[0] for part in parts.values()}
        for other in known & set(uses) - included['.h']:
            breaches.append('%s: no header of %s includes one of %s: USES is for those that do' % (folder, name, other))
        for other in known & set(within) - included['.cpp']:
            breaches.append('%s: no source of %s includes a header of %s' % (folder, name, other))
    return breaches


def prose_of(name, text):
    """Returns the comments of a source, or all of a document, as (line number, text)."""
    lines = list(enumerate(text.splitlines(), 1))
    if name.endswith('.md'):
        return lines
    mark = r'//.*|^\s*/?\*.*' if name.endswith(('.h', '.hpp', '.c', '.cpp')) else r'#.*'
    return [(number, match[0]) for number, line in lines if (match := re.search(mark, line))]


def release_breaches():
    """Every file that names the newest release names the version of CMakeLists.txt, and all give the same date."""
    version = re.search(r'^project\(.* VERSION ([\d.]+)', pathlib.Path('CMakeLists.txt').read_text(encoding='utf-8'), re.M)[1]
    breaches, day_of = [], {}
    for name, pattern in (('CHANGELOG.md', r'^## (\S+) \(([\d-]+)\)$'),
                          ('debian/changelog', r'^morvanite \((\S+)-\d+\).*\n(?:\n|  .*\n)* -- .*>  (.*)$'),
                          ('packaging/desktop/org.morvanite.Morvanite.metainfo.xml',
                           r'<release version="(\S+)" date="([\d-]+)"')):
        newest = re.search(pattern, pathlib.Path(name).read_text(encoding='utf-8'), re.M)
        if not newest or newest[1] != version:
            breaches.append('%s: the newest release is %s, and CMakeLists.txt has version %s' %
                            (name, newest[1] if newest else 'not there', version))
        else:
            is_day = re.fullmatch(r'[\d-]+', newest[2])
            day_of[name] = newest[2] if is_day else str(email.utils.parsedate_to_datetime(newest[2]).date())
    if len(set(day_of.values())) > 1:
        breaches.append('the release has several dates: %s' % day_of)
    return breaches


def main():
    breaches = release_breaches()
    folder_of = folders_of_headers(tracked('*.h'), breaches)
    parts = parts_of_the_tree()
    breaches += part_breaches(folder_of, parts) + program_breaches(folder_of, parts)
    breaches += class_breaches(tracked('src/*.cpp', 'src/*.h'))
    sources = tracked('src/*.cpp', 'src/*.h', 'tools/*.cpp', 'tools/*.h', 'device/*.c', 'device/*.h', 'device/*.hpp', 'tests/*.cpp',
                      'tests/*.h', 'fuzz/*.cpp', 'fuzz/*.h', 'bench/*.c', 'bench/*.cpp', 'sample/src/*.c', 'sample/src/*.h')
    for name in sources:
        text = pathlib.Path(name).read_text(encoding='utf-8')
        lines = text.splitlines()
        if len(lines) > LONGEST_FILE and name not in EXCUSED_FILES:
            breaches.append('%s: %d lines, more than %d' % (name, len(lines), LONGEST_FILE))
        if not name.startswith('tests/'):
            for head, line, length in function_lengths(lines):
                if length > LONGEST_FUNCTION and '%s: %s' % (name, head) not in EXCUSED_FUNCTIONS:
                    breaches.append('%s:%d: a function of %d lines, more than %d' % (name, line, length, LONGEST_FUNCTION))
        for number, line in enumerate(without_raw_strings(text).splitlines(), 1):
            where = '%s:%d: ' % (name, number)
            if re.search(r'\b(TODO|FIXME|XXX)\b', line):
                breaches.append(where + 'a left-over')
            if line.rstrip() != line:
                breaches.append(where + 'a blank at the end')
            if name.startswith('src/core/') and not name.startswith(WRITERS) and \
                    re.search(r'O_WRONLY|O_RDWR|fopen\(|QSaveFile|QFile [a-z]|ofstream', line):
                breaches.append(where + 'opens a file by itself; project files are replaced by WriteFileAtomically')
            if name.startswith('src/core/') and re.search(r'\bassert\(', line):
                breaches.append(where + 'an assert; bytes of a file are checked instead')
    for name in tracked(*SOURCES):
        if LICENCE not in pathlib.Path(name).read_text(encoding='utf-8')[:200]:
            breaches.append('%s: no line "%s" at the top' % (name, LICENCE))
    for name in tracked(*SOURCES, '*.md'):
        for number, prose in prose_of(name, pathlib.Path(name).read_text(encoding='utf-8')):
            for word in re.findall(UNPLAIN, prose):
                breaches.append('%s:%d: "%s" where a plain verb ("is", "has", "fixes") is meant' % (name, number, word))
    for breach in breaches:
        print(breach)
    return bool(breaches)


if __name__ == '__main__':
    sys.exit(main())
