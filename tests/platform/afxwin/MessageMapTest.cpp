// Which handler gets a message or a command, and with which arguments.
#include "TestDialog.h"

#include "Boxes.h"

#include <gmock/gmock.h>

#include <stdexcept>

using testing::ElementsAre;

namespace {

constexpr UINT kFirst = 101;
constexpr UINT kRangeStart = 200;
constexpr UINT kRangeEnd = 203;
constexpr UINT kRouted = 0x8005;
constexpr UINT kSystem = 0xF005;
constexpr UINT kThrow = WM_USER + 1;
const UINT kRegistered = ::RegisterWindowMessageA("zek afxwin test");

// A window that writes down what reaches it.
class Target : public CWnd
{
    DECLARE_MESSAGE_MAP()
public:
    std::vector<std::string> m_log;
    bool m_takesEx = true;

    template <class... Parts>
    void Log(const char* format, Parts... parts)
    {
        CString text;
        text.Format(format, parts...);
        m_log.emplace_back(text.GetString());
    }

protected:
    void OnFirst() { Log("first"); }
    void OnFirst(int) { Log("another overload"); }
    void OnRouted() { Log("routed"); }
    void OnChanged() { Log("changed"); }
    void OnRange(UINT id) { Log("range %u", id); }
    BOOL OnEx(UINT id)
    {
        Log("ex %u", id);
        return m_takesEx;
    }
    LRESULT OnPlain(WPARAM wParam, LPARAM lParam)
    {
        Log("plain %d %d", static_cast<int>(wParam), static_cast<int>(lParam));
        return 42;
    }
    LRESULT OnThrow(WPARAM kind, LPARAM);
    afx_msg void OnSize(UINT type, int width, int height) { Log("size %u %d %d", type, width, height); }
    afx_msg void OnMove(int x, int y) { Log("move %d %d", x, y); }
    afx_msg void OnSysCommand(UINT id, LPARAM lParam) { Log("system %x %d", id, static_cast<int>(lParam)); }
    afx_msg void OnShowWindow(BOOL show, UINT status) { Log("show %d %u", show, status); }
    afx_msg void OnTimer(UINT_PTR id) { Log("timer %u", static_cast<UINT>(id)); }
    afx_msg void OnKeyDown(UINT key, UINT count, UINT flags) { Log("key %u %u %u", key, count, flags); }
    afx_msg void OnSetFocus(CWnd* old) { Log("focus %s", old == this ? "own" : old ? "other" : "none"); }
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL minimized)
    {
        Log("activate %u %s %d", state, other ? "other" : "none", minimized);
    }
};

LRESULT Target::OnThrow(WPARAM kind, LPARAM)
{
    if (kind == 1)
        AfxThrowUserException();
    if (kind == 2)
        AfxThrowResourceException();
    if (kind == 3)
        throw std::runtime_error("of the standard kind");
    throw 7;
}

BEGIN_MESSAGE_MAP(Target, CWnd)
ON_COMMAND(kFirst, &Target::OnFirst)
ON_COMMAND(kRouted, &Target::OnRouted)
ON_COMMAND(kSystem, &Target::OnRouted)
ON_EN_CHANGE(kRouted, &Target::OnRouted)
ON_EN_CHANGE(kFirst, &Target::OnChanged)
ON_COMMAND_RANGE(kRangeStart, kRangeEnd, &Target::OnRange)
ON_CONTROL_RANGE(LBN_SELCHANGE, kRangeStart, kRangeEnd, &Target::OnRange)
ON_COMMAND_EX(300, &Target::OnEx)
ON_MESSAGE(WM_USER, &Target::OnPlain)
ON_MESSAGE(kThrow, &Target::OnThrow)
ON_REGISTERED_MESSAGE(kRegistered, &Target::OnPlain)
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_SYSCOMMAND()
ON_WM_SHOWWINDOW()
ON_WM_TIMER()
ON_WM_KEYDOWN()
ON_WM_SETFOCUS()
ON_WM_ACTIVATE()
END_MESSAGE_MAP()

// Handles one thing itself and leaves the rest to its base class's map.
class Derived : public Target
{
    DECLARE_MESSAGE_MAP()
protected:
    void OnChangedToo() { Log("derived changed"); }
};

BEGIN_MESSAGE_MAP(Derived, Target)
ON_EN_CHANGE(kFirst, &Derived::OnChangedToo)
END_MESSAGE_MAP()

template <class Window>
struct Made : Window {
    Made() { EXPECT_TRUE(this->CreateEx(0, nullptr, "", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr)); }

    std::string Sent(UINT message, WPARAM wParam, LPARAM lParam = 0)
    {
        this->m_log.clear();
        this->SendMessage(message, wParam, lParam);
        std::string all;
        for (const std::string& line : this->m_log)
            all += line;
        return all;
    }
};

LPARAM Some(HWND window)
{
    return reinterpret_cast<LPARAM>(window);
}

} // namespace

TEST(MessageMap, GivesHandlersTheirArguments)
{
    Made<Target> window;
    const LPARAM self = Some(window.m_hWnd);
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* log;
    } kRows[] = {
        {WM_USER, 7, -3, "plain 7 -3"},
        {kRegistered, 1, 2, "plain 1 2"},
        {WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 20), "size 2 40000 20"},
        {WM_MOVE, 0, MAKELPARAM(static_cast<WORD>(-5), 30000), "move -5 30000"},
        {WM_SYSCOMMAND, SC_CLOSE, 5, "system f060 5"},
        {WM_SHOWWINDOW, TRUE, SW_PARENTOPENING, "show 1 3"},
        {WM_TIMER, 70000, 0, "timer 70000"},
        {WM_KEYDOWN, VK_RETURN, MAKELPARAM(2, 0xC01C), "key 13 2 49180"},
        {WM_SETFOCUS, static_cast<WPARAM>(self), 0, "focus own"},
        {WM_SETFOCUS, 0, 0, "focus none"},
        {WM_ACTIVATE, MAKEWPARAM(WA_CLICKACTIVE, TRUE), self, "activate 2 other 1"},
        {WM_COMMAND, kFirst, 0, "first"},
        {WM_COMMAND, MAKEWPARAM(kFirst, 1), 0, "first"}, // an accelerator
        {WM_COMMAND, MAKEWPARAM(kFirst, EN_CHANGE), self, "changed"},
        {WM_COMMAND, MAKEWPARAM(kFirst, EN_UPDATE), self, ""},
        {WM_COMMAND, kRangeStart - 1, 0, ""},
        {WM_COMMAND, kRangeStart, 0, "range 200"},
        {WM_COMMAND, kRangeEnd, 0, "range 203"},
        {WM_COMMAND, kRangeEnd + 1, 0, ""},
        {WM_COMMAND, MAKEWPARAM(kRangeEnd, LBN_SELCHANGE), self, "range 203"},
        {WM_COMMAND, 300, 0, "ex 300"},
        {WM_COMMAND, 0, 0, ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << "message " << row.message << " wParam " << row.wParam);
        EXPECT_EQ(row.log, window.Sent(row.message, row.wParam, row.lParam));
    }
    EXPECT_EQ(42, window.SendMessage(WM_USER));
    EXPECT_EQ(1, window.SendMessage(WM_COMMAND, kFirst));
    EXPECT_EQ(0, window.SendMessage(WM_COMMAND, 999));
    window.m_takesEx = false;
    EXPECT_EQ(0, window.SendMessage(WM_COMMAND, 300));
}

TEST(MessageMap, AsksTheBaseClassLast)
{
    Made<Derived> window;
    const LPARAM self = Some(window.m_hWnd);
    EXPECT_EQ("derived changed", window.Sent(WM_COMMAND, MAKEWPARAM(kFirst, EN_CHANGE), self));
    EXPECT_EQ("first", window.Sent(WM_COMMAND, kFirst));
    EXPECT_EQ("plain 0 0", window.Sent(WM_USER, 0));
}

TEST(MessageMap, TellsWhoWouldHandleACommand)
{
    Made<Derived> window;
    AFX_CMDHANDLERINFO info = {};
    EXPECT_TRUE(window.OnCmdMsg(kFirst, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(static_cast<CCmdTarget*>(&window), info.pTarget);
    EXPECT_FALSE(window.OnCmdMsg(999, CN_COMMAND, nullptr, &info));
    EXPECT_THAT(window.m_log, ElementsAre());
}

TEST(MessageMap, LetsNoExceptionOut)
{
    Made<Target> window;
    const struct {
        WPARAM kind;
        std::vector<std::string> boxes;
    } kRows[] = {
        {1, {}}, // the user has been told
        {2, {"A required resource was unavailable."}},
        {3, {"of the standard kind"}},
        {4, {"An unknown error occurred."}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.kind);
        const BoxCatcher boxes;
        EXPECT_EQ(0, window.SendMessage(kThrow, row.kind));
        EXPECT_EQ(row.boxes, boxes.Texts());
    }
    EXPECT_EQ("plain 0 0", window.Sent(WM_USER, 0));
}

TEST(MessageMap, RoutesADialogsCommandsToItsOwner)
{
    Target owner;
    ASSERT_TRUE(owner.CreateEx(0, nullptr, "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr));
    const DialogTemplate shape({});
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(shape.Get(), &owner));
    owner.m_log.clear();
    for (const UINT id : {kFirst, kRouted, kSystem})
        dialog.SendMessage(WM_COMMAND, id);
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(kRouted, EN_CHANGE), Some(dialog.m_hWnd)); // a control's
    EXPECT_THAT(owner.m_log, ElementsAre("routed"));
}
