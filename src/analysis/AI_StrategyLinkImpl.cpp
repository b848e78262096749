// The analysis supplies the objects' link to the strategy: a constant's
// value goes into the strategy's table, a load command's file is parsed by
// a new parser on the strategy and loaded.
#include <memory>

#include "../objects/AI_CCommand.h"
#include "../objects/AI_StrategyLink.h"
#include "../parser/AI_CParser.h"
#include "../strategy/AI_CStrategy.h"

namespace {

class AnalysisLink : public AI_CStrategyLink
{
public:
    AnalysisLink() { AI_SetStrategyLink(this); }

    void AddConstantValue(AI_CStrategy *pStrategy, unsigned int nSID, int nValue) const override
    {
        pStrategy->AddConstantValue(nSID, nValue);
    }

    void LoadFile(AI_CStrategy *pStrategy, char const *pszFilename, AI_CCommandList *&rpCommands) const override
    {
        // The parser is destroyed on every way out, exceptions included.
        std::unique_ptr<AI_CParser> pParser(new AI_CParser(pStrategy));
        rpCommands = pParser->Parse(pszFilename);
        if (rpCommands)
            rpCommands->Load();
    }
};

AnalysisLink const s_link;

}  // namespace
