#include "TemplateText.h"

namespace {

constexpr size_t kCount = 4;         // where the number of items stands, in words
constexpr size_t kExtendedCount = 8; // and in the extended form

} // namespace

TemplateText::TemplateText(bool extended, DWORD style, short x, short y, short cx, short cy,
                           const char* title)
    : m_extended(extended)
{
    if (extended) {
        Word(1);
        Word(0xffff);
        Long(0); // help
    }
    Long(extended ? 0 : style);
    Long(extended ? style : 0);
    for (const int value : {0, int{x}, int{y}, int{cx}, int{cy}, 0, 0})
        Word(value);
    Text(title);
    if (!(style & DS_SETFONT))
        return;
    Word(8);
    if (extended) {
        Word(400);
        Word(0x0100); // upright, default character set
    }
    Text("MS Shell Dlg");
}

TemplateText& TemplateText::Add(WORD kind, DWORD style, short x, short y, short cx, short cy, WORD id,
                                const char* text, const std::vector<WORD>& data)
{
    Start(style, x, y, cx, cy, id);
    Word(0xffff);
    Word(kind);
    Text(text);
    Word(static_cast<int>(data.size() * sizeof(WORD)));
    m_words.insert(m_words.end(), data.begin(), data.end());
    return *this;
}

TemplateText& TemplateText::AddNamed(const char* kind, DWORD style, short x, short y, short cx, short cy,
                                     WORD id)
{
    Start(style, x, y, cx, cy, id);
    Text(kind);
    Text("");
    Word(0);
    return *this;
}

void TemplateText::Start(DWORD style, short x, short y, short cx, short cy, WORD id)
{
    ++m_words[m_extended ? kExtendedCount : kCount];
    if (m_words.size() % 2)
        Word(0);
    const DWORD full = style | WS_CHILD | WS_VISIBLE;
    if (m_extended)
        Long(0); // help
    Long(m_extended ? 0 : full);
    Long(m_extended ? full : 0);
    for (const short value : {x, y, cx, cy})
        Word(value);
    Word(id);
    if (m_extended)
        Word(0);
}

void TemplateText::Long(DWORD value)
{
    Word(LOWORD(value));
    Word(HIWORD(value));
}

void TemplateText::Text(const char* text)
{
    for (; *text; ++text)
        Word(*text);
    Word(0);
}
