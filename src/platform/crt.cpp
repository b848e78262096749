#include "crt.h"

#include <cctype>
#include <cstring>

namespace crt {

namespace {
unsigned int g_randState = 1;
}

int rand()
{
    g_randState = g_randState * 214013u + 2531011u;
    return static_cast<int>((g_randState >> 16) & kRandMax);
}

void srand(unsigned int seed) { g_randState = seed; }

void SplitPath(char const *path, CString &drive, CString &dir, CString &fname, CString &ext)
{
    drive.Empty();
    dir.Empty();
    fname.Empty();
    ext.Empty();
    if (!path)
        return;
    if (std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':') {
        drive = CString(path, 2);
        path += 2;
    }
    char const *lastSeparator = nullptr;
    char const *lastDot = nullptr;
    for (char const *p = path; *p; ++p) {
        if (*p == '\\' || *p == '/')
            lastSeparator = p;
        else if (*p == '.')
            lastDot = p;
    }
    char const *name = path;
    if (lastSeparator) {
        dir = CString(path, static_cast<int>(lastSeparator + 1 - path));
        name = lastSeparator + 1;
    }
    if (lastDot && lastDot >= name) {
        fname = CString(name, static_cast<int>(lastDot - name));
        ext = lastDot;
    } else {
        fname = name;
    }
}

}  // namespace crt
