#include "Units.h"

#include "../Error.h"
#include "State.h"

#include <winnls.h>

#include <algorithm>

namespace {

constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kLetterCount = sizeof kLetters - 1;
constexpr int kPointsPerInch = 72;

} // namespace

HFONT MakeDialogFont(const TemplateFont& font)
{
    const HDC screen = CreateCompatibleDC(nullptr);
    LOGFONTA description = {};
    description.lfHeight = -Scaled(font.pointSize, GetDeviceCaps(screen, LOGPIXELSY), kPointsPerInch);
    description.lfWeight = font.weight;
    description.lfItalic = font.italic;
    description.lfCharSet = font.charSet;
    const std::string face = AnsiText(font.face);
    std::copy_n(face.begin(), std::min<size_t>(face.size(), LF_FACESIZE - 1), description.lfFaceName);
    DeleteDC(screen);
    return CreateFontIndirectA(&description);
}

SIZE BaseUnits(HFONT font)
{
    const HDC screen = CreateCompatibleDC(nullptr);
    SelectObject(screen, font ? static_cast<HGDIOBJ>(font) : GetStockObject(SYSTEM_FONT));
    SIZE letters = {};
    GetTextExtentPoint32A(screen, kLetters, kLetterCount, &letters);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(screen, &metrics);
    DeleteDC(screen);
    return {(letters.cx / (kLetterCount / 2) + 1) / 2, metrics.tmHeight};
}

std::string AnsiText(std::u16string_view text)
{
    if (text.empty())
        return {};
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), units, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

LONG WINAPI GetDialogBaseUnits()
{
    static const SIZE base = BaseUnits(nullptr);
    return MAKELONG(base.cx, base.cy);
}

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect)
{
    const DialogState* state = StateOf(dialog);
    if (!state || !rect)
        return Fail(state ? ERROR_INVALID_PARAMETER : ERROR_INVALID_WINDOW_HANDLE);
    *rect = {AcrossUnits(rect->left, state->base), DownUnits(rect->top, state->base),
             AcrossUnits(rect->right, state->base), DownUnits(rect->bottom, state->base)};
    return TRUE;
}
