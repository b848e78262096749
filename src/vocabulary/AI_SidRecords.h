// Internal to the vocabulary: what the registry holds per SID - its name and,
// for a constant, its values. Kind tests ask for a SID's record on every
// argument of a script, so records are small and found by indexing: SIDs
// below a bound sit in pages of 256 consecutive records, made when a SID of
// the page is first used (constant SIDs are handed out one after the other).
// SIDs above the bound, which only a host can choose, go to a hash map. A
// constant's first value sits in its record; further values, which only a
// host adds, are kept aside.
#ifndef STRATAGEM_VOCABULARY_AI_SIDRECORDS_H
#define STRATAGEM_VOCABULARY_AI_SIDRECORDS_H

#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vocabulary {

class SidRecords
{
public:
    // The SID's name, or null when it has none.
    char const *Name(unsigned int nSID) const;
    void SetName(unsigned int nSID, std::string_view name);
    // Removes the SID's name and hands it over; null when it had none.
    std::unique_ptr<char[]> TakeName(unsigned int nSID);

    // Whether the SID has a value array.
    bool HasValues(unsigned int nSID) const;
    // Gives the SID a value array holding the one value.
    void SetValues(unsigned int nSID, int nValue);
    // Appends a value to the SID's array; nothing when it has none.
    void AddValue(unsigned int nSID, int nValue);
    // The value at the index; false when there is none.
    bool Value(unsigned int nSID, int nIndex, int &rValue) const;
    void DropValues(unsigned int nSID);
    // The SIDs that have a value array.
    std::vector<unsigned int> Constants() const;

    // Drops every record.
    void Clear();

private:
    struct Record
    {
        std::unique_ptr<char[]> pszName;
        int nFirstValue = 0;
        bool bConstant = false;
    };

    static unsigned int const kPageBits = 8;
    static unsigned int const kPageSize = 1u << kPageBits;
    static unsigned int const kPagedLimit = 1u << 24;  // SIDs below this are paged

    struct Page
    {
        Record records[kPageSize];
    };

    std::vector<std::unique_ptr<Page>> m_pages;  // by SID / 256; null where unused
    std::unordered_map<unsigned int, Record> m_sparse;
    std::unordered_map<unsigned int, std::vector<int>> m_moreValues;  // from index 1 on

    Record const *Find(unsigned int nSID) const;
    Record *Find(unsigned int nSID) { return const_cast<Record *>(static_cast<SidRecords const *>(this)->Find(nSID)); }
    Record &Get(unsigned int nSID);
    // Drops a record above the paged range once it holds nothing.
    void Tidy(unsigned int nSID);
};

}  // namespace vocabulary

#endif
