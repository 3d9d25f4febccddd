#!/usr/bin/env python3
"""Holds the documentation against the project: what a page shows must be true.

    check_docs.py ROOT [BUILD WINE]    BUILD: where the DLL and the programs are; WINE: what runs a Windows program

- A relative link leads to a file, and its #anchor to a heading.
- A block of program code stands under a line `<!-- from FILE -->` and is found, line for line, in FILE.
- In a ```console block every command of this project's programs, and every script, is run in ROOT and must print what the
  block shows. A line `...` stands for any number of lines. Other commands (./run, regsvr32 ...) are not run. All share one
  run of Wine, with the server registered meanwhile.
"""
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

RUN = {"vintrel-host": "vintrel-host.exe", "early_bound": "early_bound.exe", "cscript": None}  # None: the system's own
PROGRAM_CODE = {"vbs", "vbscript", "js", "javascript", "cpp", "c++", "powershell", "python", "csharp", "vba", "idl"}
failures = []


def fail(page: Path, line: int, what: str) -> None:
    failures.append(f"{page}:{line}: {what}")


def anchor(heading: str) -> str:
    text = re.sub(r"[^\w\- ]", "", heading.strip().lower().replace("`", ""))
    return text.replace(" ", "-")


def headings(page: Path) -> set:
    return {anchor(m.group(1)) for m in re.finditer(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.M)}


def check_links(page: Path, text: str) -> None:
    outside_code = re.sub(r"```.*?```", lambda m: "\n" * m.group(0).count("\n"), text, flags=re.S)
    for match in re.finditer(r"\[[^\]]*\]\(([^)\s]+)\)", outside_code):
        target = match.group(1)
        if re.match(r"[a-z]+:", target):
            continue
        line = outside_code.count("\n", 0, match.start()) + 1
        path, _, fragment = target.partition("#")
        linked = (page.parent / path).resolve() if path else page
        if not linked.exists():
            fail(page, line, f"no such file: {target}")
        elif fragment and linked.suffix == ".md" and fragment not in headings(linked):
            fail(page, line, f"no such heading: {target}")


def blocks(text: str):
    """Yields (line number, language, source file or None, body)."""
    for match in re.finditer(r"(?:<!-- from (\S+) -->\n)?```(\S*)\n(.*?)^```", text, re.S | re.M):
        yield text.count("\n", 0, match.start()) + 1, match.group(2).lower(), match.group(1), match.group(3)


def matches(expected: list, actual: list) -> bool:
    """Whether the printed lines are the shown ones, `...` standing for any number of them."""
    if not expected:
        return not actual
    if expected[0] == "...":
        return any(matches(expected[1:], actual[i:]) for i in range(len(actual) + 1))
    return bool(actual) and expected[0].rstrip() == actual[0].rstrip() and matches(expected[1:], actual[1:])


def shown_commands(page: Path, line: int, body: str):
    """Yields (page, line, words of the command, shown lines) of every command that is run."""
    for part in re.split(r"^\$ ", body, flags=re.M)[1:]:
        command, _, shown = part.partition("\n")
        words = shlex.split(command)
        if words[0] in RUN:
            yield page, line, words, shown.rstrip("\n").split("\n")


def windows(path: Path) -> str:
    return f"Z:{path}".replace("/", "\\")


def run_commands(root: Path, build: Path, wine: str, commands: list) -> None:
    with tempfile.TemporaryDirectory(dir=build) as folder:
        outputs = [Path(folder) / str(number) for number in range(len(commands))]
        server = windows(build / "Vintrel.dll")
        script = ["@echo off", f'regsvr32 /s "{server}"']
        for (_, _, words, _), output in zip(commands, outputs):
            program = windows(build / RUN[words[0]]) if RUN[words[0]] else words[0]
            line = subprocess.list2cmdline([program, *words[1:]]).replace("%", "%%")
            script.append(f'{line} > "{windows(output)}" 2>&1 < NUL')
        script += [f'regsvr32 /s /u "{server}"', ""]
        batch = Path(folder) / "commands.bat"
        batch.write_text("\r\n".join(script), encoding="utf-8")
        subprocess.run([wine, "cmd", "/c", windows(batch)], cwd=root, check=True, timeout=300)
        for (page, line, words, expected), output in zip(commands, outputs):
            printed = output.read_text(encoding="utf-8", errors="replace").rstrip("\n").split("\n")
            if not matches(expected, printed):
                fail(page, line, "\n".join([f"$ {' '.join(words)}", "--- shown", *expected, "--- printed", *printed]))


def main() -> None:
    root = Path(sys.argv[1]).resolve()
    commands = []
    pages = sorted(root.glob("*.md"))
    for folder in ("docs", "samples", "examples"):
        pages += sorted((root / folder).rglob("*.md"))
    checked = {"pages": 0, "code blocks": 0, "commands": 0}
    for page in pages:
        text = page.read_text(encoding="utf-8")
        checked["pages"] += 1
        check_links(page, text)
        for line, language, source, body in blocks(text):
            if source:
                checked["code blocks"] += 1
                if not (root / source).exists() or body not in (root / source).read_text(encoding="utf-8"):
                    fail(page, line, f"the block is not in {source}")
            elif language in PROGRAM_CODE:
                fail(page, line, "program code without the file that it is from")
            elif language == "console":
                commands += shown_commands(page, line, body)
    if len(sys.argv) > 3:
        checked["commands"] = len(commands)
        run_commands(root, Path(sys.argv[2]).resolve(), sys.argv[3], commands)
    print(", ".join(f"{count} {what}" for what, count in checked.items()))
    if failures:
        sys.exit("\n".join(failures))


if __name__ == "__main__":
    main()
