// The four formats of check mode, read back: text and gcc line by line,
// JSON and SARIF parsed and checked field by field.
#include <gtest/gtest.h>

#include <set>

#include "CheckTestSupport.h"

namespace {

struct Expected
{
    char const *pszFile;
    int nLine, nColumn, nEndLine, nEndColumn;
    Strings loadedFrom;  // "file:line:column", from the main file down
};

Expected const kTwoErrors[] = {
    {"main.per", 2, 21, 2, 23, {}},
    {"sub/rules.per", 4, 3, 4, 5, {"main.per:1:1"}},
};

}  // namespace

TEST(CheckFormats, JsonCarriesEveryFieldOfEveryDiagnostic)
{
    ScriptDir const dir = TwoErrorStrategy();
    Json const diagnostics = CheckJson(dir, {"main.per"}, 1);
    ASSERT_EQ(diagnostics.size(), 2u) << diagnostics.dump(1);
    for (Expected const &e : kTwoErrors) {
        Json const found = InFile(diagnostics, e.pszFile);
        ASSERT_EQ(found.size(), 1u) << e.pszFile;
        Json const &d = found[0];
        EXPECT_EQ(d.at("line"), e.nLine);
        EXPECT_EQ(d.at("column"), e.nColumn);
        EXPECT_EQ(d.at("endLine"), e.nEndLine);
        EXPECT_EQ(d.at("endColumn"), e.nEndColumn);
        EXPECT_EQ(d.at("severity"), "error");
        EXPECT_EQ(d.at("code"), "E007");
        EXPECT_FALSE(d.at("message").get<std::string>().empty());
        EXPECT_EQ(d.at("message").get<std::string>().find('\n'), std::string::npos);
        ASSERT_TRUE(d.at("hints").is_array());
        for (Json const &hint : d.at("hints"))
            EXPECT_TRUE(hint.is_string());
        Strings chain;
        for (Json const &step : d.at("loadedFrom"))
            chain.push_back(step.at("file").get<std::string>() + ":" + std::to_string(step.at("line").get<int>()) + ":"
                            + std::to_string(step.at("column").get<int>()));
        EXPECT_EQ(chain, e.loadedFrom) << e.pszFile;
    }
}

TEST(CheckFormats, GccWritesExactlyOneLinePerDiagnostic)
{
    ScriptDir const dir = TwoErrorStrategy();
    RunResult const result = dir.Run({"--check", "-f", "gcc", "main.per"});
    EXPECT_EQ(result.nStatus, 1);
    Strings const lines = SplitLines(result.strOut);
    ASSERT_EQ(lines.size(), 2u) << result.strOut;
    // file:line:column: severity: message [CODE]
    for (std::string const &line : lines) {
        std::istringstream in(line);
        std::string file, severity;
        int nLine = 0, nColumn = 0;
        char chColon1 = 0, chColon2 = 0;
        std::getline(in, file, ':');
        in >> nLine >> chColon1 >> nColumn >> chColon2 >> severity;
        EXPECT_TRUE(in && !file.empty() && nLine > 0 && nColumn > 0 && chColon1 == ':' && chColon2 == ':') << line;
        EXPECT_TRUE(severity == "error:" || severity == "warning:") << line;
        EXPECT_TRUE(line.size() > 7 && line.compare(line.size() - 7, 2, " [") == 0 && line.back() == ']') << line;
    }
    for (Expected const &e : kTwoErrors) {
        std::string const prefix
            = std::string(e.pszFile) + ":" + std::to_string(e.nLine) + ":" + std::to_string(e.nColumn) + ": error: ";
        EXPECT_EQ(std::count_if(
                      lines.begin(), lines.end(),
                      [&](std::string const &line) { return StartsWith(line, prefix) && EndsWith(line, " [E007]"); }),
                  1)
            << prefix;
    }
}

TEST(CheckFormats, TextQuotesTheSourceLineWithACaretUnderTheRangeAndNamesTheLoads)
{
    ScriptDir const dir = TwoErrorStrategy();
    RunResult const result = dir.Run({"--check", "main.per"});
    EXPECT_EQ(result.nStatus, 1);
    Strings const lines = SplitLines(result.strOut);
    struct Case
    {
        char const *pszHeading;
        char const *pszSource;
        char const *pszCaret;  // tabs of the source line are kept, so the caret lines up
        char const *pszChain;  // the note that names the load, or null
    } const cases[] = {
        {"sub/rules.per:4:3: error: ", "\t(bar))", "\t ^~~", "note: loaded from main.per:1:1"},
        {"main.per:2:21: error: ", "(defrule (true) => (foo))", "                    ^~~", nullptr},
    };
    for (Case const &c : cases) {
        auto const heading = std::find_if(lines.begin(), lines.end(),
                                          [&](std::string const &line) { return StartsWith(line, c.pszHeading); });
        ASSERT_NE(heading, lines.end()) << c.pszHeading << "\n" << result.strOut;
        EXPECT_TRUE(EndsWith(*heading, " [E007]")) << *heading;
        ASSERT_GE(lines.end() - heading, 3);
        EXPECT_EQ(heading[1], c.pszSource);
        EXPECT_EQ(heading[2], c.pszCaret);
        // The notes follow, up to the next diagnostic or the summary.
        Strings notes;
        for (auto line = heading + 3; line != lines.end() && StartsWith(*line, "note: "); ++line)
            notes.push_back(*line);
        bool const bChainNamed = std::find(notes.begin(), notes.end(), c.pszChain ? c.pszChain : "") != notes.end();
        EXPECT_EQ(bChainNamed, c.pszChain != nullptr) << result.strOut;
    }
    EXPECT_EQ(lines.back(), "2 errors generated.");
    EXPECT_EQ(result.strOut.find('\033'), std::string::npos);
}

TEST(CheckFormats, SarifIsOneRunWithOneRulePerCodeAndExclusiveEndColumns)
{
    ScriptDir const dir({{"main.per", "(load \"sub/rules\")\n(defrule (true) => (foo))\n(defconst x food)\n"},
                         {"sub/rules.per", "(defrule\n\t(true)\n=>\n\t(bar))\n"}});
    RunResult const result = dir.Run({"--check", "-f", "sarif", "main.per"});
    EXPECT_EQ(result.nStatus, 1);
    Json const log = Json::parse(result.strOut, nullptr, false);
    ASSERT_TRUE(log.is_object()) << result.strOut;
    EXPECT_EQ(log.at("version"), "2.1.0");
    EXPECT_NE(log.at("$schema").get<std::string>().find("sarif"), std::string::npos);
    ASSERT_EQ(log.at("runs").size(), 1u);
    Json const &run = log.at("runs")[0];
    EXPECT_EQ(run.at("tool").at("driver").at("name"), "stratagem");
    EXPECT_FALSE(run.at("tool").at("driver").at("version").get<std::string>().empty());

    Json const &rules = run.at("tool").at("driver").at("rules");
    std::set<std::string> ids;
    for (Json const &rule : rules) {
        EXPECT_TRUE(ids.insert(rule.at("id").get<std::string>()).second) << rule.dump();
        EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
    }
    EXPECT_EQ(ids, (std::set<std::string> {"E007", "E013"}));

    Json const &results = run.at("results");
    ASSERT_EQ(results.size(), 3u);
    std::set<std::string> used;
    for (Json const &r : results) {
        EXPECT_EQ(rules.at(r.at("ruleIndex").get<std::size_t>()).at("id"), r.at("ruleId"));
        EXPECT_EQ(r.at("level"), "error");
        EXPECT_FALSE(r.at("message").at("text").get<std::string>().empty());
        used.insert(r.at("ruleId").get<std::string>());
    }
    EXPECT_EQ(used, ids);

    // 'bar' at 4:3-5 inclusive is 4:3-6 in SARIF, reached from main.per 1:1.
    auto const bar = std::find_if(results.begin(), results.end(), [](Json const &r) {
        return r.at("locations")[0].at("physicalLocation").at("artifactLocation").at("uri") == "sub/rules.per";
    });
    ASSERT_NE(bar, results.end());
    EXPECT_EQ((*bar)["locations"][0]["physicalLocation"]["region"],
              Json({{"startLine", 4}, {"startColumn", 3}, {"endLine", 4}, {"endColumn", 6}}));
    Json const &related = (*bar).at("relatedLocations");
    ASSERT_EQ(related.size(), 1u);
    EXPECT_EQ(related[0]["physicalLocation"]["artifactLocation"]["uri"], "main.per");
    EXPECT_EQ(related[0]["physicalLocation"]["region"]["startLine"], 1);
}

TEST(CheckFormats, CleanStrategiesGiveEmptyOutputsOfEachFormat)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    struct Case
    {
        char const *pszFormat;
        char const *pszOut;
    } const cases[] = {{"text", ""}, {"gcc", ""}, {"json", "[]\n"}};
    for (Case const &c : cases) {
        RunResult const result = dir.Run({"--check", "-f", c.pszFormat, "main.per"});
        EXPECT_EQ(result.nStatus, 0) << c.pszFormat;
        EXPECT_EQ(result.strOut, c.pszOut) << c.pszFormat;
        EXPECT_EQ(result.strErr, "");
    }
    Json const log = Json::parse(dir.Run({"--check", "-f", "sarif", "main.per"}).strOut);
    EXPECT_EQ(log.at("runs")[0].at("results"), Json::array());
    EXPECT_EQ(log.at("runs")[0].at("tool").at("driver").at("rules"), Json::array());
}

TEST(CheckFormats, TextQuotesLinesAsTheCheckReadsThem)
{
    // Text mode: CR LF ends a line, and a byte-order mark at the start is
    // skipped, columns counting from after it.
    struct Case
    {
        char const *pszBytes;
        char const *pszHeading;
        char const *pszSource;
        char const *pszCaret;
    } const cases[] = {
        {"(defrule (true)\r\n=> (foo))\r\n", "main.per:2:5: error: ", "=> (foo))", "    ^~~"},
        {"\xEF\xBB\xBF(defrule (true) => (foo))\n", "main.per:1:21: error: ", "(defrule (true) => (foo))",
         "                    ^~~"},
    };
    for (Case const &c : cases) {
        ScriptDir const dir({{"main.per", std::string(c.pszBytes)}});
        Strings const lines = SplitLines(dir.Run({"--check", "main.per"}).strOut);
        auto const heading = std::find_if(lines.begin(), lines.end(),
                                          [&](std::string const &line) { return StartsWith(line, c.pszHeading); });
        ASSERT_NE(heading, lines.end()) << c.pszHeading;
        ASSERT_GE(lines.end() - heading, 3);
        EXPECT_EQ(heading[1], c.pszSource);
        EXPECT_EQ(heading[2], c.pszCaret);
    }
}

TEST(CheckFormats, AMainFileThatCannotBeOpenedIsNamedWithoutAPosition)
{
    ScriptDir const dir;
    struct Case
    {
        char const *pszFormat;
        char const *pszFirstLine;  // its beginning
    } const cases[] = {{"text", "nope.per: error: "}, {"gcc", "nope.per: error: "}};
    for (Case const &c : cases) {
        RunResult const result = dir.Run({"--check", "-f", c.pszFormat, "nope.per"});
        EXPECT_EQ(result.nStatus, 1);
        Strings const lines = SplitLines(result.strOut);
        ASSERT_FALSE(lines.empty());
        EXPECT_TRUE(StartsWith(lines[0], c.pszFirstLine)) << lines[0];
        EXPECT_TRUE(EndsWith(lines[0], " [E100]")) << lines[0];
    }
    Json const diagnostics = CheckJson(dir, {"nope.per"}, 1);
    ASSERT_EQ(diagnostics.size(), 1u);
    EXPECT_EQ(diagnostics[0].at("code"), "E100");
    EXPECT_EQ(diagnostics[0].at("line"), 0);

    Json const log = Json::parse(dir.Run({"--check", "-f", "sarif", "nope.per"}).strOut);
    Json const &location = log.at("runs")[0].at("results").at(0).at("locations").at(0).at("physicalLocation");
    EXPECT_EQ(location.at("artifactLocation").at("uri"), "nope.per");
    EXPECT_FALSE(location.contains("region"));  // SARIF lines start at 1
}
