// Arguments and conditional elements: the logical operators with their
// short-circuit rules, the condition list of a rule, and their listings.
#include "TestSupport.h"

using Condition = ObjectsTest;

namespace {

AI_CTestCE *Fact(unsigned int nSID = kTrue, AI_CExprList *pArgs = nullptr) { return new AI_CTestCE(nSID, pArgs); }

}  // namespace

// Each row: an operator, then for the operand answers (0, 0), (0, 2),
// (2, 0) and (2, 2) the results, and whether the second operand is
// evaluated ("b") or not ("-"). Nonzero answers are 2 so that a result
// passed through unnormalised shows.
TEST_F(Condition, OperatorsCombineTheirOperandsAndShortCircuit)
{
    std::tuple<AI_COpCE::Op, char const *, char const *> const aRows[] = {
        {AI_COpCE::opNot, "1100", "----"},  {AI_COpCE::opAnd, "0001", "--bb"},  {AI_COpCE::opOr, "0111", "bb--"},
        {AI_COpCE::opXor, "0110", "bbbb"},  {AI_COpCE::opNand, "1110", "--bb"}, {AI_COpCE::opNor, "1000", "bb--"},
        {AI_COpCE::opXnor, "1001", "bbbb"},
    };
    for (auto const &[eOp, pszResults, pszSecond] : aRows) {
        for (int i = 0; i < 4; ++i) {
            int a = i & 2, b = (i & 1) * 2;
            SCOPED_TRACE(testing::Message() << "op " << eOp << " a " << a << " b " << b);
            Calls calls;
            AI_COpCE op(eOp, new ProbeCE(a, &calls, "a"),
                        eOp == AI_COpCE::opNot ? nullptr : new ProbeCE(b, &calls, "b"));
            EXPECT_EQ(pszResults[i] - '0', op.IsTrue());
            EXPECT_EQ((pszSecond[i] == 'b' ? Calls {"a", "b"} : Calls {"a"}), calls);
        }
    }
}

TEST_F(Condition, FactTestsNeverHoldAndAListStopsAtTheFirstFailure)
{
    EXPECT_EQ(0, Own(Fact())->IsTrue());
    EXPECT_EQ(1, AI_COpCE(AI_COpCE::opNor, Fact(), Fact()).IsTrue());
    EXPECT_EQ(0, AI_COpCE(AI_COpCE::opNot, new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr), nullptr).IsTrue());

    EXPECT_EQ(1, AI_CCEList().IsTrue());
    Calls calls;
    auto const list = [](std::initializer_list<AI_CCE *> ces) { return Own(ListOf<AI_CCEList>(ces)); };
    EXPECT_EQ(0,
              list({new ProbeCE(2, &calls, "a"), new ProbeCE(0, &calls, "b"), new ProbeCE(2, &calls, "c")})->IsTrue());
    EXPECT_EQ((Calls {"a", "b"}), calls);
    EXPECT_EQ(1, list({new ProbeCE(2, &calls, "d"), new ProbeCE(1, &calls, "e")})->IsTrue());
}
