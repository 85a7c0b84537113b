"""A file of the real compiler, grown by a pack, as other people's tools see it: nothing they complain of is new, no section
that was there has changed, and the new one holds what the side file holds.

Usage: elf_tools_test.py MORVANITE_CLI ARM_GCC
"""

import os
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

CLI, GCC = sys.argv[1:3]
SOURCE = '''
static const char words[] = "some words of a section";
int counters[1000];
int main(int argc, char **argv) { counters[argc] = words[argc % 8]; return argv[0] == words; }
'''
CONFIG = ('<config><resolution><Width>240</Width><Height>320</Height></resolution>'
          '<zxa><zepversion>20</zepversion></zxa></config>')
LIST = '<APP id="APP_demo">\n<STRING>res\\ref_list_demo.txt</STRING>\n</APP>\n'
STRINGS = ('Number of Language\t1\r\n'
           'String ID\tResource Type\tDescription\tEnglish(0)\r\n'
           'ID_STRING_HI\tNormal\tgreeting\tHi\r\n'
           '##number\t1\r\n')
# Tools that read such a file, and what they are asked. Those that aren't installed are left out, but for the first.
TOOLS = [['readelf', '-a', '-W'], ['llvm-readelf-14', '-a'], ['arm-linux-gnueabihf-objdump', '-x', '-s'],
         ['llvm-objdump-14', '-x', '-s'], ['eu-readelf', '-a']]
ALLOWED_LINE = 'alloc flag set but section not in any loaded segment'


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, errors='replace', timeout=60,
                          env=dict(os.environ, LC_ALL='C'), **options)


class Elf:
    """The parts of a 32-bit little-endian ELF file."""

    def __init__(self, path):
        with open(path, 'rb') as file:
            self.bytes = file.read()
        self.programs, self.table = struct.unpack_from('<II', self.bytes, 28)
        count, step, sections, names = struct.unpack_from('<HHHH', self.bytes, 44)
        self.program_headers = self.bytes[self.programs:self.programs + 32 * count]
        headers = [struct.unpack_from('<10I', self.bytes, self.table + step * i) for i in range(sections)]
        self.names_index = names
        text = self.data(headers[names])
        self.sections = [(text[h[0]:text.index(b'\0', h[0])].decode(), h) for h in headers]

    def data(self, header):
        return b'' if header[1] == 8 else self.bytes[header[4]:header[4] + header[5]]


class GrownFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.dir = tempfile.mkdtemp()
        cls.addClassCleanup(shutil.rmtree, cls.dir, ignore_errors=True)
        cls.write('main.c', SOURCE.encode())
        cls.write('config.xml', CONFIG.encode())
        cls.write('res/demo.res.xml', LIST.encode())
        cls.write('res/ref_list_demo.txt', b'\xff\xfe' + STRINGS.encode('utf-16-le'))
        cls.write('demo.vcproj', b'')
        os.mkdir(cls.path('arm'))

    @classmethod
    def path(cls, name):
        return os.path.join(cls.dir, name)

    @classmethod
    def write(cls, name, content):
        os.makedirs(os.path.dirname(cls.path(name)), exist_ok=True)
        with open(cls.path(name), 'wb') as file:
            file.write(content)

    def compile(self, name, *options):
        done = run(GCC, '-O1', *options, '-o', self.path(name), self.path('main.c'))
        self.assertEqual((done.returncode, done.stderr), (0, ''))

    def pack(self, name):
        os.environ['XDG_CONFIG_HOME'] = self.path('none')
        done = run(CLI, 'pack', self.path('demo.vcproj'), '--input', self.path(name), '--output', self.path(name + '.pkd'),
                   '--resolution', '240x320', '--target', 'axf', cwd=self.dir)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return self.path(name + '.pkd')

    def check(self, name):
        before, grown = self.path(name), self.pack(name)
        self.check_bytes(Elf(before), Elf(grown), os.path.join(self.dir, 'arm', os.path.splitext(name)[0] + '.res'))
        for index, tool in enumerate(TOOLS):
            if index > 0 and not shutil.which(tool[0]):
                continue
            with self.subTest(tool=tool[0]):
                old, new = run(*tool, before), run(*tool, grown)
                self.assertEqual(new.returncode, old.returncode)
                self.assertEqual(new.stderr.replace(grown, before), old.stderr)
                self.assertEqual(self.warnings(new.stdout), self.warnings(old.stdout))
                self.assertIn('.zp_res', new.stdout)
        if shutil.which('eu-elflint'):
            old, new = (set(run('eu-elflint', '--gnu-ld', path).stdout.splitlines()) for path in (before, grown))
            added = [line for line in new - old if 'No errors' not in line]
            # A file without segments has none for the section to be missing in.
            self.assertEqual(len(added), 1 if Elf(before).program_headers else 0, added)
            for line in added:
                self.assertIn(ALLOWED_LINE, line)
            self.assertEqual(old - new - {'No errors'}, set())

    def check_bytes(self, old, new, side_file):
        self.assertEqual(new.bytes[52:len(old.bytes)], old.bytes[52:])
        self.assertEqual(new.program_headers, old.program_headers)
        self.assertEqual([name for name, _ in new.sections], [name for name, _ in old.sections] + ['.zp_res'])
        for index, ((name, before), (_, after)) in enumerate(zip(old.sections, new.sections)):
            if index == old.names_index:
                self.assertEqual(new.data(after), old.data(before) + b'.zp_res\0')
            else:
                self.assertEqual((name, after, new.data(after)), (name, before, old.data(before)))
        with open(side_file, 'rb') as file:
            self.assertEqual(new.data(new.sections[-1][1]), file.read())

    @staticmethod
    def warnings(text):
        return [line for line in text.splitlines() if 'arning' in line or 'rror:' in line]

    def test_a_program_with_debug_information_and_dynamic_libraries(self):
        self.compile('dynamic.axf', '-g')
        self.check('dynamic.axf')

    def test_a_static_program(self):
        self.compile('static.axf', '-static')
        self.check('static.axf')

    def test_an_object_without_segments(self):
        self.compile('object.axf', '-c')
        self.check('object.axf')

    def test_a_stripped_program_of_a_size_that_is_no_multiple_of_4(self):
        self.compile('odd.axf', '-s', '-nostdlib', '-Wl,-e,main')
        self.write('odd.axf', Elf(self.path('odd.axf')).bytes + b'x')
        self.check('odd.axf')
        section = Elf(self.path('odd.axf.pkd')).sections[-1][1]
        self.assertEqual(section[4] % 4, 0)

    def test_a_program_packed_twice(self):
        self.compile('once.axf', '-nostdlib', '-Wl,-e,main')
        shutil.copy(self.pack('once.axf'), self.path('twice.axf'))
        self.check('twice.axf')


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1], verbosity=2)
