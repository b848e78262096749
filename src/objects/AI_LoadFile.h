// Loading one file on behalf of a load command. Internal to the library.
#ifndef STRATAGEM_OBJECTS_AI_LOADFILE_H
#define STRATAGEM_OBJECTS_AI_LOADFILE_H

class AI_CStrategy;
class AI_CCommandList;

// Asks a new parser on the strategy for the file's command list, stores it in
// rpCommands (null included) and then loads it. The list is stored before it
// is loaded, so a file that loads itself finds its load command already
// loaded. Exceptions from the parse pass through; rpCommands then keeps its
// value.
void AI_LoadFile(AI_CStrategy *pStrategy, char const *pszFilename, AI_CCommandList *&rpCommands);

#endif
