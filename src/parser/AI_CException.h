// The library's exceptions. AI_CException is the base of every error the
// library raises itself; AI_CParseException reports an error found in a
// script: where (file, line), what (the cause, an index into the message
// table) and the text the message quotes. Both are thrown as pointers to
// heap objects and deleted by whoever catches them last.
#ifndef STRATAGEM_PARSER_AI_CEXCEPTION_H
#define STRATAGEM_PARSER_AI_CEXCEPTION_H

#include "../platform/afx.h"

// The causes of parse errors: indexes into the message table.
enum AI_ParseErrorCause
{
    AI_PE_INVALID_CHARACTER = 0,
    AI_PE_PARSE_ERROR = 1,
    AI_PE_INTEGER = 2,
    AI_PE_FACT_EXPECTED = 3,
    AI_PE_ACTION_EXPECTED = 4,
    AI_PE_EXPRESSION_EXPECTED = 5,
    AI_PE_DEFINE_EXPECTED = 6,
    AI_PE_UNKNOWN_SYMBOL = 7,
    AI_PE_PARAM_COUNT = 8,
    AI_PE_WRONG_PARAM = 9,
    AI_PE_PROBABILITY = 10,
    AI_PE_PROBABILITY_SUM = 11,
    AI_PE_DUPLICATE_SYMBOL = 12,
    AI_PE_NON_CONST_SYMBOL = 13,
    AI_PE_UNKNOWN = 14
};

class STRATAGEM_API AI_CException : public CException
{
    DECLARE_DYNAMIC(AI_CException)

public:
    AI_CException();
};

class STRATAGEM_API AI_CParseException : public AI_CException
{
    DECLARE_DYNAMIC(AI_CParseException)

protected:
    CString m_strFilename;
    int m_nLine;
    int m_nCause;
    CString m_strParam1;
    CString m_strParam2;
    int m_bInitialized;
    int m_bLoaded;
    char m_szMessage[128];

public:
    AI_CParseException();
    // File name, line, cause, first and second parameter; a null text gives
    // an empty string.
    AI_CParseException(char const *pszFilename, int nLine, int nCause, char const *pszParam1, char const *pszParam2);
    virtual ~AI_CParseException();

    CString const &GetFilename() const { return m_strFilename; }
    int GetLine() const { return m_nLine; }
    int GetCause() const { return m_nCause; }
    CString const &GetParam1() const { return m_strParam1; }
    CString const &GetParam2() const { return m_strParam2; }

    // Formats "file(line): text" into the buffer (cut to nMaxError - 1
    // characters, rest zero-filled); answers 1 once the message is loaded.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr);
};

#endif
