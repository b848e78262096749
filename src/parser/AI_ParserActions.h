// Shared by the files of the parser's semantic actions. Internal to the
// library.
#ifndef STRATAGEM_PARSER_AI_PARSERACTIONS_H
#define STRATAGEM_PARSER_AI_PARSERACTIONS_H

#include <type_traits>

#include "../objects/AI_Objects.h"
#include "../strategy/AI_CStrategy.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_CException.h"
#include "AI_CParser.h"
#include "AI_FrontEnd.h"
#include "AI_Grammar.tab.h"

// The new object owns its parts from now on: the parser forgets them and
// remembers the object instead, so that its cleanup frees the object, and
// through it its parts, whatever happens next. Forgetting cannot fail;
// remembering frees the object when there is no room for it. Every script
// object is handed out here, so here it learns where it begins: where the
// production being reduced begins.
template <class T, class... Owned>
T *AI_CParser::Keep(T *pObject, Owned *...pOwned)
{
    if constexpr (std::is_base_of<AI_CObject, T>::value)
        pObject->SetBegin(AI_spanProduction.nBegin);
    (Forget(pOwned), ...);
    Remember(pObject);
    return pObject;
}

// A list begins with its first element, whatever empty production it grew
// from.
template <class List, class Element>
List *AI_CParser::Append(List *pList, Element *pElement)
{
    if (!pList) {
        pList = Keep(AI_New<List>());
        pList->SetBegin(pElement->GetBegin());
    }
    pList->Add(pElement);
    Forget(pElement);
    return pList;
}

// The objects built from script text are valid, since the actions check
// their parts first; an object that is not would be a fault of the library,
// reported rather than let into the tree. The object is already remembered,
// so the cleanup frees it.
template <class T>
T *AI_RequireValid(T *pObject)
{
    if (!pObject->IsValid())
        AI_RaiseParseError(AI_PE_UNKNOWN, "");
    return pObject;
}

#endif
