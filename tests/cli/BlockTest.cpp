// Conditional blocks through the host: resolved against the settings given
// on the command line, or kept in the tree with --no-expand-blocks.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

namespace {

class CliBlockListing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_dir.Write("main.per",
                    "#load-if-defined SMALL-MAP\n"
                    "    (load \"small\")\n"
                    "#else\n"
                    "    (load \"large\")\n"
                    "#end-if\n"
                    "#load-if-not-defined REGICIDE\n"
                    "    (defrule (true) => (do-nothing))\n"
                    "#end-if\n");
        m_dir.Write("small.per", "(defrule (true) => (resign))\n");
        m_dir.Write("large.per", "(defrule (true) => (attack-now))\n");
    }

    // A load of `file` holding one rule, listed at `level`.
    static std::vector<std::string> LoadLines(std::string const &strFile,
                                              std::string const &strAction, int nLevel)
    {
        std::string const tab(static_cast<std::size_t>(nLevel), '\t');
        return {";" + tab + "(load " + strFile + ")", Start(strFile, nLevel), "",
                tab + "(defrule", tab + "\t(true)", tab + "=>", tab + "\t" + strAction,
                tab + ")", "", "", End(strFile, nLevel), ""};
    }

    ScriptDir m_dir;
};

void Add(std::vector<std::string> &lines, std::vector<std::string> const &more)
{
    lines.insert(lines.end(), more.begin(), more.end());
}

} // namespace

TEST_F(CliBlockListing, DefaultSettingsSelectTheFirstBranchAndDropTheBlocks)
{
    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"small.per", "main.per"};
    expected.body = LoadLines("small.per", "(resign)", 0);
    Add(expected.body, {"(defrule", "\t(true)", "=>", "\t(do-nothing)", ")", ""});

    RunResult const result = m_dir.Run({"main.per"});
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strOut, expected.Text());
}

TEST_F(CliBlockListing, DefinesGivenOnTheCommandLineSelectTheOtherBranches)
{
    StrategyListing expected{"main.per", "main.per"};
    expected.settings = DefaultSettings();
    expected.settings[2] = "LARGE-MAP";
    expected.settings.insert(expected.settings.begin(), "REGICIDE");
    expected.files = {"main.per", "large.per"};
    expected.body = LoadLines("large.per", "(attack-now)", 0);

    RunResult const result = m_dir.Run({"-D", "LARGE-MAP", "-D", "REGICIDE", "main.per"});
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strOut, expected.Text());
}

TEST_F(CliBlockListing, KeptBlocksListBothBranchesAndLoadEveryFile)
{
    StrategyListing expected{"main.per", "main.per"};
    expected.files = {"small.per", "main.per", "large.per"};
    expected.body = {"#load-if-defined SMALL-MAP", ""};
    Add(expected.body, LoadLines("small.per", "(resign)", 1));
    Add(expected.body, {"#else ; SMALL-MAP", ""});
    Add(expected.body, LoadLines("large.per", "(attack-now)", 1));
    Add(expected.body, {"#end-if ; SMALL-MAP", ""});
    Add(expected.body, {"#load-if-not-defined REGICIDE", "",
                        "\t(defrule", "\t\t(true)", "\t=>", "\t\t(do-nothing)", "\t)", "",
                        "#end-if ; not REGICIDE", ""});

    // The settings do not matter once blocks are kept.
    for (char const *szDefine : {"SMALL-MAP", "REGICIDE"})
    {
        RunResult const result = m_dir.Run({"--no-expand-blocks", "-D", szDefine, "main.per"});
        EXPECT_EQ(result.nStatus, 0) << result.strErr;
        StrategyListing withSettings = expected;
        if (std::string(szDefine) == "REGICIDE")
            withSettings.settings.insert(withSettings.settings.begin(), "REGICIDE");
        EXPECT_EQ(result.strOut, withSettings.Text()) << szDefine;
    }
}
