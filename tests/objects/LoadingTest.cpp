// Loading of load commands, random loads and blocks. The files' command
// lists are placed in the strategy's store beforehand, so a parse finds
// them there and no file is read.
#include <memory>

#include "TestSupport.h"
#include "platform/crt.h"
#include "strategy/AI_CStrategy.h"

namespace {

// The smallest and the largest draw that give x.
int LowestDrawFor(int x)
{
    int r = 0;
    while (PercentOf(r) < x)
        ++r;
    return r;
}

int HighestDrawFor(int x)
{
    int r = 32767;
    while (PercentOf(r) > x)
        --r;
    return r;
}

class Loading : public VocabularyTest
{
protected:
    Loading() : m_strategy("s", "main", AI_gsSettings) {}

    // Stores an empty list under the name, as a finished parse would.
    AI_CCommandList *Store(char const *pszName, AI_CCommandList *pList = nullptr)
    {
        if (!pList)
            pList = new AI_CCommandList;
        m_strategy.AddCommandList(pszName, pList);
        return pList;
    }

    AI_CLoadRandomCommand *RandomLoad(bool bDefault)
    {
        AI_CLoadOptionList *pOptions = new AI_CLoadOptionList;
        pOptions->Add(new AI_CLoadOption(30, Str("a")));
        pOptions->Add(new AI_CLoadOption(50, Str("b")));
        return new AI_CLoadRandomCommand(pOptions, bDefault ? Str("d") : nullptr, &m_strategy);
    }

    std::vector<int> Values(unsigned int nSID) const
    {
        std::vector<int> values;
        CArray<int, int> *pValues = nullptr;
        if (m_strategy.GetConstants().Lookup(nSID, pValues))
            for (int i = 0; i < pValues->GetSize(); ++i)
                values.push_back(pValues->GetAt(i));
        return values;
    }

    AI_CStrategy m_strategy;
};

}  // namespace

TEST_F(Loading, LoadCommandTakesTheStoredListAndLoadsItOnce)
{
    unsigned int nSID = AI_AddConstant("c", 0);
    AI_CCommandList *pCommon = Store("common");
    pCommon->Add(new AI_CDefconstCommand(nSID, 3, &m_strategy));

    AI_CCommandList main;
    AI_CLoadCommand *pLoad = new AI_CLoadCommand(Str("common"), &m_strategy);
    main.Add(pLoad);
    EXPECT_EQ(0, pLoad->IsLoaded());
    main.Load();
    EXPECT_EQ(1, pLoad->IsLoaded());
    EXPECT_EQ(pCommon, pLoad->GetCommands());
    EXPECT_EQ(std::vector<AI_CObject *>{pCommon}, Children(*pLoad));
    EXPECT_EQ(std::vector<int>{3}, Values(nSID));

    main.Load();  // already loaded: skipped
    EXPECT_EQ(std::vector<int>{3}, Values(nSID));
    EXPECT_EQ(1, main.Check());
}

TEST_F(Loading, TwoLoadsOfOneFileShareItsList)
{
    unsigned int nSID = AI_AddConstant("c", 0);
    AI_CCommandList *pCommon = Store("common");
    pCommon->Add(new AI_CDefconstCommand(nSID, 8, &m_strategy));
    AI_CCommandList main;
    AI_CLoadCommand *pFirst = new AI_CLoadCommand(Str("common"), &m_strategy);
    AI_CLoadCommand *pSecond = new AI_CLoadCommand(Str("common"), &m_strategy);
    main.Add(pFirst);
    main.Add(pSecond);
    main.Load();
    EXPECT_EQ(pCommon, pFirst->GetCommands());
    EXPECT_EQ(pCommon, pSecond->GetCommands());
    EXPECT_EQ((std::vector<int>{8, 8}), Values(nSID));
    EXPECT_EQ(1, m_strategy.GetCommandLists().GetCount());
}

TEST_F(Loading, AFileThatLoadsItselfStopsAndRecordsItsConstantsOnceMore)
{
    unsigned int nSID = AI_AddConstant("c", 0);
    AI_CCommandList *pSelf = Store("self");
    pSelf->Add(new AI_CDefconstCommand(nSID, 5, &m_strategy));
    AI_CLoadCommand *pLoad = new AI_CLoadCommand(Str("self"), &m_strategy);
    pSelf->Add(pLoad);

    pSelf->Load();
    EXPECT_EQ(pSelf, pLoad->GetCommands());
    EXPECT_EQ((std::vector<int>{5, 5}), Values(nSID));
    EXPECT_EQ(1, pSelf->Check());
    EXPECT_EQ(1, pLoad->Check());
    std::string strStars69(69, '*');
    std::string strStars71(71, '*');
    EXPECT_EQ("(defconst c 5)\n"
              "\n"
              ";(load self)\n"
              ";START self " + strStars69 + "\n"
              "\n"
              "\n"
              ";END self " + strStars71 + "\n"
              "\n",
              Listing(*pSelf));
}

TEST_F(Loading, RandomLoadChoosesByInclusiveBoundsWithTheEarlierOptionFirst)
{
    AI_CCommandList *pA = Store("a");
    AI_CCommandList *pB = Store("b");
    AI_CCommandList *pD = Store("d");
    struct Case
    {
        int r;
        AI_CCommandList *pExpected;
        char const *pszChosen;
    } const aCases[] = {
        {0, pA, "a"},
        {HighestDrawFor(30), pA, "a"},
        {LowestDrawFor(31), pB, "b"},
        {HighestDrawFor(80), pB, "b"},
        {LowestDrawFor(81), pD, "d"},
        {HighestDrawFor(99), pD, "d"},
        {32767, pD, "d"},  // x = 100
    };
    EXPECT_EQ(30, PercentOf(aCases[1].r));
    EXPECT_EQ(31, PercentOf(aCases[2].r));
    for (Case const &c : aCases) {
        SCOPED_TRACE(c.r);
        std::unique_ptr<AI_CLoadRandomCommand> pRandom(RandomLoad(true));
        crt::srand(SeedFor(c.r));
        pRandom->Load();
        EXPECT_EQ(c.pExpected, pRandom->GetCommands());
        EXPECT_EQ(1, pRandom->IsLoaded());
        EXPECT_EQ(std::string("load random command: default d, loaded ") + c.pszChosen, Describe(*pRandom));
    }
}

TEST_F(Loading, RandomLoadWithoutAChoiceStaysUnloadedAndDrawsAgainNextTime)
{
    AI_CCommandList *pA = Store("a");
    Store("b");
    AI_CCommandList list;
    AI_CLoadRandomCommand *pRandom = RandomLoad(false);
    list.Add(pRandom);

    // A seed whose first draw lies above the options' 80 and whose second
    // draw is 0.
    unsigned int nSeed = 0;
    for (unsigned int nLow = 0; nLow < 0x10000; ++nLow) {
        unsigned int stateFirst = StateBefore(nLow);
        if (PercentOf(static_cast<int>((stateFirst >> 16) & 0x7FFF)) > 80) {
            nSeed = StateBefore(stateFirst);
            break;
        }
    }
    unsigned int state = nSeed;
    ASSERT_GT(PercentOf(NextDraw(state)), 80);
    ASSERT_EQ(0, NextDraw(state));

    crt::srand(nSeed);
    list.Load();
    EXPECT_EQ(0, pRandom->IsLoaded());
    EXPECT_EQ(nullptr, pRandom->GetCommands());
    EXPECT_EQ(0, pRandom->Check());
    EXPECT_EQ(0, list.Check());
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(*pRandom));

    list.Load();
    EXPECT_EQ(pA, pRandom->GetCommands());
    EXPECT_EQ("load random command: default ?, loaded a", Describe(*pRandom));
    list.Load();  // loaded now: no further draw
    EXPECT_EQ(NextDraw(state), crt::rand());

    // A later draw without a choice forgets the chosen name but keeps the
    // list loaded before.
    crt::srand(SeedFor(32767));
    pRandom->Load();
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(*pRandom));
    EXPECT_EQ(pA, pRandom->GetCommands());
}

TEST_F(Loading, EveryRandomLoadDrawsExactlyOnceEvenWithNothingToChoose)
{
    Store("d");
    std::unique_ptr<AI_CLoadRandomCommand> pNothing(new AI_CLoadRandomCommand(nullptr, nullptr, &m_strategy));
    std::unique_ptr<AI_CLoadRandomCommand> pDefault(new AI_CLoadRandomCommand(nullptr, Str("d"), &m_strategy));

    crt::srand(1234);
    unsigned int state = 1234;
    pNothing->Load();
    NextDraw(state);
    EXPECT_EQ(0, pNothing->IsLoaded());
    pDefault->Load();
    NextDraw(state);
    EXPECT_EQ(1, pDefault->IsLoaded());
    EXPECT_EQ("load random command: default d, loaded d", Describe(*pDefault));
    EXPECT_EQ(NextDraw(state), crt::rand());

    // Without options the default is taken whatever the draw.
    for (int r : {0, 16383, 32767}) {
        std::unique_ptr<AI_CLoadRandomCommand> pAgain(new AI_CLoadRandomCommand(nullptr, Str("d"), &m_strategy));
        crt::srand(SeedFor(r));
        pAgain->Load();
        EXPECT_EQ(1, pAgain->IsLoaded()) << r;
    }
}

TEST_F(Loading, BlockLoadsTheFilesOfBothBranches)
{
    AI_CCommandList *pA = Store("a");
    AI_CCommandList *pB = Store("b");
    AI_CLoadCommand *pLoadA = new AI_CLoadCommand(Str("a"), &m_strategy);
    AI_CLoadCommand *pLoadB = new AI_CLoadCommand(Str("b"), &m_strategy);
    AI_CCommandList *pIf = new AI_CCommandList;
    pIf->Add(pLoadA);
    AI_CCommandList *pElse = new AI_CCommandList;
    pElse->Add(pLoadB);
    AI_CCommandList list;
    list.Add(new AI_CBlock(1, kSmallMap, pIf, pElse));
    list.Load();
    EXPECT_EQ(pA, pLoadA->GetCommands());
    EXPECT_EQ(pB, pLoadB->GetCommands());
}

TEST_F(Loading, AFileThatCannotBeOpenedLeavesTheCommandUnloaded)
{
    std::string strMissing = testing::TempDir() + "stratagem-no-such-dir/none.per";
    AI_CLoadCommand load(Str(strMissing.c_str()), &m_strategy);
    bool bThrown = false;
    try {
        load.Load();
    } catch (CException *pException) {
        bThrown = true;
        EXPECT_TRUE(pException->IsKindOf(RUNTIME_CLASS(CFileException)));
        pException->Delete();
    }
    EXPECT_TRUE(bThrown);
    EXPECT_EQ(0, load.IsLoaded());
    EXPECT_EQ(nullptr, m_strategy.CommandList(strMissing.c_str()));

    // A random load keeps its choice even so.
    AI_CLoadRandomCommand random(nullptr, Str(strMissing.c_str()), &m_strategy);
    try {
        random.Load();
        ADD_FAILURE() << "no exception";
    } catch (CException *pException) {
        pException->Delete();
    }
    EXPECT_EQ(0, random.IsLoaded());
    EXPECT_EQ("load random command: default " + strMissing + ", loaded " + strMissing, Describe(random));
}
