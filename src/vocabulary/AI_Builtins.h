// The built-in vocabulary of the script language: 110 facts, 54 actions,
// 66 defines and 547 params. The host registers them; calling a function
// again registers the same words again.
#ifndef STRATAGEM_VOCABULARY_AI_BUILTINS_H
#define STRATAGEM_VOCABULARY_AI_BUILTINS_H

#include "../platform/afx.h"

STRATAGEM_API void AI_AddFacts();
STRATAGEM_API void AI_AddActions();
STRATAGEM_API void AI_AddDefines();
STRATAGEM_API void AI_AddParams();

#endif
