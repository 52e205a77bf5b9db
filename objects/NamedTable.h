// Tables of named parts that their container owns.
//
// Null stands for a part that is being deleted, or has been: its name is taken, and nobody is found under it.
#pragma once

#include <afxtempl.h>

#include <unordered_set>
#include <utility>

template <class T>
using NamedTable = CMap<CString, LPCSTR, T*, T*>;

// False, and nothing changes, when the name is taken or null.
template <class T>
bool AddNamed(NamedTable<T>& table, LPCSTR name, T* part)
{
    if (!name)
        return false;
    const int before = table.GetCount();
    T*& place = table[name]; // one walk along the chain, whether the name is there or not
    if (table.GetCount() == before)
        return false;
    place = part;
    return true;
}

template <class T>
T* FindNamed(const NamedTable<T>& table, LPCSTR name)
{
    const auto* entry = name ? table.PLookup(name) : nullptr;
    return entry ? entry->value : nullptr;
}

// Leaves a part that stands under several names under the first of them.
template <class T>
void ForgetRepeated(NamedTable<T>& table)
{
    std::unordered_set<T*> met;
    for (auto* entry = table.PGetFirstAssoc(); entry; entry = table.PGetNextAssoc(entry)) {
        if (!met.insert(entry->value).second)
            entry->value = nullptr;
    }
}

// Takes the parts out, in the order of the table, and gives each to `dispose`. Their destructors may look up
// and add: the walk begins anew until it meets nobody.
template <class T, class Dispose>
void TakeOutAll(NamedTable<T>& table, Dispose dispose)
{
    for (bool met = true; met;) {
        met = false;
        for (auto* entry = table.PGetFirstAssoc(); entry; entry = table.PGetNextAssoc(entry)) {
            if (T* part = std::exchange(entry->value, nullptr)) {
                met = true;
                dispose(part);
            }
        }
    }
    table.RemoveAll();
}

template <class T>
void DeleteAll(NamedTable<T>& table)
{
    ForgetRepeated(table);
    TakeOutAll(table, [](T* part) { delete part; });
}
