#include "AI_TokenCount.h"

#include "AI_CParser.h"
#include "AI_FrontEnd.h"

long AI_CountTokens(AI_CParser *pParser, char const *pszFilename)
{
    AI_BeginFile(pParser, pszFilename);
    return AI_ReadScript(pszFilename, [] {
        long nTokens = 0;
        while (ai_yylex() != 0)
            ++nTokens;
        return nTokens;
    });
}
