#include "ResourceFile.h"

#include "../CodePage.h"
#include "../WordReader.h"

#include <libloaderapi.h>
#include <winnls.h>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {

constexpr WORD kNumberFollows = 0xffff;
// Version, memory flags, language, version of the data, characteristics.
constexpr size_t kHeaderTail = 16;

std::u16string InUpperCase(std::u16string text)
{
    std::transform(text.begin(), text.end(), text.begin(), UpperCase);
    return text;
}

std::u16string WideFromAnsi(LPCSTR text)
{
    std::u16string wide(std::strlen(text), u'\0');
    const int units = MultiByteToWideChar(CP_ACP, 0, text, static_cast<int>(wide.size()), wide.data(),
                                          static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(units));
    return wide;
}

std::optional<ResourceId> NumberBehindHash(LPCSTR digits)
{
    WORD number = 0;
    const char* end = digits + std::strlen(digits);
    const auto [stop, error] = std::from_chars(digits, end, number);
    return error == std::errc() && stop == end ? std::optional<ResourceId>(number) : std::nullopt;
}

ResourceId ReadId(WordReader& header)
{
    if (header.Peek() != kNumberFollows)
        return InUpperCase(header.Text());
    header.Word();
    return header.Word();
}

// `header` without the two sizes it begins with.
std::optional<Resource> ReadHeader(std::span<const BYTE> header)
{
    WordReader reader(header);
    Resource resource;
    resource.type = ReadId(reader);
    resource.name = ReadId(reader);
    reader.Align();
    if (reader.Failed() || reader.Rest() < kHeaderTail)
        return std::nullopt;
    reader.Skip(6);
    resource.language = reader.Word();
    return resource;
}

} // namespace

std::optional<ResourceId> ResourceIdOf(LPCSTR name)
{
    if (IS_INTRESOURCE(name))
        return name ? std::optional<ResourceId>(static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)))
                    : std::nullopt;
    if (*name == '#')
        return NumberBehindHash(name + 1);
    return *name ? std::optional<ResourceId>(InUpperCase(WideFromAnsi(name))) : std::nullopt;
}

std::optional<Resource> ResourceReader::Next()
{
    constexpr size_t kSizes = 8;
    WordReader sizes(m_rest);
    const size_t dataSize = sizes.Long();
    const size_t headerSize = sizes.Long();
    if (sizes.Failed() || headerSize < kSizes || headerSize % 4 != 0 || headerSize > m_rest.size() ||
        dataSize > m_rest.size() - headerSize)
        return std::nullopt;
    auto resource = ReadHeader(m_rest.subspan(kSizes, headerSize - kSizes));
    if (resource)
        resource->data = m_rest.subspan(headerSize, dataSize);
    m_rest = m_rest.subspan(std::min((headerSize + dataSize + 3) & ~size_t{3}, m_rest.size()));
    return resource;
}
