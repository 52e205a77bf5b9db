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
    FoundValue found;
    if (const LONG result = Store::Instance().FindValue(path, name ? name : "", found);
        result != ERROR_SUCCESS)
        return result;
    if (!found.value)
        return found.keyExists ? ERROR_FILE_NOT_FOUND : ERROR_KEY_DELETED;
    return AnswerData(found.value->type, found.value->data, type, data, size);
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
