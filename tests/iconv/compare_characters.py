"""Compares every character of the encodings of the Windows build's iconv with glibc's iconv.

    compare_characters.py COMMAND...

COMMAND runs iconv_table. Each character that glibc defines must have the same code point, and must be
converted back to the same bytes, except for the known deviations. Windows defines more characters,
such as controls.
"""

import ctypes
import subprocess
import sys

# Our name, and glibc's name of the encoding that Windows means by it.
ENCODINGS = {
    **{name: name for name in (
        "ASCII", "KOI8-R", "KOI8-U", "MACINTOSH", "TIS-620",
        *(f"ISO-8859-{number}" for number in (1, 2, 3, 4, 5, 6, 7, 8, 9, 13, 15)),
        *(f"CP{number}" for number in (
            437, 737, 775, 850, 852, 855, 857, 860, 861, 862, 863, 864, 865, 866, 869, 874,
            1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 932, 936, 949, 950)),
    )},
    "Shift_JIS": "CP932", "GB2312": "CP936", "GBK": "CP936", "BIG5": "CP950", "EUC-KR": "CP949",
    "EUC-JP": "EUC-JP",
}
# Where Windows deviates from glibc, by design.
DEVIATIONS = {
    "EUC-JP": [f"{byte:02x}" for byte in range(0x80, 0xA0) if byte not in (0x8E, 0x8F)],  # controls
    "KOI8-U": ["ae", "be"],  # Windows has the Belarusian letters of KOI8-RU
    "MACINTOSH": ["bd", "c6", "f0"],  # ohm and increment signs for Greek letters; no Apple logo
    "ISO-8859-7": ["a1", "a2", "a4", "a5", "aa"],  # the edition of 1987
    "ISO-8859-8": ["af", "fd", "fe"],  # the edition of 1988
    "CP864": ["25"],  # the ASCII percent sign
    # Two codes each for the same four line drawings, of which Windows prefers the other.
    **dict.fromkeys(["CP950", "BIG5"], ["a2a4", "a2a5", "a2a6", "a2a7", "f9e9", "f9ea", "f9eb",
                                        "f9f9"]),
}
UNSUPPORTED = ctypes.c_size_t(-1).value

_libc = ctypes.CDLL(None)
_libc.iconv_open.restype = ctypes.c_void_p
_libc.iconv.restype = ctypes.c_size_t


class Glibc:
    """One conversion of glibc's iconv; None where it defines none."""

    def __init__(self, to, source):
        self._state = ctypes.c_void_p(_libc.iconv_open(to.encode(), source.encode()))
        if self._state.value == UNSUPPORTED:
            raise LookupError(f"glibc has no conversion from {source} to {to}")

    def convert(self, data):
        source = ctypes.create_string_buffer(data, len(data))
        target = ctypes.create_string_buffer(16)
        source_at = ctypes.c_void_p(ctypes.addressof(source))
        target_at = ctypes.c_void_p(ctypes.addressof(target))
        left, room = ctypes.c_size_t(len(data)), ctypes.c_size_t(16)
        _libc.iconv(self._state, None, None, None, None)
        done = _libc.iconv(self._state, ctypes.byref(source_at), ctypes.byref(left),
                           ctypes.byref(target_at), ctypes.byref(room))
        # Some encodings hold a character back, in case a combining one follows.
        _libc.iconv(self._state, None, None, ctypes.byref(target_at), ctypes.byref(room))
        return target.raw[:16 - room.value] if done == 0 and left.value == 0 else None


def reference(name):
    """Bytes and code point of each character that glibc defines, and the bytes it converts back to."""
    decoder, encoder = Glibc("UTF-32BE", name), Glibc(name, "UTF-32BE")
    for first in range(0x100):
        single = decoder.convert(bytes([first]))
        sequences = [bytes([first])] if single else [
            bytes([first, second]) for second in range(0x100)]
        for sequence in sequences:
            character = decoder.convert(sequence)
            if character and len(character) == 4:
                yield sequence, character, encoder.convert(character)


def main(command):
    run = subprocess.run([*command, *ENCODINGS], capture_output=True, text=True)
    if run.returncode != 0:
        print(run.stdout, run.stderr, sep="\n")
        return run.returncode
    ours, unknown = {}, []
    for line in run.stdout.splitlines():
        name, *fields = line.split()
        if fields == ["unknown"]:
            unknown.append(name)
        elif len(fields) == 3:
            ours[name, bytes.fromhex(fields[0])] = (int(fields[1], 16), fields[2])
    compared, faults = 0, [f"{name} is unknown" for name in unknown]
    for name in ENCODINGS:
        if name in unknown:
            continue
        for sequence, character, encoded in reference(ENCODINGS[name]):
            wanted = (int.from_bytes(character, "big"), encoded.hex().upper() if encoded else "-")
            found = ours.get((name, sequence))
            compared += 1
            if (found == wanted) == (sequence.hex() in DEVIATIONS.get(name, ())):
                faults.append(f"{name} {sequence.hex()}: {found}, glibc: {wanted}")
    for fault in faults:
        print(fault)
    print(f"{compared} characters of {len(ENCODINGS)} encodings compared, {len(faults)} differ")
    return 1 if faults or not compared else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
