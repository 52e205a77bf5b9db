// The items of a list box or of a combo box's list, and how they are found and sorted.
#pragma once

#include <windows.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string_view>
#include <vector>

class Items
{
public:
    int Count() const { return static_cast<int>(m_items.size()); }
    bool Has(WPARAM index) const { return index < m_items.size(); }
    const QString& Text(int index) const { return m_items[static_cast<size_t>(index)].text; }
    // As it came.
    const QByteArray& Bytes(int index) const { return m_items[static_cast<size_t>(index)].bytes; }
    LPARAM& Data(WPARAM index) { return m_items[index].data; }

    // Where a new item goes among sorted ones: before those that are not less, without regard to case.
    int SortedPlace(const QString& text) const;
    void Insert(int index, const QString& text, std::string_view bytes);
    void Remove(int index);
    void Clear() { m_items.clear(); }

    // The first item behind `after` (-1: all; on from the list's end at its start) that begins with the text,
    // or is the text, without regard to case; LB_ERR if there is none, as for an empty text.
    int Find(int after, const QString& text, bool whole) const;

    // An answer to LB_GETTEXT and the like: the length copied with a terminator, or LB_ERR.
    LRESULT CopyText(WPARAM index, LPARAM buffer) const;
    LRESULT TextLength(WPARAM index) const;

private:
    struct Item {
        QString text;
        QByteArray bytes;
        LPARAM data = 0;
    };
    std::vector<Item> m_items;
};
