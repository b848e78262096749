// Failures through the host: a failed analysis prints one line on stderr and
// nothing on stdout (exit 1); a bad command line prints usage (exit 2).
#include <gtest/gtest.h>

#include "CliTestSupport.h"

namespace {

void ExpectFailure(RunResult const &result, std::string const &strLine)
{
    EXPECT_EQ(result.nStatus, 1);
    EXPECT_EQ(result.strOut, "");
    EXPECT_EQ(result.strErr, strLine + "\n");
}

} // namespace

TEST(CliAnalysisErrors, NameTheLoadedFileAndTheLineOfTheError)
{
    ScriptDir dir;
    dir.Write("main.per", "(load \"sub/rules\")\n");
    dir.Write("sub/rules.per", "(load \"bad\")\n");
    dir.Write("sub/bad.per",
              "; a rule whose action is no word of the vocabulary\n"
              "(defrule\n"
              "    (true)\n"
              "=>\n"
              "    (foo))\n");
    ExpectFailure(dir.Run({"main.per"}), "sub/bad.per(5): Unknown symbol: 'foo'.");

    dir.Write("sub/bad.per", "(defrule (true) => (train 5))\n");
    ExpectFailure(dir.Run({"main.per"}), "sub/bad.per(1): Wrong parameter: '5'.");

    dir.Write("sub/bad.per", "(defconst wood-amount 5)\n");
    ExpectFailure(dir.Run({"main.per"}), "sub/bad.per(1): Duplicate symbol: 'wood-amount'.");

    dir.Write("sub/bad.per", "(load-random 60 \"a\" 40 \"b\")\n");
    ExpectFailure(dir.Run({"main.per"}), "sub/bad.per(1): Invalid probability sum: 100.");

    dir.Write("sub/bad.per", "(defrule (true) => (do-nothing))\n\n(defrule\n");
    ExpectFailure(dir.Run({"main.per"}),
                  "sub/bad.per(4): Parse error, Bison says: parse error, expecting `'(''.");
}

TEST(CliAnalysisErrors, InExtraFilesStopBeforeTheMainFile)
{
    ScriptDir dir;
    dir.Write("one.per", "(defconst x 1)\n");
    dir.Write("two.per", "\n\n(defconst x y)\n");
    dir.Write("main.per", "(defrule (true) => (do-nothing)\n");  // never read
    ExpectFailure(dir.Run({"-x", "one.per", "-x", "two.per", "main.per"}),
                  "two.per(3): Unknown symbol: 'y'.");
}

TEST(CliAnalysisErrors, UnopenableFilesAreNamedWithTheReason)
{
    ScriptDir dir;
    ExpectFailure(dir.Run({"nope.per"}), "nope.per: the file was not found.");

    dir.Write("main.per", "(defrule (true) => (do-nothing))\n(load \"missing\")\n");
    ExpectFailure(dir.Run({"main.per"}), "missing.per: the file was not found.");

    ExpectFailure(dir.Run({"-x", "gone.per", "main.per"}), "gone.per: the file was not found.");
}

TEST(CliCommandLine, MistakesPrintUsageAndExitWithTwo)
{
    ScriptDir dir;
    dir.Write("main.per", "(defrule (true) => (do-nothing))\n");
    std::vector<std::vector<std::string>> const mistakes = {
        {},
        {"--tree"},
        {"main.per", "other.per"},
        {"--bogus", "main.per"},
        {"-q", "main.per"},
        {"main.per", "--name"},
        {"-x"},
        {"-s", "nMapSize", "main.per"},
        {"-s", "nMapSize=big", "main.per"},
        {"-s", "nMapSize=1x", "main.per"},
        {"-s", "nMapSize=", "main.per"},
        {"-s", "nWonders=1", "main.per"},
        {"-s", "nMapSize=4294967296", "main.per"},
        {"-D", "HUGE-MAP", "main.per"},
        {"-D", "small-map", "main.per"},
        {"-D", "wood-amount", "main.per"},
        {"--seed", "-1", "main.per"},
        {"--seed", "seven", "main.per"},
        {"--tree=yes", "main.per"},
        {"--no-expand-blocks=1", "main.per"},
    };
    for (std::vector<std::string> const &args : mistakes)
    {
        RunResult const result = dir.Run(args);
        std::string strArgs;
        for (std::string const &arg : args)
            strArgs += " '" + arg + "'";
        EXPECT_EQ(result.nStatus, 2) << strArgs;
        EXPECT_EQ(result.strOut, "") << strArgs;
        EXPECT_NE(result.strErr.find("Usage: stratagem [options] MAIN_FILE"), std::string::npos)
            << strArgs << "\n" << result.strErr;
    }
}

TEST(CliCommandLine, HelpAndVersionGoToStdout)
{
    ScriptDir dir;
    for (char const *szOption : {"-h", "--help"})
    {
        RunResult const result = dir.Run({szOption});
        EXPECT_EQ(result.nStatus, 0);
        EXPECT_EQ(result.strErr, "");
        EXPECT_EQ(result.strOut.rfind("Usage: stratagem [options] MAIN_FILE\n", 0), 0u);
        for (char const *szDocumented : {"--extra", "--name", "--set", "--define",
                                         "--no-expand-blocks", "--seed", "--tree", "--version"})
            EXPECT_NE(result.strOut.find(szDocumented), std::string::npos) << szDocumented;
    }
    RunResult const version = dir.Run({"--version"});
    EXPECT_EQ(version.nStatus, 0);
    EXPECT_EQ(version.strOut.rfind("stratagem ", 0), 0u) << version.strOut;
}

TEST(CliCommandLine, OptionValuesMayFollowTheOptionInEveryForm)
{
    ScriptDir dir;
    dir.Write("-odd.per", "(defrule (true) => (do-nothing))\n");
    dir.Write("x.per", "(defconst x 1)\n");
    // "--" ends the options, so a main file may begin with "-".
    for (std::vector<std::string> const &args :
         std::vector<std::vector<std::string>>{{"-nN", "-xx.per", "--", "-odd.per"},
                                               {"--name=N", "--extra=x.per", "--", "-odd.per"},
                                               {"-n", "N", "-x", "x.per", "--", "-odd.per"}})
    {
        RunResult const result = dir.Run(args);
        EXPECT_EQ(result.nStatus, 0) << result.strErr;
        EXPECT_EQ(result.strOut.rfind(";N\n\n;-odd.per\n", 0), 0u) << result.strOut;
        EXPECT_NE(result.strOut.find(";x = 1\n"), std::string::npos) << result.strOut;
    }
}
