#include "BoxLook.h"

#include "BoxAnswerer.h"

#include <gtest/gtest.h>

namespace {

RECT InClient(HWND window, HWND box)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool IsIn(const RECT& inner, const RECT& outer)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

} // namespace

BoxLook LookOf(const std::string& text, const std::string& caption)
{
    BoxLook look = {};
    const Answerer answerer([&](HWND box) {
        EXPECT_TRUE(text == TextOf(LabelOf(box)));
        GetWindowRect(box, &look.box);
        GetClientRect(box, &look.client);
        look.label = InClient(LabelOf(box), box);
        look.button = InClient(GetDlgItem(box, IDOK), box);
        EndDialog(box, IDOK);
    });
    EXPECT_EQ(IDOK, MessageBoxA(nullptr, text.c_str(), caption.c_str(), MB_OK | MB_ICONINFORMATION));
    return look;
}

LONG Height(const RECT& rect)
{
    return rect.bottom - rect.top;
}

LONG Width(const RECT& rect)
{
    return rect.right - rect.left;
}

void ExpectAllIsSeen(const BoxLook& look)
{
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_TRUE(IsIn(look.box, area));
    EXPECT_TRUE(IsIn(look.button, look.client));
    EXPECT_TRUE(IsIn(look.label, look.client));
    EXPECT_LE(look.label.bottom, look.button.top);
}

std::string Repeated(const std::string& part, int count)
{
    std::string text;
    while (count--)
        text += part;
    return text;
}
