#!/usr/bin/env python3
"""Memory against hostile input: sizes that an input names or builds up, and
what they may cost. A count in the input never makes rib2zel allocate more
than the input supplies, a token of 100 MB is read in a fixed amount, a
million nested blocks or light handles cost memory in proportion at most, and
names beyond the scene library's codes are not kept. Each input is streamed
into rib2zel's standard input; the peak resident memory of the run above that
of an empty conversion is printed and held to the case's bound. See
bench/README.md."""

import argparse
import ctypes
import os
import resource
import subprocess
import sys
import tempfile
import threading

KB_PER_MB = 1024  # ru_maxrss is in KB
# What an empty conversion's peak varies by from run to run.
NOISE_KB = 1 * KB_PER_MB
CHUNK = 1 << 16
PARSE_ONLY = ['--parse-only', '-']
SUCCESS = ['Success.']
PR_SET_CHILD_SUBREAPER = 36


def chunks(pieces):
    """Joins an iterable of str or bytes into writes of about CHUNK bytes."""
    buffer, size = [], 0
    for piece in pieces:
        data = piece.encode('latin-1') if isinstance(piece, str) else piece
        buffer.append(data)
        size += len(data)
        if size >= CHUNK:
            yield b''.join(buffer)
            buffer, size = [], 0
    if buffer:
        yield b''.join(buffer)


def repeat(piece, times):
    for _ in range(times):
        yield piece


def world(*pieces):
    """The pieces between WorldBegin and WorldEnd."""
    yield 'WorldBegin\n'
    for piece in pieces:
        yield from ([piece] if isinstance(piece, (str, bytes)) else piece)
    yield 'WorldEnd\n'


def string_definitions(first):
    # 100,000 binary definitions (0xCE, two bytes of index, 0x93: a string of
    # three bytes) that cycle through 4,096 indices from `first` upwards.
    for i in range(100000):
        index = first + i % 4096
        yield bytes([0xCE, index >> 8, index & 0xFF, 0x93]) + b'abc'


def long_token(before, block, after):
    """A token of 100 MB (`block` repeated), then a world with a sphere."""
    yield before
    yield from repeat(block * 16, (100 << 20) // (16 * len(block)))
    yield after + '\nWorldBegin\nSphere 1 -1 1 360\nWorldEnd\n'


def new_names(n):
    yield 'WorldBegin\n'
    for i in range(n):
        yield 'Surface "s%d"\n' % i


# Each input names a size of about two thousand million, or the largest its
# field can hold, and supplies a few bytes of it.
COUNTS = [
    ('binary float array of 2^32-1 floats',
     b'ConcatTransform \xCB\xFF\xFF\xFF\xFF\x3F\x80\x00\x00\n'),
    ('binary string of 2^32-1 bytes', b'Surface \xA3\xFF\xFF\xFF\xFFabc'),
    ('request code 255', b'\xCC\xFFWorldBegin \xA6\xFF\n'),
    ('array with a stated length',
     'ColorSamples 2000000000 [1 0 0] [0 1 0]\nColor [1 2 3]\n'
     'Basis "bezier" 2000000000 "bezier" 2000000000\n'),
    ('vertex index', 'PointsPolygons [3] [0 1 2000000000] "P" [0 0 0 1 0 0 1 1 0]\n'),
    ('vertex count', 'PointsPolygons [2000000000] [0 1 2] "P" [0 0 0 1 0 0 1 1 0]\n'),
    ('loop count', 'PointsGeneralPolygons [2000000000] [3] [0 1 2] "P" [0 0 0]\n'
     'GeneralPolygon [2000000000] "P" [0 0 0]\n'),
    ('patch mesh nu and nv',
     'PatchMesh "bilinear" 2000000000 "nonperiodic" 2000000000 "nonperiodic" "P" [0 0 0]\n'
     'PatchMesh "bicubic" 65536 "periodic" 65536 "periodic" "P" [0 0 0]\n'),
    ('NURBS patch and trim curve counts',
     'NuPatch 2000000000 2 [0 0 1 1] 0 1 2 2 [0 0 1 1] 0 1 "Pw" [0 0 0 1]\n'
     'TrimCurve [2000000000] [2] [0 0 1 1] [0] [1] [2] [0 1] [0 1] [1 1]\n'),
    ('light and object numbers',
     'LightSource "pointlight" 2000000000\nIlluminate 2000000000 1\n'
     'ObjectBegin 2000000000\nObjectEnd\nObjectInstance 2000000000\n'),
    ('image size', 'Format 2000000000 2000000000 1\nPixelSamples 2000000000 2000000000\n'),
]


def case(what, make, bound_kb=NOISE_KB, status=(0,), err=None, **more):
    """`make` returns the input's pieces; `status` the exit statuses allowed
    and `err` the whole standard error expected, by lines (None: either goes
    unchecked, as does the peak under `bound_kb` None). `relative_to` names an earlier case whose growth is
    added to the bound; `first_err` and `err_lines` check the first line and
    the count of lines of a long standard error; `data_limit` is RLIMIT_DATA
    in bytes; `output_has` makes the child write a scene file that must hold
    that text (else the scene goes to standard output, discarded)."""
    return dict(what=what, make=make, bound_kb=bound_kb, status=status, err=err, **more)


def cases():
    depth, lights = 1000000, 1000000
    out = [case(what, lambda piece=piece: world(piece), status=(0, 1)) for what, piece in COUNTS]
    out += [
        # The string index has 16 bits. Indices defined far past the highest
        # so far are kept aside, so a high index costs what a low one does.
        case('string index 65535', lambda: [b'\xCE\xFF\xFF\x93abcSurface \xD0\xFF\xFF\n']),
        case('100,000 definitions of the lowest 4,096', lambda: string_definitions(0),
             bound_kb=None),
        case('100,000 definitions of the highest 4,096', lambda: string_definitions(65535 - 4095),
             relative_to='100,000 definitions of the lowest 4,096'),
        # A token keeps at most 64 KB of its text: a string reaches the Ri
        # layer cut short, a keyword is undefined, a number has the value of
        # its whole text; the requests behind them run.
        case('a string of 100 MB', lambda: long_token('Surface "', 'a' * 4096, '"'), err=SUCCESS),
        case('a keyword of 100 MB', lambda: long_token('', 'K' * 4096, ''), status=(1,),
             err=['RIB error: undefined RIB request at line 1',
                  'There are warning/error messages.']),
        case('a number of 100 MB', lambda: long_token('Sphere 1 -1 0.', '0' * 4096, '1 360'),
             err=SUCCESS),
        # A level may cost a few bytes of bookkeeping, never a copy of the state.
        case('a million nested AttributeBegin',
             lambda: world(repeat('AttributeBegin\n', depth), 'Sphere 1 -1 1 360\n',
                           repeat('AttributeEnd\n', depth)),
             bound_kb=16 * depth // 1024 + NOISE_KB, err=SUCCESS),
        # Numbers run to 65,535, so the tables hold at most that many entries
        # (a number used again takes its new handle in place), at a few dozen
        # bytes each; the scene library keeps only a count.
        case('a million light handles',
             lambda: world(('LightSource "pointlight" %d\n' % (i % 65536) for i in range(lights)),
                           'Illuminate 1 1\n'),
             bound_kb=128 * 65536 // 1024 + NOISE_KB, err=SUCCESS),
        # With the free store limited to less than the token's length, only
        # the token's first 65,535 bytes are kept, so the whole file converts.
        case('a string of 100 MB in 64 MB of data',
             lambda: long_token('Surface "', 'a' * 4096, '"'), bound_kb=None, err=SUCCESS,
             data_limit=64 << 20, output_has='{"op":"SphereV"'),
        # The library has 61,184 codes; a name beyond them is told about and
        # kept nowhere, so a stream of new names cannot grow the dictionary.
        case('62,000 new names', lambda: new_names(62000), bound_kb=None, status=None),
        case('92,000 new names', lambda: new_names(92000), relative_to='62,000 new names',
             first_err='ZEL error: no code left for the name "s61184": all 61184 codes are in use',
             err_lines=92000 - 61184 + 1),
    ]
    return out


def feed(pipe, pieces, written):
    """Writes the input, counting its bytes in written[0]; a child that has
    stopped reading ends it quietly."""
    try:
        for data in chunks(pieces):
            pipe.write(data)
            written[0] += len(data)
    except BrokenPipeError:
        pass
    finally:
        try:
            pipe.close()
        except BrokenPipeError:
            pass


def run(rib2zel, pieces, limit=0, scene=None):
    """Runs rib2zel on the input: (exit status, peak KB, cpu s, input bytes,
    lines of standard error). `limit` is RLIMIT_DATA in bytes, 0 for none;
    the scene goes to `scene`, or to standard output, discarded.

    The peak that wait4 reports for a child includes the peak of the process
    it was forked from, and this one is larger than an empty conversion. So
    setsid forks the conversion from its own small process and leaves it to
    this one, the subreaper, which collects its rusage alone."""
    preexec = (lambda: resource.setrlimit(resource.RLIMIT_DATA, (limit, limit))) if limit else None
    args = ['-', scene] if scene else PARSE_ONLY
    try:
        starter = subprocess.Popen(['setsid', '--fork', rib2zel] + args, stdin=subprocess.PIPE,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                   preexec_fn=preexec)
    except FileNotFoundError:
        sys.exit('hostile_memory: setsid (util-linux) is needed to start the conversions')
    _, status, _ = os.wait4(starter.pid, 0)
    starter.returncode = os.waitstatus_to_exitcode(status)
    if starter.returncode != 0:
        sys.exit('hostile_memory: setsid could not start %s' % rib2zel)
    written = [0]
    writer = threading.Thread(target=feed, args=(starter.stdin, pieces, written))
    writer.start()
    err = starter.stderr.read()
    starter.stderr.close()
    writer.join()
    _, status, usage = os.wait4(-1, 0)
    code = os.waitstatus_to_exitcode(status)
    code = code if code >= 0 else 128 - code
    return (code, usage.ru_maxrss, usage.ru_utime + usage.ru_stime, written[0],
            err.decode('latin-1').splitlines())


def faults(c, status, err, growth, bound, scene):
    """What differs from the case's expectations, as messages."""
    found = []
    if c['status'] is not None and status not in c['status']:
        found.append('exit status %d, expected %s' % (status, ' or '.join(map(str, c['status']))))
    if c['err'] is not None and err != c['err']:
        found.append('standard error %r, expected %r' % (err[:5], c['err']))
    if 'first_err' in c and err[:1] != [c['first_err']]:
        found.append('first line of standard error %r, expected %r' % (err[:1], c['first_err']))
    if 'err_lines' in c and len(err) != c['err_lines']:
        found.append('%d lines of standard error, expected %d' % (len(err), c['err_lines']))
    if bound is not None and growth > bound:
        found.append('peak growth %d KB above its bound of %d KB' % (growth, bound))
    if 'output_has' in c:
        text = ''
        if os.path.exists(scene):
            with open(scene, encoding='latin-1') as f:
                text = f.read()
        if c['output_has'] not in text:
            found.append('no %s in the scene file' % c['output_has'])
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n\n')[0])
    parser.add_argument('--build', default=os.path.join(os.path.dirname(__file__), '..', 'build'),
                        help='build directory holding rib2zel (default build/)')
    parser.add_argument('--rib2zel', help='the rib2zel to run (default BUILD/rib2zel)')
    options = parser.parse_args()
    sys.stdout.reconfigure(line_buffering=True)  # the lines before the verdict
    rib2zel = options.rib2zel or os.path.join(options.build, 'rib2zel')
    if not os.access(rib2zel, os.X_OK):
        sys.exit('hostile_memory: no rib2zel at %s; build it first' % rib2zel)
    libc = ctypes.CDLL(None, use_errno=True)
    if libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0:
        sys.exit('hostile_memory: cannot collect the conversions: %s' %
                 os.strerror(ctypes.get_errno()))

    baseline = run(rib2zel, [])[1]
    print('empty conversion: peak %d KB' % baseline)
    print('%-40s %11s %10s %10s %6s' % ('case', 'input KB', 'growth KB', 'bound KB', 'cpu s'))
    growths, failed = {}, {}
    with tempfile.TemporaryDirectory() as work:
        for c in cases():
            scene = os.path.join(work, 'out.zel') if 'output_has' in c else None
            status, peak, cpu, size, err = run(rib2zel, c['make'](), c.get('data_limit', 0), scene)
            growth = growths[c['what']] = peak - baseline
            bound = c['bound_kb']
            if bound is not None and 'relative_to' in c:
                bound += growths[c['relative_to']]
            print('%-40s %11.1f %10d %10s %6.2f' % (c['what'], size / 1024, growth,
                                                    '-' if bound is None else bound, cpu))
            for fault in faults(c, status, err, growth, bound, scene):
                print('  FAIL %s: %s' % (c['what'], fault))
                failed[c['what']] = True
    if failed:
        sys.exit('hostile_memory: %d of the cases failed: %s' % (len(failed), ', '.join(failed)))


if __name__ == '__main__':
    main()
