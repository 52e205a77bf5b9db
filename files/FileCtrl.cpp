#include "FileCtrl.h"

#include <afxwin.h>
#include <mbstring.h>
#include <vector>

namespace {

// What stands up to and including the last `separator` of a text.
int LengthToLast(const CString& text, char separator)
{
    const auto* start = reinterpret_cast<const unsigned char*>(text.GetString());
    const auto* last = _mbsrchr(start, static_cast<unsigned char>(separator));
    return last ? static_cast<int>(last - start) + 1 : 0;
}

std::vector<int> PlacesOfBackslashes(const CString& text)
{
    std::vector<int> places;
    const auto* start = reinterpret_cast<const unsigned char*>(text.GetString());
    for (const auto* at = start; (at = _mbschr(at, '\\')) != nullptr; ++at)
        places.push_back(static_cast<int>(at - start));
    return places;
}

// In pixels. The extent is mapped as a point, not as a size: hosts rely on the shift by the origins.
LONGLONG WidthOn(CDC& dc, const CString& text)
{
    SIZE extent{};
    ::GetTextExtentPoint32A(dc.m_hAttribDC, text, text.GetLength(), &extent);
    POINT mapped{extent.cx, extent.cy};
    dc.LPtoDP(&mapped);
    return mapped.x;
}

template <class FITS>
CString Abbreviated(CFileCtrl& file, FITS fits)
{
    const CString full = file.GetFilePathNameExt();
    if (fits(full))
        return full;
    const CString folder = file.GetFilePath();
    const CString name = file.GetFileNameExt();
    const std::vector<int> places = PlacesOfBackslashes(folder);
    for (std::size_t i = 1; i < places.size(); ++i) {
        const CString candidate = folder.Left(places[0] + 1) + "..." + folder.Mid(places[i]) + name;
        if (fits(candidate))
            return candidate;
    }
    return name;
}

} // namespace

CFileCtrl::CFileCtrl() = default;

CFileCtrl::CFileCtrl(const char* lpszPath)
{
    SetFilePathNameExt(lpszPath);
}

CFileCtrl::~CFileCtrl() = default;

void CFileCtrl::SetFilePathNameExt(const char* lpszPath)
{
    const CString full = lpszPath;
    const int folder = LengthToLast(full, '\\');
    const CString file = full.Mid(folder);
    const int dot = LengthToLast(file, '.');
    m_strPath = full.Left(folder);
    m_strName = dot > 0 ? file.Left(dot - 1) : file;
    m_strExt = dot > 0 ? file.Mid(dot) : CString();
}

CString CFileCtrl::GetFilePathNameExt()
{
    return m_strPath + GetFileNameExt();
}

CString CFileCtrl::GetFilePathName()
{
    return m_strPath + m_strName;
}

CString CFileCtrl::GetFilePath()
{
    return m_strPath;
}

CString CFileCtrl::GetFileNameExt()
{
    return m_strExt.IsEmpty() ? m_strName : m_strName + "." + m_strExt;
}

CString CFileCtrl::GetFileName()
{
    return m_strName;
}

CString CFileCtrl::GetFileExt()
{
    return m_strExt;
}

CString CFileCtrl::GetAbbPathNameExt(int nMaxLen)
{
    return Abbreviated(*this, [nMaxLen](const CString& text) { return text.GetLength() <= nMaxLen; });
}

CString CFileCtrl::GetAbbPathNameExt(CDC* pDC, RECT* pRect)
{
    const LONGLONG room = LONGLONG{pRect->right} - pRect->left;
    return Abbreviated(*this, [pDC, room](const CString& text) { return WidthOn(*pDC, text) <= room; });
}

int CFileCtrl::FileExists()
{
    CFileStatus status;
    return GetFileStatus(status);
}

int CFileCtrl::GetFileStatus(CFileStatus& rStatus)
{
    return CFile::GetStatus(GetFilePathNameExt(), rStatus);
}
