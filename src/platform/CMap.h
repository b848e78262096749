// CMap: the class library's hash map. Its enumeration order is part of the
// observable behaviour (listings print tables in it), so the bucket layout
// is kept exactly: HashKey(key) modulo the table size (17 by default) picks a
// bucket, a new entry goes to the front of its bucket's chain, and
// enumeration walks the buckets in increasing index, each chain from its
// front. Beside the chains an index keeps lookups constant-time however long
// the chains grow. Entries come from the block pool.
#ifndef STRATAGEM_PLATFORM_CMAP_H
#define STRATAGEM_PLATFORM_CMAP_H

#include <cstdint>
#include <new>
#include <type_traits>
#include <vector>

#include "BlockPool.h"
#include "CString.h"
#include "HashIndex.h"
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

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_index.GetCount()); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_index.GetCount() == 0; }
    UINT GetHashTableSize() const { return m_nHashTableSize; }

    BOOL Lookup(ARG_KEY key, VALUE &rValue) const
    {
        CAssoc const *pAssoc = Find(key, IndexHashOf(key));
        if (!pAssoc)
            return FALSE;
        rValue = pAssoc->value;
        return TRUE;
    }

    VALUE &operator[](ARG_KEY key)
    {
        std::size_t const nIndexHash = IndexHashOf(key);
        if (CAssoc *pAssoc = Find(key, nIndexHash))
            return pAssoc->value;
        if (m_buckets.empty())
            m_buckets.assign(m_nHashTableSize, nullptr);
        m_index.Reserve();
        CAssoc *pAssoc = NewAssoc(key);
        pAssoc->nHashValue = HashKey<ARG_KEY>(key) % m_nHashTableSize;
        CAssoc *&head = m_buckets[pAssoc->nHashValue];
        pAssoc->pPrev = nullptr;
        pAssoc->pNext = head;
        if (head)
            head->pPrev = pAssoc;
        head = pAssoc;
        m_index.Insert(pAssoc, nIndexHash);
        return pAssoc->value;
    }

    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

    BOOL RemoveKey(ARG_KEY key)
    {
        CAssoc *pAssoc = m_index.Remove(IndexHashOf(key), Holding(key));
        if (!pAssoc)
            return FALSE;
        (pAssoc->pPrev ? pAssoc->pPrev->pNext : m_buckets[pAssoc->nHashValue]) = pAssoc->pNext;
        if (pAssoc->pNext)
            pAssoc->pNext->pPrev = pAssoc->pPrev;
        DeleteAssoc(pAssoc);
        return TRUE;
    }

    // Removes every entry and releases the bucket array; the next insertion
    // creates it anew.
    void RemoveAll()
    {
        for (CAssoc *head : m_buckets)
            for (CAssoc *pAssoc = head; pAssoc;) {
                CAssoc *pNext = pAssoc->pNext;
                DeleteAssoc(pAssoc);
                pAssoc = pNext;
            }
        m_buckets.clear();
        m_buckets.shrink_to_fit();
        m_index.Clear();
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
    // Entries come from the block pool, value-initialised as before.
    static CAssoc *NewAssoc(ARG_KEY key)
    {
        void *pBlock = platform::AllocateBlock(sizeof(CAssoc));
        CAssoc *pAssoc;
        try {
            pAssoc = new (pBlock) CAssoc{};
            pAssoc->key = KEY(key);
        } catch (...) {
            platform::FreeBlock(pBlock, sizeof(CAssoc));
            throw;
        }
        return pAssoc;
    }
    static void DeleteAssoc(CAssoc *pAssoc)
    {
        pAssoc->~CAssoc();
        platform::FreeBlock(pAssoc, sizeof(CAssoc));
    }

    // Keys that are numbers or pointers are hashed as themselves, so the
    // index finds them without reading the entries. A string key is hashed
    // by its text, whether it comes as a CString or as a pointer to text.
    static constexpr bool kKeyIsHash = std::is_integral_v<KEY> || std::is_enum_v<KEY> || std::is_pointer_v<KEY>;
    static constexpr bool kKeyIsText = std::is_same_v<KEY, CString> && std::is_convertible_v<ARG_KEY, LPCTSTR>;

    static std::size_t IndexHashOf(ARG_KEY key)
    {
        if constexpr (kKeyIsHash)
            return platform::IndexHash(KEY(key));
        else if constexpr (kKeyIsText)
            return platform::IndexHashOfText(key);
        else
            return platform::IndexHash(static_cast<KEY const &>(key));
    }

    // Whether the entry holds the key, given that the hashes agree.
    static bool Holds(CAssoc const &assoc, ARG_KEY key)
    {
        if constexpr (kKeyIsHash)
            return true;
        else if constexpr (kKeyIsText)
            return assoc.key == static_cast<LPCTSTR>(key);
        else
            return assoc.key == static_cast<KEY const &>(key);
    }

    // The test Holds as a predicate over entries; it refers to the key, so
    // it lives no longer than the caller's argument.
    static auto Holding(ARG_KEY const &key)
    {
        return [&key](CAssoc const &assoc) { return Holds(assoc, key); };
    }

    CAssoc *Find(ARG_KEY key, std::size_t nIndexHash) const { return m_index.Find(nIndexHash, Holding(key)); }

    CAssoc *FirstInBucketFrom(UINT nBucket) const
    {
        for (; nBucket < m_buckets.size(); ++nBucket)
            if (m_buckets[nBucket])
                return m_buckets[nBucket];
        return nullptr;
    }

    UINT m_nHashTableSize = 17;
    std::vector<CAssoc *> m_buckets;
    platform::HashIndex<CAssoc> m_index;
};

#endif
