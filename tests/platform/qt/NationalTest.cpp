// Texts whose bytes are of the Korean code page, in a process whose ANSI code page is UTF-8: they are shown
// as what they mean, and come back as they were. Started with LC_ALL=ko_KR.UTF-8.
#include "Widgets.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

#include <array>
#include <cstring>

namespace {

struct Row {
    const char* label;
    const char* bytes;
    const char* shown; // in UTF-8
};
constexpr std::array<Row, 9> kRows = {{
    {"ASCII", "10 mm^2", "10 mm^2"},
    {"a symbol", "\xA9\xF7", "\xC2\xB2"},
    {"words and a symbol", "\xB1\xE6\xC0\xCC (mm\xA9\xF7)", "\xEA\xB8\xB8\xEC\x9D\xB4 (mm\xC2\xB2)"},
    {"a second byte that is a letter", "\x8C\x63", "\xEB\x98\xA0"},
    {"what begins a UTF-8 character", "\xE0\xB8", "\xE9\x8C\xAB"},
    {"a first byte only", "a\xB1", "a?"},
    {"UTF-8", "\xEA\xB8\xB8\xEC\x9D\xB4 \xC2\xB2", "\xEA\xB8\xB8\xEC\x9D\xB4 \xC2\xB2"},
    {"UTF-8 that was cut", "\xEA\xB8\xB8\xEC\x9D", "\xEA\xB8\xB8\xEF\xBF\xBD"},
    {"both at once", "\xC8\xAE", "\xC8\xAE"},
}};

LPARAM Parameter(const char* text)
{
    return reinterpret_cast<LPARAM>(text);
}

std::string TextOf(HWND window)
{
    std::string text(100, '#');
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), 100)));
    EXPECT_EQ(GetWindowTextLengthA(window), static_cast<int>(text.size()));
    return text;
}

class NationalTest : public Widgets
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(GetACP(), static_cast<UINT>(CP_UTF8)) << "LC_ALL=ko_KR.UTF-8 is missing";
        ASSERT_EQ(GetUserDefaultUILanguage(), 0x0412);
        Widgets::SetUp();
    }

    // What the widget at the place of the tests' controls shows.
    template <class Widget>
    Widget* Shown() const
    {
        QWidget* widget = At(15, 15);
        while (widget && !qobject_cast<Widget*>(widget))
            widget = widget->parentWidget();
        EXPECT_TRUE(widget);
        return qobject_cast<Widget*>(widget);
    }
};

TEST_F(NationalTest, TextsOfWindows)
{
    const HWND button = Make("BUTTON", BS_PUSHBUTTON, "", 10, 10, 100, 20);
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        SetWindowTextA(button, row.bytes);
        EXPECT_EQ(Shown<QAbstractButton>()->text().toStdString(), row.shown);
        EXPECT_EQ(TextOf(button), row.bytes);
        const HWND made = CreateWindowExA(0, "Widgets", row.bytes, WS_POPUP | WS_CAPTION, 0, 0, 50, 50,
                                          nullptr, nullptr, nullptr, nullptr);
        EXPECT_TRUE(TopLevel(QString::fromUtf8(row.shown)));
        DestroyWindow(made);
    }
}

TEST_F(NationalTest, TextsOfEdits)
{
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const HWND edit = Make("EDIT", 0, row.bytes, 10, 10, 100, 20);
        EXPECT_EQ(Shown<QLineEdit>()->text().toStdString(), row.shown);
        EXPECT_EQ(TextOf(edit), row.bytes);
        SetWindowTextA(edit, "");
        SetWindowTextA(edit, row.bytes);
        EXPECT_EQ(Shown<QLineEdit>()->text().toStdString(), row.shown);
        EXPECT_EQ(TextOf(edit), row.bytes);
        DestroyWindow(edit);
    }
}

TEST_F(NationalTest, AnEditedTextKeepsItsCodePageAsLongAsItCan)
{
    const HWND edit = Make("EDIT", 0, "\xA9\xF7 mm", 10, 10, 100, 20);
    SendMessageA(edit, EM_SETSEL, 2, 2);
    SendMessageA(edit, EM_REPLACESEL, 0, Parameter("\xEA\xB8\xB8")); // as it is typed
    EXPECT_EQ(TextOf(edit), "\xA9\xF7\xB1\xE6 mm");
    EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), MAKELONG(4, 4));
    SendMessageA(edit, EM_REPLACESEL, 0, Parameter("\xE2\x82\xAC\xF0\x9F\x98\x80")); // not in the code page
    EXPECT_EQ(TextOf(edit), "\xC2\xB2\xEA\xB8\xB8\xE2\x82\xAC\xF0\x9F\x98\x80 mm");
}

TEST_F(NationalTest, TextsOfItems)
{
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const HWND list = Make("LISTBOX", 0, "", 10, 10, 100, 100);
        SendMessageA(list, LB_ADDSTRING, 0, Parameter(row.bytes));
        auto* model = Shown<QAbstractItemView>()->model();
        EXPECT_EQ(model->data(model->index(0, 0)).toString().toStdString(), row.shown);
        std::array<char, 50> text = {};
        EXPECT_EQ(SendMessageA(list, LB_GETTEXT, 0, Parameter(text.data())), lstrlenA(row.bytes));
        EXPECT_STREQ(text.data(), row.bytes);
        EXPECT_EQ(SendMessageA(list, LB_GETTEXTLEN, 0, 0), lstrlenA(row.bytes));
        EXPECT_EQ(SendMessageA(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), Parameter(row.bytes)), 0);
        DestroyWindow(list);
    }
}

TEST_F(NationalTest, TextsOfComboBoxes)
{
    for (const DWORD style : {CBS_DROPDOWN, CBS_DROPDOWNLIST}) {
        for (const auto& row : kRows) {
            SCOPED_TRACE(row.label);
            const HWND box = Make("COMBOBOX", style, "", 10, 10, 100, 100);
            SendMessageA(box, CB_ADDSTRING, 0, Parameter(row.bytes));
            SendMessageA(box, CB_SETCURSEL, 0, 0);
            EXPECT_EQ(Shown<QComboBox>()->currentText().toStdString(), row.shown);
            EXPECT_EQ(TextOf(box), row.bytes);
            DestroyWindow(box);
        }
    }
}

TEST_F(NationalTest, ACopyThatDoesNotFitEndsWithAWholeCharacter)
{
    constexpr const char* kText = "\xB1\xE6\xC0\xCC\xA9\xF7";
    for (const char* className : {"STATIC", "EDIT"}) {
        const HWND window = Make(className, 0, kText, 10, 10, 100, 20);
        for (int size = 1; size <= 7; ++size) {
            SCOPED_TRACE(size);
            std::array<char, 10> text = {};
            const int whole = (size - 1) / 2 * 2;
            EXPECT_EQ(GetWindowTextA(window, text.data(), size), whole);
            EXPECT_EQ(text.data(), std::string(kText, static_cast<size_t>(whole)));
        }
        DestroyWindow(window);
    }
}

TEST_F(NationalTest, Extents)
{
    const HDC screen = GetDC(nullptr);
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        SIZE size = {};
        SIZE wanted = {};
        EXPECT_TRUE(GetTextExtentPoint32A(screen, row.bytes, lstrlenA(row.bytes), &size));
        EXPECT_TRUE(GetTextExtentPoint32A(screen, row.shown, lstrlenA(row.shown), &wanted));
        EXPECT_EQ(size.cx, wanted.cx);
    }
    ReleaseDC(nullptr, screen);
}

TEST_F(NationalTest, NamesOfFonts)
{
    LOGFONTA shape = {};
    shape.lfHeight = -20;
    std::strcpy(shape.lfFaceName, "\xB1\xBC\xB8\xB2");
    const HFONT font = CreateFontIndirectA(&shape);
    const HWND button = Make("BUTTON", BS_PUSHBUTTON, "Text", 10, 10, 100, 20);
    SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    EXPECT_EQ(At(15, 15)->font().families().value(0).toStdString(), "\xEA\xB5\xB4\xEB\xA6\xBC");
    DestroyWindow(button);
    DeleteObject(font);
}

} // namespace
