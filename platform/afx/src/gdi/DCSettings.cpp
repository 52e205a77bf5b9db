// What is set in both contexts and asked of one.
#include <afxgdi_.h>

#include <cstdlib>

namespace {

// Applies `set` to the context that is drawn to, if it is another, then to the one that is asked: the answer
// of the latter, if there is one, counts.
template <class Set>
auto SetBoth(const CDC& dc, Set set)
{
    decltype(set(dc.m_hDC)) before{};
    if (dc.m_hDC != dc.m_hAttribDC)
        before = set(dc.m_hDC);
    return dc.m_hAttribDC ? set(dc.m_hAttribDC) : before;
}

template <class Pair, class Function>
Pair SetPair(const CDC& dc, Function function, int x, int y)
{
    return SetBoth(dc, [=](HDC handle) {
        Pair before;
        function(handle, x, y, &before);
        return before;
    });
}

template <class Pair, class Function>
Pair GetPair(const CDC& dc, Function function)
{
    Pair pair;
    function(dc.m_hAttribDC, &pair);
    return pair;
}

HGDIOBJ Select(const CDC& dc, HGDIOBJ object)
{
    return SetBoth(dc, [object](HDC handle) { return ::SelectObject(handle, object); });
}

void Scale(LPSIZE size, const CSize& to, const CSize& from)
{
    size->cx = ::MulDiv(size->cx, std::abs(to.cx), std::abs(from.cx));
    size->cy = ::MulDiv(size->cy, std::abs(to.cy), std::abs(from.cy));
}

} // namespace

CFont* CDC::SelectObject(CFont* font)
{
    return CFont::FromHandle(static_cast<HFONT>(Select(*this, font ? font->m_hObject : nullptr)));
}

CGdiObject* CDC::SelectStockObject(int index)
{
    return CFont::FromHandle(static_cast<HFONT>(Select(*this, ::GetStockObject(index))));
}

CFont* CDC::GetCurrentFont() const
{
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hAttribDC, OBJ_FONT)));
}

int CDC::SetMapMode(int mode)
{
    return SetBoth(*this, [mode](HDC handle) { return ::SetMapMode(handle, mode); });
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    return SetPair<CPoint>(*this, ::SetViewportOrgEx, x, y);
}

CPoint CDC::OffsetViewportOrg(int dx, int dy)
{
    return SetPair<CPoint>(*this, ::OffsetViewportOrgEx, dx, dy);
}

CSize CDC::SetViewportExt(int cx, int cy)
{
    return SetPair<CSize>(*this, ::SetViewportExtEx, cx, cy);
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    return SetPair<CPoint>(*this, ::SetWindowOrgEx, x, y);
}

CPoint CDC::OffsetWindowOrg(int dx, int dy)
{
    return SetPair<CPoint>(*this, ::OffsetWindowOrgEx, dx, dy);
}

CSize CDC::SetWindowExt(int cx, int cy)
{
    return SetPair<CSize>(*this, ::SetWindowExtEx, cx, cy);
}

CPoint CDC::GetViewportOrg() const
{
    return GetPair<CPoint>(*this, ::GetViewportOrgEx);
}

CSize CDC::GetViewportExt() const
{
    return GetPair<CSize>(*this, ::GetViewportExtEx);
}

CPoint CDC::GetWindowOrg() const
{
    return GetPair<CPoint>(*this, ::GetWindowOrgEx);
}

CSize CDC::GetWindowExt() const
{
    return GetPair<CSize>(*this, ::GetWindowExtEx);
}

void CDC::LPtoDP(LPSIZE size) const
{
    Scale(size, GetViewportExt(), GetWindowExt());
}

void CDC::DPtoLP(LPSIZE size) const
{
    Scale(size, GetWindowExt(), GetViewportExt());
}

namespace {

CSize Extent(HDC dc, LPCSTR text, int bytes)
{
    CSize size;
    ::GetTextExtentPoint32(dc, text, bytes, &size);
    return size;
}

} // namespace

CSize CDC::GetTextExtent(LPCSTR text, int bytes) const
{
    return Extent(m_hAttribDC, text, bytes);
}

CSize CDC::GetTextExtent(const CString& text) const
{
    return Extent(m_hAttribDC, text, text.GetLength());
}

CSize CDC::GetOutputTextExtent(LPCSTR text, int bytes) const
{
    return Extent(m_hDC, text, bytes);
}

CSize CDC::GetOutputTextExtent(const CString& text) const
{
    return Extent(m_hDC, text, text.GetLength());
}
