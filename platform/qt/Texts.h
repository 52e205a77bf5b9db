// Texts between the adapter and the toolkit.
#pragma once

#include <windows.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string_view>

inline QString FromUtf16(std::u16string_view text)
{
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

// What stands in a message's parameter; a null text counts as empty.
inline std::string_view AnsiOf(LPARAM text)
{
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

// What a text from outside shows, in whichever code page it is.
QString FromAnsi(std::string_view text);
QByteArray ToAnsi(QStringView text, UINT codePage = CP_ACP);
// Whether every character has a place in it, which is not asked of UTF-8.
bool IsIn(UINT codePage, QStringView text);

// Bytes in the code page of the first `units` of `text`, and the other way round: the units whose bytes lie
// whole within the first `bytes`.
int BytesOf(QStringView text, qsizetype units, UINT codePage = CP_ACP);
qsizetype UnitsOf(QStringView text, qsizetype bytes, UINT codePage = CP_ACP);

// Copies what fits into `size` bytes with its terminator and answers the length copied; never cuts a
// double-byte character.
LRESULT CopyText(const QByteArray& text, LPARAM buffer, WPARAM size);
