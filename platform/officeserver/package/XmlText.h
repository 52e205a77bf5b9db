// Text for XML parts: escaping and numbers. Nothing here follows the locale.
//
// All functions append to a string, which is how sheet data is streamed.
#pragma once

#include <string>
#include <string_view>

namespace zek::office {

// The declaration that every part begins with.
inline constexpr std::string_view kXmlDeclaration =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

// Text (UTF-8) as spreadsheet parts store it: a character that XML cannot hold (controls but tab and line
// feed, U+FFFE, U+FFFF, a lone surrogate) becomes _xHHHH_, and an underscore that would be read as the
// beginning of such a code becomes _x005F_. Bytes that are not UTF-8 become U+FFFD. No markup is escaped:
// the result is for an XML writer.
std::string StoredText(std::string_view text);

// The same with &, <, > and quotes escaped, for content and attribute values.
void AppendStoredText(std::string& out, std::string_view text);

// True for text that a reader would trim without xml:space="preserve".
bool NeedsPreservedSpace(std::string_view text);

// The shortest decimal number that reads back as `value`, which must be finite; 0 for minus zero.
void AppendNumber(std::string& out, double value);
std::string NumberText(double value);

} // namespace zek::office
