// Failures through the host: a failed analysis prints one line on stderr and
// nothing on stdout (exit 1); a bad command line prints usage (exit 2).
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CliErrors, NameTheLoadedFileAndTheLineOfTheError)
{
    ScriptDir const dir({{"main.per", "(load \"sub/rules\")\n"}, {"sub/rules.per", "(load \"bad\")\n"}});
    struct Case
    {
        char const *pszBad;
        char const *pszLine;
    } const cases[] = {
        {"; no action of this name\n(defrule\n    (true)\n=>\n    (foo))\n",
         "sub/bad.per(5): Unknown symbol: 'foo'."},
        {"(defrule (true) => (train 5))\n", "sub/bad.per(1): Wrong parameter: '5'."},
        {"(defrule (true) => (do-nothing))\n\n(defrule\n",
         "sub/bad.per(4): Parse error, Bison says: parse error, expecting `'(''."},
    };
    for (Case const &c : cases)
    {
        dir.Write("sub/bad.per", c.pszBad);
        ExpectFailure(dir.Run({"main.per"}), c.pszLine);
    }
}

TEST(CliErrors, StopAtTheFirstFailingFileAndNameUnopenableFiles)
{
    ScriptDir const dir({{"one.per", "(defconst x 1)\n"},
                         {"two.per", "\n\n(defconst x y)\n"},
                         {"main.per", kDoNothingRule + "(load \"missing\")\n"}});
    struct Case
    {
        Strings args;
        char const *pszLine;
    } const cases[] = {
        {{"-x", "one.per", "-x", "two.per", "nope.per"}, "two.per(3): Unknown symbol: 'y'."},
        {{"nope.per"}, "nope.per: the file was not found."},
        {{"-x", "gone.per", "main.per"}, "gone.per: the file was not found."},
        {{"--tree", "main.per"}, "missing.per: the file was not found."},
    };
    for (Case const &c : cases)
        ExpectFailure(dir.Run(c.args), c.pszLine);
}

TEST(CliCommandLine, MistakesPrintUsageAndExitWithTwo)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    for (Strings const &args : std::vector<Strings>{
             {}, {"main.per", "other.per"}, {"--bogus", "main.per"}, {"main.per", "--name"},
             {"-s", "nMapSize=1x", "main.per"}, {"-s", "nWonders=1", "main.per"}, {"-D", "small-map", "main.per"},
             {"--seed", "-1", "main.per"}, {"--tree=yes", "main.per"}})
    {
        RunResult const result = dir.Run(args);
        EXPECT_EQ(result.nStatus, 2) << testing::PrintToString(args);
        EXPECT_EQ(result.strOut, "");
        EXPECT_NE(result.strErr.find("Usage: stratagem [options] MAIN_FILE"), std::string::npos);
    }
}

TEST(CliCommandLine, HelpGoesToStdoutAndOptionValuesMayBeJoined)
{
    ScriptDir const dir({{"-odd.per", kDoNothingRule}, {"x.per", "(defconst x 1)\n"}});
    EXPECT_EQ(dir.Run({"--help"}).strOut.rfind("Usage: stratagem [options] MAIN_FILE\n", 0), 0u);
    EXPECT_EQ(dir.Run({"--version"}).strOut.rfind("stratagem ", 0), 0u);
    // "--" ends the options, so a main file may begin with "-".
    ExpectListing(dir.Run({"-nN", "-xx.per", "--", "-odd.per"}),
                  Listing("-odd.per", {"-odd.per", "x.per"}, RuleLines("(true)", "(do-nothing)"), {"x = 1"},
                          DefaultSettings(), "N"));
}
