// Keys between the toolkit and the adapter.
//
// A key press for one of our widgets becomes a message in the adapter's queue; when the message comes back to
// its control, the control acts. Input methods go to the widgets directly.
#pragma once

#include "Backend.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

class WindowPeer;
class QKeyEvent;
class QWidget;

// Stands before every event of the application: takes keys out, and keeps input from disabled windows.
class InputFilter final : public QObject
{
public:
    explicit InputFilter(PeerEvents& events);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool TakeKey(WindowPeer& peer, const QKeyEvent& event);

    PeerEvents& m_events;
};

// Has the widget do what it does with a key (a virtual-key code with the shift keys as they are), or with a
// typed text.
void PressKey(QWidget& widget, WPARAM key);
void TypeText(QWidget& widget, const QString& text);

// Puts the bytes of WM_CHAR together to characters of the ANSI code page.
class TypedCharacters
{
public:
    // The character that `byte` completes; empty while more must come.
    QString Add(WPARAM byte);

private:
    QByteArray m_bytes;
};
