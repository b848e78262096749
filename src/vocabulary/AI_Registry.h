// Internal to the vocabulary: the process-wide tables behind the exported
// registry functions, and the two steps shared by registration and removal.
#ifndef STRATAGEM_VOCABULARY_AI_REGISTRY_H
#define STRATAGEM_VOCABULARY_AI_REGISTRY_H

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "AI_CFunction.h"

namespace vocabulary {

typedef std::unordered_map<unsigned int, std::unique_ptr<AI_CFunction>> FunctionTable;

// SIDs below this have their names in a vector as well (two megabytes at
// most): the builtin words and the constants of a session are dense there.
unsigned int const kDenseSids = 1u << 18;

// A name's entry: the key of the entry views the spelling the entry owns
// (in the same node, so a lookup reads one place), and looking up a word of
// a script copies nothing.
struct Symbol
{
    unsigned int nSID;
    std::string spelling;
};

struct Registry
{
    std::unordered_map<std::string_view, Symbol> symbols;  // name -> SID
    std::unordered_map<unsigned int, std::string> names;   // SID -> name
    // The name of a SID below kDenseSids (the text held in names), null
    // when it has none: the kind tests ask for every argument of a script
    // and the descriptions for every object, and a slot is found faster
    // than a node.
    std::vector<char const *> denseNames;
    std::unordered_map<unsigned int, std::vector<int>> values;  // a constant's values
    FunctionTable facts;
    FunctionTable actions;
    unsigned int nextConstant = 4001;  // never reset: a constant SID is used once
};

// The one registry of the process; its tables start empty.
Registry &TheRegistry();

// Maps the name to the SID and the SID to the name, overwriting both ways.
void Intern(char const *pszName, unsigned int nSID);

// Removes the SID's name and that name's symbol (whatever SID the symbol
// holds by now). False when the SID had no name.
bool Forget(unsigned int nSID);

// The SID of the name, or 0.
unsigned int Find(char const *pszName);

// 1 when the name table has an entry for the SID.
int IsRegistered(unsigned int nSID);

// The name interned for the SID, or the empty string; valid until the
// SID's name changes.
char const *NameOf(unsigned int nSID);

}  // namespace vocabulary

#endif
