#include "AI_Constants.h"

#include "AI_Registry.h"

void AI_AddDefine(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

void AI_AddParam(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

unsigned int AI_AddConstant(char const *pszName, int nValue)
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    unsigned int const nSID = r.nextConstant;
    vocabulary::Intern(pszName, nSID);
    r.constants[nSID] = std::vector<int>(1, nValue);
    r.nextConstant = nSID + 1;
    return nSID;
}

void AI_AddConstantValue(unsigned int nSID, int nValue)
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    auto const it = r.constants.find(nSID);
    if (it != r.constants.end())
        it->second.push_back(nValue);
}

int AI_Constant(unsigned int nSID, int nIndex)
{
    vocabulary::Registry const &r = vocabulary::TheRegistry();
    auto const it = r.constants.find(nSID);
    if (it == r.constants.end() || nIndex < 0 || static_cast<size_t>(nIndex) >= it->second.size())
        return AI_NO_VALUE;
    return it->second[static_cast<size_t>(nIndex)];
}

int AI_DeleteDefine(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteParam(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteConstant(unsigned int nSID)
{
    if (!vocabulary::Forget(nSID))
        return 0;
    vocabulary::TheRegistry().constants.erase(nSID);
    return 1;
}

void AI_DeleteConstants()
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    for (auto const &entry : r.constants)
        vocabulary::Forget(entry.first);
    r.constants.clear();
}
