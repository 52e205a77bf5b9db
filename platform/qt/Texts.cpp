#include "Texts.h"

#include <algorithm>
#include <cstring>

namespace {

qsizetype CharacterUnits(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
}

qsizetype CharacterBytes(QStringView character)
{
    return character[0].unicode() < 0x80 ? 1 : ToAnsi(character).size();
}

} // namespace

QString FromAnsi(const char* text)
{
    if (!text || !*text)
        return {};
    const int length = static_cast<int>(std::strlen(text));
    const int units = MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
    QString wide(units, Qt::Uninitialized);
    MultiByteToWideChar(CP_ACP, 0, text, length, reinterpret_cast<LPWSTR>(wide.data()), units);
    return wide;
}

QByteArray ToAnsi(QStringView text)
{
    const auto* wide = reinterpret_cast<LPCWSTR>(text.utf16());
    const int units = static_cast<int>(text.size());
    if (!units)
        return {};
    const int length = WideCharToMultiByte(CP_ACP, 0, wide, units, nullptr, 0, nullptr, nullptr);
    QByteArray bytes(length, Qt::Uninitialized);
    WideCharToMultiByte(CP_ACP, 0, wide, units, bytes.data(), length, nullptr, nullptr);
    return bytes;
}

int BytesOf(QStringView text, qsizetype units)
{
    return static_cast<int>(ToAnsi(text.left(std::min(units, text.size()))).size());
}

qsizetype UnitsOf(QStringView text, qsizetype bytes)
{
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype units = CharacterUnits(text, at);
        bytes -= CharacterBytes(text.mid(at, units));
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
        const QString wide = FromAnsi(text.constData());
        length = static_cast<size_t>(BytesOf(wide, UnitsOf(wide, static_cast<qsizetype>(length))));
    }
    std::memcpy(to, text.constData(), length);
    to[length] = '\0';
    return static_cast<LRESULT>(length);
}
