#include <afxfile_.h>

#include <cerrno>
#include <cstring>

// clang-format off
IMPLEMENT_DYNAMIC(CFileException, CException)
// clang-format on

namespace {

struct CauseOfError {
    LONG first;
    LONG last;
    int cause;
};

// By system error code; codes that are not here are `generic`.
constexpr CauseOfError kOsCauses[] = {
    {ERROR_SUCCESS, ERROR_SUCCESS, CFileException::none},
    {ERROR_FILE_NOT_FOUND, ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, ERROR_INVALID_HANDLE, CFileException::fileNotFound},
    {11, 11, CFileException::invalidFile}, // a bad program format
    {ERROR_INVALID_ACCESS, ERROR_INVALID_ACCESS, CFileException::accessDenied},
    {ERROR_INVALID_DATA, ERROR_INVALID_DATA, CFileException::invalidFile},
    {ERROR_INVALID_DRIVE, ERROR_INVALID_DRIVE, CFileException::badPath},
    {ERROR_CURRENT_DIRECTORY, ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir},
    {ERROR_NOT_SAME_DEVICE, ERROR_NOT_SAME_DEVICE, CFileException::badPath},
    {ERROR_NO_MORE_FILES, ERROR_NO_MORE_FILES, CFileException::fileNotFound},
    {ERROR_WRITE_PROTECT, ERROR_WRITE_PROTECT, CFileException::accessDenied},
    {20, 31, CFileException::hardIO}, // all that a device reports
    {ERROR_SHARING_VIOLATION, ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION, ERROR_LOCK_VIOLATION, CFileException::lockViolation},
    {34, 34, CFileException::badPath},          // the wrong disk
    {36, 36, CFileException::tooManyOpenFiles}, // too many shared files
    {ERROR_HANDLE_EOF, ERROR_HANDLE_EOF, CFileException::endOfFile},
    {ERROR_HANDLE_DISK_FULL, ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
    {ERROR_BAD_NETPATH, ERROR_BAD_NETPATH, CFileException::badPath},
    {65, 65, CFileException::accessDenied}, // access to the network
    {66, 67, CFileException::badPath},      // a network name
    {ERROR_FILE_EXISTS, ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_CANNOT_MAKE, ERROR_CANNOT_MAKE, CFileException::accessDenied},
    {83, 83, CFileException::hardIO},
    {108, 108, CFileException::sharingViolation}, // a locked drive
    {ERROR_OPEN_FAILED, ERROR_OPEN_FAILED, CFileException::accessDenied},
    {ERROR_BUFFER_OVERFLOW, ERROR_BUFFER_OVERFLOW, CFileException::badPath},
    {ERROR_DISK_FULL, ERROR_DISK_FULL, CFileException::diskFull},
    {114, 114, CFileException::fileNotFound}, // an invalid target handle
    {ERROR_INVALID_NAME, ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_MOD_NOT_FOUND, ERROR_MOD_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_NEGATIVE_SEEK, ERROR_SEEK_ON_DEVICE, CFileException::badSeek},
    {ERROR_DIR_NOT_EMPTY, ERROR_DIR_NOT_EMPTY, CFileException::accessDenied},
    {148, 148, CFileException::badPath}, // a busy path
    {ERROR_BAD_PATHNAME, ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_BUSY, ERROR_BUSY, CFileException::sharingViolation},
    {ERROR_ALREADY_EXISTS, ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_FILENAME_EXCED_RANGE, ERROR_FILENAME_EXCED_RANGE, CFileException::badPath},
};

constexpr CauseOfError kErrnoCauses[] = {
    {0, 0, CFileException::none},
    {EPERM, EPERM, CFileException::accessDenied},
    {EACCES, EACCES, CFileException::accessDenied},
    {EBADF, EBADF, CFileException::invalidFile},
    {EDEADLK, EDEADLK, CFileException::sharingViolation},
    {EMFILE, EMFILE, CFileException::tooManyOpenFiles},
    {ENFILE, ENFILE, CFileException::tooManyOpenFiles},
    {ENOENT, ENOENT, CFileException::fileNotFound},
    {ENOTDIR, ENOTDIR, CFileException::badPath},
    {ENOSPC, ENOSPC, CFileException::diskFull},
    {EINVAL, EINVAL, CFileException::hardIO},
    {EIO, EIO, CFileException::hardIO},
};

template <std::size_t N>
int CauseOf(const CauseOfError (&table)[N], LONG error)
{
    for (const CauseOfError& row : table)
        if (error >= row.first && error <= row.last)
            return row.cause;
    return CFileException::generic;
}

// By cause, in the order of the enumeration; %1 is the file.
constexpr const char* kTexts[] = {
    "No error occurred with %1.",
    "An unknown error occurred with %1.",
    "%1 was not found.",
    "The path of %1 is not valid.",
    "Too many files are open; %1 could not be opened.",
    "Access to %1 was denied.",
    "%1 is not a valid open file.",
    "%1 is the current folder and cannot be removed.",
    "The folder is full; %1 could not be made.",
    "The position could not be set in %1.",
    "A device error occurred while %1 was used.",
    "%1 is in use elsewhere.",
    "A part of %1 is locked.",
    "The disk is full; %1 could not be written.",
    "%1 has no more data.",
};

} // namespace

CFileException::CFileException(int cause, LONG osError, LPCSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
{
}

int CFileException::OsErrorToException(LONG osError)
{
    return CauseOf(kOsCauses, osError);
}

int CFileException::ErrnoToException(int error)
{
    return CauseOf(kErrnoCauses, error);
}

void CFileException::ThrowOsError(LONG osError, LPCSTR fileName)
{
    if (osError != ERROR_SUCCESS)
        AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

void CFileException::ThrowErrno(int error, LPCSTR fileName)
{
    if (error != 0)
        AfxThrowFileException(ErrnoToException(error), error, fileName);
}

BOOL CFileException::GetErrorMessage(LPSTR text, UINT size, UINT* helpContext)
{
    CException::GetErrorMessage(text, size, helpContext);
    if (!text || size == 0)
        return FALSE;
    const bool known = m_cause >= none && m_cause <= endOfFile;
    CString message;
    message.FormatMessage(kTexts[known ? m_cause : generic],
                          m_strFileName.IsEmpty() ? CString("A file without a name") : m_strFileName);
    const auto length =
        static_cast<UINT>(message.GetLength()) < size ? static_cast<UINT>(message.GetLength()) : size - 1;
    std::memcpy(text, message.GetString(), length);
    text[length] = '\0';
    return TRUE;
}

void AFXAPI AfxThrowFileException(int cause, LONG osError, LPCSTR fileName)
{
    throw new CFileException(cause, osError, fileName);
}
