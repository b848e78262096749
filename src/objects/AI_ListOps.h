// The behaviour the five owning list classes share, written once over their
// typed pointer lists. A null entry (only a host can add one) is treated as
// absent. Internal to the library.
#ifndef STRATAGEM_OBJECTS_AI_LISTOPS_H
#define STRATAGEM_OBJECTS_AI_LISTOPS_H

#include <charconv>
#include <cstring>
#include <ostream>

#include "AI_CObject.h"

namespace lists {

template <class T>
using List = CTypedPtrList<CObList, T *>;

// Deletes every element in list order, then empties the list.
template <class T>
void DeleteAll(List<T> &list)
{
    for (POSITION pos = list.GetHeadPosition(); pos;)
        delete list.GetNext(pos);
    list.RemoveAll();
}

// Appends each element to the output list after what it already holds.
template <class T>
void AppendTo(List<T> const &list, List<AI_CObject> &out)
{
    for (POSITION pos = list.GetHeadPosition(); pos;) {
        T *p = list.GetNext(pos);
        if (p)
            out.AddTail(p);
    }
}

// Writes each element at the level, each followed by a line end.
template <class T>
void PrintEach(List<T> const &list, std::ostream &os, int nLevel)
{
    for (POSITION pos = list.GetHeadPosition(); pos;) {
        T *p = list.GetNext(pos);
        if (!p)
            continue;
        p->PrettyPrint(os, nLevel);
        os << std::endl;
    }
}

// Appends one child when it is present.
inline void AppendIf(AI_CObject *p, List<AI_CObject> &out)
{
    if (p)
        out.AddTail(p);
}

// A description holding one number: the text before it, the number in
// decimal, the text after it. Joined rather than formatted, as a tree walk
// asks every object for its description.
// The texts are the short ones of the descriptions; longer ones are joined
// piece by piece.
inline CString WithNumber(char const *pszBefore, int nValue, char const *pszAfter = "")
{
    char szDigits[16];
    std::size_t const nDigits = std::to_chars(szDigits, szDigits + sizeof szDigits, nValue).ptr - szDigits;
    std::size_t const nBefore = std::strlen(pszBefore), nAfter = std::strlen(pszAfter);
    char szText[80];
    if (nBefore + nDigits + nAfter > sizeof szText)
        return pszBefore + CString(szDigits, static_cast<int>(nDigits)) + pszAfter;
    std::memcpy(szText, pszBefore, nBefore);
    std::memcpy(szText + nBefore, szDigits, nDigits);
    std::memcpy(szText + nBefore + nDigits, pszAfter, nAfter);
    return CString(szText, static_cast<int>(nBefore + nDigits + nAfter));
}

// The description of a list: the element count between the two texts.
template <class T>
CString Describe(char const *pszBefore, List<T> const &list, char const *pszAfter)
{
    return WithNumber(pszBefore, static_cast<int>(list.GetCount()), pszAfter);
}

}  // namespace lists

#endif
