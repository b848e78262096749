// AI_CStrategy: the root object of one analysis. It names the main file and
// the extra files, holds the game settings the scripts are analysed for, and
// owns the command list of every file read and the constant values recorded
// while loading.
#ifndef STRATAGEM_STRATEGY_AI_CSTRATEGY_H
#define STRATAGEM_STRATEGY_AI_CSTRATEGY_H

#include "../objects/AI_CObject.h"
#include "../vocabulary/AI_Vocabulary.h"

class AI_CCommandList;

class STRATAGEM_API AI_CStrategy : public AI_CObject
{
    DECLARE_DYNCREATE(AI_CStrategy)

protected:
    CString m_strName;
    CString m_strFilename;
    AI_GameSettings m_gsSettings;
    CArray<CString, char const *> m_aFilenames;
    CMap<unsigned int, unsigned int, CArray<int, int> *, CArray<int, int> *> m_mapConstants;
    CMap<CString, char const *, AI_CCommandList *, AI_CCommandList *> m_mapCommandLists;

    // Used by the factory: empty names, settings copied from AI_gsSettings.
    AI_CStrategy();

public:
    AI_CStrategy(char const *pszName, char const *pszFilename, AI_GameSettings const &gsSettings);
    virtual ~AI_CStrategy();

    CString const &GetName() const { return m_strName; }
    CString const &GetFilename() const { return m_strFilename; }
    AI_GameSettings const &GetGameSettings() const { return m_gsSettings; }
    CArray<CString, char const *> const &GetFilenames() const { return m_aFilenames; }
    CMap<unsigned int, unsigned int, CArray<int, int> *, CArray<int, int> *> const &GetConstants() const
    {
        return m_mapConstants;
    }
    CMap<CString, char const *, AI_CCommandList *, AI_CCommandList *> const &GetCommandLists() const
    {
        return m_mapCommandLists;
    }

    // The define's value under this strategy's own settings.
    int Define(unsigned int nSID) const;

    int AddFilename(char const *pszFilename);
    // The extra file name at the index; null outside the array.
    char const *Filename(int nIndex) const;
    void DeleteFilenames();

    // The value recorded at the index for the constant; 0x80000000 when the
    // constant has no values here or the index lies beyond them.
    int Constant(unsigned int nSID, int nIndex) const;
    void AddConstantValue(unsigned int nSID, int nValue);
    int DeleteConstant(unsigned int nSID);
    void DeleteConstants();

    AI_CCommandList *CommandList(char const *pszFilename) const;
    void AddCommandList(char const *pszFilename, AI_CCommandList *pCommands);
    void DeleteCommandLists();

    virtual CString GetDescription();
    virtual void GetObjects(CTypedPtrList<CObList, AI_CObject *> &) const;
    virtual void PrettyPrint(std::ostream &, int) const;

    virtual void Analyze();

protected:
    virtual void PrettyPrintGameSettings(std::ostream &, int) const;
    virtual void PrettyPrintFiles(std::ostream &, int) const;
    virtual void PrettyPrintConstants(std::ostream &, int) const;
    virtual void PrettyPrintCommands(std::ostream &, int) const;

    void DestroyConstants();
    void DestroyCommandLists();
};

#endif
