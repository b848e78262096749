// CString: a byte string with value semantics, as the original class library
// has it. Comparisons are byte for byte; Format works like sprintf.
#ifndef STRATAGEM_PLATFORM_CSTRING_H
#define STRATAGEM_PLATFORM_CSTRING_H

#include <string>
#include <utility>

#include "export.h"
#include "memory.h"
#include "types.h"

class STRATAGEM_API CString
{
public:
    CString() = default;
    CString(LPCTSTR psz) { Assign(psz ? psz : "", -1); }
    CString(LPCTSTR pch, int nLength) { Assign(pch ? pch : "", pch ? nLength : 0); }
    CString(char ch, int nRepeat = 1)
    {
        platform::Allocating([&] { m_str.assign(nRepeat > 0 ? nRepeat : 0, ch); });
    }
    CString(CString const &other) { Assign(other.m_str.data(), other.GetLength()); }
    CString(CString &&) noexcept = default;

    CString &operator=(CString const &other)
    {
        Assign(other.m_str.data(), other.GetLength());
        return *this;
    }
    CString &operator=(CString &&) noexcept = default;
    CString &operator=(LPCTSTR psz)
    {
        Assign(psz ? psz : "", -1);
        return *this;
    }

    CString &operator+=(CString const &s) { return Append(s.m_str.data(), s.GetLength()); }
    CString &operator+=(LPCTSTR psz) { return Append(psz ? psz : "", -1); }
    CString &operator+=(char ch) { return Append(&ch, 1); }

    int GetLength() const { return static_cast<int>(m_str.size()); }
    BOOL IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    char GetAt(int nIndex) const { return m_str[nIndex]; }
    char operator[](int nIndex) const { return m_str[nIndex]; }

    operator LPCTSTR() const { return m_str.c_str(); }
    LPCTSTR GetString() const { return m_str.c_str(); }

    // printf-style formatting into this string.
    void Format(LPCTSTR lpszFormat, ...) __attribute__((format(printf, 2, 3)));

    int Compare(LPCTSTR psz) const { return m_str.compare(psz ? psz : ""); }

    // The bytes as a standard string, for code on the standard library side.
    std::string const &str() const { return m_str; }

private:
    std::string m_str;

    // nLength -1: up to the terminating null.
    void Assign(char const *pch, int nLength)
    {
        platform::Allocating([&] { nLength < 0 ? m_str.assign(pch) : m_str.assign(pch, nLength); });
    }
    CString &Append(char const *pch, int nLength)
    {
        platform::Allocating([&] { nLength < 0 ? m_str.append(pch) : m_str.append(pch, nLength); });
        return *this;
    }
};

// The left operand is taken by value and moved out when it is returned
// (+= answers a reference, which would be copied).
inline CString operator+(CString a, CString const &b) { return std::move(a += b); }
inline CString operator+(CString a, LPCTSTR b) { return std::move(a += b); }
inline CString operator+(LPCTSTR a, CString const &b) { return CString(a) + b; }
inline CString operator+(CString a, char b) { return std::move(a += b); }
inline CString operator+(char a, CString const &b) { return CString(a) + b; }

inline bool operator==(CString const &a, CString const &b) { return a.str() == b.str(); }
inline bool operator==(CString const &a, LPCTSTR b) { return a.Compare(b) == 0; }
inline bool operator==(LPCTSTR a, CString const &b) { return b.Compare(a) == 0; }
inline bool operator!=(CString const &a, CString const &b) { return !(a == b); }
inline bool operator!=(CString const &a, LPCTSTR b) { return !(a == b); }
inline bool operator!=(LPCTSTR a, CString const &b) { return !(a == b); }
inline bool operator<(CString const &a, CString const &b) { return a.str() < b.str(); }
inline bool operator<(CString const &a, LPCTSTR b) { return a.Compare(b) < 0; }
inline bool operator<(LPCTSTR a, CString const &b) { return b.Compare(a) > 0; }

namespace std {
template <>
struct hash<CString>
{
    size_t operator()(CString const &s) const noexcept { return hash<string>()(s.str()); }
};
}  // namespace std

#endif
