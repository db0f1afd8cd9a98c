#!/usr/bin/env python3
"""Writes the bill of materials of a release as SPDX 2.3 in JSON: each of its files with its sum, what
is inside of them that is not this project's, and the Debian packages that they were built with.

  bill_of_materials.py --version V --commit C --time SECONDS FOLDER

The same release on the same machine gives the same bytes.
"""

import argparse
import datetime
import hashlib
import json
import pathlib
import subprocess
import sys

# What ends up inside of a file of the release, and in which.
INSIDE = {
    "libcli11-dev": ("-windows.zip", "-page.html", ".deb"),
    "nlohmann-json3-dev": ("-windows.zip", "-page.html", ".deb"),
    "g++-mingw-w64-i686-win32": ("-windows.zip", "-terminal.tar.gz"),
    "gcc-arm-none-eabi": ("-terminal.tar.gz",),
    "emscripten": ("-page.html",),
}
# What makes them, and leaves nothing of its own.
TOOLS = ("binutils-mingw-w64-i686", "cmake", "dpkg-dev", "g++", "g++-arm-linux-gnueabi", "ninja-build",
         "scdoc")


def installed_version(package):
    found = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True,
                           text=True)
    return found.stdout if found.returncode == 0 else None


def sums_of(path):
    content = path.read_bytes()
    return [{"algorithm": name, "checksumValue": hashlib.new(name.lower(), content).hexdigest()}
            for name in ("SHA1", "SHA256")]


def identifier(kind, name):
    return f"SPDXRef-{kind}-" + "".join(c if c.isalnum() or c in ".-" else "-" for c in name)


def package_of(name, version):
    return {
        "SPDXID": identifier("Package", name),
        "name": name,
        "versionInfo": version,
        "supplier": "Organization: Debian",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": "NOASSERTION",
        "licenseDeclared": "NOASSERTION",
        "copyrightText": "NOASSERTION",
        "externalRefs": [{
            "referenceCategory": "PACKAGE-MANAGER",
            "referenceType": "purl",
            "referenceLocator": "pkg:deb/debian/" + name.replace("+", "%2B") + "@" +
                                version.replace("+", "%2B").replace(":", "%3A"),
        }],
    }


def bill(folder, version, commit, time):
    files = sorted(path for path in folder.iterdir() if path.is_file())
    if not files:
        sys.exit(f"{folder}: holds no file; expected those of a release")
    product = identifier("Package", "qxmix")
    entries = [{
        "SPDXID": identifier("File", path.name),
        "fileName": "./" + path.name,
        "checksums": sums_of(path),
        "licenseConcluded": "NOASSERTION",
        "copyrightText": "NOASSERTION",
    } for path in files]
    sums = sorted(entry["checksums"][0]["checksumValue"] for entry in entries)
    packages = [{
        "SPDXID": product,
        "name": "qxmix",
        "versionInfo": version,
        "sourceInfo": f"commit {commit}",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": True,
        "packageVerificationCode": {
            "packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest()},
        "hasFiles": [entry["SPDXID"] for entry in entries],
        "licenseConcluded": "NOASSERTION",
        "licenseDeclared": "NOASSERTION",
        "licenseInfoFromFiles": ["NOASSERTION"],
        "copyrightText": "NOASSERTION",
    }]
    relations = [("SPDXRef-DOCUMENT", "DESCRIBES", product)]
    for name in sorted((*INSIDE, *TOOLS)):
        found = installed_version(name)
        users = [path.name for path in files if path.name.endswith(INSIDE.get(name, ()))]
        if found is None or (name in INSIDE and not users):
            continue  # what it is for is not part of this release
        packages.append(package_of(name, found))
        if name in TOOLS:
            relations.append((identifier("Package", name), "BUILD_TOOL_OF", product))
        relations += [(identifier("File", user), "CONTAINS", identifier("Package", name))
                      for user in users]
    created = datetime.datetime.fromtimestamp(time, datetime.timezone.utc)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"qxmix-{version}",
        "documentNamespace": f"https://qxmix.invalid/releases/{version}/{commit}",
        "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Organization: QXMix maintainers",
                                      "Tool: bill_of_materials.py"]},
        "packages": packages,
        "files": entries,
        "relationships": [{"spdxElementId": one, "relationshipType": kind,
                           "relatedSpdxElement": other} for one, kind, other in relations],
    }


def main():
    arguments = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    arguments.add_argument("--version", required=True)
    arguments.add_argument("--commit", required=True)
    arguments.add_argument("--time", type=int, required=True, help="of the commit, in seconds")
    arguments.add_argument("folder", type=pathlib.Path)
    given = arguments.parse_args()
    if not given.folder.is_dir():
        sys.exit(f"{given.folder}: no such folder")
    json.dump(bill(given.folder, given.version, given.commit, given.time), sys.stdout, indent=2)
    print()


main()
