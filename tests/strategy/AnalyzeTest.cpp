// Analysis of strategies from script files on disk when it fails: what was
// read before the failure stays.
#include "../objects/TestSupport.h"
#include "parser/AI_CException.h"

namespace {

class Analyze : public ObjectsTest
{
protected:
    // A strategy on the main file with the extra files, analysed; answers the
    // exception's run-time class, or null.
    CRuntimeClass *Run(std::string const &strMain, std::initializer_list<std::string> extras = {})
    {
        m_pStrategy.reset(new AI_CStrategy("s", strMain.c_str(), DefaultSettings()));
        for (std::string const &strExtra : extras)
            m_pStrategy->AddFilename(strExtra.c_str());
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

    ScratchDir const m_dir;
    std::unique_ptr<AI_CStrategy> m_pStrategy;
};

}  // namespace

TEST_F(Analyze, AnErrorEndsTheAnalysisAndKeepsWhatWasReadBefore)
{
    std::string strA = m_dir.Write("a.per", "(defconst ca 1)\n");
    std::string strB = m_dir.Write("b.per", "(defconst cb 2)\n(defrule\n");
    std::string strMain = m_dir.Write("m.per", "(defconst cm 3)\n");
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
    std::string strLoads = m_dir.Write("l.per", "(defconst c 1)\n(load \"missing\")\n");
    EXPECT_EQ(RUNTIME_CLASS(CFileException), Run(strLoads));
    ASSERT_NE(nullptr, List(strLoads));
    std::vector<AI_CObject *> commands = Children(*List(strLoads));
    ASSERT_EQ(2u, commands.size());
    EXPECT_EQ(0, static_cast<AI_CCommand *>(commands[1])->IsLoaded());
    EXPECT_EQ(std::vector<int> {1}, Values("c"));
}
