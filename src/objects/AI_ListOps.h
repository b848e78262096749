// The behaviour the five owning list classes share, written once over their
// typed pointer lists. A null entry (only a host can add one) is treated as
// absent. Internal to the library.
#ifndef STRATAGEM_OBJECTS_AI_LISTOPS_H
#define STRATAGEM_OBJECTS_AI_LISTOPS_H

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

// The description of a list: its format filled with the element count.
template <class T>
CString Describe(char const *pszFormat, List<T> const &list)
{
    CString str;
    str.Format(pszFormat, static_cast<int>(list.GetCount()));
    return str;
}

}  // namespace lists

#endif
