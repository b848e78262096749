// stratagem_lsp_bench: the editor server on a generated 10,000-rule
// strategy, driven in-process message by message as an editor would drive
// it. Measured: the time from a one-line edit to its diagnostics being
// published (the server publishes before it reads the next message),
// completion and hover right after an edit, and resident memory after
// 1,000 edits against that after the first. Prints a summary and exits
// with status 1 when a bar is missed.
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "ScriptVocabulary.h"
#include "StrategyGenerator.h"
#include "server/Server.h"
#include "server/Uri.h"
#include "stratagem.h"

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

int const kRules = 10000;
double const kDiagnosticsBarMs = 30.0;
double const kRequestBarMs = 5.0;
double const kMemoryBarPercent = 5.0;
int const kEdits = 1000;

// Counts what the server writes and remembers nothing.
class NullBuffer : public std::streambuf
{
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(char const *, std::streamsize n) override { return n; }
};

long ResidentKiB()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

std::string ReadAll(std::string const &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The strategy, written once for every benchmark.
struct Fixture
{
    fs::path directory;
    bench::GeneratedStrategy strategy;
    std::string editedFile;  // the largest part file: the one edited
    std::string editedText;
    int editLine = 0;  // a line holding a fact call, edited in place
    int editLineLength = 0;
    std::string mainText;
    int constantLine = -1;  // the main file's first constant definition
    int constantValue = 0;  // where its value begins
    int constantLength = 0;
    int hoverCharacter = 0;

    static Fixture &Get()
    {
        static Fixture fixture;
        return fixture;
    }

private:
    Fixture()
    {
        directory = fs::temp_directory_path() / ("stratagem-lsp-bench-" + std::to_string(getpid()));
        fs::create_directories(directory);
        bench::ScriptVocabulary const vocabulary;
        bench::GeneratorOptions options;
        options.nRules = kRules;
        strategy = bench::GenerateStrategy(vocabulary, directory.string(), options);
        std::size_t largest = 0;
        for (std::string const &file : strategy.files) {
            std::string text = ReadAll(file);
            if (file != strategy.mainFile && text.size() > largest) {
                largest = text.size();
                editedFile = file;
                editedText = std::move(text);
            }
        }
        // The first rule's first condition: "\t(fact ..." after a "(defrule" line.
        std::istringstream lines(editedText);
        std::string line, previous;
        for (int n = 0; std::getline(lines, line); ++n, previous = line) {
            if (previous.find("(defrule") != std::string::npos && line.find('(') != std::string::npos
                && line.find("(not") == std::string::npos && line.find("(and") == std::string::npos
                && line.find("(or") == std::string::npos) {
                editLine = n;
                editLineLength = static_cast<int>(line.size());
                hoverCharacter = static_cast<int>(line.find('(')) + 2;
                break;
            }
        }
        mainText = ReadAll(strategy.mainFile);
        std::istringstream mainLines(mainText);
        for (int n = 0; std::getline(mainLines, line); ++n)
            if (line.rfind("(defconst ", 0) == 0 && line.back() == ')') {
                constantLine = n;
                constantValue = static_cast<int>(line.rfind(' ')) + 1;
                constantLength = static_cast<int>(line.size()) - 1 - constantValue;
                break;
            }
    }

public:
    ~Fixture()
    {
        std::error_code error;
        fs::remove_all(directory, error);
    }
};

// A server with the strategy's main file configured and its largest part
// file open, as when an author works on one file of a large strategy.
class Editor
{
public:
    Editor() : m_sink(&m_null), m_server(m_sink)
    {
        Fixture &fixture = Fixture::Get();
        m_uri = stratagem::server::PathToUri(fs::absolute(fixture.editedFile).string());
        fs::path const main = fs::path(fixture.strategy.mainFile).filename();
        Send({{"id", 0},
              {"method", "initialize"},
              {"params",
               {{"rootUri", stratagem::server::PathToUri(fs::absolute(fixture.directory).string())},
                {"initializationOptions", {{"mainFiles", {main.string()}}}}}}});
        Send({{"method", "textDocument/didOpen"},
              {"params", {{"textDocument", {{"uri", m_uri}, {"version", 1}, {"text", fixture.editedText}}}}}});
    }

    // Writes a number in a comment at the end of the edited line, a new
    // one at every call: every edit leaves a text no check has read before,
    // so the edited file is always read again, while the rest of the
    // strategy stays the same.
    void Edit()
    {
        Fixture &fixture = Fixture::Get();
        int const nEnd = fixture.editLineLength;
        char number[8];
        std::snprintf(number, sizeof number, "%06d", m_version % 1000000);
        Json const start = {{"line", fixture.editLine}, {"character", m_commented ? nEnd + 2 : nEnd}};
        Json const end = {{"line", fixture.editLine}, {"character", m_commented ? nEnd + 8 : nEnd}};
        Json const change = {{"range", {{"start", start}, {"end", end}}},
                             {"text", m_commented ? std::string(number) : std::string(" ;") + number}};
        m_commented = true;
        Send(
            {{"method", "textDocument/didChange"},
             {"params", {{"textDocument", {{"uri", m_uri}, {"version", ++m_version}}}, {"contentChanges", {change}}}}});
    }

    // Opens the main file too.
    void OpenMain()
    {
        Fixture &fixture = Fixture::Get();
        m_mainUri = stratagem::server::PathToUri(fs::absolute(fixture.strategy.mainFile).string());
        Send({{"method", "textDocument/didOpen"},
              {"params", {{"textDocument", {{"uri", m_mainUri}, {"version", 1}, {"text", fixture.mainText}}}}}});
    }

    // Gives the main file's first constant another value (1, 2 or 3 in
    // turn): the main file is read first, so every file that uses the
    // constant is read again too.
    void EditConstant()
    {
        Fixture &fixture = Fixture::Get();
        int &length = fixture.constantLength;
        std::string const value = std::to_string(1 + m_version % 3);
        Json const start = {{"line", fixture.constantLine}, {"character", fixture.constantValue}};
        Json const end = {{"line", fixture.constantLine}, {"character", fixture.constantValue + length}};
        length = static_cast<int>(value.size());
        Send({{"method", "textDocument/didChange"},
              {"params",
               {{"textDocument", {{"uri", m_mainUri}, {"version", ++m_version}}},
                {"contentChanges", {{{"range", {{"start", start}, {"end", end}}}, {"text", value}}}}}}});
    }

    void Request(std::string const &method, int character)
    {
        Json const position = {{"line", Fixture::Get().editLine}, {"character", character}};
        Send({{"id", ++m_id},
              {"method", method},
              {"params", {{"textDocument", {{"uri", m_uri}}}, {"position", position}}}});
    }

private:
    void Send(Json message)
    {
        message["jsonrpc"] = "2.0";
        m_server.Handle(message.dump());
    }

    NullBuffer m_null;
    std::ostream m_sink;
    stratagem::server::Server m_server;
    std::string m_uri;
    std::string m_mainUri;
    int m_version = 1;
    int m_id = 0;
    bool m_commented = false;  // the edited line has its comment
};

// The floor: one check of the whole strategy, which every edit needs.
void BM_CheckAlone(benchmark::State &state)
{
    stratagem::CheckOptions options;
    for (auto _ : state)
        benchmark::DoNotOptimize(stratagem::Check(Fixture::Get().strategy.mainFile, options));
}

void BM_EditToDiagnostics(benchmark::State &state)
{
    Editor editor;
    for (auto _ : state)
        editor.Edit();
}

// A constant's value in the main file, which every file read after it may
// use.
void BM_ConstantEditToDiagnostics(benchmark::State &state)
{
    if (Fixture::Get().constantLine < 0) {
        state.SkipWithError("the main file defines no constant");
        return;
    }
    Editor editor;
    editor.OpenMain();
    for (auto _ : state)
        editor.EditConstant();
}

// One request right after an edit; only the request is timed.
void RequestAfterEdit(benchmark::State &state, char const *method)
{
    Editor editor;
    int const character = Fixture::Get().hoverCharacter;
    for (auto _ : state) {
        state.PauseTiming();
        editor.Edit();
        state.ResumeTiming();
        editor.Request(method, character);
    }
}

void BM_CompletionAfterEdit(benchmark::State &state) { RequestAfterEdit(state, "textDocument/completion"); }

void BM_HoverAfterEdit(benchmark::State &state) { RequestAfterEdit(state, "textDocument/hover"); }

// Resident memory after the first edit and after 1,000 more.
void BM_MemoryOverEdits(benchmark::State &state)
{
    for (auto _ : state) {
        Editor editor;
        editor.Edit();
        long const first = ResidentKiB();
        for (int i = 0; i < kEdits; ++i)
            editor.Edit();
        long const after = ResidentKiB();
        state.counters["rss_first_KiB"] = static_cast<double>(first);
        state.counters["rss_after_KiB"] = static_cast<double>(after);
        state.counters["growth_percent"] = 100.0 * static_cast<double>(after - first) / static_cast<double>(first);
    }
}

// Keeps the medians and counters for the summary.
class Summary : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(std::vector<Run> const &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (Run const &run : runs) {
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.GetAdjustedRealTime();
            if (run.counters.count("growth_percent"))
                growth = run.counters.at("growth_percent"), first = run.counters.at("rss_first_KiB"),
                after = run.counters.at("rss_after_KiB");
        }
    }
    std::map<std::string, double> medians;  // milliseconds
    double growth = 0, first = 0, after = 0;
};

}  // namespace

BENCHMARK(BM_CheckAlone)->Unit(benchmark::kMillisecond)->Iterations(20)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_EditToDiagnostics)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_ConstantEditToDiagnostics)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_CompletionAfterEdit)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_HoverAfterEdit)->Unit(benchmark::kMillisecond)->Iterations(20)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_MemoryOverEdits)->Unit(benchmark::kMillisecond)->Iterations(1);

int main(int argc, char **argv)
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    benchmark::Initialize(&argc, argv);
    Fixture &fixture = Fixture::Get();
    std::printf("strategy: %d rules in %zu files, %lld bytes; edited file %s (%zu bytes), line %d\n",
                fixture.strategy.nRules, fixture.strategy.files.size(), fixture.strategy.nBytes,
                fs::path(fixture.editedFile).filename().c_str(), fixture.editedText.size(), fixture.editLine + 1);
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);

    struct Bar
    {
        char const *name;
        char const *what;
        double limit;
    };
    Bar const bars[] = {{"BM_EditToDiagnostics", "edit to diagnostics published", kDiagnosticsBarMs},
                        {"BM_CompletionAfterEdit", "completion", kRequestBarMs},
                        {"BM_HoverAfterEdit", "hover", kRequestBarMs}};
    bool ok = true;
    std::printf("\n%-32s %10s %10s\n", "median", "ms", "bar ms");
    for (Bar const &bar : bars) {
        double const median = summary.medians[bar.name];
        ok = ok && median <= bar.limit;
        std::printf("%-32s %10.2f %10.1f %s\n", bar.what, median, bar.limit, median <= bar.limit ? "ok" : "MISSED");
    }
    std::printf("%-32s %10.2f %10s\n", "edit of a constant's value", summary.medians["BM_ConstantEditToDiagnostics"],
                "-");
    bool const memoryOk = summary.growth <= kMemoryBarPercent;
    std::printf("resident memory: %.0f KiB after the first edit, %.0f KiB after %d more (%+.2f%%, bar %.0f%%) %s\n",
                summary.first, summary.after, kEdits, summary.growth, kMemoryBarPercent, memoryOk ? "ok" : "MISSED");
    benchmark::Shutdown();
    AI_DeleteAll();
    return ok && memoryOk ? 0 : 1;
}
