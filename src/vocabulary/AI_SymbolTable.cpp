#include "AI_SymbolTable.h"

#include <algorithm>

#include "AI_Registry.h"

namespace vocabulary {

Registry &TheRegistry()
{
    // Built on first use, so no other static initialiser can find it unbuilt.
    static Registry registry;
    return registry;
}

void Intern(char const *pszName, unsigned int nSID)
{
    Registry &r = TheRegistry();
    char const *pszText = pszName ? pszName : "";
    platform::Allocating([&] {
        if (nSID < kDenseSids && nSID >= r.denseNames.size())
            r.denseNames.resize(std::max<std::size_t>(nSID + 1, 2 * r.denseNames.size()));
        std::string &name = r.names[nSID];
        auto const it = r.symbols.find(pszText);
        if (it != r.symbols.end()) {
            it->second.nSID = nSID;
        } else {
            // Entered under the caller's text, then keyed by its own copy;
            // the node stays where it is, so the view stays valid.
            auto node = r.symbols.extract(r.symbols.emplace(pszText, Symbol {nSID, pszText}).first);
            node.key() = node.mapped().spelling;
            r.symbols.insert(std::move(node));
        }
        // Last, so that a failure above leaves the slot viewing the text
        // the name still has.
        name = pszText;
        if (nSID < kDenseSids)
            r.denseNames[nSID] = name.c_str();
    });
}

bool Forget(unsigned int nSID)
{
    Registry &r = TheRegistry();
    auto const it = r.names.find(nSID);
    if (it == r.names.end())
        return false;
    r.symbols.erase(it->second);
    r.names.erase(it);
    if (nSID < kDenseSids)
        r.denseNames[nSID] = nullptr;
    return true;
}

unsigned int Find(char const *pszName)
{
    auto const &symbols = TheRegistry().symbols;
    auto const it = symbols.find(pszName);
    return it != symbols.end() ? it->second.nSID : 0;
}

int IsRegistered(unsigned int nSID)
{
    Registry const &r = TheRegistry();
    if (nSID < kDenseSids)
        return nSID < r.denseNames.size() && r.denseNames[nSID] ? 1 : 0;
    return r.names.count(nSID) ? 1 : 0;
}

char const *NameOf(unsigned int nSID)
{
    Registry const &r = TheRegistry();
    if (nSID < kDenseSids) {
        char const *pszName = nSID < r.denseNames.size() ? r.denseNames[nSID] : nullptr;
        return pszName ? pszName : "";
    }
    std::unordered_map<unsigned int, std::string> const &names = r.names;
    auto const it = names.find(nSID);
    return it != names.end() ? it->second.c_str() : "";
}

}  // namespace vocabulary

namespace {

// Inclusive SID range of one kind of symbol.
struct KindRange
{
    unsigned int nFirst;
    unsigned int nLast;
};

KindRange const kDefines = {100, 299};
KindRange const kFacts = {300, 499};
KindRange const kActions = {500, 699};
KindRange const kParams = {1100, 3499};
KindRange const kConstants = {4001, 0xFFFFFFFFu};

int IsKind(KindRange const &kind, unsigned int nSID)
{
    if (nSID < kind.nFirst || nSID > kind.nLast)
        return 0;
    return vocabulary::IsRegistered(nSID);
}

}  // namespace

unsigned int AI_Symbol(char const *pszName) { return pszName ? vocabulary::Find(pszName) : 0; }

CString AI_String(unsigned int nSID) { return CString(vocabulary::NameOf(nSID)); }

int AI_IsDefine(unsigned int nSID) { return IsKind(kDefines, nSID); }
int AI_IsFact(unsigned int nSID) { return IsKind(kFacts, nSID); }
int AI_IsAction(unsigned int nSID) { return IsKind(kActions, nSID); }
int AI_IsParam(unsigned int nSID) { return IsKind(kParams, nSID); }
int AI_IsConstant(unsigned int nSID) { return IsKind(kConstants, nSID); }
