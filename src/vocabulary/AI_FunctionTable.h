// Registration, lookup and removal of fact and action signatures. The fact
// and action tables own their signatures; lookups hand out read-only
// pointers, valid until the signature is deleted or registered anew.
#ifndef STRATAGEM_VOCABULARY_AI_FUNCTIONTABLE_H
#define STRATAGEM_VOCABULARY_AI_FUNCTIONTABLE_H

#include "AI_CFunction.h"

STRATAGEM_API AI_CFunction const *AI_Fact(unsigned int nSID);
STRATAGEM_API AI_CFunction const *AI_Action(unsigned int nSID);

// Interns the name and enters a new signature (zero codes skipped), taking
// the place of any signature held for the SID. The SID's range is not tested.
STRATAGEM_API void AI_AddFact(unsigned int nSID, char const *pszName, int nParam1 = 0, int nParam2 = 0, int nParam3 = 0,
                              int nParam4 = 0, int nParam5 = 0, int nParam6 = 0);
STRATAGEM_API void AI_AddAction(unsigned int nSID, char const *pszName, int nParam1 = 0, int nParam2 = 0,
                                int nParam3 = 0, int nParam4 = 0, int nParam5 = 0, int nParam6 = 0);

// Forget the SID (whatever its kind) and destroy its signature, if any.
// 1 when the SID was registered, else 0.
STRATAGEM_API int AI_DeleteFact(unsigned int nSID);
STRATAGEM_API int AI_DeleteAction(unsigned int nSID);

// Remove every signature of the table together with its symbol.
STRATAGEM_API void AI_DeleteFacts();
STRATAGEM_API void AI_DeleteActions();

#endif
