// Between UTF-8 and UTF-16, one character at a time.
#pragma once

#include <cstddef>
#include <cstdint>

struct DecodedCharacter {
    char32_t value;
    size_t length; // bytes taken; of bad input the longest part that could begin a character
    bool valid;
};

// The character at `text`, of which `count` > 0 bytes are there.
DecodedCharacter DecodeUtf8(const char* text, size_t count);

// Writes up to 4 bytes and answers their number.
size_t EncodeUtf8(char32_t value, char* bytes);
