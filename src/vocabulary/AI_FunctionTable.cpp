#include "AI_FunctionTable.h"

#include "AI_Registry.h"

namespace {

using vocabulary::FunctionTable;

AI_CFunction const *Find(FunctionTable const &table, unsigned int nSID)
{
    auto const it = table.find(nSID);
    return it != table.end() ? it->second.get() : nullptr;
}

void Add(FunctionTable &table, std::unique_ptr<AI_CFunction> pFunction)
{
    vocabulary::Intern(pFunction->GetName(), pFunction->GetSID());
    // A new registration replaces (and destroys) the signature held before.
    table[pFunction->GetSID()] = std::move(pFunction);
}

int Delete(FunctionTable &table, unsigned int nSID)
{
    if (!vocabulary::Forget(nSID))
        return 0;
    table.erase(nSID);
    return 1;
}

void DeleteAll(FunctionTable &table)
{
    for (auto const &entry : table)
        vocabulary::Forget(entry.first);
    table.clear();
}

}  // namespace

AI_CFunction const *AI_Fact(unsigned int nSID) { return Find(vocabulary::TheRegistry().facts, nSID); }

AI_CFunction const *AI_Action(unsigned int nSID) { return Find(vocabulary::TheRegistry().actions, nSID); }

void AI_AddFact(unsigned int nSID, char const *pszName, int nParam1, int nParam2, int nParam3, int nParam4, int nParam5,
                int nParam6)
{
    platform::Allocating([&] {
        Add(vocabulary::TheRegistry().facts,
            std::make_unique<AI_CFunction>(nSID, pszName, nParam1, nParam2, nParam3, nParam4, nParam5, nParam6));
    });
}

void AI_AddAction(unsigned int nSID, char const *pszName, int nParam1, int nParam2, int nParam3, int nParam4,
                  int nParam5, int nParam6)
{
    platform::Allocating([&] {
        Add(vocabulary::TheRegistry().actions,
            std::make_unique<AI_CFunction>(nSID, pszName, nParam1, nParam2, nParam3, nParam4, nParam5, nParam6));
    });
}

int AI_DeleteFact(unsigned int nSID) { return Delete(vocabulary::TheRegistry().facts, nSID); }

int AI_DeleteAction(unsigned int nSID) { return Delete(vocabulary::TheRegistry().actions, nSID); }

void AI_DeleteFacts() { DeleteAll(vocabulary::TheRegistry().facts); }

void AI_DeleteActions() { DeleteAll(vocabulary::TheRegistry().actions); }
