// Objects of a parsed strategy to files and ranges: one walk over every
// file's command list records which file holds each object; the text of a
// file is read, scanned and its lines counted only when a range in it is
// asked for. An object keeps where it begins; where it ends is found in the
// tokens of its file.
#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "../objects/AI_Objects.h"
#include "../parser/AI_CheckParser.h"
#include "../strategy/AI_CStrategy.h"
#include "Check.h"
#include "CheckText.h"

namespace stratagem {

namespace {

// A file as ranges in it are found: its lines and its tokens in order.
struct ScannedFile
{
    LineMap lines;
    std::vector<std::pair<int, AI_Span>> tokens;  // code and place

    explicit ScannedFile(std::string const &text) : lines(text)
    {
        AI_CCheckParser::ScanText(text.data(), text.size(), [&](int nCode, char const *, AI_Span span) {
            tokens.push_back({nCode, span});
        });
    }

    // The token that begins at the offset, or the end of the tokens.
    std::size_t TokenAt(int nOffset) const
    {
        auto found = std::lower_bound(tokens.begin(), tokens.end(), nOffset,
                                      [](auto const &token, int n) { return token.second.nBegin < n; });
        return found != tokens.end() && found->second.nBegin == nOffset ? found - tokens.begin() : tokens.size();
    }

    // Where the object that begins at token i ends: the token after it for
    // a load option, the "#end-if" that closes a block, the parenthesis that
    // closes a parenthesized object, the token itself otherwise; -1 when
    // the text does not close it.
    int EndFrom(std::size_t i, AI_CObject const *pObject) const
    {
        if (i >= tokens.size())
            return -1;
        if (pObject->IsKindOf(RUNTIME_CLASS(AI_CLoadOption)))
            return i + 1 < tokens.size() ? tokens[i + 1].second.nEnd : -1;
        int const nOpen = tokens[i].first;
        if (nOpen != '(' && nOpen != '#')
            return tokens[i].second.nEnd;
        int nDepth = 0;
        for (std::size_t k = i; k < tokens.size(); ++k) {
            int const nCode = tokens[k].first;
            int const nBefore = k > i ? tokens[k - 1].first : 0;
            if (nOpen == '(')
                nDepth += nCode == '(' ? 1 : nCode == ')' ? -1 : 0;
            else
                nDepth += AI_CCheckParser::DepthChange(nBefore, nCode);
            if (nDepth == 0 && k > i)
                return tokens[k].second.nEnd;
        }
        return -1;
    }
};

bool IsList(AI_CObject const *pObject)
{
    return pObject->IsKindOf(RUNTIME_CLASS(AI_CExprList)) || pObject->IsKindOf(RUNTIME_CLASS(AI_CCEList))
        || pObject->IsKindOf(RUNTIME_CLASS(AI_CActionList)) || pObject->IsKindOf(RUNTIME_CLASS(AI_CCommandList))
        || pObject->IsKindOf(RUNTIME_CLASS(AI_CLoadOptionList));
}

}  // namespace

struct SourceIndex::Files
{
    SourceProvider const *pSources = nullptr;
    std::vector<std::string> names;
    std::unordered_map<AI_CObject const *, std::size_t> owners;           // object -> its file in names
    std::unordered_map<std::string, std::unique_ptr<ScannedFile>> files;  // null: the file cannot be read

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

    ScannedFile const *File(std::string const &name)
    {
        auto found = files.find(name);
        if (found != files.end())
            return found->second.get();
        std::string bytes;
        int nError = 0;
        SourceProvider const disk;
        std::unique_ptr<ScannedFile> pFile;
        if ((pSources ? *pSources : disk).Read(name, bytes, nError))
            pFile.reset(new ScannedFile(ReadTextMode(std::move(bytes)).text));
        return files.emplace(name, std::move(pFile)).first->second.get();
    }

    // The span of the object in its file's tokens; AI_NO_SPAN when the
    // text does not hold it. A list runs from its first element to its last.
    static AI_SourceSpan SpanOf(AI_CObject const *pObject, ScannedFile const &file)
    {
        if (IsList(pObject)) {
            CTypedPtrList<CObList, AI_CObject *> elements;
            pObject->GetObjects(elements);
            if (elements.IsEmpty())
                return AI_NO_SPAN;
            AI_SourceSpan const first = SpanOf(elements.GetHead(), file);
            AI_SourceSpan const last = SpanOf(elements.GetTail(), file);
            return first.nBegin >= 0 && last.nEnd >= 0 ? AI_SourceSpan {first.nBegin, last.nEnd} : AI_NO_SPAN;
        }
        int const nEnd = pObject->HasBegin() ? file.EndFrom(file.TokenAt(pObject->GetBegin()), pObject) : -1;
        return nEnd >= 0 ? AI_SourceSpan {pObject->GetBegin(), nEnd} : AI_NO_SPAN;
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
    ScannedFile const *pFile = span.nBegin >= 0 ? m_pFiles->File(file) : nullptr;
    return pFile ? pFile->lines.ToRange(span) : Range();
}

SourceLocation SourceIndex::RangeOf(AI_CObject const *pObject) const
{
    SourceLocation location;
    if (!pObject || !pObject->HasBegin())
        return location;
    location.file = FileOf(pObject);
    ScannedFile const *pFile = location.file.empty() ? nullptr : m_pFiles->File(location.file);
    AI_SourceSpan const span = pFile ? Files::SpanOf(pObject, *pFile) : AI_NO_SPAN;
    if (span.nBegin >= 0)
        location.range = pFile->lines.ToRange(span);
    return location;
}

}  // namespace stratagem
