// Analysis of strategies from script files on disk: the order in which files
// are read, loads and random loads, blocks kept in the tree, self-loading
// files, failures, and the listing of an analysed strategy.
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "StrategySupport.h"
#include "parser/AI_CException.h"
#include "parser/AI_CParser.h"
#include "platform/crt.h"

namespace {

class Analyze : public VocabularyTest
{
protected:
    void SetUp() override
    {
        VocabularyTest::SetUp();
        std::string strTemplate = testing::TempDir() + "stratagem-analyze-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(&strTemplate[0]));
        m_strDir = strTemplate + "/";
    }
    void TearDown() override
    {
        std::filesystem::remove_all(m_strDir);
        VocabularyTest::TearDown();
    }

    // Writes a script file into the test's directory; answers its path.
    std::string Write(char const *pszName, char const *pszText)
    {
        std::string strPath = m_strDir + pszName;
        std::ofstream(strPath) << pszText;
        return strPath;
    }

    std::string Path(char const *pszName) const { return m_strDir + pszName; }

    // Runs the analysis; answers the exception's run-time class, or null.
    static CRuntimeClass *Run(AI_CStrategy &strategy)
    {
        try {
            strategy.Analyze();
        } catch (CException *pException) {
            CRuntimeClass *pClass = pException->GetRuntimeClass();
            pException->Delete();
            return pClass;
        }
        return nullptr;
    }

    std::string m_strDir;
};

AI_CCommand *FirstCommand(AI_CCommandList const *pList)
{
    return pList ? pList->GetCommands().GetHead() : nullptr;
}

}  // namespace

TEST_F(Analyze, ListingOfAOneRuleMainFile)
{
    std::string strMain = Write("m.per", "(defrule (true) => (do-nothing))\n");
    AI_CStrategy strategy("One", strMain.c_str(), DefaultSettings());
    ASSERT_EQ(nullptr, Run(strategy));
    int nFill = std::max(0, 73 - static_cast<int>(strMain.size()));
    std::string strSettings = ";Game settings:  " + Stars(58) +
                              "\n;DARK-AGE-START\n;MEDIUM-RESOURCES-START\n;SMALL-MAP\n;COASTAL-MAP\n"
                              ";VICTORY-STANDARD\n;DIFFICULTY-MODERATE\n;POPULATION-CAP-75\n;BYZANTINE-CIV\n"
                              ";GAME-SPEED-LOCKED\n";
    EXPECT_EQ(";One\n\n;" + strMain + "\n\n" + strSettings + "\n;Files:  " + Stars(66) + "\n;" + strMain +
                  "\n\n;Constants:  " + Stars(62) + "\n\n;START " + strMain + " " + Stars(nFill) +
                  "\n\n(defrule\n\t(true)\n=>\n\t(do-nothing)\n)\n\n\n;END " + strMain + " " + Stars(nFill + 2) +
                  "\n\n",
              Listing(strategy));
    EXPECT_EQ(std::vector<AI_CObject *>{strategy.CommandList(strMain.c_str())}, Children(strategy));
}

TEST_F(Analyze, ExtraFilesAreReadInOrderThenTheMainFile)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    std::string strB = Write("b.per", "(defconst cb 2)\n");
    std::string strMain = Write("m.per", "(defconst cm 3)\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    strategy.AddFilename(strA.c_str());
    strategy.AddFilename(strB.c_str());
    ASSERT_EQ(nullptr, Run(strategy));
    // Constants take their SIDs in the order they are first parsed.
    unsigned int nA = AI_Symbol("ca");
    unsigned int nB = AI_Symbol("cb");
    unsigned int nM = AI_Symbol("cm");
    EXPECT_LT(nA, nB);
    EXPECT_LT(nB, nM);
    EXPECT_EQ(std::vector<int>{1}, Values(strategy, nA));
    EXPECT_EQ(std::vector<int>{3}, Values(strategy, nM));
    EXPECT_EQ(3, strategy.GetCommandLists().GetCount());
    // Only the main file's list is the strategy's child.
    EXPECT_EQ(std::vector<AI_CObject *>{strategy.CommandList(strMain.c_str())}, Children(strategy));
}

TEST_F(Analyze, AnExtraFileThatIsTheMainFileIsParsedOnceAndLoadedTwice)
{
    std::string strMain = Write("m.per", "(defconst c 4)\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    strategy.AddFilename(strMain.c_str());
    ASSERT_EQ(nullptr, Run(strategy));
    EXPECT_EQ(1, strategy.GetCommandLists().GetCount());
    EXPECT_EQ((std::vector<int>{4, 4}), Values(strategy, AI_Symbol("c")));

    // A second analysis parses nothing new and loads the stored lists again.
    AI_CCommandList *pList = strategy.CommandList(strMain.c_str());
    std::filesystem::remove(strMain);
    ASSERT_EQ(nullptr, Run(strategy));
    EXPECT_EQ(pList, strategy.CommandList(strMain.c_str()));
    EXPECT_EQ((std::vector<int>{4, 4, 4, 4}), Values(strategy, AI_Symbol("c")));
}

TEST_F(Analyze, LoadedFilesAreLookedForBesideTheLoadingFileWithItsExtension)
{
    Write("common.per", "(defconst cc 9)\n");
    std::string strMain = Write("main.per", "(load \"common\")\n(load \"common\")\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    ASSERT_EQ(nullptr, Run(strategy));
    AI_CCommandList *pCommon = strategy.CommandList(Path("common.per").c_str());
    ASSERT_NE(nullptr, pCommon);
    AI_CCommandList *pMain = strategy.CommandList(strMain.c_str());
    ASSERT_NE(nullptr, pMain);
    // Both loads share the one list, and each loaded it.
    POSITION pos = pMain->GetCommands().GetHeadPosition();
    auto *pFirst = static_cast<AI_CLoadCommand *>(pMain->GetCommands().GetNext(pos));
    auto *pSecond = static_cast<AI_CLoadCommand *>(pMain->GetCommands().GetNext(pos));
    EXPECT_EQ(pCommon, pFirst->GetCommands());
    EXPECT_EQ(pCommon, pSecond->GetCommands());
    EXPECT_EQ((std::vector<int>{9, 9}), Values(strategy, AI_Symbol("cc")));
    EXPECT_EQ(1, pMain->Check());
}

TEST_F(Analyze, AMainFileThatLoadsItselfFinishes)
{
    std::string strMain = Write("m.per", "(defconst c 4)\n(load \"m\")\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    ASSERT_EQ(nullptr, Run(strategy));
    AI_CCommandList *pMain = strategy.CommandList(strMain.c_str());
    ASSERT_NE(nullptr, pMain);
    EXPECT_EQ(1, strategy.GetCommandLists().GetCount());
    EXPECT_EQ((std::vector<int>{4, 4}), Values(strategy, AI_Symbol("c")));
    POSITION pos = pMain->GetCommands().GetHeadPosition();
    pMain->GetCommands().GetNext(pos);
    auto *pLoad = static_cast<AI_CLoadCommand *>(pMain->GetCommands().GetNext(pos));
    EXPECT_EQ(pMain, pLoad->GetCommands());
    EXPECT_EQ(1, pMain->Check());

    std::string strListing = Listing(strategy);
    int nFill = std::max(0, 73 - static_cast<int>(strMain.size()));
    std::string strCommands = ";START " + strMain + " " + Stars(nFill) +
                              "\n\n(defconst c 4)\n\n;(load " + strMain + ")\n;START " + strMain + " " +
                              Stars(nFill) + "\n\n\n;END " + strMain + " " + Stars(nFill + 2) + "\n\n\n;END " +
                              strMain + " " + Stars(nFill + 2) + "\n\n";
    ASSERT_GE(strListing.size(), strCommands.size());
    EXPECT_EQ(strCommands, strListing.substr(strListing.size() - strCommands.size()));
    EXPECT_NE(std::string::npos, strListing.find(";c = 4, 4\n"));
}

TEST_F(Analyze, RandomLoadReadsTheChosenFileOnly)
{
    Write("a.per", "(defconst ca 1)\n");
    Write("b.per", "(defconst cb 2)\n");
    Write("d.per", "(defconst cd 3)\n");
    std::string strMain = Write("m.per", "(load-random 30 \"a\" 50 \"b\" \"d\")\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    int r = 0;
    while (PercentOf(r) < 31)
        ++r;
    crt::srand(SeedFor(r));  // x = 31: the second option
    ASSERT_EQ(nullptr, Run(strategy));
    auto *pRandom = static_cast<AI_CLoadRandomCommand *>(FirstCommand(strategy.CommandList(strMain.c_str())));
    ASSERT_NE(nullptr, pRandom);
    AI_CCommandList *pB = strategy.CommandList(Path("b.per").c_str());
    ASSERT_NE(nullptr, pB);
    EXPECT_EQ(pB, pRandom->GetCommands());
    EXPECT_EQ(2, strategy.GetCommandLists().GetCount());
    EXPECT_EQ("load random command: default " + Path("d.per") + ", loaded " + Path("b.per"), Describe(*pRandom));
    EXPECT_EQ(0u, AI_Symbol("ca"));
    EXPECT_EQ(std::vector<int>{2}, Values(strategy, AI_Symbol("cb")));
}

TEST_F(Analyze, BlocksKeptInTheTreeLoadBothBranches)
{
    AI_CParser::EnableExpandBlocks(0);
    Write("a.per", "(defconst ca 1)\n");
    Write("b.per", "(defconst cb 2)\n");
    std::string strMain = Write("m.per",
                                "#load-if-defined DEATH-MATCH\n(load \"a\")\n#else\n(load \"b\")\n#end-if\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    ASSERT_EQ(nullptr, Run(strategy));
    AI_CCommand *pCommand = FirstCommand(strategy.CommandList(strMain.c_str()));
    ASSERT_NE(nullptr, pCommand);
    EXPECT_EQ(RUNTIME_CLASS(AI_CBlock), pCommand->GetRuntimeClass());
    EXPECT_EQ(3, strategy.GetCommandLists().GetCount());
    EXPECT_EQ(std::vector<int>{1}, Values(strategy, AI_Symbol("ca")));
    EXPECT_EQ(std::vector<int>{2}, Values(strategy, AI_Symbol("cb")));
    AI_CParser::EnableExpandBlocks(1);
}

TEST_F(Analyze, AnErrorInTheSecondExtraFileKeepsWhatWasReadBefore)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    std::string strB = Write("b.per", "(defconst cb 2)\n(defrule\n");
    std::string strMain = Write("m.per", "(defconst cm 3)\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    strategy.AddFilename(strA.c_str());
    strategy.AddFilename(strB.c_str());
    EXPECT_EQ(RUNTIME_CLASS(AI_CParseException), Run(strategy));
    EXPECT_NE(nullptr, strategy.CommandList(strA.c_str()));
    EXPECT_EQ(std::vector<int>{1}, Values(strategy, AI_Symbol("ca")));
    EXPECT_EQ(nullptr, strategy.CommandList(strB.c_str()));
    EXPECT_EQ(nullptr, strategy.CommandList(strMain.c_str()));
    EXPECT_EQ(0u, AI_Symbol("cm"));
    EXPECT_TRUE(Children(strategy).empty());
}

TEST_F(Analyze, AnEmptyMainFileNameFailsAfterTheExtraFiles)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    AI_CStrategy strategy("s", "", DefaultSettings());
    strategy.AddFilename(strA.c_str());
    EXPECT_EQ(RUNTIME_CLASS(CFileException), Run(strategy));
    EXPECT_NE(nullptr, strategy.CommandList(strA.c_str()));
    EXPECT_EQ(1, strategy.GetCommandLists().GetCount());
}

TEST_F(Analyze, AMissingLoadedFileEndsTheAnalysisWithTheLoadUnloaded)
{
    std::string strMain = Write("m.per", "(defconst c 1)\n(load \"missing\")\n");
    AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
    EXPECT_EQ(RUNTIME_CLASS(CFileException), Run(strategy));
    AI_CCommandList *pMain = strategy.CommandList(strMain.c_str());
    ASSERT_NE(nullptr, pMain);
    POSITION pos = pMain->GetCommands().GetHeadPosition();
    pMain->GetCommands().GetNext(pos);
    EXPECT_EQ(0, pMain->GetCommands().GetNext(pos)->IsLoaded());
    EXPECT_EQ(std::vector<int>{1}, Values(strategy, AI_Symbol("c")));
}
