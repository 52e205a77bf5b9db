// Texts in the model are UTF-8, automation hands over UTF-16; names compare without case.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek::office {

// Appends the text as UTF-8; half a surrogate pair becomes U+FFFD.
void AppendUtf8(std::string& target, const char16_t* text, std::size_t length);
std::string ToUtf8(std::u16string_view text);

// A byte that is not UTF-8 becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);

// Length of the text in UTF-16 units, which is how the limits of names and texts are counted.
std::size_t Utf16Length(std::string_view text);

// The text in lower case: ASCII, Latin, Greek, Cyrillic and full-width letters; others stay.
std::string FoldCase(std::string_view text);
bool EqualsNoCase(std::string_view left, std::string_view right);

} // namespace zek::office
