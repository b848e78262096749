// The lexical structure as the parser sees it: tokens, symbols, integers,
// strings, invalid characters, and the state between parses. Loaded names
// are read from a file "main", without extension, so they stay as written.
#include "ParserTestSupport.h"

using ScannerTest = FrontEndTest;

TEST_F(ScannerTest, RelationalOperatorsAsWordsAndSymbols)
{
    // clang-format off
    std::pair<char const *, std::vector<unsigned int>> const kRuns[] = {
        {"< less-than <=", {2300, 2300, 2301}}, {"less-or-equal > greater-than", {2301, 2302, 2302}},
        {">= greater-or-equal ==", {2303, 2303, 2304}}, {"equal != not-equal", {2304, 2305, 2305}},
        {"<=><", {2301, 2302, 2300}}, {"<<<", {2300, 2300, 2300}}, {">=>=!=", {2303, 2303, 2305}},
        {"!=<>", {2305, 2300, 2302}}};
    // clang-format on
    for (auto const &[pszText, anSIDs] : kRuns) {
        std::vector<unsigned int> sids;
        for (AI_CExpression const *pArgument :
             Arguments(FirstCondition(ParseText(std::string("(defrule (three-ops ") + pszText + ")=>(do-nothing))"))))
            sids.push_back(pArgument->GetContents().nSID);
        EXPECT_EQ(sids, anSIDs) << pszText;
    }
}

TEST_F(ScannerTest, IntegersAndTheirRange)
{
    // clang-format off
    std::pair<char const *, int> const kAccepted[] = {
        {"0", 0}, {"-0", 0}, {"007", 7}, {"+5", 5}, {"2147483646", 2147483646}, {"-2147483647", -2147483647},
        {"-000000000000000012", -12}};
    // clang-format on
    for (auto const &[pszLiteral, nValue] : kAccepted) {
        ParseText(std::string("(defconst c ") + pszLiteral + ")");
        EXPECT_EQ(AI_Constant(AI_Symbol("c"), 0), nValue) << pszLiteral;
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
    EXPECT_EQ(LoadsOf("(load \"" + strText + "\")\n(load \"next\")", "main"),
              (Names {strText.substr(0, 4095), "next"}));
}

TEST_F(ScannerTest, InvalidCharactersNameTheFirstOffendingByte)
{
    std::pair<std::string, std::string> const kInvalid[] = {
        {"=", "="},       {"!!", "!"},
        {"+", "+"},       {"+a", "+"},
        {".", "."},       {"/", "/"},
        {",", ","},       {"'", "'"},
        {"[", "["},       {"\r", "\r"},
        {"\f", "\f"},     {"\x01", "\x01"},
        {"\xE9", "\xE9"}, {std::string(1, '\0'), ""},
        {"%s", "%"},
    };
    for (auto const &[strText, strReported] : kInvalid)
        EXPECT_EQ(ErrorOf("(load \"a\")\n" + strText + "(load \"b\")"), InvalidCharacter(2, strReported));
}

TEST_F(ScannerTest, StringEscapes)
{
    // clang-format off
    std::pair<char const *, char const *> const kEscapes[] = {
        {"\\a\\b\\f\\n\\r\\t\\v", "\a\b\f\n\r\t\v"}, {"\\q\\5\\;", "q5;"}, {"\\\\", "\\"}, {"a\\\" b", "a\" b"},
        {"a;b#c(d) e", "a;b#c(d) e"}, {"", ""}, {"x\\\ny", "xy"}, {"\xE9t\\\xE9", "\xE9t\xE9"}, {"a\rb", "a\rb"},
        {"x\\\r\ny", "xy"}};
    // clang-format on
    for (auto const &[pszWritten, pszText] : kEscapes)
        EXPECT_EQ(LoadsOf(std::string("(load \"") + pszWritten + "\")", "main"), Names {pszText}) << pszWritten;
}

TEST_F(ScannerTest, EveryParseStartsInTheInitialState)
{
    // Ended inside a string: at the end of input, by a raw line feed, and by
    // an error with text still buffered.
    ParseText("(load \"a\") \"unfinished (load", "first.txt");
    EXPECT_EQ(LoadsOf("(load \"b\")", "main"), Names {"b"});
    EXPECT_EQ(ErrorOf("(load \"a\nb\")", "second.txt"), "second.txt(2): Invalid character(s) encountered: '\n'.");
    EXPECT_EQ(LoadsOf("(load \"c\")", "main"), Names {"c"});
    EXPECT_EQ(ErrorOf("(load \"a\") = (load \"rest\") (load \"more\")"), InvalidCharacter(1, "="));
    EXPECT_EQ(LoadsOf("(load \"d\")", "main"), Names {"d"});
}
