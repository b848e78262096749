// The settings record's defaults and the evaluation of define SIDs against a
// settings record.
#include <climits>

#include "VocabularyTest.h"

namespace {

// One settings field and the define SIDs that test it.
struct Field
{
    int AI_GameSettings::*pField;
    unsigned int nFirst, nLast;
    bool bFlag;  // a single SID answering the field's own value
};

Field const kFields[] = {
    {&AI_GameSettings::bDeathMatch, 100, 100, true},        {&AI_GameSettings::bRegicide, 101, 101, true},
    {&AI_GameSettings::nStartingAge, 110, 119, false},      {&AI_GameSettings::nStartingResources, 120, 129, false},
    {&AI_GameSettings::nMapSize, 130, 139, false},          {&AI_GameSettings::nMapType, 140, 159, false},
    {&AI_GameSettings::nVictoryCondition, 160, 169, false}, {&AI_GameSettings::nDifficulty, 170, 179, false},
    {&AI_GameSettings::nPopulationCap, 180, 189, false},    {&AI_GameSettings::bGameSpeedLocked, 190, 190, true},
    {&AI_GameSettings::bTeamsLocked, 200, 200, true},       {&AI_GameSettings::nCiv, 210, 229, false},
};

using GameSettings = VocabularyTest;

TEST_F(GameSettings, DefaultsHoldForTheirDefines)
{
    EXPECT_EQ(12 * sizeof(int), sizeof(AI_GameSettings));
    for (unsigned int sid : {110u, 121u, 131u, 144u, 160u, 172u, 182u, 190u, 212u})
        EXPECT_EQ(1, AI_Define(sid)) << sid;
    for (unsigned int sid : {100u, 101u, 111u, 130u, 133u, 200u, 211u})
        EXPECT_EQ(0, AI_Define(sid)) << sid;
}

// For each grouped field and each value, exactly the SID first + value of its
// group holds; every other SID of every group stays 0.
TEST_F(GameSettings, GroupedFieldSelectsExactlyOneSid)
{
    for (Field const &field : kFields) {
        if (field.bFlag)
            continue;
        for (int value = -1; value <= static_cast<int>(field.nLast - field.nFirst) + 1; ++value) {
            AI_GameSettings settings{};
            for (Field const &other : kFields)
                settings.*other.pField = other.bFlag ? 0 : -1;  // holds nowhere
            settings.*field.pField = value;
            for (unsigned int sid = 0; sid < 300; ++sid) {
                bool const holds = value >= 0 && sid == field.nFirst + static_cast<unsigned int>(value) &&
                                   sid <= field.nLast;
                ASSERT_EQ(holds ? 1 : 0, AI_DefineFor(settings, sid) != 0 ? 1 : 0)
                    << "field at " << field.nFirst << " value " << value << " sid " << sid;
            }
        }
    }
}

// Each flag answers its own field's stored value; SIDs outside every group
// never hold. Every field gets a value of its own.
TEST_F(GameSettings, FlagsAnswerTheirStoredValueAndOtherSidsNothing)
{
    for (int value : {0, 7, -3, INT_MIN}) {
        AI_GameSettings settings;
        for (int i = 0; i < 12; ++i)
            settings.*kFields[i].pField = value + i;
        for (int i = 0; i < 12; ++i)
            if (kFields[i].bFlag) {
                EXPECT_EQ(value + i, AI_DefineFor(settings, kFields[i].nFirst)) << kFields[i].nFirst;
            }
        for (unsigned int sid : {0u, 99u, 102u, 109u, 191u, 199u, 201u, 209u, 230u, 299u, 300u, 4001u, 0xFFFFFFFFu})
            EXPECT_EQ(0, AI_DefineFor(settings, sid)) << sid << " with " << value;
    }
}

// AI_Define reads the global record at each call and ignores the registry;
// the registry functions leave the record alone.
TEST_F(GameSettings, GlobalRecordAloneDecides)
{
    AI_gsSettings.bDeathMatch = 7;
    EXPECT_EQ(7, AI_Define(100));
    AI_gsSettings.nDifficulty = 4;
    EXPECT_EQ(1, AI_Define(174));
    EXPECT_EQ(0, AI_Define(172));
    EXPECT_EQ(0, AI_IsDefine(144));
    EXPECT_EQ(1, AI_Define(144));
    AI_AddDefines();
    EXPECT_EQ(1, AI_DeleteDefine(100));
    EXPECT_EQ(7, AI_Define(100));
    AI_AddParam(131, "not-a-define-word");
    EXPECT_EQ(1, AI_Define(131));
    AI_DeleteAll();
    EXPECT_EQ(4, AI_gsSettings.nDifficulty);
    EXPECT_EQ(1, AI_Define(174));
}

}  // namespace
