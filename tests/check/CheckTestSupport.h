// Shared by the check-mode tests: scripts held in memory (the check reads
// them through its source provider), the vocabulary registered, and short
// ways to look at a report.
#ifndef STRATAGEM_TESTS_CHECK_CHECKTESTSUPPORT_H
#define STRATAGEM_TESTS_CHECK_CHECKTESTSUPPORT_H

#include <cerrno>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "../objects/TestSupport.h"
#include "check/Check.h"

// Script files by name; a name it does not hold cannot be opened.
class MemorySources : public stratagem::SourceProvider
{
public:
    std::map<std::string, std::string> files;
    mutable std::vector<std::string> reads;

    bool Read(std::string const &name, std::string &bytes, int &error) const override
    {
        reads.push_back(name);
        auto found = files.find(name);
        if (found == files.end()) {
            error = ENOENT;
            return false;
        }
        bytes = found->second;
        return true;
    }
};

class CheckTest : public ObjectsTest
{
protected:
    MemorySources m_sources;

    // Checks the strategy whose main file is "main.per"; the other files
    // are those given.
    stratagem::CheckReport Run(std::string const &main, std::map<std::string, std::string> const &others = {},
                               std::vector<std::string> const &extras = {})
    {
        m_sources.files = others;
        m_sources.files["main.per"] = main;
        stratagem::CheckOptions options;
        options.settings = DefaultSettings();
        options.sources = &m_sources;
        options.extraFiles = extras;
        return stratagem::Check("main.per", options);
    }
};

// "line:col-endLine:endCol".
inline std::string At(stratagem::Range const &r)
{
    return std::to_string(r.line) + ":" + std::to_string(r.column) + "-" + std::to_string(r.endLine) + ":"
        + std::to_string(r.endColumn);
}

// "file:line:col-endLine:endCol CODE" per diagnostic, the shape most tests compare.
inline std::string Where(stratagem::Diagnostic const &d)
{
    std::ostringstream out;
    out << d.file << ":" << d.range.line << ":" << d.range.column << "-" << d.range.endLine << ":" << d.range.endColumn
        << " " << d.code;
    return out.str();
}

inline std::vector<std::string> Where(stratagem::CheckReport const &report)
{
    std::vector<std::string> all;
    for (stratagem::Diagnostic const &d : report.diagnostics)
        all.push_back(Where(d));
    return all;
}

#endif
