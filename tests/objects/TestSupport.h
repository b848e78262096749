// Shared pieces of the object-model tests: a fixture with the built-in
// vocabulary, listing capture, and probe objects whose answers a test sets
// and whose calls and destruction it observes.
#ifndef STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H
#define STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "objects/AI_Objects.h"
#include "vocabulary/AI_Vocabulary.h"

// Built-in SIDs used by the tests.
enum : unsigned int {
    kTrue = 300,          // fact without parameters
    kFoodAmount = 391,    // fact (rel-op, value)
    kDoNothing = 600,     // action without parameters
    kChatToAll = 504,     // action (string)
    kTrain = 614,         // action (unit)
    kSmallMap = 131,      // define
    kDeathMatch = 100,    // define
    kLessThan = 2300,     // param
    kVillager = 3110,     // param
};

class VocabularyTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        AI_AddFacts();
        AI_AddActions();
        AI_AddDefines();
        AI_AddParams();
    }
    void TearDown() override { AI_DeleteAll(); }
};

inline std::string Listing(AI_CObject const &object, int nLevel = 0)
{
    std::ostringstream os;
    object.PrettyPrint(os, nLevel);
    return os.str();
}

inline std::string Describe(AI_CObject &object)
{
    return object.GetDescription().GetString();
}

// The direct children, as GetObjects appends them to an empty list.
inline std::vector<AI_CObject *> Children(AI_CObject const &object)
{
    CTypedPtrList<CObList, AI_CObject *> list;
    object.GetObjects(list);
    std::vector<AI_CObject *> result;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        result.push_back(list.GetNext(pos));
    return result;
}

// Records its id in a log when destroyed.
template <class BASE>
class Tracked : public BASE
{
public:
    template <class... ARGS>
    Tracked(std::vector<int> *pLog, int nId, ARGS... args) : BASE(args...), m_pLog(pLog), m_nId(nId)
    {
    }
    ~Tracked() override { m_pLog->push_back(m_nId); }

private:
    std::vector<int> *m_pLog;
    int m_nId;
};

// A condition with a set answer that counts its evaluations.
class ProbeCE : public AI_CCE
{
public:
    ProbeCE(int nAnswer, int *pCalls) : m_nAnswer(nAnswer), m_pCalls(pCalls) {}
    int IsTrue() const override
    {
        ++*m_pCalls;
        return m_nAnswer;
    }

private:
    int m_nAnswer;
    int *m_pCalls;
};

// An action with a set result that counts its executions.
class ProbeAction : public AI_CAction
{
public:
    ProbeAction(int nResult, int *pCalls) : AI_CAction(kDoNothing, nullptr), m_nResult(nResult), m_pCalls(pCalls) {}
    int Execute() override
    {
        ++*m_pCalls;
        return m_nResult;
    }

private:
    int m_nResult;
    int *m_pCalls;
};

// A command with a set Check answer that counts its checks and loads.
class ProbeCommand : public AI_CCommand
{
public:
    ProbeCommand(int nCheck, int nLoaded, std::vector<std::string> *pLog, std::string strName)
        : m_nCheck(nCheck), m_nLoaded(nLoaded), m_pLog(pLog), m_strName(std::move(strName))
    {
    }
    int Check() override
    {
        m_pLog->push_back("check " + m_strName);
        return m_nCheck;
    }
    void Load() override { m_pLog->push_back("load " + m_strName); }
    int IsLoaded() const override { return m_nLoaded; }

private:
    int m_nCheck;
    int m_nLoaded;
    std::vector<std::string> *m_pLog;
    std::string m_strName;
};

inline CString *Str(char const *psz)
{
    return new CString(psz);
}

#endif
