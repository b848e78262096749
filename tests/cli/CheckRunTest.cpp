// How check mode runs: exit statuses, standard input, several files,
// colour.
#include <gtest/gtest.h>

#include "CheckTestSupport.h"

TEST(CheckRun, ExitStatusSaysWhetherErrorsOrUnderWerrorWarningsWereFound)
{
    ScriptDir const dir({{"clean.per", kDoNothingRule},
                         {"warns.per", "(defrule (false) => (do-nothing))\n"},
                         {"fails.per", "(defrule (true) => (foo))\n"}});
    // Rows: args, nStatus.
    // clang-format off
    std::pair<Strings, int> const cases[] = {
        {{"clean.per"}, 0}, {{"--werror", "clean.per"}, 0}, {{"warns.per"}, 0}, {{"--werror", "warns.per"}, 1},
        {{"fails.per"}, 1}, {{"clean.per", "fails.per"}, 1}, {{"-f", "gcc", "--werror", "warns.per", "clean.per"}, 1}};
    // clang-format on
    for (auto const &[args, nStatus] : cases) {
        RunResult const result = dir.Run(Join({"--check"}, args));
        EXPECT_EQ(result.nStatus, nStatus) << testing::PrintToString(args) << result.strOut;
        EXPECT_EQ(result.strErr, "");
    }
    Json const warnings = CheckJson(dir, {"warns.per"}, 0);
    EXPECT_GE(CountSeverity(warnings, "warning"), 1);
    EXPECT_EQ(CountSeverity(warnings, "error"), 0);
}

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

TEST(CheckRun, SeveralFilesGiveOneReportAndSharedFilesAreReportedOnce)
{
    ScriptDir const dir({{"a.per", "(load \"common\")\n(defrule (true) => (foo))\n"},
                         {"b.per", "(load \"common\")\n(defrule (true) => (bar))\n"},
                         {"common.per", "(defrule (true) => (baz))\n"},
                         {"extra.per", "(defrule (true) => (qux))\n"}});
    Json const diagnostics = CheckJson(dir, {"-x", "extra.per", "a.per", "b.per"}, 1);
    for (char const *file : {"a.per", "b.per", "common.per", "extra.per"})
        EXPECT_EQ(InFile(diagnostics, file).size(), 1u) << file << "\n" << diagnostics.dump(1);
    EXPECT_EQ(diagnostics.size(), 4u);

    Json const log = Json::parse(dir.Run({"--check", "-f", "sarif", "a.per", "b.per"}).strOut);
    ASSERT_EQ(log.at("runs").size(), 1u);
    EXPECT_EQ(log.at("runs")[0].at("results").size(), 3u);
    EXPECT_EQ(log.at("runs")[0].at("tool").at("driver").at("rules").size(), 1u);
}

TEST(CheckRun, ColourOnlyWhenAskedOrOnATerminalAndNeverUnderNoColor)
{
    ScriptDir const dir({{"main.per", std::string("(defrule (true) => (foo))\n")}});
    // Rows: pszEnv, args, bColor.
    std::tuple<char const *, Strings, bool> const cases[] = {
        {"", {}, false},  // auto: the output is a file
        {"", {"--color=always"}, true},
        {"", {"--color", "never"}, false},
        {"NO_COLOR=1", {"--color=always"}, false},
        {"NO_COLOR=", {"--color=always"}, true},  // set but empty: no effect
        {"", {"--color=always", "-f", "gcc"}, false},
        {"", {"--color=always", "-f", "json"}, false},
    };
    for (auto const &[pszEnv, args, bColor] : cases) {
        RunResult const result = dir.Run(Join(Join({"--check"}, args), {"main.per"}), pszEnv);
        EXPECT_EQ(result.nStatus, 1);
        EXPECT_EQ(result.strOut.find('\033') != std::string::npos, bColor)
            << pszEnv << " " << testing::PrintToString(args);
    }
}
