#include "Utf8.h"

namespace {

struct Form {
    unsigned char firstLow, firstHigh; // the first byte's range
    unsigned char nextLow, nextHigh;   // the second byte's range
    size_t length;
};

// The well-formed sequences: no overlong forms, no surrogates, nothing beyond U+10FFFF.
constexpr Form kForms[] = {
    {0x00, 0x7f, 0, 0, 1},       {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3},
    {0xe1, 0xec, 0x80, 0xbf, 3}, {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3},
    {0xf0, 0xf0, 0x90, 0xbf, 4}, {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4}};

const Form* FormOf(unsigned char first)
{
    for (const Form& form : kForms)
        if (first >= form.firstLow && first <= form.firstHigh)
            return &form;
    return nullptr;
}

bool Continues(const Form& form, size_t index, unsigned char byte)
{
    return index == 1 ? byte >= form.nextLow && byte <= form.nextHigh : (byte & 0xc0) == 0x80;
}

} // namespace

DecodedCharacter DecodeUtf8(const char* text, size_t count)
{
    const auto byte = [text](size_t i) { return static_cast<unsigned char>(text[i]); };
    const Form* form = FormOf(byte(0));
    if (!form)
        return {0xfffd, 1, false};
    char32_t value = form->length == 1 ? byte(0) : byte(0) & (0x7fU >> form->length);
    for (size_t i = 1; i < form->length; ++i) {
        if (i >= count || !Continues(*form, i, byte(i)))
            return {0xfffd, i, false};
        value = value << 6 | (byte(i) & 0x3fU);
    }
    return {value, form->length, true};
}

size_t EncodeUtf8(char32_t value, char* bytes)
{
    static constexpr unsigned kMarks[] = {0, 0, 0xc0, 0xe0, 0xf0};
    const size_t length = value < 0x80 ? 1 : value < 0x800 ? 2 : value < 0x10000 ? 3 : 4;
    for (size_t i = length; i-- > 1; value >>= 6)
        bytes[i] = static_cast<char>(0x80 | (value & 0x3f));
    bytes[0] = static_cast<char>(kMarks[length] | value);
    return length;
}
