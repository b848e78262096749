// The library's folders are layers that point one way: a folder includes
// only folders below it, and no header or source file reaches itself
// through its includes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Lowest first.
std::vector<std::string> const kLayers
    = {"platform", "vocabulary", "objects", "strategy", "parser", "analysis", "check", "server"};

int Rank(std::string const &folder)
{
    for (std::size_t i = 0; i < kLayers.size(); ++i)
        if (kLayers[i] == folder)
            return static_cast<int>(i);
    return -1;
}

// Every library file with the files its quoted includes name (those that
// exist beside it).
std::map<fs::path, std::vector<fs::path>> IncludeGraph()
{
    std::map<fs::path, std::vector<fs::path>> graph;
    std::regex const include("^\\s*#\\s*include\\s*\"([^\"]+)\"");
    for (auto const &entry : fs::recursive_directory_iterator(fs::path(STRATAGEM_SOURCE_DIR) / "src")) {
        if (!entry.is_regular_file())
            continue;
        std::vector<fs::path> &targets = graph[entry.path().lexically_normal()];
        std::ifstream in(entry.path());
        std::smatch match;
        for (std::string line; std::getline(in, line);) {
            if (!std::regex_search(line, match, include))
                continue;
            fs::path target = (entry.path().parent_path() / match[1].str()).lexically_normal();
            if (fs::exists(target))
                targets.push_back(target);
        }
    }
    return graph;
}

std::string FolderOf(fs::path const &file) { return file.parent_path().filename().string(); }

TEST(Layers, EachFolderIncludesOnlyFoldersBelowIt)
{
    for (auto const &entry : fs::directory_iterator(fs::path(STRATAGEM_SOURCE_DIR) / "src"))
        if (entry.is_directory()) {
            EXPECT_GE(Rank(entry.path().filename().string()), 0) << "a folder without a layer: " << entry.path();
        }
    for (auto const &node : IncludeGraph()) {
        std::string from = FolderOf(node.first);
        for (fs::path const &target : node.second) {
            std::string to = FolderOf(target);
            if (to == from || Rank(from) < 0)
                continue;
            EXPECT_LT(Rank(to), Rank(from)) << node.first << " includes " << target;
        }
    }
}

TEST(Layers, NoFileReachesItselfThroughItsIncludes)
{
    auto graph = IncludeGraph();
    std::map<fs::path, int> state;  // 1 on the current path, 2 done
    std::vector<fs::path> path;
    std::function<void(fs::path const &)> visit = [&](fs::path const &file) {
        state[file] = 1;
        path.push_back(file);
        for (fs::path const &target : graph[file]) {
            if (state[target] == 1)
                ADD_FAILURE() << "include loop through " << target << " from " << file;
            else if (state[target] == 0)
                visit(target);
        }
        path.pop_back();
        state[file] = 2;
    };
    for (auto const &node : graph)
        if (state[node.first] == 0)
            visit(node.first);
}

}  // namespace
