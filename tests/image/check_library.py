"""Checks a library file with an independent reader, before anything of it is executed.

    check_library.py device|device-armv4t|windows FOLDER

FOLDER is what scripts/lib/build-dlls made for that target. Prints one line per thing that is wrong.
"""

import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

try:
    import pefile
except ImportError:
    print("SKIPPED: python3-pefile is not installed")
    sys.exit(0)

MACHINES = {"device": 0x01C0, "device-armv4t": 0x01C0, "windows": 0x014C}
SUBSYSTEMS = {"device": 9, "device-armv4t": 9, "windows": (2, 3)}
# The system that the file asks for at least, as (system version, subsystem version).
SYSTEMS = {
    "device": ((4, 10), (4, 10)),
    "device-armv4t": ((4, 10), (4, 10)),
    "windows": ((4, 0), (4, 0)),
}
# Executable, no line numbers or local symbols, 32 bits, a library; the desktop's without debugging.
CHARACTERISTICS = {"device": 0x210E, "device-armv4t": 0x210E, "windows": 0x230E}
# The desktop's may lie anywhere, and its data never runs; the device's system knows of neither.
DLL_CHARACTERISTICS = {"device": 0, "device-armv4t": 0, "windows": 0x140}
IMAGE_BASE = 0x10000000
ORDINALS = {"CreateMixAlgorithm": 1, "DeleteMixAlgorithm": 2}
# By their numbers: exports, imports, resources, functions, fixups, and addresses of imports.
DIRECTORIES = {
    "device": {0, 1, 2, 3, 5},
    "device-armv4t": {0, 1, 2, 3, 5},
    "windows": {0, 1, 2, 5, 12},
}
FUNCTIONS = 3

REGISTRY = {
    "RegOpenKeyExW",
    "RegCreateKeyExW",
    "RegQueryValueExW",
    "RegSetValueExW",
    "RegCloseKey",
}
MANAGER = {"WFMAllocateBuffer", "WFMAllocateMore"}
# What the device's system library is known to export, as far as the module may use it.
DEVICE_SYSTEM = REGISTRY | {"EventModify", "malloc", "free", "memset", "memcpy"}
C_RUNTIME = {"malloc", "free", "memset", "memcpy", "memcmp", "strlen", "_purecall"}
IMPORTS = {
    "device": {"coredll.dll": DEVICE_SYSTEM, "msxfs.dll": MANAGER},
    "device-armv4t": {"coredll.dll": DEVICE_SYSTEM, "msxfs.dll": MANAGER},
    "windows": {
        "advapi32.dll": REGISTRY,
        "kernel32.dll": {"SetEvent"},
        "msvcrt.dll": C_RUNTIME,
        "msxfs.dll": MANAGER,
    },
}
REQUIRED = REGISTRY | MANAGER | {"malloc", "free"}

# Everything that ARMv4 has and compilers use; the system's own instructions are left out.
CONDITIONS = "(eq|ne|cs|hs|cc|lo|mi|pl|vs|vc|hi|ls|ge|lt|gt|le|al)?"
ARMV4 = re.compile(
    "("
    f"(and|eor|sub|rsb|add|adc|sbc|rsc|orr|mov|bic|mvn|lsl|lsr|asr|ror|rrx|neg)s?{CONDITIONS}"
    f"|(tst|teq|cmp|cmn){CONDITIONS}"
    f"|(mul|mla|umull|umlal|smull|smlal)s?{CONDITIONS}"
    f"|(ldr|str)(b|h|sb|sh)?{CONDITIONS}"
    f"|(ldm|stm)(ia|ib|da|db|fd|ed|fa|ea)?{CONDITIONS}"
    f"|(push|pop|b|bl|nop){CONDITIONS}"
    ")"
)
ARMV4T = re.compile(f"bx{CONDITIONS}")

MOST_TO_FORWARD = 16

WRITABLE_CODE = 0xA0000000  # executable and writable
DISCARDABLE = 0x02000000

failures = []


def expect(condition, complaint):
    if not condition:
        failures.append(complaint)


def check_headers(library, target):
    header = library.OPTIONAL_HEADER
    expect(library.get_warnings() == [], f"the reader warns: {library.get_warnings()}")
    expect(library.FILE_HEADER.Machine == MACHINES[target], "machine")
    subsystems = SUBSYSTEMS[target]
    expect(
        header.Subsystem in (subsystems if isinstance(subsystems, tuple) else (subsystems,)),
        f"subsystem {header.Subsystem}",
    )
    expect(library.is_dll(), "not marked as a library")
    expect(library.FILE_HEADER.TimeDateStamp == 0, "a time stamp")
    expect(library.verify_checksum(), "checksum")
    expect(header.SectionAlignment == 0x1000, "alignment of sections")
    versions = (
        (header.MajorOperatingSystemVersion, header.MinorOperatingSystemVersion),
        (header.MajorSubsystemVersion, header.MinorSubsystemVersion),
    )
    expect(versions == SYSTEMS[target], f"needs versions {versions} of the system")
    characteristics = library.FILE_HEADER.Characteristics
    expect(characteristics == CHARACTERISTICS[target], f"characteristics {characteristics:#x}")
    characteristics = header.DllCharacteristics
    expect(characteristics == DLL_CHARACTERISTICS[target], f"of a library {characteristics:#x}")
    expect(header.ImageBase == IMAGE_BASE, f"base {header.ImageBase:#x}")
    entry = library.get_section_by_rva(header.AddressOfEntryPoint)
    expect(entry is not None and entry.Name.startswith(b".text"), "the entry point is no code")
    found = {number for number, entry in enumerate(header.DATA_DIRECTORY) if entry.Size}
    expect(found == DIRECTORIES[target], f"directories {sorted(found)}")


def check_sections(library):
    end = library.OPTIONAL_HEADER.SizeOfHeaders
    for section in library.sections:
        name = section.Name.rstrip(b"\0").decode()
        expect(section.Characteristics & WRITABLE_CODE != WRITABLE_CODE, f"writable code in {name}")
        expect(section.VirtualAddress >= end, f"{name} overlaps the section before it")
        end = section.VirtualAddress + section.Misc_VirtualSize
    expect(end <= library.OPTIONAL_HEADER.SizeOfImage, "sections behind the end of the image")


def check_exports(library):
    directory = library.DIRECTORY_ENTRY_EXPORT
    exported = {symbol.name.decode(): symbol.address for symbol in directory.symbols}
    expect(set(exported) == {"CreateMixAlgorithm", "DeleteMixAlgorithm"}, f"exports {exported}")
    ordinals = {symbol.name.decode(): symbol.ordinal for symbol in directory.symbols}
    expect(ordinals == ORDINALS, f"ordinals {ordinals}")
    expect(directory.name == b"QXMIX.dll", "name in the export directory")
    for name, address in exported.items():
        section = library.get_section_by_rva(address)
        expect(section.Name.startswith(b".text"), f"{name} is no code")


def check_imports(library, target):
    everything = set()
    for entry in library.DIRECTORY_ENTRY_IMPORT:
        file = entry.dll.decode().lower()
        names = {function.name.decode() if function.name else "?" for function in entry.imports}
        everything |= names
        expect(file in IMPORTS[target], f"imports from {file}")
        surplus = names - IMPORTS[target].get(file, set())
        expect(not surplus, f"imports {sorted(surplus)} from {file}")
    expect(REQUIRED <= everything, f"does not import {sorted(REQUIRED - everything)}")


def check_fixups(library):
    places = []
    for block in library.DIRECTORY_ENTRY_BASERELOC:
        for entry in block.entries:
            expect(entry.type in (0, 3), f"fixup of type {entry.type}")
            if entry.type == 3:
                places.append(entry.rva)
    expect(places, "no fixups")
    expect(places == sorted(set(places)), "fixups out of order, or twice")
    base = library.OPTIONAL_HEADER.ImageBase
    for place in places:
        target = library.get_dword_at_rva(place) - base
        expect(library.get_section_by_rva(target) is not None, f"fixup at {place:#x} points nowhere")


def check_functions(library, saving):
    """Holds the table of functions to the places where the code saves its return address."""
    directory = library.OPTIONAL_HEADER.DATA_DIRECTORY[FUNCTIONS]
    expect(directory.Size % 8 == 0, f"a table of functions of {directory.Size} bytes")
    if directory.Size == 0:
        return  # the reader would take it for the whole file
    table = library.get_data(directory.VirtualAddress, directory.Size)
    moving = {
        entry.rva
        for block in library.DIRECTORY_ENTRY_BASERELOC
        for entry in block.entries
        if entry.type == 3
    }
    starts = []
    for number, (start, packed) in enumerate(struct.iter_unpack("<II", table)):
        starts.append(start)
        prolog, length = packed & 0xFF, packed >> 8 & 0x3FFFFF
        expect(1 <= prolog < length, f"function at {start:#x}: prolog {prolog} of {length}")
        expect(packed >> 30 == 1, f"function at {start:#x}: flags {packed >> 30}")
        expect(directory.VirtualAddress + 8 * number in moving, f"{start:#x} does not move")
    expect(starts == sorted(set(starts)), "functions out of order, or twice")
    # Room for arguments stands before what is saved.
    covered = [start if start in saving else start + 4 for start in starts]
    expect(covered == saving, f"no entry, or one too many: {set(covered) ^ set(saving)}")


def check_version(library):
    fixed = library.VS_FIXEDFILEINFO[0]
    file_version = (fixed.FileVersionMS, fixed.FileVersionLS)
    product_version = (fixed.ProductVersionMS, fixed.ProductVersionLS)
    expect(file_version == (6 << 16, 2 << 16), f"file version {file_version}")
    expect(product_version == (6 << 16, 2 << 16), f"product version {product_version}")
    texts = {}
    for part in library.FileInfo[0]:
        for table in getattr(part, "StringTable", []):
            texts.update(table.entries)
    expect(texts.get(b"InternalName") == b"QXMix", f"internal name {texts.get(b'InternalName')}")
    for name in (b"FileVersion", b"ProductVersion"):
        expect(texts.get(name) == b"V 06.00.02", f"{name.decode()} {texts.get(name)}")


def check_instructions(library, target, program):
    """Disassembles the linked program, whose code must be the library's to the byte."""
    shipped = library.sections[0]
    with tempfile.NamedTemporaryFile() as code:
        subprocess.run(
            ["arm-none-eabi-objcopy", "-O", "binary", "-j", ".text", program, code.name], check=True
        )
        expect(
            pathlib.Path(code.name).read_bytes() == shipped.get_data()[: shipped.Misc_VirtualSize],
            "the code is not that of QXMIX.elf",
        )
    listing = subprocess.run(
        ["arm-none-eabi-objdump", "-d", "-j", ".text", program],
        check=True,
        capture_output=True,
        text=True,
    ).stdout
    function = ""
    instructions = 0
    forwarding = {}
    saving = []
    for line in listing.splitlines():
        label = re.match(r"[0-9a-f]+ <(.*)>:", line)
        if label:
            function = label.group(1)
        found = re.match(r"\s*([0-9a-f]+):\t([0-9a-f]+) \t(\S+)", line)
        if not found or found.group(3) == ".word":
            continue
        instructions += 1
        if re.search("MixAlgorithmProxy.*(GetMixTypes|MixCalculate)", function):
            forwarding[function] = forwarding.get(function, 0) + 1
        mnemonic = found.group(3)
        allowed = ARMV4.fullmatch(mnemonic) is not None
        if target == "device-armv4t":
            allowed = allowed or ARMV4T.fullmatch(mnemonic) is not None
        # The one instruction that is none, on purpose.
        allowed = allowed or (function == "__cxa_pure_virtual" and mnemonic == "udf")
        expect(allowed, f"{mnemonic} at {found.group(1)} in {function} is newer than the device")
        saves = mnemonic == "push" and "lr}" in line or "str\tlr, [sp, #-" in line
        if saves:
            saving.append(int(found.group(1), 16))
    check_functions(library, saving)
    expect(instructions > 1000, f"only {instructions} instructions seen")
    # A slot that passes a call on has no guess in it of which object is behind.
    expect(len(forwarding) == 2, f"forwarding slots {forwarding}")
    for name, count in forwarding.items():
        expect(count <= MOST_TO_FORWARD, f"{count} instructions to pass a call on in {name}")


def main():
    target, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    path = folder / "QXMIX.dll"
    if not path.exists():
        print(f"SKIPPED: there is no {path}: run scripts/lib/build-dlls")
        return 0
    if target != "windows" and shutil.which("arm-none-eabi-objdump") is None:
        print("SKIPPED: binutils-arm-none-eabi is not installed")
        return 0
    library = pefile.PE(str(path))
    check_headers(library, target)
    check_sections(library)
    check_exports(library)
    check_imports(library, target)
    check_fixups(library)
    check_version(library)
    if target != "windows":
        check_instructions(library, target, folder / "QXMIX.elf")
    for complaint in failures:
        print(f"{path}: {complaint}")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
