#include "AI_SymbolTable.h"

#include "AI_Constants.h"
#include "AI_FunctionTable.h"
#include "AI_Registry.h"

namespace vocabulary {

Registry &TheRegistry()
{
    // Built on first use, so no other static initialiser can find it unbuilt.
    static Registry registry;
    return registry;
}

void Intern(char const *pszName, unsigned int nSID)
{
    Registry &r = TheRegistry();
    std::string name(pszName ? pszName : "");
    r.symbols[name] = nSID;
    r.names[nSID] = CString(name.c_str());
}

bool Forget(unsigned int nSID)
{
    Registry &r = TheRegistry();
    auto const it = r.names.find(nSID);
    if (it == r.names.end())
        return false;
    std::string const name(static_cast<char const *>(it->second));
    r.names.erase(it);
    r.symbols.erase(name);
    return true;
}

int IsRegistered(unsigned int nSID)
{
    Registry const &r = TheRegistry();
    return r.names.find(nSID) != r.names.end() ? 1 : 0;
}

}  // namespace vocabulary

namespace {

// Inclusive SID range of one kind of symbol.
struct KindRange
{
    unsigned int nFirst;
    unsigned int nLast;
};

KindRange const kDefines = {100, 299};
KindRange const kFacts = {300, 499};
KindRange const kActions = {500, 699};
KindRange const kParams = {1100, 3499};
KindRange const kConstants = {4001, 0xFFFFFFFFu};

int IsKind(KindRange const &kind, unsigned int nSID)
{
    if (nSID < kind.nFirst || nSID > kind.nLast)
        return 0;
    return vocabulary::IsRegistered(nSID);
}

}  // namespace

unsigned int AI_Symbol(char const *pszName)
{
    if (!pszName)
        return 0;
    vocabulary::Registry const &r = vocabulary::TheRegistry();
    auto const it = r.symbols.find(pszName);
    return it != r.symbols.end() ? it->second : 0;
}

CString AI_String(unsigned int nSID)
{
    vocabulary::Registry const &r = vocabulary::TheRegistry();
    auto const it = r.names.find(nSID);
    return it != r.names.end() ? it->second : CString();
}

int AI_IsDefine(unsigned int nSID) { return IsKind(kDefines, nSID); }
int AI_IsFact(unsigned int nSID) { return IsKind(kFacts, nSID); }
int AI_IsAction(unsigned int nSID) { return IsKind(kActions, nSID); }
int AI_IsParam(unsigned int nSID) { return IsKind(kParams, nSID); }
int AI_IsConstant(unsigned int nSID) { return IsKind(kConstants, nSID); }

void AI_DeleteAll()
{
    AI_DeleteFacts();
    AI_DeleteActions();
    AI_DeleteConstants();
    vocabulary::Registry &r = vocabulary::TheRegistry();
    r.names.clear();
    r.symbols.clear();
}
