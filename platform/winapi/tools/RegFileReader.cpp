// Reading .reg text.
#include "RegFile.h"
#include "Values.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

constexpr char kFirstLine4[] = "REGEDIT4";
constexpr char kFirstLine5[] = "Windows Registry Editor Version 5.00";

std::string ToCodePage(const std::u16string& wide)
{
    const auto units = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), units, text.data(), size, nullptr, nullptr);
    return text;
}

// Two bytes per unit, low byte first; an odd byte at the end is dropped.
std::string FromUtf16Bytes(const std::string& bytes)
{
    std::u16string wide;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        wide += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8);
    return wide.empty() ? std::string() : ToCodePage(wide);
}

std::string Decoded(const std::string& content)
{
    if (content.starts_with("\xFF\xFE"))
        return FromUtf16Bytes(content.substr(2));
    return content.starts_with("\xEF\xBB\xBF") ? content.substr(3) : content;
}

std::string Trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    const std::size_t end = text.find_last_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, end - begin + 1);
}

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// What is wrong with the current line.
class LineError : public std::runtime_error
{
public:
    using runtime_error::runtime_error;
};

// The text in quotes that began before `place`, which is moved behind it.
std::string TakeQuoted(const std::string& line, std::size_t& place)
{
    std::string text;
    for (; place < line.size() && line[place] != '"'; ++place) {
        if (IsDBCSLeadByte(static_cast<BYTE>(line[place])) && place + 1 < line.size())
            text += line[place++];
        else if (line[place] == '\\' && place + 1 < line.size())
            ++place;
        text += line[place];
    }
    if (place >= line.size())
        throw LineError("a text without its closing quote");
    ++place;
    return text;
}

std::string ReadQuoted(const std::string& data)
{
    std::size_t place = 1;
    const std::string text = TakeQuoted(data, place);
    if (place != data.size())
        throw LineError("something behind the closing quote");
    return text + '\0';
}

std::string ReadDword(const std::string& digits)
{
    std::string data;
    if (digits.empty() || digits.size() > 8 || !ParseData(REG_DWORD, {"0x" + digits}, data))
        throw LineError("no number of up to eight hexadecimal digits");
    return data;
}

// Takes "(7):" or ":" from the front of hexadecimal data.
DWORD TakeType(std::string& text)
{
    DWORD type = REG_BINARY;
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos)
        throw LineError("hexadecimal data without ':'");
    if (colon > 0) {
        const char* end = text.data() + colon - 1;
        const auto read = std::from_chars(text.data() + 1, end, type, 16);
        if (colon < 3 || text[0] != '(' || *end != ')' || read.ec != std::errc() || read.ptr != end)
            throw LineError("a data type that is no number");
    }
    text.erase(0, colon + 1);
    return type;
}

std::string ReadBytes(const std::string& text)
{
    std::string digits, data;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string byte = Trimmed(text.substr(begin, end - begin));
        if (byte.empty() || byte.size() > 2)
            throw LineError("a byte that is not two hexadecimal digits");
        digits.append(byte.size() == 1 ? "0" : "").append(byte);
        begin = end + 1;
    }
    if (!ParseData(REG_BINARY, {digits}, data))
        throw LineError("a byte that is not two hexadecimal digits");
    return data;
}

class Reader
{
public:
    Reader(std::string text, std::vector<RegChange>& changes) : m_text(std::move(text)), m_changes(changes) {}

    int Line() const { return m_line; }

    void Read()
    {
        const std::string first = Trimmed(NextLine());
        m_wide = first == kFirstLine5;
        if (!m_wide && first != kFirstLine4)
            throw LineError("no registry file: the first line is neither REGEDIT4 nor that of version 5");
        while (m_place < m_text.size())
            ReadLine(Trimmed(NextLine()));
    }

private:
    std::string NextLine()
    {
        ++m_line;
        const std::size_t end = std::min(m_text.find('\n', m_place), m_text.size());
        std::string line = m_text.substr(m_place, end - m_place);
        m_place = end + 1;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        return line;
    }

    void ReadLine(const std::string& line)
    {
        if (line.empty() || line[0] == ';')
            return;
        if (line[0] == '[')
            ReadKey(line);
        else if (!m_key.root)
            throw LineError("a value before the first key");
        else
            ReadValueLine(line);
    }

    void ReadKey(const std::string& line)
    {
        if (line.back() != ']')
            throw LineError("a key without its closing bracket");
        const bool removed = line[1] == '-';
        const std::size_t begin = removed ? 2 : 1;
        if (!ParseKeyName(line.substr(begin, line.size() - begin - 1), m_key))
            throw LineError("an unknown root key");
        if (removed && m_key.subkey.empty())
            throw LineError("a root key cannot be deleted");
        m_changes.push_back({removed ? RegChange::Kind::DeleteKey : RegChange::Kind::MakeKey, m_key, {}});
    }

    void ReadValueLine(const std::string& line)
    {
        NamedValue value;
        std::size_t place = 1;
        if (line[0] == '"')
            value.name = TakeQuoted(line, place);
        else if (line[0] != '@')
            throw LineError("neither a key, a value nor a comment");
        if (place >= line.size() || line[place] != '=')
            throw LineError("a value's name without '='");
        const std::string data = Trimmed(line.substr(place + 1));
        const bool removed = data == "-";
        if (!removed)
            ReadData(data, value);
        m_changes.push_back(
            {removed ? RegChange::Kind::DeleteValue : RegChange::Kind::SetValue, m_key, std::move(value)});
    }

    void ReadData(const std::string& data, NamedValue& value)
    {
        if (data.starts_with('"')) {
            value.type = REG_SZ;
            value.data = ReadQuoted(data);
        } else if (data.starts_with("dword:")) {
            value.type = REG_DWORD;
            value.data = ReadDword(data.substr(6));
        } else if (data.starts_with("hex")) {
            ReadHex(data.substr(3), value);
        } else {
            throw LineError("data of an unknown kind");
        }
    }

    // A backslash at its end continues a line.
    void ReadHex(std::string text, NamedValue& value)
    {
        value.type = TakeType(text);
        while (text.ends_with('\\') && m_place < m_text.size()) {
            text.pop_back();
            text += Trimmed(NextLine());
        }
        value.data = ReadBytes(text);
        if (m_wide && IsText(value.type))
            value.data = FromUtf16Bytes(value.data);
    }

    std::string m_text;
    std::vector<RegChange>& m_changes;
    std::size_t m_place = 0;
    int m_line = 0;
    bool m_wide = false;
    KeyName m_key;
};

} // namespace

bool ParseRegFile(const std::string& content, std::vector<RegChange>& changes, int& line, std::string& error)
{
    Reader reader(Decoded(content), changes);
    try {
        reader.Read();
        return true;
    } catch (const LineError& wrong) {
        line = reader.Line();
        error = wrong.what();
        return false;
    }
}
