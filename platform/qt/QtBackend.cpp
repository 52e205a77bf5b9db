#include "QtBackend.h"

#include "Application.h"
#include "Burial.h"
#include "Fonts.h"
#include "Peer.h"

#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <array>
#include <memory>

namespace {

struct CursorShape {
    WORD number; // behind IDC_...
    Qt::CursorShape shape;
};
constexpr std::array<CursorShape, 13> kCursors = {{
    {0, Qt::BlankCursor},
    {32512, Qt::ArrowCursor},
    {32513, Qt::IBeamCursor},
    {32514, Qt::WaitCursor},
    {32515, Qt::CrossCursor},
    {32516, Qt::UpArrowCursor},
    {32642, Qt::SizeFDiagCursor},
    {32643, Qt::SizeBDiagCursor},
    {32644, Qt::SizeHorCursor},
    {32645, Qt::SizeVerCursor},
    {32646, Qt::SizeAllCursor},
    {32648, Qt::ForbiddenCursor},
    {32649, Qt::PointingHandCursor},
}};

Qt::CursorShape ShapeOf(WORD number)
{
    for (const auto& row : kCursors)
        if (row.number == number)
            return row.shape;
    return number == 32650 ? Qt::BusyCursor : Qt::ArrowCursor;
}

RECT FromRect(const QRect& rect)
{
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}

} // namespace

QtBackend::QtBackend(PeerEvents& events, bool hasDisplay)
    : m_events(events), m_loop(events), m_filter(events), m_hasDisplay(hasDisplay)
{
    QObject::connect(qApp, &QApplication::focusChanged, &m_loop,
                     [this](QWidget* from, QWidget* to) { TellFocus(from, to); });
}

void QtBackend::TellFocus(QWidget* from, QWidget* to)
{
    WindowPeer* const entered = PeerAround(to);
    if (PeerAround(from) == entered)
        return;
    m_events.FocusMoved(entered ? entered->Window() : nullptr);
}

WindowPeer* QtBackend::Create(PeerRequest& request)
{
    const ToolkitCall call;
    return m_hasDisplay ? MakePeer(request, m_events) : nullptr;
}

void QtBackend::Destroy(WindowPeer* peer)
{
    const ToolkitCall call;
    std::unique_ptr<WindowPeer> owned(peer);
    peer->Retire();
    Bury(std::move(owned));
}

void QtBackend::SetClient(WindowPeer* peer, const RECT& client)
{
    const ToolkitCall call;
    peer->SetClient(client);
}

void QtBackend::Show(WindowPeer* peer, int command)
{
    const ToolkitCall call;
    peer->Show(command);
}

void QtBackend::Enable(WindowPeer* peer, bool enabled)
{
    const ToolkitCall call;
    peer->Enable(enabled);
}

void QtBackend::SetText(WindowPeer* peer, std::string_view text)
{
    const ToolkitCall call;
    peer->SetText(text);
}

void QtBackend::SetFont(WindowPeer* peer, const FontSpec& font)
{
    const ToolkitCall call;
    peer->SetFont(FontOf(font));
}

void QtBackend::SetStyle(WindowPeer* peer, DWORD style, DWORD exStyle)
{
    const ToolkitCall call;
    peer->SetStyle(style, exStyle);
}

void QtBackend::SetParent(WindowPeer* peer, WindowPeer* parent)
{
    const ToolkitCall call;
    peer->SetParent(parent);
}

void QtBackend::Raise(WindowPeer* peer)
{
    const ToolkitCall call;
    peer->Raise();
}

void QtBackend::Lower(WindowPeer* peer)
{
    const ToolkitCall call;
    peer->Lower();
}

void QtBackend::Activate(WindowPeer* peer)
{
    const ToolkitCall call;
    peer->Activate();
}

void QtBackend::Focus(WindowPeer* peer)
{
    const ToolkitCall call;
    if (peer)
        peer->Focus();
    else if (QWidget* focused = QApplication::focusWidget())
        focused->clearFocus();
}

void QtBackend::Repaint(WindowPeer* peer)
{
    const ToolkitCall call;
    peer->Repaint();
}

bool QtBackend::Message(WindowPeer* peer, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    const ToolkitCall call;
    if (peer->Message(message, wParam, lParam, result))
        return true;
    if (message != WM_SETREDRAW || !peer->Widget())
        return false;
    peer->Widget()->setUpdatesEnabled(wParam != 0);
    result = 0;
    return true;
}

void QtBackend::SetCursor(WORD shape)
{
    const ToolkitCall call;
    QGuiApplication::restoreOverrideCursor();
    if (const Qt::CursorShape wanted = ShapeOf(shape); wanted != Qt::ArrowCursor)
        QGuiApplication::setOverrideCursor(wanted);
}

void QtBackend::Wait(DWORD milliseconds)
{
    const ToolkitCall call;
    m_loop.Wait(milliseconds);
}

SIZE QtBackend::TextExtent(const FontSpec& font, std::u16string_view text)
{
    return ExtentOf(font, text);
}

FontMeasures QtBackend::Measures(const FontSpec& font)
{
    return MeasuresOf(font);
}

SIZE QtBackend::ScreenSize()
{
    const QSize size = QGuiApplication::primaryScreen()->size();
    return {size.width(), size.height()};
}

RECT QtBackend::WorkArea()
{
    return FromRect(QGuiApplication::primaryScreen()->availableGeometry());
}

void QtBackend::Bell()
{
    const ToolkitCall call;
    QApplication::beep();
}

extern "C" __attribute__((visibility("default"))) WindowBackend* ZekCreateWindowBackend(PeerEvents* events)
{
    const bool hasDisplay = StartApplication();
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return nullptr;
    return new QtBackend(*events, hasDisplay);
}
