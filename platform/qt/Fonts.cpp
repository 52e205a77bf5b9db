#include "Fonts.h"

#include "Texts.h"

#include <QtCore/QStringList>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetrics>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <tuple>

namespace {

constexpr int kDialogHeight = -11; // 8 points at 96 dots per inch

// What stands for the families that Windows has and this desktop may not: the first that is installed.
struct Substitute {
    std::u16string_view family; // in lower case
    const char* families;       // separated by '|'
};
constexpr auto kSans = "Tahoma|Liberation Sans|Arial|Noto Sans|DejaVu Sans";
constexpr auto kKoreanSans = "NanumGothic|Noto Sans CJK KR|UnDotum|Liberation Sans|DejaVu Sans";
constexpr auto kKoreanSerif = "NanumMyeongjo|Noto Serif CJK KR|UnBatang|Liberation Serif|DejaVu Serif";
constexpr auto kJapaneseSans = "Noto Sans CJK JP|IPAPGothic|TakaoPGothic|Liberation Sans|DejaVu Sans";
constexpr auto kMono = "Liberation Mono|DejaVu Sans Mono";
constexpr std::array<Substitute, 27> kSubstitutes = {{
    {u"", kSans},
    {u"ms shell dlg", kSans},
    {u"ms shell dlg 2", kSans},
    {u"ms sans serif", kSans},
    {u"microsoft sans serif", kSans},
    {u"tahoma", kSans},
    {u"system", kSans},
    {u"segoe ui", kSans},
    {u"arial", "Arial|Liberation Sans|DejaVu Sans"},
    {u"helv", kSans},
    {u"courier new", kMono},
    {u"courier", kMono},
    {u"fixedsys", kMono},
    {u"terminal", kMono},
    {u"times new roman", "Times New Roman|Liberation Serif|DejaVu Serif"},
    {u"ms serif", "Liberation Serif|DejaVu Serif"},
    {u"gulim", kKoreanSans},
    {u"\uad74\ub9bc", kKoreanSans},
    {u"dotum", kKoreanSans},
    {u"\ub3cb\uc6c0", kKoreanSans},
    {u"malgun gothic", kKoreanSans},
    {u"\ub9d1\uc740 \uace0\ub515", kKoreanSans},
    {u"batang", kKoreanSerif},
    {u"\ubc14\ud0d5", kKoreanSerif},
    {u"ms ui gothic", kJapaneseSans},
    {u"ms pgothic", kJapaneseSans},
    {u"ms gothic", kJapaneseSans},
}};

QStringList FamiliesFor(std::u16string_view face)
{
    const QString asked = FromUtf16(face);
    const QString lower = asked.toLower();
    QStringList families;
    if (!asked.isEmpty())
        families << asked;
    for (const auto& row : kSubstitutes)
        if (lower == FromUtf16(row.family))
            families << QString::fromLatin1(row.families).split(QLatin1Char('|'));
    return families;
}

// An asked-for height of the line counts ascent and descent.
void SetLineHeight(QFont& font, int height)
{
    for (int size = height; size > 0; --size) {
        font.setPixelSize(size);
        const QFontMetrics metrics(font);
        if (metrics.ascent() + metrics.descent() <= height)
            return;
    }
}

void SetWidth(QFont& font, int width)
{
    const int natural = QFontMetrics(font).averageCharWidth();
    if (width > 0 && natural > 0)
        font.setStretch(std::clamp(width * 100 / natural, 1, 4000));
}

QFont MakeFont(const FontSpec& spec)
{
    QFont font(FamiliesFor(spec.face));
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setWeight(spec.weight > 0 ? static_cast<QFont::Weight>(std::clamp<LONG>(spec.weight, 1, 1000))
                                   : QFont::Normal);
    font.setItalic(spec.italic != 0);
    font.setUnderline(spec.underline != 0);
    font.setStrikeOut(spec.strikeOut != 0);
    constexpr LONG kLargest = 4096; // far beyond any screen; the toolkit's arithmetic overflows at some size
    const int height =
        static_cast<int>(std::clamp(spec.height ? spec.height : LONG{kDialogHeight}, -kLargest, kLargest));
    if (height < 0)
        font.setPixelSize(-height);
    else
        SetLineHeight(font, height);
    SetWidth(font, std::min(static_cast<int>(spec.width), static_cast<int>(kLargest)));
    return font;
}

struct SpecOrder {
    static auto Key(const FontSpec& spec)
    {
        return std::tie(spec.face, spec.height, spec.width, spec.weight, spec.italic, spec.underline,
                        spec.strikeOut, spec.charSet);
    }
    bool operator()(const FontSpec& a, const FontSpec& b) const { return Key(a) < Key(b); }
};

// Fonts share data behind their values, so all use of them here is one thread's at a time.
class FontTable
{
public:
    template <class Use>
    auto With(const FontSpec& spec, Use use)
    {
        const std::lock_guard lock(m_mutex);
        constexpr size_t kMost = 64;
        if (m_fonts.size() >= kMost && !m_fonts.contains(spec))
            m_fonts.clear();
        const auto [place, fresh] = m_fonts.try_emplace(spec);
        if (fresh)
            place->second = MakeFont(spec);
        return use(static_cast<const QFont&>(place->second));
    }

private:
    std::mutex m_mutex;
    std::map<FontSpec, QFont, SpecOrder> m_fonts;
};

void TellIfThereAreNoFonts()
{
    if (QFontDatabase::families().isEmpty())
        std::fputs("No font is installed: texts will be boxes. Install one, such as fonts-dejavu-core.\n",
                   stderr);
}

FontTable& Fonts()
{
    static FontTable& table = *[] {
        TellIfThereAreNoFonts();
        return new FontTable;
    }();
    return table;
}

} // namespace

QFont FontOf(const FontSpec& spec)
{
    // One of its own, so that what the widgets do with it does not touch the table's.
    return Fonts().With(spec, [&spec](const QFont&) { return MakeFont(spec); });
}

SIZE ExtentOf(const FontSpec& spec, std::u16string_view text)
{
    return Fonts().With(spec, [text](const QFont& font) {
        const QFontMetrics metrics(font);
        if (text.empty())
            return SIZE{0, 0};
        return SIZE{metrics.horizontalAdvance(FromUtf16(text)), metrics.ascent() + metrics.descent()};
    });
}

FontMeasures MeasuresOf(const FontSpec& spec)
{
    return Fonts().With(spec, [](const QFont& font) {
        const QFontMetrics metrics(font);
        return FontMeasures{metrics.ascent(), metrics.descent(), std::max(metrics.leading(), 0),
                            metrics.averageCharWidth(), metrics.maxWidth()};
    });
}
