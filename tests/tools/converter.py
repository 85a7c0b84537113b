# SPDX-License-Identifier: MIT
"""Runs the real converter, whose path is the last argument of the program."""

import os
import re
import resource
import subprocess
import sys
import tempfile
import unittest

CONVERTER = sys.argv.pop()


def run(*arguments, **limits):
    """Returns the status and both outputs. `limits` are resource limits of the process, as in RLIMIT_AS=1000."""
    def limit():
        for name, most in limits.items():
            resource.setrlimit(getattr(resource, name), (most, most))

    done = subprocess.run([CONVERTER, *arguments], capture_output=True, timeout=120,
                          preexec_fn=limit if limits else None)
    return done.returncode, done.stdout, done.stderr


class ConverterTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = os.fsencode(folder.name)
        self.target = self.path(b'out')

    def path(self, name):
        return os.path.join(self.folder, name)

    def put(self, name, content):
        with open(self.path(name), 'wb') as file:
            file.write(content)
        return self.path(name)

    def get(self, name):
        with open(self.path(name), 'rb') as file:
            return file.read()

    def converted(self, picture):
        """Converts a picture and returns the result."""
        self.assertEqual(run('-f', '-i', self.put(b'picture', picture), self.target), (0, b'', b''))
        return self.get(b'out')

    def refused(self, source, target, path, text, **limits):
        """Expects status 1 and one line with `text`, after the name of the program and the end of the path at fault."""
        status, output, error = run('-f', '-i', source, target, **limits)
        self.assertEqual((status, output), (1, b''))
        line = rb'\Aqrk_resgenerator\.exe: /[^\n]*%b: [^\n]*%b[^\n]*\n\Z'
        self.assertRegex(error, line % (re.escape(path), re.escape(text)))

    def refuses(self, picture, text=b''):
        """Expects that a picture is refused with its path, and that the old target is removed."""
        self.put(b'out', b'stale')
        self.refused(self.put(b'picture', picture), self.target, b'/picture', text)
        self.assertNotIn(b'out', os.listdir(self.folder))


def main():
    unittest.main(verbosity=2)
