#include "Peer.h"

#include "Burial.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

namespace {

std::unordered_map<const QObject*, WindowPeer*>& Peers()
{
    static auto& peers = *new std::unordered_map<const QObject*, WindowPeer*>;
    return peers;
}

QRect ToRect(const RECT& rect)
{
    return {rect.left, rect.top, std::max<LONG>(rect.right - rect.left, 0),
            std::max<LONG>(rect.bottom - rect.top, 0)};
}

} // namespace

WindowPeer::WindowPeer(const PeerRequest& request, PeerEvents& events)
    : m_events(events), m_window(request.window), m_parent(request.parent), m_style(request.style),
      m_exStyle(request.exStyle), m_client(request.client), m_enabled(!(request.style & WS_DISABLED)),
      m_depth(ToolkitCall::DepthBefore())
{
    FollowParent();
}

// A widget dies with its parent's, which therefore must be kept as long.
void WindowPeer::FollowParent()
{
    for (WindowPeer* parent = m_parent; parent; parent = parent->m_parent)
        parent->m_depth = std::min(parent->m_depth, m_depth);
}

WindowPeer::~WindowPeer()
{
    if (m_widget)
        Peers().erase(m_widget);
    delete m_widget;
}

void WindowPeer::Adopt(QWidget* widget)
{
    m_widget = widget;
    Peers().emplace(widget, this);
    QObject::connect(widget, &QObject::destroyed, [](QObject* gone) { Peers().erase(gone); });
    widget->setAttribute(Qt::WA_QuitOnClose, false); // the host's own loop is not ours to end
    if (IsChild() && m_parent && m_parent->Widget()) {
        // A group box that lets the mouse through would let its children's through as well.
        m_parent->Widget()->setAttribute(Qt::WA_TransparentForMouseEvents, false);
        widget->setParent(m_parent->Widget());
        widget->lower(); // a new child lies below its siblings
    }
    widget->hide();
}

void WindowPeer::Retire()
{
    m_window = nullptr;
    m_parent = nullptr;
    if (m_widget)
        m_widget->hide();
}

void WindowPeer::Notify(WORD code)
{
    if (m_window)
        m_events.Notify(m_window, code);
}

QRect WindowPeer::Outer() const
{
    QRect outer = ToRect(m_client).marginsAdded(Border());
    if (IsChild() && m_parent) {
        const QMargins parent = m_parent->Border();
        outer.translate(parent.left(), parent.top());
    }
    return outer;
}

void WindowPeer::SetClient(const RECT& client)
{
    m_client = client;
    Place(Outer());
}

void WindowPeer::Place(const QRect& outer)
{
    if (m_widget)
        m_widget->setGeometry(outer);
}

void WindowPeer::Show(int command)
{
    if (m_widget)
        m_widget->setVisible(command != SW_HIDE);
}

void WindowPeer::Enable(bool enabled)
{
    m_enabled = enabled;
    ApplyEnabled(enabled);
}

void WindowPeer::ApplyEnabled(bool enabled)
{
    if (m_widget)
        m_widget->setEnabled(enabled);
}

void WindowPeer::SetFont(const QFont& font)
{
    if (m_widget)
        m_widget->setFont(font);
}

void WindowPeer::SetStyle(DWORD style, DWORD exStyle)
{
    const QMargins before = Border();
    m_style = style;
    m_exStyle = exStyle;
    if (Border() != before)
        SetClient(m_client);
}

void WindowPeer::SetParent(WindowPeer* parent)
{
    m_parent = parent;
    FollowParent();
    if (!m_widget || !IsChild())
        return;
    const bool visible = !m_widget->isHidden();
    m_widget->setParent(parent ? parent->Widget() : nullptr);
    SetClient(m_client);
    m_widget->setVisible(visible);
}

void WindowPeer::Raise()
{
    if (m_widget)
        m_widget->raise();
}

void WindowPeer::Lower()
{
    if (m_widget)
        m_widget->lower();
}

void WindowPeer::Activate()
{
    if (m_widget)
        m_widget->activateWindow();
}

void WindowPeer::Focus()
{
    if (m_widget)
        m_widget->setFocus(Qt::OtherFocusReason);
}

void WindowPeer::Repaint()
{
    if (m_widget)
        m_widget->update();
}

bool WindowPeer::Message(UINT, WPARAM, LPARAM, LRESULT&)
{
    return false;
}

void ForEachPeer(const std::function<void(WindowPeer&)>& visit)
{
    std::vector<WindowPeer*> all;
    for (const auto& [widget, peer] : Peers())
        all.push_back(peer);
    for (WindowPeer* peer : all)
        visit(*peer);
}

WindowPeer* PeerAround(const QObject* object)
{
    auto* widget = qobject_cast<const QWidget*>(object);
    while (widget) {
        if (const auto place = Peers().find(widget); place != Peers().end())
            return place->second;
        widget = widget->isWindow() ? nullptr : widget->parentWidget(); // a pop-up list is no part of us
    }
    return nullptr;
}
