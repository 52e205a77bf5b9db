// What the toolkit's own widgets do not draw: a control's border as its style says, and stock icons.
#pragma once

#include <windows.h>

#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtGui/QPixmap>

class QStyle;

// How wide the border of WS_BORDER, WS_EX_CLIENTEDGE and WS_EX_STATICEDGE is.
int BorderWidth(DWORD style, DWORD exStyle);
void DrawBorder(QPainter& painter, const QRect& rect, const QPalette& palette, DWORD style, DWORD exStyle);

// A line that looks cut into the surface.
void DrawEtchedLine(QPainter& painter, const QPoint& from, const QPoint& to, const QPalette& palette);

// That of an icon's number (IDI_...); null for an unknown one.
QPixmap StockIcon(const QStyle& style, HICON icon, int size);
constexpr int kIconSize = 32;

// Breaks lines at blanks so that none is wider than `width`, as far as its words let it.
QString Wrapped(const QString& text, const QFontMetrics& metrics, int width);
