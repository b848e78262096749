// The object base, run-time class records and the behaviour the five list
// classes share.
#include <cstring>
#include <memory>

#include "TestSupport.h"

TEST(ObjectBase, OffsetWritesOneTabPerLevelAndNothingBelowOne)
{
    AI_CObject object;
    for (int nLevel : {0, -1, -5}) {
        std::ostringstream os;
        object.Offset(os, nLevel);
        EXPECT_EQ("", os.str()) << nLevel;
    }
    std::ostringstream os;
    object.Offset(os, 3);
    EXPECT_EQ("\t\t\t", os.str());
}

TEST(ObjectBase, BareObjectDescribesItselfAndHasNothingToListOrEnumerate)
{
    AI_CObject object;
    EXPECT_EQ("object", Describe(object));
    AI_CObject const &constObject = object;
    EXPECT_STREQ("object", constObject.GetDescription());
    EXPECT_EQ("", Listing(object, 2));

    CTypedPtrList<CObList, AI_CObject *> list;
    AI_CObject other;
    list.AddTail(&other);
    object.GetObjects(list);
    ASSERT_EQ(1, list.GetCount());
    EXPECT_EQ(&other, list.GetHead());
}

namespace {

struct ClassCase
{
    CRuntimeClass *pClass;
    char const *pszName;
    CRuntimeClass *pBase;
};

}  // namespace

TEST(ObjectBase, EveryClassHasItsRecordWithNameSchemaBaseAndFactory)
{
    ClassCase const aCases[] = {
        {RUNTIME_CLASS(AI_CObject), "AI_CObject", RUNTIME_CLASS(CObject)},
        {RUNTIME_CLASS(AI_CExpression), "AI_CExpression", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CExprList), "AI_CExprList", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CCE), "AI_CCE", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CTestCE), "AI_CTestCE", RUNTIME_CLASS(AI_CCE)},
        {RUNTIME_CLASS(AI_COpCE), "AI_COpCE", RUNTIME_CLASS(AI_CCE)},
        {RUNTIME_CLASS(AI_CCEList), "AI_CCEList", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CAction), "AI_CAction", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CActionList), "AI_CActionList", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CCommand), "AI_CCommand", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CDefruleCommand), "AI_CDefruleCommand", RUNTIME_CLASS(AI_CCommand)},
        {RUNTIME_CLASS(AI_CDefconstCommand), "AI_CDefconstCommand", RUNTIME_CLASS(AI_CCommand)},
        {RUNTIME_CLASS(AI_CCommandList), "AI_CCommandList", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CLoadCommand), "AI_CLoadCommand", RUNTIME_CLASS(AI_CCommand)},
        {RUNTIME_CLASS(AI_CLoadOption), "AI_CLoadOption", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CLoadOptionList), "AI_CLoadOptionList", RUNTIME_CLASS(AI_CObject)},
        {RUNTIME_CLASS(AI_CLoadRandomCommand), "AI_CLoadRandomCommand", RUNTIME_CLASS(AI_CCommand)},
        {RUNTIME_CLASS(AI_CBlock), "AI_CBlock", RUNTIME_CLASS(AI_CCommand)},
    };
    for (ClassCase const &c : aCases) {
        SCOPED_TRACE(c.pszName);
        EXPECT_STREQ(c.pszName, c.pClass->m_lpszClassName);
        EXPECT_EQ(0xFFFFu, c.pClass->m_wSchema);
        EXPECT_EQ(c.pBase, c.pClass->m_pBaseClass);
        ASSERT_NE(nullptr, c.pClass->m_pfnCreateObject);
        std::unique_ptr<CObject> pObject(c.pClass->CreateObject());
        ASSERT_NE(nullptr, pObject);
        // The factory makes an object of exactly this class.
        EXPECT_EQ(c.pClass, pObject->GetRuntimeClass());
    }
}

TEST(ObjectBase, FactoryMadeObjectsAreEmpty)
{
    std::unique_ptr<CObject> pObject(RUNTIME_CLASS(AI_CTestCE)->CreateObject());
    AI_CTestCE *pTest = static_cast<AI_CTestCE *>(pObject.get());
    EXPECT_EQ(0u, pTest->GetSID());
    EXPECT_EQ(nullptr, pTest->GetExpressions());

    std::unique_ptr<CObject> pBlockObject(RUNTIME_CLASS(AI_CBlock)->CreateObject());
    AI_CBlock *pBlock = static_cast<AI_CBlock *>(pBlockObject.get());
    EXPECT_EQ(0, pBlock->GetIf());
    EXPECT_EQ(nullptr, pBlock->GetIfCommands());
    EXPECT_EQ(nullptr, pBlock->GetElseCommands());
    EXPECT_TRUE(Children(*pBlock).empty());
}

TEST(ObjectBase, EmptyListsDescribeThemselvesWithZeroAndListNothing)
{
    AI_CExprList exprs;
    AI_CCEList ces;
    AI_CActionList actions;
    AI_CCommandList commands;
    AI_CLoadOptionList options;
    EXPECT_EQ("expression list: 0 expressions", Describe(exprs));
    EXPECT_EQ("fact list: 0 CEs", Describe(ces));
    EXPECT_EQ("action list: 0 actions", Describe(actions));
    EXPECT_EQ("command list: 0 commands", Describe(commands));
    EXPECT_EQ("load options list: 0 load options", Describe(options));
    for (AI_CObject const *p : std::initializer_list<AI_CObject const *>{&exprs, &ces, &actions, &commands, &options}) {
        EXPECT_EQ("", Listing(*p, 1));
        EXPECT_TRUE(Children(*p).empty());
    }
}

TEST(ObjectBase, ListDescriptionsCountTheElements)
{
    AI_CExprList exprs;
    exprs.Add(new AI_CExpression(1));
    exprs.Add(new AI_CExpression(2));
    EXPECT_EQ("expression list: 2 expressions", Describe(exprs));

    AI_CLoadOptionList options;
    options.Add(new AI_CLoadOption(10, Str("a")));
    EXPECT_EQ("load options list: 1 load options", Describe(options));
}

TEST(ObjectBase, AddReturnsThePointerAndKeepsInsertionOrder)
{
    AI_CExprList list;
    AI_CExpression *a = new AI_CExpression(1);
    AI_CExpression *b = new AI_CExpression(2);
    EXPECT_EQ(a, list.Add(a));
    EXPECT_EQ(b, list.Add(b));
    ASSERT_EQ(2, list.GetExpressions().GetCount());
    EXPECT_EQ(a, list.GetExpressions().GetHead());
}

TEST(ObjectBase, GetObjectsAppendsDirectElementsAfterWhatTheListHolds)
{
    AI_CCommandList commands;
    AI_CCommand *aCommands[3];
    for (AI_CCommand *&p : aCommands) {
        p = new AI_CDefruleCommand(new AI_CCEList, new AI_CActionList);
        commands.Add(p);
    }
    AI_CObject old;
    CTypedPtrList<CObList, AI_CObject *> out;
    out.AddTail(&old);
    commands.GetObjects(out);
    ASSERT_EQ(4, out.GetCount());
    POSITION pos = out.GetHeadPosition();
    EXPECT_EQ(&old, out.GetNext(pos));
    for (AI_CCommand *p : aCommands)
        EXPECT_EQ(p, out.GetNext(pos));  // the rules, not their condition lists
}

TEST(ObjectBase, DestroyingAListDestroysEachElementOnceInOrder)
{
    std::vector<int> log;
    {
        AI_CCEList list;
        for (int i = 1; i <= 3; ++i)
            list.Add(new Tracked<AI_CTestCE>(&log, i, unsigned(kTrue), static_cast<AI_CExprList *>(nullptr)));
    }
    EXPECT_EQ((std::vector<int>{1, 2, 3}), log);
}

TEST(ObjectBase, DestroyingAListSkipsNullEntries)
{
    std::vector<int> log;
    {
        AI_CExprList list;
        list.Add(nullptr);
        list.Add(new Tracked<AI_CExpression>(&log, 7, 7));
        EXPECT_EQ(1u, Children(list).size());
    }
    EXPECT_EQ((std::vector<int>{7}), log);
}
