// Settings fields by name, over the one table of fields in the game settings.
#include "AI_SettingsFields.h"

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <ostream>

#include "AI_SymbolTable.h"

SettingsFieldList AllSettingsFields()
{
    int nCount = 0;
    AI_SettingsField const *pFields = AI_SettingsFields(&nCount);
    return {pFields, pFields + nCount};
}

SettingsField const *FindSettingsField(char const *name)
{
    for (SettingsField const &field : AllSettingsFields())
        if (std::strcmp(field.pszName, name) == 0)
            return &field;
    return nullptr;
}

SettingsField const *DefineField(unsigned int nSID, int &value)
{
    for (SettingsField const &field : AllSettingsFields()) {
        if (nSID < field.nFirstDefine || nSID > field.nLastDefine)
            continue;
        value = field.IsFlag() ? 1 : static_cast<int>(nSID - field.nFirstDefine);
        return &field;
    }
    return nullptr;
}

bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings)
{
    int value = 0;
    SettingsField const *field = DefineField(nSID, value);
    if (field)
        settings.*field->pField = value;
    return field != nullptr;
}

std::string SettingsFieldNames()
{
    std::string names;
    for (SettingsField const &field : AllSettingsFields())
        names += (names.empty() ? "" : ", ") + std::string(field.pszName);
    return names;
}

std::vector<DefineWord> DefineWords(SettingsField const &field)
{
    std::vector<DefineWord> words;
    for (unsigned int nSID = field.nFirstDefine; nSID <= field.nLastDefine; ++nSID) {
        if (!AI_IsDefine(nSID))
            continue;
        int const nValue = field.IsFlag() ? 1 : static_cast<int>(nSID - field.nFirstDefine);
        words.push_back({static_cast<char const *>(AI_String(nSID)), nValue});
    }
    return words;
}

ValueRange FieldRange(SettingsField const &field)
{
    ValueRange range {0, 1};
    if (!field.IsFlag()) {
        range.nMax = 0;
        for (DefineWord const &word : DefineWords(field))
            range.nMax = std::max(range.nMax, word.nValue);
    }
    return range;
}

void WriteSettingsList(std::ostream &out)
{
    out << std::left << std::setw(20) << "field" << std::setw(9) << "default" << std::setw(9) << "range"
        << "define words (value)\n";
    for (SettingsField const &field : AllSettingsFields()) {
        ValueRange const range = FieldRange(field);
        out << std::setw(20) << field.pszName << std::setw(9) << AI_gsSettings.*field.pField << std::setw(9)
            << (std::to_string(range.nMin) + ".." + std::to_string(range.nMax));
        char const *separator = "";
        for (DefineWord const &word : DefineWords(field)) {
            out << separator << word.strWord << " (" << word.nValue << ")";
            separator = ", ";
        }
        out << '\n';
    }
}
