#include "ReportSheets.h"

#include "Console.h"
#include "LongTable.h"
#include "Paths.h"

#include <cstdlib>

namespace {

constexpr double kWidths[] = {60, 10, 12};
constexpr Field kFields[] = {
    {"Phase", 0, 0, kTextField},
    {"Calls", 1, 1, kNumberField},
    {"Seconds", 2, 2, kNumberField},
};
enum { kPhase, kCalls, kSeconds };
constexpr LongTable kLayout = {"Profile", xlPortrait, kWidths, kFields, 3};

struct ProfileRow {
    CString phase;
    int calls;
    double seconds;
};

// Takes the profiler's lines, "PHASE : CALLS, SECONDS", apart; the first one is a title.
class CRowCollector : public CProfilePrinterAdaptor
{
public:
    void PrintLine(const char* text) override
    {
        const CString line(text);
        const int comma = line.ReverseFind(','), colon = line.ReverseFind(':');
        if (colon > 0 && comma > colon)
            m_rows.Add({NamePart(line.Left(colon - 1)), std::atoi(line.Mid(colon + 1)),
                        std::atof(line.Mid(comma + 1))});
    }

    CArray<ProfileRow, const ProfileRow&> m_rows;
};

} // namespace

void WriteProfileSheet(CReportBook& book, const CModelView& view, bool quiet)
{
    if (CProfileMgr::IsStopped())
        return;
    CRowCollector collector;
    CProfileMgr::PrintST(&collector);
    LongTableContent content;
    content.model = view.Model().name;
    content.note = "time of " + Counted(collector.m_rows.GetSize(), "phase") + " before this sheet";
    content.rows = collector.m_rows.GetSize();
    content.format = [](CReportTable& table) {
        table.SetNumberFormat(kCalls, "0");
        table.SetNumberFormat(kSeconds, "0.000");
    };
    content.row = [&collector](CReportTable& table, int row) {
        table.Text(kPhase, collector.m_rows[row].phase);
        table.Number(kCalls, collector.m_rows[row].calls);
        table.Number(kSeconds, collector.m_rows[row].seconds);
    };
    WriteLongTable(book, kLayout, content, quiet);
}
