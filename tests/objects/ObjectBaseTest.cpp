// The object base, run-time class records and the behaviour the five list
// classes share.
#include <cstdint>
#include <cstring>
#include <memory>
#include <type_traits>

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

// Hosts may default-construct the base and the lists; every other class
// only through its factory.
TEST(ObjectBase, OnlyTheBaseAndTheListsArePubliclyDefaultConstructible)
{
    EXPECT_TRUE(std::is_default_constructible<AI_CObject>::value);
    EXPECT_TRUE(std::is_default_constructible<AI_CExprList>::value);
    EXPECT_TRUE(std::is_default_constructible<AI_CCEList>::value);
    EXPECT_TRUE(std::is_default_constructible<AI_CActionList>::value);
    EXPECT_TRUE(std::is_default_constructible<AI_CCommandList>::value);
    EXPECT_TRUE(std::is_default_constructible<AI_CLoadOptionList>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CExpression>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CCE>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CTestCE>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_COpCE>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CAction>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CCommand>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CDefruleCommand>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CDefconstCommand>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CLoadCommand>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CLoadOption>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CLoadRandomCommand>::value);
    EXPECT_FALSE(std::is_default_constructible<AI_CBlock>::value);
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

// A host built against the library calls the virtual operations through
// their vtable slots, so the slot of every operation is part of the
// interface. Under the Itanium C++ ABI a pointer to a virtual member holds
// 1 + the byte offset of its slot.
#if defined(__GNUC__)
template <class PMF>
long Slot(PMF pmf)
{
    static_assert(sizeof(PMF) == 2 * sizeof(std::uintptr_t), "Itanium member pointer");
    std::uintptr_t aWords[2];
    std::memcpy(aWords, &pmf, sizeof aWords);
    if ((aWords[0] & 1) == 0)
        return -1;  // not virtual
    return static_cast<long>((aWords[0] - 1) / sizeof(void *));
}

TEST(ObjectBase, VirtualOperationsOccupyTheirSlotsInDeclarationOrder)
{
    // 0 GetRuntimeClass, 1-2 destructor, 3-5 the three hooks of CObject.
    EXPECT_EQ(0, Slot(&AI_CObject::GetRuntimeClass));
    EXPECT_EQ(6, Slot(static_cast<CString (AI_CObject::*)()>(&AI_CObject::GetDescription)));
    EXPECT_EQ(7, Slot(&AI_CObject::GetObjects));
    EXPECT_EQ(8, Slot(&AI_CObject::PrettyPrint));

    EXPECT_EQ(9, Slot(&AI_CExpression::IsValid));
    EXPECT_EQ(10, Slot(&AI_CExpression::Invalidate));

    EXPECT_EQ(9, Slot(&AI_CCE::IsValid));
    EXPECT_EQ(10, Slot(&AI_CCE::IsTrue));
    EXPECT_EQ(11, Slot(&AI_CTestCE::Invalidate));
    EXPECT_EQ(11, Slot(&AI_COpCE::Invalidate));

    EXPECT_EQ(9, Slot(&AI_CAction::IsValid));
    EXPECT_EQ(10, Slot(&AI_CAction::Invalidate));
    EXPECT_EQ(11, Slot(&AI_CAction::Execute));

    EXPECT_EQ(9, Slot(&AI_CLoadOption::IsValid));
    EXPECT_EQ(10, Slot(&AI_CLoadOption::Invalidate));

    EXPECT_EQ(9, Slot(&AI_CCommand::IsValid));
    EXPECT_EQ(10, Slot(&AI_CCommand::Check));
    EXPECT_EQ(11, Slot(&AI_CCommand::Load));
    EXPECT_EQ(12, Slot(&AI_CCommand::IsLoaded));
    EXPECT_EQ(13, Slot(&AI_CDefruleCommand::Invalidate));
    EXPECT_EQ(13, Slot(&AI_CDefconstCommand::Invalidate));
    EXPECT_EQ(13, Slot(&AI_CLoadCommand::Invalidate));
    EXPECT_EQ(13, Slot(&AI_CLoadRandomCommand::Invalidate));
    EXPECT_EQ(13, Slot(&AI_CBlock::Invalidate));

    EXPECT_EQ(9, Slot(&AI_CExprList::Add));
    EXPECT_EQ(9, Slot(&AI_CLoadOptionList::Add));
    EXPECT_EQ(9, Slot(&AI_CCEList::Add));
    EXPECT_EQ(10, Slot(&AI_CCEList::IsTrue));
    EXPECT_EQ(9, Slot(&AI_CActionList::Add));
    EXPECT_EQ(10, Slot(&AI_CActionList::Execute));
    EXPECT_EQ(9, Slot(static_cast<void (AI_CCommandList::*)(AI_CCommandList *)>(&AI_CCommandList::Add)));
    EXPECT_EQ(10, Slot(static_cast<AI_CCommand *(AI_CCommandList::*)(AI_CCommand *)>(&AI_CCommandList::Add)));
    EXPECT_EQ(11, Slot(&AI_CCommandList::Check));
    EXPECT_EQ(12, Slot(&AI_CCommandList::Load));
}
#endif
