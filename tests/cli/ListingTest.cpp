// The listing that the host prints for whole strategies: loaded files in
// place of their load commands, names formed from the loading file, extra
// files, constants recorded across files, cycles of loads and settings.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CliListing, LoadedNamesTakeTheLoadingFilesDirectoryAndExtension)
{
    // A main file without extension adds none; sub/x.per's loads go to sub/
    // and get .per, also after an extension of their own.
    ScriptDir const dir({{"plain", "(load \"sub/x.per\")\n" + kDoNothingRule},
                         {"sub/x.per", "(load \"common\")\n"},
                         {"sub/common.per", "(load \"y.txt\")\n"},
                         {"sub/y.txt.per", "(defrule (food-amount < 50) => (chat-local-to-self \"low\"))\n"}});
    Strings const y = RuleLines("(food-amount less-than 50)", "(chat-local-to-self \"low\")");
    Strings const body = LoadLines("sub/x.per", LoadLines("sub/common.per", LoadLines("sub/y.txt.per", y)));
    ExpectListing(dir.Run({"--name", "Rush", "plain"}),
                  Listing("plain", {"plain", "sub/common.per", "sub/x.per", "sub/y.txt.per"},
                          Join(body, RuleLines("(true)", "(do-nothing)")), {}, DefaultSettings(), "Rush"));
}

TEST(CliListing, ExtraFilesAreReadFirstAndTheFirstValueOfAConstantStaysInUse)
{
    ScriptDir const dir({{"one.per", "(defconst level 1)\n(defconst base-food 100)\n"},
                         {"two.per", "(defconst level 3)\n(defconst step level)\n"},
                         {"main.per", "(defconst level 2)\n(load \"one\")\n"
                                      "(defrule (food-amount > base-food) => (set-goal step level))\n"}});
    Strings body = Join({"(defconst level 2)", ""},
                        LoadLines("one.per", {"(defconst level 1)", "", "(defconst base-food 100)", ""}));
    body = Join(body, RuleLines("(food-amount greater-than 100)", "(set-goal 1 1)"));
    // An extra file loaded again records its constants again.
    ExpectListing(dir.Run({"-x", "one.per", "--extra=two.per", "main.per"}),
                  Listing("main.per", {"one.per", "main.per", "two.per"}, body,
                          {"step = 1", "base-food = 100, 100", "level = 1, 3, 2, 1"}));
}

TEST(CliListing, FilesLoadingThemselvesOrEachOtherEndAtTheFileBeingWritten)
{
    ScriptDir const dir({{"main.per", "(defconst lives 3)\n(load \"main\")\n"},
                         {"a.per", "(load \"b\")\n" + kDoNothingRule},
                         {"b.per", "(load \"a\")\n"}});
    ExpectListing(dir.Run({"main.per"}), Listing("main.per", {"main.per"},
                                                 Join({"(defconst lives 3)", ""}, LoadLines("main.per", {})),
                                                 {"lives = 3, 3"}));
    ExpectListing(dir.Run({"a.per"}), Listing("a.per", {"a.per", "b.per"},
                                              Join(LoadLines("b.per", LoadLines("a.per", {})),
                                                   RuleLines("(true)", "(do-nothing)"))));
}

TEST(CliListing, SettingsOptionsApplyInOrderOnTheDefaultsAndTheLaterWins)
{
    ScriptDir const dir({{"main.per", kDoNothingRule}});
    Strings settings = Join({"DEATH-MATCH"}, DefaultSettings());
    settings[3] = "TINY-MAP";
    settings[6] = "DIFFICULTY-HARDEST";
    settings.pop_back();  // the game speed is not locked
    Strings const body = RuleLines("(true)", "(do-nothing)");
    ExpectListing(dir.Run({"-s", "bDeathMatch=7", "--set=nDifficulty=4", "-s", "bGameSpeedLocked=0", "-D",
                           "GIANT-MAP", "-s", "nMapSize=0", "main.per"}),
                  Listing("main.per", {"main.per"}, body, {}, settings));
    settings[3] = "GIANT-MAP";
    ExpectListing(dir.Run({"-s", "bDeathMatch=7", "--set=nDifficulty=4", "-s", "bGameSpeedLocked=0", "-s",
                           "nMapSize=0", "-D", "GIANT-MAP", "main.per"}),
                  Listing("main.per", {"main.per"}, body, {}, settings));
}
