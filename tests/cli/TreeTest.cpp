// --tree: the object tree, one description per line, two spaces per level.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

TEST(CliTreeOutput, WalksEveryObjectDepthFirstAndStopsAtAListBelowItself)
{
    ScriptDir dir;
    dir.Write("main.per",
              "(defrule (not (food-amount < 50)) => (train villager))\n"
              "(load-random 50 \"a\" \"b\")\n"
              "(defconst lives 3)\n");
    dir.Write("a.per", "(defconst bonus 2)\n(load \"a\")\n");
    dir.Write("b.per", "(defrule (true) => (resign))\n");

    std::string const strExpected = Lines({
        "strategy: Tree (main.per)",
        "  command list: 3 commands",
        "    defrule command",
        "      fact list: 1 CEs",
        "        fact operation: not",
        "          fact: food-amount",
        "            expression list: 2 expressions",
        "              symbol: less-than",
        "              integer: 50",
        "      action list: 1 actions",
        "        action: train",
        "          expression list: 1 expressions",
        "            symbol: villager",
        "    load random command: default b.per, loaded a.per",
        "      load options list: 1 load options",
        "        load option: 50, a.per",
        "      command list: 2 commands",
        "        defconst command: bonus = 2",
        "        load command: a.per",
        "          command list: 2 commands",
        "    defconst command: lives = 3",
    });
    RunResult const result =
        dir.Run({"--tree", "--name", "Tree", "--seed", std::to_string(SeedDrawing(0, 50)),
                 "main.per"});
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strErr, "");
    EXPECT_EQ(result.strOut, strExpected);
}

TEST(CliTreeOutput, KeptBlocksShowBothBranchesAndSharedListsUnderEveryLoad)
{
    ScriptDir dir;
    dir.Write("blocks.per",
              "#load-if-not-defined REGICIDE\n"
              "    (load \"b\")\n"
              "#else\n"
              "    (defrule (true) => (do-nothing))\n"
              "#end-if\n"
              "(load \"b\")\n");
    dir.Write("b.per", "(defrule (true) => (resign))\n");

    std::vector<std::string> const bLines = {
        "command list: 1 commands",
        "  defrule command",
        "    fact list: 1 CEs",
        "      fact: true",
        "    action list: 1 actions",
        "      action: resign",
    };
    std::vector<std::string> lines = {
        "strategy: blocks.per (blocks.per)",
        "  command list: 2 commands",
        "    block: load if not defined REGICIDE",
        "      command list: 1 commands",
        "        load command: b.per",
    };
    for (std::string const &line : bLines)
        lines.push_back("          " + line);
    lines.insert(lines.end(), {
        "      command list: 1 commands",
        "        defrule command",
        "          fact list: 1 CEs",
        "            fact: true",
        "          action list: 1 actions",
        "            action: do-nothing",
        "    load command: b.per",
    });
    for (std::string const &line : bLines)
        lines.push_back("      " + line);

    RunResult const result = dir.Run({"--no-expand-blocks", "--tree", "blocks.per"});
    EXPECT_EQ(result.nStatus, 0) << result.strErr;
    EXPECT_EQ(result.strOut, Lines(lines));
}

TEST(CliTreeOutput, AFailedAnalysisPrintsNoTree)
{
    ScriptDir dir;
    dir.Write("main.per", "(defrule (true) => (do-nothing))\n(load \"gone\")\n");
    RunResult const result = dir.Run({"--tree", "main.per"});
    EXPECT_EQ(result.nStatus, 1);
    EXPECT_EQ(result.strOut, "");
    EXPECT_EQ(result.strErr, "gone.per: the file was not found.\n");
}
