// Random loads through the host: --seed fixes the generator, so the choice
// follows from the seed's draws.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

namespace {

class CliRandomLoad : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (char const *szFile : {"r1.per", "r2.per", "r3.per"})
            m_dir.Write(szFile, "(defrule (true) => (chat-local-to-self \"" +
                                    std::string(szFile) + "\"))\n");
    }

    // The listing of a main file holding `command`, which lists as `lines`.
    static std::string Expected(std::vector<std::string> const &files,
                                std::vector<std::string> const &lines)
    {
        StrategyListing expected{"main.per", "main.per"};
        expected.files = files;
        expected.body = lines;
        return expected.Text();
    }

    // The listing lines of a random load that chose `file` (or nothing).
    static std::vector<std::string> RandomLines(std::vector<std::string> const &header,
                                                std::string const &strChosen)
    {
        std::vector<std::string> lines = header;
        if (strChosen.empty())
        {
            lines.insert(lines.end(), {";loaded: none", "", ""});
            return lines;
        }
        lines.insert(lines.end(),
                     {";loaded: " + strChosen, "", Start(strChosen), "",
                      "(defrule", "\t(true)", "=>",
                      "\t(chat-local-to-self \"" + strChosen + "\")", ")", "",
                      "", End(strChosen), ""});
        return lines;
    }

    RunResult RunSeed(unsigned int nSeed) const
    {
        return m_dir.Run({"--seed", std::to_string(nSeed), "main.per"});
    }

    ScriptDir m_dir;
};

std::vector<std::string> const kWithDefault = {";(load-random", ";\t30 r1.per", ";\t50 r2.per",
                                               ";\tr3.per", ";)"};
std::vector<std::string> const kWithoutDefault = {";(load-random", ";\t30 r1.per",
                                                  ";\t50 r2.per", ";)"};

} // namespace

TEST_F(CliRandomLoad, TheSeedsDrawPicksTheOptionWhoseRangeHoldsIt)
{
    m_dir.Write("main.per", "(load-random 30 \"r1\" 50 \"r2\" \"r3\")\n");
    struct Case { int nLow, nHigh; char const *szFile; std::vector<std::string> files; };
    Case const cases[] = {
        {0, 0, "r1.per", {"r1.per", "main.per"}},
        {30, 30, "r1.per", {"r1.per", "main.per"}},   // bounds belong to the earlier option
        {31, 31, "r2.per", {"r2.per", "main.per"}},
        {80, 80, "r2.per", {"r2.per", "main.per"}},
        {81, 100, "r3.per", {"r3.per", "main.per"}},  // above every option: the default
    };
    for (Case const &c : cases)
    {
        unsigned int const nSeed = SeedDrawing(c.nLow, c.nHigh);
        RunResult const result = RunSeed(nSeed);
        EXPECT_EQ(result.nStatus, 0) << result.strErr;
        EXPECT_EQ(result.strOut, Expected(c.files, RandomLines(kWithDefault, c.szFile)))
            << "seed " << nSeed;
    }
}

TEST_F(CliRandomLoad, WithoutADefaultADrawAboveTheOptionsLoadsNothing)
{
    m_dir.Write("main.per", "(load-random 30 \"r1\" 50 \"r2\")\n");
    RunResult const result = RunSeed(SeedDrawing(81, 100));
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strOut, Expected({"main.per"}, RandomLines(kWithoutDefault, "")));
}

TEST_F(CliRandomLoad, SuccessiveRandomLoadsTakeSuccessiveDraws)
{
    m_dir.Write("main.per", "(load-random 50 \"r1\" \"r2\")\n(load-random 50 \"r1\" \"r2\")\n");
    // A seed whose first draw picks r2 and whose second picks r1.
    unsigned int nSeed = 0;
    for (;; ++nSeed)
    {
        std::vector<int> const x = Percents(nSeed, 2);
        if (x[0] > 50 && x[1] <= 50)
            break;
    }
    std::vector<std::string> const header = {";(load-random", ";\t50 r1.per", ";\tr2.per", ";)"};
    std::vector<std::string> lines = RandomLines(header, "r2.per");
    std::vector<std::string> const second = RandomLines(header, "r1.per");
    lines.insert(lines.end(), second.begin(), second.end());

    RunResult const result = RunSeed(nSeed);
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strOut, Expected({"r1.per", "r2.per", "main.per"}, lines));
}

TEST_F(CliRandomLoad, WithoutASeedTheGeneratorStartsAsSeededWithOne)
{
    m_dir.Write("main.per", "(load-random 50 \"r1\" \"r2\")\n");
    std::vector<std::string> const header = {";(load-random", ";\t50 r1.per", ";\tr2.per", ";)"};
    bool const bFirst = Percents(1, 1)[0] <= 50;
    std::string const strChosen = bFirst ? "r1.per" : "r2.per";
    std::string const strExpected = Expected({strChosen, "main.per"}, RandomLines(header, strChosen));

    RunResult const unseeded = m_dir.Run({"main.per"});
    EXPECT_EQ(unseeded.nStatus, 0) << unseeded.strErr;
    EXPECT_EQ(unseeded.strOut, strExpected);
    EXPECT_EQ(RunSeed(1).strOut, strExpected);
    // A seed with the other outcome really changes the choice.
    RunResult const other = RunSeed(bFirst ? SeedDrawing(51, 100) : SeedDrawing(0, 50));
    EXPECT_EQ(other.nStatus, 0) << other.strErr;
    EXPECT_NE(other.strOut, strExpected);
}
