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

// One row of the settings section: a define is written when its condition
// holds; the grouped fields always write the define their value selects.
struct SettingsRow
{
    int AI_GameSettings::*pField;
    unsigned int nBase;  // the define's SID, or the group's first SID
    bool bFlag;          // written only when the field is nonzero
};

// The order of the listing: the civilization comes before the two flags of
// fields 10 and 11.
SettingsRow const s_aRows[] = {
    {&AI_GameSettings::bDeathMatch, 100, true},
    {&AI_GameSettings::bRegicide, 101, true},
    {&AI_GameSettings::nStartingAge, 110, false},
    {&AI_GameSettings::nStartingResources, 120, false},
    {&AI_GameSettings::nMapSize, 130, false},
    {&AI_GameSettings::nMapType, 140, false},
    {&AI_GameSettings::nVictoryCondition, 160, false},
    {&AI_GameSettings::nDifficulty, 170, false},
    {&AI_GameSettings::nPopulationCap, 180, false},
    {&AI_GameSettings::nCiv, 210, false},
    {&AI_GameSettings::bGameSpeedLocked, 190, true},
    {&AI_GameSettings::bTeamsLocked, 200, true},
};

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
    for (SettingsRow const &row : s_aRows) {
        int nValue = m_gsSettings.*row.pField;
        if (row.bFlag && !nValue)
            continue;
        // Unsigned arithmetic: a value without a define gives a SID without
        // a name, and so an empty row.
        unsigned int nSID = row.bFlag ? row.nBase : row.nBase + static_cast<unsigned int>(nValue);
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
