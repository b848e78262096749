// Syntax errors: the tokens each place of the grammar names, the lines they
// are reported at, and what the grammar accepts.
#include "ParserTestSupport.h"

namespace {

struct ErrorPoint
{
    char const *pszWhere;
    char const *pszScript;
    char const *pszBison;
};

std::string const kCommandStart = "parse error, expecting `'('' or `'#''";
std::string const kTopLevel = "parse error, expecting `$' or `'('' or `'#''";
std::string const kCommandWord =
    "parse error, expecting `TOK_RW_DEFRULE' or `TOK_RW_DEFCONST' or `TOK_RW_LOAD' or `TOK_RW_LOAD_RANDOM'";
std::string const kDirective = "parse error, expecting `TOK_D_LOAD_IF_DEFINED' or `TOK_D_LOAD_IF_NOT_DEFINED'";
std::string const kEndIf = "parse error, expecting `TOK_D_END_IF'";
std::string const kSymbol = "parse error, expecting `TOK_SYMBOL'";
std::string const kString = "parse error, expecting `TOK_STRING'";
std::string const kOpen = "parse error, expecting `'(''";
std::string const kClose = "parse error, expecting `')''";
std::string const kAlone = "parse error";

// One row per place where an unacceptable token can stand.
ErrorPoint const kErrorPoints[] = {
    {"start of the script", "x", kCommandStart.c_str()},
    {"start of a block's first branch", "#load-if-defined DEATH-MATCH x", kCommandStart.c_str()},
    {"start of an else branch", "#load-if-defined DEATH-MATCH (load \"a\") # else )", kCommandStart.c_str()},
    {"after top-level commands", "(load \"a\") (load \"b\") x", kTopLevel.c_str()},
    {"one parenthesis too many", "(load \"a\"))", kTopLevel.c_str()},
    {"after commands in a first branch", "#load-if-defined DEATH-MATCH (load \"a\") x", kCommandStart.c_str()},
    {"after commands in an else branch", "#load-if-not-defined DEATH-MATCH (load \"a\") #else (load \"b\") =>",
     kCommandStart.c_str()},
    {"after a command-level parenthesis", "(x", kCommandWord.c_str()},
    {"after a parenthesis before a directive word", "(load-if-defined", kCommandWord.c_str()},
    {"after a top-level hash", "#x", kDirective.c_str()},
    {"end-if at top level", "#end-if", kDirective.c_str()},
    {"empty first branch", "#load-if-defined DEATH-MATCH #end-if", kDirective.c_str()},
    {"empty else branch", "#load-if-defined DEATH-MATCH (load \"a\") #else #end-if", kDirective.c_str()},
    {"hash first in an else branch", "#load-if-defined DEATH-MATCH (load \"a\") #else #x", kDirective.c_str()},
    {"after the hash that ends a branch", "#load-if-defined DEATH-MATCH (load \"a\") #foo #end-if", kEndIf.c_str()},
    {"after the hash that ends an else branch", "#load-if-defined DEATH-MATCH (load \"a\") #else (load \"b\") #(",
     kEndIf.c_str()},
    {"else twice", "#load-if-defined DEATH-MATCH (load \"a\") #else (load \"b\") #else", kEndIf.c_str()},
    {"after a directive word", "#load-if-defined (load \"a\")", kSymbol.c_str()},
    {"after a directive word written alone", "#load-if-not-defined 5", kSymbol.c_str()},
    {"after (defrule", "(defrule x", kOpen.c_str()},
    {"arrow right after (defrule", "(defrule => (do-nothing))", kOpen.c_str()},
    {"after the parenthesis of a condition", "(defrule ())", kAlone.c_str()},
    {"after conditions", "(defrule (true) (false) x", "parse error, expecting `TOK_ARROW' or `'(''"},
    {"after an operator word", "(defrule (not x", kOpen.c_str()},
    {"after a two-element operator word", "(defrule (xnor =>", kOpen.c_str()},
    {"after the only element of not", "(defrule (not (true) (false)) => (do-nothing))", kClose.c_str()},
    {"one element for and", "(defrule (and (true)) => (do-nothing))", kOpen.c_str()},
    {"after the second element", "(defrule (or (true) (false) (true)) => (do-nothing))", kClose.c_str()},
    {"a condition as argument", "(defrule (true (false)) => (do-nothing))", kAlone.c_str()},
    {"a hash among arguments", "(defrule (food-amount # 5) => (do-nothing))", kAlone.c_str()},
    {"an arrow among action arguments", "(defrule (true) => (do-nothing =>", kAlone.c_str()},
    {"after the arrow", "(defrule (true) => x", kOpen.c_str()},
    {"no action", "(defrule (true) =>)", kOpen.c_str()},
    {"after the parenthesis of an action", "(defrule (true) => ((", kSymbol.c_str()},
    {"a word as action name", "(defrule (true) => (not", kSymbol.c_str()},
    {"after actions", "(defrule (true) => (do-nothing) x", "parse error, expecting `'('' or `')''"},
    {"after (defconst", "(defconst 5", kSymbol.c_str()},
    {"after the constant's name", "(defconst c )", "parse error, expecting `TOK_SYMBOL' or `TOK_INTEGER'"},
    {"a string as constant value", "(defconst c \"5\")", "parse error, expecting `TOK_SYMBOL' or `TOK_INTEGER'"},
    {"after the constant's value", "(defconst c 5 6)", kClose.c_str()},
    {"after (load", "(load x", kString.c_str()},
    {"no file to load", "(load)", kString.c_str()},
    {"after the loaded file", "(load \"a\" \"b\")", kClose.c_str()},
    {"after a probability", "(load-random 30)", kString.c_str()},
    {"a word after the options", "(load-random 30 \"a\" x)", kClose.c_str()},
    {"an option after the default", "(load-random 30 \"a\" \"b\" 20 \"c\")", kClose.c_str()},
    {"a word first in load-random", "(load-random x)", kClose.c_str()},
};

class GrammarErrorTest : public FrontEndTest
{
};

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
    for (ErrorPoint const &point : kErrorPoints)
        EXPECT_EQ(ErrorOf(point.pszScript), SyntaxError(1, point.pszBison)) << point.pszWhere;
}

// An error at the end of input stands one line after the last line feed.
TEST_F(GrammarErrorTest, ErrorsAreReportedOnTheLineOfTheRejectedToken)
{
    struct Line
    {
        char const *pszScript;
        int nLine;
        std::string const &strBison;
    } const kLines[] = {
        {"", 1, kCommandStart},
        {"  \t; only a comment", 1, kCommandStart},
        {"; one\n\n; three\n", 4, kCommandStart},
        {"(load \"a\")\n\n(load \"b\"\n\n  x)", 5, kClose},
        {"(defrule\n(true)\n=>\n)", 4, kOpen},
        {"#load-if-defined DEATH-MATCH\n(load \"a\")\n", 3, kCommandStart},
        {"#load-if-defined DEATH-MATCH\n(load \"a\")\n#", 3, kEndIf},
        {"#load-if-defined DEATH-MATCH (load \"a\") #else (load \"b\") #", 1, kEndIf},
    };
    for (Line const &line : kLines)
        EXPECT_EQ(ErrorOf(line.pszScript), SyntaxError(line.nLine, line.strBison)) << line.pszScript;
}

TEST_F(GrammarErrorTest, TheParserStackGrowsToItsLimit)
{
    // Deep below the limit: every level survives the moves of the stacks.
    int const nDepth = 3000;
    AI_CCommandList *pCommands = ParseText(NestedNots(nDepth) + "\n(defconst after 7)");
    ASSERT_EQ(Commands(pCommands).size(), 2u);
    AI_CCE const *pCE = static_cast<AI_CDefruleCommand const *>(Commands(pCommands)[0])->GetCEs()->GetCEs().GetHead();
    int nLevels = 0;
    for (; auto const *pNot = dynamic_cast<AI_COpCE const *>(pCE); pCE = pNot->GetCE1())
        ++nLevels;
    EXPECT_EQ(nLevels, nDepth);
    EXPECT_EQ(static_cast<AI_CTestCE const *>(pCE)->GetSID(), 300u);

    EXPECT_EQ(ErrorOf(NestedNots(5000)), SyntaxError(1, "parser stack overflow"));
    EXPECT_TRUE(m_pStrategy->GetCommandLists().IsEmpty());
    // The next parse starts with fresh stacks.
    EXPECT_EQ(Commands(ParseText("(defrule (and (true) (not (false))) => (do-nothing))")).size(), 1u);
}
