// An edit's text as its box keeps it: a line's end is one unit, and a CR or LF of its own another.
#pragma once

#include <windows.h>

#include <QtCore/QString>

QString ToBox(QString text); // CR LF ends a line
QString FromBox(QString text);

// The bytes that a text of the box has outside, in the code page; and the units of it whose bytes lie whole
// within the first `bytes`.
int BoxBytes(QStringView text, UINT codePage);
qsizetype BoxUnits(QStringView text, qsizetype bytes, UINT codePage);
