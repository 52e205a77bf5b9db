// List boxes: one choice, several, or a range.
//
// Differs: one column; owner-drawn lists show their texts.
#pragma once

#include "Items.h"
#include "Keys.h"
#include "Peer.h"

class QListWidget;

class ListBoxPeer final : public WindowPeer
{
public:
    ListBoxPeer(const PeerRequest& request, PeerEvents& events);

    void SetText(std::string_view) override {} // never to be seen
    void SetFont(const QFont& font) override;
    void SetStyle(DWORD style, DWORD exStyle) override;
    bool Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void ShowWholeRows();
    class View;

    bool IsMultiple() const { return Style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL); }
    void Told(WORD code);
    void SelectionChanged();
    LRESULT Insert(int index, LPARAM text);
    void SelectOne(int index);
    void SelectRange(int first, int last, bool selected);

    LRESULT OnAddString(WPARAM, LPARAM text);
    LRESULT OnInsertString(WPARAM index, LPARAM text);
    LRESULT OnDeleteString(WPARAM index, LPARAM);
    LRESULT OnResetContent(WPARAM, LPARAM);
    LRESULT OnGetCount(WPARAM, LPARAM) { return m_items.Count(); }
    LRESULT OnGetText(WPARAM index, LPARAM buffer) { return m_items.CopyText(index, buffer); }
    LRESULT OnGetTextLen(WPARAM index, LPARAM) { return m_items.TextLength(index); }
    LRESULT OnGetItemData(WPARAM index, LPARAM);
    LRESULT OnSetItemData(WPARAM index, LPARAM data);
    LRESULT OnFindString(WPARAM after, LPARAM text);
    LRESULT OnFindStringExact(WPARAM after, LPARAM text);
    LRESULT OnSelectString(WPARAM after, LPARAM text);
    LRESULT OnGetCurSel(WPARAM, LPARAM);
    LRESULT OnSetCurSel(WPARAM index, LPARAM);
    LRESULT OnGetSel(WPARAM index, LPARAM);
    LRESULT OnSetSel(WPARAM selected, LPARAM index);
    LRESULT OnSelItemRange(WPARAM selected, LPARAM range);
    LRESULT OnSelItemRangeEx(WPARAM first, LPARAM last);
    LRESULT OnGetSelCount(WPARAM, LPARAM);
    LRESULT OnGetSelItems(WPARAM most, LPARAM items);
    LRESULT OnGetTopIndex(WPARAM, LPARAM);
    LRESULT OnSetTopIndex(WPARAM index, LPARAM);
    LRESULT OnGetItemHeight(WPARAM, LPARAM);
    LRESULT OnSetItemHeight(WPARAM, LPARAM height);
    LRESULT OnGetItemRect(WPARAM index, LPARAM rect);
    LRESULT OnGetCaretIndex(WPARAM, LPARAM);
    LRESULT OnSetCaretIndex(WPARAM index, LPARAM);
    LRESULT OnGetAnchorIndex(WPARAM, LPARAM) { return m_anchor; }
    LRESULT OnSetAnchorIndex(WPARAM index, LPARAM);
    LRESULT OnGetHorizontalExtent(WPARAM, LPARAM) { return m_extent; }
    LRESULT OnSetHorizontalExtent(WPARAM extent, LPARAM);
    LRESULT OnGetDlgCode(WPARAM, LPARAM) { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
    LRESULT OnSetFocus(WPARAM, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnSize(WPARAM, LPARAM size);
    LRESULT OnChar(WPARAM character, LPARAM);

    Items m_items;
    QListWidget* m_list;
    TypedCharacters m_typed;
    int m_itemHeight = 0; // 0: the font's
    int m_anchor = LB_ERR;
    LRESULT m_extent = 0;
    bool m_quiet = false; // the change at hand is the program's
    bool m_toldSincePress = false;
};
