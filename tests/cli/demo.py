# SPDX-License-Identifier: MIT
"""A project on disk for tests, and the program that works on it."""

import os
import pathlib
import shutil
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import unittest

# A shell ignores this signal for background processes, and the programs under test would inherit that.
signal.signal(signal.SIGINT, signal.default_int_handler)
CLI = os.path.abspath(sys.argv[1])
LOADED = ('Loading resource from "res\\demo.res.xml"...\r\n'
          'Loading strings from "res\\ref_list_demo.txt"...\r\n'
          '[demo] open - 0 error(s), 0 warning(s)\r\n')


def arm_elf():
    """Returns a header, one empty section and the section name table: the least file that a section can be added to."""
    header = struct.pack('<16sHHIIIIIHHHHHH', b'\x7fELF\1\1\1', 2, 40, 1, 0, 0, 64, 0x5000400, 52, 32, 0, 40, 2, 1)
    return header + b'\0.shstrtab\0\0' + bytes(40) + struct.pack('<10I', 1, 3, 0, 0, 52, 11, 0, 0, 1, 0)


FILES = {
    'config.xml': b'<config><resolution><Width>240</Width><Height>320</Height></resolution>'
                  b'<zxa><zepversion>20</zepversion></zxa></config>',
    'res/demo.res.xml': b'<APP id="APP_demo">\n<FILE id="ID_FILE_TUNE" type="Push">.\\tune.mp3</FILE>\n'
                        b'<RESOLUTION width="240" height="320" class="image">'
                        b'<IMAGE id="ID_IMAGE_LOGO" type="Normal">.\\logo.png</IMAGE></RESOLUTION>\n'
                        b'<STRING>res\\ref_list_demo.txt</STRING>\n</APP>\n',
    'res/ref_list_demo.txt': ('Number of Language\t1\r\nString ID\tResource Type\tDescription\tEnglish(0)\r\n'
                              'ID_STRING_HI\tNormal\tgreeting\tHi\r\n##number\t1\r\n').encode('utf-16'),
    'tune.mp3': b'tune',
    'app.axf': arm_elf(),
    'logo.png': (pathlib.Path(__file__).parents[2] / 'sample/art/AppLogo.png').read_bytes(),
}


class DemoProject(unittest.TestCase):
    def setUp(self):
        self.maxDiff = None
        self.dir = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.dir, ignore_errors=True)
        (self.dir / 'res').mkdir()
        (self.dir / 'arm').mkdir()
        for name, content in FILES.items():
            (self.dir / name).write_bytes(content)
        self.project = str(self.dir / 'demo.vcproj')
        self.to_pack = ('pack', self.project, '--input', self.dir / 'app.axf', '--resolution', '240x320', '--target', 'axf')
        self.runtime = self.dir / 'run'
        self.env = dict(os.environ, XDG_CONFIG_HOME=str(self.dir / 'none'), XDG_STATE_HOME=str(self.dir / 'state'), MORVANITE_RUNTIME_DIR=str(self.runtime))

    def run_program(self, *arguments, **options):
        """Returns the exit status, the output and the errors."""
        done = subprocess.run(arguments, **{'stdout': subprocess.PIPE, **options}, stderr=subprocess.PIPE, env=self.env,
                              cwd=self.dir, timeout=60)
        return done.returncode, (done.stdout or b'').decode(), done.stderr.decode()

    def run_cli(self, *arguments, **options):
        return self.run_program(CLI, *arguments, **options)

    def state(self):
        """Every file of the folder, with its time and its bytes."""
        return {str(path): (path.stat().st_mtime_ns, path.read_bytes()) for path in self.dir.rglob('*') if path.is_file()}

    def put_settings(self, text):
        """Writes the user's settings."""
        settings = self.dir / 'none/morvanite/Morvanite.ini'
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(text)

    def put_layouts(self, content):
        """Makes this the layout file of the project's screen."""
        (self.dir / 'res/screens.xml').write_text(content)
        listing = self.dir / 'res/demo.res.xml'
        listing.write_text(listing.read_text().replace('class="image">', 'class="image layout"><LAYOUT>res\\screens.xml</LAYOUT>'))

    def serve(self):
        """Starts a server and waits until it listens."""
        server = subprocess.Popen([CLI, 'serve'], env=self.env, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.addCleanup(server.communicate)
        self.addCleanup(server.kill)
        with socket.socket(socket.AF_UNIX) as probe:
            while probe.connect_ex(str(self.runtime / '#QRK-MORVANITE-WNDCLASS#')) != 0:
                self.assertIsNone(server.poll())
        return server
