#include "ClassKeys.h"

#include <winreg.h>

#include <array>
#include <string_view>

namespace {

// Where the hexadecimal digits of each byte stand in the text, in the order of the bytes in memory.
constexpr std::array<std::size_t, 16> kDigitPlaces = {7,  5,  3,  1,  12, 10, 17, 15,
                                                      20, 22, 25, 27, 29, 31, 33, 35};
constexpr std::string_view kShape = "{________-____-____-____-____________}";

int DigitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool HasShape(const std::string& text)
{
    if (text.size() != kShape.size())
        return false;
    for (std::size_t i = 0; i < kShape.size(); ++i)
        if (kShape[i] == '_' ? DigitValue(text[i]) < 0 : text[i] != kShape[i])
            return false;
    return true;
}

class OpenKeyGuard
{
public:
    explicit OpenKeyGuard(const std::string& subkey)
    {
        RegOpenKeyExA(HKEY_CLASSES_ROOT, subkey.c_str(), 0, KEY_READ, &m_key);
    }
    ~OpenKeyGuard()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    OpenKeyGuard(const OpenKeyGuard&) = delete;
    OpenKeyGuard& operator=(const OpenKeyGuard&) = delete;
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

} // namespace

bool ReadClassesText(const std::string& subkey, std::string& text)
{
    const OpenKeyGuard key(subkey);
    DWORD type = REG_NONE;
    std::array<char, 4096> buffer;
    auto size = static_cast<DWORD>(buffer.size());
    if (!key.Get() || RegQueryValueExA(key.Get(), nullptr, nullptr, &type,
                                       reinterpret_cast<LPBYTE>(buffer.data()), &size) != ERROR_SUCCESS)
        return false;
    if (type != REG_SZ)
        return false;
    text.assign(buffer.data(), size);
    text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
    return !text.empty();
}

std::string GuidText(REFGUID guid)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text(kShape);
    std::array<unsigned char, 16> bytes;
    std::memcpy(bytes.data(), &guid, bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text[kDigitPlaces[i]] = kDigits[bytes[i] >> 4];
        text[kDigitPlaces[i] + 1] = kDigits[bytes[i] & 0xF];
    }
    return text;
}

bool ParseGuid(const std::string& text, GUID& guid)
{
    if (!HasShape(text))
        return false;
    std::array<unsigned char, 16> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(DigitValue(text[kDigitPlaces[i]]) << 4 |
                                              DigitValue(text[kDigitPlaces[i] + 1]));
    std::memcpy(&guid, bytes.data(), bytes.size());
    return true;
}
