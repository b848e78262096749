#include "AI_SymbolTable.h"

#include <memory>

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
    char const *pszText = pszName ? pszName : "";
    r.symbols.Set(pszText, nSID);
    r.sids.SetName(nSID, pszText);
}

bool Forget(unsigned int nSID)
{
    Registry &r = TheRegistry();
    std::unique_ptr<char[]> const pszName = r.sids.TakeName(nSID);
    if (!pszName)
        return false;
    r.symbols.Erase(pszName.get());
    return true;
}

int IsRegistered(unsigned int nSID)
{
    return TheRegistry().sids.Name(nSID) ? 1 : 0;
}

char const *NameOf(unsigned int nSID)
{
    char const *pszName = TheRegistry().sids.Name(nSID);
    return pszName ? pszName : "";
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
    return pszName ? vocabulary::TheRegistry().symbols.Find(pszName) : 0;
}

CString AI_String(unsigned int nSID)
{
    return CString(vocabulary::NameOf(nSID));
}

int AI_IsDefine(unsigned int nSID) { return IsKind(kDefines, nSID); }
int AI_IsFact(unsigned int nSID) { return IsKind(kFacts, nSID); }
int AI_IsAction(unsigned int nSID) { return IsKind(kActions, nSID); }
int AI_IsParam(unsigned int nSID) { return IsKind(kParams, nSID); }
int AI_IsConstant(unsigned int nSID) { return IsKind(kConstants, nSID); }

