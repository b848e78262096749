// AI_CFunction: the signature of a fact or an action - its SID, its name and
// the parameter type codes of its parameters, in order.
#ifndef STRATAGEM_VOCABULARY_AI_CFUNCTION_H
#define STRATAGEM_VOCABULARY_AI_CFUNCTION_H

#include "../platform/afx.h"

class STRATAGEM_API AI_CFunction : public CObject
{
    DECLARE_DYNAMIC(AI_CFunction)

public:
    AI_CFunction();
    // Appends each code that is not 0: the codes 5, 0, 2 give the list 5, 2.
    AI_CFunction(unsigned int nSID, char const *pszName, int nParam1 = 0, int nParam2 = 0, int nParam3 = 0,
                 int nParam4 = 0, int nParam5 = 0, int nParam6 = 0);
    // Copies every code of the array, zeros included.
    AI_CFunction(unsigned int nSID, char const *pszName, CArray<int, int> const &params);
    AI_CFunction(AI_CFunction const &other);
    virtual ~AI_CFunction();

    AI_CFunction &operator=(AI_CFunction const &other);
    // Signatures are identified by their SID alone.
    int operator==(AI_CFunction const &other) const;

    unsigned int GetSID() const;
    char const *GetName() const;
    CArray<int, int> const &GetParams() const;

    unsigned int m_nSID;
    CString m_strName;
    CArray<int, int> m_params;
};

#endif
