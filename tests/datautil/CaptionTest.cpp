// The captions of controls that CSpecialChar fills.
#include "LocaleLib.h"
#include "SpecialChar.h"

#include <afxwin.h>

#include <gtest/gtest.h>
#include <string>

namespace {

constexpr int kLabel = 17;
constexpr int kButton = -3;
constexpr int kMissing = 99;

// A window with two controls, each test's own.
class Caption : public testing::Test
{
protected:
    void SetUp() override
    {
        m_window.Attach(Create("STATIC", nullptr, WS_POPUP, 0));
        m_label = Create("STATIC", m_window.m_hWnd, WS_CHILD, kLabel);
        m_button = Create("BUTTON", m_window.m_hWnd, WS_CHILD, kButton);
        ASSERT_NE(m_button, nullptr);
    }
    void TearDown() override { m_window.DestroyWindow(); }

    static HWND Create(LPCSTR className, HWND parent, DWORD style, INT_PTR id)
    {
        return CreateWindowExA(0, className, "before", style, 0, 0, 100, 20, parent,
                               reinterpret_cast<HMENU>(id), GetModuleHandleA(nullptr), nullptr);
    }

    static std::string TextOf(HWND window)
    {
        std::string text(200'000, '?');
        const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    std::string Filled(const std::string& caption, const CString& first)
    {
        SetWindowTextA(m_label, caption.c_str());
        EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, kLabel, first), 1);
        return TextOf(m_label);
    }

    std::string Filled(const std::string& caption, const CString& first, const CString& second)
    {
        SetWindowTextA(m_label, caption.c_str());
        EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, kLabel, first, second), 1);
        return TextOf(m_label);
    }

    CWnd m_window;
    HWND m_label = nullptr;
    HWND m_button = nullptr;
};

TEST_F(Caption, IsAFormatForTheTexts)
{
    const struct {
        const char *caption, *withOne, *withTwo;
    } rows[] = {
        {"Area (m%s)", "Area (m^2)", "Area (m^2)"},
        {"%s and %s", "^2 and %s", "^2 and <b>"},
        {"%s%s%s", "^2%s%s", "^2<b>%s"},
        {"no place", "no place", "no place"},
        {"", "", ""},
        {"100%% of %s", "100% of ^2", "100% of ^2"},
        {"[%5s|%-5s]", "[   ^2|%-5s]", "[   ^2|<b>  ]"},
        {"%.1s%.9s", "^%.9s", "^<b>"},
        {"&Accelerator %s", "&Accelerator ^2", "&Accelerator ^2"},
        {"100%", "100%", "100%"},
        {"%n%s", "%n%s", "%n<b>"},
        {"%d%s", "%d%s", "%d<b>"},
        {"%f%c%p", "%f%c%p", "%f%c%p"},
        {"%2000000000s", "%2000000000s", "%2000000000s"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.caption);
        EXPECT_EQ(Filled(row.caption, "^2"), row.withOne);
        EXPECT_EQ(Filled(row.caption, "^2", "<b>"), row.withTwo);
    }
}

TEST_F(Caption, TextsAreNoFormats)
{
    EXPECT_EQ(Filled("(%s)", "%s%n%d"), "(%s%n%d)");
    EXPECT_EQ(Filled("(%s)", ""), "()");
    EXPECT_EQ(Filled("(%s) %s", "%s", "x"), "(%s) x");
}

TEST_F(Caption, MayBeOfAnyLength)
{
    const std::string half(30'000, 'x');
    EXPECT_EQ(Filled(half + "%s" + half, "^2"), half + "^2" + half);
    EXPECT_EQ(Filled("%s|%s", half.c_str(), half.c_str()), half + "|" + half);
}

TEST_F(Caption, OnlyThatOfTheChildIsFilled)
{
    SetWindowTextA(m_button, "m%s");
    SetWindowTextA(m_label, "%s");
    EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, kButton, "^2"), 1);
    EXPECT_EQ(TextOf(m_button), "m^2");
    EXPECT_EQ(TextOf(m_label), "%s");
    EXPECT_EQ(TextOf(m_window.m_hWnd), "before");
}

// Shown, so that the control that draws the caption has its say.
TEST_F(Caption, IsThatOfAnyControl)
{
    const struct {
        const char *label, *className;
        DWORD style;
        const char *caption, *filled;
    } rows[] = {
        {"static text", "STATIC", SS_LEFT, "Area (m%s)", "Area (m^2)"},
        {"push button", "BUTTON", BS_PUSHBUTTON, "&Use m%s", "&Use m^2"},
        {"check box", "BUTTON", BS_AUTOCHECKBOX, "in m%s && N", "in m^2 && N"},
        {"radio button", "BUTTON", BS_AUTORADIOBUTTON, "m%s", "m^2"},
        {"group box", "BUTTON", BS_GROUPBOX, "Units: m%s", "Units: m^2"},
        {"edit", "EDIT", ES_AUTOHSCROLL, "3 m%s", "3 m^2"},
        {"edit of several lines", "EDIT", ES_MULTILINE, "1%s\r\n2%s\r\n", "1^2\r\n2%s\r\n"},
        {"combo box", "COMBOBOX", CBS_DROPDOWN, "m%s", "m^2"},
    };
    m_window.ShowWindow(SW_SHOWNOACTIVATE);
    int id = 100;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const HWND control = Create(row.className, m_window.m_hWnd, WS_CHILD | WS_VISIBLE | row.style, ++id);
        ASSERT_NE(control, nullptr);
        SetWindowTextA(control, row.caption);
        EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, id, "^2"), 1);
        EXPECT_EQ(TextOf(control), row.filled);
    }
}

// Of the window's own children: a control within a control is not looked for.
TEST_F(Caption, OfAGrandchildIsNotFilled)
{
    constexpr int kInner = 200;
    const HWND inner = Create("STATIC", m_label, WS_CHILD, kInner);
    SetWindowTextA(inner, "m%s");
    EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, kInner, "x"), 0);
    EXPECT_EQ(TextOf(inner), "m%s");
    EXPECT_EQ(CSpecialChar::FillWindowChar(CWnd::FromHandle(m_label), kInner, "x"), 1);
    EXPECT_EQ(TextOf(inner), "mx");
}

TEST_F(Caption, OfNoWindowIsNotFilled)
{
    CWnd none;
    EXPECT_EQ(CSpecialChar::FillWindowChar(nullptr, kLabel, "x"), 0);
    EXPECT_EQ(CSpecialChar::FillWindowChar(nullptr, kLabel, "x", "y"), 0);
    EXPECT_EQ(CSpecialChar::FillWindowChar(&none, kLabel, "x"), 0);
    EXPECT_EQ(CSpecialChar::FillWindowChar(&m_window, kMissing, "x"), 0);
    const HWND gone = m_window.Detach();
    DestroyWindow(gone);
    none.m_hWnd = gone;
    EXPECT_EQ(CSpecialChar::FillWindowChar(&none, kLabel, "x"), 0);
    none.m_hWnd = nullptr;
}

// Run with the code page of Korean, in a process of its own.
TEST_F(Caption, InKoreanKeepsItsCharacters)
{
    if (GetACP() != 949)
        GTEST_SKIP() << "another code page";
    EXPECT_EQ(Filled("\xB8\xE9\xC0\xFB (m%s)", CSpecialChar::m_cs2Square), "\xB8\xE9\xC0\xFB (m\xA9\xF7)");
    EXPECT_EQ(Filled("%s\xA5\xE1%s", "\xB0\xA1", CSpecialChar::m_csDegree), "\xB0\xA1\xA5\xE1\xA1\xC6");
    std::string syllables;
    for (int i = 0; i < 5'000; ++i)
        syllables += "\xB0\xA1";
    EXPECT_EQ(Filled(syllables + "%s", "\xB3\xAA"), syllables + "\xB3\xAA");
}

// A Korean desktop of today speaks UTF-8; the symbols' bytes stay those of the code page 949.
TEST_F(Caption, InUtf8ShowsTheSymbolsOfTheLanguage)
{
    if (GetACP() != CP_UTF8)
        GTEST_SKIP() << "another code page";
    const CString before = CLocaleLib::csLocale;
    static const struct {
        const char *locale, *symbol, *filled;
    } kRows[] = {
        {"0412", "\xA9\xF7", "\xEB\xA9\xB4 \xC2\xB2"},
        {"0412", "^2", "\xEB\xA9\xB4 ^2"},
        {"0412", "\xC2\xB2", "\xEB\xA9\xB4 \xC2\xB2"},
        {"0411", "\x83\xC0", "\xEB\xA9\xB4 \xCE\xB2"},
        {"0804", "\xA6\xCB", "\xEB\xA9\xB4 \xCE\xBB"},
        {"0409", "\xB7", "\xEB\xA9\xB4 \xC2\xB7"},
        {"0412", "", "\xEB\xA9\xB4 "},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.locale << ' ' << row.filled);
        CLocaleLib::csLocale = row.locale;
        EXPECT_EQ(Filled("\xEB\xA9\xB4 %s", row.symbol), row.filled);
    }
    CLocaleLib::csLocale = "0412";
    EXPECT_EQ(Filled("Area (m%s)", "\xA9\xF7"), "Area (m\xA9\xF7)") << "a caption that any page has";
    EXPECT_EQ(Filled("\xB8\xE9 %s", "\xA9\xF7"), "\xB8\xE9 \xA9\xF7") << "a caption in that page itself";
    CLocaleLib::csLocale = before;
}

} // namespace
