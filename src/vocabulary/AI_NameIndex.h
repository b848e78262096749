// Internal to the vocabulary: the map from a symbol's name to its SID. The
// parser asks it for every word of a script, so a lookup takes the text as
// it comes (no string is built for it). The names sit in one array in the
// order they were added, a short name inside its entry; a small open table
// of entry numbers finds them, and stays small enough for the processor's
// caches.
#ifndef STRATAGEM_VOCABULARY_AI_NAMEINDEX_H
#define STRATAGEM_VOCABULARY_AI_NAMEINDEX_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vocabulary {

class NameIndex
{
public:
    NameIndex() = default;
    NameIndex(NameIndex const &) = delete;
    NameIndex &operator=(NameIndex const &) = delete;
    ~NameIndex() { Clear(); }

    // The SID of the name, or 0.
    unsigned int Find(std::string_view name) const;
    // Maps the name to the SID, replacing the SID it had.
    void Set(std::string_view name, unsigned int nSID);
    // Forgets the name, if it is there.
    void Erase(std::string_view name);
    void Clear();

private:
    static std::size_t const kInline = 16;  // names up to this long stay in the entry

    struct Entry
    {
        std::uint64_t nHash;
        unsigned int nSID;
        unsigned int nLength;
        union {
            char achName[kInline];
            char *pszName;  // when nLength > kInline
        };

        char const *Name() const { return nLength > kInline ? pszName : achName; }
        bool Is(std::uint64_t nOtherHash, std::string_view name) const
        {
            return nHash == nOtherHash && nLength == name.size() && std::string_view(Name(), nLength) == name;
        }
    };

    // An entry's number plus one (0 for an empty slot), and the low half of
    // its hash, so that most entries that do not match are never read.
    struct Slot
    {
        std::uint32_t nEntry;
        std::uint32_t nTag;
    };

    std::vector<Entry> m_entries;
    std::vector<Slot> m_slots;  // a power of two of them, or none
    unsigned int m_nShift = 64;  // 64 less the bits of a slot number

    static std::uint64_t Hash(std::string_view name);
    std::size_t Home(std::uint64_t nHash) const;
    std::size_t Next(std::size_t i) const { return (i + 1) & (m_slots.size() - 1); }
    // The slot of the name, or the empty slot where it would go.
    std::size_t Probe(std::uint64_t nHash, std::string_view name) const;
    // The slot that holds the entry.
    std::size_t SlotOf(std::size_t nEntry) const;
    void Place(std::size_t nEntry);
    void Grow(std::size_t nEntries);
    void Vacate(std::size_t nHole);
};

}  // namespace vocabulary

#endif
