#!/usr/bin/env python3
"""The tool's help: its examples run, the manual page says the same, and shells complete it.

Without one of the programs scdoc, zsh and fish the test is shown as skipped.
"""

import json
import pathlib
import re
import shutil
import subprocess

from tool_runner import HERE, Checks, Tool, parse_arguments


def help_of(tool, *words):
    status, shown, _ = tool.run([*words, "--help"])
    assert status == 0
    return shown


def section(text, title):
    """The lines below a title of the help, up to the next blank line or title."""
    lines = text.split("\n")
    lines = lines[lines.index(title) + 1:]
    end = next(index for index, line in enumerate(lines) if not line.startswith("  "))
    return [line.strip() for line in lines[:end]]


def check_help_word(tool, checks):
    """Who writes help as a command means --help."""
    checks.equal("help", tool.run(["help"]), tool.run(["--help"]))
    checks.equal("help mix", tool.run(["help", "mix"]), tool.run(["mix", "--help"]))
    checks.equal("help mux", tool.run(["help", "mux"]),
                 (2, "", 'qxmix: mux: unknown command; did you mean "mix"?\n'))


def commands_of(tool):
    return [line.split()[0] for line in section(help_of(tool), "usage: qxmix COMMAND ...")]


def options_of(tool, command):
    return {re.split(r"  +", line)[0] for line in section(help_of(tool, command), "options")
            if line.startswith("-")}


def check_examples(tool, checks, commands):
    for command in commands:
        examples = section(help_of(tool, command), "examples")
        checks.equal(f"{command}: two examples", len(examples), 2)
        for example in examples:
            ending = subprocess.run(
                ["bash", "-c", example.replace("qxmix", '"$0" "${@}"', 1), *tool.arguments.command],
                cwd=tool.folder, env=tool.environment, capture_output=True, check=False,
                stdin=subprocess.DEVNULL, timeout=120)
            checks.check(f"{example}: runs", ending.returncode in (0, 1, 2, 3) and
                         b"qxmix: " not in ending.stderr and ending.stdout, str(ending))


def check_one_mix(tool, checks):
    """What takes one mix alone offers no more."""
    for command, name in (("explain", "EUR:50x1"), ("batch", None)):
        checks.check(f"{command}: offers one mix", "--mix N" in help_of(tool, command) and
                     " all" not in "".join(line for line in help_of(tool, command).split("\n")
                                           if "--mix" in line))
        words = [command] + ([name, "--amount", "50"] if name else [])
        for option in ("--mix", "--mixes"):
            status, _, errors = tool.run([*words, option, "all"])
            checks.check(f"{command} {option} all", status == 2 and "one" in errors, errors)


def manual_sections(text):
    """The options that each part of the manual page describes, by its heading."""
    found, heading = {}, ""
    for line in text.split("\n"):
        if line.startswith("#"):
            heading = line.lstrip("# ")
            found[heading] = {"options": set(), "text": ""}
        elif line.startswith("*-"):
            found[heading]["options"].add(re.sub(r"[*_]", "", line))
        if heading:
            found[heading]["text"] += line + "\n"
    return found


def check_manual(tool, checks, commands, source):
    text = (source / "docs" / "qxmix.1.scd").read_text()
    parts = manual_sections(text)
    everywhere = parts["OPTIONS OF ALL COMMANDS"]["options"]
    asking = parts["ASKING OPTIONS"]["options"]
    for command in commands:
        if command not in parts:
            checks.check(f"{command}: is in the manual page", False)
            continue
        part = parts[command]
        described = everywhere | part["options"]
        if "Takes the asking options" in part["text"]:
            described |= asking
        if "no *--mixes*" in part["text"]:
            described.discard("--mixes LIST")
        checks.equal(f"{command}: options in the manual page", described, options_of(tool, command))
    statuses = [re.split(r"  +", line, maxsplit=1) for line in section(help_of(tool), "exit status")]
    described = re.findall(r"^\*(\d+)\*\n\t(.*)$", parts["EXIT STATUS"]["text"], re.M)
    checks.equal("exit statuses in the manual page", [list(pair) for pair in described], statuses)
    if shutil.which("scdoc"):
        ending = subprocess.run(["scdoc"], input=text.encode(), capture_output=True, check=False)
        checks.check("scdoc takes the page", ending.returncode == 0 and b".SH EXIT STATUS" in ending.stdout,
                     ending.stderr.decode())
    else:
        checks.skip("scdoc is missing")


def complete_in_bash(tool, words):
    """What bash offers for the last word."""
    script = ('source completions.bash; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _qxmix; '
              'printf "%s\\n" "${COMPREPLY[@]}"')
    ending = subprocess.run(["bash", "--norc", "-c", script, "bash", "qxmix", *words],
                            cwd=tool.folder, capture_output=True, text=True, check=False)
    assert ending.stderr == "", ending.stderr
    return ending.stdout.split()


SCHEMA = json.loads((HERE.parent.parent / "schema" / "dispenser.schema.json").read_text())
MIXES = [str(mix) for mix in range(1, SCHEMA["properties"]["mix"]["maximum"] + 1)] + ["all"]
OFFERED = [
    (["ty"], ["types"]),
    (["--ver"], ["--version"]),
    (["mix", "--am"], ["--amount"]),
    (["mix", "--mix", ""], MIXES),
    (["map", "--mixes", "a"], ["all"]),
    (["batch", "--mi"], ["--mix"]),
    (["mix", "x.json", "--color", ""], ["auto", "always", "never"]),
    (["map", "--amount"], []),
    (["types", "--am"], []),
    (["mix", "--amount", ""], []),
    (["mix", "--library", ""], []),
    (["mix", "x.js"], []),
    (["completions", ""], ["bash", "zsh", "fish"]),
    (["--json", "registry", "--clear"], ["--clear-error"]),
]


def check_bash(tool, checks, commands):
    (tool.folder / "completions.bash").write_text(tool.run(["completions", "bash"])[1])
    for words, offered in OFFERED:
        checks.equal(f"bash: {words}", complete_in_bash(tool, words), offered)
    checks.equal("bash: all commands", complete_in_bash(tool, [""]), commands)
    for command in commands:
        names = {name.split()[0] for entry in options_of(tool, command) for name in entry.split(", ")}
        checks.equal(f"bash: options of {command}", set(complete_in_bash(tool, [command, "-"])), names)


def check_fish(tool, checks, commands):
    if not shutil.which("fish"):
        checks.skip("fish is missing")
        return
    (tool.folder / "completions.fish").write_text(tool.run(["completions", "fish"])[1])
    def offered(line):
        ending = subprocess.run(
            ["fish", "--no-config", "-c", f"source completions.fish; complete -C '{line}'"],
            cwd=tool.folder, capture_output=True, text=True, check=False,
            env={**tool.environment, "HOME": str(tool.folder)})
        checks.equal(f"fish: {line}: no complaint", ending.stderr, "")
        return [entry.split("\t")[0] for entry in ending.stdout.splitlines()]
    checks.equal("fish: all commands", sorted(offered("qxmix ")), sorted(commands))
    checks.equal("fish: --amount", offered("qxmix mix --am"), ["--amount"])
    checks.equal("fish: not of types", offered("qxmix types --am"), [])
    checks.equal("fish: mixes", sorted(offered("qxmix mix --mix ")), sorted(MIXES))
    checks.check("fish: files", "examples/" in offered("qxmix mix exam"), "")


def check_zsh(tool, checks):
    script = tool.run(["completions", "zsh"])[1]
    (tool.folder / "_qxmix").write_text(script)
    checks.check("zsh: mixes", f"'--mix[mix to ask, or all]:N:({' '.join(MIXES)})'" in script, script)
    if not shutil.which("zsh"):
        checks.skip("zsh is missing")
        return
    ending = subprocess.run(["zsh", "-f", "-n", "_qxmix"], cwd=tool.folder, capture_output=True,
                            text=True, check=False)
    checks.equal("zsh: syntax", (ending.returncode, ending.stderr), (0, ""))


def check_errors(tool, checks):
    for words, error in ((["completions"], "SHELL: missing; expected bash, zsh or fish"),
                         (["completions", "csh"], "SHELL: csh is not allowed; expected bash, zsh or fish")):
        checks.equal(" ".join(words), tool.run(words), (2, "", f"qxmix: {error}\n"))
    answer = json.loads(tool.run(["completions", "bash", "--json"])[1])
    checks.equal("--json", answer["result"],
                 {"shell": "bash", "script": tool.run(["completions", "bash"])[1]})


def main():
    arguments = parse_arguments()
    checks = Checks()
    source = pathlib.Path(arguments.source).resolve()
    with Tool(arguments) as tool:
        commands = commands_of(tool)
        check_help_word(tool, checks)
        check_examples(tool, checks, commands)
        check_manual(tool, checks, commands, source)
        check_one_mix(tool, checks)
        check_bash(tool, checks, commands)
        check_fish(tool, checks, commands)
        check_zsh(tool, checks)
        check_errors(tool, checks)
    checks.finish()


main()
