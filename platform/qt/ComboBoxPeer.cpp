#include "ComboBoxPeer.h"

#include "MessageTable.h"
#include "Texts.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>

#include <algorithm>
#include <array>

namespace {

constexpr int kFrameOfText = 8; // what the closed combo box has above and below its line
constexpr std::array<WPARAM, 6> kListKeys = {VK_UP, VK_DOWN, VK_PRIOR, VK_NEXT, VK_HOME, VK_END};
constexpr size_t kKeysBesideText = 4; // the rest move the caret where there is one

} // namespace

ComboBoxPeer::ComboBoxPeer(PeerRequest& request, PeerEvents& events) : WindowPeer(request, events)
{
    QLineEdit* line = nullptr;
    if (Type() != CBS_DROPDOWNLIST) {
        m_editor.emplace(EditStyle(),
                         EditorUse{[this] { Edited(); }, [] {}, [this] { return Window() && Widget(); }});
        line = qobject_cast<QLineEdit*>(m_editor->Box().Widget());
    }
    m_body = IsOpen() ? MakeOpenList(line, BodyUse()) : MakeDropDown(line, BodyUse());
    m_body->Widget()->setEnabled(IsEnabled());
    Adopt(m_body->Widget());
    m_dropHeight = request.client.bottom - request.client.top;
    if (!IsOpen())
        request.client.bottom = request.client.top + ClosedHeight();
    ShowRows();
    SetClient(request.client); // its text is what is chosen or typed later
}

DWORD ComboBoxPeer::EditStyle() const
{
    return ES_AUTOHSCROLL | (Style() & CBS_UPPERCASE ? ES_UPPERCASE : 0) |
           (Style() & CBS_LOWERCASE ? ES_LOWERCASE : 0);
}

ComboBodyUse ComboBoxPeer::BodyUse()
{
    return {[this] {
                m_dropped = true;
                Notify(CBN_DROPDOWN);
            },
            [this] {
                m_dropped = false;
                Notify(CBN_SELENDCANCEL);
                Notify(CBN_CLOSEUP);
            },
            [this](int row) { Chosen(row); }, [this] { Notify(CBN_DBLCLK); }};
}

int ComboBoxPeer::RowHeight() const
{
    return Widget()->fontMetrics().height();
}

int ComboBoxPeer::ClosedHeight() const
{
    return RowHeight() + kFrameOfText;
}

void ComboBoxPeer::ShowRows()
{
    m_body->SetRowsShown(std::max((m_dropHeight - ClosedHeight()) / RowHeight(), 1));
}

void ComboBoxPeer::SetText(std::string_view text)
{
    if (m_editor && Widget())
        m_editor->SetText(text);
}

// The item's text in the field; none empties it.
void ComboBoxPeer::ShowInField(int row)
{
    m_editor->SetText(m_items.Has(static_cast<WPARAM>(row)) ? m_items.Bytes(row).toStdString() : "");
}

// The window's height follows its font.
void ComboBoxPeer::SetFont(const QFont& font)
{
    WindowPeer::SetFont(font);
    if (!Widget() || IsOpen() || !Window())
        return;
    ShowRows();
    const RECT& client = Client();
    SetWindowPos(Window(), nullptr, 0, 0, client.right - client.left, ClosedHeight(),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// What is typed is no choice from the list any more.
void ComboBoxPeer::Edited()
{
    m_current = CB_ERR;
    Notify(CBN_EDITUPDATE);
    Notify(CBN_EDITCHANGE);
}

void ComboBoxPeer::Chosen(int row)
{
    m_current = row;
    if (m_editor && m_items.Has(static_cast<WPARAM>(row)))
        ShowInField(row);
    if (!IsOpen())
        Notify(CBN_SELENDOK);
    if (std::exchange(m_dropped, false))
        Notify(CBN_CLOSEUP);
    Notify(CBN_SELCHANGE);
}

void ComboBoxPeer::ChooseRow(int row)
{
    m_current = row;
    if (!m_editor) {
        m_body->Choose(row);
        return;
    }
    const Editor::Quiet quiet(*m_editor);
    m_body->Choose(row);
    ShowInField(row);
}

bool ComboBoxPeer::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr std::array<MessageRow<ComboBoxPeer>, 39> kRows = {{
        {CB_ADDSTRING, &ComboBoxPeer::OnAddString},
        {CB_INSERTSTRING, &ComboBoxPeer::OnInsertString},
        {CB_DELETESTRING, &ComboBoxPeer::OnDeleteString},
        {CB_RESETCONTENT, &ComboBoxPeer::OnResetContent},
        {CB_GETCOUNT, &ComboBoxPeer::OnGetCount},
        {CB_GETLBTEXT, &ComboBoxPeer::OnGetLbText},
        {CB_GETLBTEXTLEN, &ComboBoxPeer::OnGetLbTextLen},
        {CB_GETITEMDATA, &ComboBoxPeer::OnGetItemData},
        {CB_SETITEMDATA, &ComboBoxPeer::OnSetItemData},
        {CB_FINDSTRING, &ComboBoxPeer::OnFindString},
        {CB_FINDSTRINGEXACT, &ComboBoxPeer::OnFindStringExact},
        {CB_SELECTSTRING, &ComboBoxPeer::OnSelectString},
        {CB_GETCURSEL, &ComboBoxPeer::OnGetCurSel},
        {CB_SETCURSEL, &ComboBoxPeer::OnSetCurSel},
        {CB_LIMITTEXT, &ComboBoxPeer::OnLimitText},
        {CB_GETEDITSEL, &ComboBoxPeer::OnGetEditSel},
        {CB_SETEDITSEL, &ComboBoxPeer::OnSetEditSel},
        {CB_SHOWDROPDOWN, &ComboBoxPeer::OnShowDropDown},
        {CB_GETDROPPEDSTATE, &ComboBoxPeer::OnGetDroppedState},
        {CB_GETDROPPEDCONTROLRECT, &ComboBoxPeer::OnGetDroppedControlRect},
        {CB_GETDROPPEDWIDTH, &ComboBoxPeer::OnGetDroppedWidth},
        {CB_SETDROPPEDWIDTH, &ComboBoxPeer::OnSetDroppedWidth},
        {CB_GETITEMHEIGHT, &ComboBoxPeer::OnGetItemHeight},
        {CB_GETTOPINDEX, &ComboBoxPeer::OnGetTopIndex},
        {CB_SETTOPINDEX, &ComboBoxPeer::OnSetTopIndex},
        {WM_SETTEXT, &ComboBoxPeer::OnSetText},
        {WM_GETTEXT, &ComboBoxPeer::OnGetText},
        {WM_GETTEXTLENGTH, &ComboBoxPeer::OnGetTextLength},
        {WM_CUT, &ComboBoxPeer::OnCut},
        {WM_COPY, &ComboBoxPeer::OnCopy},
        {WM_PASTE, &ComboBoxPeer::OnPaste},
        {WM_CLEAR, &ComboBoxPeer::OnClear},
        {WM_GETDLGCODE, &ComboBoxPeer::OnGetDlgCode},
        {WM_SETFOCUS, &ComboBoxPeer::OnSetFocus},
        {WM_KILLFOCUS, &ComboBoxPeer::OnKillFocus},
        {WM_KEYDOWN, &ComboBoxPeer::OnKeyDown},
        {WM_SYSKEYDOWN, &ComboBoxPeer::OnSysKeyDown},
        {WM_CHAR, &ComboBoxPeer::OnChar},
        {WM_WINDOWPOSCHANGING, &ComboBoxPeer::OnWindowPosChanging},
    }};
    if (!Widget())
        return false;
    if (message == WM_SYSKEYDOWN && wParam != VK_UP && wParam != VK_DOWN)
        return false; // the system's
    return HandleMessage<ComboBoxPeer>(*this, kRows, message, wParam, lParam, result);
}

// The toolkit shows the chosen item anew whenever its list changes.
void ComboBoxPeer::KeepingText(const std::function<void()>& change)
{
    if (!m_editor) {
        change();
        return;
    }
    const Editor::Quiet quiet(*m_editor);
    const QString edited = m_editor->Box().Text();
    const EditSelection selection = m_editor->Box().Selection();
    change();
    if (m_editor->Box().Text() == edited)
        return;
    m_editor->Box().SetText(edited);
    m_editor->Box().Select(selection);
}

LRESULT ComboBoxPeer::Insert(int index, LPARAM text)
{
    const QString shown = FromAnsi(AnsiOf(text));
    m_items.Insert(index, shown, AnsiOf(text));
    KeepingText([&] { m_body->Insert(index, shown); });
    m_current += m_current >= index ? 1 : 0;
    return index;
}

LRESULT ComboBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    const QString shown = FromAnsi(AnsiOf(text));
    return Insert(Style() & CBS_SORT ? m_items.SortedPlace(shown) : m_items.Count(), text);
}

LRESULT ComboBoxPeer::OnInsertString(WPARAM index, LPARAM text)
{
    const int place = static_cast<int>(index);
    if (place == -1)
        return Insert(m_items.Count(), text);
    return place >= 0 && place <= m_items.Count() ? Insert(place, text) : CB_ERR;
}

LRESULT ComboBoxPeer::OnDeleteString(WPARAM index, LPARAM)
{
    if (!m_items.Has(index))
        return CB_ERR;
    const int row = static_cast<int>(index);
    KeepingText([&] {
        if (row == m_current)
            m_body->Choose(CB_ERR);
        m_body->Remove(row);
    });
    m_items.Remove(row);
    m_current = row == m_current ? CB_ERR : m_current - (row < m_current ? 1 : 0);
    return m_items.Count();
}

LRESULT ComboBoxPeer::OnResetContent(WPARAM, LPARAM)
{
    ChooseRow(CB_ERR);
    m_items.Clear();
    m_body->Clear();
    return CB_OKAY;
}

LRESULT ComboBoxPeer::OnGetItemData(WPARAM index, LPARAM)
{
    return m_items.Has(index) ? m_items.Data(index) : CB_ERR;
}

LRESULT ComboBoxPeer::OnSetItemData(WPARAM index, LPARAM data)
{
    if (!m_items.Has(index))
        return CB_ERR;
    m_items.Data(index) = data;
    return TRUE;
}

LRESULT ComboBoxPeer::OnFindString(WPARAM after, LPARAM text)
{
    return m_items.Find(static_cast<int>(after), FromAnsi(AnsiOf(text)), false);
}

LRESULT ComboBoxPeer::OnFindStringExact(WPARAM after, LPARAM text)
{
    return m_items.Find(static_cast<int>(after), FromAnsi(AnsiOf(text)), true);
}

LRESULT ComboBoxPeer::OnSelectString(WPARAM after, LPARAM text)
{
    const LRESULT found = OnFindString(after, text);
    if (found != CB_ERR)
        ChooseRow(static_cast<int>(found));
    return found;
}

LRESULT ComboBoxPeer::OnSetCurSel(WPARAM index, LPARAM)
{
    const int row = static_cast<int>(index);
    if (row < -1 || row >= m_items.Count())
        return CB_ERR;
    ChooseRow(row);
    return row;
}

LRESULT ComboBoxPeer::OnLimitText(WPARAM limit, LPARAM)
{
    if (m_editor)
        m_editor->SetLimit(limit);
    return TRUE;
}

LRESULT ComboBoxPeer::OnGetEditSel(WPARAM start, LPARAM end)
{
    if (!m_editor)
        return CB_ERR;
    const auto [from, to] = m_editor->SelectedBytes();
    if (auto* at = reinterpret_cast<DWORD*>(start))
        *at = static_cast<DWORD>(from);
    if (auto* at = reinterpret_cast<DWORD*>(end))
        *at = static_cast<DWORD>(to);
    return MAKELONG(from, to);
}

LRESULT ComboBoxPeer::OnSetEditSel(WPARAM, LPARAM selection)
{
    if (!m_editor)
        return CB_ERR;
    m_editor->SelectBytes(static_cast<short>(LOWORD(selection)), static_cast<short>(HIWORD(selection)));
    return TRUE;
}

LRESULT ComboBoxPeer::OnShowDropDown(WPARAM open, LPARAM)
{
    m_body->Drop(open != 0);
    return TRUE;
}

LRESULT ComboBoxPeer::OnGetDroppedState(WPARAM, LPARAM)
{
    return m_dropped;
}

// On the screen, with the list as it would be open.
LRESULT ComboBoxPeer::OnGetDroppedControlRect(WPARAM, LPARAM rect)
{
    auto* to = reinterpret_cast<RECT*>(rect);
    if (!to)
        return FALSE;
    GetWindowRect(Window(), to);
    to->right = to->left + static_cast<LONG>(OnGetDroppedWidth(0, 0));
    to->bottom = to->top + std::max(m_dropHeight, static_cast<int>(to->bottom - to->top));
    return TRUE;
}

LRESULT ComboBoxPeer::OnGetDroppedWidth(WPARAM, LPARAM)
{
    return std::max(m_dropWidth, static_cast<int>(Client().right - Client().left));
}

LRESULT ComboBoxPeer::OnSetDroppedWidth(WPARAM width, LPARAM)
{
    if (IsOpen())
        return CB_ERR;
    m_dropWidth = static_cast<int>(width);
    m_body->View().setMinimumWidth(m_dropWidth);
    return OnGetDroppedWidth(0, 0);
}

// -1: of the text, else of the list's rows.
LRESULT ComboBoxPeer::OnGetItemHeight(WPARAM part, LPARAM)
{
    constexpr int kFrameInside = 4;
    return static_cast<int>(part) == -1 ? RowHeight() + kFrameInside : RowHeight();
}

LRESULT ComboBoxPeer::OnGetTopIndex(WPARAM, LPARAM)
{
    return std::max(m_body->View().indexAt(QPoint(0, 0)).row(), 0);
}

LRESULT ComboBoxPeer::OnSetTopIndex(WPARAM index, LPARAM)
{
    if (!m_items.Has(index))
        return CB_ERR;
    QAbstractItemView& view = m_body->View();
    view.scrollTo(view.model()->index(static_cast<int>(index), 0), QAbstractItemView::PositionAtTop);
    return CB_OKAY;
}

LRESULT ComboBoxPeer::OnSetText(WPARAM, LPARAM text)
{
    if (!m_editor)
        return CB_ERR;
    SetText(AnsiOf(text));
    return TRUE;
}

QByteArray ComboBoxPeer::AnsiText() const
{
    if (m_editor)
        return m_editor->AnsiText();
    return m_current < 0 ? QByteArray() : m_items.Bytes(m_current);
}

LRESULT ComboBoxPeer::OnGetText(WPARAM size, LPARAM buffer)
{
    return CopyText(AnsiText(), buffer, size);
}

LRESULT ComboBoxPeer::OnGetTextLength(WPARAM, LPARAM)
{
    return AnsiText().size();
}

LRESULT ComboBoxPeer::OnCut(WPARAM, LPARAM)
{
    if (m_editor)
        m_editor->Cut();
    return 0;
}

LRESULT ComboBoxPeer::OnCopy(WPARAM, LPARAM)
{
    if (m_editor)
        m_editor->Copy();
    return 0;
}

LRESULT ComboBoxPeer::OnPaste(WPARAM, LPARAM)
{
    if (m_editor)
        m_editor->Paste();
    return 0;
}

LRESULT ComboBoxPeer::OnClear(WPARAM, LPARAM)
{
    if (m_editor)
        m_editor->Clear();
    return 0;
}

// An open list wants the keys that close it.
LRESULT ComboBoxPeer::OnGetDlgCode(WPARAM key, LPARAM)
{
    const LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const bool closes = (key == VK_RETURN || key == VK_ESCAPE) && m_dropped;
    return closes ? code | DLGC_WANTMESSAGE : code;
}

LRESULT ComboBoxPeer::OnSetFocus(WPARAM, LPARAM)
{
    if (m_editor)
        m_editor->SelectBytes(0, -1);
    Notify(CBN_SETFOCUS);
    return 0;
}

LRESULT ComboBoxPeer::OnKillFocus(WPARAM, LPARAM)
{
    Notify(CBN_SELENDCANCEL);
    Notify(CBN_KILLFOCUS);
    return 0;
}

LRESULT ComboBoxPeer::OnKeyDown(WPARAM key, LPARAM)
{
    const bool closes = m_dropped && (key == VK_ESCAPE || key == VK_RETURN);
    if (closes || (key == VK_F4 && !IsOpen())) {
        m_body->Drop(!m_dropped);
        return 0;
    }
    const auto end =
        kListKeys.begin() + static_cast<std::ptrdiff_t>(m_editor ? kKeysBesideText : kListKeys.size());
    if (std::find(kListKeys.begin(), end, key) != end)
        m_body->PressKey(key);
    else if (m_editor)
        m_editor->KeyDown(key);
    return 0;
}

// Alt with an arrow opens and closes the list.
LRESULT ComboBoxPeer::OnSysKeyDown(WPARAM, LPARAM)
{
    if (!IsOpen())
        m_body->Drop(!m_dropped);
    return 0;
}

LRESULT ComboBoxPeer::OnChar(WPARAM character, LPARAM)
{
    if (m_editor) {
        m_editor->Char(character, false, false);
        return 0;
    }
    const QString typed = m_typed.Add(character);
    if (!typed.isEmpty() && typed[0] > QLatin1Char(' '))
        m_body->Search(typed);
    return 0;
}

// A height beyond a line's is the list's.
LRESULT ComboBoxPeer::OnWindowPosChanging(WPARAM, LPARAM position)
{
    auto* place = reinterpret_cast<WINDOWPOS*>(position);
    if (IsOpen() || place->flags & SWP_NOSIZE)
        return 0;
    if (place->cy > ClosedHeight()) {
        m_dropHeight = place->cy;
        ShowRows();
    }
    place->cy = ClosedHeight();
    return 0;
}
