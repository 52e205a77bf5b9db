// CList: a doubly linked list.
#pragma once

#include "afxelem_.h"

#pragma push_macro("new")
#undef new

// A POSITION names an element until that element is removed. Members that take one require it to be valid.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject
{
    struct CNode {
        CNode* pNext;
        CNode* pPrev;
        TYPE data;
    };

public:
    explicit CList(int blockSize = 10) { static_cast<void>(blockSize); }
    ~CList() override { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    TYPE& GetHead() { return Used(m_pHead)->data; }
    const TYPE& GetHead() const { return Used(m_pHead)->data; }
    TYPE& GetTail() { return Used(m_pTail)->data; }
    const TYPE& GetTail() const { return Used(m_pTail)->data; }

    TYPE RemoveHead();
    TYPE RemoveTail();
    POSITION AddHead(ARG_TYPE element) { return Place(Insert(nullptr, m_pHead, element)); }
    POSITION AddTail(ARG_TYPE element) { return Place(Insert(m_pTail, nullptr, element)); }
    void AddHead(CList* other);
    void AddTail(CList* other);
    void RemoveAll();

    POSITION GetHeadPosition() const { return Place(m_pHead); }
    POSITION GetTailPosition() const { return Place(m_pTail); }
    TYPE& GetNext(POSITION& position) { return Step(position, &CNode::pNext)->data; }
    const TYPE& GetNext(POSITION& position) const { return Step(position, &CNode::pNext)->data; }
    TYPE& GetPrev(POSITION& position) { return Step(position, &CNode::pPrev)->data; }
    const TYPE& GetPrev(POSITION& position) const { return Step(position, &CNode::pPrev)->data; }

    TYPE& GetAt(POSITION position) { return Used(Node(position))->data; }
    const TYPE& GetAt(POSITION position) const { return Used(Node(position))->data; }
    void SetAt(POSITION position, ARG_TYPE element) { Used(Node(position))->data = element; }
    void RemoveAt(POSITION position) { Unlink(Used(Node(position))); }

    // A null position stands for the head (before) or the tail (after).
    POSITION InsertBefore(POSITION position, ARG_TYPE element);
    POSITION InsertAfter(POSITION position, ARG_TYPE element);

    // The first element equal to `value` behind `startAfter` (null: from the head); null if there is none.
    POSITION Find(ARG_TYPE value, POSITION startAfter = nullptr) const;
    POSITION FindIndex(int index) const;

private:
    static CNode* Node(POSITION position) { return reinterpret_cast<CNode*>(position); }
    static POSITION Place(const CNode* node) { return reinterpret_cast<POSITION>(const_cast<CNode*>(node)); }
    static CNode* Used(CNode* node)
    {
        if (!node)
            AfxThrowInvalidArgException();
        return node;
    }
    static CNode* Step(POSITION& position, CNode* CNode::*link)
    {
        CNode* node = Used(Node(position));
        position = Place(node->*link);
        return node;
    }
    CNode* Insert(CNode* before, CNode* after, ARG_TYPE element);
    void Unlink(CNode* node);

    CNode* m_pHead = nullptr;
    CNode* m_pTail = nullptr;
    int m_nCount = 0;
};

template <class TYPE, class ARG_TYPE>
auto CList<TYPE, ARG_TYPE>::Insert(CNode* before, CNode* after, ARG_TYPE element) -> CNode*
{
    std::unique_ptr<CNode> node(::new (std::nothrow) CNode{after, before, TYPE()});
    if (!node)
        AfxThrowMemoryException();
    node->data = element;
    (before ? before->pNext : m_pHead) = node.get();
    (after ? after->pPrev : m_pTail) = node.get();
    ++m_nCount;
    return node.release();
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::Unlink(CNode* node)
{
    (node->pPrev ? node->pPrev->pNext : m_pHead) = node->pNext;
    (node->pNext ? node->pNext->pPrev : m_pTail) = node->pPrev;
    --m_nCount;
    delete node;
}

template <class TYPE, class ARG_TYPE>
TYPE CList<TYPE, ARG_TYPE>::RemoveHead()
{
    TYPE result = std::move(GetHead());
    Unlink(m_pHead);
    return result;
}

template <class TYPE, class ARG_TYPE>
TYPE CList<TYPE, ARG_TYPE>::RemoveTail()
{
    TYPE result = std::move(GetTail());
    Unlink(m_pTail);
    return result;
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddHead(CList* other)
{
    const CNode* node = other->m_pTail;
    for (int left = other->m_nCount; left > 0; --left, node = node->pPrev)
        AddHead(node->data);
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddTail(CList* other)
{
    const CNode* node = other->m_pHead;
    for (int left = other->m_nCount; left > 0; --left, node = node->pNext)
        AddTail(node->data);
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::RemoveAll()
{
    while (m_pHead)
        Unlink(m_pHead);
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertBefore(POSITION position, ARG_TYPE element)
{
    CNode* node = position ? Node(position) : m_pHead;
    return Place(Insert(node ? node->pPrev : nullptr, node, element));
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertAfter(POSITION position, ARG_TYPE element)
{
    CNode* node = position ? Node(position) : m_pTail;
    return Place(Insert(node, node ? node->pNext : nullptr, element));
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::Find(ARG_TYPE value, POSITION startAfter) const
{
    const std::remove_reference_t<ARG_TYPE>* wanted = std::addressof(value);
    const CNode* node = startAfter ? Node(startAfter)->pNext : m_pHead;
    while (node && !CompareElements(&node->data, wanted))
        node = node->pNext;
    return Place(node);
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::FindIndex(int index) const
{
    if (index < 0 || index >= m_nCount)
        return nullptr;
    const CNode* node = m_pHead;
    while (index-- > 0)
        node = node->pNext;
    return Place(node);
}

#pragma pop_macro("new")
