#include <Benchmark.h>

#include "MilliClock.h"
#include "ReportFile.h"

#include <TickCounter.h>

#include <cstring>

CBenchmark* CBenchmark::Instance()
{
    static CBenchmark* const instance = new CBenchmark;
    return instance;
}

void CBenchmark::Start(int nUnit)
{
    m_markCount = 0;
    m_unit = nUnit > 0 ? nUnit : 1;
    m_bPaused = 0;
    std::memset(m_markNames, 0, sizeof m_markNames);
    m_startClock = MilliClock();
    m_startTicks = CLOCK();
}

ULONGLONG CBenchmark::CLOCK()
{
    return TickCounter() / static_cast<unsigned>(m_unit);
}

void CBenchmark::Mark(const char*)
{
}

int CBenchmark::MarkClock(const char*)
{
    return 0;
}

void CBenchmark::MarkTimeSpan(ULONGLONG)
{
}
void CBenchmark::Indent()
{
}
void CBenchmark::Unindent()
{
}
void CBenchmark::WriteIndentedNote(const char*)
{
}

CString CBenchmark::Rows() const
{
    CString rows;
    for (int i = 0; i < m_markCount; ++i) {
        const ULONGLONG before = i == 0 ? m_startTicks : m_markTicks[i - 1];
        rows.AppendFormat("[%3d] %16I64u %16I64u  %s\n", i, m_markTicks[i] - m_startTicks,
                          m_markTicks[i] - before, m_markNames[i]);
    }
    return rows;
}

int CBenchmark::OutputReport(const char* path)
{
    const DWORD span = static_cast<DWORD>(MilliClock()) - static_cast<DWORD>(m_startClock);
    const bool done = WriteReportFile(path, [&](CStdioFile& file) {
        file.WriteString(CTime::GetCurrentTime().Format("{REPORT AT: %Y.%m.%d  %H:%M:%S} "));
        CString line;
        line.Format("[TIME SPAN: %lu ms] [BENCHMARK UNIT: %d CPU-TICKS]\n\n", span, m_unit);
        file.WriteString(line);
        file.WriteString(Rows());
    });
    return done ? 1 : 0;
}
