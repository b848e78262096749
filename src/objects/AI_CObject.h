// AI_CObject: the root of every script object, and the shared indentation
// routine of the listing writers.
#ifndef STRATAGEM_OBJECTS_AI_COBJECT_H
#define STRATAGEM_OBJECTS_AI_COBJECT_H

#include <cstddef>
#include <iosfwd>
#include <new>

#include "../platform/afx.h"
#include "AI_SourceSpan.h"

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

    // Where the object was read from in its file; AI_NO_SPAN (-1, -1) for
    // an object built by hand. The parser sets it once, when it builds the
    // object. Which file holds the object is its strategy's business (the
    // file whose command list holds it), so the object keeps only offsets.
    AI_SourceSpan GetSpan() const { return m_span; }
    void SetSpan(AI_SourceSpan span) { m_span = span; }
    bool HasSpan() const { return m_span.nBegin >= 0; }

private:
    AI_SourceSpan m_span = AI_NO_SPAN;
};

#endif
