#include "PlainWindow.h"

#include "Texts.h"

#include <QtCore/QThread>
#include <QtGui/QCloseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/qdrawutil.h>

#include <array>

namespace {

struct FlagOfStyle {
    DWORD style;
    Qt::WindowFlags flags;
};
// What a caption bears.
constexpr std::array<FlagOfStyle, 3> kCaptionFlags = {{
    {WS_SYSMENU, Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint},
    {WS_MINIMIZEBOX, Qt::WindowMinimizeButtonHint},
    {WS_MAXIMIZEBOX, Qt::WindowMaximizeButtonHint},
}};

bool HasCaption(DWORD style)
{
    return (style & WS_CAPTION) == WS_CAPTION;
}

// Neither WS_POPUP nor WS_CHILD: an overlapped window has a caption whatever its style says.
bool IsCaptioned(DWORD style)
{
    return HasCaption(style) || !(style & (WS_POPUP | WS_CHILD));
}

Qt::WindowStates StateOf(int command, Qt::WindowStates present)
{
    switch (command) {
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
    case SW_FORCEMINIMIZE:
        return present | Qt::WindowMinimized;
    case SW_SHOWMAXIMIZED:
        return Qt::WindowMaximized;
    case SW_RESTORE:
    case SW_SHOWNORMAL:
        return present & Qt::WindowMinimized ? present & ~Qt::WindowMinimized : Qt::WindowNoState;
    default:
        return present;
    }
}

bool ShowsWithoutActivating(int command)
{
    return command == SW_SHOWNOACTIVATE || command == SW_SHOWNA || command == SW_SHOWMINNOACTIVE;
}

RECT FromRect(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

} // namespace

// The widget. Its peer outlives it.
class PlainWindow::Area final : public QWidget
{
public:
    Area(PlainWindow& peer, QWidget* owner, Qt::WindowFlags flags) : QWidget(owner, flags), m_peer(peer) {}

protected:
    // The window is the adapter's to close. A host that quits the toolkit's loop has all windows closed first
    // and goes on where one stays, so there the answer must be true at once.
    void closeEvent(QCloseEvent* event) override
    {
        if (m_peer.Window() && m_peer.IsEnabled()) {
            m_peer.Events().SystemCommand(m_peer.Window(), SC_CLOSE);
            if (!event->spontaneous() && QThread::currentThread()->loopLevel() > 0)
                m_peer.Events().DispatchQueued();
        }
        event->setAccepted(!m_peer.Window());
    }

    void moveEvent(QMoveEvent*) override { m_peer.TellPlace(); }
    void resizeEvent(QResizeEvent*) override { m_peer.TellPlace(); }

    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange)
            m_peer.TellState();
    }

    bool event(QEvent* event) override
    {
        const bool done = QWidget::event(event);
        if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
            m_peer.TellActive(event->type() == QEvent::WindowActivate);
        return done;
    }

    void paintEvent(QPaintEvent*) override
    {
        const QMargins border = m_peer.Border();
        if (border.isNull())
            return;
        QPainter painter(this);
        if (m_peer.ExStyle() & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE) || border.left() > 1)
            qDrawShadePanel(&painter, rect(), palette(), (m_peer.ExStyle() & WS_EX_WINDOWEDGE) == 0, 1);
        else
            qDrawPlainRect(&painter, rect(), palette().color(QPalette::WindowText), 1);
    }

private:
    PlainWindow& m_peer;
};

PlainWindow::PlainWindow(const PeerRequest& request, PeerEvents& events) : WindowPeer(request, events)
{
    auto* area = new Area(*this, OwnerWidget(), Flags());
    area->setAttribute(Qt::WA_InputMethodEnabled, false);
    Adopt(area);
    SetText(request.text);
    SetClient(request.client);
}

QWidget* PlainWindow::OwnerWidget() const
{
    return !IsChild() && Parent() && Parent()->Widget() ? Parent()->Widget()->window() : nullptr;
}

// Window managers put both boxes on the caption of any other, whatever it is said to have.
bool PlainWindow::IsDialog() const
{
    return OwnerWidget() || ExStyle() & WS_EX_DLGMODALFRAME ||
           (HasCaption(Style()) && !(Style() & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX)));
}

Qt::WindowFlags PlainWindow::Flags() const
{
    if (IsChild())
        return Qt::Widget;
    Qt::WindowFlags flags = ExStyle() & WS_EX_TOOLWINDOW ? Qt::Tool : IsDialog() ? Qt::Dialog : Qt::Window;
    if (ExStyle() & WS_EX_TOPMOST)
        flags |= Qt::WindowStaysOnTopHint;
    if (!IsCaptioned(Style()))
        return flags | Qt::FramelessWindowHint;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    for (const auto& row : kCaptionFlags)
        if (Style() & row.style)
            flags |= row.flags;
    return flags;
}

QMargins PlainWindow::Border() const
{
    if (!IsChild())
        return {};
    RECT frame = {};
    AdjustWindowRectEx(&frame, Style(), FALSE, ExStyle());
    return {-frame.left, -frame.top, frame.right, frame.bottom};
}

bool PlainWindow::IsResizable() const
{
    return IsChild() || Style() & (WS_THICKFRAME | WS_MAXIMIZEBOX);
}

void PlainWindow::Place(const QRect& outer)
{
    if (IsChild() || !Widget()) {
        WindowPeer::Place(outer);
        return;
    }
    Widget()->setMinimumSize(0, 0);
    Widget()->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    Widget()->setGeometry(outer);
    m_place = Widget()->geometry();
    if (!IsResizable())
        Widget()->setFixedSize(m_place.size());
}

void PlainWindow::Show(int command)
{
    if (!Widget())
        return;
    if (IsChild() || command == SW_HIDE) {
        WindowPeer::Show(command);
        return;
    }
    ShowActivating(!ShowsWithoutActivating(command));
    m_state = StateOf(command, m_state);
    if (Widget()->windowState() != m_state)
        Widget()->setWindowState(m_state);
    Widget()->show();
}

// The toolkit asks the attribute only when it makes its window.
void PlainWindow::ShowActivating(bool activating)
{
    Widget()->setAttribute(Qt::WA_ShowWithoutActivating, !activating);
    if (QWindow* shown = Widget()->windowHandle())
        shown->setProperty("_q_showWithoutActivating", !activating);
}

void PlainWindow::SetText(std::string_view text)
{
    if (Widget())
        Widget()->setWindowTitle(FromAnsi(text));
}

void PlainWindow::SetStyle(DWORD style, DWORD exStyle)
{
    WindowPeer::SetStyle(style, exStyle);
    if (!Widget() || IsChild())
        return;
    const bool visible = Widget()->isVisible();
    if (Widget()->windowFlags() != Flags()) {
        Widget()->setWindowFlags(Flags()); // hides it
        Widget()->setGeometry(m_place);
        Widget()->setVisible(visible);
    }
}

void PlainWindow::SetParent(WindowPeer* parent)
{
    WindowPeer::SetParent(parent);
    if (!Widget() || IsChild())
        return;
    const bool visible = Widget()->isVisible();
    Widget()->setParent(OwnerWidget(), Flags());
    Widget()->setGeometry(m_place);
    Widget()->setVisible(visible);
}

void PlainWindow::Activate()
{
    if (!Widget())
        return;
    Widget()->raise();
    Widget()->activateWindow();
}

WindowPeer* PlainWindow::EnabledPopup() const
{
    WindowPeer* found = nullptr;
    ForEachPeer([this, &found](WindowPeer& peer) {
        if (peer.IsChild() || !peer.IsEnabled() || !peer.Widget() || !peer.Widget()->isVisible())
            return;
        for (WindowPeer* owner = peer.Parent(); owner; owner = owner->Parent())
            if (owner == this)
                found = &peer;
    });
    return found;
}

// Only what the adapter does not know already: the toolkit tells of its moves too.
void PlainWindow::TellPlace()
{
    if (!Window() || IsChild() || !Widget() || !Widget()->isVisible() || Widget()->isMinimized())
        return;
    if (Widget()->geometry() == m_place)
        return;
    m_place = Widget()->geometry();
    Events().Moved(Window(), FromRect(m_place));
}

void PlainWindow::TellState()
{
    if (!Window() || IsChild())
        return;
    const auto kinds = Qt::WindowMinimized | Qt::WindowMaximized;
    const Qt::WindowStates state = Widget()->windowState() & kinds;
    if (state == (m_state & kinds))
        return;
    m_state = state;
    const UINT command = state & Qt::WindowMinimized   ? SC_MINIMIZE
                         : state & Qt::WindowMaximized ? SC_MAXIMIZE
                                                       : SC_RESTORE;
    Events().SystemCommand(Window(), command);
}

void PlainWindow::TellActive(bool active)
{
    if (!Window() || IsChild())
        return;
    if (IsEnabled() || !active) {
        Events().Activated(Window(), active);
        return;
    }
    if (WindowPeer* popup = EnabledPopup())
        popup->Activate();
}
