// Dialogs from templates: what is made, where it lies, and how it ends.
#include "TemplateText.h"
#include "TestIds.h"

#include <gmock/gmock.h>

#include <functional>

namespace {

constexpr DWORD kPopup = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT;
constexpr UINT kTick = 10;

// What the dialog procedure below does; one dialog at a time, or one in another.
struct Script {
    std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)> act;
};

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    auto* script = reinterpret_cast<Script*>(GetWindowLongPtrA(dialog, DWLP_USER));
    return script ? script->act(dialog, message, wParam, lParam) : FALSE;
}

INT_PTR RunDialog(const TemplateText& shape, Script& script, HWND owner = nullptr)
{
    return DialogBoxIndirectParamA(nullptr, shape.Get(), owner, &Procedure,
                                   reinterpret_cast<LPARAM>(&script));
}

INT_PTR Nothing(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

class Dialogs : public testing::Test
{
protected:
    HWND Make(const TemplateText& shape, HWND owner = nullptr)
    {
        m_dialog = CreateDialogIndirectParamA(nullptr, shape.Get(), owner, &Procedure,
                                              reinterpret_cast<LPARAM>(&m_script));
        return m_dialog;
    }

    void TearDown() override
    {
        if (IsWindow(m_dialog))
            DestroyWindow(m_dialog);
        if (IsWindow(m_owner))
            DestroyWindow(m_owner);
    }

    HWND MakeOwner()
    {
        m_owner = CreateWindowExA(0, "Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 50, 400, 300,
                                  nullptr, nullptr, nullptr, nullptr);
        return m_owner;
    }

    Script m_script{&Nothing};
    HWND m_dialog = nullptr;
    HWND m_owner = nullptr;
};

RECT RectOf(HWND window, HWND parent)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// An oracle for dialog units: in floating point, halves away from zero.
LONG Rounded(double value)
{
    return static_cast<LONG>(value < 0 ? -static_cast<LONG>(0.5 - value) : static_cast<LONG>(value + 0.5));
}

SIZE BaseOf(HWND dialog)
{
    RECT units = {0, 0, 400, 800};
    MapDialogRect(dialog, &units);
    return {units.right / 100, units.bottom / 100};
}

std::string ClassOf(HWND window)
{
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string TextOf(HWND window)
{
    char text[64] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

} // namespace

TEST_F(Dialogs, BothFormsMakeTheSameControls)
{
    const struct {
        WORD kind;
        const char* name;
        DWORD style;
        short x, y, cx, cy;
        WORD id;
        const char* text;
    } kItems[] = {
        {kStatic, "Static", SS_LEFT, 3, 4, 31, 9, 501, "&Label"},
        {kEdit, "Edit", ES_AUTOHSCROLL, 7, 11, 53, 13, 502, "text"},
        {kButton, "Button", BS_AUTOCHECKBOX, 1, 30, 41, 10, 503, "Box"},
        {kListBox, "ListBox", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, 70, 5, 33, 27, 504, ""},
        {kButton, "Button", BS_GROUPBOX, 66, 1, 47, 39, 505, "Frame"},
    };
    for (const bool extended : {false, true}) {
        SCOPED_TRACE(extended);
        TemplateText shape(extended, kPopup, 5, 6, 120, 80, "Both");
        for (const auto& item : kItems)
            shape.Add(item.kind, item.style, item.x, item.y, item.cx, item.cy, item.id, item.text);
        const HWND dialog = Make(shape);
        ASSERT_NE(nullptr, dialog);
        EXPECT_EQ("#32770", ClassOf(dialog));
        EXPECT_EQ("Both", TextOf(dialog));
        EXPECT_FALSE(IsWindowVisible(dialog));
        const SIZE base = BaseOf(dialog);
        for (const auto& item : kItems) {
            SCOPED_TRACE(item.id);
            const HWND control = GetDlgItem(dialog, item.id);
            ASSERT_NE(nullptr, control);
            EXPECT_EQ(item.name, ClassOf(control));
            EXPECT_EQ(item.text, TextOf(control));
            EXPECT_NE(0, SendMessageA(control, WM_GETFONT, 0, 0));
            const RECT rect = RectOf(control, dialog);
            EXPECT_EQ(Rounded(item.x * base.cx / 4.0), rect.left);
            EXPECT_EQ(Rounded(item.y * base.cy / 8.0), rect.top);
            EXPECT_EQ(Rounded(item.cx * base.cx / 4.0), rect.right - rect.left);
            EXPECT_EQ(Rounded(item.cy * base.cy / 8.0), rect.bottom - rect.top);
        }
        RECT client = {};
        GetClientRect(dialog, &client);
        EXPECT_EQ(Rounded(120 * base.cx / 4.0), client.right);
        EXPECT_EQ(Rounded(80 * base.cy / 8.0), client.bottom);
        DestroyWindow(dialog);
    }
}

TEST_F(Dialogs, UnitsAreRoundedToTheNearest)
{
    Make(TemplateText(false, kPopup, 0, 0, 50, 50));
    const SIZE base = BaseOf(m_dialog);
    for (int units = -40; units <= 40; ++units) {
        RECT rect = {units, units, 2 * units, 3 * units};
        ASSERT_TRUE(MapDialogRect(m_dialog, &rect));
        EXPECT_EQ(Rounded(units * base.cx / 4.0), rect.left) << units;
        EXPECT_EQ(Rounded(units * base.cy / 8.0), rect.top) << units;
        EXPECT_EQ(Rounded(2 * units * base.cx / 4.0), rect.right) << units;
        EXPECT_EQ(Rounded(3 * units * base.cy / 8.0), rect.bottom) << units;
    }
}

TEST_F(Dialogs, PlaceFollowsTheStyle)
{
    const HWND owner = MakeOwner();
    POINT origin = {0, 0};
    ClientToScreen(owner, &origin);
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    Make(TemplateText(false, WS_POPUP | DS_SETFONT, 8, 8, 40, 40), owner);
    const SIZE base = BaseOf(m_dialog);
    const POINT offset = {Rounded(8 * base.cx / 4.0), Rounded(8 * base.cy / 8.0)};
    const SIZE size = {Rounded(40 * base.cx / 4.0), Rounded(40 * base.cy / 8.0)};
    DestroyWindow(m_dialog);
    const struct {
        const char* label;
        DWORD style;
        short place;
        POINT expected;
    } kRows[] = {
        {"popup", WS_POPUP, 8, {origin.x + offset.x, origin.y + offset.y}},
        {"absolute", WS_POPUP | DS_ABSALIGN, 8, offset},
        {"child", WS_CHILD, 8, {origin.x + offset.x, origin.y + offset.y}},
        {"centre",
         WS_POPUP | DS_CENTER,
         8,
         {(area.left + area.right - size.cx) / 2, (area.top + area.bottom - size.cy) / 2}},
        {"left of the screen", WS_POPUP, -3000, {area.left, area.top}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        Make(TemplateText(false, row.style | DS_SETFONT, row.place, row.place, 40, 40), owner);
        const RECT rect = RectOf(m_dialog, nullptr);
        EXPECT_EQ(row.expected.x, rect.left);
        EXPECT_EQ(row.expected.y, rect.top);
        EXPECT_EQ(size.cx, rect.right - rect.left);
        EXPECT_EQ((row.style & WS_CHILD) != 0, GetParent(m_dialog) == owner && IsChild(owner, m_dialog));
        DestroyWindow(m_dialog);
    }
}

TEST_F(Dialogs, ControlDialogsHaveNoCaption)
{
    const HWND owner = MakeOwner();
    Make(TemplateText(true, WS_CHILD | WS_CAPTION | WS_SYSMENU | DS_CONTROL | DS_SETFONT, 1, 1, 40, 40),
         owner);
    EXPECT_EQ(0, GetWindowLongA(m_dialog, GWL_STYLE) & WS_CAPTION);
    EXPECT_NE(0, GetWindowLongA(m_dialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT);
}

namespace {

std::vector<WORD> g_creationData;

LRESULT CALLBACK TakeData(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CREATE) {
        const auto* data =
            static_cast<const WORD*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
        g_creationData.assign(data, data + 1 + data[0] / sizeof(WORD));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

TEST_F(Dialogs, CreationDataReachTheControl)
{
    WNDCLASSA taker = {};
    taker.lpfnWndProc = &TakeData;
    taker.lpszClassName = "DataTaker";
    taker.hInstance = GetModuleHandleA(nullptr);
    RegisterClassA(&taker);
    TemplateText shape(false, kPopup, 0, 0, 50, 50);
    // The control's class is written as a name, its data as two words; a control follows.
    std::vector<WORD> words =
        TemplateText(false, kPopup, 0, 0, 50, 50).AddNamed("DataTaker", 0, 0, 0, 9, 9, 7).Words();
    words.back() = 4;
    words.push_back(0x1111);
    words.push_back(0x2222);
    g_creationData.clear();
    m_dialog = CreateDialogIndirectParamA(nullptr, reinterpret_cast<LPCDLGTEMPLATEA>(words.data()), nullptr,
                                          &Procedure, reinterpret_cast<LPARAM>(&m_script));
    EXPECT_THAT(g_creationData, testing::ElementsAre(4, 0x1111, 0x2222));

    DestroyWindow(m_dialog);
    shape.Add(kStatic, 0, 0, 0, 9, 9, 1, "a", {1, 2}).Add(kStatic, 0, 0, 0, 9, 9, 2, "behind");
    Make(shape);
    EXPECT_EQ("behind", TextOf(GetDlgItem(m_dialog, 2)));
    UnregisterClassA("DataTaker", taker.hInstance);
}

TEST_F(Dialogs, AControlThatCannotBeMadeSpoilsTheDialog)
{
    for (const DWORD style : {DWORD{0}, DWORD{DS_NOFAILCREATE}}) {
        TemplateText shape(true, kPopup | style, 0, 0, 50, 50);
        shape.AddNamed("NoSuchClass", 0, 0, 0, 9, 9, 1).Add(kStatic, 0, 0, 0, 9, 9, 2);
        EXPECT_EQ(style != 0, Make(shape) != nullptr);
        EXPECT_EQ(style ? GetDlgItem(m_dialog, 2) : nullptr, style ? GetWindow(m_dialog, GW_CHILD) : nullptr);
    }
    Script script{&Nothing};
    TemplateText shape(true, kPopup, 0, 0, 50, 50);
    EXPECT_EQ(-1, RunDialog(shape.AddNamed("NoSuchClass", 0, 0, 0, 9, 9, 1), script));
}

TEST_F(Dialogs, ResourcesAreTemplatesToo)
{
    for (const int id : {IDD_PLAIN, IDD_FULL}) {
        m_dialog = CreateDialogParamA(nullptr, MAKEINTRESOURCEA(id), nullptr, &Procedure,
                                      reinterpret_cast<LPARAM>(&m_script));
        ASSERT_NE(nullptr, m_dialog);
        EXPECT_EQ("Edit", ClassOf(GetDlgItem(m_dialog, IDC_NAME)));
        EXPECT_EQ(MAKELONG(IDOK, DC_HASDEFID), SendMessageA(m_dialog, DM_GETDEFID, 0, 0));
        DestroyWindow(m_dialog);
    }
    EXPECT_EQ(nullptr, CreateDialogParamA(nullptr, MAKEINTRESOURCEA(9999), nullptr, &Procedure, 0));
    EXPECT_EQ(-1, DialogBoxParamA(nullptr, "missing", nullptr, &Procedure, 0));
}

TEST_F(Dialogs, InitDialogComesBeforeTheDialogIsSeen)
{
    std::vector<UINT> seen;
    WPARAM focus = 0;
    m_script.act = [&](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            focus = wParam;
            EXPECT_EQ(reinterpret_cast<LPARAM>(&m_script), lParam);
            EXPECT_FALSE(IsWindowVisible(dialog));
        }
        if (message == WM_INITDIALOG || message == WM_SHOWWINDOW)
            seen.push_back(message);
        return TRUE;
    };
    TemplateText shape(true, kPopup | WS_VISIBLE, 0, 0, 80, 50);
    shape.Add(kStatic, 0, 0, 0, 20, 9, 1).Add(kEdit, WS_TABSTOP, 0, 10, 60, 12, 2, "hello");
    const HWND dialog = Make(shape.Add(kButton, WS_TABSTOP, 0, 30, 60, 14, 3));
    EXPECT_THAT(seen, testing::ElementsAre(WM_INITDIALOG, WM_SHOWWINDOW));
    EXPECT_EQ(GetDlgItem(dialog, 2), reinterpret_cast<HWND>(focus));
    EXPECT_EQ(GetDlgItem(dialog, 2), GetFocus());
    DWORD first = 9;
    DWORD last = 9;
    SendDlgItemMessageA(dialog, 2, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                        reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(0u, first);
    EXPECT_EQ(5u, last);
}

TEST_F(Dialogs, InitDialogMayChooseTheFocus)
{
    m_script.act = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetFocus(GetDlgItem(dialog, 3));
        return FALSE;
    };
    TemplateText shape(false, kPopup | WS_VISIBLE, 0, 0, 80, 50);
    shape.Add(kEdit, WS_TABSTOP, 0, 10, 60, 12, 2).Add(kButton, WS_TABSTOP, 0, 30, 60, 14, 3);
    Make(shape);
    EXPECT_EQ(GetDlgItem(m_dialog, 3), GetFocus());
}

TEST_F(Dialogs, ModalOnesAnswerWhatTheyEndWith)
{
    const struct {
        const char* label;
        UINT message; // upon which the dialog acts
        std::function<void(HWND)> act;
        INT_PTR answer;
    } kRows[] = {
        {"ended at once", WM_INITDIALOG, [](HWND dialog) { EndDialog(dialog, 9); }, 9},
        {"ended by a timer", WM_TIMER, [](HWND dialog) { EndDialog(dialog, 77); }, 77},
        {"ended with 0", WM_TIMER, [](HWND dialog) { EndDialog(dialog, 0); }, 0},
        {"ended with -5", WM_TIMER, [](HWND dialog) { EndDialog(dialog, -5); }, -5},
        {"destroyed at once", WM_INITDIALOG, [](HWND dialog) { DestroyWindow(dialog); }, -1},
        {"destroyed", WM_TIMER, [](HWND dialog) { DestroyWindow(dialog); }, 0},
        {"close box", WM_COMMAND, [](HWND dialog) { EndDialog(dialog, IDCANCEL); }, IDCANCEL},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        HWND made = nullptr;
        Script script{[&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
            made = dialog;
            if (message == WM_INITDIALOG) {
                SetTimer(dialog, 1, kTick, nullptr);
                if (row.message == WM_COMMAND)
                    PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
            }
            if (message == row.message)
                row.act(dialog);
            return message == WM_INITDIALOG;
        }};
        const TemplateText shape(false, kPopup, 0, 0, 60, 40);
        EXPECT_EQ(row.answer, RunDialog(shape, script));
        EXPECT_FALSE(IsWindow(made));
    }
}

TEST_F(Dialogs, TheOwnerWaits)
{
    const HWND owner = MakeOwner();
    bool enabled = true;
    bool shown = false;
    Script script{[&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            enabled = IsWindowEnabled(owner);
            SetTimer(dialog, 1, kTick, nullptr);
        }
        if (message == WM_TIMER) {
            shown = IsWindowVisible(dialog);
            EndDialog(dialog, 1);
            EXPECT_TRUE(IsWindowEnabled(owner));
            EXPECT_FALSE(IsWindowVisible(dialog));
        }
        return FALSE;
    }};
    EXPECT_EQ(1, RunDialog(TemplateText(false, kPopup, 0, 0, 60, 40), script, owner));
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(shown);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialogs, QuitEndsAModalOneAndStays)
{
    Script script{[](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetTimer(dialog, 1, kTick, nullptr);
        if (message == WM_TIMER) {
            KillTimer(dialog, 1);
            PostQuitMessage(5);
        }
        return FALSE;
    }};
    RunDialog(TemplateText(false, kPopup, 0, 0, 60, 40), script);
    MSG message = {};
    bool found = false;
    while (!found && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        found = message.message == WM_QUIT;
    EXPECT_TRUE(found);
    EXPECT_EQ(5u, message.wParam);
}

TEST_F(Dialogs, OneMayRunInAnother)
{
    const TemplateText shape(true, kPopup, 0, 0, 60, 40);
    std::vector<INT_PTR> answers;
    Script inner{[](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetTimer(dialog, 1, kTick, nullptr);
        return message == WM_TIMER && EndDialog(dialog, 2);
    }};
    Script outer{[&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetTimer(dialog, 1, kTick, nullptr);
        if (message == WM_TIMER && KillTimer(dialog, 1)) {
            answers.push_back(RunDialog(shape, inner, dialog));
            EXPECT_TRUE(IsWindowEnabled(dialog));
            EndDialog(dialog, 1);
        }
        return FALSE;
    }};
    answers.push_back(RunDialog(shape, outer));
    EXPECT_THAT(answers, testing::ElementsAre(2, 1));
}

TEST_F(Dialogs, TheOuterMayEndFirst)
{
    const TemplateText shape(true, kPopup, 0, 0, 60, 40);
    std::vector<INT_PTR> answers;
    Script inner{[](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            EndDialog(GetWindow(dialog, GW_OWNER), 1);
            SetTimer(dialog, 1, kTick, nullptr);
        }
        return message == WM_TIMER && EndDialog(dialog, 2);
    }};
    Script outer{[&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetTimer(dialog, 1, kTick, nullptr);
        if (message == WM_TIMER && KillTimer(dialog, 1))
            answers.push_back(RunDialog(shape, inner, dialog));
        return FALSE;
    }};
    answers.push_back(RunDialog(shape, outer));
    EXPECT_THAT(answers, testing::ElementsAre(2, 1));
}

TEST_F(Dialogs, EndDialogHidesAModelessOne)
{
    Make(TemplateText(false, kPopup | WS_VISIBLE, 0, 0, 60, 40));
    EXPECT_TRUE(EndDialog(m_dialog, 3));
    EXPECT_TRUE(IsWindow(m_dialog));
    EXPECT_FALSE(IsWindowVisible(m_dialog));
    EXPECT_FALSE(EndDialog(MakeOwner(), 3));
    DestroyWindow(m_dialog);
    EXPECT_FALSE(EndDialog(m_dialog, 3));
}

TEST_F(Dialogs, MessageResultsAreTheProceduresOwn)
{
    m_script.act = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_USER + 50)
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT, static_cast<LONG_PTR>(wParam) + 1);
        return message == WM_USER + 50 || message == WM_VKEYTOITEM ? 7 : 0;
    };
    Make(TemplateText(false, kPopup, 0, 0, 60, 40));
    EXPECT_EQ(42, SendMessageA(m_dialog, WM_USER + 50, 41, 0));
    EXPECT_EQ(7, SendMessageA(m_dialog, WM_VKEYTOITEM, 0, 0));
    EXPECT_EQ(0, SendMessageA(m_dialog, WM_USER + 51, 41, 0));
}
