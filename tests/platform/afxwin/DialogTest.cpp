// Modeless dialogs: creation, child pages, focus, keys.
#include "TestDialog.h"

#include "Boxes.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr WORD kEdit = 1001;
constexpr WORD kOther = 1002;
constexpr DWORD kPage = WS_CHILD | DS_CONTROL;

const std::vector<TemplateItem> kItems = {{"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, kEdit},
                                          {"EDIT", "", WS_TABSTOP | ES_MULTILINE, kOther},
                                          {"BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK},
                                          {"BUTTON", "Cancel", WS_TABSTOP, IDCANCEL}};

MSG KeyDown(CWnd* window, WPARAM key)
{
    return {window->m_hWnd, WM_KEYDOWN, key, 0, 0, {0, 0}};
}

} // namespace

TEST(CDialog, IsMadeFromATemplateInMemory)
{
    const DialogTemplate shape(kItems);
    TestDialog dialog;
    int inits = 0;
    dialog.m_atInit = [&] { ++inits; };
    CString text = "shown";
    dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Text(exchange, kEdit, text); };
    ASSERT_TRUE(dialog.CreateIndirect(shape.Get()));
    EXPECT_EQ(1, inits);
    EXPECT_FALSE(dialog.CreateIndirect(shape.Get()));
    EXPECT_EQ(&dialog, CWnd::FromHandlePermanent(dialog.m_hWnd));
    char name[16];
    ::GetClassNameA(dialog.m_hWnd, name, sizeof name);
    EXPECT_STREQ("#32770", name);
    CString read;
    EXPECT_EQ(5, dialog.GetDlgItemText(kEdit, read));
    EXPECT_EQ(MAKELONG(IDOK, DC_HASDEFID), static_cast<LONG>(dialog.GetDefID()));
    dialog.SetDefID(IDCANCEL);
    EXPECT_EQ(IDCANCEL, LOWORD(dialog.GetDefID()));
    EXPECT_FALSE(dialog.IsWindowVisible());
}

TEST(CDialog, FailsWithoutATemplate)
{
    std::vector<std::string> log;
    TestDialog dialog;
    dialog.m_log = &log;
    EXPECT_FALSE(dialog.Create("NO_SUCH_DIALOG"));
    EXPECT_FALSE(dialog.Create(60000U));
    EXPECT_FALSE(dialog.CreateIndirect(nullptr));
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(-1, TestDialog("NO_SUCH_DIALOG").DoModal());
    EXPECT_EQ(-1, TestDialog(60000U).DoModal());
    EXPECT_THAT(log, ElementsAre());
    const DialogTemplate broken({{"NO_SUCH_CLASS", "", 0, 5}});
    EXPECT_FALSE(dialog.CreateIndirect(broken.Get()));
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(CDialog, CanBeAPageOfAnother)
{
    std::vector<std::string> log;
    const DialogTemplate outer(kItems);
    const DialogTemplate inner({{"EDIT", "inside", WS_TABSTOP, kEdit}}, kPage);
    TestDialog dialog;
    TestDialog page;
    ASSERT_TRUE(dialog.CreateIndirect(outer.Get()));
    ASSERT_TRUE(page.CreateIndirect(inner.Get(), &dialog));
    EXPECT_EQ(&dialog, page.GetParent());
    RECT rect = {};
    dialog.GetDlgItem(kOther)->GetWindowRect(&rect);
    dialog.ScreenToClient(&rect);
    page.MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
    RECT moved = {};
    page.GetWindowRect(&moved);
    dialog.ScreenToClient(&moved);
    EXPECT_TRUE(::EqualRect(&rect, &moved));

    dialog.m_log = page.m_log = &log;
    page.m_name = "page";
    dialog.DestroyWindow();
    EXPECT_THAT(log, ElementsAre("dialog destroy", "page destroy", "page gone", "dialog gone"));
    dialog.m_log = page.m_log = nullptr;
}

TEST(CDialog, CanBeClosedByItsOwnMessage)
{
    const DialogTemplate shape(kItems);
    std::vector<std::string> log;
    auto* dialog = new TestDialog;
    dialog->m_log = &log;
    dialog->m_deleteItself = true;
    dialog->m_atAction = [dialog] { dialog->DestroyWindow(); };
    ASSERT_TRUE(dialog->CreateIndirect(shape.Get()));
    const HWND window = dialog->m_hWnd;
    ASSERT_TRUE(dialog->PostMessage(TestDialog::kAction));
    ASSERT_TRUE(dialog->PostMessage(TestDialog::kAction)); // arrives too late
    DrainQueue();
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_THAT(log, ElementsAre("dialog destroy", "dialog gone", "dialog deleted"));
}

TEST(CDialog, MayEndWhileItIsMade)
{
    const DialogTemplate shape(kItems);
    std::vector<std::string> log;
    TestDialog ended;
    ended.m_log = &log;
    ended.m_atInit = [&] { ended.EndDialog(7); };
    EXPECT_FALSE(ended.CreateIndirect(shape.Get()));
    EXPECT_EQ(nullptr, ended.m_hWnd);
    EXPECT_THAT(log, ElementsAre("dialog destroy", "dialog gone"));

    log.clear();
    auto* destroyed = new TestDialog;
    destroyed->m_log = &log;
    destroyed->m_deleteItself = true;
    destroyed->m_atInit = [destroyed] { destroyed->DestroyWindow(); };
    EXPECT_FALSE(destroyed->CreateIndirect(shape.Get()));
    EXPECT_THAT(log, ElementsAre("dialog destroy", "dialog gone", "dialog deleted"));
    ended.m_log = nullptr;
}

TEST(CDialog, ShowsAnExceptionOfItsStart)
{
    const DialogTemplate shape(kItems);
    TestDialog dialog;
    dialog.m_atInit = [] { AfxThrowResourceException(); };
    const BoxCatcher boxes;
    EXPECT_FALSE(dialog.CreateIndirect(shape.Get()));
    EXPECT_THAT(boxes.Texts(), ElementsAre("A required resource was unavailable."));
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(CDialog, HidesWhenItIsModelessAndEnds)
{
    const DialogTemplate shape(kItems);
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(shape.Get()));
    dialog.ShowWindow(SW_SHOWNORMAL);
    EXPECT_TRUE(dialog.IsWindowVisible());
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_FALSE(dialog.IsWindowVisible());
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
}

TEST(CDialog, KnowsItsKeys)
{
    const DialogTemplate shape(kItems);
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(shape.Get()));
    dialog.ShowWindow(SW_SHOWNORMAL);
    MSG escape = KeyDown(dialog.GetDlgItem(kOther), VK_ESCAPE);
    EXPECT_TRUE(dialog.PreTranslateMessage(&escape)); // from a control that wants all keys
    EXPECT_FALSE(dialog.IsWindowVisible());

    dialog.ShowWindow(SW_SHOWNORMAL);
    dialog.GetDlgItem(IDCANCEL)->EnableWindow(FALSE);
    dialog.PreTranslateMessage(&escape);
    EXPECT_TRUE(dialog.IsWindowVisible());

    MSG plain = {dialog.m_hWnd, WM_USER, 0, 0, 0, {0, 0}};
    EXPECT_FALSE(dialog.PreTranslateMessage(&plain));
    MSG enter = KeyDown(dialog.GetDlgItem(kEdit), VK_RETURN);
    EXPECT_TRUE(CWnd::WalkPreTranslateTree(nullptr, &enter)); // found through the parent
}

TEST(CDialog, MovesTheKeyboard)
{
    const DialogTemplate shape(kItems);
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(shape.Get()));
    dialog.ShowWindow(SW_SHOWNORMAL);
    dialog.SetActiveWindow();
    dialog.GotoDlgCtrl(dialog.GetDlgItem(kEdit));
    ASSERT_EQ(dialog.GetDlgItem(kEdit), CWnd::GetFocus());
    dialog.NextDlgCtrl();
    EXPECT_EQ(dialog.GetDlgItem(kOther), CWnd::GetFocus());
    dialog.PrevDlgCtrl();
    EXPECT_EQ(dialog.GetDlgItem(kEdit), CWnd::GetFocus());
}

TEST(CDialog, ComesUpInTheMiddleUnlessItIsPlaced)
{
    TestDialog owner;
    ASSERT_TRUE(owner.CreateIndirect(DialogTemplate(kItems).Get()));
    owner.MoveWindow(300, 200, 600, 500);
    owner.ShowWindow(SW_SHOWNOACTIVATE);
    const struct {
        const char* label;
        DialogTemplate shape;
        bool centred;
    } kRows[] = {
        {"open", DialogTemplate(kItems), true},
        {"placed", DialogTemplate(kItems, WS_POPUP | WS_CAPTION, 5, 5), false},
        {"absolute", DialogTemplate(kItems, WS_POPUP | WS_CAPTION | DS_ABSALIGN), false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        TestDialog dialog;
        ASSERT_TRUE(dialog.CreateIndirect(row.shape.Get(), &owner));
        RECT rect = {};
        dialog.GetWindowRect(&rect);
        EXPECT_EQ(row.centred, rect.left == 600 - (rect.right - rect.left) / 2);
    }
}
