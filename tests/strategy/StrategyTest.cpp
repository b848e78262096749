// The strategy container: settings, extra files, the constant table and the
// command-list table with their enumeration orders, ownership, description
// and children.
#include <cstdint>
#include <cstring>
#include <algorithm>
#include <memory>
#include <type_traits>

#include "StrategySupport.h"

using Strategy = VocabularyTest;

namespace {

AI_CStrategy *MadeByFactory()
{
    return static_cast<AI_CStrategy *>(RUNTIME_CLASS(AI_CStrategy)->CreateObject());
}

}  // namespace

TEST_F(Strategy, RunTimeClassAndFactory)
{
    EXPECT_FALSE(std::is_default_constructible<AI_CStrategy>::value);  // only through the factory
    CRuntimeClass *pClass = RUNTIME_CLASS(AI_CStrategy);
    EXPECT_STREQ("AI_CStrategy", pClass->m_lpszClassName);
    EXPECT_EQ(0xFFFFu, pClass->m_wSchema);
    EXPECT_EQ(RUNTIME_CLASS(AI_CObject), pClass->m_pBaseClass);
    EXPECT_EQ(static_cast<int>(sizeof(AI_CStrategy)), pClass->m_nObjectSize);
    std::unique_ptr<AI_CStrategy> pStrategy(MadeByFactory());
    ASSERT_NE(nullptr, pStrategy);
    EXPECT_EQ(pClass, pStrategy->GetRuntimeClass());
    EXPECT_EQ("", std::string(pStrategy->GetName()));
    EXPECT_EQ("", std::string(pStrategy->GetFilename()));
    EXPECT_EQ("strategy:  ()", Describe(*pStrategy));
}

TEST_F(Strategy, ConstructorCopiesTheSettingsItIsGiven)
{
    AI_GameSettings settings = DefaultSettings();
    settings.nDifficulty = 4;
    AI_CStrategy strategy("Rush", "rush.txt", settings);
    settings.nDifficulty = 0;  // the strategy holds its own copy
    EXPECT_EQ(4, strategy.GetGameSettings().nDifficulty);
    EXPECT_EQ(1, strategy.Define(174));
    EXPECT_EQ(0, AI_Define(174));
    EXPECT_EQ(1, AI_Define(172));
    EXPECT_EQ(0, strategy.Define(172));
    EXPECT_EQ("Rush", std::string(strategy.GetName()));
    EXPECT_EQ("rush.txt", std::string(strategy.GetFilename()));
    for (unsigned int nSID : {0u, 102u, 191u, 230u, 4001u})
        EXPECT_EQ(0, strategy.Define(nSID)) << nSID;
}

TEST_F(Strategy, DefaultConstructionCopiesTheGlobalSettingsOfThatMoment)
{
    AI_gsSettings.nMapSize = 5;
    std::unique_ptr<AI_CStrategy> pStrategy(MadeByFactory());
    AI_gsSettings.nMapSize = 1;
    EXPECT_EQ(1, pStrategy->Define(135));  // GIANT-MAP
    EXPECT_EQ(0, pStrategy->Define(131));
    EXPECT_EQ(1, AI_Define(131));
    EXPECT_EQ(5, pStrategy->GetGameSettings().nMapSize);
}

TEST_F(Strategy, ExtraFilesAreKeptInOrderWithDuplicates)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    EXPECT_EQ(0, strategy.AddFilename("a"));
    EXPECT_EQ(1, strategy.AddFilename("a"));
    EXPECT_EQ(2, strategy.AddFilename("b"));
    ASSERT_EQ(3, strategy.GetFilenames().GetSize());
    EXPECT_STREQ("a", strategy.Filename(1));
    EXPECT_STREQ("b", strategy.Filename(2));
    EXPECT_STREQ("b", strategy.GetFilenames()[2]);
    strategy.DeleteFilenames();
    EXPECT_EQ(0, strategy.GetFilenames().GetSize());
    EXPECT_EQ(0, strategy.AddFilename("c"));
}

TEST_F(Strategy, ConstantValuesAreRecordedInOrderAndDeleted)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    int const nNoValue = static_cast<int>(0x80000000u);
    EXPECT_EQ(nNoValue, strategy.Constant(4001, 0));
    strategy.AddConstantValue(4001, 7);
    strategy.AddConstantValue(4001, 9);
    EXPECT_EQ(7, strategy.Constant(4001, 0));
    EXPECT_EQ(9, strategy.Constant(4001, 1));
    EXPECT_EQ(nNoValue, strategy.Constant(4002, 0));
    EXPECT_EQ((std::vector<int>{7, 9}), Values(strategy, 4001));

    strategy.AddConstantValue(4002, -1);
    EXPECT_EQ(1, strategy.DeleteConstant(4001));
    EXPECT_EQ(0, strategy.DeleteConstant(4001));
    EXPECT_EQ(nNoValue, strategy.Constant(4001, 0));
    EXPECT_EQ(-1, strategy.Constant(4002, 0));

    strategy.AddConstantValue(4001, 1);
    strategy.DeleteConstants();
    EXPECT_EQ(0, strategy.GetConstants().GetCount());
    EXPECT_EQ(nNoValue, strategy.Constant(4002, 0));
    strategy.AddConstantValue(4002, 3);  // the table works on after emptying
    EXPECT_EQ((std::vector<int>{3}), Values(strategy, 4002));
}

// Buckets are the SID shifted right by 4, modulo 17; the latest entry of a
// bucket comes first.
TEST_F(Strategy, ConstantTableEnumeratesByBucketLatestFirst)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddConstantValue(4016, 1);  // 251: bucket 13
    strategy.AddConstantValue(4001, 1);  // 250: bucket 12
    strategy.AddConstantValue(4002, 1);  // 250: bucket 12
    strategy.AddConstantValue(4001, 2);  // no new entry
    strategy.AddConstantValue(4100, 1);  // 256: bucket 1
    EXPECT_EQ((std::vector<unsigned int>{4100, 4002, 4001, 4016}), ConstantOrder(strategy));
}

// Buckets are h = h * 33 + c over the name's bytes taken as signed, modulo 17.
TEST_F(Strategy, CommandListTableEnumeratesByTheStringHash)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    for (char const *psz : {"c", "a", "q", "r", "G", "\xe9t"})
        strategy.AddCommandList(psz, new AI_CCommandList);
    // "G" 3, "\xe9t" 4 (2 if the byte counted as unsigned), "q" 11, "a" and
    // "r" 12, "c" 14.
    EXPECT_EQ((std::vector<std::string>{"G", "\xe9t", "q", "r", "a", "c"}), FileOrder(strategy));
}

TEST_F(Strategy, CommandListsAreFoundByTheExactName)
{
    AI_CStrategy strategy("s", "main.per", DefaultSettings());
    AI_CCommandList *pLower = new AI_CCommandList;
    AI_CCommandList *pUpper = new AI_CCommandList;
    strategy.AddCommandList("main.per", pLower);
    strategy.AddCommandList("Main.per", pUpper);
    EXPECT_EQ(pLower, strategy.CommandList("main.per"));
    EXPECT_EQ(pUpper, strategy.CommandList("Main.per"));
    EXPECT_EQ(nullptr, strategy.CommandList("./main.per"));
    EXPECT_EQ(nullptr, strategy.CommandList("main.pe"));
    EXPECT_EQ(2, strategy.GetCommandLists().GetCount());
}

TEST_F(Strategy, StoringANameAgainReplacesTheListWithoutDestroyingIt)
{
    std::vector<int> log;
    AI_CCommandList *pOld = new Tracked<AI_CCommandList>(&log, 1);
    {
        AI_CStrategy strategy("s", "m", DefaultSettings());
        strategy.AddCommandList("x", pOld);
        AI_CCommandList *pNew = new Tracked<AI_CCommandList>(&log, 2);
        strategy.AddCommandList("x", pNew);
        EXPECT_EQ(pNew, strategy.CommandList("x"));
        EXPECT_EQ(1, strategy.GetCommandLists().GetCount());
        EXPECT_TRUE(log.empty());
    }
    EXPECT_EQ(std::vector<int>{2}, log);
    delete pOld;
}

TEST_F(Strategy, DestroyingTheStrategyDestroysEveryListOnceEvenWhenShared)
{
    std::vector<int> log;
    {
        AI_CStrategy strategy("s", "main", DefaultSettings());
        AI_CCommandList *pCommon = new Tracked<AI_CCommandList>(&log, 1);
        AI_CCommandList *pMain = new Tracked<AI_CCommandList>(&log, 2);
        // Both lists refer to "common", and "common" to itself.
        pMain->Add(new HandLoad("common", pCommon));
        pMain->Add(new HandLoad("common", pCommon));
        pCommon->Add(new HandLoad("common", pCommon));
        pCommon->Add(new HandLoad("main", pMain));
        strategy.AddCommandList("common", pCommon);
        strategy.AddCommandList("main", pMain);
        strategy.AddConstantValue(4001, 1);
    }
    std::sort(log.begin(), log.end());
    EXPECT_EQ((std::vector<int>{1, 2}), log);
}

TEST_F(Strategy, DeleteCommandListsDestroysThemAndEmptiesTheTable)
{
    std::vector<int> log;
    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddCommandList("m", new Tracked<AI_CCommandList>(&log, 1));
    strategy.AddCommandList("n", new Tracked<AI_CCommandList>(&log, 2));
    strategy.DeleteCommandLists();
    EXPECT_EQ(2u, log.size());
    EXPECT_EQ(0, strategy.GetCommandLists().GetCount());
    EXPECT_EQ(nullptr, strategy.CommandList("m"));
    EXPECT_TRUE(Children(strategy).empty());
}

TEST_F(Strategy, DescriptionNamesTheStrategyAndItsMainFile)
{
    AI_CStrategy strategy("Rush", "rush.txt", DefaultSettings());
    EXPECT_EQ("strategy: Rush (rush.txt)", Describe(strategy));
}

TEST_F(Strategy, ChildIsOnlyTheMainFilesList)
{
    AI_CStrategy strategy("s", "main", DefaultSettings());
    EXPECT_TRUE(Children(strategy).empty());
    strategy.AddCommandList("extra", new AI_CCommandList);
    EXPECT_TRUE(Children(strategy).empty());
    AI_CCommandList *pMain = new AI_CCommandList;
    strategy.AddCommandList("main", pMain);

    AI_CObject old;
    CTypedPtrList<CObList, AI_CObject *> out;
    out.AddTail(&old);
    strategy.GetObjects(out);
    ASSERT_EQ(2, out.GetCount());
    EXPECT_EQ(&old, out.GetHead());
    EXPECT_EQ(pMain, out.GetTail());
}

#if defined(__GNUC__)
namespace {

template <class PMF>
long Slot(PMF pmf)
{
    std::uintptr_t aWords[2];
    static_assert(sizeof(PMF) == sizeof aWords, "Itanium member pointer");
    std::memcpy(aWords, &pmf, sizeof aWords);
    return (aWords[0] & 1) ? static_cast<long>((aWords[0] - 1) / sizeof(void *)) : -1;
}

// Names the protected section writers from a derived class.
struct SlotProbe : AI_CStrategy
{
    static std::vector<long> Slots()
    {
        return {Slot(&SlotProbe::Analyze), Slot(&SlotProbe::PrettyPrintGameSettings),
                Slot(&SlotProbe::PrettyPrintFiles), Slot(&SlotProbe::PrettyPrintConstants),
                Slot(&SlotProbe::PrettyPrintCommands)};
    }
};

}  // namespace

// The strategy's own operations follow the three of the object base (slots
// 6 to 8), in declaration order.
TEST_F(Strategy, OwnVirtualOperationsFollowTheObjectBaseInOrder)
{
    EXPECT_EQ((std::vector<long>{9, 10, 11, 12, 13}), SlotProbe::Slots());
    EXPECT_EQ(8, Slot(&AI_CStrategy::PrettyPrint));
}
#endif
