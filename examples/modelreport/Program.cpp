#include "Program.h"

#include "CommandLine.h"
#include "Console.h"
#include "DeckReader.h"
#include "Messages.h"
#include "Paths.h"
#include "ReportWriter.h"

#include <afxwin.h>

#include <cstdio>
#include <optional>

namespace {

enum ExitCode { kDone = 0, kWrongUsage = 1, kBadModel = 2, kNoReport = 3 };

bool ReadModel(const CString& path, CModel& model)
{
    ZEK_PROFILE_SCOPE("read model");
    model.name = WithoutEnding(NamePart(path));
    CModelBuilder builder(model);
    CDeckReader reader(builder);
    try {
        reader.Read(path);
        return true;
    } catch (CException* e) {
        std::fprintf(stderr, "%s\n", LPCSTR(MessageOf(e)));
        return false;
    }
}

int Report(const CModelView& view, const CPlaneCut* cut, const Options& options)
{
    CString file, problem;
    if (!WriteReport(view, cut, options.folder, options.quiet, file, problem)) {
        PrintProblem(problem);
        return kNoReport;
    }
    if (!options.quiet)
        PrintReport(file);
    return kDone;
}

int Run(const Options& options)
{
    if (options.profile)
        CProfileMgr::StartProfilingST();
    CModel model;
    if (!ReadModel(options.model, model))
        return kBadModel;
    CModelView view(model);
    if (!options.selection.IsEmpty() && !view.Select(options.selection)) {
        PrintProblem("--select: '" + options.selection + "' is no list of numbers");
        return kWrongUsage;
    }
    std::optional<CPlaneCut> cut;
    if (options.cut)
        cut.emplace(view, options.plane);
    if (!options.quiet)
        PrintModel(view);
    if (cut && !options.quiet)
        PrintCut(view, *cut);
    return Report(view, cut ? &*cut : nullptr, options);
}

// Says on the console what the library would say in a box, which nobody may be there to close.
class CReportApp : public CWinApp
{
public:
    int DoMessageBox(LPCSTR text, UINT, UINT) override
    {
        PrintProblem(text);
        return IDOK;
    }
};

} // namespace

int RunModelReport(int argc, char** argv)
{
    const CReportApp app;
    Options options;
    CString problem;
    if (!ParseCommandLine(argc, argv, options, problem)) {
        PrintProblem(problem);
        std::fputs(kUsage, stderr);
        return kWrongUsage;
    }
    if (options.help) {
        std::fputs(kUsage, stdout);
        return kDone;
    }
    if (!AfxOleInit()) {
        PrintProblem("OLE cannot be started");
        return kNoReport;
    }
    return Run(options);
}
