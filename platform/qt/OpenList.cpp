#include "ComboBody.h"

#include "Keys.h"

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

class OpenList final : public ComboBody
{
public:
    OpenList(QLineEdit* line, const ComboBodyUse& use) : m_area(*new QWidget), m_list(*new QListWidget)
    {
        auto* layout = new QVBoxLayout(&m_area);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(line);
        layout->addWidget(&m_list);
        m_area.setFocusProxy(line);
        m_list.setFocusPolicy(Qt::NoFocus); // the text field keeps the keyboard
        m_list.setEditTriggers(QAbstractItemView::NoEditTriggers);
        QObject::connect(&m_list, &QListWidget::itemSelectionChanged, &m_list, [this, use] {
            if (!m_quiet && m_list.currentRow() >= 0)
                use.chosen(m_list.currentRow());
        });
        QObject::connect(&m_list, &QListWidget::itemDoubleClicked, &m_list, [use] { use.doubleClicked(); });
    }

    QWidget* Widget() override { return &m_area; }
    QAbstractItemView& View() override { return m_list; }

    void Insert(int row, const QString& text) override
    {
        const Quiet quiet(*this);
        m_list.insertItem(row, text);
    }

    void Remove(int row) override
    {
        const Quiet quiet(*this);
        delete m_list.takeItem(row);
    }

    void Clear() override
    {
        const Quiet quiet(*this);
        m_list.clear();
    }

    void Choose(int row) override
    {
        const Quiet quiet(*this);
        m_list.clearSelection();
        m_list.setCurrentRow(row);
    }

    void Drop(bool) override {}
    void SetRowsShown(int) override {}
    void PressKey(WPARAM key) override { ::PressKey(m_list, key); }
    void Search(const QString&) override {} // typing goes to the text field

private:
    // While it lasts, what changes is the program's doing.
    struct Quiet {
        explicit Quiet(OpenList& list) : m_owner(list) { ++m_owner.m_quiet; }
        ~Quiet() { --m_owner.m_quiet; }
        OpenList& m_owner;
    };

    QWidget& m_area;
    QListWidget& m_list;
    int m_quiet = 0;
};

} // namespace

std::unique_ptr<ComboBody> MakeOpenList(QLineEdit* line, ComboBodyUse use)
{
    return std::make_unique<OpenList>(line, use);
}
