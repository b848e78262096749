// Shared fixture: every test starts from empty tables and default settings,
// and leaves them so.
#ifndef STRATAGEM_TESTS_VOCABULARY_VOCABULARYTEST_H
#define STRATAGEM_TESTS_VOCABULARY_VOCABULARYTEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vocabulary/AI_Vocabulary.h"

class VocabularyTest : public ::testing::Test
{
protected:
    void SetUp() override { AI_DeleteAll(); }
    void TearDown() override
    {
        AI_DeleteAll();
        AI_gsSettings = m_savedSettings;
    }

    static void RegisterBuiltins()
    {
        AI_AddFacts();
        AI_AddActions();
        AI_AddDefines();
        AI_AddParams();
    }

    static std::vector<int> Params(AI_CFunction const &function)
    {
        CArray<int, int> const &codes = function.GetParams();
        std::vector<int> params;
        for (INT_PTR i = 0; i < codes.GetSize(); ++i)
            params.push_back(codes[i]);
        return params;
    }

    static std::string Name(unsigned int nSID) { return static_cast<char const *>(AI_String(nSID)); }

private:
    AI_GameSettings m_savedSettings = AI_gsSettings;
};

#endif
