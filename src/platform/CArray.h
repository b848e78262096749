// CArray: an ordered, growable array of values over std::vector.
#ifndef STRATAGEM_PLATFORM_CARRAY_H
#define STRATAGEM_PLATFORM_CARRAY_H

#include <vector>

#include "memory.h"
#include "types.h"

template <class TYPE, class ARG_TYPE = TYPE const &>
class CArray
{
public:
    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_data.empty(); }

    TYPE GetAt(INT_PTR nIndex) const { return m_data[nIndex]; }
    TYPE &ElementAt(INT_PTR nIndex) { return m_data[nIndex]; }
    TYPE &operator[](INT_PTR nIndex) { return m_data[nIndex]; }
    TYPE const &operator[](INT_PTR nIndex) const { return m_data[nIndex]; }

    // Appends the element and returns its index.
    INT_PTR Add(ARG_TYPE newElement)
    {
        platform::Allocating([&] { m_data.push_back(TYPE(newElement)); });
        return GetSize() - 1;
    }
    void SetSize(INT_PTR nNewSize, INT_PTR /*nGrowBy*/ = -1)
    {
        platform::Allocating([&] { m_data.resize(nNewSize > 0 ? nNewSize : 0); });
    }
    void RemoveAll() { m_data.clear(); }
    void Copy(CArray const &src)
    {
        platform::Allocating([&] { m_data = src.m_data; });
    }

private:
    std::vector<TYPE> m_data;
};

#endif
