#include "ParserTestSupport.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>

void FrontEndTest::SetUp()
{
    std::string strTemplate = ::testing::TempDir() + "parser-XXXXXX";
    ASSERT_NE(mkdtemp(&strTemplate[0]), nullptr);
    m_strDirectory = strTemplate;
    char szCwd[4096];
    ASSERT_NE(getcwd(szCwd, sizeof szCwd), nullptr);
    m_strOldDirectory = szCwd;
    ASSERT_EQ(chdir(m_strDirectory.c_str()), 0);
    RegisterVocabulary();
    m_pStrategy.reset(new AI_CStrategy("test", "main.txt", m_settings));
}

void FrontEndTest::TearDown()
{
    m_pStrategy.reset();
    AI_DeleteAll();
    AI_CParser::EnableExpandBlocks(1);
    ASSERT_EQ(chdir(m_strOldDirectory.c_str()), 0);
    ASSERT_EQ(std::system(("rm -rf '" + m_strDirectory + "'").c_str()), 0);
}

void FrontEndTest::RegisterVocabulary(bool bWithWords)
{
    AI_DeleteAll();
    AI_AddFacts();
    AI_AddActions();
    AI_AddFact(kThreeOps, "three-ops", AI_PT_REL_OP, AI_PT_REL_OP, AI_PT_REL_OP);
    if (bWithWords) {
        AI_AddDefines();
        AI_AddParams();
    }
}

void FrontEndTest::WriteFile(std::string const &strName, std::string const &strText)
{
    std::ofstream file(strName, std::ios::binary);
    file << strText;
    ASSERT_TRUE(file.good()) << strName;
}

AI_CCommandList *FrontEndTest::ParseFile(char const *pszName)
{
    AI_CParser parser(m_pStrategy.get());
    try {
        return parser.Parse(pszName);
    } catch (CException *pException) {
        ADD_FAILURE() << "unexpected error: " << MessageOf(pException);
        pException->Delete();
        return nullptr;
    }
}

AI_CCommandList *FrontEndTest::ParseText(std::string const &strText, char const *pszName)
{
    m_pStrategy->DeleteCommandLists();
    WriteFile(pszName, strText);
    return ParseFile(pszName);
}

std::string FrontEndTest::ErrorOf(std::string const &strText, char const *pszName)
{
    m_pStrategy->DeleteCommandLists();
    WriteFile(pszName, strText);
    AI_CParser parser(m_pStrategy.get());
    try {
        parser.Parse(pszName);
    } catch (CException *pException) {
        std::string strMessage = pException->IsKindOf(RUNTIME_CLASS(AI_CParseException)) ? MessageOf(pException)
                                                                                         : "not a parse error";
        pException->Delete();
        return strMessage;
    }
    return "accepted";
}

std::string SyntaxError(int nLine, std::string const &strBison)
{
    return "main.txt(" + std::to_string(nLine) + "): Parse error, Bison says: " + strBison + ".";
}

std::string MessageOf(CException *pException)
{
    std::vector<char> buffer(16384);
    pException->GetErrorMessage(buffer.data(), static_cast<UINT>(buffer.size()));
    return buffer.data();
}

std::vector<AI_CCommand const *> Commands(AI_CCommandList const *pCommands)
{
    std::vector<AI_CCommand const *> result;
    for (POSITION position = pCommands ? pCommands->GetCommands().GetHeadPosition() : nullptr; position;)
        result.push_back(pCommands->GetCommands().GetNext(position));
    return result;
}

std::vector<AI_CExpression const *> FirstTestArguments(AI_CCommandList const *pCommands)
{
    std::vector<AI_CExpression const *> result;
    auto const *pRule = dynamic_cast<AI_CDefruleCommand const *>(Commands(pCommands).at(0));
    auto const *pTest = pRule ? dynamic_cast<AI_CTestCE const *>(pRule->GetCEs()->GetCEs().GetHead()) : nullptr;
    if (!pTest || !pTest->GetExpressions())
        return result;
    auto const &expressions = pTest->GetExpressions()->GetExpressions();
    for (POSITION position = expressions.GetHeadPosition(); position;)
        result.push_back(expressions.GetNext(position));
    return result;
}

std::vector<std::string> LoadedNames(AI_CCommandList const *pCommands)
{
    std::vector<std::string> result;
    for (AI_CCommand const *pCommand : Commands(pCommands)) {
        auto const *pLoad = dynamic_cast<AI_CLoadCommand const *>(pCommand);
        result.push_back(pLoad ? pLoad->GetFilename()->GetString() : "?");
    }
    return result;
}
