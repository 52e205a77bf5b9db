#include "ControlHost.h"

#include <array>
#include <cstring>

namespace {

class EditTest : public ControlHost
{
protected:
    HWND MakeEdit(DWORD style = ES_AUTOHSCROLL) { return Make("EDIT", style | WS_BORDER); }

    void Set(HWND edit, const char* text)
    {
        SetWindowTextA(edit, text);
        Told();
    }
};

constexpr LRESULT Selected(int start, int end)
{
    return start | end << 16;
}

TEST_F(EditTest, ALineTellsOfTextsAndATextDoesNot)
{
    const HWND line = MakeEdit();
    Run(line, std::array<Step, 3>{{
                  {"text", WM_SETTEXT, 0, Text("abc"), TRUE, "400 300", "abc"},
                  {"the same text", WM_SETTEXT, 0, Text("abc"), TRUE, "400 300", "abc"},
                  {"none", WM_SETTEXT, 0, 0, TRUE, "400 300", ""},
              }});
    const HWND text = MakeEdit(ES_MULTILINE);
    Run(text, std::array<Step, 1>{{{"text", WM_SETTEXT, 0, Text("a\r\nb"), TRUE, "", "a\r\nb"}}});
}

TEST_F(EditTest, Selects)
{
    for (const DWORD style : {ES_AUTOHSCROLL, ES_MULTILINE}) {
        SCOPED_TRACE(style);
        const HWND edit = MakeEdit(style);
        Set(edit, "hello world");
        Run(edit,
            std::array<Step, 12>{{
                {"a new text", EM_GETSEL, 0, 0, Selected(0, 0)},
                {"a part", EM_SETSEL, 2, 5, 1},
                {"it", EM_GETSEL, 0, 0, Selected(2, 5)},
                {"a part backwards", EM_SETSEL, 5, 2, 1},
                {"its ends in order", EM_GETSEL, 0, 0, Selected(2, 5)},
                {"nothing", EM_SETSEL, static_cast<WPARAM>(-1), 0, 1},
                {"where the caret was", EM_GETSEL, 0, 0, Selected(2, 2)},
                {"all", EM_SETSEL, 0, -1, 1},
                {"to the end", EM_GETSEL, 0, 0, Selected(0, 11)},
                {"beyond the end", EM_SETSEL, 3, 500, 1},
                {"cut to the end", EM_GETSEL, 0, 0, Selected(3, 11)},
                {"a new text again", WM_SETTEXT, 0, Text("x"), TRUE, style & ES_MULTILINE ? "" : "400 300"},
            }});
        DWORD start = 99;
        DWORD end = 99;
        SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0u);
        EXPECT_EQ(end, 0u);
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, ReplacesAndUndoes)
{
    for (const DWORD style : {ES_AUTOHSCROLL, ES_MULTILINE}) {
        SCOPED_TRACE(style);
        const HWND edit = MakeEdit(style);
        Set(edit, "hello world");
        Run(edit, std::array<Step, 6>{{
                      {"nothing to undo", EM_CANUNDO, 0, 0, FALSE},
                      {"not modified", EM_GETMODIFY, 0, 0, FALSE},
                      {"select", EM_SETSEL, 0, 5, 1},
                      {"replace", EM_REPLACESEL, TRUE, Text("Xy"), kAnyAnswer, "400 300", "Xy world"},
                      {"caret behind", EM_GETSEL, 0, 0, Selected(2, 2)},
                      {"modified", EM_GETMODIFY, 0, 0, TRUE},
                  }});
        EXPECT_TRUE(SendMessageA(edit, EM_CANUNDO, 0, 0));
        EXPECT_TRUE(SendMessageA(edit, EM_UNDO, 0, 0));
        EXPECT_EQ(TextOf(edit), "hello world");
        EXPECT_TRUE(SendMessageA(edit, EM_UNDO, 0, 0)) << "undoes the undoing";
        EXPECT_EQ(TextOf(edit), "Xy world");
        Told();
        Run(edit,
            std::array<Step, 6>{{
                {"forget", EM_EMPTYUNDOBUFFER, 0, 0, kAnyAnswer},
                {"nothing left", EM_CANUNDO, 0, 0, FALSE},
                {"at the start", EM_SETSEL, 0, 0, 1},
                {"not to be undone", EM_REPLACESEL, FALSE, Text("q"), kAnyAnswer, "400 300", "qXy world"},
                {"indeed", EM_CANUNDO, 0, 0, FALSE},
                {"a text is not modified", WM_SETTEXT, 0, Text("z"), TRUE,
                 style & ES_MULTILINE ? "" : "400 300", "z"},
            }});
        EXPECT_FALSE(SendMessageA(edit, EM_GETMODIFY, 0, 0));
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, LimitsWhatIsTypedAndNotWhatIsSet)
{
    const HWND edit = MakeEdit();
    EXPECT_EQ(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0), 30000);
    Set(edit, "12345");
    Run(edit,
        std::array<Step, 7>{{
            {"limit", EM_LIMITTEXT, 7, 0, kAnyAnswer},
            {"it", EM_GETLIMITTEXT, 0, 0, 7},
            {"caret at the end", EM_SETSEL, 5, 5, 1},
            {"what fits is taken", EM_REPLACESEL, TRUE, Text("abcd"), kAnyAnswer, "501 400 300", "12345ab"},
            {"a longer text", WM_SETTEXT, 0, Text("1234567890"), TRUE, "400 300", "1234567890"},
            {"none", EM_LIMITTEXT, 0, 0, kAnyAnswer},
            {"the greatest", EM_GETLIMITTEXT, 0, 0, 0x7ffffffe},
        }});
    SendMessageA(edit, EM_LIMITTEXT, 7, 0);
    SendMessageA(edit, WM_CHAR, 'x', 1);
    EXPECT_EQ(Told().substr(0, 3), "501");
    EXPECT_EQ(TextOf(edit), "1234567890");
    SendMessageA(edit, EM_SETSEL, 0, 2);
    SendMessageA(edit, WM_CHAR, 'y', 1);
    EXPECT_EQ(TextOf(edit), "34567890") << "what was selected goes";
}

TEST_F(EditTest, TypesAsTheStyleSays)
{
    struct Row {
        const char* label;
        DWORD style;
        const char* typed;
        const char* text;
    };
    constexpr std::array<Row, 9> kRows = {{
        {"plain", ES_AUTOHSCROLL, "aB5", "aB5"},
        {"back", ES_AUTOHSCROLL, "ab\bc", "ac"},
        {"back at the start", ES_AUTOHSCROLL, "\b\ba", "a"},
        {"control characters", ES_AUTOHSCROLL, "a\r\t\x1b\x7f\x01z", "az"},
        {"upper case", ES_UPPERCASE, "aB5", "AB5"},
        {"lower case", ES_LOWERCASE, "aB5", "ab5"},
        {"digits", ES_NUMBER, "a1-2 3", "123"},
        {"read only", ES_READONLY, "abc", ""},
        {"password", ES_PASSWORD, "abc", "abc"},
    }};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        const HWND edit = MakeEdit(row.style);
        for (const char* typed = row.typed; *typed; ++typed)
            SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(*typed), 1);
        EXPECT_EQ(TextOf(edit), row.text);
        DestroyWindow(edit);
    }
}

TEST_F(EditTest, TypesLinesIntoAText)
{
    const HWND edit = MakeEdit(ES_MULTILINE | ES_WANTRETURN);
    for (const char* typed = "ab\rc\td"; *typed; ++typed)
        SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(*typed), 1);
    EXPECT_EQ(TextOf(edit), "ab\r\nc\td");
    EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), Selected(7, 7));
}

TEST_F(EditTest, MovesByKeys)
{
    const HWND edit = MakeEdit();
    Set(edit, "hello world");
    SetFocus(edit);
    Told();
    struct Row {
        WPARAM key;
        LRESULT selected;
    };
    for (const Row& row :
         {Row{VK_RIGHT, Selected(1, 1)}, Row{VK_END, Selected(11, 11)}, Row{VK_LEFT, Selected(10, 10)},
          Row{VK_HOME, Selected(0, 0)}, Row{VK_LEFT, Selected(0, 0)}}) {
        SendMessageA(edit, WM_KEYDOWN, row.key, 1);
        EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), row.selected) << row.key;
    }
    EXPECT_EQ(Told(), "");
    SendMessageA(edit, WM_KEYDOWN, VK_DELETE, 1);
    EXPECT_EQ(Told(), "400 300");
    EXPECT_EQ(TextOf(edit), "ello world");
}

TEST_F(EditTest, CutsCopiesAndPastes)
{
    const HWND edit = MakeEdit();
    Set(edit, "copyme");
    Run(edit, std::array<Step, 9>{{
                  {"a part", EM_SETSEL, 0, 4, 1},
                  {"copy", WM_COPY, 0, 0, kAnyAnswer, "", "copyme"},
                  {"at the end", EM_SETSEL, 6, 6, 1},
                  {"paste", WM_PASTE, 0, 0, kAnyAnswer, "400 300", "copymecopy"},
                  {"a part again", EM_SETSEL, 0, 3, 1},
                  {"cut", WM_CUT, 0, 0, kAnyAnswer, "400 300", "ymecopy"},
                  {"paste what was cut", WM_PASTE, 0, 0, kAnyAnswer, "400 300", "copymecopy"},
                  {"one", EM_SETSEL, 0, 1, 1},
                  {"clear", WM_CLEAR, 0, 0, kAnyAnswer, "400 300", "opymecopy"},
              }});
}

TEST_F(EditTest, KnowsItsLines)
{
    const HWND edit = MakeEdit(ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL);
    Set(edit, "abc\r\n\r\ndefg");
    Run(edit, std::array<Step, 16>{{
                  {"count", EM_GETLINECOUNT, 0, 0, 3},
                  {"start of the first", EM_LINEINDEX, 0, 0, 0},
                  {"of the second", EM_LINEINDEX, 1, 0, 5},
                  {"of the third", EM_LINEINDEX, 2, 0, 7},
                  {"of none", EM_LINEINDEX, 9, 0, -1},
                  {"caret into the third", EM_SETSEL, 8, 8, 1},
                  {"start of the caret's", EM_LINEINDEX, static_cast<WPARAM>(-1), 0, 7},
                  {"length by position", EM_LINELENGTH, 1, 0, 3},
                  {"of an empty line", EM_LINELENGTH, 5, 0, 0},
                  {"of the last", EM_LINELENGTH, 9, 0, 4},
                  {"line of a position", EM_LINEFROMCHAR, 2, 0, 0},
                  {"of an empty line's", EM_LINEFROMCHAR, 5, 0, 1},
                  {"of the last's", EM_LINEFROMCHAR, 8, 0, 2},
                  {"beyond the end", EM_LINEFROMCHAR, 100, 0, 2},
                  {"of the caret", EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0, 2},
                  {"shown first", EM_GETFIRSTVISIBLELINE, 0, 0, 0},
              }});
}

TEST_F(EditTest, GetsALineIntoExactlyItsBuffer)
{
    const HWND edit = MakeEdit(ES_MULTILINE | ES_AUTOHSCROLL);
    Set(edit, "abcd\r\nef");
    struct Row {
        WPARAM line;
        WORD size;
        LRESULT answer;
        const char* buffer; // 6 bytes, of which those behind the size stay '#'
    };
    constexpr std::array<Row, 4> kRows = {{
        {0, 4, 4, "abcd##"},
        {0, 3, 3, "abc###"},
        {1, 2, 2, "ef####"},
        {9, 4, 0, nullptr},
    }};
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.line << " into " << row.size);
        std::array<char, 6> buffer;
        buffer.fill('#');
        std::memcpy(buffer.data(), &row.size, sizeof row.size);
        EXPECT_EQ(SendMessageA(edit, EM_GETLINE, row.line, reinterpret_cast<LPARAM>(buffer.data())),
                  row.answer);
        if (row.buffer) {
            EXPECT_EQ(std::string(buffer.data(), buffer.size()), row.buffer);
        }
    }
}

TEST_F(EditTest, AsksADialogForItsKeys)
{
    struct Row {
        DWORD style;
        LRESULT code;
    };
    for (const Row& row :
         {Row{ES_AUTOHSCROLL, DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS},
          Row{ES_MULTILINE, DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS}})
        EXPECT_EQ(SendMessageA(MakeEdit(row.style), WM_GETDLGCODE, 0, 0), row.code);
}

TEST_F(EditTest, ReadOnlyAndPasswordAreStyles)
{
    const HWND edit = MakeEdit();
    SendMessageA(edit, EM_SETREADONLY, TRUE, 0);
    EXPECT_TRUE(GetWindowLongA(edit, GWL_STYLE) & ES_READONLY);
    SendMessageA(edit, WM_CHAR, 'a', 1);
    EXPECT_EQ(TextOf(edit), "");
    SendMessageA(edit, EM_REPLACESEL, FALSE, Text("program"));
    EXPECT_EQ(TextOf(edit), "program") << "a program may";
    SendMessageA(edit, EM_SETREADONLY, FALSE, 0);
    EXPECT_FALSE(GetWindowLongA(edit, GWL_STYLE) & ES_READONLY);

    EXPECT_EQ(SendMessageA(edit, EM_GETPASSWORDCHAR, 0, 0), 0);
    SendMessageA(edit, EM_SETPASSWORDCHAR, '#', 0);
    EXPECT_EQ(SendMessageA(edit, EM_GETPASSWORDCHAR, 0, 0), '#');
    EXPECT_TRUE(GetWindowLongA(edit, GWL_STYLE) & ES_PASSWORD);
    EXPECT_EQ(TextOf(edit), "program");
}

TEST_F(EditTest, TellsOfFocus)
{
    const HWND edit = MakeEdit();
    SetFocus(edit);
    EXPECT_EQ(Told(), "100");
    SetFocus(Host());
    EXPECT_EQ(Told(), "200");
}

// Every length of buffer gets what fits, terminated, and nothing behind it.
TEST_F(EditTest, TextsFitTheirBuffers)
{
    for (const DWORD style : {ES_AUTOHSCROLL, ES_MULTILINE}) {
        const HWND edit = MakeEdit(style);
        const std::string text = "abcdef";
        Set(edit, text.c_str());
        for (size_t size = 1; size <= text.size() + 2; ++size) {
            std::array<char, 10> buffer;
            buffer.fill('#');
            const size_t length = std::min(text.size(), size - 1);
            EXPECT_EQ(GetWindowTextA(edit, buffer.data(), static_cast<int>(size)), static_cast<int>(length));
            EXPECT_EQ(std::string(buffer.data(), length + 1), text.substr(0, length) + '\0') << size;
            EXPECT_EQ(buffer[size], '#') << size;
        }
        DestroyWindow(edit);
    }
}

} // namespace
