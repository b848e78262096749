#include "CliTestSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string ReadFile(std::string const &strPath)
{
    std::ifstream in(strPath, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// In the child: working directory, output files, then the program.
[[noreturn]] void ExecInChild(std::string const &strWork, std::string const &strOut,
                              std::string const &strErr, std::vector<char *> &argv)
{
    int const fdOut = ::open(strOut.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    int const fdErr = ::open(strErr.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (fdOut < 0 || fdErr < 0 || ::chdir(strWork.c_str()) != 0 ||
        ::dup2(fdOut, STDOUT_FILENO) < 0 || ::dup2(fdErr, STDERR_FILENO) < 0)
        ::_exit(126);
    ::execv(argv[0], argv.data());
    ::_exit(127);
}

std::string Banner(char const *szWord, std::string const &strFile, int nLevel, int nExtra)
{
    int nStars = 73 - static_cast<int>(strFile.size());
    if (nStars < 0)
        nStars = 0;
    return ";" + std::string(static_cast<std::size_t>(nLevel), '\t') + szWord + strFile + " " +
           std::string(static_cast<std::size_t>(nStars + nExtra), '*');
}

void Append(std::vector<std::string> &lines, std::vector<std::string> const &more,
            char const *szPrefix = "")
{
    for (std::string const &line : more)
        lines.push_back(szPrefix + line);
}

} // namespace

ScriptDir::ScriptDir()
{
    std::string pattern = (fs::path(testing::TempDir()) / "stratagem-cli-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a scratch directory");
    m_strRoot = pattern;
    m_strWork = m_strRoot + "/work";
    fs::create_directory(m_strWork);
}

ScriptDir::~ScriptDir()
{
    std::error_code ignored;
    fs::remove_all(m_strRoot, ignored);
}

void ScriptDir::Write(std::string const &strPath, std::string const &strText) const
{
    fs::path const path = fs::path(m_strWork) / strPath;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << strText;
}

RunResult ScriptDir::Run(std::vector<std::string> const &args) const
{
    std::string const strOut = m_strRoot + "/stdout";
    std::string const strErr = m_strRoot + "/stderr";
    std::vector<std::string> words{STRATAGEM_CLI};
    words.insert(words.end(), args.begin(), args.end());
    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    pid_t const pid = ::fork();
    if (pid == 0)
        ExecInChild(m_strWork, strOut, strErr, argv);
    int status = 0;
    if (pid < 0 || ::waitpid(pid, &status, 0) != pid)
        return {-1, "", "cannot run the program"};
    int const nStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {nStatus, ReadFile(strOut), ReadFile(strErr)};
}

std::string Lines(std::vector<std::string> const &lines)
{
    std::string text;
    for (std::string const &line : lines)
        text += line + "\n";
    return text;
}

std::string Start(std::string const &strFile, int nLevel)
{
    return Banner("START ", strFile, nLevel, 0);
}

std::string End(std::string const &strFile, int nLevel)
{
    return Banner("END ", strFile, nLevel, 2);
}

std::vector<std::string> DefaultSettings()
{
    return {"DARK-AGE-START",      "MEDIUM-RESOURCES-START", "SMALL-MAP",
            "COASTAL-MAP",         "VICTORY-STANDARD",       "DIFFICULTY-MODERATE",
            "POPULATION-CAP-75",   "BYZANTINE-CIV",          "GAME-SPEED-LOCKED"};
}

std::string StrategyListing::Text() const
{
    std::vector<std::string> lines{";" + strName, "", ";" + strMainFile, ""};
    lines.push_back(";Game settings:  " + std::string(58, '*'));
    Append(lines, settings, ";");
    lines.push_back("");
    lines.push_back(";Files:  " + std::string(66, '*'));
    Append(lines, files, ";");
    lines.push_back("");
    lines.push_back(";Constants:  " + std::string(62, '*'));
    Append(lines, constants, ";");
    lines.push_back("");
    lines.push_back(Start(strMainFile));
    lines.push_back("");
    Append(lines, body);
    lines.push_back("");
    lines.push_back(End(strMainFile));
    lines.push_back("");
    return Lines(lines);
}

std::vector<int> Percents(unsigned int nSeed, int nCount)
{
    std::uint32_t state = nSeed;
    std::vector<int> percents;
    for (int i = 0; i < nCount; ++i)
    {
        state = state * 214013u + 2531011u;
        int const r = static_cast<int>((state >> 16) & 0x7FFF);
        percents.push_back(static_cast<int>(r * (1.0 / 32767) * 100.0));
    }
    return percents;
}

unsigned int SeedDrawing(int nLow, int nHigh)
{
    for (unsigned int nSeed = 0;; ++nSeed)
    {
        int const x = Percents(nSeed, 1)[0];
        if (x >= nLow && x <= nHigh)
            return nSeed;
    }
}
