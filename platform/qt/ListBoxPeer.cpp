#include "ListBoxPeer.h"

#include "MessageTable.h"
#include "Texts.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>
#include <array>
#include <utility>

namespace {

// Rows as high as the list box says.
class RowDelegate final : public QStyledItemDelegate
{
public:
    RowDelegate(QObject* parent, const int& height) : QStyledItemDelegate(parent), m_height(height) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(),
                m_height ? m_height : option.fontMetrics.height()};
    }

private:
    const int& m_height;
};

QAbstractItemView::SelectionMode ModeOf(DWORD style)
{
    if (style & LBS_NOSEL)
        return QAbstractItemView::NoSelection;
    if (style & LBS_EXTENDEDSEL)
        return QAbstractItemView::ExtendedSelection;
    return style & LBS_MULTIPLESEL ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection;
}

constexpr std::array<WPARAM, 9> kListKeys = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN, VK_HOME,
                                             VK_END,  VK_PRIOR, VK_NEXT, VK_SPACE};

} // namespace

class ListBoxPeer::View final : public QListWidget
{
public:
    explicit View(ListBoxPeer& peer) : m_peer(peer) {}

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        m_peer.m_toldSincePress = false;
        QListWidget::mousePressEvent(event);
    }

    // A click tells a choice, also where it was made before.
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        QListWidget::mouseReleaseEvent(event);
        if (!m_peer.m_toldSincePress && itemAt(event->position().toPoint()))
            m_peer.SelectionChanged();
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        QListWidget::mouseDoubleClickEvent(event);
        if (itemAt(event->position().toPoint()))
            m_peer.Told(LBN_DBLCLK);
    }

private:
    ListBoxPeer& m_peer;
};

ListBoxPeer::ListBoxPeer(const PeerRequest& request, PeerEvents& events)
    : WindowPeer(request, events), m_list(new View(*this))
{
    m_list->setItemDelegate(new RowDelegate(m_list, m_itemHeight));
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setSelectionMode(ModeOf(request.style));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollBarPolicy(!(request.style & WS_VSCROLL)         ? Qt::ScrollBarAlwaysOff
                                       : request.style & LBS_DISABLENOSCROLL ? Qt::ScrollBarAlwaysOn
                                                                             : Qt::ScrollBarAsNeeded);
    m_list->setEnabled(IsEnabled());
    QObject::connect(m_list, &QListWidget::itemSelectionChanged, m_list, [this] { SelectionChanged(); });
    Adopt(m_list);
    SetStyle(request.style, request.exStyle);
    SetClient(request.client);
}

void ListBoxPeer::SetFont(const QFont& font)
{
    WindowPeer::SetFont(font);
    if (!Widget() || !Window())
        return;
    m_list->doItemsLayout();
    ShowWholeRows();
}

void ListBoxPeer::SetStyle(DWORD style, DWORD exStyle)
{
    WindowPeer::SetStyle(style, exStyle);
    const bool framed = style & WS_BORDER || exStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE);
    if (Widget())
        m_list->setFrameShape(framed ? QFrame::StyledPanel : QFrame::NoFrame);
}

void ListBoxPeer::Told(WORD code)
{
    if (Style() & LBS_NOTIFY)
        Notify(code);
}

void ListBoxPeer::SelectionChanged()
{
    if (m_quiet)
        return;
    m_toldSincePress = true;
    Told(LBN_SELCHANGE);
}

bool ListBoxPeer::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr std::array<MessageRow<ListBoxPeer>, 37> kRows = {{
        {LB_ADDSTRING, &ListBoxPeer::OnAddString},
        {LB_INSERTSTRING, &ListBoxPeer::OnInsertString},
        {LB_DELETESTRING, &ListBoxPeer::OnDeleteString},
        {LB_RESETCONTENT, &ListBoxPeer::OnResetContent},
        {LB_GETCOUNT, &ListBoxPeer::OnGetCount},
        {LB_GETTEXT, &ListBoxPeer::OnGetText},
        {LB_GETTEXTLEN, &ListBoxPeer::OnGetTextLen},
        {LB_GETITEMDATA, &ListBoxPeer::OnGetItemData},
        {LB_SETITEMDATA, &ListBoxPeer::OnSetItemData},
        {LB_FINDSTRING, &ListBoxPeer::OnFindString},
        {LB_FINDSTRINGEXACT, &ListBoxPeer::OnFindStringExact},
        {LB_SELECTSTRING, &ListBoxPeer::OnSelectString},
        {LB_GETCURSEL, &ListBoxPeer::OnGetCurSel},
        {LB_SETCURSEL, &ListBoxPeer::OnSetCurSel},
        {LB_GETSEL, &ListBoxPeer::OnGetSel},
        {LB_SETSEL, &ListBoxPeer::OnSetSel},
        {LB_SELITEMRANGE, &ListBoxPeer::OnSelItemRange},
        {LB_SELITEMRANGEEX, &ListBoxPeer::OnSelItemRangeEx},
        {LB_GETSELCOUNT, &ListBoxPeer::OnGetSelCount},
        {LB_GETSELITEMS, &ListBoxPeer::OnGetSelItems},
        {LB_GETTOPINDEX, &ListBoxPeer::OnGetTopIndex},
        {LB_SETTOPINDEX, &ListBoxPeer::OnSetTopIndex},
        {LB_GETITEMHEIGHT, &ListBoxPeer::OnGetItemHeight},
        {LB_SETITEMHEIGHT, &ListBoxPeer::OnSetItemHeight},
        {LB_GETITEMRECT, &ListBoxPeer::OnGetItemRect},
        {LB_GETCARETINDEX, &ListBoxPeer::OnGetCaretIndex},
        {LB_SETCARETINDEX, &ListBoxPeer::OnSetCaretIndex},
        {LB_GETANCHORINDEX, &ListBoxPeer::OnGetAnchorIndex},
        {LB_SETANCHORINDEX, &ListBoxPeer::OnSetAnchorIndex},
        {LB_GETHORIZONTALEXTENT, &ListBoxPeer::OnGetHorizontalExtent},
        {LB_SETHORIZONTALEXTENT, &ListBoxPeer::OnSetHorizontalExtent},
        {WM_GETDLGCODE, &ListBoxPeer::OnGetDlgCode},
        {WM_SETFOCUS, &ListBoxPeer::OnSetFocus},
        {WM_KILLFOCUS, &ListBoxPeer::OnKillFocus},
        {WM_KEYDOWN, &ListBoxPeer::OnKeyDown},
        {WM_CHAR, &ListBoxPeer::OnChar},
        {WM_SIZE, &ListBoxPeer::OnSize},
    }};
    if (!Widget())
        return false;
    return HandleMessage<ListBoxPeer>(*this, kRows, message, wParam, lParam, result);
}

LRESULT ListBoxPeer::Insert(int index, LPARAM text)
{
    const QString shown = FromAnsi(AnsiOf(text));
    const bool outer = std::exchange(m_quiet, true);
    m_items.Insert(index, shown, AnsiOf(text));
    m_list->insertItem(index, shown);
    m_quiet = outer;
    return index;
}

LRESULT ListBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    const QString shown = FromAnsi(AnsiOf(text));
    return Insert(Style() & LBS_SORT ? m_items.SortedPlace(shown) : m_items.Count(), text);
}

LRESULT ListBoxPeer::OnInsertString(WPARAM index, LPARAM text)
{
    const int place = static_cast<int>(index);
    if (place == -1)
        return Insert(m_items.Count(), text);
    return place >= 0 && place <= m_items.Count() ? Insert(place, text) : LB_ERR;
}

LRESULT ListBoxPeer::OnDeleteString(WPARAM index, LPARAM)
{
    if (!m_items.Has(index))
        return LB_ERR;
    const int row = static_cast<int>(index);
    const bool outer = std::exchange(m_quiet, true);
    const bool wasChosen = m_list->item(row)->isSelected();
    m_items.Remove(row);
    delete m_list->takeItem(row);
    if (wasChosen && !IsMultiple())
        m_list->clearSelection(); // the toolkit would choose a neighbour
    m_quiet = outer;
    return m_items.Count();
}

LRESULT ListBoxPeer::OnResetContent(WPARAM, LPARAM)
{
    const bool outer = std::exchange(m_quiet, true);
    m_items.Clear();
    m_list->clear();
    m_anchor = LB_ERR;
    m_quiet = outer;
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnGetItemData(WPARAM index, LPARAM)
{
    return m_items.Has(index) ? m_items.Data(index) : LB_ERR;
}

LRESULT ListBoxPeer::OnSetItemData(WPARAM index, LPARAM data)
{
    if (!m_items.Has(index))
        return LB_ERR;
    m_items.Data(index) = data;
    return TRUE;
}

LRESULT ListBoxPeer::OnFindString(WPARAM after, LPARAM text)
{
    return m_items.Find(static_cast<int>(after), FromAnsi(AnsiOf(text)), false);
}

LRESULT ListBoxPeer::OnFindStringExact(WPARAM after, LPARAM text)
{
    return m_items.Find(static_cast<int>(after), FromAnsi(AnsiOf(text)), true);
}

LRESULT ListBoxPeer::OnSelectString(WPARAM after, LPARAM text)
{
    const LRESULT found = OnFindString(after, text);
    if (found == LB_ERR)
        return LB_ERR;
    if (IsMultiple())
        OnSetSel(TRUE, found);
    else
        SelectOne(static_cast<int>(found));
    return found;
}

void ListBoxPeer::SelectOne(int index)
{
    const bool outer = std::exchange(m_quiet, true);
    m_list->clearSelection();
    m_list->setCurrentRow(index);
    m_anchor = index;
    m_quiet = outer;
}

void ListBoxPeer::SelectRange(int first, int last, bool selected)
{
    const bool outer = std::exchange(m_quiet, true);
    for (int row = std::max(first, 0); row <= std::min(last, m_items.Count() - 1); ++row)
        m_list->item(row)->setSelected(selected);
    m_quiet = outer;
}

// With several choices the item that has the keyboard.
LRESULT ListBoxPeer::OnGetCurSel(WPARAM, LPARAM)
{
    if (IsMultiple())
        return m_items.Count() ? std::max(m_list->currentRow(), 0) : LB_ERR;
    const auto chosen = m_list->selectedItems();
    return chosen.isEmpty() ? LB_ERR : m_list->row(chosen.first());
}

LRESULT ListBoxPeer::OnSetCurSel(WPARAM index, LPARAM)
{
    const int row = static_cast<int>(index);
    if (IsMultiple() || row < -1 || row >= m_items.Count())
        return LB_ERR;
    SelectOne(row);
    return row;
}

LRESULT ListBoxPeer::OnGetSel(WPARAM index, LPARAM)
{
    return m_items.Has(index) ? m_list->item(static_cast<int>(index))->isSelected() : LB_ERR;
}

LRESULT ListBoxPeer::OnSetSel(WPARAM selected, LPARAM index)
{
    const int row = static_cast<int>(index);
    if (!IsMultiple() || row < -1 || row >= m_items.Count())
        return LB_ERR;
    if (row == -1) {
        SelectRange(0, m_items.Count() - 1, selected != 0);
        return LB_OKAY;
    }
    SelectRange(row, row, selected != 0);
    m_list->setCurrentRow(row, QItemSelectionModel::NoUpdate);
    m_anchor = row;
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnSelItemRange(WPARAM selected, LPARAM range)
{
    if (!IsMultiple())
        return LB_ERR;
    SelectRange(LOWORD(range), HIWORD(range), selected != 0);
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnSelItemRangeEx(WPARAM first, LPARAM last)
{
    if (!IsMultiple())
        return LB_ERR;
    const auto [from, to] = std::minmax({static_cast<int>(first), static_cast<int>(last)});
    SelectRange(from, to, from == static_cast<int>(first));
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnGetSelCount(WPARAM, LPARAM)
{
    return IsMultiple() ? m_list->selectedItems().size() : LB_ERR;
}

LRESULT ListBoxPeer::OnGetSelItems(WPARAM most, LPARAM items)
{
    if (!IsMultiple())
        return LB_ERR;
    auto* to = reinterpret_cast<int*>(items);
    WPARAM count = 0;
    for (int row = 0; row < m_items.Count() && count < most; ++row)
        if (m_list->item(row)->isSelected())
            to[count++] = row;
    return static_cast<LRESULT>(count);
}

LRESULT ListBoxPeer::OnGetTopIndex(WPARAM, LPARAM)
{
    m_list->doItemsLayout();
    return std::max(m_list->indexAt(QPoint(0, 0)).row(), 0);
}

LRESULT ListBoxPeer::OnSetTopIndex(WPARAM index, LPARAM)
{
    if (!m_items.Has(index))
        return LB_ERR;
    m_list->doItemsLayout();
    m_list->scrollToItem(m_list->item(static_cast<int>(index)), QAbstractItemView::PositionAtTop);
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnGetItemHeight(WPARAM, LPARAM)
{
    return m_itemHeight ? m_itemHeight : m_list->fontMetrics().height();
}

LRESULT ListBoxPeer::OnSetItemHeight(WPARAM, LPARAM height)
{
    m_itemHeight = static_cast<int>(LOWORD(height));
    m_list->doItemsLayout();
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnGetItemRect(WPARAM index, LPARAM rect)
{
    auto* to = reinterpret_cast<RECT*>(rect);
    if (!to || !m_items.Has(index))
        return LB_ERR;
    m_list->doItemsLayout();
    const QRect row = m_list->visualItemRect(m_list->item(static_cast<int>(index)));
    *to = {0, row.top(), m_list->viewport()->width(), row.top() + row.height()};
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnGetCaretIndex(WPARAM, LPARAM)
{
    return std::max(m_list->currentRow(), 0);
}

LRESULT ListBoxPeer::OnSetCaretIndex(WPARAM index, LPARAM)
{
    if (!m_items.Has(index) || !IsMultiple())
        return LB_ERR;
    m_list->setCurrentRow(static_cast<int>(index), QItemSelectionModel::NoUpdate);
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnSetAnchorIndex(WPARAM index, LPARAM)
{
    if (!m_items.Has(index))
        return LB_ERR;
    m_anchor = static_cast<int>(index);
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnSetHorizontalExtent(WPARAM extent, LPARAM)
{
    m_extent = static_cast<int>(extent);
    const bool wanted = Style() & WS_HSCROLL && m_extent > m_list->viewport()->width();
    m_list->setHorizontalScrollBarPolicy(wanted ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    return LB_OKAY;
}

LRESULT ListBoxPeer::OnSetFocus(WPARAM, LPARAM)
{
    Told(LBN_SETFOCUS);
    return 0;
}

LRESULT ListBoxPeer::OnKillFocus(WPARAM, LPARAM)
{
    Told(LBN_KILLFOCUS);
    return 0;
}

LRESULT ListBoxPeer::OnKeyDown(WPARAM key, LPARAM)
{
    if (std::find(kListKeys.begin(), kListKeys.end(), key) != kListKeys.end())
        PressKey(*m_list, key);
    return 0;
}

// Shows whole items only.
LRESULT ListBoxPeer::OnSize(WPARAM, LPARAM)
{
    ShowWholeRows();
    return 0;
}

// Takes away what the last row has not room enough in.
void ListBoxPeer::ShowWholeRows()
{
    RECT inside;
    GetClientRect(Window(), &inside);
    const int excess = inside.bottom % std::max(static_cast<int>(OnGetItemHeight(0, 0)), 1);
    if (Style() & LBS_NOINTEGRALHEIGHT || excess == inside.bottom || !excess)
        return;
    RECT place;
    GetWindowRect(Window(), &place);
    SetWindowPos(Window(), nullptr, 0, 0, place.right - place.left, place.bottom - place.top - excess,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Typing goes to the item that begins so.
LRESULT ListBoxPeer::OnChar(WPARAM character, LPARAM)
{
    const QString typed = m_typed.Add(character);
    if (!typed.isEmpty() && typed[0] > QLatin1Char(' '))
        m_list->keyboardSearch(typed);
    return 0;
}
