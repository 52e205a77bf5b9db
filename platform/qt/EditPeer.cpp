#include "EditPeer.h"

#include "BoxText.h"
#include "MessageTable.h"
#include "Texts.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

#include <algorithm>
#include <array>
#include <cstring>

EditPeer::EditPeer(const PeerRequest& request, PeerEvents& events)
    : WindowPeer(request, events),
      m_editor(request.style, {[this] { Changed(); }, [this] { Notify(EN_MAXTEXT); },
                               [this] { return Window() && Widget(); }})
{
    if (request.style & ES_PASSWORD)
        OnSetPasswordChar('*', 0);
    m_editor.Box().Widget()->setEnabled(IsEnabled());
    Adopt(m_editor.Box().Widget());
    SetStyle(request.style, request.exStyle);
    ShowReadOnly(request.style & ES_READONLY);
    SetText(request.text);
    SetClient(request.client);
}

void EditPeer::SetText(std::string_view text)
{
    if (!Widget())
        return;
    m_editor.SetText(text);
    m_modified = false;
}

void EditPeer::SetFont(const QFont& font)
{
    const Editor::Quiet quiet(m_editor); // a new layout is no change
    WindowPeer::SetFont(font);
}

void EditPeer::SetStyle(DWORD style, DWORD exStyle)
{
    WindowPeer::SetStyle(style, exStyle);
    m_editor.SetStyle(style);
    const bool framed = style & WS_BORDER || exStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE);
    if (auto* line = qobject_cast<QLineEdit*>(Widget()))
        line->setFrame(framed);
    else if (auto* text = qobject_cast<QPlainTextEdit*>(Widget()))
        text->setFrameShape(framed ? QFrame::StyledPanel : QFrame::NoFrame);
}

// A text that cannot be changed has the window's colour behind it.
void EditPeer::ShowReadOnly(bool readOnly)
{
    m_editor.Box().SetReadOnly(readOnly);
    QPalette palette;
    if (readOnly)
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    Widget()->setPalette(palette);
}

void EditPeer::Changed()
{
    if (!Window())
        return;
    m_modified = true;
    TellChange();
}

void EditPeer::TellChange()
{
    Notify(EN_UPDATE);
    Notify(EN_CHANGE);
}

bool EditPeer::Message(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    static constexpr std::array<MessageRow<EditPeer>, 33> kRows = {{
        {WM_SETTEXT, &EditPeer::OnSetText},
        {WM_GETTEXT, &EditPeer::OnGetText},
        {WM_GETTEXTLENGTH, &EditPeer::OnGetTextLength},
        {EM_GETSEL, &EditPeer::OnGetSel},
        {EM_SETSEL, &EditPeer::OnSetSel},
        {EM_REPLACESEL, &EditPeer::OnReplaceSel},
        {EM_SCROLLCARET, &EditPeer::OnScrollCaret},
        {EM_GETMODIFY, &EditPeer::OnGetModify},
        {EM_SETMODIFY, &EditPeer::OnSetModify},
        {EM_LIMITTEXT, &EditPeer::OnLimitText},
        {EM_GETLIMITTEXT, &EditPeer::OnGetLimitText},
        {EM_SETREADONLY, &EditPeer::OnSetReadOnly},
        {EM_SETPASSWORDCHAR, &EditPeer::OnSetPasswordChar},
        {EM_GETPASSWORDCHAR, &EditPeer::OnGetPasswordChar},
        {EM_GETLINECOUNT, &EditPeer::OnGetLineCount},
        {EM_LINEINDEX, &EditPeer::OnLineIndex},
        {EM_LINELENGTH, &EditPeer::OnLineLength},
        {EM_LINEFROMCHAR, &EditPeer::OnLineFromChar},
        {EM_GETLINE, &EditPeer::OnGetLine},
        {EM_GETFIRSTVISIBLELINE, &EditPeer::OnGetFirstVisibleLine},
        {EM_CANUNDO, &EditPeer::OnCanUndo},
        {EM_UNDO, &EditPeer::OnUndo},
        {WM_UNDO, &EditPeer::OnUndo},
        {EM_EMPTYUNDOBUFFER, &EditPeer::OnEmptyUndoBuffer},
        {WM_CUT, &EditPeer::OnCut},
        {WM_COPY, &EditPeer::OnCopy},
        {WM_PASTE, &EditPeer::OnPaste},
        {WM_CLEAR, &EditPeer::OnClear},
        {WM_GETDLGCODE, &EditPeer::OnGetDlgCode},
        {WM_SETFOCUS, &EditPeer::OnSetFocus},
        {WM_KILLFOCUS, &EditPeer::OnKillFocus},
        {WM_KEYDOWN, &EditPeer::OnKeyDown},
        {WM_CHAR, &EditPeer::OnChar},
    }};
    return Widget() && HandleMessage<EditPeer>(*this, kRows, message, wParam, lParam, result);
}

LRESULT EditPeer::OnSetText(WPARAM, LPARAM text)
{
    SetText(AnsiOf(text));
    if (!m_editor.IsMultiLine())
        TellChange();
    return TRUE;
}

LRESULT EditPeer::OnGetText(WPARAM size, LPARAM buffer)
{
    return CopyText(m_editor.AnsiText(), buffer, size);
}

LRESULT EditPeer::OnGetTextLength(WPARAM, LPARAM)
{
    return m_editor.AnsiText().size();
}

LRESULT EditPeer::OnGetSel(WPARAM start, LPARAM end)
{
    const auto [from, to] = m_editor.SelectedBytes();
    if (auto* at = reinterpret_cast<DWORD*>(start))
        *at = static_cast<DWORD>(from);
    if (auto* at = reinterpret_cast<DWORD*>(end))
        *at = static_cast<DWORD>(to);
    return from > 0xffff || to > 0xffff ? -1 : MAKELONG(from, to);
}

LRESULT EditPeer::OnSetSel(WPARAM start, LPARAM end)
{
    m_editor.SelectBytes(static_cast<int>(start), static_cast<int>(end));
    return 1;
}

LRESULT EditPeer::OnReplaceSel(WPARAM undoable, LPARAM text)
{
    m_editor.Put(ToBox(FromAnsi(AnsiOf(text))), undoable != 0);
    return 1;
}

LRESULT EditPeer::OnScrollCaret(WPARAM, LPARAM)
{
    m_editor.Box().ScrollToCaret();
    return 1;
}

LRESULT EditPeer::OnSetModify(WPARAM modified, LPARAM)
{
    m_modified = modified != 0;
    return 0;
}

LRESULT EditPeer::OnGetLineCount(WPARAM, LPARAM)
{
    return m_editor.Box().LineCount();
}

// The line's number, or for -1 that of the caret.
qsizetype EditPeer::LineOf(WPARAM line) const
{
    const auto number = static_cast<int>(line);
    return number == -1 ? m_editor.Box().LineAt(m_editor.Box().Selection().caret) : number;
}

LRESULT EditPeer::OnLineIndex(WPARAM line, LPARAM)
{
    const qsizetype start = m_editor.Box().LineStart(LineOf(line));
    return start == EditBox::kNone ? -1 : m_editor.ByteAt(start);
}

// Without the characters that end it.
qsizetype EditPeer::LineEnd(qsizetype line) const
{
    const QString text = m_editor.Box().Text();
    const qsizetype next = m_editor.Box().LineStart(line + 1);
    if (next == EditBox::kNone)
        return text.size();
    return text[next - 1] == QChar(QChar::ParagraphSeparator) ? next - 1 : next;
}

// Of the line that holds the position; for -1 what a replacement of the selection would leave of its lines.
LRESULT EditPeer::OnLineLength(WPARAM position, LPARAM)
{
    const auto byte = static_cast<int>(position);
    if (!m_editor.IsMultiLine())
        return m_editor.AnsiText().size();
    if (byte != -1) {
        const qsizetype line = m_editor.Box().LineAt(m_editor.PositionOf(byte));
        return m_editor.ByteAt(LineEnd(line)) - m_editor.ByteAt(m_editor.Box().LineStart(line));
    }
    const EditSelection selection = m_editor.Box().Selection();
    const qsizetype from = std::min(selection.anchor, selection.caret);
    const qsizetype to = std::max(selection.anchor, selection.caret);
    const int before =
        m_editor.ByteAt(from) - m_editor.ByteAt(m_editor.Box().LineStart(m_editor.Box().LineAt(from)));
    return before + m_editor.ByteAt(LineEnd(m_editor.Box().LineAt(to))) - m_editor.ByteAt(to);
}

LRESULT EditPeer::OnLineFromChar(WPARAM position, LPARAM)
{
    const auto byte = static_cast<int>(position);
    return m_editor.Box().LineAt(byte == -1 ? m_editor.Box().Selection().anchor : m_editor.PositionOf(byte));
}

// The buffer's first word is its size; no terminator is written where there is no room for one.
LRESULT EditPeer::OnGetLine(WPARAM line, LPARAM buffer)
{
    auto* to = reinterpret_cast<char*>(buffer);
    WORD size = 0;
    std::memcpy(&size, to, sizeof size);
    const auto number = static_cast<qsizetype>(static_cast<int>(m_editor.IsMultiLine() ? line : 0));
    const qsizetype start = m_editor.Box().LineStart(number);
    if (start == EditBox::kNone)
        return 0;
    const QString shown = FromBox(m_editor.Box().Text().mid(start, LineEnd(number) - start));
    const QByteArray bytes = ToAnsi(shown, m_editor.CodePage());
    const size_t count = std::min<size_t>(static_cast<size_t>(bytes.size()), size);
    std::memcpy(to, bytes.constData(), count);
    if (count < size)
        to[count] = '\0';
    return static_cast<LRESULT>(count);
}

LRESULT EditPeer::OnGetFirstVisibleLine(WPARAM, LPARAM)
{
    return m_editor.Box().FirstVisibleLine();
}

LRESULT EditPeer::OnCanUndo(WPARAM, LPARAM)
{
    return m_editor.CanUndo();
}

LRESULT EditPeer::OnEmptyUndoBuffer(WPARAM, LPARAM)
{
    m_editor.ForgetUndo();
    return 0;
}

LRESULT EditPeer::OnGetDlgCode(WPARAM, LPARAM message)
{
    if (message)
        m_inDialog = true;
    const LRESULT code = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
    return m_editor.IsMultiLine() ? code | DLGC_WANTALLKEYS : code;
}

LRESULT EditPeer::OnSetFocus(WPARAM, LPARAM)
{
    Notify(EN_SETFOCUS);
    return 0;
}

LRESULT EditPeer::OnKillFocus(WPARAM, LPARAM)
{
    Notify(EN_KILLFOCUS);
    return 0;
}

LRESULT EditPeer::OnLimitText(WPARAM limit, LPARAM)
{
    m_editor.SetLimit(limit);
    return 0;
}

LRESULT EditPeer::OnGetLimitText(WPARAM, LPARAM)
{
    return static_cast<LRESULT>(m_editor.Limit());
}

LRESULT EditPeer::OnSetReadOnly(WPARAM readOnly, LPARAM)
{
    const DWORD style = readOnly ? Style() | ES_READONLY : Style() & ~static_cast<DWORD>(ES_READONLY);
    SetWindowLongA(Window(), GWL_STYLE, static_cast<LONG>(style));
    ShowReadOnly(readOnly != 0);
    return 1;
}

LRESULT EditPeer::OnSetPasswordChar(WPARAM character, LPARAM)
{
    if (m_editor.IsMultiLine())
        return 0;
    m_password = static_cast<LRESULT>(character);
    const DWORD style = character ? Style() | ES_PASSWORD : Style() & ~static_cast<DWORD>(ES_PASSWORD);
    if (style != Style())
        SetWindowLongA(Window(), GWL_STYLE, static_cast<LONG>(style));
    m_editor.SetPassword(character != 0);
    return 0;
}

LRESULT EditPeer::OnUndo(WPARAM, LPARAM)
{
    return m_editor.Undo();
}

LRESULT EditPeer::OnCut(WPARAM, LPARAM)
{
    m_editor.Cut();
    return 0;
}

LRESULT EditPeer::OnCopy(WPARAM, LPARAM)
{
    m_editor.Copy();
    return 0;
}

LRESULT EditPeer::OnPaste(WPARAM, LPARAM)
{
    m_editor.Paste();
    return 0;
}

LRESULT EditPeer::OnClear(WPARAM, LPARAM)
{
    m_editor.Clear();
    return 0;
}

// A text of many lines has asked its dialog for all keys; these it gives back.
bool EditPeer::LeavesToDialog(WPARAM key)
{
    if (!m_editor.IsMultiLine() || !m_inDialog || GetKeyState(VK_CONTROL) < 0)
        return false;
    const HWND dialog = GetParent(Window());
    if (key == VK_TAB)
        PostMessageA(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, 0);
    else if (key == VK_ESCAPE)
        PostMessageA(dialog, WM_CLOSE, 0, 0);
    else if (key == VK_RETURN && !(Style() & ES_WANTRETURN))
        PostMessageA(dialog, WM_COMMAND, LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), 0);
    else
        return false;
    return true;
}

LRESULT EditPeer::OnKeyDown(WPARAM key, LPARAM)
{
    if (!LeavesToDialog(key))
        m_editor.KeyDown(key);
    return 0;
}

LRESULT EditPeer::OnChar(WPARAM character, LPARAM)
{
    const bool many = m_editor.IsMultiLine();
    const bool control = GetKeyState(VK_CONTROL) < 0;
    m_editor.Char(character, many && (!m_inDialog || Style() & ES_WANTRETURN || control),
                  many && (!m_inDialog || control));
    return 0;
}
