// Shared pieces of the front-end tests: a fixture that registers the
// built-in vocabulary, works in a fresh directory of its own and parses
// script text through AI_CParser::Parse, and helpers that walk the result.
#ifndef STRATAGEM_TESTS_PARSER_PARSERTESTSUPPORT_H
#define STRATAGEM_TESTS_PARSER_PARSERTESTSUPPORT_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "stratagem.h"

// A fact the tests register for themselves: three relational operators.
unsigned int const kThreeOps = 499;

class FrontEndTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The built-in vocabulary and three-ops; without the built-in words
    // (defines and params) when bWithWords is false.
    static void RegisterVocabulary(bool bWithWords = true);
    static void WriteFile(std::string const &strName, std::string const &strText);

    // Parses a written file with a new parser; an error fails the test.
    AI_CCommandList *ParseFile(char const *pszName);
    // Drops every list parsed so far, writes the text and parses it.
    AI_CCommandList *ParseText(std::string const &strText, char const *pszName = "main.txt");
    // The same, answering the message of the parse error raised, or
    // "accepted".
    std::string ErrorOf(std::string const &strText, char const *pszName = "main.txt");

    AI_GameSettings m_settings = AI_gsSettings;
    std::unique_ptr<AI_CStrategy> m_pStrategy;

private:
    std::string m_strOldDirectory;
    std::string m_strDirectory;
};

// The message of a syntax error in main.txt.
std::string SyntaxError(int nLine, std::string const &strBison);
// The message of an exception.
std::string MessageOf(CException *pException);

std::vector<AI_CCommand const *> Commands(AI_CCommandList const *pCommands);
// The arguments of the first condition of the first command (a rule).
std::vector<AI_CExpression const *> FirstTestArguments(AI_CCommandList const *pCommands);
// The file names of the load commands of a list.
std::vector<std::string> LoadedNames(AI_CCommandList const *pCommands);

#endif
