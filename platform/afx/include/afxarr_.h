// CArray: a growable array with zero-based indices.
#pragma once

#include "afxelem_.h"

#pragma push_macro("new")
#undef new

// Elements lie one behind the other in memory, as in a C array.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;
    ~CArray() override { Free(); }

    int GetSize() const { return m_nSize; }
    int GetCount() const { return m_nSize; }
    int GetUpperBound() const { return m_nSize - 1; }
    BOOL IsEmpty() const { return m_nSize == 0; }

    // Sets the number of elements; new ones are made by default (numbers are 0). `growBy`, when not -1, is
    // the least number of elements to add memory for from now on; 0 (the start) grows by half.
    void SetSize(int newSize, int growBy = -1);
    void FreeExtra();
    void RemoveAll() { SetSize(0); }

    TYPE& GetAt(int index) { return m_pData[Checked(index)]; }
    const TYPE& GetAt(int index) const { return m_pData[Checked(index)]; }
    void SetAt(int index, ARG_TYPE element) { m_pData[Checked(index)] = element; }
    TYPE& ElementAt(int index) { return m_pData[Checked(index)]; }
    const TYPE& ElementAt(int index) const { return m_pData[Checked(index)]; }
    TYPE& operator[](int index) { return m_pData[Checked(index)]; }
    const TYPE& operator[](int index) const { return m_pData[Checked(index)]; }

    // The first element; null while nothing was ever stored. Valid until the size changes.
    TYPE* GetData() { return m_pData; }
    const TYPE* GetData() const { return m_pData; }

    // Sets an element, growing the array as far as needed.
    void SetAtGrow(int index, ARG_TYPE element);

    // Adds at the end; the new element's index.
    int Add(ARG_TYPE element)
    {
        const int index = m_nSize;
        SetAtGrow(index, element);
        return index;
    }

    // Adds all of `source` at the end; the index of the first one added.
    int Append(const CArray& source);
    void Copy(const CArray& source);

    // Inserts `count` copies before `index`; beyond the end the gap is filled with default elements.
    void InsertAt(int index, ARG_TYPE element, int count = 1);
    // Inserts all elements of another array (nothing when it is empty).
    void InsertAt(int startIndex, CArray* newArray);
    void RemoveAt(int index, int count = 1);

private:
    int Checked(int index) const
    {
        if (static_cast<unsigned>(index) >= static_cast<unsigned>(m_nSize))
            AfxThrowInvalidArgException();
        return index;
    }
    static int Sum(int a, int b)
    {
        if (a > std::numeric_limits<int>::max() - b)
            AfxThrowMemoryException();
        return a + b;
    }
    void Free();
    void Reserve(int newSize);
    void MoveTo(int maxSize);
    void OpenGap(int index, int count);

    TYPE* m_pData = nullptr;
    int m_nSize = 0;
    int m_nMaxSize = 0;
    int m_nGrowBy = 0;
};

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Free()
{
    if (m_pData)
        DestructElements(m_pData, m_nSize);
    std::free(static_cast<void*>(m_pData));
    m_pData = nullptr;
    m_nSize = m_nMaxSize = 0;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::MoveTo(int maxSize)
{
    TYPE* data = AfxElementDetail::Allocate<TYPE>(static_cast<std::size_t>(maxSize));
    AfxElementDetail::Relocate(data, m_pData, m_nSize);
    std::free(static_cast<void*>(m_pData));
    m_pData = data;
    m_nMaxSize = maxSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Reserve(int newSize)
{
    if (newSize <= m_nMaxSize)
        return;
    constexpr int kLeastGrowth = 4;
    const int growth = m_nGrowBy > 0 ? m_nGrowBy : (m_nSize / 2 > kLeastGrowth ? m_nSize / 2 : kLeastGrowth);
    const int grown = m_nMaxSize > std::numeric_limits<int>::max() - growth ? newSize : m_nMaxSize + growth;
    // A first size is what the array is likely to keep; only growing asks for more than was named.
    MoveTo(m_pData && grown > newSize ? grown : newSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(int newSize, int growBy)
{
    if (newSize < 0)
        AfxThrowInvalidArgException();
    if (growBy >= 0)
        m_nGrowBy = growBy;
    if (newSize == 0)
        return Free();
    Reserve(newSize);
    if (newSize > m_nSize)
        ConstructElements(m_pData + m_nSize, newSize - m_nSize);
    else
        DestructElements(m_pData + newSize, m_nSize - newSize);
    m_nSize = newSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeExtra()
{
    if (m_nSize == 0)
        Free();
    else if (m_nSize != m_nMaxSize)
        MoveTo(m_nSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(int index, ARG_TYPE element)
{
    if (index < 0)
        AfxThrowInvalidArgException();
    if (index < m_nMaxSize) {
        if (index >= m_nSize)
            SetSize(index + 1);
        m_pData[index] = element;
        return;
    }
    // `element` may lie in the block that growing gives up.
    TYPE held = TYPE();
    held = element;
    SetSize(Sum(index, 1));
    m_pData[index] = std::move(held);
}

template <class TYPE, class ARG_TYPE>
int CArray<TYPE, ARG_TYPE>::Append(const CArray& source)
{
    const int oldSize = m_nSize;
    const int added = source.m_nSize;
    SetSize(Sum(oldSize, added));
    if (added > 0)
        CopyElements(m_pData + oldSize, source.m_pData, added);
    return oldSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& source)
{
    if (this == &source)
        return;
    SetSize(source.m_nSize);
    if (source.m_nSize > 0)
        CopyElements(m_pData, source.m_pData, source.m_nSize);
}

// Leaves `count` default elements at `index`.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::OpenGap(int index, int count)
{
    const int oldSize = m_nSize;
    if (index >= oldSize)
        return SetSize(Sum(index, count));
    SetSize(Sum(oldSize, count));
    DestructElements(m_pData + oldSize, count);
    AfxElementDetail::Relocate(m_pData + index + count, m_pData + index, oldSize - index);
    ConstructElements(m_pData + index, count);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(int index, ARG_TYPE element, int count)
{
    if (index < 0 || count < 0)
        AfxThrowInvalidArgException();
    TYPE held = TYPE();
    held = element;
    OpenGap(index, count);
    for (int i = 0; i < count; ++i)
        m_pData[index + i] = held;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(int startIndex, CArray* newArray)
{
    if (startIndex < 0 || !newArray)
        AfxThrowInvalidArgException();
    CArray held; // the array may be inserted into itself
    held.Copy(*newArray);
    if (held.m_nSize == 0)
        return;
    OpenGap(startIndex, held.m_nSize);
    CopyElements(m_pData + startIndex, held.m_pData, held.m_nSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(int index, int count)
{
    if (index < 0 || count < 0 || index > m_nSize || count > m_nSize - index)
        AfxThrowInvalidArgException();
    if (count == 0)
        return;
    DestructElements(m_pData + index, count);
    AfxElementDetail::Relocate(m_pData + index, m_pData + index + count, m_nSize - index - count);
    m_nSize -= count;
}

#pragma pop_macro("new")
