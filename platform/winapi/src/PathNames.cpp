#include "Error.h"
#include "Environment.h"
#include "Home.h"
#include "Path.h"
#include "TextAnswer.h"

#include <winbase.h>
#include <zekpath.h>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>

namespace {

constexpr char kWindowsFolder[] = "C:\\windows";
constexpr char kSystemFolder[] = "C:\\windows\\system32";

// Dots and blanks at the end of a Win32 path do not count.
void TrimLastPart(ParsedPath& parsed)
{
    if (parsed.verbatim || parsed.parts.empty())
        return;
    std::string& last = parsed.parts.back();
    last.erase(last.find_last_not_of(". ") + 1);
    if (last.empty()) {
        parsed.parts.pop_back();
        parsed.asFolder = true;
    }
}

std::string FullPath(LPCSTR name)
{
    ParsedPath parsed;
    if (!name || !*name)
        return Fail(ERROR_INVALID_NAME), "";
    if (const DWORD refused = ParsePath(name, parsed))
        return Fail(refused), "";
    if (parsed.isNullDevice)
        return "\\\\.\\NUL";
    TrimLastPart(parsed);
    return Win32Text(parsed);
}

// A folder on C: is made with the drive.
UINT AnswerFolder(const char* folder, LPSTR buffer, UINT size)
{
    return DriveCFolder().empty() ? 0 : AnswerText(folder, buffer, size);
}

char* LastPartOf(char* path)
{
    char* slash = std::strrchr(path, '\\');
    return slash && slash[1] ? slash + 1 : nullptr;
}

} // namespace

DWORD WINAPI GetFullPathNameA(LPCSTR name, DWORD size, LPSTR buffer, LPSTR* filePart)
{
    const std::string path = FullPath(name);
    if (filePart)
        *filePart = nullptr;
    if (path.empty())
        return 0;
    const DWORD answer = AnswerText(path, buffer, size);
    if (filePart && answer == path.size())
        *filePart = LastPartOf(buffer);
    return answer;
}

DWORD WINAPI GetCurrentDirectoryA(DWORD size, LPSTR buffer)
{
    char folder[PATH_MAX];
    if (!getcwd(folder, sizeof folder))
        return FailErrno();
    return AnswerText(ZekWin32Path(folder), buffer, size);
}

BOOL WINAPI SetCurrentDirectoryA(LPCSTR name)
{
    const std::string path = NativePath(name);
    if (path.empty())
        return FALSE;
    return chdir(path.c_str()) == 0 || (errno == ENOTDIR ? Fail(ERROR_DIRECTORY) : FailErrno(path));
}

DWORD WINAPI GetTempPathA(DWORD size, LPSTR buffer)
{
    const auto named = EnvironmentText("TMPDIR");
    const bool usable = named && named->starts_with('/');
    std::string path = ZekWin32Path(usable ? *named : "/tmp");
    if (path.back() != '\\')
        path += '\\';
    return AnswerText(path, buffer, size);
}

UINT WINAPI GetWindowsDirectoryA(LPSTR buffer, UINT size)
{
    return AnswerFolder(kWindowsFolder, buffer, size);
}

UINT WINAPI GetSystemDirectoryA(LPSTR buffer, UINT size)
{
    return AnswerFolder(kSystemFolder, buffer, size);
}

DWORD WINAPI GetLogicalDrives()
{
    return 1u << ('C' - 'A') | 1u << ('Z' - 'A');
}

UINT WINAPI GetDriveTypeA(LPCSTR root)
{
    ParsedPath parsed;
    if (root && ParsePath(root, parsed) != NO_ERROR)
        return DRIVE_NO_ROOT_DIR;
    return !root || parsed.parts.empty() ? DRIVE_FIXED : DRIVE_NO_ROOT_DIR;
}
