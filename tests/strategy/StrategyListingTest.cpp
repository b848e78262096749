// The listing of a whole strategy, built by hand: name and file lines, the
// settings, files and constants sections, and the main file's commands
// between their banners.
#include <memory>
#include <sstream>

#include "StrategySupport.h"

using StrategyListing = VocabularyTest;

namespace {

// Opens the section writers to the tests.
class OpenStrategy : public AI_CStrategy
{
public:
    using AI_CStrategy::AI_CStrategy;
    using AI_CStrategy::PrettyPrintCommands;
    using AI_CStrategy::PrettyPrintConstants;
    using AI_CStrategy::PrettyPrintFiles;
    using AI_CStrategy::PrettyPrintGameSettings;
};

// Replaces every section by a marker that shows the level it was given.
class MarkedStrategy : public AI_CStrategy
{
public:
    using AI_CStrategy::AI_CStrategy;

protected:
    void PrettyPrintGameSettings(std::ostream &os, int nLevel) const override { os << "[G" << nLevel << "]\n"; }
    void PrettyPrintFiles(std::ostream &os, int nLevel) const override { os << "[F" << nLevel << "]\n"; }
    void PrettyPrintConstants(std::ostream &os, int nLevel) const override { os << "[C" << nLevel << "]\n"; }
    void PrettyPrintCommands(std::ostream &os, int nLevel) const override { os << "[X" << nLevel << "]\n"; }
};

template <class WRITER>
std::string Section(WRITER writer, int nLevel)
{
    std::ostringstream os;
    writer(os, nLevel);
    return os.str();
}

std::string const kDefaultSettingsSection = ";Game settings:  " + Stars(58) + "\n"
                                            ";DARK-AGE-START\n"
                                            ";MEDIUM-RESOURCES-START\n"
                                            ";SMALL-MAP\n"
                                            ";COASTAL-MAP\n"
                                            ";VICTORY-STANDARD\n"
                                            ";DIFFICULTY-MODERATE\n"
                                            ";POPULATION-CAP-75\n"
                                            ";BYZANTINE-CIV\n"
                                            ";GAME-SPEED-LOCKED\n";

}  // namespace

TEST_F(StrategyListing, HandBuiltStrategyListsEverySectionAndTheLoadedFiles)
{
    // Names for the SIDs the strategy records, whatever the registry's
    // constant counter stands at.
    unsigned int const nFirst = 4001;
    unsigned int const nSecond = 4002;
    AI_AddParam(nFirst, "c1");
    AI_AddParam(nSecond, "c2");

    AI_CStrategy strategy("Rush", "rush.per", DefaultSettings());
    AI_CCommandList *pCommon = Commands({new AI_CDefconstCommand(nFirst, 5, &strategy)});
    AI_CCommandList *pMain =
        Commands({Rule(new AI_CTestCE(kTrue, nullptr), new AI_CAction(kDoNothing, nullptr)),
                  new HandLoad("common.per", pCommon)});
    strategy.AddCommandList("rush.per", pMain);
    strategy.AddCommandList("common.per", pCommon);
    strategy.AddConstantValue(nFirst, 5);
    strategy.AddConstantValue(nSecond, -3);
    strategy.AddConstantValue(nFirst, 6);

    EXPECT_EQ(";Rush\n"
              "\n"
              ";rush.per\n"
              "\n" +
                  kDefaultSettingsSection +
                  "\n"
                  ";Files:  " + Stars(66) + "\n"
                  ";common.per\n"  // bucket 8
                  ";rush.per\n"    // bucket 9
                  "\n"
                  ";Constants:  " + Stars(62) + "\n"
                  ";c2 = -3\n"  // 4002 and 4001 share a bucket; the later comes first
                  ";c1 = 5, 6\n"
                  "\n"
                  ";START rush.per " + Stars(65) + "\n"
                  "\n"
                  "(defrule\n"
                  "\t(true)\n"
                  "=>\n"
                  "\t(do-nothing)\n"
                  ")\n"
                  "\n"
                  ";(load common.per)\n"
                  ";START common.per " + Stars(63) + "\n"
                  "\n"
                  "(defconst c1 5)\n"
                  "\n"
                  "\n"
                  ";END common.per " + Stars(65) + "\n"
                  "\n"
                  "\n"
                  ";END rush.per " + Stars(67) + "\n"
                  "\n",
              Listing(strategy));
}

TEST_F(StrategyListing, EmptyStrategyAtALevelIndentsEveryLineAfterTheSemicolon)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    std::string strSettings;
    std::istringstream lines(kDefaultSettingsSection);
    for (std::string strLine; std::getline(lines, strLine);)
        strSettings += ";\t" + strLine.substr(1) + "\n";
    EXPECT_EQ(";\ts\n"
              "\n"
              ";\tm\n"
              "\n" +
                  strSettings +
                  "\n"
                  ";\tFiles:  " + Stars(66) + "\n"
                  "\n"
                  ";\tConstants:  " + Stars(62) + "\n"
                  "\n"
                  ";\tSTART m " + Stars(72) + "\n"
                  "\n"
                  "\n"
                  ";\tEND m " + Stars(74) + "\n"
                  "\n",
              Listing(strategy, 1));
}

TEST_F(StrategyListing, SettingsRowsFollowTheirOrderWithFlagsOnlyWhenSet)
{
    AI_GameSettings settings = {1, 3, 4, 2, 0, 19, 4, 0, 7, 0, 1, 0};
    OpenStrategy strategy("s", "m", settings);
    auto writer = [&](std::ostream &os, int n) { strategy.PrettyPrintGameSettings(os, n); };
    EXPECT_EQ(";\t\tGame settings:  " + Stars(58) + "\n"
              ";\t\tDEATH-MATCH\n"
              ";\t\tREGICIDE\n"
              ";\t\tPOST-IMPERIAL-AGE-START\n"
              ";\t\tHIGH-RESOURCES-START\n"
              ";\t\tTINY-MAP\n"
              ";\t\t\n"  // map type 19: no word names SID 159
              ";\t\tVICTORY-CUSTOM\n"
              ";\t\tDIFFICULTY-EASIEST\n"
              ";\t\tPOPULATION-CAP-200\n"
              ";\t\tGAIA\n"
              ";\t\tTEAMS-LOCKED\n",
              Section(writer, 2));
}

TEST_F(StrategyListing, FilesAndConstantsFollowTheTablesEnumerationOrder)
{
    OpenStrategy strategy("s", "m", DefaultSettings());
    for (char const *psz : {"c", "a", "q", "r"})
        strategy.AddCommandList(psz, new AI_CCommandList);
    auto files = [&](std::ostream &os, int n) { strategy.PrettyPrintFiles(os, n); };
    EXPECT_EQ(";Files:  " + Stars(66) + "\n;q\n;r\n;a\n;c\n", Section(files, 0));

    AI_AddParam(4001, "k1");
    AI_AddParam(4002, "k2");
    AI_AddParam(4016, "k16");
    strategy.AddConstantValue(4016, 2);
    strategy.AddConstantValue(4001, 1);
    strategy.AddConstantValue(4002, -7);
    strategy.AddConstantValue(4002, 0);
    strategy.AddConstantValue(4002, 12);
    auto constants = [&](std::ostream &os, int n) { strategy.PrettyPrintConstants(os, n); };
    EXPECT_EQ(";\tConstants:  " + Stars(62) + "\n"
              ";\tk2 = -7, 0, 12\n"
              ";\tk1 = 1\n"
              ";\tk16 = 2\n",
              Section(constants, 1));
}

TEST_F(StrategyListing, SectionsAreWrittenThroughTheVirtualWriters)
{
    MarkedStrategy strategy("name", "file", DefaultSettings());
    EXPECT_EQ(";\t\tname\n\n;\t\tfile\n\n[G2]\n\n[F2]\n\n[C2]\n\n[X2]\n\n", Listing(strategy, 2));
}

TEST_F(StrategyListing, CommandsSectionNeedsAListStoredUnderExactlyTheMainName)
{
    OpenStrategy strategy("s", "main.per", DefaultSettings());
    strategy.AddCommandList("./main.per", Commands({new AI_CDefconstCommand(0, 1, nullptr)}));
    auto commands = [&](std::ostream &os, int n) { strategy.PrettyPrintCommands(os, n); };
    std::string strEmpty = ";START main.per " + Stars(65) + "\n\n\n;END main.per " + Stars(67) + "\n";
    EXPECT_EQ(strEmpty, Section(commands, 0));
}

TEST_F(StrategyListing, MainFileThatLoadsItselfIsWrittenOnce)
{
    OpenStrategy strategy("s", "main", DefaultSettings());
    AI_CCommandList *pMain = new AI_CCommandList;
    pMain->Add(new HandLoad("main", pMain));
    strategy.AddCommandList("main", pMain);
    auto commands = [&](std::ostream &os, int n) { strategy.PrettyPrintCommands(os, n); };
    EXPECT_EQ(";START main " + Stars(69) + "\n"
              "\n"
              ";(load main)\n"
              ";START main " + Stars(69) + "\n"
              "\n"
              "\n"
              ";END main " + Stars(71) + "\n"
              "\n"
              "\n"
              ";END main " + Stars(71) + "\n",
              Section(commands, 0));
    EXPECT_EQ(1, pMain->Check());
}
