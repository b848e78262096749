#include "CObject.h"

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, nullptr, nullptr};

CObject *CRuntimeClass::CreateObject() { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }

BOOL CRuntimeClass::IsDerivedFrom(CRuntimeClass const *pBaseClass) const
{
    for (CRuntimeClass const *p = this; p; p = p->m_pBaseClass)
        if (p == pBaseClass)
            return TRUE;
    return FALSE;
}

CRuntimeClass *CObject::GetRuntimeClass() const { return RUNTIME_CLASS(CObject); }
CObject::~CObject() = default;
void CObject::Serialize(CArchive &) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext &) const {}

BOOL CObject::IsKindOf(CRuntimeClass const *pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }
