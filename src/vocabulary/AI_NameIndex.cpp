#include "AI_NameIndex.h"

#include <cstring>
#include <functional>

namespace vocabulary {

namespace {

std::uint64_t const kSpread = 0x9E3779B97F4A7C15ull;
std::size_t const kMinSlots = 64;

}  // namespace

std::uint64_t NameIndex::Hash(std::string_view name)
{
    return std::hash<std::string_view>()(name);
}

// Slots are chosen by the high bits of the hash times a large odd constant;
// the tag is the low half of the hash itself.
std::size_t NameIndex::Home(std::uint64_t nHash) const
{
    return static_cast<std::size_t>((nHash * kSpread) >> m_nShift);
}

std::size_t NameIndex::Probe(std::uint64_t nHash, std::string_view name) const
{
    std::uint32_t const nTag = static_cast<std::uint32_t>(nHash);
    std::size_t i = Home(nHash);
    for (; m_slots[i].nEntry; i = Next(i))
        if (m_slots[i].nTag == nTag && m_entries[m_slots[i].nEntry - 1].Is(nHash, name))
            break;
    return i;
}

std::size_t NameIndex::SlotOf(std::size_t nEntry) const
{
    std::size_t i = Home(m_entries[nEntry].nHash);
    while (m_slots[i].nEntry != nEntry + 1)
        i = Next(i);
    return i;
}

unsigned int NameIndex::Find(std::string_view name) const
{
    if (m_slots.empty())
        return 0;
    Slot const &slot = m_slots[Probe(Hash(name), name)];
    return slot.nEntry ? m_entries[slot.nEntry - 1].nSID : 0;
}

void NameIndex::Set(std::string_view name, unsigned int nSID)
{
    std::uint64_t const nHash = Hash(name);
    if (!m_slots.empty()) {
        Slot const &slot = m_slots[Probe(nHash, name)];
        if (slot.nEntry) {
            m_entries[slot.nEntry - 1].nSID = nSID;
            return;
        }
    }
    Entry entry{};
    entry.nHash = nHash;
    entry.nSID = nSID;
    entry.nLength = static_cast<unsigned int>(name.size());
    if (name.size() > kInline) {
        entry.pszName = new char[name.size() + 1];
        std::memcpy(entry.pszName, name.data(), name.size());
        entry.pszName[name.size()] = '\0';
    } else {
        std::memcpy(entry.achName, name.data(), name.size());
    }
    // The table is kept at most half full.
    try {
        if ((m_entries.size() + 1) * 2 > m_slots.size())
            Grow(m_entries.size() + 1);
        m_entries.push_back(entry);
    } catch (...) {
        if (entry.nLength > kInline)
            delete[] entry.pszName;
        throw;
    }
    Place(m_entries.size() - 1);
}

void NameIndex::Erase(std::string_view name)
{
    if (m_slots.empty())
        return;
    std::size_t const i = Probe(Hash(name), name);
    if (!m_slots[i].nEntry)
        return;
    std::size_t const nEntry = m_slots[i].nEntry - 1;
    if (m_entries[nEntry].nLength > kInline)
        delete[] m_entries[nEntry].pszName;
    Vacate(i);
    // The last entry takes the place of the one removed.
    std::size_t const nLast = m_entries.size() - 1;
    if (nEntry != nLast) {
        m_slots[SlotOf(nLast)].nEntry = static_cast<std::uint32_t>(nEntry + 1);
        m_entries[nEntry] = m_entries[nLast];
    }
    m_entries.pop_back();
}

void NameIndex::Clear()
{
    for (Entry const &entry : m_entries)
        if (entry.nLength > kInline)
            delete[] entry.pszName;
    std::vector<Entry>().swap(m_entries);
    std::vector<Slot>().swap(m_slots);
    m_nShift = 64;
}

void NameIndex::Place(std::size_t nEntry)
{
    std::uint64_t const nHash = m_entries[nEntry].nHash;
    std::size_t i = Home(nHash);
    while (m_slots[i].nEntry)
        i = Next(i);
    m_slots[i] = Slot{static_cast<std::uint32_t>(nEntry + 1), static_cast<std::uint32_t>(nHash)};
}

// Makes a table for the given number of entries and enters the present ones.
void NameIndex::Grow(std::size_t nEntries)
{
    std::size_t nSlots = m_slots.empty() ? kMinSlots : m_slots.size() * 2;
    while (nSlots < nEntries * 2)
        nSlots *= 2;
    std::vector<Slot> slots(nSlots, Slot{0, 0});
    slots.swap(m_slots);
    m_nShift = 64;
    for (std::size_t n = nSlots; n > 1; n >>= 1)
        --m_nShift;
    for (std::size_t nEntry = 0; nEntry < m_entries.size(); ++nEntry)
        Place(nEntry);
}

// Empties a slot and moves later slots of the same probe run back, so that
// every entry stays reachable from its home slot without gaps.
void NameIndex::Vacate(std::size_t nHole)
{
    for (std::size_t j = Next(nHole); m_slots[j].nEntry; j = Next(j)) {
        std::size_t const nHome = Home(m_entries[m_slots[j].nEntry - 1].nHash);
        // The slot at j may fill the hole unless its home lies cyclically
        // after the hole and at or before j.
        bool const bStays = nHole < j ? (nHome > nHole && nHome <= j) : (nHome > nHole || nHome <= j);
        if (!bStays) {
            m_slots[nHole] = m_slots[j];
            nHole = j;
        }
    }
    m_slots[nHole] = Slot{0, 0};
}

}  // namespace vocabulary
