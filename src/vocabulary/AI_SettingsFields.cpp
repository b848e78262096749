#include "AI_SettingsFields.h"

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <ostream>

#include "AI_SymbolTable.h"

namespace {

SettingsField const s_fields[] = {
    {"bDeathMatch", &AI_GameSettings::bDeathMatch},
    {"bRegicide", &AI_GameSettings::bRegicide},
    {"nStartingAge", &AI_GameSettings::nStartingAge},
    {"nStartingResources", &AI_GameSettings::nStartingResources},
    {"nMapSize", &AI_GameSettings::nMapSize},
    {"nMapType", &AI_GameSettings::nMapType},
    {"nVictoryCondition", &AI_GameSettings::nVictoryCondition},
    {"nDifficulty", &AI_GameSettings::nDifficulty},
    {"nPopulationCap", &AI_GameSettings::nPopulationCap},
    {"bGameSpeedLocked", &AI_GameSettings::bGameSpeedLocked},
    {"bTeamsLocked", &AI_GameSettings::bTeamsLocked},
    {"nCiv", &AI_GameSettings::nCiv},
};

// Define SIDs come in groups, one per field. A single-SID group is a flag
// (holds when its field is not 0); in a wider group the SID's distance from
// the group's first SID is the field value that makes it hold.
struct DefineGroup
{
    unsigned int nFirst;
    unsigned int nLast;
    int AI_GameSettings::*pMember;
};

DefineGroup const s_groups[] = {
    {100, 100, &AI_GameSettings::bDeathMatch},
    {101, 101, &AI_GameSettings::bRegicide},
    {110, 119, &AI_GameSettings::nStartingAge},
    {120, 129, &AI_GameSettings::nStartingResources},
    {130, 139, &AI_GameSettings::nMapSize},
    {140, 159, &AI_GameSettings::nMapType},
    {160, 169, &AI_GameSettings::nVictoryCondition},
    {170, 179, &AI_GameSettings::nDifficulty},
    {180, 189, &AI_GameSettings::nPopulationCap},
    {190, 190, &AI_GameSettings::bGameSpeedLocked},
    {200, 200, &AI_GameSettings::bTeamsLocked},
    {210, 229, &AI_GameSettings::nCiv},
};

DefineGroup const *GroupOf(SettingsField const &field)
{
    for (DefineGroup const &group : s_groups)
        if (group.pMember == field.pMember)
            return &group;
    return nullptr;
}

bool IsFlag(DefineGroup const &group)
{
    return group.nFirst == group.nLast;
}

} // namespace

SettingsField const *FindSettingsField(char const *name)
{
    for (SettingsField const &field : s_fields)
        if (std::strcmp(field.szName, name) == 0)
            return &field;
    return nullptr;
}

namespace {

DefineGroup const *GroupOf(unsigned int nSID, int &value)
{
    for (DefineGroup const &group : s_groups)
    {
        if (nSID < group.nFirst || nSID > group.nLast)
            continue;
        bool const bFlag = group.nFirst == group.nLast;
        value = bFlag ? 1 : static_cast<int>(nSID - group.nFirst);
        return &group;
    }
    return nullptr;
}

} // namespace

bool ApplyDefine(unsigned int nSID, AI_GameSettings &settings)
{
    int value = 0;
    DefineGroup const *group = GroupOf(nSID, value);
    if (group)
        settings.*group->pMember = value;
    return group != nullptr;
}

SettingsField const *DefineField(unsigned int nSID, int &value)
{
    DefineGroup const *group = GroupOf(nSID, value);
    if (!group)
        return nullptr;
    for (SettingsField const &field : s_fields)
        if (field.pMember == group->pMember)
            return &field;
    return nullptr;
}

SettingsFieldList AllSettingsFields()
{
    return {std::begin(s_fields), std::end(s_fields)};
}

std::string SettingsFieldNames()
{
    std::string names;
    for (SettingsField const &field : s_fields)
        names += (names.empty() ? "" : ", ") + std::string(field.szName);
    return names;
}

std::vector<DefineWord> DefineWords(SettingsField const &field)
{
    std::vector<DefineWord> words;
    DefineGroup const *group = GroupOf(field);
    for (unsigned int nSID = group ? group->nFirst : 1; group && nSID <= group->nLast; ++nSID)
    {
        if (!AI_IsDefine(nSID))
            continue;
        int const nValue = IsFlag(*group) ? 1 : static_cast<int>(nSID - group->nFirst);
        words.push_back({static_cast<char const *>(AI_String(nSID)), nValue});
    }
    return words;
}

ValueRange FieldRange(SettingsField const &field)
{
    ValueRange range{0, 1};
    DefineGroup const *group = GroupOf(field);
    if (group && !IsFlag(*group))
    {
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
    for (SettingsField const &field : s_fields)
    {
        ValueRange const range = FieldRange(field);
        out << std::setw(20) << field.szName << std::setw(9) << AI_gsSettings.*field.pMember << std::setw(9)
            << (std::to_string(range.nMin) + ".." + std::to_string(range.nMax));
        char const *separator = "";
        for (DefineWord const &word : DefineWords(field))
        {
            out << separator << word.strWord << " (" << word.nValue << ")";
            separator = ", ";
        }
        out << '\n';
    }
}
