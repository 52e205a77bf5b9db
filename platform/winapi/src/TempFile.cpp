#include "CodePage.h"
#include "Error.h"
#include "Path.h"

#include <winbase.h>

#include <sys/stat.h>

#include <atomic>
#include <cstring>

namespace {

constexpr size_t kPrefixLength = 3;

std::string Prefix(LPCSTR text)
{
    const LeadTable& leads = AnsiLeadBytes();
    size_t length = 0;
    while (text && text[length] && length + CharacterLength(leads, text + length) <= kPrefixLength)
        length += CharacterLength(leads, text + length);
    return text ? std::string(text, length) : std::string();
}

std::string NameOf(const std::string& folder, const std::string& prefix, UINT number)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%x", number);
    const bool separated = folder.ends_with('\\') || folder.ends_with('/');
    return folder + (separated ? "" : "\\") + prefix + digits + ".tmp";
}

UINT FirstNumber()
{
    static std::atomic<UINT> next{GetCurrentProcessId() * 7u + GetTickCount()};
    return next.fetch_add(1) & 0xffff;
}

// Makes an empty file under the first free number; 0 with the last error if none can be made.
UINT MakeFresh(const std::string& folder, const std::string& prefix, std::string& name)
{
    UINT number = FirstNumber();
    for (UINT tries = 0; tries < 0xffff; ++tries, number = (number + 1) & 0xffff) {
        name = NameOf(folder, prefix, number);
        const HANDLE file = number
                                ? CreateFileA(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr)
                                : INVALID_HANDLE_VALUE;
        if (file != INVALID_HANDLE_VALUE)
            return CloseHandle(file), number;
        if (number && GetLastError() != ERROR_FILE_EXISTS)
            return 0;
    }
    return Fail(ERROR_FILE_EXISTS);
}

bool IsFolder(LPCSTR folder)
{
    const DWORD attributes = GetFileAttributesA(folder);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

} // namespace

UINT WINAPI GetTempFileNameA(LPCSTR folder, LPCSTR prefix, UINT unique, LPSTR buffer)
{
    // Room for the number, the extension and the terminator.
    if (!folder || !buffer || std::strlen(folder) > MAX_PATH - 14)
        return Fail(folder && buffer ? ERROR_BUFFER_OVERFLOW : ERROR_INVALID_PARAMETER);
    if (!IsFolder(folder))
        return Fail(ERROR_DIRECTORY);
    std::string name = NameOf(folder, Prefix(prefix), unique & 0xffff);
    const UINT number = unique & 0xffff ? unique & 0xffff : MakeFresh(folder, Prefix(prefix), name);
    if (number)
        std::memcpy(buffer, name.c_str(), name.size() + 1);
    return number;
}
