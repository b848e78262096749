// End-to-end support for check mode: the host run with --check and its
// output read back.
#ifndef STRATAGEM_TESTS_CLI_CHECKTESTSUPPORT_H
#define STRATAGEM_TESTS_CLI_CHECKTESTSUPPORT_H

#include <nlohmann/json.hpp>

#include "CliTestSupport.h"

using Json = nlohmann::json;

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

#endif
