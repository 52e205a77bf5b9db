#include "Keys.h"

#include "Peer.h"
#include "PlainWindow.h"
#include "Texts.h"
#include "VirtualKeys.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include <utility>

namespace {

bool g_replaying = false; // the event at hand is a control's own doing

constexpr LPARAM kContext = 1 << 29; // Alt is down
constexpr LPARAM kWasDown = 1 << 30;
constexpr LPARAM kReleased = LPARAM{1} << 31;
constexpr LPARAM kExtended = 1 << 24;

bool IsKeyPress(const QEvent& event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::ShortcutOverride;
}

bool IsPointing(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::Enter:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

// The disabled window that the peer is or lies in. A control shows itself that it is disabled.
PlainWindow* DisabledAround(WindowPeer* peer)
{
    for (; peer; peer = peer->IsChild() ? peer->Parent() : nullptr)
        if (auto* plain = dynamic_cast<PlainWindow*>(peer); plain && !plain->IsEnabled())
            return plain;
    return nullptr;
}

UINT MessageOf(const QKeyEvent& event, WPARAM key, bool alt)
{
    const bool control = event.modifiers() & Qt::ControlModifier;
    const bool system = (alt && !control) || key == VK_F10 || key == VK_MENU;
    if (event.type() == QEvent::KeyPress)
        return system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    return system ? WM_SYSKEYUP : WM_KEYUP;
}

LPARAM DataOf(const QKeyEvent& event, WPARAM key, bool alt)
{
    LPARAM data = 1 | static_cast<LPARAM>(ScanCodeOf(event) & 0xff) << 16;
    data |= IsExtendedKey(event, key) ? kExtended : 0;
    data |= alt ? kContext : 0;
    if (event.type() == QEvent::KeyRelease)
        return data | kWasDown | kReleased;
    return event.isAutoRepeat() ? data | kWasDown : data;
}

// What the key types on Windows: nothing for the delete key.
QString TypedBy(const QKeyEvent& event)
{
    return event.type() == QEvent::KeyPress && event.key() != Qt::Key_Delete ? event.text() : QString();
}

Qt::KeyboardModifiers ShiftKeys()
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, GetKeyState(VK_SHIFT) < 0);
    modifiers.setFlag(Qt::ControlModifier, GetKeyState(VK_CONTROL) < 0);
    modifiers.setFlag(Qt::AltModifier, GetKeyState(VK_MENU) < 0);
    return modifiers;
}

void Replay(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const bool outer = std::exchange(g_replaying, true);
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &event);
    g_replaying = outer;
}

} // namespace

InputFilter::InputFilter(PeerEvents& events) : m_events(events)
{
    qApp->installEventFilter(this);
}

bool InputFilter::eventFilter(QObject* object, QEvent* event)
{
    const bool key = IsKeyPress(*event);
    if (g_replaying || (!key && !IsPointing(*event)))
        return false;
    WindowPeer* peer = PeerAround(object);
    if (!peer)
        return false;
    PlainWindow* disabled = DisabledAround(peer);
    if (disabled && event->type() == QEvent::MouseButtonPress)
        if (WindowPeer* popup = disabled->EnabledPopup())
            popup->Activate();
    if (disabled || !key)
        return disabled;
    event->accept(); // of ShortcutOverride: no mnemonic of the toolkit's own
    return event->type() == QEvent::ShortcutOverride || TakeKey(*peer, static_cast<QKeyEvent&>(*event));
}

bool InputFilter::TakeKey(WindowPeer& peer, const QKeyEvent& event)
{
    const QString typed = TypedBy(event);
    constexpr WPARAM kPacket = 0xe7; // VK_PACKET: a text without a key
    const WPARAM known = VirtualKeyOf(event);
    const WPARAM key = known || typed.isEmpty() ? known : kPacket;
    const bool alt = event.modifiers() & Qt::AltModifier || key == VK_MENU;
    // A release that only makes way for a repetition does not exist on Windows.
    if (event.type() == QEvent::KeyRelease && event.isAutoRepeat())
        return true;
    if (key && peer.Window())
        m_events.Key(peer.Window(), MessageOf(event, key, alt), key, DataOf(event, key, alt),
                     {reinterpret_cast<const char16_t*>(typed.utf16()), static_cast<size_t>(typed.size())});
    return true;
}

void PressKey(QWidget& widget, WPARAM key)
{
    if (const int toolkitKey = ToolkitKeyOf(key))
        Replay(widget, toolkitKey, ShiftKeys(), key == VK_SPACE ? QStringLiteral(" ") : QString());
}

void TypeText(QWidget& widget, const QString& text)
{
    Replay(widget, Qt::Key_unknown, Qt::NoModifier, text);
}

QString TypedCharacters::Add(WPARAM byte)
{
    m_bytes += static_cast<char>(byte);
    const auto first = static_cast<BYTE>(m_bytes[0]);
    int wanted = 1;
    if (GetACP() == CP_UTF8 && first >= 0xc0)
        wanted = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    else if (IsDBCSLeadByte(first))
        wanted = 2;
    if (m_bytes.size() < wanted)
        return {};
    return FromAnsi(std::exchange(m_bytes, {}).toStdString());
}
