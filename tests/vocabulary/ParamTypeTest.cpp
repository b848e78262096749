// Argument tests against parameter type codes: symbol ranges (registered
// symbols only), integer ranges, strings, and codes outside 1..37.
#include <algorithm>
#include <climits>

#include "VocabularyTest.h"

namespace {

typedef std::pair<int, int> IntRange;  // min, max; empty when min > max
IntRange const kNone = {1, 0};
IntRange const kShort = {-32768, 32767};

// What each code accepts: registered symbols in its SID ranges (first, last)
// and integers in its range.
struct Acceptance
{
    int nCode;
    std::vector<std::pair<unsigned int, unsigned int>> symbols;
    IntRange ints;
};

Acceptance const kAcceptance[] = {
    {1, {{2300, 2399}}, kNone},  {2, {}, kShort},           {3, {{1300, 1399}}, kNone}, {4, {{2400, 2599}}, kNone},
    {5, {{3000, 3199}}, kNone},  {6, {{2600, 2699}}, kNone},  {7, {{1400, 1499}}, kNone}, {8, {{1200, 1299}}, kNone},
    {9, {{1600, 1699}}, kNone},  {10, {{2600, 2699}}, kNone}, {11, {{1900, 1999}}, kNone}, {12, {}, {0, 255}},
    {13, {}, {1, 40}},           {14, {{2000, 2099}}, kNone}, {15, {{2100, 2199}}, kNone},
    {16, {{2200, 2299}, {3400, 3499}}, {1, 8}},               {17, {{1100, 1199}}, kNone},
    {18, {{2700, 2799}}, kShort}, {19, {{1800, 1899}}, kNone}, {20, {{2700, 2799}}, kNone},
    {21, {{2800, 2999}}, kNone}, {22, {}, {1, 255}},          {23, {{3200, 3299}}, kNone}, {24, {}, kNone},
    {25, {}, kShort},            {26, {}, kShort},            {27, {}, kShort},           {28, {{1700, 1799}}, kNone},
    {29, {}, kShort},            {30, {}, kShort},            {31, {{3300, 3399}}, kNone},
    {32, {{2400, 2599}, {1200, 1299}}, kNone},                {33, {{1300, 1399}, {3300, 3399}}, kNone},
    {34, {}, {1, 2}},            {35, {}, {0, 255}},          {36, {}, {0, 255}},         {37, {}, kShort},
};

bool Accepts(Acceptance const &row, unsigned int sid)
{
    return std::any_of(row.symbols.begin(), row.symbols.end(),
                       [sid](auto const &range) { return sid >= range.first && sid <= range.second; });
}

using ParamType = VocabularyTest;

// Every range edge of every code and the SIDs just outside, unregistered and
// then registered.
TEST_F(ParamType, SymbolsAcceptedOnlyInsideTheCodesRangesOnceRegistered)
{
    std::vector<unsigned int> sids = {1, 99, 100, 299, 300, 499, 500, 699, 1099, 1500, 1599, 3500, 4001};
    for (Acceptance const &row : kAcceptance)
        for (auto const &range : row.symbols)
            sids.insert(sids.end(), {range.first - 1, range.first, range.second, range.second + 1});
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
    AI_AddParam(2305, "equal");  // 2304 keeps its name and stays accepted
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(1, AI_DeleteParam(2304));
    EXPECT_EQ(0, AI_IsOfType(AI_PT_REL_OP, 2304u));
    EXPECT_EQ(1, AI_IsOfType(AI_PT_REL_OP, 2305u));
}

TEST_F(ParamType, IntegersAcceptedOnlyInsideTheCodesRange)
{
    for (Acceptance const &row : kAcceptance) {
        std::vector<int> probes = {INT_MIN, -32769, -32768, -1, 0, 1, 2, 3, 8, 9, 40, 41, 255, 256, 32767, 32768,
                                   INT_MAX};
        if (row.ints.first <= row.ints.second)
            probes.insert(probes.end(), {row.ints.first - 1, row.ints.first, row.ints.second, row.ints.second + 1});
        for (int value : probes) {
            bool const inside = value >= row.ints.first && value <= row.ints.second;
            EXPECT_EQ(inside ? 1 : 0, AI_IsOfType(row.nCode, value)) << "value " << value << " code " << row.nCode;
        }
    }
}

TEST_F(ParamType, StringsAcceptedByCode24Only)
{
    for (int code = -1; code <= 40; ++code)
        for (char const *text : {"", "123", "any \"text\" at all"})
            EXPECT_EQ(code == AI_PT_STRING ? 1 : 0, AI_IsOfType(code, CString(text))) << code;
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

}  // namespace
