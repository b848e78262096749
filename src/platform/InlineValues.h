// InlineValues: the storage of a CArray of plain values (integers, pointers).
// The first few values live inside the array object itself; only a longer
// array takes a block of its own from the pool. Most arrays hold one or two
// values (a constant's values, a signature's parameter codes), so reading
// one costs no second block and no second cache line.
#ifndef STRATAGEM_PLATFORM_INLINEVALUES_H
#define STRATAGEM_PLATFORM_INLINEVALUES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "BlockPool.h"

namespace platform {

template <class TYPE>
class InlineValues
{
    static_assert(std::is_trivially_copyable_v<TYPE>, "values are moved as bytes");

public:
    // As many values as fit in 8 bytes, at least one.
    static constexpr std::size_t kInline = sizeof(TYPE) < 8 ? 8 / sizeof(TYPE) : 1;

    InlineValues() = default;
    InlineValues(InlineValues const &other) { *this = other; }
    InlineValues &operator=(InlineValues const &other)
    {
        if (this != &other) {
            Reserve(other.m_nSize);
            std::memcpy(Values(), other.Values(), other.m_nSize * sizeof(TYPE));
            m_nSize = other.m_nSize;
        }
        return *this;
    }
    ~InlineValues()
    {
        if (m_pHeap)
            BlockAllocator<TYPE>().deallocate(m_pHeap, m_nCapacity);
    }

    std::size_t size() const { return m_nSize; }
    bool empty() const { return m_nSize == 0; }
    TYPE *data() { return Values(); }
    TYPE const *data() const { return Values(); }
    TYPE *begin() { return Values(); }
    TYPE &operator[](std::size_t i) { return Values()[i]; }
    TYPE const &operator[](std::size_t i) const { return Values()[i]; }

    void push_back(TYPE value)
    {
        Reserve(m_nSize + 1);
        Values()[m_nSize++] = value;
    }
    // New values are value-initialised, as a vector's are.
    void resize(std::size_t nSize)
    {
        Reserve(nSize);
        if (nSize > m_nSize)
            std::fill(Values() + m_nSize, Values() + nSize, TYPE());
        m_nSize = static_cast<std::uint32_t>(nSize);
    }
    void erase(TYPE *pFirst, TYPE *pLast)
    {
        std::memmove(pFirst, pLast, (Values() + m_nSize - pLast) * sizeof(TYPE));
        m_nSize -= static_cast<std::uint32_t>(pLast - pFirst);
    }
    void clear() { m_nSize = 0; }

private:
    TYPE *m_pHeap = nullptr;  // the values once they outgrow the object
    std::uint32_t m_nSize = 0;
    std::uint32_t m_nCapacity = kInline;
    TYPE m_aInline[kInline];

    TYPE *Values() { return m_pHeap ? m_pHeap : m_aInline; }
    TYPE const *Values() const { return m_pHeap ? m_pHeap : m_aInline; }

    // Room for nSize values at least, doubling the room when it grows.
    void Reserve(std::size_t nSize)
    {
        if (nSize <= m_nCapacity)
            return;
        std::size_t const nCapacity = std::max<std::size_t>(nSize, 2 * m_nCapacity);
        TYPE *pHeap = BlockAllocator<TYPE>().allocate(nCapacity);
        std::memcpy(pHeap, Values(), m_nSize * sizeof(TYPE));
        if (m_pHeap)
            BlockAllocator<TYPE>().deallocate(m_pHeap, m_nCapacity);
        m_pHeap = pHeap;
        m_nCapacity = static_cast<std::uint32_t>(nCapacity);
    }
};

}  // namespace platform

#endif
