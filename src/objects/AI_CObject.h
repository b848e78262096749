// AI_CObject: the root of every script object, and the shared indentation
// routine of the listing writers.
#ifndef STRATAGEM_OBJECTS_AI_COBJECT_H
#define STRATAGEM_OBJECTS_AI_COBJECT_H

#include <cstddef>
#include <iosfwd>
#include <new>

#include "../platform/afx.h"

class STRATAGEM_API AI_CObject : public CObject
{
    DECLARE_DYNCREATE(AI_CObject)

public:
    AI_CObject();
    virtual ~AI_CObject();

    // One-line text naming the object; "object" for a bare object.
    virtual CString GetDescription();
    // The same for a read-only object: a description changes nothing.
    CString GetDescription() const { return const_cast<AI_CObject *>(this)->GetDescription(); }
    // Appends the direct children (never clears the list, never recurses).
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    // Writes the object's listing at the given indentation level.
    virtual void PrettyPrint(std::ostream &, int) const;

    // Writes one tab per level; nothing for a level of 0 or less.
    void Offset(std::ostream &, int) const;

    // Script objects are small and made by the hundred thousand: they come
    // from the block pool. The nothrow form answers null when memory is out.
    static void *operator new(std::size_t nSize);
    static void *operator new(std::size_t nSize, std::nothrow_t const &) noexcept;
    static void operator delete(void *p, std::size_t nSize) noexcept;
    // Used only when a constructor throws after the nothrow form.
    static void operator delete(void *p, std::nothrow_t const &) noexcept;
};

#endif
