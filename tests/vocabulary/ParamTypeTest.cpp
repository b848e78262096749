// Argument tests against parameter type codes: symbol ranges (registered
// symbols only), integer ranges, strings, and codes outside 1..37.
#include <climits>

#include "VocabularyTest.h"

namespace {

struct SidRange
{
    unsigned int nFirst, nLast;
};

struct IntRange
{
    int nMin, nMax;
};

// What each code accepts, one row per code 1..37.
struct Acceptance
{
    int nCode;
    std::vector<SidRange> symbols;
    bool bInts;
    IntRange ints;
};

IntRange const kShort = {-32768, 32767};
IntRange const kNoInts = {0, 0};

std::vector<Acceptance> const kAcceptance = {
    {1, {{2300, 2399}}, false, kNoInts},
    {2, {}, true, kShort},
    {3, {{1300, 1399}}, false, kNoInts},
    {4, {{2400, 2599}}, false, kNoInts},
    {5, {{3000, 3199}}, false, kNoInts},
    {6, {{2600, 2699}}, false, kNoInts},
    {7, {{1400, 1499}}, false, kNoInts},
    {8, {{1200, 1299}}, false, kNoInts},
    {9, {{1600, 1699}}, false, kNoInts},
    {10, {{2600, 2699}}, false, kNoInts},
    {11, {{1900, 1999}}, false, kNoInts},
    {12, {}, true, {0, 255}},
    {13, {}, true, {1, 40}},
    {14, {{2000, 2099}}, false, kNoInts},
    {15, {{2100, 2199}}, false, kNoInts},
    {16, {{2200, 2299}, {3400, 3499}}, true, {1, 8}},
    {17, {{1100, 1199}}, false, kNoInts},
    {18, {{2700, 2799}}, true, kShort},
    {19, {{1800, 1899}}, false, kNoInts},
    {20, {{2700, 2799}}, false, kNoInts},
    {21, {{2800, 2999}}, false, kNoInts},
    {22, {}, true, {1, 255}},
    {23, {{3200, 3299}}, false, kNoInts},
    {24, {}, false, kNoInts},
    {25, {}, true, kShort},
    {26, {}, true, kShort},
    {27, {}, true, kShort},
    {28, {{1700, 1799}}, false, kNoInts},
    {29, {}, true, kShort},
    {30, {}, true, kShort},
    {31, {{3300, 3399}}, false, kNoInts},
    {32, {{2400, 2599}, {1200, 1299}}, false, kNoInts},
    {33, {{1300, 1399}, {3300, 3399}}, false, kNoInts},
    {34, {}, true, {1, 2}},
    {35, {}, true, {0, 255}},
    {36, {}, true, {0, 255}},
    {37, {}, true, kShort},
};

bool Accepts(Acceptance const &row, unsigned int sid)
{
    for (SidRange const &range : row.symbols)
        if (sid >= range.nFirst && sid <= range.nLast)
            return true;
    return false;
}

// Every range edge of every code, and the SIDs just outside them.
std::vector<unsigned int> BoundarySids()
{
    std::vector<unsigned int> sids = {1, 99, 100, 299, 300, 499, 500, 699, 1099, 1500, 1599, 3500, 4001};
    for (Acceptance const &row : kAcceptance)
        for (SidRange const &range : row.symbols)
            for (unsigned int sid : {range.nFirst - 1, range.nFirst, range.nLast, range.nLast + 1})
                sids.push_back(sid);
    return sids;
}

class ParamType : public VocabularyTest
{
};

TEST_F(ParamType, SymbolsAcceptedOnlyInsideTheCodesRangesOnceRegistered)
{
    std::vector<unsigned int> const sids = BoundarySids();
    for (Acceptance const &row : kAcceptance)
        for (unsigned int sid : sids)
            ASSERT_EQ(0, AI_IsOfType(row.nCode, sid)) << "unregistered " << sid << " code " << row.nCode;

    for (unsigned int sid : sids)
        AI_AddParam(sid, ("word-" + std::to_string(sid)).c_str());
    for (Acceptance const &row : kAcceptance)
        for (unsigned int sid : sids)
            EXPECT_EQ(Accepts(row, sid) ? 1 : 0, AI_IsOfType(row.nCode, sid)) << "sid " << sid << " code "
                                                                              << row.nCode;
}

TEST_F(ParamType, SymbolMustBeInTheNameTableNotJustTheSymbolTable)
{
    AI_AddParam(2304, "equal");
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
    // The name moves to another SID: 2304 keeps its name and stays accepted.
    AI_AddParam(2305, "equal");
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2305u));
    EXPECT_EQ(1, AI_DeleteParam(2304));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2305u));
}

TEST_F(ParamType, IntegersAcceptedOnlyInsideTheCodesRange)
{
    for (Acceptance const &row : kAcceptance) {
        std::vector<int> probes = {INT_MIN, -32769, -32768, -1, 0, 1, 2, 3, 8, 9, 40, 41,
                                   255, 256, 32767, 32768, INT_MAX};
        if (row.bInts)
            for (int v : {row.ints.nMin - 1, row.ints.nMin, row.ints.nMax, row.ints.nMax + 1})
                probes.push_back(v);
        for (int value : probes) {
            bool const inside = row.bInts && value >= row.ints.nMin && value <= row.ints.nMax;
            EXPECT_EQ(inside ? 1 : 0, AI_IsOfType(row.nCode, value)) << "value " << value << " code " << row.nCode;
        }
    }
}

TEST_F(ParamType, StringsAcceptedByCode24Only)
{
    for (int code = -1; code <= 40; ++code) {
        EXPECT_EQ(code == 24 ? 1 : 0, AI_IsOfType(code, CString(""))) << code;
        EXPECT_EQ(code == 24 ? 1 : 0, AI_IsOfType(code, CString("any \"text\" at all"))) << code;
    }
    EXPECT_EQ(1, AI_IsOfType(AI_PT_STRING, CString("123")));
}

TEST_F(ParamType, CodesOutsideTheTableAcceptAnyRegisteredSymbolAndNoInteger)
{
    AI_AddFact(396, "wood-amount", 1, 2);
    AI_AddParam(2304, "equal");
    unsigned int const constant = AI_AddConstant("c", 5);
    AI_AddParam(5, "odd-word");
    for (int code : {0, 38, -1, 100, INT_MIN, INT_MAX}) {
        for (unsigned int sid : {396u, 2304u, constant, 5u})
            EXPECT_EQ(1, AI_IsOfType(code, sid)) << "code " << code << " sid " << sid;
        for (unsigned int sid : {0u, 4u, 395u, 2303u, constant + 1})
            EXPECT_EQ(0, AI_IsOfType(code, sid)) << "code " << code << " sid " << sid;
        for (int value : {0, 1, 5, 8, -1, 32767})
            EXPECT_EQ(0, AI_IsOfType(code, value)) << "code " << code << " value " << value;
    }
}

TEST_F(ParamType, ExamplesWithTheBuiltInWords)
{
    RegisterBuiltins();
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_PLAYER, 3405u));  // this-any-enemy
    EXPECT_EQ(1, AI_IsOfType(AI_PT_PLAYER, 2216u));  // my-player-number
    EXPECT_EQ(1, AI_IsOfType(AI_PT_RESEARCH_ITEM_OR_AGE, 1202u));  // feudal-age
    EXPECT_EQ(1, AI_IsOfType(AI_PT_AGE, 1202u));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_RESEARCH_ITEM, 1202u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_RESEARCH_ITEM, 2541u));  // ri-loom
    EXPECT_EQ(1, AI_IsOfType(AI_PT_RESEARCH_ITEM_OR_AGE, 2541u));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_AGE, 2541u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_BUILDING, 1305u));  // church
    EXPECT_EQ(0, AI_IsOfType(AI_PT_BUILDING, 3302u));  // stone-wall
    EXPECT_EQ(1, AI_IsOfType(AI_PT_BUILDING_OR_WALL, 3302u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_WALL_TYPE, 3302u));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_WALL_TYPE, 1304u));  // castle
    EXPECT_EQ(1, AI_IsOfType(AI_PT_COMMODITY, 2601u));  // gold
    EXPECT_EQ(1, AI_IsOfType(AI_PT_RESOURCE, 2601u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_SCORE_VALUE, 2702u));  // high-resources
    EXPECT_EQ(1, AI_IsOfType(AI_PT_STARTING_RESOURCES, 2702u));
    // Built-in defines and facts are no parameter words.
    EXPECT_EQ(0, AI_IsOfType(AI_PT_VALUE, 100u));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_BUILDING, 396u));
}

}  // namespace
