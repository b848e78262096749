#include "CString.h"

#include <cstdarg>
#include <cstdio>

void CString::Format(LPCTSTR lpszFormat, ...)
{
    va_list args;
    va_start(args, lpszFormat);
    va_list measure;
    va_copy(measure, args);
    int const length = std::vsnprintf(nullptr, 0, lpszFormat, measure);
    va_end(measure);
    std::string text;
    bool bRoom = true;
    try {
        text.resize(length > 0 ? static_cast<size_t>(length) + 1 : 1);
    } catch (std::bad_alloc const &) {
        bRoom = false;
    }
    if (bRoom && length > 0)
        std::vsnprintf(&text[0], text.size(), lpszFormat, args);
    va_end(args);
    if (!bRoom)
        AfxThrowMemoryException();
    text.resize(length > 0 ? static_cast<size_t>(length) : 0);
    m_str.swap(text);
}
