// The host end to end. Each folder under data/ is one case: the host runs in
// its files/ folder (or in the source tree when it has none, so that the
// sample strategy's names are relative) with the arguments in args, one a
// line, the variables of env set (NO_COLOR is unset unless env sets it) and
// stdin as its standard input when the case has them; it must print exactly
// the case's stdout and stderr and exit with status.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string ReadFile(fs::path const &path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> CaseNames()
{
    std::vector<std::string> names;
    for (fs::directory_entry const &entry : fs::directory_iterator(STRATAGEM_TEST_DATA))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

class HostCase : public testing::TestWithParam<std::string>
{};

// Through the shell, which sets the working directory, the environment and
// the standard streams; no argument holds a single quote.
TEST_P(HostCase, PrintsExactlyItsOutputAndStatus)
{
    fs::path const dir = fs::path(STRATAGEM_TEST_DATA) / GetParam();
    fs::path const work = fs::is_directory(dir / "files") ? dir / "files" : fs::path(STRATAGEM_SOURCE_DIR);
    fs::path const out = fs::path(testing::TempDir()) / ("stratagem-" + GetParam());
    std::string command = "cd '" + work.string() + "' && env -u NO_COLOR ";
    std::istringstream env(fs::exists(dir / "env") ? ReadFile(dir / "env") : "");
    for (std::string variable; std::getline(env, variable);)
        command += "'" + variable + "' ";
    command += "'" STRATAGEM_CLI "'";
    std::istringstream args(ReadFile(dir / "args"));
    for (std::string arg; std::getline(args, arg);)
        command += " '" + arg + "'";
    if (fs::exists(dir / "stdin"))
        command += " <'" + (dir / "stdin").string() + "'";
    command += " >'" + out.string() + ".out' 2>'" + out.string() + ".err'";
    int const status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status)) << command;
    EXPECT_EQ(std::stoi(ReadFile(dir / "status")), WEXITSTATUS(status));
    EXPECT_EQ(ReadFile(dir / "stdout"), ReadFile(out.string() + ".out"));
    EXPECT_EQ(ReadFile(dir / "stderr"), ReadFile(out.string() + ".err"));
    fs::remove(out.string() + ".out");
    fs::remove(out.string() + ".err");
}

std::string TestName(testing::TestParamInfo<std::string> const &info)
{
    std::string name = info.param;
    for (char &c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)))
            c = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Cases, HostCase, testing::ValuesIn(CaseNames()), TestName);

}  // namespace
