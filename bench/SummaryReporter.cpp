#include "SummaryReporter.h"

#include <unistd.h>

#include <cstdio>
#include <ostream>

namespace bench {

namespace {

double const kMaxGrowth = 110.0;       // 100x the size in at most 110x the time
double const kMaxScannerFactor = 3.0;  // analysis over the bare scan, on the largest strategy
double const kMaxHeapMiB = 69.0;       // what the largest analysed strategy holds
double const kMaxCheckFactor = 1.5;    // check mode over the analysis, on the largest strategy
char const kBarCase[] = "rules:100000";

std::string Cell(double dValue, char const *pszFormat)
{
    char szBuffer[64];
    snprintf(szBuffer, sizeof szBuffer, pszFormat, dValue);
    return szBuffer;
}

}  // namespace

SummaryReporter::SummaryReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) {}

void SummaryReporter::ReportRuns(std::vector<Run> const &runs)
{
    for (Run const &run : runs) {
        // One iteration run, or the median of repeated runs.
        bool bMedian = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (run.error_occurred || !(run.run_type == Run::RT_Iteration || bMedian))
            continue;
        Result &result = m_results[run.run_name.function_name];
        result.dMilliseconds = run.GetAdjustedCPUTime() * benchmark::GetTimeUnitMultiplier(run.time_unit)
            / benchmark::GetTimeUnitMultiplier(benchmark::kMillisecond);
        for (auto const &counter : run.counters)
            result.counters[counter.first] = counter.second.value;
    }
    ConsoleReporter::ReportRuns(runs);
}

SummaryReporter::Result const *SummaryReporter::Find(std::string const &kind, std::string const &label) const
{
    auto it = m_results.find(kind + "/" + label);
    return it == m_results.end() ? nullptr : &it->second;
}

bool SummaryReporter::PrintSummary(std::vector<CaseInfo> const &cases, std::ostream &out) const
{
    bool bHolds = true;
    out << "\n| strategy | rules | constants | bytes | analysis ms | analysis+listing ms | scanner ms "
           "| analysis/scanner | MB/s | peak RSS MiB | heap MiB |\n"
           "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n";
    for (CaseInfo const &info : cases) {
        Result const *pAnalysis = Find("analysis", info.label);
        Result const *pListing = Find("analysis+listing", info.label);
        Result const *pScanner = Find("scanner", info.label);
        auto ms = [](Result const *p) { return p ? Cell(p->dMilliseconds, "%.1f") : std::string("-"); };
        std::string ratio = "-", speed = "-", rss = "-", heap = "-";
        if (pAnalysis && pScanner) {
            double dRatio = pAnalysis->dMilliseconds / pScanner->dMilliseconds;
            ratio = Cell(dRatio, "%.2f");
            if (info.label == kBarCase && dRatio > kMaxScannerFactor) {
                ratio += " (over " + Cell(kMaxScannerFactor, "%.1f") + ")";
                bHolds = false;
            }
        }
        if (pAnalysis) {
            speed = Cell(info.nBytes / 1e3 / pAnalysis->dMilliseconds, "%.1f");
            double const dHeap = pAnalysis->counters.count("heap_MiB") ? pAnalysis->counters.at("heap_MiB") : 0;
            heap = Cell(dHeap, "%.1f");
            if (info.label == kBarCase && dHeap > kMaxHeapMiB) {
                heap += " (over " + Cell(kMaxHeapMiB, "%.1f") + ")";
                bHolds = false;
            }
        }
        if (Result const *pLast = pListing ? pListing : pAnalysis)
            rss = Cell(pLast->counters.count("peak_rss_MiB") ? pLast->counters.at("peak_rss_MiB") : 0, "%.1f");
        out << "| " << info.label << " | " << info.nRules << " | " << info.nConstants << " | " << info.nBytes << " | "
            << ms(pAnalysis) << " | " << ms(pListing) << " | " << ms(pScanner) << " | " << ratio << " | " << speed
            << " | " << rss << " | " << heap << " |\n";
    }
    if (Result const *pCheck = Find("check", kBarCase))
        if (Result const *pAnalysis = Find("analysis", kBarCase)) {
            double dRatio = pCheck->dMilliseconds / pAnalysis->dMilliseconds;
            bool bCheckHolds = dRatio <= kMaxCheckFactor;
            out << "\ncheck/" << kBarCase << ": " << Cell(pCheck->dMilliseconds, "%.1f") << " ms, "
                << Cell(dRatio, "%.2f") << "x the analysis" << (bCheckHolds ? " (at most " : " (OVER ")
                << Cell(kMaxCheckFactor, "%.1f") << "x)\n";
            bHolds &= bCheckHolds;
        }
    out << "\nCPU time per analysis (median of the repetitions, which run interleaved); MB/s is the\n"
           "analysis alone; peak RSS is the process's so far; heap is what one analysed strategy holds.\n\n";
    for (char const *pszKind : {"analysis", "analysis+listing"}) {
        bHolds &= JudgeGrowth(pszKind, "rules:1000", "rules:100000", true, out);
        // Shown for comparison; the growth bar is set for rules.
        JudgeGrowth(pszKind, "rules:10000", "rules:100000", false, out);
        JudgeGrowth(pszKind, "constants:1000", "constants:100000", false, out);
    }
    out << (bHolds ? "All performance bars hold.\n" : "A performance bar is NOT met.\n");
    return bHolds;
}

bool SummaryReporter::JudgeGrowth(std::string const &kind, std::string const &small, std::string const &large,
                                  bool bBar, std::ostream &out) const
{
    Result const *pSmall = Find(kind, small);
    Result const *pLarge = Find(kind, large);
    if (!pSmall || !pLarge)
        return true;
    double dGrowth = pLarge->dMilliseconds / pSmall->dMilliseconds;
    out << kind << ": " << large << " takes " << Cell(dGrowth, "%.1f") << "x the time of " << small;
    if (!bBar) {
        out << " (for comparison)\n";
        return true;
    }
    // The bar allows 10% over proportional growth for a hundredfold size.
    bool bHolds = dGrowth <= kMaxGrowth;
    out << (bHolds ? " (linear: at most " : " (NOT linear: over ") << Cell(kMaxGrowth, "%.0f") << "x)\n";
    return bHolds;
}

}  // namespace bench
