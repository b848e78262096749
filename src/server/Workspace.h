// The analysis side of the server: which strategy each open document
// belongs to, the checks that analyse those strategies, and the
// diagnostics of every file they reach. Every check starts from nothing:
// the checker removes what it registered before it returns; only the
// reading of files whose text and context did not change is taken over.
#ifndef STRATAGEM_SERVER_WORKSPACE_H
#define STRATAGEM_SERVER_WORKSPACE_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include "../check/Check.h"
#include "Documents.h"

namespace stratagem::server {

struct WorkspaceSettings
{
    std::string root;                    // absolute directory; empty when none
    std::vector<std::string> mainFiles;  // absolute paths
    AI_GameSettings settings = AI_gsSettings;
};

// The diagnostics of one file after an analysis.
struct FileDiagnostics
{
    std::string path;
    std::vector<Diagnostic const *> diagnostics;
};

// A file as one strategy sees it.
struct FileContext
{
    CheckReport const *report = nullptr;  // the strategy's check
    FileReport const *file = nullptr;     // null when the check did not reach the file
};

class Workspace
{
public:
    explicit Workspace(DocumentStore const &documents);

    void Configure(WorkspaceSettings settings);
    WorkspaceSettings const &Settings() const { return m_settings; }

    // Checks again every strategy that reads one of `changed` (all of them
    // when `all`), and those of documents opened or closed since the last
    // call. Returns the diagnostics of every file whose diagnostics may
    // have changed, with an empty list for a file that left every strategy.
    std::vector<FileDiagnostics> Analyse(std::set<std::string> const &changed, bool all = false);

    // The strategy a file is analysed in: that of a main file that reaches
    // it, else its own.
    FileContext ContextOf(std::string const &path) const;
    std::string PathOf(std::string const &reportedName) const;

private:
    struct Analysis
    {
        CheckReport report;
        std::set<std::string> files;   // normal paths of every file reached
        std::set<std::string> unread;  // files a load names that could not be read
        bool configured = false;
    };

    void Run(std::string const &main, Analysis &analysis);
    bool Covers(std::string const &main, std::string const &path) const;
    std::vector<std::string> Roots() const;

    DocumentStore const &m_documents;
    WorkspaceSettings m_settings;
    std::map<std::string, Analysis> m_analyses;  // by main file
    std::set<std::string> m_published;           // files with diagnostics sent last time
    CheckCache m_cache;                          // what the checks read, for the next ones
};

}  // namespace stratagem::server

#endif
