#include "CodePageTable.h"

#include <iconv.h>

#include <array>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace {

struct Page {
    UINT number;
    const char* iconvName;
    char16_t defaultWide;
};

constexpr Page kPages[] = {{437, "CP437", u'?'},       {850, "CP850", u'?'},   {932, "CP932", u'\u30fb'},
                           {936, "CP936", u'?'},       {949, "CP949", u'?'},   {950, "CP950", u'?'},
                           {1250, "CP1250", u'?'},     {1251, "CP1251", u'?'}, {1252, "CP1252", u'?'},
                           {28591, "ISO-8859-1", u'?'}};

// Private characters that Windows gives to pairs (and single bytes) which iconv does not know.
struct PrivateRange {
    UINT codePage;
    int firstLead, lastLead, firstTrail, lastTrail;
    char16_t wide;
};

constexpr PrivateRange kPrivate[] = {{949, 0xc9, 0xc9, 0xa1, 0xfe, 0xe000},
                                     {949, 0xfe, 0xfe, 0xa1, 0xfe, 0xe05e},
                                     {936, 0xaa, 0xaf, 0xa1, 0xfe, 0xe000},
                                     {936, 0xf8, 0xfe, 0xa1, 0xfe, 0xe234},
                                     {936, 0xa1, 0xa7, 0x40, 0xa0, 0xe4c6}};

// The one byte inside the ranges that is never a second one.
constexpr int kNoTrail = 0x7f;

// From U+00C0 and from U+0100 on: the letter without its accent; a dot where there is none.
constexpr char16_t kFirstLatin1 = 0xc0, kFirstLatinA = 0x100;
constexpr std::string_view kLatin1 = "AAAAAA.CEEEEIIII.NOOOOO.OUUUUY..aaaaaa.ceeeeiiii.nooooo.ouuuuy.y";
constexpr std::string_view kLatinA = "AaAaAaCcCcCcCcDd.dEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi..JjKk.LlLlLl."
                                     ".LlNnNnNn...OoOoOo..RrRrRrSsSsSs..TtTtTtUuUuUuUuUuUuWwYy.ZzZz...";
static_assert(kLatin1.size() == 64 && kLatinA.size() == 128);

class Converter
{
public:
    Converter(const char* to, const char* from) : m_state(iconv_open(to, from)) {}
    ~Converter()
    {
        if (IsOpen())
            iconv_close(m_state);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return m_state != reinterpret_cast<iconv_t>(-1); }

    // The bytes of the result; none where the text has no counterpart.
    std::string Convert(std::string text)
    {
        char result[8];
        char *in = text.data(), *out = result;
        size_t inLeft = text.size(), outLeft = sizeof result;
        iconv(m_state, nullptr, nullptr, nullptr, nullptr);
        const bool done = iconv(m_state, &in, &inLeft, &out, &outLeft) == 0 && inLeft == 0;
        return done ? std::string(result, out) : std::string();
    }

private:
    iconv_t m_state;
};

char16_t WideUnit(const std::string& bytes)
{
    if (bytes.size() != 2)
        return CodePageTable::kNone;
    return static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) | static_cast<unsigned char>(bytes[1])
                                                                            << 8);
}

std::string UnitBytes(unsigned unit)
{
    return {static_cast<char>(unit & 0xff), static_cast<char>(unit >> 8)};
}

std::string CharacterBytes(unsigned code)
{
    std::string bytes;
    if (code > 0xff)
        bytes += static_cast<char>(code >> 8);
    return bytes + static_cast<char>(code & 0xff);
}

// The bytes that Windows does not assign are control characters of the same number.
void FillForward(CodePageTable& table, const Page& page)
{
    Converter converter("UTF-16LE", page.iconvName);
    table.toWide.assign(0x10000, CodePageTable::kNone);
    for (unsigned code = 0; code < 0x10000; ++code) {
        const bool single = code < 0x100;
        const bool lead = (*table.leads)[single ? code : code >> 8];
        if (single ? lead : (!lead || (code & 0xff) == 0))
            continue;
        const char16_t wide = WideUnit(converter.Convert(CharacterBytes(code)));
        const bool isControl = single && wide == CodePageTable::kNone && code < 0xa0;
        table.toWide[code] = isControl ? static_cast<char16_t>(code) : wide;
    }
}

void FillPrivate(CodePageTable& table, UINT codePage)
{
    for (const PrivateRange& range : kPrivate) {
        if (range.codePage != codePage)
            continue;
        char16_t wide = range.wide;
        for (int lead = range.firstLead; lead <= range.lastLead; ++lead)
            for (int trail = range.firstTrail; trail <= range.lastTrail; ++trail)
                if (trail != kNoTrail)
                    table.toWide[static_cast<size_t>(lead << 8 | trail)] = wide++;
    }
}

// Where two characters stand for one, iconv's own way back decides.
void FillBackward(CodePageTable& table, const Page& page)
{
    Converter converter(page.iconvName, "UTF-16LE");
    table.toBytes.assign(0x10000, 0);
    for (unsigned code = 1; code < 0x10000; ++code) {
        const char16_t wide = table.toWide[code];
        if (wide == CodePageTable::kNone)
            continue;
        auto& back = table.toBytes[wide];
        const std::string chosen = back ? converter.Convert(UnitBytes(wide)) : std::string();
        if (!back || chosen == CharacterBytes(code))
            back = static_cast<std::uint16_t>(code);
    }
}

void AddBestFit(CodePageTable& table, char16_t first, std::string_view letters)
{
    for (size_t i = 0; i < letters.size(); ++i)
        if (letters[i] != '.')
            table.bestFit[first + i] = static_cast<unsigned char>(letters[i]);
}

// Full-width forms become their ASCII counterparts, letters lose their accents.
void FillBestFit(CodePageTable& table)
{
    table.bestFit.assign(0x10000, 0);
    for (unsigned wide = 0xff01; wide <= 0xff5e; ++wide)
        table.bestFit[wide] = static_cast<std::uint16_t>(wide - 0xff01 + '!');
    AddBestFit(table, kFirstLatin1, kLatin1);
    AddBestFit(table, kFirstLatinA, kLatinA);
}

std::unique_ptr<CodePageTable> BuildTable(const Page& page)
{
    if (!Converter("UTF-16LE", page.iconvName).IsOpen())
        return nullptr;
    auto table = std::make_unique<CodePageTable>();
    table->leads = &LeadBytes(page.number);
    table->defaultWide = page.defaultWide;
    FillForward(*table, page);
    FillPrivate(*table, page.number);
    FillBackward(*table, page);
    FillBestFit(*table);
    return table;
}

struct Slot {
    std::once_flag once;
    std::unique_ptr<CodePageTable> table;
};

} // namespace

const CodePageTable* TableOf(UINT codePage)
{
    static std::array<Slot, std::size(kPages)> slots;
    for (size_t i = 0; i < slots.size(); ++i) {
        if (kPages[i].number != codePage)
            continue;
        std::call_once(slots[i].once, [i] { slots[i].table = BuildTable(kPages[i]); });
        return slots[i].table.get();
    }
    return nullptr;
}
