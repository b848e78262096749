// The generator program's failures; what it writes is run by the
// extension's own grammar test.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <string>

namespace {

int RunGenerator(std::string const &arguments)
{
    std::string const command = std::string(STRATAGEM_GRAMMAR_TOOL) + " " + arguments + " 2>/dev/null";
    int const status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(GenerateGrammar, FailsOnABadCommandLineOrAnUnwritableFile)
{
    std::pair<char const *, int> const rows[] = {{"", 2}, {"a.json b.per c", 2}, {"/nonexistent-dir/grammar.json", 1}};
    for (auto const &[arguments, status] : rows)
        EXPECT_EQ(RunGenerator(arguments), status) << arguments;
}

}  // namespace
