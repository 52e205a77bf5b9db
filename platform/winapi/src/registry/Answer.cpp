#include "Answer.h"

#include <winreg.h>

#include <cstring>

namespace {

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

LONG AnswerBytes(DWORD type, const std::string& bytes, LPBYTE data, DWORD& size)
{
    const DWORD room = size;
    size = static_cast<DWORD>(bytes.size());
    if (!data)
        return ERROR_SUCCESS;
    if (room < size)
        return ERROR_MORE_DATA;
    std::memcpy(data, bytes.data(), size);
    if (IsText(type) && room > size && (size == 0 || data[size - 1] != 0))
        data[size] = 0; // beyond what is counted
    return ERROR_SUCCESS;
}

} // namespace

LONG AnswerName(const std::string& name, LPSTR buffer, LPDWORD count)
{
    if (*count <= name.size())
        return ERROR_MORE_DATA;
    std::memcpy(buffer, name.c_str(), name.size() + 1);
    *count = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

LONG AnswerData(DWORD type, const std::string& bytes, LPDWORD typeOut, LPBYTE data, LPDWORD size)
{
    if (typeOut)
        *typeOut = type;
    return size ? AnswerBytes(type, bytes, data, *size) : ERROR_SUCCESS;
}
