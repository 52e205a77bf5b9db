#include "CodePage.h"

#include "EnvironmentLocale.h"

#include <winnls.h>

#include <langinfo.h>
#include <wctype.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <vector>

namespace {

struct Codeset {
    const char* name; // upper case, letters and digits only
    UINT codePage;
};

// What the C library and users call the code pages; all others count as UTF-8.
constexpr Codeset kCodesets[] = {
    {"EUCKR", 949},     {"CP949", 949},      {"UHC", 949},     {"MS949", 949},       {"KSC56011987", 949},
    {"SHIFTJIS", 932},  {"SJIS", 932},       {"CP932", 932},   {"WINDOWS31J", 932},  {"MS932", 932},
    {"GBK", 936},       {"GB2312", 936},     {"GB18030", 936}, {"EUCCN", 936},       {"CP936", 936},
    {"ISO88591", 1252}, {"ISO885915", 1252}, {"CP1252", 1252}, {"WINDOWS1252", 1252}};

struct LeadRange {
    UINT codePage;
    int first, last;
};

constexpr LeadRange kLeadRanges[] = {
    {949, 0x81, 0xfe}, {936, 0x81, 0xfe}, {950, 0x81, 0xfe}, {932, 0x81, 0x9f}, {932, 0xe0, 0xfc}};

UINT CodePageOfCodeset(std::string_view codeset)
{
    std::string name;
    for (const char c : codeset) {
        const int letter = static_cast<unsigned char>(c);
        if (std::isalnum(letter))
            name += static_cast<char>(std::toupper(letter));
    }
    const auto found = std::find_if(std::begin(kCodesets), std::end(kCodesets),
                                    [&name](const Codeset& row) { return name == row.name; });
    return found == std::end(kCodesets) ? CP_UTF8 : found->codePage;
}

// Most names tell the codeset; looking a locale up takes longer than a small program's whole start.
UINT CodePageOfEnvironment()
{
    const std::string name = EnvironmentLocale("LC_CTYPE");
    const auto dot = name.find('.');
    if (dot != std::string::npos)
        return CodePageOfCodeset(name.substr(dot, name.find('@') - dot));
    const locale_t locale = name == "C" ? locale_t{} : newlocale(LC_CTYPE_MASK, name.c_str(), nullptr);
    if (!locale)
        return CP_UTF8;
    const UINT codePage = CodePageOfCodeset(nl_langinfo_l(CODESET, locale));
    freelocale(locale);
    return codePage;
}

LeadTable MakeLeadTable(UINT codePage)
{
    LeadTable table{};
    for (const LeadRange& range : kLeadRanges)
        if (range.codePage == codePage)
            std::fill(table.begin() + range.first, table.begin() + range.last + 1, true);
    return table;
}

bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

std::string FoldAscii(std::string_view text)
{
    const LeadTable& leads = AnsiLeadBytes();
    std::string folded(text);
    for (size_t i = 0; i < folded.size(); i += CharacterLength(leads, folded.c_str() + i))
        if (CharacterLength(leads, folded.c_str() + i) == 1 && folded[i] >= 'a' && folded[i] <= 'z')
            folded[i] = static_cast<char>(folded[i] - 'a' + 'A');
    return folded;
}

std::u16string ToWide(std::string_view text)
{
    std::u16string wide(text.size(), 0);
    const int units =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()),
                            wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(units));
    return wide;
}

std::string ToBytes(const std::u16string& wide)
{
    std::string text(wide.size() * 3, 0);
    const int bytes = WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                          static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<size_t>(bytes));
    return text;
}

} // namespace

UINT AnsiCodePage()
{
    static const UINT codePage = CodePageOfEnvironment();
    return codePage;
}

UINT OemCodePage()
{
    return AnsiCodePage() == 1252 ? 437 : AnsiCodePage();
}

const LeadTable& LeadBytes(UINT codePage)
{
    static const LeadTable none{}, japanese = MakeLeadTable(932), others = MakeLeadTable(949);
    if (codePage == 932)
        return japanese;
    return codePage == 949 || codePage == 936 || codePage == 950 ? others : none;
}

const LeadTable& AnsiLeadBytes()
{
    static const LeadTable& leads = LeadBytes(AnsiCodePage());
    return leads;
}

char16_t UpperCase(char16_t unit)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const wint_t upper = unicode ? towupper_l(unit, unicode) : unit;
    return upper <= 0xffff ? static_cast<char16_t>(upper) : unit;
}

char16_t LowerCase(char16_t unit)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const wint_t lower = unicode ? towlower_l(unit, unicode) : unit;
    return lower <= 0xffff ? static_cast<char16_t>(lower) : unit;
}

std::string FoldCase(std::string_view text)
{
    // Bytes that are no text have letters of ASCII only.
    std::u16string wide = IsAscii(text) ? std::u16string() : ToWide(text);
    if (wide.empty())
        return FoldAscii(text);
    std::transform(wide.begin(), wide.end(), wide.begin(), UpperCase);
    return ToBytes(wide);
}

bool SameName(std::string_view a, std::string_view b)
{
    if (a == b)
        return true;
    if (IsAscii(a) && IsAscii(b))
        return a.size() == b.size() && FoldAscii(a) == FoldAscii(b);
    return FoldCase(a) == FoldCase(b);
}
