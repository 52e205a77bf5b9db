// What the program prints.
#pragma once

#include "PlaneCut.h"

// `value` with 9 significant digits; 0 has no sign.
CString NumberText(double value);

// "1 element", "2 elements".
CString Counted(int count, LPCSTR thing);

// The model's lines on standard output, all but the report's own.
void PrintModel(const CModelView& view);
// The elements that the plane meets.
void PrintCut(const CModelView& view, const CPlaneCut& cut);
void PrintReport(const CString& path);

// "modelreport: TEXT" on standard error.
void PrintProblem(const CString& text);

// A line of progress on standard output that the next print covers; shown only on a terminal.
//
//   CProgress progress("nodes", count, quiet);
//   for (...) progress.Step();
class CProgress
{
public:
    CProgress(LPCSTR what, int total, bool quiet);
    ~CProgress(); // takes the line away

    void Step();

private:
    void Show(int percent);

    LPCSTR m_what;
    int m_total;
    int m_done = 0;
    int m_percent = -1;
    bool m_shown;
};
