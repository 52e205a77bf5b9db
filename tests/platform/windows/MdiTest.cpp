// Frames of several documents.
#include <gmock/gmock.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

HWND client;
std::vector<std::string> activations;
LPARAM parameter; // what the child made last was handed

std::string NameOf(HWND window)
{
    char name[8] = "";
    if (window)
        GetWindowTextA(window, name, sizeof name);
    return name;
}

LRESULT CALLBACK FrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefFrameProcA(window, client, message, wParam, lParam);
}

LRESULT CALLBACK ChildProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
        parameter = reinterpret_cast<const MDICREATESTRUCTA*>(
                        reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams)
                        ->lParam;
    if (message == WM_MDIACTIVATE)
        activations.push_back(NameOf(window) + (reinterpret_cast<HWND>(lParam) == window ? "+" : "-"));
    return DefMDIChildProcA(window, message, wParam, lParam);
}

void Register(const char* name, WNDPROC procedure)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = name;
    RegisterClassA(&description);
}

class Mdi : public testing::Test
{
protected:
    void SetUp() override
    {
        Register("zek_mdi_frame", FrameProc);
        Register("zek_mdi_child", ChildProc);
        client = nullptr;
        m_frame = CreateWindowExA(0, "zek_mdi_frame", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400,
                                  300, nullptr, nullptr, nullptr, nullptr);
        CLIENTCREATESTRUCT settings = {nullptr, 1000};
        client = CreateWindowExA(0, "MDICLIENT", "", WS_CHILD | WS_VISIBLE, 0, 0, 300, 200, m_frame, nullptr,
                                 nullptr, &settings);
        activations.clear();
    }

    void TearDown() override
    {
        DestroyWindow(m_frame);
        UnregisterClassA("zek_mdi_frame", GetModuleHandleA(nullptr));
        UnregisterClassA("zek_mdi_child", GetModuleHandleA(nullptr));
    }

    HWND Add(const char* title)
    {
        MDICREATESTRUCTA create = {"zek_mdi_child",
                                   title,
                                   GetModuleHandleA(nullptr),
                                   CW_USEDEFAULT,
                                   CW_USEDEFAULT,
                                   CW_USEDEFAULT,
                                   CW_USEDEFAULT,
                                   0,
                                   0};
        return reinterpret_cast<HWND>(
            SendMessageA(client, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create)));
    }

    // Without going through the client.
    HWND AddDirectly(const char* title, DWORD style, HWND parent)
    {
        return CreateWindowExA(WS_EX_MDICHILD, "zek_mdi_child", title, style, 0, 0, 0, 0, parent, nullptr,
                               GetModuleHandleA(nullptr), reinterpret_cast<LPVOID>(LPARAM{77}));
    }

    // Children of such a client choose their styles themselves.
    void LetChildrenChoose()
    {
        constexpr LONG kAllChildStyles = 1;
        SetWindowLongA(client, GWL_STYLE, GetWindowLongA(client, GWL_STYLE) | kAllChildStyles);
    }

    HWND Active() { return reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0)); }

    HWND m_frame = nullptr;
};

} // namespace

TEST_F(Mdi, ActivatesWhatIsMadeAndAskedFor)
{
    EXPECT_FALSE(Active());
    const HWND first = Add("1");
    ASSERT_TRUE(first);
    EXPECT_EQ(Active(), first);
    EXPECT_EQ(GetParent(first), client);
    const HWND second = Add("2");
    EXPECT_EQ(Active(), second);
    EXPECT_NE(GetDlgCtrlID(first), GetDlgCtrlID(second));
    SendMessageA(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(first), 0);
    EXPECT_EQ(Active(), first);
    EXPECT_THAT(activations, testing::ElementsAre("1+", "1-", "2+", "2-", "1+"));
    EXPECT_TRUE(IsChild(first, GetFocus()) || GetFocus() == first);
    SendMessageA(client, WM_MDINEXT, 0, 0);
    EXPECT_EQ(Active(), second);
}

TEST_F(Mdi, TakesChildrenMadeDirectly)
{
    const HWND first = Add("1"), second = AddDirectly("2", 0, client);
    ASSERT_TRUE(second);
    EXPECT_EQ(Active(), second);
    EXPECT_EQ(parameter, 77);
    EXPECT_EQ(GetDlgCtrlID(second), GetDlgCtrlID(first) + 1);
    EXPECT_EQ(GetWindowLongA(second, GWL_STYLE), GetWindowLongA(first, GWL_STYLE));
    EXPECT_TRUE(IsWindowVisible(second));
    EXPECT_THAT(activations, testing::ElementsAre("1+", "1-", "2+"));
    EXPECT_FALSE(AddDirectly("3", WS_CHILD, m_frame)) << "no client";
    EXPECT_FALSE(AddDirectly("4", WS_OVERLAPPEDWINDOW, nullptr));
}

TEST_F(Mdi, LeavesAloneWhatCannotBeActive)
{
    LetChildrenChoose();
    const HWND first = AddDirectly("1", WS_VISIBLE, client);
    EXPECT_FALSE(GetWindowLongA(first, GWL_STYLE) & WS_CAPTION);
    const HWND hidden = AddDirectly("2", WS_CHILD, client);
    const HWND disabled = AddDirectly("3", WS_VISIBLE | WS_DISABLED, client);
    ASSERT_TRUE(hidden && disabled);
    EXPECT_FALSE(IsWindowVisible(hidden));
    EXPECT_EQ(Active(), first);
}

TEST_F(Mdi, ActivatesAnotherWhenOneGoes)
{
    const HWND first = Add("1"), second = Add("2"), third = Add("3");
    SendMessageA(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(third), 0);
    EXPECT_FALSE(IsWindow(third));
    EXPECT_EQ(Active(), second);
    SendMessageA(second, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(second));
    EXPECT_EQ(Active(), first);
    SendMessageA(client, WM_MDIDESTROY, reinterpret_cast<WPARAM>(first), 0);
    EXPECT_FALSE(Active());
}

TEST_F(Mdi, ClientFillsTheFrame)
{
    MoveWindow(m_frame, 0, 0, 500, 400, TRUE);
    RECT frame, inner;
    GetClientRect(m_frame, &frame);
    GetClientRect(client, &inner);
    EXPECT_TRUE(EqualRect(&frame, &inner));
}
