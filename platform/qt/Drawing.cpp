#include "Drawing.h"

#include <QtWidgets/QStyle>
#include <QtWidgets/qdrawutil.h>

#include <array>

namespace {

struct IconRow {
    ULONG_PTR number;
    QStyle::StandardPixmap pixmap;
};
constexpr std::array<IconRow, 5> kIcons = {{
    {32512, QStyle::SP_ComputerIcon},
    {32513, QStyle::SP_MessageBoxCritical},
    {32514, QStyle::SP_MessageBoxQuestion},
    {32515, QStyle::SP_MessageBoxWarning},
    {32516, QStyle::SP_MessageBoxInformation},
}};

} // namespace

int BorderWidth(DWORD style, DWORD exStyle)
{
    return (style & WS_BORDER ? 1 : 0) + (exStyle & WS_EX_CLIENTEDGE ? 2 : 0) +
           (exStyle & WS_EX_STATICEDGE ? 1 : 0);
}

void DrawBorder(QPainter& painter, const QRect& rect, const QPalette& palette, DWORD style, DWORD exStyle)
{
    if (exStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE))
        qDrawShadePanel(&painter, rect, palette, true, 1);
    else if (style & WS_BORDER)
        qDrawPlainRect(&painter, rect, palette.color(QPalette::WindowText), 1);
}

void DrawEtchedLine(QPainter& painter, const QPoint& from, const QPoint& to, const QPalette& palette)
{
    const QPoint below = from.y() == to.y() ? QPoint(0, 1) : QPoint(1, 0);
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawLine(from, to);
    painter.setPen(palette.color(QPalette::Light));
    painter.drawLine(from + below, to + below);
}

QPixmap StockIcon(const QStyle& style, HICON icon, int size)
{
    for (const auto& row : kIcons)
        if (reinterpret_cast<ULONG_PTR>(icon) == row.number)
            return style.standardIcon(row.pixmap).pixmap(size, size);
    return {};
}

QString Wrapped(const QString& text, const QFontMetrics& metrics, int width)
{
    QStringList lines;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        QString line;
        for (const QString& word : paragraph.split(QLatin1Char(' '))) {
            const QString longer = line.isNull() ? word : line + QLatin1Char(' ') + word;
            if (!line.isNull() && metrics.horizontalAdvance(longer) > width) {
                lines << line;
                line = word;
            } else {
                line = longer;
            }
        }
        lines << line;
    }
    return lines.join(QLatin1Char('\n'));
}
