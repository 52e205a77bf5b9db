// Paths shortened to widths, against all the forms that there are.
#include "FileCtrl.h"
#include "MultibytePage.h"

#include <afxwin.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

std::mt19937 g_random(20261121);

int Number(int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(g_random);
}

// The letters of a name, each a character of the code page; in Japanese some end in the byte of a backslash.
Texts Letters()
{
    Texts letters = {"i", "W", "m", " ", "-", "/", "1"};
    if (GetACP() == 932)
        letters.insert(letters.end(), {"\x83\x5C", "\x95\x5C", "\x82\xA0"});
    if (GetACP() == 949)
        letters.insert(letters.end(), {"\xB0\xA1", "\xB3\xAA"});
    return letters;
}

std::string Name(int longest)
{
    static const Texts kLetters = Letters();
    std::string name;
    for (int left = Number(0, longest); left > 0; --left)
        name += kLetters[static_cast<std::size_t>(Number(0, static_cast<int>(kLetters.size()) - 1))];
    return name;
}

struct Path {
    Texts folders;
    std::string file;
};

Path RandomPath()
{
    Path path;
    for (int left = Number(0, 6); left > 0; --left)
        path.folders.push_back(Name(9));
    path.file = Name(9);
    if (Number(0, 1))
        path.file += "." + Name(3) + "x";
    return path;
}

// Made of the parts, so that nothing is searched for: the whole path, then those without one folder behind
// the first, without two...; the file comes last.
Texts Forms(const Path& path)
{
    Texts forms;
    const std::size_t count = path.folders.size();
    for (std::size_t skipped = 0; skipped < std::max<std::size_t>(count, 1); ++skipped) {
        std::string form;
        for (std::size_t i = 0; i < count; ++i)
            if (i == 0 || i > skipped)
                form += path.folders[i] + "\\";
            else if (i == skipped)
                form += "...\\";
        forms.push_back(form + path.file);
    }
    forms.push_back(path.file);
    return forms;
}

LONG MappedWidth(HDC dc, const std::string& text)
{
    SIZE extent{};
    EXPECT_TRUE(GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &extent));
    POINT point{extent.cx, extent.cy};
    EXPECT_TRUE(LPtoDP(dc, &point, 1));
    return point.x;
}

std::string FirstThatFits(HDC dc, const Texts& forms, LONG room)
{
    for (const std::string& form : forms)
        if (MappedWidth(dc, form) <= room)
            return form;
    return forms.back();
}

// Any mapping with origins anywhere, to the left and upwards too.
void MapAtRandom(CDC& dc)
{
    const auto extent = [] { return (Number(0, 1) ? 1 : -1) * Number(1, 5); };
    dc.SetMapMode(Number(MM_MIN, MM_MAX));
    dc.SetWindowExt(extent(), extent());
    dc.SetViewportExt(extent(), extent());
    dc.SetWindowOrg(Number(-200, 200), Number(-200, 200));
    dc.SetViewportOrg(Number(-200, 200), Number(-200, 200));
}

// Every form is the answer from its own width on, and the next shorter one below.
TEST(FileCtrlWidth, EveryFormHasItsOwn)
{
    static constexpr const char* kForms[] = {"C:\\Alpha\\B\\C\\file.txt", "C:\\...\\B\\C\\file.txt",
                                             "C:\\...\\C\\file.txt", "C:\\...\\file.txt", "file.txt"};
    constexpr int kShorter = static_cast<int>(std::size(kForms)) - 1;
    const struct {
        const char* label;
        CPoint window, viewport; // origins
        int scale;
        int shift; // of a width in pixels
    } rows[] = {{"plain", {0, 0}, {0, 0}, 1, 0},
                {"the viewport's origin widens", {0, 0}, {7, 3}, 1, 7},
                {"the window's origin narrows", {5, 0}, {0, 0}, 1, -5},
                {"both, scaled", {5, 0}, {7, 0}, 3, -5 * 3 + 7}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetViewportExt(row.scale, row.scale);
        dc.SetWindowOrg(row.window);
        dc.SetViewportOrg(row.viewport);
        CFileCtrl file(kForms[0]);
        for (int i = 0; i < kShorter; ++i) {
            const LONG width = dc.GetTextExtent(kForms[i]).cx * row.scale + row.shift;
            RECT exact{-20, 0, width - 20, 0}, tight{0, 0, width - 1, 0};
            EXPECT_EQ(file.GetAbbPathNameExt(&dc, &exact), kForms[i]);
            EXPECT_EQ(file.GetAbbPathNameExt(&dc, &tight), kForms[i + 1]);
        }
        RECT none{0, 0, -1, 0};
        EXPECT_EQ(file.GetAbbPathNameExt(&dc, &none), kForms[kShorter]);
    }
}

// What is measured is the context for measures, which may be another than the one drawn to.
TEST(FileCtrlWidth, IsMeasuredOnTheAttributeContext)
{
    CDC measures, dc;
    ASSERT_TRUE(measures.CreateCompatibleDC(nullptr) && dc.CreateCompatibleDC(nullptr));
    measures.SetViewportOrg(10000, 0);
    dc.SetAttribDC(measures);
    RECT room{0, 0, 9999, 0};
    EXPECT_EQ(CFileCtrl("C:\\A\\file.txt").GetAbbPathNameExt(&dc, &room), "file.txt");
    dc.SetAttribDC(dc);
    EXPECT_EQ(CFileCtrl("C:\\A\\file.txt").GetAbbPathNameExt(&dc, &room), "C:\\A\\file.txt");
}

TEST(FileCtrlWidth, TheFirstFormThatFitsIsTaken)
{
    const MultibytePage page(static_cast<int>(GetACP()));
    CFont large;
    ASSERT_TRUE(large.CreatePointFont(240, "Arial"));
    for (int i = 0; i < 150; ++i) {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        if (Number(0, 1))
            dc.SelectObject(&large);
        if (Number(0, 3))
            MapAtRandom(dc);
        const Texts forms = Forms(RandomPath());
        CFileCtrl file(forms.front().c_str());
        for (const std::string& form : forms)
            for (const LONG more : {-1, 0, 1}) {
                const LONG left = Number(-50, 50);
                const LONG room = MappedWidth(dc, form) + more;
                RECT rect{left, 5, left + room, 1};
                ASSERT_EQ(file.GetAbbPathNameExt(&dc, &rect), FirstThatFits(dc, forms, room).c_str())
                    << forms.front() << " in " << room << ", mode " << dc.GetMapMode();
            }
    }
}

// The context of a window, with its font, as a label uses it.
TEST(FileCtrlWidth, InALabelNoRoomIsGivenAway)
{
    CWnd label;
    ASSERT_TRUE(label.CreateEx(0, "STATIC", "", WS_POPUP, 0, 0, 600, 20, nullptr, nullptr));
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, "Arial"));
    label.SetFont(&font);
    {
        CClientDC dc(&label);
        CFont* const before = dc.SelectObject(label.GetFont());
        const Texts forms = Forms({{"C:", "Models", "Bridge over the river", "Phase 2"}, "deck.inp"});
        CFileCtrl file(forms.front().c_str());
        std::size_t shortest = forms.size() - 1;
        for (int width = 0; width <= 600; width += 2) {
            label.SetWindowPos(nullptr, 0, 0, width, 20, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            CRect client;
            label.GetClientRect(&client);
            EXPECT_EQ(file.GetAbbPathNameExt(&dc, &client), FirstThatFits(dc, forms, client.Width()).c_str());
            while (shortest > 0 && dc.GetTextExtent(forms[shortest - 1].c_str()).cx <= client.Width())
                --shortest;
        }
        EXPECT_EQ(shortest, 0U) << "every form had its turn";
        dc.SelectObject(before);
    }
    label.DestroyWindow();
}

// Where nothing can be measured, nothing has a width.
TEST(FileCtrlWidth, OfAContextThatIsNoneIsNothing)
{
    CDC dc;
    RECT room{0, 0, 0, 0}, none{0, 0, -1, 0};
    CFileCtrl file("C:\\A\\B\\file.txt");
    EXPECT_EQ(file.GetAbbPathNameExt(&dc, &room), "C:\\A\\B\\file.txt");
    EXPECT_EQ(file.GetAbbPathNameExt(&dc, &none), "file.txt");
}

} // namespace
