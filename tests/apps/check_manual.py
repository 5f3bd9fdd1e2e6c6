"""Compares the manual page with what the executable itself tells of its commands and options.

Usage: check_manual.py EXECUTABLE PAGE. Exits with 1 where the page lacks a command, where the
options differ, where the version or the order of the sections is wrong, or where the formatter
warns.
"""

import re
import subprocess
import sys

SECTIONS = ["NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "OPTIONS", "EXIT STATUS", "FILES",
            "EXAMPLES", "SEE ALSO"]


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True)


def help_of(executable, *command):
    return run(executable, *command, "--help").stdout


def commands_of(text):
    """The names below "Subcommands:"."""
    return re.findall(r"^  (\S+)", text.split("Subcommands:\n")[1].split("\n\n")[0], re.M)


def options_of(text):
    """The names at the beginning of the lines below "Options:"."""
    lines = text.split("Options:\n")[1].split("\n\n")[0].splitlines()
    starts = [line.split()[0] for line in lines if re.match(r"  -", line)]
    return {name for start in starts for name in start.split(",")}


def sections_of(page, macro):
    """The text below each heading, by heading."""
    parts = re.split(rf"^\.{macro} (.*)$", page, flags=re.M)
    return dict(zip(parts[1::2], parts[2::2]))


def page_options(text):
    """The options that have an entry of their own, the line behind ".TP"."""
    entries = re.findall(r"^\.TP\n(.*)$", text.replace(r"\-", "-"), re.M)
    return {name for entry in entries for name in re.findall(r"(?<![\w-])--?[a-z][a-z-]*", entry)}


def compare(what, told, written, faults):
    faults += [f"the page lacks {what} {name}" for name in sorted(told - written)]
    faults += [f"the page has {what} {name}, the executable does not"
               for name in sorted(written - told)]


def check_commands(executable, overview, page, faults):
    sections = sections_of(page["COMMANDS"], "SS")
    by_name = {heading.split()[0]: text for heading, text in sections.items()}
    compare("the command", set(commands_of(overview)), set(by_name), faults)
    for name in set(commands_of(overview)) & set(by_name):
        told = options_of(help_of(executable, name)) - {"-h", "--help"}
        compare(f"for {name} the option", told, page_options(by_name[name]), faults)
        if f"kuvariants {name}" not in page["SYNOPSIS"]:
            faults.append(f"the synopsis lacks {name}")


def main():
    executable, path = sys.argv[1:]
    with open(path, encoding="utf-8") as file:
        text = file.read()
    faults = []
    page = sections_of(text, "SH")
    if list(page) != SECTIONS:
        faults.append(f"the sections are {list(page)}")
    overview = help_of(executable)
    compare("the option", options_of(overview), page_options(page["OPTIONS"]), faults)
    check_commands(executable, overview, page, faults)
    if f'"{run(executable, "--version").stdout.replace("kuvariants", "kuVariants").strip()}"' not in text:
        faults.append("the page is for another version")
    faults += run("groff", "-man", "-Tutf8", "-ww", "-z", path).stderr.splitlines()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
