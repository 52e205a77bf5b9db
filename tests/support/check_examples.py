"""Checks that each C++ example of a page stands, but for white space, in a test that is compiled and run.

usage: check_examples.py PAGE.md TEST.cpp
"""
import re
import sys


def squeezed(text):
    return re.sub(r"\s+", " ", text).strip()


def main(page, test):
    with open(page, encoding="utf-8") as file:
        examples = re.findall(r"^```cpp\n(.*?)^```", file.read(), re.DOTALL | re.MULTILINE)
    with open(test, encoding="utf-8") as file:
        tested = squeezed(file.read())
    missing = [example for example in examples if squeezed(example) not in tested]
    for example in missing:
        print(f"{page}: not in {test}:\n{example}")
    if not examples:
        print(f"{page}: no example found")
    return 1 if missing or not examples else 0


sys.exit(main(*sys.argv[1:]))
