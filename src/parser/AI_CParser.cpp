#include "AI_CParser.h"

#include "AI_CException.h"
#include "AI_FrontEnd.h"

AI_CParser *AI_pParser = nullptr;
char const *AI_pszFilename = nullptr;
int AI_nLine = 1;
int AI_nOffset = 0;
bool AI_bCollectTokens = false;
char const *AI_ScanMemory::pText = nullptr;
std::size_t AI_ScanMemory::nLength = 0;
std::size_t AI_ScanMemory::nPos = 0;
AI_Span AI_spanError = {0, 0};
AI_Span AI_spanProduction = {0, 0};
int AI_nBadArgument = 0;
AI_CParseObserver *AI_pObserver = nullptr;
AI_CTokenSource *AI_pTokenSource = nullptr;

int AI_GrammarLex() { return AI_pTokenSource ? AI_pTokenSource->Next() : ai_yylex(); }

void AI_BeginFile(AI_CParser *pParser, char const *pszFilename)
{
    AI_nLine = 1;
    AI_pszFilename = pszFilename;
    AI_pParser = pParser;
}

// Blocks are resolved while a file is parsed unless the host says otherwise.
int AI_CParser::s_bExpandBlocks = 1;

AI_CParser::AI_CParser(AI_CStrategy *pStrategy) : m_lstObjects(10), m_lstStrings(10), m_pStrategy(pStrategy) {}

AI_CParser::~AI_CParser() {}

int AI_CParser::IsExpandBlocks() { return s_bExpandBlocks; }

void AI_CParser::EnableExpandBlocks(int bExpandBlocks) { s_bExpandBlocks = bExpandBlocks; }

CObject *AI_CParser::Remember(CObject *pObject)
{
    try {
        m_lstObjects.AddTail(pObject);
    } catch (...) {
        delete pObject;  // nobody else holds it yet
        throw;
    }
    return pObject;
}

CString *AI_CParser::Remember(CString *pString)
{
    try {
        m_lstStrings.AddTail(pString);
    } catch (...) {
        delete pString;  // nobody else holds it yet
        throw;
    }
    return pString;
}

namespace {

// The position of the element, searched from the tail: what the parser
// forgets was mostly remembered last. An object is remembered once at most.
template <class LIST, class ELEMENT>
POSITION FindFromTail(LIST const &list, ELEMENT element)
{
    for (POSITION position = list.GetTailPosition(); position;) {
        POSITION current = position;
        if (list.GetPrev(position) == element)
            return current;
    }
    return nullptr;
}

}  // namespace

CObject *AI_CParser::Forget(CObject *pObject)
{
    if (POSITION position = FindFromTail(m_lstObjects, pObject))
        m_lstObjects.RemoveAt(position);
    return pObject;
}

CString *AI_CParser::Forget(CString *pString)
{
    if (POSITION position = FindFromTail(m_lstStrings, pString))
        m_lstStrings.RemoveAt(position);
    return pString;
}

void AI_CParser::DeleteObjects()
{
    for (POSITION position = m_lstObjects.GetHeadPosition(); position;)
        delete m_lstObjects.GetNext(position);
    m_lstObjects.RemoveAll();
}

void AI_CParser::DeleteStrings()
{
    for (POSITION position = m_lstStrings.GetHeadPosition(); position;)
        delete m_lstStrings.GetNext(position);
    m_lstStrings.RemoveAll();
}

void AI_RaiseParseError(int nCause, char const *pszParam)
{
    throw new AI_CParseException(AI_pszFilename, AI_nLine, nCause, pszParam, "");
}

int AI_CParser::ScanError(char const *pszText) { AI_RaiseParseError(AI_PE_INVALID_CHARACTER, pszText); }

int AI_CParser::ParseError(char const *pszMessage) { AI_RaiseParseError(AI_PE_PARSE_ERROR, pszMessage); }
