// Registering, finding, replacing and deleting fact and action signatures.
#include "VocabularyTest.h"

namespace {

class FunctionTable : public VocabularyTest
{
};

TEST_F(FunctionTable, RegistrationInternsAndStoresTheSignature)
{
    AI_AddFact(396, "wood-amount", 0, 5, 0, 0, 0, 2);
    AI_CFunction const *fact = AI_Fact(396);
    ASSERT_NE(nullptr, fact);
    EXPECT_EQ(396u, fact->GetSID());
    EXPECT_STREQ("wood-amount", fact->GetName());
    EXPECT_EQ((std::vector<int>{5, 2}), Params(*fact));
    EXPECT_EQ(396u, AI_Symbol("wood-amount"));
    EXPECT_EQ("wood-amount", Name(396));
    EXPECT_EQ(nullptr, AI_Action(396));

    AI_AddAction(613, "set-strategic-number", 21, 2);
    ASSERT_NE(nullptr, AI_Action(613));
    EXPECT_EQ((std::vector<int>{21, 2}), Params(*AI_Action(613)));
    EXPECT_EQ(nullptr, AI_Fact(613));
}

TEST_F(FunctionTable, SidRangeIsNotChecked)
{
    AI_AddFact(5000, "odd-fact", 2);
    AI_AddAction(100, "odd-action");
    ASSERT_NE(nullptr, AI_Fact(5000));
    ASSERT_NE(nullptr, AI_Action(100));
    // Kind tests go by range alone.
    EXPECT_EQ(0, AI_IsFact(5000));
    EXPECT_EQ(1, AI_IsConstant(5000));
    EXPECT_EQ(0, AI_IsAction(100));
    EXPECT_EQ(1, AI_IsDefine(100));
}

TEST_F(FunctionTable, NewRegistrationReplacesTheSignature)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    AI_AddFact(396, "lumber-amount", 5);
    ASSERT_NE(nullptr, AI_Fact(396));
    EXPECT_STREQ("lumber-amount", AI_Fact(396)->GetName());
    EXPECT_EQ((std::vector<int>{5}), Params(*AI_Fact(396)));
    EXPECT_EQ("lumber-amount", Name(396));
    EXPECT_EQ(396u, AI_Symbol("lumber-amount"));
    // The old name was not forgotten: its symbol still points to 396.
    EXPECT_EQ(396u, AI_Symbol("wood-amount"));
}

TEST_F(FunctionTable, SameNameUnderTwoSids)
{
    AI_AddFact(396, "amount", 1, 2);
    AI_AddFact(395, "amount", 1, 2);
    EXPECT_EQ(395u, AI_Symbol("amount"));
    EXPECT_NE(nullptr, AI_Fact(396));
    EXPECT_NE(nullptr, AI_Fact(395));
    // Deleting 396 removes the name's symbol although it points to 395.
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(0u, AI_Symbol("amount"));
    EXPECT_NE(nullptr, AI_Fact(395));
    EXPECT_EQ(1, AI_IsFact(395));
}

TEST_F(FunctionTable, DeleteFactForgetsOnceAndReportsIt)
{
    AI_AddFacts();
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(nullptr, AI_Fact(396));
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ("", Name(396));
    EXPECT_EQ(0, AI_IsFact(396));
    EXPECT_EQ(0, AI_DeleteFact(396));
    EXPECT_NE(nullptr, AI_Fact(395));
}

TEST_F(FunctionTable, DeleteDoesNotTestTheKind)
{
    AI_AddDefine(100, "DEATH-MATCH");
    AI_AddAction(613, "set-strategic-number", 21, 2);
    EXPECT_EQ(1, AI_DeleteFact(100));
    EXPECT_EQ(0, AI_IsDefine(100));
    EXPECT_EQ(0u, AI_Symbol("DEATH-MATCH"));

    // Deleting an action's SID from the fact table forgets its name but leaves
    // its signature in the action table.
    EXPECT_EQ(1, AI_DeleteFact(613));
    EXPECT_EQ(0, AI_IsAction(613));
    EXPECT_NE(nullptr, AI_Action(613));
    EXPECT_EQ(0, AI_DeleteAction(613));
    EXPECT_NE(nullptr, AI_Action(613));
}

TEST_F(FunctionTable, DeleteOfAForgottenSidChangesNothing)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    EXPECT_EQ(1, AI_DeleteDefine(396));  // forgets the name only
    EXPECT_NE(nullptr, AI_Fact(396));
    EXPECT_EQ(0, AI_DeleteFact(396));
    EXPECT_NE(nullptr, AI_Fact(396));
    // Registering again brings the name back; the signature is replaced.
    AI_AddFact(396, "wood-amount", 1, 2);
    EXPECT_EQ(1, AI_DeleteFact(396));
    EXPECT_EQ(nullptr, AI_Fact(396));
}

TEST_F(FunctionTable, DeleteFactsRemovesSignaturesAndTheirNamesOnly)
{
    RegisterBuiltins();
    AI_AddParam(302, "param-in-fact-range");  // no built-in fact has 302
    AI_AddFact(5000, "fact-outside-the-range");
    AI_DeleteFacts();
    for (unsigned int sid = 0; sid < 6000; ++sid)
        ASSERT_EQ(nullptr, AI_Fact(sid)) << sid;
    EXPECT_EQ(0u, AI_Symbol("true"));
    EXPECT_EQ(0u, AI_Symbol("wood-amount"));
    EXPECT_EQ(0u, AI_Symbol("fact-outside-the-range"));
    EXPECT_EQ(1, AI_IsFact(302));
    EXPECT_EQ(302u, AI_Symbol("param-in-fact-range"));
    // Actions, defines and params stay.
    EXPECT_EQ(614u, AI_Symbol("train"));
    EXPECT_NE(nullptr, AI_Action(614));
    EXPECT_EQ(100u, AI_Symbol("DEATH-MATCH"));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
}

TEST_F(FunctionTable, DeleteActionsLeavesFacts)
{
    AI_AddFacts();
    AI_AddActions();
    AI_DeleteActions();
    for (unsigned int sid = 500; sid < 700; ++sid) {
        ASSERT_EQ(nullptr, AI_Action(sid)) << sid;
        ASSERT_EQ(0, AI_IsAction(sid)) << sid;
    }
    EXPECT_EQ(0u, AI_Symbol("train"));
    EXPECT_NE(nullptr, AI_Fact(396));
    EXPECT_EQ(396u, AI_Symbol("wood-amount"));
}

TEST_F(FunctionTable, SignaturePointerStaysValidUntilReplaced)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    AI_CFunction const *before = AI_Fact(396);
    AI_AddFact(395, "stone-amount", 1, 2);
    AI_AddAction(396, "same-sid-as-action");
    EXPECT_EQ(before, AI_Fact(396));
    EXPECT_STREQ("wood-amount", before->GetName());
}

}  // namespace
