#include "Metrics.h"

#include "../CodePage.h"
#include "../Error.h"
#include "Backend.h"

#include <algorithm>

namespace {

constexpr int kMinimum = 112, kMinimumHeight = 27;

struct Fixed {
    int index;
    int value;
};

constexpr Fixed kFixed[] = {
    {SM_CXVSCROLL, kScrollBar},
    {SM_CYHSCROLL, kScrollBar},
    {SM_CYCAPTION, kCaption},
    {SM_CXBORDER, kBorder},
    {SM_CYBORDER, kBorder},
    {SM_CXFIXEDFRAME, kFixedFrame},
    {SM_CYFIXEDFRAME, kFixedFrame},
    {SM_CXICON, 32},
    {SM_CYICON, 32},
    {SM_CXCURSOR, 32},
    {SM_CYCURSOR, 32},
    {SM_CYMENU, kMenu},
    {SM_CYVSCROLL, kScrollBar},
    {SM_CXHSCROLL, kScrollBar},
    {SM_CXMIN, kMinimum},
    {SM_CYMIN, kMinimumHeight},
    {SM_CXSIZE, 18},
    {SM_CYSIZE, 18},
    {SM_CXSIZEFRAME, kSizeFrame},
    {SM_CYSIZEFRAME, kSizeFrame},
    {SM_CXDOUBLECLK, 4},
    {SM_CYDOUBLECLK, 4},
    {SM_CXEDGE, kEdge},
    {SM_CYEDGE, kEdge},
    {SM_CXSMICON, 16},
    {SM_CYSMICON, 16},
    {SM_CYSMCAPTION, kSmallCaption},
    {SM_CXSMSIZE, 15},
    {SM_CYSMSIZE, 15},
};

SIZE Screen()
{
    return CanShowWindows() ? Backend()->ScreenSize() : SIZE{};
}

LONG SizeOfScreen(int index)
{
    const SIZE screen = Screen();
    if (screen.cx == 0)
        return 0;
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
    case SM_CXVIRTUALSCREEN:
        return screen.cx;
    case SM_CYSCREEN:
    case SM_CYVIRTUALSCREEN:
        return screen.cy;
    case SM_CYFULLSCREEN:
        return Backend()->WorkArea().bottom - Backend()->WorkArea().top - kCaption;
    case SM_CXMAXIMIZED:
        return screen.cx + 2 * kSizeFrame;
    case SM_CYMAXIMIZED:
        return screen.cy + 2 * kSizeFrame;
    case SM_CMONITORS:
        return 1;
    default:
        return 0;
    }
}

} // namespace

int WINAPI GetSystemMetrics(int index)
{
    if (index == SM_DBCSENABLED)
        return std::ranges::count(AnsiLeadBytes(), true) > 0;
    for (const auto& [number, value] : kFixed)
        if (index == number)
            return value;
    return SizeOfScreen(index);
}

BOOL WINAPI SystemParametersInfoA(UINT action, UINT, LPVOID data, UINT)
{
    if (action != SPI_GETWORKAREA || !data)
        return Fail(ERROR_INVALID_PARAMETER);
    if (!CanShowWindows())
        return Fail(ERROR_NOT_SUPPORTED);
    *static_cast<RECT*>(data) = Backend()->WorkArea();
    return TRUE;
}
