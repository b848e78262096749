// The generator program: what it writes, and how it fails.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

namespace {

int RunGenerator(std::string const &arguments)
{
    std::string const command = std::string(STRATAGEM_GRAMMAR_TOOL) + " " + arguments + " 2>/dev/null";
    int const status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Slurp(std::string const &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(GenerateGrammar, WritesTheGrammarAndTheWordsTest)
{
    std::string const dir = ::testing::TempDir();
    std::string const grammar = dir + "stratagem-grammar-test.json", words = dir + "stratagem-words-test.per";
    ASSERT_EQ(RunGenerator(grammar + " " + words), 0);
    nlohmann::json const written = nlohmann::json::parse(Slurp(grammar));
    EXPECT_EQ(written.at("scopeName"), "source.stratagem");
    EXPECT_NE(written.at("repository").at("fact").at("match").get<std::string>().find("|food-amount|"),
              std::string::npos);
    EXPECT_EQ(Slurp(words).rfind("; SYNTAX TEST", 0), 0u);
    std::remove(grammar.c_str());
    std::remove(words.c_str());
}

TEST(GenerateGrammar, FailsOnABadCommandLineOrAnUnwritableFile)
{
    struct Row
    {
        char const *arguments;
        int status;
    };
    Row const rows[] = {{"", 2}, {"a.json b.per c", 2}, {"/nonexistent-dir/grammar.json", 1}};
    for (Row const &row : rows)
        EXPECT_EQ(RunGenerator(row.arguments), row.status) << row.arguments;
}

}  // namespace
