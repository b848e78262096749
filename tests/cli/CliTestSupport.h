// End-to-end support: a scratch directory of script files, the host program
// run inside it, and the pieces of the listings it prints.
#ifndef STRATAGEM_TESTS_CLI_CLITESTSUPPORT_H
#define STRATAGEM_TESTS_CLI_CLITESTSUPPORT_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <utility>
#include <vector>

using Strings = std::vector<std::string>;

inline Strings Join(Strings lines, Strings const &more)
{
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

inline std::string Lines(Strings const &lines)
{
    std::string text;
    for (std::string const &line : lines)
        text += line + "\n";
    return text;
}

inline std::string ReadFile(std::filesystem::path const &path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

struct RunResult
{
    int nStatus;  // exit status; 128 + signal number when killed
    std::string strOut;
    std::string strErr;
};

// A fresh directory, removed again at the end, holding the given files. The
// program runs with it as working directory, so files are named relatively.
class ScriptDir
{
public:
    explicit ScriptDir(std::vector<std::pair<std::string, std::string>> const &files = {})
    {
        std::string pattern = (std::filesystem::path(testing::TempDir()) / "stratagem-cli-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw std::runtime_error("cannot create a scratch directory");
        m_root = pattern;
        std::filesystem::create_directory(m_root / "work");
        for (auto const &file : files)
            Write(file.first, file.second);
    }
    ~ScriptDir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    ScriptDir(ScriptDir const &) = delete;
    ScriptDir &operator=(ScriptDir const &) = delete;

    void Write(std::string const &strPath, std::string const &strText) const
    {
        std::filesystem::path const path = m_root / "work" / strPath;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << strText;
    }

    // Through the shell, which sets the working directory, the environment
    // (NO_COLOR removed unless `strEnv` sets it) and the standard streams; no
    // argument holds a single quote.
    RunResult Run(Strings const &args, std::string const &strEnv = "", std::string const *pStdin = nullptr) const
    {
        std::string strCommand = "cd '" + (m_root / "work").string() + "' && env -u NO_COLOR " + strEnv + " '" STRATAGEM_CLI "'";
        for (std::string const &arg : args)
            strCommand += " '" + arg + "'";
        if (pStdin)
        {
            std::ofstream(m_root / "stdin", std::ios::binary) << *pStdin;
            strCommand += " <'" + (m_root / "stdin").string() + "'";
        }
        strCommand += " >'" + (m_root / "stdout").string() + "' 2>'" + (m_root / "stderr").string() + "'";
        int const status = std::system(strCommand.c_str());
        int const nStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return {nStatus, ReadFile(m_root / "stdout"), ReadFile(m_root / "stderr")};
    }

private:
    std::filesystem::path m_root;  // holds work/ and the captured output
};

inline std::string const kDoNothingRule = "(defrule (true) => (do-nothing))\n";

// The banners around a file's commands: 73 minus the name's length
// asterisks, two more on the END banner.
inline std::string Banner(char const *szWord, std::string const &strFile, int nLevel, int nExtra)
{
    int const nStars = std::max(73 - static_cast<int>(strFile.size()), 0) + nExtra;
    return ";" + std::string(static_cast<std::size_t>(nLevel), '\t') + szWord + strFile + " " +
           std::string(static_cast<std::size_t>(nStars), '*');
}

inline std::string End(std::string const &strFile, int nLevel = 0)
{
    return Banner("END ", strFile, nLevel, 2);
}

// A file's listed commands between its banners.
inline Strings Banners(std::string const &strFile, Strings const &inner, int nLevel = 0)
{
    return Join(Join({Banner("START ", strFile, nLevel, 0), ""}, inner), {"", End(strFile, nLevel), ""});
}

// A load command of the file and its listed commands.
inline Strings LoadLines(std::string const &strFile, Strings const &inner, int nLevel = 0)
{
    return Join({";" + std::string(static_cast<std::size_t>(nLevel), '\t') + "(load " + strFile + ")"},
                Banners(strFile, inner, nLevel));
}

// A rule with one condition and one action, and the empty line after it.
inline Strings RuleLines(std::string const &strCondition, std::string const &strAction, int nLevel = 0)
{
    std::string const tab(static_cast<std::size_t>(nLevel), '\t');
    return {tab + "(defrule", tab + "\t" + strCondition, tab + "=>", tab + "\t" + strAction, tab + ")", ""};
}

inline Strings DefaultSettings()
{
    return {"DARK-AGE-START",    "MEDIUM-RESOURCES-START", "SMALL-MAP",     "COASTAL-MAP",      "VICTORY-STANDARD",
            "DIFFICULTY-MODERATE", "POPULATION-CAP-75",    "BYZANTINE-CIV", "GAME-SPEED-LOCKED"};
}

inline Strings Commented(Strings lines)
{
    for (std::string &line : lines)
        line.insert(0, ";");
    return lines;
}

// The listing of a whole strategy: the main file's commands as listed, the
// files and "name = v1, v2" constants in the tables' enumeration order.
inline std::string Listing(std::string const &strMain, Strings const &files, Strings const &body,
                           Strings const &constants = {}, Strings const &settings = DefaultSettings(),
                           std::string const &strName = "")
{
    Strings lines{";" + (strName.empty() ? strMain : strName), "", ";" + strMain, "",
                  ";Game settings:  " + std::string(58, '*')};
    lines = Join(Join(lines, Commented(settings)), {"", ";Files:  " + std::string(66, '*')});
    lines = Join(Join(lines, Commented(files)), {"", ";Constants:  " + std::string(62, '*')});
    lines = Join(Join(lines, Commented(constants)), {""});
    return Lines(Join(lines, Banners(strMain, body)));
}

inline void ExpectListing(RunResult const &result, std::string const &strListing)
{
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strErr, "");
    EXPECT_EQ(result.strOut, strListing);
}

inline void ExpectFailure(RunResult const &result, std::string const &strLine)
{
    EXPECT_EQ(result.nStatus, 1);
    EXPECT_EQ(result.strOut, "");
    EXPECT_EQ(result.strErr, strLine + "\n");
}

// The first percentages 0..100 that random loads draw after srand(seed):
// state = state * 214013 + 2531011, r = (state >> 16) & 0x7FFF, scaled to
// r * (1.0 / 32767) * 100.0 and truncated.
inline std::vector<int> Percents(unsigned int nSeed, int nCount)
{
    std::uint32_t state = nSeed;
    std::vector<int> percents;
    for (int i = 0; i < nCount; ++i)
    {
        state = state * 214013u + 2531011u;
        percents.push_back(static_cast<int>(static_cast<int>((state >> 16) & 0x7FFF) * (1.0 / 32767) * 100.0));
    }
    return percents;
}

// The smallest seed whose first draw lies in [nLow, nHigh].
inline unsigned int SeedDrawing(int nLow, int nHigh)
{
    unsigned int nSeed = 0;
    while (Percents(nSeed, 1)[0] < nLow || Percents(nSeed, 1)[0] > nHigh)
        ++nSeed;
    return nSeed;
}

#endif
