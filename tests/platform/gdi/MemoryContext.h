// A device context in memory for the length of a test.
#pragma once

#include <windows.h>

class MemoryContext
{
public:
    MemoryContext() = default;
    ~MemoryContext() { DeleteDC(m_dc); }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;

    operator HDC() const { return m_dc; }

    // MM_ANISOTROPIC with these extents.
    void Scale(SIZE window, SIZE viewport) const
    {
        SetMapMode(m_dc, MM_ANISOTROPIC);
        SetWindowExtEx(m_dc, window.cx, window.cy, nullptr);
        SetViewportExtEx(m_dc, viewport.cx, viewport.cy, nullptr);
    }

private:
    HDC m_dc = CreateCompatibleDC(nullptr);
};
