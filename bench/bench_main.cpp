// stratagem_bench: analysis speed on generated strategies of 1,000, 10,000
// and 100,000 rules, and of 1,000 to 100,000 constants. For each strategy it
// measures the analysis alone, the analysis with the listing, the bare
// scan of the same files (the floor no analysis can go below) and check mode
// over the same strategy (which also reads every load-random option), then
// prints a
// table and judges the performance bars (exit status 1 when one fails). A
// small size is measured over several distinct strategies (BenchCase.h).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "AI_TokenCount.h"
#include "BenchCase.h"
#include "BenchSupport.h"
#include "StrategyGenerator.h"
#include "SummaryReporter.h"
#include "check/Check.h"
#include "stratagem.h"

namespace {

using bench::Case;
using bench::GeneratedStrategy;

std::string Describe(CException *pException)
{
    char szMessage[1024] = "";
    pException->GetErrorMessage(szMessage, sizeof szMessage);
    std::string message = std::string(pException->GetRuntimeClass()->m_lpszClassName) + ": " + szMessage;
    delete pException;
    return message;
}

// Analyses the strategy and, when asked, lists it; the strategy is destroyed
// inside, so its teardown is measured too.
void Analyse(GeneratedStrategy const &generated, bench::CountingStream *pListing)
{
    AI_CStrategy strategy("bench", generated.mainFile.c_str(), generated.settings);
    strategy.Analyze();
    if (pListing)
        strategy.PrettyPrint(*pListing, 0);
}

// The first analysis of a strategy, outside the timing: checks that it read
// what was generated (and registers the strategy's constants, as a first
// analysis in a process does).
bool Verify(GeneratedStrategy const &generated, benchmark::State &state)
{
    AI_CStrategy strategy("bench", generated.mainFile.c_str(), generated.settings);
    strategy.Analyze();
    CTypedPtrList<CObList, AI_CObject *> roots;
    strategy.GetObjects(roots);
    // Every file is read except two of the three load-random targets.
    INT_PTR nExpectedFiles = static_cast<INT_PTR>(generated.files.size()) - 2;
    if (roots.GetCount() != 1)
        state.SkipWithError("the analysis left the main file without a command list");
    else if (strategy.GetCommandLists().GetCount() != nExpectedFiles)
        state.SkipWithError("the analysis did not read every generated file");
    else if (strategy.GetConstants().GetCount() != generated.nConstants)
        state.SkipWithError("the analysis did not record every generated constant");
    return !state.error_occurred();
}

// Before a size is timed: its constants registered, every strategy checked,
// and one more analysis, like every timed one, measures the heap and the
// allocations of an analysed strategy (the analyses before it have set up
// the pool's chunks, so the difference is what the strategy holds).
bool Prepare(Case &c, benchmark::State &state)
{
    c.Activate();
    for (GeneratedStrategy const &generated : c.Strategies())
        if (!Verify(generated, state))
            return false;
    GeneratedStrategy const &generated = c.Strategies().front();
    long long nHeapBefore = bench::HeapInUse();
    long long nAllocationsBefore = bench::AllocationCount();
    AI_CStrategy strategy("bench", generated.mainFile.c_str(), generated.settings);
    strategy.Analyze();
    state.counters["heap_MiB"] = static_cast<double>(bench::HeapInUse() - nHeapBefore) / (1 << 20);
    state.counters["allocs_per_rule"]
        = static_cast<double>(bench::AllocationCount() - nAllocationsBefore) / generated.nRules;
    return true;
}

void SetRates(benchmark::State &state, Case const &c)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * c.Info().nBytes);
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * c.Info().nRules);
    state.counters["peak_rss_MiB"] = bench::PeakRssMiB();
}

// Runs the body; an exception marks the benchmark as failed and answers
// false.
template <class Body>
bool Guarded(benchmark::State &state, Body body)
{
    try {
        body();
        return !state.error_occurred();
    } catch (CException *pException) {
        state.SkipWithError(Describe(pException).c_str());
    } catch (std::exception const &error) {
        state.SkipWithError(error.what());
    }
    return false;
}

void RunAnalysis(benchmark::State &state, Case *pCase, bool bListing)
{
    bench::CountingStream listing;
    bool bDone = Guarded(state, [&] {
        if (!Prepare(*pCase, state))
            return;
        for (auto _ : state)
            Analyse(pCase->Next(), bListing ? &listing : nullptr);
    });
    if (!bDone)
        return;
    SetRates(state, *pCase);
    if (bListing)
        state.counters["listing_bytes"] = static_cast<double>(listing.Count()) / state.iterations();
}

// Check mode on the same strategy: every file, every path, every error.
void RunCheck(benchmark::State &state, Case *pCase)
{
    bool bDone = Guarded(state, [&] {
        if (!Prepare(*pCase, state))
            return;
        for (auto _ : state) {
            GeneratedStrategy const &generated = pCase->Next();
            stratagem::CheckOptions options;
            options.settings = generated.settings;
            options.fileReports = false;  // as the command line checks: diagnostics only
            stratagem::CheckReport report = stratagem::Check(generated.mainFile, options);
            if (report.errors != 0)
                state.SkipWithError("the check found errors in a generated strategy");
        }
    });
    if (bDone)
        SetRates(state, *pCase);
}

void RunScanner(benchmark::State &state, Case *pCase)
{
    long long nTokens = 0;
    bool bDone = Guarded(state, [&] {
        GeneratedStrategy const &first = pCase->Strategies().front();
        AI_CStrategy strategy("scan", first.mainFile.c_str(), first.settings);
        AI_CParser parser(&strategy);
        for (auto _ : state) {
            nTokens = 0;
            for (std::string const &file : pCase->Next().files)
                nTokens += AI_CountTokens(&parser, file.c_str());
        }
    });
    if (!bDone)
        return;
    SetRates(state, *pCase);
    state.counters["tokens"] = static_cast<double>(nTokens);
}

// Every benchmark runs in many short repetitions, interleaved with those of
// the others; the summary takes the median, so that a stretch of other work
// on the machine (its neighbours' too) spoils some repetitions of each size
// rather than deciding a verdict.
int const kRepetitions = 11;
double const kSecondsPerRepetition = 0.25;

void Configure(benchmark::internal::Benchmark *pBenchmark)
{
    pBenchmark->Unit(benchmark::kMillisecond)
        ->MinTime(kSecondsPerRepetition)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly(true);
}

void Register(Case *pCase)
{
    Configure(benchmark::RegisterBenchmark(("analysis/" + pCase->Info().label).c_str(), RunAnalysis, pCase, false));
    Configure(
        benchmark::RegisterBenchmark(("analysis+listing/" + pCase->Info().label).c_str(), RunAnalysis, pCase, true));
    Configure(benchmark::RegisterBenchmark(("scanner/" + pCase->Info().label).c_str(), RunScanner, pCase));
    Configure(benchmark::RegisterBenchmark(("check/" + pCase->Info().label).c_str(), RunCheck, pCase));
}

}  // namespace

int main(int argc, char **argv)
{
    // The repetitions of all benchmarks run in a random interleaved order,
    // so that a stretch of other work on the machine is spread over the
    // sizes instead of falling on one of them. A flag given on the command
    // line comes later and decides.
    static char szInterleave[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> args(argv, argv + argc + 1);  // with the closing null
    args.insert(args.begin() + 1, szInterleave);
    int nArgs = argc + 1;
    benchmark::Initialize(&nArgs, args.data());
    if (benchmark::ReportUnrecognizedArguments(nArgs, args.data()))
        return 2;
    bench::KeepFreedMemory();
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();

    bench::TempDirectory directory("stratagem-bench");
    std::vector<std::unique_ptr<Case>> cases;
    for (int nRules : {1000, 10000, 100000})
        cases.push_back(std::make_unique<Case>(directory.Path(), "rules", nRules, nRules, -1));
    // Constants: defconst lines with rules that use them, one rule per four.
    for (int nConstants : {1000, 10000, 100000})
        cases.push_back(std::make_unique<Case>(directory.Path(), "constants", nConstants, nConstants / 4, nConstants));
    for (auto const &pCase : cases)
        Register(pCase.get());

    bench::SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::vector<bench::CaseInfo> infos;
    for (auto const &pCase : cases)
        if (pCase->IsWritten())
            infos.push_back(pCase->Info());
    bool bHolds = reporter.PrintSummary(infos, std::cout);
    benchmark::Shutdown();
    AI_DeleteAll();
    return bHolds ? 0 : 1;
}
