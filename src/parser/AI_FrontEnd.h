// The process-wide state shared by the parser object, the generated scanner
// and the generated grammar. Internal to the library. Only one parse runs at
// a time in the whole process, so one copy of each is enough.
#ifndef STRATAGEM_PARSER_AI_FRONTEND_H
#define STRATAGEM_PARSER_AI_FRONTEND_H

#include <cstddef>
#include <cstdio>
#include <new>
#include <utility>

#include "../platform/afx.h"
#include "AI_Span.h"

class AI_CParser;

// The parser whose parse runs: the scanner converts integers and reports
// invalid characters through it, the grammar calls its actions on it.
extern AI_CParser *AI_pParser;
// The name of the file being parsed, exactly the pointer given to Parse.
extern char const *AI_pszFilename;
// The line the scanner stands on; 1 at the start of every file.
extern int AI_nLine;

// The byte offset the scanner stands on in the text of the file; 0 at the
// start of every file.
extern int AI_nOffset;

// While set, the scanner hands out what a parse would stop at as tokens
// of their own (the codes below) and leaves integer literals unconverted
// (their text in the symbol slot), so that a check can read on after them.
extern bool AI_bCollectTokens;
int const AI_TOKEN_INVALID = -1;        // a character that belongs to no token
int const AI_TOKEN_BROKEN_STRING = -2;  // a string cut by a line feed (the span ends with it)
int const AI_TOKEN_OPEN_STRING = -3;    // a string still open at the end of the text

// Text in memory that the scanner reads instead of its input stream while
// pText is set.
struct AI_ScanMemory
{
    static char const *pText;
    static std::size_t nLength;
    static std::size_t nPos;
};

// Where the error an action raises points: the grammar sets it before each
// action that may raise one. For a wrong argument the parser also says
// which argument (0 for the first).
extern AI_Span AI_spanError;
extern int AI_nBadArgument;

// The span of the production being reduced: the grammar sets it before
// every action, and each object an action builds takes it as its own.
extern AI_Span AI_spanProduction;

class CString;
class AI_CCommand;
class AI_CCommandList;

// What a check learns from the grammar while a file is parsed. Nobody
// listens outside a check.
class AI_CParseObserver
{
public:
    virtual ~AI_CParseObserver() {}
    // A command is complete: its whole span and the part that names it.
    virtual void Command(AI_CCommand *pCommand, AI_Span whole, AI_Span name) = 0;
    // A command list grew to the span given.
    virtual void CommandList(AI_CCommandList *pCommands, AI_Span whole) = 0;
    // A file name string (quotes included) of a load command or option.
    virtual void FileName(CString const *pFilename, AI_Span whole) = 0;
    // A symbol written as an argument or as a constant's value.
    virtual void ValueSymbol(unsigned int nSID, AI_Span whole) = 0;
    // An option of a load-random, before it is checked.
    virtual void LoadOption(int nProbability, AI_Span whole) = 0;
    // A constant definition names the constant, before it is registered.
    virtual void ConstantName(char const *pszName, AI_Span whole) = 0;
    // The arguments of a fact or action: the list starts, an argument.
    virtual void ArgumentsBegin() = 0;
    virtual void Argument(AI_Span whole) = 0;
};
extern AI_CParseObserver *AI_pObserver;

// Where the grammar takes its tokens from while a check feeds it: Next
// sets the grammar's value and span and answers the token code.
class AI_CTokenSource
{
public:
    virtual ~AI_CTokenSource() {}
    virtual int Next() = 0;
};
extern AI_CTokenSource *AI_pTokenSource;

// The grammar's next token: from the check's source if there is one, else
// from the scanner.
int AI_GrammarLex();

// Opens a script file for reading in text mode, or raises the platform's
// file exception for it. A directory is no script file, although this
// system's fopen opens it.
FILE *AI_OpenScript(char const *pszFilename);

// Makes the stream the scanner's input; the next token is read from the
// stream's start, in the initial state.
void AI_ScanStart(FILE *pStream);
// Discards whatever the scanner holds and binds it to the stream again, so
// that a parse that ended anywhere (inside a string too) leaves no trace.
void AI_ScanReset(FILE *pStream);

// Reads one script file: opens it, makes it the scanner's input and runs the
// work over it; however the work ends, the scanner is left clean and the
// file closed. The parse and the bare token count both read files so.
template <class WORK>
auto AI_ReadScript(char const *pszFilename, WORK const &work)
{
    struct Closer
    {
        FILE *pFile;
        ~Closer()
        {
            AI_ScanReset(pFile);
            std::fclose(pFile);
        }
    } const closer {AI_OpenScript(pszFilename)};
    AI_ScanStart(closer.pFile);
    return work();
}

// Sets the state above for a new file: this parser, this name, line 1.
void AI_BeginFile(AI_CParser *pParser, char const *pszFilename);

// Throws a new parse exception with the cause and the first parameter, at
// the current file and line. Every error of a script is raised here.
[[noreturn]] void AI_RaiseParseError(int nCause, char const *pszParam);

// A new object, or the platform's memory exception when there is no room.
template <class T, class... Args>
T *AI_New(Args &&...args)
{
    T *pObject = new (std::nothrow) T(std::forward<Args>(args)...);
    if (!pObject)
        AfxThrowMemoryException();
    return pObject;
}

#endif
