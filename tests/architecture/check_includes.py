"""Holds the arrows of docs/architecture.md: which folder may include which.

Usage: check_includes.py ROOT. Prints every include that breaks a rule and exits with 1.

The table of the page is the rule for headers and sources. Beside it stand the exceptions of the
page's list "Looks sideways or up", read from there as well.
"""

import re
import sys
from pathlib import Path

FOLDER_ROW = re.compile(r"^\| `(?P<folder>[\w/]+)` \| (?P<allowed>.*?) \|")
EXCEPTION = re.compile(r"^- `(?P<file>[\w/*.]+)` -> `(?P<target>[\w/*.]+)`")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')


def read_rules(page):
    allowed, exceptions = {}, []
    for line in page.read_text(encoding="utf-8").splitlines():
        row = FOLDER_ROW.match(line)
        if row:
            allowed[row["folder"]] = set(re.findall(r"`([\w/]+)`", row["allowed"]))
        exception = EXCEPTION.match(line)
        if exception:
            exceptions.append((exception["file"], exception["target"]))
    return allowed, exceptions


def folder_of(path):
    return path.split("/")[0]


def is_exception(path, target, exceptions):
    return any(Path(path).match(file) and Path(target).match(what) for file, what in exceptions)


def includes_of(path):
    for line in path.read_text(encoding="utf-8").splitlines():
        include = INCLUDE.match(line)
        if include:
            yield include[1]


def find_cycle(graph):
    """A cycle among the headers as a list of names, or None."""
    state, stack = {}, []

    def visit(name):
        state[name] = "open"
        stack.append(name)
        for target in graph.get(name, ()):
            if state.get(target) == "open":
                return stack[stack.index(target):] + [target]
            if target not in state:
                cycle = visit(target)
                if cycle:
                    return cycle
        stack.pop()
        state[name] = "done"
        return None

    for name in graph:
        if name not in state:
            cycle = visit(name)
            if cycle:
                return cycle
    return None


def main():
    root = Path(sys.argv[1])
    allowed, exceptions = read_rules(root / "docs" / "architecture.md")
    source = root / "src"
    complaints, graph, used = [], {}, set()
    for path in sorted(source.rglob("*.h")) + sorted(source.rglob("*.cpp")):
        name = path.relative_to(source).as_posix()
        folder = folder_of(name)
        if folder not in allowed:
            complaints.append(f"{name}: the folder '{folder}' is not in the table")
            continue
        for target in includes_of(path):
            if not (source / target).exists():
                complaints.append(f'{name}: "{target}" is not a file below src')
                continue
            if name.endswith(".h"):
                graph.setdefault(name, []).append(target)
            if folder_of(target) == folder or folder_of(target) in allowed[folder]:
                continue
            if is_exception(name, target, exceptions):
                used.add((name, target))
                continue
            complaints.append(f"{name}: may not include {target}")
    cycle = find_cycle(graph)
    if cycle:
        complaints.append("headers include one another: " + " -> ".join(cycle))
    if not graph or not allowed:
        complaints.append("nothing was read: is the first argument the project's folder?")
    print("\n".join(complaints) or f"{len(graph)} headers, {len(used)} exceptions: all arrows hold")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
