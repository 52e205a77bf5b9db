// What an edit and a combo box's text field have in common: a box, the rules for what is put into it, and the
// keys.
//
// Positions outside count bytes of the text's code page, two for a line's end.
#pragma once

#include "EditBox.h"
#include "Keys.h"

#include <windows.h>

#include <QtCore/QByteArray>

#include <string_view>

struct EditorUse {
    std::function<void()> changed; // by the user or by Put, not by SetText
    std::function<void()> full;    // something did not fit
    std::function<bool()> alive;   // a handler may have ended the window
};

class Editor
{
public:
    // `style` is of ES_...
    Editor(DWORD style, EditorUse use);

    EditBox& Box() { return *m_box; }
    const EditBox& Box() const { return *m_box; }
    bool IsMultiLine() const { return m_style & ES_MULTILINE; }
    void SetStyle(DWORD style) { m_style = style; }
    void SetLimit(WPARAM limit); // 0: the greatest there is
    size_t Limit() const { return m_limit; }
    void SetPassword(bool password);

    // With CR LF; in the case that the style wants, and without what lies behind a line's end where there is
    // one line only.
    void SetText(std::string_view bytes);
    // That of the text set, as long as what it has become since has a place in it; else the ANSI code page.
    UINT CodePage() const;
    QByteArray AnsiText() const;
    // By the user: not if read only, digits only if the style says so.
    void Insert(const QString& typed);
    // In place of what is selected, as far as it fits.
    void Put(const QString& text, bool undoable);

    int ByteAt(qsizetype position) const;
    qsizetype PositionOf(LPARAM byte) const;
    // The selection's ends in order.
    std::pair<int, int> SelectedBytes() const;
    // A start of -1 selects nothing, an end of -1 reaches to the text's end.
    void SelectBytes(int start, int end);

    // One step back, or forth again after one back.
    bool CanUndo() const { return m_undone || m_box->CanUndo(); }
    bool Undo();
    void ForgetUndo();
    void Cut();
    void Copy();
    void Paste();
    void Clear();

    // The keyboard's messages; false: the key means nothing to an editor.
    bool KeyDown(WPARAM key);
    void Char(WPARAM character, bool takesReturn, bool takesTab);

    // While it lasts, changes are not told.
    class Quiet
    {
    public:
        explicit Quiet(Editor& editor) : m_editor(editor) { ++m_editor.m_quiet; }
        ~Quiet() { --m_editor.m_quiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        Editor& m_editor;
    };

private:
    QString Allowed(QString text) const;
    bool IsReadOnly() const { return m_style & ES_READONLY; }

    EditorUse m_use;
    DWORD m_style;
    std::unique_ptr<EditBox> m_box;
    TypedCharacters m_typed;
    size_t m_limit = kUsualLimit;
    UINT m_codePage = GetACP();
    QByteArray m_given; // what was set, if it has no way back from what is shown
    QString m_givenText;
    int m_quiet = 0;
    bool m_password = false;
    bool m_undone = false;
    static constexpr size_t kUsualLimit = 30000;
};
