#include "AI_CheckParser.h"

#include <algorithm>
#include <deque>
#include <vector>

#include "../objects/AI_CCommand.h"
#include "../strategy/AI_CStrategy.h"
#include "AI_CException.h"
#include "AI_Grammar.tab.h"

namespace {

// One token as the scanner handed it out, kept for the grammar or for a
// restart. The text of a symbol, string or integer stays in the scanner's
// buffers, which hold it until the grammar has used it: tokens reach the
// grammar as they are scanned, and the two read again after an error carry
// no text.
struct Token
{
    int nCode = 0;
    char const *pszValue = "";
    AI_Span span = {0, 0};
    int nLine = 1;    // the line counter once the token was read
    long nIndex = 0;  // position in the file's token sequence
};

bool IsCommandKeyword(int nCode) { return nCode >= TOK_RW_DEFRULE && nCode <= TOK_RW_LOAD_RANDOM; }

bool IsOpeningDirective(int nCode) { return nCode == TOK_D_LOAD_IF_DEFINED || nCode == TOK_D_LOAD_IF_NOT_DEFINED; }

bool IsDirective(int nCode) { return nCode >= TOK_D_LOAD_IF_DEFINED && nCode <= TOK_D_END_IF; }

// A command begins with "(" and a command keyword, or with "#" and an
// opening directive.
bool BeginsCommand(int nFirst, int nSecond)
{
    return (nFirst == '(' && IsCommandKeyword(nSecond)) || (nFirst == '#' && IsOpeningDirective(nSecond));
}

// "#else" or "#end-if": where no block is open, the grammar stops there.
bool ClosesBlock(int nFirst, int nSecond)
{
    return nFirst == '#' && (nSecond == TOK_D_ELSE || nSecond == TOK_D_END_IF);
}

}  // namespace

int AI_CCheckParser::DepthChange(int nFirst, int nSecond)
{
    if (nFirst != '#')
        return 0;
    if (IsOpeningDirective(nSecond))
        return 1;
    return nSecond == TOK_D_END_IF ? -1 : 0;
}

// Feeds the grammar one token at a time, raising what the scanner would
// have raised at the moment the grammar asks for the token, and finds the
// next top-level command after an error.
class AI_CCheckParser::Feed : public AI_CTokenSource, public AI_CParseObserver
{
public:
    Feed(AI_CCheckParser &parser, AI_CCheckListener &listener) : m_parser(parser), m_listener(listener) {}

    // A new run of the grammar starts at the next token.
    void BeginRun()
    {
        m_pTopList = nullptr;
        m_nRunIndex = m_queue.empty() ? m_nScanned : m_queue.front().nIndex;
    }

    AI_CCommandList *TopList() const { return m_pTopList; }

    int Next() override
    {
        Token &token = Deliver(PullSkippingOrphans());
        AI_nLine = token.nLine;
        ai_yylloc = token.span;
        switch (token.nCode) {
        case TOK_SYMBOL:
        case TOK_STRING:
            ai_yylval.pszText = token.pszValue;
            return token.nCode;
        case TOK_INTEGER:
            AI_spanError = token.span;
            return m_parser.tok_integer(token.pszValue, ai_yylval.nInteger);
        case AI_TOKEN_INVALID:
            AI_spanError = token.span;
            m_parser.ScanError(token.pszValue);
            return 0;
        case AI_TOKEN_BROKEN_STRING:
            AI_spanError = {token.span.nEnd - 1, token.span.nEnd};
            m_parser.ScanError("\n");
            return 0;
        case AI_TOKEN_OPEN_STRING:
            // A plain parse drops the unfinished string at the end of input.
            ai_yylloc = AI_spanError = {token.span.nEnd, token.span.nEnd};
            return 0;
        default:
            return token.nCode;
        }
    }

    // Where the error just raised points.
    AI_Span ErrorSpan(int nCause) const
    {
        if (nCause == AI_PE_PARSE_ERROR)
            return Last().nCode == AI_TOKEN_OPEN_STRING ? AI_Span {Last().span.nEnd, Last().span.nEnd} : Last().span;
        if (nCause == AI_PE_WRONG_PARAM && AI_nBadArgument >= 0
            && AI_nBadArgument < static_cast<int>(m_arguments.size()))
            return m_arguments[AI_nBadArgument];
        return AI_spanError;
    }

    int PreviousCode() const { return m_nDelivered > 1 ? m_ring[(m_nDelivered - 2) % kRing].nCode : 0; }
    bool InActions() const { return m_bInActions; }

    // Moves on to the next command after an error, at any depth: the pair
    // just read if it begins one (the command before it was cut short), else
    // the first one further on. A command inside a block is read on as if it
    // stood at the top, so that the rest of a broken block, its other branch
    // included, is checked too; the directives that close the blocks left
    // open are passed over, and one that closes no block is read again for
    // its error. Scanner errors on the way are reported too.
    // False at the end of the text.
    bool Resync()
    {
        if (m_nDelivered >= 2) {
            Token const &first = m_ring[(m_nDelivered - 2) % kRing];
            Token const &second = Last();
            if (first.nIndex > m_nRunIndex && BeginsCommand(first.nCode, second.nCode)) {
                m_command = m_outer;  // the pair is read again; the command it cut short is the one before
                ReportBroken(EndOfDelivered(3));
                Restart(first, second, m_nOrphans + m_nDepthBefore);
                return true;
            }
        }
        if (m_nDelivered == 0 || IsEnd(Last().nCode)) {
            ReportBroken(EndOfDelivered(2));
            return false;
        }
        int nDepth = m_nOrphans + m_nDepth;
        Token previous = Last();
        // Where the broken command ends: at `previous`, or at the token
        // before it once it begins what comes next; never past a directive.
        int nEnd = previous.span.nEnd;
        int nEndBefore = EndOfDelivered(2);
        bool bDirective = false;
        for (;;) {
            Token token = Pull();
            if (IsEnd(token.nCode)) {
                ReportBroken(nEnd);
                return false;
            }
            ReportScanError(token);
            if (BeginsCommand(previous.nCode, token.nCode)
                || (nDepth == 0 && ClosesBlock(previous.nCode, token.nCode))) {
                ReportBroken(bDirective ? nEnd : nEndBefore);
                Restart(previous, token, nDepth);
                return true;
            }
            if (!bDirective && previous.nCode == '#' && IsDirective(token.nCode)) {
                bDirective = true;
                nEnd = nEndBefore;
            }
            nDepth = std::max(0, nDepth + DepthChange(previous.nCode, token.nCode));
            if (!bDirective) {
                nEndBefore = nEnd;
                nEnd = token.span.nEnd;
            }
            previous = token;
        }
    }

    // AI_CParseObserver: the feed watches for the top-level list and the
    // arguments, and passes everything on.
    void Command(AI_CCommand *pCommand, AI_Span whole, AI_Span name) override
    {
        if (whole.nBegin == m_command.nBegin)
            m_command.nBegin = -1;  // read whole
        m_listener.Command(pCommand, whole, name);
    }
    void CommandList(AI_CCommandList *pCommands, AI_Span whole) override
    {
        bool bTop = whole.nBegin == m_nRunBegin;
        if (bTop)
            m_pTopList = pCommands;
        m_listener.CommandList(pCommands, whole);
        m_listener.CommandListed(bTop ? -1 : whole.nBegin);
    }
    void FileName(CString const *pFilename, AI_Span whole) override { m_listener.FileName(pFilename, whole); }
    void ValueSymbol(unsigned int nSID, AI_Span whole) override { m_listener.ValueSymbol(nSID, whole); }
    void ConstantName(char const *pszName, AI_Span whole) override { m_listener.ConstantName(pszName, whole); }
    void LoadOption(int nProbability, AI_Span whole) override { m_listener.LoadOption(nProbability, whole); }
    void ArgumentsBegin() override
    {
        m_arguments.clear();
        m_listener.ArgumentsBegin();
    }
    void Argument(AI_Span whole) override
    {
        m_arguments.push_back(whole);
        m_listener.Argument(whole);
    }

private:
    static int const kRing = 4;

    static bool IsEnd(int nCode) { return nCode == 0 || nCode == AI_TOKEN_OPEN_STRING; }

    Token const &Last() const { return m_ring[(m_nDelivered - 1) % kRing]; }

    // The end of the n-th last token handed to the grammar; -1 when there
    // is none.
    int EndOfDelivered(int n) const { return m_nDelivered >= n ? m_ring[(m_nDelivered - n) % kRing].span.nEnd : -1; }

    // The command begun last, if the error cut it short, runs to nEnd.
    void ReportBroken(int nEnd)
    {
        if (m_command.nBegin >= 0 && nEnd > m_command.nBegin)
            m_listener.BrokenCommand(m_command.nKeyword, {m_command.nBegin, nEnd}, m_command.keyword);
        m_command.nBegin = -1;
    }

    Token Pull()
    {
        if (!m_queue.empty()) {
            Token token = m_queue.front();
            m_queue.pop_front();
            return token;
        }
        Token token;
        char const *pszValue = nullptr;
        token.nCode = ScanNext(pszValue, token.span);
        if (pszValue)
            token.pszValue = pszValue;
        token.nLine = AI_nLine;
        token.nIndex = m_nScanned++;
        NoteDirective(token);
        return token;
    }

    // Every token is scanned once, whatever is read again after an error,
    // so the directives are reported here. An opening directive waits for
    // the token after it, its word.
    void NoteDirective(Token const &token)
    {
        if (m_nOpening) {
            AI_Span word = token.nCode == TOK_SYMBOL ? token.span : AI_Span {m_directive.nEnd, m_directive.nEnd};
            m_listener.Directive(m_nOpening, m_directive, word);
            m_nOpening = 0;
        }
        if (m_scanned.nCode == '#' && IsDirective(token.nCode)) {
            m_directive = {m_scanned.span.nBegin, token.span.nEnd};
            if (IsOpeningDirective(token.nCode))
                m_nOpening = token.nCode;
            else
                m_listener.Directive(token.nCode, m_directive, {m_directive.nEnd, m_directive.nEnd});
        }
        m_scanned = token;
    }

    // Keeps the token while the grammar may still use its text, and follows
    // the nesting of blocks and the parts of rules.
    Token &Deliver(Token const &token)
    {
        int nPrevious = m_nDelivered > 0 ? Last().nCode : 0;
        if (m_nDelivered == 0)
            m_nRunBegin = token.span.nBegin;
        if (nPrevious == '(' && IsCommandKeyword(token.nCode)) {
            m_outer = m_command;
            m_command = {Last().span.nBegin, token.nCode, token.span};
        }
        Token &slot = m_ring[m_nDelivered++ % kRing];
        slot = token;
        m_nDepthBefore = m_nDepth;
        m_nDepth = std::max(0, m_nDepth + DepthChange(nPrevious, slot.nCode));
        if (slot.nCode == TOK_ARROW)
            m_bInActions = true;
        else if (slot.nCode == TOK_RW_DEFRULE)
            m_bInActions = false;
        return slot;
    }

    void Restart(Token const &first, Token const &second, int nOrphans)
    {
        m_queue.push_front(second);
        m_queue.push_front(first);
        m_nOrphans = nOrphans;
        m_nDepth = 0;
        m_nDelivered = 0;
    }

    // The next token for the grammar, past any "#else" or "#end-if" of a
    // block whose opening a restart left behind. Only then is a token read
    // ahead: the one after "#", which holds no text the grammar still needs.
    Token PullSkippingOrphans()
    {
        Token token = Pull();
        while (m_nOrphans > 0 && m_nDepth == 0 && token.nCode == '#') {
            Token second = Pull();
            if (!ClosesBlock(token.nCode, second.nCode)) {
                m_queue.push_front(second);
                break;
            }
            if (second.nCode == TOK_D_END_IF)
                --m_nOrphans;
            token = Pull();
        }
        return token;
    }

    // A token a plain parse would have stopped at, met while looking for the
    // next command.
    void ReportScanError(Token const &token)
    {
        try {
            AI_nLine = token.nLine;
            AI_spanError = token.span;
            if (token.nCode == TOK_INTEGER) {
                int nValue;
                m_parser.tok_integer(token.pszValue, nValue);
            } else if (token.nCode == AI_TOKEN_INVALID) {
                m_parser.ScanError(token.pszValue);
            } else if (token.nCode == AI_TOKEN_BROKEN_STRING) {
                AI_spanError = {token.span.nEnd - 1, token.span.nEnd};
                m_parser.ScanError("\n");
            }
        } catch (AI_CParseException *pError) {
            m_listener.Error(*pError, AI_spanError, 0, false);
            pError->Delete();
        }
    }

    AI_CCheckParser &m_parser;
    AI_CCheckListener &m_listener;
    std::deque<Token> m_queue;  // tokens to read again after a restart
    Token m_ring[kRing];        // the last tokens handed to the grammar
    long m_nDelivered = 0;      // tokens handed out in this run
    long m_nScanned = 0;
    long m_nRunIndex = 0;    // index of the token the run began with
    int m_nRunBegin = -1;    // its offset
    int m_nDepth = 0;        // blocks open after the last token
    int m_nDepthBefore = 0;  // ... and before it
    int m_nOrphans = 0;      // blocks open where the run began
    bool m_bInActions = false;
    AI_CCommandList *m_pTopList = nullptr;
    std::vector<AI_Span> m_arguments;
    struct Begun
    {
        int nBegin = -1;  // where its "(" is; -1 once it is read whole
        int nKeyword = 0;
        AI_Span keyword = {0, 0};
    };
    Begun m_command;               // the command begun last
    Begun m_outer;                 // the one begun before it, if not read whole by then
    Token m_scanned;               // the token scanned last
    int m_nOpening = 0;            // an opening directive waiting for its word
    AI_Span m_directive = {0, 0};  // ... and where it is
};

AI_CCheckParser::AI_CCheckParser(AI_CStrategy *pStrategy) : AI_CParser(pStrategy) {}

void AI_CCheckParser::BeginScan(char const *pText, std::size_t nLength)
{
    AI_ScanMemory::pText = pText ? pText : "";
    AI_ScanMemory::nLength = nLength;
    AI_ScanMemory::nPos = 0;
    AI_bCollectTokens = true;
    AI_ScanStart(nullptr);
}

int AI_CCheckParser::ScanNext(char const *&pszValue, AI_Span &span)
{
    int nCode = ai_yylex();
    span = ai_yylloc;
    bool bHasValue = nCode == TOK_SYMBOL || nCode == TOK_STRING || nCode == TOK_INTEGER || nCode < 0;
    pszValue = bHasValue ? ai_yylval.pszText : nullptr;
    return nCode;
}

void AI_CCheckParser::EndScan()
{
    AI_ScanReset(nullptr);
    AI_bCollectTokens = false;
    AI_ScanMemory::pText = nullptr;
}

AI_CCommandList *AI_CCheckParser::ParseText(char const *pszFilename, char const *pText, std::size_t nLength,
                                            AI_CCheckListener &listener)
{
    if (AI_CCommandList *pCommands = m_pStrategy->CommandList(pszFilename))
        return pCommands;

    BeginFile(pszFilename);
    Feed feed(*this, listener);
    AI_CCommandList *pAll = AI_New<AI_CCommandList>();

    // The commands of a run that read to its end or stopped at an error.
    auto takeCommands = [&] {
        if (AI_CCommandList *pTop = feed.TopList()) {
            Forget(pTop);
            pAll->Add(pTop);
            delete pTop;
        }
        DeleteObjects();
        DeleteStrings();
    };
    auto restore = [&] {
        AI_pTokenSource = nullptr;
        AI_pObserver = nullptr;
        EndScan();
    };

    BeginScan(pText, nLength);
    AI_pTokenSource = &feed;
    AI_pObserver = &feed;
    try {
        for (bool bMore = true; bMore;) {
            feed.BeginRun();
            try {
                ai_yyparse();
                bMore = false;
            } catch (AI_CParseException *pError) {
                listener.Error(*pError, feed.ErrorSpan(pError->GetCause()), feed.PreviousCode(), feed.InActions());
                pError->Delete();
                bMore = true;
            }
            takeCommands();
            bMore = bMore && feed.Resync();
        }
    } catch (...) {
        DeleteObjects();
        DeleteStrings();
        delete pAll;
        restore();
        throw;
    }
    restore();
    // The runs' lists are gone; the file's list begins with its first
    // command, as a plain parse's does.
    CTypedPtrList<CObList, AI_CCommand *> const &commands = pAll->GetCommands();
    if (!commands.IsEmpty())
        pAll->SetBegin(commands.GetHead()->GetBegin());
    m_pStrategy->AddCommandList(pszFilename, pAll);
    return pAll;
}
