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

// The define SIDs nFirst..nLast test one settings field. A flag group (one
// SID) answers the field's stored value; any other group answers whether the
// field equals the SID's offset from nFirst.
struct DefineGroup
{
    unsigned int nFirst;
    unsigned int nLast;
    int AI_GameSettings::*pField;
    bool bFlag;
};

DefineGroup const kGroups[] = {
    {100, 100, &AI_GameSettings::bDeathMatch, true},
    {101, 101, &AI_GameSettings::bRegicide, true},
    {110, 119, &AI_GameSettings::nStartingAge, false},
    {120, 129, &AI_GameSettings::nStartingResources, false},
    {130, 139, &AI_GameSettings::nMapSize, false},
    {140, 159, &AI_GameSettings::nMapType, false},
    {160, 169, &AI_GameSettings::nVictoryCondition, false},
    {170, 179, &AI_GameSettings::nDifficulty, false},
    {180, 189, &AI_GameSettings::nPopulationCap, false},
    {190, 190, &AI_GameSettings::bGameSpeedLocked, true},
    {200, 200, &AI_GameSettings::bTeamsLocked, true},
    {210, 229, &AI_GameSettings::nCiv, false},
};

}  // namespace

int AI_DefineFor(AI_GameSettings const &settings, unsigned int nSID)
{
    for (DefineGroup const &group : kGroups) {
        if (nSID < group.nFirst || nSID > group.nLast)
            continue;
        int const value = settings.*group.pField;
        if (group.bFlag)
            return value;
        // A negative field never matches: the offset is at most 19.
        return value == static_cast<int>(nSID - group.nFirst) ? 1 : 0;
    }
    return 0;
}

int AI_Define(unsigned int nSID) { return AI_DefineFor(AI_gsSettings, nSID); }
