// Syntax errors: the tokens each place of the grammar names, the lines that
// errors are reported at, and how deep the grammar nests.
#include "ParserTestSupport.h"

namespace {

std::string const kCommandStart = "parse error, expecting `'('' or `'#''";
std::string const kTopLevel = "parse error, expecting `$' or `'('' or `'#''";
std::string const kCommandWord
    = "parse error, expecting `TOK_RW_DEFRULE' or `TOK_RW_DEFCONST' or `TOK_RW_LOAD' or `TOK_RW_LOAD_RANDOM'";
std::string const kDirective = "parse error, expecting `TOK_D_LOAD_IF_DEFINED' or `TOK_D_LOAD_IF_NOT_DEFINED'";
std::string const kEndIf = "parse error, expecting `TOK_D_END_IF'";
std::string const kSymbol = "parse error, expecting `TOK_SYMBOL'";
std::string const kValue = "parse error, expecting `TOK_SYMBOL' or `TOK_INTEGER'";
std::string const kString = "parse error, expecting `TOK_STRING'";
std::string const kOpen = "parse error, expecting `'(''";
std::string const kClose = "parse error, expecting `')''";
std::string const kAlone = "parse error";

using Case = std::pair<std::string, std::string>;  // the script, the message

// One row per place where an unacceptable token can stand: in commands and
// blocks, rules, constants and loads; "=>x" is the arrow, then a symbol.
// clang-format off
Case const kErrorPoints[] = {
    {"x", kCommandStart}, {"#load-if-defined DEATH-MATCH x", kCommandStart},
    {"#load-if-defined DEATH-MATCH (load \"a\") # else )", kCommandStart}, {"(load \"a\") (load \"b\") x", kTopLevel},
    {"(load \"a\"))", kTopLevel}, {"#load-if-defined DEATH-MATCH (load \"a\") x", kCommandStart},
    {"#load-if-not-defined DEATH-MATCH (load \"a\") #else (load \"b\") =>", kCommandStart}, {"(x", kCommandWord},
    {"(load-if-defined", kCommandWord}, {"#x", kDirective}, {"#end-if", kDirective},
    {"#load-if-defined DEATH-MATCH #end-if", kDirective},
    {"#load-if-defined DEATH-MATCH (load \"a\") #else #end-if", kDirective},
    {"#load-if-defined DEATH-MATCH (load \"a\") #foo #end-if", kEndIf},
    {"#load-if-defined DEATH-MATCH (load \"a\") #else (load \"b\") #else", kEndIf},
    {"#load-if-defined (load \"a\")", kSymbol}, {"(defrule x", kOpen}, {"(defrule => (do-nothing))", kOpen},
    {"(defrule ())", kAlone}, {"(defrule (true) (false) x", "parse error, expecting `TOK_ARROW' or `'(''"},
    {"(defrule (not x", kOpen}, {"(defrule (not (true) (false)) => (do-nothing))", kClose},
    {"(defrule (and (true)) => (do-nothing))", kOpen}, {"(defrule (or (true) (false) (true)) => (do-nothing))", kClose},
    {"(defrule (true (false)) => (do-nothing))", kAlone}, {"(defrule (food-amount # 5) => (do-nothing))", kAlone},
    {"(defrule (true) => (do-nothing =>", kAlone}, {"(defrule (true) =>)", kOpen}, {"(defrule (true) => ((", kSymbol},
    {"(defrule (true) => (not", kSymbol},
    {"(defrule (true) => (do-nothing) x", "parse error, expecting `'('' or `')''"}, {"(defconst 5", kSymbol},
    {"(defconst else 5)", kSymbol}, {"(defconst c )", kValue}, {"(defconst c \"5\")", kValue},
    {"(defconst c load)", kValue}, {"(defconst c 5 6)", kClose}, {"(defconst c +5a)", kClose}, {"(load x", kString},
    {"(load \"a\" \"b\")", kClose}, {"(load-random 30)", kString}, {"(load-random 30 \"a\" x)", kClose},
    {"(load-random 30 \"a\" \"b\" 20 \"c\")", kClose}, {"(load-random x)", kClose}, {"(defrule (true) =>x)", kOpen}};
// clang-format on

// An error at the end of input stands one line after the last line feed.
// Files are read in text mode: CR LF is one line end, 0x1A ends the input.
Case const kLines[] = {
    {"", SyntaxError(1, kCommandStart)},
    {"  \t; only a comment", SyntaxError(1, kCommandStart)},
    {"; one\n\n; three\n", SyntaxError(4, kCommandStart)},
    {"(load \"a\")\n\n(load \"b\"\n\n  x)", SyntaxError(5, kClose)},
    {"(defrule\n(true)\n=>\n)", SyntaxError(4, kOpen)},
    {"#load-if-defined DEATH-MATCH\n(load \"a\")\n", SyntaxError(3, kCommandStart)},
    {"#load-if-defined DEATH-MATCH\n(load \"a\")\n#", SyntaxError(3, kEndIf)},
    {"(load \"a\") ; comment\n\n x", SyntaxError(3, kTopLevel)},
    {"(load \"a\") ; \"(# ) \xE9" + std::string(1, '\0') + "\n(load \"b\") ;; no line feed", "accepted"},
    // Directive words may stand apart from their hash.
    {"# load-if-defined DEATH-MATCH (load \"a\") #\tend-if", "accepted"},
    {"#\nload-if-defined\nDEATH-MATCH\n(load \"a\")\n#\n\nend-if\n#;comment\nload-if-defined REGICIDE (load \"b\") "
     "#end-if x",
     SyntaxError(9, kTopLevel)},
    // A raw line feed in a string is counted, then reported; a backslash
    // before it continues the string.
    {"(load \"a\")\n\n(load \"broken\n\")", InvalidCharacter(4, "\n")},
    {"(load \"a\\\nb\\\nc\")\n x", SyntaxError(4, kTopLevel)},
    // The end of input inside a string drops the string.
    {"(load \"a\") \"unfinished", "accepted"},
    {"(load \"a\") \"unfinished\\", "accepted"},
    {"(load \"a\")\n(load \"unfinished\\\n", SyntaxError(3, kString)},
    {"(load \"a\")\r\n(load \"b\")\r\n\r\nx", SyntaxError(4, kTopLevel)},
    {"(load \"a\")\r\r\n", InvalidCharacter(1, "\r")},
    {"(load \"a\")" + std::string(8181, ' ') + "\r x", InvalidCharacter(1, "\r")},
    {"(load \"a\")\x1A(garbage !", "accepted"},
    {"(load \"a\")\n(load \"b\x1A\")", SyntaxError(2, kString)},
    {"(load \"a\")" + std::string(20000, ' ') + "\x1A)))", "accepted"},
};

using GrammarErrorTest = FrontEndTest;

std::string NestedNots(int nDepth)
{
    std::string strRule = "(defrule ";
    for (int i = 0; i < nDepth; ++i)
        strRule += "(not ";
    return strRule + "(true)" + std::string(nDepth, ')') + " => (do-nothing))";
}

}  // namespace

TEST_F(GrammarErrorTest, EveryErrorPointNamesItsTokens)
{
    for (auto const &[strScript, strExpected] : kErrorPoints)
        EXPECT_EQ(ErrorOf(strScript), SyntaxError(1, strExpected)) << strScript;
}

TEST_F(GrammarErrorTest, ErrorsAreReportedOnTheLineOfTheRejectedToken)
{
    for (auto const &[strScript, strExpected] : kLines)
        EXPECT_EQ(ErrorOf(strScript), strExpected) << strScript;
    // Files are read 8,192 bytes at a time: put CR LF on and near the first
    // two chunk boundaries.
    for (size_t nAt : {8190u, 8191u, 8192u, 16383u, 16384u}) {
        std::string strScript = "(load \"a\")" + std::string(nAt - 10, ' ') + "\r\n x";
        ASSERT_EQ(strScript[nAt], '\r');
        EXPECT_EQ(ErrorOf(strScript), SyntaxError(2, kTopLevel)) << "carriage return at " << nAt;
    }
}

TEST_F(GrammarErrorTest, TheParserStackGrowsToItsLimit)
{
    // Deep below the limit: every level survives the moves of the stacks.
    AI_CCommandList *pCommands = ParseText(NestedNots(3000) + "\n(defconst after 7)");
    ASSERT_EQ(CommandsOf(pCommands).size(), 2u);
    AI_CCE const *pCE = FirstCondition(pCommands);
    int nLevels = 0;
    for (; auto const *pNot = dynamic_cast<AI_COpCE const *>(pCE); pCE = pNot->GetCE1())
        ++nLevels;
    EXPECT_EQ(nLevels, 3000);
    EXPECT_EQ(static_cast<AI_CTestCE const *>(pCE)->GetSID(), 300u);

    EXPECT_EQ(ErrorOf(NestedNots(5000)), SyntaxError(1, "parser stack overflow"));
    EXPECT_TRUE(m_pStrategy->GetCommandLists().IsEmpty());
    // The next parse starts with fresh stacks.
    EXPECT_EQ(CommandsOf(ParseText("(defrule (and (true) (not (false))) => (do-nothing))")).size(), 1u);
}
