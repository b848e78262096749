// The evaluation of define SIDs against a settings record (the defaults are
// pinned by the host's settings list and sample listing).
#include <climits>

#include "VocabularyTest.h"

namespace {

using GameSettings = VocabularyTest;

// A grouped field selects the SID first + value of its group; a flag answers
// its own stored value; SIDs outside every group never hold.
TEST_F(GameSettings, FieldsSelectTheirSidsAndFlagsAnswerTheirValue)
{
    AI_GameSettings settings {};
    settings.bRegicide = 7;
    settings.nStartingAge = 4;
    settings.nMapType = 15;
    settings.nCiv = 13;
    settings.nPopulationCap = -1;
    settings.bTeamsLocked = INT_MIN;
    std::pair<unsigned int, int> const rows[] = {
        {100, 0}, {101, 7}, {110, 0}, {114, 1},       {115, 0}, {120, 1}, {140, 0},  {155, 1},         {159, 0},
        {180, 0}, {189, 0}, {190, 0}, {200, INT_MIN}, {210, 0}, {223, 1}, {229, 0},  {0, 0},           {99, 0},
        {102, 0}, {109, 0}, {191, 0}, {199, 0},       {201, 0}, {230, 0}, {4001, 0}, {0xFFFFFFFFu, 0},
    };
    for (auto const &[nSID, nExpected] : rows)
        EXPECT_EQ(nExpected, AI_DefineFor(settings, nSID)) << nSID;
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
