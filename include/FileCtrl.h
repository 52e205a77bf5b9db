// A file's path in three parts, and short forms of it for titles, lists and labels.
//
//   CFileCtrl file("C:\\A\\B\\C\\file.txt");
//   file.GetFileNameExt();          // "file.txt"
//   file.GetAbbPathNameExt(18);     // "C:\...\C\file.txt"
//
//   CClientDC dc(&label);           // with the label's font selected
//   label.SetWindowText(file.GetAbbPathNameExt(&dc, room));
//
// Units: lengths count bytes, as CString does. Paths are read character by character in the active multibyte
//   code page: the second byte of a double-byte character separates nothing. Only backslashes separate
//   folders.
// Errors: CMemoryException when memory runs out. Threads: different objects may be used at the same time.
#pragma once

#include <afx.h>

class CDC;

class AFX_EXT_CLASS CFileCtrl
{
public:
    CFileCtrl();
    CFileCtrl(const char* lpszPath);
    CFileCtrl(const CFileCtrl&) = default;
    CFileCtrl& operator=(const CFileCtrl&) = default;
    virtual ~CFileCtrl();

    // Takes a path apart: the folder up to its last backslash, the name up to the last dot behind that, the
    // extension. Null counts as the empty path.
    void SetFilePathNameExt(const char* lpszPath);

    CString GetFilePathNameExt(); // all of it; the dot stands only before an extension
    CString GetFilePathName();    // folder and name
    CString GetFilePath();        // the folder with its backslash, or ""
    CString GetFileNameExt();
    CString GetFileName();
    CString GetFileExt(); // without the dot

    // The whole path if it fits; else the first that does of the forms with "..." for the folders behind the
    // first backslash, more of them each time; else the file's name and extension, whether they fit or not.
    // A path with fewer than two backslashes has no form with "...".
    CString GetAbbPathNameExt(int nMaxLen);
    // The same forms, where a text fits that is no wider than the rectangle when it is drawn on pDC (not
    // null, with the font and the mapping of the drawing). Its extent is mapped to pixels as if it were a
    // point: the context's origins shift the width that counts.
    CString GetAbbPathNameExt(CDC* pDC, RECT* pRect);

    // Nonzero when CFile::GetStatus succeeds for the whole path.
    int FileExists();
    int GetFileStatus(CFileStatus& rStatus);

protected:
    CString m_strPath;
    CString m_strName;
    CString m_strExt;
};
