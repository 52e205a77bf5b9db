#include <afxfile_.h>

#include "FilePath.h"

// clang-format off
IMPLEMENT_DYNAMIC(CFile, CObject)
// clang-format on

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

namespace {

struct FlagMapping {
    UINT flag;
    DWORD meaning;
};

DWORD AccessOf(UINT openFlags)
{
    constexpr UINT kMask = 3;
    switch (openFlags & kMask) {
    case CFile::modeRead:
        return GENERIC_READ;
    case CFile::modeWrite:
        return GENERIC_WRITE;
    default:
        return GENERIC_READ | GENERIC_WRITE;
    }
}

DWORD SharingOf(UINT openFlags)
{
    constexpr UINT kMask = 0x70;
    switch (openFlags & kMask) {
    case CFile::shareDenyWrite:
        return FILE_SHARE_READ;
    case CFile::shareDenyRead:
        return FILE_SHARE_WRITE;
    case CFile::shareDenyNone:
        return FILE_SHARE_READ | FILE_SHARE_WRITE;
    default:
        return 0;
    }
}

DWORD CreationOf(UINT openFlags)
{
    if ((openFlags & CFile::modeCreate) == 0)
        return OPEN_EXISTING;
    return (openFlags & CFile::modeNoTruncate) != 0 ? OPEN_ALWAYS : CREATE_ALWAYS;
}

DWORD AttributesOf(UINT openFlags)
{
    constexpr FlagMapping kMappings[] = {
        {CFile::osNoBuffer, FILE_FLAG_NO_BUFFERING},
        {CFile::osWriteThrough, FILE_FLAG_WRITE_THROUGH},
        {CFile::osRandomAccess, FILE_FLAG_RANDOM_ACCESS},
        {CFile::osSequentialScan, FILE_FLAG_SEQUENTIAL_SCAN},
    };
    DWORD result = FILE_ATTRIBUTE_NORMAL;
    for (const FlagMapping& mapping : kMappings)
        if ((openFlags & mapping.flag) != 0)
            result |= mapping.meaning;
    return result;
}

HANDLE OpenHandle(LPCSTR path, UINT openFlags)
{
    SECURITY_ATTRIBUTES security = {};
    security.nLength = sizeof security;
    security.bInheritHandle = (openFlags & CFile::modeNoInherit) == 0;
    return ::CreateFileA(path, AccessOf(openFlags), SharingOf(openFlags), &security, CreationOf(openFlags),
                         AttributesOf(openFlags), nullptr);
}

DWORD LowPart(ULONGLONG value)
{
    return static_cast<DWORD>(value);
}

DWORD HighPart(ULONGLONG value)
{
    return static_cast<DWORD>(value >> 32);
}

} // namespace

CFile::CFile() : m_hFile(hFileNull)
{
}

CFile::CFile(HANDLE file) : m_hFile(file)
{
}

CFile::CFile(LPCSTR fileName, UINT openFlags) : m_hFile(hFileNull)
{
    CFileException error(FALSE);
    if (!CFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_bCloseOnDelete)
        CloseQuietly();
}

void CFile::CloseQuietly()
{
    if (m_hFile != hFileNull)
        ::CloseHandle(m_hFile);
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
}

BOOL CFile::Open(LPCSTR fileName, UINT openFlags, CFileException* error)
{
    CloseQuietly();
    const CString path = AfxFullPath(fileName);
    m_hFile = OpenHandle(path, openFlags);
    if (m_hFile == hFileNull) {
        const auto code = static_cast<LONG>(::GetLastError());
        if (error) {
            error->m_lOsError = code;
            error->m_cause = CFileException::OsErrorToException(code);
            error->m_strFileName = fileName;
        }
        return FALSE;
    }
    m_strFileName = path;
    m_bCloseOnDelete = TRUE;
    return TRUE;
}

CFile* CFile::Duplicate() const
{
    const HANDLE process = ::GetCurrentProcess();
    HANDLE copy = nullptr;
    if (!::DuplicateHandle(process, m_hFile, process, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    auto* result = new CFile(copy);
    result->m_bCloseOnDelete = TRUE;
    result->m_strFileName = m_strFileName;
    return result;
}

UINT CFile::Read(void* buffer, UINT count)
{
    if (count == 0)
        return 0;
    DWORD done = 0;
    if (!::ReadFile(m_hFile, buffer, count, &done, nullptr))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return done;
}

void CFile::Write(const void* buffer, UINT count)
{
    if (count == 0)
        return;
    DWORD done = 0;
    if (!::WriteFile(m_hFile, buffer, count, &done, nullptr))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    if (done != count)
        AfxThrowFileException(CFileException::diskFull, -1, m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    LARGE_INTEGER distance;
    distance.QuadPart = offset;
    LARGE_INTEGER position;
    if (!::SetFilePointerEx(m_hFile, distance, &position, from))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return static_cast<ULONGLONG>(position.QuadPart);
}

ULONGLONG CFile::GetPosition() const
{
    return const_cast<CFile*>(this)->CFile::Seek(0, current);
}

ULONGLONG CFile::GetLength() const
{
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(m_hFile, &size))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
    return static_cast<ULONGLONG>(size.QuadPart);
}

void CFile::SetLength(ULONGLONG length)
{
    Seek(static_cast<LONGLONG>(length), begin);
    if (!::SetEndOfFile(m_hFile))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::LockRange(ULONGLONG position, ULONGLONG count)
{
    if (!::LockFile(m_hFile, LowPart(position), HighPart(position), LowPart(count), HighPart(count)))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::UnlockRange(ULONGLONG position, ULONGLONG count)
{
    if (!::UnlockFile(m_hFile, LowPart(position), HighPart(position), LowPart(count), HighPart(count)))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::Flush()
{
    if (m_hFile != hFileNull && !::FlushFileBuffers(m_hFile))
        CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strFileName);
}

void CFile::Close()
{
    if (m_hFile == hFileNull)
        return;
    const BOOL closed = ::CloseHandle(m_hFile);
    const auto code = static_cast<LONG>(::GetLastError());
    const CString name = m_strFileName;
    m_hFile = hFileNull;
    m_bCloseOnDelete = FALSE;
    m_strFileName.Empty();
    if (!closed)
        CFileException::ThrowOsError(code, name);
}

void CFile::Abort()
{
    CloseQuietly();
}
