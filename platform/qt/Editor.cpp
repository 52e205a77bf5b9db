#include "Editor.h"

#include "BoxText.h"
#include "TextPage.h"
#include "Texts.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <climits>

namespace {

constexpr QChar kLineEnd(QChar::ParagraphSeparator);
constexpr std::array<WPARAM, 9> kMovingKeys = {VK_LEFT, VK_RIGHT, VK_UP,   VK_DOWN,  VK_HOME,
                                               VK_END,  VK_PRIOR, VK_NEXT, VK_DELETE};

// What other programs put on the clipboard ends lines with LF.
QString FromClipboard()
{
    QString text = QGuiApplication::clipboard()->text();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\n'), kLineEnd);
}

bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

std::pair<qsizetype, qsizetype> Ordered(EditSelection selection)
{
    return std::minmax({selection.anchor, selection.caret});
}

} // namespace

Editor::Editor(DWORD style, EditorUse use) : m_use(std::move(use)), m_style(style)
{
    const EditBoxUse boxUse = {[this] {
                                   m_undone = false;
                                   if (!m_quiet)
                                       m_use.changed();
                               },
                               [this](const QString& text) { Insert(text); }};
    m_box = IsMultiLine() ? MakeTextBox(style, boxUse) : MakeLineBox(style, boxUse);
    m_box->SetReadOnly(IsReadOnly());
}

void Editor::SetLimit(WPARAM limit)
{
    const size_t most = IsMultiLine() ? 0xffffffff : 0x7ffffffe;
    m_limit = limit ? std::min<size_t>(limit, most) : most;
}

void Editor::SetPassword(bool password)
{
    m_password = password;
    m_box->SetPassword(password);
}

void Editor::SetText(std::string_view bytes)
{
    const Quiet quiet(*this);
    const QString shown = FromAnsi(bytes);
    const QString allowed = Allowed(shown);
    m_box->SetText(ToBox(allowed));
    m_undone = false;
    m_codePage = TextCodePage(bytes);
    m_given.clear();
    if (allowed != shown || AnsiText().toStdString() == bytes)
        return;
    m_given = {bytes.data(), static_cast<qsizetype>(bytes.size())};
    m_givenText = m_box->Text();
}

UINT Editor::CodePage() const
{
    const bool holds = m_codePage == GetACP() || IsIn(m_codePage, FromBox(m_box->Text()));
    return holds ? m_codePage : GetACP();
}

QByteArray Editor::AnsiText() const
{
    const QString text = m_box->Text();
    return !m_given.isEmpty() && text == m_givenText ? m_given : ToAnsi(FromBox(text), CodePage());
}

QString Editor::Allowed(QString text) const
{
    if (!IsMultiLine())
        text.truncate(std::find(text.cbegin(), text.cend(), kLineEnd) - text.cbegin());
    if (m_style & ES_UPPERCASE)
        return text.toUpper();
    return m_style & ES_LOWERCASE ? text.toLower() : text;
}

void Editor::Insert(const QString& typed)
{
    if (IsReadOnly())
        return;
    if (m_style & ES_NUMBER && !std::all_of(typed.begin(), typed.end(), IsDigit))
        QApplication::beep();
    else
        Put(typed, true);
}

void Editor::Put(const QString& text, bool undoable)
{
    const auto [from, to] = SelectedBytes();
    const auto kept = static_cast<size_t>(AnsiText().size() - (to - from));
    const size_t room = m_limit > kept ? m_limit - kept : 0;
    QString fitting = Allowed(text);
    const qsizetype units =
        BoxUnits(fitting, static_cast<qsizetype>(std::min<size_t>(room, INT_MAX)), CodePage());
    const bool cut = units < fitting.size();
    fitting.truncate(units);
    if (cut)
        m_use.full();
    if (m_use.alive() && !(fitting.isEmpty() && from == to))
        m_box->Replace(fitting, undoable);
}

int Editor::ByteAt(qsizetype position) const
{
    const QString text = m_box->Text();
    return BoxBytes(QStringView(text).left(std::min(position, text.size())), CodePage());
}

qsizetype Editor::PositionOf(LPARAM byte) const
{
    return BoxUnits(m_box->Text(), static_cast<qsizetype>(byte), CodePage());
}

std::pair<int, int> Editor::SelectedBytes() const
{
    const auto [from, to] = Ordered(m_box->Selection());
    return {ByteAt(from), ByteAt(to)};
}

void Editor::SelectBytes(int start, int end)
{
    const qsizetype size = m_box->Text().size();
    EditSelection selection = m_box->Selection();
    if (start == -1)
        selection.anchor = selection.caret;
    else
        selection = {start < 0 ? size : PositionOf(start), end < 0 ? size : PositionOf(end)};
    m_box->Select(selection);
}

bool Editor::Undo()
{
    if (IsReadOnly() || !CanUndo())
        return !IsMultiLine();
    const bool forth = m_undone;
    forth ? m_box->Redo() : m_box->Undo();
    m_undone = !forth;
    return true;
}

void Editor::ForgetUndo()
{
    m_box->ForgetUndo();
    m_undone = false;
}

void Editor::Cut()
{
    Copy();
    Clear();
}

void Editor::Copy()
{
    const auto [from, to] = Ordered(m_box->Selection());
    if (from == to || m_password)
        return;
    QString text = m_box->Text().mid(from, to - from);
    QGuiApplication::clipboard()->setText(text.replace(kLineEnd, QLatin1Char('\n')));
}

void Editor::Paste()
{
    if (!IsReadOnly())
        Put(FromClipboard(), true);
}

void Editor::Clear()
{
    const auto [from, to] = Ordered(m_box->Selection());
    if (from != to && !IsReadOnly())
        m_box->Replace(QString(), true);
}

bool Editor::KeyDown(WPARAM key)
{
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (key == VK_INSERT && shift)
        Paste();
    else if (key == VK_INSERT && control)
        Copy();
    else if (key == VK_DELETE && shift)
        Cut();
    else if (std::find(kMovingKeys.begin(), kMovingKeys.end(), key) != kMovingKeys.end())
        PressKey(*m_box->Widget(), key);
    else
        return false;
    return true;
}

void Editor::Char(WPARAM character, bool takesReturn, bool takesTab)
{
    // The control characters that Ctrl and a letter type.
    enum { kCopy = 3, kPaste = 22, kCut = 24, kUndo = 26, kDelete = 127 };
    switch (character) {
    case kCopy:
        return Copy();
    case kPaste:
        return Paste();
    case kCut:
        return Cut();
    case kUndo:
        return (void)Undo();
    case kDelete:
        return;
    case '\b':
        return IsReadOnly() ? void() : PressKey(*m_box->Widget(), VK_BACK);
    case '\r':
        return takesReturn ? Insert(QString(kLineEnd)) : void();
    case '\t':
        return takesTab ? Insert(QStringLiteral("\t")) : void();
    default:
        break;
    }
    const QString typed = m_typed.Add(character);
    if (!typed.isEmpty() && typed[0] >= QLatin1Char(' '))
        Insert(typed);
}
