#include "Objects.h"
#include "Screen.h"

#include "../Error.h"
#include "../windows/Backend.h"
#include "../windows/TextPage.h"

#include <winnls.h>

#include <algorithm>

namespace {

// A height in logical units becomes one in pixels; neither its sign nor that it is not 0 gets lost.
LONG Scaled(LONG length, const MappingAxis& axis)
{
    if (!length)
        return 0;
    const LONG pixels = std::max<LONG>(axis.LengthToDevice(length), 1);
    return length < 0 ? -pixels : pixels;
}

FontSpec DeviceFont(const ContextState& state)
{
    const LOGFONTA& font = state.font->description;
    FontSpec spec;
    spec.face = ShownText(font.lfFaceName);
    spec.height = Scaled(font.lfHeight, state.mapping.y);
    spec.width = Scaled(font.lfWidth, state.mapping.x);
    spec.weight = font.lfWeight ? font.lfWeight : FW_NORMAL;
    spec.italic = font.lfItalic;
    spec.underline = font.lfUnderline;
    spec.strikeOut = font.lfStrikeOut;
    spec.charSet = font.lfCharSet;
    return spec;
}

WindowBackend* Measurer()
{
    WindowBackend* const backend = Backend();
    if (!backend)
        Fail(ERROR_NOT_SUPPORTED);
    return backend;
}

struct PageCharSet {
    UINT codePage;
    BYTE charSet;
};
constexpr PageCharSet kPageCharSets[] = {
    {932, SHIFTJIS_CHARSET}, {936, GB2312_CHARSET}, {949, HANGUL_CHARSET}, {950, CHINESEBIG5_CHARSET}};

BYTE CharSetOf(const LOGFONTA& font)
{
    if (font.lfCharSet != DEFAULT_CHARSET)
        return font.lfCharSet;
    for (const PageCharSet& page : kPageCharSets)
        if (page.codePage == GetACP())
            return page.charSet;
    return ANSI_CHARSET;
}

void SetLengths(TEXTMETRICA& metrics, const FontMeasures& measures, const Mapping& mapping)
{
    metrics.tmAscent = mapping.y.LengthToLogical(measures.ascent);
    metrics.tmDescent = mapping.y.LengthToLogical(measures.descent);
    metrics.tmHeight = mapping.y.LengthToLogical(measures.ascent + measures.descent);
    metrics.tmExternalLeading = mapping.y.LengthToLogical(measures.leading);
    metrics.tmAveCharWidth = mapping.x.LengthToLogical(measures.averageWidth);
    metrics.tmMaxCharWidth = mapping.x.LengthToLogical(measures.maximumWidth);
}

BYTE PitchOf(const FontMeasures& measures)
{
    const bool isFixed = measures.averageWidth == measures.maximumWidth;
    return static_cast<BYTE>(TMPF_VECTOR | TMPF_TRUETYPE | (isFixed ? 0 : TMPF_FIXED_PITCH));
}

void SetLooks(TEXTMETRICA& metrics, const LOGFONTA& font)
{
    metrics.tmWeight = font.lfWeight ? font.lfWeight : FW_NORMAL;
    metrics.tmItalic = font.lfItalic;
    metrics.tmUnderlined = font.lfUnderline;
    metrics.tmStruckOut = font.lfStrikeOut;
    metrics.tmCharSet = CharSetOf(font);
    if (font.lfHeight < 0)
        metrics.tmInternalLeading = std::max<LONG>(metrics.tmHeight + font.lfHeight, 0);
}

} // namespace

BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int bytes, LPSIZE size)
{
    const auto context = FindContext(dc);
    if (!context)
        return FALSE;
    if (bytes < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    if (bytes == 0) {
        *size = {0, 0};
        return TRUE;
    }
    WindowBackend* const backend = Measurer();
    if (!backend)
        return FALSE;
    const SIZE pixels =
        backend->TextExtent(DeviceFont(context->state), ShownText({text, static_cast<size_t>(bytes)}));
    const Mapping& mapping = context->state.mapping;
    *size = {mapping.x.LengthToLogical(pixels.cx), mapping.y.LengthToLogical(pixels.cy)};
    return TRUE;
}

BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int bytes, LPSIZE size)
{
    return GetTextExtentPoint32A(dc, text, bytes, size);
}

BOOL WINAPI GetTextMetricsA(HDC dc, LPTEXTMETRICA metrics)
{
    const auto context = FindContext(dc);
    WindowBackend* const backend = context ? Measurer() : nullptr;
    if (!backend)
        return FALSE;
    const FontMeasures measures = backend->Measures(DeviceFont(context->state));
    *metrics = {};
    SetLengths(*metrics, measures, context->state.mapping);
    SetLooks(*metrics, context->state.font->description);
    metrics->tmPitchAndFamily = PitchOf(measures);
    metrics->tmDigitizedAspectX = metrics->tmDigitizedAspectY = kPixelsPerInch;
    // What outline fonts answer.
    metrics->tmFirstChar = 30;
    metrics->tmLastChar = 255;
    metrics->tmDefaultChar = 31;
    metrics->tmBreakChar = ' ';
    return TRUE;
}
