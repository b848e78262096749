// Load commands, random loads and conditional blocks built by hand, with
// their loaded lists set the way loading sets them: listings, checks, and
// files that load themselves.
#include "TestSupport.h"

using LoadCommands = ObjectsTest;

// Loads pass or fail with their loaded list and fail without one. A block
// checks the branch its flag names; the define is not evaluated (SMALL-MAP
// holds with the default settings, DEATH-MATCH does not).
TEST_F(LoadCommands, LoadsAndBlocksAreCheckedThroughTheirLists)
{
    Calls calls;
    auto probe = [&calls](int nCheck, char const *pszName) {
        return Commands({new ProbeCommand(nCheck, 1, &calls, pszName)});
    };
    std::unique_ptr<AI_CCommandList> pPass(probe(1, "p"));
    std::unique_ptr<AI_CCommandList> pFail(probe(0, "f"));
    AI_CLoadOptionList *pOptions = Options({{50, "a"}});
    HandLoadRandom random(pOptions, nullptr);
    auto randomCheck = [&random, pOptions](bool bChosen, AI_CCommandList *pLoaded) {
        random.SetLoaded(bChosen ? OptionName(pOptions, 0) : nullptr, pLoaded);
        return random.Check();
    };
    ExpectRows<int>({
        {HandLoad(Str("a")).Check(), 0},
        {HandLoad(Str("a"), pPass.get()).Check(), 1},
        {HandLoad(Str("a"), pFail.get()).Check(), 0},
        {randomCheck(false, nullptr), 0},
        {randomCheck(true, nullptr), 0},
        {randomCheck(true, pPass.get()), 1},
        {randomCheck(true, pFail.get()), 0},
        {AI_CBlock(1, kSmallMap, probe(0, "if"), probe(1, "else")).Check(), 0},
        {AI_CBlock(1, kDeathMatch, probe(1, "if"), nullptr).Check(), 1},
        {AI_CBlock(0, kSmallMap, probe(1, "if"), probe(0, "else")).Check(), 0},
        {AI_CBlock(0, kSmallMap, probe(0, "if"), nullptr).Check(), 1},
    });
    EXPECT_EQ((Calls {"check p", "check f", "check p", "check f", "check if", "check if", "check else"}), calls);
}

TEST_F(LoadCommands, BlockLoadsBothBranchesAndNeverCountsAsLoaded)
{
    Calls calls;
    AI_CCommandList list;
    AI_CBlock *pBlock = new AI_CBlock(
        0, kSmallMap, Commands({new ProbeCommand(1, 0, &calls, "a"), new ProbeCommand(1, 1, &calls, "b")}),
        Commands({new ProbeCommand(1, 0, &calls, "c")}));
    list.Add(pBlock);
    list.Load();
    list.Load();
    EXPECT_EQ((Calls {"load a", "load c", "load a", "load c"}), calls);
    EXPECT_EQ(0, pBlock->IsLoaded());
}
