# SPDX-License-Identifier: MIT
"""Runs docs/examples/ide_client.py with a real "morvanite-cli serve": ide_client_test.py MORVANITE_CLI IDE_CLIENT"""

import pathlib
import socket
import struct
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "cli"))
from demo import LOADED, DemoProject  # noqa: E402

CLIENT = [sys.executable, "-B", sys.argv[2]]


class IdeClient(DemoProject):
    def client(self, *arguments):
        return self.run_program(*CLIENT, *arguments)

    def test_loads_saves_and_packs(self):
        status, _, err = self.client("load", self.project)
        self.assertEqual(status, 2)
        self.assertIn("Morvanite is not running", err)
        self.serve()
        self.assertEqual(self.client("load", self.project), (0, LOADED + "\r\n\r\nload done\r\n", ""))
        saved = (0, "[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n", "")
        self.assertEqual(self.client("save", self.project), saved)
        self.assertEqual(self.run_cli("save", self.project, "--remote"), saved)
        status, out, _ = self.client(*self.to_pack)
        self.assertTrue(out.endswith("\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n"), out)
        self.assertEqual(status, 0)
        status, out, _ = self.client(*self.to_pack, "--resolution", "240")
        self.assertEqual((status, out), (1, "\r\n\r\npack done\r\n\r\n### error 87 ###\r\n"))

    def test_a_killed_ide_does_not_block_the_server(self):
        self.serve()
        pipe = self.runtime / "QRK_Morvanite_Pipe"
        with socket.socket(socket.AF_UNIX) as listener, socket.socket(socket.AF_UNIX) as window:
            listener.bind(str(pipe))
            listener.listen(1)
            window.connect(str(self.runtime / "#QRK-MORVANITE-WNDCLASS#"))
            window.sendall(struct.pack("<II520s", 0xAFBDDBFB, 520, self.project.encode("utf-16-le")))
            listener.accept()[0].close()
        self.assertTrue(pipe.exists())
        self.assertEqual(self.client("load", self.project)[1], "\r\n\r\nload done\r\n", "it is open already")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
