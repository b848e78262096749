// End-to-end support for check mode: the host run with --check and its
// output read back.
#ifndef STRATAGEM_TESTS_CLI_CHECKTESTSUPPORT_H
#define STRATAGEM_TESTS_CLI_CHECKTESTSUPPORT_H

#include <nlohmann/json.hpp>

#include "CliTestSupport.h"

using Json = nlohmann::json;

inline Strings SplitLines(std::string const &text)
{
    Strings lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

inline bool StartsWith(std::string const &text, std::string const &prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

inline bool EndsWith(std::string const &text, std::string const &suffix)
{
    return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// The diagnostics of `stratagem --check -f json ARGS`, parsed back.
inline Json CheckJson(ScriptDir const &dir, Strings const &args, int nStatus)
{
    RunResult const result = dir.Run(Join({"--check", "-f", "json"}, args));
    EXPECT_EQ(result.nStatus, nStatus) << result.strOut << result.strErr;
    EXPECT_EQ(result.strErr, "");
    Json const diagnostics = Json::parse(result.strOut, nullptr, false);
    EXPECT_TRUE(diagnostics.is_array()) << result.strOut;
    return diagnostics.is_array() ? diagnostics : Json::array();
}

// The diagnostics of one file.
inline Json InFile(Json const &diagnostics, std::string const &strFile)
{
    Json found = Json::array();
    for (Json const &d : diagnostics)
        if (d.at("file") == strFile)
            found.push_back(d);
    return found;
}

inline int CountSeverity(Json const &diagnostics, std::string const &strSeverity)
{
    int nCount = 0;
    for (Json const &d : diagnostics)
        nCount += d.at("severity") == strSeverity;
    return nCount;
}

// A strategy with one error in the main file and one in a file it loads:
// 'foo' at main.per 2:21-23 and 'bar' at sub/rules.per 4:3-5, the latter
// reached through the load at main.per 1:1.
inline ScriptDir TwoErrorStrategy()
{
    return ScriptDir({{"main.per", "(load \"sub/rules\")\n(defrule (true) => (foo))\n"},
                      {"sub/rules.per", "(defrule\n\t(true)\n=>\n\t(bar))\n"}});
}

#endif
