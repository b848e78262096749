// The strategy container: its settings, extra files, constant table and
// command-list table, and what it owns.
#include <algorithm>

#include "../objects/TestSupport.h"

using Strategy = ObjectsTest;

TEST_F(Strategy, EvaluatesDefinesOnItsOwnCopyOfTheSettings)
{
    AI_GameSettings settings = DefaultSettings();
    settings.nDifficulty = 4;
    AI_CStrategy strategy("Rush", "rush.txt", settings);
    settings.nDifficulty = 0;
    EXPECT_EQ(1, strategy.Define(174));
    EXPECT_EQ(0, strategy.Define(172));
    EXPECT_EQ(0, AI_Define(174));
    for (unsigned int nSID : {0u, 102u, 191u, 230u, 4001u})
        EXPECT_EQ(0, strategy.Define(nSID)) << nSID;
    EXPECT_EQ("strategy: Rush (rush.txt)", Describe(strategy));

    // Made by the factory, it copies the global settings of that moment.
    AI_gsSettings.nMapSize = 5;
    std::unique_ptr<AI_CObject> pMade = Made(RUNTIME_CLASS(AI_CStrategy));
    AI_gsSettings.nMapSize = 1;
    AI_CStrategy *pStrategy = static_cast<AI_CStrategy *>(pMade.get());
    EXPECT_EQ(1, pStrategy->Define(135));  // GIANT-MAP
    EXPECT_EQ(0, pStrategy->Define(131));
    EXPECT_EQ(1, AI_Define(131));
    EXPECT_EQ("strategy:  ()", Describe(*pStrategy));
}

TEST_F(Strategy, ConstantValuesAreRecordedInOrderAndDeleted)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    int const nNoValue = static_cast<int>(0x80000000u);
    EXPECT_EQ(nNoValue, strategy.Constant(4001, 0));
    strategy.AddConstantValue(4001, 7);
    strategy.AddConstantValue(4001, 9);
    strategy.AddConstantValue(4002, -1);
    ExpectRows<int>({{strategy.Constant(4001, 0), 7},
                     {strategy.Constant(4001, 1), 9},
                     {strategy.Constant(4001, 2), nNoValue},
                     {strategy.Constant(4002, 0), -1},
                     {strategy.DeleteConstant(4001), 1},
                     {strategy.DeleteConstant(4001), 0},
                     {strategy.Constant(4001, 0), nNoValue},
                     {strategy.Constant(4002, 0), -1}});
    strategy.DeleteConstants();
    EXPECT_EQ(0, strategy.GetConstants().GetCount());
    strategy.AddConstantValue(4002, 3);  // the table works on after emptying
    EXPECT_EQ(std::vector<int> {3}, Values(strategy, 4002));
}

// Names are matched exactly. Storing a name again replaces the list without
// destroying it; the strategy destroys every list it holds once, even where
// lists refer to each other.
TEST_F(Strategy, OwnsEveryStoredListOnceAndShowsOnlyTheMainFilesListAsChild)
{
    std::vector<int> log;
    AI_CCommandList *pOld = Track<AI_CCommandList>(&log, 1);
    {
        AI_CStrategy strategy("s", "main.per", DefaultSettings());
        AI_CCommandList *pCommon = Track<AI_CCommandList>(&log, 2);
        AI_CCommandList *pMain = Track<AI_CCommandList>(&log, 3);
        strategy.AddCommandList("Main.per", pCommon);
        EXPECT_TRUE(Children(strategy).empty());
        strategy.AddCommandList("main.per", pOld);
        EXPECT_EQ(pOld, strategy.CommandList("main.per"));
        EXPECT_EQ(pCommon, strategy.CommandList("Main.per"));
        EXPECT_EQ(nullptr, strategy.CommandList("./main.per"));
        EXPECT_EQ(nullptr, strategy.CommandList("main.pe"));
        strategy.AddCommandList("main.per", pMain);
        EXPECT_EQ(pMain, strategy.CommandList("main.per"));
        EXPECT_EQ(2, strategy.GetCommandLists().GetCount());
        EXPECT_EQ(std::vector<AI_CObject *> {pMain}, Children(strategy));
        // Both lists refer to "Main.per", and it to itself and "main.per".
        pMain->Add(new HandLoad(Str("Main.per"), pCommon));
        pMain->Add(new HandLoad(Str("Main.per"), pCommon));
        pCommon->Add(new HandLoad(Str("Main.per"), pCommon));
        pCommon->Add(new HandLoad(Str("main.per"), pMain));
        strategy.AddConstantValue(4001, 1);
        EXPECT_TRUE(log.empty());
    }
    std::sort(log.begin(), log.end());
    EXPECT_EQ((std::vector<int> {2, 3}), log);
    delete pOld;

    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddCommandList("m", Track<AI_CCommandList>(&log, 4));
    strategy.DeleteCommandLists();
    EXPECT_EQ(4, log.back());
    EXPECT_EQ(0, strategy.GetCommandLists().GetCount());
    EXPECT_EQ(nullptr, strategy.CommandList("m"));
}
