#include <afxgdi_.h>

#include "ContextMap.h"

IMPLEMENT_DYNAMIC(CDC, CObject)

CDC::~CDC()
{
    if (m_hDC)
        ::DeleteDC(Detach());
}

HDC CDC::GetSafeHdc() const
{
    // Programs call this with a null pointer; a compiler that sees plain `this` thinks it knows better.
    const CDC* const volatile self = this;
    return self ? self->m_hDC : nullptr;
}

CDC* CDC::FromHandle(HDC dc)
{
    ContextMap* map = ContextMap::Current();
    return dc && map ? map->FindOrMake(dc) : nullptr;
}

void CDC::DeleteTempMap()
{
    if (ContextMap* map = ContextMap::Current())
        map->DeleteTemporary();
}

BOOL CDC::Attach(HDC dc)
{
    ContextMap* map = ContextMap::Current();
    if (!dc || m_hDC || !map)
        return FALSE;
    m_hDC = dc;
    map->Add(dc, this);
    SetAttribDC(dc);
    return TRUE;
}

HDC CDC::Detach()
{
    if (ContextMap* map = ContextMap::Current())
        map->Remove(m_hDC, this);
    const HDC dc = m_hDC;
    m_hDC = nullptr;
    ReleaseAttribDC();
    return dc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc)
{
    return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC()
{
    return m_hDC ? ::DeleteDC(Detach()) : FALSE;
}

int CDC::SaveDC()
{
    const int level = m_hAttribDC ? ::SaveDC(m_hAttribDC) : 0;
    if (m_hDC == m_hAttribDC || !::SaveDC(m_hDC))
        return level;
    return -1; // each counts its own levels
}

BOOL CDC::RestoreDC(int level)
{
    BOOL isRestored = TRUE;
    if (m_hDC != m_hAttribDC)
        isRestored = ::RestoreDC(m_hDC, level);
    return m_hAttribDC ? isRestored && ::RestoreDC(m_hAttribDC, level) : isRestored;
}
