// AI_CObject: the root of every script object, and the shared indentation
// routine of the listing writers.
#ifndef STRATAGEM_OBJECTS_AI_COBJECT_H
#define STRATAGEM_OBJECTS_AI_COBJECT_H

#include <cstddef>
#include <cstdint>
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

    // Where the object begins in its file: a byte offset into the text as
    // read in text mode; -1 for an object built by hand. The parser sets it
    // once, when it builds the object. Where the object ends follows from
    // the text (the token, the parenthesis that closes it, the "#end-if"
    // that closes a block; a list ends with its last element), so the
    // object keeps only this: four bytes, which fit beside the first field
    // of the classes derived from it. Which file holds the object is its
    // strategy's business (the file whose command list holds it).
    int GetBegin() const { return m_nBegin; }
    void SetBegin(int nBegin) { m_nBegin = nBegin; }
    bool HasBegin() const { return m_nBegin >= 0; }

private:
    std::int32_t m_nBegin = -1;
};

#endif
