// Load commands, random loads and conditional blocks built by hand, with
// their loaded lists set the way loading sets them: listings, checks, and
// files that load themselves.
#include "TestSupport.h"

using LoadCommands = ObjectsTest;

namespace {

// The listing of a load at level 0 whose file gave nothing to write.
std::string LoadText(std::string const &strName, int nFill)
{
    return ";(load " + strName + ")\n;START " + strName + " " + Stars(nFill) + "\n\n\n;END " + strName + " " +
           Stars(nFill + 2) + "\n";
}

}  // namespace

// Banners fill to 80 columns with stars; long names get none.
TEST_F(LoadCommands, LoadsListTheirFileBetweenBanners)
{
    unsigned int nSID = AI_AddConstant("limit", 0);
    std::unique_ptr<AI_CCommandList> pLoaded(Commands({new AI_CDefconstCommand(nSID, 10, nullptr)}));
    AI_CLoadOptionList *pOptions = Options({{30, "a"}, {50, "b"}});
    HandLoadRandom random(pOptions, Str("d"));
    HandLoadRandom chosen(Options({{30, "a"}, {50, "b"}}), Str("d"));
    chosen.SetLoaded(chosen.GetFilename(), nullptr);  // chosen, but the file gave no list
    std::string const strHead = ";(load-random\n;\t30 a\n;\t50 b\n;\td\n;)\n";
    std::string const astrNames[] = {std::string(72, 'k'), std::string(73, 'n'), std::string(80, 'm')};
    std::vector<std::pair<std::string, std::string>> rows = {
        {Listing(HandLoad(Str("abc")), 1),
         ";\t(load abc)\n;\tSTART abc " + Stars(70) + "\n\n\n;\tEND abc " + Stars(72) + "\n"},
        {Listing(HandLoad(Str("abc"), pLoaded.get())),
         ";(load abc)\n;START abc " + Stars(70) + "\n\n(defconst limit 10)\n\n\n;END abc " + Stars(72) + "\n"},
        {Listing(HandLoad(Str(astrNames[0].c_str()))), LoadText(astrNames[0], 1)},
        {Listing(HandLoad(Str(astrNames[1].c_str()))), LoadText(astrNames[1], 0)},
        {Listing(HandLoad(Str(astrNames[2].c_str()))), LoadText(astrNames[2], 0)},
        {Listing(AI_CLoadOption(30, Str("a.per")), 2), ";\t\t30 a.per"},
        {Listing(*pOptions, 1), ";\t30 a\n;\t50 b\n"},
        {Listing(AI_CLoadRandomCommand(nullptr, nullptr, nullptr)), ";(load-random\n;)\n;loaded: none\n\n"},
        {Listing(random, 1), ";\t(load-random\n;\t\t30 a\n;\t\t50 b\n;\t\td\n;\t)\n;\tloaded: none\n\n"},
        {Listing(chosen), strHead + ";loaded: d\n\n;START d " + Stars(72) + "\n\n\n;END d " + Stars(74) + "\n"},
    };
    random.SetLoaded(OptionName(pOptions, 1), pLoaded.get());
    rows.push_back({Listing(random), strHead + ";loaded: b\n\n;START b " + Stars(72) + "\n\n(defconst limit 10)\n\n\n"
                                               ";END b " + Stars(74) + "\n"});
    ExpectRows(rows);
}

TEST_F(LoadCommands, BlocksListTheirDirectivesAndBranches)
{
    unsigned int nSID = AI_AddConstant("limit", 0);
    auto list = [nSID](int nValue) { return Commands({new AI_CDefconstCommand(nSID, nValue, nullptr)}); };
    ExpectRows<std::string>({
        {Listing(AI_CBlock(1, kSmallMap, list(1), list(2)), 1),
         "\t#load-if-defined SMALL-MAP\n\n"
         "\t\t(defconst limit 1)\n\n"
         "\t#else ; SMALL-MAP\n\n"
         "\t\t(defconst limit 2)\n\n"
         "\t#end-if ; SMALL-MAP\n"},
        {Listing(AI_CBlock(0, kSmallMap, list(1), Commands({}))),
         "#load-if-not-defined SMALL-MAP\n\n"
         "\t(defconst limit 1)\n\n"
         "#else ; not SMALL-MAP\n\n"
         "#end-if ; not SMALL-MAP\n"},
        {Listing(AI_CBlock(0, kDeathMatch, Commands({}), nullptr)),
         "#load-if-not-defined DEATH-MATCH\n\n#end-if ; not DEATH-MATCH\n"},
        {Listing(AI_CBlock(1, 105, Commands({}), nullptr)), "#load-if-defined \n\n#end-if ; \n"},  // unnamed SID
    });
}

// Loads pass or fail with their loaded list and fail without one. A block
// checks the branch its flag names; the define is not evaluated (SMALL-MAP
// holds with the default settings, DEATH-MATCH does not).
TEST_F(LoadCommands, LoadsAndBlocksAreCheckedThroughTheirLists)
{
    Calls calls;
    auto probe = [&calls](int nCheck, char const *pszName) {
        return Commands({new ProbeCommand(nCheck, 1, &calls, pszName)});
    };
    std::unique_ptr<AI_CCommandList> pPass(probe(1, "p"));
    std::unique_ptr<AI_CCommandList> pFail(probe(0, "f"));
    AI_CLoadOptionList *pOptions = Options({{50, "a"}});
    HandLoadRandom random(pOptions, nullptr);
    auto randomCheck = [&random, pOptions](bool bChosen, AI_CCommandList *pLoaded) {
        random.SetLoaded(bChosen ? OptionName(pOptions, 0) : nullptr, pLoaded);
        return random.Check();
    };
    ExpectRows<int>({
        {HandLoad(Str("a")).Check(), 0},
        {HandLoad(Str("a"), pPass.get()).Check(), 1},
        {HandLoad(Str("a"), pFail.get()).Check(), 0},
        {randomCheck(false, nullptr), 0},
        {randomCheck(true, nullptr), 0},
        {randomCheck(true, pPass.get()), 1},
        {randomCheck(true, pFail.get()), 0},
        {AI_CBlock(1, kSmallMap, probe(0, "if"), probe(1, "else")).Check(), 0},
        {AI_CBlock(1, kDeathMatch, probe(1, "if"), nullptr).Check(), 1},
        {AI_CBlock(0, kSmallMap, probe(1, "if"), probe(0, "else")).Check(), 0},
        {AI_CBlock(0, kSmallMap, probe(0, "if"), nullptr).Check(), 1},
    });
    EXPECT_EQ((Calls{"check p", "check f", "check p", "check f", "check if", "check if", "check else"}), calls);
}

TEST_F(LoadCommands, BlockLoadsBothBranchesAndNeverCountsAsLoaded)
{
    Calls calls;
    AI_CCommandList list;
    AI_CBlock *pBlock = new AI_CBlock(
        0, kSmallMap, Commands({new ProbeCommand(1, 0, &calls, "a"), new ProbeCommand(1, 1, &calls, "b")}),
        Commands({new ProbeCommand(1, 0, &calls, "c")}));
    list.Add(pBlock);
    list.Load();
    list.Load();
    EXPECT_EQ((Calls{"load a", "load c", "load a", "load c"}), calls);
    EXPECT_EQ(0, pBlock->IsLoaded());
}

// A file that loads itself: the load command inside the file's list points
// back at that list. Listing and checking stop where the cycle closes.
TEST_F(LoadCommands, SelfLoadingListIsWrittenOnceAndCheckedOnce)
{
    Calls calls;
    AI_CCommandList self;
    self.Add(new ProbeCommand(1, 1, &calls, "p"));
    self.Add(new HandLoad(Str("self"), &self));
    // The probe writes nothing; the list's line end follows it.
    EXPECT_EQ("\n" + LoadText("self", 69) + "\n", Listing(self));

    // Reached from outside, the list is written once, its inner load only
    // as banners.
    HandLoad outer(Str("self"), &self);
    std::string const strStart = ";\tSTART self " + Stars(69) + "\n\n";
    std::string const strEnd = ";\tEND self " + Stars(71) + "\n";
    EXPECT_EQ(";\t(load self)\n" + strStart + "\n;\t(load self)\n" + strStart + "\n" + strEnd + "\n\n" + strEnd,
              Listing(outer, 1));

    EXPECT_EQ(1, outer.Check());
    EXPECT_EQ(1, self.Check());
    EXPECT_EQ((Calls{"check p", "check p"}), calls);
    // A failing command after the cycle still fails the check, once.
    self.Add(new ProbeCommand(0, 1, &calls, "f"));
    EXPECT_EQ(0, self.Check());
    EXPECT_EQ((Calls{"check p", "check p", "check p", "check f"}), calls);
}

TEST_F(LoadCommands, CycleThroughARandomLoadStopsToo)
{
    AI_CCommandList first;
    AI_CCommandList second;
    AI_CLoadOptionList *pOptions = Options({{100, "b"}});
    HandLoadRandom *pRandom = new HandLoadRandom(pOptions, nullptr);
    pRandom->SetLoaded(OptionName(pOptions, 0), &second);
    first.Add(pRandom);
    second.Add(new HandLoad(Str("a"), &first));
    EXPECT_EQ(";(load-random\n;\t100 b\n;)\n;loaded: b\n\n;START b " + Stars(72) + "\n\n" + LoadText("a", 72) +
                  "\n\n;END b " + Stars(74) + "\n\n",
              Listing(first));
    EXPECT_EQ(1, first.Check());
    EXPECT_EQ(1, second.Check());
}
