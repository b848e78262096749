// The lexical structure as the parser sees it: tokens, symbols, integers,
// strings, comments, invalid characters, lines, and how files are read.
#include "ParserTestSupport.h"

namespace {

class ScannerTest : public FrontEndTest
{
protected:
    // The name loaded by a script written to "main" (no directory and no
    // extension, so a loaded name stays as written).
    std::string LoadedName(std::string const &strScript)
    {
        std::vector<std::string> names = LoadedNames(ParseText(strScript, "main"));
        return names.size() == 1 ? names[0] : "<" + std::to_string(names.size()) + " loads>";
    }
};

std::string InvalidCharacter(int nLine, std::string const &strText)
{
    return "main.txt(" + std::to_string(nLine) + "): Invalid character(s) encountered: '" + strText + "'.";
}

std::string const kTopLevel = "parse error, expecting `$' or `'('' or `'#''";

}  // namespace

TEST_F(ScannerTest, RelationalOperatorsAsWordsAndSymbols)
{
    struct Run
    {
        char const *pszText;
        unsigned int anSIDs[3];
    } const kRuns[] = {
        {"< less-than <=", {2300, 2300, 2301}},     {"less-or-equal > greater-than", {2301, 2302, 2302}},
        {">= greater-or-equal ==", {2303, 2303, 2304}}, {"equal != not-equal", {2304, 2305, 2305}},
        {"<=><", {2301, 2302, 2300}},               {"<<<", {2300, 2300, 2300}},
        {">=>=!=", {2303, 2303, 2305}},             {"!=<>", {2305, 2300, 2302}},
    };
    for (Run const &run : kRuns) {
        std::vector<AI_CExpression const *> arguments =
            FirstTestArguments(ParseText(std::string("(defrule (three-ops ") + run.pszText + ")=>(do-nothing))"));
        ASSERT_EQ(arguments.size(), 3u) << run.pszText;
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(arguments[i]->GetContents().nSID, run.anSIDs[i]) << run.pszText << " #" << i;
    }
    // "=>x" is the arrow and then a symbol.
    EXPECT_EQ(ErrorOf("(defrule (true) =>x)"), SyntaxError(1, "parse error, expecting `'(''"));
}

TEST_F(ScannerTest, IntegersAndTheirRange)
{
    struct Literal
    {
        char const *pszText;
        int nValue;
    } const kAccepted[] = {
        {"0", 0},          {"-0", 0},    {"007", 7},   {"+5", 5},
        {"2147483646", 2147483646},      {"-2147483647", -2147483647}, {"-000000000000000012", -12},
    };
    for (Literal const &literal : kAccepted) {
        ParseText(std::string("(defconst c ") + literal.pszText + ")");
        EXPECT_EQ(AI_Constant(AI_Symbol("c"), 0), literal.nValue) << literal.pszText;
        AI_DeleteConstants();
    }
    // The two extreme values are what an overflow gives, so they are out too.
    for (char const *pszText : {"2147483647", "-2147483648", "99999999999", "-99999999999", "+9999999999999999999999"})
        EXPECT_EQ(ErrorOf(std::string("(defconst\n\nbig ") + pszText + ")"),
                  std::string("main.txt(3): Can't convert '") + pszText + "' to an integer number.");
}

TEST_F(ScannerTest, SymbolsAreMaximalRunsOfSymbolCharacters)
{
    for (char const *pszSymbol : {"5-", "2nd", "-", "--", "0x1F", "-x", "5a", "-5a", "orx", "defrule2", "Defrule",
                                  "load-randomly", "defrules", "a_b", "end-iff", "LESS-THAN"})
        EXPECT_EQ(ErrorOf(std::string("(defconst c ") + pszSymbol + ")"),
                  std::string("main.txt(1): Unknown symbol: '") + pszSymbol + "'.");
    // Reserved words stay reserved, and "+5a" is an integer and a symbol.
    EXPECT_EQ(ErrorOf("(defconst else 5)"), SyntaxError(1, "parse error, expecting `TOK_SYMBOL'"));
    EXPECT_EQ(ErrorOf("(defconst c load)"), SyntaxError(1, "parse error, expecting `TOK_SYMBOL' or `TOK_INTEGER'"));
    EXPECT_EQ(ErrorOf("(defconst c +5a)"), SyntaxError(1, "parse error, expecting `')''"));
}

TEST_F(ScannerTest, LongSymbolsAndStringsAreCut)
{
    std::string strSymbol(1500, 's');
    EXPECT_EQ(ErrorOf("(defconst c " + strSymbol + ")"),
              "main.txt(1): Unknown symbol: '" + strSymbol.substr(0, 1023) + "'.");
    std::string strText;
    for (int i = 0; i < 5000; ++i)
        strText += static_cast<char>('a' + i % 26);
    // The scan goes on to the closing quote.
    EXPECT_EQ(LoadedNames(ParseText("(load \"" + strText + "\")\n(load \"next\")", "main")),
              (std::vector<std::string>{strText.substr(0, 4095), "next"}));
}

TEST_F(ScannerTest, TwoSymbolsInARowKeepTheirTexts)
{
    ParseText("(defconst first-constant 3)\n(defconst second-constant first-constant)");
    EXPECT_EQ(AI_Constant(AI_Symbol("second-constant"), 0), 3);
}

TEST_F(ScannerTest, DirectiveWordsMayStandApartFromTheirHash)
{
    AI_CParser::EnableExpandBlocks(0);
    for (char const *pszForm : {"# load-if-defined DEATH-MATCH (load \"a\") #\tend-if",
                                "#\nload-if-defined\nDEATH-MATCH\n(load \"a\")\n#\n\nend-if",
                                "#;comment\nload-if-defined DEATH-MATCH (load \"a\") #end-if"}) {
        std::vector<AI_CCommand const *> commands = Commands(ParseText(pszForm));
        ASSERT_EQ(commands.size(), 1u) << pszForm;
        EXPECT_EQ(commands[0]->GetRuntimeClass(), RUNTIME_CLASS(AI_CBlock)) << pszForm;
    }
}

TEST_F(ScannerTest, InvalidCharactersNameTheFirstOffendingByte)
{
    struct Invalid
    {
        std::string strText;
        std::string strReported;
    } const kInvalid[] = {
        {"=", "="},   {"!!", "!"},  {"+", "+"},   {"+a", "+"},  {".", "."},   {"/", "/"},
        {",", ","},   {"'", "'"},   {"[", "["},   {"\r", "\r"}, {"\f", "\f"}, {"\x01", "\x01"},
        {"\xE9", "\xE9"},           {std::string(1, '\0'), ""}, {"%s", "%"},
    };
    for (Invalid const &invalid : kInvalid)
        EXPECT_EQ(ErrorOf("(load \"a\")\n" + invalid.strText + "(load \"b\")"),
                  InvalidCharacter(2, invalid.strReported));
}

TEST_F(ScannerTest, StringEscapes)
{
    struct Escape
    {
        char const *pszWritten;
        char const *pszText;
    } const kEscapes[] = {
        {"\\a\\b\\f\\n\\r\\t\\v", "\a\b\f\n\r\t\v"}, {"\\q\\5\\;", "q5;"}, {"\\\\", "\\"},
        {"a\\\" b", "a\" b"},  {"a;b#c(d) e", "a;b#c(d) e"},   {"", ""},   {"x\\\ny", "xy"},
        {"\xE9t\\\xE9", "\xE9t\xE9"},   {"a\rb", "a\rb"},  {"x\\\r\ny", "xy"},
    };
    for (Escape const &escape : kEscapes)
        EXPECT_EQ(LoadedName(std::string("(load \"") + escape.pszWritten + "\")"), escape.pszText) << escape.pszWritten;
}

TEST_F(ScannerTest, CommentsRunToTheEndOfTheLine)
{
    std::string strScript = "(load \"a\") ; \"(# ) unfinished \xE9";
    strScript += '\0';
    strScript += "\n(load \"b\") ;; last line, no line feed";
    EXPECT_EQ(Commands(ParseText(strScript)).size(), 2u);
    EXPECT_EQ(ErrorOf("(load \"a\") ; comment\n\n x"), SyntaxError(3, kTopLevel));
}

TEST_F(ScannerTest, LinesInsideStrings)
{
    // A raw line feed is counted, then reported.
    EXPECT_EQ(ErrorOf("(load \"a\")\n\n(load \"broken\n\")"), InvalidCharacter(4, "\n"));
    // A backslash at the end of a line continues the string and counts.
    EXPECT_EQ(ErrorOf("(load \"a\\\nb\\\nc\")\n x"), SyntaxError(4, kTopLevel));
}

TEST_F(ScannerTest, EndOfInputInsideAStringDropsTheString)
{
    EXPECT_EQ(LoadedName("(load \"a\") \"unfinished"), "a");
    EXPECT_EQ(LoadedName("(load \"a\") \"unfinished\\"), "a");
    EXPECT_EQ(ErrorOf("(load \"a\")\n(load \"unfinished\\\n"), SyntaxError(3, "parse error, expecting `TOK_STRING'"));
}

TEST_F(ScannerTest, TextModeLineEndsAndEndOfFile)
{
    EXPECT_EQ(ErrorOf("(load \"a\")\r\n(load \"b\")\r\n\r\nx"), SyntaxError(4, kTopLevel));
    EXPECT_EQ(ErrorOf("(load \"a\")\r\r\n"), InvalidCharacter(1, "\r"));
    // 0x1A ends the input, also inside a string and far into the file.
    EXPECT_EQ(Commands(ParseText("(load \"a\")\x1A(garbage !")).size(), 1u);
    EXPECT_EQ(ErrorOf("(load \"a\")\n(load \"b\x1A\")"), SyntaxError(2, "parse error, expecting `TOK_STRING'"));
    EXPECT_EQ(Commands(ParseText("(load \"a\")" + std::string(20000, ' ') + "\x1A)))")).size(), 1u);
}

TEST_F(ScannerTest, CarriageReturnLineFeedAcrossReads)
{
    // Files are read 8,192 bytes at a time: put the pair on and near the
    // first two chunk boundaries.
    for (size_t nAt : {8190u, 8191u, 8192u, 16383u, 16384u}) {
        std::string strScript = "(load \"a\")" + std::string(nAt - 10, ' ') + "\r\n x";
        ASSERT_EQ(strScript[nAt], '\r');
        EXPECT_EQ(ErrorOf(strScript), SyntaxError(2, kTopLevel)) << "carriage return at " << nAt;
    }
    EXPECT_EQ(ErrorOf("(load \"a\")" + std::string(8181, ' ') + "\r x"), InvalidCharacter(1, "\r"));
}

TEST_F(ScannerTest, EveryParseStartsInTheInitialState)
{
    // Ended inside a string: at the end of input, by a raw line feed, and by
    // an error with text still buffered.
    ParseText("(load \"a\") \"unfinished (load", "first.txt");
    EXPECT_EQ(LoadedName("(load \"b\")"), "b");
    EXPECT_EQ(ErrorOf("(load \"a\nb\")", "second.txt"), "second.txt(2): Invalid character(s) encountered: '\n'.");
    EXPECT_EQ(LoadedName("(load \"c\")"), "c");
    EXPECT_EQ(ErrorOf("(load \"a\") = (load \"rest\") (load \"more\")"), InvalidCharacter(1, "="));
    EXPECT_EQ(LoadedName("(load \"d\")"), "d");
}
