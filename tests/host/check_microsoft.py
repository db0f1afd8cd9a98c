"""Holds the header to Microsoft's compilers, with clang in their place (microsoft.sh).

    check_microsoft.py

Every version takes it without a warning, and calls the slots as the module expects it. What cannot
call them is refused with a line that says what to do. Prints one line per thing that is wrong.
"""

import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
INCLUDE = HERE.parent.parent / "include"
SETUP = HERE / "microsoft.sh"

# The standards that a version knows, by the first one that does.
C_STANDARDS = {1200: "c89", 1928: "c11"}
CPP_STANDARDS = {1200: "c++98", 1900: "c++14", 1914: "c++17", 1929: "c++20"}
# The device, and its emulator on a desk.
DEVICES = (
    ["--target=armv4-pc-windows-msvc", "-U_M_IX86", "-D_M_ARM=4", "-D_WIN32_WCE=420"],
    ["--target=armv4-pc-windows-msvc", "-U_M_IX86", "-D_ARM_=1", "-D_WIN32_WCE=420"],
    ["-D_WIN32_WCE=420"],
)
# What a project may have set for all functions that do not say how they are called.
CONVENTIONS = ("cdecl", "stdcall", "fastcall")
UNKNOWN = ["--target=i686-pc-windows-msvc", "-undef", "-D_WIN32=1", "-D_M_IX86=600"]
OLD_GCC = ["--target=i686-pc-windows-msvc", "-undef", "-D_WIN32=1", "-D__i386__=1"]
OLD_GCC += ["-D__GNUC__=4", "-D__GNUC_MINOR__=5"]
REFUSALS = (
    ("a compiler that nobody knows", UNKNOWN, "use Microsoft's compiler, GCC 4.6 or clang"),
    ("GCC before it knew the slots", OLD_GCC, "use Microsoft's compiler, GCC 4.6 or clang"),
    (
        "64 bits",
        ["--target=x86_64-pc-windows-msvc", "-D_MSC_VER=1944", "-D_WIN64=1"],
        "build the host as a 32-bit program",
    ),
    ("ARM, big end first", ["--target=armeb-linux-gnueabi"], "build the host for a little-endian"),
    ("IBM Z", ["--target=s390x-linux-gnu"], "build the host for a little-endian processor"),
    ("POWER, little end first", ["--target=powerpc64le-linux-gnu"], "x86 and ARM only"),
    ("MIPS of Windows CE", ["--target=mipsel-linux-gnu"], "x86 and ARM only"),
)
# Slot and number of arguments that travel on the stack.
CALLS = {"CallDestroy": (0, 1), "CallGetMixTypes": (1, 1), "CallMixCalculate": (2, 2)}

failures = []


def expect(condition, complaint):
    if not condition:
        failures.append(complaint)


def compile_as(version, source, standard, *arguments):
    """Compiles; gives what is printed, and notes what is complained of."""
    done = subprocess.run(
        ["bash", "-c", f'source "{SETUP}"; microsoft "$@"', "-", str(version)]
        + [f"-std={standard}", *arguments, HERE / source],
        capture_output=True,
        text=True,
        check=False,
    )
    said = [line for line in done.stderr.splitlines() if "error" in line]
    expect(done.returncode == 0, f"{source}, {version}, {standard}, {arguments}: {said[:1]}")
    return done.stdout


def functions_of(listing):
    """The instructions of every function, and the words of every table, by name."""
    bodies, name = {}, None
    for line in listing.splitlines():
        label = re.match(r'"?([^\s"]+)"?:', line)
        if label:
            name = label.group(1)
            bodies[name] = []
        elif name and re.match(r"\s+([a-z]|\.long)", line):
            bodies[name].append(" ".join(line.split("#")[0].split()))
    return bodies


def check_call(where, body, slot, arguments):
    """The object goes into ecx, the slot comes from its table, the slot takes the rest down."""
    offset = str(4 * slot) if slot else ""
    call = next((at for at, line in enumerate(body) if line.startswith("calll *")), None)
    expect(call is not None, f"{where}: calls no slot")
    if call is None:
        return
    table = re.fullmatch(rf"calll \*{offset}\((%e[a-d]x)\)", body[call])
    before = body[:call]
    expect(table, f"{where}: {body[call]} is not slot {slot}")
    expect(before and before[0] == "movl 4(%esp), %ecx", f"{where}: no object in ecx: {before}")
    expect(
        table and before.count(f"movl (%ecx), {table.group(1)}") == 1,
        f"{where}: the slot is not taken from the object's table: {before}",
    )
    pushed = sum(line.startswith("pushl ") for line in before)
    expect(pushed == arguments, f"{where}: {pushed} arguments on the stack")
    changed = [line for line in before if re.search(r", %e(cx|sp)$", line)]
    expect(len(changed) == 1, f"{where}: ecx or the stack changes: {changed}")
    after = body[call + 1 :]
    expect(after == ["retl"], f"{where}: after the call there is {after}")


def check_host(where, bodies):
    """The module's call: the host in ecx, the object on the stack, which the host takes down."""
    name = next((name for name in bodies if "OnObjectCreated" in name), None)
    table = next((lines for name, lines in bodies.items() if re.search(r"_7Host|kHostSlots$", name)),
                 [])
    expect(name is not None and len(table) >= 2, f"{where}: has no slots")
    if name is None or len(table) < 2:
        return
    expect("Reserved" in table[0] and "OnObjectCreated" in table[1], f"{where}: order of {table}")
    body = bodies[name]
    expect("movl %ecx, _lastHost" in body, f"{where}: does not find the host in ecx: {body}")
    expect("movl 4(%esp), %eax" in body and "movl %eax, _lastObject" in body,
           f"{where}: does not find the object on the stack: {body}")
    expect(body[-1] == "retl $4", f"{where}: ends with {body[-1]}")


def check_code(version, source, standard, *arguments):
    where = f"{source}, {version}, {arguments}"
    bodies = functions_of(
        compile_as(version, source, standard, "-O1", "-S", "-o", "-", *arguments)
    )
    for function, (slot, count) in CALLS.items():
        check_call(f"{where}, {function}", bodies.get("_" + function, []), slot, count)
    check_host(where, bodies)
    exports = bodies.get("_CreateAndDelete", [])
    expect(
        exports[:3] == ["pushl 4(%esp)", "calll _CreateMixAlgorithm", "addl $4, %esp"],
        f"{where}: calls an export so: {exports}",
    )


def check_versions():
    versions = subprocess.run(
        ["bash", "-c", f'source "{SETUP}"; echo $microsoft_versions'],
        capture_output=True, text=True, check=True,
    ).stdout.split()
    versions = [int(version) for version in versions]
    for version in versions:
        for source, standards in (("HostInC.c", C_STANDARDS), ("HostInCpp.cpp", CPP_STANDARDS)):
            for since, standard in standards.items():
                if version >= since:
                    compile_as(version, source, standard, "-fsyntax-only")
        check_code(version, "SlotCalls.c", "c89")
        check_code(version, "SlotCalls.cpp", "c++98")
    for version in (versions[0], versions[-1]):
        for convention in CONVENTIONS:
            chosen = ("-Xclang", f"-fdefault-calling-conv={convention}")
            check_code(version, "SlotCalls.c", "c89", *chosen)
            check_code(version, "SlotCalls.cpp", "c++98", *chosen)


def check_devices():
    for arguments in DEVICES:
        compile_as(1202, "HostInC.c", "c89", "-fsyntax-only", *arguments)
        compile_as(1202, "HostInCpp.cpp", "c++98", "-fsyntax-only", *arguments)


def check_refusals():
    for name, arguments, said in REFUSALS:
        done = subprocess.run(
            ["clang", *arguments, "-nostdinc", "-fsyntax-only", "-I", INCLUDE, HERE / "HostInC.c"],
            capture_output=True, text=True, check=False,
        )
        first = next((line for line in done.stderr.splitlines() if "error:" in line), "")
        expect(done.returncode != 0, f"{name}: is not refused")
        expect(f'error: "qxmix.h: ' in first and said in first, f"{name}: says {first!r}")


def main():
    if shutil.which("clang") is None:
        print("SKIPPED: clang is not installed")
        return 0
    check_versions()
    check_devices()
    check_refusals()
    for complaint in failures:
        print(complaint)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
