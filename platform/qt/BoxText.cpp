#include "BoxText.h"

#include "Texts.h"

namespace {

constexpr QChar kLineEnd(QChar::ParagraphSeparator);
constexpr QChar kLoneFeed(0xfdd2); // values that are no characters
constexpr QChar kLoneReturn(0xfdd3);

qsizetype CharacterBytes(QStringView character, UINT codePage)
{
    if (character[0] == kLineEnd)
        return 2;
    return character[0] == kLoneFeed || character[0] == kLoneReturn ? 1 : ToAnsi(character, codePage).size();
}

} // namespace

QString ToBox(QString text)
{
    text.replace(QLatin1String("\r\n"), QString(kLineEnd));
    text.replace(QLatin1Char('\n'), kLoneFeed);
    return text.replace(QLatin1Char('\r'), kLoneReturn);
}

QString FromBox(QString text)
{
    text.replace(kLineEnd, QLatin1String("\r\n"));
    text.replace(kLoneFeed, QLatin1Char('\n'));
    return text.replace(kLoneReturn, QLatin1Char('\r'));
}

int BoxBytes(QStringView text, UINT codePage)
{
    return static_cast<int>(ToAnsi(FromBox(text.toString()), codePage).size());
}

qsizetype BoxUnits(QStringView text, qsizetype bytes, UINT codePage)
{
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype units = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        bytes -= text[at].unicode() < 0x80 ? 1 : CharacterBytes(text.mid(at, units), codePage);
        if (bytes < 0)
            break;
        at += units;
    }
    return at;
}
