// Commands that pull further files into a strategy: AI_CLoadCommand ("load"),
// AI_CLoadRandomCommand ("load-random") with its AI_CLoadOption /
// AI_CLoadOptionList, and the conditional block AI_CBlock.
#ifndef STRATAGEM_OBJECTS_AI_CLOADCOMMAND_H
#define STRATAGEM_OBJECTS_AI_CLOADCOMMAND_H

#include "AI_CCommand.h"

class STRATAGEM_API AI_CLoadCommand : public AI_CCommand
{
    DECLARE_DYNCREATE(AI_CLoadCommand)

protected:
    CString *m_pFilename;
    AI_CCommandList *m_pCommands;  // the strategy's list of the file; not owned
    AI_CStrategy *m_pStrategy;

    AI_CLoadCommand();

public:
    // Takes ownership of the file name.
    AI_CLoadCommand(CString *pFilename, AI_CStrategy *pStrategy);
    virtual ~AI_CLoadCommand();

    CString const *GetFilename() const { return m_pFilename; }
    AI_CCommandList const *GetCommands() const { return m_pCommands; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int Check();
    virtual void Load();
    virtual int IsLoaded() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CLoadOption : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CLoadOption)

protected:
    int m_nProbability;
    CString *m_pFilename;

    AI_CLoadOption();

public:
    // Takes ownership of the file name.
    AI_CLoadOption(int nProbability, CString *pFilename);
    virtual ~AI_CLoadOption();

    int const &GetProbability() const { return m_nProbability; }
    CString const *GetFilename() const { return m_pFilename; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CLoadOptionList : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CLoadOptionList)

protected:
    CTypedPtrList<CObList, AI_CLoadOption *> m_lstLoadOptions;

public:
    AI_CLoadOptionList();
    virtual ~AI_CLoadOptionList();

    CTypedPtrList<CObList, AI_CLoadOption *> const &GetLoadOptions() const { return m_lstLoadOptions; }
    // The sum of the options' probabilities; 0 for an empty list.
    int GetTotalProbability() const;

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual AI_CLoadOption *Add(AI_CLoadOption *pOption);
};

class STRATAGEM_API AI_CLoadRandomCommand : public AI_CCommand
{
    DECLARE_DYNCREATE(AI_CLoadRandomCommand)

protected:
    AI_CLoadOptionList *m_pOptions;
    CString *m_pFilename;          // the default file; null when there is none
    CString const *m_pLoaded;      // the chosen option's or the default's name; not owned
    AI_CCommandList *m_pCommands;  // the strategy's list of the chosen file; not owned
    AI_CStrategy *m_pStrategy;

    AI_CLoadRandomCommand();

public:
    // Takes ownership of the option list and the default file name (either
    // may be null).
    AI_CLoadRandomCommand(AI_CLoadOptionList *pOptions, CString *pFilename, AI_CStrategy *pStrategy);
    virtual ~AI_CLoadRandomCommand();

    AI_CLoadOptionList const *GetOptions() const { return m_pOptions; }
    CString const *GetFilename() const { return m_pFilename; }
    AI_CCommandList const *GetCommands() const { return m_pCommands; }

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int Check();
    virtual void Load();
    virtual int IsLoaded() const;
    virtual void Invalidate();
};

class STRATAGEM_API AI_CBlock : public AI_CCommand
{
    DECLARE_DYNCREATE(AI_CBlock)

protected:
    int m_bIf;
    unsigned int m_nSID;
    AI_CCommandList *m_pIfCommands;
    AI_CCommandList *m_pElseCommands;

    AI_CBlock();

public:
    // Takes ownership of both lists (the "else" list may be null).
    AI_CBlock(int bIf, unsigned int nSID, AI_CCommandList *pIfCommands, AI_CCommandList *pElseCommands);
    virtual ~AI_CBlock();

    int const &GetIf() const { return m_bIf; }
    unsigned int const &GetSID() const { return m_nSID; }
    AI_CCommandList const *GetIfCommands() const { return m_pIfCommands; }
    AI_CCommandList const *GetElseCommands() const { return m_pElseCommands; }

    static int IsDefineID(unsigned int nSID);

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual int IsValid() const;
    virtual int Check();
    virtual void Load();
    virtual int IsLoaded() const;
    virtual void Invalidate();
};

#endif
