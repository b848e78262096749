// Emptying the whole registry: the tables that own something go first, then
// the names. It sits above the symbol table and the tables built on it.
#include <vector>

#include "AI_Constants.h"
#include "AI_FunctionTable.h"
#include "AI_Registry.h"
#include "AI_SymbolTable.h"

void AI_DeleteAll()
{
    AI_DeleteFacts();
    AI_DeleteActions();
    AI_DeleteConstants();
    vocabulary::Registry &r = vocabulary::TheRegistry();
    r.values.clear();
    r.names.clear();
    std::vector<char const *>().swap(r.denseNames);
    r.symbols.clear();
}
