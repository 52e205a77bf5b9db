#include "StaticPeer.h"

#include "Drawing.h"
#include "MessageTable.h"
#include "Texts.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QTextOption>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/qdrawutil.h>

#include <array>
#include <utility>

namespace {

// Cuts the middle of a path, so that its last part stays.
QString PathElided(const QString& text, const QFontMetrics& metrics, int width)
{
    const qsizetype cut = text.lastIndexOf(QLatin1Char('\\'));
    const QString last = cut < 0 ? QString() : text.mid(cut);
    const int left = width - metrics.horizontalAdvance(last);
    if (cut <= 0 || left <= 0)
        return metrics.elidedText(text, Qt::ElideMiddle, width);
    return metrics.elidedText(text.left(cut), Qt::ElideRight, left) + last;
}

QString Elided(const QString& text, DWORD style, const QFontMetrics& metrics, int width)
{
    if (metrics.size(Qt::TextShowMnemonic, text).width() <= width)
        return text;
    return (style & SS_ELLIPSISMASK) == SS_PATHELLIPSIS ? PathElided(text, metrics, width)
                                                        : metrics.elidedText(text, Qt::ElideRight, width);
}

int TextFlags(DWORD style)
{
    const DWORD type = style & SS_TYPEMASK;
    int flags = Qt::TextExpandTabs | (style & SS_NOPREFIX ? 0 : Qt::TextShowMnemonic);
    flags |= type == SS_CENTER ? Qt::AlignHCenter : type == SS_RIGHT ? Qt::AlignRight : Qt::AlignLeft;
    flags |= style & SS_CENTERIMAGE ? Qt::AlignVCenter : Qt::AlignTop;
    const bool wraps = (type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT) &&
                       !(style & (SS_CENTERIMAGE | SS_ELLIPSISMASK));
    flags |= wraps ? Qt::TextWordWrap : 0;
    return flags | (type == SS_SIMPLE || style & SS_ELLIPSISMASK ? Qt::TextSingleLine : 0);
}

bool IsText(DWORD type)
{
    return type <= SS_RIGHT || type == SS_SIMPLE || type == SS_LEFTNOWORDWRAP;
}

QColor ColourOf(DWORD type, const QPalette& palette)
{
    switch (type) {
    case SS_BLACKRECT:
    case SS_BLACKFRAME:
        return palette.color(QPalette::WindowText);
    case SS_GRAYRECT:
    case SS_GRAYFRAME:
        return palette.color(QPalette::Mid);
    default:
        return palette.color(QPalette::Base);
    }
}

void DrawEtchedFrame(QPainter& painter, const QRect& rect, const QPalette& palette)
{
    qDrawShadeRect(&painter, rect, palette, true, 1, 0);
}

} // namespace

class StaticPeer::Label final : public QWidget
{
public:
    explicit Label(StaticPeer& peer) : m_peer(peer) {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        const DWORD border = m_peer.Style() & SS_SUNKEN ? WS_EX_STATICEDGE : 0;
        DrawBorder(painter, rect(), palette(), m_peer.Style(), m_peer.ExStyle() | border);
        const int width = BorderWidth(m_peer.Style(), m_peer.ExStyle() | border);
        Draw(painter, rect().adjusted(width, width, -width, -width));
    }

    void mousePressEvent(QMouseEvent*) override { m_peer.Told(STN_CLICKED); }
    void mouseDoubleClickEvent(QMouseEvent*) override { m_peer.Told(STN_DBLCLK); }

private:
    void Draw(QStylePainter& painter, const QRect& inside)
    {
        const DWORD type = m_peer.Type();
        if (IsText(type))
            DrawText(painter, inside);
        else if (type == SS_ICON)
            DrawIcon(painter, inside);
        else if (type == SS_ETCHEDHORZ)
            DrawEtchedLine(painter, inside.topLeft(), inside.topRight(), palette());
        else if (type == SS_ETCHEDVERT)
            DrawEtchedLine(painter, inside.topLeft(), inside.bottomLeft(), palette());
        else if (type == SS_ETCHEDFRAME)
            DrawEtchedFrame(painter, inside, palette());
        else if (type >= SS_BLACKRECT && type <= SS_WHITERECT)
            painter.fillRect(inside, ColourOf(type, palette()));
        else if (type >= SS_BLACKFRAME && type <= SS_WHITEFRAME)
            qDrawPlainRect(&painter, inside, ColourOf(type, palette()), 1);
    }

    void DrawText(QStylePainter& painter, const QRect& inside)
    {
        const DWORD style = m_peer.Style();
        const QString text = style & SS_ELLIPSISMASK
                                 ? Elided(m_peer.m_text, style, fontMetrics(), inside.width())
                                 : m_peer.m_text;
        painter.setClipRect(inside);
        if (style & SS_EDITCONTROL)
            return DrawAsEdit(painter, inside);
        painter.drawItemText(inside, TextFlags(style), palette(), isEnabled(), text, QPalette::WindowText);
    }

    // Breaks words that are wider than the line, as an edit does.
    void DrawAsEdit(QStylePainter& painter, const QRect& inside)
    {
        constexpr int kTab = 8; // average characters
        QTextOption option(Qt::AlignLeft | Qt::AlignTop);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setTabStopDistance(kTab * fontMetrics().averageCharWidth());
        painter.setPen(
            palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
        painter.drawText(QRectF(inside), m_peer.m_text, option);
    }

    void DrawIcon(QStylePainter& painter, const QRect& inside)
    {
        const QPixmap picture = StockIcon(*style(), m_peer.m_icon, kIconSize);
        const auto align = m_peer.Style() & SS_CENTERIMAGE ? Qt::AlignCenter : Qt::AlignTop | Qt::AlignLeft;
        painter.drawItemPixmap(inside, static_cast<int>(align), picture);
    }

    StaticPeer& m_peer;
};

StaticPeer::StaticPeer(const PeerRequest& request, PeerEvents& events) : WindowPeer(request, events)
{
    auto* label = new Label(*this);
    label->setEnabled(IsEnabled());
    Adopt(label);
    ApplyMouse();
    SetText(request.text);
    SetClient(request.client);
}

void StaticPeer::SetText(std::string_view text)
{
    m_text = FromAnsi(text);
    m_text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    Repaint();
}

void StaticPeer::SetStyle(DWORD style, DWORD exStyle)
{
    WindowPeer::SetStyle(style, exStyle);
    ApplyMouse();
    Repaint();
}

// Without SS_NOTIFY the mouse goes through to what lies behind.
void StaticPeer::ApplyMouse()
{
    if (Widget())
        Widget()->setAttribute(Qt::WA_TransparentForMouseEvents, !(Style() & SS_NOTIFY));
}

void StaticPeer::ApplyEnabled(bool enabled)
{
    WindowPeer::ApplyEnabled(enabled);
    Told(enabled ? STN_ENABLE : STN_DISABLE);
}

void StaticPeer::Told(WORD code)
{
    if (Style() & SS_NOTIFY)
        Notify(code);
}

bool StaticPeer::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr std::array<MessageRow<StaticPeer>, 5> kRows = {{
        {STM_SETICON, &StaticPeer::OnSetIcon},
        {STM_GETICON, &StaticPeer::OnGetIcon},
        {STM_SETIMAGE, &StaticPeer::OnSetImage},
        {STM_GETIMAGE, &StaticPeer::OnGetImage},
        {WM_GETDLGCODE, &StaticPeer::OnGetDlgCode},
    }};
    return HandleMessage<StaticPeer>(*this, kRows, message, wParam, lParam, result);
}

LRESULT StaticPeer::OnSetIcon(WPARAM icon, LPARAM)
{
    if (Type() != SS_ICON)
        return 0;
    const HICON before = std::exchange(m_icon, reinterpret_cast<HICON>(icon));
    Repaint();
    if (m_icon && !(Style() & (SS_CENTERIMAGE | SS_REALSIZECONTROL)))
        TakeIconSize();
    return reinterpret_cast<LRESULT>(before);
}

void StaticPeer::TakeIconSize()
{
    const int side = kIconSize + 2 * BorderWidth(Style(), ExStyle());
    SetWindowPos(Window(), nullptr, 0, 0, side, side, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT StaticPeer::OnSetImage(WPARAM kind, LPARAM image)
{
    return kind == IMAGE_ICON ? OnSetIcon(static_cast<WPARAM>(image), 0) : 0;
}

LRESULT StaticPeer::OnGetImage(WPARAM kind, LPARAM)
{
    return kind == IMAGE_ICON ? reinterpret_cast<LRESULT>(m_icon) : 0;
}
