#include "RegFile.h"

#include "Values.h"

#include <cstring>
#include <iomanip>
#include <ostream>

namespace {

// The second byte of a double-byte character needs no escape, whatever it looks like.
std::string Escaped(const std::string& text)
{
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsDBCSLeadByte(static_cast<BYTE>(text[i])) && i + 1 < text.size())
            escaped += text[i++];
        else if (text[i] == '\\' || text[i] == '"')
            escaped += '\\';
        escaped += text[i];
    }
    return escaped;
}

// Whether quotes can hold the text: one terminator, at its end, and no line ends.
bool FitsQuotes(const NamedValue& value)
{
    return value.type == REG_SZ && value.data.find('\0') + 1 == value.data.size() &&
           value.data.find_first_of("\r\n") == std::string::npos;
}

void WriteHex(const NamedValue& value, std::ostream& out)
{
    constexpr std::size_t kBytesInLine = 24;
    out << "hex" << std::hex;
    if (value.type != REG_BINARY)
        out << '(' << value.type << ')';
    out << ':' << std::setfill('0');
    for (std::size_t i = 0; i < value.data.size(); ++i) {
        out << std::setw(2) << static_cast<unsigned>(static_cast<unsigned char>(value.data[i]));
        if (i + 1 < value.data.size())
            out << (i % kBytesInLine == kBytesInLine - 1 ? ",\\\r\n  " : ",");
    }
    out << std::dec;
}

void WriteDword(const std::string& data, std::ostream& out)
{
    DWORD number = 0;
    std::memcpy(&number, data.data(), sizeof number);
    out << "dword:" << std::hex << std::setfill('0') << std::setw(8) << number << std::dec;
}

void WriteValue(const NamedValue& value, std::ostream& out)
{
    if (value.name.empty())
        out << "@=";
    else
        out << '"' << Escaped(value.name) << "\"=";
    if (FitsQuotes(value))
        out << '"' << Escaped(TextOf(value.data)) << '"';
    else if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD))
        WriteDword(value.data, out);
    else
        WriteHex(value, out);
    out << "\r\n";
}

LONG WriteValues(HKEY key, std::ostream& out)
{
    std::vector<NamedValue> values;
    const LONG listed = ListValues(key, values);
    for (const NamedValue& value : values)
        WriteValue(value, out);
    out << "\r\n";
    return listed;
}

// What is not there need not be deleted.
LONG Forgive(LONG result)
{
    return result == ERROR_FILE_NOT_FOUND ? LONG{ERROR_SUCCESS} : result;
}

LONG RemoveValue(const RegChange& change)
{
    RegKey key;
    const LONG opened = key.Open(change.key);
    return Forgive(opened == ERROR_SUCCESS ? RegDeleteValueA(key.Get(), change.value.name.c_str()) : opened);
}

LONG WriteValueOf(const RegChange& change)
{
    RegKey key;
    if (const LONG made = key.Create(change.key); made != ERROR_SUCCESS)
        return made;
    return RegSetValueExA(key.Get(), change.value.name.c_str(), 0, change.value.type,
                          reinterpret_cast<const BYTE*>(change.value.data.data()),
                          static_cast<DWORD>(change.value.data.size()));
}

} // namespace

void BeginExport(std::ostream& out)
{
    out << "REGEDIT4\r\n\r\n";
}

LONG ExportKey(const KeyName& name, std::ostream& out)
{
    RegKey key;
    std::vector<std::string> children;
    LONG result = key.Open(name);
    if (result != ERROR_SUCCESS)
        return result;
    out << '[' << FullName(name) << "]\r\n";
    result = WriteValues(key.Get(), out);
    if (result == ERROR_SUCCESS)
        result = ListSubkeys(key.Get(), children);
    for (const std::string& child : children) {
        if (result != ERROR_SUCCESS)
            break;
        // What another process deletes meanwhile is simply not there.
        result =
            Forgive(ExportKey({name.root, name.subkey.empty() ? child : name.subkey + "\\" + child}, out));
    }
    return result;
}

LONG Apply(const RegChange& change)
{
    RegKey key;
    switch (change.kind) {
    case RegChange::Kind::MakeKey:
        return key.Create(change.key);
    case RegChange::Kind::DeleteKey:
        return Forgive(DeleteTree(change.key));
    case RegChange::Kind::DeleteValue:
        return RemoveValue(change);
    default:
        return WriteValueOf(change);
    }
}
