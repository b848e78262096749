#include "SettingsFields.h"

#include <cstring>

SettingsField const *FindSettingsField(char const *name)
{
    int nCount = 0;
    AI_SettingsField const *pFields = AI_SettingsFields(&nCount);
    for (int i = 0; i < nCount; ++i)
        if (std::strcmp(pFields[i].pszName, name) == 0)
            return &pFields[i];
    return nullptr;
}

bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings)
{
    int nCount = 0;
    AI_SettingsField const *pFields = AI_SettingsFields(&nCount);
    for (int i = 0; i < nCount; ++i)
    {
        AI_SettingsField const &field = pFields[i];
        if (nSID < field.nFirstDefine || nSID > field.nLastDefine)
            continue;
        settings.*field.pField = field.IsFlag() ? 1 : static_cast<int>(nSID - field.nFirstDefine);
        return true;
    }
    return false;
}
