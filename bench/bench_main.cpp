// stratagem_bench: analysis speed on generated strategies of 1,000, 10,000
// and 100,000 rules, and of 1,000 to 100,000 constants. For each strategy it
// measures the analysis alone, the analysis with the listing, and the bare
// scan of the same files (the floor no analysis can go below), then prints a
// table and judges the performance bars (exit status 1 when one fails).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "AI_TokenCount.h"
#include "BenchSupport.h"
#include "StrategyGenerator.h"
#include "SummaryReporter.h"
#include "stratagem.h"

namespace {

using bench::GeneratedStrategy;

// One strategy size. Its files are written on first use, so that a run
// filtered down to some benchmarks only writes the strategies it measures.
class Case
{
public:
    // Labelled "<kind>:<size>", e.g. "rules:1000".
    Case(std::string const &directory, std::string const &kind, int nSize, int nRules, int nConstants)
        : m_directory(directory + "/" + kind + "-" + std::to_string(nSize))
    {
        m_info = {kind + ":" + std::to_string(nSize), 0, 0, 0};
        m_options.nRules = nRules;
        m_options.nConstants = nConstants;
        m_options.tag = kind.substr(0, 1) + std::to_string(nSize);  // "r1000-c7", "c1000-c7"
    }

    bench::CaseInfo const &Info() const { return m_info; }
    bool IsWritten() const { return !m_strategy.files.empty(); }

    GeneratedStrategy const &Strategy()
    {
        if (!IsWritten())
        {
            static bench::ScriptVocabulary const vocabulary;
            std::filesystem::create_directory(m_directory);
            m_strategy = bench::GenerateStrategy(vocabulary, m_directory, m_options);
            m_info.nRules = m_strategy.nRules;
            m_info.nConstants = m_strategy.nConstants;
            m_info.nBytes = m_strategy.nBytes;
        }
        return m_strategy;
    }

private:
    std::string m_directory;
    bench::GeneratorOptions m_options;
    bench::CaseInfo m_info;
    GeneratedStrategy m_strategy;
};

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

// Two analyses outside the timing. The first checks that the analysis read
// what was generated (and registers the constants, as a first analysis in a
// process does); the second, like every timed one, finds them registered and
// measures the heap and the allocations of an analysed strategy.
bool Verify(GeneratedStrategy const &generated, benchmark::State &state)
{
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
        if (state.error_occurred())
            return false;
    }
    long long nHeapBefore = bench::HeapInUse();
    long long nAllocationsBefore = bench::AllocationCount();
    AI_CStrategy strategy("bench", generated.mainFile.c_str(), generated.settings);
    strategy.Analyze();
    state.counters["heap_MiB"] = static_cast<double>(bench::HeapInUse() - nHeapBefore) / (1 << 20);
    state.counters["allocs_per_rule"] =
        static_cast<double>(bench::AllocationCount() - nAllocationsBefore) / generated.nRules;
    return true;
}

void SetRates(benchmark::State &state, Case const &c)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * c.Info().nBytes);
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * c.Info().nRules);
    state.counters["peak_rss_MiB"] = bench::PeakRssMiB();
}

void RunAnalysis(benchmark::State &state, Case *pCase, bool bListing)
{
    bench::CountingStream listing;
    try
    {
        GeneratedStrategy const &generated = pCase->Strategy();
        if (!Verify(generated, state))
            return;
        for (auto _ : state)
            Analyse(generated, bListing ? &listing : nullptr);
    }
    catch (CException *pException)
    {
        state.SkipWithError(Describe(pException).c_str());
        return;
    }
    catch (std::exception const &error)
    {
        state.SkipWithError(error.what());
        return;
    }
    SetRates(state, *pCase);
    if (bListing)
        state.counters["listing_bytes"] = static_cast<double>(listing.Count()) / state.iterations();
}

void RunScanner(benchmark::State &state, Case *pCase)
{
    long long nTokens = 0;
    try
    {
        GeneratedStrategy const &generated = pCase->Strategy();
        AI_CStrategy strategy("scan", generated.mainFile.c_str(), generated.settings);
        AI_CParser parser(&strategy);
        for (auto _ : state)
        {
            nTokens = 0;
            for (std::string const &file : generated.files)
                nTokens += AI_CountTokens(&parser, file.c_str());
        }
    }
    catch (CException *pException)
    {
        state.SkipWithError(Describe(pException).c_str());
        return;
    }
    catch (std::exception const &error)
    {
        state.SkipWithError(error.what());
        return;
    }
    SetRates(state, *pCase);
    state.counters["tokens"] = static_cast<double>(nTokens);
}

void Register(Case *pCase)
{
    benchmark::RegisterBenchmark(("analysis/" + pCase->Info().label).c_str(), RunAnalysis, pCase, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("analysis+listing/" + pCase->Info().label).c_str(), RunAnalysis, pCase, true)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("scanner/" + pCase->Info().label).c_str(), RunScanner, pCase)
        ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
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
