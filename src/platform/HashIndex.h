// HashIndex: finds entries that live elsewhere (CMap's chained entries) by
// the hash of their key, in constant time however many there are. An open
// table of (entry, hash) slots probed linearly: no allocation per entry, and
// a probe reads the stored hash before it touches an entry. The table is
// kept at most half full and doubles when it would pass that; it has at
// least 16 slots.
#ifndef STRATAGEM_PLATFORM_HASHINDEX_H
#define STRATAGEM_PLATFORM_HASHINDEX_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "CString.h"

namespace platform {

// The index's hash of a key: strings by their bytes, numbers and pointers
// by their value (an equal hash is then an equal key), anything else by its
// standard hash. The index spreads the hashes over its slots itself.
template <class KEY>
std::size_t IndexHash(KEY const &key)
{
    using Plain = std::decay_t<KEY>;
    if constexpr (std::is_same_v<Plain, CString>)
        return std::hash<std::string_view>()(key.str());
    else if constexpr (std::is_pointer_v<Plain>)
        return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(key));
    else if constexpr (std::is_integral_v<Plain> || std::is_enum_v<Plain>)
        return static_cast<std::size_t>(key);
    else
        return std::hash<Plain>()(key);
}

// The same for a string given by its text (a null text is the empty string).
inline std::size_t IndexHashOfText(char const *pszText)
{
    return std::hash<std::string_view>()(pszText ? std::string_view(pszText) : std::string_view());
}

template <class ENTRY>
class HashIndex
{
public:
    std::size_t GetCount() const { return m_nCount; }

    // The entry with the hash that the predicate accepts, or null.
    template <class MATCH>
    ENTRY *Find(std::size_t nHash, MATCH const &matches) const
    {
        if (m_slots.empty())
            return nullptr;
        for (std::size_t i = Home(nHash);; i = Next(i)) {
            Slot const &slot = m_slots[i];
            if (!slot.pEntry)
                return nullptr;
            if (slot.nHash == nHash && matches(*slot.pEntry))
                return slot.pEntry;
        }
    }

    // Makes room for one more entry; called before Insert, so that a failing
    // allocation leaves the index as it was.
    void Reserve()
    {
        if ((m_nCount + 1) * 2 > m_slots.size())
            Rehash(m_slots.empty() ? kMinSlots : m_slots.size() * 2);
    }

    // Adds an entry whose key is not in the index yet (after Reserve).
    void Insert(ENTRY *pEntry, std::size_t nHash)
    {
        std::size_t i = Home(nHash);
        while (m_slots[i].pEntry)
            i = Next(i);
        m_slots[i] = Slot{pEntry, nHash};
        ++m_nCount;
    }

    // Takes out the entry with the hash that the predicate accepts and
    // answers it, or null when there is none.
    template <class MATCH>
    ENTRY *Remove(std::size_t nHash, MATCH const &matches)
    {
        if (m_slots.empty())
            return nullptr;
        for (std::size_t i = Home(nHash);; i = Next(i)) {
            Slot const slot = m_slots[i];
            if (!slot.pEntry)
                return nullptr;
            if (slot.nHash == nHash && matches(*slot.pEntry)) {
                Vacate(i);
                --m_nCount;
                return slot.pEntry;
            }
        }
    }

    // Forgets every entry and releases the table.
    void Clear()
    {
        std::vector<Slot>().swap(m_slots);
        m_nCount = 0;
        m_nShift = 64;
    }

private:
    struct Slot
    {
        ENTRY *pEntry;
        std::size_t nHash;
    };

    static constexpr std::size_t kMinSlots = 16;
    static constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15ull;

    std::vector<Slot> m_slots;  // a power of two of them, or none
    std::size_t m_nCount = 0;
    unsigned m_nShift = 64;     // 64 less the bits of a slot number

    // Slots come in groups of four (64 bytes). The group is picked by the
    // high bits of the hash without its two low bits times a large odd
    // constant, the slot in the group by those two bits: integer keys that
    // follow each other (constants by SID) share a group, so a map filled or
    // read in key order is walked group by group rather than at random.
    std::size_t Home(std::size_t nHash) const
    {
        std::uint64_t const nGroup = ((static_cast<std::uint64_t>(nHash) >> 2) * kSpread) >> (m_nShift + 2);
        return static_cast<std::size_t>(nGroup << 2 | ((nHash ^ (nHash >> 2)) & 3));
    }
    std::size_t Next(std::size_t i) const { return (i + 1) & (m_slots.size() - 1); }

    void Rehash(std::size_t nSlots)
    {
        std::vector<Slot> old(nSlots, Slot{nullptr, 0});
        old.swap(m_slots);
        m_nShift = 64;
        for (std::size_t n = nSlots; n > 1; n >>= 1)
            --m_nShift;
        for (Slot const &slot : old) {
            if (!slot.pEntry)
                continue;
            std::size_t i = Home(slot.nHash);
            while (m_slots[i].pEntry)
                i = Next(i);
            m_slots[i] = slot;
        }
    }

    // Empties a slot and moves later entries of the same probe run back, so
    // that every entry stays reachable from its home slot without gaps.
    void Vacate(std::size_t nHole)
    {
        for (std::size_t j = Next(nHole); m_slots[j].pEntry; j = Next(j)) {
            std::size_t const nHome = Home(m_slots[j].nHash);
            // The entry at j may fill the hole unless its home lies
            // cyclically after the hole and at or before j.
            bool const bStays = nHole < j ? (nHome > nHole && nHome <= j) : (nHome > nHole || nHome <= j);
            if (!bStays) {
                m_slots[nHole] = m_slots[j];
                nHole = j;
            }
        }
        m_slots[nHole] = Slot{nullptr, 0};
    }
};

}  // namespace platform

#endif
