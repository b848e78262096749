// Every error code of check mode: where it points, the line the plain
// analysis reports, and that the first error of a file is the one that
// analysis stops at.
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "CheckTestSupport.h"
#include "parser/AI_CException.h"

namespace {

struct CodeCase
{
    char const *pszScript;
    char const *pszWhere;  // "main.per:line:col-endLine:endCol CODE"
    int nAnalysisLine;
};

CodeCase const kCodeCases[] = {
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

class Diagnostics : public CheckTest
{};

TEST_F(Diagnostics, EachCodePointsAtItsToken)
{
    for (CodeCase const &row : kCodeCases) {
        stratagem::CheckReport report = Run(row.pszScript);
        ASSERT_FALSE(report.diagnostics.empty()) << row.pszScript;
        stratagem::Diagnostic const &first = report.diagnostics.front();
        EXPECT_EQ(row.pszWhere, Where(first)) << row.pszScript;
        EXPECT_EQ(row.nAnalysisLine, first.analysisLine) << row.pszScript;
        EXPECT_EQ(stratagem::Severity::Error, first.severity);
        EXPECT_EQ(std::string::npos, first.message.find("Bison")) << first.message;
        EXPECT_EQ(std::string::npos, first.message.find('\n')) << first.message;
    }
}

// The plain analysis of the same text, on disk: its cause and line.
class FirstError : public CheckTest
{
protected:
    std::pair<int, int> Analyze(char const *pszScript)
    {
        std::string strTemplate = testing::TempDir() + "stratagem-check-XXXXXX";
        EXPECT_NE(nullptr, mkdtemp(&strTemplate[0]));
        std::string strMain = strTemplate + "/main.per";
        std::ofstream(strMain) << pszScript;
        AI_CStrategy strategy("s", strMain.c_str(), DefaultSettings());
        std::pair<int, int> result(-1, 0);
        try {
            strategy.Analyze();
        } catch (CException *pException) {
            if (auto *pParse = dynamic_cast<AI_CParseException *>(pException))
                result = {pParse->GetCause(), pParse->GetLine()};
            pException->Delete();
        }
        std::filesystem::remove_all(strTemplate);
        return result;
    }
};

TEST_F(FirstError, IsTheOneTheAnalysisReports)
{
    for (CodeCase const &row : kCodeCases) {
        std::pair<int, int> expected = Analyze(row.pszScript);
        stratagem::CheckReport report = Run(row.pszScript);
        ASSERT_FALSE(report.diagnostics.empty());
        stratagem::Diagnostic const &first = report.diagnostics.front();
        EXPECT_EQ(expected.first, std::stoi(first.code.substr(1))) << row.pszScript;
        EXPECT_EQ(expected.second, first.analysisLine) << row.pszScript;
    }
}

TEST_F(Diagnostics, MessagesNameTheCauseReadably)
{
    // Rows: pszScript, pszMessage.
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
    // Rows: pszScript, pszHint, pszFix.
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
        stratagem::Range const &fix = first.fixes.front().range;
        EXPECT_EQ(std::make_pair(first.range.line, first.range.column), std::make_pair(fix.line, fix.column));
        EXPECT_EQ(std::make_pair(first.range.endLine, first.range.endColumn),
                  std::make_pair(fix.endLine, fix.endColumn));
    }
}

TEST_F(Diagnostics, ArgumentHintsGiveTheSignatureAndAcceptedValues)
{
    stratagem::CheckReport count = Run("(defrule (goal 1) => (do-nothing))");
    ASSERT_EQ(1u, count.diagnostics.size());
    std::vector<std::string> const &countHints = count.diagnostics[0].hints;
    ASSERT_EQ(3u, countHints.size());
    EXPECT_EQ("expected (goal goal-id value), with 2 arguments", countHints[0]);
    EXPECT_EQ("goal-id: an integer from 1 to 40", countHints[1]);
    EXPECT_EQ("value: an integer from -32768 to 32767", countHints[2]);

    stratagem::CheckReport type = Run("(defrule (true) => (build archer))");
    ASSERT_EQ(1u, type.diagnostics.size());
    EXPECT_EQ("wrong argument 'archer' for 'build'", type.diagnostics[0].message);
    ASSERT_FALSE(type.diagnostics[0].hints.empty());
    EXPECT_EQ(0u, type.diagnostics[0].hints[0].find("argument 1 of (build building) is a building: one of: "))
        << type.diagnostics[0].hints[0];
}

TEST_F(Diagnostics, UnopenableFileIsReportedAtItsNameWithTheChain)
{
    stratagem::CheckReport report
        = Run("(load \"a\")\n", {{"a.per", "(defrule (true) => (do-nothing))\n  (load \"gone\")"}});
    ASSERT_EQ(1u, report.diagnostics.size());
    stratagem::Diagnostic const &d = report.diagnostics[0];
    EXPECT_EQ("a.per:2:9-2:14 E100", Where(d));
    EXPECT_EQ("cannot open file 'gone.per': No such file or directory", d.message);
    ASSERT_EQ(1u, d.loadedFrom.size());
    EXPECT_EQ("main.per", d.loadedFrom[0].file);
    EXPECT_EQ(1, d.loadedFrom[0].line);
    EXPECT_EQ(1, d.loadedFrom[0].column);
    EXPECT_EQ(1, report.errors);
}

TEST_F(Diagnostics, ADirectoryIsNoScript)
{
    stratagem::CheckOptions options;
    stratagem::CheckReport report = stratagem::Check(testing::TempDir(), options);
    ASSERT_EQ(1u, report.diagnostics.size());
    EXPECT_EQ("E100", report.diagnostics[0].code);
    EXPECT_NE(std::string::npos, report.diagnostics[0].message.find("Is a directory")) << report.diagnostics[0].message;
}

TEST_F(Diagnostics, TheDiskIsReadInTextMode)
{
    std::string strTemplate = testing::TempDir() + "stratagem-check-XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(&strTemplate[0]));
    std::string strMain = strTemplate + "/main.per";
    std::ofstream(strMain, std::ios::binary) << "(defrule (true)\r\n=> (do-nothing))\r\n(tru)\x1A garbage $$$";
    stratagem::CheckOptions options;
    options.settings = DefaultSettings();
    stratagem::CheckReport report = stratagem::Check(strMain, options);
    std::filesystem::remove_all(strTemplate);
    ASSERT_EQ(1u, report.diagnostics.size());
    EXPECT_EQ(strMain + ":3:2-3:4 E001", Where(report.diagnostics[0]));
}

}  // namespace
