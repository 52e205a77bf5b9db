// The table that the adapter calls, over the toolkit.
#pragma once

#include "Backend.h"
#include "Keys.h"
#include "Loop.h"

class QtBackend final : public WindowBackend
{
public:
    // The application object is there.
    QtBackend(PeerEvents& events, bool hasDisplay);

    bool HasDisplay() const override { return m_hasDisplay; }
    WindowPeer* Create(PeerRequest& request) override;
    void Destroy(WindowPeer* peer) override;
    void SetClient(WindowPeer* peer, const RECT& client) override;
    void Show(WindowPeer* peer, int command) override;
    void Enable(WindowPeer* peer, bool enabled) override;
    void SetText(WindowPeer* peer, std::string_view text) override;
    void SetFont(WindowPeer* peer, const FontSpec& font) override;
    void SetStyle(WindowPeer* peer, DWORD style, DWORD exStyle) override;
    void SetParent(WindowPeer* peer, WindowPeer* parent) override;
    void Raise(WindowPeer* peer) override;
    void Lower(WindowPeer* peer) override;
    void Activate(WindowPeer* peer) override;
    void Focus(WindowPeer* peer) override;
    void Repaint(WindowPeer* peer) override;
    bool Message(WindowPeer* peer, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void SetCursor(WORD shape) override;
    void Wait(DWORD milliseconds) override;
    void Wake() override { m_loop.Wake(); }
    void WakeAfter(DWORD milliseconds) override { m_loop.WakeAfter(milliseconds); }
    SIZE TextExtent(const FontSpec& font, std::u16string_view text) override;
    FontMeasures Measures(const FontSpec& font) override;
    SIZE ScreenSize() override;
    RECT WorkArea() override;
    void Bell() override;

private:
    void TellFocus(QWidget* from, QWidget* to);

    PeerEvents& m_events;
    Loop m_loop;
    InputFilter m_filter;
    bool m_hasDisplay;
};
