"""Writes what a linker makes of an import library, as assembler for the device's processor.

    stubs_of_import_library.py LIBRARY STUBS.S [FUNCTION,... FILE]

No linker of this system reads the device's object files. Per member of the library that names a
function: a stub to call, and a word for the loader under the file and the name that the member gives.
FUNCTION,... FILE adds functions of another file, which has no import library here. As everywhere in the
device's image, the words of the directory hold absolute addresses and the image writer takes the base
off them (src/platform/wince/Imports.S).
"""

import struct
import sys

ARM = 0x01C0
HEADER = struct.Struct("<HHHHIIHH")
BY_NUMBER, AS_IT_STANDS = 0, 1  # how a member says what the loader looks for


class BadLibrary(Exception):
    """The library is not one that a linker would take."""


def members_of(library):
    if library[:8] != b"!<arch>\n":
        raise BadLibrary("no archive")
    at = 8
    while at < len(library):
        size = int(library[at + 48 : at + 58])
        yield library[at + 60 : at + 60 + size]
        at += 60 + size + size % 2


def function_of(member):
    """The symbol of a member, the file that has it, and its name there; None for other members."""
    first, second, _, machine, _, size, _, kind = HEADER.unpack_from(member)
    if (first, second) != (0, 0xFFFF):
        return None
    symbol, file, rest = member[HEADER.size :].split(b"\0", 2)
    if machine != ARM or rest or size != len(member) - HEADER.size:
        raise BadLibrary(f"member of {symbol!r}: machine {machine:#x}, {size} bytes")
    if kind & 3 or kind >> 2 != AS_IT_STANDS:
        raise BadLibrary(f"{symbol!r} is no function that is found by its name")
    return symbol.decode("ascii"), file.decode("ascii")


def stub(symbol):
    return f"""
    .section .idata$4, "aw", %progbits
    .long hint_{symbol}
    .section .idata$5, "aw", %progbits
address_{symbol}:
    .long hint_{symbol}
    .section .idata$6, "aw", %progbits
    .balign 2
hint_{symbol}:
    .short 0
    .asciz "{symbol}"
    .section .text.import_{symbol}, "ax", %progbits
    .global {symbol}
    .type {symbol}, %function
{symbol}:
    ldr ip, 1f
    ldr ip, [ip]
    JUMP ip
1:  .long address_{symbol}
    .size {symbol}, . - {symbol}
"""


def directory(files):
    """The descriptors of the files, then what each of them is asked for."""
    text = ".syntax unified\n.arm\n"
    for number, file in enumerate(files):
        text += f"""
    .section .idata$2, "aw", %progbits
    .long names_{number}, 0, 0, file_{number}, addresses_{number}
    .section .idata$7, "aw", %progbits
file_{number}:
    .asciz "{file}"
"""
    text += '\n    .section .idata$2, "aw", %progbits\n    .long 0, 0, 0, 0, 0\n'
    for number, symbols in enumerate(files.values()):
        text += f'\n    .section .idata$4, "aw", %progbits\nnames_{number}:\n'
        text += f'    .section .idata$5, "aw", %progbits\naddresses_{number}:\n'
        text += "".join(map(stub, symbols))
        text += '    .section .idata$4, "aw", %progbits\n    .long 0\n'
        text += '    .section .idata$5, "aw", %progbits\n    .long 0\n'
    return text + '    .section .note.GNU-stack, "", %progbits\n'


def main():
    files = {}
    with open(sys.argv[1], "rb") as library:
        for symbol, file in filter(None, map(function_of, members_of(library.read()))):
            files.setdefault(file, []).append(symbol)
    if not files:
        raise BadLibrary("names no function")
    for symbols, file in zip(sys.argv[3::2], sys.argv[4::2]):
        files[file] = symbols.split(",")
    with open(sys.argv[2], "w", encoding="ascii") as stubs:
        stubs.write(directory(files))


if __name__ == "__main__":
    main()
