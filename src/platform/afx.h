// The class-library facilities the system is written against: strings,
// the object base with run-time class records, lists, arrays, hash maps,
// exceptions, and the few C-runtime behaviours of the original platform.
#ifndef STRATAGEM_PLATFORM_AFX_H
#define STRATAGEM_PLATFORM_AFX_H

#include "CArray.h"
#include "CException.h"
#include "CMap.h"
#include "CObList.h"
#include "CObject.h"
#include "CString.h"
#include "crt.h"
#include "export.h"
#include "types.h"

#endif
