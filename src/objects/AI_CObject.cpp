#include "AI_CObject.h"

#include "AI_Listing.h"

IMPLEMENT_DYNCREATE(AI_CObject, CObject)

AI_CObject::AI_CObject() {}

AI_CObject::~AI_CObject() {}

CString AI_CObject::GetDescription() { return CString("object"); }

void AI_CObject::GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const {}

void AI_CObject::PrettyPrint(std::ostream &, int) const {}

void AI_CObject::Offset(std::ostream &os, int nLevel) const { listing::Indent(os, nLevel); }
