// The fields of AI_GameSettings by name, and the define words that set them.
#ifndef STRATAGEM_CLI_SETTINGSFIELDS_H
#define STRATAGEM_CLI_SETTINGSFIELDS_H

#include "stratagem.h"

typedef AI_SettingsField SettingsField;

// The field called exactly `name`, or null.
SettingsField const *FindSettingsField(char const *name);

// Makes the define with this SID hold in `settings`: a flag field gets 1, a
// grouped field the define's offset in its group. Returns false for a SID in
// no group (nothing is changed then).
bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings);

#endif
