// Constants: the SID counter, values, lookups without values and removal.
#include <cstdlib>

#include "VocabularyTest.h"

namespace {

int const kNoValue = -2147483647 - 1;

using Constants = VocabularyTest;

TEST_F(Constants, CounterStartsAt4001InAFreshProcess)
{
    // Run in a re-executed copy of this program, so that no other test has
    // drawn a constant SID before.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(AI_AddConstant("x", 1) == 4001 && AI_AddConstant("y", 2) == 4002 ? 0 : 1),
                testing::ExitedWithCode(0), "");
}

// Neither deleting the last constant nor emptying the tables gives a SID back.
TEST_F(Constants, CounterIsNeverReset)
{
    unsigned int const a = AI_AddConstant("a", 1);
    EXPECT_EQ(1, AI_DeleteConstant(a));
    unsigned int const b = AI_AddConstant("b", 2);
    AI_DeleteConstants();
    unsigned int const c = AI_AddConstant("c", 3);
    AI_DeleteAll();
    unsigned int const d = AI_AddConstant("d", 4);
    EXPECT_EQ((std::vector<unsigned int> {a + 1, a + 2, a + 3}), (std::vector<unsigned int> {b, c, d}));
    EXPECT_EQ(1, AI_IsConstant(d));
    EXPECT_EQ(0, AI_IsConstant(c));
}

TEST_F(Constants, ValuesAreKeptInOrderAndOtherSidsHaveNone)
{
    unsigned int const sid = AI_AddConstant("x", 7);
    AI_AddConstantValue(sid, 9);
    AI_AddConstantValue(sid, 2147483647);
    EXPECT_EQ((std::vector<int> {7, 9, 2147483647, kNoValue, kNoValue}),
              (std::vector<int> {AI_Constant(sid, 0), AI_Constant(sid, 1), AI_Constant(sid, 2), AI_Constant(sid, 3),
                                 AI_Constant(sid, -1)}));
    // The marker as a value cannot be told from a missing one.
    unsigned int const marker = AI_AddConstant("marker", kNoValue);
    EXPECT_EQ(kNoValue, AI_Constant(marker, 0));
    EXPECT_EQ(1, AI_IsConstant(marker));

    AI_AddFact(396, "wood-amount", 1, 2);
    AI_AddParam(2304, "equal");
    AI_AddDefine(187, "POPULATION-CAP-200");
    AI_AddConstantValue(396, 5);  // a SID without values gets none
    AI_AddConstantValue(marker + 1, 5);
    EXPECT_EQ(kNoValue, AI_NO_VALUE);
    for (unsigned int other : {0u, 187u, 396u, 2304u, marker + 1})
        EXPECT_EQ(kNoValue, AI_Constant(other, 0)) << other;
    EXPECT_EQ(0, AI_IsConstant(marker + 1));
}

// Forgetting the first SID removes the name's symbol, which by now belongs
// to the second.
TEST_F(Constants, SameNameTwiceGivesTwoConstants)
{
    unsigned int const first = AI_AddConstant("x", 1);
    unsigned int const second = AI_AddConstant("x", 2);
    EXPECT_EQ(second, AI_Symbol("x"));
    EXPECT_EQ("x", Name(first));
    EXPECT_EQ(1, AI_Constant(first, 0));
    EXPECT_EQ(1, AI_DeleteConstant(first));
    EXPECT_EQ(0, AI_DeleteConstant(first));
    EXPECT_EQ(0u, AI_Symbol("x"));
    EXPECT_EQ(kNoValue, AI_Constant(first, 0));
    EXPECT_EQ(0, AI_IsConstant(first));
    EXPECT_EQ(2, AI_Constant(second, 0));
    EXPECT_EQ(1, AI_IsConstant(second));
}

// A constant's name takes over another kind's symbol; deleting the other
// kind's SID then removes the symbol that now names the constant. Forgetting
// a constant's name alone keeps its values until DeleteConstants.
TEST_F(Constants, NamesOfConstantsAndOtherKinds)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    unsigned int const taken = AI_AddConstant("wood-amount", 3);
    EXPECT_EQ(taken, AI_Symbol("wood-amount"));
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ(1, AI_IsConstant(taken));
    EXPECT_EQ(3, AI_Constant(taken, 0));

    AI_AddParam(2304, "equal");
    AI_AddParam(5000, "word-in-constant-range");  // has a name but no values
    unsigned int const sid = AI_AddConstant("x", 7);
    EXPECT_EQ(1, AI_DeleteParam(sid));  // the kind is not tested
    EXPECT_EQ(0, AI_IsConstant(sid));
    EXPECT_EQ(0, AI_DeleteConstant(sid));  // not registered any more
    EXPECT_EQ(7, AI_Constant(sid, 0));
    unsigned int const other = AI_AddConstant("y", 8);
    AI_DeleteConstants();
    EXPECT_EQ(kNoValue, AI_Constant(sid, 0));
    EXPECT_EQ(kNoValue, AI_Constant(taken, 0));
    EXPECT_EQ(0u, AI_Symbol("y"));
    EXPECT_EQ(0, AI_IsConstant(other));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
    EXPECT_EQ(1, AI_IsConstant(5000));
}

}  // namespace
