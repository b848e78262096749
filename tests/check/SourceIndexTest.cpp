// Where the objects of a parsed strategy lie: every kind of object, in the
// main file and in a loaded file, LF and CR LF alike.
#include <set>

#include "CheckTestSupport.h"
#include "stratagem.h"

namespace {

std::string const kMain = "(defconst size 5)\n"
                          "(load \"lib\")\n"
                          "(load-random 30 \"a\" \"b\")\n"
                          "#load-if-defined GIANT-MAP\n"
                          "(defrule (food-amount > size) => (do-nothing))\n"
                          "#end-if\n";
std::string const kLib = "(defrule (true)\n  => (chat-to-all \"hi\"))";

// The text a range covers in LF text, found without the library's help.
std::string TextAt(std::string const &text, stratagem::Range const &r)
{
    auto offset = [&](int nLine, int nColumn) {
        std::size_t nStart = 0;
        for (int n = 1; n < nLine; ++n)
            nStart = text.find('\n', nStart) + 1;
        return nStart + nColumn - 1;
    };
    std::size_t nBegin = offset(r.line, r.column);
    return text.substr(nBegin, offset(r.endLine, r.endColumn) + 1 - nBegin);
}

std::string ReplaceLineFeeds(std::string text)
{
    for (std::size_t n = text.find('\n'); n != std::string::npos; n = text.find('\n', n + 2))
        text.replace(n, 1, "\r\n");
    return text;
}

class SourceIndexTest : public CheckTest
{
protected:
    void SetUp() override
    {
        CheckTest::SetUp();
        AI_CParser::EnableExpandBlocks(0);  // keeps the block as an object
    }
    void TearDown() override
    {
        AI_CParser::EnableExpandBlocks(1);
        CheckTest::TearDown();
    }

    // "Class file range" of every object reached from the main file.
    std::set<std::string> Locate(AI_CStrategy const &strategy, stratagem::SourceIndex const &index)
    {
        std::set<std::string> found;
        std::set<AI_CObject const *> seen;
        std::vector<AI_CObject const *> pending {strategy.CommandList((m_directory + "main.per").c_str())};
        while (!pending.empty()) {
            AI_CObject const *pObject = pending.back();
            pending.pop_back();
            if (!pObject || !seen.insert(pObject).second)
                continue;
            stratagem::SourceLocation location = index.RangeOf(pObject);
            found.insert(std::string(pObject->GetRuntimeClass()->m_lpszClassName) + " "
                         + std::filesystem::path(location.file).filename().string() + " " + At(location.range));
            for (AI_CObject *pChild : Children(*pObject))
                pending.push_back(pChild);
        }
        return found;
    }

    ScratchDir const m_dir;
    std::string const m_directory = m_dir.Path();
};

TEST_F(SourceIndexTest, EveryKindOfObjectHasItsFileAndRange)
{
    // Rows: the class, the file, the range, the text it covers ("" for not checked).
    std::tuple<char const *, char const *, char const *, char const *> const rows[] = {
        {"AI_CDefconstCommand", "main.per", "1:1-1:17", "(defconst size 5)"},
        {"AI_CLoadCommand", "main.per", "2:1-2:12", "(load \"lib\")"},
        {"AI_CLoadOption", "main.per", "3:14-3:19", "30 \"a\""},
        {"AI_CBlock", "main.per", "4:1-6:7", ""},
        {"AI_CDefruleCommand", "main.per", "5:1-5:46", "(defrule (food-amount > size) => (do-nothing))"},
        {"AI_CTestCE", "main.per", "5:10-5:29", "(food-amount > size)"},
        {"AI_CExpression", "main.per", "5:25-5:28", "size"},
        {"AI_CAction", "main.per", "5:34-5:45", "(do-nothing)"},
        {"AI_CCommandList", "lib.per", "1:1-2:24", ""},
        {"AI_CTestCE", "lib.per", "1:10-1:15", "(true)"},
        {"AI_CActionList", "lib.per", "2:6-2:23", "(chat-to-all \"hi\")"},
        {"AI_CExprList", "lib.per", "2:19-2:22", "\"hi\""},
    };
    for (bool bCarriageReturns : {false, true}) {
        auto write = [&](char const *pszName, std::string const &text) {
            m_dir.Write(pszName, bCarriageReturns ? ReplaceLineFeeds(text) : text);
        };
        write("main.per", kMain);
        write("lib.per", kLib);
        write("a.per", "(defrule (true) => (do-nothing))");
        write("b.per", "(defrule (true) => (do-nothing))");
        AI_CStrategy strategy("ranges", (m_directory + "main.per").c_str(), DefaultSettings());
        strategy.Analyze();
        stratagem::SourceIndex const index(strategy);
        std::set<std::string> const found = Locate(strategy, index);
        for (auto const &[pszClass, pszFile, pszRange, pszText] : rows) {
            std::string const strWhere = std::string(pszFile) + " " + pszRange;
            EXPECT_EQ(1u, found.count(std::string(pszClass) + " " + strWhere)) << strWhere << bCarriageReturns;
            stratagem::Range range;
            std::sscanf(pszRange, "%d:%d-%d:%d", &range.line, &range.column, &range.endLine, &range.endColumn);
            if (*pszText) {
                EXPECT_EQ(pszText, TextAt(pszFile == std::string("main.per") ? kMain : kLib, range));
            }
        }
        // Every object of a file was read from it; none is left unplaced.
        for (std::string const &entry : found)
            EXPECT_EQ(std::string::npos, entry.find(" 0:0-0:0")) << entry;
        EXPECT_EQ("2:3-2:4", At(index.RangeOf(m_directory + "lib.per", {18, 20})));
    }
}

TEST_F(SourceIndexTest, ObjectsOfNoScriptAreNowhere)
{
    AI_CStrategy strategy("ranges", "missing.per", DefaultSettings());
    stratagem::SourceIndex const index(strategy);
    AI_CObject handMade;
    handMade.SetBegin(0);  // a place without a file
    for (AI_CObject const *pObject : std::vector<AI_CObject const *> {&handMade, nullptr}) {
        stratagem::SourceLocation location = index.RangeOf(pObject);
        EXPECT_EQ("", location.file);
        EXPECT_EQ("0:0-0:0", At(location.range));
    }
    EXPECT_FALSE(AI_CObject().HasBegin());
    EXPECT_EQ("0:0-0:0", At(index.RangeOf("missing.per", {0, 4})));
}

// A check reads CR LF text as the LF text it stands for.
TEST_F(SourceIndexTest, CheckOutlineOfCarriageReturnTextMatchesLineFeedText)
{
    auto outline = [&](std::string const &main) {
        std::vector<std::string> ranges;
        stratagem::CheckReport const report = Run(main, {{"lib.per", kLib}, {"a.per", kLib}, {"b.per", kLib}});
        for (stratagem::OutlineItem const &item : report.files.at(0).outline)
            ranges.push_back(At(item.range) + " " + At(item.selectionRange));
        return ranges;
    };
    std::vector<std::string> const lineFeeds = outline(kMain);
    EXPECT_EQ(4u, lineFeeds.size());
    EXPECT_EQ(lineFeeds, outline(ReplaceLineFeeds(kMain)));
}

}  // namespace
