#include "AI_CFunction.h"

IMPLEMENT_DYNAMIC(AI_CFunction, CObject)

AI_CFunction::AI_CFunction() : m_nSID(0) {}

AI_CFunction::AI_CFunction(unsigned int nSID, char const *pszName, int nParam1, int nParam2, int nParam3, int nParam4,
                           int nParam5, int nParam6)
    : m_nSID(nSID), m_strName(pszName)
{
    // 0 marks an absent parameter; it is skipped, not a terminator.
    int const codes[] = {nParam1, nParam2, nParam3, nParam4, nParam5, nParam6};
    for (int code : codes)
        if (code != 0)
            m_params.Add(code);
}

AI_CFunction::AI_CFunction(unsigned int nSID, char const *pszName, CArray<int, int> const &params)
    : m_nSID(nSID), m_strName(pszName)
{
    m_params.Copy(params);
}

AI_CFunction::AI_CFunction(AI_CFunction const &other) : CObject(), m_nSID(other.m_nSID), m_strName(other.m_strName)
{
    m_params.Copy(other.m_params);
}

AI_CFunction::~AI_CFunction() {}

AI_CFunction &AI_CFunction::operator=(AI_CFunction const &other)
{
    if (this == &other)
        return *this;
    m_nSID = other.m_nSID;
    m_strName = other.m_strName;
    m_params.Copy(other.m_params);
    return *this;
}

int AI_CFunction::operator==(AI_CFunction const &other) const { return m_nSID == other.m_nSID ? 1 : 0; }

unsigned int AI_CFunction::GetSID() const { return m_nSID; }

char const *AI_CFunction::GetName() const { return m_strName; }

CArray<int, int> const &AI_CFunction::GetParams() const { return m_params; }
