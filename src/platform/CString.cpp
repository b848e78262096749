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
    if (length < 0) {
        m_str.clear();
    } else {
        std::string text(static_cast<size_t>(length) + 1, '\0');
        std::vsnprintf(&text[0], text.size(), lpszFormat, args);
        text.resize(static_cast<size_t>(length));
        m_str.swap(text);
    }
    va_end(args);
}
