// What posted keys type.
#include "Recorder.h"

TEST(Keys, ThatAreTranslatedTypeCharacters)
{
    Recorder recorder;
    const HWND window = recorder.MakeMessageOnly("A");
    const struct {
        const char* label;
        WPARAM key;
        WPARAM typed; // 0: nothing
    } rows[] = {{"letter", 'A', 'a'},        {"digit", '7', '7'},   {"enter", VK_RETURN, '\r'},
                {"escape", VK_ESCAPE, 0x1b}, {"tab", VK_TAB, '\t'}, {"blank", VK_SPACE, ' '},
                {"arrow", VK_LEFT, 0},       {"function", VK_F1, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        PostMessageA(window, WM_KEYDOWN, row.key, 1);
        MSG message;
        ASSERT_TRUE(PeekMessageA(&message, window, 0, 0, PM_REMOVE));
        EXPECT_TRUE(TranslateMessage(&message));
        ASSERT_EQ(PeekMessageA(&message, window, 0, 0, PM_REMOVE) != 0, row.typed != 0);
        if (row.typed) {
            EXPECT_EQ(message.message, static_cast<UINT>(WM_CHAR));
            EXPECT_EQ(message.wParam, row.typed);
        }
    }
    const MSG other = {window, WM_USER, 0, 0, 0, {}};
    EXPECT_FALSE(TranslateMessage(&other));
}

TEST(Keys, AltF4ClosesTheWindow)
{
    Recorder recorder;
    const HWND window = recorder.Make("A", WS_OVERLAPPEDWINDOW);
    recorder.On(WM_CLOSE, [](HWND, UINT, WPARAM, LPARAM) -> LRESULT { return PostQuitMessage(8), 0; });
    PostMessageA(window, WM_SYSKEYDOWN, VK_F4, 1 << 29);
    EXPECT_EQ(RunLoop(), 8);
}
