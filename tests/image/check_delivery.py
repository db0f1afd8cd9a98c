"""Makes the delivery twice, in two places, and holds it to what its readme promises.

    check_delivery.py PROJECT LIBRARIES

LIBRARIES is what scripts/lib/build-dlls made. The second delivery comes from a copy of the sources in
another folder, built anew. Prints one line per thing that is wrong.
"""

import filecmp
import hashlib
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SOURCES = ("include", "src", "cmake", "tools/image", "scripts", "docs", "examples/host-windows")
TARGETS = ("device", "device-armv4t", "windows")

failures = []


def expect(condition, complaint):
    if not condition:
        failures.append(complaint)


def files_of(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file())


def bytes_of(folder):
    return {name: (folder / name).read_bytes() for name in files_of(folder)}


def make(project, *arguments):
    """With rights that a careful user takes from all new files: a delivery is for everybody."""
    return subprocess.run(
        [project / "scripts/lib/make-dist", *arguments],
        capture_output=True, text=True, check=False, umask=0o077,
    )


def expect_refusal(name, done, said):
    """A refusal is one line, and leaves nothing beside the delivery."""
    expect(done.returncode == 1, f"{name}: exit status {done.returncode}")
    expect(done.stdout == "", f"{name}: prints {done.stdout}")
    expect(re.fullmatch(f"make-dist: .*{said}.*\n", done.stderr), f"{name}: says {done.stderr!r}")


def check_sums(delivery):
    listed = {}
    for line in (delivery / "SHA256SUMS").read_text(encoding="ascii").splitlines():
        digest, name = line.split("  ")
        listed[name] = digest
    files = [name for name in files_of(delivery) if name != "SHA256SUMS"]
    expect(sorted(listed) == files, "SHA256SUMS does not list the files that are there")
    for name in files:
        digest = hashlib.sha256((delivery / name).read_bytes()).hexdigest()
        expect(listed.get(name) == digest, f"{name}: another sum in SHA256SUMS")


def check_rights(delivery):
    for path in (delivery, *delivery.rglob("*")):
        rights = 0o755 if path.is_dir() else 0o644
        expect(path.stat().st_mode & 0o777 == rights, f"{path}: rights {path.stat().st_mode:o}")


def check_replaced(project, folder, libraries):
    """A second delivery takes the place of the first; what is beside them is somebody's own."""
    place = folder / "replaced"
    made = project / "build/make-dist"  # where it would build them itself
    shutil.copytree(libraries, made)
    own = [folder / f"replaced{ending}" / "mine" for ending in (".old", ".part", ".new")]
    for file in own:
        file.parent.mkdir()
        file.write_text("mine", encoding="ascii")
    before = sorted(path.name for path in folder.iterdir())
    for _ in range(2):
        done = make(project, "--output", place, "--libraries", "build/make-dist")
        expect(done.returncode == 0, f"replaced: {done.stderr}")
    for file in own:
        expect(file.exists(), f"{file} is lost")
    after = sorted(path.name for path in folder.iterdir())
    expect(after == sorted([*before, "replaced"]), f"beside a delivery: {after}")
    expect(made.exists(), "libraries that were given are gone")

    # What has been changed in a delivery, or put into it, is not thrown away either.
    for name, text in (("docs/abi.md", "changed"), ("docs/notes", "added")):
        previous = (place / name).read_bytes() if (place / name).exists() else None
        (place / name).write_text(text, encoding="ascii")
        refused = make(project, "--output", place, "--libraries", "build/make-dist")
        expect_refusal(text, refused, "something else")
        expect((place / name).read_text(encoding="ascii") == text, f"{name} is lost")
        if previous is not None:
            (place / name).write_bytes(previous)


def check_content(delivery, libraries):
    for target in TARGETS:
        image = "QXMIX.unstripped.dll" if target == "windows" else "QXMIX.elf"
        names = ["QXMIX.dll", "QXMIX.lib", "QXMIX.map", image]
        expect(files_of(delivery / target) == sorted(names), f"{target} does not hold {names}")
        for name in names:
            same = filecmp.cmp(delivery / target / name, libraries / target / name, shallow=False)
            expect(same, f"{target}/{name} is not the one built")
    version = (delivery / "VERSION").read_text(encoding="ascii")
    expect("version   V 06.00.02\nnumbers   6.0.2.0\nsources   " in version, f"VERSION: {version}")
    readme = (delivery / "README.md").read_text(encoding="ascii")
    for name in re.findall("`([a-z][-a-z0-9/.]*/?[-a-z0-9.]*)`", readme):
        places = (delivery / name, delivery / "include" / name)
        expect(any(place.exists() for place in places), f"README.md names {name}")


def check_links(delivery):
    for page in delivery.rglob("*.md"):
        for target in re.findall(r"\]\(([^)#]+)[^)]*\)", page.read_text(encoding="utf-8")):
            expect((page.parent / target).exists(), f"{page.name} links to {target}")


def check_header(delivery):
    """A host needs one header; it and the example compile in the oldest standards."""
    expect(files_of(delivery / "include") == ["qxmix.h"], "include holds something else")
    settings = ["-fsyntax-only", "-Wall", "-Wextra", "-pedantic-errors", "-Werror"]
    settings += ["-I", delivery / "include"]
    header = ["-include", "qxmix.h", "-x", "c", "/dev/null"]
    example = delivery / "examples/host-windows/host.cpp"
    for command in (
        ["gcc", "-std=c89", *settings, *header],
        ["i686-w64-mingw32-g++", "-std=c++98", *settings, example],
    ):
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        expect(done.returncode == 0, f"{command[0]}: {done.stderr}")


def check_command_lines(delivery, folder):
    """What the readme tells to type, where the compiler is at hand: as it stands, in the delivery."""
    place = shutil.copytree(delivery, folder / "typed")
    readme = (delivery / "README.md").read_text(encoding="ascii")
    lines = re.findall("^i686-w64-mingw32-g.*$", readme, re.MULTILINE)
    expect(len(lines) == 2, f"README.md has {len(lines)} lines to type for MinGW")
    for line in lines:
        done = subprocess.run(
            [*line.split(), "-Werror"], cwd=place, capture_output=True, text=True, check=False
        )
        expect(done.returncode == 0 and (place / "host.exe").exists(), f"{line}: {done.stderr}")
        (place / "host.exe").unlink(missing_ok=True)


def check_refusals(project, delivery, folder):
    before = bytes_of(delivery)
    for name, arguments, said in (
        ("unknown option", ["--outptu", "x"], "unknown option --outptu"),
        ("missing value", ["--output"], "--output needs a value"),
        ("bad name", ["--xfs-manager", "A B"], "'A B' is no file name of a library"),
        ("no libraries", ["--libraries", str(folder)], "there is no .*QXMIX.dll"),
    ):
        arguments = ["--output", str(delivery), *arguments]
        expect_refusal(name, make(project, *arguments), said)
    foreign = folder / "foreign"
    foreign.mkdir()
    (foreign / "letter").write_text("mine", encoding="ascii")
    expect_refusal("foreign folder", make(project, "--output", foreign), "something else")
    expect(files_of(foreign) == ["letter"], "a foreign folder has been touched")

    with open(project / "src/mix/MixCalculate.cpp", "a", encoding="ascii") as source:
        source.write("#error on purpose\n")
    done = make(project, "--output", delivery)
    expect_refusal("broken source", done, "device: .*error: .*on purpose.*build.log")
    expect(bytes_of(delivery) == before, "a failure has changed the delivery")
    expect(not list(delivery.parent.glob(".make-dist*")), "a failure leaves a part of a delivery")


def main():
    project, libraries = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    if not (libraries / "windows/QXMIX.dll").exists():
        print(f"SKIPPED: there is no {libraries}/windows/QXMIX.dll: run scripts/lib/build-dlls")
        return 0
    with tempfile.TemporaryDirectory(prefix="qxmix-delivery-") as name:
        folder = pathlib.Path(name)
        copy = folder / "pä th (1)"
        for source in SOURCES:
            shutil.copytree(project / source, copy / source)
        one, other = folder / "one", copy / "dist"
        for done in (make(project, "--output", one, "--libraries", libraries), make(copy)):
            expect(done.returncode == 0, f"no delivery: {done.stderr}")
        if not failures:
            expect(files_of(one) == files_of(other), "two deliveries hold different files")
            for file in files_of(one):
                same = filecmp.cmp(one / file, other / file, shallow=False)
                expect(same, f"{file} differs between two deliveries")
            check_sums(one)
            check_rights(one)
            check_replaced(copy, folder, libraries)
            check_content(one, libraries)
            check_links(one)
            check_header(one)
            check_command_lines(one, folder)
            check_refusals(copy, one, folder)
    for complaint in failures:
        print(complaint)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
