// Windows and their objects: who belongs to whom, and how each comes and goes.
#include "TestDialog.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

using Log = std::vector<std::string>;

class Window : public CWnd
{
    DECLARE_MESSAGE_MAP()
public:
    explicit Window(Log* log = nullptr, std::string name = "") : m_log(log), m_name(std::move(name)) {}
    ~Window() override { Write("deleted"); }

    bool m_deleteItself = false;
    bool m_deleteInAction = false;
    int m_createAnswer = 0;
    int m_timers = 0;

    BOOL MakeTop()
    {
        return CreateEx(0, nullptr, "top", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr);
    }
    BOOL MakeChild(CWnd* parent, UINT id)
    {
        return Create(nullptr, "child", WS_VISIBLE, RECT{1, 2, 31, 22}, parent, id);
    }
    void PreSubclassWindow() override { Write("presubclass"); }

protected:
    void PostNcDestroy() override
    {
        Write("gone");
        if (m_deleteItself)
            delete this;
    }
    afx_msg BOOL OnNcCreate(LPCREATESTRUCTA create)
    {
        Write("nccreate");
        return CWnd::OnNcCreate(create);
    }
    afx_msg int OnCreate(LPCREATESTRUCTA create)
    {
        Write("create");
        const int answer = CWnd::OnCreate(create);
        return m_createAnswer ? m_createAnswer : answer;
    }
    afx_msg void OnDestroy() { Write("destroy"); }
    afx_msg void OnTimer(UINT_PTR) { ++m_timers; }
    LRESULT OnAction(WPARAM, LPARAM)
    {
        DestroyWindow(); // deletes the object if it does that
        return 5;
    }

private:
    void Write(const char* what)
    {
        if (m_log)
            m_log->push_back(m_name + what);
    }

    Log* m_log;
    std::string m_name;
};

BEGIN_MESSAGE_MAP(Window, CWnd)
ON_WM_NCCREATE()
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_TIMER()
ON_MESSAGE(TestDialog::kAction, &Window::OnAction)
END_MESSAGE_MAP()

HWND RawWindow()
{
    return ::CreateWindowExA(0, "Static", "raw", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

// Hosts do so with a parent that may be null.
__attribute__((no_sanitize("undefined"))) HWND HandleOf(const CWnd* window)
{
    return window->GetSafeHwnd();
}

} // namespace

TEST(CWnd, MatchesHandlesAndObjects)
{
    const HWND raw = RawWindow();
    EXPECT_EQ(nullptr, CWnd::FromHandle(nullptr));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(raw));
    CWnd* temporary = CWnd::FromHandle(raw);
    ASSERT_NE(nullptr, temporary);
    EXPECT_EQ(temporary, CWnd::FromHandle(raw));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(raw));
    EXPECT_EQ(raw, temporary->GetSafeHwnd());
    {
        CWnd owner;
        CWnd rival;
        EXPECT_FALSE(owner.Attach(nullptr));
        EXPECT_TRUE(owner.Attach(raw));
        EXPECT_FALSE(rival.Attach(raw));
        EXPECT_EQ(nullptr, rival.m_hWnd);
        EXPECT_EQ(&owner, CWnd::FromHandle(raw));
        EXPECT_EQ(raw, owner.Detach());
        EXPECT_EQ(nullptr, owner.Detach());
        EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(raw));
        EXPECT_TRUE(rival.Attach(raw));
        rival.Detach();
    }
    CWnd::FromHandle(raw);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(raw)); // only the objects went
    ::DestroyWindow(raw);
}

TEST(CWnd, EndsAWindowItOnlyAttachedTo)
{
    const HWND raw = RawWindow();
    {
        CWnd object;
        ASSERT_TRUE(object.Attach(raw));
        EXPECT_TRUE(object.DestroyWindow());
        EXPECT_EQ(nullptr, object.m_hWnd);
        EXPECT_FALSE(object.DestroyWindow());
    }
    EXPECT_FALSE(::IsWindow(raw));
    const HWND second = RawWindow();
    {
        CWnd object;
        object.Attach(second);
    }
    EXPECT_FALSE(::IsWindow(second));
}

TEST(CWnd, SeesItsWindowFromTheFirstMessageToTheLast)
{
    Log log;
    {
        Window window(&log);
        ASSERT_TRUE(window.MakeTop());
        EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
        EXPECT_FALSE(window.MakeTop()); // it has one
        EXPECT_TRUE(window.DestroyWindow());
        EXPECT_EQ(nullptr, window.m_hWnd);
        ASSERT_TRUE(window.MakeTop()); // and again
        window.DestroyWindow();
    }
    EXPECT_THAT(log, ElementsAre("presubclass", "nccreate", "create", "destroy", "gone", "presubclass",
                                 "nccreate", "create", "destroy", "gone", "deleted"));
}

TEST(CWnd, CleansUpAfterAFailedCreation)
{
    Log log;
    Window window(&log);
    window.m_createAnswer = -1;
    EXPECT_FALSE(window.MakeTop());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ("gone", log.back());
    log.clear();
    EXPECT_FALSE(window.CreateEx(0, "no such class", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr));
    EXPECT_THAT(log, ElementsAre("gone"));
    EXPECT_FALSE(window.Create(nullptr, "", WS_POPUP, RECT{}, &window, 1));

    auto* self = new Window(&log);
    self->m_deleteItself = true;
    log.clear();
    EXPECT_FALSE(self->CreateEx(0, "no such class", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr));
    EXPECT_THAT(log, ElementsAre("gone", "deleted"));
}

TEST(CWnd, EndsOwnedWindowsFirstAndChildrenInside)
{
    Log log;
    Window parent(&log, "parent ");
    Window child(&log, "child ");
    Window owned(&log, "owned ");
    ASSERT_TRUE(parent.MakeTop());
    ASSERT_TRUE(child.MakeChild(&parent, 7));
    ASSERT_TRUE(owned.CreateEx(0, nullptr, "", WS_POPUP, RECT{0, 0, 9, 9}, &parent, 0));
    EXPECT_EQ(&child, parent.GetDlgItem(7));
    log.clear();
    parent.DestroyWindow();
    EXPECT_THAT(log, ElementsAre("owned destroy", "owned gone", "parent destroy", "child destroy",
                                 "child gone", "parent gone"));
    EXPECT_EQ(nullptr, child.m_hWnd);
    EXPECT_EQ(nullptr, owned.m_hWnd);
}

TEST(CWnd, MayDeleteItselfInAHandler)
{
    Log log;
    auto* window = new Window(&log);
    window->m_deleteItself = true;
    ASSERT_TRUE(window->MakeTop());
    const HWND handle = window->m_hWnd;
    log.clear();
    EXPECT_EQ(5, ::SendMessageA(handle, TestDialog::kAction, 0, 0));
    EXPECT_THAT(log, ElementsAre("destroy", "gone", "deleted"));
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_FALSE(::PostMessageA(handle, WM_USER, 0, 0));
    EXPECT_EQ(static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE), ::GetLastError());
}

TEST(CWnd, HearsNothingOfMessagesAndTimersThatComeTooLate)
{
    Log log;
    Window window(&log);
    Window other;
    ASSERT_TRUE(window.MakeTop());
    ASSERT_TRUE(other.MakeTop());
    ASSERT_TRUE(window.PostMessage(TestDialog::kAction));
    EXPECT_NE(0U, window.SetTimer(1, 10));
    EXPECT_NE(0U, other.SetTimer(1, 30)); // falls due after the dead one would have
    window.DestroyWindow();
    log.clear();
    MSG message;
    while (other.m_timers == 0 && ::GetMessageA(&message, nullptr, 0, 0) > 0)
        ::DispatchMessageA(&message);
    EXPECT_THAT(log, ElementsAre());
    EXPECT_EQ(0, window.m_timers);
}

TEST(CWnd, StepsInFrontOfAControl)
{
    Log log;
    Window parent;
    ASSERT_TRUE(parent.MakeTop());
    const HWND raw = ::CreateWindowExA(0, "Static", "label", WS_CHILD, 0, 0, 50, 20, parent.m_hWnd,
                                       reinterpret_cast<HMENU>(3), nullptr, nullptr);
    const LONG_PTR procedure = ::GetWindowLongPtrA(raw, GWLP_WNDPROC);
    Window label(&log);
    EXPECT_FALSE(label.SubclassDlgItem(4, &parent));
    ASSERT_TRUE(label.SubclassDlgItem(3, &parent));
    EXPECT_EQ(&label, parent.GetDlgItem(3));
    CString text;
    label.GetWindowText(text); // what it does not handle reaches the control
    EXPECT_STREQ("label", text);
    EXPECT_EQ(raw, label.UnsubclassWindow());
    EXPECT_EQ(procedure, ::GetWindowLongPtrA(raw, GWLP_WNDPROC));
    EXPECT_TRUE(::IsWindow(raw));
    EXPECT_EQ(nullptr, label.m_hWnd);

    ASSERT_TRUE(label.SubclassWindow(raw));
    log.clear();
    parent.DestroyWindow();
    EXPECT_THAT(log, ElementsAre("destroy", "gone"));
    ASSERT_TRUE(parent.MakeTop());
    EXPECT_TRUE(label.Create("Edit", "typed", WS_BORDER, RECT{0, 0, 50, 20}, &parent, 9)); // another kind
    label.GetWindowText(text);
    EXPECT_STREQ("typed", text);
}

TEST(CWnd, TakesNullForNoWindow)
{
    const CWnd* volatile none = nullptr;
    EXPECT_EQ(nullptr, HandleOf(none));
    const CWnd idle;
    EXPECT_EQ(nullptr, idle.GetSafeHwnd());
}

TEST(CWnd, ReadsAndWritesTexts)
{
    Window window;
    ASSERT_TRUE(window.MakeTop());
    for (const std::string& text : {std::string(), std::string("a"), std::string(3000, 'x')}) {
        window.SetWindowText(text.c_str());
        CString read = "old";
        window.GetWindowText(read);
        EXPECT_EQ(text, read.GetString());
        EXPECT_EQ(static_cast<int>(text.size()), window.GetWindowTextLength());
    }
    CString read = "old";
    EXPECT_EQ(0, window.GetDlgItemText(99, read));
    EXPECT_STREQ("", read);
}

TEST(CWnd, ChangesStylesOnlyWhereTheyDiffer)
{
    Window window;
    ASSERT_TRUE(window.MakeTop());
    EXPECT_TRUE(window.ModifyStyle(WS_MAXIMIZEBOX, 0, SWP_FRAMECHANGED));
    EXPECT_FALSE(window.ModifyStyle(WS_MAXIMIZEBOX, 0));
    EXPECT_EQ(0U, window.GetStyle() & WS_MAXIMIZEBOX);
    EXPECT_TRUE(window.ModifyStyleEx(0, WS_EX_TOOLWINDOW));
    EXPECT_NE(0U, window.GetExStyle() & WS_EX_TOOLWINDOW);
}

TEST(CWnd, ConvertsRectanglesBetweenWindows)
{
    Window parent;
    Window child;
    ASSERT_TRUE(parent.MakeTop());
    ASSERT_TRUE(child.MakeChild(&parent, 1));
    child.MoveWindow(11, 12, 40, 30);
    RECT rect = {};
    child.GetWindowRect(&rect);
    parent.ScreenToClient(&rect);
    EXPECT_TRUE(::EqualRect(&rect, &static_cast<const RECT&>(RECT{11, 12, 51, 42})));
    RECT inner = {0, 0, 40, 30};
    child.MapWindowPoints(&parent, &inner);
    EXPECT_TRUE(::EqualRect(&rect, &inner));
    parent.ClientToScreen(&inner);
    POINT corner = {11, 12};
    parent.ClientToScreen(&corner);
    EXPECT_EQ(corner.x, inner.left);
    EXPECT_EQ(corner.y, inner.top);
    EXPECT_EQ(30, inner.bottom - inner.top);
}

TEST(CWnd, CentresWithinOwnerParentAndScreen)
{
    Window owner;
    ASSERT_TRUE(owner.MakeTop());
    owner.MoveWindow(300, 200, 400, 300);
    owner.ShowWindow(SW_SHOWNOACTIVATE);
    Window popup;
    ASSERT_TRUE(popup.CreateEx(0, nullptr, "", WS_POPUP, RECT{0, 0, 100, 60}, &owner, 0));
    RECT rect = {};
    popup.CenterWindow();
    popup.GetWindowRect(&rect);
    EXPECT_TRUE(::EqualRect(&rect, &static_cast<const RECT&>(RECT{450, 320, 550, 380})));

    owner.MoveWindow(-380, 200, 400, 300); // its middle is off the screen
    popup.CenterWindow();
    popup.GetWindowRect(&rect);
    EXPECT_EQ(0, rect.left);

    Window child;
    ASSERT_TRUE(child.MakeChild(&owner, 1));
    RECT client = {};
    owner.GetClientRect(&client);
    child.CenterWindow();
    child.GetWindowRect(&rect);
    owner.ScreenToClient(&rect);
    EXPECT_EQ(client.right / 2 - 15, rect.left);
    EXPECT_EQ(client.bottom / 2 - 10, rect.top);
}

TEST(CWnd, FindsDescendantsAndSendsToThem)
{
    Log log;
    Window parent;
    Window page;
    Window leaf;
    ASSERT_TRUE(parent.MakeTop());
    ASSERT_TRUE(page.MakeChild(&parent, 10));
    ASSERT_TRUE(leaf.MakeChild(&page, 20));
    ::CreateWindowExA(0, "Static", "", WS_CHILD, 0, 0, 5, 5, page.m_hWnd, reinterpret_cast<HMENU>(30),
                      nullptr, nullptr);
    EXPECT_EQ(&leaf, parent.GetDescendantWindow(20));
    EXPECT_EQ(nullptr, parent.GetDlgItem(20));
    EXPECT_NE(nullptr, parent.GetDescendantWindow(30));
    EXPECT_EQ(nullptr, parent.GetDescendantWindow(30, TRUE));
    EXPECT_EQ(&parent, leaf.GetTopLevelParent());

    parent.SendMessageToDescendants(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("all"), FALSE);
    CString text;
    leaf.GetWindowText(text);
    EXPECT_STREQ("child", text);
    parent.SendMessageToDescendants(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("all"), TRUE, TRUE);
    leaf.GetWindowText(text);
    EXPECT_STREQ("all", text);
    page.GetDlgItemText(30, text);
    EXPECT_STREQ("", text);
}

TEST(AfxRegisterClass, ServesOwnAndSharedClasses)
{
    const CString first = AfxRegisterWndClass(CS_DBLCLKS);
    EXPECT_EQ(first, AfxRegisterWndClass(CS_DBLCLKS));
    EXPECT_NE(first, AfxRegisterWndClass(0));
    WNDCLASSA description = {};
    description.lpfnWndProc = ::DefWindowProcA;
    description.hInstance = AfxGetInstanceHandle();
    description.lpszClassName = "zek afxwin class";
    EXPECT_TRUE(AfxRegisterClass(&description));
    EXPECT_TRUE(AfxRegisterClass(&description));
    Log log;
    Window window(&log);
    ASSERT_TRUE(window.CreateEx(0, "zek afxwin class", "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr));
    EXPECT_THAT(log, ElementsAre("presubclass", "nccreate", "create"));
    // A window without an object is an ordinary one.
    const HWND raw = ::CreateWindowExA(0, "zek afxwin class", "name", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr,
                                       description.hInstance, nullptr);
    char text[8];
    EXPECT_EQ(4, ::GetWindowTextA(raw, text, sizeof text));
    ::DestroyWindow(raw);
}
