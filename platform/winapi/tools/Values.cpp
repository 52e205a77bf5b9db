#include "Values.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace {

struct Type {
    const char* name;
    DWORD type;
};

const Type kTypes[] = {{"none", REG_NONE},     {"sz", REG_SZ},       {"expand", REG_EXPAND_SZ},
                       {"binary", REG_BINARY}, {"dword", REG_DWORD}, {"multi", REG_MULTI_SZ},
                       {"qword", REG_QWORD}};

bool ParseNumber(const std::string& text, unsigned long long& number)
{
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    const char* begin = text.data() + (hex ? 2 : 0);
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(begin, end, number, hex ? 16 : 10);
    return read.ec == std::errc() && read.ptr == end;
}

bool ParseHex(const std::vector<std::string>& words, std::string& data)
{
    std::string digits;
    for (const std::string& word : words)
        digits += word;
    data.clear();
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        unsigned char byte = 0;
        const char* begin = digits.data() + i;
        if (std::from_chars(begin, begin + 2, byte, 16).ptr != begin + 2)
            return false;
        data += static_cast<char>(byte);
    }
    return digits.size() % 2 == 0;
}

template <class Number>
bool ParseWhole(const std::vector<std::string>& words, std::string& data)
{
    unsigned long long number = 0;
    if (words.size() != 1 || !ParseNumber(words[0], number) || number > std::numeric_limits<Number>::max())
        return false;
    const auto value = static_cast<Number>(number);
    data.assign(reinterpret_cast<const char*>(&value), sizeof value);
    return true;
}

template <class Number>
std::string ShowWhole(const std::string& data)
{
    Number value;
    std::memcpy(&value, data.data(), sizeof value);
    return std::to_string(value);
}

std::string ShowTexts(const std::string& data)
{
    std::string shown;
    for (std::size_t begin = 0; begin < data.size() && data[begin] != '\0';) {
        const std::size_t end = std::min(data.find('\0', begin), data.size());
        shown.append(shown.empty() ? "" : "\n").append(data, begin, end - begin);
        begin = end + 1;
    }
    return shown;
}

std::string ShowHex(const std::string& data)
{
    std::string shown;
    for (const char c : data) {
        shown += "0123456789abcdef"[static_cast<unsigned char>(c) >> 4];
        shown += "0123456789abcdef"[static_cast<unsigned char>(c) & 0xF];
    }
    return shown;
}

} // namespace

std::string TypeName(DWORD type)
{
    for (const Type& known : kTypes)
        if (known.type == type)
            return known.name;
    char text[10] = "0x";
    return {text, std::to_chars(text + 2, text + sizeof text, type, 16).ptr};
}

bool ParseTypeName(const std::string& text, DWORD& type)
{
    for (const Type& known : kTypes)
        if (text == known.name) {
            type = known.type;
            return true;
        }
    unsigned long long number = 0;
    const bool read =
        text.starts_with("0x") && ParseNumber(text, number) && number <= std::numeric_limits<DWORD>::max();
    type = static_cast<DWORD>(number);
    return read;
}

bool ParseData(DWORD type, const std::vector<std::string>& words, std::string& data)
{
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
        data = words.size() == 1 ? words[0] + '\0' : "";
        return words.size() == 1;
    case REG_MULTI_SZ:
        data.clear();
        for (const std::string& word : words)
            data += word + '\0';
        data += '\0';
        return true;
    case REG_DWORD:
        return ParseWhole<DWORD>(words, data);
    case REG_QWORD:
        return ParseWhole<ULONGLONG>(words, data);
    default:
        return ParseHex(words, data);
    }
}

std::string TextOf(const std::string& data)
{
    return data.substr(0, std::min(data.find('\0'), data.size()));
}

std::string ShowData(const NamedValue& value)
{
    if (value.type == REG_SZ || value.type == REG_EXPAND_SZ)
        return TextOf(value.data);
    if (value.type == REG_MULTI_SZ)
        return ShowTexts(value.data);
    if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD))
        return ShowWhole<DWORD>(value.data);
    if (value.type == REG_QWORD && value.data.size() == sizeof(ULONGLONG))
        return ShowWhole<ULONGLONG>(value.data);
    return ShowHex(value.data);
}
