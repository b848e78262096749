#include "CheckMode.h"

#include <cstdlib>
#include <iostream>
#include <set>
#include <tuple>
#include <unistd.h>

#include "CheckSources.h"
#include "DiagnosticWriters.h"

using stratagem::Diagnostic;

namespace {

// NO_COLOR (set and not empty) turns colour off whatever --color says.
bool UseColor(ColorMode mode)
{
    char const *noColor = std::getenv("NO_COLOR");
    if (noColor && *noColor)
        return false;
    return mode == ColorMode::Always || (mode == ColorMode::Auto && ::isatty(STDOUT_FILENO));
}

// Standard input is read once, whatever number of times '-' is named.
bool AddStandardInput(CliOptions const &options, CliSources &sources)
{
    for (std::string const &file : options.files) {
        if (file != "-")
            continue;
        std::string bytes;
        if (!ReadStandardInput(bytes))
            return false;
        sources.Add(kStdinName, std::move(bytes));
        return true;
    }
    return true;
}

// Two main files that load the same file, or share the extra files, find the
// same problems there; each is reported once.
using DiagnosticKey = std::tuple<std::string, int, int, int, int, std::string, std::string>;

DiagnosticKey KeyOf(Diagnostic const &d)
{
    return {d.file, d.range.line, d.range.column, d.range.endLine, d.range.endColumn, d.code, d.message};
}

std::vector<Diagnostic> CheckAll(CliOptions const &options, CliSources const &sources)
{
    stratagem::CheckOptions checkOptions;
    checkOptions.settings = options.settings;
    checkOptions.extraFiles = options.extraFiles;
    checkOptions.sources = &sources;
    checkOptions.fileReports = false;  // the command line writes diagnostics only

    std::vector<Diagnostic> all;
    std::set<DiagnosticKey> seen;
    for (std::string const &file : options.files) {
        stratagem::CheckReport report = stratagem::Check(file == "-" ? kStdinName : file, checkOptions);
        for (Diagnostic &d : report.diagnostics)
            if (seen.insert(KeyOf(d)).second)
                all.push_back(std::move(d));
    }
    return all;
}

}  // namespace

int RunCheck(CliOptions const &options)
{
    CliSources sources;
    if (!AddStandardInput(options, sources)) {
        std::cerr << "stratagem: cannot read standard input" << std::endl;
        return 1;
    }
    std::vector<Diagnostic> const diagnostics = CheckAll(options, sources);

    WriteDiagnostics(std::cout, options.format, diagnostics, {sources, UseColor(options.color)});
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "stratagem: cannot write the output" << std::endl;
        return 1;
    }
    bool bFailed = false;
    for (Diagnostic const &d : diagnostics)
        bFailed = bFailed || d.severity == stratagem::Severity::Error || options.bWerror;
    return bFailed ? 1 : 0;
}
