// Interning in both directions, kind tests by range and registration, and
// emptying the whole registry.
#include "VocabularyTest.h"

namespace {

using SymbolTable = VocabularyTest;

int (*const kKindTests[])(unsigned int) = {AI_IsDefine, AI_IsFact, AI_IsAction, AI_IsParam, AI_IsConstant};

TEST_F(SymbolTable, LookupIsExact)
{
    EXPECT_EQ(0u, AI_Symbol(""));
    EXPECT_EQ("", Name(0));
    AI_AddFact(396, "wood-amount");
    EXPECT_EQ(396u, AI_Symbol("wood-amount"));
    for (char const *near : {"Wood-amount", "wood-amount ", " wood-amount", "wood-amoun", ""})
        EXPECT_EQ(0u, AI_Symbol(near)) << near;
    AI_AddParam(1500, "");  // the empty name is a word like any other
    EXPECT_EQ(1500u, AI_Symbol(""));
    EXPECT_EQ(1, AI_IsParam(1500));
}

// Each kind test answers 1 exactly inside its own range, once the SID has a
// name - whichever function gave it the name - and 0 before.
TEST_F(SymbolTable, KindFollowsOnlyFromTheRange)
{
    std::pair<unsigned int, int> const probes[]
        = {// SID, index into kKindTests or -1
           {99, -1},   {100, 0},  {299, 0},  {300, 1},   {499, 1},   {500, 2},  {699, 2},        {700, -1},
           {1099, -1}, {1100, 3}, {3499, 3}, {3500, -1}, {4000, -1}, {4001, 4}, {0xFFFFFFFFu, 4}};
    for (auto const &p : probes)
        for (auto isKind : kKindTests)
            EXPECT_EQ(0, isKind(p.first)) << "unregistered " << p.first;
    for (auto const &p : probes)
        AI_AddParam(p.first, ("word-" + std::to_string(p.first)).c_str());
    for (auto const &p : probes)
        for (int kind = 0; kind < 5; ++kind)
            EXPECT_EQ(kind == p.second ? 1 : 0, kKindTests[kind](p.first)) << p.first << " kind " << kind;
    EXPECT_EQ(nullptr, AI_Fact(300));  // a fact by its name, without a signature
}

// Every registration interns and every delete forgets the same way, whatever
// the kind.
struct Kind
{
    void (*add)(unsigned int, char const *);
    int (*forget)(unsigned int);
    unsigned int sid;
};

Kind const kKinds[] = {
    {AI_AddDefine, AI_DeleteDefine, 150},
    {AI_AddParam, AI_DeleteParam, 1100},
    {[](unsigned int sid, char const *name) { AI_AddFact(sid, name, 1); }, AI_DeleteFact, 396},
    {[](unsigned int sid, char const *name) { AI_AddAction(sid, name, 2); }, AI_DeleteAction, 613},
};

// A name registered again moves its symbol to the new SID while the old SID
// keeps the name; forgetting the old SID still removes the name's symbol. A
// SID registered again takes the new name while the old name keeps its
// symbol; forgetting the SID removes only the new name's symbol.
TEST_F(SymbolTable, NameOrSidRegisteredAgain)
{
    for (Kind const &kind : kKinds) {
        unsigned int const first = kind.sid, second = kind.sid + 1;
        kind.add(first, "kills");
        kind.add(second, "kills");
        kind.add(second, "razings");
        EXPECT_EQ(second, AI_Symbol("kills")) << first;
        EXPECT_EQ(second, AI_Symbol("razings")) << first;
        EXPECT_EQ("kills", Name(first));
        EXPECT_EQ("razings", Name(second));
        EXPECT_EQ(1, kind.forget(first));
        EXPECT_EQ(0u, AI_Symbol("kills")) << first;
        EXPECT_EQ("", Name(first));
        EXPECT_EQ(0, kind.forget(first));
        kind.add(first, "kills");
        EXPECT_EQ(1, kind.forget(second));
        EXPECT_EQ(0u, AI_Symbol("razings")) << first;
        EXPECT_EQ(first, AI_Symbol("kills")) << first;
        AI_DeleteAll();
    }
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

}  // namespace
