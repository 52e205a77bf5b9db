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

// From and to the ANSI code page; a null text counts as empty.
QString FromAnsi(const char* text);
QByteArray ToAnsi(QStringView text);

// Bytes in the ANSI code page of the first `units` of `text`, and the other way round: the units whose bytes
// lie whole within the first `bytes`.
int BytesOf(QStringView text, qsizetype units);
qsizetype UnitsOf(QStringView text, qsizetype bytes);

// Copies what fits into `size` bytes with its terminator and answers the length copied; never cuts a
// double-byte character.
LRESULT CopyText(const QByteArray& text, LPARAM buffer, WPARAM size);
