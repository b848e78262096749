#include <ostream>

#include "../objects/AI_CCommand.h"
#include "../objects/AI_Listing.h"
#include "../vocabulary/AI_Registry.h"
#include "AI_CStrategy.h"

namespace {

// ";", indentation, the title (with its own trailing blank), " ", asterisks.
void SectionHead(std::ostream &os, int nLevel, char const *pszTitle)
{
    CString strTitle(pszTitle);
    os << ";";
    listing::Indent(os, nLevel);
    os << strTitle.GetString() << " " << listing::Stars(strTitle).GetString() << std::endl;
}

// ";", indentation, the text, line end.
void CommentLine(std::ostream &os, int nLevel, char const *pszText)
{
    os << ";";
    listing::Indent(os, nLevel);
    os << pszText << std::endl;
}

// The order of the settings section: the civilization comes before the two
// flags of fields 10 and 11.
int AI_GameSettings::*const kListingOrder[] = {
    &AI_GameSettings::bDeathMatch,       &AI_GameSettings::bRegicide,
    &AI_GameSettings::nStartingAge,      &AI_GameSettings::nStartingResources,
    &AI_GameSettings::nMapSize,          &AI_GameSettings::nMapType,
    &AI_GameSettings::nVictoryCondition, &AI_GameSettings::nDifficulty,
    &AI_GameSettings::nPopulationCap,    &AI_GameSettings::nCiv,
    &AI_GameSettings::bGameSpeedLocked,  &AI_GameSettings::bTeamsLocked,
};

AI_SettingsField const &FieldOf(int AI_GameSettings::*pField)
{
    int nCount = 0;
    AI_SettingsField const *pFields = AI_SettingsFields(&nCount);
    int i = 0;
    while (i + 1 < nCount && pFields[i].pField != pField)
        ++i;
    return pFields[i];
}

}  // namespace

void AI_CStrategy::PrettyPrint(std::ostream &os, int nLevel) const
{
    CommentLine(os, nLevel, GetName());
    os << std::endl;
    CommentLine(os, nLevel, GetFilename());
    os << std::endl;
    PrettyPrintGameSettings(os, nLevel);
    os << std::endl;
    PrettyPrintFiles(os, nLevel);
    os << std::endl;
    PrettyPrintConstants(os, nLevel);
    os << std::endl;
    PrettyPrintCommands(os, nLevel);
    os << std::endl;
}

void AI_CStrategy::PrettyPrintGameSettings(std::ostream &os, int nLevel) const
{
    SectionHead(os, nLevel, "Game settings: ");
    // A flag's define is written when it holds; a grouped field always
    // writes the define its value selects.
    for (int AI_GameSettings::*pField : kListingOrder) {
        AI_SettingsField const &field = FieldOf(pField);
        int nValue = m_gsSettings.*pField;
        if (field.IsFlag() && !nValue)
            continue;
        // Unsigned arithmetic: a value without a define gives a SID without
        // a name, and so an empty row.
        unsigned int nSID = field.nFirstDefine + (field.IsFlag() ? 0u : static_cast<unsigned int>(nValue));
        CommentLine(os, nLevel, AI_String(nSID));
    }
}

void AI_CStrategy::PrettyPrintFiles(std::ostream &os, int nLevel) const
{
    SectionHead(os, nLevel, "Files: ");
    for (POSITION pos = m_mapCommandLists.GetStartPosition(); pos;) {
        CString strFilename;
        AI_CCommandList *pCommands;
        m_mapCommandLists.GetNextAssoc(pos, strFilename, pCommands);
        CommentLine(os, nLevel, strFilename);
    }
}

void AI_CStrategy::PrettyPrintConstants(std::ostream &os, int nLevel) const
{
    SectionHead(os, nLevel, "Constants: ");
    for (POSITION pos = m_mapConstants.GetStartPosition(); pos;) {
        unsigned int nSID;
        CArray<int, int> *pValues;
        m_mapConstants.GetNextAssoc(pos, nSID, pValues);
        os << ";";
        listing::Indent(os, nLevel);
        os << vocabulary::NameOf(nSID) << " = ";
        for (int i = 0; i < pValues->GetSize(); ++i)
            os << (i ? ", " : "") << pValues->GetAt(i);
        os << std::endl;
    }
}

void AI_CStrategy::PrettyPrintCommands(std::ostream &os, int nLevel) const
{
    listing::StartBanner(os, nLevel, m_strFilename);
    os << std::endl;
    if (AI_CCommandList *pCommands = CommandList(m_strFilename))
        pCommands->PrettyPrint(os, nLevel);
    os << std::endl;
    listing::EndBanner(os, nLevel, m_strFilename);
}
