// The sample strategy shipped under examples/ analyses cleanly whatever the
// game it is set up for, and every file it names exists.
#include <gtest/gtest.h>

#include <filesystem>

#include "CliTestSupport.h"

TEST(CliSampleStrategy, AnalysesCleanlyForEveryGameAndKeptBlocksReachEveryFile)
{
    ScriptDir const dir;
    std::string const strExamples = std::string(STRATAGEM_SOURCE_DIR) + "/examples/";
    std::string const strMain = strExamples + "main.per";
    for (Strings const &args : std::vector<Strings>{{},
                                                    {"-D", "TINY-MAP", "-D", "BRITON-CIV"},
                                                    {"-D", "GIANT-MAP", "-D", "VIKING-CIV", "-D", "REGICIDE"},
                                                    {"-s", "nMapSize=3", "-D", "DEATH-MATCH", "--seed", "9"}})
    {
        RunResult const result = dir.Run(Join(args, {"--name", "Sample", strMain}));
        EXPECT_EQ(result.nStatus, 0) << result.strErr;
        EXPECT_EQ(result.strErr, "");
        EXPECT_EQ(result.strOut.rfind(";Sample\n\n;" + strMain + "\n\n", 0), 0u);
        EXPECT_NE(result.strOut.find(End(strMain) + "\n\n"), std::string::npos);
    }

    // With blocks kept every file is listed, but of the openings only
    // the one drawn.
    RunResult const result = dir.Run({"--no-expand-blocks", strMain});
    ASSERT_EQ(result.nStatus, 0) << result.strErr;
    int nOpenings = 0;
    for (auto const &entry : std::filesystem::directory_iterator(strExamples))
    {
        std::string const strName = entry.path().filename().string();
        bool const bListed = result.strOut.find("\n;" + strExamples + strName + "\n") != std::string::npos;
        if (strName.rfind("opening-", 0) == 0)
            nOpenings += bListed;
        else
            EXPECT_TRUE(bListed) << strName;
    }
    EXPECT_EQ(nOpenings, 1);
}
