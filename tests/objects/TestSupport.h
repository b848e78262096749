// Shared pieces of the object-model, strategy, check, parser and server
// tests: a fixture with the built-in vocabulary, a scratch directory, probes
// whose answers a test sets and whose calls and destruction it observes, and
// hand-built pieces.
#ifndef STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H
#define STRATAGEM_TESTS_OBJECTS_TESTSUPPORT_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "../vocabulary/VocabularyTest.h"
#include "objects/AI_Objects.h"
#include "strategy/AI_CStrategy.h"
#include "vocabulary/AI_Vocabulary.h"

// Built-in SIDs used by the tests.
enum : unsigned int
{
    kTrue = 300,        // fact without parameters
    kFoodAmount = 391,  // fact (rel-op, value)
    kDoNothing = 600,   // action without parameters
    kTrain = 614,       // action (unit)
    kSmallMap = 131,    // define
    kDeathMatch = 100,  // define
    kVillager = 3110,   // param
};

class ObjectsTest : public VocabularyTest
{
protected:
    void SetUp() override { RegisterBuiltins(); }
};

// A fresh directory, removed with the object; Write answers the file's path.
class ScratchDir
{
public:
    ScratchDir() : m_path(testing::TempDir() + "stratagem-XXXXXX")
    {
        if (!mkdtemp(&m_path[0]))
            ADD_FAILURE() << "cannot create " << m_path;
        m_path += '/';
    }
    ~ScratchDir() { std::filesystem::remove_all(m_path); }
    std::string Write(std::string const &strName, std::string const &strText) const
    {
        std::ofstream(m_path + strName, std::ios::binary) << strText;
        return m_path + strName;
    }
    std::string const &Path() const { return m_path; }

private:
    std::string m_path;
};

// Each row: what the code gave, what it should give.
template <class T>
void ExpectRows(std::vector<std::pair<T, T>> const &rows)
{
    for (size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].second, rows[i].first) << "row " << i;
}

template <class T>
std::unique_ptr<T> Own(T *p)
{
    return std::unique_ptr<T>(p);
}

// An object made by the class's factory.
template <class T = AI_CObject>
std::unique_ptr<T> Made(CRuntimeClass *pClass)
{
    return Own(static_cast<T *>(pClass->CreateObject()));
}

inline std::string Listing(AI_CObject const &object, int nLevel = 0)
{
    std::ostringstream os;
    object.PrettyPrint(os, nLevel);
    return os.str();
}

inline std::string Describe(AI_CObject const &object) { return object.GetDescription().GetString(); }

// The direct children. GetObjects must append them after what the list
// already holds, so a marker goes in first and must stay first.
inline std::vector<AI_CObject *> Children(AI_CObject const &object)
{
    AI_CObject marker;
    CTypedPtrList<CObList, AI_CObject *> list;
    list.AddTail(&marker);
    object.GetObjects(list);
    std::vector<AI_CObject *> result;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        result.push_back(list.GetNext(pos));
    if (result.empty() || result.front() != &marker)
        ADD_FAILURE() << "GetObjects dropped what the list held";
    else
        result.erase(result.begin());
    return result;
}

// The defaults of the settings record.
inline AI_GameSettings DefaultSettings() { return AI_GameSettings {0, 0, 0, 1, 1, 4, 0, 2, 2, 1, 0, 2}; }

// The recorded values of a constant, in recording order.
inline std::vector<int> Values(AI_CStrategy const &strategy, unsigned int nSID)
{
    std::vector<int> values;
    CArray<int, int> *pValues = nullptr;
    if (strategy.GetConstants().Lookup(nSID, pValues))
        for (int i = 0; i < pValues->GetSize(); ++i)
            values.push_back(pValues->GetAt(i));
    return values;
}

// Records its id in a log when destroyed, before its parts go.
template <class BASE>
struct Tracked : BASE
{
    template <class... ARGS>
    Tracked(std::vector<int> *pLog, int nId, ARGS... args) : BASE(args...), m_pLog(pLog), m_nId(nId)
    {}
    ~Tracked() override { m_pLog->push_back(m_nId); }
    std::vector<int> *m_pLog;
    int m_nId;
};

template <class BASE, class... ARGS>
BASE *Track(std::vector<int> *pLog, int nId, ARGS... args)
{
    return new Tracked<BASE>(pLog, nId, args...);
}

// Probes answer as set and note each call in a log: conditions and actions
// their name, commands "check <name>" or "load <name>".
using Calls = std::vector<std::string>;

struct Probe
{
    int Note(char const *pszWhat) const { return m_pLog->push_back(pszWhat + m_strName), m_nAnswer; }
    int m_nAnswer;
    Calls *m_pLog;
    std::string m_strName;
};

struct ProbeCE : AI_CCE, Probe
{
    ProbeCE(int nAnswer, Calls *pLog, char const *pszName) : Probe {nAnswer, pLog, pszName} {}
    int IsTrue() const override { return Note(""); }
};

struct ProbeAction : AI_CAction, Probe
{
    ProbeAction(int nResult, Calls *pLog, char const *pszName)
        : AI_CAction(kDoNothing, nullptr), Probe {nResult, pLog, pszName}
    {}
    int Execute() override { return Note(""); }
};

struct ProbeCommand : AI_CCommand, Probe
{
    ProbeCommand(int nCheck, int nLoaded, Calls *pLog, char const *pszName)
        : Probe {nCheck, pLog, pszName}, m_nLoaded(nLoaded)
    {}
    int Check() override { return Note("check "); }
    void Load() override { Note("load "); }
    int IsLoaded() const override { return m_nLoaded; }
    int m_nLoaded;
};

inline CString *Str(char const *psz) { return new CString(psz); }

// Lists holding the given elements, in order.
template <class LIST, class ELEMENT>
LIST *ListOf(std::initializer_list<ELEMENT *> elements)
{
    LIST *pList = new LIST;
    for (ELEMENT *p : elements)
        pList->Add(p);
    return pList;
}

inline AI_CExprList *Args(std::initializer_list<AI_CExpression *> e) { return ListOf<AI_CExprList>(e); }
inline AI_CCommandList *Commands(std::initializer_list<AI_CCommand *> c) { return ListOf<AI_CCommandList>(c); }

inline AI_CLoadOptionList *Options(std::initializer_list<std::pair<int, char const *>> options)
{
    AI_CLoadOptionList *pList = new AI_CLoadOptionList;
    for (auto const &option : options)
        pList->Add(new AI_CLoadOption(option.first, Str(option.second)));
    return pList;
}

// The name of the option at the index.
inline CString const *OptionName(AI_CLoadOptionList const *pOptions, int nIndex)
{
    POSITION pos = pOptions->GetLoadOptions().GetHeadPosition();
    while (nIndex-- > 0)
        pOptions->GetLoadOptions().GetNext(pos);
    return pOptions->GetLoadOptions().GetNext(pos)->GetFilename();
}

// The rule (defrule (true) => (do-nothing)), or one with the given parts.
inline AI_CDefruleCommand *Rule(AI_CCE *pCE = nullptr, AI_CAction *pAction = nullptr)
{
    return new AI_CDefruleCommand(ListOf<AI_CCEList>({pCE ? pCE : new AI_CTestCE(kTrue, nullptr)}),
                                  ListOf<AI_CActionList>({pAction ? pAction : new AI_CAction(kDoNothing, nullptr)}));
}

// Load commands whose loaded list and choice a test sets by hand, as
// loading would.
struct HandLoad : AI_CLoadCommand
{
    HandLoad(CString *pName, AI_CCommandList *pLoaded = nullptr) : AI_CLoadCommand(pName, nullptr)
    {
        m_pCommands = pLoaded;
    }
};

struct HandLoadRandom : AI_CLoadRandomCommand
{
    HandLoadRandom(AI_CLoadOptionList *pOptions, CString *pName) : AI_CLoadRandomCommand(pOptions, pName, nullptr) {}
    void SetLoaded(CString const *pChosen, AI_CCommandList *pLoaded) { m_pLoaded = pChosen, m_pCommands = pLoaded; }
};

#endif
