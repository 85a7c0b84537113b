#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the manual pages, and the synopses in docs/cli.md, from `morvanite-cli --describe` and the documents.

    manual.py pages DESCRIPTION FOLDER    writes FOLDER/man1/*.1 and FOLDER/man5/*.5 (needs pandoc)
    manual.py synopses DESCRIPTION        writes the synopses into docs/cli.md
"""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import textwrap

TREE = pathlib.Path(__file__).resolve().parents[2]
CLI_DOCUMENT = TREE / 'docs/cli.md'
# The documents that are pages of section 5, with what their lines NAME have, which `apropos` searches. A format that
# isn't listed has the title of its document there.
FORMATS = [TREE / 'docs/checks.md'] + sorted((TREE / 'docs/formats').glob('*.md'))
SUMMARIES = {
    'catalogue': 'catalogue of Morvanite: an XML file with the classes of components for layouts',
    'checks': 'checks of Morvanite: rules, settings, baseline and outputs',
    'headers': 'headers in C that Morvanite generates, with the numbers of IDs',
    'lists': 'list files of Morvanite: previews, and files for version 1.0',
    'packed-files': 'application files with the resources that Morvanite packed',
    'project-files': 'files of a Morvanite project',
    'settings': 'settings of Morvanite: INI files of the program, the user and a project',
    'string-file': 'string file of Morvanite: all strings of a project',
    'translations': 'translation files that Morvanite writes and reads: PO and XLIFF 1.2',
    'workbook': 'workbooks for translators that Morvanite writes and reads: .xls, .xlsx, .csv',
}
INSTALLED = '/usr/share/doc/morvanite'
SYNOPSES = re.compile(r'(?<=```text\n)(.*?)(?=```\n)', re.S)
WIDTH = 120
TABLE_WIDTH = 70  # of a page of 80 columns, as pandoc reckons without the gaps
GAP = 3           # between two columns
MARKDOWN = ('markdown_strict+pipe_tables+definition_lists+backtick_code_blocks+intraword_underscores'
            '+lists_without_preceding_blankline+all_symbols_escapable')


def plain(text):
    return text


def bold(text):
    return '**%s**' % text


def italic(text):
    return '*%s*' % text


def option_text(option, options, name=plain, value=plain):
    """An option as a synopsis shows it, with those that are only valid together with it."""
    text = name(option['names'][0])
    if option['value']:
        text += ' ' + value(option['value']) + ('...' if option['repeatable'] else '')
    for other in options:
        if option['names'][0] in other['needs']:
            text += ' ' + option_text(other, options, name, value)
    if option['required']:
        return text
    other = alternative(option, options)
    return '[%s]' % (text + (' | ' + option_text(other, [], name, value)[1:-1] if other else ''))


def without_help(options):
    return [option for option in options if '--help' not in option['names']]


def alternative(option, options):
    """The option that is the only one not to be used with this one, and the other way round."""
    for other in options:
        if option['excludes'] == [other['names'][0]] and other['excludes'] == [option['names'][0]]:
            return other
    return None


def synopsis_words(command, name=plain, value=plain):
    """What follows the command's name: arguments, required options, the others."""
    words = [(value(argument['name']) + ('...' if argument['repeatable'] else '')) for argument in command['arguments']]
    words = [word if argument['required'] else '[%s]' % word for word, argument in zip(words, command['arguments'])]
    options = without_help(command['options'])
    shown = []
    for option in options:  # of two alternatives, the first shows both
        if alternative(option, options) not in shown:
            shown.append(option)
    for required in (True, False):
        words += [option_text(option, options, name, value) for option in shown
                  if option['required'] == required and not option['needs']]
    return words


def leaves(command, path):
    """Each command that can be run, with its whole name."""
    if not command['commands']:
        yield path, command
    for inner in command['commands']:
        yield from leaves(inner, path + ' ' + inner['name'])


def program_words(program, name=plain, value=plain):
    """The words of a command line without those of the commands."""
    return [option_text(option, program['options'], name, value) for option in program['options']] + [value('COMMAND')]


def synopses(program):
    """The text of all synopses, for docs/cli.md."""
    lines = []
    entries = [(program['program'], program_words(program) + ['...'])]
    entries += [(path, synopsis_words(command)) for path, command in leaves(program, program['program'])]
    for path, words in entries:
        glued = ' '.join(word.replace(' ', '\0') for word in words)  # an option isn't split from its value
        lines += textwrap.wrap(path + ' ' + glued, WIDTH, subsequent_indent=' ' * (len(path) + 1),
                               break_long_words=False, break_on_hyphens=False)
    return ''.join(line.replace('\0', ' ').rstrip() + '\n' for line in lines)


def sections(text, level):
    """The text before the first heading of `level`, and (title, text) of each. Lines of code aren't headings."""
    parts, title, lines, is_code = [], None, [], False
    for line in text.splitlines(keepends=True):
        is_code ^= line.startswith('```')
        if not is_code and line.startswith('#' * level + ' '):
            parts.append((title, ''.join(lines)))
            title, lines = line.lstrip('#').strip(), []
        else:
            lines.append(line)
    parts.append((title, ''.join(lines)))
    return parts[0][1], parts[1:]


def page_reference(match):
    """A link as a manual page has it: the name of the page, or where the document is installed if it has no page."""
    text, target = match[1], match[2]
    path, anchor = pathlib.PurePath(target.split('#')[0]), target.partition('#')[2]
    documents = list((TREE / 'docs').rglob(path.name)) if path.name else []
    if path.name in {file.name for file in FORMATS}:
        page = '**morvanite-%s**(5)' % path.stem
    elif path.name == CLI_DOCUMENT.name:
        is_command = anchor and re.search('^### %s$' % anchor, CLI_DOCUMENT.read_text(encoding='utf-8'), re.M)
        page = '**morvanite-cli%s**(1)' % ('-' + anchor if is_command else '')
    elif documents:
        page = '%s/%s' % (INSTALLED, documents[0].relative_to(TREE))
    else:
        return text
    return page if text == path.name else '%s (%s)' % (text, page)


def with_column_widths(table):
    """A table whose second line gives the columns their widths: each fits its longest word if possible, and the rest of
    the page's width goes to those with long cells."""
    rows = [re.split(r'(?<!\\)\|', line)[1:-1] for line in table[0].splitlines()]
    columns = list(zip(*(rows[:1] + rows[2:])))
    words = [max(len(word) for cell in column for word in re.split(r'[-\s/\\]', cell)) + 2 for column in columns]
    wanted = [max(len(cell.strip()) + 2 for cell in column) - word for column, word in zip(columns, words)]
    spare = TABLE_WIDTH - GAP * (len(words) - 1) - sum(words)
    while spare < 0:
        words[words.index(max(words))] -= 1
        spare += 1
    if sum(wanted) > spare:
        words = [word + spare * more // sum(wanted) for word, more in zip(words, wanted)]
    lines = table[0].splitlines()
    lines[1] = '|' + '|'.join('-' * width for width in words) + '|'
    return '\n'.join(lines) + '\n'


def rules_as_list(text):
    """The tables of rules, whose cells are too long for a page, as lists of definitions."""
    text = re.sub(r'^\| Rule \| Level \|.*\n\|[-|]*\n', '', text, flags=re.M)
    return re.sub(r'^\| (`[-a-z]+`) \| (error|warning|note|off) \| (.*?) \| (.*) \|\n', r'\1 (\2)\n: \3. \4\n\n', text,
                  flags=re.M)


def as_page_text(text, raised):
    """Markdown of a document for a page: headings `raised` levels up, links to pages; without pictures, diary,
    and what is for those who change the code."""
    text = re.sub(r'<!--.*?-->\n', '', text, flags=re.S)
    text = re.sub(r'^!\[.*?\]\(.*?\)\n', '', text, flags=re.M)
    text = re.sub(r'^```.+', '```', text, flags=re.M)
    text = re.sub(r'^## Diary\n.*?(?=^## |\Z)', '', text, flags=re.M | re.S)
    text = re.sub(r'^Code: .*?\n\n', '', text, flags=re.M | re.S)
    text = re.sub(r'^#{%d}(?=#+ )' % raised, '', text, flags=re.M)
    text = rules_as_list(re.sub(r'\[([^]]+)\]\(([^)]+)\)', page_reference, text))
    return re.sub(r'(?:^\|.*\n)+', with_column_widths, text, flags=re.M)


def option_list(options):
    """The options as a list of definitions."""
    entries = []
    for option in options:
        names = ', '.join(bold(name) for name in option['names'])
        value = ' ' + italic(option['value']) if option['value'] else ''
        notes = [option['description'] + '.']
        if option['required']:
            notes.append('Required.')
        if option['default']:
            notes.append('The default is %s.' % option['default'])
        for key, text in (('needs', 'Only with'), ('excludes', 'Not with')):
            if option[key]:
                notes.append('%s %s.' % (text, ', '.join(bold(name) for name in option[key])))
        if option['environment']:
            notes.append('The default is the value of `%s`.' % option['environment'])
        entries.append('%s%s\n: %s\n' % (names, value, ' '.join(notes)))
    return '\n'.join(entries)


def with_gaps(columns):
    """The line with the widths of a table's columns, such that the gaps between the columns fit into the page too."""
    widths = re.findall(r'lw\(([0-9.]+)n\)', columns[0])
    factor = 1 - GAP * (len(widths) - 1) / TABLE_WIDTH
    return ' '.join('lw(%.1fn)' % (float(width) * factor) for width in widths) + '.'


def portable(page):
    """A page of pandoc without what some programs that show pages don't know: its font V, defined at the top, and a
    paragraph macro behind a heading. Bold text, code and examples get true minus signs, for searching and copying; no
    word is hyphenated, since many are names; in tables, long ones can be broken."""
    page = page[page.index('.TH'):]
    page = re.sub(r'\n\.hy\n', '\n.nh\n.ad l\n', page)
    page = re.sub(r'^lw\(.*', with_gaps, page, flags=re.M)
    page = re.sub(r'T\{\n.*?^T\}', lambda cell: re.sub(r'(\\\[rs\]|/|(?<=\w)-)(?=\w)', r'\1\\:', cell[0]), page,
                  flags=re.M | re.S)
    page = re.sub(r'^(\.S[HS] .*)\n\.PP$', r'\1', page, flags=re.M)
    page = re.sub(r'\\f\[VB?I?\]', r'\\f[B]', page)
    page = re.sub(r'^\.nf\n\\f\[C\]\n(.*?)\\f\[R\]\n\.fi$', r'.nf\n\1.fi', page, flags=re.M | re.S)
    return re.sub(r'\\f\[B\].*?\\f\[|^\.nf$.*?^\.fi$', lambda code: re.sub(r'(?<!\\)(?<!\\\[)-', r'\\-', code[0]), page,
                  flags=re.M | re.S)


class Pages:
    """Writes the pages of one release into a folder."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = pathlib.Path(folder)
        self.intro, parts = sections(CLI_DOCUMENT.read_text(encoding='utf-8'), 2)
        self.parts = dict(parts)
        self.command_texts = dict(sections(self.parts['Commands'], 3)[1])
        self.common = [option for option in program['options'] if option['for_all_commands']]

    def write(self, name, section, description, body):
        page = self.folder / ('man%d' % section) / ('%s.%d' % (name, section))
        page.parent.mkdir(parents=True, exist_ok=True)
        text = '# NAME\n\n%s - %s\n\n%s' % (name, description[0].lower() + description[1:], body)
        text = re.sub(r'^# .*', lambda heading: heading[0].upper(), text, flags=re.M)
        made = subprocess.run(
            ['pandoc', '--standalone', '--from', MARKDOWN, '--to', 'man', '--columns=60',
             '--metadata', 'title=' + name.upper(), '--metadata', 'section=%d' % section,
             '--metadata', 'footer=Morvanite ' + self.program['release'], '--metadata', 'header=Morvanite Manual'],
            input=text, check=True, capture_output=True, encoding='utf-8').stdout
        page.write_text(portable(made), encoding='utf-8')

    def write_command(self, command):
        path = 'morvanite-cli ' + command['name']
        lines = [' '.join([bold(name)] + synopsis_words(leaf, bold, italic)) for name, leaf in leaves(command, path)]
        text = self.command_texts.get(command['name'], command['description'] + '.\n')
        intro, parts = sections(text, 4)
        intro += ''.join('#### %s\n%s' % part for part in parts if part[0].startswith(command['name'] + ' '))
        own = ''.join('## %s %s\n\n%s\n' % (command['name'], inner['name'], option_list(options))
                      for inner in command['commands'] if (options := without_help(inner['options'])))
        if own:
            own += '## All commands\n'
        body = ['# SYNOPSIS\n\n' + '\n\n'.join(lines), '# DESCRIPTION\n\n' + as_page_text(intro, 2),
                '# OPTIONS\n', own, option_list(command['options']), option_list(self.common)]
        body += ['# %s\n%s' % (title, as_page_text(part, 3)) for title, part in parts
                 if title != 'Examples' and not title.startswith(command['name'] + ' ')]
        body += ['# EXIT STATUS\n' + as_page_text(self.parts['Exit status'], 1)]
        body += ['# EXAMPLES\n' + as_page_text(part, 3) for title, part in parts if title == 'Examples']
        body += ['# SEE ALSO\n\n**morvanite-cli**(1), which describes the options of several commands, the reports and '
                 'the environment']
        self.write('morvanite-cli-' + command['name'], 1, command['description'], '\n\n'.join(body) + '\n')

    def write_program(self):
        name = self.program['program']
        intro = sections(SYNOPSES.sub('', self.intro).replace('```text\n```\n', ''), 1)[1][0][1]
        commands = ['**%s**\n: %s. See **%s-%s**(1).\n' % (one['name'], one['description'], name, one['name'])
                    for one in self.program['commands']]
        body = ['# SYNOPSIS\n\n' + bold(name) + ' ' + ' '.join(program_words(self.program, bold, italic)) + ' ...',
                '# DESCRIPTION\n' + as_page_text(intro, 1), '# COMMANDS\n\n' + '\n'.join(commands),
                '# OPTIONS\n\n' + option_list(self.program['options'])]
        body += ['# %s\n%s' % (title, as_page_text(text, 1))
                 for title, text in self.parts.items() if title != 'Commands']
        pages = ['**morvanite**(1)'] + ['**morvanite-%s**(5)' % file.stem for file in FORMATS]
        body += ['# SEE ALSO\n\n' + ', '.join(pages)]
        self.write(name, 1, self.program['description'], '\n\n'.join(body) + '\n')

    def write_format(self, file):
        intro, (title,) = sections(file.read_text(encoding='utf-8'), 1)
        heading, text = title
        self.write('morvanite-' + file.stem, 5, SUMMARIES.get(file.stem, heading),
                   '# DESCRIPTION\n' + as_page_text(text, 1) + '\n# SEE ALSO\n\n**morvanite**(1), **morvanite-cli**(1)\n')

    def write_window(self):
        self.write('morvanite', 1, 'Resource manager for applications on small devices',
                   (TREE / 'packaging/manual/morvanite.md').read_text(encoding='utf-8'))

    def write_all(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.write_window()
        self.write_program()
        for command in self.program['commands']:
            self.write_command(command)
        for file in FORMATS:
            self.write_format(file)


def main(action, description, folder=None):
    program = json.loads(pathlib.Path(description).read_text(encoding='utf-8'))
    if action == 'pages':
        Pages(program, folder).write_all()
    elif action == 'synopses':
        text = CLI_DOCUMENT.read_text(encoding='utf-8')
        CLI_DOCUMENT.write_text(SYNOPSES.sub(lambda _: synopses(program), text, count=1), encoding='utf-8')
    else:
        sys.exit(__doc__)


if __name__ == '__main__':
    main(*sys.argv[1:])
