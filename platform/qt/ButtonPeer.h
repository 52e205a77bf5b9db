// Push buttons, check boxes, radio buttons and group boxes.
#pragma once

#include "Peer.h"

class QAbstractButton;

class ButtonPeer final : public WindowPeer
{
public:
    ButtonPeer(const PeerRequest& request, PeerEvents& events);

    void SetText(std::string_view text) override;
    void SetFont(const QFont& font) override;
    void SetStyle(DWORD style, DWORD exStyle) override;
    bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // The user pressed and released it, or pressed it twice; false: the second press is an ordinary one.
    void Clicked();
    bool DoubleClicked();
    const QString& Text() const { return m_text; }

private:
    DWORD Type() const { return Style() & BS_TYPEMASK; }
    QWidget* MakeWidget();
    void Place(const QRect& outer) override;
    void ShowCheck();
    void ShowText();
    void SetCheck(UINT check);
    void CheckInGroup();
    void KeepTabStop();

    LRESULT OnGetCheck(WPARAM, LPARAM) { return m_check; }
    LRESULT OnSetCheck(WPARAM check, LPARAM);
    LRESULT OnGetState(WPARAM, LPARAM);
    LRESULT OnSetState(WPARAM pushed, LPARAM);
    LRESULT OnSetStyle(WPARAM style, LPARAM);
    LRESULT OnClick(WPARAM, LPARAM);
    LRESULT OnGetImage(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(m_icon); }
    LRESULT OnSetImage(WPARAM kind, LPARAM image);
    LRESULT OnGetDlgCode(WPARAM, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnKeyUp(WPARAM key, LPARAM);

    QAbstractButton* m_button = nullptr; // null: a group box
    QString m_text;
    HICON m_icon = nullptr;
    UINT m_check = BST_UNCHECKED;
};
