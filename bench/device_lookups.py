# SPDX-License-Identifier: MIT
"""Counts the instructions of look-ups on a Cortex-M0, under emulation."""

import os
import subprocess
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
DEVICE = os.path.join(HERE, '..', 'device')
ARM = 'arm-linux-gnueabihf-'
COMPILE = [ARM + 'gcc', '-std=c99', '-mthumb', '-mcpu=cortex-m0', '-mfloat-abi=soft', '-Os', '-ffreestanding', '-nostdlib',
           '-static', '-Wall', '-Wextra', '-Werror']


def between_marks(sources, data, keys):
    """Compiles the sources with the bytes of `data` and with the (number, name) pairs of `keys`, and runs them. Returns the
    number of instructions from each `mark_begin` to the next `mark_end`."""
    with tempfile.TemporaryDirectory() as work:
        program, trace, blob = (os.path.join(work, name) for name in ('program', 'trace', 'data.S'))
        with open(os.path.join(work, 'keys.h'), 'w') as out:
            out.writelines('{%d, "%s"},\n' % key for key in keys)
        with open(blob, 'w') as out:
            out.write('.section .note.GNU-stack,"",%%progbits\n.section .rodata\n.balign 4\n.global data_begin, data_end\n'
                      'data_begin: .incbin "%s"\ndata_end:\n' % os.path.abspath(data))
        subprocess.run(COMPILE + ['-I' + work, '-I' + DEVICE, '-o', program, blob] + sources, check=True)
        symbols = subprocess.run([ARM + 'nm', program], check=True, capture_output=True, text=True).stdout
        marks = {name: int(address, 16) for address, _, name in (line.split() for line in symbols.splitlines())
                 if name.startswith('mark_')}
        # One instruction makes a block, and each block that is run is a line of the trace.
        subprocess.run(['qemu-arm', '-singlestep', '-d', 'exec,nochain', '-D', trace, program], check=True)
        return count(trace, marks['mark_begin'], marks['mark_end'])


def count(trace, begin, end):
    counts, running = [], None
    with open(trace) as lines:
        for line in lines:
            if not line.startswith('Trace '):
                continue
            address = int(line.split('/')[1], 16)
            if address == begin:
                running = 0
            elif address == end:
                counts.append(running)
                running = None
            elif running is not None:
                running += 1
    return counts


def of_payload(payload, keys):
    """Returns the mean of the instructions of a look-up in language 0 when it is open, and when it isn't."""
    _, *lookups = between_marks([os.path.join(HERE, 'device_lookup.c'), os.path.join(DEVICE, 'morvanite_device.c')],
                                      payload, keys)
    return sum(lookups[::2]) / len(keys), sum(lookups[1::2]) / len(keys)


def of_mo(mo, keys):
    """Returns the mean of the instructions of a look-up."""
    lookups = between_marks([os.path.join(HERE, 'peer_mo.c')], mo, keys)
    return sum(lookups) / len(lookups)
