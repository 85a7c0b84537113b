#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Times whole commands, and peers that do the same work, and prints the ratios as a table.

usage: bench/whole_commands.py BUILD [--rounds N] [--only WORD]

Ours and its peer run in turns, including their start, with a warm cache. A figure is the median of the rounds.
"limit" is the required ratio, "aim" the desired one. The exit status is 1 if a limit is missed.
"""

import argparse
import concurrent.futures
import multiprocessing
import os
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

import device_lookups
import inputs

RCC = '/usr/lib/qt6/libexec/rcc'


class Run:
    """One command line, or several that run in turn and count as one."""

    def __init__(self, *commands, prepare=None, source='/dev/null', status=0):
        self.commands = commands
        self.prepare = prepare
        self.source = source  # the file that is their standard input
        self.status = status

    def once(self):
        """Returns seconds of wall time and KiB of the largest process."""
        if self.prepare:
            self.prepare()
        seconds, memory = 0.0, 0
        for command in self.commands:
            start = time.perf_counter()
            pid = os.posix_spawnp(command[0], command, os.environ, file_actions=[
                (os.POSIX_SPAWN_OPEN, 0, self.source, os.O_RDONLY, 0),
                (os.POSIX_SPAWN_OPEN, 1, '/dev/null', os.O_WRONLY, 0),
                (os.POSIX_SPAWN_OPEN, 2, '/dev/null', os.O_WRONLY, 0)])
            _, status, usage = os.wait4(pid, 0)
            seconds += time.perf_counter() - start
            memory = max(memory, usage.ru_maxrss)
            if os.waitstatus_to_exitcode(status) != self.status:
                sys.exit('failed: %s' % ' '.join(command))
        return seconds, memory


def apart(work, *arguments):
    """Runs `work` in its own process: the system counts the memory of a measuring process as its children's."""
    with concurrent.futures.ProcessPoolExecutor(1, multiprocessing.get_context('fork')) as process:
        return process.submit(work, *arguments).result()


def copy(source, target):
    return lambda: shutil.copyfile(source, target)


def remove(*paths):
    def work():
        for path in paths:
            if os.path.exists(path):
                os.unlink(path)
    return work


class Table:
    def __init__(self, rounds):
        self.rounds = rounds
        self.missed = 0
        print('%-44s %9s %9s %7s %7s %7s' % ('work, and what beside', 'ours', 'peer', 'ratio', 'limit', 'aim'))

    def row(self, name, ours, peer, unit, limit, aim):
        ratio = ours / peer
        self.missed += ratio > limit
        mark = '' if aim is None or ratio <= aim else ' .' if ratio <= limit else ' MISSED'
        print('%-44s %9s %9s %6.2fx %6.2fx %7s%s' % (name, unit(ours), unit(peer), ratio, limit,
                                                    '%.2fx' % aim if aim else '', mark), flush=True)

    def compare(self, name, ours, peer, limit, aim, memory=None):
        """`memory` has a name, bytes (or None for those of the peer), limit and aim."""
        ours.once(), peer.once()
        rounds = [(ours.once(), peer.once()) for _ in range(self.rounds)]
        median = [[statistics.median(r[who][what] for r in rounds) for what in (0, 1)] for who in (0, 1)]
        self.row(name, median[0][0], median[1][0], lambda s: '%.1f ms' % (s * 1000), limit, aim)
        if memory:
            label, size, memory_limit, memory_aim = memory
            beside = median[1][1] if size is None else size / 1024
            self.row('  ' + label, median[0][1], beside, lambda k: '%.1f MB' % (k / 1024), memory_limit, memory_aim)


    def difference(self, name, ours, without, peer, limit):
        """Compares the extra time of `ours` over `without` with the time of the peer."""
        runs = (ours, without, peer)
        for run in runs:
            run.once()
        rounds = [[run.once()[0] for run in runs] for _ in range(self.rounds)]
        median = [statistics.median(values) for values in zip(*rounds)]
        self.row(name, median[0] - median[1], median[2], lambda s: '%.1f ms' % (s * 1000), limit, None)


class Suite:
    def __init__(self, build, work, table):
        self.bin = os.path.join(os.path.abspath(build), 'bin')
        self.cli = os.path.join(self.bin, 'morvanite-cli')
        self.peers = os.path.join(os.path.abspath(build), 'bench')
        self.work = work
        self.table = table

    def folder(self, name):
        path = os.path.join(self.work, name)
        os.makedirs(os.path.join(path, 'arm'), exist_ok=True)
        return path

    def pack(self, folder, project, elf, convert='0', more=()):
        out = os.path.join(folder, 'app.packed.axf')
        side = os.path.join(folder, 'arm', 'app.res')
        return Run([self.cli, 'pack', project, '--input', elf, '--output', out, '--resolution', '240x320', '--target', 'axf',
                    '--convert-images', convert, *more], prepare=remove(out, side)), side

    def small_elf(self, folder):
        elf = os.path.join(folder, 'app.axf')
        inputs.elf(elf, 1000)
        return elf

    def large_elf(self):
        folder = self.folder('large')
        elements, _ = apart(inputs.files, folder, 50, 1 << 20, 1)
        project = inputs.project(folder, elements)
        elf = os.path.join(folder, 'app.axf')
        apart(inputs.elf, elf, 20 << 20)
        ours, side = self.pack(folder, project, elf)
        ours.once()
        payload = os.path.join(folder, 'payload')
        shutil.copy(side, payload)
        copied = os.path.join(folder, 'copied.axf')
        peer = Run(['arm-none-eabi-objcopy', '--add-section', '.zp_res=' + payload, elf, copied], prepare=remove(copied))
        self.table.compare('pack 50 MB into 20 MB ELF; objcopy', ours, peer, 1.1, 0.9,
                           ('memory; the payload', os.path.getsize(payload), 0.6, None))

    def huge(self):
        """Packs 1 GB of large files and of small ones."""
        for count, size in ((16, 64 << 20), (32768, 32 << 10)):
            folder = self.folder('huge_%d' % count)
            os.makedirs(os.path.join(folder, 'data'))
            for n in range(count):
                with open(os.path.join(folder, 'data', '%d.bin' % n), 'wb') as sparse:
                    sparse.truncate(size)
            project = inputs.project(folder, ['<FILE id="ID_%d" type="Normal">data\\%d.bin</FILE>' % (n, n)
                                              for n in range(count)])
            _, memory = self.pack(folder, project, self.small_elf(folder))[0].once()
            self.table.row('memory of packing 1 GB in %d files; 64 MB' % count, memory, 64 << 10,
                           lambda k: '%.1f MB' % (k / 1024), 1.0, None)
            shutil.rmtree(folder)

    def rcc(self, folder, paths):
        qrc = os.path.join(folder, 'files.qrc')
        with open(qrc, 'w') as out:
            out.write('<RCC><qresource>%s</qresource></RCC>\n' % ''.join('<file>%s</file>' % os.path.relpath(p, folder)
                                                                        for p in paths))
        made = os.path.join(folder, 'files.rcc')
        return Run([RCC, '--binary', '--no-compress', qrc, '-o', made], prepare=remove(made))

    def many_small(self):
        folder = self.folder('small')
        elements, paths = apart(inputs.files, folder, 10000, 2048, 2)
        project = inputs.project(folder, elements)
        ours, _ = self.pack(folder, project, self.small_elf(folder))
        self.table.compare('pack 10,000 files of 2 KB; rcc', ours, self.rcc(folder, paths), 0.6, 0.45)
        made = os.path.join(folder, 'files.tar')
        tar = Run(['tar', 'cf', made, '-C', folder, 'data'], prepare=remove(made))
        self.table.compare('pack 10,000 files of 2 KB; tar', ours, tar, 1.4, 1.1)

    def medium(self):
        folder = self.folder('medium')
        elements, paths = apart(inputs.files, folder, 300, 200 << 10, 3)
        project = inputs.project(folder, elements)
        ours, _ = self.pack(folder, project, self.small_elf(folder))
        self.table.compare('pack 300 files of 200 KB; rcc', ours, self.rcc(folder, paths), 1.2, 1.0,
                           ('memory; the payload', 300 * (200 << 10), 1.3, None))

    def strings(self):
        folder = self.folder('strings')
        project = inputs.project(folder, [], strings=True)
        pos = apart(inputs.string_table, folder, 50000, os.path.join(folder, 'po'))
        peer = Run(*[['msgfmt', '-o', po[:-3] + '.mo', po] for po in pos])
        self.table.compare('load 50,000 rows in 12 languages; msgfmt', Run([self.cli, 'load', project]), peer, 0.08, 0.05,
                           ('memory; 90 MiB', 90 << 20, 1.1, 1.0))
        ours, _ = self.pack(folder, project, self.small_elf(folder))
        self.table.compare('pack 50,000 rows in 12 languages; msgfmt', ours, peer, 0.27, 0.16)

    def device(self):
        """Counts the instructions of a look-up on the device, under emulation."""
        folder = self.folder('device')
        project = inputs.project(folder, [], strings=True)
        rows = 50000
        pos = apart(inputs.string_table, folder, rows, os.path.join(folder, 'po'))
        ours, side = self.pack(folder, project, self.small_elf(folder), more=('--sorted',))
        ours.once()
        mo = os.path.join(folder, 'language.mo')
        Run(['msgfmt', '--no-hash', '-o', mo, pos[0]]).once()
        keys = [(row + 1, 'ID_STRING_%05d' % row) for row in random.Random(3).sample(range(rows), 64)]
        peer = device_lookups.of_mo(mo, keys)
        opened, at_once = device_lookups.of_payload(side, keys)
        for name, ours, aim in (('text look-up among 50,000, Cortex-M0; .mo', opened, 0.1),
                                ('in a language that is not open; .mo', at_once, 0.25)):
            self.table.row(name, ours, peer, lambda count: '%.0f' % count, 0.6, aim)

    def check(self):
        folder = self.folder('check')
        project = inputs.project(folder, [], strings=True)
        apart(inputs.true_string_table, folder, 50000)
        load = Run([self.cli, 'load', project])
        chosen = [word for rule in inputs.text_rules() for word in ('--rule', rule)]
        self.table.compare('text rules, 50,000 rows in 12 languages; load', Run([self.cli, 'check', project] + chosen), load,
                           2.0, 1.3)
        self.table.compare('all rules on them; load', Run([self.cli, 'check', project]), load, 4.0, None)

    def merge(self):
        """Merges changes of every tenth row, and of every row, which leaves no line that is equal in two versions."""
        folder = self.folder('merge')
        project = inputs.project(folder, [], strings=True)
        apart(inputs.string_table, folder, 50000, os.path.join(folder, 'po'))
        load = Run([self.cli, 'load', project])
        base = os.path.join(folder, 'res', 'ref_list_demo.txt')
        for step, name in ((10, 'a tenth'), (1, 'all')):
            ours, theirs, merged = (os.path.join(folder, side) for side in ('ours', 'theirs', 'merged'))
            apart(inputs.changed_table, base, ours, step, 1)
            apart(inputs.changed_table, base, theirs, step, 2)
            self.table.compare('merge 3 x 50,000 rows, %s changed; load' % name,
                               Run([self.cli, 'merge', base, merged, theirs], prepare=copy(ours, merged)), load, 4.0, None)

    def workbooks(self):
        folder = self.folder('workbooks')
        project = inputs.project(folder, [], strings=True)
        apart(inputs.string_table, folder, 50000, os.path.join(folder, 'po'))
        books = {kind: os.path.join(folder, 'table.' + kind) for kind in ('xls', 'xlsx')}
        for path in books.values():
            Run([self.cli, 'strings', 'export', project, path]).once()
        for kind, other, limits, import_limits in (('xls', 'xlsx', (1.0, None), (1.0, None)),
                                                   ('xlsx', 'xls', (0.2, 0.15), (0.32, 0.15))):
            made = os.path.join(folder, 'made.' + kind)
            peer = Run(['ssconvert', books[other], made], prepare=remove(made))
            self.table.compare('export 50,000 rows to .%s; ssconvert from .%s' % (kind, other),
                               Run([self.cli, 'strings', 'export', project, books[kind]]), peer, *limits,
                               ('memory; ssconvert', None, 1.0, None))
            self.table.compare('import them from .%s; the same' % kind,
                               Run([self.cli, 'strings', 'import', project, books[kind]]), peer, *import_limits,
                               ('memory; ssconvert', None, 1.0, None))

    def translations(self):
        folder = self.folder('translations')
        project = inputs.project(folder, [], strings=True)
        apart(inputs.string_table, folder, 50000, os.path.join(folder, 'po'))
        for form, extension in (('po', 'po'), ('xliff', 'xlf')):
            made = os.path.join(folder, form + '_files')
            export = Run([self.cli, 'strings', 'export', project, made, '--format', form])
            export.once()
            if form == 'po':
                peer = Run(*[['msgcat', '--no-wrap', '-o', os.path.join(folder, 'out.po'), os.path.join(made, name)]
                             for name in sorted(os.listdir(made))])
            files = [os.path.join(made, name) for name in sorted(os.listdir(made))]
            self.table.compare('export 50,000 rows in 12 languages as .%s; msgcat' % extension, export, peer, 0.5, 0.3)
            self.table.compare('import them; the same', Run([self.cli, 'strings', 'import', project] + files), peer,
                               0.5, 0.3)

    def images(self):
        folder = self.folder('images')
        elements, paths = apart(inputs.images, folder, 200)
        project = inputs.project(folder, elements)
        ours, _ = self.pack(folder, project, self.small_elf(folder), convert='1')
        made = os.path.join(folder, 'converted.rgb')
        peer = Run(*[['/usr/bin/convert', path, 'rgb:' + made] for path in paths])
        self.table.compare('pack 200 images, converted twice; convert', ours, peer, 0.8, 0.68)

    def cold_images(self):
        folder = self.folder('cold')
        elements, paths = apart(inputs.images, folder, 200)
        project = inputs.project(folder, elements)
        ours, _ = self.pack(folder, project, self.small_elf(folder), '1', ('--once', '--jobs', '2'))
        made = self.folder('mogrified')
        peer = Run(['mogrify', '-path', made, '-format', 'rgb', *paths])
        self.table.compare('pack 200 images, once, 2 jobs; mogrify', ours, peer, 1.2, 0.7)

    def rebuild(self):
        """Saves and packs a large project after one of its pictures has changed."""
        folder = self.folder('rebuild')
        files, file_paths = apart(inputs.files, folder, 10000, 2048, 2)
        images, image_paths = apart(inputs.images, folder, 400)
        project = inputs.project(folder, files + images, strings=True)
        apart(inputs.string_table, folder, 50000, os.path.join(folder, 'po'))
        pack, side = self.pack(folder, project, self.small_elf(folder), '1', ('--once', '--cache', os.path.join(folder, 'cache')))
        pack.once()
        rng = random.Random(7)
        change = lambda: inputs.png(image_paths[rng.randrange(400)], 160, 120, rng)
        ours = Run([self.cli, 'save', project], *pack.commands, prepare=change)
        outputs = [pack.commands[0][pack.commands[0].index('--output') + 1], side]
        sizes = [word for path in outputs for word in (path + '.peer', str(os.path.getsize(path)))]
        sources = os.path.join(folder, 'sources')
        with open(sources, 'w') as out:
            out.writelines(path + '\n' for path in file_paths + image_paths)
        peer = Run([os.path.join(self.peers, 'peer_outputs'), *sizes], source=sources)
        self.table.compare('rebuild, 1 of 400 images changed; the writing', ours, peer, 3.5, 1.5)

    def resources(self):
        folder = self.folder('resources')
        project = apart(inputs.project_of_resources, folder, 99999)
        listing = os.path.join(folder, 'res', 'demo.res.xml')
        names = os.path.join(folder, 'names')
        with open(names, 'wb') as out:
            subprocess.run(['grep', '-o', 'ID_[A-Z_0-9]*', listing], stdout=out, check=True)
        parse = [os.path.join(self.peers, 'peer_tinyxml'), listing]
        self.table.compare('load 99,999 resources; TinyXML', Run([self.cli, 'load', project]), Run(parse), 1.8, 1.4,
                           ('memory; TinyXML', None, 1.5, 1.2))
        save = Run([self.cli, 'save', project])
        self.table.compare('save 99,999 resources; TinyXML and sort -u', save,
                           Run(parse, ['sort', '-u', names, '-o', names + '.sorted']), 3.0, 2.0)
        self.table.compare('unchanged save of 99,999 resources; load', save, Run([self.cli, 'load', project]), 1.3, 1.1)

    def inspect(self):
        packed = os.path.join(self.folder('inspect'), 'app.res')
        inputs.side_file(packed, 1 << 30)
        self.table.compare('inspect 1 GB; head -c 64K', Run([self.cli, 'inspect', packed]),
                           Run(['head', '-c', '64K', packed]), 4.0, 2.0)

    def window(self):
        """Times the start until the window is painted, and a project's extra time compared with only loading it."""
        folder = self.folder('window')
        os.makedirs(os.path.join(folder, 'runtime'), mode=0o700, exist_ok=True)
        os.environ.update(QT_QPA_PLATFORM='offscreen', MORVANITE_RUNTIME_DIR=os.path.join(folder, 'runtime'),
                          MORVANITE_PROGRAM_DIR=self.bin, XDG_CONFIG_HOME=os.path.join(folder, 'settings'))
        ours = os.path.join(self.peers, 'bench_window')
        self.table.compare('start to the painted window; an empty one', Run([ours]),
                           Run([os.path.join(self.peers, 'peer_window')]), 1.3, None, ('memory; an empty one', None, 1.5, None))
        project = apart(inputs.project_of_resources, folder, 99999)
        self.table.difference('a project with 99,999 resources; load', Run([ours, project]), Run([ours]),
                              Run([self.cli, 'load', project]), 1.2)

    def remote(self, project, hello):
        """Times a command without a server, and one that a server runs which has the project open."""
        runtime = self.folder('runtime')
        os.chmod(runtime, 0o700)
        os.environ['MORVANITE_RUNTIME_DIR'] = runtime
        command = [self.cli, 'load', project, '--remote']
        self.table.compare('load --remote, nobody listens; hello in C++', Run(command, status=1), hello, 1.5, 1.0)
        server = subprocess.Popen([self.cli, 'serve'])
        try:
            while server.poll() is None and subprocess.run(command, capture_output=True, check=False).returncode != 0:
                time.sleep(0.01)
            self.table.compare('load --remote, open already; hello in C++', Run(command), hello, 2.0, 1.5)
        finally:
            server.terminate()
            server.wait()

    def starts(self):
        hello = Run([os.path.join(self.peers, 'peer_hello')])
        for words, status in (('--version', 0), ('--help', 0), ('pack --help', 0), ('chek', 2), ('pack --inptu', 2)):
            self.table.compare('morvanite-cli %s; hello in C++' % words, Run([self.cli, *words.split()], status=status),
                               hello, 1.0, 0.7)
        project = inputs.project(self.folder('tiny'), [])
        self.table.compare('load a tiny project; an empty QtCore program', Run([self.cli, 'load', project]),
                           Run([os.path.join(self.peers, 'peer_qtcore')]), 1.4, 1.1)
        self.remote(project, hello)
        folder = self.folder('one')
        _, paths = inputs.images(folder, 1, 1, 1)
        target = os.path.join(folder, 'converted')
        ours = Run([os.path.join(self.bin, 'qrk_resgenerator.exe'), '-f', '-i', paths[0], target])
        self.table.compare('convert a 1x1 picture; empty C program', ours, Run([os.path.join(self.peers, 'peer_empty')]), 3.0,
                           2.0)


SUITE = ('large_elf', 'huge', 'many_small', 'medium', 'strings', 'device', 'check', 'merge', 'workbooks', 'translations',
         'images', 'cold_images', 'rebuild', 'resources', 'inspect', 'window', 'starts')


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('build')
    parser.add_argument('--rounds', type=int, default=9)
    parser.add_argument('--only', default='', help='only the parts whose name holds this: ' + ', '.join(SUITE))
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as work:
        table = Table(arguments.rounds)
        suite = Suite(arguments.build, work, table)
        for name in SUITE:
            if arguments.only in name:
                getattr(suite, name)()
    sys.exit(table.missed > 0)


if __name__ == '__main__':
    main()
