// Tables with a row for every node or element: a model may have more of them than a sheet has rows.
#pragma once

#include "ReportTable.h"

#include <functional>

// What a long table looks like. Its columns are the sheet's.
struct LongTable {
    LPCSTR sheet; // the sheet's name; further sheets are named "NAME (2)", "NAME (3)"...
    XlPageOrientation orientation;
    const double* widths;
    const Field* fields;
    int fieldCount;
};

// What it holds.
struct LongTableContent {
    CString model;
    CString note; // below the title
    int rows = 0;
    std::function<void(CReportTable&)> format;   // of each sheet's table, before it is filled
    std::function<void(CReportTable&, int)> row; // fills the row with that index
};

// Adds the sheets to the book: title, note, headings that pages repeat, rows. Shows its progress unless
// `quiet`.
void WriteLongTable(CReportBook& book, const LongTable& layout, const LongTableContent& content, bool quiet);
