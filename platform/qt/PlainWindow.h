// A window that is no control: a frame, a dialog, a page of one, or an area for children.
//
// A disabled one takes no input, nor do its children, but looks as before. Where the user goes to it, its
// enabled pop-up comes to the front instead.
#pragma once

#include "Peer.h"

class PlainWindow final : public WindowPeer
{
public:
    PlainWindow(const PeerRequest& request, PeerEvents& events);

    void Show(int command) override;
    void SetText(std::string_view text) override;
    void SetStyle(DWORD style, DWORD exStyle) override;
    void SetParent(WindowPeer* parent) override;
    void Activate() override;
    // A child's frame; that of any other is the window manager's.
    QMargins Border() const override;

    // The enabled window that is to be used instead of this disabled one; null if there is none.
    WindowPeer* EnabledPopup() const;

private:
    class Area;

    void ApplyEnabled(bool) override {}
    void Place(const QRect& outer) override;
    Qt::WindowFlags Flags() const;
    QWidget* OwnerWidget() const;
    void ShowActivating(bool activating);
    void TellPlace();
    void TellState();
    void TellActive(bool active);
    bool IsDialog() const;
    bool IsResizable() const;

    QRect m_place;            // where the adapter believes the window
    Qt::WindowStates m_state; // likewise
};
