#include "EditBox.h"

#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>

namespace {

// The toolkit's editor, with all that inserts text led through the edit's own rules.
class LineEdit final : public QLineEdit
{
public:
    explicit LineEdit(EditBoxUse use) : m_use(std::move(use))
    {
        setDragEnabled(false);
        setAcceptDrops(false);
        connect(this, &QLineEdit::textEdited, this, [this] { m_use.changed(); });
    }

protected:
    void inputMethodEvent(QInputMethodEvent* event) override
    {
        const QString commit = event->commitString();
        QInputMethodEvent composing(event->preeditString(), event->attributes());
        if (!commit.isEmpty())
            m_use.insert(commit);
        QLineEdit::inputMethodEvent(&composing);
        event->accept();
    }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() != Qt::MiddleButton)
            QLineEdit::mouseReleaseEvent(event);
        else if (QGuiApplication::clipboard()->supportsSelection())
            m_use.insert(QGuiApplication::clipboard()->text(QClipboard::Selection));
    }

    void contextMenuEvent(QContextMenuEvent* event) override
    {
        QMenu* menu = createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        if (auto* paste = menu->findChild<QAction*>(QStringLiteral("edit-paste"))) {
            paste->disconnect();
            connect(paste, &QAction::triggered, this,
                    [this] { m_use.insert(QGuiApplication::clipboard()->text()); });
        }
        menu->popup(event->globalPos());
    }

private:
    EditBoxUse m_use;
};

class LineBox final : public EditBox
{
public:
    LineBox(DWORD style, EditBoxUse use) : m_edit(*new LineEdit(std::move(use)))
    {
        const DWORD side = style & (ES_CENTER | ES_RIGHT);
        m_edit.setAlignment(side & ES_CENTER  ? Qt::AlignHCenter
                            : side & ES_RIGHT ? Qt::AlignRight
                                              : Qt::AlignLeft);
    }

    QWidget* Widget() override { return &m_edit; }
    QString Text() const override { return m_edit.text(); }

    void SetText(const QString& text) override
    {
        m_edit.setText(text);
        m_edit.setCursorPosition(0);
    }

    EditSelection Selection() const override
    {
        const int caret = m_edit.cursorPosition();
        if (!m_edit.hasSelectedText())
            return {caret, caret};
        const int start = m_edit.selectionStart();
        return {start == caret ? m_edit.selectionEnd() : start, caret};
    }

    void Select(EditSelection selection) override
    {
        const auto anchor = static_cast<int>(selection.anchor);
        m_edit.setCursorPosition(anchor);
        m_edit.setSelection(anchor, static_cast<int>(selection.caret) - anchor);
    }

    void Replace(const QString& text, bool undoable) override
    {
        m_edit.insert(text);
        if (!undoable)
            ForgetUndo();
    }

    void SetReadOnly(bool readOnly) override { m_edit.setReadOnly(readOnly); }

    void SetPassword(bool password) override
    {
        m_edit.setEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
    }

    bool CanUndo() const override { return m_edit.isUndoAvailable(); }
    void Undo() override { m_edit.undo(); }
    void Redo() override { m_edit.redo(); }

    void ForgetUndo() override
    {
        const QSignalBlocker quiet(m_edit);
        const EditSelection selection = Selection();
        m_edit.setText(m_edit.text());
        Select(selection);
    }

    void ScrollToCaret() override { m_edit.setCursorPosition(m_edit.cursorPosition()); }
    qsizetype LineCount() const override { return 1; }
    qsizetype LineStart(qsizetype line) const override { return line == 0 ? 0 : kNone; }
    qsizetype LineAt(qsizetype) const override { return 0; }
    qsizetype FirstVisibleLine() const override { return 0; }

private:
    LineEdit& m_edit;
};

} // namespace

std::unique_ptr<EditBox> MakeLineBox(DWORD style, EditBoxUse use)
{
    return std::make_unique<LineBox>(style, std::move(use));
}
