#include "Workspace.h"

#include <algorithm>

#include "Uri.h"

namespace stratagem::server {

Workspace::Workspace(DocumentStore const &documents) : m_documents(documents) {}

void Workspace::Configure(WorkspaceSettings settings)
{
    m_settings = std::move(settings);
    for (std::string &main : m_settings.mainFiles)
        main = NormalPath(main, m_settings.root);
    m_analyses.clear();
}

std::string Workspace::PathOf(std::string const &reportedName) const { return NormalPath(reportedName); }

void Workspace::Run(std::string const &main, Analysis &analysis)
{
    CheckOptions options;
    options.settings = m_settings.settings;
    options.sources = &m_documents;
    options.cache = &m_cache;
    analysis.report = Check(main, options);
    analysis.files.clear();
    analysis.files.insert(main);
    for (FileReport const &file : analysis.report.files)
        analysis.files.insert(PathOf(file.file));
    // A file created where a load looks for it changes the strategy too.
    analysis.unread.clear();
    for (FileReport const &file : analysis.report.files)
        for (LoadReference const &load : file.loads)
            if (!analysis.files.count(PathOf(load.target)))
                analysis.unread.insert(PathOf(load.target));
}

bool Workspace::Covers(std::string const &main, std::string const &path) const
{
    auto const found = m_analyses.find(main);
    return main != path && found != m_analyses.end() && found->second.files.count(path) > 0;
}

// Main files named in the settings come first; then each open document
// that no other strategy reads. Two open documents that load each other
// form one strategy, whose main file is the one opened first.
std::vector<std::string> Workspace::Roots() const
{
    std::vector<std::string> roots = m_settings.mainFiles;
    std::vector<Document const *> const open = m_documents.All();
    for (Document const *document : open) {
        std::string const &path = document->path;
        if (std::find(roots.begin(), roots.end(), path) != roots.end())
            continue;
        bool covered = std::any_of(m_settings.mainFiles.begin(), m_settings.mainFiles.end(),
                                   [&](std::string const &main) { return Covers(main, path); });
        for (Document const *other : open) {
            if (covered)
                break;
            bool const mutual = Covers(path, other->path) && document->opened < other->opened;
            covered = Covers(other->path, path) && !mutual;
        }
        if (!covered)
            roots.push_back(path);
    }
    return roots;
}

std::vector<FileDiagnostics> Workspace::Analyse(std::set<std::string> const &changed, bool all)
{
    std::set<std::string> candidates(m_settings.mainFiles.begin(), m_settings.mainFiles.end());
    for (Document const *document : m_documents.All())
        candidates.insert(document->path);
    for (auto analysis = m_analyses.begin(); analysis != m_analyses.end();)
        analysis = candidates.count(analysis->first) ? std::next(analysis) : m_analyses.erase(analysis);

    // Configured main files first: an open document one of them reads is
    // analysed in that strategy only, never on its own.
    auto const refresh = [&](std::string const &main) {
        auto const found = m_analyses.find(main);
        bool const stale = all || found == m_analyses.end()
            || std::any_of(changed.begin(), changed.end(), [&](std::string const &path) {
                               return found->second.files.count(path) || found->second.unread.count(path);
                           });
        if (stale)
            Run(main, m_analyses[main]);
    };
    for (std::string const &main : m_settings.mainFiles)
        refresh(main);
    for (Document const *document : m_documents.All()) {
        bool const configured = std::any_of(m_settings.mainFiles.begin(), m_settings.mainFiles.end(),
                                            [&](std::string const &main) { return Covers(main, document->path); });
        if (configured)
            m_analyses.erase(document->path);
        else
            refresh(document->path);
    }

    // Every file of every strategy gets a list, empty or not; a file that
    // was published before and is in no strategy now gets an empty one.
    std::map<std::string, FileDiagnostics> byFile;
    for (std::string const &root : Roots()) {
        Analysis const &analysis = m_analyses.at(root);
        for (std::string const &path : analysis.files)
            byFile[path].path = path;
        for (Diagnostic const &diagnostic : analysis.report.diagnostics) {
            std::string const path = PathOf(diagnostic.file);
            byFile[path].path = path;
            byFile[path].diagnostics.push_back(&diagnostic);
        }
    }
    std::set<std::string> published;
    for (auto const &entry : byFile)
        published.insert(entry.first);
    for (std::string const &path : m_published)
        byFile[path].path = path;
    m_published = std::move(published);

    std::vector<FileDiagnostics> result;
    for (auto &entry : byFile)
        result.push_back(std::move(entry.second));
    return result;
}

FileContext Workspace::ContextOf(std::string const &path) const
{
    std::vector<std::string> roots = Roots();
    roots.push_back(path);
    for (std::string const &root : roots) {
        auto const found = m_analyses.find(root);
        if (found == m_analyses.end() || !found->second.files.count(path))
            continue;
        FileContext context;
        context.report = &found->second.report;
        for (FileReport const &file : context.report->files)
            if (PathOf(file.file) == path)
                context.file = &file;
        return context;
    }
    return {};
}

}  // namespace stratagem::server
