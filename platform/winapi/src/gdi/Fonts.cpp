#include "Objects.h"

#include "../Error.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <utility>

namespace {

struct StockFont {
    int index;
    LONG height, width, weight;
    BYTE charSet, pitch;
    const char* face;
};

constexpr StockFont kStockFonts[] = {
    {OEM_FIXED_FONT, 12, 0, FW_NORMAL, OEM_CHARSET, FIXED_PITCH | FF_MODERN, "Courier"},
    {ANSI_FIXED_FONT, 12, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, "Courier"},
    {ANSI_VAR_FONT, 12, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, "MS Sans Serif"},
    {SYSTEM_FONT, 16, 7, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, "System"},
    {DEVICE_DEFAULT_FONT, 16, 0, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, "System"},
    {SYSTEM_FIXED_FONT, 16, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, "Courier"},
    {DEFAULT_GUI_FONT, -11, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, "MS Shell Dlg"},
};

void SetFace(LOGFONTA& description, const char* face)
{
    std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "%s", face);
}

HFONT MakeStock(const StockFont& stock)
{
    LOGFONTA description{};
    description.lfHeight = stock.height;
    description.lfWidth = stock.width;
    description.lfWeight = stock.weight;
    description.lfCharSet = stock.charSet;
    description.lfPitchAndFamily = stock.pitch;
    SetFace(description, stock.face);
    return AddFont(description, true);
}

struct StockHandles {
    HFONT fonts[std::size(kStockFonts)];

    StockHandles() { std::transform(std::begin(kStockFonts), std::end(kStockFonts), fonts, MakeStock); }
};

} // namespace

HGDIOBJ WINAPI GetStockObject(int index)
{
    static const StockHandles handles;
    for (size_t i = 0; i < std::size(kStockFonts); ++i)
        if (kStockFonts[i].index == index)
            return handles.fonts[i];
    return nullptr;
}

HFONT WINAPI CreateFontIndirectA(const LOGFONTA* description)
{
    if (!description)
        return nullptr;
    LOGFONTA copy = *description;
    copy.lfFaceName[LF_FACESIZE - 1] = 0;
    return AddFont(copy, false);
}

HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                         DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                         DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCSTR face)
{
    LOGFONTA description{height,
                         width,
                         escapement,
                         orientation,
                         weight,
                         static_cast<BYTE>(italic),
                         static_cast<BYTE>(underline),
                         static_cast<BYTE>(strikeOut),
                         static_cast<BYTE>(charSet),
                         static_cast<BYTE>(outPrecision),
                         static_cast<BYTE>(clipPrecision),
                         static_cast<BYTE>(quality),
                         static_cast<BYTE>(pitchAndFamily),
                         {}};
    SetFace(description, face ? face : "");
    return AddFont(description, false);
}

BOOL WINAPI DeleteObject(HGDIOBJ object)
{
    return RemoveFont(object);
}

int WINAPI GetObjectA(HANDLE object, int size, LPVOID buffer)
{
    const auto font = FindFont(object);
    if (!font)
        return 0;
    constexpr int kWhole = sizeof(LOGFONTA);
    if (!buffer)
        return kWhole;
    const int copied = std::clamp(size, 0, kWhole);
    std::memcpy(buffer, &font->description, static_cast<size_t>(copied));
    return copied;
}

HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object)
{
    const auto context = FindContext(dc);
    auto font = context ? FindFont(object) : nullptr;
    if (!font)
        return nullptr;
    context->state.font = std::move(font);
    return std::exchange(context->state.fontHandle, object);
}

HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT kind)
{
    const auto context = FindContext(dc);
    if (!context)
        return nullptr;
    if (kind == OBJ_FONT)
        return context->state.fontHandle;
    Fail(ERROR_INVALID_PARAMETER);
    return nullptr;
}
