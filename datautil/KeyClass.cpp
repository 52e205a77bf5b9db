#include "KeyClass.h"

#include <algorithm>

CKeyClass::CKeyClass(int nHashSize)
{
    m_mapKey.InitHashTable(static_cast<UINT>(std::max(nHashSize, 1)), TRUE);
}

CKeyClass::~CKeyClass() = default;

// A class whose key cannot be kept is none.
CKeyClass::Members& CKeyClass::ClassOf(const char* key)
{
    int number = 0;
    if (m_mapKey.Lookup(key, number))
        return *m_classes[static_cast<std::size_t>(number)];
    m_classes.push_back(std::make_unique<Members>());
    try {
        m_mapKey.SetAt(key, GetClassifiedCount() - 1);
    } catch (...) {
        m_classes.pop_back();
        throw;
    }
    return *m_classes.back();
}

void CKeyClass::Classify(UINT nID, const char* lpszKey)
{
    ClassOf(lpszKey ? lpszKey : "").Add(nID);
}

int CKeyClass::GetClassifiedCount()
{
    return static_cast<int>(m_classes.size());
}

CArray<UINT, UINT>* CKeyClass::GetClassifiedClass(int nIndex)
{
    return nIndex >= 0 && nIndex < GetClassifiedCount() ? m_classes[static_cast<std::size_t>(nIndex)].get()
                                                        : nullptr;
}
