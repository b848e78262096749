// Shared pieces of the strategy tests.
#ifndef STRATAGEM_TESTS_STRATEGY_STRATEGYSUPPORT_H
#define STRATAGEM_TESTS_STRATEGY_STRATEGYSUPPORT_H

#include <algorithm>
#include <string>
#include <vector>

#include "../objects/TestSupport.h"
#include "strategy/AI_CStrategy.h"

// The defaults of the settings record.
inline AI_GameSettings DefaultSettings()
{
    return AI_GameSettings{0, 0, 0, 1, 1, 4, 0, 2, 2, 1, 0, 2};
}

// The recorded values of a constant, in recording order.
inline std::vector<int> Values(AI_CStrategy const &strategy, unsigned int nSID)
{
    std::vector<int> values;
    CArray<int, int> *pValues = nullptr;
    if (strategy.GetConstants().Lookup(nSID, pValues))
        for (int i = 0; i < pValues->GetSize(); ++i)
            values.push_back(pValues->GetAt(i));
    return values;
}

// The constant table's SIDs in enumeration order.
inline std::vector<unsigned int> ConstantOrder(AI_CStrategy const &strategy)
{
    std::vector<unsigned int> sids;
    for (POSITION pos = strategy.GetConstants().GetStartPosition(); pos;) {
        unsigned int nSID;
        CArray<int, int> *pValues;
        strategy.GetConstants().GetNextAssoc(pos, nSID, pValues);
        sids.push_back(nSID);
    }
    return sids;
}

// The command-list table's names in enumeration order.
inline std::vector<std::string> FileOrder(AI_CStrategy const &strategy)
{
    std::vector<std::string> names;
    for (POSITION pos = strategy.GetCommandLists().GetStartPosition(); pos;) {
        CString strName;
        AI_CCommandList *pList;
        strategy.GetCommandLists().GetNextAssoc(pos, strName, pList);
        names.push_back(strName.GetString());
    }
    return names;
}

inline std::string Stars(int n)
{
    return std::string(n, '*');
}

#endif
