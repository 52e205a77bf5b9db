// A stopwatch on the processor's time-stamp counter, with a report.
//
//   CBenchmark& watch = *CBenchmark::Instance();
//   watch.Start(1000);                 // in units of 1000 ticks
//   ULONGLONG before = watch.CLOCK();
//   ...
//   watch.OutputReport("bench.txt");   // {REPORT AT: ...} [TIME SPAN: 12 ms] [BENCHMARK UNIT: 1000
//   CPU-TICKS]
//
// Marks are not recorded in this library: Mark() does nothing, and the report has no rows.
//
// Errors: OutputReport answers 0 when the file cannot be written. Threads: one.
#pragma once

#include <afx.h>

class AFX_EXT_CLASS CBenchmark
{
public:
    // Made on first use, never destroyed.
    static CBenchmark* Instance();

    // Begins a measurement. nUnit is how many ticks make a unit; below 1 it counts as 1 (before the first
    // Start it is 1000).
    void Start(int nUnit);
    // The counter in whole units. On a processor without one, the performance counter stands in.
    ULONGLONG CLOCK();
    void Pause() { m_bPaused = 1; }
    void Resume() { m_bPaused = 0; }
    void Mark(const char* name);

    // Replaces a text file (lines end in CR LF) by the report: the local time, the milliseconds since the
    // start (without one, since the library's load), the unit, and a row for each mark. 1, or 0 and no file.
    int OutputReport(const char* path);

    ~CBenchmark() {}
    CBenchmark& operator=(const CBenchmark& source) = default;

private:
    static constexpr int kMarks = 512;
    static constexpr int kNameSize = 128;

    CBenchmark() = default;
    int MarkClock(const char* name);
    void MarkTimeSpan(ULONGLONG span);
    void Indent();
    void Unindent();
    void WriteIndentedNote(const char* note);
    CString Rows() const;

    ULONGLONG m_startTicks = 0;
    LONG m_startClock = 0;
    ULONGLONG m_markTicks[kMarks] = {};
    char m_markNames[kMarks][kNameSize] = {};
    int m_markCount = -1;
    int m_unit = 1000;
    int m_bPaused = 0;
};
