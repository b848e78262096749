// Fact and action signatures: the signature class, and registering,
// replacing and deleting signatures.
#include <memory>

#include "VocabularyTest.h"

namespace {

using CFunction = VocabularyTest;
using FunctionTable = VocabularyTest;

TEST_F(CFunction, ConstructorsKeepTheCodesInOrder)
{
    std::pair<std::vector<int>, std::vector<int>> const rows[] = {
        {{0, 5, 0, 0, 0, 2}, {5, 2}},  // the six-value form skips every zero
        {{5, 0, 2, 0, 0, 0}, {5, 2}},
        {{0, 0, 0, 0, 0, 0}, {}},
        {{-1, 2, 3, 4, 5, 6}, {-1, 2, 3, 4, 5, 6}},
    };
    for (auto const &row : rows) {
        std::vector<int> const &p = row.first;
        EXPECT_EQ(row.second, Params(AI_CFunction(1, "f", p[0], p[1], p[2], p[3], p[4], p[5])));
    }
    CArray<int, int> codes;  // the array form copies zeros too, and owns its copy
    for (int code : {16, 0, 33, 0, 1, 2, 7, 40})
        codes.Add(code);
    AI_CFunction function(471, "cc-players-building-type-count", codes);
    codes[0] = 5;
    codes.Add(9);
    EXPECT_EQ((std::vector<int> {16, 0, 33, 0, 1, 2, 7, 40}), Params(function));
}

TEST_F(FunctionTable, RegistrationStoresAndReplacesTheSignature)
{
    AI_AddFact(396, "wood-amount", 0, 5, 0, 0, 0, 2);
    AI_AddAction(613, "set-strategic-number", 21, 2);
    AI_CFunction const *fact = AI_Fact(396);
    ASSERT_NE(nullptr, fact);
    EXPECT_EQ(396u, fact->GetSID());
    EXPECT_STREQ("wood-amount", fact->GetName());
    EXPECT_EQ((std::vector<int> {5, 2}), Params(*fact));
    EXPECT_EQ(nullptr, AI_Action(396));
    ASSERT_NE(nullptr, AI_Action(613));
    EXPECT_EQ((std::vector<int> {21, 2}), Params(*AI_Action(613)));
    EXPECT_EQ(nullptr, AI_Fact(613));

    // Other registrations, in or out of the range, leave the signature where
    // it is.
    AI_AddFact(5000, "odd-fact", 2);
    AI_AddAction(396, "same-sid-as-action");
    EXPECT_NE(nullptr, AI_Fact(5000));
    EXPECT_EQ(fact, AI_Fact(396));

    AI_AddFact(396, "lumber-amount", 5);
    ASSERT_NE(nullptr, AI_Fact(396));
    EXPECT_STREQ("lumber-amount", AI_Fact(396)->GetName());
    EXPECT_EQ((std::vector<int> {5}), Params(*AI_Fact(396)));
}

// Delete functions forget the SID's name whatever its kind, and only the
// matching table loses its signature.
TEST_F(FunctionTable, DeleteDoesNotTestTheKind)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    AI_AddAction(613, "set-strategic-number", 21, 2);
    EXPECT_EQ(1, AI_DeleteDefine(396));
    EXPECT_EQ(0, AI_IsFact(396));
    EXPECT_EQ(0, AI_DeleteFact(396));  // no longer registered
    ASSERT_NE(nullptr, AI_Fact(396));
    EXPECT_STREQ("wood-amount", AI_Fact(396)->GetName());

    EXPECT_EQ(1, AI_DeleteFact(613));
    EXPECT_EQ(0, AI_IsAction(613));
    EXPECT_EQ(0, AI_DeleteAction(613));
    EXPECT_NE(nullptr, AI_Action(613));
    AI_AddAction(613, "set-strategic-number");
    EXPECT_EQ(1, AI_DeleteAction(613));
    EXPECT_EQ(nullptr, AI_Action(613));

    AI_AddFact(396, "wood-amount", 1, 2);  // registered again, deletable again
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(nullptr, AI_Fact(396));
}

TEST_F(FunctionTable, DeleteFactsAndActionsRemoveOnlyTheirOwn)
{
    RegisterBuiltins();
    AI_AddParam(302, "param-in-fact-range");  // no built-in fact has 302
    AI_AddFact(5000, "fact-outside-the-range");
    AI_DeleteFacts();
    for (unsigned int sid = 0; sid < 6000; ++sid)
        ASSERT_EQ(nullptr, AI_Fact(sid)) << sid;
    for (char const *word : {"true", "wood-amount", "fact-outside-the-range"})
        EXPECT_EQ(0u, AI_Symbol(word)) << word;
    EXPECT_EQ(1, AI_IsFact(302));
    EXPECT_NE(nullptr, AI_Action(614));

    AI_DeleteActions();
    for (unsigned int sid = 500; sid < 700; ++sid)
        ASSERT_EQ(0, AI_Action(sid) != nullptr || AI_IsAction(sid)) << sid;
    EXPECT_EQ(0u, AI_Symbol("train"));
    EXPECT_EQ(302u, AI_Symbol("param-in-fact-range"));
    EXPECT_EQ(100u, AI_Symbol("DEATH-MATCH"));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
}

}  // namespace
