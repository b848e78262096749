// The symbol table: every vocabulary word is interned once as a name and a
// SID. The kind of a symbol follows from nothing but its SID's range:
//   define 100-299, fact 300-499, action 500-699, param 1100-3499,
//   constant 4001 and above.
// A SID counts as registered when the name table has an entry for it.
#ifndef STRATAGEM_VOCABULARY_AI_SYMBOLTABLE_H
#define STRATAGEM_VOCABULARY_AI_SYMBOLTABLE_H

#include "../platform/afx.h"

// The SID interned for the name (compared byte for byte), or 0.
STRATAGEM_API unsigned int AI_Symbol(char const *pszName);

// A copy of the name interned for the SID, or the empty string.
STRATAGEM_API CString AI_String(unsigned int nSID);

// 1 when the SID lies in the kind's range and is registered, else 0.
STRATAGEM_API int AI_IsDefine(unsigned int nSID);
STRATAGEM_API int AI_IsFact(unsigned int nSID);
STRATAGEM_API int AI_IsAction(unsigned int nSID);
STRATAGEM_API int AI_IsParam(unsigned int nSID);
STRATAGEM_API int AI_IsConstant(unsigned int nSID);

// Empties every table: facts, actions and constants first, then all remaining
// names. The next constant SID keeps its value.
STRATAGEM_API void AI_DeleteAll();

#endif
