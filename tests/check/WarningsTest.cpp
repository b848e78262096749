// Warnings: each code on the mistake it is for, silence where the script is
// fine, and the comments that switch codes off.
#include "CheckTestSupport.h"

namespace {

class Warnings : public CheckTest
{};

using WarningCase = std::pair<char const *, std::vector<std::string>>;  // the script, Where() of its report

TEST_F(Warnings, EachCodeOnItsMistake)
{
    std::map<std::string, std::string> const files = {{"a.per", "(defrule (true) => (do-nothing))"}};
    WarningCase const rows[] = {
        // W001: a constant nobody uses; one that is used is fine.
        {"(defconst used 1)\n(defconst idle 2)\n(defrule (goal used 1) => (do-nothing))", {"main.per:2:11-2:14 W001"}},
        // W002: the same file twice on one path; once per branch is fine.
        {"(load \"a\")\n(load \"a\")", {"main.per:2:7-2:9 W002"}},
        {"#load-if-defined GIANT-MAP (load \"a\") #else (load \"a\") #end-if", {}},
        // W003: options after the sum reached 100 can never be drawn.
        {"(load-random 60 \"a\" 40 \"a\" 5 \"a\")", {"main.per:1:2-1:12 E011", "main.per:1:28-1:28 W003"}},
        // W004: one rule written twice in a list; in two branches it is fine.
        {"(defrule (true) => (do-nothing))\n(defrule (true)\n  => (do-nothing)) ; again", {"main.per:2:1-3:18 W004"}},
        // Also when an error lies between them.
        {"(defrule (true) => (do-nothing))\n(defrule (tru) => (do-nothing))\n(defrule (true) => (do-nothing))",
         {"main.per:2:11-2:13 E007", "main.per:3:1-3:32 W004"}},
        // Blanks inside a string are part of the rule, comments are not.
        {"(defrule (true) => (chat-to-all \"a  b\"))\n(defrule (true) => (chat-to-all \"a b\"))\n"
         "(defrule (true);why\n => (chat-to-all \"a b\"))",
         {"main.per:3:1-4:24 W004"}},
        {"#load-if-defined GIANT-MAP (defrule (true) => (do-nothing))\n"
         "#else (defrule (true) => (do-nothing)) #end-if",
         {}},
        // W005: a rule whose condition is always false.
        {"(defrule (false) => (do-nothing))\n(defrule (true) (not (true)) => (do-nothing))",
         {"main.per:1:1-1:33 W005", "main.per:2:1-2:45 W005"}},
        // W007: a constant defined again on one path; once per branch is fine.
        {"(defconst x 1)\n(defconst x 2)\n(defrule (goal x 1) => (do-nothing))", {"main.per:2:11-2:11 W007"}},
        {"#load-if-defined GIANT-MAP (defconst x 5) #else (defconst x 3) #end-if\n(defconst x 4)\n"
         "(defrule (goal x 1) => (do-nothing))",
         {"main.per:2:11-2:11 W007"}},
        // W006: a byte-order mark.
        {"\xEF\xBB\xBF(defrule (true) => (do-nothing))", {"main.per:1:1-1:1 W006"}},
    };
    for (auto const &[pszScript, where] : rows) {
        stratagem::CheckReport report = Run(pszScript, files);
        EXPECT_EQ(where, Where(report)) << pszScript;
        for (stratagem::Diagnostic const &d : report.diagnostics)
            if (d.code[0] == 'W') {
                EXPECT_EQ(stratagem::Severity::Warning, d.severity);
            }
    }
}

TEST_F(Warnings, CommentsSwitchCodesOff)
{
    WarningCase const rows[] = {
        // For the next command only.
        {"(defconst a 1)\n; stratagem: disable=W001\n(defconst idle 2)\n(defconst idle2 3)\n(defrule (goal a 1) => "
         "(do-nothing))",
         {"main.per:4:11-4:15 W001"}},
        {"(defrule (true) => (do-nothing))\n; stratagem: disable=W004\n(defrule (true) => (do-nothing))\n"
         "(defrule (true) => (do-nothing))",
         {"main.per:4:1-4:32 W004"}},
        // Several codes; other codes stay.
        {"(defrule (true) => (do-nothing))\n; stratagem: disable=W005, W004\n(defrule (true) => (do-nothing))\n"
         "(defconst idle 2)",
         {"main.per:4:11-4:14 W001"}},
        // Before the first command: the whole file.
        {"; header\n; stratagem: disable=W001\n\n(defconst a 1)\n(defconst b 2)", {}},
        // Errors are not switched off.
        {"; stratagem: disable=E007\n(defrule (tru) => (do-nothing))", {"main.per:2:11-2:13 E007"}},
        // Inside a string it is no comment.
        {"(defrule (true) => (chat-to-all \"; stratagem: disable=W001\"))\n(defconst idle 2)",
         {"main.per:2:11-2:14 W001"}},
    };
    for (auto const &[pszScript, where] : rows)
        EXPECT_EQ(where, Where(Run(pszScript))) << pszScript;
}

TEST_F(Warnings, NoneOnTheSampleStrategyUnderAnySettings)
{
    // Every define the sample tests, on and off.
    for (int nMapSize = 0; nMapSize < 6; ++nMapSize)
        for (int nCiv = 0; nCiv <= 13; nCiv += 13) {
            stratagem::CheckOptions options;
            options.settings = DefaultSettings();
            options.settings.nMapSize = nMapSize;
            options.settings.nCiv = nCiv;
            options.settings.bRegicide = nCiv != 0;
            stratagem::CheckReport report = stratagem::Check(STRATAGEM_SOURCE_DIR "/examples/main.per", options);
            EXPECT_TRUE(report.diagnostics.empty()) << Where(report)[0];
            EXPECT_EQ(11u, report.files.size());
        }
}

}  // namespace
