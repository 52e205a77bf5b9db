// Texts lie in tables of sixteen, each with its length before it.
#include "../WordReader.h"
#include "Resources.h"

#include <windlg_.h>
#include <winnls.h>

#include <algorithm>

namespace {

constexpr UINT kTextsInTable = 16;

std::u16string TextOf(HINSTANCE module, UINT id)
{
    WordReader table(ResourceBytes(module, MAKEINTRESOURCEA((id & 0xffff) / kTextsInTable + 1), RT_STRING));
    for (UINT before = id % kTextsInTable; before > 0; --before)
        table.Skip(table.Word() * sizeof(WCHAR));
    std::u16string text(table.Word(), u'\0');
    const auto bytes = table.Skip(text.size() * sizeof(WCHAR));
    if (bytes.empty())
        return {};
    std::memcpy(text.data(), bytes.data(), bytes.size());
    return text;
}

int AnsiLength(std::u16string_view text)
{
    return WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr,
                               nullptr);
}

// As much of `text` as takes at most `size` bytes, whole characters.
std::u16string_view Fitting(std::u16string_view text, int size)
{
    while (!text.empty() && AnsiLength(text) > size)
        text.remove_suffix(text.size() > 1 && (text.back() & 0xfc00) == 0xdc00 ? 2 : 1);
    return text;
}

} // namespace

int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return size == 0 ? -1 : 0;
    const std::u16string text = TextOf(module, id);
    const std::u16string_view part = Fitting(text, size - 1);
    const int length = part.empty()
                           ? 0
                           : WideCharToMultiByte(CP_ACP, 0, part.data(), static_cast<int>(part.size()),
                                                 buffer, size, nullptr, nullptr);
    buffer[length] = 0;
    return length;
}
