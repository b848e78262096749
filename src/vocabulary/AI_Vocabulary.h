// The vocabulary registry: symbols, signatures, parameter types, defines,
// params, constants, the built-in vocabulary and the game settings.
#ifndef STRATAGEM_VOCABULARY_AI_VOCABULARY_H
#define STRATAGEM_VOCABULARY_AI_VOCABULARY_H

#include "AI_Builtins.h"
#include "AI_CFunction.h"
#include "AI_Constants.h"
#include "AI_FunctionTable.h"
#include "AI_GameSettings.h"
#include "AI_ParamType.h"
#include "AI_SettingsFields.h"
#include "AI_SymbolTable.h"

#endif
