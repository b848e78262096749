// CArray: an ordered, growable array of values. Arrays are mostly short
// (a constant's values, a signature's parameter codes): the array comes from
// the block pool, and plain values are kept inside it while they are few.
#ifndef STRATAGEM_PLATFORM_CARRAY_H
#define STRATAGEM_PLATFORM_CARRAY_H

#include <cstddef>
#include <type_traits>
#include <vector>

#include "BlockPool.h"
#include "InlineValues.h"
#include "types.h"

template <class TYPE, class ARG_TYPE = TYPE const &>
class CArray
{
public:
    CArray() = default;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_data.empty(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }

    TYPE GetAt(INT_PTR nIndex) const { return m_data[nIndex]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_data[nIndex] = TYPE(newElement); }
    TYPE &ElementAt(INT_PTR nIndex) { return m_data[nIndex]; }
    TYPE const &ElementAt(INT_PTR nIndex) const { return m_data[nIndex]; }
    TYPE &operator[](INT_PTR nIndex) { return m_data[nIndex]; }
    TYPE const &operator[](INT_PTR nIndex) const { return m_data[nIndex]; }
    TYPE *GetData() { return m_data.data(); }
    TYPE const *GetData() const { return m_data.data(); }

    // Appends the element and returns its index.
    INT_PTR Add(ARG_TYPE newElement)
    {
        m_data.push_back(TYPE(newElement));
        return GetSize() - 1;
    }
    void SetSize(INT_PTR nNewSize, INT_PTR /*nGrowBy*/ = -1) { m_data.resize(nNewSize > 0 ? nNewSize : 0); }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) { m_data.erase(m_data.begin() + nIndex, m_data.begin() + nIndex + nCount); }
    void RemoveAll() { m_data.clear(); }
    void Copy(CArray const &src) { m_data = src.m_data; }

    static void *operator new(std::size_t nSize) { return platform::AllocateBlock(nSize); }
    static void operator delete(void *p, std::size_t nSize) noexcept { platform::FreeBlock(p, nSize); }

private:
    std::conditional_t<std::is_trivially_copyable_v<TYPE>, platform::InlineValues<TYPE>,
                       std::vector<TYPE, platform::BlockAllocator<TYPE>>>
        m_data;
};

#endif
