#!/usr/bin/python3
"""Runs modelreport over every deck of a folder and compares its totals with an independent count.

usage: check_decks.py MODELREPORT FOLDER [NAME...]

FOLDER holds *.inp and *.inp.gz (the variable ZEK_MODELS names another one); NAME picks some of them. Exit
code 77: the folder is not there (the package with the decks is not installed), which CTest reports as skipped.
"""
import gzip
import math
import os
import shutil
import sys
import tempfile

import openpyxl

import count_model
from modelreport_run import Run, expand

RELATIVE = 1e-9
PRINTED = 5e-9  # a value of 9 printed digits is that close to the one it stands for
SOLID = 2e-6  # the quadrature of solids has constants of seven digits
CENTROID = 1e-5  # of the diagonal: faces whose corners are not in a plane are filled in either of two ways


def unpack(folder, names, target):
    """Copies the decks, unpacked, and answers their paths."""
    decks = []
    for name in sorted(os.listdir(folder)):
        plain = name.removesuffix(".gz")
        if not plain.endswith(".inp") or names and plain not in names:
            continue
        decks.append(os.path.join(target, plain))
        opener = gzip.open if name.endswith(".gz") else open
        with opener(os.path.join(folder, name), "rb") as source, open(decks[-1], "wb") as copy:
            shutil.copyfileobj(source, copy)
    return decks


def near(a, b, relative):
    return math.isclose(a, b, rel_tol=relative, abs_tol=1e-300)


def compare_output(run, totals):
    """Yields what differs between the printed lines and the count."""
    for title in ("nodes", "elements"):
        if run.numbers(title) != totals[title]:
            yield f"{title} differ"
    printed = [name[5:] for name, _ in run.lines if name.startswith("type ")]
    if printed != sorted(totals["types"]):
        yield f"types {printed}"
    for kind, numbers in totals["types"].items():
        if run.numbers("type " + kind) != numbers:
            yield f"numbers of type {kind} differ"
    for what in ("volume", "area", "length"):
        if not near(float(run.value(what)), totals[what], PRINTED):
            yield f"{what} {run.value(what)}, counted {totals[what]!r}"
    bounds = [float(text) for text in run.value("bounds").split()]
    if len(bounds) != 6 or not all(map(lambda a, b: near(a, b, PRINTED), bounds, totals["bounds"])):
        yield f"bounds {bounds}, counted {totals['bounds']}"


def compare_geometry(run, model):
    """Yields where centroids and bounding solids differ from their count."""
    middle, sphere, cylinder = model.solids()
    bounds = model.totals()["bounds"]
    diagonal = math.dist(bounds[:3], bounds[3:])

    def differs(title, wanted, tolerance):
        values = [float(text) for text in run.value(title).split()]
        close = len(values) == len(wanted) and all(abs(a - b) <= tolerance * diagonal + PRINTED * abs(b)
                                                   for a, b in zip(values, wanted))
        return [] if close else [f"{title} {values}, counted {wanted}"]

    yield from differs("bounding sphere", middle + [sphere], RELATIVE)
    yield from differs("bounding cylinder", middle + [cylinder, bounds[5] - bounds[2]], RELATIVE)
    for what in ("volume", "area", "length"):
        centroid = model.centroid(what)
        if centroid:
            yield from differs("centroid of " + what, centroid, CENTROID)
        elif any(title == "centroid of " + what for title, _ in run.lines):
            yield f"centroid of {what}, counted none"


def compare_volumes(model):
    """Yields the solids whose volume by the documented quadrature is not that of the solid itself."""
    for ident, (kind, nodes) in model.elements.items():
        what, _, corners = count_model.classify(kind)
        if what == "volume":
            exact = count_model.exact_volume([model.nodes[nodes[corner]] for corner in corners])
            if not near(model.measure(ident)[1], exact, SOLID):
                yield f"volume of element {ident}: {model.measure(ident)[1]}, exactly {exact}"


def plane_through(model):
    """A slanted plane through the middle of the model."""
    middle, radius, _ = model.solids()
    normal = [1.0, 0.5, -0.25]
    return normal + [-sum(a * b for a, b in zip(normal, middle))], 2e-9 * radius


def compare_cut(run, book, model):
    cut, touched = model.cut(*plane_through(model))
    if run.numbers("cut") != cut or run.numbers("touched") != touched:
        yield "cut or touched differs"
    listed = {"cuts": [], "touches": []}
    for row in rows_of(book, "Cut", "Element"):
        listed[row[3]].append(row[0])
    if listed != {"cuts": cut, "touches": touched}:
        yield "sheet Cut differs"


def rows_of(book, sheet, heading):
    """The rows below the one that starts with the heading."""
    rows = book[sheet].iter_rows(values_only=True)
    for row in rows:
        if row[0] == heading:
            break
    return list(rows)


def compare_nodes(book, model):
    rows = rows_of(book, "Nodes", "Node")
    if [(row[0], list(row[1:4])) for row in rows] != sorted(model.nodes.items()):
        yield "sheet Nodes differs"


def compare_elements(book, model):
    rows = rows_of(book, "Elements", "Element")
    if [row[0] for row in rows] != sorted(model.elements):
        yield "sheet Elements: other numbers"
        return
    for ident, kind, section, nodes, measure in (row[:5] for row in rows):
        own_kind, own_nodes = model.elements[ident]
        own_section = model.sections.get(ident)
        what, value = model.measure(ident)
        same = (kind == own_kind and [int(node) for node in nodes.split()] == own_nodes
                and (section.split()[1].upper() if section else None) == own_section
                and (near(measure, value, RELATIVE) if what else measure is None))
        if not same:
            yield f"sheet Elements: element {ident}: {kind} {section} {nodes} {measure}"


def compare_sets(book, model):
    found, last = {}, None
    for name, kind, count, ranges in (row[:4] for row in rows_of(book, "Sets", "Set")):
        last = (kind, name.upper(), count) if name else last
        found.setdefault(last, []).extend(expand(ranges or ""))
    counted = {}
    for kind, word, known in (("NSET", "nodes", model.nodes), ("ELSET", "elements", model.elements)):
        for name, members in model.sets[kind].items():
            present = sorted(members & known.keys())
            counted[(word, name, len(present))] = present
    if {key: sorted(numbers) for key, numbers in found.items()} != counted:
        yield f"sheet Sets differs: {set(map(str, found)) ^ set(map(str, counted))}"


def check(program, deck, folder):
    """Yields what is wrong with the report on one deck."""
    model = count_model.Model(deck)
    run = Run(program, "-o", folder, "--cut", *map(repr, plane_through(model)[0]), deck)
    if run.code != 0:
        yield f"exit code {run.code}: {run.errors}"
        return
    if run.errors:
        yield f"unexpected words: {run.errors}"
    yield from compare_output(run, model.totals())
    yield from compare_geometry(run, model)
    yield from compare_volumes(model)
    name = os.path.basename(deck).removesuffix(".inp")
    if run.value("model") != name or run.value("report") != os.path.join(folder, name + ".xlsx"):
        yield "model or report line"
    book = openpyxl.load_workbook(run.value("report"), read_only=True)
    yield from compare_nodes(book, model)
    yield from compare_elements(book, model)
    yield from compare_sets(book, model)
    yield from compare_cut(run, book, model)
    book.close()
    os.remove(run.value("report"))


def main(program, folder, *names):
    folder = os.environ.get("ZEK_MODELS", folder)
    if not os.path.isdir(folder):
        print(f"no decks: {folder} is not there")
        return 77
    wrong = 0
    with tempfile.TemporaryDirectory(prefix="zek-decks-") as scratch:
        decks = unpack(folder, names, scratch)
        for deck in decks:
            problems = list(check(os.path.abspath(program), deck, os.path.join(scratch, "out")))
            wrong += bool(problems)
            for problem in problems[:5]:
                print(f"{os.path.basename(deck)}: {problem}")
    print(f"{len(decks)} decks, {wrong} of them wrong")
    return 0 if decks and wrong == 0 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
