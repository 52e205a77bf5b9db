// CFile's members about files as such: names, times, attributes.
#include <afxfile_.h>

#include "FilePath.h"

#include <cstring>

CString AfxFullPath(LPCSTR fileName)
{
    const CString name(fileName);
    const DWORD needed = ::GetFullPathNameA(name, 0, nullptr, nullptr);
    if (needed == 0)
        return name;
    CString path;
    const DWORD length = ::GetFullPathNameA(name, needed, path.GetBuffer(static_cast<int>(needed)), nullptr);
    const bool done = length > 0 && length < needed;
    path.ReleaseBuffer(done ? static_cast<int>(length) : 0);
    return done ? path : name;
}

CString AfxFileNameOf(LPCSTR path)
{
    LPCSTR name = path;
    for (LPCSTR p = path; *p;) {
        const bool doubleByte = ::IsDBCSLeadByte(static_cast<BYTE>(*p)) && p[1];
        if (*p == '\\' || *p == '/' || *p == ':')
            name = p + 1;
        p += doubleByte ? 2 : 1;
    }
    return name;
}

CString AfxFileTitleOf(LPCSTR path)
{
    const CString name = AfxFileNameOf(path);
    const int dot = name.ReverseFind('.');
    return dot < 0 ? name : name.Left(dot);
}

CString CFile::GetFileName() const
{
    return AfxFileNameOf(m_strFileName);
}

CString CFile::GetFileTitle() const
{
    return AfxFileTitleOf(m_strFileName);
}

CString CFile::GetFilePath() const
{
    return m_strFileName;
}

BOOL CFile::GetStatus(CFileStatus& status) const
{
    return !m_strFileName.IsEmpty() && GetStatus(m_strFileName, status);
}

BOOL CFile::GetStatus(LPCSTR fileName, CFileStatus& status)
{
    const CString path = AfxFullPath(fileName);
    CFileStatus result;
    if (path.FindOneOf("*?") >= 0 || path.GetLength() >= static_cast<int>(sizeof result.m_szFullName))
        return FALSE;
    WIN32_FIND_DATAA found;
    const HANDLE search = ::FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE)
        return FALSE;
    ::FindClose(search);
    std::memcpy(result.m_szFullName, path.GetString(), static_cast<std::size_t>(path.GetLength()));
    result.m_ctime = CTime(found.ftCreationTime);
    result.m_mtime = CTime(found.ftLastWriteTime);
    result.m_atime = CTime(found.ftLastAccessTime);
    result.m_size = (ULONGLONG{found.nFileSizeHigh} << 32) | found.nFileSizeLow;
    result.m_attribute = found.dwFileAttributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_NORMAL);
    status = result;
    return TRUE;
}

namespace {

constexpr LONGLONG kSecondsTo1970 = 11644473600; // from 1601, where file times begin
constexpr LONGLONG kTicksPerSecond = 10000000;

FILETIME ToFileTime(CTime time)
{
    const LONGLONG ticks = (time.GetTime() + kSecondsTo1970) * kTicksPerSecond;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

void SetTimes(LPCSTR path, const CFileStatus& status)
{
    const HANDLE file = ::CreateFileA(path, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), path);
    const FILETIME created = ToFileTime(status.m_ctime);
    const FILETIME written = ToFileTime(status.m_mtime);
    const FILETIME read = ToFileTime(status.m_atime);
    const BOOL done = ::SetFileTime(file, status.m_ctime.GetTime() ? &created : nullptr,
                                    status.m_atime.GetTime() ? &read : nullptr,
                                    status.m_mtime.GetTime() ? &written : nullptr);
    const auto code = static_cast<LONG>(::GetLastError());
    ::CloseHandle(file);
    if (!done)
        CFileException::ThrowOsError(code, path);
}

void SetAttributes(LPCSTR path, DWORD attributes)
{
    if (!::SetFileAttributesA(path, attributes ? attributes : FILE_ATTRIBUTE_NORMAL))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), path);
}

} // namespace

void CFile::SetStatus(LPCSTR fileName, const CFileStatus& status)
{
    const DWORD present = ::GetFileAttributesA(fileName);
    if (present == INVALID_FILE_ATTRIBUTES)
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), fileName);
    // The times of a write-protected file cannot be set.
    if ((present & readOnly) != 0)
        SetAttributes(fileName, present & ~static_cast<DWORD>(readOnly));
    if (status.m_ctime.GetTime() || status.m_mtime.GetTime() || status.m_atime.GetTime())
        SetTimes(fileName, status);
    constexpr DWORD kSettable = readOnly | hidden | system | archive;
    SetAttributes(fileName, status.m_attribute & kSettable);
}

void CFile::Rename(LPCSTR oldName, LPCSTR newName)
{
    if (!::MoveFileA(oldName, newName))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), oldName);
}

void CFile::Remove(LPCSTR fileName)
{
    if (!::DeleteFileA(fileName))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), fileName);
}
