// CObject and CRuntimeClass: the object base of the class library, with a
// per-class record (name, size, schema, factory, base) for run-time type
// tests and creation by class.
#ifndef STRATAGEM_PLATFORM_COBJECT_H
#define STRATAGEM_PLATFORM_COBJECT_H

#include "export.h"
#include "types.h"

class CObject;
class CArchive;      // serialization is not used by this system
class CDumpContext;  // nor are diagnostic dumps

struct STRATAGEM_API CRuntimeClass
{
    char const *m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject *(*m_pfnCreateObject)();
    CRuntimeClass *m_pBaseClass;

    // A new default-constructed object of the class, or null without a factory.
    CObject *CreateObject();
    BOOL IsDerivedFrom(CRuntimeClass const *pBaseClass) const;
};

class STRATAGEM_API CObject
{
public:
    virtual CRuntimeClass *GetRuntimeClass() const;
    virtual ~CObject();
    virtual void Serialize(CArchive &ar);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext &dc) const;

    BOOL IsKindOf(CRuntimeClass const *pClass) const;

    static CRuntimeClass classCObject;

protected:
    CObject() = default;

private:
    CObject(CObject const &) = delete;
    CObject &operator=(CObject const &) = delete;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass class##class_name;                                                                            \
    virtual CRuntimeClass *GetRuntimeClass() const;

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
    static CObject *CreateObject();

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, pfnNew)                                                    \
    CRuntimeClass class_name::class##class_name                                                                        \
        = {#class_name, sizeof(class_name), 0xFFFF, pfnNew, RUNTIME_CLASS(base_class_name)};                           \
    CRuntimeClass *class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject *class_name::CreateObject() { return new class_name; }                                                     \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, class_name::CreateObject)

#endif
