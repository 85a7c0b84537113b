"""Runs docs/examples/ide_client.py against a real "morvanite-cli serve": ide_client_test.py MORVANITE_CLI IDE_CLIENT"""

import os
import pathlib
import select
import signal
import socket
import stat
import struct
import subprocess
import sys
import tempfile
import unittest

CLI, CLIENT = (os.path.abspath(path) for path in sys.argv[1:3])

CONFIG = """<config><zxa><zepversion>20</zepversion></zxa>
<resolution><Width>240</Width><Height>320</Height></resolution></config>"""
RESOURCES = '<APP><FILE id="ID_AUDIO_BELL">.\\bell.wav</FILE></APP>'


def tiny_elf():
    """A 32-bit little-endian ELF file for ARM with nothing but the names of its sections."""
    header = b"\x7fELF\1\1\1".ljust(16, b"\0") + struct.pack("<HHIIIIIHHHHHH", 2, 40, 1, 0, 0, 64, 0x05000000,
                                                             52, 32, 0, 40, 2, 1)
    return header + b"\0.shstrtab\0\0" + bytes(40) + struct.pack("<10I", 1, 3, 0, 0, 52, 11, 0, 0, 1, 0)


class IdeClient(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.top = pathlib.Path(holder.name)
        self.runtime = self.top / "run"
        self.environment = dict(os.environ, MORVANITE_RUNTIME_DIR=str(self.runtime))
        (self.top / "demo" / "res").mkdir(parents=True)
        (self.top / "demo" / "arm").mkdir()
        self.project = self.top / "demo" / "demo.vcproj"
        (self.top / "demo" / "config.xml").write_text(CONFIG)
        (self.top / "demo" / "bell.wav").write_text("ding dong")
        (self.top / "demo" / "res" / "demo.res.xml").write_text(RESOURCES)
        self.axf = self.top / "demo" / "app.axf"
        self.axf.write_bytes(tiny_elf())

    def serve(self):
        """Starts the server, and waits until its socket is there."""
        server = subprocess.Popen([CLI, "serve"], env=self.environment, stdin=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)
        while server.poll() is None:
            with socket.socket(socket.AF_UNIX) as probe:
                if probe.connect_ex(str(self.runtime / "#QRK-MORVANITE-WNDCLASS#")) == 0:
                    return server
            select.select([], [], [], 0.01)
        self.fail(f"serve ended with {server.returncode}")

    def client(self, *arguments, expected=0):
        result = subprocess.run([sys.executable, "-B", CLIENT, *map(str, arguments)], env=self.environment,
                                capture_output=True, timeout=60)
        self.assertEqual((result.returncode, result.stderr if expected != 2 else b""), (expected, b""), result.stdout)
        return result.stdout.decode() if expected != 2 else result.stderr.decode()

    def test_load_save_and_pack(self):
        server = self.serve()
        report = self.client("load", self.project)
        self.assertTrue(report.startswith("Loading resource from \""), report)
        self.assertTrue(report.endswith("0 error(s), 0 warning(s)\r\n\r\n\r\nload done\r\n"), report)

        report = self.client("save", self.project)
        self.assertTrue(report.endswith("\r\n\r\nsave done\r\n"), report)
        self.assertIn("ID_AUDIO_BELL", (self.top / "demo" / "ResID" / "ResID.h").read_text())

        report = self.client("pack", self.project, "--input", self.axf, "--resolution", "240x320", "--target", "axf")
        self.assertTrue(report.startswith("\r\npack resource started\r\n"), report)
        self.assertTrue(report.endswith("\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n"), report)
        self.assertIn(b"ding dong", (self.top / "demo" / "app.axf.pkd").read_bytes())
        self.assertIn(b"ding dong", (self.top / "demo" / "arm" / "app.res").read_bytes())

        server.send_signal(signal.SIGTERM)
        self.assertEqual(server.wait(30), 0)
        self.assertEqual([path.name for path in self.runtime.iterdir() if stat.S_ISSOCK(path.lstat().st_mode)], [])

    def test_errors_of_the_report_give_status_1(self):
        self.serve()
        report = self.client("load", self.top / "none.vcproj", expected=1)
        self.assertEqual(report, "\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n")
        report = self.client("pack", self.project, "--input", self.axf, "--resolution", "240", "--target", "dll", expected=1)
        self.assertTrue(report.endswith("\r\n\r\npack done\r\n\r\n### error 87 ###\r\n"), report)

    def test_the_command_line_gets_the_same_report(self):
        self.serve()
        self.client("load", self.project)
        again = subprocess.run([CLI, "save", "--remote", self.project], env=self.environment, capture_output=True, timeout=60)
        self.assertEqual((again.returncode, again.stderr), (0, b""))
        self.assertEqual(again.stdout.decode(), self.client("save", self.project))

    def test_without_a_server_says_so(self):
        self.assertIn("Morvanite isn't running", self.client("load", self.project, expected=2))

    def test_an_ide_that_is_killed_in_the_middle_stops_nobody(self):
        self.serve()
        pipe = self.runtime / "QRK_Morvanite_Pipe"
        with socket.socket(socket.AF_UNIX) as listener, socket.socket(socket.AF_UNIX) as window:
            listener.bind(str(pipe))
            listener.listen(1)
            window.connect(str(self.runtime / "#QRK-MORVANITE-WNDCLASS#"))
            record = str(self.project).encode("utf-16-le").ljust(520, b"\0")
            window.sendall(struct.pack("<II", 0xAFBDDBFB, len(record)) + record)
            listener.accept()[0].close()
        self.assertTrue(pipe.exists())
        self.assertEqual(self.client("load", self.project), "\r\n\r\nload done\r\n")  # is open already

    def test_many_clients_at_once_get_their_own_reports(self):
        self.serve()
        clients = [subprocess.Popen([sys.executable, "-B", CLIENT, "load", str(self.top / f"none{i}.vcproj")],
                                    env=self.environment, stdout=subprocess.PIPE) for i in range(16)]
        for client in clients:
            self.assertEqual(client.communicate(timeout=60)[0],
                             b"\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n")
            self.assertEqual(client.returncode, 1)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
