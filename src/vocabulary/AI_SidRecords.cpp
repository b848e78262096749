#include "AI_SidRecords.h"

#include <cstring>

namespace vocabulary {

SidRecords::Record const *SidRecords::Find(unsigned int nSID) const
{
    if (nSID >= kPagedLimit) {
        auto const it = m_sparse.find(nSID);
        return it == m_sparse.end() ? nullptr : &it->second;
    }
    unsigned int const nPage = nSID >> kPageBits;
    if (nPage >= m_pages.size() || !m_pages[nPage])
        return nullptr;
    return &m_pages[nPage]->records[nSID & (kPageSize - 1)];
}

SidRecords::Record &SidRecords::Get(unsigned int nSID)
{
    if (nSID >= kPagedLimit)
        return m_sparse[nSID];
    unsigned int const nPage = nSID >> kPageBits;
    if (nPage >= m_pages.size())
        m_pages.resize(nPage + 1);
    if (!m_pages[nPage])
        m_pages[nPage] = std::make_unique<Page>();
    return m_pages[nPage]->records[nSID & (kPageSize - 1)];
}

void SidRecords::Tidy(unsigned int nSID)
{
    auto const it = m_sparse.find(nSID);
    if (it != m_sparse.end() && !it->second.pszName && !it->second.bConstant)
        m_sparse.erase(it);
}

// ---- names -------------------------------------------------------------------

char const *SidRecords::Name(unsigned int nSID) const
{
    Record const *pRecord = Find(nSID);
    return pRecord ? pRecord->pszName.get() : nullptr;
}

void SidRecords::SetName(unsigned int nSID, std::string_view name)
{
    std::unique_ptr<char[]> pszName(new char[name.size() + 1]);
    std::memcpy(pszName.get(), name.data(), name.size());
    pszName[name.size()] = '\0';
    Get(nSID).pszName = std::move(pszName);
}

std::unique_ptr<char[]> SidRecords::TakeName(unsigned int nSID)
{
    Record *pRecord = Find(nSID);
    if (!pRecord)
        return nullptr;
    std::unique_ptr<char[]> pszName = std::move(pRecord->pszName);
    Tidy(nSID);
    return pszName;
}

// ---- values ------------------------------------------------------------------

bool SidRecords::HasValues(unsigned int nSID) const
{
    Record const *pRecord = Find(nSID);
    return pRecord && pRecord->bConstant;
}

void SidRecords::SetValues(unsigned int nSID, int nValue)
{
    Record &record = Get(nSID);
    record.nFirstValue = nValue;
    record.bConstant = true;
    m_moreValues.erase(nSID);
}

void SidRecords::AddValue(unsigned int nSID, int nValue)
{
    if (HasValues(nSID))
        m_moreValues[nSID].push_back(nValue);
}

bool SidRecords::Value(unsigned int nSID, int nIndex, int &rValue) const
{
    Record const *pRecord = Find(nSID);
    if (!pRecord || !pRecord->bConstant || nIndex < 0)
        return false;
    if (nIndex == 0) {
        rValue = pRecord->nFirstValue;
        return true;
    }
    auto const it = m_moreValues.find(nSID);
    if (it == m_moreValues.end() || static_cast<std::size_t>(nIndex) > it->second.size())
        return false;
    rValue = it->second[static_cast<std::size_t>(nIndex) - 1];
    return true;
}

void SidRecords::DropValues(unsigned int nSID)
{
    if (Record *pRecord = Find(nSID)) {
        pRecord->bConstant = false;
        m_moreValues.erase(nSID);
        Tidy(nSID);
    }
}

std::vector<unsigned int> SidRecords::Constants() const
{
    std::vector<unsigned int> sids;
    for (std::size_t nPage = 0; nPage < m_pages.size(); ++nPage) {
        if (!m_pages[nPage])
            continue;
        for (unsigned int i = 0; i < kPageSize; ++i)
            if (m_pages[nPage]->records[i].bConstant)
                sids.push_back(static_cast<unsigned int>(nPage << kPageBits) + i);
    }
    for (auto const &entry : m_sparse)
        if (entry.second.bConstant)
            sids.push_back(entry.first);
    return sids;
}

void SidRecords::Clear()
{
    std::vector<std::unique_ptr<Page>>().swap(m_pages);
    std::unordered_map<unsigned int, Record>().swap(m_sparse);
    std::unordered_map<unsigned int, std::vector<int>>().swap(m_moreValues);
}

}  // namespace vocabulary
