// The sample strategy shipped under examples/ analyses cleanly whatever the
// game it is set up for, and every file it names exists.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "CliTestSupport.h"

namespace {

std::string const kExamples = std::string(STRATAGEM_SOURCE_DIR) + "/examples/";

// The file lines of the listing's "Files: " section, without ";".
std::set<std::string> ListedFiles(std::string const &strListing)
{
    std::istringstream in(strListing);
    std::set<std::string> files;
    std::string line;
    while (std::getline(in, line) && line.rfind(";Files: ", 0) != 0)
        ;
    while (std::getline(in, line) && !line.empty())
        files.insert(line.substr(1));
    return files;
}

} // namespace

TEST(CliSampleStrategy, AnalysesCleanlyForEveryMapSizeAndCivilization)
{
    ScriptDir dir;
    std::string const strMain = kExamples + "main.per";
    std::vector<std::vector<std::string>> const setups = {
        {},
        {"-D", "TINY-MAP", "-D", "BRITON-CIV"},
        {"-D", "GIANT-MAP", "-D", "VIKING-CIV", "-D", "REGICIDE"},
        {"-s", "nMapSize=3", "-D", "DEATH-MATCH", "--seed", "12345"},
    };
    for (std::vector<std::string> args : setups)
    {
        args.insert(args.end(), {"--name", "Sample", strMain});
        RunResult const result = dir.Run(args);
        EXPECT_EQ(result.nStatus, 0) << result.strErr;
        EXPECT_EQ(result.strErr, "");
        EXPECT_EQ(result.strOut.rfind(";Sample\n\n;" + strMain + "\n\n", 0), 0u);
        EXPECT_NE(result.strOut.find(End(strMain) + "\n\n"), std::string::npos);
    }
}

TEST(CliSampleStrategy, KeptBlocksReachEveryFileButTheOpeningsNotDrawn)
{
    ScriptDir dir;
    std::string const strMain = kExamples + "main.per";
    RunResult const result = dir.Run({"--no-expand-blocks", strMain});
    ASSERT_EQ(result.nStatus, 0) << result.strErr;

    std::set<std::string> const listed = ListedFiles(result.strOut);
    int nOpenings = 0;
    for (auto const &entry : std::filesystem::directory_iterator(kExamples))
    {
        std::string const strFile = kExamples + entry.path().filename().string();
        bool const bOpening = entry.path().filename().string().rfind("opening-", 0) == 0;
        if (bOpening)
            nOpenings += static_cast<int>(listed.count(strFile));
        else
            EXPECT_EQ(listed.count(strFile), 1u) << strFile;
    }
    EXPECT_EQ(nOpenings, 1);
}
