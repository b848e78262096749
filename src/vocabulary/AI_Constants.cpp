#include "AI_Constants.h"

#include "AI_Registry.h"

void AI_AddDefine(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

void AI_AddParam(unsigned int nSID, char const *pszName) { vocabulary::Intern(pszName, nSID); }

unsigned int AI_AddConstant(char const *pszName, int nValue)
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    unsigned int const nSID = r.nextConstant;
    platform::Allocating([&] { r.values[nSID].assign(1, nValue); });
    vocabulary::Intern(pszName, nSID);
    r.nextConstant = nSID + 1;
    return nSID;
}

void AI_AddConstantValue(unsigned int nSID, int nValue)
{
    std::unordered_map<unsigned int, std::vector<int>> &values = vocabulary::TheRegistry().values;
    auto const it = values.find(nSID);
    if (it != values.end())
        platform::Allocating([&] { it->second.push_back(nValue); });
}

int AI_Constant(unsigned int nSID, int nIndex)
{
    std::unordered_map<unsigned int, std::vector<int>> const &values = vocabulary::TheRegistry().values;
    auto const it = values.find(nSID);
    if (it == values.end() || nIndex < 0 || static_cast<std::size_t>(nIndex) >= it->second.size())
        return AI_NO_VALUE;
    return it->second[static_cast<std::size_t>(nIndex)];
}

int AI_DeleteDefine(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteParam(unsigned int nSID) { return vocabulary::Forget(nSID) ? 1 : 0; }

int AI_DeleteConstant(unsigned int nSID)
{
    if (!vocabulary::Forget(nSID))
        return 0;
    vocabulary::TheRegistry().values.erase(nSID);
    return 1;
}

void AI_DeleteConstants()
{
    vocabulary::Registry &r = vocabulary::TheRegistry();
    for (auto const &entry : r.values)
        vocabulary::Forget(entry.first);
    r.values.clear();
}
