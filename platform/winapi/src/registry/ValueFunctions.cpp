// The registry's values: reading, writing, deleting, listing.
#include "Answer.h"
#include "Handles.h"
#include "KeyPath.h"
#include "Store.h"

#include <winreg.h>

namespace {

LONG QueryValue(HKEY key, LPCSTR name, LPDWORD type, LPBYTE data, LPDWORD size)
{
    std::string path;
    if (!PathOfHandle(key, path))
        return ERROR_INVALID_HANDLE;
    std::shared_ptr<const RegistryKey> found;
    if (const LONG result = Store::Instance().Read(path, found); result != ERROR_SUCCESS)
        return result;
    if (!found->exists)
        return ERROR_KEY_DELETED;
    const auto value = found->values.find(FoldName(name ? name : ""));
    if (value == found->values.end())
        return ERROR_FILE_NOT_FOUND;
    return AnswerData(value->second.type, value->second.data, type, data, size);
}

LONG EnumValue(HKEY key, DWORD index, LPSTR name, LPDWORD count, LPDWORD type, LPBYTE data, LPDWORD size)
{
    std::string path;
    if (!PathOfHandle(key, path))
        return ERROR_INVALID_HANDLE;
    RegistryValue value;
    if (const LONG result = Store::Instance().NthValue(path, index, value); result != ERROR_SUCCESS)
        return result;
    const LONG answered = AnswerData(value.type, value.data, type, data, size);
    return answered == ERROR_SUCCESS ? AnswerName(value.name, name, count) : answered;
}

} // namespace

LONG WINAPI RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data, LPDWORD size)
{
    if (reserved || (data && !size))
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] { return QueryValue(key, name, type, data, size); });
}

LONG WINAPI RegSetValueExA(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    if (reserved != 0 || (!data && size != 0))
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] {
        std::string path;
        if (!PathOfHandle(key, path))
            return LONG{ERROR_INVALID_HANDLE};
        RegistryValue value{name ? name : "", type, {}};
        if (size != 0)
            value.data.assign(reinterpret_cast<const char*>(data), size);
        if (CountCharacters(value.name) > kMaxValueName)
            return LONG{ERROR_INVALID_PARAMETER};
        return Store::Instance().PutValue(path, value);
    });
}

LONG WINAPI RegDeleteValueA(HKEY key, LPCSTR name)
{
    return Guarded([&] {
        std::string path;
        if (!PathOfHandle(key, path))
            return LONG{ERROR_INVALID_HANDLE};
        return Store::Instance().DeleteValue(path, name ? name : "");
    });
}

LONG WINAPI RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD count, LPDWORD reserved, LPDWORD type,
                          LPBYTE data, LPDWORD size)
{
    if (!name || !count || reserved || (data && !size))
        return ERROR_INVALID_PARAMETER;
    return Guarded([&] { return EnumValue(key, index, name, count, type, data, size); });
}
