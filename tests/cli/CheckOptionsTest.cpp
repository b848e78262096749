// The command line around check mode: settings validation, the settings
// list, options that belong to one mode only.
#include <gtest/gtest.h>

#include "CheckTestSupport.h"
#include "stratagem.h"

TEST(CheckOptions, SettingsMustLieInTheirRangeUnderCheck)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    struct Case
    {
        Strings args;
        int nStatus;
        char const *pszSaid;  // on stderr
    } const cases[] = {
        {{"--check", "-s", "nMapSize=5"}, 0, ""},
        {{"--check", "-s", "nMapSize=6"}, 2, "0 to 5"},
        {{"--check", "--set=nCiv=-1"}, 2, "0 to 13"},
        {{"-s", "bRegicide=2", "--check"}, 2, "0 to 1"},
        {{"--check", "-s", "nPopulationCap=8"}, 2, "0 to 7"},
        {{"--check", "-s", "nWonders=1"}, 2, "bDeathMatch, bRegicide, nStartingAge"},
        {{"--check", "-s", "nMapSize=9", "-D", "GIANT-MAP"}, 0, ""},  // the value in force counts
        {{"-s", "nMapSize=9"}, 0, ""},                                // a listing takes any value, as it always has
        {{"-s", "nWonders=1"}, 2, "bTeamsLocked, nCiv"},
    };
    for (Case const &c : cases) {
        RunResult const result = dir.Run(Join(c.args, {"main.per"}));
        EXPECT_EQ(result.nStatus, c.nStatus) << testing::PrintToString(c.args) << result.strErr;
        EXPECT_NE(result.strErr.find(c.pszSaid), std::string::npos) << result.strErr;
    }
}

TEST(CheckOptions, ListSettingsNamesEveryFieldWithItsDefaultRangeAndEveryDefineWord)
{
    ScriptDir const dir;
    RunResult const result = dir.Run({"--list-settings"});
    ASSERT_EQ(result.nStatus, 0);
    Strings const lines = SplitLines(result.strOut);
    ASSERT_EQ(lines.size(), 13u) << result.strOut;  // a heading and twelve fields

    struct Field
    {
        char const *pszName;
        int nDefault;
        char const *pszRange;
        char const *pszWord;  // one of its define words, with its value
    } const fields[] = {
        {"bDeathMatch", 0, "0..1", "DEATH-MATCH (1)"},
        {"nStartingAge", 0, "0..4", "POST-IMPERIAL-AGE-START (4)"},
        {"nMapSize", 1, "0..5", "GIANT-MAP (5)"},
        {"nMapType", 4, "0..15", "SCENARIO-MAP (15)"},
        {"nPopulationCap", 2, "0..7", "POPULATION-CAP-25 (0)"},
        {"bGameSpeedLocked", 1, "0..1", "GAME-SPEED-LOCKED (1)"},
        {"nCiv", 2, "0..13", "VIKING-CIV (13)"},
    };
    for (Field const &f : fields) {
        auto const line = std::find_if(lines.begin(), lines.end(), [&](std::string const &l) {
            return StartsWith(l, std::string(f.pszName) + " ");
        });
        ASSERT_NE(line, lines.end()) << f.pszName;
        std::istringstream words(*line);
        std::string name, strDefault, range;
        words >> name >> strDefault >> range;
        EXPECT_EQ(strDefault, std::to_string(f.nDefault)) << *line;
        EXPECT_EQ(range, f.pszRange) << *line;
        EXPECT_NE(line->find(f.pszWord), std::string::npos) << *line;
    }

    // Every define word the vocabulary registers is listed once.
    AI_AddDefines();
    int nWords = 0;
    for (unsigned int nSID = 0; nSID < 1000; ++nSID) {
        if (!AI_IsDefine(nSID))
            continue;
        ++nWords;
        std::string const word = " " + std::string(static_cast<char const *>(AI_String(nSID))) + " (";
        std::size_t const at = result.strOut.find(word);
        EXPECT_NE(at, std::string::npos) << word;
        EXPECT_EQ(result.strOut.find(word, at + 1), std::string::npos) << word;
    }
    EXPECT_EQ(nWords, 66);
    AI_DeleteAll();
}

TEST(CheckOptions, OptionsOfTheOtherModeAndBadValuesAreCommandLineErrors)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    struct Case
    {
        Strings args;
        char const *pszSaid;
    } const cases[] = {
        {{"--check", "--tree", "main.per"}, "'--tree' cannot be used with --check"},
        {{"--check", "--seed", "3", "main.per"}, "'--seed' cannot be used with --check"},
        {{"-nX", "--check", "main.per"}, "'-n' cannot be used with --check"},
        {{"--check", "--no-expand-blocks", "main.per"}, "cannot be used with --check"},
        {{"-f", "json", "main.per"}, "'-f' needs --check"},
        {{"--werror", "main.per"}, "'--werror' needs --check"},
        {{"--color=never", "main.per"}, "'--color' needs --check"},
        {{"main.per", "main.per"}, "more than one MAIN_FILE"},
        {{"--check", "-f", "xml", "main.per"}, "text, gcc, json, sarif"},
        {{"--check", "--color", "sometimes", "main.per"}, "auto, always, never"},
        {{"--check", "main.per", "-f"}, "needs a value"},
        {{"--check"}, "no FILE given"},
    };
    for (Case const &c : cases) {
        RunResult const result = dir.Run(c.args);
        EXPECT_EQ(result.nStatus, 2) << testing::PrintToString(c.args);
        EXPECT_EQ(result.strOut, "");
        EXPECT_NE(result.strErr.find(c.pszSaid), std::string::npos) << result.strErr;
        EXPECT_NE(result.strErr.find("stratagem --check [-f text|gcc|json|sarif]"), std::string::npos);
    }
    EXPECT_NE(dir.Run({"--help"}).strOut.find("--check"), std::string::npos);
}
