#include "TestKey.h"

#include <stdexcept>
#include <vector>

TestKey::TestKey(const std::string& name) : m_path("Software\\ZekTest\\" + name)
{
    if (RegCreateKeyExA(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key,
                        nullptr) != ERROR_SUCCESS)
        throw std::runtime_error("no registry to test");
    EmptyKey(m_key);
}

TestKey::~TestKey()
{
    EmptyKey(m_key);
    RegCloseKey(m_key);
    RegDeleteKeyA(HKEY_CURRENT_USER, m_path.c_str());
}

HKEY TestKey::Make(const std::string& subkey) const
{
    HKEY key = nullptr;
    RegCreateKeyExA(m_key, subkey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
}

void EmptyKey(HKEY key)
{
    char name[256];
    for (DWORD size = sizeof name;
         RegEnumKeyExA(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         size = sizeof name) {
        HKEY child = nullptr;
        RegOpenKeyExA(key, name, 0, KEY_ALL_ACCESS, &child);
        EmptyKey(child);
        RegCloseKey(child);
        if (RegDeleteKeyA(key, name) != ERROR_SUCCESS)
            return;
    }
    std::vector<char> value(16384);
    for (DWORD size = 16384;
         RegEnumValueA(key, 0, value.data(), &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         size = 16384)
        if (RegDeleteValueA(key, value.data()) != ERROR_SUCCESS)
            return;
}

LONG SetText(HKEY key, const char* name, const std::string& text)
{
    return RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(text.size() + 1));
}

std::string GetText(HKEY key, const char* name)
{
    char text[1024] = {};
    DWORD size = sizeof text;
    const LONG result = RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    return result == ERROR_SUCCESS ? text : "error " + std::to_string(result);
}
