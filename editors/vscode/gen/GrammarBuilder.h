// The TextMate grammar of the script language, built from the vocabulary
// registry so that the editor colours exactly the words the library knows.
#ifndef STRATAGEM_EDITORS_GRAMMARBUILDER_H
#define STRATAGEM_EDITORS_GRAMMARBUILDER_H

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace grammar {

// One class of registered words: the SID range it occupies and the scope
// the editor gives its words.
struct WordKind
{
    char const *repositoryKey;
    char const *scope;
    unsigned int firstSid;
    unsigned int lastSid;
    int (*isKind)(unsigned int nSID);
};

// Facts, actions, defines and params, in that order.
std::vector<WordKind> const &WordKinds();

// The names registered for the kind, in SID order.
std::vector<std::string> RegisteredWords(WordKind const &kind);

// The grammar over the words registered now (the caller registers the
// vocabulary first). Throws std::bad_alloc when memory runs out.
nlohmann::json BuildGrammar();

// A test case for the TextMate test runner that puts every registered word in
// a script line and expects the scope the grammar gives its kind (a reserved
// word keeps the reserved word's scope).
std::string BuildWordsSyntaxTest();

}  // namespace grammar

#endif
