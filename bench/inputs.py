# SPDX-License-Identifier: MIT
"""Makes the inputs of the benchmarks: projects, string files, pictures, an ELF file.

The same arguments give the same bytes.
"""

import os
import random
import struct
import subprocess
import zlib

CONFIG = ('<config><resolution><Width>240</Width><Height>320</Height></resolution>'
          '<zxa><zepversion>20</zepversion><tarvo>checked</tarvo></zxa></config>\n')
LANGUAGES = 12
LANGUAGE_NAMES = ('English', 'English, UK', 'Chinese, Simplified', 'Chinese, Traditional', 'Japanese', 'Korean', 'French',
                  'French, Canada', 'German', 'Italian', 'Spanish', 'Spanish, Latin America')


def project(folder, elements, strings=False):
    """Makes a project called demo in `folder` with the given resource elements. Returns the path of its .vcproj file."""
    os.makedirs(os.path.join(folder, 'res', 'tmp'), exist_ok=True)
    with open(os.path.join(folder, 'config.xml'), 'w') as out:
        out.write(CONFIG)
    with open(os.path.join(folder, 'res', 'demo.res.xml'), 'w') as out:
        out.write('<APP id="APP_demo">\n')
        out.writelines('    %s\n' % element for element in elements)
        if strings:
            out.write('    <STRING>res\\ref_list_demo.txt</STRING>\n')
        out.write('</APP>\n')
    path = os.path.join(folder, 'demo.vcproj')
    open(path, 'w').close()
    return path


def files(folder, count, size, seed):
    """Makes `count` incompressible files of `size` bytes and their elements."""
    rng = random.Random(seed)
    os.makedirs(os.path.join(folder, 'data'), exist_ok=True)
    elements, paths = [], []
    for i in range(count):
        name = os.path.join(folder, 'data', 'file%05d.bin' % i)
        with open(name, 'wb') as out:
            out.write(rng.randbytes(size))
        paths.append(name)
        elements.append('<FILE id="ID_FILE_%05d" type="Normal">.\\data\\file%05d.bin</FILE>' % (i, i))
    return elements, paths


def side_file(path, size):
    """Makes a side file of `size` bytes, most of which are the zeros of one item."""
    directory = b'zep-2.0\0' + struct.pack('<II', 28, 16) + bytes(12)
    with open(path, 'wb') as out:
        out.write(directory + struct.pack('<4I', 1, 44, 0xFFFFFFFF, size))
        out.truncate(size)


def resource_elements(count):
    """Returns the elements of `count` resources, half of them files and half images. Their files don't exist."""
    kinds = (('FILE', 'bin'), ('IMAGE', 'png'))
    return ['<%s id="ID_%s_NUMBER_%06d" type="Normal">.\\res\\folder%02d\\resource%06d.%s</%s>'
            % (kinds[i % 2][0], kinds[i % 2][0], i * 7919 % count, i % 50, i, kinds[i % 2][1], kinds[i % 2][0])
            for i in range(count)]


def project_of_resources(folder, count):
    return project(folder, resource_elements(count))


def sentence(rng):
    words = ('the', 'weather', 'will', 'be', 'sunny', 'tomorrow', 'morning', 'settings', 'alarm', 'Straße', 'Ночь', '天气')
    return ' '.join(rng.choice(words) for _ in range(rng.randint(3, 7)))


def changed_table(source, target, step, language):
    """Copies a string file with another text in one language of every row whose number is a multiple of `step`."""
    with open(source, encoding='utf-16', newline='') as table:
        lines = table.read().split('\r\n')
    for i in range(2, len(lines) - 2, step):
        fields = lines[i].split('\t')
        fields[3 + language] += ' changed'
        lines[i] = '\t'.join(fields)
    with open(target, 'wb') as out:
        out.write(b'\xff\xfe' + '\r\n'.join(lines).encode('utf-16-le'))


def string_table(folder, rows, po_folder):
    """Makes a project's string file in 12 languages, and a .po file with the same texts for each. Returns their paths."""
    rng = random.Random(5)
    texts = [[sentence(rng) for _ in range(LANGUAGES)] for _ in range(rows)]
    lines = ['Number of Language\t%d' % LANGUAGES,
             'String ID\tResource Type\tDescription' + ''.join('\t%s(%d)' % (name, n) for n, name in enumerate(LANGUAGE_NAMES))]
    lines += ['ID_STRING_%05d\tNormal\trow %d\t%s' % (i, i, '\t'.join(row)) for i, row in enumerate(texts)]
    lines.append('##number\t%d' % rows)
    with open(os.path.join(folder, 'res', 'ref_list_demo.txt'), 'wb') as out:
        out.write(b'\xff\xfe' + ''.join(line + '\r\n' for line in lines).encode('utf-16-le'))
    os.makedirs(po_folder, exist_ok=True)
    paths = []
    for language in range(LANGUAGES):
        path = os.path.join(po_folder, 'language%02d.po' % language)
        with open(path, 'w', encoding='utf-8') as out:
            out.write('msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8\\n"\n')
            for i, row in enumerate(texts):
                out.write('\nmsgid "ID_STRING_%05d"\nmsgstr "%s"\n' % (i, row[language]))
        paths.append(path)
    return paths


def text_rules():
    """Returns the rules about texts that are on by default, as docs/checks.md lists them."""
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'docs', 'checks.md'), encoding='utf-8') as page:
        section = page.read().split('\n### Texts\n')[1].split('\n### ')[0]
    rows = [[cell.strip(' `') for cell in line.split('|')] for line in section.split('\n') if line.startswith('| `')]
    return [row[1] for row in rows if row[2] != 'off']


def true_string_table(folder, rows):
    """Makes a project's string file of the true texts of devices in 12 languages, each with its row's number in front."""
    source = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', 'tests', 'check', 'true_texts.txt')
    with open(source, encoding='utf-8') as texts:
        blocks = [block.split('\n') for block in texts.read().split('\n\n')]
    blocks = [[line.split('=', 1) for line in block if '=' in line] for block in blocks]
    blocks = [block for block in blocks if 'length:' not in block[0][1]]
    numbers = {'en': 'English(0)', 'de': 'German(8)', 'fr': 'French(6)', 'es': 'Spanish(10)', 'ru': 'Russian(20)',
               'pl': 'Polish(23)', 'tr': 'Turkish(36)', 'ar': 'Arabic(44)', 'hi': 'Hindi(47)', 'zh-Hans': 'Chinese, Simplified(2)',
               'ja': 'Japanese(4)', 'th': 'Thai(58)'}
    lines = ['Number of Language\t%d' % LANGUAGES,
             '\t'.join(['String ID', 'Resource Type', 'Description'] + [numbers[code] for code, _ in blocks[0][1:]])]
    for i in range(rows):
        block = blocks[i % len(blocks)]
        lines.append('\t'.join(['%s_%05d' % (block[0][0], i), 'Normal', block[0][1]] +
                               ['%d %s' % (i, text) for _, text in block[1:]]))
    lines.append('##number\t%d' % rows)
    with open(os.path.join(folder, 'res', 'ref_list_demo.txt'), 'wb') as out:
        out.write(b'\xff\xfe' + ''.join(line + '\r\n' for line in lines).encode('utf-16-le'))


def png(path, width, height, rng):
    """Makes a true-colour picture with gradients and some noise."""
    rows = bytearray()
    tint = [rng.randrange(256) for _ in range(3)]
    for y in range(height):
        rows.append(0)
        for x in range(width):
            rows += bytes(((x + tint[0]) & 255, (y + tint[1]) & 255, (x * y // 64 + tint[2]) & 255))

    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))

    with open(path, 'wb') as out:
        out.write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', width, height, 8, 2, 0, 0, 0)) +
                  chunk(b'IDAT', zlib.compress(bytes(rows), 6)) + chunk(b'IEND', b''))


def images(folder, count, width=160, height=120):
    """Makes `count` pictures and their elements."""
    rng = random.Random(9)
    os.makedirs(os.path.join(folder, 'img'), exist_ok=True)
    elements, paths = [], []
    for i in range(count):
        path = os.path.join(folder, 'img', 'image%03d.png' % i)
        png(path, width, height, rng)
        paths.append(path)
        elements.append('<IMAGE id="ID_IMAGE_%03d" type="Normal">.\\img\\image%03d.png</IMAGE>' % (i, i))
    return elements, paths


def elf(path, size):
    """Makes an ARM ELF file of about `size` bytes with the cross compiler."""
    data = path + '.data'
    with open(data, 'wb') as out:
        out.write(random.Random(3).randbytes(size))
    source = '.section .data\n.incbin "%s"\n.text\n.global _start\n_start: b _start\n' % data
    subprocess.run(['arm-linux-gnueabihf-gcc', '-nostdlib', '-static', '-x', 'assembler', '-', '-o', path],
                   input=source.encode(), check=True)
    os.unlink(data)
