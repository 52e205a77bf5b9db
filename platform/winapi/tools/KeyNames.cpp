#include "KeyNames.h"

#include <algorithm>
#include <utility>

namespace {

struct Root {
    const char* name;
    const char* shortName;
    HKEY key;
};

const Root kRoots[] = {{"HKEY_CLASSES_ROOT", "HKCR", HKEY_CLASSES_ROOT},
                       {"HKEY_CURRENT_USER", "HKCU", HKEY_CURRENT_USER},
                       {"HKEY_LOCAL_MACHINE", "HKLM", HKEY_LOCAL_MACHINE},
                       {"HKEY_USERS", "HKU", HKEY_USERS},
                       {"HKEY_CURRENT_CONFIG", "HKCC", HKEY_CURRENT_CONFIG}};

std::string Capitals(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

BYTE* BytesOf(std::string& data)
{
    return reinterpret_cast<BYTE*>(data.data());
}

// The value at a place of the list; its size is asked first and may grow in between.
LONG ValueAt(HKEY key, DWORD index, NamedValue& value)
{
    constexpr DWORD kLongestName = 4 * 16383 + 1; // bytes of a name, whatever the code page
    LONG result = ERROR_MORE_DATA;
    for (DWORD size = 0; result == ERROR_MORE_DATA;) {
        DWORD nameSize = kLongestName;
        value.name.resize(kLongestName);
        value.data.resize(size + 1); // never null, which would ask for the size alone
        result = RegEnumValueA(key, index, value.name.data(), &nameSize, nullptr, &value.type,
                               BytesOf(value.data), &size);
        if (result == ERROR_SUCCESS) {
            value.name.resize(nameSize);
            value.data.resize(size);
        }
    }
    return result;
}

LONG EndOfList(LONG result)
{
    return result == ERROR_NO_MORE_ITEMS ? LONG{ERROR_SUCCESS} : result;
}

} // namespace

bool ParseKeyName(const std::string& text, KeyName& name)
{
    const std::size_t end = std::min(text.find('\\'), text.size());
    const std::string root = Capitals(text.substr(0, end));
    for (const Root& candidate : kRoots)
        if (root == candidate.name || root == candidate.shortName) {
            name.root = candidate.key;
            name.subkey = text.substr(std::min(end + 1, text.size()));
            return true;
        }
    return false;
}

std::vector<std::string> RootNames()
{
    std::vector<std::string> names;
    for (const Root& root : kRoots)
        names.emplace_back(root.name);
    return names;
}

std::string FullName(const KeyName& name)
{
    const auto* root =
        std::find_if(std::begin(kRoots), std::end(kRoots), [&](auto& r) { return r.key == name.root; });
    return name.subkey.empty() ? root->name : std::string(root->name).append("\\").append(name.subkey);
}

RegKey::~RegKey()
{
    if (m_key)
        RegCloseKey(m_key);
}

LONG RegKey::Open(const KeyName& name)
{
    return RegOpenKeyExA(name.root, name.subkey.c_str(), 0, KEY_READ | KEY_WRITE, &m_key);
}

LONG RegKey::Create(const KeyName& name)
{
    return RegCreateKeyExA(name.root, name.subkey.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                           KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
}

LONG ListSubkeys(HKEY key, std::vector<std::string>& names)
{
    char name[4 * 255 + 1];
    for (DWORD i = 0;; ++i) {
        DWORD size = sizeof name;
        const LONG result = RegEnumKeyExA(key, i, name, &size, nullptr, nullptr, nullptr, nullptr);
        if (result != ERROR_SUCCESS)
            return EndOfList(result);
        names.emplace_back(name, size);
    }
}

LONG ListValues(HKEY key, std::vector<NamedValue>& values)
{
    for (DWORD i = 0;; ++i) {
        NamedValue value;
        if (const LONG result = ValueAt(key, i, value); result != ERROR_SUCCESS)
            return EndOfList(result);
        values.push_back(std::move(value));
    }
}

LONG ReadValue(HKEY key, const std::string& name, NamedValue& value)
{
    value.name = name;
    LONG result = ERROR_MORE_DATA;
    for (DWORD size = 0; result == ERROR_MORE_DATA;) {
        value.data.resize(size + 1);
        result = RegQueryValueExA(key, name.c_str(), nullptr, &value.type, BytesOf(value.data), &size);
        if (result == ERROR_SUCCESS)
            value.data.resize(size);
    }
    return result;
}

LONG DeleteTree(const KeyName& name)
{
    std::vector<std::string> children;
    {
        RegKey key;
        LONG result = key.Open(name);
        if (result == ERROR_SUCCESS)
            result = ListSubkeys(key.Get(), children);
        if (result != ERROR_SUCCESS)
            return result;
    }
    for (const std::string& child : children)
        if (const LONG deleted = DeleteTree({name.root, name.subkey + "\\" + child});
            deleted != ERROR_SUCCESS)
            return deleted;
    return RegDeleteKeyA(name.root, name.subkey.c_str());
}
