// CMap: the class library's hash map. Its enumeration order is part of the
// observable behaviour (listings print tables in it), so the bucket layout
// is kept exactly: HashKey(key) modulo the table size (17 by default) picks a
// bucket, a new entry goes to the front of its bucket's chain, and
// enumeration walks the buckets in increasing index, each chain from its
// front. The entries themselves live in a standard hash map, which finds
// them in constant time however long the chains grow.
#ifndef STRATAGEM_PLATFORM_CMAP_H
#define STRATAGEM_PLATFORM_CMAP_H

#include <unordered_map>
#include <vector>

#include "CString.h"
#include "memory.h"
#include "types.h"

// Hash of an integral key: its value shifted right by 4 bits.
template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key)
{
    return static_cast<UINT>(key) >> 4;
}

// Hash of a string key: h = h * 33 + c over its bytes, each taken as a
// signed byte, in unsigned 32-bit arithmetic.
template <>
inline UINT HashKey<LPCTSTR>(LPCTSTR key)
{
    UINT nHash = 0;
    for (; *key; ++key)
        nHash = nHash * 33 + static_cast<UINT>(static_cast<int>(static_cast<signed char>(*key)));
    return nHash;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap
{
    struct CAssoc : __POSITION
    {
        KEY const *pKey = nullptr;  // the key of the standard map's node
        CAssoc *pNext = nullptr;
        CAssoc *pPrev = nullptr;
        UINT nBucket = 0;
        VALUE value {};
    };

public:
    explicit CMap(INT_PTR /*nBlockSize*/ = 10) {}
    CMap(CMap const &) = delete;
    CMap &operator=(CMap const &) = delete;

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_entries.size()); }
    BOOL IsEmpty() const { return m_entries.empty(); }

    BOOL Lookup(ARG_KEY key, VALUE &rValue) const
    {
        auto const it = m_entries.find(KEY(key));
        if (it == m_entries.end())
            return FALSE;
        rValue = it->second.value;
        return TRUE;
    }

    VALUE &operator[](ARG_KEY key)
    {
        auto const inserted = platform::Allocating([&] {
            if (m_buckets.empty())
                m_buckets.assign(m_nHashTableSize, nullptr);
            return m_entries.try_emplace(KEY(key));
        });
        CAssoc &assoc = inserted.first->second;
        if (inserted.second) {
            assoc.pKey = &inserted.first->first;
            assoc.nBucket = HashKey<ARG_KEY>(key) % m_nHashTableSize;
            CAssoc *&head = m_buckets[assoc.nBucket];
            assoc.pNext = head;
            if (head)
                head->pPrev = &assoc;
            head = &assoc;
        }
        return assoc.value;
    }

    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

    BOOL RemoveKey(ARG_KEY key)
    {
        auto const it = m_entries.find(KEY(key));
        if (it == m_entries.end())
            return FALSE;
        CAssoc &assoc = it->second;
        (assoc.pPrev ? assoc.pPrev->pNext : m_buckets[assoc.nBucket]) = assoc.pNext;
        if (assoc.pNext)
            assoc.pNext->pPrev = assoc.pPrev;
        m_entries.erase(it);
        return TRUE;
    }

    // Removes every entry and releases the bucket array; the next insertion
    // creates it anew.
    void RemoveAll()
    {
        m_entries.clear();
        std::vector<CAssoc *>().swap(m_buckets);
    }

    // Sets the number of buckets; only an empty map can change it.
    void InitHashTable(UINT nHashSize, BOOL bAllocNow = TRUE)
    {
        if (!IsEmpty() || nHashSize == 0)
            return;
        m_nHashTableSize = nHashSize;
        m_buckets.clear();
        if (bAllocNow)
            platform::Allocating([&] { m_buckets.assign(m_nHashTableSize, nullptr); });
    }

    POSITION GetStartPosition() const { return FirstInBucketFrom(0); }

    void GetNextAssoc(POSITION &rNextPosition, KEY &rKey, VALUE &rValue) const
    {
        rKey = *static_cast<CAssoc const *>(rNextPosition)->pKey;
        rValue = GetNextValue(rNextPosition);
    }

    // The value at the position, stepping on as GetNextAssoc does; copies no
    // key, so that a walk that frees the values allocates nothing.
    VALUE GetNextValue(POSITION &rNextPosition) const
    {
        CAssoc const *pAssoc = static_cast<CAssoc const *>(rNextPosition);
        rNextPosition = pAssoc->pNext ? pAssoc->pNext : FirstInBucketFrom(pAssoc->nBucket + 1);
        return pAssoc->value;
    }

private:
    POSITION FirstInBucketFrom(UINT nBucket) const
    {
        for (; nBucket < m_buckets.size(); ++nBucket)
            if (m_buckets[nBucket])
                return m_buckets[nBucket];
        return nullptr;
    }

    UINT m_nHashTableSize = 17;
    std::vector<CAssoc *> m_buckets;  // the front of each chain
    std::unordered_map<KEY, CAssoc> m_entries;
};

#endif
