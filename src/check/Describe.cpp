// Descriptions of the vocabulary for hints and hovers: parameter type
// names, what a type accepts, signatures, and the registered words closest
// to a misspelt one.
#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "../vocabulary/AI_Vocabulary.h"
#include "Check.h"
#include "Describe.h"

namespace stratagem {

namespace {

// Indexed by parameter type code; the words a script author knows them by.
char const *const kTypeNames[] = {
    "",
    "rel-op",
    "value",
    "building",
    "research-item",
    "unit",
    "commodity",
    "civ",
    "age",
    "difficulty",
    "resource",
    "event-type",
    "event-id",
    "goal-id",
    "map-size",
    "map-type",
    "player",
    "achievement",
    "score-value",
    "stance",
    "starting-resources",
    "strategic-number",
    "timer-id",
    "victory-condition",
    "string",
    "string-id",
    "string-id-start",
    "string-id-range",
    "difficulty-parameter",
    "taunt-start",
    "taunt-range",
    "wall-type",
    "research-item-or-age",
    "building-or-wall",
    "wall-id",
    "shared-goal-id",
    "signal-id",
    "taunt-id",
};
int const kTypeCount = static_cast<int>(sizeof kTypeNames / sizeof kTypeNames[0]);

// The SIDs of the built-in words: defines, facts, actions and params.
unsigned int const kFirstWordSID = 100;
unsigned int const kLastWordSID = 3499;
unsigned int const kFirstConstantSID = 4001;
// Constants are numbered upwards; a run of this many free SIDs ends them.
unsigned int const kConstantGap = 256;
// Integers a parameter type may accept lie within the 16-bit range.
int const kProbeMin = -32768;
int const kProbeMax = 32767;
// Word lists longer than this are cut in descriptions.
std::size_t const kListedWords = 12;

unsigned int s_nHighestConstant = 0;

std::string Lower(std::string text)
{
    for (char &ch : text)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return text;
}

// Edits (insert, delete, replace, swap of neighbours) from one word to the
// other, letter case ignored.
int Distance(std::string const &a, std::string const &b)
{
    std::string x = Lower(a), y = Lower(b);
    std::size_t n = x.size(), m = y.size();
    std::vector<std::vector<int>> d(n + 1, std::vector<int>(m + 1));
    for (std::size_t i = 0; i <= n; ++i)
        d[i][0] = static_cast<int>(i);
    for (std::size_t j = 0; j <= m; ++j)
        d[0][j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= n; ++i)
        for (std::size_t j = 1; j <= m; ++j) {
            int nCost = x[i - 1] == y[j - 1] ? 0 : 1;
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + nCost});
            if (i > 1 && j > 1 && x[i - 1] == y[j - 2] && x[i - 2] == y[j - 1])
                d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    return d[n][m];
}

template <class Visit>
void ForEachWord(Visit visit)
{
    for (unsigned int nSID = kFirstWordSID; nSID <= kLastWordSID; ++nSID) {
        CString strName = AI_String(nSID);
        if (!strName.IsEmpty())
            visit(nSID, std::string(strName.GetString()));
    }
    unsigned int nFree = 0;
    for (unsigned int nSID = kFirstConstantSID; nFree < kConstantGap || nSID <= s_nHighestConstant; ++nSID) {
        if (!AI_IsConstant(nSID)) {
            ++nFree;
            continue;
        }
        nFree = 0;
        visit(nSID, std::string(AI_String(nSID).GetString()));
    }
}

// The integers the type accepts, as one range; false when it accepts none.
bool IntegerRange(int nType, int &nMin, int &nMax)
{
    nMin = INT_MAX;
    nMax = INT_MIN;
    for (int n = kProbeMin; n <= kProbeMax; ++n)
        if (AI_IsOfType(nType, n)) {
            nMin = std::min(nMin, n);
            nMax = std::max(nMax, n);
        }
    return nMin <= nMax;
}

std::string JoinWords(std::vector<std::string> const &words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size() && i < kListedWords; ++i)
        text += (i ? ", " : "") + words[i];
    if (words.size() > kListedWords)
        text += ", ... (" + std::to_string(words.size()) + " words)";
    return text;
}

}  // namespace

void NoteConstantSID(unsigned int nSID) { s_nHighestConstant = std::max(s_nHighestConstant, nSID); }

std::string ParamTypeName(int nType)
{
    if (nType >= 1 && nType < kTypeCount)
        return kTypeNames[nType];
    return "parameter";
}

std::string AcceptedValues(int nType)
{
    if (nType == AI_PT_STRING)
        return "a string in double quotes";
    std::vector<std::string> words;
    for (unsigned int nSID = kFirstWordSID; nSID <= kLastWordSID; ++nSID)
        if (AI_IsParam(nSID) && AI_IsOfType(nType, nSID))
            words.push_back(AI_String(nSID).GetString());
    int nMin, nMax;
    bool bIntegers = IntegerRange(nType, nMin, nMax);
    std::string integers
        = bIntegers ? "an integer from " + std::to_string(nMin) + " to " + std::to_string(nMax) : std::string();
    if (words.empty())
        return bIntegers ? integers : "no value";
    std::string text = "one of: " + JoinWords(words);
    return bIntegers ? text + "; or " + integers : text;
}

std::string Signature(unsigned int nSID)
{
    AI_CFunction const *pFunction = AI_IsFact(nSID) ? AI_Fact(nSID) : AI_IsAction(nSID) ? AI_Action(nSID) : nullptr;
    if (!pFunction)
        return std::string();
    std::string text = "(" + std::string(pFunction->GetName());
    CArray<int, int> const &params = pFunction->GetParams();
    for (int i = 0; i < params.GetSize(); ++i)
        text += " " + ParamTypeName(params[i]);
    return text + ")";
}

std::vector<std::string> ClosestWords(std::string const &word, bool (*accept)(unsigned int nSID), int max)
{
    // Close enough to be a slip: a third of the word's letters, at least 2.
    int nLimit = std::max(2, static_cast<int>(word.size()) / 3);
    std::vector<std::pair<int, std::string>> found;
    ForEachWord([&](unsigned int nSID, std::string const &name) {
        if (accept && !accept(nSID))
            return;
        if (name == word || std::abs(static_cast<int>(name.size()) - static_cast<int>(word.size())) > nLimit)
            return;
        int nDistance = Distance(word, name);
        if (nDistance <= nLimit)
            found.emplace_back(nDistance, name);
    });
    std::sort(found.begin(), found.end());
    std::vector<std::string> words;
    for (std::size_t i = 0; i < found.size() && static_cast<int>(words.size()) < max; ++i)
        words.push_back(found[i].second);
    return words;
}

}  // namespace stratagem
