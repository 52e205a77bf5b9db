#include "FormatWriter.h"

#include <cstring>

namespace {

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

struct Escape {
    char letter;
    const char* text;
};

constexpr Escape kEscapes[] = {{'n', "\r\n"}, {'r', "\r"}, {'t', "\t"}, {'b', " "}};

// Adds argument `number` (from 1) and answers where the message goes on, behind a "!format!" if there is one.
LPCSTR WriteInsert(std::string& out, LPCSTR next, std::size_t number, const AFX_FORMAT_ARG* args,
                   std::size_t count)
{
    std::string format = "%s";
    const char* end = *next == '!' ? std::strchr(next + 1, '!') : nullptr;
    if (end) {
        format.assign(1, '%');
        format.append(next + 1, end);
        next = end + 1;
    }
    if (number <= count) {
        CListSource source(args + (number - 1), count - (number - 1));
        AfxWriteFormat(out, format.c_str(), source);
    }
    return next;
}

LPCSTR WriteEscape(std::string& out, LPCSTR next)
{
    for (const Escape& escape : kEscapes) {
        if (escape.letter == *next) {
            out += escape.text;
            return next + 1;
        }
    }
    out += *next;
    return next + 1;
}

} // namespace

void AfxWriteMessage(std::string& out, LPCSTR format, const AFX_FORMAT_ARG* args, std::size_t count)
{
    LPCSTR next = format ? format : "";
    while (*next) {
        const std::size_t plain = std::strcspn(next, "%");
        out.append(next, plain);
        next += plain;
        if (*next == '\0' || *++next == '\0' || *next == '0')
            return;
        if (!IsDigit(*next)) {
            next = WriteEscape(out, next);
            continue;
        }
        std::size_t number = static_cast<std::size_t>(*next++ - '0');
        if (IsDigit(*next))
            number = number * 10 + static_cast<std::size_t>(*next++ - '0');
        next = WriteInsert(out, next, number, args, count);
    }
}
