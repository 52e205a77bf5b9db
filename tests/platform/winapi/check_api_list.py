#!/usr/bin/env python3
"""Holds platform/winapi/api.list against the headers, the built library and the callers it names.

usage: check_api_list.py SOURCE_FOLDER LIBRARY
"""
import pathlib
import re
import subprocess
import sys

# A host program is a caller that is not in this tree.
HOSTS = "hosts"
DECLARATION = re.compile(r"^WINBASEAPI\b[^;{(]*?\b(\w+)\s*\(", re.M)


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def read_list(path):
    rows = {}
    for line in path.read_text().splitlines():
        if line and not line.startswith("#"):
            name, header, *callers = line.split()
            rows[name] = (header, callers)
    return rows


def declared(folder):
    names = {}
    for header in sorted(folder.glob("*.h")):
        # Inline functions need no symbol, and macros of the same shape no row.
        text = re.sub(r"^[ \t]*#(?:[^\n\\]|\\.)*(?:\\\n[^\n]*)*", "", without_comments(header.read_text()), flags=re.M)
        for name in DECLARATION.findall(text):
            names[name] = header.name
    return names


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    return {line.split()[-1].split("@")[0] for line in lines.splitlines()}


def mentions(folder, name):
    """Whether a source of the folder calls the function, by its own name or the macro without the A."""
    names = [name, name[:-1]] if name.endswith("A") else [name]
    word = re.compile(r"(?<![\w.>])(?:" + "|".join(map(re.escape, names)) + r")\b")
    sources = [path for path in folder.rglob("*") if path.suffix in (".cpp", ".h")]
    return any(word.search(without_comments(path.read_text(errors="replace"))) for path in sources)


def main():
    root = pathlib.Path(sys.argv[1])
    rows = read_list(root / "platform/winapi/api.list")
    names = declared(root / "platform/winapi/include")
    symbols = exported(sys.argv[2])
    faults = [f"{name}: declared in {names[name]}, not in api.list" for name in sorted(names.keys() - rows.keys())]
    faults += [f"{name}: in api.list, not declared" for name in sorted(rows.keys() - names.keys())]
    for name in sorted(rows.keys() & names.keys()):
        header, callers = rows[name]
        if header != names[name]:
            faults.append(f"{name}: declared in {names[name]}, listed under {header}")
        if name not in symbols:
            faults.append(f"{name}: declared, but the library does not export it")
        if not callers:
            faults.append(f"{name}: no caller named")
        faults += [f"{name}: {caller} does not call it" for caller in callers
                   if caller != HOSTS and not mentions(root / caller, name)]
    print("\n".join(faults) or f"{len(rows)} functions, each declared, exported and called")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
