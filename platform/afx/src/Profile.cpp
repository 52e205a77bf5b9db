// CWinApp's profile: settings in the registry or in a profile file.
#include <afxwin.h>

#include <climits>
#include <cstring>
#include <new>

namespace {

// Closes a registry key when it goes.
class Key
{
public:
    explicit Key(HKEY key) : m_key(key) {}
    ~Key()
    {
        if (m_key)
            ::RegCloseKey(m_key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    operator HKEY() const { return m_key; }

private:
    HKEY m_key;
};

// Size of a value of the given type; false when there is none.
bool ValueSize(HKEY key, LPCSTR entry, DWORD wanted, DWORD& size)
{
    DWORD type = 0;
    size = 0;
    return key && ::RegQueryValueExA(key, entry, nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
           type == wanted;
}

// A profile file holds a byte as two letters, the low four bits first.
constexpr int kRadix = 16;

CString Encoded(const BYTE* data, UINT size)
{
    if (size > INT_MAX / 2)
        AfxThrowMemoryException();
    CString text;
    LPSTR next = text.GetBufferSetLength(static_cast<int>(2 * size));
    for (UINT i = 0; i < size; ++i) {
        *next++ = static_cast<char>('A' + data[i] % kRadix);
        *next++ = static_cast<char>('A' + data[i] / kRadix);
    }
    return text;
}

LPBYTE NewBytes(UINT size)
{
    auto* bytes = new (std::nothrow) BYTE[size > 0 ? size : 1];
    if (!bytes)
        AfxThrowMemoryException();
    return bytes;
}

} // namespace

// The section's key, for the caller to close; null when it is not there (or cannot be made).
HKEY CWinApp::OpenSection(LPCSTR section, bool create) const
{
    CString path;
    path.Format("Software\\%s\\%s", m_pszRegistryKey, m_pszProfileName);
    if (section)
        path.AppendFormat("\\%s", section);
    HKEY key = nullptr;
    const LONG code = create ? ::RegCreateKeyExA(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                 KEY_WRITE | KEY_READ, nullptr, &key, nullptr)
                             : ::RegOpenKeyExA(HKEY_CURRENT_USER, path, 0, KEY_READ, &key);
    return code == ERROR_SUCCESS ? key : nullptr;
}

UINT CWinApp::GetProfileInt(LPCSTR section, LPCSTR entry, int defaultValue)
{
    if (!m_pszRegistryKey)
        return ::GetPrivateProfileIntA(section, entry, defaultValue, m_pszProfileName);
    const Key key(OpenSection(section, false));
    DWORD value = 0;
    DWORD size = 0;
    if (!ValueSize(key, entry, REG_DWORD, size) || size != sizeof value)
        return static_cast<UINT>(defaultValue);
    const LONG code =
        ::RegQueryValueExA(key, entry, nullptr, nullptr, reinterpret_cast<LPBYTE>(&value), &size);
    return code == ERROR_SUCCESS ? value : static_cast<UINT>(defaultValue);
}

CString CWinApp::GetProfileString(LPCSTR section, LPCSTR entry, LPCSTR defaultValue)
{
    CString text;
    if (!m_pszRegistryKey) {
        // A full buffer means that the value may be longer.
        DWORD length = 0;
        int size = 4096;
        do {
            size *= 2;
            length =
                ::GetPrivateProfileStringA(section, entry, defaultValue ? defaultValue : "",
                                           text.GetBuffer(size), static_cast<DWORD>(size), m_pszProfileName);
            text.ReleaseBuffer(static_cast<int>(length));
        } while (static_cast<int>(length) >= size - 2 && size < INT_MAX / 4);
        return text;
    }
    const Key key(OpenSection(section, false));
    DWORD size = 0;
    if (!ValueSize(key, entry, REG_SZ, size) || size > INT_MAX - 1)
        return defaultValue;
    LPSTR buffer = text.GetBufferSetLength(static_cast<int>(size));
    const LONG code =
        ::RegQueryValueExA(key, entry, nullptr, nullptr, reinterpret_cast<LPBYTE>(buffer), &size);
    text.ReleaseBuffer(); // ends at the terminator, which a stored text may lack
    return code == ERROR_SUCCESS ? text : CString(defaultValue);
}

BOOL CWinApp::GetProfileBinary(LPCSTR section, LPCSTR entry, LPBYTE* data, UINT* size)
{
    *data = nullptr;
    *size = 0;
    if (!m_pszRegistryKey) {
        const CString text = GetProfileString(section, entry);
        if (text.IsEmpty())
            return FALSE;
        const auto count = static_cast<UINT>(text.GetLength() / 2);
        *data = NewBytes(count);
        *size = count;
        for (UINT i = 0; i < count; ++i) {
            const int at = static_cast<int>(2 * i);
            (*data)[i] = static_cast<BYTE>((text[at] - 'A') + (text[at + 1] - 'A') * kRadix);
        }
        return TRUE;
    }
    const Key key(OpenSection(section, false));
    DWORD count = 0;
    if (!ValueSize(key, entry, REG_BINARY, count))
        return FALSE;
    LPBYTE bytes = NewBytes(count);
    if (::RegQueryValueExA(key, entry, nullptr, nullptr, bytes, &count) != ERROR_SUCCESS) {
        delete[] bytes;
        return FALSE;
    }
    *data = bytes;
    *size = count;
    return TRUE;
}

BOOL CWinApp::WriteRegistryValue(LPCSTR section, LPCSTR entry, DWORD type, const void* data, DWORD size)
{
    const Key key(OpenSection(section, true));
    return key &&
           ::RegSetValueExA(key, entry, 0, type, static_cast<const BYTE*>(data), size) == ERROR_SUCCESS;
}

BOOL CWinApp::WriteProfileInt(LPCSTR section, LPCSTR entry, int value)
{
    if (m_pszRegistryKey)
        return WriteRegistryValue(section, entry, REG_DWORD, &value, sizeof value);
    CString text;
    text.Format("%d", value);
    return ::WritePrivateProfileStringA(section, entry, text, m_pszProfileName);
}

BOOL CWinApp::WriteProfileString(LPCSTR section, LPCSTR entry, LPCSTR value)
{
    if (!m_pszRegistryKey)
        return ::WritePrivateProfileStringA(section, entry, value, m_pszProfileName);
    if (entry && value)
        return WriteRegistryValue(section, entry, REG_SZ, value, static_cast<DWORD>(std::strlen(value) + 1));
    const Key key(OpenSection(entry ? section : nullptr, true));
    if (!key)
        return FALSE;
    const LONG code = entry ? ::RegDeleteValueA(key, entry) : ::RegDeleteKeyA(key, section);
    return code == ERROR_SUCCESS || code == ERROR_FILE_NOT_FOUND;
}

BOOL CWinApp::WriteProfileBinary(LPCSTR section, LPCSTR entry, LPBYTE data, UINT size)
{
    if (m_pszRegistryKey)
        return WriteRegistryValue(section, entry, REG_BINARY, data, size);
    return WriteProfileString(section, entry, Encoded(data, size));
}
