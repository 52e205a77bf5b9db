#include "ControlHost.h"

namespace {

using StaticTest = ControlHost;

HICON Icon(HWND control)
{
    return reinterpret_cast<HICON>(SendMessageA(control, STM_GETICON, 0, 0));
}

TEST_F(StaticTest, IconsBelongToIconStyleOnly)
{
    const HICON icon = LoadIconA(nullptr, IDI_QUESTION);
    ASSERT_NE(icon, nullptr);
    const HWND text = Make("STATIC", SS_LEFT, "text");
    SendMessageA(text, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    EXPECT_EQ(Icon(text), nullptr);

    const HWND picture = Make("STATIC", SS_ICON);
    EXPECT_EQ(SendMessageA(picture, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0), 0);
    EXPECT_EQ(Icon(picture), icon);
    EXPECT_EQ(SendMessageA(picture, STM_SETIMAGE, IMAGE_ICON, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(SendMessageA(picture, STM_GETIMAGE, IMAGE_ICON, 0), 0);
    EXPECT_EQ(SendMessageA(picture, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
}

TEST_F(StaticTest, AnIconGivesItsSizeUnlessCentred)
{
    struct Row {
        const char* label;
        DWORD style;
        LONG side; // of the window afterwards
    };
    for (const Row& row : {Row{"plain", SS_ICON, 32}, Row{"centred", SS_ICON | SS_CENTERIMAGE, 120}}) {
        SCOPED_TRACE(row.label);
        const HWND picture = Make("STATIC", row.style, "", 120);
        SendMessageA(picture, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconA(nullptr, IDI_HAND)), 0);
        RECT place;
        GetWindowRect(picture, &place);
        EXPECT_EQ(place.right - place.left, row.side);
        EXPECT_EQ(place.bottom - place.top, row.side);
        DestroyWindow(picture);
    }
}

TEST_F(StaticTest, TellsWithNotifyOnly)
{
    for (const DWORD notify : {DWORD{0}, DWORD{SS_NOTIFY}}) {
        const HWND text = Make("STATIC", SS_LEFT | notify, "text");
        EXPECT_EQ(SendMessageA(text, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
        EnableWindow(text, FALSE);
        EXPECT_EQ(Told(), notify ? "3" : "");
        EnableWindow(text, TRUE);
        EXPECT_EQ(Told(), notify ? "2" : "");
        SetWindowTextA(text, "other");
        EXPECT_EQ(TextOf(text), "other");
        EXPECT_EQ(Told(), "");
        DestroyWindow(text);
    }
}

} // namespace
