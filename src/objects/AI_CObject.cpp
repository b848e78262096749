#include "AI_CObject.h"

#include "../platform/BlockPool.h"
#include "AI_Listing.h"

IMPLEMENT_DYNCREATE(AI_CObject, CObject)

AI_CObject::AI_CObject() {}

AI_CObject::~AI_CObject() {}

CString AI_CObject::GetDescription()
{
    return CString("object");
}

void AI_CObject::GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const {}

void AI_CObject::PrettyPrint(std::ostream &, int) const {}

void AI_CObject::Offset(std::ostream &os, int nLevel) const
{
    listing::Indent(os, nLevel);
}

void *AI_CObject::operator new(std::size_t nSize)
{
    return platform::AllocateBlock(nSize);
}

void *AI_CObject::operator new(std::size_t nSize, std::nothrow_t const &) noexcept
{
    return platform::AllocateBlockOrNull(nSize);
}

void AI_CObject::operator delete(void *p, std::size_t nSize) noexcept
{
    platform::FreeBlock(p, nSize);
}

void AI_CObject::operator delete(void *p, std::nothrow_t const &) noexcept
{
    platform::FreeBlockOfUnknownSize(p);
}
