#include "Boxes.h"

#include <GlobalFunc.h>

#include <gmock/gmock.h>

#include <array>

namespace {

// A box's text and title.
std::array<std::string, 2> Shown(const BoxCatcher& boxes)
{
    EXPECT_EQ(boxes.Caught().size(), 1U);
    return {boxes.Caught().at(0).text, boxes.Caught().at(0).caption};
}

using Parts = std::array<std::string, 2>;

TEST(FmtMessageBox, TheCaptionOnlyChoosesTheTitle)
{
    CWinApp app("Example");
    {
        BoxCatcher boxes(IDNO);
        EXPECT_EQ(FmtMessageBox(nullptr, "Caption", MB_YESNO | MB_ICONQUESTION, "%d of %s", 2, "x"),
                  unsigned{IDNO});
        EXPECT_EQ(Shown(boxes), (Parts{"2 of x", ""}));
        EXPECT_EQ(boxes.Caught()[0].style, unsigned{MB_YESNO | MB_ICONQUESTION});
    }
    BoxCatcher boxes;
    EXPECT_EQ(FmtMessageBox(HWND{}, nullptr, MB_OK, "text"), unsigned{IDOK});
    EXPECT_EQ(Shown(boxes), (Parts{"text", "Example"}));
    EXPECT_EQ(boxes.Caught()[0].style, unsigned{MB_OK});
}

TEST(FmtMessageBox, ATextAloneIsTheFrameworksBox)
{
    CWinApp app("Example");
    BoxCatcher boxes;
    const int button = FmtMessageBox("%s: %5.2f", CString("length"), 2.5);
    EXPECT_EQ(button, IDOK);
    EXPECT_EQ(Shown(boxes), (Parts{"length:  2.50", "Example"}));
    EXPECT_EQ(boxes.Caught()[0].style, unsigned{MB_OK | MB_ICONEXCLAMATION});
}

// The form with a window is meant wherever its arguments fit; the title tells which one was taken.
TEST(FmtMessageBox, ANullFirstMeansNoWindow)
{
    CWinApp app("Example");
    const CString caption("Caption"), format("%s|%d");
    char writable[] = "%s|%d";
    const struct {
        const char* label;
        void (*show)(const CString& caption, const CString& format, char* writable);
        Parts shown;
    } rows[] = {
        {"NULL",
         [](const CString&, const CString&, char*) { FmtMessageBox(NULL, "c", MB_OK, "f"); },
         {"f", ""}},
        {"0", [](const CString&, const CString&, char*) { FmtMessageBox(0, "c", 0, "f%d", 1); }, {"f1", ""}},
        {"nulls",
         [](const CString&, const CString&, char*) { FmtMessageBox(NULL, NULL, MB_OK, "f"); },
         {"f", "Example"}},
        {"objects",
         [](const CString& c, const CString& f, char*) { FmtMessageBox(NULL, c, MB_OK, f, "a", 2); },
         {"a|2", ""}},
        {"long style",
         [](const CString&, const CString&, char*) { FmtMessageBox(NULL, "c", 0L, "f"); },
         {"f", ""}},
        {"window",
         [](const CString&, const CString&, char*) { FmtMessageBox(HWND{}, "c", 0, "f"); },
         {"f", ""}},
        {"text that looks like it",
         [](const CString&, const CString&, char*) { FmtMessageBox("%s %u %s", "c", 3U, "f"); },
         {"c 3 f", "Example"}},
        {"object as text",
         [](const CString&, const CString& f, char*) { FmtMessageBox(f, "c", 3, "f"); },
         {"c|3", "Example"}},
        {"writable text",
         [](const CString&, const CString&, char* w) { FmtMessageBox(w, "c", 3U, "f"); },
         {"c|3", "Example"}},
        {"null text",
         [](const CString&, const CString&, char*) { FmtMessageBox(nullptr, 5); },
         {"", "Example"}},
        {"null object",
         [](const CString&, const CString&, char*) { FmtMessageBox(static_cast<const char*>(nullptr)); },
         {"", "Example"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        BoxCatcher boxes;
        row.show(caption, format, writable);
        EXPECT_EQ(Shown(boxes), row.shown);
    }
}

TEST(FmtMessageBox, TakesTextsAsFormatsThatDoNotFit)
{
    CWinApp app("Example");
    BoxCatcher boxes;
    int untouched = 4;
    FmtMessageBox("100%% of %s%n%s %d %d%", "x", &untouched, "y", 5);
    FmtMessageBox(NULL, "c", MB_OK, "%d %s %f", "one");
    EXPECT_THAT(boxes.Texts(), testing::ElementsAre("100% of x%ny 5 %d%", "%d %s %f"));
    EXPECT_EQ(untouched, 4);
}

TEST(FmtMessageBox, NeedsNoApplicationObject)
{
    BoxCatcher boxes;
    FmtMessageBox(HWND{}, nullptr, MB_OK, "text");
    EXPECT_EQ(Shown(boxes), (Parts{"text", AfxGetAppName()}));
}

} // namespace
