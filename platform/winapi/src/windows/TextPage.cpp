#include "TextPage.h"

#include "../Utf8.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

namespace {

struct LanguagePage {
    LANGID language; // a whole identifier, or a primary language
    UINT codePage;
};

// A whole identifier's row stands before its language's own.
constexpr LanguagePage kPages[] = {
    {0x0804, 936}, {0x1004, 936},                // simplified Chinese
    {0x04, 950},   {0x11, 932},   {0x12, 949},   // Chinese, Japanese, Korean
    {0x05, 1250},  {0x0e, 1250},  {0x15, 1250},  // Czech, Hungarian, Polish
    {0x18, 1250},  {0x19, 1251},  {0x22, 1251}}; // Romanian, Russian, Ukrainian

UINT UiCodePage()
{
    const LANGID language = GetUserDefaultUILanguage();
    const auto row = std::find_if(std::begin(kPages), std::end(kPages), [language](const LanguagePage& page) {
        return page.language == language || page.language == PRIMARYLANGID(language);
    });
    return row == std::end(kPages) ? 1252 : row->codePage;
}

bool MayBegin(char byte)
{
    return static_cast<unsigned char>(byte) >= 0xc2 && static_cast<unsigned char>(byte) <= 0xf4;
}

// A cut character alone says nothing: one before it must be whole.
bool IsUtf8(std::string_view text)
{
    bool hasCharacter = false;
    while (!text.empty()) {
        const DecodedCharacter next = DecodeUtf8(text.data(), text.size());
        if (!next.valid)
            return hasCharacter && next.length == text.size() && MayBegin(text[0]);
        hasCharacter = hasCharacter || next.length > 1;
        text.remove_prefix(next.length);
    }
    return true;
}

} // namespace

UINT TextCodePage(std::string_view text)
{
    const UINT ansi = GetACP();
    return ansi != CP_UTF8 || IsUtf8(text) ? ansi : UiCodePage();
}

std::u16string ShownText(std::string_view text)
{
    if (text.empty())
        return {};
    std::u16string wide(text.size(), 0);
    const int units = MultiByteToWideChar(TextCodePage(text), 0, text.data(), static_cast<int>(text.size()),
                                          wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(units));
    return wide;
}
