// Parsing one file: the strategy's store, the names of loaded files, file
// errors, and what a failed parse leaves behind.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "ParserTestSupport.h"

namespace {

// Opens the parser's bookkeeping to the tests.
class OpenParser : public AI_CParser
{
public:
    explicit OpenParser(AI_CStrategy *pStrategy) : AI_CParser(pStrategy) {}

    using AI_CParser::DeleteObjects;
    using AI_CParser::DeleteStrings;
    using AI_CParser::Forget;
    using AI_CParser::Remember;

    int Remembered() const { return m_lstObjects.GetCount() + m_lstStrings.GetCount(); }
};

// Records its number in a log when destroyed.
class Probe : public AI_CObject
{
public:
    Probe(std::vector<int> *pLog, int nId) : m_pLog(pLog), m_nId(nId) {}
    ~Probe() override { m_pLog->push_back(m_nId); }

private:
    std::vector<int> *m_pLog;
    int m_nId;
};

class DriverTest : public FrontEndTest
{
};

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
    WriteFile("main.txt", "(load \"a\")");
    AI_CCommandList *pSecond = ParseFile("./main.txt");
    EXPECT_NE(pSecond, pFirst);
    EXPECT_EQ(LoadedNames(pSecond), std::vector<std::string>{"./a.txt"});
    EXPECT_EQ(m_pStrategy->GetCommandLists().GetCount(), 2);
}

TEST_F(DriverTest, LoadedFilesTakeTheDirectoryAndExtensionOfTheLoadingFile)
{
    ASSERT_EQ(mkdir("sub", 0755), 0);
    ASSERT_EQ(mkdir("sub.d", 0755), 0);
    struct Naming
    {
        char const *pszFile;
        char const *pszWritten;
        char const *pszLoaded;
    } const kNamings[] = {
        {"main.txt", "common", "common.txt"},
        {"sub/main.txt", "common", "sub/common.txt"},
        {"sub/main.txt", "common.txt", "sub/common.txt.txt"},
        {"main", "common", "common"},
        {"D:\\scripts\\main.txt", "common", "D:\\scripts\\common.txt"},
        {"x:main.per", "common", "x:common.per"},
        {"sub.d/main", "common", "sub.d/common"},
        {"sub.d/main.a.b", "common", "sub.d/common.b"},
        {".hidden", "common", "common.hidden"},
        {"sub/../main.ai", "../up", "sub/../../up.ai"},
    };
    for (Naming const &naming : kNamings)
        EXPECT_EQ(LoadedNames(ParseText(std::string("(load \"") + naming.pszWritten + "\")", naming.pszFile)),
                  std::vector<std::string>{naming.pszLoaded})
            << naming.pszFile;

    // Random loads name their options and their default the same way.
    AI_CCommandList *pCommands = ParseText("(load-random 30 \"a\" \"b\")", "sub/main.per");
    auto const *pRandom = static_cast<AI_CLoadRandomCommand const *>(Commands(pCommands).at(0));
    EXPECT_STREQ(*pRandom->GetOptions()->GetLoadOptions().GetHead()->GetFilename(), "sub/a.per");
    EXPECT_STREQ(*pRandom->GetFilename(), "sub/b.per");
}

TEST_F(DriverTest, FilesThatCannotBeOpenedRaiseTheFileException)
{
    ASSERT_EQ(mkdir("folder.txt", 0755), 0);
    struct Unopenable
    {
        char const *pszName;
        int nCause;
    } const kUnopenable[] = {
        {"missing.txt", CFileException::fileNotFound},
        {"folder.txt", CFileException::accessDenied},
    };
    for (Unopenable const &file : kUnopenable) {
        AI_CParser parser(m_pStrategy.get());
        try {
            parser.Parse(file.pszName);
            ADD_FAILURE() << file.pszName << " opened";
        } catch (CException *pException) {
            auto *pFileException = dynamic_cast<CFileException *>(pException);
            ASSERT_NE(pFileException, nullptr) << file.pszName;
            EXPECT_EQ(pFileException->m_cause, file.nCause) << file.pszName;
            EXPECT_EQ(pFileException->m_lOsError, -1);
            EXPECT_STREQ(pFileException->m_strFileName, file.pszName);
            pException->Delete();
        }
    }
    EXPECT_TRUE(m_pStrategy->GetCommandLists().IsEmpty());
}

TEST_F(DriverTest, AFailingReadEndsTheProcess)
{
    // This file opens, but reading it fails at once.
    char const *pszUnreadable = "/proc/self/mem";
    if (access(pszUnreadable, R_OK) != 0)
        GTEST_SKIP() << pszUnreadable << " is not available";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(AI_CParser(m_pStrategy.get()).Parse(pszUnreadable), ::testing::ExitedWithCode(2),
                "input in flex scanner failed\n");
}

TEST_F(DriverTest, ParseErrorsReachTheCallerAsTheBaseClass)
{
    WriteFile("main.txt", "(load \"a\") =");
    bool bCaughtAsBase = false;
    try {
        AI_CParser(m_pStrategy.get()).Parse("main.txt");
    } catch (AI_CParseException *pException) {
        ADD_FAILURE() << "caught with its own type";
        pException->Delete();
    } catch (CException *pException) {
        bCaughtAsBase = true;
        EXPECT_TRUE(pException->IsKindOf(RUNTIME_CLASS(AI_CParseException)));
        EXPECT_EQ(MessageOf(pException), "main.txt(1): Invalid character(s) encountered: '='.");
        pException->Delete();
    }
    EXPECT_TRUE(bCaughtAsBase);
}

TEST_F(DriverTest, AFailedParseLeavesNothingBehind)
{
    // Objects and strings of every kind are pending when the last line fails.
    WriteFile("main.txt",
              "(defrule (and (true) (food-amount < 5)) => (chat-to-all \"pending\") (do-nothing))\n"
              "(load-random 30 \"a\" \"b\")\n"
              "#load-if-defined DEATH-MATCH (load \"c\") #else (load \"d\") #end-if\n"
              "(defrule (true) => (chat-to-all \"x\") (unknown-action))");
    OpenParser parser(m_pStrategy.get());
    try {
        parser.Parse("main.txt");
        ADD_FAILURE() << "accepted";
    } catch (CException *pException) {
        EXPECT_EQ(MessageOf(pException), "main.txt(4): Unknown symbol: 'unknown-action'.");
        pException->Delete();
    }
    EXPECT_EQ(parser.Remembered(), 0);
    EXPECT_TRUE(m_pStrategy->GetCommandLists().IsEmpty());
    // Once mended, the file is read again.
    WriteFile("main.txt", "(load \"mended\")");
    EXPECT_EQ(LoadedNames(parser.Parse("main.txt")), std::vector<std::string>{"mended.txt"});
    EXPECT_EQ(parser.Remembered(), 0);

    // Failures inside unfinished constructs; the sanitizer build checks that
    // every pending part is freed exactly once.
    for (char const *pszScript :
         {"(load-random 30 \"a\" 20 \"b\" 60 \"c\")", "(load-random 30 \"a\" \"b\" x", "(load \"a\" \"b\"",
          "(defrule (not (and (true) (or (false) (food-amount < 5)))) => (chat-to-all \"a\" \"b\"))",
          "(defrule (true) => (chat-to-all \"a\") (chat-to-all \"b\")",
          "#load-if-defined DEATH-MATCH (load \"a\") #load-if-defined REGICIDE (load \"b\") #else (load \"c\")",
          "(defconst c 5) (defconst d c) (defconst e \"x\")", "(defrule (food-amount \"unclosed"})
        EXPECT_EQ(ErrorOf(pszScript).compare(0, 9, "main.txt("), 0) << pszScript;
}

TEST_F(DriverTest, RememberAndForgetKeepTheOrder)
{
    std::vector<int> log;
    OpenParser parser(m_pStrategy.get());
    Probe *apProbes[] = {new Probe(&log, 1), new Probe(&log, 2), new Probe(&log, 3)};
    for (Probe *pProbe : apProbes)
        EXPECT_EQ(parser.Remember(pProbe), pProbe);
    EXPECT_EQ(parser.Forget(apProbes[1]), apProbes[1]);
    parser.DeleteObjects();
    EXPECT_EQ(log, (std::vector<int>{1, 3}));
    delete apProbes[1];

    CString *pKept = new CString("kept");
    parser.Remember(pKept);
    parser.Remember(new CString("dropped"));
    parser.Forget(pKept);
    parser.DeleteStrings();
    EXPECT_EQ(parser.Remembered(), 0);
    EXPECT_STREQ(*pKept, "kept");
    delete pKept;
}
