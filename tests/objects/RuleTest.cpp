// Actions, rules, constant definitions and command lists: evaluation, the
// command protocol and listings.
#include "TestSupport.h"

using Rules = ObjectsTest;

// An action list runs until the first failure. A rule runs its actions only
// when its conditions hold; either way, and whatever the actions answer, it
// passes.
TEST_F(Rules, ActionsRunUntilTheFirstFailureAndOnlyWhenTheConditionsHold)
{
    EXPECT_EQ(0, AI_CAction(kDoNothing, nullptr).Execute());
    EXPECT_EQ(1, AI_CActionList().Execute());
    Calls calls;
    auto const actions = [&calls](int nFirst, int nSecond, char const *pszFirst, char const *pszSecond) {
        return Own(ListOf<AI_CActionList, AI_CAction>(
            {new ProbeAction(nFirst, &calls, pszFirst), new ProbeAction(nSecond, &calls, pszSecond)}));
    };
    EXPECT_EQ(0, actions(0, 0, "a", "b")->Execute());
    EXPECT_EQ(1, actions(1, 5, "c", "d")->Execute());

    EXPECT_EQ(1, AI_CDefruleCommand(new AI_CCEList, new AI_CActionList).Check());
    EXPECT_EQ(1, Own(Rule(new ProbeCE(1, &calls, "if"), new ProbeAction(0, &calls, "then")))->Check());
    EXPECT_EQ(1, Own(Rule(nullptr, new ProbeAction(1, &calls, "idle")))->Check());  // (true) never holds
    EXPECT_EQ((Calls {"a", "c", "d", "if", "then"}), calls);
}

TEST_F(Rules, CommandListChecksInOrderToTheFirstFailureAndLoadsWhatIsNotLoaded)
{
    std::unique_ptr<AI_CObject> pMade = Made(RUNTIME_CLASS(AI_CCommand));
    AI_CCommand &bare = *static_cast<AI_CCommand *>(pMade.get());
    bare.Load();
    AI_CDefconstCommand constant(0, 1, nullptr);
    ExpectRows<int>({{bare.IsValid(), 1},
                     {bare.Check(), 0},
                     {bare.IsLoaded(), 1},
                     {constant.Check(), 1},
                     {constant.IsLoaded(), 0},
                     {AI_CCommandList().Check(), 1}});

    Calls calls;
    std::unique_ptr<AI_CCommandList> pList(
        Commands({new ProbeCommand(1, 0, &calls, "a"), new ProbeCommand(0, 1, &calls, "b"),
                  new ProbeCommand(1, 0, &calls, "c")}));
    EXPECT_EQ(0, pList->Check());
    pList->Load();
    EXPECT_EQ((Calls {"check a", "check b", "load a", "load c"}), calls);
}

TEST_F(Rules, EveryLoadOfAListRecordsItsConstantsAgain)
{
    AI_CStrategy strategy("s", "m", AI_gsSettings);
    unsigned int nSID = AI_AddConstant("c", 0);
    std::unique_ptr<AI_CCommandList> pList(
        Commands({new AI_CDefconstCommand(nSID, 5, &strategy), Rule(), new AI_CDefconstCommand(nSID, 7, &strategy)}));
    pList->Load();
    EXPECT_EQ((std::vector<int> {5, 7}), Values(strategy, nSID));
    pList->Load();
    EXPECT_EQ((std::vector<int> {5, 7, 5, 7}), Values(strategy, nSID));
    EXPECT_EQ(1, pList->Check());
}

TEST_F(Rules, AddingAListMovesItsCommandsToTheEndAndLeavesItEmpty)
{
    AI_CCommand *pOld = new AI_CDefconstCommand(0, 1, nullptr);
    AI_CCommandList target;
    EXPECT_EQ(pOld, target.Add(pOld));
    AI_CCommand *pFirst = new AI_CDefconstCommand(0, 2, nullptr);
    AI_CCommand *pSecond = new AI_CDefconstCommand(0, 3, nullptr);
    std::unique_ptr<AI_CCommandList> pSource(Commands({pFirst, pSecond}));
    target.Add(pSource.get());
    EXPECT_TRUE(Children(*pSource).empty());
    EXPECT_EQ((std::vector<AI_CObject *> {pOld, pFirst, pSecond}), Children(target));
}
