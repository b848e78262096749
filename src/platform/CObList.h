// Ordered lists of pointers: CObList (of CObject *), CPtrList
// (of void *) and the typed wrapper CTypedPtrList. A list never deletes what
// its elements point to; the owner of the list does.
#ifndef STRATAGEM_PLATFORM_COBLIST_H
#define STRATAGEM_PLATFORM_COBLIST_H

#include <algorithm>
#include <cstdint>

#include "CObject.h"
#include "memory.h"

// The shared list machinery. The elements sit in one array, in order; a
// POSITION is a slot's index plus one, so positions survive the array's
// growth. As in the class library, removing an element leaves every other
// position valid: a removed slot in the middle is marked and skipped by
// the walks, while removed slots at the tail are given back at once (the
// parser remembers and forgets an object for every one it builds, mostly
// the last one). The slots are reused from the start when the list empties.
// The first slots live in the list itself: most lists of a script
// (arguments, conditions, actions) hold one or two elements, which then
// cost no allocation of their own. A list never moves.
template <class ELEMENT>
class CPointerList
{
    static int const kInlineSlots = 2;

public:
    CPointerList() : m_nSlots(0), m_bOnHeap(0) {}
    CPointerList(CPointerList const &) = delete;
    CPointerList &operator=(CPointerList const &) = delete;
    ~CPointerList() { ReleaseSlots(); }

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    ELEMENT &GetHead() { return Slots()[LiveFrom(0, +1)]; }
    ELEMENT GetHead() const { return Slots()[LiveFrom(0, +1)]; }
    ELEMENT &GetTail() { return Slots()[m_nSlots - 1]; }
    ELEMENT GetTail() const { return Slots()[m_nSlots - 1]; }

    POSITION GetHeadPosition() const { return ToPosition(LiveFrom(0, +1)); }
    POSITION GetTailPosition() const { return ToPosition(m_nSlots - 1); }

    ELEMENT &GetNext(POSITION &rPosition) { return Slots()[Step(rPosition, +1)]; }
    ELEMENT GetNext(POSITION &rPosition) const { return Slots()[Step(rPosition, +1)]; }
    ELEMENT &GetPrev(POSITION &rPosition) { return Slots()[Step(rPosition, -1)]; }
    ELEMENT GetPrev(POSITION &rPosition) const { return Slots()[Step(rPosition, -1)]; }

    POSITION AddTail(ELEMENT newElement)
    {
        if (m_nSlots == Capacity())
            Grow();
        Slots()[m_nSlots++] = newElement;
        ++m_nCount;
        return ToPosition(m_nSlots - 1);
    }
    // Appends the elements of another list (the other list is unchanged).
    // The slots are counted first, so that a list appended to itself is
    // doubled.
    void AddTail(CPointerList const *pNewList)
    {
        for (int nSlot = 0, nSlots = pNewList->m_nSlots; nSlot < nSlots; ++nSlot)
            if (!pNewList->IsRemoved(nSlot))
                AddTail(pNewList->Slots()[nSlot]);
    }

    void RemoveAt(POSITION position)
    {
        Slots()[ToSlot(position)] = RemovedMark();
        --m_nCount;
        while (m_nSlots > 0 && IsRemoved(m_nSlots - 1))
            --m_nSlots;
    }
    void RemoveAll()
    {
        ReleaseSlots();
        m_bOnHeap = 0;
        m_nSlots = m_nCount = 0;
    }

    // The first position holding the element, searching after startAfter
    // (or from the head); null when there is none.
    POSITION Find(ELEMENT searchValue, POSITION startAfter = nullptr) const
    {
        for (int nSlot = startAfter ? ToSlot(startAfter) + 1 : 0; nSlot < m_nSlots; ++nSlot)
            if (Slots()[nSlot] == searchValue && !IsRemoved(nSlot))
                return ToPosition(nSlot);
        return nullptr;
    }

private:
    // Small, as a script holds millions of lists: the counts, and a bit
    // that tells which member of the union holds the slots.
    int m_nCount = 0;   // elements
    int m_nSlots : 31;  // slots in use, removed ones in the middle included
    unsigned int m_bOnHeap : 1;
    union
    {
        ELEMENT aInline[kInlineSlots];
        struct
        {
            ELEMENT *pSlots;
            int nCapacity;
        } heap;
    } m_storage;

    ELEMENT *Slots() { return m_bOnHeap ? m_storage.heap.pSlots : m_storage.aInline; }
    ELEMENT const *Slots() const { return m_bOnHeap ? m_storage.heap.pSlots : m_storage.aInline; }
    int Capacity() const { return m_bOnHeap ? m_storage.heap.nCapacity : kInlineSlots; }

    static POSITION ToPosition(int nSlot)
    {
        return nSlot < 0 ? nullptr : reinterpret_cast<POSITION>(static_cast<std::uintptr_t>(nSlot) + 1);
    }
    static int ToSlot(POSITION position) { return static_cast<int>(reinterpret_cast<std::uintptr_t>(position) - 1); }

    // A removed slot holds the address of the list's own count: a value no
    // caller puts into a list, the same wherever the list is walked.
    ELEMENT RemovedMark() const { return reinterpret_cast<ELEMENT>(const_cast<int *>(&m_nCount)); }
    bool IsRemoved(int nSlot) const { return Slots()[nSlot] == RemovedMark(); }

    // The first slot holding an element from nSlot on in the direction
    // given (+1 or -1); -1 when there is none.
    int LiveFrom(int nSlot, int nDirection) const
    {
        for (; nSlot >= 0 && nSlot < m_nSlots; nSlot += nDirection)
            if (!IsRemoved(nSlot))
                return nSlot;
        return -1;
    }

    int Step(POSITION &rPosition, int nDirection) const
    {
        int nSlot = ToSlot(rPosition);
        rPosition = ToPosition(LiveFrom(nSlot + nDirection, nDirection));
        return nSlot;
    }

    void Grow()
    {
        // Half as much again: a fact's three arguments then take an array
        // of three, the smallest block the C library hands out, not four.
        int nCapacity = Capacity() + Capacity() / 2;
        ELEMENT *pSlots = new (std::nothrow) ELEMENT[nCapacity];
        if (!pSlots)
            AfxThrowMemoryException();
        std::copy(Slots(), Slots() + m_nSlots, pSlots);
        ReleaseSlots();
        m_storage.heap.pSlots = pSlots;
        m_storage.heap.nCapacity = nCapacity;
        m_bOnHeap = 1;
    }

    // The compiler cannot tell which member of the union is live and takes
    // an element kept inline for the array's address.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wfree-nonheap-object"
#endif
    void ReleaseSlots()
    {
        if (m_bOnHeap)
            delete[] m_storage.heap.pSlots;
    }
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif
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
