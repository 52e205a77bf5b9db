// Entity numbers put into classes by a text, such as their section's name.
//
//   CKeyClass sections(GF_GetHashSizeByCount(memberCount));
//   sections.Classify(1, "H400");
//   sections.Classify(2, "H300");
//   sections.Classify(3, "H400");
//   CArray<UINT, UINT>* columns = sections.GetClassifiedClass(0);     // 1, 3
//
// Classes are numbered from 0 in the order in which their keys first came.
// Errors: CMemoryException, std::bad_alloc when memory runs out. Threads: one object belongs to one thread at
// a time.
#pragma once

#include <afxtempl.h>

#include <memory>
#include <vector>

class AFX_EXT_CLASS CKeyClass
{
public:
    // `nHashSize` is the number of buckets of the key table, fixed from here on; below 1 counts as 1.
    // GF_GetHashSizeByCount suggests one for a number of keys; many more keys than buckets make look-ups
    // slow.
    explicit CKeyClass(int nHashSize);
    CKeyClass(const CKeyClass&) = delete;
    CKeyClass& operator=(const CKeyClass&) = delete;
    virtual ~CKeyClass();

    // Adds nID to the class of the key, behind its other members, also when it is there already. Keys are
    // told apart byte by byte, so by case too; null counts as the empty text.
    void Classify(UINT nID, const char* lpszKey);
    int GetClassifiedCount();
    // The members of a class in the order in which they came. They belong to the object, which keeps them to
    // its end; null when there is no such class.
    CArray<UINT, UINT>* GetClassifiedClass(int nIndex);

private:
    using Members = CArray<UINT, UINT>;

    Members& ClassOf(const char* key);

    CMap<CString, LPCSTR, int, int> m_mapKey;
    std::vector<std::unique_ptr<Members>> m_classes;
};
