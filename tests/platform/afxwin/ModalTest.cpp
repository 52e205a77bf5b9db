// Modal dialogs: what ends them, and what happens round them.
#include "TestDialog.h"

#include <gmock/gmock.h>

#include <memory>

using testing::ElementsAre;

namespace {

constexpr WORD kEdit = 1001;
const std::vector<TemplateItem> kItems = {{"EDIT", "7", WS_TABSTOP, kEdit},
                                          {"BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK},
                                          {"BUTTON", "Cancel", WS_TABSTOP, IDCANCEL}};

class ModalTest : public testing::Test
{
protected:
    ModalTest() { m_dialog.InitModalIndirect(m_shape.Get()); }

    // Runs the dialog and does `action` from a posted message, when it is up.
    INT_PTR Run(std::function<void()> action)
    {
        m_dialog.m_atAction = std::move(action);
        m_dialog.m_atInit = [this] { m_dialog.PostMessage(TestDialog::kAction); };
        return m_dialog.DoModal();
    }

    const DialogTemplate m_shape{kItems};
    TestDialog m_dialog;
};

} // namespace

TEST_F(ModalTest, AnswersWhatEndsIt)
{
    int value = 0;
    m_dialog.m_exchange = [&](CDataExchange* exchange) { DDX_Text(exchange, kEdit, value); };
    const struct {
        const char* label;
        std::function<void()> action;
        INT_PTR result;
    } kRows[] = {
        {"EndDialog", [this] { m_dialog.EndDialog(1234); }, 1234},
        {"negative", [this] { m_dialog.EndDialog(-5); }, -5},
        {"OK", [this] { m_dialog.PostMessage(WM_COMMAND, IDOK); }, IDOK},
        {"Cancel", [this] { m_dialog.PostMessage(WM_COMMAND, IDCANCEL); }, IDCANCEL},
        {"close box", [this] { m_dialog.PostMessage(WM_SYSCOMMAND, SC_CLOSE); }, IDCANCEL},
        {"button", [this] { m_dialog.SendDlgItemMessage(IDOK, BM_CLICK); }, IDOK},
        {"timer", [this] { m_dialog.SetTimer(1, 10); }, 99},
        {"window gone", [this] { m_dialog.DestroyWindow(); }, -1},
    };
    m_dialog.m_atTimer = [this](UINT_PTR) { m_dialog.EndDialog(99); };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.result, Run(row.action));
        EXPECT_EQ(nullptr, m_dialog.m_hWnd);
    }
}

TEST_F(ModalTest, StaysOpenWhileAValueIsRefused)
{
    bool refuse = true;
    m_dialog.m_exchange = [&](CDataExchange* exchange) {
        if (exchange->m_bSaveAndValidate && refuse)
            exchange->Fail();
    };
    const INT_PTR result = Run([&] {
        m_dialog.OnOK();
        EXPECT_TRUE(m_dialog.ContinueModal());
        refuse = false;
        m_dialog.OnOK();
    });
    EXPECT_EQ(IDOK, result);
}

TEST_F(ModalTest, MayEndBeforeItIsSeen)
{
    m_dialog.m_atInit = [this] { m_dialog.EndDialog(77); };
    EXPECT_EQ(77, m_dialog.DoModal());
    m_dialog.m_atInit = nullptr;
    m_dialog.m_exchange = [](CDataExchange*) { AfxThrowUserException(); };
    EXPECT_EQ(-1, m_dialog.DoModal()); // its controls could not be filled
}

TEST_F(ModalTest, IsShownWhenTheQueueIsEmpty)
{
    bool seenEarly = true;
    bool seenLate = false;
    m_dialog.m_atTimer = [&](UINT_PTR) {
        seenLate = m_dialog.IsWindowVisible();
        m_dialog.EndDialog(1);
    };
    EXPECT_EQ(1, Run([&] {
                  seenEarly = m_dialog.IsWindowVisible();
                  m_dialog.SetTimer(1, 10);
              }));
    EXPECT_FALSE(seenEarly);
    EXPECT_TRUE(seenLate);
}

TEST_F(ModalTest, DisablesItsOwnersMeanwhile)
{
    TestDialog owner;
    TestDialog page;
    const DialogTemplate child({}, WS_CHILD | DS_CONTROL);
    ASSERT_TRUE(owner.CreateIndirect(m_shape.Get()));
    ASSERT_TRUE(page.CreateIndirect(child.Get(), &owner));
    owner.ShowWindow(SW_SHOWNORMAL);
    TestDialog dialog;
    dialog.InitModalIndirect(m_shape.Get(), &page); // a child's top-level parent owns the dialog
    dialog.m_atInit = [&] { dialog.PostMessage(TestDialog::kAction); };
    dialog.m_atAction = [&] {
        EXPECT_EQ(owner.m_hWnd, ::GetWindow(dialog.m_hWnd, GW_OWNER));
        EXPECT_FALSE(owner.IsWindowEnabled());
        dialog.EndDialog(1);
    };
    EXPECT_EQ(1, dialog.DoModal());
    EXPECT_TRUE(owner.IsWindowEnabled());

    owner.EnableWindow(FALSE); // what was disabled stays so
    EXPECT_EQ(1, dialog.DoModal());
    EXPECT_FALSE(owner.IsWindowEnabled());
}

TEST_F(ModalTest, CanBeNestedButNotInItself)
{
    std::vector<std::string> order;
    TestDialog inner;
    inner.InitModalIndirect(m_shape.Get(), &m_dialog);
    inner.m_atInit = [&] { inner.PostMessage(TestDialog::kAction); };
    inner.m_atAction = [&] {
        order.emplace_back("inner");
        m_dialog.EndDialog(5); // the outer one ends when its turn comes
        inner.EndDialog(6);
    };
    EXPECT_EQ(5, Run([&] {
                  EXPECT_EQ(-1, m_dialog.DoModal());
                  EXPECT_EQ(6, inner.DoModal());
                  order.emplace_back("outer");
              }));
    EXPECT_THAT(order, ElementsAre("inner", "outer"));
}

TEST_F(ModalTest, LeavesQuitToTheOuterLoops)
{
    EXPECT_EQ(-1, Run([] { ::PostQuitMessage(17); }));
    MSG message = {};
    EXPECT_FALSE(::GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(17U, message.wParam);
}

// A program that translates messages of its own does so for its modal dialogs too.
TEST_F(ModalTest, HandsItsMessagesToTheThread)
{
    class App : public CWinApp
    {
    public:
        BOOL PreTranslateMessage(MSG* message) override
        {
            if (message->message != WM_USER)
                return CWinApp::PreTranslateMessage(message);
            m_dialog->EndDialog(8);
            return TRUE;
        }
        TestDialog* m_dialog = nullptr;
    };
    App app;
    app.m_dialog = &m_dialog;
    EXPECT_EQ(8, Run([this] { m_dialog.PostMessage(WM_USER); }));
    EXPECT_EQ(-1, Run([] { ::PostQuitMessage(17); }));
    MSG message = {};
    EXPECT_FALSE(::GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(17U, message.wParam);
}

TEST_F(ModalTest, TellsTheOwnerAndTheDialogOfIdleTimes)
{
    class IdleDialog : public TestDialog
    {
    public:
        int m_idles = 0;
        LPARAM m_last = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_KICKIDLE) {
                const bool continues = m_idles > 0 && lParam == m_last + 1;
                EXPECT_TRUE(lParam == 0 || continues) << lParam << " after " << m_last;
                m_last = lParam;
                if (++m_idles == 30)
                    EndDialog(3);
                return TRUE;
            }
            return TestDialog::WindowProc(message, wParam, lParam);
        }
    };
    IdleDialog dialog;
    dialog.InitModalIndirect(m_shape.Get());
    EXPECT_EQ(3, dialog.DoModal());
    EXPECT_GT(dialog.m_last, 0); // it came again and again, as asked for
}
