#!/usr/bin/env python3
"""compare_peer.py SAMPLE PEER: holds the parts of our workbook against another library's for the same
content, element by element where both have the feature.

Only the following may differ: the peer's theme (colours and fonts that refer to it), its hints for readers
(spans, a font's family) and the program's name and version.
"""
import subprocess
import sys
import tempfile

from ooxml import MAIN, Checks, Package, local, plain

SHEET_ELEMENTS = ["dimension", "sheetViews", "sheetFormatPr", "cols", "mergeCells", "printOptions",
                  "pageMargins", "pageSetup", "headerFooter", "rowBreaks"]
THEME_HINTS = {"family", "scheme"}


def number(text):
    return float(text) if text is not None else None


def font(element):
    found = {}
    for child in element:
        name = local(child.tag)
        if name in THEME_HINTS or "theme" in child.attrib:
            continue
        found[name] = tuple(sorted(child.attrib.items()))
    return found


def cell_formats(package):
    """What each cell format comes to, by its number."""
    styles = package["xl/styles.xml"]
    codes = {e.get("numFmtId"): e.get("formatCode") for e in styles.iter(MAIN + "numFmt")}
    lists = {name: styles.find(MAIN + name) for name in ("fonts", "fills", "borders")}
    result = []
    for record in styles.find(MAIN + "cellXfs"):
        alignment = record.find(MAIN + "alignment")
        result.append({
            "code": codes.get(record.get("numFmtId"), record.get("numFmtId")),
            "font": font(lists["fonts"][int(record.get("fontId"))]),
            "fill": plain(lists["fills"][int(record.get("fillId"))]),
            "border": plain(lists["borders"][int(record.get("borderId"))]),
            "alignment": alignment is not None and plain(alignment),
            "applied": {k: v for k, v in record.attrib.items() if k.startswith("apply")},
        })
    return result


def texts(package):
    return [item.find(MAIN + "t").text for item in package["xl/sharedStrings.xml"]]


def cells(package, sheet):
    """Every cell's value and format, numbers as numbers."""
    formats, shared = cell_formats(package), texts(package)
    found = {}
    for cell in package[sheet].iter(MAIN + "c"):
        value = cell.findtext(MAIN + "v")
        kind = cell.get("t", "n")
        value = shared[int(value)] if kind == "s" else number(value) if kind == "n" else value
        found[cell.get("r")] = (kind, value, cell.findtext(MAIN + "f"), formats[int(cell.get("s", "0"))])
    return found


def rows(package, sheet):
    return [plain(row, ("spans",))[1] for row in package[sheet].iter(MAIN + "row")]


def compare_sheet(checks, ours, theirs, sheet):
    for name in SHEET_ELEMENTS:
        mine, peer = ours[sheet].find(MAIN + name), theirs[sheet].find(MAIN + name)
        checks.equal(f"{sheet} {name}", mine is not None and plain(mine), peer is not None and plain(peer))
    order = [local(e.tag) for e in theirs[sheet]]
    checks.equal(f"{sheet} order", [local(e.tag) for e in ours[sheet] if local(e.tag) in order], order)
    checks.equal(f"{sheet} rows", rows(ours, sheet), rows(theirs, sheet))
    mine, peer = cells(ours, sheet), cells(theirs, sheet)
    checks.equal(f"{sheet} cells", sorted(mine), sorted(peer))
    for place in peer:
        checks.equal(f"{sheet} {place}", mine.get(place), peer[place])


def compare_lists(checks, ours, theirs):
    relations = lambda p: {(r.get("Type"), r.get("Target")) for r in p["xl/_rels/workbook.xml.rels"]
                           if "theme" not in r.get("Type")}
    checks.equal("workbook relations", relations(ours), relations(theirs))
    top = lambda p: {(r.get("Type"), r.get("Target")) for r in p["_rels/.rels"]}
    checks.equal("package relations", top(ours), top(theirs))
    types = lambda p: {plain(e) for e in p["[Content_Types].xml"] if "theme" not in e.get("PartName", "")}
    checks.equal("content types", types(ours), types(theirs))
    for name in ("sheets", "definedNames"):
        checks.equal(name, plain(ours["xl/workbook.xml"].find(MAIN + name)),
                     plain(theirs["xl/workbook.xml"].find(MAIN + name)))
    checks.equal("texts", plain(ours["xl/sharedStrings.xml"]), plain(theirs["xl/sharedStrings.xml"]))


def main():
    sample, peer = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sample, "shared", folder + "/ours.xlsx"], check=True)
        subprocess.run([peer, folder + "/theirs.xlsx"], check=True)
        ours, theirs = Package(folder + "/ours.xlsx"), Package(folder + "/theirs.xlsx")
    checks = Checks()
    compare_lists(checks, ours, theirs)
    for sheet in ("xl/worksheets/sheet1.xml", "xl/worksheets/sheet2.xml"):
        compare_sheet(checks, ours, theirs, sheet)
    checks.finish(least=35)


main()
