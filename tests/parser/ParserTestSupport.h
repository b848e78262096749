// Shared pieces of the front-end tests: a fixture that registers the
// built-in vocabulary, works in a fresh directory of its own and parses
// script text through AI_CParser::Parse, and helpers that walk the result.
#ifndef STRATAGEM_TESTS_PARSER_PARSERTESTSUPPORT_H
#define STRATAGEM_TESTS_PARSER_PARSERTESTSUPPORT_H

#include "../objects/TestSupport.h"
#include "stratagem.h"

using Names = std::vector<std::string>;

inline std::string MessageOf(CException *pException)
{
    std::vector<char> buffer(16384);
    pException->GetErrorMessage(buffer.data(), static_cast<UINT>(buffer.size()));
    return buffer.data();
}

// The messages of a syntax error and of an invalid character in main.txt.
inline std::string SyntaxError(int nLine, std::string const &strBison)
{
    return "main.txt(" + std::to_string(nLine) + "): Parse error, Bison says: " + strBison + ".";
}

inline std::string InvalidCharacter(int nLine, std::string const &strText)
{
    return "main.txt(" + std::to_string(nLine) + "): Invalid character(s) encountered: '" + strText + "'.";
}

inline std::vector<AI_CCommand const *> CommandsOf(AI_CCommandList const *pCommands)
{
    std::vector<AI_CCommand const *> result;
    for (POSITION position = pCommands ? pCommands->GetCommands().GetHeadPosition() : nullptr; position;)
        result.push_back(pCommands->GetCommands().GetNext(position));
    return result;
}

// The file names of the load commands of a list.
inline Names LoadedNames(AI_CCommandList const *pCommands)
{
    Names result;
    for (AI_CCommand const *pCommand : CommandsOf(pCommands)) {
        auto const *pLoad = dynamic_cast<AI_CLoadCommand const *>(pCommand);
        result.push_back(pLoad ? pLoad->GetFilename()->GetString() : "?");
    }
    return result;
}

// The first condition of a command, a rule, and the arguments of a fact test.
inline AI_CCE const *FirstCondition(AI_CCommandList const *pCommands, size_t nCommand = 0)
{
    auto const *pRule = dynamic_cast<AI_CDefruleCommand const *>(CommandsOf(pCommands).at(nCommand));
    return pRule ? pRule->GetCEs()->GetCEs().GetHead() : nullptr;
}

inline std::vector<AI_CExpression const *> Arguments(AI_CCE const *pCE)
{
    std::vector<AI_CExpression const *> result;
    auto const *pTest = dynamic_cast<AI_CTestCE const *>(pCE);
    for (AI_CObject *pChild :
         pTest && pTest->GetExpressions() ? Children(*pTest->GetExpressions()) : std::vector<AI_CObject *> {})
        result.push_back(static_cast<AI_CExpression const *>(pChild));
    return result;
}

class FrontEndTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_oldDirectory = std::filesystem::current_path();
        std::filesystem::current_path(m_dir.Path());
        RegisterVocabulary();
        m_pStrategy.reset(new AI_CStrategy("test", "main.txt", AI_gsSettings));
    }

    void TearDown() override
    {
        m_pStrategy.reset();
        AI_DeleteAll();
        AI_CParser::EnableExpandBlocks(1);
        std::filesystem::current_path(m_oldDirectory);
    }

    // The built-in vocabulary and "three-ops", a fact of three relational
    // operators; without the defines and params when bWithWords is false.
    static void RegisterVocabulary(bool bWithWords = true)
    {
        AI_DeleteAll();
        AI_AddFacts();
        AI_AddActions();
        AI_AddFact(499, "three-ops", AI_PT_REL_OP, AI_PT_REL_OP, AI_PT_REL_OP);
        if (bWithWords) {
            AI_AddDefines();
            AI_AddParams();
        }
    }

    // Parses a written file with a new parser. The message of a parse error
    // goes to *pError, other errors fail the test.
    AI_CCommandList *ParseFile(char const *pszName, std::string *pError = nullptr)
    {
        try {
            return AI_CParser(m_pStrategy.get()).Parse(pszName);
        } catch (CException *pException) {
            bool const bParseError = pException->IsKindOf(RUNTIME_CLASS(AI_CParseException));
            if (pError)
                *pError = bParseError ? MessageOf(pException) : "not a parse error";
            else
                ADD_FAILURE() << "unexpected error: " << MessageOf(pException);
            pException->Delete();
            return nullptr;
        }
    }

    // Drops every list parsed so far, writes the text and parses it.
    AI_CCommandList *ParseText(std::string const &strText, char const *pszName = "main.txt",
                               std::string *pError = nullptr)
    {
        m_pStrategy->DeleteCommandLists();
        m_dir.Write(pszName, strText);
        return ParseFile(pszName, pError);
    }

    // The same, answering the message of the parse error, or "accepted".
    std::string ErrorOf(std::string const &strText, char const *pszName = "main.txt")
    {
        std::string strError = "accepted";
        ParseText(strText, pszName, &strError);
        return strError;
    }

    Names LoadsOf(std::string const &strText, char const *pszName = "main.txt")
    {
        return LoadedNames(ParseText(strText, pszName));
    }

    ScratchDir const m_dir;
    std::unique_ptr<AI_CStrategy> m_pStrategy;

private:
    std::filesystem::path m_oldDirectory;
};

#endif
