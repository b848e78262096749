// The grammar generator over the registry: which words it takes for each
// kind, what it does with an empty registry, and the test case it writes
// for the TextMate test runner.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "../vocabulary/VocabularyTest.h"
#include "GrammarBuilder.h"
#include "stratagem.h"

namespace {

class GrammarBuilder : public VocabularyTest
{
protected:
    static grammar::WordKind const &Kind(std::string const &key)
    {
        for (grammar::WordKind const &kind : grammar::WordKinds())
            if (key == kind.repositoryKey)
                return kind;
        throw std::out_of_range(key);
    }
};

// Words a host registers at the very ends of each range are taken; words
// just outside are not.
TEST_F(GrammarBuilder, TakesWordsAtTheEndsOfEachRange)
{
    struct Row
    {
        char const *key;
        void (*add)(unsigned int, char const *);
        unsigned int first, last;
    };
    auto const addFact = [](unsigned int sid, char const *name) { AI_AddFact(sid, name); };
    auto const addAction = [](unsigned int sid, char const *name) { AI_AddAction(sid, name); };
    Row const rows[] = {{"fact", addFact, 300, 499},
                        {"action", addAction, 500, 699},
                        {"define", AI_AddDefine, 100, 299},
                        {"parameter", AI_AddParam, 1100, 3499}};
    for (Row const &row : rows) {
        std::string const low = std::string(row.key) + "-low", high = std::string(row.key) + "-high";
        row.add(row.first, low.c_str());
        row.add(row.last, high.c_str());
        row.add(row.first - 1, "below");
        row.add(row.last + 1, "above");
        EXPECT_EQ(grammar::RegisteredWords(Kind(row.key)), (std::vector<std::string> {low, high})) << row.key;
        AI_DeleteAll();
    }
}

// An empty alternation would match the empty string everywhere and stall the
// editor's tokenizer: a kind without words has no rule at all.
TEST_F(GrammarBuilder, LeavesOutKindsWithoutWords)
{
    AI_AddFact(300, "only-fact");
    nlohmann::json const built = grammar::BuildGrammar();
    nlohmann::json const &repository = built.at("repository");
    EXPECT_TRUE(repository.contains("fact"));
    for (char const *key : {"action", "define", "parameter"})
        EXPECT_FALSE(repository.contains(key)) << key;
    for (nlohmann::json const &pattern : built.at("patterns"))
        EXPECT_TRUE(repository.contains(pattern.at("include").get<std::string>().substr(1))) << pattern;
    for (auto const &rule : repository.items()) {
        std::string const match = rule.value().value("match", std::string());
        EXPECT_EQ(match.find("(?:)"), std::string::npos) << rule.key();
    }
}

// Every registered word gets a line and an assertion as wide as the word;
// the relational words are params but take the reserved word's scope.
TEST_F(GrammarBuilder, WordsTestCoversEveryWordWithItsScope)
{
    RegisterBuiltins();
    std::string const text = grammar::BuildWordsSyntaxTest();
    EXPECT_EQ(text.rfind("; SYNTAX TEST \"source.stratagem\"", 0), 0u);
    std::pair<char const *, char const *> const rows[] = {
        {"food-amount", "support.function.fact.stratagem"},     {"train", "support.function.action.stratagem"},
        {"GIANT-MAP", "constant.language.define.stratagem"},    {"archer", "constant.language.parameter.stratagem"},
        {"less-than", "keyword.operator.relational.stratagem"}, {"not-equal", "keyword.operator.relational.stratagem"}};
    for (auto const &[pszWord, scope] : rows) {
        std::string const word = pszWord;
        std::string const expected = "\n(" + word + ")\n;" + std::string(word.size(), '^') + " " + scope + "\n";
        EXPECT_NE(text.find(expected), std::string::npos) << word;
    }
    size_t lines = 0;
    for (char c : text)
        lines += c == '\n';
    EXPECT_EQ(lines, 1 + 2 * (110 + 54 + 66 + 547));
}

}  // namespace
