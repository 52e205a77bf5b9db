#include "Template.h"

#include "../WordReader.h"

namespace {

constexpr WORD kNumberFollows = 0xffff;
constexpr WORD kNoPointSize = 0x7fff; // the system's message font, no face follows

// Nothing (a zero word), a number or a name as it is written.
ResourceId ReadNumberOrName(WordReader& reader)
{
    const WORD first = reader.Peek();
    if (first != 0 && first != kNumberFollows)
        return reader.Text();
    reader.Word();
    return first == 0 ? WORD{0} : reader.Word();
}

template <class Shape>
void ReadRectangle(WordReader& reader, Shape& shape)
{
    shape.x = reader.Short();
    shape.y = reader.Short();
    shape.cx = reader.Short();
    shape.cy = reader.Short();
}

std::optional<TemplateFont> ReadFont(WordReader& reader, bool extended)
{
    TemplateFont font;
    font.pointSize = reader.Short();
    if (font.pointSize == kNoPointSize)
        return font;
    if (extended) {
        font.weight = reader.Short();
        const WORD italicAndCharSet = reader.Word();
        font.italic = LOBYTE(italicAndCharSet) != 0;
        font.charSet = HIBYTE(italicAndCharSet);
    }
    font.face = reader.Text();
    return font;
}

// The style words, the other way round in the extended form.
template <class Shape>
void ReadStyles(WordReader& reader, bool extended, Shape& shape)
{
    if (extended)
        reader.Long(); // the number for help
    const DWORD first = reader.Long();
    const DWORD second = reader.Long();
    shape.style = extended ? second : first;
    shape.exStyle = extended ? first : second;
}

std::vector<BYTE> ReadCreationData(WordReader& reader)
{
    const WORD size = reader.Word();
    if (size == 0)
        return {};
    std::vector<BYTE> data = {LOBYTE(size), HIBYTE(size)};
    const auto bytes = reader.Skip(size);
    data.insert(data.end(), bytes.begin(), bytes.end());
    return data;
}

TemplateItem ReadItem(WordReader& reader, bool extended)
{
    TemplateItem item;
    reader.Align();
    ReadStyles(reader, extended, item);
    ReadRectangle(reader, item);
    item.id = extended ? reader.Long() : reader.Word();
    item.kind = ReadNumberOrName(reader);
    item.text = ReadNumberOrName(reader);
    item.data = ReadCreationData(reader);
    return item;
}

bool IsExtended(WordReader reader)
{
    const WORD version = reader.Word();
    return version == 1 && reader.Word() == kNumberFollows;
}

} // namespace

std::optional<Template> ReadTemplate(std::span<const BYTE> bytes)
{
    WordReader reader(bytes);
    const bool extended = IsExtended(reader);
    if (extended)
        reader.Skip(4);
    Template shape;
    ReadStyles(reader, extended, shape);
    const WORD count = reader.Word();
    ReadRectangle(reader, shape);
    ReadNumberOrName(reader); // the menu
    shape.kind = ReadNumberOrName(reader);
    shape.title = reader.Text();
    if (shape.style & DS_SETFONT)
        shape.font = ReadFont(reader, extended);
    for (WORD i = 0; i < count && !reader.Failed(); ++i)
        shape.items.push_back(ReadItem(reader, extended));
    return reader.Failed() ? std::nullopt : std::optional<Template>(std::move(shape));
}
