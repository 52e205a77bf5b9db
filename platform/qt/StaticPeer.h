// Texts, icons, rectangles and lines that nobody types into.
#pragma once

#include "Peer.h"

class StaticPeer final : public WindowPeer
{
public:
    StaticPeer(const PeerRequest& request, PeerEvents& events);

    void SetText(std::string_view text) override;
    void SetStyle(DWORD style, DWORD exStyle) override;
    bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    class Label;

    DWORD Type() const { return Style() & SS_TYPEMASK; }
    void ApplyEnabled(bool enabled) override;
    void ApplyMouse();
    void TakeIconSize();
    void Told(WORD code);
    LRESULT OnSetIcon(WPARAM icon, LPARAM);
    LRESULT OnGetIcon(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(m_icon); }
    LRESULT OnSetImage(WPARAM kind, LPARAM image);
    LRESULT OnGetImage(WPARAM kind, LPARAM);
    LRESULT OnGetDlgCode(WPARAM, LPARAM) { return DLGC_STATIC; }

    QString m_text;
    HICON m_icon = nullptr;
};
