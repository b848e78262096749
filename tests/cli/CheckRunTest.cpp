// How check mode reads standard input and when it colours its output
// (exit statuses, options and several files in one report are host cases).
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CheckRun, StandardInputIsCheckedAsStdinBesideTheFilesNamed)
{
    ScriptDir const dir({{"main.per", std::string("(defrule (true) => (zzqx))\n")}});
    std::string const input = "\n(defrule (true) => (qqzz))\n";
    RunResult const result = dir.Run({"--check", "-", "main.per"}, "", &input);
    EXPECT_EQ(result.nStatus, 1);
    std::string const caret = std::string(20, ' ') + "^~~~\n";
    EXPECT_EQ(result.strOut,
              "<stdin>:2:21: error: unknown word 'qqzz' [E007]\n(defrule (true) => (qqzz))\n" + caret
                  + "main.per:1:21: error: unknown word 'zzqx' [E007]\n(defrule (true) => (zzqx))\n" + caret
                  + "2 errors generated.\n");
    // Named twice, standard input is read once and its problems reported once.
    EXPECT_EQ(dir.Run({"--check", "-f", "gcc", "-", "-"}, "", &input).strOut,
              "<stdin>:2:21: error: unknown word 'qqzz' [E007]\n");
}

TEST(CheckRun, ColourOnlyWhenAskedOrOnATerminalAndNeverUnderNoColor)
{
    ScriptDir const dir({{"main.per", std::string("(defrule (true) => (foo))\n")}});
    // The environment, the options, whether the output is coloured: not in auto mode (the output is a file);
    // NO_COLOR set but empty has no effect; gcc and json are never coloured.
    std::tuple<char const *, Strings, bool> const cases[]
        = {{"", {"--check", "main.per"}, false},
           {"", {"--check", "--color=always", "main.per"}, true},
           {"", {"--check", "--color", "never", "main.per"}, false},
           {"NO_COLOR=1", {"--check", "--color=always", "main.per"}, false},
           {"NO_COLOR=", {"--check", "--color=always", "main.per"}, true},
           {"", {"--check", "--color=always", "-f", "gcc", "main.per"}, false},
           {"", {"--check", "--color=always", "-f", "json", "main.per"}, false}};
    for (auto const &[pszEnv, args, bColor] : cases) {
        RunResult const result = dir.Run(args, pszEnv);
        EXPECT_EQ(result.nStatus, 1);
        EXPECT_EQ(result.strOut.find('\033') != std::string::npos, bColor)
            << pszEnv << " " << testing::PrintToString(args);
    }
}
