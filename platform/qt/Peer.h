// A window's widget and what both sides say to it.
//
// One class per kind of control is derived from it. Threads: the user-interface thread.
#pragma once

#include "Backend.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <functional>

class WindowPeer
{
public:
    WindowPeer(const PeerRequest& request, PeerEvents& events);
    virtual ~WindowPeer();
    WindowPeer(const WindowPeer&) = delete;
    WindowPeer& operator=(const WindowPeer&) = delete;

    HWND Window() const { return m_window; } // null once it is destroyed
    QWidget* Widget() const { return m_widget; }
    // Whether it is shown and enabled the adapter knows.
    DWORD Style() const
    {
        constexpr DWORD kState = WS_VISIBLE | WS_DISABLED;
        return (m_style & ~kState) | (static_cast<DWORD>(GetWindowLongA(m_window, GWL_STYLE)) & kState);
    }
    DWORD ExStyle() const { return m_exStyle; }
    bool IsChild() const { return m_style & WS_CHILD; }
    bool IsEnabled() const { return m_enabled; }
    // The parent of a child, the owner of any other.
    WindowPeer* Parent() const { return m_parent; }
    int Depth() const { return m_depth; } // see Burial.h

    // The window is gone: nothing more is told of it, and it is not to be seen.
    void Retire();

    // These are WindowBackend's.
    void SetClient(const RECT& client);
    virtual void Show(int command);
    void Enable(bool enabled);
    virtual void SetText(std::string_view text) = 0;
    virtual void SetFont(const QFont& font);
    virtual void SetStyle(DWORD style, DWORD exStyle);
    virtual void SetParent(WindowPeer* parent);
    void Raise();
    void Lower();
    virtual void Activate();
    void Focus();
    void Repaint();
    virtual bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // What the widget covers round the client area on each side.
    virtual QMargins Border() const { return {}; }

protected:
    // The derived class's constructor hands its widget over, not to be seen yet and in no place.
    void Adopt(QWidget* widget);
    virtual void ApplyEnabled(bool enabled);
    virtual void Place(const QRect& outer);
    // Where the widget goes: the client area with the border, in the coordinates of the parent's widget.
    QRect Outer() const;
    void Notify(WORD code);
    PeerEvents& Events() const { return m_events; }
    const RECT& Client() const { return m_client; }

private:
    void FollowParent();

    PeerEvents& m_events;
    HWND m_window;
    WindowPeer* m_parent;
    DWORD m_style;
    DWORD m_exStyle;
    RECT m_client;
    bool m_enabled;
    int m_depth;
    QPointer<QWidget> m_widget; // the toolkit may delete it first
};

// The peer whose widget this is, or has it inside; null for any other object.
WindowPeer* PeerAround(const QObject* object);

void ForEachPeer(const std::function<void(WindowPeer&)>& visit);

// A new peer of the kind that the request names, null for an unknown one; may change the request's rectangle.
WindowPeer* MakePeer(PeerRequest& request, PeerEvents& events);
