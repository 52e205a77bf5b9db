#include "Console.h"

#include <io.h>

#include <cstdio>
#include <initializer_list>

namespace {

constexpr int kStandardOutput = 1;

void PrintLine(const CString& line)
{
    std::fputs(line, stdout);
    std::fputc('\n', stdout);
}

void PrintNumbers(const CString& title, CArray<UINT, UINT>& numbers)
{
    CString line;
    line.Format("%s: %d: %s", LPCSTR(title), numbers.GetSize(), LPCSTR(Ranges(numbers)));
    PrintLine(line);
}

void PrintTypes(const CModelView& view)
{
    CArray<UINT, UINT> numbers;
    for (int i = 0; i < view.Types().GetSize(); ++i) {
        const int type = view.Types()[i];
        view.NumbersOfType(type, numbers);
        PrintNumbers("type " + view.Model().types[type].name, numbers);
    }
}

void PrintValues(CString line, const double* values, int count, std::initializer_list<double> more = {})
{
    line += ":";
    for (int i = 0; i < count; ++i)
        line += " " + NumberText(values[i]);
    for (const double value : more)
        line += " " + NumberText(value);
    PrintLine(line);
}

void PrintCentroids(const CModelView& view)
{
    for (const MeasureKind kind : {kVolume, kArea, kLength})
        if (const double* centroid = view.Centroid(kind))
            PrintValues(CString("centroid of ") + MeasureName(kind), centroid, 3);
}

void PrintSolids(const BoundingSolids& solids)
{
    PrintValues("bounding sphere", solids.middle, 3, {solids.sphereRadius});
    PrintValues("bounding cylinder", solids.middle, 3, {solids.cylinderRadius, solids.extent[2]});
}

} // namespace

CString NumberText(double value)
{
    CString text;
    text.Format("%.9g", value == 0 ? 0.0 : value);
    return text;
}

CString Counted(int count, LPCSTR thing)
{
    CString text;
    text.Format("%d %s%s", count, thing, count == 1 ? "" : "s");
    return text;
}

void PrintModel(const CModelView& view)
{
    CArray<UINT, UINT> numbers;
    PrintLine("model: " + view.Model().name);
    view.NodeNumbers(numbers);
    PrintNumbers("nodes", numbers);
    view.ElementNumbers(numbers);
    PrintNumbers("elements", numbers);
    PrintTypes(view);
    for (const MeasureKind kind : {kVolume, kArea, kLength})
        PrintLine(CString(MeasureName(kind)) + ": " + NumberText(view.Totals().sums[kind]));
    PrintCentroids(view);
    PrintValues("bounds", view.Bounds(), 6);
    PrintSolids(view.Solids());
    std::fflush(stdout);
}

void PrintCut(const CModelView& view, const CPlaneCut& cut)
{
    CArray<UINT, UINT> numbers;
    cut.Numbers(view, true, numbers);
    PrintNumbers("cut", numbers);
    cut.Numbers(view, false, numbers);
    PrintNumbers("touched", numbers);
    std::fflush(stdout);
}

void PrintReport(const CString& path)
{
    PrintLine("report: " + path);
}

void PrintProblem(const CString& text)
{
    std::fflush(stdout);
    std::fprintf(stderr, "modelreport: %s\n", LPCSTR(text));
}

CProgress::CProgress(LPCSTR what, int total, bool quiet)
    : m_what(what), m_total(total), m_shown(!quiet && _isatty(kStandardOutput) != 0)
{
}

CProgress::~CProgress()
{
    if (!m_shown || m_percent < 0)
        return;
    std::printf("\r%60s\r", "");
    std::fflush(stdout);
}

void CProgress::Step()
{
    ++m_done;
    if (!m_shown || m_total <= 0)
        return;
    const int percent = static_cast<int>(100LL * m_done / m_total);
    if (percent != m_percent)
        Show(percent);
}

void CProgress::Show(int percent)
{
    m_percent = percent;
    std::printf("\rwriting %s: %d %%", m_what, percent);
    std::fflush(stdout);
}
