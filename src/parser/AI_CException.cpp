#include "AI_CException.h"

#include <cstring>

IMPLEMENT_DYNAMIC(AI_CException, CException)
IMPLEMENT_DYNAMIC(AI_CParseException, AI_CException)

namespace {

// The message formats, indexed by cause. Each receives the file name, the
// line, the first and the second parameter, in that order.
char const *const kMessages[] = {
    "%s(%d): Invalid character(s) encountered: '%s'.",
    "%s(%d): Parse error, Bison says: %s.",
    "%s(%d): Can't convert '%s' to an integer number.",
    "%s(%d): Fact function name expected, found: '%s'.",
    "%s(%d): Action function name expected, found: '%s'.",
    "%s(%d): Expression expected, found: '%s'.",
    "%s(%d): Define expected, found: '%s'.",
    "%s(%d): Unknown symbol: '%s'.",
    "%s(%d): Wrong number of parameters for '%s'.",
    "%s(%d): Wrong parameter: '%s'.",
    "%s(%d): Invalid probability: %s.",
    "%s(%d): Invalid probability sum: %s.",
    "%s(%d): Duplicate symbol: '%s'.",
    "%s(%d): Non-const symbol in constant definition: '%s'.",
    "Unknown parse error",
};
int const kUnknownCause = sizeof kMessages / sizeof kMessages[0] - 1;

char const *MessageFormat(int nCause)
{
    return nCause >= 0 && nCause <= kUnknownCause ? kMessages[nCause] : kMessages[kUnknownCause];
}

}  // namespace

AI_CException::AI_CException() {}

AI_CParseException::AI_CParseException()
    : m_nLine(0), m_nCause(AI_PE_UNKNOWN), m_bInitialized(0), m_bLoaded(0), m_szMessage()
{}

AI_CParseException::AI_CParseException(char const *pszFilename, int nLine, int nCause, char const *pszParam1,
                                       char const *pszParam2)
    : m_strFilename(pszFilename), m_nLine(nLine), m_nCause(nCause), m_strParam1(pszParam1), m_strParam2(pszParam2),
      m_bInitialized(0), m_bLoaded(0), m_szMessage()
{}

AI_CParseException::~AI_CParseException() {}

BOOL AI_CParseException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (!m_bInitialized) {
        m_bInitialized = m_bLoaded = 1;
        std::strncpy(m_szMessage, MessageFormat(m_nCause), sizeof m_szMessage - 1);
        m_szMessage[sizeof m_szMessage - 1] = '\0';
    }
    // The whole message first; the caller's buffer may cut it.
    CString strMessage;
    strMessage.Format(m_szMessage, m_strFilename.GetString(), m_nLine, m_strParam1.GetString(),
                      m_strParam2.GetString());
    if (!lpszError || nMaxError == 0)
        return m_bLoaded;
    if (m_bLoaded) {
        std::strncpy(lpszError, strMessage, nMaxError);  // zero-fills the rest
        lpszError[nMaxError - 1] = '\0';
    } else {
        lpszError[0] = '\0';
    }
    return m_bLoaded;
}
