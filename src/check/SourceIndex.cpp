// Objects of a parsed strategy to files and ranges: one walk over every
// file's command list records which file holds each object; the text of a
// file is read and its lines counted only when a range in it is asked for.
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "../objects/AI_Objects.h"
#include "../strategy/AI_CStrategy.h"
#include "Check.h"
#include "CheckText.h"

namespace stratagem {

struct SourceIndex::Files
{
    SourceProvider const *pSources = nullptr;
    std::vector<std::string> names;
    std::unordered_map<AI_CObject const *, std::size_t> owners;       // object -> its file in names
    std::unordered_map<std::string, std::unique_ptr<LineMap>> lines;  // null: the file cannot be read

    // Records the objects under a file's list. A load command holds the
    // list of the file it loads, which belongs to that file, not this one.
    void Walk(AI_CObject const *pRoot, std::size_t nFile, std::unordered_set<AI_CObject const *> const &roots)
    {
        std::vector<AI_CObject const *> pending {pRoot};
        while (!pending.empty()) {
            AI_CObject const *pObject = pending.back();
            pending.pop_back();
            if (!owners.emplace(pObject, nFile).second)
                continue;
            CTypedPtrList<CObList, AI_CObject *> children;
            pObject->GetObjects(children);
            for (POSITION position = children.GetHeadPosition(); position;) {
                AI_CObject const *pChild = children.GetNext(position);
                if (pChild && !roots.count(pChild))
                    pending.push_back(pChild);
            }
        }
    }

    LineMap const *Lines(std::string const &name)
    {
        auto found = lines.find(name);
        if (found != lines.end())
            return found->second.get();
        std::string bytes;
        int nError = 0;
        SourceProvider const disk;
        std::unique_ptr<LineMap> pLines;
        if ((pSources ? *pSources : disk).Read(name, bytes, nError))
            pLines.reset(new LineMap(ReadTextMode(std::move(bytes)).text));
        return lines.emplace(name, std::move(pLines)).first->second.get();
    }
};

SourceIndex::SourceIndex(AI_CStrategy const &strategy, SourceProvider const *sources) : m_pFiles(new Files)
{
    m_pFiles->pSources = sources;
    auto const &table = strategy.GetCommandLists();
    std::vector<AI_CCommandList *> lists;
    std::unordered_set<AI_CObject const *> roots;
    for (POSITION position = table.GetStartPosition(); position;) {
        CString strName;
        AI_CCommandList *pCommands = nullptr;
        table.GetNextAssoc(position, strName, pCommands);
        m_pFiles->names.push_back(strName.GetString());
        lists.push_back(pCommands);
        roots.insert(pCommands);
    }
    for (std::size_t i = 0; i < lists.size(); ++i)
        if (lists[i])
            m_pFiles->Walk(lists[i], i, roots);
}

SourceIndex::~SourceIndex() {}

std::string SourceIndex::FileOf(AI_CObject const *pObject) const
{
    auto found = m_pFiles->owners.find(pObject);
    return found != m_pFiles->owners.end() ? m_pFiles->names[found->second] : std::string();
}

Range SourceIndex::RangeOf(std::string const &file, AI_SourceSpan span) const
{
    LineMap const *pLines = span.nBegin >= 0 ? m_pFiles->Lines(file) : nullptr;
    return pLines ? pLines->ToRange(span) : Range();
}

SourceLocation SourceIndex::RangeOf(AI_CObject const *pObject) const
{
    SourceLocation location;
    if (!pObject || !pObject->HasSpan())
        return location;
    location.file = FileOf(pObject);
    if (!location.file.empty())
        location.range = RangeOf(location.file, pObject->GetSpan());
    return location;
}

}  // namespace stratagem
