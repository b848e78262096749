#include "AI_TokenCount.h"

#include <cstdio>

#include "AI_CParser.h"
#include "AI_FrontEnd.h"

long AI_CountTokens(AI_CParser *pParser, char const *pszFilename)
{
    AI_BeginFile(pParser, pszFilename);
    FILE *pFile = AI_OpenScript(pszFilename);
    long nTokens = 0;
    try {
        AI_ScanStart(pFile);
        while (ai_yylex() != 0)
            ++nTokens;
    } catch (...) {
        AI_ScanReset(pFile);
        std::fclose(pFile);
        throw;
    }
    AI_ScanReset(pFile);
    std::fclose(pFile);
    return nTokens;
}
