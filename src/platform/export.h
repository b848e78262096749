// Symbol visibility of the library's interface. The library is built with
// hidden visibility; everything a host may call carries STRATAGEM_API.
#ifndef STRATAGEM_PLATFORM_EXPORT_H
#define STRATAGEM_PLATFORM_EXPORT_H

#define STRATAGEM_API __attribute__((visibility("default")))

#endif
