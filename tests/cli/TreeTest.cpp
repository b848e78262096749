// --tree: the object tree, one description per line, two spaces per level.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CliTree, WalksEveryObjectDepthFirstAndStopsAtAListBelowItself)
{
    ScriptDir const dir({{"main.per", "(load-random 50 \"a\" \"b\")\n"
                                      "#load-if-not-defined REGICIDE\n"
                                      "    (load \"b\")\n"
                                      "#else\n"
                                      "    (defconst lives 3)\n"
                                      "#end-if\n"
                                      "(load \"b\")\n"},
                         {"a.per", "(defconst bonus 2)\n(load \"a\")\n"},
                         {"b.per", "(defrule (not (food-amount < 50)) => (train villager))\n"}});
    // b's list stands under both of its loads.
    auto const b = [](std::string const &strIndent) {
        Strings lines;
        for (char const *pszLine :
             {"command list: 1 commands", "  defrule command", "    fact list: 1 CEs", "      fact operation: not",
              "        fact: food-amount", "          expression list: 2 expressions", "            symbol: less-than",
              "            integer: 50", "    action list: 1 actions", "      action: train",
              "        expression list: 1 expressions", "          symbol: villager"})
            lines.push_back(strIndent + pszLine);
        return lines;
    };
    Strings lines = {
        "strategy: Tree (main.per)",
        "  command list: 3 commands",
        "    load random command: default b.per, loaded a.per",
        "      load options list: 1 load options",
        "        load option: 50, a.per",
        "      command list: 2 commands",
        "        defconst command: bonus = 2",
        "        load command: a.per",
        "          command list: 2 commands",
        "    block: load if not defined REGICIDE",
        "      command list: 1 commands",
        "        load command: b.per",
    };
    lines = Join(Join(lines, b("          ")), {"      command list: 1 commands",
                                                 "        defconst command: lives = 3",
                                                 "    load command: b.per"});
    RunResult const result = dir.Run({"--tree", "--no-expand-blocks", "--name", "Tree", "--seed",
                                      std::to_string(SeedDrawing(0, 50)), "main.per"});
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strErr, "");
    EXPECT_EQ(result.strOut, Lines(Join(lines, b("      "))));
}
