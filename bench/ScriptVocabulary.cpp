#include "ScriptVocabulary.h"

#include <stdexcept>

#include "vocabulary/AI_Vocabulary.h"

namespace bench {

namespace {

int const kTypeCount = 37;

// What the library's type test accepts for the code: the registered params
// it takes, the integers it takes (a range), and whether it takes strings.
ArgumentChoice ChoiceOf(int nType)
{
    ArgumentChoice choice;
    for (unsigned int nSID = 1100; nSID <= 3499; ++nSID)
        if (AI_IsParam(nSID) && AI_IsOfType(nType, nSID))
            choice.words.push_back(AI_String(nSID).GetString());
    for (int nValue = -32769; nValue <= 32768; ++nValue) {
        if (!AI_IsOfType(nType, nValue))
            continue;
        if (!choice.bIntegers)
            choice.nLow = nValue;
        choice.bIntegers = true;
        choice.nHigh = nValue;
    }
    choice.bString = AI_IsOfType(nType, CString("text")) != 0;
    return choice;
}

std::vector<Function> ReadFunctions(unsigned int nFirst, unsigned int nLast,
                                    AI_CFunction const *(*lookup)(unsigned int))
{
    std::vector<Function> functions;
    for (unsigned int nSID = nFirst; nSID <= nLast; ++nSID) {
        AI_CFunction const *pFunction = lookup(nSID);
        if (!pFunction)
            continue;
        Function function {pFunction->GetName(), {}};
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
    for (int nType = 1; nType <= kTypeCount; ++nType) {
        ArgumentChoice &choice = m_choices[nType] = ChoiceOf(nType);
        if (choice.words.empty() && !choice.bIntegers && !choice.bString)
            throw std::runtime_error("no argument fits parameter type " + std::to_string(nType)
                                     + ": is the built-in vocabulary registered?");
    }
    m_relational = m_choices[AI_PT_REL_OP].words;
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
