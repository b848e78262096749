// The listing of a strategy built by hand: name and file lines, the
// settings, files and constants sections in the tables' enumeration order,
// and the main file's commands between their banners.
#include "../objects/TestSupport.h"

using StrategyListing = ObjectsTest;

namespace {

// Writes single sections for the tests.
struct OpenStrategy : AI_CStrategy
{
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
struct MarkedStrategy : AI_CStrategy
{
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
    return SettingsSection(strIndent,
                           {"DARK-AGE-START", "MEDIUM-RESOURCES-START", "SMALL-MAP", "COASTAL-MAP", "VICTORY-STANDARD",
                            "DIFFICULTY-MODERATE", "POPULATION-CAP-75", "BYZANTINE-CIV", "GAME-SPEED-LOCKED"});
}

}  // namespace

// The commands section needs a list stored under exactly the main name.
TEST_F(StrategyListing, EmptyStrategyAtALevelIndentsEveryLineAfterTheSemicolon)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddCommandList("./m", Commands({new AI_CDefconstCommand(0, 1, nullptr)}));
    EXPECT_EQ(";\ts\n\n;\tm\n\n" + DefaultSettingsSection("\t") + "\n;\tFiles:  " + Stars(66) + "\n;\t./m\n\n"
                  + ";\tConstants:  " + Stars(62) + "\n\n;\tSTART m " + Stars(72) + "\n\n\n;\tEND m " + Stars(74)
                  + "\n\n",
              Listing(strategy, 1));
}

TEST_F(StrategyListing, SectionsAreWrittenThroughTheVirtualWriters)
{
    MarkedStrategy strategy("name", "file", DefaultSettings());
    EXPECT_EQ(";\t\tname\n\n;\t\tfile\n\n[G2]\n\n[F2]\n\n[C2]\n\n[X2]\n\n", Listing(strategy, 2));
}
