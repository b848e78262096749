// Analysis of strategies from script files on disk: the order in which files
// are read, loads and random loads, blocks kept in the tree, self-loading
// files and failures.
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "../objects/TestSupport.h"
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
        std::ofstream(m_strDir + pszName) << pszText;
        return m_strDir + pszName;
    }

    // A strategy on the main file with the extra files, analysed; answers the
    // exception's run-time class, or null.
    CRuntimeClass *Run(std::string const &strMain, std::initializer_list<std::string> extras = {})
    {
        m_pStrategy.reset(new AI_CStrategy("s", strMain.c_str(), DefaultSettings()));
        for (std::string const &strExtra : extras)
            m_pStrategy->AddFilename(strExtra.c_str());
        return Again();
    }

    CRuntimeClass *Again()
    {
        try {
            m_pStrategy->Analyze();
        } catch (CException *pException) {
            CRuntimeClass *pClass = pException->GetRuntimeClass();
            pException->Delete();
            return pClass;
        }
        return nullptr;
    }

    AI_CCommandList *List(std::string const &strPath) const { return m_pStrategy->CommandList(strPath.c_str()); }
    std::vector<int> Values(char const *pszConstant) const { return ::Values(*m_pStrategy, AI_Symbol(pszConstant)); }

    // The commands of the file's list, in order.
    std::vector<AI_CObject *> CommandsOf(std::string const &strPath) const
    {
        return List(strPath) ? Children(*List(strPath)) : std::vector<AI_CObject *>{};
    }

    std::string m_strDir;
    std::unique_ptr<AI_CStrategy> m_pStrategy;
};

}  // namespace

TEST_F(Analyze, ExtraFilesAreReadInOrderThenTheMainFile)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    std::string strB = Write("b.per", "(defconst cb 2)\n");
    std::string strMain = Write("m.per", "(defconst cm 3)\n");
    ASSERT_EQ(nullptr, Run(strMain, {strA, strB}));
    // Constants take their SIDs in the order they are first parsed.
    EXPECT_LT(AI_Symbol("ca"), AI_Symbol("cb"));
    EXPECT_LT(AI_Symbol("cb"), AI_Symbol("cm"));
    EXPECT_EQ(std::vector<int>{1}, Values("ca"));
    EXPECT_EQ(std::vector<int>{3}, Values("cm"));
    EXPECT_EQ(3, m_pStrategy->GetCommandLists().GetCount());
    EXPECT_EQ(std::vector<AI_CObject *>{List(strMain)}, Children(*m_pStrategy));
}

TEST_F(Analyze, AnExtraFileThatIsTheMainFileIsParsedOnceAndLoadedTwice)
{
    std::string strMain = Write("m.per", "(defconst c 4)\n");
    ASSERT_EQ(nullptr, Run(strMain, {strMain}));
    EXPECT_EQ(1, m_pStrategy->GetCommandLists().GetCount());
    EXPECT_EQ((std::vector<int>{4, 4}), Values("c"));

    // A second analysis parses nothing new and loads the stored lists again.
    AI_CCommandList *pList = List(strMain);
    std::filesystem::remove(strMain);
    ASSERT_EQ(nullptr, Again());
    EXPECT_EQ(pList, List(strMain));
    EXPECT_EQ((std::vector<int>{4, 4, 4, 4}), Values("c"));
}

// Loads share the one list of a file and each loads it; a random load reads
// only the file it chose; a block kept in the tree loads both branches.
TEST_F(Analyze, LoadedFilesAreLookedForBesideTheLoadingFileWithItsExtension)
{
    AI_CParser::EnableExpandBlocks(0);
    std::string strCommon = Write("common.per", "(defconst cc 9)\n");
    for (char const *psz : {"a.per", "b.per", "x.per", "y.per"})
        Write(psz, (std::string("(defconst c") + psz[0] + " 1)\n").c_str());
    std::string strMain = Write("main.per",
                                "(load \"common\")\n(load \"common\")\n(load-random 30 \"a\" 50 \"b\")\n"
                                "#load-if-defined DEATH-MATCH\n(load \"x\")\n#else\n(load \"y\")\n#end-if\n");
    crt::srand(SeedFor(DrawFor(31, 0, 1)));  // the second option
    ASSERT_EQ(nullptr, Run(strMain));
    AI_CParser::EnableExpandBlocks(1);
    std::vector<AI_CObject *> commands = CommandsOf(strMain);
    ASSERT_EQ(4u, commands.size());
    ASSERT_NE(nullptr, List(strCommon));
    EXPECT_EQ(std::vector<AI_CObject *>{List(strCommon)}, Children(*commands[0]));
    EXPECT_EQ(std::vector<AI_CObject *>{List(strCommon)}, Children(*commands[1]));
    EXPECT_EQ((std::vector<int>{9, 9}), Values("cc"));
    EXPECT_EQ("load random command: default ?, loaded " + m_strDir + "b.per", Describe(*commands[2]));
    EXPECT_EQ(List(m_strDir + "b.per"), Children(*commands[2]).back());
    EXPECT_EQ(0u, AI_Symbol("ca"));
    EXPECT_EQ(RUNTIME_CLASS(AI_CBlock), commands[3]->GetRuntimeClass());
    EXPECT_EQ(std::vector<int>{1}, Values("cx"));
    EXPECT_EQ(std::vector<int>{1}, Values("cy"));
    EXPECT_EQ(5, m_pStrategy->GetCommandLists().GetCount());
    EXPECT_EQ(1, List(strMain)->Check());
}

TEST_F(Analyze, AMainFileThatLoadsItselfFinishes)
{
    std::string strMain = Write("m.per", "(defconst c 4)\n(load \"m\")\n");
    ASSERT_EQ(nullptr, Run(strMain));
    AI_CCommandList *pMain = List(strMain);
    ASSERT_NE(nullptr, pMain);
    EXPECT_EQ(1, m_pStrategy->GetCommandLists().GetCount());
    EXPECT_EQ((std::vector<int>{4, 4}), Values("c"));
    EXPECT_EQ(std::vector<AI_CObject *>{pMain}, Children(*CommandsOf(strMain).at(1)));
    EXPECT_EQ(1, pMain->Check());

    // The listing ends with the main file, written once.
    std::string strListing = Listing(*m_pStrategy);
    int nFill = std::max(0, 73 - static_cast<int>(strMain.size()));
    std::string strStart = ";START " + strMain + " " + Stars(nFill) + "\n\n";
    std::string strEnd = ";END " + strMain + " " + Stars(nFill + 2) + "\n";
    std::string strTail = ";c = 4, 4\n\n" + strStart + "(defconst c 4)\n\n;(load " + strMain + ")\n" + strStart + "\n" +
                          strEnd + "\n\n" + strEnd + "\n";
    ASSERT_GE(strListing.size(), strTail.size());
    EXPECT_EQ(strTail, strListing.substr(strListing.size() - strTail.size()));
}

TEST_F(Analyze, AnErrorEndsTheAnalysisAndKeepsWhatWasReadBefore)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    std::string strB = Write("b.per", "(defconst cb 2)\n(defrule\n");
    std::string strMain = Write("m.per", "(defconst cm 3)\n");
    EXPECT_EQ(RUNTIME_CLASS(AI_CParseException), Run(strMain, {strA, strB}));
    EXPECT_NE(nullptr, List(strA));
    EXPECT_EQ(std::vector<int>{1}, Values("ca"));
    EXPECT_EQ(nullptr, List(strB));
    EXPECT_EQ(nullptr, List(strMain));
    EXPECT_EQ(0u, AI_Symbol("cm"));
    EXPECT_TRUE(Children(*m_pStrategy).empty());

    // An empty main file name fails after the extra files.
    EXPECT_EQ(RUNTIME_CLASS(CFileException), Run("", {strA}));
    EXPECT_NE(nullptr, List(strA));
    EXPECT_EQ(1, m_pStrategy->GetCommandLists().GetCount());

    // A missing loaded file leaves its load unloaded.
    std::string strLoads = Write("l.per", "(defconst c 1)\n(load \"missing\")\n");
    EXPECT_EQ(RUNTIME_CLASS(CFileException), Run(strLoads));
    std::vector<AI_CObject *> commands = CommandsOf(strLoads);
    ASSERT_EQ(2u, commands.size());
    EXPECT_EQ(0, static_cast<AI_CCommand *>(commands[1])->IsLoaded());
    EXPECT_EQ(std::vector<int>{1}, Values("c"));
}
