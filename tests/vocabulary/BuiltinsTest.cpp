// The built-in vocabulary: counts per kind, selected words and signatures,
// unique names, and repeated registration.
#include <set>

#include "VocabularyTest.h"

namespace {

class Builtins : public VocabularyTest
{
protected:
    static int CountNamed(unsigned int nFirst, unsigned int nLast)
    {
        int n = 0;
        for (unsigned int sid = nFirst; sid <= nLast; ++sid)
            n += Name(sid).empty() ? 0 : 1;
        return n;
    }

    static int CountSignatures(AI_CFunction const *(*lookup)(unsigned int))
    {
        int n = 0;
        for (unsigned int sid = 0; sid < 5000; ++sid)
            n += lookup(sid) ? 1 : 0;
        return n;
    }
};

// Each function registers its own kind alone, all inside the kind's range.
TEST_F(Builtins, CountsPerKind)
{
    struct Row
    {
        void (*add)();
        int nWords, nFacts, nActions;
        unsigned int nFirst, nLast;
    };
    Row const rows[] = {{AI_AddDefines, 66, 0, 0, 100, 299},
                        {AI_AddFacts, 110, 110, 0, 300, 499},
                        {AI_AddActions, 54, 0, 54, 500, 699},
                        {AI_AddParams, 547, 0, 0, 1100, 3499}};
    for (Row const &row : rows) {
        AI_DeleteAll();
        row.add();
        EXPECT_EQ(row.nWords, CountNamed(0, 5000)) << row.nFirst;
        EXPECT_EQ(row.nWords, CountNamed(row.nFirst, row.nLast)) << row.nFirst;
        EXPECT_EQ(row.nFacts, CountSignatures(AI_Fact)) << row.nFirst;
        EXPECT_EQ(row.nActions, CountSignatures(AI_Action)) << row.nFirst;
    }
}

// Every word has its own name: looking the name up gives the same SID back.
TEST_F(Builtins, NamesAreUniqueAndRoundTrip)
{
    RegisterBuiltins();
    std::set<std::string> names;
    for (unsigned int sid = 0; sid < 5000; ++sid) {
        std::string const name = Name(sid);
        if (!name.empty()) {
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_EQ(sid, AI_Symbol(name.c_str())) << name;
        }
    }
    EXPECT_EQ(110u + 54 + 66 + 547, names.size());
}

// The words are the game's, spelling slips included; every signature
// answers its own SID and name. (What the words mean is pinned through the
// sample strategy and the check's hints.)
TEST_F(Builtins, WordsAreSpelledAsTheGameHasThemAndSignaturesMatchTheirWords)
{
    RegisterBuiltins();
    EXPECT_EQ(2962u, AI_Symbol("sn-allow-diplomacy-change-on-tribut"));
    for (char const *absent : {"sn-allow-diplomacy-change-on-tribute", "population-cap-200", "Equal", "TRUE", ""})
        EXPECT_EQ(0u, AI_Symbol(absent)) << absent;
    EXPECT_EQ("", Name(2807));  // gaps among the strategic numbers
    EXPECT_EQ("", Name(2955));
    for (unsigned int sid = 0; sid < 5000; ++sid)
        for (AI_CFunction const *function : {AI_Fact(sid), AI_Action(sid)})
            if (function) {
                EXPECT_EQ(sid, function->GetSID());
                EXPECT_EQ(Name(sid), function->GetName());
            }
    EXPECT_EQ((std::vector<int> {16, 33, 1, 2}), Params(*AI_Fact(471)));
}

TEST_F(Builtins, RegisteringAgainRestoresWithoutDuplicating)
{
    RegisterBuiltins();
    AI_AddFact(396, "renamed", 5);
    EXPECT_EQ(1, AI_DeleteParam(2304));
    RegisterBuiltins();
    EXPECT_STREQ("wood-amount", AI_Fact(396)->GetName());
    EXPECT_EQ((std::vector<int> {1, 2}), Params(*AI_Fact(396)));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(110 + 54 + 66 + 547, CountNamed(0, 5000));
    EXPECT_EQ(110, CountSignatures(AI_Fact));
}

}  // namespace
