// The listing of a strategy built by hand at a level: name and file lines,
// the settings, files and constants sections, and the main file's commands
// between their banners (the listings at level 0 are the host's cases).
#include "../objects/TestSupport.h"

using StrategyListing = ObjectsTest;

// The commands section needs a list stored under exactly the main name.
TEST_F(StrategyListing, EmptyStrategyAtALevelIndentsEveryLineAfterTheSemicolon)
{
    AI_CStrategy strategy("s", "m", DefaultSettings());
    strategy.AddCommandList("./m", Commands({new AI_CDefconstCommand(0, 1, nullptr)}));
    std::string strSettings = ";\tGame settings:  " + std::string(58, '*') + "\n";
    for (char const *psz : {"DARK-AGE-START", "MEDIUM-RESOURCES-START", "SMALL-MAP", "COASTAL-MAP", "VICTORY-STANDARD",
                            "DIFFICULTY-MODERATE", "POPULATION-CAP-75", "BYZANTINE-CIV", "GAME-SPEED-LOCKED"})
        strSettings += std::string(";\t") + psz + "\n";
    EXPECT_EQ(";\ts\n\n;\tm\n\n" + strSettings + "\n;\tFiles:  " + std::string(66, '*')
                  + "\n;\t./m\n\n;\tConstants:  " + std::string(62, '*') + "\n\n;\tSTART m " + std::string(72, '*')
                  + "\n\n\n;\tEND m " + std::string(74, '*') + "\n\n",
              Listing(strategy, 1));
}
