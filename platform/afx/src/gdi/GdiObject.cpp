#include <afxgdi_.h>

#include "HandleMap.h"

#include <cstdio>
#include <cstdlib>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)

namespace {

void SetHandle(CGdiObject& object, HGDIOBJ handle)
{
    object.m_hObject = handle;
}

using FontMap = HandleMap<CGdiObject, CFont, SetHandle>;

// A device height in logical units, without sign and origin.
LONG LogicalHeight(HDC dc, int pixels)
{
    POINT points[] = {{0, 0}, {0, pixels}};
    ::DPtoLP(dc, points, 2);
    return std::abs(points[1].y - points[0].y);
}

// The context given, or for a moment the screen's.
class MeasuringContext
{
public:
    explicit MeasuringContext(const CDC* dc) : m_screen(dc ? nullptr : ::GetDC(nullptr))
    {
        m_dc = dc ? dc->m_hAttribDC : m_screen;
    }
    ~MeasuringContext()
    {
        if (m_screen)
            ::ReleaseDC(nullptr, m_screen);
    }
    MeasuringContext(const MeasuringContext&) = delete;
    MeasuringContext& operator=(const MeasuringContext&) = delete;

    operator HDC() const { return m_dc; }

private:
    HDC m_screen, m_dc;
};

} // namespace

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

HGDIOBJ CGdiObject::GetSafeHandle() const
{
    // Programs call this with a null pointer; a compiler that sees plain `this` thinks it knows better.
    const CGdiObject* const volatile self = this;
    return self ? self->m_hObject : nullptr;
}

BOOL CGdiObject::Attach(HGDIOBJ object)
{
    FontMap* map = FontMap::Current();
    if (!object || m_hObject || !map)
        return FALSE;
    m_hObject = object;
    map->Add(object, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    if (FontMap* map = FontMap::Current())
        map->Remove(m_hObject, this);
    const HGDIOBJ object = m_hObject;
    m_hObject = nullptr;
    return object;
}

BOOL CGdiObject::DeleteObject()
{
    return m_hObject ? ::DeleteObject(Detach()) : FALSE;
}

void CGdiObject::DeleteTempMap()
{
    if (FontMap* map = FontMap::Current())
        map->DeleteTemporary();
}

CFont* CFont::FromHandle(HFONT font)
{
    FontMap* map = FontMap::Current();
    return font && map ? map->FindOrMake(font) : nullptr;
}

BOOL CFont::CreateFontIndirect(const LOGFONT* description)
{
    return Attach(::CreateFontIndirect(description));
}

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                       BYTE underline, BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision,
                       BYTE quality, BYTE pitchAndFamily, LPCSTR face)
{
    return Attach(::CreateFont(height, width, escapement, orientation, weight, italic, underline, strikeOut,
                               charSet, outPrecision, clipPrecision, quality, pitchAndFamily, face));
}

BOOL CFont::CreatePointFont(int pointSize, LPCSTR face, CDC* dc)
{
    LOGFONT description{};
    description.lfHeight = pointSize;
    description.lfCharSet = DEFAULT_CHARSET;
    std::snprintf(description.lfFaceName, sizeof description.lfFaceName, "%s", face);
    return CreatePointFontIndirect(&description, dc);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* description, CDC* dc)
{
    constexpr int kTenthsPerInch = 720;
    const MeasuringContext context(dc);
    const int pixels = ::MulDiv(::GetDeviceCaps(context, LOGPIXELSY), description->lfHeight, kTenthsPerInch);
    LOGFONT scaled = *description;
    scaled.lfHeight = -LogicalHeight(context, pixels);
    return CreateFontIndirect(&scaled);
}

int CFont::GetLogFont(LOGFONT* description) const
{
    return GetObject(sizeof(LOGFONT), description);
}
