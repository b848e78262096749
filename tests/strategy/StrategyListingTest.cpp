// The listing of a strategy built by hand: name and file lines, the
// settings, files and constants sections in the tables' enumeration order,
// and the main file's commands between their banners.
#include "../objects/TestSupport.h"

using StrategyListing = VocabularyTest;

namespace {

// Writes single sections for the tests.
struct OpenStrategy : AI_CStrategy {
    using AI_CStrategy::AI_CStrategy;
    std::string Write(void (AI_CStrategy::*pWriter)(std::ostream &, int) const, int nLevel) const
    {
        std::ostringstream os;
        (this->*pWriter)(os, nLevel);
        return os.str();
    }
    std::string Settings(int nLevel) const { return Write(&OpenStrategy::PrettyPrintGameSettings, nLevel); }
    std::string Files(int nLevel) const { return Write(&OpenStrategy::PrettyPrintFiles, nLevel); }
    std::string Constants(int nLevel) const { return Write(&OpenStrategy::PrettyPrintConstants, nLevel); }
};

// Replaces every section by a marker that shows the level it was given.
struct MarkedStrategy : AI_CStrategy {
    using AI_CStrategy::AI_CStrategy;
    void PrettyPrintGameSettings(std::ostream &os, int nLevel) const override { os << "[G" << nLevel << "]\n"; }
    void PrettyPrintFiles(std::ostream &os, int nLevel) const override { os << "[F" << nLevel << "]\n"; }
    void PrettyPrintConstants(std::ostream &os, int nLevel) const override { os << "[C" << nLevel << "]\n"; }
    void PrettyPrintCommands(std::ostream &os, int nLevel) const override { os << "[X" << nLevel << "]\n"; }
};

// The settings section with the indentation, one row a word.
std::string SettingsSection(std::string const &strIndent, std::initializer_list<char const *> words)
{
    std::string strText = ";" + strIndent + "Game settings:  " + Stars(58) + "\n";
    for (char const *psz : words)
        strText += ";" + strIndent + psz + "\n";
    return strText;
}

std::string DefaultSettingsSection(std::string const &strIndent)
{
    return SettingsSection(strIndent, {"DARK-AGE-START", "MEDIUM-RESOURCES-START", "SMALL-MAP", "COASTAL-MAP",
                                       "VICTORY-STANDARD", "DIFFICULTY-MODERATE", "POPULATION-CAP-75", "BYZANTINE-CIV",
                                       "GAME-SPEED-LOCKED"});
}

}  // namespace

TEST_F(StrategyListing, HandBuiltStrategyListsEverySectionAndTheLoadedFiles)
{
    // Names for the SIDs the strategy records.
    AI_AddParam(4001, "c1");
    AI_AddParam(4002, "c2");
    AI_CStrategy strategy("Rush", "rush.per", DefaultSettings());
    AI_CCommandList *pCommon = Commands({new AI_CDefconstCommand(4001, 5, &strategy)});
    strategy.AddCommandList("rush.per", Commands({Rule(), new HandLoad(Str("common.per"), pCommon)}));
    strategy.AddCommandList("common.per", pCommon);
    strategy.AddConstantValue(4001, 5);
    strategy.AddConstantValue(4002, -3);
    strategy.AddConstantValue(4001, 6);
    EXPECT_EQ(";Rush\n\n;rush.per\n\n" + DefaultSettingsSection("") +
                  "\n;Files:  " + Stars(66) + "\n"
                  ";common.per\n"  // bucket 8
                  ";rush.per\n"    // bucket 9
                  "\n;Constants:  " + Stars(62) + "\n"
                  ";c2 = -3\n"  // 4002 and 4001 share a bucket; the later comes first
                  ";c1 = 5, 6\n"
                  "\n;START rush.per " + Stars(65) + "\n\n"
                  "(defrule\n\t(true)\n=>\n\t(do-nothing)\n)\n\n"
                  ";(load common.per)\n"
                  ";START common.per " + Stars(63) + "\n\n"
                  "(defconst c1 5)\n\n\n"
                  ";END common.per " + Stars(65) + "\n\n\n"
                  ";END rush.per " + Stars(67) + "\n\n",
              Listing(strategy));
}

// The commands section needs a list stored under exactly the main name.
TEST_F(StrategyListing, EmptyStrategyAtALevelIndentsEveryLineAfterTheSemicolon)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddCommandList("./m", Commands({new AI_CDefconstCommand(0, 1, nullptr)}));
    EXPECT_EQ(";\ts\n\n;\tm\n\n" + DefaultSettingsSection("\t") + "\n;\tFiles:  " + Stars(66) + "\n;\t./m\n\n" +
                  ";\tConstants:  " + Stars(62) + "\n\n;\tSTART m " + Stars(72) + "\n\n\n;\tEND m " + Stars(74) +
                  "\n\n",
              Listing(strategy, 1));
}

TEST_F(StrategyListing, SectionsAreWrittenThroughTheVirtualWriters)
{
    MarkedStrategy strategy("name", "file", DefaultSettings());
    EXPECT_EQ(";\t\tname\n\n;\t\tfile\n\n[G2]\n\n[F2]\n\n[C2]\n\n[X2]\n\n", Listing(strategy, 2));
}

TEST_F(StrategyListing, SettingsRowsFollowTheirOrderWithFlagsOnlyWhenSet)
{
    OpenStrategy strategy("s", "m", AI_GameSettings{1, 3, 4, 2, 0, 19, 4, 0, 7, 0, 1, 0});
    // Map type 19 gives SID 159, which no word names.
    EXPECT_EQ(SettingsSection("\t\t", {"DEATH-MATCH", "REGICIDE", "POST-IMPERIAL-AGE-START", "HIGH-RESOURCES-START",
                                       "TINY-MAP", "", "VICTORY-CUSTOM", "DIFFICULTY-EASIEST", "POPULATION-CAP-200",
                                       "GAIA", "TEAMS-LOCKED"}),
              strategy.Settings(2));
}

// Constants go by bucket, the SID shifted right by 4 modulo 17, the latest
// entry of a bucket first; files by bucket of h = h * 33 + c over the name's
// bytes taken as signed, modulo 17.
TEST_F(StrategyListing, FilesAndConstantsFollowTheTablesEnumerationOrder)
{
    OpenStrategy strategy("s", "m", DefaultSettings());
    for (char const *psz : {"c", "a", "q", "r", "G", "\xe9t"})
        strategy.AddCommandList(psz, new AI_CCommandList);
    // "G" 3, "\xe9t" 4 (2 if the byte counted as unsigned), "q" 11, "a" and
    // "r" 12, "c" 14.
    EXPECT_EQ(";Files:  " + Stars(66) + "\n;G\n;\xe9t\n;q\n;r\n;a\n;c\n", strategy.Files(0));

    for (unsigned int nSID : {4001u, 4002u, 4016u, 4100u})
        AI_AddParam(nSID, ("k" + std::to_string(nSID)).c_str());
    strategy.AddConstantValue(4016, 2);   // 251: bucket 13
    strategy.AddConstantValue(4001, 1);   // 250: bucket 12
    strategy.AddConstantValue(4002, -7);  // 250: bucket 12
    strategy.AddConstantValue(4002, 0);   // no new entry
    strategy.AddConstantValue(4002, 12);
    strategy.AddConstantValue(4100, 3);  // 256: bucket 1
    EXPECT_EQ(";\tConstants:  " + Stars(62) + "\n;\tk4100 = 3\n;\tk4002 = -7, 0, 12\n;\tk4001 = 1\n;\tk4016 = 2\n",
              strategy.Constants(1));
}
