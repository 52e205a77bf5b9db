// Combo boxes: an open list below a text, one that drops down, or one that drops down without a text field.
//
// One that drops down is as high as a line of text; the height that it is given beyond is its list's.
// Differs: the text field and the list are no windows of their own.
#pragma once

#include "ComboBody.h"
#include "Editor.h"
#include "Items.h"
#include "Peer.h"

#include <optional>

class ComboBoxPeer final : public WindowPeer
{
public:
    explicit ComboBoxPeer(PeerRequest& request, PeerEvents& events);

    void SetText(std::string_view text) override;
    void SetFont(const QFont& font) override;
    bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    DWORD Type() const { return Style() & 3; }
    bool IsOpen() const { return Type() == CBS_SIMPLE; }
    DWORD EditStyle() const;
    ComboBodyUse BodyUse();
    int ClosedHeight() const;
    int RowHeight() const;
    void ShowRows();
    void Edited();
    void Chosen(int row);
    void ChooseRow(int row);
    void ShowInField(int row);
    void KeepingText(const std::function<void()>& change);
    LRESULT Insert(int index, LPARAM text);

    LRESULT OnAddString(WPARAM, LPARAM text);
    LRESULT OnInsertString(WPARAM index, LPARAM text);
    LRESULT OnDeleteString(WPARAM index, LPARAM);
    LRESULT OnResetContent(WPARAM, LPARAM);
    LRESULT OnGetCount(WPARAM, LPARAM) { return m_items.Count(); }
    LRESULT OnGetLbText(WPARAM index, LPARAM buffer) { return m_items.CopyText(index, buffer); }
    LRESULT OnGetLbTextLen(WPARAM index, LPARAM) { return m_items.TextLength(index); }
    LRESULT OnGetItemData(WPARAM index, LPARAM);
    LRESULT OnSetItemData(WPARAM index, LPARAM data);
    LRESULT OnFindString(WPARAM after, LPARAM text);
    LRESULT OnFindStringExact(WPARAM after, LPARAM text);
    LRESULT OnSelectString(WPARAM after, LPARAM text);
    LRESULT OnGetCurSel(WPARAM, LPARAM) { return m_current; }
    LRESULT OnSetCurSel(WPARAM index, LPARAM);
    LRESULT OnLimitText(WPARAM limit, LPARAM);
    LRESULT OnGetEditSel(WPARAM start, LPARAM end);
    LRESULT OnSetEditSel(WPARAM, LPARAM selection);
    LRESULT OnShowDropDown(WPARAM open, LPARAM);
    LRESULT OnGetDroppedState(WPARAM, LPARAM);
    LRESULT OnGetDroppedControlRect(WPARAM, LPARAM rect);
    LRESULT OnGetDroppedWidth(WPARAM, LPARAM);
    LRESULT OnSetDroppedWidth(WPARAM width, LPARAM);
    LRESULT OnGetItemHeight(WPARAM part, LPARAM);
    LRESULT OnGetTopIndex(WPARAM, LPARAM);
    LRESULT OnSetTopIndex(WPARAM index, LPARAM);
    LRESULT OnSetText(WPARAM, LPARAM text);
    LRESULT OnGetText(WPARAM size, LPARAM buffer);
    LRESULT OnGetTextLength(WPARAM, LPARAM);
    LRESULT OnCut(WPARAM, LPARAM);
    LRESULT OnCopy(WPARAM, LPARAM);
    LRESULT OnPaste(WPARAM, LPARAM);
    LRESULT OnClear(WPARAM, LPARAM);
    LRESULT OnGetDlgCode(WPARAM key, LPARAM);
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnSysKeyDown(WPARAM key, LPARAM);
    LRESULT OnChar(WPARAM character, LPARAM);
    LRESULT OnWindowPosChanging(WPARAM, LPARAM position);

    QByteArray AnsiText() const;

    Items m_items;
    std::optional<Editor> m_editor; // none: a list without a text field
    std::unique_ptr<ComboBody> m_body;
    TypedCharacters m_typed;
    int m_current = CB_ERR;
    int m_dropHeight = 0; // of the whole, with its list
    int m_dropWidth = 0;
    bool m_dropped = false;
};
