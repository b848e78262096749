#include "AI_Constants.h"

#include "AI_Registry.h"

void AI_AddDefine(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

void AI_AddParam(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

unsigned int AI_AddConstant(char const *pszName, int nValue)
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    unsigned int const nSID = r.nextConstant;
    vocabulary::Intern(pszName, nSID);
    r.sids.SetValues(nSID, nValue);
    r.nextConstant = nSID + 1;
    return nSID;
}

void AI_AddConstantValue(unsigned int nSID, int nValue)
{
    vocabulary::TheRegistry().sids.AddValue(nSID, nValue);
}

int AI_Constant(unsigned int nSID, int nIndex)
{
    int nValue = 0;
    return vocabulary::TheRegistry().sids.Value(nSID, nIndex, nValue) ? nValue : AI_NO_VALUE;
}

int AI_DeleteDefine(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteParam(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteConstant(unsigned int nSID)
{
    if (!vocabulary::Forget(nSID))
        return 0;
    vocabulary::TheRegistry().sids.DropValues(nSID);
    return 1;
}

// Which constant is forgotten first does not matter: forgetting a SID reads
// only that SID's own name.
void AI_DeleteConstants()
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    std::vector<unsigned int> const sids = r.sids.Constants();
    for (unsigned int nSID : sids)
        vocabulary::Forget(nSID);
    for (unsigned int nSID : sids)
        r.sids.DropValues(nSID);
}
