// Defines, params and constants: registration, values, the constant counter
// and removal.
#include <cstdlib>

#include "VocabularyTest.h"

namespace {

int const kNoValue = -2147483647 - 1;

class Constants : public VocabularyTest
{
};

TEST_F(Constants, CounterStartsAt4001InAFreshProcess)
{
    // Run in a re-executed copy of this program, so that no other test has
    // drawn a constant SID before.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            unsigned int const first = AI_AddConstant("x", 1);
            unsigned int const second = AI_AddConstant("y", 2);
            std::exit(first == 4001 && second == 4002 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(Constants, ValuesAreKeptInOrder)
{
    unsigned int const sid = AI_AddConstant("x", 7);
    EXPECT_EQ(7, AI_Constant(sid, 0));
    AI_AddConstantValue(sid, 9);
    AI_AddConstantValue(sid, -3);
    EXPECT_EQ(7, AI_Constant(sid, 0));
    EXPECT_EQ(9, AI_Constant(sid, 1));
    EXPECT_EQ(-3, AI_Constant(sid, 2));
    EXPECT_EQ(1, AI_IsConstant(sid));
    EXPECT_EQ("x", Name(sid));
    EXPECT_EQ(sid, AI_Symbol("x"));
}

TEST_F(Constants, ExtremeValuesSurvive)
{
    unsigned int const big = AI_AddConstant("big", 2147483647);
    unsigned int const marker = AI_AddConstant("marker", kNoValue);
    EXPECT_EQ(2147483647, AI_Constant(big, 0));
    // Indistinguishable from a missing constant, as documented.
    EXPECT_EQ(kNoValue, AI_Constant(marker, 0));
    EXPECT_EQ(1, AI_IsConstant(marker));
}

TEST_F(Constants, NoValueForOtherSidsAndIndexes)
{
    AI_AddFacts();
    AI_AddParam(2304, "equal");
    unsigned int const sid = AI_AddConstant("x", 7);
    EXPECT_EQ(kNoValue, AI_NO_VALUE);
    EXPECT_EQ(kNoValue, AI_Constant(396, 0));
    EXPECT_EQ(kNoValue, AI_Constant(2304, 0));
    EXPECT_EQ(kNoValue, AI_Constant(sid + 1, 0));
    EXPECT_EQ(kNoValue, AI_Constant(0, 0));
    EXPECT_EQ(kNoValue, AI_Constant(sid, 1));
    EXPECT_EQ(kNoValue, AI_Constant(sid, -1));
    // Adding a value to a SID without values does nothing.
    AI_AddConstantValue(396, 5);
    AI_AddConstantValue(sid + 1, 5);
    EXPECT_EQ(kNoValue, AI_Constant(396, 0));
    EXPECT_EQ(kNoValue, AI_Constant(sid + 1, 0));
    EXPECT_EQ(0, AI_IsConstant(sid + 1));
}

TEST_F(Constants, SameNameTwiceGivesTwoConstants)
{
    unsigned int const first = AI_AddConstant("x", 1);
    unsigned int const second = AI_AddConstant("x", 2);
    EXPECT_EQ(first + 1, second);
    EXPECT_EQ(second, AI_Symbol("x"));
    EXPECT_EQ(1, AI_IsConstant(first));
    EXPECT_EQ("x", Name(first));
    EXPECT_EQ(1, AI_Constant(first, 0));
    EXPECT_EQ(2, AI_Constant(second, 0));

    // Forgetting the first SID removes the name's symbol, which by now
    // belongs to the second.
    EXPECT_EQ(1, AI_DeleteConstant(first));
    EXPECT_EQ(0u, AI_Symbol("x"));
    EXPECT_EQ(1, AI_IsConstant(second));
    EXPECT_EQ(2, AI_Constant(second, 0));
}

TEST_F(Constants, ConstantNameOverwritesAnotherKindsSymbol)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    unsigned int const sid = AI_AddConstant("wood-amount", 3);
    EXPECT_EQ(sid, AI_Symbol("wood-amount"));
    EXPECT_EQ("wood-amount", Name(396));
    EXPECT_EQ(1, AI_IsFact(396));

    // Deleting the fact removes the symbol that now names the constant.
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ(1, AI_IsConstant(sid));
    EXPECT_EQ(3, AI_Constant(sid, 0));
}

TEST_F(Constants, DeleteConstantOnceThenNothing)
{
    unsigned int const sid = AI_AddConstant("x", 7);
    EXPECT_EQ(1, AI_DeleteConstant(sid));
    EXPECT_EQ(kNoValue, AI_Constant(sid, 0));
    EXPECT_EQ(0, AI_IsConstant(sid));
    EXPECT_EQ(0u, AI_Symbol("x"));
    EXPECT_EQ(0, AI_DeleteConstant(sid));
}

TEST_F(Constants, DeletingAConstantsNameKeepsItsValues)
{
    unsigned int const sid = AI_AddConstant("x", 7);
    EXPECT_EQ(1, AI_DeleteParam(sid));  // the kind is not tested
    EXPECT_EQ(0, AI_IsConstant(sid));
    EXPECT_EQ(7, AI_Constant(sid, 0));
    EXPECT_EQ(0, AI_DeleteConstant(sid));  // not registered any more
    EXPECT_EQ(7, AI_Constant(sid, 0));
    AI_DeleteConstants();  // the value array goes with the table
    EXPECT_EQ(kNoValue, AI_Constant(sid, 0));
}

TEST_F(Constants, CounterIsNeverReset)
{
    unsigned int const a = AI_AddConstant("a", 1);
    unsigned int const b = AI_AddConstant("b", 2);
    EXPECT_EQ(a + 1, b);
    EXPECT_EQ(1, AI_DeleteConstant(b));
    unsigned int const c = AI_AddConstant("c", 3);
    EXPECT_EQ(b + 1, c);
    AI_DeleteConstants();
    unsigned int const d = AI_AddConstant("d", 4);
    EXPECT_EQ(c + 1, d);
    AI_DeleteAll();
    unsigned int const e = AI_AddConstant("e", 5);
    EXPECT_EQ(d + 1, e);
    EXPECT_EQ(1, AI_IsConstant(e));
    EXPECT_EQ(0, AI_IsConstant(d));
}

TEST_F(Constants, DeleteConstantsRemovesOnlyConstants)
{
    AI_AddParam(2304, "equal");
    AI_AddDefine(100, "DEATH-MATCH");
    AI_AddParam(5000, "word-in-constant-range");  // has a name but no values
    unsigned int const a = AI_AddConstant("a", 1);
    unsigned int const b = AI_AddConstant("b", 2);
    AI_DeleteConstants();
    EXPECT_EQ(0u, AI_Symbol("a"));
    EXPECT_EQ(0u, AI_Symbol("b"));
    EXPECT_EQ(0, AI_IsConstant(a));
    EXPECT_EQ(0, AI_IsConstant(b));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
    EXPECT_EQ(100u, AI_Symbol("DEATH-MATCH"));
    EXPECT_EQ(1, AI_IsConstant(5000));
}

TEST_F(Constants, DefinesAndParamsAreJustNames)
{
    AI_AddDefine(187, "POPULATION-CAP-200");
    AI_AddParam(2216, "my-player-number");
    EXPECT_EQ(187u, AI_Symbol("POPULATION-CAP-200"));
    EXPECT_EQ(0u, AI_Symbol("population-cap-200"));
    EXPECT_EQ(1, AI_IsDefine(187));
    EXPECT_EQ(1, AI_IsParam(2216));
    EXPECT_EQ(kNoValue, AI_Constant(187, 0));

    EXPECT_EQ(1, AI_DeleteDefine(187));
    EXPECT_EQ(0, AI_IsDefine(187));
    EXPECT_EQ(0, AI_DeleteDefine(187));
    EXPECT_EQ(1, AI_DeleteParam(2216));
    EXPECT_EQ(0, AI_DeleteParam(2216));
    EXPECT_EQ(0u, AI_Symbol("my-player-number"));
}

TEST_F(Constants, DeleteDefineOfAFactKeepsTheSignature)
{
    AI_AddFacts();
    EXPECT_EQ(1, AI_DeleteDefine(396));
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ(0, AI_IsFact(396));
    ASSERT_NE(nullptr, AI_Fact(396));
    EXPECT_STREQ("wood-amount", AI_Fact(396)->GetName());
}

TEST_F(Constants, DeletedDefineStillEvaluates)
{
    AI_AddDefines();
    AI_gsSettings.bDeathMatch = 1;
    EXPECT_EQ(1, AI_DeleteDefine(100));
    EXPECT_EQ(0, AI_IsDefine(100));
    EXPECT_EQ(0u, AI_Symbol("DEATH-MATCH"));
    EXPECT_EQ(1, AI_Define(100));
}

TEST_F(Constants, ReregisteringABuiltInParamChangesNothing)
{
    RegisterBuiltins();
    AI_AddParam(2304, "equal");
    EXPECT_EQ(2304u, AI_Symbol("equal"));
    EXPECT_EQ("equal", Name(2304));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
}

}  // namespace
