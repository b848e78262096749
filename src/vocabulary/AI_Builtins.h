// The built-in vocabulary of the script language: 110 facts, 54 actions,
// 66 defines and 547 params. The host registers them; calling a function
// again registers the same words again.
#ifndef STRATAGEM_VOCABULARY_AI_BUILTINS_H
#define STRATAGEM_VOCABULARY_AI_BUILTINS_H

#include "../platform/afx.h"

// The SIDs of the relational operator params, which the grammar reads as
// operator tokens.
enum : unsigned int
{
    AI_SID_LESS_THAN = 2300,
    AI_SID_LESS_OR_EQUAL = 2301,
    AI_SID_GREATER_THAN = 2302,
    AI_SID_GREATER_OR_EQUAL = 2303,
    AI_SID_EQUAL = 2304,
    AI_SID_NOT_EQUAL = 2305,
};

STRATAGEM_API void AI_AddFacts();
STRATAGEM_API void AI_AddActions();
STRATAGEM_API void AI_AddDefines();
STRATAGEM_API void AI_AddParams();

#endif
