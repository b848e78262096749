#include "AI_GameSettings.h"

AI_GameSettings AI_gsSettings = {
    0,  // bDeathMatch
    0,  // bRegicide
    0,  // nStartingAge: dark age
    1,  // nStartingResources: medium
    1,  // nMapSize: small
    4,  // nMapType: coastal
    0,  // nVictoryCondition: standard
    2,  // nDifficulty: moderate
    2,  // nPopulationCap: 75
    1,  // bGameSpeedLocked
    0,  // bTeamsLocked
    2,  // nCiv: byzantine
};

namespace {

AI_SettingsField const kFields[] = {
    {"bDeathMatch", &AI_GameSettings::bDeathMatch, 100, 100},
    {"bRegicide", &AI_GameSettings::bRegicide, 101, 101},
    {"nStartingAge", &AI_GameSettings::nStartingAge, 110, 119},
    {"nStartingResources", &AI_GameSettings::nStartingResources, 120, 129},
    {"nMapSize", &AI_GameSettings::nMapSize, 130, 139},
    {"nMapType", &AI_GameSettings::nMapType, 140, 159},
    {"nVictoryCondition", &AI_GameSettings::nVictoryCondition, 160, 169},
    {"nDifficulty", &AI_GameSettings::nDifficulty, 170, 179},
    {"nPopulationCap", &AI_GameSettings::nPopulationCap, 180, 189},
    {"bGameSpeedLocked", &AI_GameSettings::bGameSpeedLocked, 190, 190},
    {"bTeamsLocked", &AI_GameSettings::bTeamsLocked, 200, 200},
    {"nCiv", &AI_GameSettings::nCiv, 210, 229},
};

}  // namespace

AI_SettingsField const *AI_SettingsFields(int *pnCount)
{
    *pnCount = static_cast<int>(sizeof kFields / sizeof *kFields);
    return kFields;
}

int AI_DefineFor(AI_GameSettings const &settings, unsigned int nSID)
{
    for (AI_SettingsField const &field : kFields) {
        if (nSID < field.nFirstDefine || nSID > field.nLastDefine)
            continue;
        int const value = settings.*field.pField;
        if (field.IsFlag())
            return value;
        // A negative field never matches: the offset is at most 19.
        return value == static_cast<int>(nSID - field.nFirstDefine) ? 1 : 0;
    }
    return 0;
}

int AI_Define(unsigned int nSID) { return AI_DefineFor(AI_gsSettings, nSID); }
