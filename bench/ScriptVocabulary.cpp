#include "ScriptVocabulary.h"

#include <stdexcept>

#include "vocabulary/AI_Vocabulary.h"

namespace bench {

namespace {

// What each parameter type accepts: up to two SID ranges of params and an
// integer range (kNone when it takes no integers). Code 24 takes strings.
int const kNone = 1;  // nLow > nHigh: no integers
struct TypeRow
{
    int nType;
    unsigned int nFirst1, nLast1, nFirst2, nLast2;
    int nLow, nHigh;
};

TypeRow const kTypes[] = {
    {1, 2300, 2399, 0, 0, kNone, 0},       {2, 0, 0, 0, 0, -32768, 32767},
    {3, 1300, 1399, 0, 0, kNone, 0},       {4, 2400, 2599, 0, 0, kNone, 0},
    {5, 3000, 3199, 0, 0, kNone, 0},       {6, 2600, 2699, 0, 0, kNone, 0},
    {7, 1400, 1499, 0, 0, kNone, 0},       {8, 1200, 1299, 0, 0, kNone, 0},
    {9, 1600, 1699, 0, 0, kNone, 0},       {10, 2600, 2699, 0, 0, kNone, 0},
    {11, 1900, 1999, 0, 0, kNone, 0},      {12, 0, 0, 0, 0, 0, 255},
    {13, 0, 0, 0, 0, 1, 40},               {14, 2000, 2099, 0, 0, kNone, 0},
    {15, 2100, 2199, 0, 0, kNone, 0},      {16, 2200, 2299, 3400, 3499, 1, 8},
    {17, 1100, 1199, 0, 0, kNone, 0},      {18, 2700, 2799, 0, 0, -32768, 32767},
    {19, 1800, 1899, 0, 0, kNone, 0},      {20, 2700, 2799, 0, 0, kNone, 0},
    {21, 2800, 2999, 0, 0, kNone, 0},      {22, 0, 0, 0, 0, 1, 255},
    {23, 3200, 3299, 0, 0, kNone, 0},      {24, 0, 0, 0, 0, kNone, 0},
    {25, 0, 0, 0, 0, -32768, 32767},       {26, 0, 0, 0, 0, -32768, 32767},
    {27, 0, 0, 0, 0, -32768, 32767},       {28, 1700, 1799, 0, 0, kNone, 0},
    {29, 0, 0, 0, 0, -32768, 32767},       {30, 0, 0, 0, 0, -32768, 32767},
    {31, 3300, 3399, 0, 0, kNone, 0},      {32, 2400, 2599, 1200, 1299, kNone, 0},
    {33, 1300, 1399, 3300, 3399, kNone, 0}, {34, 0, 0, 0, 0, 1, 2},
    {35, 0, 0, 0, 0, 0, 255},              {36, 0, 0, 0, 0, 0, 255},
    {37, 0, 0, 0, 0, -32768, 32767},
};
int const kTypeCount = 37;
int const kStringType = 24;

void AddParams(std::vector<std::string> &words, unsigned int nFirst, unsigned int nLast)
{
    for (unsigned int nSID = nFirst; nFirst != 0 && nSID <= nLast; ++nSID)
        if (AI_IsParam(nSID))
            words.push_back(AI_String(nSID).GetString());
}

std::vector<Function> ReadFunctions(unsigned int nFirst, unsigned int nLast, AI_CFunction const *(*lookup)(unsigned int))
{
    std::vector<Function> functions;
    for (unsigned int nSID = nFirst; nSID <= nLast; ++nSID)
    {
        AI_CFunction const *pFunction = lookup(nSID);
        if (!pFunction)
            continue;
        Function function{pFunction->GetName(), {}};
        for (INT_PTR i = 0; i < pFunction->GetParams().GetSize(); ++i)
            function.params.push_back(pFunction->GetParams()[i]);
        functions.push_back(function);
    }
    return functions;
}

}  // namespace

ScriptVocabulary::ScriptVocabulary()
    : m_facts(ReadFunctions(300, 499, AI_Fact)), m_actions(ReadFunctions(500, 699, AI_Action)),
      m_choices(kTypeCount + 1)
{
    for (TypeRow const &row : kTypes)
    {
        ArgumentChoice &choice = m_choices[row.nType];
        AddParams(choice.words, row.nFirst1, row.nLast1);
        AddParams(choice.words, row.nFirst2, row.nLast2);
        choice.bIntegers = row.nLow <= row.nHigh;
        choice.nLow = row.nLow;
        choice.nHigh = row.nHigh;
        choice.bString = row.nType == kStringType;
        if (choice.words.empty() && !choice.bIntegers && !choice.bString)
            throw std::runtime_error("no argument fits parameter type " + std::to_string(row.nType) +
                                     ": is the built-in vocabulary registered?");
    }
    AddParams(m_relational, 2300, 2399);
    if (m_facts.empty() || m_actions.empty())
        throw std::runtime_error("no facts or actions registered");
}

ArgumentChoice const &ScriptVocabulary::Choice(int nType) const
{
    if (nType < 1 || nType > kTypeCount)
        throw std::runtime_error("unknown parameter type " + std::to_string(nType));
    return m_choices[nType];
}

}  // namespace bench
