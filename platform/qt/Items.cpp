#include "Items.h"

#include <QtCore/QCollator>

#include <algorithm>
#include <cstring>

namespace {

bool Less(const QString& a, const QString& b)
{
    static const auto& collator = *[] {
        auto* made = new QCollator;
        made->setCaseSensitivity(Qt::CaseInsensitive);
        return made;
    }();
    return collator.compare(a, b) < 0;
}

} // namespace

int Items::SortedPlace(const QString& text) const
{
    const auto place = std::lower_bound(m_items.begin(), m_items.end(), text,
                                        [](const Item& a, const QString& b) { return Less(a.text, b); });
    return static_cast<int>(place - m_items.begin());
}

void Items::Insert(int index, const QString& text, std::string_view bytes)
{
    m_items.insert(m_items.begin() + index, {text, {bytes.data(), static_cast<qsizetype>(bytes.size())}});
}

void Items::Remove(int index)
{
    m_items.erase(m_items.begin() + index);
}

int Items::Find(int after, const QString& text, bool whole) const
{
    const int count = text.isEmpty() ? 0 : Count();
    const int start = after >= 0 && after < count ? after + 1 : 0;
    for (int step = 0; step < count; ++step) {
        const int index = (start + step) % count;
        const QString& item = Text(index);
        if (whole ? item.compare(text, Qt::CaseInsensitive) == 0 : item.startsWith(text, Qt::CaseInsensitive))
            return index;
    }
    return LB_ERR;
}

LRESULT Items::CopyText(WPARAM index, LPARAM buffer) const
{
    if (!Has(index) || !buffer)
        return LB_ERR;
    const QByteArray& bytes = m_items[index].bytes;
    std::memcpy(reinterpret_cast<char*>(buffer), bytes.constData(), static_cast<size_t>(bytes.size()) + 1);
    return bytes.size();
}

LRESULT Items::TextLength(WPARAM index) const
{
    return Has(index) ? m_items[index].bytes.size() : LB_ERR;
}
