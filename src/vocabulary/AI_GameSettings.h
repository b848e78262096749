// The settings of the game a script will play, and the evaluation of define
// words against them. A define's SID names the field it tests and, in a
// group of several SIDs, the value that makes it hold.
#ifndef STRATAGEM_VOCABULARY_AI_GAMESETTINGS_H
#define STRATAGEM_VOCABULARY_AI_GAMESETTINGS_H

#include "../platform/afx.h"

struct AI_GameSettings
{
    int bDeathMatch;
    int bRegicide;
    int nStartingAge;        // 0 dark .. 4 post-imperial
    int nStartingResources;  // 0 low, 1 medium, 2 high
    int nMapSize;            // 0 tiny .. 5 giant
    int nMapType;            // 0 arabia .. 15 scenario map
    int nVictoryCondition;   // 0 standard .. 4 custom
    int nDifficulty;         // 0 easiest .. 4 hardest
    int nPopulationCap;      // 25 * (value + 1)
    int bGameSpeedLocked;
    int bTeamsLocked;
    int nCiv;  // 0 gaia, 1 briton .. 13 viking
};

// One field of the settings record and the define SIDs that test it. A
// flag field has one SID, which answers the field's stored value; the SID
// nFirstDefine + v of any other field holds when the field is v.
struct AI_SettingsField
{
    char const *pszName;  // as in the record: "bDeathMatch" ...
    int AI_GameSettings::*pField;
    unsigned int nFirstDefine;
    unsigned int nLastDefine;

    bool IsFlag() const { return nFirstDefine == nLastDefine; }
};

// The fields in the record's order; *pnCount receives their number.
STRATAGEM_API AI_SettingsField const *AI_SettingsFields(int *pnCount);

// The host's settings record; the library never writes it.
extern STRATAGEM_API AI_GameSettings AI_gsSettings;

// Not 0 when the define holds for the given settings: the flag fields give
// their stored value, grouped fields 1 or 0; unknown SIDs give 0.
STRATAGEM_API int AI_DefineFor(AI_GameSettings const &settings, unsigned int nSID);
// The same against AI_gsSettings.
STRATAGEM_API int AI_Define(unsigned int nSID);

#endif
