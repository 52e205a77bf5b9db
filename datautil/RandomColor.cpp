#include "RandomColor.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

CRandomColor::CRandomColor()
    : m_arrColor{0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000,
                 0xC0C0C0, 0xC0DCC0, 0xF0CAA6, 0xF0FBFF, 0xA4A0A0, 0x808080, 0x0000FF,
                 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF}
{
}

CRandomColor::~CRandomColor() = default;

int CRandomColor::RandomIndex() const
{
    return std::rand() % kColors;
}

int CRandomColor::IndexAfter(int color) const
{
    const int* found = std::find(std::begin(m_arrColor), std::end(m_arrColor), color);
    return found == std::end(m_arrColor) ? 0 : static_cast<int>(found - m_arrColor + 1) % kColors;
}

void CRandomColor::CopyRun(int first, CArray<int, int>& colors, int count) const
{
    colors.SetSize(std::max(count, 0));
    for (int i = 0; i < count; ++i, first = (first + 1) % kColors)
        colors[i] = m_arrColor[first];
}

int CRandomColor::GetRandomColor()
{
    return m_arrColor[RandomIndex()];
}

int CRandomColor::GetNextRandomColor(int nColor)
{
    return m_arrColor[IndexAfter(nColor)];
}

void CRandomColor::GetRandomColorList(CArray<int, int>& arrColor, int nCount)
{
    CopyRun(RandomIndex(), arrColor, nCount);
}

void CRandomColor::GetRandomColorList(int* pColor, int nCount)
{
    const int first = RandomIndex();
    if (nCount > 0)
        *pColor = m_arrColor[first];
}

void CRandomColor::GetNextRandomColorList(CArray<int, int>& arrColor, int nCount, int nColor)
{
    CopyRun(IndexAfter(nColor), arrColor, nCount);
}

void CRandomColor::GetNextRandomColorList(int* pColor, int nCount, int nColor)
{
    if (nCount > 0)
        *pColor = GetNextRandomColor(nColor);
}
