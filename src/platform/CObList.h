// Ordered, doubly linked lists of pointers: CObList (of CObject *), CPtrList
// (of void *) and the typed wrapper CTypedPtrList. A list never deletes what
// its elements point to; the owner of the list does.
#ifndef STRATAGEM_PLATFORM_COBLIST_H
#define STRATAGEM_PLATFORM_COBLIST_H

#include <functional>

#include "CObject.h"
#include "memory.h"

// The shared list machinery; POSITION is a node pointer. As in the class
// library, a removed node is kept for the list's next insertion (the parser
// remembers and forgets an object for every one it builds), and the nodes
// are freed when the list is emptied or destroyed. The first nodes live in
// the list itself: most lists of a script (arguments, conditions, actions)
// hold one or two elements, which then cost no allocation of their own. A
// list never moves, so its nodes and positions stay where they are.
template <class ELEMENT>
class CPointerList
{
    static int const kInlineNodes = 2;

    struct CNode : __POSITION
    {
        CNode *pNext;
        CNode *pPrev;
        ELEMENT data;
    };

public:
    CPointerList() = default;
    CPointerList(CPointerList const &) = delete;
    CPointerList &operator=(CPointerList const &) = delete;
    ~CPointerList() { RemoveAll(); }

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    ELEMENT &GetHead() { return m_pHead->data; }
    ELEMENT GetHead() const { return m_pHead->data; }
    ELEMENT &GetTail() { return m_pTail->data; }
    ELEMENT GetTail() const { return m_pTail->data; }

    POSITION GetHeadPosition() const { return m_pHead; }
    POSITION GetTailPosition() const { return m_pTail; }

    ELEMENT &GetNext(POSITION &rPosition) { return Step(rPosition, &CNode::pNext); }
    ELEMENT GetNext(POSITION &rPosition) const { return Step(rPosition, &CNode::pNext); }
    ELEMENT &GetPrev(POSITION &rPosition) { return Step(rPosition, &CNode::pPrev); }
    ELEMENT GetPrev(POSITION &rPosition) const { return Step(rPosition, &CNode::pPrev); }

    POSITION AddTail(ELEMENT newElement)
    {
        CNode *pNode = NewNode();
        *pNode = CNode {{}, nullptr, m_pTail, newElement};
        (m_pTail ? m_pTail->pNext : m_pHead) = pNode;
        m_pTail = pNode;
        ++m_nCount;
        return pNode;
    }
    // Appends the elements of another list (the other list is unchanged).
    // Counted first, so that a list appended to itself is doubled.
    void AddTail(CPointerList const *pNewList)
    {
        CNode const *pNode = pNewList->m_pHead;
        for (INT_PTR n = pNewList->m_nCount; n > 0; --n, pNode = pNode->pNext)
            AddTail(pNode->data);
    }

    void RemoveAt(POSITION position)
    {
        CNode *pNode = static_cast<CNode *>(position);
        (pNode->pPrev ? pNode->pPrev->pNext : m_pHead) = pNode->pNext;
        (pNode->pNext ? pNode->pNext->pPrev : m_pTail) = pNode->pPrev;
        pNode->pNext = m_pFree;
        m_pFree = pNode;
        --m_nCount;
    }
    void RemoveAll()
    {
        for (CNode *pChain : {m_pHead, m_pFree})
            for (CNode *pNode = pChain; pNode;) {
                CNode *pNext = pNode->pNext;
                if (!IsInline(pNode))
                    delete pNode;
                pNode = pNext;
            }
        m_pHead = m_pTail = m_pFree = nullptr;
        m_nCount = 0;
        m_nInlineUsed = 0;
    }

    // The first position holding the element, searching after startAfter
    // (or from the head); null when there is none.
    POSITION Find(ELEMENT searchValue, POSITION startAfter = nullptr) const
    {
        CNode *pNode = startAfter ? static_cast<CNode *>(startAfter)->pNext : m_pHead;
        for (; pNode; pNode = pNode->pNext)
            if (pNode->data == searchValue)
                return pNode;
        return nullptr;
    }

private:
    CNode *m_pHead = nullptr;
    CNode *m_pTail = nullptr;
    CNode *m_pFree = nullptr;  // removed nodes, for the next insertions
    int m_nCount = 0;          // an int beside the next one keeps a list small
    int m_nInlineUsed = 0;     // inline nodes handed out since the list was empty
    CNode m_inlineNodes[kInlineNodes];

    bool IsInline(CNode const *pNode) const
    {
        std::less<CNode const *> const before;
        return !before(pNode, m_inlineNodes) && before(pNode, m_inlineNodes + kInlineNodes);
    }

    CNode *NewNode()
    {
        CNode *pNode = m_pFree;
        if (pNode)
            m_pFree = pNode->pNext;
        else if (m_nInlineUsed < kInlineNodes)
            pNode = &m_inlineNodes[m_nInlineUsed++];
        else if (!(pNode = new (std::nothrow) CNode))
            AfxThrowMemoryException();
        return pNode;
    }

    static ELEMENT &Step(POSITION &rPosition, CNode *CNode::*pLink)
    {
        CNode *pNode = static_cast<CNode *>(rPosition);
        rPosition = pNode->*pLink;
        return pNode->data;
    }
};

class CObList : public CPointerList<CObject *>
{
public:
    explicit CObList(INT_PTR /*nBlockSize*/ = 10) {}
};

class CPtrList : public CPointerList<void *>
{
public:
    explicit CPtrList(INT_PTR /*nBlockSize*/ = 10) {}
};

// A list of TYPE pointers. The original stores them in a list of base
// pointers and casts on the way out; here the elements are stored with their
// own type, so no cast is needed. BASE_CLASS names the original's base list.
template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public CPointerList<TYPE>
{
public:
    explicit CTypedPtrList(INT_PTR /*nBlockSize*/ = 10) {}
};

#endif
