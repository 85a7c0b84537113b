#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Exports and imports translation files with morvanite-cli, and compares them with what other programs think of them."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import unittest

from demo import DemoProject

# The published schema isn't part of the project; xml.xsd, which it imports, is beside it.
SCHEMA = pathlib.Path(os.environ.get('MORVANITE_XLIFF_SCHEMA', 'xliff-core-1.2-strict.xsd'))
LCONVERT = shutil.which('lconvert') or '/usr/lib/qt6/bin/lconvert'
EXPORTED = '[demo] export - 0 error(s), %d warning(s)\r\n'
IMPORTED = '[demo] import - %d error(s), %d warning(s)\r\n'
SAVED = '[demo] save - 0 error(s), 0 warning(s)\r\n'

HEADER = 'String ID\tResource Type\tDescription\tEnglish(0)\tGerman(8)\tChinese, Simplified(2)\tElvish(99)\tPortuguese, Brazil(13)\r\n'
ROWS = ('ID_HI\tNormal\tgreeting [length:12]\tHi %s\tHallo %s\t\u4f60\u597d%s\tmae %s\t\r\n'
        'ID_QUOTE\tPush\t\tSay "no"\\n& <b>\tSag "nein"\\n& <b>\t\t\t \U0001F600 \r\n'
        'ID_EMPTY\tNormal\tno source\t\tnichts\t\t\t\r\n')
GERMAN = '''
#. greeting [length:12]
#. max-length: 12
#: res/ref_list_demo.txt:ID_HI
#, c-format
msgctxt "ID_HI"
msgid "Hi %s"
msgstr "Hallo %s"

#: res/ref_list_demo.txt:ID_QUOTE
msgctxt "ID_QUOTE"
msgid "Say \\"no\\"\\\\n& <b>"
msgstr "Sag \\"nein\\"\\\\n& <b>"
'''
HEAD = 'msgid ""\nmsgstr ""\n"Language: de\\n"\n'


def message(identifier, source, text, extra=''):
    return '\n%smsgctxt "%s"\nmsgid "%s"\nmsgstr "%s"\n' % (extra, identifier, source, text)


class Translations(DemoProject):
    def setUp(self):
        super().setUp()
        self.strings = self.dir / 'res/ref_list_demo.txt'
        self.write_table(ROWS)
        self.before = self.strings.read_bytes()

    def write_table(self, rows, header=HEADER):
        count = header.count('(')
        self.strings.write_bytes(('Number of Language\t%d\r\n%s%s##number\t%d\r\n' % (
            count, header, rows, rows.count('\n'))).encode('utf-16'))

    def table(self):
        return self.strings.read_bytes().decode('utf-16')

    def export(self, *arguments):
        return self.run_cli('strings', 'export', self.project, *arguments)

    def import_(self, *arguments):
        return self.run_cli('strings', 'import', self.project, *arguments)

    def fates(self, *arguments):
        """Returns the lines of a dry run without the fate `same`, and those of its report."""
        lines = self.import_(*arguments, '--dry-run')[1].split('\r\n')[:-1]
        return [line for line in lines if not line.startswith('same\t')]

    def run_tool(self, *command, **environment):
        if not shutil.which(command[0]):
            self.skipTest('%s is missing: nothing is compared with it' % command[0])
        done = subprocess.run(command, cwd=self.dir, env=dict(os.environ, **environment), capture_output=True)
        return done.returncode, done.stdout, done.stderr.decode()

    def test_exports_what_gettext_accepts_and_imports_it_again(self):
        left_out = 'Warning 1: 1 row without a text in English is left out.\r\n' + EXPORTED % 1
        self.assertEqual(self.export('po', '--format', 'po'), (0, left_out, ''))
        self.assertEqual(sorted(os.listdir(self.dir / 'po')), ['de.po', 'pt_BR.po', 'x_morvanite_99.po', 'zh_CN.po'])
        self.assertTrue((self.dir / 'po/de.po').read_text().endswith(GERMAN))
        self.assertEqual(self.export('-', '--format', 'po', '--language', 'de'),
                         (0, (self.dir / 'po/de.po').read_text(), left_out))
        self.assertEqual(self.export('-')[0], 2)
        self.assertIn('a template has no translations', self.export('t.pot', '--language', 'de')[2])
        self.env['SOURCE_DATE_EPOCH'] = '1700000000'
        self.assertEqual(self.export('t.pot'), (0, left_out, ''))
        self.assertIn('PO-Revision-Date: 2023-11-14 22:13+0000', (self.dir / 't.pot').read_text())
        self.assertNotIn('Hallo', (self.dir / 't.pot').read_text())
        files = ['po/' + name for name in os.listdir(self.dir / 'po')]
        self.assertEqual(self.import_(*files), (0, IMPORTED % (0, 0) + SAVED, ''))
        self.assertEqual(self.strings.read_bytes(), self.before)
        for name in files + ['t.pot']:
            if name != 't.pot':
                self.assertEqual(self.run_tool('msgfmt', '-c', '-o', '/dev/null', name), (0, b'', ''))
            self.assertEqual(self.run_tool('msgcat', '--no-wrap', name), (0, (self.dir / name).read_bytes(), ''))

    def test_exports_what_the_schema_of_xliff_accepts_and_imports_it_again(self):
        self.assertEqual(self.export('xl', '--format', 'xliff', '--language', 'de', '--language', '13')[0], 0)
        self.assertEqual(sorted(os.listdir(self.dir / 'xl')), ['de.xlf', 'pt-BR.xlf'])
        text = (self.dir / 'xl/de.xlf').read_text()
        self.assertIn('<trans-unit id="ID_HI" resname="ID_HI" approved="yes" maxwidth="12" size-unit="char" '
                      'xml:space="preserve">\n        <source>Hi %s</source>\n        <target state="translated">Hallo %s'
                      '</target>\n        <note from="developer">greeting [length:12]</note>', text)
        self.assertIn('<target state="needs-translation"></target>', (self.dir / 'xl/pt-BR.xlf').read_text())
        self.assertEqual(self.import_('xl/de.xlf', 'xl/pt-BR.xlf'), (0, IMPORTED % (0, 0) + SAVED, ''))
        self.assertEqual(self.strings.read_bytes(), self.before)
        if not SCHEMA.exists():
            self.skipTest('MORVANITE_XLIFF_SCHEMA does not name the schema of XLIFF: XLIFF is not compared with it')
        (self.dir / 'catalog.xml').write_text(
            '<catalog xmlns="urn:oasis:names:tc:entity:xmlns:xml:catalog"><system systemId="http://www.w3.org/2001/xml.xsd" '
            'uri="%s"/></catalog>' % SCHEMA.with_name('xml.xsd').resolve().as_uri())
        (self.dir / 'bad.xlf').write_text(text.replace('size-unit="char"', 'size-unit="inch"'))
        for name, status in (('xl/de.xlf', 0), ('xl/pt-BR.xlf', 0), ('bad.xlf', 3)):
            self.assertEqual(self.run_tool('xmllint', '--nonet', '--noout', '--schema', str(SCHEMA.resolve()), name,
                                           XML_CATALOG_FILES='catalog.xml')[0], status, name)

    def test_lconvert_gives_back_the_same(self):
        self.export('de.po', '--language', 'German')
        self.export('de.xlf', '--language', 'German')
        for start, middle, end in (('de.po', 'a.ts', 'de2.po'), ('de.xlf', 'b.ts', 'de2.xlf')):
            for source, target in ((start, middle), (middle, end)):
                self.assertEqual(self.run_tool(LCONVERT, '-i', source, '-o', target)[0], 0)
            self.write_table(ROWS.replace('Hallo %s', '').replace('Sag "nein"\\n& <b>', ''))
            self.assertEqual(self.import_(end, '--language', 'de'), (0, IMPORTED % (0, 0) + SAVED, ''))
            self.assertEqual(self.strings.read_bytes(), self.before)

    def test_the_fate_of_each_text(self):
        (self.dir / 'de.po').write_text(HEAD + message('ID_HI', 'Hi %s', 'Servus %s') +
                                        message('ID_QUOTE', 'Say', 'Sag') + message('ID_NEW', 'New', 'Neu', '#. fresh\n') +
                                        message('ID_FUZZY', 'Old', 'Alt', '#, fuzzy, c-format\n'))
        (self.dir / 'pt.po').write_text(message('ID_HI', 'Hi %s', 'Oi %s'))
        stale = ('Warning 1: de.po:9: ID_QUOTE has another source text now, so this translation of the old one isn\'t '
                 'imported.')
        unfinished = "Warning 2: 1 unfinished translations aren't imported."
        added = ['new\tde.po:14\tfresh', 'new\tde.po:14\tNew', 'new\tde.po:14\tNeu', 'new\tde.po:19\tOld']
        files = ('de.po', 'pt.po', '--language', 'German')
        self.assertEqual(self.fates(*files), [
            'kept\tde.po:5\tServus %s\tHallo %s', 'nowhere\tpt.po:2\tOi %s', stale, 'stale\tde.po:9\tSag', *added,
            'unfinished\tde.po:19\tAlt', unfinished, IMPORTED.strip() % (0, 2)])
        self.assertEqual(self.fates(*files, '--replace', '--accept-stale', '--include-unfinished')[:-1], [
            'replaced\tde.po:5\tServus %s\tHallo %s', 'nowhere\tpt.po:2\tOi %s',
            'replaced\tde.po:9\tSag\tSag "nein"\\\\n& <b>', *added, 'new\tde.po:19\tAlt'])
        self.assertEqual(self.fates(*files, '--only-existing')[-6:-1], [
            *[line.replace('new', 'nowhere') for line in added], 'nowhere\tde.po:19\tAlt'])
        status, out, err = self.import_(*files, '--dry-run', '--json', '--replace')
        self.assertEqual((status, err), (0, stale + '\r\n' + unfinished + '\r\n' + IMPORTED % (0, 2)))
        listed = json.loads(out)
        self.assertEqual(list(listed), ['version', 'cells', 'counts'])
        self.assertEqual(listed['cells'][0], {'fate': 'replaced', 'place': 'de.po:5', 'id': 'ID_HI', 'language': 8,
                                              'text': 'Servus %s', 'in_table': 'Hallo %s'})
        self.assertEqual({fate: count for fate, count in listed['counts'].items() if count},
                         {'new': 4, 'replaced': 1, 'nowhere': 1, 'stale': 1, 'unfinished': 1})
        self.assertEqual(self.strings.read_bytes(), self.before)
        self.assertIn('no text is imported', self.import_('pt.po', '--language', 'German')[2])
        self.assertEqual(self.import_(*files, '--replace')[0], 0)
        self.assertEqual(self.table(), self.before.decode('utf-16').replace('Hallo', 'Servus').replace(
            '##number\t3', 'ID_NEW\tNormal\tfresh\tNew\tNeu\t\t\t\r\nID_FUZZY\tNormal\t\tOld\t\t\t\t\r\n##number\t5'))

    def test_a_fault_has_its_file_and_line_and_nothing_is_imported(self):
        good = message('ID_QUOTE', 'Say \\"no\\"\\\\n& <b>', 'gut')
        (self.dir / 'pt_BR.po').write_text(good)
        unit = ('<xliff version="1.1" xmlns:x="urn:oasis:names:tc:xliff:document:1.1"><file source-language="en" '
                'target-language="de"><body>\n<trans-unit id="%s"><source>%s</source><target>%s</target></trans-unit>')
        unit = unit.replace('<', '<x:').replace('<x:/', '</x:')
        end = '</x:body></x:file></x:xliff>'
        for name, text, expected in (
                ('pt.po', HEAD.replace('de', 'pt_BR') + message('ID_HI', 'Hi %s', 'a\\nb'),
                 "pt.po:5: a string can't hold a tab or a line end - ID_HI, Portuguese, Brazil."),
                ('de.po', HEAD + '\nmsgctxt "ID_HI"\nmsgid "a"\nmsgid_plural "b"\nmsgstr[0] "c"\nmsgstr[1] "d"\n',
                 "de.po:5: ID_HI: plural forms can't be imported, since the string table has none."),
                ('de.po', HEAD + '\nmsgid "a"\nmsgstr "b"\n', 'de.po:5: a message has no msgctxt, which must have the ID.'),
                ('de.po', HEAD + message('1D', 'a', 'b'), 'de.po:5: 1D: this is no valid ID.'),
                ('de.po', HEAD + message('ID_IMAGE_LOGO', 'a', 'b'), 'de.po:5: another resource has the ID ID_IMAGE_LOGO.'),
                ('de.po', HEAD + good + good, 'de.po:9: ID_QUOTE: the ID is in line 5 already, for the same language.'),
                ('de.po', (HEAD + good)[:-3], 'de.po:7: the closing double quote is missing.'),
                ('de.po', (HEAD + good)[:(HEAD + good).index('msgstr "gut')],
                 "de.po:6: the file ends within a message, so it isn't complete."),
                ('de.po', HEAD + '<<<<<<< ours\n' + good, 'de.po:4: "<<<<<<<" is no part of a PO file.'),
                ('de.po', HEAD.replace('de\\n', 'de\\nContent-Type: text/plain; charset=ISO-8859-1\\n'),
                 'de.po:1: the file is in ISO-8859-1; convert it, such as with "msgconv -t UTF-8".'),
                ('fr.po', HEAD, 'fr.po:1: the file says that its language is German, but its name says French; choose one '
                                'with --language.'),
                ('new.po', good, "new.po:2: the file doesn't say its language; name it with --language."),
                ('new.po', HEAD.replace('de', 'tlh'),
                 'new.po:1: neither the project nor tuvik.ini has the language "tlh"; name another one with --language.'),
                ('en.po', good, 'en.po:2: the language of the translations, English, is also the source language.'),
                ('a.xlf', unit % ('ID_HI', 'Hi %s', 'a<x:g id="1">b</x:g>') + end,
                 "a.xlf:2: ID_HI: the element <g> within a text can't be imported, since a string has no tags."),
                ('a.xlf', unit % ('ID_HI', 'Hi %s', '<x:mrk mtype="seg">a<x:mrk mtype="term">b</x:mrk></x:mrk>') + end,
                 "a.xlf:2: ID_HI: the element <mrk> within a text can't be imported, since a string has no tags."),
                ('a.xlf', unit % ('ID_HI', 'Hi %s', 'Hallo %s'), "a.xlf:2: the file ends too early, so it isn't complete."),
                ('a.xlf', unit % ('ID_HI', 'Hi %s', 'a</x:target><x:target>b') + end,
                 "a.xlf:2: ID_HI: a trans-unit has two targets, of which only one could be imported."),
                ('a.xlf', '<!DOCTYPE x [<!ENTITY e "e">]>\n' + unit % ('ID_HI', 'a', '&e;') + end,
                 'a.xlf:1: a document type is not allowed.'),
                ('a.xlf', '<xliff version="2.0" xmlns="urn:oasis:names:tc:xliff:document:2.0"/>',
                 'a.xlf:1: only XLIFF 1.1 and 1.2 can be read.'),
                ('a.xlf', '<xliff version="1.2"/>', 'a.xlf:1: it has no element <file>, so there is nothing to import.')):
            (self.dir / name).write_text(text)
            status, out, err = self.import_('pt_BR.po', name)
            self.assertEqual((status, out, err), (1, 'Error 1: %s\r\n' % expected + IMPORTED % (1, 0),
                                                  'morvanite-cli: nothing is imported, because of the errors above\n'))
            self.assertEqual(self.strings.read_bytes(), self.before)
        status, out, err = self.import_('fr.po', 'new.po', '--language', 'de')
        self.assertTrue((status, out) == (0, IMPORTED % (0, 0) + SAVED), out + err)

    def test_reads_standard_input(self):
        self.write_table(ROWS.replace('Hallo %s', ''))
        for name in ('po', 'xliff', 'xlsx', 'csv'):
            source = 'in.' + name.replace('xliff', 'xlf')
            self.strings.write_bytes(self.before)
            self.assertEqual(self.export(source, '--language', 'de')[0], 0)
            self.write_table(ROWS.replace('Hallo %s', ''))
            with open(self.dir / source, 'rb') as file:
                self.assertEqual(self.run_cli('strings', 'import', self.project, '-', '--format', name, stdin=file),
                                 (0, IMPORTED % (0, 0) + SAVED, ''))
            self.assertEqual(self.strings.read_bytes(), self.before)
        (self.dir / 'bad').write_bytes(bytes(range(256)))
        for content, arguments, status, complaint in (
                ('bad', (), 2, 'name the format of the input with --format'),
                ('bad', ('--format', 'po', '-'), 2, 'standard input can be read only once'),
                ('/dev/null', ('--format', 'po'), 1, 'standard input is empty, so nothing is imported'),
                ('res', ('--format', 'po'), 1, 'standard input: Is a directory'),
                ('bad', ('--format', 'po'), 1, 'nothing is imported'),
                ('bad', ('--format', 'csv'), 1, "standard input: it isn't text: it contains a null character"),
                ('bad', ('--format', 'xlsx'), 1, "standard input: it isn't a ZIP file")):
            descriptor = os.open(self.dir / content, os.O_RDONLY)
            got, out, err = self.run_cli('strings', 'import', self.project, '-', *arguments, stdin=descriptor)
            os.close(descriptor)
            self.assertEqual(got, status)
            self.assertIn(complaint, err)
        self.assertEqual(self.import_('in.po', '--format', 'po')[0], 2)
        self.assertEqual(self.strings.read_bytes(), self.before)

    def test_segments_of_xliff_are_one_text(self):
        segments = ('<mrk mtype="seg" mid="0">Sag "nein"\\n</mrk><mrk mtype="seg" mid="1">&amp; &lt;b></mrk>',
                    '<mrk mtype="seg" mid="0">Sag</mrk> <mrk mtype="seg" mid="1"/>')
        self.write_table(ROWS.replace('Sag "nein"\\n& <b>', ''))
        without = self.strings.read_bytes()
        unit = ('<trans-unit id="ID_QUOTE"><source>Say "no"\\n&amp; &lt;b></source><seg-source><g id="1">Say</g></seg-source>'
                '<target>%s</target></trans-unit>')
        for text, warnings, expected in ((segments[0], 0, self.before), (segments[1], 1, without),
                                         ('<mrk mtype="seg"/> <mrk mtype="seg"/>', 0, without)):
            self.strings.write_bytes(without)
            (self.dir / 'de.xlf').write_text('<xliff version="1.2"><file source-language="en"><body>%s</body></file></xliff>'
                                             % (unit % text))
            self.assertEqual(self.import_('de.xlf')[:2], (0, "Warning 1: 1 unfinished translations aren't imported.\r\n" *
                                                          warnings + IMPORTED % (0, warnings) + SAVED))
            self.assertEqual(self.strings.read_bytes(), expected)

    def test_files_with_the_same_language_must_agree(self):
        for name, text in (('de.po', 'Servus %s'), ('de_AT.po', 'Griaß di %s'), ('de_CH.po', 'Hallo %s'), ('de_LI.po', 'Hallo %s')):
            (self.dir / name).write_text(HEAD + message('ID_HI', 'Hi %s', text))
        self.assertEqual(self.import_('de.po', 'de_AT.po')[0], 0, 'the text of the table stays')
        for files in (('de.po', 'de_CH.po'), ('de_CH.po', 'de.po')):
            status, out, _ = self.import_(*files, '--replace')
            self.assertEqual(status, 1)
            self.assertIn('%s:5: ID_HI has another text in %s:5, for the same language.' % (files[1], files[0]), out)
        self.assertEqual(self.import_('de_CH.po', 'de_LI.po', '--replace')[0], 0)
        self.assertEqual(self.strings.read_bytes(), self.before)

    def test_a_cut_csv_file_is_told(self):
        self.assertEqual(self.export('a.csv')[0], 0)
        whole = (self.dir / 'a.csv').read_bytes()
        for end, warning in ((whole.index(b'Hallo') + 3, True), (whole.index(b'##number') + 9, False), (len(whole) - 2, False)):
            (self.dir / 'a.csv').write_bytes(whole[:end])
            out = self.import_('a.csv', '--dry-run')[1]
            self.assertEqual('Warning 1: the file ends within row 3, so texts may be missing or cut short.' in out, warning)
        (self.dir / 'a.csv').write_bytes(whole[:whole.index(b'""nein')])
        status, _, err = self.import_('a.csv')
        self.assertEqual(status, 1)
        self.assertIn("a.csv: line 4: a quote isn't closed", err)
        self.assertEqual(self.strings.read_bytes(), self.before)

    def test_the_translate_toolkit_reads_the_same_texts(self):
        def pairs(file):
            done = self.run_tool('msgcat', '--no-wrap', file)
            return re.findall('\nmsgid "(.+)"\nmsgstr "(.*)"', done[1].decode())

        for text, is_found in (('Hallo %s', False), ('Hallo %d', True)):
            self.write_table(ROWS.replace('Hallo %s', text))
            for name in ('de.po', 'de.xlf'):
                self.export(name, '--language', 'de')
                self.assertEqual(self.run_tool('pofilter', '-t', 'printf', name, 'bad-' + name)[0], 0)
                found = self.dir / ('bad-' + name)
                self.assertEqual(found.exists() and text in found.read_text(), is_found)
        for command in (('po2xliff', 'de.po', 'of-po.xlf'), ('xliff2po', 'of-po.xlf', 'back.po'), ('xliff2po', 'de.xlf', 'of-xlf.po')):
            self.assertEqual(self.run_tool(*command)[0], 0)
        self.assertEqual(len(pairs('de.po')), 2)
        self.assertEqual((pairs('back.po'), pairs('of-xlf.po')), (pairs('de.po'),) * 2)

    def test_a_workbook_that_libreoffice_saved_has_no_difference(self):
        self.write_table(ROWS.replace('Hallo %s', '007').replace('nichts', '1E5'))
        self.export('a.xlsx')
        status, _, err = self.run_tool('soffice', '-env:UserInstallation=file://%s/profile' % self.dir, '--headless',
                                       '--convert-to', 'xlsx', '--outdir', 'saved', 'a.xlsx')
        self.assertEqual(status, 0, err)
        self.assertNotEqual((self.dir / 'a.xlsx').read_bytes(), (self.dir / 'saved/a.xlsx').read_bytes())
        self.assertEqual(self.fates('saved/a.xlsx', '--replace'), [IMPORTED.strip() % (0, 0)])

    def test_an_export_replaces_no_file_of_the_project(self):
        for name in ('config.xml', 'res/ref_list_demo.txt'):
            before = (self.dir / name).read_bytes()
            for link in ('link.csv', 'de.po'):
                (self.dir / link).unlink(missing_ok=True)
                (self.dir / link).symlink_to(self.dir / name)
                status, _, err = self.run_cli('strings', 'export', self.project, self.dir / link, '--language', 'de')
                self.assertEqual((status, (self.dir / name).read_bytes()), (2, before), link)
                self.assertIn('is not written because', err)

    def test_chooses_languages_and_rows_of_an_export(self):
        self.assertEqual(self.export('zh.po', '--language', 'zh-Hans', '--only-missing')[0], 0)
        self.assertTrue(('ID_QUOTE' in (self.dir / 'zh.po').read_text()) and 'ID_HI' not in (self.dir / 'zh.po').read_text())
        self.assertEqual(self.export('fr.xliff', '--source', 'de', '--language', 'English')[0], 0)
        self.assertIn('<source>nichts</source>\n        <target state="needs-translation">', (self.dir / 'fr.xliff').read_text())
        self.assertEqual(self.export('new/', '--format', 'csv', '--language', '99', '--only-missing'),
                         (0, 'Warning 1: 1 row without a text in English is left out.\r\n' + EXPORTED % 1, ''))
        self.assertEqual((self.dir / 'new/demo.csv').read_text(encoding='utf-8-sig').split('\n')[1:4],
                         ['String ID,Resource Type,Description,English,Elvish', 'ID_QUOTE,Push,,"Say ""no""\\n& <b>",',
                          '##number,1,,,'])
        for arguments, complaint in (
                (('a.po',), 'a file has one language; name it with --language, or name a folder'),
                (('a.po', '--language', 'Welsh'), '--language Welsh: the project has no such language'),
                (('a.po', '--language', 'en'), '--language en: it is the source language; --source names another one'),
                (('a.po', '--source', 'fr'), '--source: the project has no language "fr"'),
                (('res',), 'it is a folder, so name the format of its files with --format'),
                (('a.xlf', '--format', 'po'), 'its extension is another format than that of --format'),
                (('a.xlf', '--language', 'none'), '--language none: only the format po has templates')):
            status, out, err = self.export(*arguments)
            self.assertEqual((status, out), (2, ''))
            self.assertIn(complaint, err)
        self.assertEqual([path.name for path in self.dir.glob('a.*')], [])

    def test_the_options_of_workbooks(self):
        self.write_table('ID_A\tNormal\t\t\'=1+1\talt\r\n', 'String ID\tResource Type\tDescription\tGerman(99)\tEnglish(0)\r\n')
        for name in ('a.csv', 'a.xlsx'):
            self.assertEqual(self.export(name)[0], 0)
        self.assertEqual(self.fates('a.xlsx')[:-1], ["new\tD3\t'=1+1"], 'German is another language in tuvik.ini')
        self.assertEqual(self.fates('a.xlsx', '--own-names', '--replace', '--unguard')[:-1], ["replaced\tD3\t=1+1\t'=1+1"])
        self.assertEqual(self.fates('a.xlsx', '--own-names', '--sheet', '1')[:-1], [])
        status, out, err = self.import_('a.xlsx', '--sheet', 'Notes')
        self.assertEqual(status, 1)
        self.assertIn('it has no sheet "Notes"; its sheets are Strings', err)
        status, _, err = self.import_('a.xlsx', 'a.csv')
        self.assertEqual((status, err), (2, 'morvanite-cli: several files can only be imported together if they are '
                                            'translation files (.po, .xlf)\n'))
        status, _, err = self.import_('a.po', './a.po')
        self.assertEqual((status, err), (2, 'morvanite-cli: ./a.po: it is named twice; name each file once\n'))


if __name__ == '__main__':
    unittest.main(argv=['translation_test'])
