"""Holds libraries and executables to what the C interface of Python 3.7 has.

Usage: check_python_symbols.py LIST BINARY... The list has one symbol per line, "#" for comments.
Fails on every symbol of Python that a binary imports and the list does not have, and
on a binary that imports none.
"""

import re
import subprocess
import sys
from pathlib import Path

ADVICE = """Python 3.7 has to have each of them, and with the same meaning. For each:
1. Look it up in the documentation of Python 3.7, "Python/C API Reference Manual". If it stands there
   without "New in version 3.8" or later, it may be used. If it does not stand there, look for it in
   the headers of Python 3.7 ("Include/"); what begins with "_Py" must come out of a documented macro.
2. If 3.7 has it, add it to the list. If not, use something else."""


def imported_symbols(binary):
    table = subprocess.run(["nm", "--dynamic", "--undefined-only", binary],
                           check=True, capture_output=True, text=True).stdout
    names = (line.split()[-1].split("@")[0] for line in table.splitlines() if line.strip())
    return {name for name in names if re.match(r"_?Py", name)}


def kept_symbols(page):
    lines = (line.split("#")[0].strip() for line in page.read_text(encoding="utf-8").splitlines())
    return {line for line in lines if line}


def main():
    kept = kept_symbols(Path(sys.argv[1]))
    used = {binary: imported_symbols(binary) for binary in sys.argv[2:]}
    complaints = [f"{Path(binary).name} imports {name}, which {sys.argv[1]} does not have"
                  for binary, names in used.items() for name in sorted(names - kept)]
    if complaints:
        complaints.append(ADVICE)
    for binary, names in used.items():
        if not names:
            complaints.append(f"{binary}: no symbol of Python was found")
    print("\n".join(complaints) or f"{len(set().union(*used.values()))} symbols, all of Python 3.7")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
