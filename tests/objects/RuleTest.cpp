// Actions, rules, constant definitions and command lists: validity,
// evaluation, the command protocol, descriptions and listings.
#include <memory>

#include "TestSupport.h"
#include "strategy/AI_CStrategy.h"

using Rules = VocabularyTest;

namespace {

AI_CAction *Act(unsigned int nSID = kDoNothing, AI_CExprList *pArgs = nullptr)
{
    return new AI_CAction(nSID, pArgs);
}

std::vector<int> Values(AI_CStrategy const &strategy, unsigned int nSID)
{
    std::vector<int> values;
    CArray<int, int> *pValues = nullptr;
    if (strategy.GetConstants().Lookup(nSID, pValues))
        for (int i = 0; i < pValues->GetSize(); ++i)
            values.push_back(pValues->GetAt(i));
    return values;
}

std::vector<std::string> Names(AI_CCommandList const &list)
{
    std::vector<std::string> names;
    for (POSITION pos = list.GetCommands().GetHeadPosition(); pos;)
        names.push_back(list.GetCommands().GetNext(pos)->GetDescription().GetString());
    return names;
}

}  // namespace

TEST_F(Rules, ActionIsValidOnAnActionWithOrWithoutArguments)
{
    EXPECT_EQ(1, std::unique_ptr<AI_CAction>(Act(kDoNothing))->IsValid());
    EXPECT_EQ(1, std::unique_ptr<AI_CAction>(Act(kTrain, Args({new AI_CExpression(unsigned(kVillager))})))->IsValid());
    EXPECT_EQ(0, std::unique_ptr<AI_CAction>(Act(kTrue))->IsValid());
    EXPECT_EQ(0, std::unique_ptr<AI_CAction>(Act(0))->IsValid());
    EXPECT_EQ(1, AI_CAction::IsActionID(kChatToAll));
    EXPECT_EQ(0, AI_CAction::IsActionID(kFoodAmount));
}

TEST_F(Rules, ActionDescribesListsAndEnumeratesItsArguments)
{
    AI_CExprList *pArgs = Args({new AI_CExpression(unsigned(kVillager))});
    std::unique_ptr<AI_CAction> pTrain(Act(kTrain, pArgs));
    EXPECT_EQ("action: train", Describe(*pTrain));
    EXPECT_EQ("(train villager)", Listing(*pTrain));
    EXPECT_EQ("\t\t(train villager)", Listing(*pTrain, 2));
    EXPECT_EQ(std::vector<AI_CObject *>{pArgs}, Children(*pTrain));

    std::unique_ptr<AI_CAction> pNothing(Act());
    EXPECT_EQ("(do-nothing)", Listing(*pNothing));
    EXPECT_TRUE(Children(*pNothing).empty());
    EXPECT_EQ(0, pNothing->Execute());

    AI_CActionList list;
    list.Add(Act());
    list.Add(Act(kChatToAll, Args({new AI_CExpression(Str("gg"))})));
    EXPECT_EQ("action list: 2 actions", Describe(list));
    EXPECT_EQ("\t(do-nothing)\n"
              "\t(chat-to-all \"gg\")\n",
              Listing(list, 1));
}

TEST_F(Rules, ActionListRunsUntilTheFirstFailure)
{
    EXPECT_EQ(1, AI_CActionList().Execute());

    int aCalls[3] = {0, 0, 0};
    AI_CActionList failing;
    for (int &nCalls : aCalls)
        failing.Add(new ProbeAction(0, &nCalls));
    EXPECT_EQ(0, failing.Execute());
    EXPECT_EQ(1, aCalls[0]);
    EXPECT_EQ(0, aCalls[1]);
    EXPECT_EQ(0, aCalls[2]);

    int nSucceeding = 0;
    AI_CActionList succeeding;
    succeeding.Add(new ProbeAction(1, &nSucceeding));
    succeeding.Add(new ProbeAction(5, &nSucceeding));
    EXPECT_EQ(1, succeeding.Execute());
    EXPECT_EQ(2, nSucceeding);
}

TEST_F(Rules, ActionInvalidateKeepsTheArgumentsAlive)
{
    std::vector<int> log;
    AI_CExprList *pArgs = new Tracked<AI_CExprList>(&log, 1);
    {
        AI_CAction action(kTrain, pArgs);
        action.Invalidate();
        EXPECT_EQ(0u, action.GetSID());
        EXPECT_EQ(nullptr, action.GetExpressions());
        EXPECT_EQ(0, action.IsValid());
    }
    EXPECT_TRUE(log.empty());
    delete pArgs;
    EXPECT_EQ(std::vector<int>{1}, log);

    {
        AI_CAction action(kTrain, new Tracked<AI_CExprList>(&log, 2));
    }
    EXPECT_EQ((std::vector<int>{1, 2}), log);
}

TEST_F(Rules, BareCommandAnswersTheProtocolDefaults)
{
    std::unique_ptr<CObject> pMade(RUNTIME_CLASS(AI_CCommand)->CreateObject());
    AI_CCommand *pCommand = static_cast<AI_CCommand *>(pMade.get());
    EXPECT_EQ(1, pCommand->IsValid());
    EXPECT_EQ(0, pCommand->Check());
    EXPECT_EQ(1, pCommand->IsLoaded());
    pCommand->Load();
    EXPECT_EQ("object", Describe(*pCommand));
    EXPECT_EQ("", Listing(*pCommand, 2));
    EXPECT_TRUE(Children(*pCommand).empty());
}

TEST_F(Rules, RuleNeedsBothListsButMayHaveThemEmpty)
{
    EXPECT_EQ(1, AI_CDefruleCommand(new AI_CCEList, new AI_CActionList).IsValid());
    EXPECT_EQ(0, AI_CDefruleCommand(new AI_CCEList, nullptr).IsValid());
    EXPECT_EQ(0, AI_CDefruleCommand(nullptr, new AI_CActionList).IsValid());
    std::unique_ptr<CObject> pMade(RUNTIME_CLASS(AI_CDefruleCommand)->CreateObject());
    AI_CDefruleCommand *pRule = static_cast<AI_CDefruleCommand *>(pMade.get());
    EXPECT_EQ(0, pRule->IsValid());
    EXPECT_EQ(nullptr, pRule->GetCEs());
    EXPECT_EQ(1, pRule->IsLoaded());
}

TEST_F(Rules, CheckRunsTheActionsOnlyWhenTheConditionsHold)
{
    AI_CDefruleCommand empty(new AI_CCEList, new AI_CActionList);
    EXPECT_EQ(1, empty.Check());

    int nConditionCalls = 0;
    int nActionCalls = 0;
    std::unique_ptr<AI_CDefruleCommand> pFires(Rule(new ProbeCE(1, &nConditionCalls), new ProbeAction(0, &nActionCalls)));
    EXPECT_EQ(1, pFires->Check());  // the actions' failure does not matter
    EXPECT_EQ(1, nConditionCalls);
    EXPECT_EQ(1, nActionCalls);

    std::unique_ptr<AI_CDefruleCommand> pIdle(Rule(new AI_CTestCE(kTrue, nullptr), new ProbeAction(1, &nActionCalls)));
    EXPECT_EQ(1, pIdle->Check());
    EXPECT_EQ(1, nActionCalls);
}

TEST_F(Rules, RuleDescribesListsAndEnumeratesItsTwoLists)
{
    AI_CCEList *pCEs = new AI_CCEList;
    pCEs->Add(new AI_CTestCE(kTrue, nullptr));
    AI_CActionList *pActions = new AI_CActionList;
    pActions->Add(Act());
    AI_CDefruleCommand rule(pCEs, pActions);
    EXPECT_EQ("defrule command", Describe(rule));
    EXPECT_EQ((std::vector<AI_CObject *>{pCEs, pActions}), Children(rule));
    EXPECT_EQ("(defrule\n"
              "\t(true)\n"
              "=>\n"
              "\t(do-nothing)\n"
              ")\n",
              Listing(rule));
    EXPECT_EQ("\t(defrule\n"
              "\t\t(true)\n"
              "\t=>\n"
              "\t\t(do-nothing)\n"
              "\t)\n",
              Listing(rule, 1));

    AI_CDefruleCommand emptyRule(new AI_CCEList, new AI_CActionList);
    EXPECT_EQ("(defrule\n=>\n)\n", Listing(emptyRule));
}

TEST_F(Rules, RuleInvalidateKeepsBothListsAlive)
{
    std::vector<int> log;
    AI_CCEList *pCEs = new Tracked<AI_CCEList>(&log, 1);
    AI_CActionList *pActions = new Tracked<AI_CActionList>(&log, 2);
    {
        AI_CDefruleCommand rule(pCEs, pActions);
        rule.Invalidate();
        EXPECT_EQ(0, rule.IsValid());
        EXPECT_TRUE(Children(rule).empty());
    }
    EXPECT_TRUE(log.empty());
    delete pCEs;
    delete pActions;
    {
        AI_CDefruleCommand rule(new Tracked<AI_CCEList>(&log, 3), new Tracked<AI_CActionList>(&log, 4));
    }
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4}), log);
}

TEST_F(Rules, ConstantDefinitionIsValidOnAConstantAndDescribesItself)
{
    unsigned int nSID = AI_AddConstant("my-const", 1);
    AI_CDefconstCommand command(nSID, -5, nullptr);
    EXPECT_EQ(1, command.IsValid());
    EXPECT_EQ(1, AI_CDefconstCommand::IsConstantID(nSID));
    EXPECT_EQ(-5, command.GetValue());
    EXPECT_EQ("defconst command: my-const = -5", Describe(command));
    EXPECT_EQ("(defconst my-const -5)\n", Listing(command));
    EXPECT_EQ("\t\t(defconst my-const -5)\n", Listing(command, 2));
    EXPECT_TRUE(Children(command).empty());
    EXPECT_EQ(1, command.Check());
    EXPECT_EQ(0, command.IsLoaded());

    EXPECT_EQ(0, AI_CDefconstCommand(kTrue, 1, nullptr).IsValid());
    EXPECT_EQ(0, AI_CDefconstCommand::IsConstantID(kTrue));

    command.Invalidate();
    EXPECT_EQ(0u, command.GetSID());
    EXPECT_EQ(-5, command.GetValue());
    EXPECT_EQ(0, command.IsValid());
}

TEST_F(Rules, EveryLoadOfAListRecordsItsConstantsAgain)
{
    AI_CStrategy strategy("s", "m", AI_gsSettings);
    unsigned int nSID = AI_AddConstant("c", 0);
    AI_CCommandList list;
    list.Add(new AI_CDefconstCommand(nSID, 5, &strategy));
    list.Add(Rule(new AI_CTestCE(kTrue, nullptr), Act()));
    list.Add(new AI_CDefconstCommand(nSID, 7, &strategy));
    list.Load();
    EXPECT_EQ((std::vector<int>{5, 7}), Values(strategy, nSID));
    list.Load();
    EXPECT_EQ((std::vector<int>{5, 7, 5, 7}), Values(strategy, nSID));
    EXPECT_EQ(1, list.Check());
}

TEST_F(Rules, CommandListChecksInOrderAndStopsAtTheFirstFailure)
{
    EXPECT_EQ(1, AI_CCommandList().Check());

    std::vector<std::string> log;
    AI_CCommandList list;
    list.Add(new ProbeCommand(1, 1, &log, "a"));
    list.Add(new ProbeCommand(0, 1, &log, "b"));
    list.Add(new ProbeCommand(1, 1, &log, "c"));
    EXPECT_EQ(0, list.Check());
    EXPECT_EQ((std::vector<std::string>{"check a", "check b"}), log);

    AI_CCommandList withBare;
    withBare.Add(Rule(new AI_CTestCE(kTrue, nullptr), Act()));
    withBare.Add(static_cast<AI_CCommand *>(RUNTIME_CLASS(AI_CCommand)->CreateObject()));
    withBare.Add(new ProbeCommand(1, 1, &log, "d"));
    EXPECT_EQ(0, withBare.Check());
    EXPECT_EQ(2u, log.size());  // "d" was not checked
}

TEST_F(Rules, CommandListLoadsOnlyTheCommandsNotYetLoaded)
{
    std::vector<std::string> log;
    AI_CCommandList list;
    list.Add(new ProbeCommand(1, 0, &log, "a"));
    list.Add(new ProbeCommand(1, 1, &log, "b"));
    list.Add(new ProbeCommand(1, 0, &log, "c"));
    list.Load();
    EXPECT_EQ((std::vector<std::string>{"load a", "load c"}), log);
}

TEST_F(Rules, AddingAListMovesItsCommandsAndLeavesItEmpty)
{
    AI_CCommandList target;
    AI_CCommand *aOld[2] = {new AI_CDefconstCommand(0, 1, nullptr), new AI_CDefconstCommand(0, 2, nullptr)};
    for (AI_CCommand *p : aOld)
        EXPECT_EQ(p, target.Add(p));
    AI_CCommandList source;
    for (int n = 3; n <= 5; ++n)
        source.Add(new AI_CDefconstCommand(0, n, nullptr));
    target.Add(&source);
    EXPECT_EQ(0, source.GetCommands().GetCount());
    EXPECT_EQ("command list: 0 commands", Describe(source));
    EXPECT_EQ("command list: 5 commands", Describe(target));
    EXPECT_EQ((std::vector<std::string>{"defconst command:  = 1", "defconst command:  = 2", "defconst command:  = 3",
                                        "defconst command:  = 4", "defconst command:  = 5"}),
              Names(target));
    EXPECT_EQ(aOld[0], target.GetCommands().GetHead());
}

TEST_F(Rules, CommandListLeavesAnEmptyLineAfterEveryCommand)
{
    unsigned int nSID = AI_AddConstant("limit", 3);
    AI_CCommandList list;
    list.Add(Rule(new AI_CTestCE(kTrue, nullptr), Act()));
    list.Add(new AI_CDefconstCommand(nSID, 10, nullptr));
    EXPECT_EQ("\t(defrule\n"
              "\t\t(true)\n"
              "\t=>\n"
              "\t\t(do-nothing)\n"
              "\t)\n"
              "\n"
              "\t(defconst limit 10)\n"
              "\n",
              Listing(list, 1));
    EXPECT_EQ("command list: 2 commands", Describe(list));
}
