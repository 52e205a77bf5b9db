#include "CodePage.h"
#include "Error.h"
#include "FileAttributes.h"
#include "FileTime.h"
#include "Handle.h"
#include "Path.h"

#include <dirent.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

namespace {

class FileSearch : public KernelObject
{
public:
    FileSearch(std::string folder, std::vector<std::string> names)
        : m_folder(std::move(folder)), m_names(std::move(names))
    {
    }

    // False with ERROR_NO_MORE_FILES at the end. An entry that vanished meanwhile is passed over.
    bool Next(WIN32_FIND_DATAA& data)
    {
        const std::lock_guard lock(m_mutex);
        while (m_next < m_names.size())
            if (Describe(m_names[m_next++], data))
                return true;
        return Fail(ERROR_NO_MORE_FILES);
    }

private:
    bool Describe(const std::string& name, WIN32_FIND_DATAA& data) const
    {
        const std::string path = m_folder + "/" + name;
        struct stat status;
        if (name.size() >= MAX_PATH ||
            (stat(path.c_str(), &status) != 0 && lstat(path.c_str(), &status) != 0))
            return false;
        const FileRef file{-1, path.c_str()};
        data = {};
        data.dwFileAttributes = AttributesOf(file, status);
        data.ftCreationTime = CreationTimeOf(file, status);
        data.ftLastAccessTime = ToFileTime(status.st_atim);
        data.ftLastWriteTime = ToFileTime(status.st_mtim);
        const auto size = S_ISDIR(status.st_mode) ? 0 : static_cast<ULONGLONG>(status.st_size);
        data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
        data.nFileSizeLow = static_cast<DWORD>(size);
        std::memcpy(data.cFileName, name.c_str(), name.size() + 1);
        return true;
    }

    std::string m_folder;
    std::vector<std::string> m_names;
    size_t m_next = 0;
    std::mutex m_mutex;
};

// Wildcards: `*` any number of characters, `?` one; both texts are in one case already.
bool Matches(const char* pattern, const char* name)
{
    const LeadTable& leads = AnsiLeadBytes();
    const char *star = nullptr, *retry = nullptr;
    while (*name) {
        const size_t length = CharacterLength(leads, name);
        if (*pattern == '*') {
            star = ++pattern;
            retry = name;
        } else if (*pattern == '?' || std::strncmp(pattern, name, length) == 0) {
            pattern += *pattern == '?' ? 1 : length;
            name += length;
        } else if (star) {
            retry += CharacterLength(leads, retry);
            pattern = star;
            name = retry;
        } else
            return false;
    }
    return pattern[std::strspn(pattern, "*")] == 0;
}

// `*.*` means every name, with a dot or without; a dot at the end asks for a name without an extension.
bool NameMatches(const std::string& pattern, const std::string& name)
{
    if (pattern == "*.*" || pattern == "*")
        return true;
    const std::string folded = FoldCase(name);
    if (Matches(pattern.c_str(), folded.c_str()))
        return true;
    return pattern.ends_with('.') && name.find('.') == std::string::npos &&
           Matches(pattern.c_str(), (folded + ".").c_str());
}

bool ListFolder(const std::string& folder, const std::string& pattern, std::vector<std::string>& names)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> list(opendir(folder.c_str()), closedir);
    if (!list)
        return Fail(errno == ENOENT    ? static_cast<DWORD>(ERROR_PATH_NOT_FOUND)
                    : errno == ENOTDIR ? static_cast<DWORD>(ERROR_DIRECTORY)
                                       : ErrorFromErrno(errno));
    const std::string folded = FoldCase(pattern);
    while (const dirent* entry = readdir(list.get()))
        if (NameMatches(folded, entry->d_name))
            names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return !names.empty() || Fail(ERROR_FILE_NOT_FOUND);
}

// The folder's Unix path and the pattern behind it.
bool SplitPattern(LPCSTR pattern, std::string& folder, std::string& last)
{
    ParsedPath parsed;
    if (const DWORD refused = ParsePath(pattern, parsed))
        return Fail(refused);
    if (parsed.isNullDevice || parsed.asFolder || parsed.parts.empty())
        return Fail(ERROR_FILE_NOT_FOUND);
    last = parsed.parts.back();
    parsed.parts.pop_back();
    folder = NativePath(Win32Text(parsed).c_str());
    return !folder.empty();
}

} // namespace

HANDLE WINAPI FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data)
{
    std::string folder, last;
    std::vector<std::string> names;
    if (!SplitPattern(pattern, folder, last) || !ListFolder(folder, last, names))
        return INVALID_HANDLE_VALUE;
    auto search = std::make_shared<FileSearch>(folder, std::move(names));
    if (!search->Next(*data))
        return Fail(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
    return AddHandle(std::move(search));
}

BOOL WINAPI FindNextFileA(HANDLE find, LPWIN32_FIND_DATAA data)
{
    const auto search = ObjectOf<FileSearch>(find);
    return search && search->Next(*data);
}

BOOL WINAPI FindClose(HANDLE find)
{
    if (!ObjectOf<FileSearch>(find))
        return FALSE;
    RemoveHandle(find);
    return TRUE;
}
