// Every error code of check mode: where it points, the line the plain
// analysis reports, and that the first error of a file is the one that
// analysis stops at; messages and hints. (Files that cannot be opened, a
// directory and the end-of-file byte on disk are host cases.)
#include "CheckTestSupport.h"
#include "parser/AI_CException.h"

namespace {

class Diagnostics : public CheckTest
{};

// The plain analysis of the same text, on disk: its cause and line.
std::pair<int, int> Analyze(char const *pszScript)
{
    ScratchDir const dir;
    AI_CStrategy strategy("s", dir.Write("main.per", pszScript).c_str(), DefaultSettings());
    std::pair<int, int> result(-1, 0);
    try {
        strategy.Analyze();
    } catch (CException *pException) {
        if (auto *pParse = dynamic_cast<AI_CParseException *>(pException))
            result = {pParse->GetCause(), pParse->GetLine()};
        pException->Delete();
    }
    return result;
}

// The first error of each script is the one the plain analysis stops at:
// its code is the analysis's cause, its line the analysis's line.
TEST_F(Diagnostics, EachCodePointsAtItsTokenAndIsTheAnalysisError)
{
    // Rows: the script, "main.per:line:col-endLine:endCol CODE", the line the analysis reports.
    std::tuple<char const *, char const *, int> const rows[] = {
        {"(defrule (true) => (do-nothing))\n  $", "main.per:2:3-2:3 E000", 2},
        {"(load \"abc\n\")", "main.per:1:11-1:11 E000", 2},
        {"(defrule => (do-nothing))", "main.per:1:10-1:11 E001", 1},
        {"(defrule (true) => (do-nothing)\n", "main.per:2:1-2:1 E001", 2},
        {"(defrule (true) => (do-nothing))\n)", "main.per:2:1-2:1 E001", 2},
        {"(defrule (food-amount < 99999999999) => (do-nothing))", "main.per:1:25-1:35 E002", 1},
        {"(defrule (do-nothing) => (do-nothing))", "main.per:1:11-1:20 E003", 1},
        {"(defrule (true) => (true))", "main.per:1:21-1:24 E004", 1},
        {"(defrule (true) => (build food-amount))", "main.per:1:27-1:37 E005", 1},
        {"#load-if-defined archer\n  (load \"a\")\n#end-if", "main.per:1:18-1:23 E006", 3},
        {"(defrule (tru) => (do-nothing))", "main.per:1:11-1:13 E007", 1},
        {"(defrule\n  (food-amount <)\n=> (do-nothing))", "main.per:2:4-2:14 E008", 2},
        {"(defrule (food-amount < archer) => (do-nothing))", "main.per:1:25-1:30 E009", 1},
        {"(defrule (goal 41 1) => (do-nothing))", "main.per:1:16-1:17 E009", 1},
        {"(load-random 0 \"a\" \"b\")", "main.per:1:14-1:14 E010", 1},
        {"(load-random\n  60 \"a\"\n  50 \"b\")", "main.per:1:2-1:12 E011", 3},
        {"(defconst archer 5)", "main.per:1:11-1:16 E012", 1},
        {"(defconst x archer)", "main.per:1:13-1:18 E013", 1},
    };
    for (auto const &[pszScript, pszWhere, nAnalysisLine] : rows) {
        SCOPED_TRACE(pszScript);
        stratagem::CheckReport report = Run(pszScript);
        ASSERT_FALSE(report.diagnostics.empty());
        stratagem::Diagnostic const &first = report.diagnostics.front();
        EXPECT_EQ(pszWhere, Where(first));
        EXPECT_EQ(nAnalysisLine, first.analysisLine);
        EXPECT_EQ(stratagem::Severity::Error, first.severity);
        EXPECT_EQ(std::string::npos, first.message.find("Bison")) << first.message;
        EXPECT_EQ(std::string::npos, first.message.find('\n')) << first.message;
        EXPECT_EQ(Analyze(pszScript), std::make_pair(std::stoi(first.code.substr(1)), first.analysisLine));
    }
}

TEST_F(Diagnostics, MessagesNameTheCauseReadably)
{
    std::pair<char const *, char const *> const rows[] = {
        {"(defrule => (do-nothing))", "syntax error: unexpected '=>'; expected '('"},
        {"(defrule (true) => (do-nothing))\n)", "syntax error: unexpected ')'; expected end of file, '(' or '#'"},
        {"(defrule (true) => (do-nothing)", "syntax error: unexpected end of file; expected '(' or ')'"},
        {"(defrule (tru) => (do-nothing))", "unknown word 'tru'"},
        {"(load-random 0 \"a\")", "invalid probability 0: it must be from 1 to 100"},
        {"(defconst x archer)", "'archer' is not a constant; a constant's value is a number or a constant"},
        {"\x01", "invalid character byte 0x01"},
        {"(load \"a\n\")", "string not closed at the end of the line (a string cannot span lines)"},
    };
    for (auto const &[pszScript, pszMessage] : rows) {
        stratagem::CheckReport report = Run(pszScript);
        ASSERT_FALSE(report.diagnostics.empty());
        EXPECT_EQ(pszMessage, report.diagnostics.front().message) << pszScript;
    }
}

TEST_F(Diagnostics, HintsSuggestCloseWordsOfTheRightKind)
{
    std::tuple<char const *, char const *, char const *> const rows[] = {
        {"(defrule (food-amont < 5) => (do-nothing))", "did you mean 'food-amount'?", "food-amount"},
        {"(defrule (true) => (do-nothng))", "did you mean 'do-nothing'?", "do-nothing"},
        {"(defrule (food-amount < 5) => (build archery-rnage))", "did you mean 'archery-range'?", "archery-range"},
        {"#load-if-defined GIANT-MAPP (load \"a\") #end-if", "did you mean 'GIANT-MAP'?", "GIANT-MAP"},
        {"(defconst my-goal 3)\n(defrule (goal my-gaol 1) => (do-nothing))", "did you mean 'my-goal'?", "my-goal"},
        {"(defrule (true) => (wood-amount < 3))", "'wood-amount' is a fact: facts come before '=>'", ""},
        {"(defrule (resign) => (resign))", "'resign' is an action: actions come after '=>'", ""},
    };
    for (auto const &[pszScript, pszHint, pszFix] : rows) {
        stratagem::CheckReport report = Run(pszScript);
        ASSERT_FALSE(report.diagnostics.empty());
        stratagem::Diagnostic const &first = report.diagnostics.front();
        ASSERT_FALSE(first.hints.empty()) << pszScript;
        EXPECT_EQ(pszHint, first.hints.front()) << pszScript;
        if (!*pszFix)
            continue;
        ASSERT_FALSE(first.fixes.empty());
        EXPECT_EQ(pszFix, first.fixes.front().text);
        EXPECT_EQ(At(first.range), At(first.fixes.front().range));
    }
}

TEST_F(Diagnostics, ArgumentHintsGiveTheSignatureAndAcceptedValues)
{
    stratagem::CheckReport count = Run("(defrule (goal 1) => (do-nothing))");
    ASSERT_EQ(1u, count.diagnostics.size());
    EXPECT_EQ((std::vector<std::string> {"expected (goal goal-id value), with 2 arguments",
                                         "goal-id: an integer from 1 to 40", "value: an integer from -32768 to 32767"}),
              count.diagnostics[0].hints);

    stratagem::CheckReport type = Run("(defrule (true) => (build archer))");
    ASSERT_EQ(1u, type.diagnostics.size());
    EXPECT_EQ("wrong argument 'archer' for 'build'", type.diagnostics[0].message);
    ASSERT_FALSE(type.diagnostics[0].hints.empty());
    EXPECT_EQ(0u, type.diagnostics[0].hints[0].find("argument 1 of (build building) is a building: one of: "))
        << type.diagnostics[0].hints[0];
}

}  // namespace
