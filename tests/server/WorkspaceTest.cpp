// Which strategies the workspace checks again: those that read a changed
// file, and those with a load that looks for a file that was missing.
#include "server/Workspace.h"
#include "../check/CheckTestSupport.h"
#include "ServerTestSupport.h"

namespace {

using namespace stratagem::server;

class WorkspaceChecks : public servertest::Vocabulary
{};

TEST_F(WorkspaceChecks, ChecksAgainWhenAFileALoadLooksForAppears)
{
    // The files said to have changed once later.per exists, and the codes main.per ends with.
    std::pair<std::set<std::string>, std::vector<std::string>> const rows[] = {
        {{"/w/later.per"}, {}},
        {{"/w/other.per"}, {"E100"}},
        {{}, {"E100"}},
    };
    for (auto const &[changed, expected] : rows) {
        MemorySources disk;
        disk.files["/w/main.per"] = "(load \"later\")\n";
        DocumentStore documents(&disk);
        Workspace workspace(documents);
        WorkspaceSettings settings;
        settings.root = "/w";
        settings.mainFiles = {"main.per"};
        workspace.Configure(settings);
        workspace.Analyse({}, true);
        disk.files["/w/later.per"] = "(defrule (true) => (do-nothing))\n";
        std::vector<std::string> codes;
        for (FileDiagnostics const &file : workspace.Analyse(changed))
            for (stratagem::Diagnostic const *diagnostic : file.diagnostics)
                codes.push_back(diagnostic->code);
        EXPECT_EQ(expected, codes) << (changed.empty() ? "" : *changed.begin());
    }
}

}  // namespace
