#include "Screen.h"

#include "../windows/Backend.h"

namespace {

constexpr SIZE kUsualScreen = {1024, 768};

SIZE Pixels()
{
    if (!CanShowWindows())
        return kUsualScreen;
    const SIZE size = Backend()->ScreenSize();
    return size.cx > 0 && size.cy > 0 ? size : kUsualScreen;
}

LONG Millimetres(LONG pixels)
{
    constexpr LONG kTenthsPerInch = 254, kDivisor = 10 * kPixelsPerInch;
    return (pixels * kTenthsPerInch + kDivisor / 2) / kDivisor;
}

} // namespace

ScreenScale Screen()
{
    const SIZE pixels = Pixels();
    return {pixels, {Millimetres(pixels.cx), Millimetres(pixels.cy)}};
}
