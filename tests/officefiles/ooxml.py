"""Reading a workbook's parts with nothing but the standard library."""
import sys
import xml.etree.ElementTree as tree
import zipfile

MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"


class Checks:
    """Counts checks and prints those that fail; ends the program with a summary."""

    def __init__(self):
        self.count = 0
        self.failed = 0

    def equal(self, what, found, expected):
        self.count += 1
        if found != expected:
            self.failed += 1
            print(f"{what}:\n    found    {found!r}\n    expected {expected!r}")

    def finish(self, least):
        """At least `least` checks must have been made: a loop over nothing is no test."""
        if self.count < least:
            print(f"only {self.count} checks were made, {least} were expected")
        print(f"{self.count} checks, {self.failed} failed")
        sys.exit(1 if self.failed or self.count < least else 0)


class Package:
    """The parts of a file as trees."""

    def __init__(self, path):
        with zipfile.ZipFile(path) as archive:
            assert archive.testzip() is None
            self.names = archive.namelist()
            self.parts = {name: tree.fromstring(archive.read(name)) for name in self.names}

    def __getitem__(self, name):
        return self.parts[name]


def local(tag):
    return tag.rsplit("}", 1)[-1]


def plain(element, ignored=()):
    """An element as nested tuples without namespaces, attributes in alphabetic order."""
    attributes = tuple(sorted((local(k), v) for k, v in element.attrib.items() if local(k) not in ignored))
    return (local(element.tag), attributes, element.text or "", tuple(plain(c, ignored) for c in element))
