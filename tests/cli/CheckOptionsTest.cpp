// The command line around check mode: settings validation and options
// that belong to one mode only (the settings list is a host case).
#include <gtest/gtest.h>

#include "CheckTestSupport.h"

TEST(CheckOptions, SettingsMustLieInTheirRangeUnderCheck)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    // Rows: args, nStatus, pszSaid (on stderr).
    std::tuple<Strings, int, char const *> const cases[] = {
        {{"--check", "-s", "nMapSize=5"}, 0, ""},
        {{"--check", "-s", "nMapSize=6"}, 2, "0 to 5"},
        {{"--check", "--set=nCiv=-1"}, 2, "0 to 13"},
        {{"-s", "bRegicide=2", "--check"}, 2, "0 to 1"},
        {{"--check", "-s", "nPopulationCap=8"}, 2, "0 to 7"},
        {{"--check", "-s", "nWonders=1"}, 2, "bDeathMatch, bRegicide, nStartingAge"},
        {{"--check", "-s", "nMapSize=9", "-D", "GIANT-MAP"}, 0, ""},  // the value in force counts
        {{"-s", "nMapSize=9"}, 0, ""},                                // a listing takes any value, as it always has
    };
    for (auto const &[args, nStatus, pszSaid] : cases) {
        RunResult const result = dir.Run(Join(args, {"main.per"}));
        EXPECT_EQ(result.nStatus, nStatus) << testing::PrintToString(args) << result.strErr;
        EXPECT_NE(result.strErr.find(pszSaid), std::string::npos) << result.strErr;
    }
}

TEST(CheckOptions, OptionsOfTheOtherModeAndBadValuesAreCommandLineErrors)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    // Rows: args, pszSaid.
    // clang-format off
    std::pair<Strings, char const *> const cases[] = {
        {{"--check", "--tree", "main.per"}, "'--tree' cannot be used with --check"},
        {{"--check", "--seed", "3", "main.per"}, "'--seed' cannot be used with --check"},
        {{"-nX", "--check", "main.per"}, "'-n' cannot be used with --check"},
        {{"--check", "--no-expand-blocks", "main.per"}, "cannot be used with --check"},
        {{"-f", "json", "main.per"}, "'-f' needs --check"}, {{"--werror", "main.per"}, "'--werror' needs --check"},
        {{"--color=never", "main.per"}, "'--color' needs --check"},
        {{"--check", "-f", "xml", "main.per"}, "text, gcc, json, sarif"},
        {{"--check", "--color", "sometimes", "main.per"}, "auto, always, never"},
        {{"--check", "main.per", "-f"}, "needs a value"}, {{"--check"}, "no FILE given"}};
    // clang-format on
    for (auto const &[args, pszSaid] : cases) {
        RunResult const result = dir.Run(args);
        EXPECT_EQ(result.nStatus, 2) << testing::PrintToString(args);
        EXPECT_EQ(result.strOut, "");
        EXPECT_NE(result.strErr.find(pszSaid), std::string::npos) << result.strErr;
        EXPECT_NE(result.strErr.find("stratagem --check [-f text|gcc|json|sarif]"), std::string::npos);
    }
    EXPECT_NE(dir.Run({"--help"}).strOut.find("--check"), std::string::npos);
}
