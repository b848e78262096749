#include "Options.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

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
    if (!equals) {
        error = std::string("expected FIELD=VALUE, got '") + value + "'";
        return false;
    }
    std::string const name(value, equals);
    SettingsField const *field = FindSettingsField(name.c_str());
    if (!field) {
        error = "unknown settings field '" + name + "' (valid fields: " + SettingsFieldNames() + ")";
        return false;
    }
    long long number = 0;
    if (!ParseLong(equals + 1, INT_MIN, INT_MAX, number)) {
        error = "bad value '" + std::string(equals + 1) + "' for " + name + " (expected a decimal integer)";
        return false;
    }
    options.settings.*field->pField = static_cast<int>(number);
    return true;
}

bool OnDefine(CliOptions &options, char const *value, std::string &error)
{
    unsigned int const nSID = AI_Symbol(value);
    if (!AI_IsDefine(nSID) || !ApplyDefine(nSID, options.settings)) {
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
    if (*value == '-' || *value == '+' || !ParseLong(value, 0, UINT_MAX, number)) {
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

bool OnCheck(CliOptions &options, char const *, std::string &)
{
    options.bCheck = true;
    return true;
}

// A value out of a table of words, e.g. the format of --check.
template <typename Value>
struct WordValue
{
    char const *szWord;
    Value value;
};

template <typename Value, std::size_t N>
bool ParseWord(WordValue<Value> const (&table)[N], char const *text, char const *what, Value &value, std::string &error)
{
    std::string expected;
    for (WordValue<Value> const &row : table) {
        if (std::strcmp(row.szWord, text) == 0) {
            value = row.value;
            return true;
        }
        expected += (expected.empty() ? "" : ", ") + std::string(row.szWord);
    }
    error = std::string("unknown ") + what + " '" + text + "' (expected one of: " + expected + ")";
    return false;
}

WordValue<CheckFormat> const kFormats[] = {
    {"text", CheckFormat::Text},
    {"gcc", CheckFormat::Gcc},
    {"json", CheckFormat::Json},
    {"sarif", CheckFormat::Sarif},
};

WordValue<ColorMode> const kColorModes[] = {
    {"auto", ColorMode::Auto},
    {"always", ColorMode::Always},
    {"never", ColorMode::Never},
};

bool OnFormat(CliOptions &options, char const *value, std::string &error)
{
    return ParseWord(kFormats, value, "format", options.format, error);
}

bool OnColor(CliOptions &options, char const *value, std::string &error)
{
    return ParseWord(kColorModes, value, "colour mode", options.color, error);
}

bool OnWerror(CliOptions &options, char const *, std::string &)
{
    options.bWerror = true;
    return true;
}

// ---- option table --------------------------------------------------------------

// Which way of running an option belongs to: some only make sense for the
// listing, some only for --check.
enum class Mode
{
    Any,
    Listing,
    Check
};

struct OptionRow
{
    char chShort;  // 0 when the option has no short form
    char const *szLong;
    bool bValue;         // takes a value (next argument, or after '=' / the letter)
    CliCommand command;  // Help, Version and ListSettings end the parse at once
    Handler pfnApply;    // for CliCommand::Analyze
    Mode mode;
};

OptionRow const kOptions[] = {
    {'x', "extra", true, CliCommand::Analyze, OnExtra, Mode::Any},
    {'n', "name", true, CliCommand::Analyze, OnName, Mode::Listing},
    {'s', "set", true, CliCommand::Analyze, OnSet, Mode::Any},
    {'D', "define", true, CliCommand::Analyze, OnDefine, Mode::Any},
    {0, "no-expand-blocks", false, CliCommand::Analyze, OnNoExpandBlocks, Mode::Listing},
    {0, "seed", true, CliCommand::Analyze, OnSeed, Mode::Listing},
    {0, "tree", false, CliCommand::Analyze, OnTree, Mode::Listing},
    {0, "check", false, CliCommand::Analyze, OnCheck, Mode::Check},
    {'f', "format", true, CliCommand::Analyze, OnFormat, Mode::Check},
    {0, "color", true, CliCommand::Analyze, OnColor, Mode::Check},
    {0, "werror", false, CliCommand::Analyze, OnWerror, Mode::Check},
    {0, "list-settings", false, CliCommand::ListSettings, nullptr, Mode::Any},
    {'h', "help", false, CliCommand::Help, nullptr, Mode::Any},
    {0, "version", false, CliCommand::Version, nullptr, Mode::Any},
};

OptionRow const *FindShort(char ch)
{
    for (OptionRow const &row : kOptions)
        if (row.chShort != 0 && row.chShort == ch)
            return &row;
    return nullptr;
}

OptionRow const *FindLong(std::string const &name)
{
    for (OptionRow const &row : kOptions)
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
    if (arg[1] == '-') {
        char const *equals = std::strchr(arg + 2, '=');
        std::string const name = equals ? std::string(arg + 2, equals) : std::string(arg + 2);
        word.row = FindLong(name);
        word.inlineValue = equals ? equals + 1 : nullptr;
    } else {
        word.row = FindShort(arg[1]);
        word.inlineValue = arg[2] ? arg + 2 : nullptr;
    }
    if (!word.row)
        error = std::string("unknown option '") + arg + "'";
    return word;
}

// An option as it was written, without its value: "-f" or "--format".
struct GivenOption
{
    OptionRow const *row;
    std::string strSpelling;
};

// The option of the other mode given first, or null.
GivenOption const *FirstOfOtherMode(std::vector<GivenOption> const &given, bool bCheck)
{
    Mode const other = bCheck ? Mode::Listing : Mode::Check;
    for (GivenOption const &option : given)
        if (option.row->mode == other)
            return &option;
    return nullptr;
}

// In check mode every field must hold a value that some define word of it
// can stand for; a listing takes any integer, as it always has.
bool CheckSettingsRanges(AI_GameSettings const &settings, std::string &error)
{
    for (SettingsField const &field : AllSettingsFields()) {
        ValueRange const range = FieldRange(field);
        int const value = settings.*field.pField;
        if (value < range.nMin || value > range.nMax) {
            error = "value " + std::to_string(value) + " out of range for " + field.pszName + " (expected "
                + std::to_string(range.nMin) + " to " + std::to_string(range.nMax) + ")";
            return false;
        }
    }
    return true;
}

// What the whole command line must satisfy once every option is read.
bool Complete(CliOptions &options, std::vector<GivenOption> const &given, std::string &error)
{
    if (GivenOption const *option = FirstOfOtherMode(given, options.bCheck)) {
        error
            = "option '" + option->strSpelling + (options.bCheck ? "' cannot be used with --check" : "' needs --check");
        return false;
    }
    if (options.files.empty()) {
        error = options.bCheck ? "no FILE given" : "no MAIN_FILE given";
        return false;
    }
    if (!options.bCheck && options.files.size() > 1) {
        error = "more than one MAIN_FILE: '" + options.files[1] + "'";
        return false;
    }
    if (options.bCheck && !CheckSettingsRanges(options.settings, error))
        return false;
    options.strMainFile = options.files.front();
    if (!options.bNameGiven)
        options.strName = options.strMainFile;
    return true;
}

}  // namespace

CliCommand ParseCommandLine(int argc, char const *const argv[], CliOptions &options, std::string &error)
{
    std::vector<GivenOption> given;
    bool bOptionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        char const *arg = argv[i];
        if (!bOptionsEnded && std::strcmp(arg, "--") == 0) {
            bOptionsEnded = true;
            continue;
        }
        if (bOptionsEnded || arg[0] != '-' || arg[1] == '\0') {
            if (arg[0] == '\0') {
                error = "empty MAIN_FILE";
                return CliCommand::Usage;
            }
            options.files.push_back(arg);
            continue;
        }

        OptionWord const word = SplitOption(arg, error);
        if (!word.row)
            return CliCommand::Usage;
        if (word.row->command != CliCommand::Analyze)
            return word.row->command;

        char const *value = word.inlineValue;
        if (word.row->bValue && !value) {
            if (i + 1 >= argc) {
                error = std::string("option '") + arg + "' needs a value";
                return CliCommand::Usage;
            }
            value = argv[++i];
        } else if (!word.row->bValue && value) {
            error = std::string("option '") + arg + "' takes no value";
            return CliCommand::Usage;
        }
        if (!word.row->pfnApply(options, value, error))
            return CliCommand::Usage;
        given.push_back(
            {word.row, arg[1] == '-' ? std::string("--") + word.row->szLong : std::string {'-', word.row->chShort}});
    }
    return Complete(options, given, error) ? CliCommand::Analyze : CliCommand::Usage;
}

void WriteUsage(std::ostream &out)
{
    out << "Usage: stratagem [options] MAIN_FILE\n"
           "   or: stratagem --check [-f text|gcc|json|sarif] [--color auto|always|never] [--werror]\n"
           "                 [options] FILE...\n"
           "Try 'stratagem --help' for more information.\n";
}

void WriteHelp(std::ostream &out)
{
    out << "Usage: stratagem [options] MAIN_FILE\n"
           "   or: stratagem --check [-f text|gcc|json|sarif] [--color auto|always|never] [--werror]\n"
           "                 [options] FILE...\n"
           "Analyse a strategy (MAIN_FILE and every file it loads) and print its listing;\n"
           "with --check, check every path of each strategy and report every problem.\n"
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
           "      --list-settings     list the settings fields, their defaults, ranges and\n"
           "                          define words\n"
           "  -h, --help              show this help\n"
           "      --version           show the version\n"
           "\n"
           "Check mode:\n"
           "      --check             check each FILE ('-' is standard input) as a main\n"
           "                          file: both branches of every conditional block, every\n"
           "                          option of every load-random, every error and warning\n"
           "  -f, --format FORMAT     text (default: compiler style with the source line),\n"
           "                          gcc (one line each), json or sarif (SARIF 2.1.0)\n"
           "      --color WHEN        auto (default: on a terminal), always or never; never\n"
           "                          while the NO_COLOR environment variable is set\n"
           "      --werror            warnings make the exit status 1 too\n"
           "\n"
           "Settings start from the library's defaults; -s and -D apply in order. With\n"
           "--check a value must lie in its field's range (see --list-settings).\n"
           "Exit status: 0 success, 1 the analysis failed (--check: errors were found),\n"
           "2 bad command line.\n";
}
