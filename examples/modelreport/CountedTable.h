// Tables of counted things: what, how many, and which.
#pragma once

#include "ReportTable.h"

struct CountedRow {
    CString item; // "": the text of the row above goes on
    int count;
    CString text;
};

using CountedRows = CArray<CountedRow, const CountedRow&>;

// Adds one row, or several when the text does not fit in one of the width given in characters.
void AddCounted(CountedRows& rows, const CString& item, int count, const CString& text, double width);
// The same with the numbers as ranges. They must ascend without repeats.
void AddCounted(CountedRows& rows, const CString& item, CArray<UINT, UINT>& numbers, double width);

// Writes headings and rows; the table's fields are a text, a number and a text.
void WriteCounted(CReportTable& table, const CountedRows& rows);
