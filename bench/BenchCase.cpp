#include "BenchCase.h"

#include <filesystem>

#include "stratagem.h"

namespace bench {

namespace {

Case const *s_pActive = nullptr;

}  // namespace

Case::Case(std::string const &directory, std::string const &kind, int nSize, int nRules, int nConstants)
    : m_directory(directory + "/" + kind + "-" + std::to_string(nSize))
{
    m_info = {kind + ":" + std::to_string(nSize), 0, 0, 0};
    m_options.nRules = nRules;
    m_options.nConstants = nConstants;
    m_options.tag = kind.substr(0, 1) + std::to_string(nSize);  // "r1000-c7", "c1000-c7"
}

// Each strategy has its own seed and its own constant names ("r1000-c7",
// "r1000s2-c7", ...). The table shows the first one's counts and the mean
// size in bytes.
std::vector<GeneratedStrategy> const &Case::Strategies()
{
    if (IsWritten())
        return m_strategies;
    static ScriptVocabulary const vocabulary;
    long long nBytes = 0;
    for (unsigned int nSeed = 1; nBytes < kDistinctBytes; ++nSeed) {
        GeneratorOptions options = m_options;
        options.nSeed = nSeed;
        if (nSeed > 1)
            options.tag += "s" + std::to_string(nSeed);
        std::string const directory = m_directory + "/" + std::to_string(nSeed);
        std::filesystem::create_directories(directory);
        m_strategies.push_back(GenerateStrategy(vocabulary, directory, options));
        nBytes += m_strategies.back().nBytes;
    }
    m_info.nRules = m_strategies.front().nRules;
    m_info.nConstants = m_strategies.front().nConstants;
    m_info.nBytes = nBytes / static_cast<long long>(m_strategies.size());
    return m_strategies;
}

GeneratedStrategy const &Case::Next()
{
    std::vector<GeneratedStrategy> const &strategies = Strategies();
    GeneratedStrategy const &next = strategies[m_nNext];
    m_nNext = (m_nNext + 1) % strategies.size();
    return next;
}

void Case::Activate()
{
    if (s_pActive == this)
        return;
    AI_DeleteConstants();
    s_pActive = this;
}

}  // namespace bench
