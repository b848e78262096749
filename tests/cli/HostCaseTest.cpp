// The host end to end. Each folder under data/ is one case: the host runs in
// its files/ folder (or in the source tree when it has none, so that the
// sample strategy's names are relative) with the arguments in args, one a
// line; it must print exactly the case's stdout and stderr and exit with status.
#include <cctype>

#include "CliTestSupport.h"

namespace {

namespace fs = std::filesystem;

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

// Through the shell, which sets the working directory and the output files;
// no argument holds a single quote.
TEST_P(HostCase, PrintsExactlyItsOutputAndStatus)
{
    fs::path const dir = fs::path(STRATAGEM_TEST_DATA) / GetParam();
    // A case without files of its own runs in the source tree (the sample strategy).
    fs::path const work = fs::is_directory(dir / "files") ? dir / "files" : fs::path(STRATAGEM_SOURCE_DIR);
    fs::path const out = fs::path(testing::TempDir()) / ("stratagem-" + GetParam());
    std::string command = "cd '" + work.string() + "' && '" STRATAGEM_CLI "'";
    std::istringstream args(ReadFile(dir / "args"));
    for (std::string arg; std::getline(args, arg);)
        command += " '" + arg + "'";
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
