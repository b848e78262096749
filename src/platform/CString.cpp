#include "CString.h"

#include <cstdarg>
#include <cstdio>

// Most formatted texts are short: they are written into a buffer on the
// stack in one pass, and only a longer one is measured and written again.
void CString::Format(LPCTSTR lpszFormat, ...)
{
    va_list args;
    va_start(args, lpszFormat);
    va_list measure;
    va_copy(measure, args);
    char szShort[256];
    int const length = std::vsnprintf(szShort, sizeof szShort, lpszFormat, measure);
    va_end(measure);
    if (length < static_cast<int>(sizeof szShort)) {
        va_end(args);
        Assign(szShort, length > 0 ? length : 0);
        return;
    }
    std::string text;
    bool bRoom = true;
    try {
        text.resize(static_cast<size_t>(length) + 1);
    } catch (std::bad_alloc const &) {
        bRoom = false;
    }
    if (bRoom)
        std::vsnprintf(&text[0], text.size(), lpszFormat, args);
    va_end(args);
    if (!bRoom)
        AfxThrowMemoryException();
    text.resize(static_cast<size_t>(length));
    m_str.swap(text);
}
