// The command line of the host program.
#ifndef STRATAGEM_CLI_OPTIONS_H
#define STRATAGEM_CLI_OPTIONS_H

#include <iosfwd>
#include <string>
#include <vector>

#include "stratagem.h"

// How --check writes its diagnostics.
enum class CheckFormat
{
    Text,  // compiler style, with the source line and a caret
    Gcc,   // one line per diagnostic
    Json,  // one array of objects
    Sarif  // a SARIF 2.1.0 log
};

enum class ColorMode
{
    Auto,  // only when standard output is a terminal
    Always,
    Never
};

// Everything the command line asks for; options apply in order.
struct CliOptions
{
    std::string strMainFile;         // the first FILE
    std::vector<std::string> files;  // every FILE, in order (one unless --check)
    std::string strName;             // the main file name unless --name
    bool bNameGiven = false;
    std::vector<std::string> extraFiles;  // read before the main file, in order
    AI_GameSettings settings = AI_gsSettings;
    bool bExpandBlocks = true;
    bool bSeed = false;
    unsigned int nSeed = 0;
    bool bTree = false;

    bool bCheck = false;
    CheckFormat format = CheckFormat::Text;
    ColorMode color = ColorMode::Auto;
    bool bWerror = false;
};

enum class CliCommand
{
    Analyze,       // the options are complete
    Help,          // -h / --help
    Version,       // --version
    ListSettings,  // --list-settings
    Usage          // the command line is wrong; the error text says why
};

// Reads argv[1..argc-1] into `options`. The built-in defines must already be
// registered, since -D looks its word up in the vocabulary.
CliCommand ParseCommandLine(int argc, char const *const argv[], CliOptions &options, std::string &error);

// The hint that follows a command-line error.
void WriteUsage(std::ostream &out);
// The full option list.
void WriteHelp(std::ostream &out);

#endif
