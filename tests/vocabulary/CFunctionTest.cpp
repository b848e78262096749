// The signature class: constructors, copying, comparison and its run-time
// class record.
#include <cstring>

#include "VocabularyTest.h"

namespace {

class CFunction : public VocabularyTest
{
};

TEST_F(CFunction, DefaultIsEmpty)
{
    AI_CFunction function;
    EXPECT_EQ(0u, function.GetSID());
    EXPECT_STREQ("", function.GetName());
    EXPECT_EQ(0, function.GetParams().GetSize());
}

TEST_F(CFunction, SixValueConstructorSkipsEveryZero)
{
    AI_CFunction function(396, "wood-amount", 0, 5, 0, 0, 0, 2);
    EXPECT_EQ(396u, function.GetSID());
    EXPECT_STREQ("wood-amount", function.GetName());
    EXPECT_EQ((std::vector<int>{5, 2}), Params(function));

    EXPECT_EQ((std::vector<int>{5, 2}), Params(AI_CFunction(1, "f", 5, 0, 2, 0, 0, 0)));
    EXPECT_EQ((std::vector<int>{}), Params(AI_CFunction(1, "f", 0, 0, 0, 0, 0, 0)));
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4, 5, 6}), Params(AI_CFunction(1, "f", 1, 2, 3, 4, 5, 6)));
    EXPECT_EQ((std::vector<int>{-1, 99}), Params(AI_CFunction(1, "f", -1, 0, 0, 0, 0, 99)));
}

TEST_F(CFunction, ArrayConstructorCopiesEveryCodeIncludingZeros)
{
    CArray<int, int> codes;
    for (int code : {16, 0, 33, 0, 1, 2, 7, 40})
        codes.Add(code);
    AI_CFunction function(471, "cc-players-building-type-count", codes);
    EXPECT_EQ((std::vector<int>{16, 0, 33, 0, 1, 2, 7, 40}), Params(function));

    // The signature holds its own copy.
    codes.SetAt(0, 5);
    codes.Add(9);
    EXPECT_EQ(16, function.GetParams().GetAt(0));
    EXPECT_EQ(8, function.GetParams().GetSize());

    CArray<int, int> none;
    EXPECT_EQ(0, AI_CFunction(1, "f", none).GetParams().GetSize());
}

TEST_F(CFunction, CopiesAreDeepAndIndependent)
{
    AI_CFunction original(459, "players-score", 16, 1, 18);
    AI_CFunction copy(original);
    EXPECT_EQ(459u, copy.GetSID());
    EXPECT_STREQ("players-score", copy.GetName());
    EXPECT_EQ((std::vector<int>{16, 1, 18}), Params(copy));
    EXPECT_NE(original.GetName(), copy.GetName());

    AI_CFunction assigned(1, "other", 2, 2, 2, 2, 2, 2);
    AI_CFunction &result = (assigned = original);
    EXPECT_EQ(&assigned, &result);
    EXPECT_EQ(459u, assigned.GetSID());
    EXPECT_STREQ("players-score", assigned.GetName());
    EXPECT_EQ((std::vector<int>{16, 1, 18}), Params(assigned));

    original.m_params.Add(4);
    original.m_strName = "changed";
    EXPECT_EQ((std::vector<int>{16, 1, 18}), Params(copy));
    EXPECT_STREQ("players-score", assigned.GetName());
}

TEST_F(CFunction, SelfAssignmentChangesNothing)
{
    AI_CFunction function(613, "set-strategic-number", 21, 2);
    AI_CFunction &self = function;
    AI_CFunction &result = (function = self);
    EXPECT_EQ(&function, &result);
    EXPECT_EQ(613u, function.GetSID());
    EXPECT_STREQ("set-strategic-number", function.GetName());
    EXPECT_EQ((std::vector<int>{21, 2}), Params(function));
}

TEST_F(CFunction, EqualityComparesOnlyTheSid)
{
    AI_CFunction a(396, "wood-amount", 1, 2);
    AI_CFunction b(396, "something-else", 5);
    AI_CFunction c(395, "wood-amount", 1, 2);
    EXPECT_EQ(1, a == b);
    EXPECT_EQ(0, a == c);
    EXPECT_EQ(1, a == a);
}

TEST_F(CFunction, RuntimeClassRecord)
{
    AI_CFunction function;
    CRuntimeClass const *record = function.GetRuntimeClass();
    ASSERT_EQ(RUNTIME_CLASS(AI_CFunction), record);
    EXPECT_STREQ("AI_CFunction", record->m_lpszClassName);
    EXPECT_EQ(0xFFFFu, record->m_wSchema);
    EXPECT_EQ(nullptr, record->m_pfnCreateObject);
    EXPECT_EQ(nullptr, RUNTIME_CLASS(AI_CFunction)->CreateObject());
    EXPECT_EQ(RUNTIME_CLASS(CObject), record->m_pBaseClass);
    EXPECT_EQ(static_cast<int>(sizeof(AI_CFunction)), record->m_nObjectSize);
    EXPECT_TRUE(function.IsKindOf(RUNTIME_CLASS(CObject)));
}

TEST_F(CFunction, DestroyedThroughObjectBase)
{
    CObject *object = new AI_CFunction(602, "build", 3);
    EXPECT_EQ(RUNTIME_CLASS(AI_CFunction), object->GetRuntimeClass());
    delete object;  // the sanitizer build reports a leak if the array or name survive
}

}  // namespace
