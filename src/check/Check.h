// Check mode: an analysis that follows every path of a strategy (both
// branches of every conditional block, every option of every load-random),
// reads on after an error, and reports every diagnostic with its exact
// source range, plus warnings with stable codes. It sits beside the
// plain analysis (AI_CStrategy::Analyze), which it leaves unchanged.
//
// Positions: lines and columns are 1-based; columns count bytes. A range
// runs from (line, column) to (endLine, endColumn), both inclusive: a
// one-character token at column 5 has column 5 and endColumn 5. A position
// at the end of input is the column just past the last character, with
// endColumn equal to column.
#ifndef STRATAGEM_CHECK_CHECK_H
#define STRATAGEM_CHECK_CHECK_H

#include <memory>
#include <string>
#include <vector>

#include "../objects/AI_SourceSpan.h"
#include "../platform/export.h"
#include "../vocabulary/AI_GameSettings.h"

class AI_CObject;
class AI_CStrategy;

namespace stratagem {

struct Range
{
    int line = 0;
    int column = 0;
    int endLine = 0;
    int endColumn = 0;
};

enum class Severity
{
    Error,
    Warning
};

// One step of the chain by which a file was reached: the load command in
// `file` at (line, column) that names the next file. The chain runs from
// the main file down.
struct LoadStep
{
    std::string file;
    int line = 0;
    int column = 0;
};

// A word that could replace the diagnostic's range (did you mean ...).
// The server offers each as a quick fix.
struct Replacement
{
    Range range;
    std::string text;
};

// A diagnostic about a file that no script text names (a main or extra file
// that cannot be opened) has an all-zero range.
struct Diagnostic
{
    std::string file;  // as the analysis's error messages write it
    Range range;
    Severity severity = Severity::Error;
    std::string code;     // "E000".."E013", "E100", "W..."
    std::string message;  // readable message, without file or position
    std::vector<std::string> hints;
    std::vector<LoadStep> loadedFrom;
    std::vector<Replacement> fixes;
    // For an error: the line the plain analysis reports it on (the
    // line the parser stood on), which may lie after the range. 0 for a
    // warning and for E100.
    int analysisLine = 0;
};

// Where the check reads script text from. The default reads the disk in
// text mode; an editor supplies its unsaved buffers first.
class STRATAGEM_API SourceProvider
{
public:
    virtual ~SourceProvider();
    // The raw bytes of the named file; false with errno-style `error` set
    // when it cannot be read. Text-mode conversion is the checker's job.
    virtual bool Read(std::string const &name, std::string &bytes, int &error) const;
};

// What one check can hand the next: the outcome of reading each file,
// taken over when the file's bytes and the constants visible where it is
// read are the same, so that an editor re-reads only what an edit
// touched. The report is the one a check without it gives. Keep one per
// sequence of checks (an editor's workspace) and pass it with each;
// registering constants outside the checks while it is in use is not
// allowed (what a file read depended on would change unseen).
class STRATAGEM_API CheckCache
{
public:
    CheckCache();
    ~CheckCache();
    CheckCache(CheckCache const &) = delete;
    CheckCache &operator=(CheckCache const &) = delete;

    // Forgets every file kept.
    void Clear();

    struct Entries;  // the check's business
    Entries &GetEntries() { return *m_pEntries; }

private:
    std::unique_ptr<Entries> m_pEntries;
};

struct CheckOptions
{
    AI_GameSettings settings = AI_gsSettings;
    std::vector<std::string> extraFiles;      // read before the main file
    SourceProvider const *sources = nullptr;  // null: the disk
    // False: each FileReport keeps only its file and chain (no outline,
    // constants, uses or loads), for callers that only want diagnostics.
    bool fileReports = true;
    CheckCache *cache = nullptr;  // null: every file is read afresh
};

// What one file contributes, for editors: its outline and the places of
// constant definitions, constant uses and loads.
enum class OutlineKind
{
    Rule,
    Constant,
    Load,
    LoadRandom,
    Block
};

struct OutlineItem
{
    OutlineKind kind = OutlineKind::Rule;
    std::string name;      // rule: "defrule", constant: its name, load: the written name, block: the define word
    std::string detail;    // e.g. the constant's value, the resolved file name, "#load-if-defined"
    Range range;           // the whole command
    Range selectionRange;  // the part to highlight (name, keyword)
    std::vector<OutlineItem> children;  // a block's commands (both branches)
};

struct ConstantDefinition
{
    std::string name;
    int value = 0;
    Range nameRange;
    Range commandRange;
};

struct NamedRange
{
    std::string name;
    Range range;
};

struct LoadReference
{
    std::string writtenName;  // as between the quotes
    std::string target;       // the file name the load reads (directory + written name + extension)
    Range stringRange;        // the string literal, quotes included
};

struct FileReport
{
    std::string file;  // as diagnostics name it
    std::vector<LoadStep> loadedFrom;
    std::vector<OutlineItem> outline;
    std::vector<ConstantDefinition> constants;
    std::vector<NamedRange> constantUses;
    std::vector<LoadReference> loads;
};

struct CheckReport
{
    std::vector<Diagnostic> diagnostics;  // in the order found
    std::vector<FileReport> files;        // every file reached, in the order first read
    int errors = 0;
    int warnings = 0;
    int reused = 0;  // files taken over from the cache instead of read afresh
};

// Checks the strategy whose main file is `mainFile`. The vocabulary must be
// registered. Registry state the check adds (constants) is removed before
// it returns, so consecutive checks are independent. Never throws a script
// error; an allocation failure raises the platform's memory exception.
STRATAGEM_API CheckReport Check(std::string const &mainFile, CheckOptions const &options = {});

// Where the objects of a parsed strategy were read from. An object's file is
// the file whose command list (in the strategy's per-file table) holds it;
// its range runs from where the parser saw it begin to where the text ends
// it (its token, the parenthesis that closes it, the "#end-if" of a block,
// the last element of a list), in lines and columns of the file's text as
// read in text mode (so a CR LF file gives the lines and
// columns of its LF twin, which are the ones an editor shows). The files
// are read again (through `sources`, the disk when null) the first time a
// range in them is asked for. The index holds pointers into the strategy:
// build it once the strategy is loaded and drop it before the strategy
// changes or goes.
struct SourceLocation
{
    std::string file;  // as the strategy names it; empty when unknown
    Range range;       // all zero when unknown
};

class STRATAGEM_API SourceIndex
{
public:
    explicit SourceIndex(AI_CStrategy const &strategy, SourceProvider const *sources = nullptr);
    ~SourceIndex();
    SourceIndex(SourceIndex const &) = delete;
    SourceIndex &operator=(SourceIndex const &) = delete;

    // The file that holds the object; empty for an object of no file of
    // the strategy.
    std::string FileOf(AI_CObject const *pObject) const;
    // The range of a span of a file; all zero when the file cannot be read
    // or the span is AI_NO_SPAN.
    Range RangeOf(std::string const &file, AI_SourceSpan span) const;
    // Both at once; file and range empty for an object built by hand or
    // held by no file of the strategy.
    SourceLocation RangeOf(AI_CObject const *pObject) const;

private:
    struct Files;
    std::unique_ptr<Files> m_pFiles;
};

// One token of script text, for editors (hover, completion, signature
// help). Token codes are the scanner's; invalid characters have code -1
// and an unterminated string runs to the end of the text (a string cut by
// a line feed, to the end of its line). Ranges are those of the text as
// given (a carriage return before a line feed is not part of a token).
// The scanner's token codes (fixed numbers, shared with the grammar).
namespace token {
int const Invalid = -1;
int const EndOfInput = 0;
int const Hash = '#';
int const Open = '(';
int const Close = ')';
int const Defrule = 258;
int const Defconst = 259;
int const Load = 260;
int const LoadRandom = 261;
int const Not = 262;  // then and, xor, or, nor, xnor, nand: 263 to 268
int const Nand = 268;
int const LessThan = 269;  // then <=, >, >=, ==, != : 270 to 274
int const NotEqual = 274;
int const LoadIfDefined = 275;
int const LoadIfNotDefined = 276;
int const Else = 277;
int const EndIf = 278;
int const Arrow = 279;
int const Symbol = 280;
int const String = 281;
int const Integer = 282;
}  // namespace token

struct Token
{
    int code = 0;
    std::string text;  // the source text of the token
    Range range;
};

STRATAGEM_API std::vector<Token> Tokenize(std::string const &text);

// Vocabulary descriptions, shared by hints and hovers.
// The readable name of a parameter type code, e.g. "goal-id".
STRATAGEM_API std::string ParamTypeName(int nType);
// What a parameter type accepts, e.g. "an integer from 1 to 40" or
// "one of: villager, militiaman, ...".
STRATAGEM_API std::string AcceptedValues(int nType);
// A fact's or action's signature, e.g. "(food-amount rel-op value)".
STRATAGEM_API std::string Signature(unsigned int nSID);
// Registered words closest to `word` among those `accept` admits (by SID),
// best first, at most `max`.
STRATAGEM_API std::vector<std::string> ClosestWords(std::string const &word, bool (*accept)(unsigned int nSID),
                                                    int max = 3);

}  // namespace stratagem

#endif
