// Conditional elements: fact tests, logical operators and the condition
// list of a rule.
#include <memory>

#include "TestSupport.h"

using Condition = VocabularyTest;

namespace {

AI_CTestCE *Fact(unsigned int nSID = kTrue, AI_CExprList *pArgs = nullptr)
{
    return new AI_CTestCE(nSID, pArgs);
}

AI_COpCE::Op AsOp(int n)
{
    return static_cast<AI_COpCE::Op>(n);
}

}  // namespace

TEST_F(Condition, FactTestIsValidOnAFactWithOrWithoutArguments)
{
    EXPECT_EQ(1, std::unique_ptr<AI_CTestCE>(Fact(kTrue))->IsValid());
    EXPECT_EQ(1, std::unique_ptr<AI_CTestCE>(Fact(kFoodAmount, Args({new AI_CExpression(1)})))->IsValid());
    EXPECT_EQ(0, std::unique_ptr<AI_CTestCE>(Fact(kDoNothing))->IsValid());
    EXPECT_EQ(0, std::unique_ptr<AI_CTestCE>(Fact(kVillager))->IsValid());
    EXPECT_EQ(0, std::unique_ptr<AI_CTestCE>(Fact(0))->IsValid());
    EXPECT_EQ(1, AI_CTestCE::IsFactID(kFoodAmount));
    EXPECT_EQ(0, AI_CTestCE::IsFactID(kChatToAll));
}

TEST_F(Condition, OperatorValidityNeedsAKnownOperatorAndTheRightOperands)
{
    struct Case
    {
        int nOp;
        bool bFirst;
        bool bSecond;
        int nValid;
    } const aCases[] = {
        {AI_COpCE::opNot, true, false, 1},  {AI_COpCE::opNot, true, true, 0},   {AI_COpCE::opNot, false, false, 0},
        {AI_COpCE::opAnd, true, true, 1},   {AI_COpCE::opAnd, true, false, 0},  {AI_COpCE::opAnd, false, true, 0},
        {AI_COpCE::opXnor, true, true, 1},  {AI_COpCE::opOr, false, false, 0}, {7, true, true, 0},
        {7, true, false, 0},                {-1, true, true, 0},
    };
    for (Case const &c : aCases) {
        SCOPED_TRACE(testing::Message() << c.nOp << " " << c.bFirst << c.bSecond);
        AI_COpCE op(AsOp(c.nOp), c.bFirst ? Fact() : nullptr, c.bSecond ? Fact() : nullptr);
        EXPECT_EQ(c.nValid, op.IsValid());
    }
    std::unique_ptr<CObject> pMade(RUNTIME_CLASS(AI_COpCE)->CreateObject());
    AI_COpCE *pOp = static_cast<AI_COpCE *>(pMade.get());
    EXPECT_EQ(AI_COpCE::opNot, pOp->GetOp());
    EXPECT_EQ(nullptr, pOp->GetCE1());
    EXPECT_EQ(0, pOp->IsValid());
}

// Each row: operator, answers of the two operands, expected result and
// whether the second operand is evaluated. Nonzero answers are 2 so that a
// result passed through unnormalised shows.
TEST_F(Condition, OperatorsCombineTheirOperandsAndShortCircuit)
{
    struct Row
    {
        AI_COpCE::Op op;
        int a;
        int b;
        int nResult;
        int nSecondCalls;
    } const aRows[] = {
        {AI_COpCE::opNot, 0, 0, 1, 0},  {AI_COpCE::opNot, 2, 0, 0, 0},

        {AI_COpCE::opAnd, 0, 2, 0, 0},  {AI_COpCE::opAnd, 0, 0, 0, 0},  {AI_COpCE::opAnd, 2, 0, 0, 1},
        {AI_COpCE::opAnd, 2, 2, 1, 1},

        {AI_COpCE::opOr, 2, 0, 1, 0},   {AI_COpCE::opOr, 2, 2, 1, 0},   {AI_COpCE::opOr, 0, 0, 0, 1},
        {AI_COpCE::opOr, 0, 2, 1, 1},

        {AI_COpCE::opXor, 0, 0, 0, 1},  {AI_COpCE::opXor, 0, 2, 1, 1},  {AI_COpCE::opXor, 2, 0, 1, 1},
        {AI_COpCE::opXor, 2, 2, 0, 1},

        {AI_COpCE::opNand, 0, 0, 1, 0}, {AI_COpCE::opNand, 0, 2, 1, 0}, {AI_COpCE::opNand, 2, 0, 1, 1},
        {AI_COpCE::opNand, 2, 2, 0, 1},

        {AI_COpCE::opNor, 2, 0, 0, 0},  {AI_COpCE::opNor, 2, 2, 0, 0},  {AI_COpCE::opNor, 0, 0, 1, 1},
        {AI_COpCE::opNor, 0, 2, 0, 1},

        {AI_COpCE::opXnor, 0, 0, 1, 1}, {AI_COpCE::opXnor, 0, 2, 0, 1}, {AI_COpCE::opXnor, 2, 0, 0, 1},
        {AI_COpCE::opXnor, 2, 2, 1, 1},
    };
    for (Row const &row : aRows) {
        SCOPED_TRACE(testing::Message() << "op " << row.op << " a " << row.a << " b " << row.b);
        int nFirstCalls = 0;
        int nSecondCalls = 0;
        bool bUnary = row.op == AI_COpCE::opNot;
        AI_COpCE op(row.op, new ProbeCE(row.a, &nFirstCalls), bUnary ? nullptr : new ProbeCE(row.b, &nSecondCalls));
        EXPECT_EQ(row.nResult, op.IsTrue());
        EXPECT_EQ(1, nFirstCalls);
        EXPECT_EQ(row.nSecondCalls, nSecondCalls);
    }
}

TEST_F(Condition, FactTestsNeverHold)
{
    EXPECT_EQ(0, std::unique_ptr<AI_CTestCE>(Fact())->IsTrue());
    AI_COpCE nor(AI_COpCE::opNor, Fact(), Fact());
    EXPECT_EQ(1, nor.IsTrue());
    AI_COpCE notNot(AI_COpCE::opNot, new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr), nullptr);
    EXPECT_EQ(0, notNot.IsTrue());
}

TEST_F(Condition, ConditionListHoldsWhenEveryElementHoldsAndStopsAtTheFirstFailure)
{
    EXPECT_EQ(1, AI_CCEList().IsTrue());

    AI_CCEList mixed;
    mixed.Add(new AI_COpCE(AI_COpCE::opNand, Fact(), Fact()));
    mixed.Add(Fact());
    EXPECT_EQ(0, mixed.IsTrue());

    int aCalls[3] = {0, 0, 0};
    AI_CCEList probes;
    probes.Add(new ProbeCE(2, &aCalls[0]));
    probes.Add(new ProbeCE(0, &aCalls[1]));
    probes.Add(new ProbeCE(2, &aCalls[2]));
    EXPECT_EQ(0, probes.IsTrue());
    EXPECT_EQ(1, aCalls[0]);
    EXPECT_EQ(1, aCalls[1]);
    EXPECT_EQ(0, aCalls[2]);

    AI_CCEList allHold;
    allHold.Add(new ProbeCE(2, &aCalls[0]));
    allHold.Add(new ProbeCE(1, &aCalls[0]));
    EXPECT_EQ(1, allHold.IsTrue());
}

TEST_F(Condition, DescriptionsNameTheFactOrTheOperator)
{
    EXPECT_EQ("fact: food-amount", Describe(*std::unique_ptr<AI_CTestCE>(Fact(kFoodAmount))));
    EXPECT_EQ("fact: ", Describe(*std::unique_ptr<AI_CTestCE>(Fact(0))));
    char const *const apszKeywords[] = {"not", "and", "or", "xor", "nand", "nor", "xnor"};
    for (int n = 0; n < 7; ++n) {
        AI_COpCE op(AsOp(n), nullptr, nullptr);
        EXPECT_EQ(std::string("fact operation: ") + apszKeywords[n], Describe(op));
    }
    AI_CCEList list;
    list.Add(Fact());
    list.Add(Fact());
    EXPECT_EQ("fact list: 2 CEs", Describe(list));
}

TEST_F(Condition, ChildrenAreTheArgumentsOrTheOperandsInOrder)
{
    std::unique_ptr<AI_CTestCE> pBare(Fact());
    EXPECT_TRUE(Children(*pBare).empty());

    AI_CExprList *pArgs = Args({new AI_CExpression(1)});
    std::unique_ptr<AI_CTestCE> pWithArgs(Fact(kFoodAmount, pArgs));
    EXPECT_EQ(std::vector<AI_CObject *>{pArgs}, Children(*pWithArgs));

    AI_CCE *pFirst = Fact();
    AI_CCE *pSecond = Fact();
    AI_COpCE both(AI_COpCE::opOr, pFirst, pSecond);
    EXPECT_EQ((std::vector<AI_CObject *>{pFirst, pSecond}), Children(both));

    AI_CCE *pOnly = Fact();
    AI_COpCE unary(AI_COpCE::opNot, pOnly, nullptr);
    EXPECT_EQ(std::vector<AI_CObject *>{pOnly}, Children(unary));

    AI_CCEList list;
    AI_CCE *pElement = list.Add(new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr));
    EXPECT_EQ(std::vector<AI_CObject *>{pElement}, Children(list));  // not the operand inside
}

TEST_F(Condition, FactTestListsAsNameAndArgumentsInParentheses)
{
    EXPECT_EQ("(true)", Listing(*std::unique_ptr<AI_CTestCE>(Fact(kTrue))));
    EXPECT_EQ("\t\t(true)", Listing(*std::unique_ptr<AI_CTestCE>(Fact(kTrue)), 2));
    std::unique_ptr<AI_CTestCE> pTest(Fact(kFoodAmount, Args({new AI_CExpression(3), new AI_CExpression(Str("a"))})));
    EXPECT_EQ("(food-amount 3 \"a\")", Listing(*pTest));
    EXPECT_EQ("\t(food-amount 3 \"a\")", Listing(*pTest, 1));
    // An argument list that is present but empty still gets its blank.
    EXPECT_EQ("(true )", Listing(*std::unique_ptr<AI_CTestCE>(Fact(kTrue, new AI_CExprList))));
}

TEST_F(Condition, OperatorListsItsKeywordAndOperandsOnOwnLines)
{
    AI_COpCE notTest(AI_COpCE::opNot, Fact(), nullptr);
    EXPECT_EQ("\t(not\n"
              "\t\t(true)\n"
              "\t)",
              Listing(notTest, 1));

    AI_COpCE nested(AI_COpCE::opNand, new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr),
                    Fact(kFoodAmount, Args({new AI_CExpression(unsigned(kLessThan)), new AI_CExpression(5)})));
    EXPECT_EQ("(nand\n"
              "\t(not\n"
              "\t\t(true)\n"
              "\t)\n"
              "\t(food-amount less-than 5)\n"
              ")",
              Listing(nested));
}

TEST_F(Condition, ConditionListEndsEveryElementWithALineEnd)
{
    AI_CCEList list;
    list.Add(Fact());
    list.Add(new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr));
    EXPECT_EQ("\t(true)\n"
              "\t(not\n"
              "\t\t(true)\n"
              "\t)\n",
              Listing(list, 1));
}

TEST_F(Condition, DestroyingAConditionDestroysItsChildrenOnce)
{
    std::vector<int> log;
    {
        AI_COpCE op(AI_COpCE::opAnd, new Tracked<AI_CTestCE>(&log, 1, unsigned(kTrue), Args({})),
                    new Tracked<AI_CTestCE>(&log, 2, unsigned(kTrue), new Tracked<AI_CExprList>(&log, 3)));
    }
    EXPECT_EQ((std::vector<int>{1, 2, 3}), log);
}

TEST_F(Condition, InvalidateDropsTheChildrenWithoutDestroyingThem)
{
    std::vector<int> log;
    AI_CCE *pFirst = new Tracked<AI_CTestCE>(&log, 1, unsigned(kTrue), static_cast<AI_CExprList *>(nullptr));
    AI_CCE *pSecond = new Tracked<AI_CTestCE>(&log, 2, unsigned(kTrue), static_cast<AI_CExprList *>(nullptr));
    {
        AI_COpCE op(AI_COpCE::opXor, pFirst, pSecond);
        op.Invalidate();
        EXPECT_EQ(AI_COpCE::opXor, op.GetOp());
        EXPECT_EQ(nullptr, op.GetCE1());
        EXPECT_EQ(nullptr, op.GetCE2());
        EXPECT_EQ(0, op.IsValid());
        EXPECT_TRUE(Children(op).empty());
    }
    EXPECT_TRUE(log.empty());
    delete pFirst;
    delete pSecond;
    EXPECT_EQ((std::vector<int>{1, 2}), log);

    AI_CExprList *pArgs = new Tracked<AI_CExprList>(&log, 3);
    {
        AI_CTestCE test(kFoodAmount, pArgs);
        test.Invalidate();
        EXPECT_EQ(0u, test.GetSID());
        EXPECT_EQ(nullptr, test.GetExpressions());
        EXPECT_EQ(0, test.IsValid());
    }
    EXPECT_EQ((std::vector<int>{1, 2}), log);
    delete pArgs;
    EXPECT_EQ((std::vector<int>{1, 2, 3}), log);
}
