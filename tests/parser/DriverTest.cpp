// Parsing one file: the strategy's store, the names of loaded files, file
// errors, and what a failed parse leaves behind.
#include <sys/stat.h>

#include <cstdio>

#include "ParserTestSupport.h"

namespace {

// Opens the parser's bookkeeping to the tests.
class OpenParser : public AI_CParser
{
public:
    explicit OpenParser(AI_CStrategy *pStrategy) : AI_CParser(pStrategy) {}

    int Remembered() const { return m_lstObjects.GetCount() + m_lstStrings.GetCount(); }
};

using DriverTest = FrontEndTest;

}  // namespace

TEST_F(DriverTest, EachNameIsParsedOnce)
{
    AI_CCommandList *pFirst = ParseText("(load \"a\")\n(defconst c 3)");
    ASSERT_NE(pFirst, nullptr);
    EXPECT_EQ(m_pStrategy->CommandList("main.txt"), pFirst);
    // The file is not opened again: it may even be gone.
    ASSERT_EQ(std::remove("main.txt"), 0);
    EXPECT_EQ(ParseFile("main.txt"), pFirst);
    // The same file under another name is another entry.
    m_dir.Write("main.txt", "(load \"a\")");
    AI_CCommandList *pSecond = ParseFile("./main.txt");
    EXPECT_NE(pSecond, pFirst);
    EXPECT_EQ(LoadedNames(pSecond), Names {"./a.txt"});
    EXPECT_EQ(m_pStrategy->GetCommandLists().GetCount(), 2);
}

TEST_F(DriverTest, AFailedParseLeavesNothingBehind)
{
    // Objects and strings of every kind are pending when the last line fails.
    m_dir.Write("main.txt",
                "(defrule (and (true) (food-amount < 5)) => (chat-to-all \"pending\") (do-nothing))\n"
                "(load-random 30 \"a\" \"b\")\n"
                "#load-if-defined DEATH-MATCH (load \"c\") #else (load \"d\") #end-if\n"
                "(defrule (true) => (chat-to-all \"x\") (unknown-action))");
    OpenParser parser(m_pStrategy.get());
    std::string strMessage = "accepted";
    try {
        parser.Parse("main.txt");
    } catch (AI_CParseException *pException) {
        strMessage = "caught with its own type";  // it reaches the caller as the base class
        pException->Delete();
    } catch (CException *pException) {
        strMessage = MessageOf(pException);
        pException->Delete();
    }
    EXPECT_EQ(strMessage, "main.txt(4): Unknown symbol: 'unknown-action'.");
    EXPECT_EQ(parser.Remembered(), 0);
    EXPECT_TRUE(m_pStrategy->GetCommandLists().IsEmpty());
    // Once mended, the file is read again.
    m_dir.Write("main.txt", "(load \"mended\")");
    EXPECT_EQ(LoadedNames(parser.Parse("main.txt")), Names {"mended.txt"});
    EXPECT_EQ(parser.Remembered(), 0);

    // Failures inside unfinished constructs; the sanitizer build checks that
    // every pending part is freed exactly once.
    for (char const *pszScript :
         {"(load-random 30 \"a\" 20 \"b\" 60 \"c\")",
          "(defrule (not (and (true) (or (false) (food-amount < 5)))) => (chat-to-all \"a\" \"b\"))",
          "#load-if-defined DEATH-MATCH (load \"a\") #load-if-defined REGICIDE (load \"b\") #else (load \"c\")",
          "(defconst c 5) (defconst d c) (defconst e \"x\")", "(defrule (food-amount \"unclosed"})
        EXPECT_EQ(ErrorOf(pszScript).compare(0, 9, "main.txt("), 0) << pszScript;
}
