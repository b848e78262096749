// Where check mode reads script text: standard input for the file named
// "<stdin>", the disk for every other; and the source lines that text
// diagnostics quote, read the same way.
#ifndef STRATAGEM_CLI_CHECKSOURCES_H
#define STRATAGEM_CLI_CHECKSOURCES_H

#include <map>
#include <string>
#include <vector>

#include "check/Check.h"

// The name standard input goes by in diagnostics.
extern char const *const kStdinName;

class CliSources : public stratagem::SourceProvider
{
public:
    // Serves `bytes` as the file called `name` from now on.
    void Add(std::string const &name, std::string bytes);

    bool Read(std::string const &name, std::string &bytes, int &error) const override;

    // Line `line` (1-based) of the file as the check read it: text mode
    // (CR LF as LF, a Ctrl-Z ends the text), a leading byte-order mark
    // skipped, without its line feed. False when the file cannot be read or
    // has no such line.
    bool Line(std::string const &name, int line, std::string &text) const;

private:
    std::map<std::string, std::string> m_memory;
    mutable std::map<std::string, std::vector<std::string>> m_lines;  // split on first use
};

// Everything on standard input; false when it cannot be read.
bool ReadStandardInput(std::string &bytes);

#endif
