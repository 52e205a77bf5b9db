#include "Texts.h"

#include "TextPage.h"

#include <algorithm>
#include <cstring>

namespace {

qsizetype CharacterUnits(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
}

qsizetype CharacterBytes(QStringView character, UINT codePage)
{
    return character[0].unicode() < 0x80 ? 1 : ToAnsi(character, codePage).size();
}

} // namespace

QString FromAnsi(std::string_view text)
{
    return FromUtf16(ShownText(text));
}

QByteArray ToAnsi(QStringView text, UINT codePage)
{
    const auto* wide = reinterpret_cast<LPCWSTR>(text.utf16());
    const int units = static_cast<int>(text.size());
    if (!units)
        return {};
    const int length = WideCharToMultiByte(codePage, 0, wide, units, nullptr, 0, nullptr, nullptr);
    QByteArray bytes(length, Qt::Uninitialized);
    WideCharToMultiByte(codePage, 0, wide, units, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

bool IsIn(UINT codePage, QStringView text)
{
    BOOL lost = FALSE;
    WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, reinterpret_cast<LPCWSTR>(text.utf16()),
                        static_cast<int>(text.size()), nullptr, 0, nullptr, &lost);
    return !lost;
}

int BytesOf(QStringView text, qsizetype units, UINT codePage)
{
    return static_cast<int>(ToAnsi(text.left(std::min(units, text.size())), codePage).size());
}

qsizetype UnitsOf(QStringView text, qsizetype bytes, UINT codePage)
{
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype units = CharacterUnits(text, at);
        bytes -= CharacterBytes(text.mid(at, units), codePage);
        if (bytes < 0)
            break;
        at += units;
    }
    return at;
}

LRESULT CopyText(const QByteArray& text, LPARAM buffer, WPARAM size)
{
    auto* to = reinterpret_cast<char*>(buffer);
    if (!to || !size)
        return 0;
    size_t length = std::min<size_t>(static_cast<size_t>(text.size()), size - 1);
    if (length < static_cast<size_t>(text.size())) {
        const UINT codePage = TextCodePage(text.constData());
        const QString wide = FromAnsi(text.constData());
        const qsizetype units = UnitsOf(wide, static_cast<qsizetype>(length), codePage);
        length = static_cast<size_t>(BytesOf(wide, units, codePage));
    }
    std::memcpy(to, text.constData(), length);
    to[length] = '\0';
    return static_cast<LRESULT>(length);
}
