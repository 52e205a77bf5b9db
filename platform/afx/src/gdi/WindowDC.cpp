// Contexts of windows, and what windows know of contexts and fonts.
#include "ContextMap.h"

#include <afxwin.h>

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

CClientDC::CClientDC(CWnd* window) : m_hWnd(window ? window->m_hWnd : nullptr)
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* window) : m_hWnd(window ? window->m_hWnd : nullptr)
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowResourceException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CDC* CWnd::GetDC()
{
    return CDC::FromHandle(::GetDC(Live()));
}

int CWnd::ReleaseDC(CDC* dc)
{
    const HDC handle = dc->m_hDC;
    ContextMap* map = ContextMap::Current();
    if (map)
        map->DeleteTemporary(handle); // or a program that never idles would pile them up
    return ::ReleaseDC(Live(), handle);
}

void CWnd::SetFont(CFont* font, BOOL redraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font ? font->m_hObject : nullptr),
                MAKELPARAM(redraw, 0));
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}
