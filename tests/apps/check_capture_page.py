"""Runs the commands of docs/capture.md as they stand there and compares what they print.

Usage: check_capture_page.py EXECUTABLE ROOT [--accept]. The commands are the lines behind "$ " in
blocks of "console"; what stands below each is what it prints, and standard error comes before
standard output as it does on a terminal. "echo $?" tells the exit code of the command before it;
every other command must end with 0. Milliseconds count as equal. With --accept the page is written
anew instead. Exits with 1 where something is different.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(r"^```console\n(.*?)^```\n", re.M | re.S)
PICTURES = ["red.jpg", "blue.jpg", "pictures/Red.png", "pictures/Blue.png"]


def prepare(folder, root):
    for scene in ("red.gltf", "blue.gltf"):
        shutil.copy(root / "samples" / "radio" / scene, folder)
    text = (folder / "red.gltf").read_text(encoding="utf-8")
    (folder / "twins.gltf").write_text(text.replace('"Tuning"', '"Volume"'), encoding="utf-8")


def commands_of(block):
    """Pairs of a command and what stands below it."""
    parts = re.split(r"^\$ (.*)\n", block, flags=re.M)
    return list(zip(parts[1::2], parts[2::2]))


class Shell:
    """Runs commands in a folder, without a terminal."""

    def __init__(self, folder, executable):
        self.folder = folder
        self.code = 0
        path = f"{Path(executable).resolve().parent}{os.pathsep}{os.environ['PATH']}"
        self.environment = {**os.environ, "PATH": path}

    def run(self, command):
        if command == "echo $?":
            printed, self.code = f"{self.code}\n", 0
            return printed
        done = subprocess.run(["/bin/sh", "-c", command], cwd=self.folder, env=self.environment,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)
        self.code = done.returncode
        return done.stderr + done.stdout


def same(printed, expected):
    def mask(text):
        return re.sub(r"\d+ ms$", "N ms", text, flags=re.M)

    return mask(printed) == mask(expected)


def run_page(page, shell):
    """What is wrong, and the page as it would be right."""
    faults = []

    def renew(match):
        lines = []
        for command, expected in commands_of(match.group(1)):
            if shell.code != 0 and command != "echo $?":
                faults.append(f"exit code {shell.code} before: {command}")
            printed = shell.run(command)
            if not same(printed, expected):
                faults.append(f"{command}\nprints\n{printed}instead of\n{expected}")
            lines.append(f"$ {command}\n{printed}")
        return "```console\n" + "".join(lines) + "```\n"

    renewed = BLOCK.sub(renew, page)
    if shell.code != 0:
        faults.append(f"the last command ends with {shell.code}")
    return faults, renewed


def main():
    executable, root = sys.argv[1], Path(sys.argv[2])
    path = root / "docs" / "capture.md"
    page = path.read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory() as name:
        prepare(Path(name), root)
        faults, renewed = run_page(page, Shell(Path(name), executable))
        faults += [f"{picture} was not made" for picture in PICTURES
                   if not (Path(name) / picture).is_file()]
    if len(commands_of("".join(BLOCK.findall(page)))) < 9:
        faults.append("the page has lost commands")
    if sys.argv[3:] == ["--accept"]:
        path.write_text(renewed, encoding="utf-8")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
