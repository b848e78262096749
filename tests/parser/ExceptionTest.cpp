// The message of a parse exception beyond what the parse tests reach: the
// causes no parse raises, percent signs, and long parameters.
#include <cstring>

#include "ParserTestSupport.h"

TEST(ParseExceptionTest, MessagesOfOddCausesAndParameters)
{
    for (int nCause : {14, 15, -1}) {
        AI_CParseException exception("f.txt", 4, nCause, "p", "second");
        EXPECT_EQ(MessageOf(&exception), "Unknown parse error") << "cause " << nCause;
    }
    // Percent signs are printed as written; long texts are formatted in full.
    AI_CParseException percent("100%d.txt", 1, AI_PE_UNKNOWN_SYMBOL, "%s%n", nullptr);
    EXPECT_EQ(MessageOf(&percent), "100%d.txt(1): Unknown symbol: '%s%n'.");
    std::string const strParam(5000, 'q');
    AI_CParseException longParam("f", 1, AI_PE_WRONG_PARAM, strParam.c_str(), nullptr);
    EXPECT_EQ(MessageOf(&longParam), "f(1): Wrong parameter: '" + strParam + "'.");
    EXPECT_TRUE(longParam.GetParam2().IsEmpty());
}
