// Argument tests against parameter type codes: symbol ranges (registered
// symbols only), integer ranges, strings, and codes outside 1..37.
#include <climits>

#include "VocabularyTest.h"

namespace {

using ParamType = VocabularyTest;

// Edges of the ranges, one row per probe: code, registered SID, accepted.
TEST_F(ParamType, SymbolsAcceptedOnlyInsideTheCodesRangesOnceRegistered)
{
    // clang-format off
    std::tuple<int, unsigned int, int> const rows[] = {
        {AI_PT_REL_OP, 2300, 1}, {AI_PT_REL_OP, 2399, 1}, {AI_PT_REL_OP, 2400, 0}, {AI_PT_REL_OP, 2299, 0},
        {AI_PT_PLAYER, 2200, 1}, {AI_PT_PLAYER, 3499, 1}, {AI_PT_PLAYER, 3399, 0}, {AI_PT_BUILDING, 1300, 1},
        {AI_PT_BUILDING, 1400, 0}, {AI_PT_RESOURCE, 2600, 1}, {AI_PT_COMMODITY, 2699, 1}, {AI_PT_VALUE, 1300, 0},
        {AI_PT_STRING, 1300, 0}, {32, 2400, 1}, {32, 1299, 1}, {32, 1300, 0}, {33, 3300, 1}, {33, 1399, 1},
        {33, 1400, 0}, {37, 1100, 0}};
    // clang-format on
    for (auto const &[nCode, nSID, bAccepted] : rows)
        EXPECT_EQ(0, AI_IsOfType(nCode, nSID)) << "unregistered " << nSID << " code " << nCode;
    for (auto const &[nCode, nSID, bAccepted] : rows)
        AI_AddParam(nSID, ("word-" + std::to_string(nSID)).c_str());
    for (auto const &[nCode, nSID, bAccepted] : rows)
        EXPECT_EQ(bAccepted, AI_IsOfType(nCode, nSID)) << "sid " << nSID << " code " << nCode;
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
    // Rows: nCode, nMin, nMax (nMin > nMax: no integer).
    std::tuple<int, int, int> const rows[] = {
        {AI_PT_VALUE, -32768, 32767}, {12, 0, 255},         {13, 1, 40},
        {AI_PT_PLAYER, 1, 8},         {22, 1, 255},         {34, 1, 2},
        {37, -32768, 32767},          {AI_PT_REL_OP, 1, 0}, {AI_PT_STRING, 1, 0},
    };
    for (auto const &[nCode, nMin, nMax] : rows)
        for (int value : {INT_MIN, nMin - 1, nMin, nMax, nMax + 1, INT_MAX, 0, 1})
            EXPECT_EQ(value >= nMin && value <= nMax ? 1 : 0, AI_IsOfType(nCode, value))
                << "value " << value << " code " << nCode;
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
