"""Checks that each example of a page stands, but for white space, in a file that is compiled and run.

usage: check_examples.py PAGE.md FILE...

Examples in C++ are looked for in the files ending in .cpp or .h, resource scripts in those ending in .rc, CMake in
those called CMakeLists.txt. A language of which there is no such file is not looked at.
"""
import os
import re
import sys

LANGUAGES = {".cpp": "cpp", ".h": "cpp", ".rc": "rc", ".txt": "cmake"}


def squeezed(text):
    return re.sub(r"\s+", " ", text).strip()


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def main(page, *files):
    tested = {}
    for path in files:
        tested.setdefault(LANGUAGES[os.path.splitext(path)[1]], []).append(squeezed(read(path)))
    found = re.findall(r"^```(\w+)\n(.*?)^```", read(page), re.DOTALL | re.MULTILINE)
    examples = [(language, text) for language, text in found if language in tested]
    missing = [text for language, text in examples
               if not any(squeezed(text) in whole for whole in tested[language])]
    for example in missing:
        print(f"{page}: not in {', '.join(files)}:\n{example}")
    if not examples:
        print(f"{page}: no example found")
    return 1 if missing or not examples else 0


sys.exit(main(*sys.argv[1:]))
