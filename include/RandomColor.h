// Colours from the fixed palette of 20 that Windows keeps for itself.
//
//   CRandomColor colors;
//   CArray<int, int> curves;
//   colors.GetRandomColorList(curves, 5);      // five neighbours in the palette, from a random one on
//
// Units: colours are COLORREF values, 0x00BBGGRR. Random ones follow std::rand(), so srand() repeats them.
// Errors: none; CMemoryException when an array cannot grow. Threads: as std::rand().
#pragma once

#include <afxtempl.h>

class AFX_EXT_CLASS CRandomColor
{
public:
    CRandomColor();
    CRandomColor(const CRandomColor&) = default;
    CRandomColor& operator=(const CRandomColor&) = default;
    virtual ~CRandomColor();

    int GetRandomColor();
    // The palette's next colour after nColor, round its end; the first one, black, for a colour that is not
    // in the palette.
    int GetNextRandomColor(int nColor);

    // Neighbours in the palette, round its end, from a random one on. The array gets nCount entries, none
    // for a count below 1. At pColor one entry is written at most, however many are asked for.
    void GetRandomColorList(CArray<int, int>& arrColor, int nCount);
    void GetRandomColorList(int* pColor, int nCount);

    // The same, beginning with GetNextRandomColor(nColor).
    void GetNextRandomColorList(CArray<int, int>& arrColor, int nCount, int nColor);
    void GetNextRandomColorList(int* pColor, int nCount, int nColor);

protected:
    static constexpr int kColors = 20;
    int m_arrColor[kColors];

private:
    int RandomIndex() const;
    int IndexAfter(int color) const;
    void CopyRun(int first, CArray<int, int>& colors, int count) const;
};
