// The built-in vocabulary: counts per kind and per group, selected words and
// signatures, and repeated registration.
#include <map>
#include <set>

#include "VocabularyTest.h"

namespace {

class Builtins : public VocabularyTest
{
protected:
    static int CountFacts()
    {
        int n = 0;
        for (unsigned int sid = 0; sid < 5000; ++sid)
            n += AI_Fact(sid) ? 1 : 0;
        return n;
    }

    static int CountActions()
    {
        int n = 0;
        for (unsigned int sid = 0; sid < 5000; ++sid)
            n += AI_Action(sid) ? 1 : 0;
        return n;
    }

    static int CountNamed(unsigned int nFirst, unsigned int nLast)
    {
        int n = 0;
        for (unsigned int sid = nFirst; sid <= nLast; ++sid)
            n += Name(sid).empty() ? 0 : 1;
        return n;
    }
};

TEST_F(Builtins, NothingBeforeRegistration)
{
    EXPECT_EQ(0u, AI_Symbol("true"));
    AI_AddFacts();
    EXPECT_EQ(300u, AI_Symbol("true"));
}

TEST_F(Builtins, CountsPerKind)
{
    RegisterBuiltins();
    EXPECT_EQ(110, CountFacts());
    EXPECT_EQ(54, CountActions());
    EXPECT_EQ(110, CountNamed(300, 499));
    EXPECT_EQ(54, CountNamed(500, 699));
    EXPECT_EQ(66, CountNamed(100, 299));
    EXPECT_EQ(547, CountNamed(1100, 3499));
    EXPECT_EQ(110 + 54 + 66 + 547, CountNamed(0, 5000));
}

TEST_F(Builtins, EachFunctionRegistersOnlyItsOwnKind)
{
    AI_AddDefines();
    EXPECT_EQ(66, CountNamed(0, 5000));
    EXPECT_EQ(0, AI_IsParam(2216));
    AI_DeleteAll();
    AI_AddParams();
    EXPECT_EQ(547, CountNamed(0, 5000));
    EXPECT_EQ(0, CountFacts());
    AI_DeleteAll();
    AI_AddActions();
    EXPECT_EQ(54, CountNamed(0, 5000));
    EXPECT_EQ(0, CountFacts());
    EXPECT_EQ(54, CountActions());
}

TEST_F(Builtins, ParamCountsPerGroup)
{
    AI_AddParams();
    std::map<std::pair<unsigned int, unsigned int>, int> const groups = {
        {{1100, 1199}, 17}, {{1200, 1299}, 6},   {{1300, 1399}, 26}, {{1400, 1499}, 17}, {{1500, 1599}, 0},
        {{1600, 1699}, 5},  {{1700, 1799}, 2},   {{1800, 1899}, 3},  {{1900, 1999}, 1},  {{2000, 2099}, 8},
        {{2100, 2199}, 16}, {{2200, 2299}, 17},  {{2300, 2399}, 6},  {{2400, 2599}, 104}, {{2600, 2699}, 4},
        {{2700, 2799}, 3},  {{2800, 2999}, 185}, {{3000, 3199}, 107}, {{3200, 3299}, 5}, {{3300, 3399}, 4},
        {{3400, 3499}, 11},
    };
    for (auto const &group : groups)
        EXPECT_EQ(group.second, CountNamed(group.first.first, group.first.second)) << group.first.first;
}

TEST_F(Builtins, DefineCountsPerGroup)
{
    AI_AddDefines();
    std::map<std::pair<unsigned int, unsigned int>, int> const groups = {
        {{100, 100}, 1}, {{101, 101}, 1}, {{110, 119}, 5}, {{120, 129}, 3}, {{130, 139}, 6},
        {{140, 159}, 16}, {{160, 169}, 5}, {{170, 179}, 5}, {{180, 189}, 8}, {{190, 190}, 1},
        {{200, 200}, 1}, {{210, 229}, 14},
    };
    for (auto const &group : groups)
        EXPECT_EQ(group.second, CountNamed(group.first.first, group.first.second)) << group.first.first;
}

// Every word has its own name: looking the name up gives the same SID back.
TEST_F(Builtins, NamesAreUniqueAndRoundTrip)
{
    RegisterBuiltins();
    std::set<std::string> names;
    for (unsigned int sid = 0; sid < 5000; ++sid) {
        std::string const name = Name(sid);
        if (name.empty())
            continue;
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(sid, AI_Symbol(name.c_str())) << name;
    }
    EXPECT_EQ(777u, names.size());
}

TEST_F(Builtins, SelectedWords)
{
    RegisterBuiltins();
    std::map<std::string, unsigned int> const words = {
        {"true", 300},
        {"false", 301},
        {"wood-amount", 396},
        {"cc-players-unit-type-count", 473},
        {"do-nothing", 600},
        {"cc-add-resource", 630},
        {"chat-local-to-self", 503},
        {"tribute-to-player", 561},
        {"DEATH-MATCH", 100},
        {"POST-IMPERIAL-AGE-START", 114},
        {"POPULATION-CAP-200", 187},
        {"GAME-SPEED-LOCKED", 190},
        {"TEAMS-LOCKED", 200},
        {"GAIA", 210},
        {"VIKING-CIV", 223},
        {"kills", 1100},
        {"total-score", 1140},
        {"watch-tower-line", 1330},
        {"my-civ", 1416},
        {"trigger", 1900},
        {"less-than", 2300},
        {"less-or-equal", 2301},
        {"greater-than", 2302},
        {"greater-or-equal", 2303},
        {"equal", 2304},
        {"not-equal", 2305},
        {"my-player-number", 2216},
        {"my-unique-unit-upgrade", 2570},
        {"sn-percent-civilian-explorers", 2800},
        {"sn-allow-diplomacy-change-on-tribut", 2962},
        {"sn-minimum-boar-hunt-group-size", 2986},
        {"my-unique-unit-line", 3152},
        {"stone-wall-line", 3310},
        {"this-any-enemy", 3405},
        {"this-any-neutral", 3410},
    };
    for (auto const &word : words) {
        EXPECT_EQ(word.second, AI_Symbol(word.first.c_str())) << word.first;
        EXPECT_EQ(word.first, Name(word.second));
    }
    for (char const *absent : {"sn-allow-diplomacy-change-on-tribute", "population-cap-200", "Equal", "TRUE",
                               "sn-unused-2807", ""})
        EXPECT_EQ(0u, AI_Symbol(absent)) << absent;
    EXPECT_EQ("", Name(2807));  // a gap in the strategic numbers
    EXPECT_EQ("", Name(2955));
}

TEST_F(Builtins, SelectedSignatures)
{
    AI_AddFacts();
    AI_AddActions();
    struct Row
    {
        unsigned int sid;
        bool fact;
        std::vector<int> params;
    };
    std::vector<Row> const rows = {
        {300, true, {}},
        {396, true, {1, 2}},
        {471, true, {16, 33, 1, 2}},
        {450, true, {16, 17, 1, 2}},
        {459, true, {16, 1, 18}},
        {334, true, {1, 20}},
        {312, true, {16, 37}},
        {310, true, {11, 12}},
        {600, false, {}},
        {613, false, {21, 2}},
        {561, false, {16, 10, 2}},
        {515, false, {16, 26, 27}},
        {520, false, {29, 30}},
        {609, false, {28, 2}},
    };
    for (Row const &row : rows) {
        AI_CFunction const *function = row.fact ? AI_Fact(row.sid) : AI_Action(row.sid);
        ASSERT_NE(nullptr, function) << row.sid;
        EXPECT_EQ(row.sid, function->GetSID());
        EXPECT_EQ(Name(row.sid), function->GetName());
        EXPECT_EQ(row.params, Params(*function)) << row.sid;
    }
    EXPECT_EQ(nullptr, AI_Action(396));
    EXPECT_EQ(nullptr, AI_Fact(613));
}

TEST_F(Builtins, RegisteringAgainChangesNothing)
{
    RegisterBuiltins();
    AI_CFunction const before = *AI_Fact(471);
    RegisterBuiltins();
    EXPECT_EQ(110, CountFacts());
    EXPECT_EQ(54, CountActions());
    EXPECT_EQ(110 + 54 + 66 + 547, CountNamed(0, 5000));
    EXPECT_EQ(Params(before), Params(*AI_Fact(471)));
    EXPECT_STREQ(before.GetName(), AI_Fact(471)->GetName());
}

TEST_F(Builtins, RegisteringAgainRestoresChangedWords)
{
    RegisterBuiltins();
    AI_AddFact(396, "renamed", 5);
    EXPECT_EQ(1, AI_DeleteParam(2304));
    AI_AddFacts();
    AI_AddParams();
    EXPECT_STREQ("wood-amount", AI_Fact(396)->GetName());
    EXPECT_EQ((std::vector<int>{1, 2}), Params(*AI_Fact(396)));
    EXPECT_EQ(2304u, AI_Symbol("equal"));
}

}  // namespace
