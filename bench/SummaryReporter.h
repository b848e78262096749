// Console reporter that also keeps every result, so that after the run it can
// print one table per strategy size and judge the two performance bars:
// time grows linearly with the size, and analysis costs at most four times
// the bare scan of the same bytes.
#ifndef STRATAGEM_BENCH_SUMMARYREPORTER_H
#define STRATAGEM_BENCH_SUMMARYREPORTER_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

// One generated strategy, as the table shows it.
struct CaseInfo
{
    std::string label;  // e.g. "rules:1000"; benchmark names end with it
    int nRules;
    int nConstants;
    long long nBytes;
};

class SummaryReporter : public benchmark::ConsoleReporter
{
public:
    // Colours only on a terminal.
    SummaryReporter();

    void ReportRuns(std::vector<Run> const &runs) override;

    // Prints the table and the verdicts; answers whether every bar that
    // could be judged holds.
    bool PrintSummary(std::vector<CaseInfo> const &cases, std::ostream &out) const;

private:
    struct Result
    {
        double dMilliseconds;  // CPU time per iteration
        std::map<std::string, double> counters;
    };
    std::map<std::string, Result> m_results;  // by benchmark name

    Result const *Find(std::string const &kind, std::string const &label) const;
    // Prints how much longer the large strategy takes; when bBar, judges
    // that growth against the linearity bar and answers whether it holds.
    bool JudgeGrowth(std::string const &kind, std::string const &small, std::string const &large, bool bBar,
                     std::ostream &out) const;
};

}  // namespace bench

#endif
