#include "Options.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include "vocabulary/AI_SettingsFields.h"

namespace {

// ---- value parsers -----------------------------------------------------------

// A decimal number with an optional sign and nothing else (no blanks).
bool ParseLong(char const *text, long long lMin, long long lMax, long long &value)
{
    char const *digits = (*text == '-' || *text == '+') ? text + 1 : text;
    if (*digits < '0' || *digits > '9')
        return false;
    errno = 0;
    char *end = nullptr;
    long long const parsed = std::strtoll(text, &end, 10);
    if (errno != 0 || *end != '\0' || parsed < lMin || parsed > lMax)
        return false;
    value = parsed;
    return true;
}

// ---- option handlers -------------------------------------------------------------

using Handler = bool (*)(CliOptions &, char const *, std::string &);

bool OnExtra(CliOptions &options, char const *value, std::string &)
{
    options.extraFiles.push_back(value);
    return true;
}

bool OnName(CliOptions &options, char const *value, std::string &)
{
    options.strName = value;
    options.bNameGiven = true;
    return true;
}

bool OnSet(CliOptions &options, char const *value, std::string &error)
{
    char const *equals = std::strchr(value, '=');
    if (!equals)
    {
        error = std::string("expected FIELD=VALUE, got '") + value + "'";
        return false;
    }
    std::string const name(value, equals);
    SettingsField const *field = FindSettingsField(name.c_str());
    if (!field)
    {
        error = "unknown settings field '" + name + "'";
        return false;
    }
    long long number = 0;
    if (!ParseLong(equals + 1, INT_MIN, INT_MAX, number))
    {
        error = "bad value '" + std::string(equals + 1) + "' for " + name +
                " (expected a decimal integer)";
        return false;
    }
    options.settings.*field->pMember = static_cast<int>(number);
    return true;
}

bool OnDefine(CliOptions &options, char const *value, std::string &error)
{
    unsigned int const nSID = AI_Symbol(value);
    if (!AI_IsDefine(nSID) || !ApplyDefine(nSID, options.settings))
    {
        error = std::string("unknown define word '") + value + "'";
        return false;
    }
    return true;
}

bool OnNoExpandBlocks(CliOptions &options, char const *, std::string &)
{
    options.bExpandBlocks = false;
    return true;
}

bool OnSeed(CliOptions &options, char const *value, std::string &error)
{
    long long number = 0;
    if (*value == '-' || *value == '+' || !ParseLong(value, 0, UINT_MAX, number))
    {
        error = std::string("bad seed '") + value + "' (expected 0 to 4294967295)";
        return false;
    }
    options.bSeed = true;
    options.nSeed = static_cast<unsigned int>(number);
    return true;
}

bool OnTree(CliOptions &options, char const *, std::string &)
{
    options.bTree = true;
    return true;
}

// ---- option table --------------------------------------------------------------

struct OptionRow
{
    char chShort;         // 0 when the option has no short form
    char const *szLong;
    bool bValue;          // takes a value (next argument, or after '=' / the letter)
    CliCommand command;   // Help and Version end the parse at once
    Handler pfnApply;     // for CliCommand::Analyze
};

OptionRow const s_options[] = {
    {'x', "extra", true, CliCommand::Analyze, OnExtra},
    {'n', "name", true, CliCommand::Analyze, OnName},
    {'s', "set", true, CliCommand::Analyze, OnSet},
    {'D', "define", true, CliCommand::Analyze, OnDefine},
    {0, "no-expand-blocks", false, CliCommand::Analyze, OnNoExpandBlocks},
    {0, "seed", true, CliCommand::Analyze, OnSeed},
    {0, "tree", false, CliCommand::Analyze, OnTree},
    {'h', "help", false, CliCommand::Help, nullptr},
    {0, "version", false, CliCommand::Version, nullptr},
};

OptionRow const *FindShort(char ch)
{
    for (OptionRow const &row : s_options)
        if (row.chShort != 0 && row.chShort == ch)
            return &row;
    return nullptr;
}

OptionRow const *FindLong(std::string const &name)
{
    for (OptionRow const &row : s_options)
        if (name == row.szLong)
            return &row;
    return nullptr;
}

// One option argument split into the option and the value written with it
// ("--name=X", "-nX"); `inlineValue` is null when none was written.
struct OptionWord
{
    OptionRow const *row = nullptr;
    char const *inlineValue = nullptr;
};

OptionWord SplitOption(char const *arg, std::string &error)
{
    OptionWord word;
    if (arg[1] == '-')
    {
        char const *equals = std::strchr(arg + 2, '=');
        std::string const name = equals ? std::string(arg + 2, equals) : std::string(arg + 2);
        word.row = FindLong(name);
        word.inlineValue = equals ? equals + 1 : nullptr;
    }
    else
    {
        word.row = FindShort(arg[1]);
        word.inlineValue = arg[2] ? arg + 2 : nullptr;
    }
    if (!word.row)
        error = std::string("unknown option '") + arg + "'";
    return word;
}

} // namespace

CliCommand ParseCommandLine(int argc, char const *const argv[], CliOptions &options,
                            std::string &error)
{
    bool bOptionsEnded = false;
    for (int i = 1; i < argc; ++i)
    {
        char const *arg = argv[i];
        if (!bOptionsEnded && std::strcmp(arg, "--") == 0)
        {
            bOptionsEnded = true;
            continue;
        }
        if (bOptionsEnded || arg[0] != '-' || arg[1] == '\0')
        {
            if (!options.strMainFile.empty() || arg[0] == '\0')
            {
                error = arg[0] ? std::string("more than one MAIN_FILE: '") + arg + "'"
                               : std::string("empty MAIN_FILE");
                return CliCommand::Usage;
            }
            options.strMainFile = arg;
            continue;
        }

        OptionWord const word = SplitOption(arg, error);
        if (!word.row)
            return CliCommand::Usage;
        if (word.row->command != CliCommand::Analyze)
            return word.row->command;

        char const *value = word.inlineValue;
        if (word.row->bValue && !value)
        {
            if (i + 1 >= argc)
            {
                error = std::string("option '") + arg + "' needs a value";
                return CliCommand::Usage;
            }
            value = argv[++i];
        }
        else if (!word.row->bValue && value)
        {
            error = std::string("option '") + arg + "' takes no value";
            return CliCommand::Usage;
        }
        if (!word.row->pfnApply(options, value, error))
            return CliCommand::Usage;
    }

    if (options.strMainFile.empty())
    {
        error = "no MAIN_FILE given";
        return CliCommand::Usage;
    }
    if (!options.bNameGiven)
        options.strName = options.strMainFile;
    return CliCommand::Analyze;
}

void WriteUsage(std::ostream &out)
{
    out << "Usage: stratagem [options] MAIN_FILE\n"
           "Try 'stratagem --help' for more information.\n";
}

void WriteHelp(std::ostream &out)
{
    out << "Usage: stratagem [options] MAIN_FILE\n"
           "Analyse a strategy (MAIN_FILE and every file it loads) and print its listing.\n"
           "\n"
           "  -x, --extra FILE        extra script file, read before the main file\n"
           "                          (repeatable, in order)\n"
           "  -n, --name TEXT         strategy name (default: MAIN_FILE as given)\n"
           "  -s, --set FIELD=VALUE   one game setting; FIELD is a field of the settings\n"
           "                          record (bDeathMatch, bRegicide, nStartingAge,\n"
           "                          nStartingResources, nMapSize, nMapType,\n"
           "                          nVictoryCondition, nDifficulty, nPopulationCap,\n"
           "                          bGameSpeedLocked, bTeamsLocked, nCiv), VALUE a\n"
           "                          decimal integer (repeatable)\n"
           "  -D, --define WORD       make a built-in define word hold: its field gets the\n"
           "                          word's value (GIANT-MAP sets nMapSize to 5; a flag\n"
           "                          word such as REGICIDE sets 1)\n"
           "      --no-expand-blocks  keep conditional blocks in the tree\n"
           "      --seed N            srand(N) before the analysis (default: the random\n"
           "                          loads' generator is not seeded)\n"
           "      --tree              print the object tree instead of the listing\n"
           "  -h, --help              show this help\n"
           "      --version           show the version\n"
           "\n"
           "Settings start from the library's defaults; -s and -D apply in order.\n"
           "Exit status: 0 success, 1 the analysis failed, 2 bad command line.\n";
}
