#!/usr/bin/env python3
"""Builds the package, installs and removes it silently under Wine, for all users and for one, and compares the registry
and the folders before and after.

    check_package.py BUILD WINE
"""
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

# Written by the system itself at any time; not the installer's.
VOLATILE = ("\\Explorer\\", "\\RunMRU", "\\Wine\\", "\\Session Manager", "\\Cryptography\\RNG", "\\Time Zones")


def windows(path) -> str:
    return f"Z:{path}".replace("/", "\\")


def round_trip(work: Path, setup: Path, mode: str, keys: list) -> list:
    """The batch lines that install and remove the package once, leaving what they saw under `work`."""
    target, seen = f"C:\\vintrel {mode}", work / mode
    seen.mkdir()
    export = [f'reg export "{key}" "{windows(seen)}\\%s-{number}.reg" /y > NUL' for number, key in enumerate(keys)]
    return [
        *(line % "before" for line in export),
        f'start /wait "" "{windows(setup)}" /S /{mode} /D={target}',
        f'echo %errorlevel% > "{windows(seen)}\\setup-code"',
        f'dir /b "{target}" > "{windows(seen)}\\installed"',
        *(line % "installed" for line in export),
        # A per-user class is visible to Windows' COM but not to Wine's: there the keys are the test.
        *([f'"{target}\\vintrel-host.exe" models > "{windows(seen)}\\models" 2>&1'] if mode == "AllUsers" else []),
        f'start /wait "" "{target}\\uninstall.exe" /S',
        # The uninstaller goes on in a copy of itself: look until the folder is gone, with a program's start as the pause.
        "set tries=0",
        f":wait-{mode}",
        f'if not exist "{target}" goto gone-{mode}',
        "set /a tries+=1 > NUL",
        "hostname > NUL",
        f"if %tries% lss 200 goto wait-{mode}",
        f":gone-{mode}",
        f'if exist "{target}" dir /s /b "{target}" > "{windows(seen)}\\left"',
        *(line % "after" for line in export),
    ]


def registry(seen: Path, moment: str) -> dict:
    """{key: its lines} of the exports of a moment."""
    keys, name = {}, ""
    for file in sorted(seen.glob(f"{moment}-*.reg")):
        for line in file.read_text(encoding="utf-16").splitlines():
            if line.startswith("["):
                name = line
                keys.setdefault(name, [])
            elif line:
                keys.setdefault(name, []).append(line)
    return {key: lines for key, lines in keys.items() if not any(part in key + "\\" for part in VOLATILE)}


def check(work: Path, mode: str, failures: list) -> None:
    seen = work / mode
    before, installed, after = (registry(seen, moment) for moment in ("before", "installed", "after"))
    added = [key for key in installed if key not in before]
    print(f"{mode}: {len(added)} keys while installed")
    hive = "HKEY_LOCAL_MACHINE" if mode == "AllUsers" else "HKEY_CURRENT_USER"
    for wanted in ("\\Vintrel.ComEventsRX\\CLSID]", "\\Uninstall\\Vintrel]"):
        if not any(wanted in key and key.startswith("[" + hive) for key in added):
            failures.append(f"{mode}: no key {wanted} below {hive} while installed")
    if (seen / "setup-code").read_text().strip() != "0":
        failures.append(f"{mode}: the installer failed: {(seen / 'setup-code').read_text().strip()}")
    files = (seen / "installed").read_text(encoding="utf-8", errors="replace").lower()
    for name in ("vintrel.dll", "vintrel.tlb", "vintrel-host.exe", "readme.md", "docs", "samples", "examples"):
        if name not in files:
            failures.append(f"{mode}: {name} was not installed")
    if mode == "AllUsers" and "TYPE12000" not in (seen / "models").read_text(encoding="utf-8", errors="replace"):
        failures.append(f"{mode}: the installed host shows no models:\n" + (seen / "models").read_text(errors="replace"))
    if (seen / "left").exists():
        failures.append(f"{mode}: left behind:\n" + (seen / "left").read_text(errors="replace"))
    for key in sorted(set(before) | set(after)):
        if before.get(key) != after.get(key):
            failures.append(f"{mode}: the registry changed at {key}: {before.get(key)} -> {after.get(key)}")


def main() -> None:
    build, wine = Path(sys.argv[1]).resolve(), sys.argv[2]
    subprocess.run(["cmake", "--build", str(build), "--target", "package"], check=True, stdout=subprocess.DEVNULL)
    package = build / "package"
    failures = []
    with zipfile.ZipFile(next(package.glob("vintrel-*.zip"))) as archive:
        names = set(archive.namelist())
        for name in ("Vintrel.dll", "Vintrel.tlb", "Vintrel.Server.manifest", "vintrel-host.exe", "README.md"):
            if name not in names:
                failures.append(f"the ZIP lacks {name}")
    with tempfile.TemporaryDirectory(dir=build) as folder:
        work = Path(folder)
        # The keys that every Windows account has and a fresh Wine prefix lacks.
        parents = ["Classes\\CLSID", "Classes\\Interface", "Classes\\TypeLib", "Microsoft\\Windows\\CurrentVersion\\Uninstall"]
        lines = ["@echo off", *(f'reg add "HKCU\\Software\\{parent}" /f > NUL' for parent in parents)]
        for mode in ("AllUsers", "CurrentUser"):
            lines += round_trip(work, package / "vintrel-setup.exe", mode, ["HKLM\\Software", "HKCU\\Software"])
        (work / "trip.bat").write_text("\r\n".join(lines) + "\r\n", encoding="ascii")
        subprocess.run([wine, "cmd", "/c", windows(work / "trip.bat")], check=True, timeout=300)
        for mode in ("AllUsers", "CurrentUser"):
            check(work, mode, failures)
    if failures:
        sys.exit("\n".join(failures))


if __name__ == "__main__":
    main()
