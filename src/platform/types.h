// The plain types of the original class library's interface.
#ifndef STRATAGEM_PLATFORM_TYPES_H
#define STRATAGEM_PLATFORM_TYPES_H

#include <cstddef>
#include <cstdint>

typedef int BOOL;
typedef unsigned int UINT;
typedef std::int32_t LONG;
typedef char const *LPCTSTR;
typedef char *LPTSTR;
typedef UINT *PUINT;
typedef int INT_PTR;

// An opaque iterator into a list or map; null means "no position".
struct __POSITION
{};
typedef __POSITION *POSITION;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef NULL
#define NULL nullptr
#endif

#endif
