// Interning in both directions, kind tests by range and registration, and
// emptying the whole registry.
#include "VocabularyTest.h"

namespace {

class SymbolTable : public VocabularyTest
{
};

TEST_F(SymbolTable, EmptyRegistryAnswersNothing)
{
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ(0u, AI_Symbol(""));
    EXPECT_EQ("", Name(0));
    EXPECT_EQ("", Name(396));
    for (unsigned int sid : {0u, 100u, 299u, 300u, 499u, 500u, 699u, 1100u, 3499u, 4001u, 0xFFFFFFFFu}) {
        EXPECT_EQ(0, AI_IsDefine(sid)) << sid;
        EXPECT_EQ(0, AI_IsFact(sid)) << sid;
        EXPECT_EQ(0, AI_IsAction(sid)) << sid;
        EXPECT_EQ(0, AI_IsParam(sid)) << sid;
        EXPECT_EQ(0, AI_IsConstant(sid)) << sid;
    }
}

TEST_F(SymbolTable, LookupIsExactAndCaseSensitive)
{
    AI_AddFacts();
    EXPECT_EQ(396u, AI_Symbol("wood-amount"));
    EXPECT_EQ(0u, AI_Symbol("Wood-amount"));
    EXPECT_EQ(0u, AI_Symbol("wood-amount "));
    EXPECT_EQ(0u, AI_Symbol(" wood-amount"));
    EXPECT_EQ(0u, AI_Symbol("wood-amoun"));
    EXPECT_EQ("wood-amount", Name(396));
    EXPECT_EQ(1, AI_IsFact(396));
    EXPECT_EQ(0, AI_IsAction(396));
    EXPECT_EQ("", Name(0));
}

TEST_F(SymbolTable, EmptyNameIsAWordLikeAnyOther)
{
    EXPECT_EQ(0u, AI_Symbol(""));
    AI_AddParam(1500, "");
    EXPECT_EQ(1500u, AI_Symbol(""));
    EXPECT_EQ("", Name(1500));
    EXPECT_EQ(1, AI_IsParam(1500));
}

// Each kind test answers 1 exactly inside its own range, once the SID has a
// name - whichever function gave it the name.
TEST_F(SymbolTable, KindFollowsOnlyFromTheRange)
{
    struct Probe
    {
        unsigned int sid;
        int define, fact, action, param, constant;
    };
    Probe const probes[] = {
        {99, 0, 0, 0, 0, 0},    {100, 1, 0, 0, 0, 0},   {299, 1, 0, 0, 0, 0},   {300, 0, 1, 0, 0, 0},
        {499, 0, 1, 0, 0, 0},   {500, 0, 0, 1, 0, 0},   {699, 0, 0, 1, 0, 0},   {700, 0, 0, 0, 0, 0},
        {1099, 0, 0, 0, 0, 0},  {1100, 0, 0, 0, 1, 0},  {3499, 0, 0, 0, 1, 0},  {3500, 0, 0, 0, 0, 0},
        {4000, 0, 0, 0, 0, 0},  {4001, 0, 0, 0, 0, 1},  {0xFFFFFFFFu, 0, 0, 0, 0, 1},
    };
    for (Probe const &p : probes)
        AI_AddParam(p.sid, ("word-" + std::to_string(p.sid)).c_str());
    for (Probe const &p : probes) {
        EXPECT_EQ(p.define, AI_IsDefine(p.sid)) << p.sid;
        EXPECT_EQ(p.fact, AI_IsFact(p.sid)) << p.sid;
        EXPECT_EQ(p.action, AI_IsAction(p.sid)) << p.sid;
        EXPECT_EQ(p.param, AI_IsParam(p.sid)) << p.sid;
        EXPECT_EQ(p.constant, AI_IsConstant(p.sid)) << p.sid;
    }
}

TEST_F(SymbolTable, ParamInFactRangeCountsAsFactWithoutSignature)
{
    AI_AddParam(350, "not-really-a-fact");
    EXPECT_EQ(1, AI_IsFact(350));
    EXPECT_EQ(nullptr, AI_Fact(350));
}

TEST_F(SymbolTable, NameRegisteredAgainPointsToNewSidAndOldSidKeepsName)
{
    AI_AddParam(1100, "kills");
    AI_AddParam(1101, "kills");
    EXPECT_EQ(1101u, AI_Symbol("kills"));
    EXPECT_EQ("kills", Name(1100));
    EXPECT_EQ("kills", Name(1101));
    EXPECT_EQ(1, AI_IsParam(1100));
}

TEST_F(SymbolTable, SidRegisteredAgainTakesNewNameAndOldNameKeepsSid)
{
    AI_AddParam(1100, "kills");
    AI_AddParam(1100, "razings");
    EXPECT_EQ("razings", Name(1100));
    EXPECT_EQ(1100u, AI_Symbol("razings"));
    EXPECT_EQ(1100u, AI_Symbol("kills"));
}

// Forgetting a SID removes its name and the symbol of that name, whatever SID
// the symbol has come to hold in the meantime.
TEST_F(SymbolTable, ForgettingOldSidRemovesSymbolNowHeldByNewSid)
{
    AI_AddParam(1100, "kills");
    AI_AddParam(1101, "kills");
    EXPECT_EQ(1, AI_DeleteParam(1100));
    EXPECT_EQ(0u, AI_Symbol("kills"));
    EXPECT_EQ("", Name(1100));
    EXPECT_EQ("kills", Name(1101));
    EXPECT_EQ(1, AI_IsParam(1101));
    EXPECT_EQ(0, AI_IsParam(1100));
}

TEST_F(SymbolTable, ForgettingSidWhoseNameWasRenamedLeavesOldNameSymbol)
{
    AI_AddParam(1100, "kills");
    AI_AddParam(1100, "razings");
    EXPECT_EQ(1, AI_DeleteParam(1100));
    EXPECT_EQ(0u, AI_Symbol("razings"));
    EXPECT_EQ(1100u, AI_Symbol("kills"));
    EXPECT_EQ(0, AI_IsParam(1100));
}

TEST_F(SymbolTable, DeleteAllEmptiesEveryTable)
{
    RegisterBuiltins();
    AI_AddParam(1500, "extra-word");
    unsigned int const constant = AI_AddConstant("my-constant", 5);
    AI_DeleteAll();
    for (char const *word : {"true", "wood-amount", "train", "DEATH-MATCH", "kills", "extra-word", "my-constant"})
        EXPECT_EQ(0u, AI_Symbol(word)) << word;
    EXPECT_EQ(nullptr, AI_Fact(396));
    EXPECT_EQ(nullptr, AI_Action(614));
    EXPECT_EQ(AI_NO_VALUE, AI_Constant(constant, 0));
    for (unsigned int sid = 0; sid < 4100; ++sid)
        ASSERT_EQ("", Name(sid)) << sid;
    EXPECT_EQ("", Name(constant));
}

TEST_F(SymbolTable, DeleteAllKeepsConstantCounter)
{
    unsigned int const first = AI_AddConstant("a", 1);
    unsigned int const second = AI_AddConstant("b", 2);
    EXPECT_EQ(first + 1, second);
    AI_DeleteAll();
    EXPECT_EQ(second + 1, AI_AddConstant("a", 1));
}

TEST_F(SymbolTable, DeleteAllKeepsSettings)
{
    AI_gsSettings.nMapSize = 5;
    AI_DeleteAll();
    EXPECT_EQ(5, AI_gsSettings.nMapSize);
    EXPECT_EQ(1, AI_Define(135));
}

}  // namespace
