// The keys of dialogs among the controls of a window that is no dialog.
#include "ControlHost.h"

#include <array>

namespace {

class KeysTest : public ControlHost
{
protected:
    void Press(WPARAM key)
    {
        MSG message = {};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        EXPECT_TRUE(IsDialogMessageA(Host(), &message));
    }
};

TEST_F(KeysTest, TabGoesFromStopToStop)
{
    const HWND first = Make("EDIT", WS_TABSTOP, "first", 20, 1);
    Make("EDIT", 0, "passed over", 20, 2);
    const HWND last = Make("BUTTON", WS_TABSTOP, "last", 20, 3);
    SetFocus(first);
    for (const HWND next : {last, first, last}) {
        Press(VK_TAB);
        EXPECT_EQ(GetFocus(), next);
    }
}

TEST_F(KeysTest, ArrowsGoRoundAGroup)
{
    const std::array<HWND, 2> radios = {Make("BUTTON", BS_AUTORADIOBUTTON | WS_GROUP, "one", 20, 1),
                                        Make("BUTTON", BS_AUTORADIOBUTTON, "two", 20, 2)};
    Make("BUTTON", WS_GROUP, "other group", 20, 3);
    SetFocus(radios[0]);
    Press(VK_DOWN);
    EXPECT_EQ(GetFocus(), radios[1]);
    EXPECT_EQ(SendMessageA(radios[1], BM_GETCHECK, 0, 0), BST_CHECKED);
    Press(VK_DOWN);
    EXPECT_EQ(GetFocus(), radios[0]);
}

} // namespace
