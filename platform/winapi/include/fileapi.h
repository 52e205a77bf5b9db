// Files, folders, paths and drives.
//
// Paths: a function takes Win32 paths (`Z:\` is the root folder, `C:\` is `drive_c` in the home folder) and
// plain Unix paths; slashes and backslashes separate alike, `..` ends at the drive's root. Names are matched
// exactly first, then without regard to case (the first in byte order). A function that answers a path
// answers the Win32 form. A name's bytes are those of the ANSI code page, which is the locale's own.
// Refused: UNC names and unknown drives (ERROR_BAD_NETPATH, ERROR_PATH_NOT_FOUND), device names other than
// NUL, characters that Win32 names cannot hold, unless a file of that name exists.
// Errors: a function fails with 0, FALSE or INVALID_..., and GetLastError tells why.
// Threads: any thread; one handle by one thread at a time, as its position is shared.
#pragma once

#include "windef.h"

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))
#define INVALID_FILE_SIZE (static_cast<DWORD>(0xffffffff))
#define INVALID_SET_FILE_POINTER (static_cast<DWORD>(-1))
#define INVALID_FILE_ATTRIBUTES (static_cast<DWORD>(-1))

#define DELETE 0x00010000u
#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define GENERIC_EXECUTE 0x20000000u
#define GENERIC_ALL 0x10000000u
#define FILE_READ_ATTRIBUTES 0x0080u
#define FILE_WRITE_ATTRIBUTES 0x0100u

#define FILE_SHARE_READ 1u
#define FILE_SHARE_WRITE 2u
#define FILE_SHARE_DELETE 4u

#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5

#define FILE_ATTRIBUTE_READONLY 0x0001u
#define FILE_ATTRIBUTE_HIDDEN 0x0002u
#define FILE_ATTRIBUTE_SYSTEM 0x0004u
#define FILE_ATTRIBUTE_DIRECTORY 0x0010u
#define FILE_ATTRIBUTE_ARCHIVE 0x0020u
#define FILE_ATTRIBUTE_DEVICE 0x0040u
#define FILE_ATTRIBUTE_NORMAL 0x0080u
#define FILE_ATTRIBUTE_TEMPORARY 0x0100u

#define FILE_FLAG_WRITE_THROUGH 0x80000000u
#define FILE_FLAG_OVERLAPPED 0x40000000u
#define FILE_FLAG_NO_BUFFERING 0x20000000u
#define FILE_FLAG_RANDOM_ACCESS 0x10000000u
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000u
#define FILE_FLAG_DELETE_ON_CLOSE 0x04000000u
#define FILE_FLAG_BACKUP_SEMANTICS 0x02000000u

#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2

#define FILE_TYPE_UNKNOWN 0
#define FILE_TYPE_DISK 1
#define FILE_TYPE_CHAR 2
#define FILE_TYPE_PIPE 3

#define MOVEFILE_REPLACE_EXISTING 1
#define MOVEFILE_COPY_ALLOWED 2
#define MOVEFILE_WRITE_THROUGH 8

#define DRIVE_UNKNOWN 0
#define DRIVE_NO_ROOT_DIR 1
#define DRIVE_REMOVABLE 2
#define DRIVE_FIXED 3

#define DUPLICATE_CLOSE_SOURCE 1
#define DUPLICATE_SAME_ACCESS 2

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED*;

struct BY_HANDLE_FILE_INFORMATION {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
    DWORD dwVolumeSerialNumber;
    DWORD nFileSizeHigh, nFileSizeLow;
    DWORD nNumberOfLinks;
    DWORD nFileIndexHigh, nFileIndexLow;
};
using LPBY_HANDLE_FILE_INFORMATION = BY_HANDLE_FILE_INFORMATION*;

struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
    DWORD nFileSizeHigh, nFileSizeLow;
    DWORD dwReserved0, dwReserved1;
    CHAR cFileName[MAX_PATH];
    CHAR cAlternateFileName[14];
};
using LPWIN32_FIND_DATAA = WIN32_FIND_DATAA*;
using WIN32_FIND_DATA = WIN32_FIND_DATAA;
using LPWIN32_FIND_DATA = LPWIN32_FIND_DATAA;

// A new handle of the file; INVALID_HANDLE_VALUE on failure. A success that found the file there with
// CREATE_ALWAYS or OPEN_ALWAYS leaves ERROR_ALREADY_EXISTS, any other success 0.
// Differs: share modes hold among the handles of this process; security, templates and overlapped handles
// are not offered (ERROR_NOT_SUPPORTED for the last); a folder opens with FILE_FLAG_BACKUP_SEMANTICS only.
WINBASEAPI HANDLE WINAPI CreateFileA(LPCSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                                     DWORD disposition, DWORD flags, HANDLE templ);
#define CreateFile CreateFileA

// Reads up to `count` bytes; fewer (0 at the end) is a success. `overlapped` must be null.
WINBASEAPI BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD done,
                                LPOVERLAPPED overlapped);

// Writes all `count` bytes or fails; then *done tells how many arrived.
WINBASEAPI BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD done,
                                 LPOVERLAPPED overlapped);

// The new position's low 32 bits. `high` null: `distance` is signed and the position must fit 32 bits.
// Fails with ERROR_NEGATIVE_SEEK, ERROR_INVALID_PARAMETER.
WINBASEAPI DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG high, DWORD method);
WINBASEAPI BOOL WINAPI SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, PLARGE_INTEGER position,
                                        DWORD method);

// Cuts the file, or extends it with zeros, at the current position.
WINBASEAPI BOOL WINAPI SetEndOfFile(HANDLE file);
WINBASEAPI BOOL WINAPI FlushFileBuffers(HANDLE file);

// An exclusive lock on a byte range: no other handle of this process reads or writes there.
// Differs: other processes are kept out of the lock only, not of reading and writing.
// Fails with ERROR_LOCK_VIOLATION; unlocking what is not so locked with ERROR_NOT_LOCKED.
WINBASEAPI BOOL WINAPI LockFile(HANDLE file, DWORD low, DWORD high, DWORD countLow, DWORD countHigh);
WINBASEAPI BOOL WINAPI UnlockFile(HANDLE file, DWORD low, DWORD high, DWORD countLow, DWORD countHigh);

WINBASEAPI DWORD WINAPI GetFileSize(HANDLE file, LPDWORD high);
WINBASEAPI BOOL WINAPI GetFileSizeEx(HANDLE file, PLARGE_INTEGER size);
WINBASEAPI DWORD WINAPI GetFileType(HANDLE file);
WINBASEAPI BOOL WINAPI GetFileInformationByHandle(HANDLE file, LPBY_HANDLE_FILE_INFORMATION info);

// Times are UTC; a null pointer is passed over.
// Differs: a creation time is kept beside the file where the file system offers extended attributes;
// elsewhere setting one fails with ERROR_NOT_SUPPORTED.
WINBASEAPI BOOL WINAPI GetFileTime(HANDLE file, LPFILETIME created, LPFILETIME accessed, LPFILETIME written);
WINBASEAPI BOOL WINAPI SetFileTime(HANDLE file, const FILETIME* created, const FILETIME* accessed,
                                   const FILETIME* written);

WINBASEAPI BOOL WINAPI CloseHandle(HANDLE object);

// Another handle of the same open file, with the same position and access, or of the same thread or event.
// Differs: within this process and with DUPLICATE_SAME_ACCESS only (else ERROR_NOT_SUPPORTED); not of what
// GetCurrentThread answers (ERROR_INVALID_HANDLE).
WINBASEAPI BOOL WINAPI DuplicateHandle(HANDLE fromProcess, HANDLE from, HANDLE toProcess, HANDLE* to,
                                       DWORD access, BOOL inherit, DWORD options);

// A read-only file, and one that is open, is not deleted (ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION).
WINBASEAPI BOOL WINAPI DeleteFileA(LPCSTR name);
#define DeleteFile DeleteFileA

// Renames a file or folder; fails with ERROR_ALREADY_EXISTS when the new name is taken.
WINBASEAPI BOOL WINAPI MoveFileA(LPCSTR from, LPCSTR to);
#define MoveFile MoveFileA

// Replacing is one atomic step on one file system. With MOVEFILE_WRITE_THROUGH the folder is flushed too.
WINBASEAPI BOOL WINAPI MoveFileExA(LPCSTR from, LPCSTR to, DWORD flags);
#define MoveFileEx MoveFileExA

// Copies content, attributes and write time. A copy that fails leaves nothing behind under a new name.
WINBASEAPI BOOL WINAPI CopyFileA(LPCSTR from, LPCSTR to, BOOL failIfExists);
#define CopyFile CopyFileA

WINBASEAPI BOOL WINAPI CreateDirectoryA(LPCSTR name, LPSECURITY_ATTRIBUTES security);
#define CreateDirectory CreateDirectoryA
WINBASEAPI BOOL WINAPI RemoveDirectoryA(LPCSTR name);
#define RemoveDirectory RemoveDirectoryA

// Differs: hidden, system and the other bits without a counterpart are kept in an extended attribute; where
// the file system has none, setting them fails with ERROR_NOT_SUPPORTED.
WINBASEAPI DWORD WINAPI GetFileAttributesA(LPCSTR name);
#define GetFileAttributes GetFileAttributesA
WINBASEAPI BOOL WINAPI SetFileAttributesA(LPCSTR name, DWORD attributes);
#define SetFileAttributes SetFileAttributesA

// The entries of a folder whose names match the last part of `pattern` (`*`, `?`), without regard to case,
// `.` and `..` included, in the order of their names. Ends with ERROR_NO_MORE_FILES.
// Differs: short (8.3) names are neither matched nor answered.
WINBASEAPI HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data);
#define FindFirstFile FindFirstFileA
WINBASEAPI BOOL WINAPI FindNextFileA(HANDLE find, LPWIN32_FIND_DATAA data);
#define FindNextFile FindNextFileA
WINBASEAPI BOOL WINAPI FindClose(HANDLE find);

// Text answers: the length without its terminator; when `size` is too small, the size that is needed with
// it, the buffer untouched.
WINBASEAPI DWORD WINAPI GetFullPathNameA(LPCSTR name, DWORD size, LPSTR buffer, LPSTR* filePart);
#define GetFullPathName GetFullPathNameA
WINBASEAPI DWORD WINAPI GetCurrentDirectoryA(DWORD size, LPSTR buffer);
#define GetCurrentDirectory GetCurrentDirectoryA
WINBASEAPI BOOL WINAPI SetCurrentDirectoryA(LPCSTR name);
#define SetCurrentDirectory SetCurrentDirectoryA

// With a backslash at the end. Differs: the folder of $TMPDIR, else `/tmp`.
WINBASEAPI DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer);
#define GetTempPath GetTempPathA

// A name `<folder>\<up to 3 of prefix><number in hex>.TMP`; `unique` 0: a fresh one, and the file is made.
// `buffer` holds MAX_PATH characters. The answer is the number, 0 on failure.
WINBASEAPI UINT WINAPI GetTempFileNameA(LPCSTR folder, LPCSTR prefix, UINT unique, LPSTR buffer);
#define GetTempFileName GetTempFileNameA

WINBASEAPI UINT WINAPI GetWindowsDirectoryA(LPSTR buffer, UINT size);
#define GetWindowsDirectory GetWindowsDirectoryA
WINBASEAPI UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size);
#define GetSystemDirectory GetSystemDirectoryA

// Bits 2 (C:) and 25 (Z:).
WINBASEAPI DWORD WINAPI GetLogicalDrives();
WINBASEAPI UINT WINAPI GetDriveTypeA(LPCSTR root);
#define GetDriveType GetDriveTypeA
