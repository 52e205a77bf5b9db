#!/usr/bin/env python3
"""check_content.py SAMPLE: saves the sample workbook "rich" and reads it back with openpyxl, value by
value, format by format, setting by setting; and with orcus, which must find the same cells."""
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import openpyxl

from ooxml import MAIN, Checks, Package

TEXTS = ["plain", " outer space ", "two\nlines", "a<b> & \"c\" 'd'", "보고서", "\U0001F600", "tab\there",
         "bell\x07", "return\r\nfeed", "_x0041_", "plain", "w" * 32767, "=not a formula", "_x0041\x01",
         "\uffff end"]
NUMBERS = [0, 0, 1, -1.5, 0.1, 1e-300, 1.7976931348623157e308, 123456789012345678.0, 1 / 3, 100000, 1e21]
ERRORS = ["#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"]
FORMULAS = [("=SUM(B1:B3)", 1), ('="a"&"<b>"', "a<b>"), ("=B3>0", True), ("=1/0", "#DIV/0!"), ("=B4*2", None)]
LINES = ["thin", "medium", "dashed", "dotted", "thick", "double", "hair", "mediumDashed", "dashDot",
         "mediumDashDot", "dashDotDot", "mediumDashDotDot", "slantDashDot"]
CODES = ["0.00", "0.000_ ", "@", "m/d/yyyy", "#,##0.00", '[Red]"a&b" 0', "0.000_ "]
RED, BLUE, PALE_BLUE = "FFFF0000", "FF0000FF", "FFD0E0F0"
LAYOUT = "Lay 'out' & more"


def stored(text):
    """What readers make of a stored text: codes stand for what XML cannot hold."""
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda code: chr(int(code[1], 16)), text)


def check_values(checks, sheet, results):
    for row, text in enumerate(TEXTS, 1):
        if stored(text) == text and text.isprintable(): # the rest openpyxl reads in its own way
            checks.equal(f"text {row}", sheet.cell(row, 1).value, text)
        checks.equal(f"text type {row}", sheet.cell(row, 1).data_type, "s")
    for row, number in enumerate(NUMBERS, 1):
        checks.equal(f"number {row}", sheet.cell(row, 2).value, number)
        checks.equal(f"sign {row}", math.copysign(1, sheet.cell(row, 2).value), -1 if number < 0 else 1)
    checks.equal("true", sheet["C1"].value, True)
    checks.equal("false", sheet["C2"].value, False)
    for row, error in enumerate(ERRORS, 3):
        checks.equal(f"error {error}", (sheet.cell(row, 3).value, sheet.cell(row, 3).data_type), (error, "e"))
    for row, (formula, result) in enumerate(FORMULAS, 1):
        checks.equal(f"formula {row}", sheet.cell(row, 4).value, formula)
        checks.equal(f"result {row}", results.cell(row, 4).value, result)


FONTS = [{"b": True}, {"i": True}, {"strike": True}, {"outline": True}, {"u": "single"},
         {"u": "doubleAccounting"}, {"vertAlign": "superscript"}, {"vertAlign": "subscript"}, {"color": RED},
         {"sz": 10.5}, {"name": "Courier New"}]
ALIGNMENTS = [{"horizontal": "center"}, {"horizontal": "centerContinuous"}, {"vertical": "top"},
              {"wrap_text": True}, {"shrink_to_fit": True}, {"horizontal": "left", "indent": 3},
              {"textRotation": 45}, {"textRotation": 180}, {"textRotation": 255}, {}]


def font_of(font):
    names = ["b", "i", "strike", "outline", "u", "vertAlign", "sz", "name"]
    found = {name: getattr(font, name) or None for name in names}
    found["color"] = font.color and font.color.rgb
    return found


def check_formats(checks, sheet):
    normal = dict.fromkeys(["b", "i", "strike", "outline", "u", "vertAlign", "color"], None)
    normal.update(sz=10, name="Arial")
    for row, change in enumerate(FONTS, 1):
        checks.equal(f"font {row}", font_of(sheet.cell(row, 1).font), {**normal, **change})
    fills = [sheet.cell(row, 2).fill for row in (1, 2, 3)]
    checks.equal("fills", [f.patternType for f in fills], ["solid", "lightUp", "gray125"])
    checks.equal("solid fill", fills[0].fgColor.rgb, PALE_BLUE)
    checks.equal("pattern", (fills[1].fgColor.rgb, fills[1].bgColor.rgb), (RED, PALE_BLUE))
    for row, line in enumerate(LINES, 1):
        border = sheet.cell(row, 3).border
        checks.equal(f"line {line}", (border.bottom.style, border.top.style), (line, None))
        checks.equal(f"colour of {line}", border.bottom.color.rgb if row % 2 else border.bottom.color.auto,
                     BLUE if row % 2 else True)
    border = sheet["C14"].border
    checks.equal("diagonal", (border.diagonal.style, border.diagonal.color.rgb, border.diagonalUp,
                              border.diagonalDown), ("double", RED, True, True))
    for row, change in enumerate(ALIGNMENTS, 1):
        found = sheet.cell(row, 4).alignment
        for name in ("horizontal", "vertical", "wrap_text", "shrink_to_fit", "indent", "textRotation"):
            expected = change.get(name)
            checks.equal(f"alignment {row} {name}", getattr(found, name) or None, expected)
    checks.equal("protection", (sheet["D10"].protection.locked, sheet["D10"].protection.hidden), (False, True))
    for row, code in enumerate(CODES, 1):
        checks.equal(f"number format {row}", sheet.cell(row, 5).number_format, code)
    checks.equal("style", [sheet.cell(row, 6).style for row in (1, 2, 3)],
                 ["Heading & more", "Heading & more", "Normal"])
    checks.equal("style's font", [(c.font.b, c.font.color.rgb) for c in (sheet["F1"], sheet["F2"])],
                 [(True, RED)] * 2)
    checks.equal("fill on style", sheet["F2"].fill.fgColor.rgb, PALE_BLUE)


def check_layout(checks, sheet):
    width = lambda letter: sheet.column_dimensions[letter].width
    checks.equal("widths", [width("A"), width("B")], [20.7109375, 0.85546875])
    checks.equal("wide run", (sheet.column_dimensions["B"].min, sheet.column_dimensions["B"].max), (2, 3))
    checks.equal("hidden column", sheet.column_dimensions["D"].hidden, True)
    checks.equal("height", sheet.row_dimensions[1].height, 30.75)
    checks.equal("hidden row", sheet.row_dimensions[3].hidden, True)
    checks.equal("column format", sheet.column_dimensions["G"].number_format, "0.0")
    checks.equal("row format", sheet.row_dimensions[10].font.b, True)
    checks.equal("crossing", (sheet["G10"].font.b, sheet["G10"].number_format), (True, "0.0"))
    checks.equal("merges", sorted(map(str, sheet.merged_cells.ranges)), ["A1:C2", "E5:G5"])
    checks.equal("row breaks", [b.id for b in sheet.row_breaks.brk], [10, 20])
    checks.equal("column breaks", [b.id for b in sheet.col_breaks.brk], [5])
    view = sheet.sheet_view
    checks.equal("view", (view.showGridLines, view.showZeros, view.view, view.tabSelected),
                 (False, False, "pageBreakPreview", True))
    checks.equal("selection", (view.selection[0].activeCell, view.selection[0].sqref), ("B3", "B3:D5"))


def check_page(checks, sheet):
    page, margins = sheet.page_setup, sheet.page_margins
    checks.equal("paper", (page.paperSize, page.orientation), (9, "landscape"))
    checks.equal("left margin", round(margins.left * 25.4, 9), 10)
    checks.equal("other margins", (margins.right, margins.top, margins.bottom, margins.header, margins.footer),
                 (0.7, 0.75, 0.75, 0.25, 0.3))
    checks.equal("fit", (sheet.sheet_properties.pageSetUpPr.fitToPage, page.fitToWidth, page.fitToHeight),
                 (True, None, 0))
    checks.equal("first page", (page.firstPageNumber, page.useFirstPageNumber), (3, True))
    checks.equal("header", [sheet.oddHeader.left.text, sheet.oddHeader.center.text, sheet.oddHeader.right.text],
                 ["left & right", None, "&P/&N"])
    checks.equal("footer", sheet.oddFooter.center.text, "<centre>")
    checks.equal("options", (sheet.print_options.horizontalCentered, sheet.print_options.verticalCentered,
                             sheet.print_options.gridLines), (True, None, True))
    checks.equal("area", sheet.print_area, ["$A$1:$D$100"])
    checks.equal("titles", (sheet.print_title_rows, sheet.print_title_cols), ("$1:$2", "$A:$A"))


def check_book(checks, book):
    checks.equal("sheets", [(s.title, s.sheet_state) for s in book],
                 [("Values", "visible"), ("Formats", "visible"), (LAYOUT, "visible"), ("Empty", "visible"),
                  ("Hidden", "hidden"), ("Deep", "veryHidden"), ("Frozen", "visible")])
    checks.equal("active", book.active.title, LAYOUT)
    names = {(n.name, n.localSheetId): n.attr_text for n in book.defined_names.definedName}
    checks.equal("name", names.get(("Total", None)), "Values!$B$1")
    local = book.defined_names.get("Local", scope=1)
    checks.equal("local name", local and local.attr_text, "Formats!$A$1:$B$2")
    checks.equal("empty sheet", list(book["Empty"].values), [])
    view = book["Frozen"].sheet_view
    checks.equal("frozen", (view.pane.topLeftCell, view.pane.state, view.zoomScale), ("B3", "frozen", 85))


def check_texts(checks, path):
    """The texts as the file holds them, each once, in the order in which cells use them."""
    items = Package(path)["xl/sharedStrings.xml"]
    found = [stored(item.find(MAIN + "t").text) for item in items]
    checks.equal("texts", found[:len(TEXTS) - 1], list(dict.fromkeys(TEXTS)))
    checks.equal("counts", (int(items.get("uniqueCount")), int(items.get("count"))), (len(found), 29))


def check_with_orcus(checks, path):
    """orcus prints "sheet/row/column:type:value" for each cell; errors it passes over."""
    text = subprocess.run(["orcus-xlsx", "-f", "check", path], capture_output=True,
                          text=True).stdout  # its exit code is 1 whatever happens
    lines = dict(line.split(":", 1) for line in text.splitlines() if ":" in line)
    checks.equal("orcus text", lines.get("Values/4/0"), 'string:"보고서"')
    checks.equal("orcus number", lines.get("Values/8/1"), "numeric:0.3333333333333333")
    checks.equal("orcus true", lines.get("Values/0/2"), "boolean:true")
    checks.equal("orcus cells", sum(key.startswith("Values/") for key in lines), 33)
    checks.equal("orcus formats", sum(key.startswith("Formats/") for key in lines), 20)


def check_same_bytes(checks, sample, folder):
    """Nothing of the surroundings gets into the file."""
    def save(**environment):
        path = folder + "/same.xlsx"
        subprocess.run([sample, "rich", path], check=True, env={**os.environ, **environment})
        return pathlib.Path(path).read_bytes()

    first = save()
    for change in ({"TZ": "Asia/Seoul"}, {"TZ": "America/St_Johns"}, {"LC_ALL": "de_DE.UTF-8"},
                   {"LC_ALL": "tr_TR.UTF-8", "HOME": "/nonexistent"}):
        checks.equal(f"same bytes with {change}", save(**change) == first, True)


def main():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/rich.xlsx"
        subprocess.run([sys.argv[1], "rich", path], check=True)
        book = openpyxl.load_workbook(path)
        results = openpyxl.load_workbook(path, data_only=True)
        checks = Checks()
        check_book(checks, book)
        check_values(checks, book["Values"], results["Values"])
        check_formats(checks, book["Formats"])
        check_layout(checks, book[LAYOUT])
        check_page(checks, book[LAYOUT])
        check_texts(checks, path)
        check_with_orcus(checks, path)
        check_same_bytes(checks, sys.argv[1], folder)
    checks.finish(least=190)


main()
