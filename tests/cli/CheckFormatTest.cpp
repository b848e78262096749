// The formats of check mode read back where the host cases under data/,
// which pin text, gcc and JSON byte for byte, cannot: the shape of SARIF,
// empty reports, and a main file without a position.
#include <gtest/gtest.h>

#include <set>

#include "CheckTestSupport.h"

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
    // Rows: pszFormat, pszOut.
    std::pair<char const *, char const *> const cases[] = {{"text", ""}, {"gcc", ""}, {"json", "[]\n"}};
    for (auto const &[pszFormat, pszOut] : cases) {
        RunResult const result = dir.Run({"--check", "-f", pszFormat, "main.per"});
        EXPECT_EQ(result.nStatus, 0) << pszFormat;
        EXPECT_EQ(result.strOut, pszOut) << pszFormat;
        EXPECT_EQ(result.strErr, "");
    }
    Json const log = Json::parse(dir.Run({"--check", "-f", "sarif", "main.per"}).strOut);
    EXPECT_EQ(log.at("runs")[0].at("results"), Json::array());
    EXPECT_EQ(log.at("runs")[0].at("tool").at("driver").at("rules"), Json::array());
}

TEST(CheckFormats, AMainFileThatCannotBeOpenedIsNamedWithoutAPosition)
{
    ScriptDir const dir;
    Json const diagnostics = CheckJson(dir, {"nope.per"}, 1);
    ASSERT_EQ(diagnostics.size(), 1u);
    EXPECT_EQ(diagnostics[0].at("code"), "E100");
    EXPECT_EQ(diagnostics[0].at("line"), 0);

    Json const log = Json::parse(dir.Run({"--check", "-f", "sarif", "nope.per"}).strOut);
    Json const &location = log.at("runs")[0].at("results").at(0).at("locations").at(0).at("physicalLocation");
    EXPECT_EQ(location.at("artifactLocation").at("uri"), "nope.per");
    EXPECT_FALSE(location.contains("region"));  // SARIF lines start at 1
}
