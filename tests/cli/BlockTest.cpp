// Conditional blocks through the host: resolved against the settings given
// on the command line, or kept in the tree with --no-expand-blocks.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CliBlocks, AreResolvedByTheCommandLineSettingsOrKept)
{
    ScriptDir const dir({{"main.per", "#load-if-defined SMALL-MAP\n"
                                      "    (load \"small\")\n"
                                      "#else\n"
                                      "    (load \"large\")\n"
                                      "#end-if\n"
                                      "#load-if-not-defined REGICIDE\n"
                                      "    (defrule (true) => (do-nothing))\n"
                                      "#end-if\n"},
                         {"small.per", "(defrule (true) => (resign))\n"},
                         {"large.per", "(defrule (true) => (attack-now))\n"}});
    auto const small = [](int nLevel) {
        return LoadLines("small.per", RuleLines("(true)", "(resign)", nLevel), nLevel);
    };
    auto const large = [](int nLevel) {
        return LoadLines("large.per", RuleLines("(true)", "(attack-now)", nLevel), nLevel);
    };
    Strings const regicide = Join({"REGICIDE"}, DefaultSettings());
    Strings largeRegicide = regicide;
    largeRegicide[3] = "LARGE-MAP";
    Strings kept = Join(Join({"#load-if-defined SMALL-MAP", ""}, small(1)), {"#else ; SMALL-MAP", ""});
    kept = Join(Join(kept, large(1)), {"#end-if ; SMALL-MAP", "", "#load-if-not-defined REGICIDE", ""});
    kept = Join(Join(kept, RuleLines("(true)", "(do-nothing)", 1)), {"#end-if ; not REGICIDE", ""});

    struct Case
    {
        Strings args;
        Strings settings;
        Strings files;
        Strings body;
    } const cases[] = {
        {{"main.per"}, DefaultSettings(), {"small.per", "main.per"},
         Join(small(0), RuleLines("(true)", "(do-nothing)"))},
        {{"-s", "nMapSize=4", "--define", "REGICIDE", "main.per"}, largeRegicide,
         {"main.per", "large.per"}, large(0)},
        // Kept blocks load every file whatever the settings.
        {{"--no-expand-blocks", "-D", "REGICIDE", "main.per"}, regicide,
         {"small.per", "main.per", "large.per"}, kept},
    };
    for (Case const &c : cases)
        ExpectListing(dir.Run(c.args), Listing("main.per", c.files, c.body, {}, c.settings));
}
