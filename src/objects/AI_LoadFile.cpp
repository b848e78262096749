#include "AI_LoadFile.h"

#include "AI_StrategyLink.h"

namespace {

// Nothing to reach before the analysis supplies its link.
class Unlinked : public AI_CStrategyLink
{
public:
    void AddConstantValue(AI_CStrategy *, unsigned int, int) const override {}
    void LoadFile(AI_CStrategy *, char const *, AI_CCommandList *&) const override {}
};

Unlinked const s_unlinked;
AI_CStrategyLink const *s_pLink = nullptr;

}  // namespace

AI_CStrategyLink const &AI_TheStrategyLink() { return s_pLink ? *s_pLink : s_unlinked; }

void AI_SetStrategyLink(AI_CStrategyLink const *pLink) { s_pLink = pLink; }

void AI_LoadFile(AI_CStrategy *pStrategy, char const *pszFilename, AI_CCommandList *&rpCommands)
{
    AI_TheStrategyLink().LoadFile(pStrategy, pszFilename, rpCommands);
}
