// Random loads through the host: --seed fixes the generator (seed 1 when not
// given), so the choice follows from the seed's draws.
#include <gtest/gtest.h>

#include "CliTestSupport.h"

namespace {

// The listing lines of a random load of `options` that chose `file` (or
// nothing); every file holds a rule chatting its own name.
Strings RandomLines(Strings const &options, std::string const &strChosen)
{
    Strings lines{";(load-random"};
    for (std::string const &option : options)
        lines.push_back(";\t" + option);
    lines.push_back(";)");
    if (strChosen.empty())
        return Join(lines, {";loaded: none", "", ""});
    Strings const rule = RuleLines("(true)", "(chat-local-to-self \"" + strChosen + "\")");
    return Join(Join(lines, {";loaded: " + strChosen, ""}), Banners(strChosen, rule));
}

} // namespace

TEST(CliRandomLoad, TheSeedsDrawPicksTheOptionWhoseRangeHoldsIt)
{
    ScriptDir const dir({{"r1.per", "(defrule (true) => (chat-local-to-self \"r1.per\"))\n"},
                         {"r2.per", "(defrule (true) => (chat-local-to-self \"r2.per\"))\n"},
                         {"r3.per", "(defrule (true) => (chat-local-to-self \"r3.per\"))\n"}});
    std::string const strThree = "(load-random 30 \"r1\" 50 \"r2\" \"r3\")\n";
    Strings const three = {"30 r1.per", "50 r2.per", "r3.per"};
    struct Case
    {
        unsigned int nSeed;
        std::string strScript;
        Strings options;
        std::string strChosen;
    } const cases[] = {
        {SeedDrawing(30, 30), strThree, three, "r1.per"},  // bounds belong to the earlier option
        {SeedDrawing(31, 31), strThree, three, "r2.per"},
        {SeedDrawing(80, 80), strThree, three, "r2.per"},
        {SeedDrawing(81, 100), strThree, three, "r3.per"},  // above every option: the default
        {SeedDrawing(81, 100), "(load-random 30 \"r1\" 50 \"r2\")\n", {"30 r1.per", "50 r2.per"}, ""},
    };
    for (Case const &c : cases)
    {
        dir.Write("main.per", c.strScript);
        Strings const files = c.strChosen.empty() ? Strings{"main.per"} : Strings{c.strChosen, "main.per"};
        SCOPED_TRACE("seed " + std::to_string(c.nSeed));
        ExpectListing(dir.Run({"--seed", std::to_string(c.nSeed), "main.per"}),
                      Listing("main.per", files, RandomLines(c.options, c.strChosen)));
    }

    // Successive loads take successive draws; seed 1's choose differently.
    dir.Write("main.per", "(load-random 50 \"r1\" \"r2\")\n(load-random 50 \"r1\" \"r2\")\n");
    ASSERT_NE(Percents(1, 2)[0] <= 50, Percents(1, 2)[1] <= 50);
    Strings body;
    for (int nDraw : Percents(1, 2))
        body = Join(body, RandomLines({"50 r1.per", "r2.per"}, nDraw <= 50 ? "r1.per" : "r2.per"));
    ExpectListing(dir.Run({"main.per"}), Listing("main.per", {"r1.per", "r2.per", "main.per"}, body));
}
