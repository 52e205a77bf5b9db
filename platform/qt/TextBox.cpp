#include "EditBox.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

namespace {

class TextEdit final : public QPlainTextEdit
{
public:
    TextEdit(DWORD style, EditBoxUse use) : m_use(std::move(use))
    {
        setTabChangesFocus(false);
        setAcceptDrops(false);
        setLineWrapMode(style & (ES_AUTOHSCROLL | WS_HSCROLL) ? NoWrap : WidgetWidth);
        setVerticalScrollBarPolicy(style & WS_VSCROLL ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        setHorizontalScrollBarPolicy(style & WS_HSCROLL ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
        document()->setDocumentMargin(1);
        connect(document(), &QTextDocument::contentsChange, this, [this](int, int removed, int added) {
            if (removed || added)
                m_use.changed();
        });
    }

protected:
    void inputMethodEvent(QInputMethodEvent* event) override
    {
        const QString commit = event->commitString();
        QInputMethodEvent composing(event->preeditString(), event->attributes());
        if (!commit.isEmpty())
            m_use.insert(commit);
        QPlainTextEdit::inputMethodEvent(&composing);
        event->accept();
    }

    // Paste, by key, menu or the middle button.
    void insertFromMimeData(const QMimeData* source) override { m_use.insert(source->text()); }

private:
    EditBoxUse m_use;
};

class TextBox final : public EditBox
{
public:
    TextBox(DWORD style, EditBoxUse use) : m_edit(*new TextEdit(style, std::move(use)))
    {
        if (style & (ES_CENTER | ES_RIGHT)) {
            QTextOption option = m_edit.document()->defaultTextOption();
            option.setAlignment(style & ES_CENTER ? Qt::AlignHCenter : Qt::AlignRight);
            m_edit.document()->setDefaultTextOption(option);
        }
    }

    QWidget* Widget() override { return &m_edit; }

    QString Text() const override
    {
        QString text = m_edit.document()->toRawText();
        text.truncate(m_edit.document()->characterCount() - 1); // without the last block's end
        return text;
    }

    void SetText(const QString& text) override { m_edit.setPlainText(text); }

    EditSelection Selection() const override
    {
        const QTextCursor cursor = m_edit.textCursor();
        return {cursor.anchor(), cursor.position()};
    }

    void Select(EditSelection selection) override
    {
        QTextCursor cursor = m_edit.textCursor();
        cursor.setPosition(static_cast<int>(selection.anchor));
        cursor.setPosition(static_cast<int>(selection.caret), QTextCursor::KeepAnchor);
        m_edit.setTextCursor(cursor);
    }

    void Replace(const QString& text, bool undoable) override
    {
        m_edit.textCursor().insertText(text);
        m_edit.ensureCursorVisible();
        if (!undoable)
            ForgetUndo();
    }

    void SetReadOnly(bool readOnly) override { m_edit.setReadOnly(readOnly); }
    void SetPassword(bool) override {} // only a line hides its text
    bool CanUndo() const override { return m_edit.document()->isUndoAvailable(); }
    void Undo() override { m_edit.undo(); }
    void Redo() override { m_edit.redo(); }
    void ForgetUndo() override { m_edit.document()->clearUndoRedoStacks(); }
    void ScrollToCaret() override { m_edit.ensureCursorVisible(); }

    qsizetype LineCount() const override
    {
        qsizetype count = 0;
        for (QTextBlock block = m_edit.document()->begin(); block.isValid(); block = block.next())
            count += LinesOf(block);
        return count;
    }

    qsizetype LineStart(qsizetype line) const override
    {
        for (QTextBlock block = m_edit.document()->begin(); block.isValid() && line >= 0;
             block = block.next()) {
            const qsizetype lines = LinesOf(block);
            if (line < lines)
                return block.position() + StartIn(block, static_cast<int>(line));
            line -= lines;
        }
        return kNone;
    }

    qsizetype LineAt(qsizetype position) const override
    {
        const QTextBlock at = m_edit.document()->findBlock(static_cast<int>(position));
        qsizetype line = 0;
        for (QTextBlock block = m_edit.document()->begin(); block.isValid() && block != at;
             block = block.next())
            line += LinesOf(block);
        const QTextLine inside =
            at.layout() ? at.layout()->lineForTextPosition(static_cast<int>(position) - at.position())
                        : QTextLine();
        return line + (inside.isValid() ? inside.lineNumber() : 0);
    }

    qsizetype FirstVisibleLine() const override { return m_edit.verticalScrollBar()->value(); }

private:
    // A block that has not been shown yet is laid out now.
    qsizetype LinesOf(const QTextBlock& block) const
    {
        m_edit.document()->documentLayout()->blockBoundingRect(block);
        return std::max(block.layout()->lineCount(), 1);
    }

    static int StartIn(const QTextBlock& block, int line)
    {
        return line < block.layout()->lineCount() ? block.layout()->lineAt(line).textStart() : 0;
    }

    TextEdit& m_edit;
};

} // namespace

std::unique_ptr<EditBox> MakeTextBox(DWORD style, EditBoxUse use)
{
    return std::make_unique<TextBox>(style, std::move(use));
}
