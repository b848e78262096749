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

TEST_F(Builtins, SelectedWordsAndSignatures)
{
    RegisterBuiltins();
    // clang-format off
    std::pair<char const *, unsigned int> const words[] = {
        {"true", 300}, {"cc-players-unit-type-count", 473}, {"chat-local-to-self", 503}, {"do-nothing", 600},
        {"DEATH-MATCH", 100}, {"POPULATION-CAP-200", 187}, {"VIKING-CIV", 223}, {"kills", 1100},
        {"my-player-number", 2216}, {"not-equal", 2305}, {"my-unique-unit-upgrade", 2570},
        {"sn-allow-diplomacy-change-on-tribut", 2962}, {"my-unique-unit-line", 3152}, {"this-any-neutral", 3410}};
    // clang-format on
    for (auto const &word : words) {
        EXPECT_EQ(word.second, AI_Symbol(word.first)) << word.first;
        EXPECT_EQ(word.first, Name(word.second));
    }
    for (char const *absent : {"sn-allow-diplomacy-change-on-tribute", "population-cap-200", "Equal", "TRUE", ""})
        EXPECT_EQ(0u, AI_Symbol(absent)) << absent;
    EXPECT_EQ("", Name(2807));  // gaps among the strategic numbers
    EXPECT_EQ("", Name(2955));

    std::pair<unsigned int, std::vector<int>> const signatures[] = {
        {300, {}}, {396, {1, 2}},  {471, {16, 33, 1, 2}}, {459, {16, 1, 18}},  {312, {16, 37}}, {310, {11, 12}},
        {600, {}}, {613, {21, 2}}, {561, {16, 10, 2}},    {515, {16, 26, 27}}, {520, {29, 30}}, {609, {28, 2}},
    };
    for (auto const &signature : signatures) {
        unsigned int const sid = signature.first;
        AI_CFunction const *function = sid < 500 ? AI_Fact(sid) : AI_Action(sid);
        ASSERT_NE(nullptr, function) << sid;
        EXPECT_EQ(sid, function->GetSID());
        EXPECT_EQ(Name(sid), function->GetName());
        EXPECT_EQ(signature.second, Params(*function)) << sid;
    }
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
