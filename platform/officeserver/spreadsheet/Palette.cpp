#include "spreadsheet/Palette.h"

#include <iterator>

namespace zek::office {
namespace {

// Red in the highest of the three bytes.
constexpr std::uint32_t kPalette[] = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0x800000, 0x008000,
    0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF,
    0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000,
    0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, 0x003366, 0x339966,
    0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333,
};

Color Swapped(std::uint32_t rgb)
{
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF);
}

int Distance(Color left, Color right)
{
    int sum = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int difference =
            static_cast<int>(left >> shift & 0xFF) - static_cast<int>(right >> shift & 0xFF);
        sum += difference * difference;
    }
    return sum;
}

} // namespace

bool IsPaletteIndex(LONG index)
{
    return index >= 1 && index <= static_cast<LONG>(std::size(kPalette));
}

Color PaletteColor(LONG index)
{
    return Swapped(kPalette[index - 1]);
}

LONG NearestPaletteIndex(Color color)
{
    LONG nearest = 1;
    for (LONG index = 2; IsPaletteIndex(index); ++index)
        if (Distance(PaletteColor(index), color) < Distance(PaletteColor(nearest), color))
            nearest = index;
    return nearest;
}

} // namespace zek::office
