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

class Analyze : public ObjectsTest
{
protected:
    void SetUp() override
    {
        ObjectsTest::SetUp();
        std::string strTemplate = testing::TempDir() + "stratagem-analyze-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(&strTemplate[0]));
        m_strDir = strTemplate + "/";
    }
    void TearDown() override
    {
        std::filesystem::remove_all(m_strDir);
        ObjectsTest::TearDown();
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
        return List(strPath) ? Children(*List(strPath)) : std::vector<AI_CObject *> {};
    }

    std::string m_strDir;
    std::unique_ptr<AI_CStrategy> m_pStrategy;
};

}  // namespace

TEST_F(Analyze, AnErrorEndsTheAnalysisAndKeepsWhatWasReadBefore)
{
    std::string strA = Write("a.per", "(defconst ca 1)\n");
    std::string strB = Write("b.per", "(defconst cb 2)\n(defrule\n");
    std::string strMain = Write("m.per", "(defconst cm 3)\n");
    EXPECT_EQ(RUNTIME_CLASS(AI_CParseException), Run(strMain, {strA, strB}));
    EXPECT_NE(nullptr, List(strA));
    EXPECT_EQ(std::vector<int> {1}, Values("ca"));
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
    EXPECT_EQ(std::vector<int> {1}, Values("c"));
}
