// What script objects ask of the strategy they belong to. The strategy
// container and the analysis that reads files for it lie in layers above
// the objects; the analysis supplies this interface when the library is
// loaded, so that a load command can read its file and a constant
// definition can record its value without the objects knowing those
// layers. Internal to the library.
#ifndef STRATAGEM_OBJECTS_AI_STRATEGYLINK_H
#define STRATAGEM_OBJECTS_AI_STRATEGYLINK_H

class AI_CStrategy;
class AI_CCommandList;

class AI_CStrategyLink
{
public:
    virtual ~AI_CStrategyLink() {}
    // Appends a value to the constant's values in the strategy.
    virtual void AddConstantValue(AI_CStrategy *pStrategy, unsigned int nSID, int nValue) const = 0;
    // Asks a new parser on the strategy for the file's command list, stores
    // it in rpCommands (null included) and then loads it. The list is stored
    // before it is loaded, so a file that loads itself finds its load
    // command already loaded. Exceptions from the parse pass through;
    // rpCommands then keeps its value.
    virtual void LoadFile(AI_CStrategy *pStrategy, char const *pszFilename, AI_CCommandList *&rpCommands) const = 0;
};

// The link the objects use; until one is supplied, loading does nothing.
AI_CStrategyLink const &AI_TheStrategyLink();
void AI_SetStrategyLink(AI_CStrategyLink const *pLink);

#endif
