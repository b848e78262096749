// CMap: the class library's hash map. Its enumeration order is part of the
// observable behaviour (listings print tables in it), so the bucket layout
// is kept exactly: HashKey(key) modulo the table size (17 by default) picks a
// bucket, a new entry goes to the front of its bucket's chain, and
// enumeration walks the buckets in increasing index, each chain from its
// front. Beside the chains an index keeps lookups constant-time however long
// the chains grow.
#ifndef STRATAGEM_PLATFORM_CMAP_H
#define STRATAGEM_PLATFORM_CMAP_H

#include <cstdint>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "CString.h"
#include "types.h"

// Hash of an integral or pointer key: its value shifted right by 4 bits.
template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key)
{
    if constexpr (std::is_pointer_v<ARG_KEY>)
        return static_cast<UINT>(reinterpret_cast<std::uintptr_t>(key)) >> 4;
    else
        return static_cast<UINT>(key) >> 4;
}

// Hash of a string key: h = h * 33 + c over its bytes, each taken as a
// signed byte, in unsigned 32-bit arithmetic.
template <>
inline UINT HashKey<LPCTSTR>(LPCTSTR key)
{
    UINT nHash = 0;
    for (; *key; ++key)
        nHash = (nHash << 5) + nHash + static_cast<UINT>(static_cast<int>(static_cast<signed char>(*key)));
    return nHash;
}

template <>
inline UINT HashKey<CString const &>(CString const &key)
{
    return HashKey<LPCTSTR>(key.GetString());
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap
{
    struct CAssoc : __POSITION
    {
        CAssoc *pNext;
        CAssoc *pPrev;
        UINT nHashValue;  // the bucket index
        KEY key;
        VALUE value;
    };

public:
    explicit CMap(INT_PTR /*nBlockSize*/ = 10) {}
    CMap(CMap const &) = delete;
    CMap &operator=(CMap const &) = delete;
    ~CMap() { RemoveAll(); }

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_index.size()); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_index.empty(); }
    UINT GetHashTableSize() const { return m_nHashTableSize; }

    BOOL Lookup(ARG_KEY key, VALUE &rValue) const
    {
        CAssoc const *pAssoc = Find(key);
        if (!pAssoc)
            return FALSE;
        rValue = pAssoc->value;
        return TRUE;
    }

    VALUE &operator[](ARG_KEY key)
    {
        if (CAssoc *pAssoc = Find(key))
            return pAssoc->value;
        if (m_buckets.empty())
            m_buckets.assign(m_nHashTableSize, nullptr);
        CAssoc *pAssoc = new CAssoc{};
        pAssoc->nHashValue = HashKey<ARG_KEY>(key) % m_nHashTableSize;
        pAssoc->key = KEY(key);
        CAssoc *&head = m_buckets[pAssoc->nHashValue];
        pAssoc->pPrev = nullptr;
        pAssoc->pNext = head;
        if (head)
            head->pPrev = pAssoc;
        head = pAssoc;
        m_index.emplace(pAssoc->key, pAssoc);
        return pAssoc->value;
    }

    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

    BOOL RemoveKey(ARG_KEY key)
    {
        auto it = m_index.find(KEY(key));
        if (it == m_index.end())
            return FALSE;
        CAssoc *pAssoc = it->second;
        m_index.erase(it);
        (pAssoc->pPrev ? pAssoc->pPrev->pNext : m_buckets[pAssoc->nHashValue]) = pAssoc->pNext;
        if (pAssoc->pNext)
            pAssoc->pNext->pPrev = pAssoc->pPrev;
        delete pAssoc;
        return TRUE;
    }

    // Removes every entry and releases the bucket array; the next insertion
    // creates it anew.
    void RemoveAll()
    {
        for (CAssoc *head : m_buckets)
            for (CAssoc *pAssoc = head; pAssoc;) {
                CAssoc *pNext = pAssoc->pNext;
                delete pAssoc;
                pAssoc = pNext;
            }
        m_buckets.clear();
        m_buckets.shrink_to_fit();
        m_index.clear();
    }

    // Sets the number of buckets; only an empty map can change it.
    void InitHashTable(UINT nHashSize, BOOL bAllocNow = TRUE)
    {
        if (!IsEmpty() || nHashSize == 0)
            return;
        m_nHashTableSize = nHashSize;
        m_buckets.clear();
        if (bAllocNow)
            m_buckets.assign(m_nHashTableSize, nullptr);
    }

    POSITION GetStartPosition() const { return FirstInBucketFrom(0); }

    void GetNextAssoc(POSITION &rNextPosition, KEY &rKey, VALUE &rValue) const
    {
        CAssoc *pAssoc = static_cast<CAssoc *>(rNextPosition);
        rKey = pAssoc->key;
        rValue = pAssoc->value;
        rNextPosition = pAssoc->pNext ? pAssoc->pNext : FirstInBucketFrom(pAssoc->nHashValue + 1);
    }

private:
    CAssoc *Find(ARG_KEY key) const
    {
        auto it = m_index.find(KEY(key));
        return it == m_index.end() ? nullptr : it->second;
    }

    CAssoc *FirstInBucketFrom(UINT nBucket) const
    {
        for (; nBucket < m_buckets.size(); ++nBucket)
            if (m_buckets[nBucket])
                return m_buckets[nBucket];
        return nullptr;
    }

    UINT m_nHashTableSize = 17;
    std::vector<CAssoc *> m_buckets;
    std::unordered_map<KEY, CAssoc *> m_index;
};

#endif
