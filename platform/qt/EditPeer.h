// Edits, of one line and of many.
//
// Outside, a line end is CR LF and positions count bytes of the text's code page (see TextPage.h); a CR or LF
// of its own is kept as a character. Differs: a line scrolls as it grows without ES_AUTOHSCROLL too; the
// password character is the desktop's.
#pragma once

#include "Editor.h"
#include "Peer.h"

class EditPeer final : public WindowPeer
{
public:
    EditPeer(const PeerRequest& request, PeerEvents& events);

    void SetText(std::string_view text) override;
    void SetFont(const QFont& font) override;
    void SetStyle(DWORD style, DWORD exStyle) override;
    bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void ShowReadOnly(bool readOnly);
    void Changed();
    void TellChange();
    qsizetype LineOf(WPARAM line) const;
    qsizetype LineEnd(qsizetype line) const;
    bool LeavesToDialog(WPARAM key);

    LRESULT OnSetText(WPARAM, LPARAM text);
    LRESULT OnGetText(WPARAM size, LPARAM buffer);
    LRESULT OnGetTextLength(WPARAM, LPARAM);
    LRESULT OnGetSel(WPARAM start, LPARAM end);
    LRESULT OnSetSel(WPARAM start, LPARAM end);
    LRESULT OnReplaceSel(WPARAM undoable, LPARAM text);
    LRESULT OnScrollCaret(WPARAM, LPARAM);
    LRESULT OnGetModify(WPARAM, LPARAM) { return m_modified; }
    LRESULT OnSetModify(WPARAM modified, LPARAM);
    LRESULT OnLimitText(WPARAM limit, LPARAM);
    LRESULT OnGetLimitText(WPARAM, LPARAM);
    LRESULT OnSetReadOnly(WPARAM readOnly, LPARAM);
    LRESULT OnSetPasswordChar(WPARAM character, LPARAM);
    LRESULT OnGetPasswordChar(WPARAM, LPARAM) { return m_password; }
    LRESULT OnGetLineCount(WPARAM, LPARAM);
    LRESULT OnLineIndex(WPARAM line, LPARAM);
    LRESULT OnLineLength(WPARAM position, LPARAM);
    LRESULT OnLineFromChar(WPARAM position, LPARAM);
    LRESULT OnGetLine(WPARAM line, LPARAM buffer);
    LRESULT OnGetFirstVisibleLine(WPARAM, LPARAM);
    LRESULT OnCanUndo(WPARAM, LPARAM);
    LRESULT OnUndo(WPARAM, LPARAM);
    LRESULT OnEmptyUndoBuffer(WPARAM, LPARAM);
    LRESULT OnCut(WPARAM, LPARAM);
    LRESULT OnCopy(WPARAM, LPARAM);
    LRESULT OnPaste(WPARAM, LPARAM);
    LRESULT OnClear(WPARAM, LPARAM);
    LRESULT OnGetDlgCode(WPARAM key, LPARAM message);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnChar(WPARAM character, LPARAM);

    Editor m_editor;
    LRESULT m_password = 0;
    bool m_modified = false;
    bool m_inDialog = false; // a dialog has asked which keys it wants
};
