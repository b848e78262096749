// Loading of load commands and random loads (which option a draw picks is
// pinned by the host's random-load cases). The files' command lists are
// placed in the strategy's store beforehand, so a parse finds them there
// and no file is read.
#include "TestSupport.h"
#include "platform/crt.h"

namespace {

// The first seed after which the generator's draws pass the test (about one
// seed in 32768 gives a chosen first draw). The generator is left seeded.
template <class TEST>
unsigned int SeedWhere(TEST const &passes)
{
    for (unsigned int nSeed = 0;; ++nSeed) {
        crt::srand(nSeed);
        if (passes()) {
            crt::srand(nSeed);
            return nSeed;
        }
    }
}

// A seed whose first draw is r.
inline unsigned int SeedFor(int r)
{
    return SeedWhere([r] { return crt::rand() == r; });
}

class Loading : public ObjectsTest
{
protected:
    Loading() : m_strategy("s", "main", AI_gsSettings) {}

    // Stores a list under the name, as a finished parse would.
    AI_CCommandList *Store(char const *pszName)
    {
        AI_CCommandList *pList = new AI_CCommandList;
        m_strategy.AddCommandList(pszName, pList);
        return pList;
    }

    // Options a 30 and b 50, and the default d if asked for.
    AI_CLoadRandomCommand *RandomLoad(bool bDefault)
    {
        return new AI_CLoadRandomCommand(Options({{30, "a"}, {50, "b"}}), bDefault ? Str("d") : nullptr, &m_strategy);
    }

    AI_CStrategy m_strategy;
};

}  // namespace

TEST_F(Loading, RandomLoadWithoutAChoiceStaysUnloadedAndDrawsAgainNextTime)
{
    AI_CCommandList *pA = Store("a");
    AI_CCommandList list;
    AI_CLoadRandomCommand *pRandom = RandomLoad(false);
    list.Add(pRandom);
    // A seed whose first draw makes a percentage (the floor of 100 r / 32767)
    // above the options' 80, and whose second draw is 0.
    unsigned int const nSeed = SeedWhere([] { return 100 * crt::rand() / 32767 > 80 && crt::rand() == 0; });
    crt::rand(), crt::rand();
    int const nThird = crt::rand();
    crt::srand(nSeed);

    list.Load();
    EXPECT_EQ(0, pRandom->IsLoaded());
    EXPECT_EQ(0, list.Check());
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(*pRandom));
    list.Load();
    EXPECT_EQ(pA, pRandom->GetCommands());
    EXPECT_EQ("load random command: default ?, loaded a", Describe(*pRandom));
    list.Load();  // loaded now: no further draw
    EXPECT_EQ(nThird, crt::rand());

    // A later draw without a choice forgets the chosen name but keeps the
    // list loaded before.
    crt::srand(SeedFor(32767));
    pRandom->Load();
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(*pRandom));
    EXPECT_EQ(pA, pRandom->GetCommands());
}

TEST_F(Loading, EveryRandomLoadDrawsExactlyOnce)
{
    for (char const *pszName : {"a", "b", "d"})
        Store(pszName);
    AI_CLoadRandomCommand nothing(nullptr, nullptr, &m_strategy);
    AI_CLoadRandomCommand defaultOnly(nullptr, Str("d"), &m_strategy);
    std::unique_ptr<AI_CLoadRandomCommand> pChoice(RandomLoad(true));
    crt::srand(1234);
    crt::rand(), crt::rand(), crt::rand();
    int const nFourth = crt::rand();
    crt::srand(1234);
    nothing.Load();
    defaultOnly.Load();
    pChoice->Load();
    EXPECT_EQ(nFourth, crt::rand());
    EXPECT_EQ(0, nothing.IsLoaded());

    // Without options the default is taken whatever the draw.
    for (int r : {0, 32767}) {
        AI_CLoadRandomCommand again(nullptr, Str("d"), &m_strategy);
        crt::srand(SeedFor(r));
        again.Load();
        EXPECT_EQ("load random command: default d, loaded d", Describe(again)) << r;
    }
}

// The file error passes through; a random load keeps its choice even so.
TEST_F(Loading, AFileThatCannotBeOpenedLeavesTheCommandUnloaded)
{
    std::string strMissing = testing::TempDir() + "stratagem-no-such-dir/none.per";
    AI_CLoadCommand load(Str(strMissing.c_str()), &m_strategy);
    AI_CLoadRandomCommand random(nullptr, Str(strMissing.c_str()), &m_strategy);
    for (AI_CCommand *pCommand : std::initializer_list<AI_CCommand *> {&load, &random}) {
        CRuntimeClass *pThrown = nullptr;
        try {
            pCommand->Load();
        } catch (CException *pException) {
            pThrown = pException->GetRuntimeClass();
            pException->Delete();
        }
        EXPECT_EQ(RUNTIME_CLASS(CFileException), pThrown);
        EXPECT_EQ(0, pCommand->IsLoaded());
    }
    EXPECT_EQ(nullptr, m_strategy.CommandList(strMissing.c_str()));
    EXPECT_EQ("load random command: default " + strMissing + ", loaded " + strMissing, Describe(random));
}
