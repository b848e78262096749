#include "AI_LoadFile.h"

#include <memory>

#include "../parser/AI_CParser.h"
#include "AI_CCommand.h"

void AI_LoadFile(AI_CStrategy *pStrategy, char const *pszFilename, AI_CCommandList *&rpCommands)
{
    // The parser is destroyed on every way out, exceptions included.
    std::unique_ptr<AI_CParser> pParser(new AI_CParser(pStrategy));
    rpCommands = pParser->Parse(pszFilename);
    if (rpCommands)
        rpCommands->Load();
}
