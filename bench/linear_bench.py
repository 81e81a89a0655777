#!/usr/bin/env python3
"""Running time against input size: each input is converted by
rib2zel --parse-only at two sizes, four times apart, and the processor time of
each run (user plus system, of the child alone) is printed with their ratio.
Linear time gives a ratio near 4 (a start-up cost common to both lowers it);
a ratio towards 16 means the work grows with the square of the input. See
bench/README.md."""

import argparse
import os
import subprocess
import sys
import tempfile


def lights_in_one_bucket(n):
    # Every light is filed in the bucket of light 0, which is then looked up.
    lines = ['WorldBegin\nLightSource "pointlight" 0\n']
    lines += ['LightSource "pointlight" %d\n' % (111 * (1 + i % 590)) for i in range(n)]
    return ''.join(lines) + 'Illuminate 0 1\n' * n


def parameters_of_one_request(n):
    return ('Surface "plastic" ' + '"Ka" 1 ' * n + '\nPolygon "P" [0 0 0 1 0 0 1 1 0] ' +
            '"Cs" [1 0 0 0 1 0 0 0 1] ' * n)


def binary_string_definitions(n):
    # Defines string i % 65536 in binary (0xCE, two bytes of index, 0x93:
    # a three-byte string) and uses it by its index (0xD0).
    out = bytearray()
    for i in range(n):
        hi, lo = (i % 65536) >> 8, i & 0xFF
        out += bytes([0xCE, hi, lo, 0x93]) + b'abcSurface ' + bytes([0xD0, hi, lo]) + b'\n'
    return bytes(out)


# (what, the smaller size, input of size n, read with --extended)
CASES = [
    # Each is refused with a message: the log grows by a line a request.
    ('bad requests', 100000, lambda n: 'Sphere x\n' * n, False),
    ('lights in one bucket', 25000, lights_in_one_bucket, False),
    ('nested blocks', 100000,
     lambda n: 'WorldBegin\n' + 'AttributeBegin\nTransformBegin\n' * n +
     'TransformEnd\nAttributeEnd\n' * n, False),
    ('objects', 25000,
     lambda n: 'ObjectBegin 3\nSphere 1 -1 1 360\nObjectEnd\nObjectInstance 3\n' * n, False),
    ('parameters of one request', 10000, parameters_of_one_request, False),
    ('binary string definitions', 50000, binary_string_definitions, False),
    ('plays of an inline archive', 100000,
     lambda n: 'ArchiveBegin "a" Translate 1 0 0 Sphere 1 -1 1 360 ArchiveEnd\n' +
     'ReadArchive "a"\n' * n, True),
]


def cpu_seconds(rib2zel, data, extended):
    """Converts `data` from standard input; returns the child's processor time."""
    with tempfile.TemporaryFile() as f:
        f.write(data if isinstance(data, bytes) else data.encode())
        f.seek(0)
        args = [rib2zel] + (['--extended'] if extended else []) + ['--parse-only', '-']
        child = subprocess.Popen(args, stdin=f, stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(child.pid, 0)
    code = os.waitstatus_to_exitcode(status)
    if code not in (0, 1):  # 1: the input had errors, as most of these do
        sys.exit('linear_bench: %s ended with status %d' % (' '.join(args), code))
    return usage.ru_utime + usage.ru_stime


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n\n')[0])
    parser.add_argument('--build', default=os.path.join(os.path.dirname(__file__), '..', 'build'),
                        help='build directory holding rib2zel (default build/)')
    parser.add_argument('--scale', type=float, default=1.0,
                        help='multiplies every size (default 1)')
    options = parser.parse_args()
    rib2zel = os.path.join(options.build, 'rib2zel')
    if not os.access(rib2zel, os.X_OK):
        sys.exit('linear_bench: no rib2zel in %s; build it first' % options.build)

    print('%-28s %8s %9s %9s %6s' % ('case', 'n', 'n: cpu s', '4n: cpu s', 'ratio'))
    superlinear = []
    for what, size, make, extended in CASES:
        n = max(1, int(size * options.scale))
        small = cpu_seconds(rib2zel, make(n), extended)
        large = cpu_seconds(rib2zel, make(4 * n), extended)
        print('%-28s %8d %9.2f %9.2f %6.1f' % (what, n, small, large, large / max(small, 1e-3)))
        # The slack covers the clock's granularity on small runs.
        if large > 8 * small + 0.1:
            superlinear.append(what)
    if superlinear:
        sys.exit('linear_bench: more than 8 times the time at 4 times the input: ' +
                 ', '.join(superlinear))


if __name__ == '__main__':
    main()
