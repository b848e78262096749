// End-to-end support: a scratch directory of script files and the host
// program run inside it.
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
        for (auto const &[strPath, strText] : files) {
            std::filesystem::path const path = m_root / "work" / strPath;
            std::filesystem::create_directories(path.parent_path());
            std::ofstream(path, std::ios::binary) << strText;
        }
    }
    ~ScriptDir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    ScriptDir(ScriptDir const &) = delete;
    ScriptDir &operator=(ScriptDir const &) = delete;

    // Through the shell, which sets the working directory, the environment
    // (NO_COLOR removed unless `strEnv` sets it) and the standard streams; no
    // argument holds a single quote.
    RunResult Run(Strings const &args, std::string const &strEnv = "", std::string const *pStdin = nullptr) const
    {
        std::string strCommand
            = "cd '" + (m_root / "work").string() + "' && env -u NO_COLOR " + strEnv + " '" STRATAGEM_CLI "'";
        for (std::string const &arg : args)
            strCommand += " '" + arg + "'";
        if (pStdin) {
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

#endif
