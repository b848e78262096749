// What the strategy generator may write: the registered facts and actions
// with their parameter types, and for every parameter type the words and the
// integers that a correctly typed argument may use. Read from the registry,
// so the built-in vocabulary must be registered first.
#ifndef STRATAGEM_BENCH_SCRIPTVOCABULARY_H
#define STRATAGEM_BENCH_SCRIPTVOCABULARY_H

#include <string>
#include <vector>

namespace bench {

struct Function
{
    std::string name;
    std::vector<int> params;  // parameter type codes, in order
};

// The arguments one parameter type accepts.
struct ArgumentChoice
{
    std::vector<std::string> words;  // registered params in the accepted SID ranges
    bool bIntegers = false;
    int nLow = 0;  // accepted integers, when bIntegers
    int nHigh = 0;
    bool bString = false;

    bool Accepts(int nValue) const { return bIntegers && nValue >= nLow && nValue <= nHigh; }
};

class ScriptVocabulary
{
public:
    ScriptVocabulary();

    std::vector<Function> const &Facts() const { return m_facts; }
    std::vector<Function> const &Actions() const { return m_actions; }
    // Words of the relational-operator params ("less-than", ...).
    std::vector<std::string> const &RelationalWords() const { return m_relational; }
    // Accepted arguments of a parameter type code (1 to 37).
    ArgumentChoice const &Choice(int nType) const;

private:
    std::vector<Function> m_facts;
    std::vector<Function> m_actions;
    std::vector<std::string> m_relational;
    std::vector<ArgumentChoice> m_choices;  // index = type code
};

}  // namespace bench

#endif
