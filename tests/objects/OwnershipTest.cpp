// Who destroys what: every object destroys the parts it owns exactly once,
// never the lists loading gave it, and Invalidate lets go of its parts
// without destroying them. The sanitizer build proves that nothing is freed
// twice, late or never.
#include "TestSupport.h"

using Ownership = ObjectsTest;

// The ids follow the tree depth first; each object logs before it destroys
// its parts, so a tree destroyed in order logs 1, 2, 3, ...
TEST_F(Ownership, DestroyingATreeDestroysEveryOwnedPartOnceInOrder)
{
    std::vector<int> log;
    AI_CExprList *pArgs = Track<AI_CExprList>(&log, 5);
    pArgs->Add(Track<AI_CExpression>(&log, 6, 7));
    pArgs->Add(nullptr);
    AI_CCEList *pCEs = Track<AI_CCEList>(&log, 3);
    pCEs->Add(Track<AI_CTestCE>(&log, 4, unsigned(kFoodAmount), pArgs));
    pCEs->Add(Track<AI_COpCE>(&log, 7, AI_COpCE::opAnd, Track<AI_CTestCE>(&log, 8, unsigned(kTrue), nullptr),
                              Track<AI_CTestCE>(&log, 9, unsigned(kTrue), nullptr)));
    AI_CActionList *pActions = Track<AI_CActionList>(&log, 10);
    pActions->Add(Track<AI_CAction>(&log, 11, unsigned(kTrain), Track<AI_CExprList>(&log, 12)));
    AI_CCommandList *pIf = Track<AI_CCommandList>(&log, 14);
    pIf->Add(Track<AI_CDefconstCommand>(&log, 15, 0u, 1, nullptr));
    AI_CLoadOptionList *pOptions = Track<AI_CLoadOptionList>(&log, 18);
    pOptions->Add(Track<AI_CLoadOption>(&log, 19, 10, Str("o")));
    AI_CCommandList *pLoaded = Track<AI_CCommandList>(&log, 21);

    AI_CCommandList *pRoot = Track<AI_CCommandList>(&log, 1);
    pRoot->Add(Track<AI_CDefruleCommand>(&log, 2, pCEs, pActions));
    pRoot->Add(Track<AI_CBlock>(&log, 13, 1, unsigned(kSmallMap), pIf, Track<AI_CCommandList>(&log, 16)));
    pRoot->Add(Track<AI_CLoadRandomCommand>(&log, 17, pOptions, Str("d"), nullptr));
    pRoot->Add(Track<HandLoad>(&log, 20, Str("a"), pLoaded));
    delete pRoot;
    EXPECT_EQ((std::vector<int> {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}), log);
    delete pLoaded;  // the loaded list belongs to whoever stored it
    EXPECT_EQ(21, log.back());
}

TEST_F(Ownership, InvalidateLetsGoOfThePartsWithoutDestroyingThem)
{
    std::vector<int> log;
    AI_CExprList *pArgs = Track<AI_CExprList>(&log, 1);
    AI_CExprList *pActionArgs = Track<AI_CExprList>(&log, 2);
    AI_CCE *pFirst = Track<AI_CTestCE>(&log, 3, unsigned(kTrue), nullptr);
    AI_CCE *pSecond = Track<AI_CTestCE>(&log, 4, unsigned(kTrue), nullptr);
    AI_CCEList *pCEs = Track<AI_CCEList>(&log, 5);
    AI_CActionList *pActions = Track<AI_CActionList>(&log, 6);
    AI_CLoadOptionList *pOptions = Track<AI_CLoadOptionList>(&log, 7);
    AI_CCommandList *pIf = Track<AI_CCommandList>(&log, 8);
    AI_CCommandList *pElse = Track<AI_CCommandList>(&log, 9);
    CString *apStrings[] = {Str("text"), Str("name"), Str("option"), Str("default")};
    AI_CCommandList loaded;
    {
        AI_CExpression text(apStrings[0]);
        AI_CExpression symbol {unsigned(kVillager)};
        AI_CExpression number(42);
        AI_CTestCE test(kFoodAmount, pArgs);
        AI_COpCE op(AI_COpCE::opXor, pFirst, pSecond);
        AI_CAction action(kTrain, pActionArgs);
        AI_CDefruleCommand rule(pCEs, pActions);
        AI_CDefconstCommand constant(AI_AddConstant("c", 0), -5, nullptr);
        HandLoad load(apStrings[1], &loaded);
        AI_CLoadOption option(40, apStrings[2]);
        HandLoadRandom random(pOptions, apStrings[3]);
        random.SetLoaded(apStrings[3], &loaded);
        AI_CBlock block(1, kSmallMap, pIf, pElse);
        auto invalidate = [](auto &...objects) { (objects.Invalidate(), ...); };
        invalidate(text, symbol, number, test, op, action, rule, constant, load, option, random, block);
        // What is kept: the kinds, an integer, the operator, a constant's
        // value, a block's flag and a load's loaded list.
        // clang-format off
        ExpectRows<int>({
            {text.IsValid(), 0}, {text.GetType(), AI_EXPR_STRING}, {symbol.IsValid(), 0},
            {symbol.GetType(), AI_EXPR_SYMBOL}, {number.IsValid(), 1}, {number.GetContents().nInteger, 42},
            {test.IsValid(), 0}, {op.IsValid(), 0}, {op.GetOp(), AI_COpCE::opXor}, {action.IsValid(), 0},
            {rule.IsValid(), 0}, {constant.IsValid(), 0}, {constant.GetValue(), -5}, {load.IsValid(), 0},
            {load.IsLoaded(), 1}, {option.IsValid(), 0}, {option.GetProbability(), 0}, {block.IsValid(), 0},
            {block.GetIf(), 1}});
        // clang-format on
        for (AI_CObject *p : std::initializer_list<AI_CObject *> {&test, &op, &action, &rule, &block})
            EXPECT_TRUE(Children(*p).empty()) << Describe(*p);
        EXPECT_EQ(std::vector<AI_CObject *> {&loaded}, Children(load));
        EXPECT_EQ(std::vector<AI_CObject *> {&loaded}, Children(random));
        EXPECT_EQ("load random command: default ?, loaded ?", Describe(random));
    }
    EXPECT_TRUE(log.empty());
    for (AI_CObject *p : std::initializer_list<AI_CObject *> {pArgs, pActionArgs, pFirst, pSecond, pCEs, pActions,
                                                              pOptions, pIf, pElse})
        delete p;
    EXPECT_EQ((std::vector<int> {1, 2, 3, 4, 5, 6, 7, 8, 9}), log);
    EXPECT_STREQ("text", *apStrings[0]);
    EXPECT_STREQ("default", *apStrings[3]);
    for (CString *p : apStrings)
        delete p;
}
