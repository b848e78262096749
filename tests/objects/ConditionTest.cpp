// Arguments and conditional elements: the logical operators with their
// short-circuit rules, the condition list of a rule, and their listings.
#include "TestSupport.h"

using Condition = ObjectsTest;

namespace {

AI_CTestCE *Fact(unsigned int nSID = kTrue, AI_CExprList *pArgs = nullptr)
{
    return new AI_CTestCE(nSID, pArgs);
}

}  // namespace

// Each row: an operator, then for the operand answers (0, 0), (0, 2),
// (2, 0) and (2, 2) the results, and whether the second operand is
// evaluated ("b") or not ("-"). Nonzero answers are 2 so that a result
// passed through unnormalised shows.
TEST_F(Condition, OperatorsCombineTheirOperandsAndShortCircuit)
{
    struct {
        AI_COpCE::Op op;
        char const *pszResults;
        char const *pszSecond;
    } const aRows[] = {
        {AI_COpCE::opNot, "1100", "----"},  {AI_COpCE::opAnd, "0001", "--bb"}, {AI_COpCE::opOr, "0111", "bb--"},
        {AI_COpCE::opXor, "0110", "bbbb"},  {AI_COpCE::opNand, "1110", "--bb"}, {AI_COpCE::opNor, "1000", "bb--"},
        {AI_COpCE::opXnor, "1001", "bbbb"},
    };
    for (auto const &row : aRows) {
        for (int i = 0; i < 4; ++i) {
            int a = i & 2, b = (i & 1) * 2;
            SCOPED_TRACE(testing::Message() << "op " << row.op << " a " << a << " b " << b);
            Calls calls;
            AI_COpCE op(row.op, new ProbeCE(a, &calls, "a"),
                        row.op == AI_COpCE::opNot ? nullptr : new ProbeCE(b, &calls, "b"));
            EXPECT_EQ(row.pszResults[i] - '0', op.IsTrue());
            EXPECT_EQ((row.pszSecond[i] == 'b' ? Calls{"a", "b"} : Calls{"a"}), calls);
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
    AI_CCEList probes;
    probes.Add(new ProbeCE(2, &calls, "a"));
    probes.Add(new ProbeCE(0, &calls, "b"));
    probes.Add(new ProbeCE(2, &calls, "c"));
    EXPECT_EQ(0, probes.IsTrue());
    EXPECT_EQ((Calls{"a", "b"}), calls);
    AI_CCEList allHold;
    allHold.Add(new ProbeCE(2, &calls, "d"));
    allHold.Add(new ProbeCE(1, &calls, "e"));
    EXPECT_EQ(1, allHold.IsTrue());
}

TEST_F(Condition, ArgumentsAndConditionsListAsScriptText)
{
    AI_CCEList list;
    list.Add(Fact());
    list.Add(new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr));
    ExpectRows<std::string>({
        {Listing(AI_CExpression(unsigned(kVillager)), 3), "villager"},  // the level is not used
        {Listing(AI_CExpression(Str("hi there")), 2), "\"hi there\""},
        {Listing(AI_CExpression(Str("a\nb\\c"))), "\"a\nb\\c\""},  // raw, no escapes
        {Listing(AI_CExpression(Str(""))), "\"\""},
        {Listing(AI_CExpression(-17), 1), "-17"},
        {Listing(*Own(Args({new AI_CExpression(unsigned(kLessThan)), new AI_CExpression(3),
                            new AI_CExpression(Str("x y"))})),
                 4),
         "less-than 3 \"x y\""},
        {Listing(*Own(Args({new AI_CExpression(5)}))), "5"},
        {Listing(*Own(Fact(kTrue))), "(true)"},
        {Listing(*Own(Fact(kTrue)), 2), "\t\t(true)"},
        {Listing(*Own(Fact(kFoodAmount, Args({new AI_CExpression(3), new AI_CExpression(Str("a"))}))), 1),
         "\t(food-amount 3 \"a\")"},
        {Listing(*Own(Fact(kTrue, new AI_CExprList))), "(true )"},  // present but empty: still the blank
        {Listing(AI_COpCE(AI_COpCE::opNot, Fact(), nullptr), 1), "\t(not\n\t\t(true)\n\t)"},
        {Listing(AI_COpCE(AI_COpCE::opNand, new AI_COpCE(AI_COpCE::opNot, Fact(), nullptr),
                          Fact(kFoodAmount, Args({new AI_CExpression(unsigned(kLessThan)), new AI_CExpression(5)})))),
         "(nand\n\t(not\n\t\t(true)\n\t)\n\t(food-amount less-than 5)\n)"},
        {Listing(list, 1), "\t(true)\n\t(not\n\t\t(true)\n\t)\n"},  // each element ends its line
    });
}
