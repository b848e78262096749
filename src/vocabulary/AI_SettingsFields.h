// The fields of AI_GameSettings by name, and the define words that set them,
// for hosts that take settings by name (the command line, the editor server).
#ifndef STRATAGEM_VOCABULARY_AI_SETTINGSFIELDS_H
#define STRATAGEM_VOCABULARY_AI_SETTINGSFIELDS_H

#include <iosfwd>
#include <string>
#include <vector>

#include "AI_GameSettings.h"

typedef AI_SettingsField SettingsField;

// The field called exactly `name`, or null.
STRATAGEM_API SettingsField const *FindSettingsField(char const *name);

// Makes the define with this SID hold in `settings`: a flag field gets 1, a
// grouped field the define's offset in its group. Returns false for a SID in
// no group (nothing is changed then).
STRATAGEM_API bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings);

// The field a define tests and the value that makes it hold (1 for a
// flag); null for a SID in no group.
STRATAGEM_API SettingsField const *DefineField(unsigned int nSID, int &value);

// Every field, in the record's order.
struct SettingsFieldList
{
    SettingsField const *pBegin;
    SettingsField const *pEnd;
    SettingsField const *begin() const { return pBegin; }
    SettingsField const *end() const { return pEnd; }
};
STRATAGEM_API SettingsFieldList AllSettingsFields();

// The field names, comma separated, for messages.
STRATAGEM_API std::string SettingsFieldNames();

// A registered define word of a field and the value it gives the field.
struct DefineWord
{
    std::string strWord;
    int nValue;
};

// The field's define words as the vocabulary registers them, in SID order.
STRATAGEM_API std::vector<DefineWord> DefineWords(SettingsField const &field);

// The values a field takes in a game: 0 or 1 for a flag, otherwise 0 to the
// largest value one of its registered define words stands for.
struct ValueRange
{
    int nMin;
    int nMax;
};
STRATAGEM_API ValueRange FieldRange(SettingsField const &field);

// One line per field: its name, its default, its range and its define words.
STRATAGEM_API void WriteSettingsList(std::ostream &out);

#endif
