#!/usr/bin/env python3
"""bill.py SOURCE WORK: the bill of materials of a made-up release has the form of SPDX 2.3, and says
what is true."""

import hashlib
import json
import pathlib
import re
import shutil
import subprocess
import sys

source, work = map(pathlib.Path, sys.argv[1:])
shutil.rmtree(work, ignore_errors=True)
work.mkdir(parents=True)
for name in ("qxmix-6.0.2.tar.gz", "qxmix-6.0.2-windows.zip", "qxmix_6.0.2_amd64.deb"):
    (work / name).write_text(name)


def bill(*words):
    return subprocess.run([source / "tools/release/bill_of_materials.py", "--version", "6.0.2",
                           "--commit", "0" * 40, "--time", "0", *words],
                          capture_output=True, text=True)


def expect(holds, what):
    if not holds:
        sys.exit(f"bill of materials: {what}")


first = bill(work)
expect(first.returncode == 0, first.stderr)
expect(bill(work).stdout == first.stdout, "is another one the second time")
document = json.loads(first.stdout)
expect(document["spdxVersion"] == "SPDX-2.3" and document["dataLicense"] == "CC0-1.0", "version")
expect(document["creationInfo"]["created"] == "1970-01-01T00:00:00Z", "time")
expect(document["documentNamespace"].startswith("https://"), "namespace")

elements = {document["SPDXID"]}
for element in document["packages"] + document["files"]:
    expect(re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", element["SPDXID"]), element["SPDXID"])
    expect(element["SPDXID"] not in elements, element["SPDXID"] + " stands twice")
    elements.add(element["SPDXID"])
for package in document["packages"]:
    for field in ("name", "versionInfo", "downloadLocation"):
        expect(package.get(field), f"{package['name']} has no {field}")
names = {file["fileName"]: file for file in document["files"]}
expect(set(names) == {"./" + path.name for path in work.iterdir()}, "other files: " + str(set(names)))
for path in work.iterdir():
    sums = {one["algorithm"]: one["checksumValue"] for one in names["./" + path.name]["checksums"]}
    for algorithm in ("SHA1", "SHA256"):
        expect(sums[algorithm] == hashlib.new(algorithm.lower(), path.read_bytes()).hexdigest(),
               f"{algorithm} of {path.name}")
relations = {(one["spdxElementId"], one["relationshipType"], one["relatedSpdxElement"])
             for one in document["relationships"]}
for one, _, other in relations:
    expect({one, other} <= elements, f"{one} or {other} is not there")
expect(("SPDXRef-DOCUMENT", "DESCRIBES", "SPDXRef-Package-qxmix") in relations, "describes nothing")
json_library = "SPDXRef-Package-nlohmann-json3-dev"
expect(("SPDXRef-File-qxmix-6.0.2-windows.zip", "CONTAINS", json_library) in relations,
       "the tool for Windows contains no JSON library")
expect(("SPDXRef-File-qxmix-6.0.2.tar.gz", "CONTAINS", json_library) not in relations,
       "the sources contain a JSON library")
version = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", "cmake"], capture_output=True,
                         text=True, check=True).stdout
expect(("cmake", version) in {(one["name"], one["versionInfo"]) for one in document["packages"]},
       "the version of cmake")

missing = bill(work / "nothing")
expect(missing.returncode != 0 and missing.stderr.count("\n") == 1, "of no folder: " + missing.stderr)
print(f"{len(document['packages'])} packages, {len(document['files'])} files")
