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
    // Percent signs are printed as written; long texts are formatted in full.
    AI_CParseException percent("100%d.txt", 1, AI_PE_UNKNOWN_SYMBOL, "%s%n", nullptr);
    EXPECT_EQ(MessageOf(&percent), "100%d.txt(1): Unknown symbol: '%s%n'.");
    std::string const strParam(5000, 'q');
    AI_CParseException longParam("f", 1, AI_PE_WRONG_PARAM, strParam.c_str(), nullptr);
    EXPECT_EQ(MessageOf(&longParam), "f(1): Wrong parameter: '" + strParam + "'.");
    EXPECT_TRUE(longParam.GetParam2().IsEmpty());
}
