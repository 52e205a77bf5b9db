#include <crtnames_.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// A radix other than 10 shows the bits, so a negative number comes as its unsigned counterpart.
template <class Signed, class Unsigned>
char* NumberToText(Signed value, char* buffer, int radix)
{
    char* const end = buffer + std::numeric_limits<Unsigned>::digits + 2;
    const auto result = radix == 10 ? std::to_chars(buffer, end, value)
                                    : std::to_chars(buffer, end, static_cast<Unsigned>(value), radix);
    *result.ptr = 0;
    return buffer;
}

} // namespace

int _stricmp(const char* a, const char* b)
{
    return _strnicmp(a, b, std::numeric_limits<size_t>::max());
}

int _strnicmp(const char* a, const char* b, size_t count)
{
    for (; count > 0; --count, ++a, ++b) {
        const int difference = static_cast<unsigned char>(Lower(*a)) - static_cast<unsigned char>(Lower(*b));
        if (difference || !*a)
            return difference;
    }
    return 0;
}

char* _strdup(const char* text)
{
    return strdup(text);
}

char* _itoa(int value, char* buffer, int radix)
{
    return NumberToText<int, unsigned>(value, buffer, radix);
}

char* _ltoa(LONG value, char* buffer, int radix)
{
    return NumberToText<LONG, DWORD>(value, buffer, radix);
}

LONGLONG _atoi64(const char* text)
{
    return std::strtoll(text, nullptr, 10);
}

int _snprintf(char* buffer, size_t size, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

// The C library always terminates: the text is made one character longer elsewhere and copied.
int _vsnprintf(char* buffer, size_t size, const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0 || !buffer)
        return length;
    const auto needed = static_cast<size_t>(length) + 1;
    char* text = static_cast<char*>(std::malloc(needed));
    if (!text)
        return -1;
    std::vsnprintf(text, needed, format, arguments);
    std::memcpy(buffer, text, std::min(size, needed));
    std::free(text);
    return needed - 1 > size ? -1 : length;
}
