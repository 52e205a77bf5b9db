// A table of the report: headings, a body with formats, borders.
#pragma once

#include "ReportSheet.h"

enum FieldKind { kTextField, kNumberField };

// A column of a table, over the sheet's columns `first` to `last`.
struct Field {
    LPCSTR heading;
    int first;
    int last;
    FieldKind kind;
};

// The table starts at the sheet's row at hand and moves it on. Call Headings, Begin, then for each row Text
// and Number for its fields and NextRow, in the end End.
class CReportTable
{
public:
    CReportTable(CReportSheet& sheet, const Field* fields, int fieldCount)
        : m_sheet(sheet), m_fields(fields), m_fieldCount(fieldCount)
    {
    }

    void Headings();

    // Formats a body of so many rows, so that what is then stored stays a text or a number.
    void Begin(int rows);
    // A format without an exponent gets a blank's width to the right.
    void SetNumberFormat(int field, const CString& format);

    void Text(int field, const CString& text);
    void Number(int field, double value);
    // In a number format of its own.
    void FormattedNumber(int field, double value, const CString& format);
    void NextRow();

    // Gives the rows that hold several lines their heights.
    void End();

private:
    void FormatField(const Field& field);
    void SetHeights();

    CReportSheet& m_sheet;
    const Field* m_fields;
    int m_fieldCount;
    int m_firstRow = 0;
    int m_lastRow = 0;
    int m_lines = 1;    // of the row at hand
    int m_runLines = 1; // of the rows since m_runStart
    int m_runStart = 0;
};
