#include <memory>

#include "../objects/AI_CCommand.h"
#include "../parser/AI_CParser.h"
#include "../strategy/AI_CStrategy.h"

// One parser reads the extra files in order, then the main file; each list
// is loaded (and with it every file it loads) before the next file is read.
// Nothing is caught: the parser goes as the exception passes.
void AI_CStrategy::Analyze()
{
    std::unique_ptr<AI_CParser> pParser(new AI_CParser(this));
    for (int i = 0; i < m_aFilenames.GetSize(); ++i) {
        if (AI_CCommandList *pCommands = pParser->Parse(m_aFilenames[i]))
            pCommands->Load();
    }
    if (AI_CCommandList *pCommands = pParser->Parse(m_strFilename))
        pCommands->Load();
}
