#include <Registry.h>

#include <limits>
#include <mbstring.h>
#include <vector>

namespace {

constexpr REGSAM kReadAndWrite = 0x2001F;

struct RootKey {
    const char* name;
    HKEY key;
};

HKEY FindRoot(const CString& name)
{
    const RootKey roots[] = {{"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
                             {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
                             {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
                             {"HKEY_USERS", HKEY_USERS},
                             {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG}};
    for (const RootKey& root : roots)
        if (name.CompareNoCase(root.name) == 0)
            return root.key;
    return nullptr;
}

// The text up to the next backslash, which is passed over, or to the end.
CString TakePart(const char*& rest)
{
    const auto* text = reinterpret_cast<const unsigned char*>(rest);
    const auto* separator = reinterpret_cast<const char*>(_mbschr(text, '\\'));
    const CString part = separator ? CString(rest, static_cast<int>(separator - rest)) : CString(rest);
    rest = separator ? separator + 1 : rest + part.GetLength();
    return part;
}

// The key `part` below `parent`, which is closed; null on failure.
HKEY Step(HKEY parent, const CString& part, int openOnly)
{
    HKEY child = nullptr;
    const LONG result = openOnly ? RegOpenKeyExA(parent, part, 0, kReadAndWrite, &child)
                                 : RegCreateKeyExA(parent, part, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                   kReadAndWrite, nullptr, &child, nullptr);
    RegCloseKey(parent);
    return result == ERROR_SUCCESS ? child : nullptr;
}

// Closes a key at the end of its block.
class KeyGuard
{
public:
    explicit KeyGuard(HKEY key) : m_key(key) {}
    ~KeyGuard()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    KeyGuard(const KeyGuard&) = delete;
    KeyGuard& operator=(const KeyGuard&) = delete;
    operator HKEY() const { return m_key; }

private:
    HKEY m_key;
};

// All bytes of a value with a zero byte behind them; empty on failure. The size is asked first; should
// another process write a longer value in between, it is asked again.
std::vector<char> ReadBytes(HKEY key, const char* entry)
{
    DWORD size = 0;
    LONG result = RegQueryValueExA(key, entry, nullptr, nullptr, nullptr, &size);
    std::vector<char> bytes;
    while (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
        bytes.assign(std::size_t{size} + 1, '\0');
        result =
            RegQueryValueExA(key, entry, nullptr, nullptr, reinterpret_cast<LPBYTE>(bytes.data()), &size);
        if (result == ERROR_SUCCESS)
            return bytes;
    }
    return {};
}

int WriteValue(HKEY key, const char* entry, DWORD type, const void* data, std::size_t size)
{
    if (!key || size > std::numeric_limits<DWORD>::max())
        return 0;
    const auto* bytes = static_cast<const BYTE*>(data);
    return RegSetValueExA(key, entry, 0, type, bytes, static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

} // namespace

HKEY CRegistry::GetRegistryKey(const char* lpszPath, int bOpenOnly)
{
    if (!lpszPath || !*lpszPath)
        return nullptr;
    const char* rest = lpszPath;
    HKEY key = FindRoot(TakePart(rest));
    if (!*rest)
        return nullptr;
    while (key && *rest)
        key = Step(key, TakePart(rest), bOpenOnly);
    return key;
}

int CRegistry::GetProfileString(const char* lpszPath, const char* lpszEntry, CString& strValue)
{
    const KeyGuard key(GetRegistryKey(lpszPath, 1));
    if (!key)
        return 0;
    const std::vector<char> bytes = ReadBytes(key, lpszEntry);
    if (bytes.empty())
        return 0;
    strValue = bytes.data();
    return 1;
}

int CRegistry::GetProfileInt(const char* lpszPath, const char* lpszEntry, int& nValue)
{
    const KeyGuard key(GetRegistryKey(lpszPath, 1));
    int number = 0;
    DWORD size = sizeof number;
    if (!key || RegQueryValueExA(key, lpszEntry, nullptr, nullptr, reinterpret_cast<LPBYTE>(&number),
                                 &size) != ERROR_SUCCESS)
        return 0;
    nValue = number;
    return 1;
}

int CRegistry::WriteProfileString(const char* lpszPath, const char* lpszEntry, const char* lpszValue)
{
    const KeyGuard key(GetRegistryKey(lpszPath, 0));
    if (key && !lpszValue)
        return RegDeleteValueA(key, lpszEntry) == ERROR_SUCCESS;
    return lpszValue
               ? WriteValue(key, lpszEntry, REG_SZ, lpszValue, std::char_traits<char>::length(lpszValue) + 1)
               : 0;
}

int CRegistry::WriteProfileInt(const char* lpszPath, const char* lpszEntry, int nValue)
{
    const KeyGuard key(GetRegistryKey(lpszPath, 0));
    return WriteValue(key, lpszEntry, REG_DWORD, &nValue, sizeof nValue);
}
