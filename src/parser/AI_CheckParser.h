// The parser of check mode: it reads a file held in memory, reports every
// error instead of stopping at the first, and reads on from the next
// top-level command. The grammar is fed from the scanner through a token
// source that knows where commands begin; the grammar's tables are the
// ones every parse uses, so the first error of a file is the one a plain
// parse reports. Internal to the library.
#ifndef STRATAGEM_PARSER_AI_CHECKPARSER_H
#define STRATAGEM_PARSER_AI_CHECKPARSER_H

#include <cstddef>

#include "AI_CParser.h"
#include "AI_FrontEnd.h"

class AI_CParseException;

// What the check parser reports besides the commands it read.
class AI_CCheckListener : public AI_CParseObserver
{
public:
    // An error of the script. `span` is the part of the text it is about;
    // nPrevious is the code of the token before the one that failed and
    // bInActions tells whether a rule's arrow was passed (for hints).
    virtual void Error(AI_CParseException const &error, AI_Span span, int nPrevious, bool bInActions) = 0;
    // The command just read went into a list: -1 the file's top level,
    // else the offset where the list's first command begins.
    virtual void CommandListed(int nList) = 0;
    // A directive ("#load-if-defined", "#load-if-not-defined", "#else" or
    // "#end-if": nKeyword is its token code), once each, in the order of
    // the text, whether or not the grammar takes it: `whole` runs from "#"
    // through the keyword; `word` is the word after an opening directive
    // (empty, at the end of `whole`, when no word follows).
    virtual void Directive(int nKeyword, AI_Span whole, AI_Span word) = 0;
    // A command an error cut short: nKeyword is the token code of its
    // keyword, `whole` runs from its "(" to the last token before the
    // command or directive where reading goes on (or to the end of the text).
    virtual void BrokenCommand(int nKeyword, AI_Span whole, AI_Span keyword) = 0;
};

class AI_CCheckParser : public AI_CParser
{
public:
    explicit AI_CCheckParser(AI_CStrategy *pStrategy);

    // The command list of the text (already in text mode) stored in the
    // strategy under the name: every command read without an error. A name
    // the strategy holds already is not read again. Errors of the script go
    // to the listener; only a memory exception is thrown.
    AI_CCommandList *ParseText(char const *pszFilename, char const *pText, std::size_t nLength,
                               AI_CCheckListener &listener);

    // Runs the scanner over the text and hands each token to the callback,
    // with what a check's scanner hands out for text it cannot read (the
    // AI_TOKEN_... codes); the text of a symbol, string or integer is its
    // value. Never throws for the text.
    template <class Callback>
    static void ScanText(char const *pText, std::size_t nLength, Callback callback);

    // How a pair of consecutive tokens changes the nesting of blocks: +1
    // for "#" and an opening directive, -1 for "#" and "#end-if", else 0.
    static int DepthChange(int nFirst, int nSecond);

private:
    class Feed;
    friend class Feed;

    static void BeginScan(char const *pText, std::size_t nLength);
    static int ScanNext(char const *&pszValue, AI_Span &span);
    static void EndScan();
};

template <class Callback>
void AI_CCheckParser::ScanText(char const *pText, std::size_t nLength, Callback callback)
{
    BeginScan(pText, nLength);
    try {
        char const *pszValue;
        AI_Span span;
        int nCode;
        while ((nCode = ScanNext(pszValue, span)) != 0)
            callback(nCode, pszValue, span);
    } catch (...) {
        EndScan();
        throw;
    }
    EndScan();
}

#endif
