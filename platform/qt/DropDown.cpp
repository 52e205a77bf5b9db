#include "ComboBody.h"

#include "Keys.h"

#include <QtCore/QTimer>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

namespace {

class Box final : public QComboBox
{
public:
    explicit Box(ComboBodyUse use) : m_use(std::move(use))
    {
        setInsertPolicy(NoInsert);
        setFocusPolicy(Qt::StrongFocus);
        connect(this, &QComboBox::activated, this, [this](int row) {
            m_chosen = true;
            m_use.chosen(row);
        });
    }

    void showPopup() override
    {
        if (m_open)
            return;
        m_open = true;
        m_chosen = false;
        m_use.dropped();
        QComboBox::showPopup();
    }

    // The toolkit hides the list first and tells of a choice afterwards.
    void hidePopup() override
    {
        QComboBox::hidePopup();
        if (!m_open)
            return;
        m_open = false;
        QTimer::singleShot(0, this, [this] {
            if (!m_chosen)
                m_use.closed();
        });
    }

    void Close()
    {
        if (!m_open)
            return;
        m_chosen = true; // nothing is left to tell later
        hidePopup();
        m_use.closed();
    }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }

private:
    ComboBodyUse m_use;
    bool m_open = false;
    bool m_chosen = false;
};

class DropDown final : public ComboBody
{
public:
    DropDown(QLineEdit* line, ComboBodyUse use) : m_box(*new Box(std::move(use)))
    {
        if (!line)
            return;
        m_box.setLineEdit(line);
        m_box.setCompleter(nullptr);
    }

    QWidget* Widget() override { return &m_box; }
    QAbstractItemView& View() override { return *m_box.view(); }

    void Insert(int row, const QString& text) override
    {
        const int before = m_box.currentIndex();
        m_box.insertItem(row, text);
        if (before < 0)
            m_box.setCurrentIndex(-1); // the toolkit chooses the first item of all
    }

    void Remove(int row) override { m_box.removeItem(row); }
    void Clear() override { m_box.clear(); }
    void Choose(int row) override { m_box.setCurrentIndex(row); }

    void Drop(bool open) override
    {
        if (open)
            m_box.showPopup();
        else
            m_box.Close();
    }

    void SetRowsShown(int rows) override { m_box.setMaxVisibleItems(rows); }
    void PressKey(WPARAM key) override { ::PressKey(m_box, key); }
    void Search(const QString& typed) override { TypeText(m_box, typed); }

private:
    Box& m_box;
};

} // namespace

std::unique_ptr<ComboBody> MakeDropDown(QLineEdit* line, ComboBodyUse use)
{
    return std::make_unique<DropDown>(line, std::move(use));
}
