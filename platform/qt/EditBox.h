// What an edit needs of the toolkit's editors, which are two: one for a line, one for many.
//
// Positions count UTF-16 units; a line end is one unit, QChar::ParagraphSeparator.
#pragma once

#include <windows.h>

#include <QtCore/QString>

#include <functional>
#include <memory>

class QFont;
class QWidget;

struct EditSelection {
    qsizetype anchor;
    qsizetype caret;
};

class EditBox
{
public:
    virtual ~EditBox() = default;

    virtual QWidget* Widget() = 0; // made with the box, deleted by its parent or its peer
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0; // caret at the start, nothing to undo
    virtual EditSelection Selection() const = 0;
    virtual void Select(EditSelection selection) = 0;
    virtual void Replace(const QString& text, bool undoable) = 0; // what is selected
    virtual void SetReadOnly(bool readOnly) = 0;
    virtual void SetPassword(bool password) = 0;
    virtual bool CanUndo() const = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual void ForgetUndo() = 0;
    virtual void ScrollToCaret() = 0;
    // Of the lines as they are shown; a line that does not exist has no start.
    virtual qsizetype LineCount() const = 0;
    virtual qsizetype LineStart(qsizetype line) const = 0;
    virtual qsizetype LineAt(qsizetype position) const = 0;
    virtual qsizetype FirstVisibleLine() const = 0;
    static constexpr qsizetype kNone = -1;
};

struct EditBoxUse {
    std::function<void()> changed;                   // not by SetText, as far as the box can tell
    std::function<void(const QString& text)> insert; // what the user puts in by mouse, menu or input method
};

std::unique_ptr<EditBox> MakeLineBox(DWORD style, EditBoxUse use);
std::unique_ptr<EditBox> MakeTextBox(DWORD style, EditBoxUse use);
