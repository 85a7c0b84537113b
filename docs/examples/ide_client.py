#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Send a command to a running Morvanite and print its report, as an IDE plug-in does.

    ide_client.py load PROJECT.vcproj
    ide_client.py save PROJECT.vcproj
    ide_client.py pack PROJECT.vcproj --input APP.axf [--output FILE]
                       --resolution 240x320 --target axf|dll [--convert-images N] [--ver N]

Exit status: 0 when the report has no error line, 1 when it has, 2 when the command could not be sent or was not answered.
Python 3 and its standard library only. docs/channel.md has the protocol.
"""

import argparse
import codecs
import errno
import fcntl
import os
import re
import select
import socket
import struct
import sys

WINDOW_SOCKET = "#QRK-MORVANITE-WNDCLASS#"
PIPE_SOCKET = "QRK_Morvanite_Pipe"

LOAD, SAVE, PACK = 0xAFBDDBFB, 0xAFBDDBFC, 0xAFBDDBFD

ERROR_LINE = re.compile(r"\r\n### error (-?\d+) ###\r\n")


class ChannelError(Exception):
    """The command could not be sent, or was not answered."""


def runtime_folder():
    """The folder of the user's sockets, made when it isn't there."""
    session = os.environ.get("XDG_RUNTIME_DIR", "")
    # After su it can be another user's.
    has_session = session.startswith("/") and os.path.isdir(session) and os.stat(session).st_uid == os.geteuid()
    folder = os.environ.get("MORVANITE_RUNTIME_DIR") or (
        os.path.join(session, "morvanite") if has_session else f"/tmp/morvanite-{os.geteuid()}")
    try:
        os.mkdir(folder, 0o700)
    except FileExistsError:
        pass
    except OSError as error:
        raise ChannelError(f"{folder}: {error.strerror}") from error
    if os.path.islink(folder) or not os.path.isdir(folder) or os.stat(folder).st_uid != os.geteuid():
        raise ChannelError(f"{folder} is no folder of yours")
    if os.stat(folder).st_mode & 0o022:
        raise ChannelError(f"{folder} can be written to by others")
    return folder


def field(text, characters, name):
    """A fixed field of a record: UTF-16LE, filled up with zeros, the last character always zero."""
    units = text.encode("utf-16-le")
    if len(units) // 2 >= characters:
        raise ChannelError(f"the {name} is longer than {characters - 1} characters: {text}")
    return units.ljust(2 * characters, b"\0")


def command_record(project):
    return field(project, 260, "project path")


def pack_record(project, input_file, output_file, resolution, target, convert_images, ver):
    return (command_record(project) + field(input_file, 260, "input file") + field(output_file, 260, "output file")
            + field(resolution, 32, "resolution") + field(target, 32, "target kind")
            + struct.pack("<ii", convert_images, ver))


class ReportPipe:
    """The report pipe's socket, served for one command under the lock by which clients take turns."""

    def __init__(self, folder):
        self.path = os.path.join(folder, PIPE_SOCKET)

    def __enter__(self):
        self.lock = os.open(self.path + ".lock", os.O_RDWR | os.O_CREAT | os.O_CLOEXEC | os.O_NOFOLLOW, 0o600)
        fcntl.flock(self.lock, fcntl.LOCK_EX)
        self.remove_stale()
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(self.path)
        self.listener.listen(8)
        self.listener.setblocking(False)
        return self.listener

    def __exit__(self, *_):
        os.unlink(self.path)
        self.listener.close()
        os.close(self.lock)

    def remove_stale(self):
        """A client that was killed leaves a socket that refuses; one that answers belongs to another IDE."""
        with socket.socket(socket.AF_UNIX) as probe:
            probe.setblocking(False)
            result = probe.connect_ex(self.path)
        if result == errno.ECONNREFUSED:
            os.unlink(self.path)
        elif result != errno.ENOENT:
            os.close(self.lock)
            raise ChannelError(f"another IDE serves {self.path}")


def accept(listener):
    """The next connection to the pipe that waits; None when there is none."""
    try:
        connection, _ = listener.accept()
        return connection
    except BlockingIOError:
        return None


def collect(window, listener, show):
    """Read report and answer side by side: the tool waits when nobody reads its report."""
    answer = b""
    answering = True
    report = None
    decoder = codecs.getincrementaldecoder("utf-16-le")("replace")
    while True:
        report = report or accept(listener)
        if not answering and report is None:
            break  # the tool closes the pipe before it answers, so nothing more can come
        readable, _, _ = select.select([report or listener] + [window] * answering, [], [], None if answering else 2.0)
        if not readable:
            break
        if report in readable:
            data = report.recv(65536)
            show(decoder.decode(data, final=not data))
            if not data:
                report.close()
                report = None
        if window in readable:
            data = window.recv(4 - len(answer))
            answer += data
            answering = bool(data) and len(answer) < 4
    if len(answer) < 4:
        raise ChannelError("Morvanite ended before it answered")
    return struct.unpack("<I", answer)[0]


def send(command, record, show):
    """Send one command; `show` gets the report piece by piece. Returns the answer, which is 1."""
    folder = runtime_folder()
    with ReportPipe(folder) as listener, socket.socket(socket.AF_UNIX) as window:
        try:
            window.connect(os.path.join(folder, WINDOW_SOCKET))
            window.sendall(struct.pack("<II", command, len(record)) + record)
        except OSError as error:
            raise ChannelError(f"Morvanite is not running: {error.strerror}") from error
        return collect(window, listener, show)


def parse_arguments(arguments):
    parser = argparse.ArgumentParser(description="Send a command to a running Morvanite and print its report.")
    commands = parser.add_subparsers(dest="command", required=True)
    for name in ("load", "save", "pack"):
        commands.add_parser(name).add_argument("project", help="path of the .vcproj file")
    pack = commands.choices["pack"]
    pack.add_argument("--input", required=True, help="the application as built")
    pack.add_argument("--output", default="", help="default: the input with .pkd behind it")
    pack.add_argument("--resolution", required=True, help="such as 240x320")
    pack.add_argument("--target", required=True, choices=("axf", "dll"))
    pack.add_argument("--convert-images", type=int, default=0)
    pack.add_argument("--ver", type=int, default=0)
    return parser.parse_args(arguments)


def main():
    options = parse_arguments(sys.argv[1:])
    report = []

    def show(text):
        report.append(text)
        sys.stdout.buffer.write(text.encode("utf-8", "replace"))
        sys.stdout.buffer.flush()

    try:
        project = os.path.abspath(options.project)
        if options.command == "pack":
            output = os.path.abspath(options.output) if options.output else ""
            send(PACK, pack_record(project, os.path.abspath(options.input), output, options.resolution, options.target,
                                   options.convert_images, options.ver), show)
        else:
            send(LOAD if options.command == "load" else SAVE, command_record(project), show)
    except (ChannelError, OSError) as error:
        print(f"ide_client.py: {error}", file=sys.stderr)
        return 2
    return 1 if ERROR_LINE.search("".join(report)) else 0


if __name__ == "__main__":
    sys.exit(main())
