// Defines, params and constants. Defines and params are plain symbols;
// constants also own an array of values, index 0 being the value given at
// registration. Constant SIDs are handed out from 4001 upwards and never
// handed out twice during the life of the process.
#ifndef STRATAGEM_VOCABULARY_AI_CONSTANTS_H
#define STRATAGEM_VOCABULARY_AI_CONSTANTS_H

#include "../platform/afx.h"

// Answer of AI_Constant for a SID without values.
#define AI_NO_VALUE (static_cast<int>(0x80000000u))

STRATAGEM_API void AI_AddDefine(unsigned int nSID, char const *pszName);
STRATAGEM_API void AI_AddParam(unsigned int nSID, char const *pszName);

// Interns the name under the next constant SID (overwriting any symbol of the
// same name) with a single value; returns the SID.
STRATAGEM_API unsigned int AI_AddConstant(char const *pszName, int nValue);
// Appends a value; a SID without a value array is ignored.
STRATAGEM_API void AI_AddConstantValue(unsigned int nSID, int nValue);
// The value at the index, or AI_NO_VALUE when the SID has no values or the
// index lies outside them.
STRATAGEM_API int AI_Constant(unsigned int nSID, int nIndex);

// Forget the SID (whatever its kind); 1 when it was registered, else 0.
STRATAGEM_API int AI_DeleteDefine(unsigned int nSID);
STRATAGEM_API int AI_DeleteParam(unsigned int nSID);
// Also destroys the constant's values.
STRATAGEM_API int AI_DeleteConstant(unsigned int nSID);
STRATAGEM_API void AI_DeleteConstants();

#endif
