#include "Mapping.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

__extension__ using Wide = __int128; // a difference of two LONGs times a third and two has 66 bits

// numerator / denominator to the nearest whole number, a half upwards.
Wide Divide(Wide numerator, Wide denominator)
{
    if (denominator < 0) {
        numerator = -numerator;
        denominator = -denominator;
    }
    const Wide twice = 2 * numerator + denominator, divisor = 2 * denominator;
    return twice / divisor - (twice % divisor < 0 ? 1 : 0);
}

bool Convert(LONG from, LONG fromOrigin, LONG fromExtent, LONG toOrigin, LONG toExtent, LONG& to)
{
    const Wide result = Divide((Wide{from} - fromOrigin) * toExtent, fromExtent) + toOrigin;
    if (result < std::numeric_limits<LONG>::min() || result > std::numeric_limits<LONG>::max())
        return false;
    to = static_cast<LONG>(result);
    return true;
}

Wide Magnitude(LONG value)
{
    return value < 0 ? -Wide{value} : Wide{value};
}

LONG ConvertLength(LONG length, LONG fromExtent, LONG toExtent)
{
    const Wide result = Divide(Magnitude(length) * Magnitude(toExtent), Magnitude(fromExtent));
    return static_cast<LONG>(std::min<Wide>(result, std::numeric_limits<LONG>::max()));
}

// Logical units in `factor` units of 1 / `divisor` mm.
LONG Units(LONG millimetres, LONG factor, LONG divisor)
{
    return static_cast<LONG>(Divide(Wide{millimetres} * factor, divisor));
}

struct FixedScale {
    LONG factor, divisor; // units in a millimetre
};

// By mode from MM_LOMETRIC on: 0.1 mm, 0.01 mm, 0.01 inch, 0.001 inch, 1/1440 inch, and 0.1 mm again.
constexpr FixedScale kScales[] = {{10, 1}, {100, 1}, {1000, 254}, {10000, 254}, {14400, 254}, {10, 1}};

double UnitLength(const MappingAxis& axis, LONG millimetres, LONG pixels)
{
    const double pixel = static_cast<double>(millimetres) / pixels;
    return std::abs(pixel * axis.viewportExtent / axis.windowExtent);
}

// Shrinks by a ratio below 1, but never to nothing.
void Shrink(LONG& extent, double ratio)
{
    const auto shrunk = static_cast<LONG>(std::floor(extent * ratio + 0.5));
    extent = shrunk ? shrunk : extent < 0 ? -1 : 1;
}

} // namespace

bool MappingAxis::ToDevice(LONG logical, LONG& device) const
{
    return Convert(logical, windowOrigin, windowExtent, viewportOrigin, viewportExtent, device);
}

bool MappingAxis::ToLogical(LONG device, LONG& logical) const
{
    return Convert(device, viewportOrigin, viewportExtent, windowOrigin, windowExtent, logical);
}

LONG MappingAxis::LengthToDevice(LONG logical) const
{
    return ConvertLength(logical, windowExtent, viewportExtent);
}

LONG MappingAxis::LengthToLogical(LONG device) const
{
    return ConvertLength(device, viewportExtent, windowExtent);
}

void Mapping::SetMode(int newMode, const ScreenScale& screen)
{
    const bool changes = newMode != mode;
    mode = newMode;
    if (mode == MM_ANISOTROPIC || (mode == MM_ISOTROPIC && !changes))
        return;
    if (mode == MM_TEXT) {
        x.windowExtent = x.viewportExtent = y.windowExtent = y.viewportExtent = 1;
        return;
    }
    const FixedScale& scale = kScales[mode - MM_LOMETRIC];
    x.windowExtent = Units(screen.millimetres.cx, scale.factor, scale.divisor);
    y.windowExtent = Units(screen.millimetres.cy, scale.factor, scale.divisor);
    x.viewportExtent = screen.pixels.cx;
    y.viewportExtent = -screen.pixels.cy;
}

void Mapping::Equalize(const ScreenScale& screen)
{
    const double across = UnitLength(x, screen.millimetres.cx, screen.pixels.cx);
    const double down = UnitLength(y, screen.millimetres.cy, screen.pixels.cy);
    if (across > down)
        Shrink(x.viewportExtent, down / across);
    else
        Shrink(y.viewportExtent, across / down);
}
