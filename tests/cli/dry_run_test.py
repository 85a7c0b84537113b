# SPDX-License-Identifier: MIT
"""Compares what a dry run of a pack tells with what packs do: sizes to the byte, all faults at once, nothing written."""

import pathlib
import random
import re
import shutil
import sys
import unittest

from demo import FILES, DemoProject

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / 'tools'))
from pictures import bmp, png  # noqa: E402

SAMPLE = pathlib.Path(__file__).parents[2] / 'sample'


def random_picture(chance):
    """Returns a grey PNG, one of colours, one with an alpha channel that is perhaps opaque, or a BMP, and its extension."""
    width, height = chance.randrange(1, 40), chance.randrange(1, 40)
    kind, channels = chance.choice([(0, 1), (2, 3), (6, 4), (None, 3)])
    if kind is None:
        return bmp(width, height, 24, chance.randbytes((width * 3 + 3) // 4 * 4 * height)), 'bmp'
    alphas = chance.choice([(255,), (255, 7)])
    return png([[(*chance.choices(range(256), k=min(channels, 3)), chance.choice(alphas))[:channels] for _ in range(width)]
                for _ in range(height)], kind), 'png'


class DryRun(DemoProject):
    def dry_run(self, *options):
        """Returns the exit status, the sizes by name, and the errors."""
        before = self.state()
        status, out, err = self.run_cli('pack', *options, '--dry-run')
        self.assertEqual(self.state(), before, 'a dry run writes nothing')
        return status, {name: int(size) for size, name in re.findall(r'^ *(\d+)  .{9}  (.*)$', out, re.M)}, err

    def assert_sizes_are_those_of_a_pack(self, *options):
        status, sizes, err = self.dry_run(*options)
        self.assertEqual((status, err), (0, ''))
        status, out, err = self.run_cli('pack', *options)
        self.assertEqual(status, 0, out + err)
        self.assertEqual(sizes['app.axf.pkd'], (self.dir / 'app.axf.pkd').stat().st_size)
        self.assertEqual(sum(sizes.values()), 2 * sizes['payload'] + sizes['app.axf.pkd'], 'the parts add up')
        if 'axf' in options:
            self.assertEqual(sizes['payload'], (self.dir / 'arm/app.res').stat().st_size)

    def test_the_sample_has_the_sizes_of_its_packs(self):
        shutil.copytree(SAMPLE, self.dir / 'sample', ignore=shutil.ignore_patterns('ResID', 'tmp', 'build*'))
        project = self.dir / 'sample/weatherclock.vcproj'
        options = (project, '--input', 'app.axf', '--target', 'axf', '--resolution', '240x320', '--convert-images', '1')
        status, sizes, err = self.dry_run(*options)
        self.assertEqual((status, err.count('ResID.h: the file does not exist')), (1, 1), err)
        self.assertEqual(self.run_cli('save', project)[0], 0)
        self.assertEqual(self.dry_run(*options)[1], sizes, 'the header has no influence on the sizes')
        self.assert_the_check_knows_the_size(project, sizes['payload'])
        for resolution in ('240x320', '320x240', '480x272'):
            for target, convert in (('axf', '1'), ('axf', '0'), ('dll', '1')):
                self.assert_sizes_are_those_of_a_pack(project, '--input', 'app.axf', '--target', target,
                                                      '--resolution', resolution, '--convert-images', convert)

    def assert_the_check_knows_the_size(self, project, size):
        settings = project.parent / 'morvanite-check.ini'
        for budget, told in ((size, ''), (size - 1, f'the payload has {size} bytes, 1 more than the budget of {size - 1} bytes; '
                                          r'the largest resources are ID_IMAGE_BACKGROUND \(\d+\), .* \(\d+\), .* \(\d+\)')):
            settings.write_text(f'[Check]\nbudget={budget}\n')
            status, out, _ = self.run_cli('check', project, '--rule', 'payload-budget', '--resolution', '240x320')
            self.assertRegex(out, told and f'^sample/morvanite-check.ini:2: error: 240x320: {told} \\[payload-budget\\]\n$' or '^$')
            self.assertEqual(status, 1 if told else 0)
        settings.write_text('[Check]\nbudget=1M\ntarget=240x320\nconvert-images=2\n')
        battery = project.parent / 'res/common/battery.bmp'
        content = battery.read_bytes()
        battery.write_bytes(content[:-1])
        out = self.run_cli('check', project)[1]
        self.assertIn("240x320: the size isn't known, because the pack would fail with -1016: ID_IMAGE_BATTERY ", out)
        self.assertIn('morvanite-check.ini:4: error: section Check, key convert-images: "2" must be 0 or 1 [check-settings]', out)
        battery.write_bytes(content)

    def test_random_projects_have_the_sizes_of_their_packs(self):
        for seed in range(6):
            chance = random.Random(seed)
            lines = []
            for n in range(chance.randrange(12)):
                picture, kind = random_picture(chance)
                (self.dir / f'p{n}.{kind}').write_bytes(picture)
                lines.append(f'<IMAGE id="ID_IMAGE_{n}" type="{chance.choice(["Push", "Normal"])}">.\\p{n}.{kind}</IMAGE>')
            files = chance.randrange(5)
            for n in range(files):
                (self.dir / f'f{n}.bin').write_bytes(chance.randbytes(chance.randrange(50)))
            listing = FILES['res/demo.res.xml'].decode().replace('<IMAGE', ''.join(lines) + '<IMAGE').replace(
                '<FILE', ''.join(f'<FILE id="ID_FILE_{n}" type="Normal">.\\f{n}.bin</FILE>' for n in range(files)) + '<FILE')
            (self.dir / 'res/demo.res.xml').write_text(listing)
            texts = ''.join(f'ID_STRING_{n}\tNormal\t\t{"x" * chance.randrange(9)}\r\n' for n in range(chance.randrange(20)))
            (self.dir / 'res/ref_list_demo.txt').write_bytes(
                FILES['res/ref_list_demo.txt'].decode('utf-16').replace('ID_STRING_HI', texts + 'ID_STRING_HI').encode('utf-16'))
            (self.dir / 'demo_res.lst').write_text('.\\app.axf\r\n.\\logo.png\r\n')
            (self.dir / 'app.axf').write_bytes(FILES['app.axf'] + bytes(seed))
            self.put_settings(f'[ResID]\nrelativeoffset={seed % 2}\n')
            for target, convert in (('axf', str(seed % 2)), ('dll', '1')):
                self.assert_sizes_are_those_of_a_pack(self.project, '--input', 'app.axf', '--target', target,
                                                      '--resolution', '240x320', '--convert-images', convert)

    def test_tells_all_faults_at_once(self):
        (self.dir / 'bad.png').write_bytes(FILES['logo.png'][:-20])
        (self.dir / 'res/demo.res.xml').write_bytes(FILES['res/demo.res.xml'].replace(
            b'<IMAGE', b''.join(b'<IMAGE id="ID_%d" type="Normal">.\\%s</IMAGE>' % one for one in
                                enumerate((b'gone.png', b'bad.png', b'app.axf'))) + b'<IMAGE'))
        (self.dir / 'demo_res.lst').write_text('.\\none\r\n')
        (self.dir / 'tune.mp3').unlink()
        (self.dir / 'arm').rmdir()
        status, sizes, err = self.dry_run(self.project, '--input', 'gone.axf', '--target', 'axf', '--resolution', '240x320',
                                          '--convert-images', '1', '--temp', 'no/temp', '--budget', '1')
        told = re.findall(r'^morvanite-cli: (.*)$', err.replace(f'{self.dir}/', '@'), re.M)
        self.assertEqual((status, sizes), (1, {}))
        self.assertRegex(told.pop(5), r"-1016: ID_1 \(.\\bad.png\): .+")
        self.assertEqual(told, [
            '@none, which a list names, does not exist and is left out',
            "-1043: the folder for temporary files can't be used: @no/temp: No such file or directory",
            '-1030: cannot open @gone.axf: No such file or directory',
            '-1016: ID_FILE_TUNE (.\\tune.mp3): the file does not exist',
            '-1016: ID_0 (.\\gone.png): the file does not exist',
            '-1017: ID_2 (.\\app.axf): an image that must be converted is not a bmp, gif, jpg or png file',
            "2: @arm/gone.res: an output can't be opened: No such file or directory; its folder must exist, and so must the "
            'folder arm beside the input',
            'the pack would fail; faults: 7',
            'the sizes are unknown until the resources are correct'])

    def test_a_budget_refuses_what_is_larger_and_names_the_largest(self):
        size = self.dry_run(*self.to_pack[1:])[1]['payload']
        (self.dir / 'app.axf.pkd').write_bytes(b'old')
        before = self.state()
        status, out, err = self.run_cli(*self.to_pack, '--budget', str(size - 1))
        self.assertTrue(status == 1 and out.endswith('pack done\r\n\r\n### error -1047 ###\r\n'), out)
        self.assertRegex(err, f'the payload has {size} bytes, 1 more than the budget of {size - 1} bytes; the largest resources are\n'
                              r' +\d+  AppLogo.img\n +\d+  ID_IMAGE_LOGO\n +28  language 0\n +4  ID_FILE_TUNE\n')
        self.assertEqual(self.state(), before)
        status, sizes, told = self.dry_run(*self.to_pack[1:], '--budget', str(size - 1))
        self.assertEqual((status, sizes['payload']), (1, size))
        self.assertIn('-1047: ' + err.split('morvanite-cli: ')[1], told)
        self.assertEqual(self.run_cli(*self.to_pack, '--budget', str(size))[::2], (0, ''))
        for wrong in ('0', '1G', '-1', 'K', '5000M'):
            self.assertEqual(self.run_cli(*self.to_pack, f'--budget={wrong}')[0], 2)


if __name__ == '__main__':
    unittest.main(argv=['dry_run_test'])
