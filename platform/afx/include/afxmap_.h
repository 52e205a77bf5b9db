// CMap: a hash table with chaining.
#pragma once

#include "afxelem_.h"

#pragma push_macro("new")
#undef new

// Keys are told apart by CompareElements, spread by HashKey modulo the number of buckets (17 unless set).
// The order of iteration is part of the contract: bucket by bucket from 0; in a bucket the newest key first.
// All memory is released when the last key is removed; the number of buckets stays.
// Removing keys other than the one at the iteration's position is safe during an iteration; adding is not.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject
{
public:
    struct CPair {
        const KEY key;
        VALUE value;
    };

private:
    struct CAssoc : CPair {
        CAssoc* pNext;
        UINT nHashValue;
    };
    struct CBlock {
        CBlock* pNext;
    };

public:
    // `blockSize` is how many entries' memory is taken at a time.
    explicit CMap(int blockSize = 10) : m_nBlockSize(blockSize > 0 ? blockSize : 1) {}
    ~CMap() override { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    // FALSE, and `value` untouched, when the key is not there.
    BOOL Lookup(ARG_KEY key, VALUE& value) const;
    // The entry of the key, null when it is not there. Valid until that key is removed.
    const CPair* PLookup(ARG_KEY key) const { return FindAssoc(key, HashKey<ARG_KEY>(key)); }
    CPair* PLookup(ARG_KEY key) { return FindAssoc(key, HashKey<ARG_KEY>(key)); }

    // The value of the key, which is added with a default value if it is not there.
    VALUE& operator[](ARG_KEY key);
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
    // FALSE when the key is not there.
    BOOL RemoveKey(ARG_KEY key);
    void RemoveAll();

    // For GetNextAssoc: null when the map is empty.
    POSITION GetStartPosition() const { return m_nCount == 0 ? nullptr : BeforeStart(); }
    // The entry at the position, which moves to the next; null behind the last.
    void GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const;
    const CPair* PGetFirstAssoc() const { return FirstFrom(0); }
    CPair* PGetFirstAssoc() { return FirstFrom(0); }
    const CPair* PGetNextAssoc(const CPair* entry) const
    {
        return Successor(static_cast<const CAssoc*>(entry));
    }
    CPair* PGetNextAssoc(const CPair* entry) { return Successor(static_cast<const CAssoc*>(entry)); }

    UINT GetHashTableSize() const { return m_nHashTableSize; }
    // Sets the number of buckets (0 counts as 1) of an empty map; ignored while the map holds keys.
    void InitHashTable(UINT hashSize, BOOL allocateNow = TRUE);

private:
    static POSITION BeforeStart() { return reinterpret_cast<POSITION>(static_cast<INT_PTR>(-1)); }
    CAssoc* FindAssoc(ARG_KEY key, UINT hash) const;
    CAssoc* FirstFrom(UINT bucket) const;
    CAssoc* Successor(const CAssoc* assoc) const
    {
        return assoc->pNext ? assoc->pNext : FirstFrom(assoc->nHashValue % m_nHashTableSize + 1);
    }
    CAssoc* NewAssoc(ARG_KEY key, UINT hash);
    void* TakeMemory();
    void AddBlock();
    void FreeAssoc(CAssoc* assoc);

    CAssoc** m_pHashTable = nullptr;
    UINT m_nHashTableSize = 17;
    int m_nCount = 0;
    int m_nBlockSize;
    void* m_pFreeList = nullptr; // unused entries, each holding the address of the next
    CBlock* m_pBlocks = nullptr;
};

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::InitHashTable(UINT hashSize, BOOL allocateNow)
{
    ASSERT(m_nCount == 0);
    if (m_nCount != 0)
        return;
    std::free(m_pHashTable);
    m_pHashTable = nullptr;
    m_nHashTableSize = hashSize > 0 ? hashSize : 1;
    if (!allocateNow)
        return;
    m_pHashTable = static_cast<CAssoc**>(std::calloc(m_nHashTableSize, sizeof(CAssoc*)));
    if (!m_pHashTable)
        AfxThrowMemoryException();
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
auto CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::FindAssoc(ARG_KEY key, UINT hash) const -> CAssoc*
{
    if (!m_pHashTable)
        return nullptr;
    const std::remove_reference_t<ARG_KEY>* wanted = std::addressof(key);
    CAssoc* assoc = m_pHashTable[hash % m_nHashTableSize];
    while (assoc && !(assoc->nHashValue == hash &&
                      CompareElements<KEY, std::remove_cvref_t<ARG_KEY>>(&assoc->key, wanted)))
        assoc = assoc->pNext;
    return assoc;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
auto CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::FirstFrom(UINT bucket) const -> CAssoc*
{
    for (; m_pHashTable && bucket < m_nHashTableSize; ++bucket)
        if (m_pHashTable[bucket])
            return m_pHashTable[bucket];
    return nullptr;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::AddBlock()
{
    // Entries start behind the block's link, at their own alignment.
    constexpr std::size_t kHeader = alignof(CAssoc) > sizeof(CBlock) ? alignof(CAssoc) : sizeof(CBlock);
    static_assert(alignof(CAssoc) <= alignof(std::max_align_t) && kHeader % alignof(CAssoc) == 0);
    const std::size_t count = static_cast<std::size_t>(m_nBlockSize);
    if (count > (std::numeric_limits<std::size_t>::max() - kHeader) / sizeof(CAssoc))
        AfxThrowMemoryException();
    char* memory = static_cast<char*>(std::malloc(kHeader + count * sizeof(CAssoc)));
    if (!memory)
        AfxThrowMemoryException();
    m_pBlocks = ::new (static_cast<void*>(memory)) CBlock{m_pBlocks};
    for (std::size_t i = count; i-- > 0;)
        m_pFreeList = ::new (static_cast<void*>(memory + kHeader + i * sizeof(CAssoc))) void*(m_pFreeList);
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void* CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::TakeMemory()
{
    if (!m_pFreeList)
        AddBlock();
    void* memory = m_pFreeList;
    m_pFreeList = *static_cast<void**>(memory);
    return memory;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
auto CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::NewAssoc(ARG_KEY key, UINT hash) -> CAssoc*
{
    KEY held = KEY();
    held = key;
    CAssoc* assoc = static_cast<CAssoc*>(TakeMemory());
    try {
        return ::new (static_cast<void*>(assoc)) CAssoc{{std::move(held), VALUE()}, nullptr, hash};
    } catch (...) {
        m_pFreeList = ::new (static_cast<void*>(assoc)) void*(m_pFreeList);
        throw;
    }
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::FreeAssoc(CAssoc* assoc)
{
    assoc->~CAssoc();
    m_pFreeList = ::new (static_cast<void*>(assoc)) void*(m_pFreeList);
    if (--m_nCount == 0)
        RemoveAll();
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::Lookup(ARG_KEY key, VALUE& value) const
{
    const CPair* entry = PLookup(key);
    if (entry)
        value = entry->value;
    return entry != nullptr;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
VALUE& CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::operator[](ARG_KEY key)
{
    const UINT hash = HashKey<ARG_KEY>(key);
    if (CAssoc* found = FindAssoc(key, hash))
        return found->value;
    if (!m_pHashTable)
        InitHashTable(m_nHashTableSize);
    CAssoc* assoc = NewAssoc(key, hash);
    CAssoc*& bucket = m_pHashTable[hash % m_nHashTableSize];
    assoc->pNext = bucket;
    bucket = assoc;
    ++m_nCount;
    return assoc->value;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveKey(ARG_KEY key)
{
    CAssoc* assoc = FindAssoc(key, HashKey<ARG_KEY>(key));
    if (!assoc)
        return FALSE;
    CAssoc** link = &m_pHashTable[assoc->nHashValue % m_nHashTableSize];
    while (*link != assoc)
        link = &(*link)->pNext;
    *link = assoc->pNext;
    FreeAssoc(assoc);
    return TRUE;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveAll()
{
    for (CAssoc* assoc = FirstFrom(0); assoc && m_nCount > 0;) {
        CAssoc* next = Successor(assoc);
        assoc->~CAssoc();
        assoc = next;
    }
    std::free(m_pHashTable);
    m_pHashTable = nullptr;
    m_nCount = 0;
    m_pFreeList = nullptr;
    while (m_pBlocks) {
        CBlock* next = m_pBlocks->pNext;
        std::free(m_pBlocks);
        m_pBlocks = next;
    }
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::GetNextAssoc(POSITION& position, KEY& key, VALUE& value) const
{
    const CAssoc* assoc =
        position == BeforeStart() ? FirstFrom(0) : reinterpret_cast<const CAssoc*>(position);
    if (!assoc)
        AfxThrowInvalidArgException();
    position = reinterpret_cast<POSITION>(Successor(assoc));
    key = assoc->key;
    value = assoc->value;
}

#pragma pop_macro("new")
