// The listing that the host prints for whole strategies: loaded files in
// place of their load commands, names formed from the loading file, extra
// files, constants recorded across files, and cycles of loads.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

namespace {

std::string const kDoNothingRule = "(defrule (true) => (do-nothing))\n";

// A rule listed at level 0 with one condition and one action, and the empty
// line that its command list adds.
std::vector<std::string> RuleLines(std::string const &strCondition, std::string const &strAction)
{
    return {"(defrule", "\t" + strCondition, "=>", "\t" + strAction, ")", ""};
}

void Add(std::vector<std::string> &lines, std::vector<std::string> const &more)
{
    lines.insert(lines.end(), more.begin(), more.end());
}

void ExpectSuccess(RunResult const &result, std::string const &strListing)
{
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strErr, "");
    EXPECT_EQ(result.strOut, strListing);
}

} // namespace

TEST(CliLoadListing, LoadedNamesTakeTheLoadingFilesDirectoryAndExtension)
{
    ScriptDir dir;
    dir.Write("main.per", "(load \"common\")\n(load \"sub/tools\")\n");
    dir.Write("common.per", kDoNothingRule);
    dir.Write("sub/tools.per", "(load \"deep\")\n");
    dir.Write("sub/deep.per", "(defrule (food-amount < 50) => (chat-local-to-self \"low food\"))\n");

    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"sub/tools.per", "common.per", "sub/deep.per", "main.per"};
    expected.body = {";(load common.per)", Start("common.per"), ""};
    Add(expected.body, RuleLines("(true)", "(do-nothing)"));
    Add(expected.body, {"", End("common.per"), ""});
    Add(expected.body, {";(load sub/tools.per)", Start("sub/tools.per"), ""});
    Add(expected.body, {";(load sub/deep.per)", Start("sub/deep.per"), ""});
    Add(expected.body,
        RuleLines("(food-amount less-than 50)", "(chat-local-to-self \"low food\")"));
    Add(expected.body, {"", End("sub/deep.per"), ""});
    Add(expected.body, {"", End("sub/tools.per"), ""});

    ExpectSuccess(dir.Run({"main.per"}), expected.Text());
}

TEST(CliLoadListing, WrittenExtensionsStayAndNamesWithoutExtensionGetNone)
{
    ScriptDir dir;
    dir.Write("rules.txt", "(load \"x.per\")\n");
    dir.Write("x.per.txt", kDoNothingRule);
    dir.Write("plain", "(load \"other\")\n");
    dir.Write("other", kDoNothingRule);

    StrategyListing withExtension{"Rush", "rules.txt"};
    withExtension.files = {"x.per.txt", "rules.txt"};
    withExtension.body = {";(load x.per.txt)", Start("x.per.txt"), ""};
    Add(withExtension.body, RuleLines("(true)", "(do-nothing)"));
    Add(withExtension.body, {"", End("x.per.txt"), ""});
    ExpectSuccess(dir.Run({"--name", "Rush", "rules.txt"}), withExtension.Text());

    StrategyListing withoutExtension{"plain", "plain"};
    withoutExtension.files = {"plain", "other"};
    withoutExtension.body = {";(load other)", Start("other"), ""};
    Add(withoutExtension.body, RuleLines("(true)", "(do-nothing)"));
    Add(withoutExtension.body, {"", End("other"), ""});
    ExpectSuccess(dir.Run({"plain"}), withoutExtension.Text());
}

TEST(CliLoadListing, BannersFillToEightyColumnsAndLongNamesGetNoFill)
{
    ScriptDir dir;
    std::string const strLong = std::string(76, 'a') + ".per";  // 80 bytes
    dir.Write("main.per", "(load \"" + std::string(76, 'a') + "\")\n");
    dir.Write(strLong, kDoNothingRule);

    std::string const strExpected = Lines({
        ";main.per", "", ";main.per", "",
        ";Game settings:  " + std::string(58, '*'),
        ";DARK-AGE-START", ";MEDIUM-RESOURCES-START", ";SMALL-MAP", ";COASTAL-MAP",
        ";VICTORY-STANDARD", ";DIFFICULTY-MODERATE", ";POPULATION-CAP-75", ";BYZANTINE-CIV",
        ";GAME-SPEED-LOCKED", "",
        ";Files:  " + std::string(66, '*'), ";" + strLong, ";main.per", "",
        ";Constants:  " + std::string(62, '*'), "",
        ";START main.per " + std::string(65, '*'), "",
        ";(load " + strLong + ")",
        ";START " + strLong + " ",
        "",
        "(defrule", "\t(true)", "=>", "\t(do-nothing)", ")", "",
        "",
        ";END " + strLong + " **",
        "",
        "",
        ";END main.per " + std::string(67, '*'), ""});
    ExpectSuccess(dir.Run({"main.per"}), strExpected);
}

TEST(CliExtraFiles, AreListedOnlyAmongTheFilesAndTheirConstantsReachTheMainFile)
{
    ScriptDir dir;
    dir.Write("defs.per", "(defconst base-food 100)\n(defconst bonus 5)\n");
    dir.Write("main.per",
              "(defconst limit base-food)\n"
              "(defrule\n"
              "    (food-amount > limit)\n"
              "    (goal 1 bonus)\n"
              "=>\n"
              "    (set-goal 2 base-food))\n");

    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"defs.per", "main.per"};
    // One bucket holds all three; the latest recorded comes first.
    expected.constants = {"limit = 100", "bonus = 5", "base-food = 100"};
    expected.body = {"(defconst limit 100)", "",
                     "(defrule", "\t(food-amount greater-than 100)", "\t(goal 1 5)",
                     "=>", "\t(set-goal 2 100)", ")", ""};
    ExpectSuccess(dir.Run({"-x", "defs.per", "main.per"}), expected.Text());
}

TEST(CliExtraFiles, AreReadInOrderAndALaterDefinitionKeepsTheFirstValueInUse)
{
    ScriptDir dir;
    dir.Write("one.per", "(defconst level 1)\n");
    dir.Write("two.per", "(defconst level 3)\n(defconst step level)\n");
    dir.Write("main.per", "(defconst level 2)\n(defrule (true) => (set-goal 1 level))\n");

    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"one.per", "main.per", "two.per"};
    expected.constants = {"step = 1", "level = 1, 3, 2"};
    expected.body = {"(defconst level 2)", ""};
    Add(expected.body, RuleLines("(true)", "(set-goal 1 1)"));
    ExpectSuccess(dir.Run({"--extra", "one.per", "--extra=two.per", "main.per"}),
                  expected.Text());
}

TEST(CliExtraFiles, LoadedAgainByTheMainFileRecordTheirConstantsTwice)
{
    ScriptDir dir;
    dir.Write("defs.per", "(defconst base-food 100)\n(defconst bonus 5)\n");
    dir.Write("main.per", "(load \"defs\")\n");

    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"defs.per", "main.per"};
    expected.constants = {"bonus = 5, 5", "base-food = 100, 100"};
    expected.body = {";(load defs.per)", Start("defs.per"), "",
                     "(defconst base-food 100)", "", "(defconst bonus 5)", "",
                     "", End("defs.per"), ""};
    ExpectSuccess(dir.Run({"-x", "defs.per", "main.per"}), expected.Text());
}

TEST(CliLoadCycles, AFileThatLoadsItselfIsReadOnceAndListedOnceInside)
{
    ScriptDir dir;
    dir.Write("main.per", "(defconst lives 3)\n(load \"main\")\n");

    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"main.per"};
    expected.constants = {"lives = 3, 3"};
    expected.body = {"(defconst lives 3)", "",
                     ";(load main.per)", Start("main.per"), "", "", End("main.per"), ""};
    ExpectSuccess(dir.Run({"main.per"}), expected.Text());
}

TEST(CliLoadCycles, TwoFilesLoadingEachOtherEndAtTheFileBeingWritten)
{
    ScriptDir dir;
    dir.Write("a.per", "(load \"b\")\n" + kDoNothingRule);
    dir.Write("b.per", "(load \"a\")\n");

    StrategyListing expected{"a.per", "a.per"};
    expected.files = {"a.per", "b.per"};
    expected.body = {";(load b.per)", Start("b.per"), "",
                     ";(load a.per)", Start("a.per"), "", "", End("a.per"), "",
                     "", End("b.per"), ""};
    Add(expected.body, RuleLines("(true)", "(do-nothing)"));
    ExpectSuccess(dir.Run({"a.per"}), expected.Text());
}

TEST(CliSettingsOptions, ApplyInOrderOnTheDefaults)
{
    ScriptDir dir;
    dir.Write("main.per", kDoNothingRule);
    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"main.per"};
    expected.body = RuleLines("(true)", "(do-nothing)");

    expected.settings = {"DEATH-MATCH", "REGICIDE", "CASTLE-AGE-START",
                         "MEDIUM-RESOURCES-START", "GIANT-MAP", "COASTAL-MAP",
                         "VICTORY-STANDARD", "DIFFICULTY-HARDEST", "POPULATION-CAP-75",
                         "", "TEAMS-LOCKED"};
    ExpectSuccess(dir.Run({"-s", "bDeathMatch=7", "-D", "REGICIDE", "-D", "CASTLE-AGE-START",
                           "-s", "nMapSize=5", "--set=nDifficulty=4", "-s",
                           "bGameSpeedLocked=0", "--define", "TEAMS-LOCKED", "-s", "nCiv=20",
                           "main.per"}),
                  expected.Text());

    // The later option wins.
    expected.settings = DefaultSettings();
    expected.settings[2] = "TINY-MAP";
    ExpectSuccess(dir.Run({"-D", "GIANT-MAP", "-s", "nMapSize=0", "main.per"}), expected.Text());
    expected.settings[2] = "GIANT-MAP";
    ExpectSuccess(dir.Run({"-s", "nMapSize=0", "-D", "GIANT-MAP", "main.per"}), expected.Text());
}
