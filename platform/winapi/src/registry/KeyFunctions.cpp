// The registry's keys: opening, making, deleting, listing.
#include "Answer.h"
#include "Handles.h"
#include "KeyPath.h"
#include "Store.h"

#include <winreg.h>

#include <algorithm>

namespace {

// The key that `subkey` names below an open key; a missing or closed handle is told by the result.
LONG Resolve(HKEY key, LPCSTR subkey, std::string& path, std::vector<std::string>& names)
{
    if (!PathOfHandle(key, path))
        return ERROR_INVALID_HANDLE;
    names = SplitKeyText(subkey ? subkey : "");
    return ERROR_SUCCESS;
}

bool FitsLimits(const std::string& path, const std::vector<std::string>& names)
{
    const auto fits = [](const std::string& name) { return CountCharacters(name) <= kMaxKeyName; };
    return LevelOf(path) + names.size() <= kMaxLevels && std::all_of(names.begin(), names.end(), fits);
}

std::string PathBelow(std::string path, const std::vector<std::string>& names)
{
    for (const std::string& name : names)
        path = ChildPath(path, name);
    return path;
}

LONG RequireKey(const std::string& path, LONG missing)
{
    bool exists = false;
    const LONG result = Store::Instance().FindKey(path, exists);
    return result != ERROR_SUCCESS || exists ? result : missing;
}

LONG OpenKey(HKEY key, LPCSTR subkey, PHKEY result)
{
    std::string path;
    std::vector<std::string> names;
    if (const LONG resolved = Resolve(key, subkey, path, names); resolved != ERROR_SUCCESS)
        return resolved;
    const LONG missing = names.empty() ? ERROR_KEY_DELETED : ERROR_FILE_NOT_FOUND;
    const std::string target = PathBelow(std::move(path), names);
    const LONG found = RequireKey(target, missing);
    if (found == ERROR_SUCCESS)
        *result = OpenHandle(target);
    return found;
}

LONG CreateKey(HKEY key, LPCSTR subkey, PHKEY result, LPDWORD disposition)
{
    std::string path;
    std::vector<std::string> names;
    if (const LONG resolved = Resolve(key, subkey, path, names); resolved != ERROR_SUCCESS)
        return resolved;
    if (!FitsLimits(path, names))
        return ERROR_INVALID_PARAMETER;
    const std::string target = PathBelow(path, names);
    bool created = false;
    // Most keys are there already: then nothing is written.
    LONG made = RequireKey(target, ERROR_FILE_NOT_FOUND);
    if (made == ERROR_FILE_NOT_FOUND)
        made = Store::Instance().CreateKeys(path, names, created);
    if (made != ERROR_SUCCESS)
        return made;
    *result = OpenHandle(target);
    if (disposition)
        *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    return ERROR_SUCCESS;
}

void AnswerTime(std::int64_t written, FILETIME* time)
{
    if (time)
        *time = {static_cast<DWORD>(written), static_cast<DWORD>(written >> 32)};
}

void AnswerNumber(std::int64_t number, LPDWORD out)
{
    if (out)
        *out = static_cast<DWORD>(number);
}

// Keys have no class: its text is empty.
LONG AnswerClass(LPSTR cls, LPDWORD count)
{
    if (cls && count && *count > 0)
        *cls = '\0';
    AnswerNumber(0, count);
    return ERROR_SUCCESS;
}

} // namespace

LONG WINAPI RegOpenKeyExA(HKEY key, LPCSTR subkey, DWORD, REGSAM, PHKEY result)
{
    if (!result)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    return Guarded([&] { return OpenKey(key, subkey, result); });
}

LONG WINAPI RegCreateKeyExA(HKEY key, LPCSTR subkey, DWORD reserved, LPSTR, DWORD, REGSAM,
                            LPSECURITY_ATTRIBUTES, PHKEY result, LPDWORD disposition)
{
    if (reserved != 0 || !result)
        return ERROR_INVALID_PARAMETER;
    if (!subkey)
        return ERROR_BADKEY;
    return Guarded([&] { return CreateKey(key, subkey, result, disposition); });
}

LONG WINAPI RegCloseKey(HKEY key)
{
    return Guarded([&]() -> LONG { return CloseHandleOfKey(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE; });
}

LONG WINAPI RegDeleteKeyA(HKEY key, LPCSTR subkey)
{
    if (!subkey)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] {
        std::string path;
        std::vector<std::string> names;
        if (const LONG resolved = Resolve(key, subkey, path, names); resolved != ERROR_SUCCESS)
            return resolved;
        path = PathBelow(std::move(path), names);
        return LevelOf(path) == 0 ? LONG{ERROR_ACCESS_DENIED} : Store::Instance().DeleteKey(path);
    });
}

LONG WINAPI RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD count, LPDWORD reserved, LPSTR cls,
                          LPDWORD clsCount, FILETIME* written)
{
    if (!name || !count || reserved)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] {
        std::string path, found;
        std::int64_t time = 0;
        if (!PathOfHandle(key, path))
            return LONG{ERROR_INVALID_HANDLE};
        LONG result = Store::Instance().NthChild(path, index, found, time);
        if (result == ERROR_SUCCESS)
            result = AnswerName(found, name, count);
        if (result == ERROR_SUCCESS) {
            AnswerTime(time, written);
            AnswerClass(cls, clsCount);
        }
        return result;
    });
}

LONG WINAPI RegQueryInfoKeyA(HKEY key, LPSTR cls, LPDWORD clsCount, LPDWORD reserved, LPDWORD subkeys,
                             LPDWORD longestSubkey, LPDWORD longestClass, LPDWORD values, LPDWORD longestName,
                             LPDWORD longestData, LPDWORD securityLength, FILETIME* written)
{
    if (reserved || (cls && !clsCount))
        return ERROR_INVALID_PARAMETER;
    return Guarded([&]() -> LONG {
        std::string path;
        RegistryFacts facts;
        if (!PathOfHandle(key, path))
            return ERROR_INVALID_HANDLE;
        if (const LONG result = RequireKey(path, ERROR_KEY_DELETED); result != ERROR_SUCCESS)
            return result;
        if (const LONG result = Store::Instance().Facts(path, facts); result != ERROR_SUCCESS)
            return result;
        AnswerNumber(facts.children, subkeys);
        AnswerNumber(facts.longestChild, longestSubkey);
        AnswerNumber(0, longestClass);
        AnswerNumber(facts.values, values);
        AnswerNumber(facts.longestName, longestName);
        AnswerNumber(facts.longestData, longestData);
        AnswerNumber(0, securityLength);
        AnswerTime(facts.written, written);
        return AnswerClass(cls, clsCount);
    });
}

LONG WINAPI RegFlushKey(HKEY key)
{
    return Guarded([&]() -> LONG {
        std::string path;
        return PathOfHandle(key, path) ? Store::Instance().Flush() : ERROR_INVALID_HANDLE;
    });
}
