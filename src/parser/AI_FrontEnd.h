// The process-wide state shared by the parser object, the generated scanner
// and the generated grammar. Internal to the library. Only one parse runs at
// a time in the whole process, so one copy of each is enough.
#ifndef STRATAGEM_PARSER_AI_FRONTEND_H
#define STRATAGEM_PARSER_AI_FRONTEND_H

#include <cstdio>
#include <new>
#include <utility>

#include "../platform/afx.h"

class AI_CParser;

// The parser whose parse runs: the scanner converts integers and reports
// invalid characters through it, the grammar calls its actions on it.
extern AI_CParser *AI_pParser;
// The name of the file being parsed, exactly the pointer given to Parse.
extern char const *AI_pszFilename;
// The line the scanner stands on; 1 at the start of every file.
extern int AI_nLine;

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
    } const closer{AI_OpenScript(pszFilename)};
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
