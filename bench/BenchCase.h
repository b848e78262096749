// One strategy size of the benchmark, e.g. "rules:1000". A size is measured
// over several distinct generated strategies, analysed in turn, until they
// hold at least kDistinctBytes of text: analysing the very same bytes again
// and again lets the processor learn them (its branch predictors remember a
// small strategy's token sequence, its caches the file), which flatters a
// small strategy against a large one and against a first analysis, the one
// a host actually runs. A large strategy is one strategy on its own.
#ifndef STRATAGEM_BENCH_BENCHCASE_H
#define STRATAGEM_BENCH_BENCHCASE_H

#include <cstddef>
#include <string>
#include <vector>

#include "StrategyGenerator.h"
#include "SummaryReporter.h"

namespace bench {

class Case
{
public:
    static long long const kDistinctBytes = 2 << 20;

    // Labelled "<kind>:<size>"; the files go to a directory of their own
    // under the given one.
    Case(std::string const &directory, std::string const &kind, int nSize, int nRules, int nConstants);

    CaseInfo const &Info() const { return m_info; }
    bool IsWritten() const { return !m_strategies.empty(); }

    // Every strategy of the size, written on first use, so that a run
    // filtered down to some benchmarks only writes what it measures.
    std::vector<GeneratedStrategy> const &Strategies();
    // The strategy to analyse next, in turn.
    GeneratedStrategy const &Next();

    // Leaves in the registry the built-in vocabulary and no constants but
    // this size's (its analyses register them again): each size is measured
    // as a host sees it that clears one strategy's constants before the
    // next, not with the constants of the sizes measured before it.
    void Activate();

private:
    std::string m_directory;
    GeneratorOptions m_options;
    CaseInfo m_info;
    std::vector<GeneratedStrategy> m_strategies;
    std::size_t m_nNext = 0;
};

}  // namespace bench

#endif
