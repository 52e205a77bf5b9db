// What a combo box shows its list with: a list that drops down, or one that is always open below the text.
#pragma once

#include <windows.h>

#include <QtCore/QString>

#include <functional>
#include <memory>

class QAbstractItemView;
class QLineEdit;
class QWidget;

// What the user does with it.
struct ComboBodyUse {
    std::function<void()> dropped;
    std::function<void()> closed; // the list went away without a choice
    std::function<void(int row)> chosen;
    std::function<void()> doubleClicked;
};

class ComboBody
{
public:
    virtual ~ComboBody() = default;

    virtual QWidget* Widget() = 0;
    virtual QAbstractItemView& View() = 0;
    virtual void Insert(int row, const QString& text) = 0;
    virtual void Remove(int row) = 0;
    virtual void Clear() = 0;
    virtual void Choose(int row) = 0; // -1: none; shows the row's text. Tells nobody
    virtual void Drop(bool open) = 0; // tells of it before it returns
    virtual void SetRowsShown(int rows) = 0;
    virtual void PressKey(WPARAM key) = 0;
    virtual void Search(const QString& typed) = 0;
};

// `line` is the text field, null for a list without one; the body's widget takes it.
std::unique_ptr<ComboBody> MakeDropDown(QLineEdit* line, ComboBodyUse use);
std::unique_ptr<ComboBody> MakeOpenList(QLineEdit* line, ComboBodyUse use);
