// What reading one file gives a check, kept apart from the strategy that
// read it so that a later check can take it over, and the cache that keeps
// such readings between checks. Internal to the library.
#ifndef STRATAGEM_CHECK_FILEREADING_H
#define STRATAGEM_CHECK_FILEREADING_H

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "../parser/AI_Span.h"
#include "Check.h"
#include "CheckText.h"

namespace stratagem {

// A command that a path through a file follows, with what following it
// needs. Constants go by name: their SIDs are new in every check.
struct Step
{
    enum Kind
    {
        Defconst,
        Load,
        LoadRandom,
        Block
    };
    Kind kind = Defconst;
    AI_Span span {0, 0};   // the whole command
    std::string constant;  // Defconst: the name, its value and where the name is written
    int nValue = 0;
    AI_Span nameSpan {0, 0};
    std::vector<std::pair<std::string, AI_Span>> targets;  // loads: each file, with the string naming it
    std::vector<Step> branches[2];                         // Block: the commands of either branch
};

// What reading one file gave, with nothing that points into the strategy
// that read it: a later check takes it over while the bytes and the
// constants visible where the file is read are the same.
struct FileReading
{
    std::string bytes;        // as the source provider gave them (kept only for a cache)
    std::string environment;  // all the constants visible where it was read (only with errors)
    ScriptText text;
    std::unique_ptr<LineMap> lines;
    std::vector<Suppression> suppressions;
    std::vector<AI_Span> commands;  // every command's span in text order, when suppressions need it
    std::vector<Step> steps;
    // The rest only for a cache: what reading the file did to the check.
    std::vector<Diagnostic> diagnostics;                       // their load chains are the next check's own
    FileReport report;                                         // likewise
    std::vector<std::pair<std::string, int>> registered;       // constants it registered, in order
    std::vector<std::pair<std::string, AI_Span>> definitions;  // each constant it defines, where the name is
    std::vector<std::pair<std::string, int>> used;             // constants it uses, with the values it saw
    bool bErrors = false;                                      // hints may name any constant registered
};

struct CheckCache::Entries
{
    struct Kept
    {
        std::shared_ptr<FileReading> reading;
        unsigned nLastUsed = 0;
    };
    // A file's readings are dropped once this many checks have not used them.
    static unsigned const kUnusedChecks = 16;
    // Readings kept per file, the newest first: the current text, and the
    // one before it for an edit undone.
    static std::size_t const kPerFile = 2;

    AI_GameSettings settings = AI_gsSettings;
    bool bFileReports = true;
    unsigned nCheck = 0;
    std::unordered_map<std::string, std::vector<Kept>> files;

    // Starts a check; readings made under other options are dropped.
    void Begin(CheckOptions const &options)
    {
        if (std::memcmp(&settings, &options.settings, sizeof settings) != 0 || bFileReports != options.fileReports)
            files.clear();
        settings = options.settings;
        bFileReports = options.fileReports;
        ++nCheck;
    }

    // A reading of the bytes that `holds` says still holds.
    template <class Holds>
    std::shared_ptr<FileReading> Find(std::string const &name, std::string const &bytes, Holds holds)
    {
        auto found = files.find(name);
        if (found == files.end())
            return nullptr;
        for (Kept &kept : found->second)
            if (kept.reading->bytes == bytes && holds(*kept.reading)) {
                kept.nLastUsed = nCheck;
                return kept.reading;
            }
        return nullptr;
    }

    void Keep(std::string const &name, std::shared_ptr<FileReading> reading)
    {
        std::vector<Kept> &kept = files[name];
        kept.insert(kept.begin(), {std::move(reading), nCheck});
        if (kept.size() > kPerFile)
            kept.pop_back();
    }

    void End()
    {
        for (auto file = files.begin(); file != files.end();) {
            std::vector<Kept> &kept = file->second;
            kept.erase(std::remove_if(kept.begin(), kept.end(),
                                      [&](Kept const &k) { return nCheck - k.nLastUsed >= kUnusedChecks; }),
                       kept.end());
            file = kept.empty() ? files.erase(file) : std::next(file);
        }
    }
};

}  // namespace stratagem

#endif
