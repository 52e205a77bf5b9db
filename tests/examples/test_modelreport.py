#!/usr/bin/python3
"""Tests modelreport from outside: test_modelreport.py MODELREPORT DECKS [unittest arguments]

DECKS is the folder of the decks beside this file, each with the output (NAME.out) and, for some, all cells of
the workbook (NAME.cells) that it must give.
"""
import os
import pty
import shutil
import subprocess
import sys
import tempfile
import unittest

import openpyxl

from modelreport_run import Run, expand

PROGRAM = os.path.abspath(sys.argv.pop(1))
DECKS = os.path.abspath(sys.argv.pop(1))


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def cells_of(book):
    """One line per cell that holds a value: place, number format, value."""
    for sheet in book:
        for row in sheet.iter_rows():
            for cell in row:
                if cell.value is not None:
                    value = f"{cell.value:.12g}" if isinstance(cell.value, float) else repr(cell.value)
                    yield f"{sheet.title}!{cell.coordinate} [{cell.number_format}] {value}\n"


class InScratch(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="zek-report-")
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)
        return self.path(name)

    def content(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def run_here(self, *arguments, program=PROGRAM, **options):
        return Run(program, *arguments, cwd=self.folder, **options)

    def run_deck(self, name, *arguments, **options):
        return self.run_here(*arguments, os.path.join(DECKS, name), **options)

    def files(self):
        return sorted(os.path.relpath(os.path.join(place, name), self.folder)
                      for place, _, names in os.walk(self.folder) for name in names)


class Output(InScratch):
    def test_every_deck(self):
        decks = sorted(name for name in os.listdir(DECKS) if name.endswith(".inp"))
        self.assertGreater(len(decks), 3)
        for name in decks:
            with self.subTest(name):
                run = self.run_deck(name)
                self.assertEqual((run.code, run.errors), (0, ""))
                self.assertEqual(run.output, read(os.path.join(DECKS, name[:-4] + ".out")))

    def test_selection_limits_elements_and_measures(self):
        run = self.run_deck("frame.inp", "--select", "2 to 4 by 2, 101, 999")
        self.assertEqual(run.code, 0)
        self.assertEqual(run.numbers("elements"), [2, 4, 101])
        self.assertEqual([name for name, _ in run.lines if name.startswith("type")], ["type B31", "type C3D8R"])
        self.assertEqual([run.value(title) for title in ("volume", "area", "length")], ["24", "0", "10"])
        self.assertEqual(len(run.numbers("nodes")), 13)
        book = openpyxl.load_workbook(self.path("frame.xlsx"))
        numbers = [row[0] for row in book["Elements"].iter_rows(min_row=5, values_only=True)]
        self.assertEqual(numbers, [2, 4, 101])
        texts = [cell.value for row in book["Summary"].iter_rows() for cell in row]
        self.assertIn("Selected elements", texts)
        self.assertIn("2 4 101", texts)

    def test_section_plane(self):
        run = self.run_deck("frame.inp", "--cut", "0", "0", "-2", "10")
        self.assertEqual((run.code, run.errors), (0, ""))
        self.assertEqual((run.numbers("cut"), run.numbers("touched")), ([1, 2, 3, 4], []))
        book = openpyxl.load_workbook(self.path("frame.xlsx"))
        self.assertEqual(book.sheetnames, ["Summary", "Cut", "Nodes", "Elements", "Sets"])
        rows = [list(row) for row in book["Cut"].iter_rows(min_row=4, values_only=True)]
        self.assertEqual(rows, [["Element", "Type", "Section", "Plane", "From distance", "To distance"]] +
                         [[number, "B31", "Beam Legs", "cuts", -4, 1] for number in (1, 2, 3, 4)])
        self.assertEqual(book["Cut"]["A2"].value,
                         "plane -2 z + 10 = 0; distances of an element's nodes from it, positive on the normal's side")
        texts = [cell.value for row in book["Summary"].iter_rows() for cell in row]
        self.assertIn("Section plane -2 z + 10 = 0", texts)

    def test_section_plane_of_a_selection(self):
        run = self.run_deck("frame.inp", "--cut", "0", "0", "1", "-4", "--select", "2 101 202")
        self.assertEqual((run.code, run.errors), (0, ""))
        self.assertEqual((run.numbers("cut"), run.numbers("touched")), ([], [2, 101]))

    def test_section_plane_past_the_model(self):
        run = self.run_deck("frame.inp", "--cut", "1", "0", "0", "100", "--quiet")
        self.assertEqual((run.code, run.output, run.errors), (0, "", ""))
        self.assertEqual(openpyxl.load_workbook(self.path("frame.xlsx"))["Cut"].max_row, 4)

    def test_quiet(self):
        run = self.run_deck("frame.inp", "--quiet")
        self.assertEqual((run.code, run.output, run.errors), (0, "", ""))
        self.assertEqual(self.files(), ["frame.xlsx"])

    def test_profile_is_a_sheet_of_phases(self):
        run = self.run_deck("frame.inp", "--profile", "--quiet")
        self.assertEqual((run.code, run.output, run.errors), (0, "", ""))
        rows = list(openpyxl.load_workbook(self.path("frame.xlsx"))["Profile"].iter_rows(values_only=True))
        start = rows.index(("Phase", "Calls", "Seconds"))
        phases = [(row[0].split(") ", 1)[1], row[1]) for row in rows[start + 1:]]
        self.assertEqual(phases, [("read model", 1), ("summary sheet", 1), ("nodes sheet", 1),
                                  ("elements sheet", 1), ("sets sheet", 1)])
        self.assertTrue(all(0 <= row[2] < 60 for row in rows[start + 1:]))
        self.run_deck("frame.inp", "--quiet")
        self.assertNotIn("Profile", openpyxl.load_workbook(self.path("frame.xlsx")).sheetnames)

    def test_progress_on_a_terminal_only(self):
        for arguments, shown in (([], True), (["--quiet"], False)):
            with self.subTest(arguments):
                text = self.run_on_terminal(*arguments, os.path.join(DECKS, "frame.inp"))
                self.assertEqual("writing" in text, shown)
                # What is left on the screen: carriage returns start a line again.
                left = "\n".join(line.rstrip("\r").rsplit("\r", 1)[-1] for line in text.split("\n"))
                self.assertEqual(left.strip(), read(os.path.join(DECKS, "frame.out")).strip() if shown else "")

    def run_on_terminal(self, *arguments):
        ours, theirs = pty.openpty()
        home = self.path("home")
        child = subprocess.Popen([PROGRAM, *arguments], stdout=theirs, cwd=self.folder,
                                 env=dict(os.environ, ZEK_HOME=home))
        os.close(theirs)
        text = b""
        try:
            while chunk := os.read(ours, 4096):
                text += chunk
        except OSError:  # the other end is closed
            pass
        os.close(ours)
        self.assertEqual(child.wait(60), 0)
        return text.decode()

    def test_help(self):
        run = self.run_here("--help")
        self.assertEqual(run.code, 0)
        self.assertIn("usage: modelreport", run.output)


class WrongCalls(InScratch):
    def test_exit_codes(self):
        bad = self.write("bad.inp", "*NODE\n1,0,0,0\n2,1,x\n")
        table = [
            ("no model", [], 1, "usage:"),
            ("two models", ["a.inp", "b.inp"], 1, "b.inp"),
            ("unknown option", ["--fast", "a.inp"], 1, "--fast"),
            ("option without its value", ["a.inp", "-o"], 1, "-o"),
            ("selection", ["--select", "1-5", os.path.join(DECKS, "frame.inp")], 1, "1-5"),
            ("plane of three numbers", [os.path.join(DECKS, "frame.inp"), "--cut", "1", "0", "0"], 1,
             "--cut needs four numbers A B C D"),
            ("plane without a direction", ["--cut", "0", "0", "0", "1", os.path.join(DECKS, "frame.inp")], 1, "normal"),
            ("missing model", ["none.inp"], 2, "none.inp:0: "),
            ("bad line", ["-o", "new", bad], 2, bad + ":3: 'x' is not a coordinate\n"),
        ]
        for label, arguments, code, words in table:
            with self.subTest(label):
                run = self.run_here(*arguments)
                self.assertEqual((run.code, run.output), (code, ""))
                self.assertIn(words, run.errors)
        self.assertEqual(self.files(), ["bad.inp"])
        self.assertFalse(os.path.exists(self.path("new")))


class Folders(InScratch):
    def test_made_when_missing(self):
        for folder, report in (("a/b/c", "a/b/c/chip.xlsx"), ("d/", "d/chip.xlsx"), ("./e.1", "./e.1/chip.xlsx"),
                               (self.path("f"), self.path("f", "chip.xlsx")), ("a", "a/chip.xlsx")):
            with self.subTest(folder):
                run = self.run_deck("chip.inp", "-o", folder)
                self.assertEqual((run.code, run.errors), (0, ""))
                self.assertEqual(run.value("report"), report)
                openpyxl.load_workbook(self.path(report))

    def test_replaces_the_report_before(self):
        first = self.run_deck("chip.inp")
        self.assertEqual(first.code, 0)
        before = self.content("chip.xlsx")
        os.utime(self.path("chip.xlsx"), (0, 0))
        self.assertEqual(self.run_deck("chip.inp").code, 0)
        self.assertGreater(os.path.getmtime(self.path("chip.xlsx")), 0)
        self.assertEqual(self.content("chip.xlsx"), before)
        self.assertEqual(self.files(), ["chip.xlsx"])

    def test_name_in_the_way_of_the_folder(self):
        self.write("taken", "")
        run = self.run_deck("chip.inp", "-o", "taken/deep")
        self.assertEqual(run.code, 3)
        self.assertIn("cannot make the folder taken/deep", run.errors)
        self.assertEqual(self.files(), ["taken"])

    def test_second_try(self):
        os.makedirs(self.path("out", "chip.xlsx", "in the way"))
        run = self.run_deck("chip.inp", "-o", "out")
        self.assertEqual(run.code, 0)
        self.assertEqual(run.value("report"), "out/chip_bak.xls")
        self.assertIn("out/chip.xlsx could not be written; the report was saved as out/chip_bak.xls", run.errors)
        self.assertEqual(self.files(), ["out/chip_bak.xls"])
        with open(self.path("out", "chip_bak.xls"), "rb") as file:
            self.assertEqual(openpyxl.load_workbook(file).sheetnames[0], "Summary")

    def test_second_try_in_another_folder(self):
        # The documented name is cut at the path's first dot.
        os.makedirs(self.path("v1.2", "chip.xlsx", "in the way"))
        run = self.run_deck("chip.inp", "-o", self.path("v1.2"))
        self.assertEqual(run.code, 0)
        self.assertEqual(run.value("report"), self.path("v1_bak.xls"))
        self.assertEqual(self.files(), ["v1_bak.xls"])

    def test_no_box_waits_on_a_desktop(self):
        os.makedirs(self.path("out", "chip.xlsx", "in the way"))
        run = self.run_deck("chip.inp", "-o", "out", env={"QT_QPA_PLATFORM": "offscreen"})
        self.assertEqual(run.code, 0)
        self.assertIn("out\\chip_bak.xls\n", run.errors)

    def test_no_try_succeeds(self):
        for name in ("chip.xlsx", "chip_bak.xls"):
            os.makedirs(self.path("out", name, "in the way"))
        run = self.run_deck("chip.inp", "-o", "out")
        self.assertEqual(run.code, 3)
        self.assertIn("modelreport: out/chip.xlsx: ", run.errors)
        self.assertNotIn("report: ", run.output)
        self.assertEqual(self.files(), [])

    def test_without_a_server(self):
        server = r"HKCR\CLSID\{00024500-0000-0000-C000-000000000046}\InprocServer32"
        for label, command in (("not registered", ["delete", "-r", r"HKCR\Excel.Application"]),
                               ("its module is missing", ["set", server, "", "zek_none.DLL"])):
            with self.subTest(label):
                settings = dict(os.environ, ZEK_HOME=tempfile.mkdtemp(dir=self.folder))
                subprocess.run([os.path.join(os.path.dirname(PROGRAM), "zek-reg"), *command], env=settings,
                               check=True)
                run = self.run_deck("chip.inp", "-o", "new/folder", env={"ZEK_HOME": settings["ZEK_HOME"]})
                self.assertEqual(run.code, 3)
                self.assertIn("office server", run.errors)
                self.assertNotIn("report: ", run.output)
                self.assertFalse(os.path.exists(self.path("new")))


class Workbook(InScratch):
    def book(self, deck="frame.inp"):
        run = self.run_deck(deck)
        self.assertEqual((run.code, run.errors), (0, ""))
        return openpyxl.load_workbook(self.path(deck[:-4] + ".xlsx"))

    def test_every_cell(self):
        for name in ("frame", "chip"):
            with self.subTest(name):
                wanted = read(os.path.join(DECKS, name + ".cells"))
                self.assertEqual("".join(cells_of(self.book(name + ".inp"))), wanted)

    def test_sheets(self):
        book = self.book()
        self.assertEqual(book.sheetnames, ["Summary", "Nodes", "Elements", "Sets"])
        self.assertEqual(book.active.title, "Summary")
        for sheet in book:
            with self.subTest(sheet.title):
                self.assertFalse(sheet.sheet_view.showGridLines)
                self.assertEqual(sheet.sheet_state, "visible")

    def test_pages(self):
        wanted = {"Summary": ("portrait", None), "Nodes": ("portrait", "$4:$4"),
                  "Elements": ("landscape", "$4:$4"), "Sets": ("landscape", "$4:$4")}
        for sheet in self.book():
            with self.subTest(sheet.title):
                self.assertEqual(sheet.page_setup.paperSize, 9)
                self.assertEqual((sheet.page_setup.orientation, sheet.print_title_rows), wanted[sheet.title])
                margins = sheet.page_margins
                for inches, millimetres in ((margins.left, 15), (margins.right, 15), (margins.top, 20),
                                            (margins.bottom, 20)):
                    self.assertAlmostEqual(inches * 25.4, millimetres, places=6)
                self.assertTrue(sheet.sheet_properties.pageSetUpPr.fitToPage)
                # One page wide is what a file means that does not say how wide.
                self.assertIn(sheet.page_setup.fitToWidth, (None, 1))
                self.assertEqual(sheet.page_setup.fitToHeight, 0)
                self.assertEqual(sheet.oddFooter.left.text, "frame")
                self.assertEqual(sheet.oddFooter.right.text, "Page &P of &N")

    def test_titles_and_headings(self):
        book = self.book()
        columns = {"Summary": "F", "Nodes": "D", "Elements": "E", "Sets": "D"}
        for sheet in book:
            with self.subTest(sheet.title):
                self.assertIn(f"A1:{columns[sheet.title]}1", map(str, sheet.merged_cells.ranges))
                self.assertEqual((sheet["A1"].font.name, sheet["A1"].font.size, sheet["A1"].font.bold),
                                 ("Arial", 16, True))
        for name in ("Nodes", "Elements", "Sets"):
            for cell in book[name][4]:
                with self.subTest(f"{name}!{cell.coordinate}"):
                    self.assertTrue(cell.font.bold)
                    self.assertEqual(cell.alignment.horizontal, "center")
                    self.assertEqual(cell.fill.fill_type, "solid")
                    self.assertEqual(cell.border.top.style, "thin")

    def test_bodies(self):
        book = self.book()
        for name, last in (("Nodes", 17), ("Elements", 12), ("Sets", 12)):
            sheet = book[name]
            self.assertEqual(sheet.max_row, last, name)
            for row in sheet.iter_rows(min_row=5):
                for cell in row:
                    with self.subTest(f"{name}!{cell.coordinate}"):
                        text = cell.number_format == "@"
                        self.assertEqual(cell.alignment.horizontal, "left" if text else "right")
                        self.assertEqual(bool(cell.alignment.wrap_text), text)
                        self.assertEqual(cell.border.bottom.style, "thin" if cell.row == last else "hair")
                        self.assertEqual(cell.border.left.style, "thin" if cell.column == 1 else "hair")

    def test_widths(self):
        wanted = {"Nodes": [14, 24, 24, 24], "Sets": [30, 10, 12, 84]}
        book = self.book()
        for name, widths in wanted.items():
            for column, asked in enumerate(widths, 1):
                width = next(dimension.width for dimension in book[name].column_dimensions.values()
                             if dimension.min <= column <= dimension.max)
                self.assertAlmostEqual(width, asked, delta=0.9, msg=name)  # the file counts padding in

    def test_long_texts_take_several_lines(self):
        deck = self.write("long.inp", "*NODE\n" + "".join(f"{i * i}\n" for i in range(1, 400)) +
                          "*NSET,NSET=Squares,GENERATE\n1,160000\n")
        run = self.run_here(deck)
        self.assertEqual((run.code, run.errors), (0, ""))
        sheet = openpyxl.load_workbook(self.path("long.xlsx"))["Sets"]
        heights = [sheet.row_dimensions[row].height for row in range(5, sheet.max_row + 1)]
        self.assertTrue(all(13 < height <= 409 for height in heights), heights)
        self.assertEqual(expand(" ".join(sheet[f"D{row}"].value for row in range(5, sheet.max_row + 1))),
                         [i * i for i in range(1, 400)])
        self.assertEqual(sheet["D5"].number_format, "General")

    def test_texts_stay_texts(self):
        deck = self.write("odd & co.inp", "*HEADING\n=1+1 \"<&>\"\n*NODE\n7\n*NSET,NSET=1-2\n7\n*NSET,NSET==A1\n7\n")
        run = self.run_here(deck)
        self.assertEqual((run.code, run.errors), (0, ""))
        book = openpyxl.load_workbook(self.path("odd & co.xlsx"))
        self.assertEqual(book["Summary"]["A2"].value, '=1+1 "<&>"')
        self.assertEqual(book["Summary"]["A2"].data_type, "s")
        self.assertEqual([(book["Sets"][f"A{row}"].value, book["Sets"][f"D{row}"].value) for row in (5, 6)],
                         [("1-2", "7"), ("=A1", "7")])
        self.assertEqual(book["Summary"].oddFooter.left.text, "odd && co")


if __name__ == "__main__":
    unittest.main()
