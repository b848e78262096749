#include "GrammarBuilder.h"

#include "stratagem.h"

namespace grammar {

namespace {

using nlohmann::json;

// A word is a maximal run of symbol characters, and '-' is one of them, so
// \b would split "food-amount"; these bounds keep a word whole.
char const kSymbolRun[] = "[A-Za-z0-9_-]+";
char const kWordStart[] = "(?<![A-Za-z0-9_-])";
char const kWordEnd[] = "(?![A-Za-z0-9_-])";

// The reserved words the scanner knows, by the scope they take.
struct ReservedWords
{
    char const *repositoryKey;
    char const *scope;
    std::vector<char const *> words;
};

std::vector<ReservedWords> const &Reserved()
{
    static std::vector<ReservedWords> const kReserved = {
        {"declaration", "keyword.other.declaration.stratagem", {"defrule", "defconst"}},
        {"load", "keyword.control.import.stratagem", {"load", "load-random"}},
        {"logical", "keyword.operator.logical.stratagem", {"not", "and", "or", "xor", "nor", "xnor", "nand"}},
        {"relational-word",
         "keyword.operator.relational.stratagem",
         {"less-than", "less-or-equal", "greater-than", "greater-or-equal", "equal", "not-equal"}},
    };
    return kReserved;
}

// Directive words are reserved everywhere; "#" is a token of its own and may
// stand apart from its word.
std::vector<char const *> const kDirectiveWords = {"load-if-defined", "load-if-not-defined", "else", "end-if"};

std::string EscapeForRegex(std::string const &word)
{
    static std::string const kSpecial = "\\^$.|?*+()[]{}";
    std::string escaped;
    for (char c : word) {
        if (kSpecial.find(c) != std::string::npos)
            escaped += '\\';
        escaped += c;
    }
    return escaped;
}

// A regex that matches any of the words, and only as a whole word.
template <typename Words>
std::string WholeWords(Words const &words)
{
    std::string alternatives;
    for (auto const &word : words) {
        if (!alternatives.empty())
            alternatives += '|';
        alternatives += EscapeForRegex(word);
    }
    return std::string(kWordStart) + "(?:" + alternatives + ")" + kWordEnd;
}

json Match(std::string const &regex, char const *scope) { return {{"match", regex}, {"name", scope}}; }

json Comment()
{
    return {{"match", "(;).*$"},
            {"name", "comment.line.semicolon.stratagem"},
            {"captures", {{"1", {{"name", "punctuation.definition.comment.stratagem"}}}}}};
}

// A backslash escapes the next character; a backslash at the end of the line
// continues the string on the next one. A raw line end closes the string
// (the scanner rejects it), so one stray quote does not colour the rest of
// the file. The tokenizer hands each line over with its line feed, so both
// the continuation and the closing line end match that character: a zero-width
// "$" would also match once the continuation has consumed it.
json String()
{
    return {{"begin", "\""},
            {"beginCaptures", {{"0", {{"name", "punctuation.definition.string.begin.stratagem"}}}}},
            {"end", "(\")|\\n"},
            {"endCaptures", {{"1", {{"name", "punctuation.definition.string.end.stratagem"}}}}},
            {"name", "string.quoted.double.stratagem"},
            {"patterns",
             {Match("\\\\\\n", "constant.character.escape.line-continuation.stratagem"),
              Match("\\\\.", "constant.character.escape.stratagem")}}};
}

json Directive()
{
    return {{"match", std::string("(?:(#)[ \\t]*)?") + WholeWords(kDirectiveWords)},
            {"name", "keyword.control.directive.stratagem"},
            {"captures", {{"1", {{"name", "punctuation.definition.directive.stratagem"}}}}}};
}

// "(defconst NAME" on one line names the constant it defines.
json ConstantDefinition()
{
    return {{"match", std::string("(\\()[ \\t]*(defconst)") + kWordEnd + "[ \\t]+(" + kSymbolRun + ")"},
            {"captures",
             {{"1", {{"name", "punctuation.section.parens.begin.stratagem"}}},
              {"2", {{"name", "keyword.other.declaration.stratagem"}}},
              {"3", {{"name", "entity.name.constant.stratagem"}}}}}};
}

// An integer is an optional sign and digits. After "-" or a digit it must end
// the symbol run ("-5a" and "5a" are symbols); "+" is no symbol character, so
// "+5a" is the integer "+5" and the symbol "a".
json Integer()
{
    return Match(std::string("\\+[0-9]+|") + kWordStart + "-?[0-9]+" + kWordEnd, "constant.numeric.integer.stratagem");
}

char const *ReservedScope(std::string const &word)
{
    for (ReservedWords const &reserved : Reserved())
        for (char const *candidate : reserved.words)
            if (word == candidate)
                return reserved.scope;
    return nullptr;
}

}  // namespace

std::vector<WordKind> const &WordKinds()
{
    static std::vector<WordKind> const kKinds = {
        {"fact", "support.function.fact.stratagem", 300, 499, AI_IsFact},
        {"action", "support.function.action.stratagem", 500, 699, AI_IsAction},
        {"define", "constant.language.define.stratagem", 100, 299, AI_IsDefine},
        {"parameter", "constant.language.parameter.stratagem", 1100, 3499, AI_IsParam},
    };
    return kKinds;
}

std::vector<std::string> RegisteredWords(WordKind const &kind)
{
    std::vector<std::string> words;
    for (unsigned int nSID = kind.firstSid; nSID <= kind.lastSid; ++nSID)
        if (kind.isKind(nSID))
            words.emplace_back(AI_String(nSID).GetString());
    return words;
}

// The rules in the order the tokenizer tries them. The order settles ties
// between matches that start at the same place: reserved words before
// registered words (the relational words are params as well), every word
// before a plain symbol, and anything left over is a character the scanner
// rejects.
json BuildGrammar()
{
    std::vector<std::pair<std::string, json>> rules = {
        {"comment", Comment()},
        {"string", String()},
        {"directive", Directive()},
        {"directive-mark", Match("#", "punctuation.definition.directive.stratagem")},
        {"arrow", Match("=>", "keyword.operator.arrow.stratagem")},
        {"relational-symbol", Match("<=|>=|==|!=|<|>", "keyword.operator.relational.stratagem")},
        {"constant-definition", ConstantDefinition()},
        {"paren-open", Match("\\(", "punctuation.section.parens.begin.stratagem")},
        {"paren-close", Match("\\)", "punctuation.section.parens.end.stratagem")},
        {"integer", Integer()},
    };
    for (ReservedWords const &reserved : Reserved())
        rules.emplace_back(reserved.repositoryKey, Match(WholeWords(reserved.words), reserved.scope));
    for (WordKind const &kind : WordKinds()) {
        std::vector<std::string> const words = RegisteredWords(kind);
        if (!words.empty())
            rules.emplace_back(kind.repositoryKey, Match(WholeWords(words), kind.scope));
    }
    rules.emplace_back("symbol", Match(kSymbolRun, "variable.other.stratagem"));
    rules.emplace_back("invalid", Match("[^ \\t\\n]", "invalid.illegal.character.stratagem"));

    json patterns = json::array();
    json repository = json::object();
    for (auto const &rule : rules) {
        patterns.push_back({{"include", "#" + rule.first}});
        repository[rule.first] = rule.second;
    }
    return {{"information_for_contributors",
             {"Generated from the vocabulary registry of libstratagem by GenerateGrammar: do not edit by hand."}},
            {"name", "Stratagem"},
            {"scopeName", "source.stratagem"},
            {"fileTypes", {"per"}},
            {"patterns", patterns},
            {"repository", repository}};
}

std::string BuildWordsSyntaxTest()
{
    std::string text = "; SYNTAX TEST \"source.stratagem\" \"every registered word takes the scope of its kind\"\n";
    for (WordKind const &kind : WordKinds()) {
        for (std::string const &word : RegisteredWords(kind)) {
            char const *reserved = ReservedScope(word);
            text += "(" + word + ")\n;" + std::string(word.size(), '^') + " " + (reserved ? reserved : kind.scope)
                + "\n";
        }
    }
    return text;
}

}  // namespace grammar
