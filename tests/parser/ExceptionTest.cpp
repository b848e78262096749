// The message of a parse exception, and how it goes into a caller's buffer.
#include <cstring>

#include "ParserTestSupport.h"

TEST(ParseExceptionTest, EveryCauseHasItsMessage)
{
    char const *const kExpected[] = {
        "f.txt(4): Invalid character(s) encountered: 'p'.",
        "f.txt(4): Parse error, Bison says: p.",
        "f.txt(4): Can't convert 'p' to an integer number.",
        "f.txt(4): Fact function name expected, found: 'p'.",
        "f.txt(4): Action function name expected, found: 'p'.",
        "f.txt(4): Expression expected, found: 'p'.",
        "f.txt(4): Define expected, found: 'p'.",
        "f.txt(4): Unknown symbol: 'p'.",
        "f.txt(4): Wrong number of parameters for 'p'.",
        "f.txt(4): Wrong parameter: 'p'.",
        "f.txt(4): Invalid probability: p.",
        "f.txt(4): Invalid probability sum: p.",
        "f.txt(4): Duplicate symbol: 'p'.",
        "f.txt(4): Non-const symbol in constant definition: 'p'.",
        "Unknown parse error",
        "Unknown parse error",
    };
    for (int nCause = 0; nCause <= 15; ++nCause) {
        AI_CParseException exception("f.txt", 4, nCause, "p", "second");
        EXPECT_EQ(MessageOf(&exception), kExpected[nCause]) << "cause " << nCause;
    }
    // Percent signs in the texts are printed as written.
    AI_CParseException percent("100%d.txt", 1, AI_PE_UNKNOWN_SYMBOL, "%s%n", nullptr);
    EXPECT_EQ(MessageOf(&percent), "100%d.txt(1): Unknown symbol: '%s%n'.");
}

TEST(ParseExceptionTest, TheBufferCutsTheMessageAndIsZeroFilled)
{
    std::string const strMessage = "main.txt(12): Unknown symbol: 'foo'.";
    AI_CParseException exception("main.txt", 12, AI_PE_UNKNOWN_SYMBOL, "foo", "");
    char achBuffer[64];
    std::memset(achBuffer, 'X', sizeof achBuffer);
    UINT nHelp = 77;
    EXPECT_NE(exception.GetErrorMessage(achBuffer, 10, &nHelp), 0);
    EXPECT_EQ(nHelp, 0u);
    EXPECT_STREQ(achBuffer, "main.txt(");
    EXPECT_EQ(achBuffer[10], 'X');

    std::memset(achBuffer, 'X', sizeof achBuffer);
    EXPECT_NE(exception.GetErrorMessage(achBuffer, 50), 0);
    EXPECT_EQ(std::string(achBuffer), strMessage);
    size_t const nRest = 50 - strMessage.size();
    EXPECT_EQ(std::string(achBuffer + strMessage.size(), nRest), std::string(nRest, '\0'));
    EXPECT_EQ(achBuffer[50], 'X');

    char chOne = 'X';
    EXPECT_NE(exception.GetErrorMessage(&chOne, 1), 0);
    EXPECT_EQ(chOne, '\0');
    EXPECT_EQ(MessageOf(&exception), strMessage);
}

TEST(ParseExceptionTest, LongTextsAreFormattedInFullBeforeTheyAreCut)
{
    std::string strParam(5000, 'q');
    AI_CParseException exception("f", 1, AI_PE_WRONG_PARAM, strParam.c_str(), nullptr);
    EXPECT_EQ(MessageOf(&exception), "f(1): Wrong parameter: '" + strParam + "'.");
    EXPECT_TRUE(exception.GetParam2().IsEmpty());
}
