// The fields of AI_GameSettings by name, and the define words that set them,
// for hosts that take settings by name (the command line, the editor server).
#ifndef STRATAGEM_VOCABULARY_AI_SETTINGSFIELDS_H
#define STRATAGEM_VOCABULARY_AI_SETTINGSFIELDS_H

#include "AI_GameSettings.h"

struct SettingsField
{
    char const *szName;                  // as in the record: "bDeathMatch" ...
    int AI_GameSettings::*pMember;
};

// The field called exactly `name`, or null.
STRATAGEM_API SettingsField const *FindSettingsField(char const *name);

// Makes the define with this SID hold in `settings`: a flag field gets 1, a
// grouped field the define's offset in its group. Returns false for a SID in
// no group (nothing is changed then).
STRATAGEM_API bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings);

// The field a define tests and the value that makes it hold (1 for a
// flag); null for a SID in no group.
STRATAGEM_API SettingsField const *DefineField(unsigned int nSID, int &value);

#endif
